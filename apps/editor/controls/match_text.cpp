#include "match_text.h"

#include "text_matches.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <QtMath>

namespace editor {

MatchText::MatchText(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void MatchText::paint(QPainter* painter)
{
    const QFontMetricsF metrics(m_font);
    const QString shown = metrics.elidedText(m_text, Qt::ElideRight, width());
    // The ellipsis stands for text that may match, but is none itself.
    const int readable = shown == m_text ? shown.size() : shown.size() - 1;

    QVector<QTextLayout::FormatRange> marks;
    for (const TextRange& range : textMatches(m_text, m_needles)) {
        if (range.start >= readable)
            break;
        QTextLayout::FormatRange mark;
        mark.start = range.start;
        mark.length = qMin(range.length, readable - range.start);
        mark.format.setForeground(m_matchColor);
        mark.format.setBackground(m_matchBackground);
        marks.append(mark);
    }

    QTextLayout layout(shown, m_font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    painter->setPen(m_color);
    layout.draw(painter, QPointF(0, qRound((height() - metrics.height()) / 2)), marks);
}

void MatchText::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    measure();
    Q_EMIT textChanged();
}

void MatchText::setNeedles(const QStringList& needles)
{
    if (m_needles == needles)
        return;
    m_needles = needles;
    update();
    Q_EMIT needlesChanged();
}

void MatchText::setFont(const QFont& font)
{
    if (m_font == font)
        return;
    m_font = font;
    measure();
    Q_EMIT fontChanged();
}

void MatchText::setColour(QColor& field, const QColor& color)
{
    if (field == color)
        return;
    field = color;
    update();
    Q_EMIT colorsChanged();
}

void MatchText::measure()
{
    const QFontMetricsF metrics(m_font);
    setImplicitSize(qCeil(metrics.horizontalAdvance(m_text)), qCeil(metrics.height()));
    update();
}

} // namespace editor
