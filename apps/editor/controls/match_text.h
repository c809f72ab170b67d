#pragma once

#include <QColor>
#include <QFont>
#include <QQuickPaintedItem>
#include <QStringList>

namespace editor {

/// A line of text, cut with an ellipsis at its width, that marks where the needles occur in it.
///
/// QML: `MatchText` of the module Editor.Items. Its implicit size is that of the whole text.
class MatchText : public QQuickPaintedItem
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QStringList needles READ needles WRITE setNeedles NOTIFY needlesChanged)
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY fontChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor matchColor READ matchColor WRITE setMatchColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor matchBackground READ matchBackground WRITE setMatchBackground NOTIFY colorsChanged)

public:
    explicit MatchText(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

    QString text() const { return m_text; }
    void setText(const QString& text);
    QStringList needles() const { return m_needles; }
    void setNeedles(const QStringList& needles);
    QFont font() const { return m_font; }
    void setFont(const QFont& font);
    QColor color() const { return m_color; }
    void setColor(const QColor& color) { setColour(m_color, color); }
    QColor matchColor() const { return m_matchColor; }
    void setMatchColor(const QColor& color) { setColour(m_matchColor, color); }
    QColor matchBackground() const { return m_matchBackground; }
    void setMatchBackground(const QColor& color) { setColour(m_matchBackground, color); }

Q_SIGNALS:
    void textChanged();
    void needlesChanged();
    void fontChanged();
    void colorsChanged();

private:
    void setColour(QColor& field, const QColor& color);
    void measure();

    QString m_text;
    QStringList m_needles;
    QFont m_font;
    QColor m_color = Qt::white;
    QColor m_matchColor = Qt::black;
    QColor m_matchBackground = Qt::yellow;
};

} // namespace editor
