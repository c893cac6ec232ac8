#include "store/text/Fold.h"
#include "store/text/FoldTable.h"
#include "store/text/Utf8.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

std::vector<Fold::Letter> Letters(const QString& text)
{
    return Fold::Letters(text.toStdString());
}

QString Bases(const QString& text)
{
    return QString::fromStdString(Fold::Bases(text.toStdString()));
}

/// The bases letter by letter, the slow way.
std::string BasesOfLetters(const std::string& text)
{
    std::string bases;
    for (const Fold::Letter& letter : Fold::Letters(text))
        Fold::AppendBase(bases, letter);
    return bases;
}

/// All characters there are, but only some of the thousands of Han and Hangul ones, which behave
/// alike.
std::vector<char32_t> Characters()
{
    std::vector<char32_t> codes;
    for (char32_t code = 0; code <= 0x10ffff; ++code) {
        const auto category = QChar::category(code);
        const bool isUniform =
            QChar::script(code) == QChar::Script_Han || QChar::script(code) == QChar::Script_Hangul;
        if (category != QChar::Other_NotAssigned && category != QChar::Other_Surrogate &&
            category != QChar::Other_PrivateUse && (!isUniform || code < 0x3000 || code % 97 == 0))
            codes.push_back(code);
    }
    return codes;
}

} // namespace

class tst_fold : public QObject
{
    Q_OBJECT

private slots:
    void showsTheBases_data();
    void showsTheBases();
    void splitsAccentsOff();
    void keepsLettersWithoutAccentApart();
    void ordersAccents();
    void makesOneLetterOfAHangulSyllable();
    void countsALoneAccentAsALetter();
    void readsBrokenBytes();
    void agreesWithIcuEverywhere();
    void doesNotTellCompositionEverywhere();
    void ignoresLetterCaseEverywhere();
    void hasTheSameBasesBothWays();
    void hasTheSameBasesBothWaysInAnyMixture();
};

void tst_fold::showsTheBases_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("bases");
    QTest::newRow("empty") << u""_qs << u""_qs;
    QTest::newRow("ASCII") << u"Santo DEUS, [A-Z] @`{^_"_qs << u"santo deus, [a-z] @`{^_"_qs;
    QTest::newRow("Portuguese") << u"Água do CORAÇÃO, pão à êxito"_qs
                                << u"agua do coracao, pao a exito"_qs;
    QTest::newRow("decomposed") << u"A\u0301gua do corac\u0327a\u0303o"_qs << u"agua do coracao"_qs;
    QTest::newRow("neighbours") << u"Señor, Größe, Øye, Łódź"_qs << u"senor, große, øye, łodz"_qs;
    QTest::newRow("Vietnamese") << u"Việt, ẤẬ"_qs << u"viet, aa"_qs;
    QTest::newRow("Greek") << u"Ἀγάπη ΣΟΦΊΑΣ"_qs << u"αγαπη σοφιασ"_qs;
    QTest::newRow("Cyrillic") << u"Святый Боже й"_qs << u"святыи боже и"_qs;
    QTest::newRow("beyond the basic plane")
        << u"\U0001F3B5\U00010400"_qs << u"\U0001F3B5\U00010428"_qs;
    QTest::newRow("signs that are no letters") << u"1º ª ² ½"_qs << u"1º ª ² ½"_qs;
    QTest::newRow("runs of every length") << u"ABCDEFGÁHIJKLMNOPÉQ"_qs << u"abcdefgahijklmnopeq"_qs;
}

void tst_fold::showsTheBases()
{
    QFETCH(QString, text);
    QFETCH(QString, bases);
    QCOMPARE(Bases(text), bases);
    std::string appended = "x";
    Fold::AppendBases(appended, text.toStdString());
    QCOMPARE(QString::fromStdString(appended), u"x"_qs + bases);
}

void tst_fold::splitsAccentsOff()
{
    const auto letters = Letters(u"aáÁâa\u0301"_qs);
    QCOMPARE(letters.size(), 5u);
    for (const Fold::Letter& letter : letters)
        QCOMPARE(letter.base, U'a');
    QCOMPARE(letters[0].accents, 0u);
    QVERIFY(letters[1].accents != 0);
    QVERIFY(letters[2] == letters[1]);
    QVERIFY(letters[3].accents != letters[1].accents);
    QVERIFY(letters[4] == letters[1]);
}

void tst_fold::keepsLettersWithoutAccentApart()
{
    // A stroke through a letter is no accent on it.
    QVERIFY(Letters(u"ø"_qs)[0].base != U'o');
    QVERIFY(Letters(u"ß"_qs)[0].base == U'ß');
    QVERIFY(Letters(u"ª"_qs)[0].base != U'a');
}

void tst_fold::ordersAccents()
{
    QVERIFY(Letters(u"ậ"_qs) == Letters(u"a\u0302\u0323"_qs));
    QVERIFY(Letters(u"ậ"_qs) == Letters(u"a\u0323\u0302"_qs));
    QVERIFY(Letters(u"ậ"_qs) == Letters(u"â\u0323"_qs));
    // Of the same kind, their order tells.
    QVERIFY(Letters(u"a\u0302\u0301"_qs) != Letters(u"a\u0301\u0302"_qs));
    // Any tower is one letter, told by its first three.
    QCOMPARE(Letters(u"a"_qs + QString(1000, QChar(0x301)) + u"b"_qs).size(), 2u);
}

void tst_fold::makesOneLetterOfAHangulSyllable()
{
    QCOMPARE(Letters(u"각"_qs).size(), 1u);
    QVERIFY(Letters(u"각"_qs) == Letters(u"\u1100\u1161\u11a8"_qs));
    QVERIFY(Letters(u"각"_qs)[0].base != Letters(u"가"_qs)[0].base);
}

void tst_fold::countsALoneAccentAsALetter()
{
    QCOMPARE(Letters(u"\u0301"_qs).size(), 1u);
    QCOMPARE(Letters(u"\u0301a"_qs).size(), 2u);
    QCOMPARE(Bases(u"\u0301a"_qs), u"\u0301a"_qs);
}

void tst_fold::readsBrokenBytes()
{
    using namespace std::string_literals;
    QCOMPARE(Fold::Bases("\xc3"s), "\xef\xbf\xbd"s);
    QCOMPARE(Fold::Bases("a\xff\xe2\x82z"s), "a\xef\xbf\xbd\xef\xbf\xbdz"s);
    QCOMPARE(Fold::Bases("A\0B"s), "a\0b"s);
    QCOMPARE(Fold::Letters("A\0B"s).size(), 3u);
}

void tst_fold::agreesWithIcuEverywhere()
{
    for (const char32_t code : Characters()) {
        if (FoldTable::Lookup(code) != FoldTable::LookupInIcu(code))
            QFAIL(qPrintable(QString::number(code, 16)));
    }
}

void tst_fold::doesNotTellCompositionEverywhere()
{
    int pairs = 0;
    for (const char32_t code : Characters()) {
        const QString text = QString::fromUcs4(&code, 1);
        const QString composed = text.normalized(QString::NormalizationForm_C);
        const QString apart = text.normalized(QString::NormalizationForm_D);
        if (apart == composed)
            continue;
        ++pairs;
        if (Letters(u"x"_qs + composed + u"y"_qs) != Letters(u"x"_qs + apart + u"y"_qs))
            QFAIL(qPrintable(QString::number(code, 16)));
    }
    QVERIFY(pairs > 900);
}

void tst_fold::ignoresLetterCaseEverywhere()
{
    int pairs = 0;
    for (const char32_t code : Characters()) {
        // Where the small letter has another capital than this one, they are no pair.
        const char32_t small = QChar::toLower(code);
        if (small == code || QChar::toUpper(small) != code)
            continue;
        ++pairs;
        if (Letters(QString::fromUcs4(&code, 1)) != Letters(QString::fromUcs4(&small, 1)))
            QFAIL(qPrintable(QString::number(code, 16)));
    }
    QVERIFY(pairs > 1000);
}

void tst_fold::hasTheSameBasesBothWays()
{
    for (const char32_t code : Characters()) {
        std::string text;
        for (const char32_t neighbour : {U'\u0301', U'a', U'\u1161', U'\u00c9', U'\u1100'}) {
            Utf8::Append(text, code);
            Utf8::Append(text, neighbour);
        }
        if (Fold::Bases(text) != BasesOfLetters(text))
            QFAIL(qPrintable(QString::number(code, 16)));
    }
}

void tst_fold::hasTheSameBasesBothWaysInAnyMixture()
{
    const std::vector<std::string> pieces = {"a",      "Z",      "[",    " ",    "á",       "Ç",
                                             "\u0301", "\u0327", "Ⱥ",    "ạ",    "Ω",       "가",
                                             "ᄀ",     "\u1161", "\xff", "\xc3", "\xe2\x82"};
    QRandomGenerator random(20);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (int length = random.bounded(40); length > 0; --length)
            text += pieces[random.bounded(static_cast<quint32>(pieces.size()))];
        if (Fold::Bases(text) != BasesOfLetters(text))
            QFAIL(text.c_str());
    }
}

QTEST_APPLESS_MAIN(tst_fold)
#include "tst_fold.moc"
