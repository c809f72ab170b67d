#include <support/paths.h>

#include <QAbstractItemModel>
#include <QStringList>

#include <stdexcept>

namespace {

// A model whose parents run in a circle must fail its test, not hang it.
constexpr int maxDepth = 256;

int numberIn(const QString& text, const QString& path)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber)
        throw std::invalid_argument("not a path of rows: " + path.toStdString());
    return number;
}

} // namespace

QString pathOf(const QModelIndex& index)
{
    if (!index.isValid())
        return QStringLiteral("/");

    QString path;
    int depth = 0;
    for (QModelIndex at = index; at.isValid(); at = at.parent()) {
        if (++depth > maxDepth)
            return QStringLiteral("...") + path;
        const QString column = at.column() == 0 ? QString() : QStringLiteral(":%1").arg(at.column());
        path.prepend(QStringLiteral("/%1%2").arg(at.row()).arg(column));
    }
    return path;
}

QModelIndex indexAt(const QAbstractItemModel& model, const QString& path)
{
    if (!path.startsWith('/'))
        throw std::invalid_argument("not a path of rows: " + path.toStdString());

    QModelIndex index;
    const QStringList steps = path == QLatin1String("/") ? QStringList() : path.mid(1).split('/');
    for (const QString& step : steps) {
        const int row = numberIn(step.section(':', 0, 0), path);
        const int column = step.contains(':') ? numberIn(step.section(':', 1), path) : 0;
        index = model.index(row, column, index);
        if (!index.isValid())
            return {};
    }
    return index;
}
