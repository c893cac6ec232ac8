#include "store/Connection.h"
#include "store/text/Collation.h"
#include "support/TestCatalogue.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

namespace {

int Sign(int number)
{
    return number < 0 ? -1 : (number > 0 ? 1 : 0);
}

std::string Random(QRandomGenerator& random, const std::vector<std::string>& pieces, int most)
{
    std::string text;
    for (int i = random.bounded(most + 1); i > 0; --i)
        text += pieces[random.bounded(static_cast<quint32>(pieces.size()))];
    return text;
}

std::vector<std::string> Ascii()
{
    std::vector<std::string> pieces;
    pieces.reserve(128);
    for (int code = 0; code < 128; ++code)
        pieces.emplace_back(1, static_cast<char>(code));
    return pieces;
}

} // namespace

class tst_collation : public QObject
{
    Q_OBJECT

private slots:
    void compares_data();
    void compares();
    void ordersAsciiAsIcuDoes_data();
    void ordersAsciiAsIcuDoes();
    void ordersEveryPairOfCharactersAsIcuDoes();
    void ordersTitles();
    void decidesEqualityInStatements();
};

void tst_collation::compares_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("expected");
    QTest::newRow("letter case does not count") << u"abc"_qs << u"ABC"_qs << 0;
    QTest::newRow("trailing blank counts") << u"abc"_qs << u"abc "_qs << -1;
    QTest::newRow("leading blank counts") << u" abc"_qs << u"abc"_qs << -1;
    QTest::newRow("accents count") << u"cafe"_qs << u"café"_qs << -1;
    QTest::newRow("accented case does not count") << u"CAFÉ"_qs << u"café"_qs << 0;
    QTest::newRow("accents come after letters") << u"café"_qs << u"cafez"_qs << -1;
    QTest::newRow("composition does not count") << u"caf\u00e9"_qs << u"cafe\u0301"_qs << 0;
    QTest::newRow("order of accents does not count") << u"\u1ead"_qs << u"a\u0302\u0323"_qs << 0;
    QTest::newRow("abaco before Ábaco") << u"abaco"_qs << u"Ábaco"_qs << -1;
    QTest::newRow("Ábaco before abade") << u"Ábaco"_qs << u"abade"_qs << -1;
    QTest::newRow("e before É") << u"e"_qs << u"É"_qs << -1;
    QTest::newRow("É before f") << u"É"_qs << u"f"_qs << -1;
    QTest::newRow("empty before all") << u""_qs << u" "_qs << -1;
    QTest::newRow("both empty") << u""_qs << u""_qs << 0;
    QTest::newRow("digits before letters") << u"9"_qs << u"a"_qs << -1;
    QTest::newRow("signs count") << u"a-b"_qs << u"ab"_qs << -1;
    QTest::newRow("an accent behind the shorter text") << u"a"_qs << u"a\u0301"_qs << -1;
}

void tst_collation::compares()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, expected);
    const Collation collation;
    QCOMPARE(Sign(collation.Compare(a.toStdString(), b.toStdString())), expected);
    QCOMPARE(Sign(collation.Compare(b.toStdString(), a.toStdString())), -expected);
}

void tst_collation::ordersAsciiAsIcuDoes_data()
{
    QTest::addColumn<bool>("accents");
    QTest::addColumn<int>("length");
    QTest::newRow("short") << false << 3;
    QTest::newRow("long") << false << 20;
    QTest::newRow("short, mixed with others") << true << 4;
    QTest::newRow("long, mixed with others") << true << 20;
}

void tst_collation::ordersAsciiAsIcuDoes()
{
    QFETCH(bool, accents);
    QFETCH(int, length);
    std::vector<std::string> pieces = Ascii();
    for (const char* often : {"a", "A", "b", "B", " ", "l", "L"})
        pieces.insert(pieces.end(), 20, often);
    if (accents) {
        for (const char* other :
             {"á", "\u0301", "\u0327", "·", "ß", "æ", "ŀ", "\u00ad", "가", "\xff"})
            pieces.insert(pieces.end(), 10, other);
    }
    const Collation collation;
    QRandomGenerator random(4711);
    for (int i = 0; i < 100000; ++i) {
        const std::string start = Random(random, pieces, length);
        const std::string a = start + Random(random, pieces, 3);
        const std::string b = start + Random(random, pieces, 3);
        if (Sign(collation.Compare(a, b)) != Sign(collation.CompareInIcu(a, b)))
            QFAIL(std::string(a).append(" | ").append(b).c_str());
    }
}

void tst_collation::ordersEveryPairOfCharactersAsIcuDoes()
{
    const Collation collation;
    const std::vector<std::string> pieces = Ascii();
    for (const std::string& first : pieces) {
        for (const std::string& second : pieces) {
            // As two texts, and as one: two characters that ICU orders as one would show there.
            QCOMPARE(Sign(collation.Compare(first, second)),
                     Sign(collation.CompareInIcu(first, second)));
            for (const char* other : {"a", "l", "m", "z", "\x01", "-"})
                QCOMPARE(Sign(collation.Compare(first + second, other)),
                         Sign(collation.CompareInIcu(first + second, other)));
            QCOMPARE(Sign(collation.Compare(first + second, first)),
                     Sign(collation.CompareInIcu(first + second, first)));
        }
    }
}

void tst_collation::ordersTitles()
{
    const TestCatalogue catalogue;
    for (const char16_t* title : {u"Zelo", u"abade", u"Ábaco", u"É bom", u"E assim", u"", u"abaco"})
        catalogue.AddSong(QString::fromUtf16(title));
    TestSong untitled;
    untitled.title = QString();
    catalogue.AddSong(untitled);
    catalogue.AddSong(u"ABACO"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    Recordset rows = connection.Execute(u"SELECT TITULO FROM MUSICA ORDER BY TITULO"_qs);
    QStringList titles;
    for (; !rows.Eof(); rows.MoveNext())
        titles << (rows.Fields(0).IsNull() ? u"NULL"_qs : rows.Fields(0).ToText());
    QCOMPARE(titles, QStringList({u"NULL"_qs, u""_qs, u"abaco"_qs, u"ABACO"_qs, u"Ábaco"_qs,
                                  u"abade"_qs, u"E assim"_qs, u"É bom"_qs, u"Zelo"_qs}));
}

void tst_collation::decidesEqualityInStatements()
{
    const TestCatalogue catalogue;
    for (const char16_t* name : {u"abc", u"abc ", u"cafe", u"café", u"ABC"})
        catalogue.AddTheme(QString::fromUtf16(name));
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    const auto count = [&](const QString& condition) {
        return connection.Execute(u"SELECT ID FROM TEMA WHERE DESCRICAO "_qs + condition)
            .RecordCount();
    };
    QCOMPARE(count(u"= 'Abc'"_qs), 2);
    QCOMPARE(count(u"= 'abc '"_qs), 1);
    QCOMPARE(count(u"= 'CAFÉ'"_qs), 1);
    QCOMPARE(count(u"<> 'abc'"_qs), 3);
    QCOMPARE(count(u"IN ('ABC', 'Cafe')"_qs), 3);
    QCOMPARE(connection.Execute(u"SELECT DISTINCT DESCRICAO FROM TEMA"_qs).RecordCount(), 4);
}

QTEST_GUILESS_MAIN(tst_collation)
#include "tst_collation.moc"
