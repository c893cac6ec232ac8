#include "UsualNotes.h"
#include "chords/Cifra.h"
#include "runtime/RuntimeError.h"

#include <QTest>

using namespace Funcoes;

namespace {

const QString Head = u"{\\rtf1\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Consolas;}}\r\n"
                     u"{\\colortbl ;\\red0 \\green102 \\blue204;\\red255 \\green255 \\blue255;}\r\n"
                     u"\\viewkind4\\uc1\\pard\\lang1046\\f0"_qs;
const QString EmptyLine = u"\\par \\cf1\\b \\cf0\\b0\r\n"_qs;

int ErrorOf(const QString& song, int offset, int step)
{
    try {
        Monta_Cifra(song, std::int16_t(offset), std::int16_t(step), true);
    } catch (const RuntimeError& failure) {
        return failure.Number();
    }
    return 0;
}

QString Sheet(const QString& size, const QString& body)
{
    return Head + size + u"\r\n"_qs + body + u'}';
}

} // namespace

class tst_monta_cifra : public QObject
{
    Q_OBJECT

private slots:
    void init() { LoadUsualNotes(); }
    void workedExample();
    void workedExampleWithoutChords();
    void body_data();
    void body();
    void hiddenChords_data();
    void hiddenChords();
    void chordsAreTransposed_data();
    void chordsAreTransposed();
    void fontSize_data();
    void fontSize();
    void fontSizeOverflows();
    void offsetOutOfRangeFailsAtTheFirstNote();
    void tableOfTheLastLookup_data();
    void tableOfTheLastLookup();
    void failureLeavesTheTableOfItsNote();
    void notesAreReadAtEveryCall();
    void longNames();
    void manyShortLines();
    void everyCharacterInALyricLine();
};

void tst_monta_cifra::workedExample()
{
    QCOMPARE(Monta_Cifra(u"C  G7\r\nSanto Deus", 2, 0, true),
             u"{\\rtf1\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Consolas;}}\r\n"
             u"{\\colortbl ;\\red0 \\green102 \\blue204;\\red255 \\green255 \\blue255;}\r\n"
             u"\\viewkind4\\uc1\\pard\\lang1046\\f0\\fs34\r\n"
             u"\\cf1\\b D  A7\\cf0\\b0\r\n"
             u"\\par Santo Deus\r\n"
             u"\\par \\cf1\\b \\cf0\\b0\r\n"
             u"}"_qs);
}

void tst_monta_cifra::workedExampleWithoutChords()
{
    QCOMPARE(Monta_Cifra(u"C  G7\r\nSanto Deus", 2, 0, false),
             Head + u"\\fs34\r\n\\par Santo Deus\r\n}"_qs);
}

void tst_monta_cifra::body_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<QString>("body");
    const auto row = [](const char* name, const QString& song, const QString& body) {
        QTest::newRow(name) << song << body;
    };
    row("empty song", u""_qs, u"\\cf1\\b \\cf0\\b0\r\n"_qs + EmptyLine);
    row("line break at the end", u"C\r\n"_qs,
        u"\\cf1\\b C\\cf0\\b0\r\n"_qs + EmptyLine + EmptyLine);
    row("a lyric line first", u"Santo"_qs, u"\\par Santo\r\n"_qs + EmptyLine);
    row("blank line between verses", u"Deus\r\n\r\nSanto"_qs,
        u"\\par Deus\r\n"_qs + EmptyLine + u"\\par Santo\r\n"_qs + EmptyLine);
    row("blanks at both ends of a lyric line stay", u"  Santo  "_qs,
        u"\\par   Santo  \r\n"_qs + EmptyLine);
    row("heading", u"    Refrão"_qs, u"\\par \\b     REFRÃO\\b0\r\n"_qs + EmptyLine);
    row("heading keeps its width", u"    µ ß \uFB01 ª ÿ ǆ"_qs,
        u"\\par \\b     µ ß \uFB01 ª Ÿ Ǆ\\b0\r\n"_qs + EmptyLine);
    row("heading with more blanks", u"      Final "_qs,
        u"\\par \\b       FINAL \\b0\r\n"_qs + EmptyLine);
    row("three blanks are no heading", u"   Refrão"_qs, u"\\par    Refrão\r\n"_qs + EmptyLine);
    row("a tab among the blanks is no heading", u"   \tRefrão"_qs,
        u"\\par    \tRefrão\r\n"_qs + EmptyLine);
    row("INTRO with four blanks is a chord line", u"    INTRO"_qs,
        u"\\cf1\\b     INTRO\\cf0\\b0\r\n"_qs + EmptyLine);
    row("heading capitals of the escaped line", u"    {coro\\}"_qs,
        u"\\par \\b     \\{CORO\\\\\\}\\b0\r\n"_qs + EmptyLine);
    row("percent signs vanish", u"50%, 100%%"_qs, u"\\cf1\\b 50, 100\\cf0\\b0\r\n"_qs + EmptyLine);
    row("percent sign in a lyric", u"é 50%."_qs, u"\\par é 50.\r\n"_qs + EmptyLine);
    row("percent signs only", u"%%%"_qs, u"\\cf1\\b \\cf0\\b0\r\n"_qs + EmptyLine);
    row("percent signs inside the four blanks", u"  % % Refrão"_qs,
        u"\\par \\b     REFRÃO\\b0\r\n"_qs + EmptyLine);
    row("percent sign inside a line break", u"C\r%%\nD"_qs,
        u"\\cf1\\b C\\cf0\\b0\r\n\\par \\cf1\\b D\\cf0\\b0\r\n"_qs + EmptyLine);
    row("percent sign between note and accidental", u"F%#"_qs,
        u"\\cf1\\b F#\\cf0\\b0\r\n"_qs + EmptyLine);
    row("braces", u"{Coro}"_qs, u"\\par \\{Coro\\}\r\n"_qs + EmptyLine);
    row("backslash", u"é\\n"_qs, u"\\par é\\\\n\r\n"_qs + EmptyLine);
    row("chords in braces are a lyric line", u"{C  G}"_qs, u"\\par \\{C  G\\}\r\n"_qs + EmptyLine);
    row("a brace before a flat escapes, its backslash does not", u"{b"_qs,
        u"\\par \\{b\r\n"_qs + EmptyLine);
    row("separator sign breaks the line", u"C£Santo£"_qs,
        u"\\cf1\\b C\\cf0\\b0\r\n\\par Santo\r\n"_qs + EmptyLine + EmptyLine);
    row("a lone CR stays in its line", u"C\rD"_qs, u"\\par C\rD\r\n"_qs + EmptyLine);
    row("a lone LF stays in its line", u"C\nD"_qs, u"\\par C\nD\r\n"_qs + EmptyLine);
    row("LF CR is no line break", u"a\n\rb"_qs, u"\\par a\n\rb\r\n"_qs + EmptyLine);
    row("CR before CR LF", u"a\r\r\nC"_qs,
        u"\\par a\r\r\n\\par \\cf1\\b C\\cf0\\b0\r\n"_qs + EmptyLine);
    row("CR at the end", u"C\r"_qs, u"\\par C\r\r\n"_qs + EmptyLine);
    row("CR before a flat vanishes with it", u"C\rb"_qs, u"\\cf1\\b C\\cf0\\b0\r\n"_qs + EmptyLine);
    row("NUL stays", u"a"_qs + QChar(0), u"\\par a"_qs + QChar(0) + u"\r\n"_qs + EmptyLine);
    row("beyond the code page", u"canção \u266B\U0001F3B5"_qs,
        u"\\par canção \u266B\U0001F3B5\r\n"_qs + EmptyLine);
    row("no-break space", u"a\u00A0b"_qs, u"\\par a\u00A0b\r\n"_qs + EmptyLine);
}

void tst_monta_cifra::body()
{
    QFETCH(QString, song);
    QFETCH(QString, body);
    QCOMPARE(Monta_Cifra(song, 0, 0, true), Sheet(u"\\fs34"_qs, body));
}

void tst_monta_cifra::hiddenChords_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<QString>("body");
    QTest::newRow("empty song") << u""_qs << u""_qs;
    QTest::newRow("chords only") << u"C  G7\r\n| F |"_qs << u""_qs;
    QTest::newRow("verses close up")
        << u"C\r\nDeus\r\n\r\nSanto\r\n"_qs << u"\\par Deus\r\n\\par Santo\r\n"_qs;
    QTest::newRow("headings stay")
        << u"    Refrão\r\n    INTRO"_qs << u"\\par \\b     REFRÃO\\b0\r\n"_qs;
}

void tst_monta_cifra::hiddenChords()
{
    QFETCH(QString, song);
    QFETCH(QString, body);
    QCOMPARE(Monta_Cifra(song, 5, 0, false), Sheet(u"\\fs34"_qs, body));
}

void tst_monta_cifra::chordsAreTransposed_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("expected");
    QTest::newRow("two up") << u"C  G7"_qs << 2 << u"D  A7"_qs;
    QTest::newRow("a flat around the end") << u"Bb"_qs << 2 << u"C"_qs;
    QTest::newRow("a sharp with a suffix") << u"F#m"_qs << 2 << u"G#m"_qs;
    QTest::newRow("a flat") << u"Eb"_qs << 2 << u"F"_qs;
    QTest::newRow("a flat stays a flat") << u"Eb"_qs << -2 << u"Db"_qs;
    QTest::newRow("one down around the start") << u"C"_qs << -1 << u"B"_qs;
    QTest::newRow("a sharp down to its natural") << u"C#"_qs << -1 << u"C"_qs;
    QTest::newRow("an octave up") << u"C  G7 Bb/F#"_qs << 12 << u"C  G7 Bb/F#"_qs;
    QTest::newRow("an octave down") << u"C  G7 Bb/F#"_qs << -12 << u"C  G7 Bb/F#"_qs;
    QTest::newRow("as written") << u"C  G7 Bb/F#"_qs << 0 << u"C  G7 Bb/F#"_qs;
    QTest::newRow("bracketed extension keeps its flat") << u"C7(b9)"_qs << 2 << u"D7(b9)"_qs;
    QTest::newRow("bare extension loses digit and flat") << u"C7b9"_qs << 2 << u"D9"_qs;
    QTest::newRow("bass note follows its own spelling") << u"D/F#"_qs << 1 << u"D#/G"_qs;
    QTest::newRow("a longer name pushes the line") << u"C  G"_qs << 1 << u"C#  G#"_qs;
    QTest::newRow("an unknown pair vanishes") << u"sob"_qs << 0 << u"s"_qs;
    QTest::newRow("an unknown letter vanishes with its flat") << u"Hb C"_qs << 0 << u" C"_qs;
    QTest::newRow("a name no array spells vanishes") << u"E# C"_qs << 0 << u" C"_qs;
    QTest::newRow("accidentals after accidentals") << u"A#b"_qs << 1 << u"Bb"_qs;
    QTest::newRow("a blank keeps its sharp") << u"C #b b"_qs << 0 << u"C  b"_qs;
    QTest::newRow("section words stay")
        << u"INTRO: C  (2x) SOLO"_qs << 2 << u"INTRO: D  (2x) SOLO"_qs;
    QTest::newRow("bar lines and blanks stay") << u" | C |  G | "_qs << 2 << u" | D |  A | "_qs;
}

void tst_monta_cifra::chordsAreTransposed()
{
    QFETCH(QString, line);
    QFETCH(int, offset);
    QFETCH(QString, expected);
    QCOMPARE(Monta_Cifra(line, std::int16_t(offset), 0, true), Head + u"\\fs34\r\n\\cf1\\b "_qs +
                                                                   expected + u"\\cf0\\b0\r\n"_qs +
                                                                   EmptyLine + u"}"_qs);
}

void tst_monta_cifra::fontSize_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("size");
    QTest::newRow("normal") << 0 << u"\\fs34\r\n"_qs;
    QTest::newRow("preview of the song entry") << -6 << u"\\fs28\r\n"_qs;
    QTest::newRow("largest of the viewer") << 16 << u"\\fs50\r\n"_qs;
    QTest::newRow("smallest of the viewer") << -20 << u"\\fs14\r\n"_qs;
    QTest::newRow("nothing left") << -34 << u"\\fs0\r\n"_qs;
    QTest::newRow("smallest number") << -32768 << u"\\fs-32734\r\n"_qs;
    QTest::newRow("largest number") << 32733 << u"\\fs32767\r\n"_qs;
}

void tst_monta_cifra::fontSize()
{
    QFETCH(int, step);
    QFETCH(QString, size);
    QCOMPARE(Monta_Cifra(u"é", 0, std::int16_t(step), true),
             Head + size + u"\\par é\r\n"_qs + EmptyLine + u"}"_qs);
}

void tst_monta_cifra::fontSizeOverflows()
{
    Tabela_Nota = u"before"_qs;
    QCOMPARE(ErrorOf(u"C"_qs, 0, 32734), int(RuntimeError::Overflow));
    QCOMPARE(ErrorOf(u"C"_qs, 0, 32767), int(RuntimeError::Overflow));
    QCOMPARE(Tabela_Nota, u"before"_qs);
}

void tst_monta_cifra::offsetOutOfRangeFailsAtTheFirstNote()
{
    QCOMPARE(ErrorOf(u"C"_qs, 24, 0), int(RuntimeError::SubscriptOutOfRange));
    QCOMPARE(ErrorOf(u"C"_qs, 32767, 0), int(RuntimeError::Overflow));
    QCOMPARE(ErrorOf(u"INTRO"_qs, 24, 0), 0);
    QCOMPARE(ErrorOf(u"C, disse Deus"_qs, 24, 0), 0); // a lyric line asks for no note
    QCOMPARE(ErrorOf(u"Hb"_qs, 24, 0), 0);
    QVERIFY(Monta_Cifra(u"C", -13, 0, true).contains(u"\\b ?\\cf0"));
}

void tst_monta_cifra::tableOfTheLastLookup_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<bool>("chords");
    QTest::addColumn<QString>("table");
    QTest::newRow("a sharp last") << u"Bb F#"_qs << true << u"1"_qs;
    QTest::newRow("a flat last") << u"F# Bb"_qs << true << u"2"_qs;
    QTest::newRow("an unknown pair last") << u"C Hb"_qs << true << u""_qs;
    QTest::newRow("a lyric line last") << u"C\r\nSanto"_qs << true << u""_qs;
    QTest::newRow("nothing looked up") << u"INTRO\r\n"_qs << true << u"before"_qs;
    QTest::newRow("hidden: pairs are not looked up") << u"Bb"_qs << false << u"before"_qs;
    QTest::newRow("hidden: naturals are") << u"Bb C"_qs << false << u"1"_qs;
    QTest::newRow("hidden: a lyric line last") << u"C\r\nSanto"_qs << false << u""_qs;
}

void tst_monta_cifra::tableOfTheLastLookup()
{
    QFETCH(QString, song);
    QFETCH(bool, chords);
    QFETCH(QString, table);
    Tabela_Nota = u"before"_qs;
    Monta_Cifra(song, 1, 0, chords);
    QCOMPARE(Tabela_Nota, table);
}

void tst_monta_cifra::failureLeavesTheTableOfItsNote()
{
    // 23 semitones up only the first semitone still has a place, the last of the array.
    QCOMPARE(ErrorOf(u"C Db C# Bb D"_qs, 23, 0), int(RuntimeError::SubscriptOutOfRange));
    QCOMPARE(Tabela_Nota, u"2"_qs);
}

void tst_monta_cifra::notesAreReadAtEveryCall()
{
    Notas[3] = u"Ré"_qs;
    QVERIFY(Monta_Cifra(u"C", 2, 0, true).contains(u"\\b Ré\\cf0"));
    Notas[3] = u"D"_qs;
    QVERIFY(Monta_Cifra(u"C", 2, 0, true).contains(u"\\b D\\cf0"));
}

void tst_monta_cifra::longNames()
{
    Notas[2] = QString(5000, u'x');
    QString song;
    for (int i = 0; i < 300; ++i)
        song += u"C "_qs;
    QString expected;
    for (int i = 0; i < 300; ++i)
        expected += Notas[2] + u' ';
    QVERIFY(Monta_Cifra(song, 1, 0, true).contains(expected));
}

void tst_monta_cifra::manyShortLines()
{
    const int signs = 3000;
    QString expected = Head + u"\\fs34\r\n\\cf1\\b \\cf0\\b0\r\n"_qs;
    for (int i = 0; i <= signs; ++i)
        expected += EmptyLine;
    QCOMPARE(Monta_Cifra(QString(signs, u'£'), 0, 0, true), expected + u'}');
}

void tst_monta_cifra::everyCharacterInALyricLine()
{
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const QChar letter(static_cast<char16_t>(unit));
        if (letter == u'%' || letter == u'£' || letter == u'\\' || letter == u'{' || letter == u'}')
            continue;
        const QString line = u"é"_qs + letter + u"é"_qs;
        QCOMPARE(Monta_Cifra(line, 0, 0, true),
                 Head + u"\\fs34\r\n\\par "_qs + line + u"\r\n"_qs + EmptyLine + u"}"_qs);
    }
}

QTEST_APPLESS_MAIN(tst_monta_cifra)
#include "tst_monta_cifra.moc"
