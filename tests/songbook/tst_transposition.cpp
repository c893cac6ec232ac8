#include "songbook/SheetRows.h"
#include "songbook/Transposition.h"
#include "songbook/UsualScale.h"

#include <QTest>

using namespace Songbook;

/// Sheets in another key.
class tst_transposition : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void chordsAreShifted_data();
    void chordsAreShifted();
    void upAndDownGivesTheSameChords();
    void whatCannotBeShiftedIsTold();
    void keyIsShifted_data();
    void keyIsShifted();
    void bothTextsAreShifted();
};

void tst_transposition::chordsAreShifted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("semitones");
    QTest::addColumn<QString>("shifted");
    QTest::newRow("lyrics stay") << u"C  G7\r\nSanto Deus"_qs << 2 << u"D  A7\r\nSanto Deus"_qs;
    QTest::newRow("headings stay") << u"    Da Capo\r\nC"_qs << 2 << u"    Da Capo\r\nD"_qs;
    QTest::newRow("sharps stay sharps") << u"F#m"_qs << 2 << u"G#m"_qs;
    QTest::newRow("flats stay flats") << u"Eb  Bb"_qs << 2 << u"F   C"_qs;
    QTest::newRow("bass notes") << u"D/F#"_qs << 1 << u"D#/G"_qs;
    QTest::newRow("down") << u"C  C#"_qs << -1 << u"B  C"_qs;
    QTest::newRow("an octave") << u"C  G7"_qs << 12 << u"C  G7"_qs;
    QTest::newRow("no semitone leaves even what the sheet would drop")
        << u"C7b9"_qs << 0 << u"C7b9"_qs;
    QTest::newRow("longer names keep their columns") << u"C   G7"_qs << 1 << u"C#  G#7"_qs;
    QTest::newRow("longer names push where there is no room") << u"C G D"_qs << 1 << u"C# G# D#"_qs;
    QTest::newRow("shorter names keep their columns") << u"C#  G#7"_qs << -1 << u"C   G7"_qs;
    QTest::newRow("an accidental outside of brackets survives") << u"C7b9"_qs << 2 << u"D7(b9)"_qs;
    QTest::newRow("brackets") << u"C7(b9)"_qs << 2 << u"D7(b9)"_qs;
    QTest::newRow("words of capitals") << u"INTRO: G  D"_qs << 2 << u"INTRO: A  E"_qs;
    QTest::newRow("percent signs") << u"| C | % |"_qs << 2 << u"| D | % |"_qs;
    QTest::newRow("a pound sign ends a line") << u"C£Lá"_qs << 2 << u"D£Lá"_qs;
    QTest::newRow("blank rows") << u"\r\nC\r\n\r\n"_qs << 2 << u"\r\nD\r\n\r\n"_qs;
    QTest::newRow("blanks at both ends") << u"  C  "_qs << 2 << u"  D  "_qs;
}

void tst_transposition::chordsAreShifted()
{
    QFETCH(QString, text);
    QFETCH(int, semitones);
    QFETCH(QString, shifted);
    Remarks remarks;
    QCOMPARE(TransposedSheet(text, semitones, remarks), shifted);
    QVERIFY(remarks.All().isEmpty());
}

void tst_transposition::upAndDownGivesTheSameChords()
{
    const QString text = u"C  Am7  D/F#  Bb\r\nLá lá lá\r\n\r\nF#m7(b5)   B7   Eb"_qs;
    for (int semitones = -12; semitones <= 12; ++semitones) {
        Remarks remarks;
        const QString back =
            TransposedSheet(TransposedSheet(text, semitones, remarks), -semitones, remarks);
        QStringList words;
        QStringList wordsBack;
        for (const Word& word : WordsOf(text))
            words += word.text.toString();
        for (const Word& word : WordsOf(back))
            wordsBack += word.text.toString();
        // Between natural notes and others the spelling may change; the pitches do not.
        wordsBack.replaceInStrings(u"A#"_qs, u"Bb"_qs).replaceInStrings(u"D#"_qs, u"Eb"_qs);
        QCOMPARE(wordsBack, words);
    }
}

void tst_transposition::whatCannotBeShiftedIsTold()
{
    Remarks remarks;
    QCOMPARE(TransposedSheet(u"C  sob"_qs, 2, remarks), u"D  sob"_qs);
    QCOMPARE(remarks.All().size(), 1);
    QCOMPARE(remarks.All().first().what, u"\"sob\", entre os acordes, não foi transposto"_qs);
}

void tst_transposition::keyIsShifted_data()
{
    QTest::addColumn<QString>("tom");
    QTest::addColumn<int>("semitones");
    QTest::addColumn<QString>("shifted");
    QTest::addColumn<int>("told");
    QTest::newRow("natural") << u"A"_qs << 3 << u"C"_qs << 0;
    QTest::newRow("flat") << u"Bb"_qs << 1 << u"B"_qs << 0;
    QTest::newRow("flat stays flat") << u"Ab"_qs << 2 << u"Bb"_qs << 0;
    QTest::newRow("none") << u""_qs << 1 << u""_qs << 0;
    QTest::newRow("no note") << u"H"_qs << 1 << u"H"_qs << 1;
}

void tst_transposition::keyIsShifted()
{
    QFETCH(QString, tom);
    QFETCH(int, semitones);
    QFETCH(QString, shifted);
    QFETCH(int, told);
    ExchangeSong song;
    song.tom = tom;
    Remarks remarks;
    QCOMPARE(*TransposedSong(song, semitones, remarks).tom, shifted);
    QCOMPARE(remarks.All().size(), told);
}

void tst_transposition::bothTextsAreShifted()
{
    ExchangeSong song;
    song.letra1 = u"C"_qs;
    song.letra2 = u"G"_qs;
    Remarks remarks;
    const ExchangeSong shifted = TransposedSong(song, 2, remarks);
    QCOMPARE(*shifted.letra1, u"D"_qs);
    QCOMPARE(*shifted.letra2, u"A"_qs);
    QVERIFY(!shifted.tom);
}

QTEST_APPLESS_MAIN(tst_transposition)
#include "tst_transposition.moc"
