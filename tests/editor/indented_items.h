#pragma once

#include <QStandardItemModel>
#include <QStringList>

/// Fills a model from names that are indented by two spaces a level: {"a", "  x", "b"}.
inline void fillIndented(QStandardItemModel& model, const QStringList& lines)
{
    QVector<QStandardItem*> path{model.invisibleRootItem()};
    for (const QString& line : lines) {
        const QString name = line.trimmed();
        path.resize((line.size() - name.size()) / 2 + 1);
        auto* item = new QStandardItem(name);
        path.last()->appendRow(item);
        path.append(item);
    }
}
