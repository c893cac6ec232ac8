#include "store/text/ByteSearch.h"
#include "store/text/Like.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

bool Matches(const QString& text, const QString& pattern)
{
    return Like(pattern.toStdString()).Matches(text.toStdString());
}

/// What the two signs mean, as plainly as it can be said; slow, and for letters only.
bool PlainMatches(const Fold::Letter* text, const Fold::Letter* textEnd,
                  const Fold::Letter* pattern, const Fold::Letter* patternEnd)
{
    if (pattern == patternEnd)
        return text == textEnd;
    if (*pattern == Fold::Letter{U'%', 0}) {
        for (const Fold::Letter* rest = text; rest != textEnd; ++rest) {
            if (PlainMatches(rest, textEnd, pattern + 1, patternEnd))
                return true;
        }
        return PlainMatches(textEnd, textEnd, pattern + 1, patternEnd);
    }
    if (text == textEnd)
        return false;
    const bool fits = *pattern == Fold::Letter{U'_', 0} ||
                      (pattern->base == text->base &&
                       (pattern->accents == 0 || pattern->accents == text->accents));
    return fits && PlainMatches(text + 1, textEnd, pattern + 1, patternEnd);
}

std::string Random(QRandomGenerator& random, const std::vector<std::string>& pieces, int most)
{
    std::string text;
    for (int i = random.bounded(most + 1); i > 0; --i)
        text += pieces[random.bounded(static_cast<quint32>(pieces.size()))];
    return text;
}

std::string Said(const std::string& text, const std::string& pattern)
{
    return std::string("'").append(text).append("' by '").append(pattern).append("'");
}

} // namespace

class tst_like : public QObject
{
    Q_OBJECT

private slots:
    void matches_data();
    void matches();
    void agreesWithItsPlainMeaning();
    void decidesByBasesAsByText();
    void decidesByTheStartAsByText();
    void answersManySigns();
    void longPartsAgreeWithTheirPlainMeaning();
    void answersLongParts_data();
    void answersLongParts();
    void takesPatternsOfAnyLength();
    void findsBytesAsTheLibraryDoes();
};

void tst_like::matches_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("expected");
    const auto row = [](const char* name, const QString& text, const QString& pattern,
                        bool expected) { QTest::newRow(name) << text << pattern << expected; };
    row("the whole text", u"Luz"_qs, u"Luz"_qs, true);
    row("no more than it", u"Luz da vida"_qs, u"Luz"_qs, false);
    row("no less", u"Lu"_qs, u"Luz"_qs, false);
    row("empty by empty", u""_qs, u""_qs, true);
    row("text by empty", u"a"_qs, u""_qs, false);
    row("empty by any run", u""_qs, u"%"_qs, true);
    row("empty by two runs", u""_qs, u"%%"_qs, true);
    row("empty by one", u""_qs, u"_"_qs, false);
    row("anything by any run", u"Luz"_qs, u"%"_qs, true);
    row("start", u"Luz da vida"_qs, u"Luz%"_qs, true);
    row("not the start", u"A luz"_qs, u"luz%"_qs, false);
    row("end", u"Luz da vida"_qs, u"%vida"_qs, true);
    row("not the end", u"Vida nova"_qs, u"%vida"_qs, false);
    row("the last of two ends", u"vida e vida"_qs, u"%vida"_qs, true);
    row("inside", u"Luz da vida"_qs, u"%da%"_qs, true);
    row("two places in order", u"Luz da vida"_qs, u"%uz%vi%"_qs, true);
    row("two places out of order", u"Luz da vida"_qs, u"%vi%uz%"_qs, false);
    row("places do not overlap", u"aba"_qs, u"%ab%ba%"_qs, false);
    row("start and end do not overlap", u"aba"_qs, u"ab%ba"_qs, false);
    row("start and end touch", u"abba"_qs, u"ab%ba"_qs, true);
    row("one character", u"Luz"_qs, u"L_z"_qs, true);
    row("one accented character", u"Pão"_qs, u"P_o"_qs, true);
    row("one decomposed character", u"Pa\u0303o"_qs, u"P_o"_qs, true);
    row("one character beyond the basic plane", u"\U0001F3B5"_qs, u"_"_qs, true);
    row("three by two", u"Luz"_qs, u"__"_qs, false);
    row("one inside a run", u"a1b"_qs, u"%1_"_qs, true);
    row("star is plain", u"Luz"_qs, u"L*"_qs, false);
    row("star itself", u"L*"_qs, u"L*"_qs, true);
    row("question mark is plain", u"Luz"_qs, u"L?z"_qs, false);
    row("backslash is plain", u"50%"_qs, u"50\\%"_qs, false);
    row("hash is plain", u"C#"_qs, u"%#"_qs, true);

    row("small by capital", u"luz"_qs, u"LUZ"_qs, true);
    row("accented capital", u"Ética"_qs, u"ét%"_qs, true);
    row("accented small", u"ética"_qs, u"ÉT%"_qs, true);
    row("Greek capital", u"ΑΓΑΠΗ"_qs, u"αγαπη"_qs, true);
    row("plain letter finds any accent", u"Água Viva"_qs, u"agua%"_qs, true);
    row("plain c finds ç", u"Coração"_qs, u"coracao"_qs, true);
    row("inside a text", u"a Água Viva"_qs, u"%agua%"_qs, true);
    row("accent finds itself", u"Água"_qs, u"%água%"_qs, true);
    row("accent finds no plain letter", u"Agua"_qs, u"%água%"_qs, false);
    row("accent finds no other accent", u"Àgua"_qs, u"%água%"_qs, false);
    row("accent later in the text", u"agua, água"_qs, u"%água%"_qs, true);
    row("first letter", u"Água Viva"_qs, u"A%"_qs, true);
    row("composed by decomposed", u"Água"_qs, u"A\u0301gua"_qs, true);
    row("decomposed by composed", u"A\u0301gua"_qs, u"%Água%"_qs, true);
    row("decomposed by plain", u"A\u0301gua"_qs, u"%agua%"_qs, true);
    row("n finds ñ", u"Señor"_qs, u"%senor%"_qs, true);
    row("ß stays ß", u"Straße"_qs, u"%SS%"_qs, false);

    row("trailing blank of the text counts", u"Luz "_qs, u"Luz"_qs, false);
    row("trailing blank of the pattern counts", u"Luz"_qs, u"Luz "_qs, false);
    row("blank by one", u"Luz "_qs, u"Luz_"_qs, true);
    row("over lines", u"Santo\r\nDeus"_qs, u"%santo%deus%"_qs, true);

    row("set", u"50%"_qs, u"50[%]"_qs, true);
    row("set is no run", u"500"_qs, u"50[%]"_qs, false);
    row("underscore in a set", u"a_b"_qs, u"a[_]b"_qs, true);
    row("underscore in a set is itself", u"axb"_qs, u"a[_]b"_qs, false);
    row("bracket in a set", u"a[b"_qs, u"a[[]b"_qs, true);
    row("member", u"Luz"_qs, u"[KLM]uz"_qs, true);
    row("no member", u"Nuz"_qs, u"[KLM]uz"_qs, false);
    row("member in other case", u"luz"_qs, u"[KLM]uz"_qs, true);
    row("plain member finds accent", u"Água"_qs, u"[a]gua"_qs, true);
    row("accented member finds itself", u"Água"_qs, u"[xá]gua"_qs, true);
    row("accented member finds no plain letter", u"Agua"_qs, u"[xá]gua"_qs, false);
    row("range", u"m"_qs, u"[a-z]"_qs, true);
    row("range in other case", u"M"_qs, u"[a-z]"_qs, true);
    row("accent in a range", u"é"_qs, u"[a-f]"_qs, true);
    row("outside a range", u"m"_qs, u"[a-f]"_qs, false);
    row("two ranges", u"7"_qs, u"[a-f0-9]"_qs, true);
    row("turned range finds nothing", u"b"_qs, u"[c-a]"_qs, false);
    row("dash first", u"-"_qs, u"[-a]"_qs, true);
    row("dash last", u"-"_qs, u"[a-]"_qs, true);
    row("outside a set", u"m"_qs, u"[!abc]"_qs, true);
    row("not outside", u"B"_qs, u"[!abc]"_qs, false);
    row("outside a range", u"7"_qs, u"[!a-z]"_qs, true);
    row("nothing is outside", u""_qs, u"[!a]"_qs, false);
    row("mark alone in a set", u"!"_qs, u"[!]"_qs, true);
    row("empty set is nothing", u"ab"_qs, u"a[]b"_qs, true);
    row("set inside a run", u"a5b"_qs, u"%[0-9]%"_qs, true);
    row("no set inside a run", u"ab"_qs, u"%[0-9]%"_qs, false);
    row("unclosed bracket", u"Sol [vivo"_qs, u"%[v%"_qs, true);
    row("unclosed bracket elsewhere", u"Sol vivo"_qs, u"%[v%"_qs, false);
    row("unclosed bracket behind a set", u"a["_qs, u"[a]["_qs, true);
    row("closing bracket is plain", u"a]"_qs, u"a]"_qs, true);
}

void tst_like::matches()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(bool, expected);
    QCOMPARE(Matches(text, pattern), expected);
}

void tst_like::agreesWithItsPlainMeaning()
{
    const std::vector<std::string> pieces = {"a", "A", "á", "a\u0301", "à", "b", "ç", "α", "가"};
    std::vector<std::string> patternPieces = pieces;
    for (int i = 0; i < 3; ++i)
        patternPieces.insert(patternPieces.end(), {"%", "_"});
    QRandomGenerator random(20090305);
    int matched = 0;
    for (int i = 0; i < 60000; ++i) {
        const std::string text = Random(random, pieces, 10);
        const std::string pattern = Random(random, patternPieces, 7);
        const auto letters = Fold::Letters(text);
        const auto signs = Fold::Letters(pattern);
        const bool expected = PlainMatches(letters.data(), letters.data() + letters.size(),
                                           signs.data(), signs.data() + signs.size());
        matched += expected ? 1 : 0;
        if (Like(pattern).Matches(text) != expected)
            QFAIL(Said(text, pattern).c_str());
    }
    QVERIFY2(matched > 5000 && matched < 55000, qPrintable(QString::number(matched)));
}

void tst_like::decidesByBasesAsByText()
{
    const std::vector<std::string> pieces = {"a", "á", "b", "%", "%", "_", "[ab]"};
    QRandomGenerator random(7);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = Random(random, {"a", "á", "b", "c"}, 8);
        const std::string pattern = Random(random, pieces, 6);
        const Like like(pattern);
        if (like.Matches(text) != like.Matches(text, Fold::Bases(text)))
            QFAIL(Said(text, pattern).c_str());
    }
}

void tst_like::decidesByTheStartAsByText()
{
    const std::vector<std::string> pieces = {"a", "á", "b", "ç", "[]", "_", "%", "[ab]", "가"};
    QRandomGenerator random(8);
    int starts = 0;
    int matched = 0;
    for (int i = 0; i < 40000; ++i) {
        const std::string text = Random(random, {"a", "á", "b", "c", "가"}, 5);
        const std::string pattern = Random(random, pieces, 3) + "%";
        const Like like(pattern);
        if (!like.IsStart())
            continue;
        ++starts;
        const bool matches = like.Matches(text);
        const bool begins = Fold::Bases(text).starts_with(like.Needle().Needle());
        matched += matches ? 1 : 0;
        if (like.IsDecidedByStart() ? matches != begins : matches && !begins)
            QFAIL(Said(text, pattern).c_str());
    }
    QVERIFY2(starts > 5000 && matched > 1000, qPrintable(u"%1 %2"_qs.arg(starts).arg(matched)));
}

void tst_like::answersManySigns()
{
    // Trying every way to split the text would take longer than the universe has, let alone CTest.
    QString pattern;
    for (int i = 0; i < 200; ++i)
        pattern += u"%a"_qs;
    QVERIFY(!Matches(QString(100000, u'a'), pattern + u"b%"_qs));
    QVERIFY(!Matches(QString(100000, u'a'), u"%_%_%_%_%b"_qs));
}

void tst_like::longPartsAgreeWithTheirPlainMeaning()
{
    QRandomGenerator random(64);
    int matched = 0;
    for (int i = 0; i < 2000; ++i) {
        const std::string text = Random(random, {"a", "a", "a", "á", "b"}, 400);
        // Cut out of the text at a letter, so that it often fits.
        auto letters = Fold::Letters(text);
        const auto from = random.bounded(static_cast<quint32>(letters.size() + 1));
        const auto most = static_cast<quint32>(letters.size() - from + 1);
        const auto end = from + random.bounded(most);
        std::string part;
        for (auto at = from; at < end; ++at) {
            const bool one = random.bounded(30) == 0;
            const bool other = random.bounded(300) == 0;
            part += one ? "_" : other ? "b" : letters[at].accents != 0 ? "á" : "a";
        }
        const std::string pattern = "%" + part + (i % 2 != 0 ? "%" : "%a%");
        const auto signs = Fold::Letters(pattern);
        const bool expected = PlainMatches(letters.data(), letters.data() + letters.size(),
                                           signs.data(), signs.data() + signs.size());
        matched += expected ? 1 : 0;
        if (Like(pattern).Matches(text) != expected)
            QFAIL(Said(text, pattern).c_str());
    }
    QVERIFY2(matched > 200 && matched < 1800, qPrintable(QString::number(matched)));
}

void tst_like::answersLongParts_data()
{
    QTest::addColumn<QString>("pattern");
    const QString as(50000, u'a');
    // At nearly every place of the text nearly all of these fits.
    QTest::newRow("letters and one sign") << QString(u'%' + as + u"_b%");
    QTest::newRow("ones and a set") << QString(u'%' + QString(50000, u'_') + u"[bc]%");
    QTest::newRow("sets") << QString(u'%' + u"[ab]"_qs.repeated(25000) + u"b%");
    QTest::newRow("a large set") << QString(u"%["_qs + QString(50000, u'b') + u"]%");
    QTest::newRow("a set of many ranges") << QString(u"%["_qs + u"b-d"_qs.repeated(30000) + u"]%");
}

void tst_like::answersLongParts()
{
    QFETCH(QString, pattern);
    QVERIFY(!Matches(QString(100000, u'a'), pattern)); // minutes, one place after the other
}

void tst_like::takesPatternsOfAnyLength()
{
    const QString text = u"Ação "_qs.repeated(30000);
    QVERIFY(Matches(text, u'%' + text + u'%'));
    QVERIFY(!Matches(text, u'%' + text + u"x%"_qs));
    QVERIFY(Matches(QString(60000, u'['), QString(60000, u'[')));
    QVERIFY(Matches(u"b"_qs, u"["_qs + QString(60000, u'a') + u"b]"_qs));
    QVERIFY(Matches(u"a"_qs, u'a' + QString(100000, u'%')));
}

void tst_like::findsBytesAsTheLibraryDoes()
{
    QRandomGenerator random(99);
    int found = 0;
    for (int i = 0; i < 60000; ++i) {
        const std::string text =
            Random(random, {"a", "b", "\x80", "\xff", std::string(1, '\0')}, 40);
        const std::string needle =
            Random(random, {"a", "b", "\x80", "\xff", std::string(1, '\0')}, 5);
        const bool expected = text.find(needle) != std::string::npos;
        found += expected ? 1 : 0;
        if (ByteSearch(needle).FoundIn(text) != expected)
            QFAIL(qPrintable(QString::number(i)));
    }
    QVERIFY(found > 1000 && found < 59000);
}

QTEST_APPLESS_MAIN(tst_like)
#include "tst_like.moc"
