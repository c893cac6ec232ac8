#include "runtime/RuntimeError.h"
#include "store/CatalogueSchema.h"
#include "store/Connection.h"
#include "store/dialect/Dialect.h"
#include "store/dialect/Parser.h"
#include "support/TestCatalogue.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTest>

#include <memory>

/// What statements give and leave on a real catalogue, and what is refused before SQLite sees it.
class tst_dialect : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void select_data();
    void select();
    void order_data();
    void order();
    void expression_data();
    void expression();
    void action_data();
    void action();
    void refuses_data();
    void refuses();

    void oneSemicolonMayEndAStatement();
    void tellsQueriesFromActions();
    void longListsAreNotKept();
    void namesQuotesInside();
    void deepNestingIsRefused_data();
    void deepNestingIsRefused();
    void longStatementsTakeLinearTime();

private:
    QStringList Rows(const QString& sql);
    void CheckRows();

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<Connection> m_connection;
};

namespace {

Translation Translated(const QString& sql)
{
    static const Schema schema = CatalogueSchema();
    return Translate(sql, schema);
}

void Columns()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("expected");
}

/// @param expected  the names of the columns, then the rows, each joined by |
void Row(const char* name, const QString& sql, const QStringList& expected)
{
    QTest::newRow(name) << sql << expected;
}

} // namespace

void tst_dialect::init()
{
    m_catalogue = std::make_unique<TestCatalogue>();
    m_catalogue->Run(
        u"INSERT INTO MUSICA (ID, TITULO, REFERENCIA, MUSICA, TOM, VARIACAO, CATEGORIA, CONTADOR)"
        " VALUES (1, 'Água Viva', 'Ana', 'a', 'C', '', 1, 2),"
        " (2, 'abc', NULL, 'b', 'd', 'm', 2, 10),"
        " (3, 'ABC', 'Bia', 'c', 'c', '', 1, 2),"
        " (5, NULL, 'bia', 'd', 'G', '', 2, 0),"
        " (12, 'd''água', 'Ana', 'e', 'C', 'm', 1, 1);"
        "INSERT INTO TEMA (ID, DESCRICAO, ORDEM, COR) VALUES (1, 'Louvor', 2, ''),"
        " (2, 'adoração', 1, ''), (3, 'Água', 2, NULL), (7, 'ágape', 9, 'x');"
        "INSERT INTO TEMA_MUSICA VALUES (12, 3), (1, 1), (12, 1), (2, 7), (2, 1), (3, 2);"
        "INSERT INTO LISTA (ID, NOME, DATA) VALUES (1, 'Ensaio', '2009-03-05'),"
        " (2, 'ensaio', '2010-01-20'), (3, 'Culto', '2008-12-31');"_qs);
    m_connection = std::make_unique<Connection>();
    m_connection->Open(m_catalogue->ConnectionString());
}

void tst_dialect::cleanup()
{
    m_connection.reset();
    m_catalogue.reset();
}

/// @return the names of the columns, then the rows, each joined by |
QStringList tst_dialect::Rows(const QString& sql)
{
    Recordset recordset = m_connection->Execute(sql);
    const QStringList names = recordset.FieldNames();
    QStringList rows{names.join(u'|')};
    for (; !recordset.Eof(); recordset.MoveNext()) {
        QStringList fields;
        for (int i = 0; i < names.size(); ++i)
            fields.append(recordset.Fields(i).IsNull() ? u"NULL"_qs : recordset.Fields(i).ToText());
        rows.append(fields.join(u'|'));
    }
    return rows;
}

void tst_dialect::CheckRows()
{
    QFETCH(QString, sql);
    QTEST(Rows(sql), "expected");
}

void tst_dialect::select_data()
{
    Columns();
    Row("a column carries its name", u"SELECT DESCRICAO FROM TEMA"_qs,
        {u"DESCRICAO"_qs, u"Louvor"_qs, u"adoração"_qs, u"Água"_qs, u"ágape"_qs});
    Row("names in any letter case", u"select musica.titulo from Musica where id = 1"_qs,
        {u"TITULO"_qs, u"Água Viva"_qs});
    Row("names in brackets", u"SELECT [TITULO] AS [o título] FROM [MUSICA] WHERE [ID] = 1"_qs,
        {u"o título"_qs, u"Água Viva"_qs});
    Row("a column may be called like its table", u"SELECT MUSICA FROM MUSICA WHERE ID = 2"_qs,
        {u"MUSICA"_qs, u"b"_qs});
    Row("the star gives the columns in the order of the schema",
        u"SELECT * FROM LISTA WHERE ID = 1"_qs, {u"ID|NOME|DATA"_qs, u"1|Ensaio|05/03/2009"_qs});
    Row("computed columns are called after their place",
        u"SELECT ID, TITULO & ' - ' & REFERENCIA, CONTADOR + 1 FROM MUSICA WHERE ID < 3"_qs,
        {u"ID|Expr1001|Expr1002"_qs, u"1|Água Viva - Ana|3"_qs, u"2|abc - |11"_qs});
    Row("an alias may be called like the column inside it", u"SELECT MAX(ID) AS ID FROM MUSICA"_qs,
        {u"ID"_qs, u"12"_qs});
    Row("the greatest text is the greatest under the collation",
        u"SELECT MAX(DESCRICAO), MIN(DATA) FROM TEMA INNER JOIN LISTA ON LISTA.ID = TEMA.ID"_qs,
        {u"Expr1000|Expr1001"_qs, u"Louvor|2008-12-31"_qs});
    Row("counted rows", u"SELECT COUNT(*) FROM TEMA"_qs, {u"Expr1000"_qs, u"4"_qs});
    Row("grouped texts", u"SELECT COUNT(ID) AS N FROM MUSICA GROUP BY TOM, CATEGORIA"_qs,
        {u"N"_qs, u"3"_qs, u"1"_qs, u"1"_qs});
    Row("DISTINCT compares texts under the collation",
        u"SELECT DISTINCT NOME FROM LISTA ORDER BY NOME"_qs,
        {u"NOME"_qs, u"Culto"_qs, u"Ensaio"_qs});
    Row("DISTINCT leaves dates alone", u"SELECT DISTINCT NOME, DATA FROM LISTA ORDER BY DATA"_qs,
        {u"NOME|DATA"_qs, u"Culto|31/12/2008"_qs, u"Ensaio|05/03/2009"_qs,
         u"ensaio|20/01/2010"_qs});
    Row("a sub-query's names bind inside it",
        u"SELECT TITULO FROM MUSICA WHERE MUSICA.CATEGORIA IN (SELECT CATEGORIA FROM MUSICA WHERE"
        " ID = 05)"_qs,
        {u"TITULO"_qs, u"abc"_qs, u"NULL"_qs});
    Row("a sub-query sees the tables around it",
        u"SELECT ID FROM TEMA WHERE ID IN (SELECT ID_TEMA FROM TEMA_MUSICA WHERE ID_MUSICA ="
        " ORDEM)"_qs,
        {u"ID"_qs, u"1"_qs});
    Row("two joins",
        u"SELECT NOTA, ID_TEMA FROM TOM INNER JOIN MUSICA ON MUSICA.TOM = NOTA INNER JOIN"
        " TEMA_MUSICA ON ID_MUSICA = MUSICA.ID"_qs,
        {u"NOTA|ID_TEMA"_qs, u"C|1"_qs, u"C|2"_qs, u"C|3"_qs, u"C|1"_qs, u"D|7"_qs, u"D|1"_qs});
}

void tst_dialect::select()
{
    CheckRows();
}

void tst_dialect::order_data()
{
    Columns();
    Row("texts under the collation", u"SELECT ID FROM TEMA ORDER BY DESCRICAO"_qs,
        {u"ID"_qs, u"2"_qs, u"7"_qs, u"3"_qs, u"1"_qs});
    Row("no text first, ties by ID", u"SELECT ID FROM MUSICA ORDER BY TITULO"_qs,
        {u"ID"_qs, u"5"_qs, u"2"_qs, u"3"_qs, u"1"_qs, u"12"_qs});
    Row("numbers as they are, downwards",
        u"SELECT ID FROM MUSICA ORDER BY CONTADOR DESC, TITULO ASC"_qs,
        {u"ID"_qs, u"2"_qs, u"3"_qs, u"1"_qs, u"12"_qs, u"5"_qs});
    Row("by the ID downwards", u"SELECT ID FROM TEMA ORDER BY ID DESC"_qs,
        {u"ID"_qs, u"7"_qs, u"3"_qs, u"2"_qs, u"1"_qs});
    Row("a name means the column, not the alias",
        u"SELECT ID, Day(DATA) & '/' & Month(DATA) & '/' &  Year(DATA) AS DATA FROM LISTA ORDER BY"
        " DATA DESC"_qs,
        {u"ID|DATA"_qs, u"2|20/1/2010"_qs, u"1|5/3/2009"_qs, u"3|31/12/2008"_qs});
    Row("an alias where FROM has no such column", u"SELECT TITULO AS T FROM MUSICA ORDER BY t"_qs,
        {u"T"_qs, u"NULL"_qs, u"abc"_qs, u"ABC"_qs, u"Água Viva"_qs, u"d'água"_qs});
    Row("the number of a result column", u"SELECT ID, ORDEM FROM TEMA ORDER BY 2 DESC"_qs,
        {u"ID|ORDEM"_qs, u"7|9"_qs, u"1|2"_qs, u"3|2"_qs, u"2|1"_qs});
    Row("what is computed as a column",
        u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA ORDER BY TITULO & ' - ' &"
        " REFERENCIA"_qs,
        {u"ID|Expr1001"_qs, u"5| - bia"_qs, u"2|abc - "_qs, u"3|ABC - Bia"_qs,
         u"1|Água Viva - Ana"_qs, u"12|d'água - Ana"_qs});
    Row("another text is another computation",
        u"SELECT REFERENCIA & '-' FROM MUSICA ORDER BY REFERENCIA & 'c'"_qs,
        {u"Expr1000"_qs, u"Ana-"_qs, u"Ana-"_qs, u"Bia-"_qs, u"bia-"_qs, u"-"_qs});
    Row("without ORDER BY a link comes in its place", u"SELECT * FROM TEMA_MUSICA"_qs,
        {u"ID_MUSICA|ID_TEMA"_qs, u"12|3"_qs, u"1|1"_qs, u"12|1"_qs, u"2|7"_qs, u"2|1"_qs,
         u"3|2"_qs});
    Row("without ORDER BY a join comes by the outer ID, then the link's place",
        u"SELECT DESCRICAO, ID_MUSICA FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID ="
        " TEMA_MUSICA.ID_TEMA WHERE ID_MUSICA IN (012,1)"_qs,
        {u"DESCRICAO|ID_MUSICA"_qs, u"Louvor|1"_qs, u"Louvor|12"_qs, u"Água|12"_qs});
    Row("a DISTINCT that hides the ID is not sorted by it",
        u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA ORDER BY REFERENCIA"_qs,
        {u"Expr1000|REFERENCIA"_qs, u"1|NULL"_qs, u"1|Ana"_qs, u"1|Bia"_qs});
}

void tst_dialect::order()
{
    CheckRows();
}

void tst_dialect::expression_data()
{
    QTest::addColumn<QString>("condition");
    QTest::addColumn<QString>("expected");
    const auto where = [](const char* name, const QString& condition, const QString& songs) {
        QTest::newRow(name) << condition << songs;
    };
    const QString all = u"1,2,3,5,12"_qs;
    where("leading zeros", u"ID = 012"_qs, u"12"_qs);
    where("an empty identifier", u"ID = 0"_qs, u""_qs);
    where("a negative identifier behind the 0", u"ID + 0-1 = 4"_qs, u"5"_qs);
    where("texts under the collation", u"TITULO = 'Abc'"_qs, u"2,3"_qs);
    where("text in double quotes", u"TITULO <> \"D'água\""_qs, u"1,2,3"_qs);
    where("a text that looks like SQL", u"TITULO <> '''; DROP TABLE MUSICA; --'"_qs,
          u"1,2,3,12"_qs);
    where("a text in double quotes is never a column", u"TITULO = \"TITULO\""_qs, u""_qs);
    where("a number and a text", u"ID = '12'"_qs, u"12"_qs);
    where("order of texts", u"'b' < TITULO"_qs, u"12"_qs);
    where("LIKE", u"MUSICA.titulo like '%AGUA%'"_qs, u"1,12"_qs);
    where("NOT LIKE", u"TITULO NOT LIKE 'a%'"_qs, u"12"_qs);
    where("IN with a trailing comma", u"ID IN (012,15,)"_qs, u"12"_qs);
    where("NOT IN", u"ID NOT IN (1,2)"_qs, u"3,5,12"_qs);
    where("IN of texts", u"TOM IN ('c','D')"_qs, u"1,2,3,12"_qs);
    where("IN of a query for texts", u"TOM IN (SELECT NOTA FROM TOM)"_qs, all);
    where("IS NULL", u"TITULO IS NULL OR REFERENCIA IS NULL"_qs, u"2,5"_qs);
    where("IS NOT NULL", u"TITULO IS NOT NULL AND ID > 3"_qs, u"12"_qs);
    where("BETWEEN", u"CONTADOR BETWEEN 1 AND 1+1 AND TITULO NOT BETWEEN 'a' AND 'b'"_qs, u"12"_qs);
    where("OR inside AND keeps its parentheses", u"(ID = 1 OR ID = 2) AND CATEGORIA = 2"_qs,
          u"2"_qs);
    where("AND inside OR", u"ID = 1 OR (ID = 2 AND CATEGORIA = 1)"_qs, u"1"_qs);
    where("AND binds more than OR", u"ID = 1 OR ID = 2 AND CATEGORIA = 1"_qs, u"1"_qs);
    where("NOT binds less than a comparison and more than AND",
          u"NOT ID = 1 AND NOT (ID = 2 OR ID = 3)"_qs, u"5,12"_qs);
    where("& binds less than +", u"CONTADOR + 1 & ' - ' = '3 - '"_qs, u"1,3"_qs);
    where("& binds more than a comparison", u"TITULO = 'a' & 'bc'"_qs, u"2,3"_qs);
    where("* binds more than +, both to the left", u"ID = 1 + 2 * 3 - (4 - 5) - 6"_qs, u"2"_qs);
    where("parentheses against it", u"ID = 33 + (1 + 2) * -(3 + 4)"_qs, u"12"_qs);
    where("a fraction stays one", u"ID = 8 * (1 / 2 / 4)"_qs, u"1"_qs);
    where("a fraction of a column", u"CONTADOR / 4 = 1 / 2"_qs, u"1,3"_qs);
    where("two dashes are no comment", u"ID = 1--1"_qs, u"2"_qs);
    where("three neither", u"ID = 3 + ---1"_qs, u"2"_qs);
    where("texts that are added join", u"TITULO = 'a' + 'b' + 'c'"_qs, u"2,3"_qs);
    where("a text and a column that are added join", u"'x' + TOM = 'xd'"_qs, u"2"_qs);
    where("NULL plus one", u"NULL + 1 IS NULL"_qs, all);
    where("comparisons of comparisons", u"(ID = 1) = (CATEGORIA = 2)"_qs, u"3,12"_qs);
    where("numbers beyond 64 bits", u"ID = 099999999999999999999"_qs, u""_qs);
    where("less than a number beyond 64 bits", u"ID < 099999999999999999999"_qs, all);
}

/// Each condition is asked in a query and in an action.
void tst_dialect::expression()
{
    QFETCH(QString, condition);
    QFETCH(QString, expected);
    const QStringList found = Rows(u"SELECT ID FROM MUSICA WHERE " + condition).mid(1);
    QCOMPARE(found.join(u','), expected);
    m_connection->Execute(u"DELETE FROM MUSICA WHERE " + condition);
    QStringList left{u"1"_qs, u"2"_qs, u"3"_qs, u"5"_qs, u"12"_qs};
    for (const QString& id : found)
        left.removeAll(id);
    QCOMPARE(Rows(u"SELECT ID FROM MUSICA"_qs).mid(1), left);
}

void tst_dialect::action_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("look");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QString& sql, const QString& look,
                        const QStringList& expected) {
        QTest::newRow(name) << sql << look << expected;
    };
    row("a text with an apostrophe, a small number, an empty text",
        u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('D''água', 2, '')"_qs,
        u"SELECT DESCRICAO, ORDEM, COR FROM TEMA WHERE ID > 7"_qs, {u"D'água|2|"_qs});
    row("numbers below zero", u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (5, -1)"_qs,
        u"SELECT ID_MUSICA, ID_TEMA FROM TEMA_MUSICA WHERE ID_TEMA < 0"_qs, {u"5|-1"_qs});
    row("a date", u"INSERT INTO LISTA (NOME, DATA)  VALUES ('Ensaio', CDATE('05/03/2009'))"_qs,
        u"SELECT NOME, DATA FROM LISTA WHERE ID > 3"_qs, {u"Ensaio|2009-03-05"_qs});
    row("a text in a date column is read as a date", u"UPDATE LISTA SET DATA = '05/03/2009'"_qs,
        u"SELECT DISTINCT DATA FROM LISTA"_qs, {u"2009-03-05"_qs});
    row("NULL fits everywhere", u"UPDATE MUSICA SET CATEGORIA = NULL, TITULO = NULL"_qs,
        u"SELECT COUNT(*) FROM MUSICA WHERE CATEGORIA IS NULL AND TITULO IS NULL"_qs, {u"5"_qs});
    row("rows of a query",
        u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 5, ID FROM TEMA WHERE ID IN (3,7)"_qs,
        u"SELECT * FROM TEMA_MUSICA WHERE ID_MUSICA = 5"_qs, {u"5|3"_qs, u"5|7"_qs});
    row("a column called like its table", u"UPDATE MUSICA SET MUSICA = 'b'"_qs,
        u"SELECT DISTINCT MUSICA FROM MUSICA"_qs, {u"b"_qs});
    row("one more, as written",
        u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 05 AND ID NOT IN (12,45)"_qs,
        u"SELECT ID, CONTADOR FROM MUSICA ORDER BY ID"_qs,
        {u"1|2"_qs, u"2|10"_qs, u"3|2"_qs, u"5|1"_qs, u"12|1"_qs});
    row("all rows", u"DELETE FROM TEMA"_qs, u"SELECT COUNT(*) FROM TEMA"_qs, {u"0"_qs});
}

void tst_dialect::action()
{
    QFETCH(QString, sql);
    QFETCH(QString, look);
    m_connection->Execute(sql);
    m_connection->CommitBatch();
    QStringList rows;
    const QList<QStringList> found = m_catalogue->Rows(look);
    for (const QStringList& row : found)
        rows.append(row.join(u'|'));
    QTEST(rows, "expected");
}

void tst_dialect::refuses_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("apostrophe");
    const auto row = [](const char* name, const QString& sql, const QString& description,
                        bool apostrophe = false) {
        QTest::newRow(name) << sql << description << apostrophe;
    };
    row("an empty statement", u""_qs,
        u"Character 1: expected SELECT, INSERT, UPDATE or DELETE, found the end of the statement\n"
        "»"_qs);
    row("a statement of another kind", u"DROP TABLE TEMA"_qs,
        u"Character 1: expected SELECT, INSERT, UPDATE or DELETE, found DROP\n»DROP TABLE TEMA"_qs);
    row("a second statement", u"DELETE FROM TEMA; DROP TABLE TEMA"_qs,
        u"Character 19: expected nothing behind the ;, found DROP\n"
        "DELETE FROM TEMA; »DROP TABLE TEMA"_qs);
    row("a second semicolon", u"DELETE FROM TEMA;;"_qs,
        u"Character 18: expected nothing behind the ;, found ;\nDELETE FROM TEMA;»;"_qs);
    row("an apostrophe in a title",
        u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE 'D'água%' ORDER BY"
        " TITULO"_qs,
        u"Character 73: expected an operator, a clause or the end of the statement, found água\n"
        "…M MUSICA WHERE TITULO LIKE 'D'»água%' ORDER BY TITULO"_qs,
        true);
    row("an empty list", u"DELETE FROM TEMA WHERE ID IN ()"_qs,
        u"Character 31: expected a value, found )\nDELETE FROM TEMA WHERE ID IN (»)"_qs);
    row("a list that begins with a comma", u"DELETE FROM TEMA WHERE ID IN (,1)"_qs,
        u"Character 31: expected a value, found ,\nDELETE FROM TEMA WHERE ID IN (»,1)"_qs);
    row("a list with two trailing commas", u"DELETE FROM TEMA WHERE ID IN (1,,)"_qs,
        u"Character 33: expected a value, found ,\n…LETE FROM TEMA WHERE ID IN (1,»,)"_qs);
    row("a trailing comma anywhere else", u"SELECT ID, FROM TEMA"_qs,
        u"Character 12: expected a value, found FROM\nSELECT ID, »FROM TEMA"_qs);
    row("letters at a number", u"DELETE FROM TEMA WHERE ID = 0abc"_qs,
        u"Character 29: expected a number, found 0abc\nDELETE FROM TEMA WHERE ID = »0abc"_qs);
    row("an unknown table", u"SELECT * FROM CANTO"_qs,
        u"Character 15: expected the name of a table, found CANTO\nSELECT * FROM »CANTO"_qs);
    row("an unknown column", u"SELECT NOME FROM MUSICA"_qs,
        u"Character 8: expected a column of MUSICA, found NOME\nSELECT »NOME FROM MUSICA"_qs);
    row("a column of a table that is not in FROM", u"SELECT TEMA.ID FROM MUSICA"_qs,
        u"Character 8: expected a column of MUSICA, found TEMA.ID\nSELECT »TEMA.ID FROM MUSICA"_qs);
    row("an unknown column of a join",
        u"SELECT COR FROM MUSICA INNER JOIN TEMA_MUSICA ON ID = ID_MUSICA"_qs,
        u"Character 8: expected a column of MUSICA or TEMA_MUSICA, found COR\n"
        "SELECT »COR FROM MUSICA INNER JOIN TEM…"_qs);
    row("a column that both tables have",
        u"SELECT ID FROM MUSICA INNER JOIN TEMA ON MUSICA.ID = TEMA.ID"_qs,
        u"Character 8: expected a table before the column, which MUSICA and TEMA have, found ID\n"
        "SELECT »ID FROM MUSICA INNER JOIN TEMA…"_qs);
    row("a table twice", u"SELECT COR FROM TEMA INNER JOIN TEMA ON 1 = 1"_qs,
        u"Character 33: expected each table once in FROM, found TEMA\n"
        "…LECT COR FROM TEMA INNER JOIN »TEMA ON 1 = 1"_qs);
    row("a column among inserted values", u"INSERT INTO TEMA (ORDEM) VALUES (ORDEM)"_qs,
        u"Character 34: expected a value without columns, found ORDEM\n"
        "…ERT INTO TEMA (ORDEM) VALUES (»ORDEM)"_qs);
    row("an unknown target", u"UPDATE TEMA SET NOME = ''"_qs,
        u"Character 17: expected a column of TEMA, found NOME\nUPDATE TEMA SET »NOME = ''"_qs);
    row("too few values", u"INSERT INTO TEMA (ORDEM, COR) VALUES (1)"_qs,
        u"Character 31: expected 2 values, found 1\nINSERT INTO TEMA (ORDEM, COR) »VALUES (1)"_qs);
    row("too many selected values", u"INSERT INTO TEMA (ORDEM) SELECT * FROM VARIACAO"_qs,
        u"Character 26: expected 1 values, found 2\n"
        "INSERT INTO TEMA (ORDEM) »SELECT * FROM VARIACAO"_qs);
    row("a query with two columns in IN", u"DELETE FROM TEMA WHERE ID IN (SELECT * FROM TOM)"_qs,
        u"Character 27: expected one column in the query of IN, found 4\n"
        "DELETE FROM TEMA WHERE ID »IN (SELECT * FROM TOM)"_qs);
    row("an unknown function", u"SELECT Format(DATA) FROM LISTA"_qs,
        u"Character 8: expected Day, Month, Year, CDATE, MAX, MIN or COUNT, found Format\n"
        "SELECT »Format(DATA) FROM LISTA"_qs);
    row("a star outside COUNT", u"SELECT MAX(*) FROM LISTA"_qs,
        u"Character 12: expected a value, found *\nSELECT MAX(»*) FROM LISTA"_qs);
    row("two arguments", u"SELECT MAX(ID, 2) FROM LISTA"_qs,
        u"Character 14: expected ), found ,\nSELECT MAX(ID», 2) FROM LISTA"_qs);
    row("NOT before =", u"DELETE FROM TEMA WHERE ID NOT = 1"_qs,
        u"Character 31: expected IN, LIKE or BETWEEN behind NOT, found =\n"
        "DELETE FROM TEMA WHERE ID NOT »= 1"_qs);
    row("a keyword for a column", u"SELECT ORDER FROM TEMA"_qs,
        u"Character 8: expected a value, found ORDER\nSELECT »ORDER FROM TEMA"_qs);
    row("a result column that is not there", u"SELECT ID FROM TEMA ORDER BY 2"_qs,
        u"Character 30: expected the number of a result column, found 2\n"
        "SELECT ID FROM TEMA ORDER BY »2"_qs);
    row("a table of SQLite's own", u"SELECT name FROM sqlite_master"_qs,
        u"Character 18: expected the name of a table, found sqlite_master\n"
        "SELECT name FROM »sqlite_master"_qs);
}

void tst_dialect::refuses()
{
    QFETCH(QString, sql);
    QFETCH(bool, apostrophe);
    try {
        Translated(sql);
        QFAIL("was taken");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.Number(), static_cast<int>(RuntimeError::StoreFailure));
        QTEST(error.Description(), "description");
        QCOMPARE(error.WhatFailed(),
                 apostrophe ? u"O banco de dados não entendeu um comando. Um apóstrofo (') no texto"
                              " digitado pode ser a causa."_qs
                            : u"O banco de dados não entendeu um comando."_qs);
    }
}

void tst_dialect::oneSemicolonMayEndAStatement()
{
    QCOMPARE(Rows(u"SELECT ID FROM TEMA ; "_qs), Rows(u"SELECT ID FROM TEMA"_qs));
    m_connection->Execute(u"DELETE FROM TEMA ; "_qs);
    QCOMPARE(Rows(u"SELECT ID FROM TEMA"_qs), QStringList{u"ID"_qs});
}

void tst_dialect::tellsQueriesFromActions()
{
    QVERIFY(Translated(u"SELECT * FROM TOM"_qs).isQuery);
    QVERIFY(!Translated(u"DELETE FROM TOM"_qs).isQuery);
    QVERIFY(!Translated(u"UPDATE TOM SET NOTA = 'C'"_qs).isQuery);
    QVERIFY(!Translated(u"INSERT INTO TOM (NOTA) SELECT MAIS FROM TOM"_qs).isQuery);
}

void tst_dialect::longListsAreNotKept()
{
    QVERIFY(Translated(u"SELECT ID FROM MUSICA WHERE ID IN (1,2)"_qs).cacheable);
    const QString marked = u"01,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,"_qs;
    QVERIFY(!Translated(u"SELECT ID FROM MUSICA WHERE ID IN (" + marked + u")").cacheable);
}

void tst_dialect::namesQuotesInside()
{
    QCOMPARE(Rows(u"SELECT ID AS [a\"b] FROM TEMA WHERE ID = 7"_qs),
             QStringList({u"a\"b"_qs, u"7"_qs}));
}

void tst_dialect::deepNestingIsRefused_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("core");
    QTest::addColumn<QString>("behind");
    QTest::addColumn<int>("most");
    const int nesting = Parser::DeepestNesting;
    QTest::newRow("parentheses") << u"("_qs << u"1"_qs << u")"_qs << nesting;
    QTest::newRow("minus") << u"- "_qs << u"1"_qs << u""_qs << nesting;
    QTest::newRow("NOT") << u"NOT "_qs << u"1"_qs << u""_qs << nesting;
    QTest::newRow("functions") << u"Day("_qs << u"1"_qs << u")"_qs << nesting;
    QTest::newRow("lists") << u"1 IN ("_qs << u"1"_qs << u")"_qs << nesting;
    QTest::newRow("sub-queries") << u"1 IN (SELECT ID FROM TOM WHERE "_qs << u"1"_qs << u")"_qs
                                 << nesting / Parser::SubQueryNesting;
    QTest::newRow("sums") << u""_qs << u"1"_qs << u" + 1"_qs << Parser::LongestChain - 1;
    QTest::newRow("comparisons") << u""_qs << u"1"_qs << u" = 1"_qs << Parser::LongestChain - 1;
}

void tst_dialect::deepNestingIsRefused()
{
    QFETCH(QString, before);
    QFETCH(QString, core);
    QFETCH(QString, behind);
    QFETCH(int, most);
    const auto sql = [&](int depth) {
        return QString(u"DELETE FROM TEMA WHERE " + before.repeated(depth) + core +
                       behind.repeated(depth));
    };
    Translated(sql(most));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Translated(sql(most + 1)));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Translated(sql(1'000'000)));
}

/// A musician's whole catalogue marked for export, a long song, a wall of conditions.
void tst_dialect::longStatementsTakeLinearTime()
{
    constexpr int Long = 100'000;
    QElapsedTimer timer;
    timer.start();
    m_connection->Execute(u"UPDATE MUSICA SET MUSICA = '" + u"É''"_qs.repeated(Long) +
                          u"' WHERE ID = 3");
    QCOMPARE(Rows(u"SELECT MUSICA FROM MUSICA WHERE ID = 3"_qs).last(), u"É'"_qs.repeated(Long));
    QCOMPARE(Rows(u"SELECT ID FROM TEMA WHERE ID IN (0" + u"7,"_qs.repeated(Long) + u")").last(),
             u"7"_qs);
    // More conditions than SQLite takes are translated as well.
    Translated(u"SELECT ID FROM MUSICA WHERE 1" + u" AND 2"_qs.repeated(Long));
    QVERIFY2(timer.elapsed() < 10'000, "seconds for what takes milliseconds");
}

QTEST_GUILESS_MAIN(tst_dialect)
#include "tst_dialect.moc"
