#pragma once

#include <QPersistentModelIndex>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// What a `CompositeModel` is to know and to tell of one model mounted at its first row, written down in the plainest
/// way: items are searched depth first, rows by counting.
class PlainMirror
{
public:
    struct Item
    {
        QPersistentModelIndex source;
        Item* parent = nullptr;
        std::vector<std::unique_ptr<Item>> children; // null for a row not asked for

        bool isMount() const { return !parent; }
        int row() const;
        QString path() const;
    };

    explicit PlainMirror(QAbstractItemModel& model);
    Q_DISABLE_COPY_MOVE(PlainMirror)

    Item& mount() { return m_mount; }
    /// As many as the composite shows.
    int rowCount(const Item& item) const;
    /// The item of a row, made if it has not been asked for.
    Item& ask(Item& parent, int row);
    void forEachItem(const std::function<void(const Item&)>& visit) const;

    /// What the composite should have told since the last time, as `SignalLog` writes it.
    QStringList take();

private:
    using Parents = QList<QPersistentModelIndex>;

    Item* find(const QModelIndex& source);
    void tell(const char* what, const QString& path, int first, int last);
    void insertSlots(Item& item, int first, int count);
    void removeSlots(Item& item, int first, int last);
    void begin(const QString& closing);
    void end();
    void beginMove(const QModelIndex& from, int first, int last, const QModelIndex& to, int row);
    QString pathsOf(const Parents& parents);
    void beginLayout(const Parents& parents);
    void beginReset();
    void endReset();
    void change(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);

    QAbstractItemModel& m_model;
    Item m_mount;
    QStringList m_lines;
    std::vector<std::function<QString()>> m_closing; // what is told when the change has happened; may be empty
    // An insertion that is told after the next closing; its parent is still known then, or nothing is told.
    Item* m_afterwards = nullptr;
    int m_rowAfterwards = 0;
    int m_countAfterwards = 0;
    bool m_isResetting = false;
    QObject m_context;
};
