#include "runtime/RuntimeError.h"
#include "store/CatalogueSchema.h"
#include "store/dialect/Dialect.h"
#include "store/dialect/Parser.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTest>

/// What SQLite gets to see of a statement: its text and its parameters.
class tst_dialect : public QObject
{
    Q_OBJECT

private slots:
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
};

namespace {

Translation Translated(const QString& sql)
{
    static const Schema schema = CatalogueSchema();
    return Translate(sql, schema);
}

QStringList Texts(const Translation& translation)
{
    QStringList texts;
    for (const Value& value : translation.values)
        texts.append(value.ToText());
    return texts;
}

void Columns()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QStringList>("values");
}

void Row(const char* name, const QString& sql, const QByteArray& expected,
         const QStringList& values = {})
{
    QTest::newRow(name) << sql << expected << values;
}

void Check()
{
    QFETCH(QString, sql);
    const Translation translation = Translated(sql);
    QTEST(translation.sql, "expected");
    QTEST(Texts(translation), "values");
}

} // namespace

void tst_dialect::select_data()
{
    Columns();
    Row("a column carries its name", u"SELECT DESCRICAO FROM TEMA"_qs,
        R"(SELECT "TEMA"."DESCRICAO" AS "DESCRICAO" FROM "TEMA" ORDER BY "TEMA"."ID")");
    Row("names in any letter case", u"select musica.titulo from Musica"_qs,
        R"(SELECT "MUSICA"."TITULO" AS "TITULO" FROM "MUSICA" ORDER BY "MUSICA"."ID")");
    Row("names in brackets", u"SELECT [TITULO] AS [o título] FROM [MUSICA]"_qs,
        R"(SELECT "MUSICA"."TITULO" AS "o título" FROM "MUSICA" ORDER BY "MUSICA"."ID")");
    Row("a column may be called like its table", u"SELECT MUSICA FROM MUSICA"_qs,
        R"(SELECT "MUSICA"."MUSICA" AS "MUSICA" FROM "MUSICA" ORDER BY "MUSICA"."ID")");
    Row("the star gives the columns in the order of the schema", u"SELECT * FROM LISTA"_qs,
        R"(SELECT "LISTA"."ID" AS "ID", "LISTA"."NOME" AS "NOME", "LISTA"."DATA" AS "DATA")"
        R"( FROM "LISTA" ORDER BY "LISTA"."ID")");
    Row("computed columns are called after their place",
        u"SELECT ID, TITULO & ' - ' & REFERENCIA, CONTADOR + 1 FROM MUSICA"_qs,
        R"(SELECT "MUSICA"."ID" AS "ID", db_concat("MUSICA"."TITULO", ?, "MUSICA"."REFERENCIA"))"
        R"( AS "Expr1001", "MUSICA"."CONTADOR" + 1 AS "Expr1002" FROM "MUSICA")"
        R"( ORDER BY "MUSICA"."ID")",
        {u" - "_qs});
    Row("an alias may be called like the column inside it", u"SELECT MAX(ID) AS ID FROM MUSICA"_qs,
        R"(SELECT MAX("MUSICA"."ID") AS "ID" FROM "MUSICA")");
    Row("the greatest text is the greatest under the collation",
        u"SELECT MAX(TITULO), MIN(DATA) FROM MUSICA INNER JOIN LISTA ON LISTA.ID = MUSICA.ID"_qs,
        R"(SELECT MAX("MUSICA"."TITULO" COLLATE db_text) AS "Expr1000", MIN("LISTA"."DATA"))"
        R"( AS "Expr1001" FROM "MUSICA" INNER JOIN "LISTA" ON "LISTA"."ID" = "MUSICA"."ID")");
    Row("counted rows", u"SELECT COUNT(*) FROM TEMA"_qs,
        R"(SELECT COUNT(*) AS "Expr1000" FROM "TEMA")");
    Row("grouped texts", u"SELECT TOM, COUNT(ID) AS N FROM MUSICA GROUP BY TOM, CATEGORIA"_qs,
        R"(SELECT "MUSICA"."TOM" AS "TOM", COUNT("MUSICA"."ID") AS "N" FROM "MUSICA")"
        R"( GROUP BY "MUSICA"."TOM" COLLATE db_text, "MUSICA"."CATEGORIA")");
    Row("DISTINCT compares texts under the collation and leaves dates alone",
        u"SELECT DISTINCT NOME, DATA FROM LISTA"_qs,
        R"(SELECT DISTINCT "LISTA"."NOME" COLLATE db_text AS "NOME", "LISTA"."DATA" AS "DATA")"
        R"( FROM "LISTA")");
    Row("a sub-query's names bind inside it",
        u"SELECT TITULO FROM MUSICA WHERE MUSICA.CATEGORIA IN (SELECT CATEGORIA FROM MUSICA WHERE"
        " ID = 05)"_qs,
        R"(SELECT "MUSICA"."TITULO" AS "TITULO" FROM "MUSICA" WHERE "MUSICA"."CATEGORIA" IN)"
        R"( (SELECT "MUSICA"."CATEGORIA" AS "CATEGORIA" FROM "MUSICA" WHERE "MUSICA"."ID" = 5))"
        R"( ORDER BY "MUSICA"."ID")");
    Row("a sub-query sees the tables around it",
        u"SELECT ID FROM TEMA WHERE ID IN (SELECT ID_TEMA FROM TEMA_MUSICA WHERE ID_MUSICA ="
        " ORDEM)"_qs,
        R"(SELECT "TEMA"."ID" AS "ID" FROM "TEMA" WHERE "TEMA"."ID" IN (SELECT)"
        R"( "TEMA_MUSICA"."ID_TEMA" AS "ID_TEMA" FROM "TEMA_MUSICA" WHERE)"
        R"( "TEMA_MUSICA"."ID_MUSICA" = "TEMA"."ORDEM") ORDER BY "TEMA"."ID")");
    Row("two joins",
        u"SELECT NOTA FROM TOM INNER JOIN MUSICA ON MUSICA.TOM = NOTA INNER JOIN TEMA_MUSICA ON"
        " ID_MUSICA = MUSICA.ID"_qs,
        R"(SELECT "TOM"."NOTA" AS "NOTA" FROM "TOM" INNER JOIN "MUSICA" ON "MUSICA"."TOM")"
        R"( COLLATE db_text = "TOM"."NOTA" INNER JOIN "TEMA_MUSICA" ON)"
        R"( "TEMA_MUSICA"."ID_MUSICA" = "MUSICA"."ID" ORDER BY "TOM"."ID", "MUSICA"."ID",)"
        R"( "TEMA_MUSICA".rowid)");
}

void tst_dialect::select()
{
    Check();
}

void tst_dialect::order_data()
{
    Columns();
    Row("texts under the collation, ties by ID", u"SELECT ID FROM TEMA ORDER BY DESCRICAO"_qs,
        R"(SELECT "TEMA"."ID" AS "ID" FROM "TEMA" ORDER BY "TEMA"."DESCRICAO" COLLATE db_text,)"
        R"( "TEMA"."ID")");
    Row("numbers as they are, downwards",
        u"SELECT ID FROM MUSICA ORDER BY CONTADOR DESC, TITULO ASC"_qs,
        R"(SELECT "MUSICA"."ID" AS "ID" FROM "MUSICA" ORDER BY "MUSICA"."CONTADOR" DESC,)"
        R"( "MUSICA"."TITULO" COLLATE db_text, "MUSICA"."ID")");
    Row("the ID needs no tie", u"SELECT ID FROM TEMA ORDER BY ID DESC"_qs,
        R"(SELECT "TEMA"."ID" AS "ID" FROM "TEMA" ORDER BY "TEMA"."ID" DESC)");
    Row("a name means the column, not the alias",
        u"SELECT ID, Day(DATA) & '/' & Month(DATA) & '/' &  Year(DATA) AS DATA FROM LISTA ORDER BY"
        " DATA DESC"_qs,
        R"(SELECT "LISTA"."ID" AS "ID", db_concat(db_day("LISTA"."DATA"), ?,)"
        R"( db_month("LISTA"."DATA"), ?, db_year("LISTA"."DATA")) AS "DATA" FROM "LISTA")"
        R"( ORDER BY "LISTA"."DATA" DESC, "LISTA"."ID")",
        {u"/"_qs, u"/"_qs});
    Row("an alias where FROM has no such column", u"SELECT TITULO AS T FROM MUSICA ORDER BY t"_qs,
        R"(SELECT "MUSICA"."TITULO" AS "T" FROM "MUSICA" ORDER BY 1 COLLATE db_text,)"
        R"( "MUSICA"."ID")");
    Row("the number of a result column", u"SELECT ID, ORDEM FROM TEMA ORDER BY 2 DESC"_qs,
        R"(SELECT "TEMA"."ID" AS "ID", "TEMA"."ORDEM" AS "ORDEM" FROM "TEMA" ORDER BY 2 DESC,)"
        R"( "TEMA"."ID")");
    Row("what is computed as a column is not computed again",
        u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA ORDER BY TITULO & ' - ' &"
        " REFERENCIA"_qs,
        R"(SELECT "MUSICA"."ID" AS "ID", db_concat("MUSICA"."TITULO", ?, "MUSICA"."REFERENCIA"))"
        R"( AS "Expr1001" FROM "MUSICA" ORDER BY 2 COLLATE db_text, "MUSICA"."ID")",
        {u" - "_qs});
    Row("another text is another computation",
        u"SELECT TITULO & '-' FROM MUSICA ORDER BY TITULO & '+'"_qs,
        R"(SELECT db_concat("MUSICA"."TITULO", ?) AS "Expr1000" FROM "MUSICA" ORDER BY)"
        R"( db_concat("MUSICA"."TITULO", ?) COLLATE db_text, "MUSICA"."ID")",
        {u"-"_qs, u"+"_qs});
    Row("without ORDER BY a link comes in its place", u"SELECT * FROM TEMA_MUSICA"_qs,
        R"(SELECT "TEMA_MUSICA"."ID_MUSICA" AS "ID_MUSICA", "TEMA_MUSICA"."ID_TEMA" AS "ID_TEMA")"
        R"( FROM "TEMA_MUSICA" ORDER BY "TEMA_MUSICA".rowid)");
    Row("without ORDER BY a join comes by the outer ID, then the link's place",
        u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA WHERE"
        " ID_MUSICA = 012"_qs,
        R"(SELECT "TEMA"."DESCRICAO" AS "DESCRICAO" FROM "TEMA" INNER JOIN "TEMA_MUSICA" ON)"
        R"( "TEMA"."ID" = "TEMA_MUSICA"."ID_TEMA" WHERE "TEMA_MUSICA"."ID_MUSICA" = 12)"
        R"( ORDER BY "TEMA"."ID", "TEMA_MUSICA".rowid)");
    Row("a DISTINCT that hides the ID is not sorted by it",
        u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA ORDER BY REFERENCIA"_qs,
        R"(SELECT DISTINCT 1 AS "Expr1000", "MUSICA"."REFERENCIA" COLLATE db_text)"
        R"( AS "REFERENCIA" FROM "MUSICA" ORDER BY "MUSICA"."REFERENCIA" COLLATE db_text)");
}

void tst_dialect::order()
{
    Check();
}

void tst_dialect::expression_data()
{
    Columns();
    const auto where = [](const char* name, const QString& condition, const QByteArray& expected,
                          const QStringList& values = {}) {
        Row(name, u"DELETE FROM MUSICA WHERE " + condition,
            R"(DELETE FROM "MUSICA" WHERE )" + expected, values);
    };
    where("leading zeros", u"ID = 012"_qs, R"("MUSICA"."ID" = 12)");
    where("an empty identifier", u"ID = 0"_qs, R"("MUSICA"."ID" = 0)");
    where("a negative identifier behind the 0", u"ID = 0-1"_qs, R"("MUSICA"."ID" = 0 - 1)");
    where("texts under the collation", u"TITULO = 'Santo'"_qs,
          R"("MUSICA"."TITULO" COLLATE db_text = ?)", {u"Santo"_qs});
    where("text in double quotes", u"TITULO <> \"d'água\""_qs,
          R"("MUSICA"."TITULO" COLLATE db_text <> ?)", {u"d'água"_qs});
    where("a text that looks like SQL", u"TITULO = '''; DROP TABLE MUSICA; --'"_qs,
          R"("MUSICA"."TITULO" COLLATE db_text = ?)", {u"'; DROP TABLE MUSICA; --"_qs});
    where("a text in double quotes is never a column", u"TITULO = \"TITULO\""_qs,
          R"("MUSICA"."TITULO" COLLATE db_text = ?)", {u"TITULO"_qs});
    where("a number and a text", u"ID = '12'"_qs, R"("MUSICA"."ID" = ?)", {u"12"_qs});
    where("order of texts", u"'b' < TITULO"_qs, R"(? COLLATE db_text < "MUSICA"."TITULO")",
          {u"b"_qs});
    where("LIKE", u"MUSICA.titulo like '%luz%'"_qs, R"(db_like("MUSICA"."TITULO", ?))",
          {u"%luz%"_qs});
    where("NOT LIKE", u"TITULO NOT LIKE 'a%'"_qs, R"(NOT db_like("MUSICA"."TITULO", ?))",
          {u"a%"_qs});
    where("IN with a trailing comma", u"ID IN (012,15,)"_qs, R"("MUSICA"."ID" IN (12, 15))");
    where("NOT IN", u"ID NOT IN (0)"_qs, R"("MUSICA"."ID" NOT IN (0))");
    where("IN of texts", u"TOM IN ('C','d')"_qs, R"("MUSICA"."TOM" COLLATE db_text IN (?, ?))",
          {u"C"_qs, u"d"_qs});
    where("IN of a query for texts", u"TOM IN (SELECT NOTA FROM TOM)"_qs,
          R"("MUSICA"."TOM" COLLATE db_text IN (SELECT "TOM"."NOTA" AS "NOTA" FROM "TOM"))");
    where("IS NULL", u"TITULO IS NULL OR TOM IS NOT NULL"_qs,
          R"("MUSICA"."TITULO" IS NULL OR "MUSICA"."TOM" IS NOT NULL)");
    where("BETWEEN", u"CONTADOR BETWEEN 1 AND 2+3 AND TITULO NOT BETWEEN 'a' AND 'b'"_qs,
          R"("MUSICA"."CONTADOR" BETWEEN 1 AND 2 + 3 AND "MUSICA"."TITULO" COLLATE db_text)"
          R"( NOT BETWEEN ? AND ?)",
          {u"a"_qs, u"b"_qs});
    where("OR inside AND keeps its parentheses", u"(ID = 1 OR ID = 2) AND ID = 3 AND ID = 4"_qs,
          R"(("MUSICA"."ID" = 1 OR "MUSICA"."ID" = 2) AND "MUSICA"."ID" = 3 AND)"
          R"( "MUSICA"."ID" = 4)");
    where("AND inside OR needs none", u"ID = 1 OR (ID = 2 AND ID = 3)"_qs,
          R"("MUSICA"."ID" = 1 OR "MUSICA"."ID" = 2 AND "MUSICA"."ID" = 3)");
    where("NOT binds less than a comparison and more than AND",
          u"NOT ID = 1 AND NOT (ID = 2 OR"
          " ID = 3)"_qs,
          R"(NOT "MUSICA"."ID" = 1 AND NOT ("MUSICA"."ID" = 2 OR "MUSICA"."ID" = 3))");
    where("& binds less than +", u"CONTADOR + 1 & ' - ' = '1 - '"_qs,
          R"(db_concat("MUSICA"."CONTADOR" + 1, ?) COLLATE db_text = ?)", {u" - "_qs, u"1 - "_qs});
    where("& binds more than a comparison", u"TITULO = 'a' & 'b'"_qs,
          R"("MUSICA"."TITULO" COLLATE db_text = db_concat(?, ?))", {u"a"_qs, u"b"_qs});
    where("* binds more than +, both to the left", u"ID = 1 + 2 * 3 - (4 - 5) - 6"_qs,
          R"("MUSICA"."ID" = 1 + 2 * 3 - (4 - 5) - 6)");
    where("parentheses against it", u"ID = (1 + 2) * -(3 + 4)"_qs,
          R"("MUSICA"."ID" = (1 + 2) * -(3 + 4))");
    where("a fraction stays one", u"ID = 1 / 2 / 4"_qs, R"("MUSICA"."ID" = 1 * 1.0 / 2 * 1.0 / 4)");
    where("two dashes are no comment", u"ID = 1--1"_qs, R"("MUSICA"."ID" = 1 - -1)");
    where("three neither", u"ID = ---1"_qs, R"("MUSICA"."ID" = -(-(-1)))");
    where("texts that are added join", u"TITULO = 'a' + 'b' + TOM"_qs,
          R"("MUSICA"."TITULO" COLLATE db_text = db_add(db_add(?, ?), "MUSICA"."TOM"))",
          {u"a"_qs, u"b"_qs});
    where("NULL plus one", u"NULL + 1 IS NULL"_qs, R"(db_add(NULL, 1) IS NULL)");
    where("comparisons of comparisons", u"(ID = 1) = (ID = 2)"_qs,
          R"(("MUSICA"."ID" = 1) = ("MUSICA"."ID" = 2))");
    where("numbers beyond 64 bits", u"ID = 099999999999999999999"_qs,
          R"("MUSICA"."ID" = 99999999999999999999)");
}

void tst_dialect::expression()
{
    Check();
}

void tst_dialect::action_data()
{
    Columns();
    Row("values are guarded by their columns' types",
        u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('D''água', 2, '')"_qs,
        R"(INSERT INTO "TEMA" ("DESCRICAO", "ORDEM", "COR") VALUES (?, db_integer(2), ?))",
        {u"D'água"_qs, u""_qs});
    Row("32 bits", u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (5, -1)"_qs,
        R"(INSERT INTO "TEMA_MUSICA" ("ID_MUSICA", "ID_TEMA") VALUES (db_long(5), db_long(-1)))");
    Row("a date", u"INSERT INTO LISTA (NOME, DATA)  VALUES ('Ensaio', CDATE('05/03/2009'))"_qs,
        R"(INSERT INTO "LISTA" ("NOME", "DATA") VALUES (?, db_cdate(?)))",
        {u"Ensaio"_qs, u"05/03/2009"_qs});
    Row("a text in a date column is read as a date", u"UPDATE LISTA SET DATA = '05/03/2009'"_qs,
        R"(UPDATE "LISTA" SET "DATA" = db_cdate(?))", {u"05/03/2009"_qs});
    Row("NULL fits everywhere", u"UPDATE MUSICA SET CATEGORIA = NULL, TITULO = NULL"_qs,
        R"(UPDATE "MUSICA" SET "CATEGORIA" = NULL, "TITULO" = NULL)");
    Row("rows of a query",
        u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 5, ID FROM TEMA WHERE ID IN (3,7)"_qs,
        R"(INSERT INTO "TEMA_MUSICA" ("ID_MUSICA", "ID_TEMA") SELECT db_long(5) AS "Expr1000",)"
        R"( db_long("TEMA"."ID") AS "ID" FROM "TEMA" WHERE "TEMA"."ID" IN (3, 7))"
        R"( ORDER BY "TEMA"."ID")");
    Row("a column called like its table", u"UPDATE MUSICA SET MUSICA = 'b'"_qs,
        R"(UPDATE "MUSICA" SET "MUSICA" = ?)", {u"b"_qs});
    Row("one more, as written",
        u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 05 AND ID NOT IN (12,45)"_qs,
        R"(UPDATE "MUSICA" SET "CONTADOR" = db_long("MUSICA"."CONTADOR" + 1) WHERE)"
        R"( "MUSICA"."ID" = 5 AND "MUSICA"."ID" NOT IN (12, 45))");
    Row("all rows", u"DELETE FROM TEMA"_qs, R"(DELETE FROM "TEMA")");
}

void tst_dialect::action()
{
    Check();
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
    QCOMPARE(Translated(u"DELETE FROM TEMA ; "_qs).sql, Translated(u"DELETE FROM TEMA"_qs).sql);
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
    QCOMPARE(Translated(u"SELECT ID AS [a\"b] FROM TOM"_qs).sql,
             R"(SELECT "TOM"."ID" AS "a""b" FROM "TOM" ORDER BY "TOM"."ID")");
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
    const QString song = u"É''"_qs.repeated(Long);
    QCOMPARE(
        Translated(u"UPDATE MUSICA SET MUSICA = '" + song + u"'").values.front().ToText().size(),
        2 * Long);
    QCOMPARE(Translated(u"SELECT ID FROM MUSICA WHERE ID IN (0" + u"7,"_qs.repeated(Long) + u")")
                 .sql.count("7"),
             Long);
    QCOMPARE(
        Translated(u"SELECT ID FROM MUSICA WHERE 1" + u" AND 2"_qs.repeated(Long)).sql.count("AND"),
        Long);
    QVERIFY2(timer.elapsed() < 10'000, "seconds for what takes milliseconds");
}

QTEST_APPLESS_MAIN(tst_dialect)
#include "tst_dialect.moc"
