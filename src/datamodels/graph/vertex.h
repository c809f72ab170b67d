#pragma once

#include <datamodels/datamodels_export.h>
#include <host/base/math.h>

#include <QObject>
#include <QString>

#include <cstddef>
#include <unordered_set>

namespace datamodels {

class Edge;

/// A box of a graph view: its label, place and size, and the edges that leave and enter it.
///
/// Views bind to the properties; a setter stores and notifies when the value differs. NaN never differs from
/// anything. Intended: the centre is kept in floats and compared with the double that is set, so a value that
/// no float holds exactly (0.1) notifies each time that it is set. The edges are not owned. `GraphModel`
/// keeps the two sets; the calls that change them are for it. Thread: GUI.
class DATAMODELS_API Vertex : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString label READ getLabel WRITE setLabel NOTIFY labelChanged)
    Q_PROPERTY(double centerX READ getCenterX WRITE setCenterX NOTIFY centerXChanged)
    Q_PROPERTY(double centerY READ getCenterY WRITE setCenterY NOTIFY centerYChanged)
    Q_PROPERTY(double centerZ READ getCenterZ WRITE setCenterZ NOTIFY centerZChanged)
    Q_PROPERTY(double width READ getWidth WRITE setWidth NOTIFY widthChanged)
    Q_PROPERTY(double height READ getHeight WRITE setHeight NOTIFY heightChanged)

public:
    explicit Vertex(const QString& label = QString(), QObject* parent = nullptr, double width = 180.0,
                    double height = 32.0);

    virtual void setLabel(const QString& label);
    virtual void setCenterX(double x);
    virtual void setCenterY(double y);
    virtual void setCenterZ(double z);
    virtual void setWidth(double width);
    virtual void setHeight(double height);

    QString getLabel() const { return m_label; }
    double getCenterX() const { return m_center.x; }
    double getCenterY() const { return m_center.y; }
    double getCenterZ() const { return m_center.z; }
    double getWidth() const { return m_width; }
    double getHeight() const { return m_height; }

    const Ozy::Vector3& getCenterPosition() const { return m_center; }

    /// Sets x, y and z in this order, each compared and notified by itself.
    void setCenterPosition(const Ozy::Vector3& center);

    const std::unordered_set<Edge*>& getOutEdges() const { return m_outEdges; }
    std::size_t getOutEdgesCount() const { return m_outEdges.size(); }
    const std::unordered_set<Edge*>& getInEdges() const { return m_inEdges; }
    std::size_t getInEdgesCount() const { return m_inEdges.size(); }

    /// The books of the graph; each tells whether its set changed.
    bool insertInEdge(Edge* edge);
    bool insertOutEdge(Edge* edge);
    bool eraseInEdge(Edge* edge);
    bool eraseOutEdge(Edge* edge);

Q_SIGNALS:
    void labelChanged(QString oldLabel);
    void centerXChanged();
    void centerYChanged();
    void centerZChanged();
    void widthChanged();
    void heightChanged();

    /// For the delegate to emit and others to hear; the library emits neither.
    void dragStarted(double x, double y);
    void dragStopped(double x, double y);

private:
    std::unordered_set<Edge*> m_outEdges;
    std::unordered_set<Edge*> m_inEdges;
    Ozy::Vector3 m_center;
    QString m_label;
    double m_width;
    double m_height;
};

} // namespace datamodels
