#include <datamodels/helpers/qt_grid_view_selector.h>

#include <host/base/debug.h>

#include <QAbstractItemModel>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QQuickItem>

#include <algorithm>
#include <utility>

namespace {

bool isArrow(int key)
{
    return key >= Qt::Key_Left && key <= Qt::Key_Down;
}

bool isGrid(const QObject* target)
{
    return target && target->metaObject()->indexOfProperty("cellWidth") >= 0
        && target->metaObject()->indexOfProperty("keyNavigationEnabled") >= 0;
}

/// How many cells stand in a line: 1 at least, also where the width of a cell is no sensible number.
int columnsOf(const QObject& grid)
{
    const auto* const content = grid.property("contentItem").value<QQuickItem*>();
    const double columns = (content ? content->width() : 0) / grid.property("cellWidth").toDouble();
    return columns >= 1 ? static_cast<int>(std::min<double>(columns, 1 << 20)) : 1;
}

/// One place on from `at` among `size`.
int stepped(int at, int by, int size, bool wraps)
{
    const int next = at + by;
    if (next < 0)
        return wraps ? size - 1 : 0;
    if (next >= size)
        return wraps ? 0 : size - 1;
    return next;
}

} // namespace

class QtGridViewSelector::Private
{
public:
    void syncCurrentIndex();
    int targetRow(int key) const;
    void select(int row);

    QPointer<QObject> m_target;
    bool m_targetValid = false;
    QPointer<QItemSelectionModel> m_selection;
    QMetaObject::Connection m_currentChanged;
    SelectionMode m_selectionMode = MultiSelection;

private:
    void select(const QModelIndex& index, Qt::KeyboardModifiers modifiers);
};

void QtGridViewSelector::Private::syncCurrentIndex()
{
    if (m_selection && m_targetValid && m_target)
        m_target->setProperty("currentIndex", m_selection->currentIndex().row());
}

int QtGridViewSelector::Private::targetRow(int key) const
{
    const QAbstractItemModel* const model = m_selection->model();
    const int count = model ? model->rowCount() : 0;
    if (count == 0)
        return -1;
    const int current = m_selection->currentIndex().row();
    if (current == -1)
        return key == Qt::Key_Left || key == Qt::Key_Up ? count - 1 : 0;

    const bool wraps = m_target->property("keyNavigationWraps").toBool();
    const int columns = columnsOf(*m_target);
    const int rows = (count - 1) / columns + 1;
    int y = current / columns;
    int x = current % columns;
    if (key == Qt::Key_Left || key == Qt::Key_Right)
        x = stepped(x, key == Qt::Key_Left ? -1 : 1, columns, wraps);
    else
        y = stepped(y, key == Qt::Key_Up ? -1 : 1, rows, wraps);
    // Intended: past the end, where the last line is partly filled.
    return y * columns + x;
}

void QtGridViewSelector::Private::select(int row)
{
    if (!m_selection || !m_selection->model())
        return;
    if (row == -1) {
        m_selection->clearCurrentIndex();
        m_selection->clearSelection();
        return;
    }
    const QModelIndex index = m_selection->model()->index(row, 0);
    select(index, QGuiApplication::keyboardModifiers());
    m_selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void QtGridViewSelector::Private::select(const QModelIndex& index, Qt::KeyboardModifiers modifiers)
{
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    switch (m_selectionMode) {
    case SingleSelection:
        m_selection->select(index, control && m_selection->isSelected(index) ? QItemSelectionModel::Clear
                                                                             : QItemSelectionModel::ClearAndSelect);
        return;
    case MultiSelection:
        if (control)
            m_selection->select(index, QItemSelectionModel::Toggle);
        else if (shift)
            m_selection->select(QItemSelection(m_selection->currentIndex(), index), QItemSelectionModel::Select);
        else
            m_selection->select(index, QItemSelectionModel::ClearAndSelect);
        return;
    }
    OZY_ASSERT(false);
}

QtGridViewSelector::QtGridViewSelector(QObject* parent) : QObject(parent), d(std::make_unique<Private>()) {}

QtGridViewSelector::~QtGridViewSelector()
{
    disconnect(d->m_currentChanged);
}

QObject* QtGridViewSelector::target() const
{
    return d->m_target;
}

void QtGridViewSelector::setTarget(QObject* target)
{
    if (d->m_target == target)
        return;
    if (d->m_targetValid && d->m_target)
        d->m_target->removeEventFilter(this);
    d->m_target = target;
    d->m_targetValid = isGrid(target);
    if (d->m_targetValid) {
        target->installEventFilter(this);
        d->syncCurrentIndex();
    }
    Q_EMIT targetChanged();
}

QItemSelectionModel* QtGridViewSelector::selection() const
{
    return d->m_selection;
}

void QtGridViewSelector::setSelection(QItemSelectionModel* selection)
{
    if (d->m_selection == selection)
        return;
    disconnect(std::exchange(d->m_currentChanged, {}));
    d->m_selection = selection;
    if (selection) {
        d->m_currentChanged = connect(selection, &QItemSelectionModel::currentChanged, this,
                                      [this] { d->syncCurrentIndex(); }, Qt::DirectConnection);
    }
    d->syncCurrentIndex();
    Q_EMIT selectionChanged();
}

QtGridViewSelector::SelectionMode QtGridViewSelector::selectionMode() const
{
    return d->m_selectionMode;
}

void QtGridViewSelector::setSelectionMode(SelectionMode mode)
{
    if (d->m_selectionMode == mode)
        return;
    d->m_selectionMode = mode;
    Q_EMIT selectionModeChanged();
}

void QtGridViewSelector::pressed(int index)
{
    d->select(index);
}

bool QtGridViewSelector::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != d->m_target || event->type() != QEvent::KeyPress || !d->m_selection)
        return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    if (!isArrow(key) || !watched->property("keyNavigationEnabled").toBool())
        return false;
    d->select(d->targetRow(key));
    return true;
}
