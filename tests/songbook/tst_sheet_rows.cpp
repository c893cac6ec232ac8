#include "chords/Cifra.h"
#include "songbook/ChordProReader.h"
#include "songbook/SheetRows.h"
#include "songbook/UsualScale.h"

#include <QTest>

using namespace Songbook;

/// Where chords come to stand, and what keeps lyrics lyrics.
class tst_sheet_rows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void chordsStandOverTheirSyllables_data();
    void chordsStandOverTheirSyllables();
    void lyricsStayLyrics_data();
    void lyricsStayLyrics();
    void headingsStayHeadings_data();
    void headingsStayHeadings();
    void tabsEndAtTheNextEighthColumn();
};

void tst_sheet_rows::chordsStandOverTheirSyllables_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("sheet"); ///< rows joined by a slash of three
    QTest::newRow("a chord over each syllable")
        << u"[C]Santo [G7]Deus"_qs << u"C     G7///Santo Deus"_qs;
    QTest::newRow("text before the first chord") << u"Oh [C]vem"_qs << u"   C///Oh vem"_qs;
    QTest::newRow("a chord within a word") << u"Ale[C]luia"_qs << u"   C///Aleluia"_qs;
    QTest::newRow("a wide chord between words pushes with blanks")
        << u"[F#m7(b5)]e [G]vem"_qs << u"F#m7(b5) G///e        vem"_qs;
    QTest::newRow("a wide chord within a word pushes with hyphens")
        << u"[F#m7]A[G]men"_qs << u"F#m7 G///A----men"_qs;
    QTest::newRow("chords side by side within a word") << u"Al[G][D]le"_qs << u"  G D///Al--le"_qs;
    QTest::newRow("chords in front of the words") << u"[C][G]Vem"_qs << u"C G///  Vem"_qs;
    QTest::newRow("many chords in front do not make a heading")
        << u"[C][G][D]Vem"_qs << u"C G D///\u00A0   Vem"_qs;
    QTest::newRow("chords behind the words do not push") << u"fim[C][G7]"_qs << u"   C G7///fim"_qs;
    QTest::newRow("chords alone have no row of lyrics") << u"[C]   [G]"_qs << u"C  G"_qs;
    QTest::newRow("a wide chord alone leaves a blank") << u"[F#m7][G]"_qs << u"F#m7 G"_qs;
    QTest::newRow("lyrics alone") << u"Santo Deus"_qs << u"Santo Deus"_qs;
    QTest::newRow("an annotation has a row above")
        << u"[*rit.]Santo [C]Deus"_qs << u"(rit.)///      C///Santo Deus"_qs;
    QTest::newRow("bars stand among the chords")
        << u"[|][C]Vem [|][G]vem"_qs << u"| C   | G///  Vem   vem"_qs;
    QTest::newRow("a bracket without end is text") << u"Santo [Deus"_qs << u"Santo [Deus"_qs;
    QTest::newRow("an accent is one column") << u"ção[C]vem"_qs << u"   C///çãovem"_qs;
}

void tst_sheet_rows::chordsStandOverTheirSyllables()
{
    QFETCH(QString, line);
    const Reading reading = ReadChordPro(line, u"x"_qs);
    QCOMPARE(reading.songs.size(), 1);
    QTEST(QString(*reading.songs.first().letra1).replace(u"\r\n"_qs, u"///"_qs), "sheet");
}

void tst_sheet_rows::lyricsStayLyrics_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("held");
    QTest::newRow("an ordinary line") << u"Santo Deus"_qs << u"Santo Deus"_qs;
    QTest::newRow("a word of chord characters") << u"Bom"_qs << u"Bom\u00A0"_qs;
    QTest::newRow("an article") << u"A"_qs << u"A\u00A0"_qs;
    QTest::newRow("chord characters but for a percent sign") << u"sob%"_qs << u"sob%\u00A0"_qs;
    QTest::newRow("four blanks") << u"    Santo"_qs << u"\u00A0   Santo"_qs;
    QTest::newRow("three blanks") << u"   Santo"_qs << u"   Santo"_qs;
    QTest::newRow("blanks behind") << u"Santo  "_qs << u"Santo"_qs;
    QTest::newRow("blanks only") << u"   "_qs << u""_qs;
}

void tst_sheet_rows::lyricsStayLyrics()
{
    QFETCH(QString, row);
    QTEST(AsLyric(row), "held");
    if (!row.trimmed().isEmpty()) {
        const QString sheet = Funcoes::Monta_Cifra(AsLyric(row), 0, 0, true);
        const QString first = sheet.section(u"\r\n"_qs, 3, 3);
        QVERIFY2(first.startsWith(u"\\par ") && !first.contains(u"\\b"), qPrintable(first));
    }
}

void tst_sheet_rows::headingsStayHeadings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("row");
    QTest::newRow("an ordinary name") << u"Refrão"_qs << u"    Refrão"_qs;
    QTest::newRow("a name of chord characters") << u"Intro"_qs << u"    Intro\u00A0"_qs;
    QTest::newRow("blanks around it") << u"  Refrão "_qs << u"    Refrão"_qs;
}

void tst_sheet_rows::headingsStayHeadings()
{
    QFETCH(QString, text);
    QTEST(AsHeading(text), "row");
    const QString sheet = Funcoes::Monta_Cifra(AsHeading(text), 0, 0, true);
    QVERIFY(sheet.section(u"\r\n"_qs, 3, 3).startsWith(u"\\par \\b     "));
    QVERIFY(IsHeadingRow(AsHeading(text)));
}

void tst_sheet_rows::tabsEndAtTheNextEighthColumn()
{
    QCOMPARE(WithoutTabs(u"C\tG7\tF"), u"C       G7      F"_qs);
    QCOMPARE(WithoutTabs(u"\tC"), u"        C"_qs);
}

QTEST_APPLESS_MAIN(tst_sheet_rows)
#include "tst_sheet_rows.moc"
