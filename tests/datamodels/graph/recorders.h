#pragma once

#include <datamodels/graph/graph_model.h>
#include <host/base/debug.h>

#include <QStringList>

/// The texts logged while it lives.
class RecordedLog
{
public:
    RecordedLog()
        : m_before(Ozy::DebugMessageHelper::setSink(
              [this](const auto& record) { texts << QString::fromStdString(record.text).trimmed(); }))
    {
    }
    ~RecordedLog() { Ozy::DebugMessageHelper::setSink(m_before); }
    Q_DISABLE_COPY_MOVE(RecordedLog)

    QStringList texts;

private:
    Ozy::DebugMessageHelper::Sink m_before;
};

/// The row, reset and emptiness signals of a graph, in the order in which they came.
class RecordedGraph
{
public:
    explicit RecordedGraph(datamodels::GraphModel& model)
    {
        const auto rows = [this, &model](const QString& what) {
            return [this, &model, what](const QModelIndex& parent, int first, int last) {
                const QString container =
                    model.getContainerType(parent) == datamodels::GraphModel::Edges ? "edges" : "vertices";
                entries << QString("%1 %2 %3-%4").arg(what, container).arg(first).arg(last);
            };
        };
        const auto plain = [this](const QString& what) { return [this, what] { entries << what; }; };

        using Model = QAbstractItemModel;
        QObject::connect(&model, &Model::rowsAboutToBeInserted, &m_context, rows("inserting"));
        QObject::connect(&model, &Model::rowsInserted, &m_context, rows("inserted"));
        QObject::connect(&model, &Model::rowsAboutToBeRemoved, &m_context, rows("removing"));
        QObject::connect(&model, &Model::rowsRemoved, &m_context, rows("removed"));
        QObject::connect(&model, &Model::rowsMoved, &m_context,
                         [this](const QModelIndex&, int row, int, const QModelIndex&, int to) {
                             entries << QString("moved %1 before %2").arg(row).arg(to);
                         });
        QObject::connect(&model, &Model::modelAboutToBeReset, &m_context, plain("resetting"));
        QObject::connect(&model, &Model::modelReset, &m_context, plain("reset"));
        QObject::connect(&model, &Model::dataChanged, &m_context, plain("dataChanged"));
        QObject::connect(&model, &datamodels::GraphModel::isEmptyChanged, &m_context,
                         plain("isEmptyChanged"));
    }

    QStringList entries;

private:
    QObject m_context;
};
