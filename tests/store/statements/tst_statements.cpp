#include "store/Connection.h"
#include "store/statements/Cases.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <algorithm>

/// Every statement of the program, letter by letter as it is built, against a real catalogue.
class tst_statements : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void gives_data();
    void gives();
    void changes_data();
    void changes();
    void tableHoldsEveryStatementOnce();

private:
    TestCatalogue m_catalogue;
    Connection m_connection;
};

namespace {

const StatementCases& AllCases()
{
    static const StatementCases cases = ListCases() + SearchCases() + SongCases() + ThemeCases() +
                                        SetlistCases() + ViewerCases() + ExchangeCases();
    return cases;
}

/// @param actions  the statements that change something, or else the queries
void AddCases(bool actions)
{
    QTest::addColumn<StatementCase>("statement");
    for (const StatementCase& statement : AllCases()) {
        if (statement.readBack.isEmpty() != actions)
            QTest::newRow(statement.name.toUtf8().constData()) << statement;
    }
}

Rows Fetched(Recordset& result, qsizetype fields)
{
    Rows rows;
    for (; !result.Eof(); result.MoveNext()) {
        QStringList row;
        for (int i = 0; i < fields; ++i) {
            const Value field = result.Fields(i);
            row.append(field.IsNull() ? QString() : field.ToText());
        }
        rows.append(row);
    }
    return rows;
}

/// @return the rows as one text, in which NULL and an empty text differ.
QString Written(const Rows& rows)
{
    QString text;
    for (const QStringList& row : rows) {
        for (const QString& field : row)
            text += field.isNull() ? u"NULL | "_qs : QString(u'<' + field + u"> | ");
        text += u'\n';
    }
    return text;
}

} // namespace

Q_DECLARE_METATYPE(StatementCase)

void tst_statements::initTestCase()
{
    FillCatalogue(m_catalogue);
    m_connection.Open(m_catalogue.ConnectionString());
    m_connection.CursorLocation = Connection::UseClient;
}

void tst_statements::gives_data()
{
    AddCases(false);
}

void tst_statements::gives()
{
    QFETCH(StatementCase, statement);
    Recordset result = m_connection.Execute(statement.sql);
    QCOMPARE(result.FieldNames(), statement.fields);
    QCOMPARE(result.RecordCount(), static_cast<int>(statement.rows.size()));
    QCOMPARE(Written(Fetched(result, statement.fields.size())), Written(statement.rows));
}

void tst_statements::changes_data()
{
    AddCases(true);
}

void tst_statements::changes()
{
    QFETCH(StatementCase, statement);
    const TestCatalogue catalogue;
    FillCatalogue(catalogue);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QVERIFY(!connection.Execute(statement.sql).IsOpen());
    connection.Close();
    QCOMPARE(Written(catalogue.Rows(statement.readBack)), Written(statement.rows));
}

void tst_statements::tableHoldsEveryStatementOnce()
{
    QStringList names;
    QStringList texts;
    for (const StatementCase& statement : AllCases()) {
        names.append(statement.name);
        texts.append(statement.sql);
    }
    QCOMPARE(names.removeDuplicates(), 0);
    QCOMPARE(texts.removeDuplicates(), 0);
}

QTEST_GUILESS_MAIN(tst_statements)
#include "tst_statements.moc"
