#include "chords/Cifra.h"
#include "songbook/ChordName.h"
#include "songbook/UsualScale.h"

#include <QTest>

using namespace Songbook;

/// Chords as others write them: what the sheet can hold, show and transpose.
class tst_chord_name : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void chordsAreRespelled_data();
    void chordsAreRespelled();
    void wordsAreNoChords_data();
    void wordsAreNoChords();
    void onlyMarkedChordsMayBeWrittenFreely_data();
    void onlyMarkedChordsMayBeWrittenFreely();
    void everySuffixOnEveryRootIsShownAsSpelled();
};

namespace {

/// What the sheet shows of a chord line, transposed by nothing.
QString Shown(const QString& row)
{
    const QString sheet = Funcoes::Monta_Cifra(row, 0, 0, true);
    const qsizetype start = sheet.indexOf(u"\\cf1\\b ");
    const qsizetype from = start + 7;
    return start < 0 ? u"<no chord line>"_qs
                     : sheet.sliced(from, sheet.indexOf(u"\\cf0\\b0") - from);
}

} // namespace

void tst_chord_name::chordsAreRespelled_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("spelled");
    const auto row = [](const char* story, const char16_t* written, const char16_t* spelled) {
        QTest::newRow(story) << QString::fromUtf16(written) << QString::fromUtf16(spelled);
    };
    row("a major chord stays", u"C", u"C");
    row("a minor chord stays", u"F#m", u"F#m");
    row("a bass stays", u"D/F#", u"D/F#");
    row("major seventh in English", u"Cmaj7", u"C7+");
    row("major seventh as M7", u"CM7", u"C7+");
    row("major seventh in Brazil", u"Bb7M", u"Bb7+");
    row("major seventh and ninth", u"C7M(9)", u"C7+(9)");
    row("minor with a major seventh", u"Am(maj7)", u"Am(7+)");
    row("triangle", u"C\u0394", u"C7+");
    row("maj9 has the seventh too", u"Fmaj9", u"F7+(9)");
    row("diminished", u"Cdim7", u"C\u00BA7");
    row("degree sign", u"C\u00B0", u"C\u00BA");
    row("small o for the circle", u"Bo7", u"B\u00BA7");
    row("half diminished", u"B\u00F87", u"Bm7(b5)");
    row("flat fifth goes into brackets", u"Bm7b5", u"Bm7(b5)");
    row("flat ninth goes into brackets", u"C7b9", u"C7(b9)");
    row("accidental behind its number", u"C7(5#)", u"C7(#5)");
    row("each accidental has brackets of its own", u"C7(#5,b9)", u"C7(#5)(b9)");
    row("slash before an accidental", u"A7/b9", u"A7(b9)");
    row("numbers in brackets stay together", u"C7(9,13)", u"C7(9,13)");
    row("six and nine", u"C6/9", u"C6/9");
    row("augmented", u"Caug", u"C+");
    row("suspended", u"Dsus4", u"Dsus4");
    row("added ninth", u"Cadd9", u"C(9)");
    row("without its third", u"E5(no3)", u"E5(no3)");
    row("omitted third", u"Eomit3", u"E(no3)");
    row("minus for minor stays", u"C-7", u"C-7");
    row("musical flat", u"B\u266Dm", u"Bbm");
    row("musical sharp", u"F\u266F", u"F#");
    row("C flat, which no table holds", u"Cb", u"B");
    row("E sharp", u"E#m7", u"Fm7");
    row("B sharp", u"B#", u"C");
    row("double flat", u"Bbb", u"A");
    row("double sharp", u"F##", u"G");
    row("bass that no table holds", u"Ab/Cb", u"Ab/B");
    row("German B natural", u"H7", u"B7");
    row("in brackets", u"(G7)", u"(G7)");
    row("no chord", u"N.C.", u"X");
    row("small root", u"am7", u"Am7");
    row("solmisation", u"Sol7", u"G7");
    row("solmisation with accents", u"R\u00E9m", u"Dm");
    row("solmisation with an accidental", u"Fa#m", u"F#m");
    row("blanks around it", u" G ", u"G");
}

void tst_chord_name::chordsAreRespelled()
{
    QFETCH(QString, written);
    QFETCH(QString, spelled);
    const auto chord = SpellChord(written, ChordSpelling::Marked);
    QVERIFY(chord.has_value());
    QCOMPARE(*chord, spelled);
    QCOMPARE(Shown(spelled), spelled);
    if (spelled != u"X")
        QCOMPARE(SpellChord(spelled, ChordSpelling::Marked).value_or(QString()), spelled);
}

void tst_chord_name::wordsAreNoChords_data()
{
    QTest::addColumn<QString>("word");
    for (const QString& word :
         QStringList{u""_qs,     u" "_qs,   u"Santo"_qs,      u"Bom"_qs,  u"Ela"_qs,  u"bis"_qs,
                     u"2x"_qs,   u"Cai"_qs, u"Das"_qs,        u"fim"_qs,  u"Coda"_qs, u"C("_qs,
                     u"C(x)"_qs, u"C/"_qs,  u"C/x"_qs,        u"Cb#q"_qs, u"C7bb"_qs, u"#"_qs,
                     u"bh"_qs,   u"|"_qs,   QString(60, u'A')})
        QTest::newRow(qPrintable(word.isEmpty() ? u"nothing"_qs : word.left(12))) << word;
}

void tst_chord_name::wordsAreNoChords()
{
    QFETCH(QString, word);
    QCOMPARE(SpellChord(word, ChordSpelling::Marked).value_or(u"<none>"_qs), u"<none>"_qs);
}

void tst_chord_name::onlyMarkedChordsMayBeWrittenFreely_data()
{
    QTest::addColumn<QString>("word");
    for (const QString& word :
         QStringList{u"am"_qs, u"e"_qs, u"a"_qs, u"Sol"_qs, u"Mi"_qs, u"La"_qs})
        QTest::newRow(qPrintable(word)) << word;
}

void tst_chord_name::onlyMarkedChordsMayBeWrittenFreely()
{
    QFETCH(QString, word);
    QVERIFY(SpellChord(word, ChordSpelling::Marked).has_value());
    QVERIFY(!SpellChord(word, ChordSpelling::Loose).has_value());
}

void tst_chord_name::everySuffixOnEveryRootIsShownAsSpelled()
{
    const QStringList suffixes = {
        u""_qs,        u"m"_qs,       u"7"_qs,         u"m7"_qs,   u"maj7"_qs, u"M7"_qs,
        u"7M"_qs,      u"dim"_qs,     u"dim7"_qs,      u"aug"_qs,  u"+7"_qs,   u"sus"_qs,
        u"sus2"_qs,    u"7sus4"_qs,   u"add9"_qs,      u"6"_qs,    u"6/9"_qs,  u"9"_qs,
        u"11"_qs,      u"13"_qs,      u"7b5"_qs,       u"7#5"_qs,  u"7b9"_qs,  u"7#9"_qs,
        u"m7b5"_qs,    u"7(b9)"_qs,   u"5"_qs,         u"4"_qs,    u"maj9"_qs, u"m9"_qs,
        u"7b5b9"_qs,   u"7#5#9"_qs,   u"7(b9/#11)"_qs, u"7alt"_qs, u"4/7"_qs,  u"7(#9)"_qs,
        u"maj7#11"_qs, u"m(maj7)"_qs, u"(9)"_qs,       u"7+"_qs,   u"5+"_qs,   u"7/13-"_qs};
    int shown = 0;
    for (const char16_t letter : std::u16string_view(u"CDEFGAB")) {
        for (const QString& accidental : {u""_qs, u"#"_qs, u"b"_qs}) {
            for (const QString& suffix : suffixes) {
                for (const QString& bass : {u""_qs, u"/E"_qs, u"/Cb"_qs, u"/F#"_qs}) {
                    const QString written = QChar(letter) + accidental + suffix + bass;
                    const auto chord = SpellChord(written, ChordSpelling::Loose);
                    QVERIFY2(chord, qPrintable(written));
                    QCOMPARE(Shown(*chord), *chord);
                    QCOMPARE(SpellChord(*chord, ChordSpelling::Loose).value_or(written + u'?'),
                             *chord);
                    ++shown;
                }
            }
        }
    }
    QCOMPARE(shown, 7 * 3 * 42 * 4);
}

QTEST_APPLESS_MAIN(tst_chord_name)
#include "tst_chord_name.moc"
