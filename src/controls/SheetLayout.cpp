#include "controls/SheetLayout.h"

#include <QGlyphRun>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t MostPitches = 16;

QSizeF SizeOf(const QTextLayout& layout)
{
    qreal width = 0;
    qreal height = 0;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        width = std::max(width, line.naturalTextRect().right());
        height += line.height();
    }
    return {width, height};
}

/// @return the block's text when all of it has one format, which goes to format
bool HasOneFormat(const QTextBlock& block, QTextCharFormat& format, QString& text)
{
    auto part = block.begin();
    if (part.atEnd()) {
        format = block.charFormat();
        return true;
    }
    const QTextFragment fragment = part.fragment();
    if (fragment.length() != block.length() - 1)
        return false;
    format = fragment.charFormat();
    text = fragment.text();
    return true;
}

} // namespace

SheetLayout::SheetLayout(QTextDocument* document)
    : QAbstractTextDocumentLayout(document)
{
}

QRectF SheetLayout::frameBoundingRect(QTextFrame*) const
{
    return {QPointF(), m_size};
}

QRectF SheetLayout::blockBoundingRect(const QTextBlock& block) const
{
    const auto number = static_cast<std::size_t>(block.blockNumber());
    if (!block.isValid() || number >= m_extents.size())
        return {};
    // Cursors come this way to have a block laid out.
    Shape(block);
    const Extent& extent = m_extents[number];
    return {document()->documentMargin(), extent.top, extent.width, extent.height};
}

void SheetLayout::documentChanged(int from, int, int added)
{
    ForgetOtherFonts();
    int last = 0;
    const int first = SpliceChanged(from, added, last);
    QTextBlock block = document()->findBlockByNumber(first);
    for (int number = first; number <= last && block.isValid(); ++number, block = block.next()) {
        Extent& extent = m_extents[static_cast<std::size_t>(number)];
        m_leaning -= extent.leans;
        block.clearLayout();
        Measure(block, extent);
        m_leaning += extent.leans;
    }
    const QSizeF before = m_size;
    Stack(first);
    if (m_size != before)
        emit documentSizeChanged(m_size);
    const qreal top = m_extents[static_cast<std::size_t>(first)].top;
    const QSizeF all = m_size.expandedTo(before);
    emit update(QRectF(0, top, std::max<qreal>(all.width(), 1 << 20), all.height() - top));
}

/// Makes room for the extents of the blocks that an edit touched; all others keep theirs.
/// @return the number of the first of them, last is that of the last
int SheetLayout::SpliceChanged(int from, int added, int& last)
{
    const int blocks = document()->blockCount();
    const auto known = static_cast<int>(m_extents.size());
    int first = document()->findBlock(from).blockNumber();
    const QTextBlock end = document()->findBlock(from + added);
    last = end.isValid() ? end.blockNumber() : blocks - 1;
    const int keptFrom = known - (blocks - 1 - last);
    if (first < 0 || keptFrom <= first || first >= known) {
        m_extents.assign(static_cast<std::size_t>(blocks), Extent());
        m_leaning = 0;
        last = blocks - 1;
        return 0;
    }
    const auto gone = std::count_if(m_extents.begin() + first, m_extents.begin() + keptFrom,
                                    [](const Extent& extent) { return extent.leans; });
    m_leaning -= static_cast<int>(gone);
    const int grown = last + 1 - keptFrom;
    if (grown > 0)
        m_extents.insert(m_extents.begin() + keptFrom, static_cast<std::size_t>(grown), Extent());
    else
        m_extents.erase(m_extents.begin() + keptFrom + grown, m_extents.begin() + keptFrom);
    std::fill(m_extents.begin() + first, m_extents.begin() + last + 1, Extent());
    return first;
}

void SheetLayout::Stack(int from)
{
    const qreal margin = document()->documentMargin();
    auto index = static_cast<std::size_t>(from);
    qreal top = index == 0 ? margin : m_extents[index - 1].top + m_extents[index - 1].height;
    for (; index < m_extents.size(); ++index) {
        m_extents[index].top = top;
        top += m_extents[index].height;
    }
    qreal width = 0;
    for (const Extent& extent : m_extents)
        width = std::max(width, extent.width);
    m_size = {width + 2 * margin, top + margin};
}

void SheetLayout::Measure(const QTextBlock& block, Extent& extent)
{
    QTextCharFormat format;
    QString text;
    Pitch* const pitch = HasOneFormat(block, format, text) ? &PitchOf(format) : nullptr;
    if (pitch && Estimate(text, *pitch, extent))
        return;
    Shape(block);
    const QSizeF size = SizeOf(*block.layout());
    extent.width = size.width();
    extent.height = size.height();
    extent.leans = block.textDirection() == Qt::RightToLeft;
    if (pitch)
        Learn(block, text, *pitch);
}

bool SheetLayout::Estimate(const QString& text, const Pitch& pitch, Extent& extent) const
{
    if (pitch.advance <= 0)
        return false;
    for (const QChar letter : text) {
        if (letter.unicode() >= Learnable || !pitch.known[letter.unicode()])
            return false;
    }
    extent.width = static_cast<qreal>(text.size()) * pitch.advance;
    extent.height = pitch.height;
    return true;
}

/// Learns from a block that is laid out. One font must have drawn it at even steps.
void SheetLayout::Learn(const QTextBlock& block, const QString& text, Pitch& pitch) const
{
    constexpr qsizetype Longest = 1000; // characters: a longer line teaches nothing new
    const QTextLayout& layout = *block.layout();
    if (text.isEmpty() || text.size() > Longest || layout.lineCount() != 1)
        return;
    for (const QChar letter : text) {
        if (letter.unicode() < u' ' || letter.unicode() >= Learnable ||
            (letter.unicode() >= 0x7F && letter.unicode() < 0xA0) || letter == QChar::SoftHyphen)
            return;
    }
    const qsizetype drawn = text.size();
    const QList<QGlyphRun> runs = layout.glyphRuns(0, static_cast<int>(drawn));
    if (runs.size() != 1 || runs[0].positions().size() != drawn)
        return;
    const QTextLine line = layout.lineAt(0);
    const qreal advance = line.naturalTextWidth() / static_cast<qreal>(drawn);
    if (pitch.advance > 0 && (advance != pitch.advance || line.height() != pitch.height))
        return;
    const QList<QPointF> places = runs[0].positions();
    for (qsizetype i = 1; i < drawn; ++i) {
        if (std::abs(places[i].x() - places[0].x() - static_cast<qreal>(i) * advance) > 0.01)
            return;
    }
    pitch.advance = advance;
    pitch.height = line.height();
    for (qsizetype i = 0; i < drawn; ++i)
        pitch.known.set(text[i].unicode());
}

SheetLayout::Pitch& SheetLayout::PitchOf(const QTextCharFormat& format)
{
    const auto known = std::find_if(m_pitches.begin(), m_pitches.end(),
                                    [&](const Pitch& pitch) { return pitch.format == format; });
    if (known != m_pitches.end())
        return *known;
    if (m_pitches.size() >= MostPitches)
        m_pitches.clear();
    m_pitches.push_back({format, 0, 0, {}});
    return m_pitches.back();
}

void SheetLayout::ForgetOtherFonts()
{
    if (m_font == document()->defaultFont())
        return;
    m_font = document()->defaultFont();
    m_pitches.clear();
}

/// Lays a block out for good, unless it is.
void SheetLayout::Shape(const QTextBlock& block) const
{
    QTextLayout& layout = *block.layout();
    if (layout.lineCount() > 0)
        return;
    ++m_shaped;
    const bool leans = block.textDirection() == Qt::RightToLeft;
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(block.textDirection());
    option.setAlignment(leans ? Qt::AlignRight : Qt::AlignLeft);
    layout.setTextOption(option);
    const qreal page = document()->pageSize().width() - 2 * document()->documentMargin();
    qreal y = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(std::max<qreal>(page, 0));
        line.setPosition({0, y});
        y += line.height();
    }
    layout.endLayout();
}

int SheetLayout::BlockNumberAt(qreal y) const
{
    const auto next = std::upper_bound(m_extents.begin(), m_extents.end(), y,
                                       [](qreal at, const Extent& e) { return at < e.top; });
    return std::max(0, static_cast<int>(next - m_extents.begin()) - 1);
}

int SheetLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const
{
    const bool exact = accuracy == Qt::ExactHit;
    if (m_extents.empty() || point.y() < m_extents.front().top)
        return exact ? -1 : 0;
    if (point.y() >= m_extents.back().top + m_extents.back().height)
        return exact ? -1 : document()->characterCount() - 1;
    // A point on the border of two lines belongs to the upper one.
    const auto at = std::lower_bound(m_extents.begin(), m_extents.end(), point.y(),
                                     [](const Extent& e, qreal y) { return e.top + e.height < y; });
    const QTextBlock block =
        document()->findBlockByNumber(static_cast<int>(at - m_extents.begin()));
    const QPointF within = point - blockBoundingRect(block).topLeft();
    const QTextLayout& layout = *block.layout();
    int offset = 0;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const QRectF drawn = line.naturalTextRect();
        if (drawn.bottom() <= within.y()) {
            offset = line.textStart() + line.textLength();
            continue;
        }
        if (exact && (within.x() < drawn.left() || within.x() > drawn.right()))
            return -1;
        offset = line.xToCursor(within.x(), exact ? QTextLine::CursorOnCharacter
                                                  : QTextLine::CursorBetweenCharacters);
        break;
    }
    return block.position() + offset;
}

void SheetLayout::draw(QPainter* painter, const PaintContext& context)
{
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), m_size);
    painter->setPen(context.palette.color(QPalette::Text));
    QTextBlock block = document()->findBlockByNumber(BlockNumberAt(clip.top()));
    for (; block.isValid(); block = block.next()) {
        const auto number = static_cast<std::size_t>(block.blockNumber());
        if (number >= m_extents.size() || m_extents[number].top >= clip.bottom())
            break;
        DrawBlock(painter, context, block, clip);
    }
}

void SheetLayout::DrawBlock(QPainter* painter, const PaintContext& context, const QTextBlock& block,
                            const QRectF& clip) const
{
    const QPointF place = blockBoundingRect(block).topLeft();
    QTextLayout& layout = *block.layout();
    QList<QTextLayout::FormatRange> selections;
    for (const Selection& selection : context.selections) {
        const int from = selection.cursor.selectionStart() - block.position();
        const int to = selection.cursor.selectionEnd() - block.position();
        if (from < block.length() && to > 0 && to > from)
            selections.append({from, to - from, selection.format});
    }
    layout.draw(painter, place, selections, clip);

    // Below -1 it stands in the text that an input method is still composing.
    const int cursor = context.cursorPosition;
    if (block.contains(cursor))
        layout.drawCursor(painter, place, cursor - block.position(), m_cursorWidth);
    else if (cursor < -1 && !layout.preeditAreaText().isEmpty())
        layout.drawCursor(painter, place, layout.preeditAreaPosition() - (cursor + 2),
                          m_cursorWidth);
}
