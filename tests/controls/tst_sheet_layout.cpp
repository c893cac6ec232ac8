// The sheet's own layout against the usual one of a text document: two ways to one answer.

#include "chords/Cifra.h"
#include "chords/Notas.h"
#include "controls/Appearance.h"
#include "controls/RichTextBox.h"
#include "controls/SheetLayout.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QRandomGenerator>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include <memory>

namespace {

/// @return the same text and formats under Qt's own layout, which wraps nothing either
std::unique_ptr<QTextDocument> UsualCopy(const QTextDocument& sheet)
{
    std::unique_ptr<QTextDocument> copy(sheet.clone());
    copy->setDocumentMargin(sheet.documentMargin());
    copy->setDefaultTextOption(sheet.defaultTextOption());
    copy->setPageSize(sheet.pageSize());
    return copy;
}

QImage Picture(const QTextDocument& document, const QSizeF& size,
               const QAbstractTextDocumentLayout::PaintContext& context)
{
    QImage picture(size.toSize().boundedTo(QSize(1500, 3000)), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    document.documentLayout()->draw(&painter, context);
    return picture;
}

QAbstractTextDocumentLayout::PaintContext ContextOf(QTextDocument& document, int from, int to)
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = QPalette(Qt::black, Qt::white);
    context.clip = QRectF(0, 0, 1500, 3000);
    context.cursorPosition = to;
    QAbstractTextDocumentLayout::Selection selection;
    selection.cursor = QTextCursor(&document);
    selection.cursor.setPosition(from);
    selection.cursor.setPosition(to, QTextCursor::KeepAnchor);
    selection.format.setBackground(Qt::blue);
    selection.format.setForeground(Qt::yellow);
    context.selections.append(selection);
    return context;
}

/// Compares sizes, places, points and pictures.
void Compare(RichTextBox& box)
{
    QTextDocument& sheet = *box.document();
    const auto usual = UsualCopy(sheet);
    auto* layout = sheet.documentLayout();
    auto* other = usual->documentLayout();
    usual->pageCount(); // finishes its layout
    // Places first: painting shapes what was only estimated before.
    QCOMPARE(layout->documentSize(), other->documentSize());
    for (QTextBlock a = sheet.begin(), b = usual->begin(); a.isValid(); a = a.next(), b = b.next())
        QCOMPARE(layout->blockBoundingRect(a).top(), other->blockBoundingRect(b).top());

    for (int y = -10; y < layout->documentSize().height() + 30; y += 37) {
        for (int x = -10; x < 900; x += 61) {
            const QPointF point(x, y);
            const int hit = layout->hitTest(point, Qt::FuzzyHit);
            const int expected = other->hitTest(point, Qt::FuzzyHit);
            QVERIFY2(
                hit == expected,
                qPrintable(u"%1 instead of %2 at %3, %4"_qs.arg(hit).arg(expected).arg(x).arg(y)));
        }
    }
    const int end = sheet.characterCount() - 1;
    const int from = end / 3;
    const int to = end / 2;
    // The usual layout cuts what a letter paints beyond the end of the longest line.
    const QSizeF area = layout->documentSize() - QSizeF(sheet.documentMargin() + 1, 0);
    QCOMPARE(Picture(sheet, area, ContextOf(sheet, from, to)),
             Picture(*usual, area, ContextOf(*usual, from, to)));
}

QString AnySong(QRandomGenerator& random, int lines)
{
    static const QStringList pieces = {u"Santo, "_qs, u"coração "_qs,    u"C  G7 "_qs,
                                       u"\t"_qs,      u"\u6B4C"_qs,      u"e\u0301 "_qs,
                                       u"\u2028"_qs,  u"\U0001F3B5 "_qs, u"\u05E9\u05D9 "_qs,
                                       u"\u00A0"_qs,  u"   "_qs,         u"fi -> != "_qs,
                                       u"F#m7(b5)"_qs};
    QString song;
    for (int line = 0; line < lines; ++line) {
        const bool plain = random.bounded(3) > 0;
        for (auto i = random.bounded(8); i > 0; --i)
            song += pieces[plain ? random.bounded(3) : random.bounded(int(pieces.size()))];
        song += u"\r\n"_qs;
    }
    return song;
}

} // namespace

class tst_sheet_layout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void sheetsLookAsInTheUsualLayout_data();
    void sheetsLookAsInTheUsualLayout();
    void editedSheetsLookAsInTheUsualLayout();
    void onlyTheFirstLinesOfAKindAreShaped();
    void anotherKeyShapesNoLineUntilItIsSeen();
    void anotherFontIsLearnedAnew();
};

void tst_sheet_layout::initTestCase()
{
    Appearance::Apply(*qApp);
    Funcoes::Notas = {u"?"_qs,  u"C"_qs, u"C#"_qs, u"D"_qs, u"D#"_qs, u"E"_qs, u"F"_qs,
                      u"F#"_qs, u"G"_qs, u"G#"_qs, u"A"_qs, u"A#"_qs, u"B"_qs};
    Funcoes::Notas_Mais = Funcoes::Notas;
}

void tst_sheet_layout::sheetsLookAsInTheUsualLayout_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<int>("step");
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("one line") << u"C  G"_qs << 0;
    QTest::newRow("verses") << u"C     G7\r\nSanto, santo é o Senhor\r\n\r\n"_qs.repeated(20) << 0;
    QTest::newRow("headings") << u"    Refrão\r\nC\r\nSanto\r\n"_qs.repeated(5) << 0;
    QTest::newRow("blanks at the ends") << u"C   \r\n  Santo    \r\n        \r\n"_qs << 0;
    QTest::newRow("tabs") << u"a\tb\tc\r\n\tSanto\r\n"_qs << 0;
    QTest::newRow("other scripts")
        << u"Santo\r\n\u6B4C\u6B4C e\r\n\u0416\u0437\r\nSanto \U0001F3B5\r\n"_qs << 0;
    QTest::newRow("line separators") << u"Santo\u2028Deus\u2028\r\nC\r\n"_qs << 0;
    QTest::newRow("signs that have no width") << u"a\u200Bb\u00ADc\u200F\r\ne\u0301\r\n"_qs << 0;
    for (const int step : {-20, -6, 1, 16})
        QTest::addRow("step %d", step)
            << u"C  F#m7(b5)\r\nSanto, fi -> Deus\r\n"_qs.repeated(9) << step;
    QRandomGenerator random(4);
    for (int i = 0; i < 20; ++i)
        QTest::addRow("any song %d", i) << AnySong(random, 30) << 4 * (i % 5) - 8;
}

void tst_sheet_layout::sheetsLookAsInTheUsualLayout()
{
    QFETCH(QString, song);
    QFETCH(int, step);
    RichTextBox box;
    // What the box learned from the sheet before must not harm this one.
    box.SetTextRTF(
        Funcoes::Monta_Cifra(u"C  G7\r\nSanto, coração"_qs, 0, std::int16_t(step), true));
    box.SetTextRTF(Funcoes::Monta_Cifra(song, 0, std::int16_t(step), true));
    Compare(box);
}

void tst_sheet_layout::editedSheetsLookAsInTheUsualLayout()
{
    QRandomGenerator random(9);
    RichTextBox box;
    box.SetTextRTF(Funcoes::Monta_Cifra(AnySong(random, 30), 0, 0, true));
    QTextCursor cursor(box.document());
    for (int i = 0; i < 60; ++i) {
        cursor.setPosition(random.bounded(box.document()->characterCount()));
        switch (random.bounded(5)) {
        case 0:
            cursor.insertText(u"Santo"_qs);
            break;
        case 1:
            cursor.insertText(u"C\nDeus\n\n"_qs);
            break;
        case 2:
            cursor.setPosition(random.bounded(box.document()->characterCount()),
                               QTextCursor::KeepAnchor);
            if (cursor.selectedText().size() < 200)
                cursor.removeSelectedText();
            break;
        case 3:
            cursor.deletePreviousChar();
            break;
        default:
            box.undo();
        }
        Compare(box);
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_sheet_layout::onlyTheFirstLinesOfAKindAreShaped()
{
    RichTextBox box;
    const auto* layout = qobject_cast<SheetLayout*>(box.document()->documentLayout());
    QVERIFY(layout);
    box.SetTextRTF(Funcoes::Monta_Cifra(
        u"C     G7\r\nSanto, santo é o Senhor\r\n"_qs.repeated(1000), 0, 0, true));
    QVERIFY2(layout->ShapedBlocks() < 20, qPrintable(QString::number(layout->ShapedBlocks())));
    QVERIFY(layout->documentSize().height() > 10000);
}

void tst_sheet_layout::anotherKeyShapesNoLineUntilItIsSeen()
{
    RichTextBox box;
    box.resize(900, 400);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    const auto* layout = qobject_cast<SheetLayout*>(box.document()->documentLayout());
    const QString song = u"C     G7\r\nSanto, santo é o Senhor\r\n"_qs.repeated(1000);
    for (int key = 0; key < 12; ++key)
        box.SetTextRTF(Funcoes::Monta_Cifra(song, std::int16_t(key), 0, true));
    const qsizetype before = layout->ShapedBlocks();
    box.SetTextRTF(Funcoes::Monta_Cifra(song, 5, 0, true));
    Funcoes::Calcula_Limite_Rolagem(box);
    box.viewport()->repaint();
    QVERIFY2(layout->ShapedBlocks() - before < 40,
             qPrintable(QString::number(layout->ShapedBlocks() - before)));
}

void tst_sheet_layout::anotherFontIsLearnedAnew()
{
    RichTextBox box;
    const QString song = u"C     G7\r\nSanto, iii WWW\r\n"_qs.repeated(20);
    for (const char* family : {"DejaVu Sans Mono", "Carlito", "DejaVu Sans", "Inconsolata"}) {
        QString rtf = Funcoes::Monta_Cifra(song, 0, 0, true);
        rtf.replace(u"Consolas"_qs, QString::fromLatin1(family));
        box.SetTextRTF(rtf);
        Compare(box);
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_MAIN(tst_sheet_layout)
#include "tst_sheet_layout.moc"
