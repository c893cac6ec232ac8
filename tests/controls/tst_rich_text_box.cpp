#include "chords/Cifra.h"
#include "chords/Notas.h"
#include "controls/Appearance.h"
#include "controls/RichTextBox.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QtMath>

#include <algorithm>
#include <vector>

namespace {

QString Render(const QString& song, int step = 0, bool chords = true)
{
    return Funcoes::Monta_Cifra(song, 0, std::int16_t(step), chords);
}

QString SongOf(int lines)
{
    QString song;
    for (int i = 0; i < lines / 2; ++i)
        song += u"C     G7   %1\r\nSanto, santo é o Senhor\r\n"_qs.arg(i);
    return song;
}

QTextCharFormat FormatAt(const RichTextBox& box, int position)
{
    QTextCursor cursor(box.document());
    cursor.setPosition(position + 1);
    return cursor.charFormat();
}

int LeftOf(const RichTextBox& box, int position)
{
    QTextCursor cursor(box.document());
    cursor.setPosition(position);
    return box.cursorRect(cursor).left();
}

/// What the bar's maximum must be when nothing is left to lay out: from the last line's own place.
int FinishedMaximum(const RichTextBox& box)
{
    const QTextDocument& document = *box.document();
    const QRectF last = document.documentLayout()->blockBoundingRect(document.lastBlock());
    const int height = qCeil(last.bottom() + document.documentMargin());
    return std::max(0, height - box.viewport()->height());
}

/// Open to the protected door through which the clipboard's content comes.
class PasteBox : public RichTextBox
{
public:
    using RichTextBox::insertFromMimeData;
};

} // namespace

class tst_rich_text_box : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init();

    void openingAndSavingKeepsTheText_data();
    void openingAndSavingKeepsTheText();
    void theReferenceSheet();
    void charactersSurvive_data();
    void charactersSurvive();
    void chordsAreBlueAndBold();
    void theSizeFollowsTheStep_data();
    void theSizeFollowsTheStep();
    void chordsStandAboveTheirSyllables_data();
    void chordsStandAboveTheirSyllables();
    void formatsOfTheSheetBeforeAreGone();
    void longLinesDoNotWrap();
    void aSheetIsOneEdit();
    void undoCannotTakeTheSheetAway();
    void typedTextCanBeUndone();
    void aNewSheetStartsAtItsTop();
    void darkTextOnAWhiteSheet();
    void shiftEnterBreaksTheLine_data();
    void shiftEnterBreaksTheLine();
    void pastedTextTakesTheLookOfTheSheet();
    void plainTextIsShown_data();
    void plainTextIsShown();
    void plainTextKeepsTheSize();
    void theDocumentThatWasSetComesBack();
    void typedTextComesBackInTheDocument();
    void aCopyKeepsTextAndFormats();
    void theScrollLimitIsThatOfTheFinishedLayout_data();
    void theScrollLimitIsThatOfTheFinishedLayout();
    void theScrollLimitWithAHorizontalBar();
    void theScrollLimitFollowsTheContent();
    void theScrollLimitLeavesCaretAndPosition();
    void brokenDocumentsAreShownAsFarAsTheyGo();
};

void tst_rich_text_box::init()
{
    Funcoes::Notas = {u"?"_qs,  u"C"_qs, u"C#"_qs, u"D"_qs, u"D#"_qs, u"E"_qs, u"F"_qs,
                      u"F#"_qs, u"G"_qs, u"G#"_qs, u"A"_qs, u"A#"_qs, u"B"_qs};
    Funcoes::Notas_Mais = {u"?"_qs,  u"C"_qs, u"Db"_qs, u"D"_qs, u"Eb"_qs, u"E"_qs, u"F"_qs,
                           u"Gb"_qs, u"G"_qs, u"Ab"_qs, u"A"_qs, u"Bb"_qs, u"B"_qs};
}

void tst_rich_text_box::openingAndSavingKeepsTheText_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<bool>("chords");
    QTest::addColumn<QString>("once");
    QTest::addColumn<QString>("twice");
    const auto row = [](const char* name, const QString& song, const QString& once,
                        bool chords = true) {
        QTest::newRow(name) << song << chords << once << once;
    };
    row("chords and lyrics", u"C  G7\r\nSanto Deus"_qs, u"C  G7\r\nSanto Deus"_qs);
    row("with a final line break", u"C  G7\r\nSanto Deus\r\n"_qs, u"C  G7\r\nSanto Deus\r\n"_qs);
    row("a lyric first gets one empty line in front", u"Santo\r\nC"_qs, u"\r\nSanto\r\nC"_qs);
    row("a heading first gets one empty line in front", u"    Refrão"_qs, u"\r\n    REFRÃO"_qs);
    row("empty", u""_qs, u""_qs);
    row("a blank line inside", u"C\r\n\r\nSanto\r\n\r\n\r\nD"_qs,
        u"C\r\n\r\nSanto\r\n\r\n\r\nD"_qs);
    row("blank lines at the end", u"C\r\n\r\n\r\n"_qs, u"C\r\n\r\n\r\n"_qs);
    row("a blank line first", u"\r\nSanto"_qs, u"\r\nSanto"_qs);
    row("only a line break", u"\r\n"_qs, u"\r\n"_qs);
    row("blanks at both ends of lines", u"  C  \r\n  Santo  "_qs, u"  C  \r\n  Santo  "_qs);
    row("braces and backslashes", u"C\r\n{Coro} \\o/"_qs, u"C\r\n{Coro} \\o/"_qs);
    row("percent signs are lost", u"C\r\né 50%"_qs, u"C\r\né 50"_qs);
    row("a separator sign comes back as a line break", u"C£Santo"_qs, u"C\r\nSanto"_qs);
    row("a lone line feed vanishes", u"C\r\nSan\nto"_qs, u"C\r\nSanto"_qs);
    row("hidden chords and blank lines are lost", u"C\r\nSanto\r\n\r\nDeus\r\n"_qs,
        u"\r\nSanto\r\nDeus"_qs, false);
    row("nothing is left of hidden chords", u"C\r\nD\r\n"_qs, u""_qs, false);
}

void tst_rich_text_box::openingAndSavingKeepsTheText()
{
    QFETCH(QString, song);
    QFETCH(bool, chords);
    QFETCH(QString, once);
    QFETCH(QString, twice);
    RichTextBox box;
    box.SetTextRTF(Render(song, 0, chords));
    QCOMPARE(box.Text(), once);
    box.SetTextRTF(Render(box.Text(), 0, true));
    QCOMPARE(box.Text(), twice);
}

void tst_rich_text_box::theReferenceSheet()
{
    RichTextBox box;
    box.SetTextRTF(Funcoes::Monta_Cifra(u"C  G7\r\nSanto Deus", 2, 0, true));
    QCOMPARE(box.Text(), u"D  A7\r\nSanto Deus"_qs);
    QCOMPARE(box.Text().size(), 17);
}

void tst_rich_text_box::charactersSurvive_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("no-break space") << u"a\u00A0b\u00A0"_qs;
    QTest::newRow("characters beyond the code page") << u"\u266B \U0001F3B5 \u0436 \u6B4C"_qs;
    QTest::newRow("combining signs") << u"cora\u0063\u0327a\u0303o"_qs;
    QTest::newRow("tab") << u"a\tb"_qs;
    QTest::newRow("line separator") << u"a\u2028b"_qs;
    QTest::newRow("paragraph separator") << u"\u2029a\u2029\u2029b\u2029"_qs;
    QTest::newRow("noncharacters") << u"\uFDD0a\uFDD1\uFDD2\uFDD3\uFDD0\uFDD1\uFDD2\uFFFE\uFFFF"_qs;
    QTest::newRow("accents, then a separator")
        << QString(QString(70, QChar(0x0301)) + u"\u2029Deus"_qs);
    QTest::newRow("10,000 accents and a word") << QString(10'000, QChar(0x0301)) + u" Deus"_qs;
    QTest::newRow("30,000 notes") << u"\U0001F3B5"_qs.repeated(30'000);
    QTest::newRow("soft hyphen and zero width") << u"a\u00ADb\u200Bc"_qs;
    QTest::newRow("control characters") << u"a\u0001b\u001Fc\u007F"_qs;
    QTest::newRow("NUL") << QString(u"a\u0000b"_qs);
    QTest::newRow("object replacement") << u"a\uFFFCb"_qs;
    QTest::newRow("lone surrogate") << QString(u"a"_qs).append(QChar(0xD83C)).append(u'b');
    QTest::newRow("right to left") << u"a \u05E9\u05D9\u05E8 b"_qs;
}

void tst_rich_text_box::charactersSurvive()
{
    QFETCH(QString, line);
    RichTextBox box;
    box.SetTextRTF(Render(QString(u"C\r\né "_qs + line)));
    QCOMPARE(box.Text(), QString(u"C\r\né "_qs + line));
}

void tst_rich_text_box::chordsAreBlueAndBold()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C  G7\r\nSanto Deus\r\n    Refrão\r\nD"_qs));
    const QString text = box.toPlainText();
    for (const int chord : {0, 4, int(text.indexOf(u'D', 18))}) {
        QCOMPARE(FormatAt(box, chord).fontWeight(), int(QFont::Bold));
        QCOMPARE(FormatAt(box, chord).foreground().color(), QColor(0, 102, 204));
    }
    for (const int lyric : {6, 15}) {
        QVERIFY(FormatAt(box, lyric).fontWeight() <= QFont::Normal);
        QVERIFY(!FormatAt(box, lyric).hasProperty(QTextFormat::ForegroundBrush));
    }
    const int heading = int(text.indexOf(u"REFR"));
    QCOMPARE(FormatAt(box, heading).fontWeight(), int(QFont::Bold));
    QVERIFY(!FormatAt(box, heading).hasProperty(QTextFormat::ForegroundBrush));
}

void tst_rich_text_box::theSizeFollowsTheStep_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<double>("points");
    QTest::newRow("normal") << 0 << 17.0;
    QTest::newRow("preview of the song entry") << -6 << 14.0;
    QTest::newRow("smallest") << -20 << 7.0;
    QTest::newRow("largest") << 16 << 25.0;
    QTest::newRow("half a point") << 1 << 17.5;
}

void tst_rich_text_box::theSizeFollowsTheStep()
{
    QFETCH(int, step);
    QFETCH(double, points);
    RichTextBox box;
    box.SetTextRTF(Render(SongOf(10)));
    box.SetTextRTF(Render(u"C\r\nSanto"_qs, step));
    QCOMPARE(box.document()->defaultFont().pointSizeF(), points);
    QCOMPARE(box.document()->defaultFont().family(), Appearance::MonospacedFamily());
    QCOMPARE(FormatAt(box, 0).font().pointSizeF(), points);
    QCOMPARE(FormatAt(box, 4).font().pointSizeF(), points);
    box.SetTextRTF(Render(QString(), step));
    QTest::keyClicks(&box, u"a"_qs);
    QCOMPARE(FormatAt(box, 0).font().pointSizeF(), points);
}

void tst_rich_text_box::chordsStandAboveTheirSyllables_data()
{
    QTest::addColumn<int>("step");
    for (int step = -20; step <= 16; ++step)
        QTest::addRow("step %d", step) << step;
}

void tst_rich_text_box::chordsStandAboveTheirSyllables()
{
    QFETCH(int, step);
    const QString song = u"C     F#m7(b5)/E     Bb      G7  |  C  G  D  A  E  B  F#  C#  |\r\n"
                         u"Santo, fi é o Senhor -> Deus do universo, != o céu e a terra, já"_qs;
    RichTextBox box;
    box.resize(1366, 600);
    box.SetTextRTF(Render(song, step));
    const int lyrics = box.document()->findBlockByNumber(1).position();
    for (int column = 0; column < 60; ++column)
        QVERIFY(std::abs(LeftOf(box, column) - LeftOf(box, lyrics + column)) <= 1);
}

void tst_rich_text_box::formatsOfTheSheetBeforeAreGone()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C  G  D"_qs, 4));
    box.SetTextRTF(Render(u"Santo"_qs));
    for (int position = 0; position < 6; ++position) {
        QVERIFY(FormatAt(box, position).fontWeight() <= QFont::Normal);
        QVERIFY(!FormatAt(box, position).hasProperty(QTextFormat::ForegroundBrush));
        QCOMPARE(FormatAt(box, position).font().pointSizeF(), 17.0);
    }
}

void tst_rich_text_box::longLinesDoNotWrap()
{
    RichTextBox box;
    box.resize(300, 200);
    box.show();
    box.SetTextRTF(Render(u"C\r\né "_qs + u"Santo, "_qs.repeated(50)));
    box.FinishLayout();
    QCOMPARE(box.document()->findBlockByNumber(1).layout()->lineCount(), 1);
    QVERIFY(box.horizontalScrollBar()->maximum() > 1000);
    QVERIFY(box.horizontalScrollBar()->isVisible());
    box.SetTextRTF(Render(u"C\r\né"_qs));
    QTRY_VERIFY(!box.horizontalScrollBar()->isVisible());
}

void tst_rich_text_box::aSheetIsOneEdit()
{
    RichTextBox box;
    box.SetTextRTF(Render(SongOf(20)));
    const QSignalSpy edits(box.document(), &QTextDocument::contentsChange);
    const QSignalSpy changes(&box, &QTextEdit::textChanged);
    box.SetTextRTF(Render(SongOf(40)));
    QCOMPARE(edits.count(), 1);
    QCOMPARE(changes.count(), 1);
}

void tst_rich_text_box::undoCannotTakeTheSheetAway()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C\r\nSanto"_qs));
    QVERIFY(!box.document()->isUndoAvailable());
    box.undo();
    QCOMPARE(box.Text(), u"C\r\nSanto"_qs);
    box.SetText(u"Deus"_qs);
    box.undo();
    QCOMPARE(box.Text(), u"Deus"_qs);
}

void tst_rich_text_box::typedTextCanBeUndone()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C\r\nSanto"_qs));
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, u" Deus"_qs);
    QCOMPARE(box.Text(), u"C\r\nSanto Deus"_qs);
    for (int i = 0; i < 10; ++i)
        box.undo();
    QCOMPARE(box.Text(), u"C\r\nSanto"_qs);
}

void tst_rich_text_box::aNewSheetStartsAtItsTop()
{
    RichTextBox box;
    box.resize(200, 200);
    box.show();
    box.SetTextRTF(Render(SongOf(200)));
    Funcoes::Calcula_Limite_Rolagem(box);
    box.moveCursor(QTextCursor::End);
    box.horizontalScrollBar()->setValue(box.horizontalScrollBar()->maximum());
    QVERIFY(box.verticalScrollBar()->value() > 0);
    QVERIFY(box.horizontalScrollBar()->value() > 0);
    box.SetTextRTF(Render(SongOf(200), 4));
    QCOMPARE(box.verticalScrollBar()->value(), 0);
    QCOMPARE(box.horizontalScrollBar()->value(), 0);
    QCOMPARE(box.textCursor().position(), 0);
    QVERIFY(!box.textCursor().hasSelection());
}

void tst_rich_text_box::darkTextOnAWhiteSheet()
{
    const QPalette usual = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40), QColor(20, 20, 20)));
    QWidget window;
    window.setPalette(QPalette(QColor(90, 0, 0), QColor(10, 0, 0)));
    auto* box = new RichTextBox(&window);
    box->resize(300, 100);
    box->SetTextRTF(Render(u"é Santo"_qs));
    for (const bool enabled : {true, false}) {
        box->setEnabled(enabled);
        const QImage picture = box->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        int darkest = 255;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                darkest = std::min(darkest, qGray(picture.pixel(x, y)));
        }
        QCOMPARE(qGray(picture.pixel(250, 90)), 255);
        QVERIFY2(darkest < 60, qPrintable(QString::number(darkest)));
    }
    QApplication::setPalette(usual);
}

void tst_rich_text_box::shiftEnterBreaksTheLine_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("Enter") << Qt::Key_Return << shift;
    QTest::newRow("Enter of the keypad") << Qt::Key_Enter << (shift | Qt::KeypadModifier);
    QTest::newRow("Enter in the other group of a keyboard")
        << Qt::Key_Return << (shift | Qt::GroupSwitchModifier);
}

void tst_rich_text_box::shiftEnterBreaksTheLine()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    RichTextBox box;
    box.SetTextRTF(Render(u"C\r\nSanto"_qs));
    box.moveCursor(QTextCursor::End);
    QTest::keyClick(&box, key, modifiers);
    QTest::keyClicks(&box, u"a"_qs);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClicks(&box, u"b"_qs);
    QTest::keyClick(&box, key, modifiers);
    QCOMPARE(box.Text(), u"C\r\nSanto\r\na\r\nb\r\n"_qs);
    box.setReadOnly(true);
    QTest::keyClick(&box, key, modifiers);
    QCOMPARE(box.Text(), u"C\r\nSanto\r\na\r\nb\r\n"_qs);
}

void tst_rich_text_box::pastedTextTakesTheLookOfTheSheet()
{
    PasteBox box;
    box.SetTextRTF(Render(u"é"_qs));
    box.moveCursor(QTextCursor::End);
    QMimeData clipboard;
    clipboard.setText(u"Santo"_qs);
    clipboard.setHtml(u"<h1 style='color:red'>Santo</h1><img src='x.png'>"_qs);
    box.insertFromMimeData(&clipboard);
    QCOMPARE(box.Text(), u"\r\néSanto"_qs);
    QCOMPARE(FormatAt(box, 3).font().pointSizeF(), 17.0);
    QVERIFY(!FormatAt(box, 3).hasProperty(QTextFormat::ForegroundBrush));
}

void tst_rich_text_box::plainTextIsShown_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("empty") << u""_qs << u""_qs;
    QTest::newRow("CR LF") << u"a\r\nb\r\n"_qs << u"a\r\nb\r\n"_qs;
    QTest::newRow("LF") << u"a\nb"_qs << u"a\r\nb"_qs;
    QTest::newRow("CR") << u"a\rb"_qs << u"a\r\nb"_qs;
    QTest::newRow("mixed") << u"\n\r\n\ra"_qs << u"\r\n\r\n\r\na"_qs;
    QTest::newRow("RTF is text here") << u"{\\rtf1 a}"_qs << u"{\\rtf1 a}"_qs;
    QTest::newRow("markup is text") << u"<b>a</b> &amp;"_qs << u"<b>a</b> &amp;"_qs;
    QTest::newRow("no-break space") << u"a\u00A0b"_qs << u"a\u00A0b"_qs;
}

void tst_rich_text_box::plainTextIsShown()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    RichTextBox box;
    box.SetTextRTF(Render(u"C  G"_qs));
    box.SetText(text);
    QCOMPARE(box.Text(), shown);
    QVERIFY(box.currentCharFormat().fontWeight() <= QFont::Normal);
    RichTextBox other;
    other.SetTextRTF(box.TextRTF());
    QCOMPARE(other.Text(), shown);
}

void tst_rich_text_box::plainTextKeepsTheSize()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C"_qs, -6));
    box.SetText(u"Santo"_qs);
    QCOMPARE(FormatAt(box, 0).font().pointSizeF(), 14.0);
}

void tst_rich_text_box::theDocumentThatWasSetComesBack()
{
    RichTextBox box;
    const QString rtf = Render(u"C  G7\r\nSanto {Deus}"_qs, 3);
    box.SetTextRTF(rtf);
    QCOMPARE(box.TextRTF(), rtf);
    Funcoes::Calcula_Limite_Rolagem(box);
    box.moveCursor(QTextCursor::End);
    QCOMPARE(box.TextRTF(), rtf);
}

void tst_rich_text_box::typedTextComesBackInTheDocument()
{
    RichTextBox box;
    const QString rtf = Render(u"C\r\nSanto"_qs);
    box.SetTextRTF(rtf);
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, u" Deus"_qs);
    QTest::keyClick(&box, Qt::Key_Return);
    QVERIFY(box.TextRTF() != rtf);
    RichTextBox other;
    other.SetTextRTF(box.TextRTF());
    QCOMPARE(other.Text(), u"C\r\nSanto Deus\r\n"_qs);
}

void tst_rich_text_box::aCopyKeepsTextAndFormats()
{
    RichTextBox box;
    box.SetTextRTF(Render(u"C  G7(9)\r\nSanto {Deus} \\ \u266B\r\n\r\n    Refrão\r\n"_qs, 4));
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, u"\u00A0a"_qs);
    RichTextBox copy;
    copy.SetTextRTF(box.TextRTF());
    QCOMPARE(copy.Text(), box.Text());
    for (int position = 0; position + 1 < box.document()->characterCount(); ++position)
        QCOMPARE(FormatAt(copy, position), FormatAt(box, position));
    QCOMPARE(copy.document()->defaultFont(), box.document()->defaultFont());
}

void tst_rich_text_box::theScrollLimitIsThatOfTheFinishedLayout_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<bool>("shown");
    for (const int lines : {0, 4, 60, 200, 5000}) {
        QTest::addRow("%d lines, before the box is shown", lines) << lines << false;
        QTest::addRow("%d lines, in a box that is shown", lines) << lines << true;
    }
}

void tst_rich_text_box::theScrollLimitIsThatOfTheFinishedLayout()
{
    QFETCH(int, lines);
    QFETCH(bool, shown);
    QWidget window;
    auto* box = new RichTextBox(&window);
    window.resize(1366, 768);
    box->setGeometry(8, 100, 1350, 660);
    if (shown) {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    box->SetTextRTF(Render(SongOf(lines)));
    const int limit = Funcoes::Calcula_Limite_Rolagem(*box);
    window.show();
    QTest::qWait(50); // time for whatever was left to be laid out while idle
    QCOMPARE(box->verticalScrollBar()->maximum(), limit);
    QCOMPARE(limit, FinishedMaximum(*box));
    QCOMPARE(limit > 0, lines > 30);
}

void tst_rich_text_box::theScrollLimitWithAHorizontalBar()
{
    QWidget window;
    auto* box = new RichTextBox(&window);
    window.resize(400, 300);
    box->setGeometry(0, 0, 400, 300);
    box->SetTextRTF(Render(SongOf(60) + u"é"_qs.repeated(200)));
    const int limit = Funcoes::Calcula_Limite_Rolagem(*box);
    window.show();
    QVERIFY(box->horizontalScrollBar()->isVisible());
    QTest::qWait(50);
    QCOMPARE(limit, FinishedMaximum(*box));
    QCOMPARE(box->verticalScrollBar()->maximum(), limit);
}

void tst_rich_text_box::theScrollLimitFollowsTheContent()
{
    RichTextBox box;
    box.resize(800, 400);
    std::vector<int> limits;
    for (const int step : {-20, 0, 16}) {
        box.SetTextRTF(Render(SongOf(100), step));
        limits.push_back(Funcoes::Calcula_Limite_Rolagem(box));
    }
    QVERIFY(limits[0] < limits[1] && limits[1] < limits[2]);
    box.SetTextRTF(Render(SongOf(100), 0));
    QCOMPARE(Funcoes::Calcula_Limite_Rolagem(box), limits[1]);
    box.SetTextRTF(Render(QString()));
    QCOMPARE(Funcoes::Calcula_Limite_Rolagem(box), 0);
}

void tst_rich_text_box::theScrollLimitLeavesCaretAndPosition()
{
    RichTextBox box;
    box.resize(400, 300);
    box.show();
    box.SetTextRTF(Render(SongOf(5000)));
    QTextCursor cursor = box.textCursor();
    cursor.setPosition(10);
    cursor.setPosition(20, QTextCursor::KeepAnchor);
    box.setTextCursor(cursor);
    box.verticalScrollBar()->setValue(77);
    QVERIFY(Funcoes::Calcula_Limite_Rolagem(box) > 5000);
    QCOMPARE(box.textCursor().anchor(), 10);
    QCOMPARE(box.textCursor().position(), 20);
    QCOMPARE(box.verticalScrollBar()->value(), 77);
}

void tst_rich_text_box::brokenDocumentsAreShownAsFarAsTheyGo()
{
    RichTextBox box;
    for (const QString& rtf : {u""_qs, u"{"_qs, u"}"_qs, u"\\"_qs, u"{\\rtf1\\fs0\\cf9\\b"_qs,
                               u"{\\rtf1{\\colortbl"_qs, u"{\\rtf1{\\fonttbl{\\f0"_qs}) {
        box.SetTextRTF(rtf);
        QCOMPARE(box.Text(), QString());
    }
    box.SetTextRTF(u"{\\rtf1 Santo"_qs);
    QCOMPARE(box.Text(), u"Santo"_qs);
    box.SetTextRTF(u"{\\rtf1{\\fonttbl{\\f0 No Such Font 123;}}\\f0 Santo}"_qs);
    QCOMPARE(box.Text(), u"Santo"_qs);
    QCOMPARE(box.font().family(), Appearance::MonospacedFamily());
}

QTEST_MAIN(tst_rich_text_box)
#include "tst_rich_text_box.moc"
