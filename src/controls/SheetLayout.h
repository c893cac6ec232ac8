#pragma once

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QTextCharFormat>

#include <bitset>
#include <vector>

class QTextBlock;
class QTextLine;

/// Lays out a text whose lines never wrap, as the usual layout of a text document does, only
/// without shaping every line: in a monospaced font the size of a line follows from its length.
/// Which characters of which format keep to one advance is learned from lines that are laid out for
/// good; a line with any other character is always laid out for good, and so is what is painted,
/// pointed at or walked through. So the size of the document is that of the finished layout at any
/// time.
class SheetLayout final : public QAbstractTextDocumentLayout
{
    Q_OBJECT
    /// Whether a line leans on the width of the page, as those that run from right to left do; the
    /// text edit lays out again at each resize only then.
    Q_PROPERTY(bool contentHasAlignment READ LeansOnPage)
    Q_PROPERTY(int cursorWidth MEMBER m_cursorWidth) // pixels; set by the text edit

public:
    explicit SheetLayout(QTextDocument* document);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override { return m_size; }
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

    /// @return how many blocks were shaped since the layout was made: what its speed comes from
    qsizetype ShapedBlocks() const { return m_shaped; }

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    static constexpr std::size_t Learnable = 0x250; // Latin: no marks, no ligatures, no direction

    /// What is known of the lines of one format.
    struct Pitch
    {
        QTextCharFormat format;
        qreal advance = 0; ///< pixels; 0 while nothing is known
        qreal height = 0;  ///< pixels
        std::bitset<Learnable> known;
    };

    struct Extent
    {
        qreal top = 0; ///< pixels from the top of the document
        qreal height = 0;
        qreal width = 0;
        bool leans = false; ///< see contentHasAlignment
    };

    bool LeansOnPage() const { return m_leaning > 0; }
    void Measure(const QTextBlock& block, Extent& extent);
    bool Estimate(const QString& text, const Pitch& pitch, Extent& extent) const;
    void Shape(const QTextBlock& block) const;
    void Learn(const QTextBlock& block, const QString& text, Pitch& pitch) const;
    Pitch& PitchOf(const QTextCharFormat& format);
    void ForgetOtherFonts();
    int SpliceChanged(int from, int added, int& last);
    void Stack(int from);
    int BlockNumberAt(qreal y) const;
    void DrawBlock(QPainter* painter, const PaintContext& context, const QTextBlock& block,
                   const QRectF& clip) const;

    std::vector<Extent> m_extents; ///< of each block
    std::vector<Pitch> m_pitches;
    QFont m_font; ///< the document's, that m_pitches was learned with
    QSizeF m_size;
    int m_leaning = 0; ///< blocks that lean on the page
    int m_cursorWidth = 1;
    mutable qsizetype m_shaped = 0;
};
