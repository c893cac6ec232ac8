// Songs and captions that nobody would write, through the real window: shown, changed, scrolled and
// read back.

#include "ViewerBench.h"

#include "chords/Cifra.h"
#include "controls/Appearance.h"
#include "viewer/RotuloCabecalho.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>

namespace {

// A debug build with sanitizers is to finish too.
#if defined(__SANITIZE_ADDRESS__)
constexpr int Share = 10;
#else
constexpr int Share = 1;
#endif

/// @return the text as a catalogue holds it: in UTF-8, which has no unpaired surrogates
QString Stored(const QString& text)
{
    return QString::fromUtf8(text.toUtf8());
}

/// Walks through everything that renders the sheet anew.
void Play(frmVisualizar* viewer)
{
    viewer->Sobe_Tom();
    viewer->Aumenta_Fonte();
    viewer->Mostra_Cifra();
    viewer->Muda_Versao();
    viewer->Mostra_Cifra();
    viewer->Muda_Versao();
    viewer->Diminui_Fonte();
    viewer->Reseta_Tom();
}

/// Paints the top, the middle and the end of the sheet.
void Look(const RichTextBox* box)
{
    for (const int part : {0, 1, 2}) {
        for (QScrollBar* bar : {box->verticalScrollBar(), box->horizontalScrollBar()})
            bar->setValue(bar->maximum() / 2 * part);
        box->viewport()->repaint();
    }
}

} // namespace

class tst_hostile_songs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init() { bench = std::make_unique<ViewerBench>(); }
    void cleanup() { bench.reset(); }

    void songsAreShownAndReadBack_data();
    void songsAreShownAndReadBack();
    void everyControlCharacterComesBack();
    void aDocumentAsASongIsText();
    void theWholeSongCanBeScrolled();
    void noSongLeavesAnythingBehind();
    void captionsOfAnyLengthAreCutInTheDrawingOnly_data();
    void captionsOfAnyLengthAreCutInTheDrawingOnly();

private:
    std::unique_ptr<ViewerBench> bench;
};

void tst_hostile_songs::songsAreShownAndReadBack_data()
{
    QTest::addColumn<QString>("song");
    const auto row = [](const char* name, const QString& line) {
        QTest::newRow(name) << QString(u"C\r\né "_qs + line);
    };
    QTest::newRow("50,000 lines") << QString(
        u"C     G7\r\nSanto, santo é o Senhor\r\n"_qs.repeated(25'000 / Share));
    QTest::newRow("50,000 empty lines") << u"\r\n"_qs.repeated(50'000 / Share);
    row("one line of 1,000,000 characters", u"Santo é o "_qs.repeated(100'000 / Share));
    QTest::newRow("one chord line of 200,000 characters")
        << u"C  G7     "_qs.repeated(20'000 / Share);
    row("one word of 200,000 characters", QString(200'000 / Share, u'x'));
    row("10,000 opening braces", QString(10'000, u'{'));
    row("10,000 closing braces", QString(10'000, u'}'));
    row("10,000 backslashes", QString(10'000, u'\\'));
    row("unpaired surrogates", QString(1000, QChar(0xD83C)) + u'a' + QString(1000, QChar(0xDF00)));
    row("signs on one letter", u"a"_qs + QString(5000, QChar(0x0301)));
    row("1,000,000 signs on one letter", u"a"_qs + QString(1'000'000 / Share, QChar(0x0301)));
    QTest::newRow("1,000,000 signs on 100 letters")
        << QString(u"C\r\na"_qs + QString(10'000 / Share, QChar(0x0301)) + u"\r\n").repeated(100);
    row("1,000,000 letters of another script", QString(1'000'000 / Share, QChar(0x6B4C)));
    row("paragraph separators", u"a\u2029"_qs.repeated(5000));
    row("marks of direction", u"\u202Ea\u202B\u2066b\u200F"_qs.repeated(500));
    row("line separators", u"a\u2028"_qs.repeated(1000));
    row("tabs", QString(5000, u'\t'));
    row("object replacements", QString(1000, QChar::ObjectReplacementCharacter));
    row("noncharacters", u"\uFFFF\uFFFE\uFDD2\uFDEF"_qs.repeated(100));
    row("all scripts at once", u"a\u05D0\u0628\u6B4C\u0915\U0001F3B5"_qs.repeated(500));
}

void tst_hostile_songs::songsAreShownAndReadBack()
{
    QFETCH(QString, song);
    const auto viewer = bench->Open({.text = song, .text2 = song});
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    QVERIFY(Box(viewer, 2)->Text() == Stored(song));
    Look(Box(viewer, 2));
    if (song.size() < 50'000)
        Play(viewer);
    else
        viewer->Sobe_Tom();
    viewer->Reseta_Tom();
    QVERIFY(Box(viewer, 2)->Text() == Stored(song));
}

void tst_hostile_songs::everyControlCharacterComesBack()
{
    QString line = u"é"_qs;
    for (char16_t c = 0; c < 0xA1; ++c) {
        // A percent sign never reaches the sheet, and its own breaks are no characters of a line.
        if (c != u'%' && c != u'\r' && c != u'\n')
            line += QChar(c);
    }
    for (char16_t c = 0x2000; c < 0x2070; ++c)
        line += QChar(c);
    line += u"\uFDD0\uFDD1\uFDD2\uFEFF\uFFF9\uFFFA\uFFFB"_qs;
    const auto viewer = bench->Open({.text2 = u"C\r\n"_qs + line});
    Play(viewer);
    QCOMPARE(Box(viewer, 2)->Text(), u"C\r\n"_qs + line);
}

void tst_hostile_songs::aDocumentAsASongIsText()
{
    const QString head = u"{\\rtf1\\ansicpg1252{\\fonttbl{\\f0 Consolas;}}\r\n"_qs;
    const QString song = u"C\r\n"_qs + head +
                         u"\\cf1\\b D  A7\\cf0\\b0\r\n\\par \\'41\\u65?\\bin999999999 x\r\n}}}"_qs;
    const auto viewer = bench->Open({.text2 = song});
    QCOMPARE(Box(viewer, 2)->Text(), song);
    Play(viewer);
    QCOMPARE(Box(viewer, 2)->Text(), song);
    // And a rendered sheet as the next song, again and again.
    QString nested = song;
    for (int i = 0; i < 5; ++i) {
        nested = u"C\r\n"_qs + Funcoes::Monta_Cifra(nested, 0, 0, true);
        const auto other = bench->Open({.text2 = nested});
        QCOMPARE(Box(other, 2)->Text(), nested);
    }
}

void tst_hostile_songs::theWholeSongCanBeScrolled()
{
    const auto viewer =
        bench->Open({.text2 = u"C\r\nSanto\r\n"_qs.repeated(25'000 / Share) + u"Fim"_qs});
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    const RichTextBox* box = Box(viewer, 2);
    QCOMPARE(box->property("Tag").toInt(), box->verticalScrollBar()->maximum());
    box->verticalScrollBar()->setValue(box->verticalScrollBar()->maximum());
    QTextCursor end(box->document());
    end.movePosition(QTextCursor::End);
    QVERIFY(box->viewport()->rect().contains(box->cursorRect(end)));
}

void tst_hostile_songs::noSongLeavesAnythingBehind()
{
    const auto viewer = bench->Open({.text2 = u"C\r\nSanto"_qs});
    RichTextBox* box = Box(viewer, 2);
    const auto formats = [box] { return box->document()->allFormats().size(); };
    const auto large =
        Funcoes::Monta_Cifra(u"C  G\r\nSanto é\r\n    Refrão\r\n"_qs.repeated(200), 0, 0, true);
    box->SetTextRTF(large);
    const auto before = formats();
    const auto children = box->document()->children().size();
    for (int i = 0; i < 50; ++i)
        box->SetTextRTF(large);
    QCOMPARE(formats(), before);
    QCOMPARE(box->document()->children().size(), children);
    QVERIFY(!box->document()->isUndoAvailable());
    box->SetTextRTF(Funcoes::Monta_Cifra(u"C\r\nSanto"_qs, 0, 0, true));
    QCOMPARE(box->document()->blockCount(), 2);
}

void tst_hostile_songs::captionsOfAnyLengthAreCutInTheDrawingOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << u"Santo "_qs.repeated(20'000);
    QTest::newRow("one word") << QString(100'000, u'x');
    QTest::newRow("markup") << u"<b>&amp;"_qs.repeated(12'000);
    QTest::newRow("lines") << u"Santo\r\n"_qs.repeated(14'000);
    QTest::newRow("signs on one letter") << QString(u"a"_qs + QString(100'000, QChar(0x0301)));
    QTest::newRow("unpaired surrogates") << QString(100'000, QChar(0xD83C));
    QTest::newRow("no width at all") << QString(100'000, QChar(0x200B));
    QTest::newRow("marks of direction") << u"\u202Ea\u202B"_qs.repeated(33'000);
}

void tst_hostile_songs::captionsOfAnyLengthAreCutInTheDrawingOnly()
{
    QFETCH(QString, text);
    const auto& catalogue = bench->catalogue;
    const qint64 song = catalogue.AddSong({.title = text, .reference = text});
    catalogue.Link(song, catalogue.AddTheme(text));
    const auto viewer = bench->Open(song);
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    Play(viewer);
    viewer->repaint();
    for (const char* name : {"lblTitulo", "lblReferencia", "lblTemas"}) {
        const auto* label = In<RotuloCabecalho>(viewer, name);
        QVERIFY(label->text() == Stored(text));
        QVERIFY(label->geometry().right() < In(viewer, "lblCont")->x());
        // A tool tip that the desktop can still lay out.
        QVERIFY(label->toolTip().size() < 20'000);
    }
}

QTEST_MAIN(tst_hostile_songs)
#include "tst_hostile_songs.moc"
