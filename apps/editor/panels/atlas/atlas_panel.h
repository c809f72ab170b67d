#pragma once

#include "atlas_document.h"
#include "panels/form/property_rows.h"
#include "panels/panel_table.h"

#include <datamodels/helpers/qt_grid_view_selector.h>
#include <host/reflection/multi_selection.h>

namespace editor {

/// The panel "Atlas": the slots of a texture atlas, and a form for those that are selected, or for the atlas itself.
class AtlasPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::AtlasDocument* document READ document CONSTANT)
    Q_PROPERTY(editor::PropertyRows* rows READ rows CONSTANT)
    Q_PROPERTY(QtGridViewSelector* selector READ selector CONSTANT)
    Q_PROPERTY(QString title READ title NOTIFY subjectChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY subjectChanged)
    Q_PROPERTY(bool hasAtlas READ hasAtlas NOTIFY statusChanged)
    Q_PROPERTY(int loading MEMBER m_loading) ///< pictures that the view waits for

public:
    explicit AtlasPanel(const PanelContext& context);
    ~AtlasPanel() override;

    QString status() const override;
    bool isModified() const override;
    std::vector<Shot> shots() override;
    bool isBusy() const override { return m_loading > 0; }

    AtlasDocument* document() { return &m_document; }
    PropertyRows* rows() { return &m_rows; }
    QtGridViewSelector* selector() { return &m_selector; }
    /// What the form is about.
    QString title() const;
    int selectedCount() const { return static_cast<int>(selected().size()); }
    bool hasAtlas() const { return m_document.asset() && m_document.asset()->totalTilesCount() > 0; }

    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void selectSlot(int slot);
    Q_INVOKABLE void clearSelected();
    /// Takes out what is empty, as one step.
    Q_INVOKABLE void crop();
    /// The files of the project below a folder whose names match a pattern, by their paths.
    Q_INVOKABLE QStringList files(const QString& folder, const QString& pattern) const;

Q_SIGNALS:
    void subjectChanged();

private:
    QItemSelectionModel& selection() const { return *m_document.selection(); }
    std::vector<std::size_t> selected() const;
    void showSelected();

    QString m_content;
    AtlasDocument m_document;
    PropertyRows m_rows;
    QtGridViewSelector m_selector;
    std::unique_ptr<zarn::MultiSelection> m_merged;
    int m_loading = 0;
};

} // namespace editor
