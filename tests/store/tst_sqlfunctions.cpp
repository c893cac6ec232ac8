#include "store/Failed.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/sqlite/Statement.h"

#include <QTest>

#include <sqlite3.h>

namespace {

/// A database in memory that knows our functions.
class Calculator
{
public:
    Calculator()
    {
        if (sqlite3_open(":memory:", &m_handle) != SQLITE_OK)
            qFatal("no database");
        SqlFunctions::AddAll(m_handle);
    }
    ~Calculator() { sqlite3_close(m_handle); }
    Calculator(const Calculator&) = delete;
    Calculator& operator=(const Calculator&) = delete;

    /// @return the value of an expression as SQLite writes it in its own language.
    QString Quote(const QString& expression)
    {
        Statement statement(m_handle, "SELECT quote(" + expression.toUtf8() + ")");
        statement.Step();
        const std::string_view text = statement.Text(0);
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }

    QString Rows(const QByteArray& sql)
    {
        Statement statement(m_handle, sql);
        QStringList rows;
        while (statement.Step())
            rows << QString::fromUtf8(std::string(statement.Text(0)).c_str());
        return rows.join(u' ');
    }

private:
    sqlite3* m_handle = nullptr;
};

} // namespace

class tst_sqlfunctions : public QObject
{
    Q_OBJECT

private slots:
    void calculates_data();
    void calculates();
    void refuses_data();
    void refuses();
    void matchesAgainstAPatternOfEachRow();
    void isUnknownToWhatLiesInAFile();
};

void tst_sqlfunctions::calculates_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, const QString& expression, const QString& result) {
        QTest::newRow(name) << expression << result;
    };
    row("like", u"db_like('Água Viva', 'agua%')"_qs, u"1"_qs);
    row("not like", u"db_like('Agua', 'água')"_qs, u"0"_qs);
    row("NULL is not like anything", u"db_like(NULL, '%')"_qs, u"NULL"_qs);
    row("nothing is like NULL", u"db_like('a', NULL)"_qs, u"NULL"_qs);
    row("a number is like its digits", u"db_like(125, '12_')"_qs, u"1"_qs);

    row("texts join", u"db_concat('a', ' - ', 'b')"_qs, u"'a - b'"_qs);
    row("NULL joins as empty", u"db_concat('X', ' - ', NULL)"_qs, u"'X - '"_qs);
    row("NULLs join to an empty text", u"db_concat(NULL, NULL)"_qs, u"''"_qs);
    row("numbers join as text", u"db_concat(1, ' - ')"_qs, u"'1 - '"_qs);
    row("fractions join with a comma", u"db_concat(1.5, '')"_qs, u"'1,5'"_qs);
    row("joined numbers are text", u"db_concat(1, 2)"_qs, u"'12'"_qs);

    row("numbers add", u"db_add(2, 3)"_qs, u"5"_qs);
    row("fractions add", u"db_add(1, 0.5)"_qs, u"1.5"_qs);
    row("added texts join", u"db_add('1', '2')"_qs, u"'12'"_qs);
    row("a text of digits adds to a number", u"db_add('1', 2)"_qs, u"3.0"_qs);
    row("NULL and a number", u"db_add(NULL, 1)"_qs, u"NULL"_qs);
    row("a text and NULL", u"db_add('a', NULL)"_qs, u"NULL"_qs);
    row("beyond 64 bits", u"db_add(9223372036854775807, 1) > 9e18"_qs, u"1"_qs);

    row("a date", u"db_cdate('5/3/2009')"_qs, u"'2009-03-05'"_qs);
    row("the day first", u"db_cdate('03/04/2009')"_qs, u"'2009-04-03'"_qs);
    row("a leap day", u"db_cdate('29/02/2008')"_qs, u"'2008-02-29'"_qs);
    row("day without padding", u"db_day('2009-03-05')"_qs, u"5"_qs);
    row("month without padding", u"db_month('2009-03-05')"_qs, u"3"_qs);
    row("year without padding", u"db_year('0100-03-05')"_qs, u"100"_qs);
    row("part of a date as typed", u"db_month('05/03/2009')"_qs, u"3"_qs);
    row("part of NULL", u"db_day(NULL)"_qs, u"NULL"_qs);
    row("part of no date", u"db_day('2009-02-31')"_qs, u"NULL"_qs);

    row("largest of 16 bits", u"db_integer(32767)"_qs, u"32767"_qs);
    row("smallest of 16 bits", u"db_integer(-32768)"_qs, u"-32768"_qs);
    row("largest of 32 bits", u"db_long(2147483647)"_qs, u"2147483647"_qs);
    row("smallest of 32 bits", u"db_long(-2147483648)"_qs, u"-2147483648"_qs);
    row("half to even", u"db_long(2.5)"_qs, u"2"_qs);
    row("text of a number", u"db_integer(' 12 ')"_qs, u"12"_qs);
    row("text with a comma", u"db_integer('1,5')"_qs, u"2"_qs);
    row("NULL stays", u"db_long(NULL)"_qs, u"NULL"_qs);
}

void tst_sqlfunctions::calculates()
{
    QFETCH(QString, expression);
    QFETCH(QString, result);
    QCOMPARE(Calculator().Quote(expression), result);
}

void tst_sqlfunctions::refuses_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("description");
    const int overflow = RuntimeError::Overflow;
    const int mismatch = RuntimeError::TypeMismatch;
    const auto row = [](const char* name, const QString& expression, int number) {
        QTest::newRow(name) << expression << number
                            << (number == RuntimeError::Overflow ? u"Overflow"_qs
                                                                 : u"Type mismatch"_qs);
    };
    row("16 bits and one more", u"db_integer(32768)"_qs, overflow);
    row("16 bits and one less", u"db_integer(-32769)"_qs, overflow);
    row("32 bits and one more", u"db_long(2147483648)"_qs, overflow);
    row("64 bits", u"db_long(9223372036854775807)"_qs, overflow);
    row("endless", u"db_long(9e999)"_qs, overflow);
    row("text beyond", u"db_integer('99999')"_qs, overflow);
    row("no number", u"db_integer('dois')"_qs, mismatch);
    row("no number at all", u"db_long('')"_qs, mismatch);
    row("a text and a number", u"db_add('a', 1)"_qs, mismatch);
    row("no such day", u"db_cdate('31/02/2009')"_qs, mismatch);
    row("month first", u"db_cdate('03/25/2009')"_qs, mismatch);
    row("unfinished date", u"db_cdate('05/03/209_')"_qs, mismatch);
    row("empty date", u"db_cdate('')"_qs, mismatch);
    row("NULL is no date", u"db_cdate(NULL)"_qs, mismatch);
}

void tst_sqlfunctions::refuses()
{
    QFETCH(QString, expression);
    QFETCH(int, number);
    QFETCH(QString, description);
    Calculator calculator;
    const Failed failed([&] { calculator.Quote(expression); });
    QCOMPARE(failed.number, number);
    QCOMPARE(failed.description, description);
    QVERIFY(!failed.whatFailed.isEmpty());
}

void tst_sqlfunctions::matchesAgainstAPatternOfEachRow()
{
    Calculator calculator;
    calculator.Rows("CREATE TABLE t (text, pattern)");
    calculator.Rows("INSERT INTO t VALUES ('a', 'a%'), ('a', 'b%'), ('b', 'b%'), ('b', NULL)");
    QCOMPARE(calculator.Rows("SELECT db_like(text, pattern) FROM t ORDER BY rowid"), u"1 0 1 "_qs);
    QCOMPARE(calculator.Rows("SELECT db_like(text, 'A') FROM t ORDER BY rowid"), u"1 1 0 0"_qs);
}

void tst_sqlfunctions::isUnknownToWhatLiesInAFile()
{
    Calculator calculator;
    calculator.Rows("CREATE VIEW v AS SELECT db_concat('a', 'b') AS x");
    QCOMPARE(Failed([&] { calculator.Rows("SELECT x FROM v"); }).number,
             int{RuntimeError::StoreFailure});
}

QTEST_GUILESS_MAIN(tst_sqlfunctions)
#include "tst_sqlfunctions.moc"
