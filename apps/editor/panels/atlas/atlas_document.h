#pragma once

#include "atlas_view.h"
#include "panels/history/live_history_model.h"
#include "refusal_watch.h"

#include <datamodels/atlas/atlas_asset.h>
#include <datamodels/atlas/atlas_context.h>
#include <host/resources/file_system_monitor.h>
#include <host/resources/resource_modification_listener.h>
#include <host/undo/changes_controller.h>

#include <QStringList>

namespace editor {

/// An atlas of the project with the history of its edits.
///
/// `message` says what was refused, in the words of the log, until the next edit. The history's clean state is what is saved.
/// When the files change outside, an atlas without edits is read again; one with edits says so. `atlasChanged` precedes the
/// death of the atlas that was there before. Thread: GUI.
class AtlasDocument : public QObject, private Ozy::ResourceModificationListener
{
    Q_OBJECT
    Q_PROPERTY(Ozy::ChangesController* history READ history CONSTANT)
    Q_PROPERTY(editor::LiveHistoryModel* steps READ steps CONSTANT)
    Q_PROPERTY(AtlasContext* context READ context CONSTANT)
    Q_PROPERTY(editor::AtlasView* view READ view CONSTANT)
    Q_PROPERTY(QStringList atlases READ atlases NOTIFY atlasChanged)
    Q_PROPERTY(QString path READ path NOTIFY atlasChanged)
    Q_PROPERTY(int tileSize READ tileSize NOTIFY atlasChanged)
    Q_PROPERTY(QStringList problems READ problems NOTIFY problemsChanged)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)

public:
    /// Opens the first atlas of a project, if it has one.
    explicit AtlasDocument(const QString& content);
    ~AtlasDocument() override;

    /// Null while the project has no atlas.
    AtlasAsset* asset() const { return m_asset.get(); }
    Ozy::ChangesController* history() { return &m_history; }
    LiveHistoryModel* steps() { return &m_steps; }
    AtlasContext* context() { return &m_context; }
    AtlasView* view() { return &m_view; }
    /// Of slots; its model is that of the view.
    QItemSelectionModel* selection() const { return m_context.getSelectionModel(); }
    /// The AM files of all atlases, by their paths in the project.
    QStringList atlases() const;
    /// That of the open atlas; empty if there is none.
    const QString& path() const { return m_path; }
    int tileSize() const { return m_asset ? m_asset->tileSize() : 0; }
    int freeSlots() const;
    /// What will not work in the game, a sentence a line: "Slot 3: ...".
    const QStringList& problems() const { return m_problems; }
    const QString& message() const { return m_message; }

    /// Another atlas of the project. Edits that were not saved are asked about by a message the first time.
    Q_INVOKABLE void open(const QString& path);
    Q_INVOKABLE bool save();
    Q_INVOKABLE void askToReload() { open(m_path); }
    Q_INVOKABLE void dismissMessage() { setMessage(QString()); }

    /// Fills free slots with AM textures: those that the user chooses in a dialog, or files from elsewhere.
    Q_INVOKABLE void addTextures();
    Q_INVOKABLE void addFiles(const QList<QUrl>& files);
    /// Takes the textures out of slots.
    void clear(const std::vector<std::size_t>& slots);
    /// Where the picture of a class stands among those of a slot; -1 if the slot has none of it.
    Q_INVOKABLE int pictureOf(int slot, int type) const;

Q_SIGNALS:
    void atlasChanged();
    /// The grid is another; slots may be.
    void gridChanged();
    void problemsChanged();
    void messageChanged();

private:
    /// What the files hold: the grid, and the textures of all slots.
    struct Content
    {
        int columns = 0;
        int rows = 0;
        std::vector<std::vector<std::string>> textures;

        bool operator==(const Content&) const = default;
    };

    static Content contentOf(const AtlasAsset& asset);
    void onResourceModified(std::string_view directory, std::string_view name, unsigned action) override;
    std::string file() const;
    void load();
    void publish();
    void later(bool& isQueued, void (AtlasDocument::*call)());
    void followGrid();
    void followDisk();
    void followSteps();
    void findProblems();
    void hear(const QString& refusal);
    void tellRefusals();
    void setMessage(const QString& message);

    QString m_content;
    QString m_path;
    std::unique_ptr<AtlasAsset> m_asset;
    Ozy::ChangesController m_history; // goes before the atlas
    LiveHistoryModel m_steps;
    AtlasView m_view;
    AtlasContext m_context;
    Content m_saved;
    QStringList m_problems;
    QStringList m_refusals;
    QString m_message;
    QString m_asked; // the path that was asked for in spite of edits
    bool m_isGridQueued = false;
    bool m_isDiskQueued = false;
    bool m_areRefusalsQueued = false;
    ryk::ScopedConnection m_gridConnection;
    std::unique_ptr<IFileSystemMonitor::Handle> m_disk;
    RefusalWatch m_watch;
};

} // namespace editor
