#include "UsualNotes.h"
#include "chords/Cifra.h"

#include <QTest>

#include <algorithm>

using namespace Funcoes;

namespace {
const QString ChordCharacters = u"0123456789#+º()[],|:-<>/ ILNORSTXbmnorstux"_qs;
const QString Naturals = u"ABCDEFG"_qs;
} // namespace

class tst_linha_cifra : public QObject
{
    Q_OBJECT

private slots:
    void init() { LoadUsualNotes(); }
    void linesAreToldApart_data();
    void linesAreToldApart();
    void everyCharacterByItself_data();
    void everyCharacterByItself();
    void everyCharacterBeforeAnAccidental();
    void onlyTheFortyTwoAndTheNotesPass();
    void withoutNotesNoLetterPasses();
    void anyNameOfOneLetterPasses();
    void lastLookupIsRemembered_data();
    void lastLookupIsRemembered();
};

void tst_linha_cifra::linesAreToldApart_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("chords");
    QTest::newRow("chords with suffixes") << u"C  G7  Am  F"_qs << true;
    QTest::newRow("bass notes and brackets") << u"D/F#  Em7(9)  A4 A"_qs << true;
    QTest::newRow("INTRO and chords") << u"INTRO: G  D/F#  Em"_qs << true;
    QTest::newRow("SOLO in capitals") << u"SOLO"_qs << true;
    QTest::newRow("sus in small letters") << u"Dsus4"_qs << true;
    QTest::newRow("bar lines") << u"| C | G | Am | F |"_qs << true;
    QTest::newRow("ordinal indicator") << u"Bº  2x"_qs << true;
    QTest::newRow("M is no chord character") << u"Bb7M"_qs << false;
    QTest::newRow("maj") << u"Cmaj7"_qs << false;
    QTest::newRow("add") << u"Cadd9"_qs << false;
    QTest::newRow("dim") << u"Cdim"_qs << false;
    QTest::newRow("lyrics") << u"Santo, santo"_qs << false;
    QTest::newRow("empty") << u""_qs << true;
    QTest::newRow("blanks only") << u"     "_qs << true;
    QTest::newRow("a word of chord characters and a pair") << u"sob"_qs << true;
    QTest::newRow("the article A") << u"A"_qs << true;
    QTest::newRow("H escapes before b") << u"Hb"_qs << true;
    QTest::newRow("H alone") << u"H"_qs << false;
    QTest::newRow("H before a blank") << u"H b"_qs << false;
    QTest::newRow("bracket and flat are tested each") << u"(b"_qs << true;
    QTest::newRow("bracketed flat ninth") << u"C7(b9)"_qs << true;
    QTest::newRow("a chain of accidentals") << u"é#b#b"_qs << true;
    QTest::newRow("small e") << u"e"_qs << false;
    QTest::newRow("capital E") << u"E"_qs << true;
    QTest::newRow("small letters of capital ones") << u"intro"_qs << false;
    QTest::newRow("accented letters") << u"ãéç"_qs << false;
    QTest::newRow("the last character counts") << u"C G Am F."_qs << false;
    QTest::newRow("a tab") << u"C\tG"_qs << false;
    QTest::newRow("a no-break space") << u"C\u00A0G"_qs << false;
    QTest::newRow("an escaped brace") << u"\\{C  G\\}"_qs << false;
    QTest::newRow("a lone line feed") << u"C\nG"_qs << false;
    QTest::newRow("the separator itself") << u"C£"_qs << false;
    QTest::newRow("NUL") << QString(QChar(0)) << false;
    QTest::newRow("half of a surrogate pair escapes") << u"\U0001F3B5"_qs << false;
    QTest::newRow("a pair before a sharp: its first half fails") << u"\U0001F3B5#"_qs << false;
    QTest::newRow("a lone surrogate before a sharp") << QString(QChar(0xDFB5)).append(u'#') << true;
}

void tst_linha_cifra::linesAreToldApart()
{
    QFETCH(QString, line);
    QFETCH(bool, chords);
    QCOMPARE(Linha_Cifra(line), chords);
}

void tst_linha_cifra::everyCharacterByItself_data()
{
    QTest::addColumn<QString>("letter");
    QTest::addColumn<bool>("passes");
    QCOMPARE(ChordCharacters.size(), 42);
    for (const QChar letter : ChordCharacters)
        QTest::addRow("U+%04X is a chord character", letter.unicode()) << QString(letter) << true;
    for (const QChar letter : Naturals)
        QTest::addRow("%c is a note", letter.toLatin1()) << QString(letter) << true;
    for (const QChar letter : u"adijM!\"$&'*.;=?@HJKMPQUVWYZ\\^_`acdefghijklpqvwyz{}~"_qs)
        QTest::addRow("%c is neither", letter.toLatin1()) << QString(letter) << false;
    for (const QChar letter : u"ª¹²³°»«£\u00A0\u00B9\u00BB\u013A\u0130\u1E62"_qs)
        QTest::addRow("U+%04X is neither", letter.unicode()) << QString(letter) << false;
}

void tst_linha_cifra::everyCharacterByItself()
{
    QFETCH(QString, letter);
    QFETCH(bool, passes);
    QCOMPARE(Linha_Cifra(letter), passes);
    QCOMPARE(Linha_Cifra(u"C %1 G"_qs.arg(letter)), passes);
}

void tst_linha_cifra::everyCharacterBeforeAnAccidental()
{
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
        for (const char16_t accidental : {u'#', u'b'}) {
            const char16_t line[] = {static_cast<char16_t>(unit), accidental};
            QVERIFY2(Linha_Cifra(QStringView(line, 2)), qPrintable(QString::number(unit, 16)));
        }
    }
}

void tst_linha_cifra::onlyTheFortyTwoAndTheNotesPass()
{
    QString passing;
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
        const QChar letter(static_cast<char16_t>(unit));
        if (Linha_Cifra(QStringView(&letter, 1)))
            passing += letter;
    }
    QString expected = ChordCharacters + Naturals;
    std::sort(expected.begin(), expected.end());
    QCOMPARE(passing, expected);
}

void tst_linha_cifra::withoutNotesNoLetterPasses()
{
    Notas.fill(QString());
    Notas_Mais.fill(QString());
    QVERIFY(!Linha_Cifra(u"C"));
    QVERIFY(Linha_Cifra(u"C#"));
    QVERIFY(Linha_Cifra(u"INTRO 2x"));
}

void tst_linha_cifra::anyNameOfOneLetterPasses()
{
    Notas[3] = u"é"_qs;
    Notas_Mais[7] = u"\u2669"_qs;
    Notas_Mais[8] = u"Ho"_qs;
    QVERIFY(Linha_Cifra(u"é \u2669"));
    QVERIFY(!Linha_Cifra(u"Ho"));
}

void tst_linha_cifra::lastLookupIsRemembered_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("table");
    QTest::newRow("a natural") << u"G7"_qs << u"1"_qs;
    QTest::newRow("a letter that fails") << u"Ga"_qs << u""_qs;
    QTest::newRow("a pair is not looked up by the test") << u"Bb"_qs << u"before"_qs;
    QTest::newRow("nothing to look up") << u"INTRO (2x)"_qs << u"before"_qs;
}

void tst_linha_cifra::lastLookupIsRemembered()
{
    QFETCH(QString, line);
    QFETCH(QString, table);
    Tabela_Nota = u"before"_qs;
    Linha_Cifra(line);
    QCOMPARE(Tabela_Nota, table);
}

QTEST_APPLESS_MAIN(tst_linha_cifra)
#include "tst_linha_cifra.moc"
