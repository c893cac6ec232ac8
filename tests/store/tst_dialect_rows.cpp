#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <memory>

/// The habits of the dialect, seen in the rows that statements give and leave.
class tst_dialect_rows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void value_data();
    void value();
    void condition_data();
    void condition();
    void fails_data();
    void fails();

    void textsSortAsInPortuguese();
    void distinctComparesUnderTheCollation();
    void aLongSongComesBackWhole();
    void fortyThousandMarkedSongs();
    void rowsWithoutOrderComeByIdThenByPlace();
    void theStarShowsTheIdFirstAndTheTextSecond();
    void aDateColumnReadsAsADate();
    void theLargestIdOfAnEmptyTableIsOneNull();
    void identifiersAreNeverUsedAgain();
    void emptyTextAndNullStayWhatTheyAre();
    void whatDoesNotFitIsNotStored_data();
    void whatDoesNotFitIsNotStored();
    void linksToNothingAndRepeatedNamesAreTaken();
    void theDeepestStatementsRun_data();
    void theDeepestStatementsRun();

private:
    Value Only(const QString& expression);
    QStringList Column(const QString& sql);

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<Connection> m_connection;
};

void tst_dialect_rows::init()
{
    m_catalogue = std::make_unique<TestCatalogue>();
    m_connection = std::make_unique<Connection>();
    m_connection->Open(m_catalogue->ConnectionString());
    m_connection->CursorLocation = Connection::UseClient;
}

void tst_dialect_rows::cleanup()
{
    m_connection.reset();
    m_catalogue.reset();
}

/// @return what an expression gives on the one setlist song (song 3, position 0).
Value tst_dialect_rows::Only(const QString& expression)
{
    m_catalogue->Run(u"INSERT INTO LISTA_MUSICA VALUES (NULL, 3, 0)"_qs);
    Recordset rows = m_connection->Execute(u"SELECT " + expression + u" AS X FROM LISTA_MUSICA");
    return rows.Fields(u"X");
}

QStringList tst_dialect_rows::Column(const QString& sql)
{
    QStringList values;
    for (Recordset rows = m_connection->Execute(sql); !rows.Eof(); rows.MoveNext())
        values.append(rows.Fields(0).ToText());
    return values;
}

void tst_dialect_rows::value_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<Value>("expected");
    const auto row = [](const char* name, const QString& expression, const Value& expected) {
        QTest::newRow(name) << expression << expected;
    };
    row("& takes NULL for empty", u"'X' & ' - ' & ID_LISTA"_qs, u"X - "_qs);
    row("& of NULLs is empty, not NULL", u"ID_LISTA & NULL"_qs, u""_qs);
    row("+ before &", u"(ORDEM+1) & ' - '"_qs, u"1 - "_qs);
    row("+ before & without parentheses", u"ORDEM+1 & ' - ' & ID_MUSICA*2"_qs, u"1 - 6"_qs);
    row("numbers add", u"ID_MUSICA + 4"_qs, 7);
    row("texts join", u"'Santo' + ' Deus'"_qs, u"Santo Deus"_qs);
    row("NULL and one is NULL", u"NULL+1"_qs, Value());
    row("a NULL column and one is NULL", u"ID_LISTA+1"_qs, Value());
    row("a text and NULL is NULL", u"'a'+NULL"_qs, Value());
    row("* before +, minus before *", u"-2*3+10"_qs, 4);
    row("subtraction goes to the left", u"10-3-2"_qs, 5);
    row("a fraction", u"1/4"_qs, 0.25);
    row("text in double quotes", u"\"d'água\""_qs, u"d'água"_qs);
    row("a text called like a column is a text", u"\"ORDEM\""_qs, u"ORDEM"_qs);
    row("a name in brackets", u"[ORDEM]"_qs, 0);
    row("leading zeros are decimal", u"012"_qs, 12);
    row("the day of NULL", u"Day(NULL)"_qs, Value());
    row("the parts of a date without padding",
        u"Day(CDATE('05/03/2009')) & '/' & Month(CDATE('05/03/2009')) & '/' &"
        " Year(CDATE('5/3/2009'))"_qs,
        u"5/3/2009"_qs);
}

void tst_dialect_rows::value()
{
    QFETCH(QString, expression);
    QFETCH(Value, expected);
    const Value found = Only(expression);
    QVERIFY2(found == expected, qPrintable(found.IsNull() ? u"NULL"_qs : found.ToText()));
}

void tst_dialect_rows::condition_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("condition");
    QTest::addColumn<bool>("holds");
    const auto row = [](const char* name, const QString& text, const QString& condition,
                        bool holds) { QTest::newRow(name) << text << condition << holds; };
    row("= ignores letter case", u"abc"_qs, u"TITULO = 'ABC'"_qs, true);
    row("= ignores the case of letters with accents", u"ação"_qs, u"TITULO = 'AÇÃO'"_qs, true);
    row("= sees blanks at the end", u"abc "_qs, u"TITULO = 'abc'"_qs, false);
    row("= sees blanks at the beginning", u" abc"_qs, u"TITULO = 'abc'"_qs, false);
    row("= sees accents", u"café"_qs, u"TITULO = 'cafe'"_qs, false);
    row("<> ignores letter case", u"abc"_qs, u"TITULO <> 'ABC'"_qs, false);
    row("IN ignores letter case", u"abc"_qs, u"TITULO IN ('x', 'ABC')"_qs, true);
    row("NOT IN ignores letter case", u"abc"_qs, u"TITULO NOT IN ('x', 'ABC')"_qs, false);
    row("IN of a query ignores letter case", u"c#"_qs, u"TITULO IN (SELECT NOTA FROM TOM)"_qs,
        true);
    row("BETWEEN ignores letter case", u"b"_qs, u"TITULO BETWEEN 'A' AND 'C'"_qs, true);
    row("like in small letters, a column without regard to case", u"Luz"_qs,
        u"MUSICA.titulo like 'l%'"_qs, true);
    row("a literal percent", u"50%"_qs, u"TITULO LIKE '50[%]'"_qs, true);
    row("É is é", u"Ética"_qs, u"TITULO LIKE 'ét%'"_qs, true);
    row("an unclosed bracket is a plain one", u"Sol [vivo"_qs, u"TITULO LIKE '%[v%'"_qs, true);
    row("_ is one character", u"Sol"_qs, u"TITULO LIKE 'S_l'"_qs, true);
    row("a set", u"Sol"_qs, u"TITULO LIKE '[r-t]ol'"_qs, true);
    row("a set of others", u"Sol"_qs, u"TITULO LIKE '[!r-t]ol'"_qs, false);
    row("a star is a star", u"Sol"_qs, u"TITULO LIKE 'S*'"_qs, false);
    row("a question mark is one", u"Sol?"_qs, u"TITULO LIKE 'Sol?'"_qs, true);
    row("LIKE sees blanks at the end", u"Sol "_qs, u"TITULO LIKE 'Sol'"_qs, false);
    row("typed without an accent", u"Água Viva"_qs, u"TITULO LIKE '%agua%'"_qs, true);
    row("typed with an accent", u"Agua Viva"_qs, u"TITULO LIKE '%água%'"_qs, false);
    row("the first letter too", u"Água Viva"_qs, u"TITULO LIKE 'A%'"_qs, true);
    row("NULL is like nothing", QString(), u"TITULO LIKE '%'"_qs, false);
    row("NULL is unlike nothing", QString(), u"TITULO NOT LIKE 'x'"_qs, false);
    row("NULL equals nothing", QString(), u"TITULO = NULL"_qs, false);
    row("IS NULL", QString(), u"TITULO IS NULL"_qs, true);
    row("an empty text is not NULL", u""_qs, u"TITULO IS NULL"_qs, false);
    row("an identifier with a leading zero", u""_qs, u"ID = 012"_qs, true);
    row("a list with a trailing comma", u""_qs, u"ID IN (015,12,)"_qs, true);
    row("NOT before AND", u""_qs, u"NOT ID = 3 AND ID = 12"_qs, true);
    row("AND before OR", u""_qs, u"ID = 12 OR ID = 1 AND ID = 2"_qs, true);
    row("a sub-query's names bind inside it", u""_qs,
        u"CATEGORIA IN (SELECT CATEGORIA FROM MUSICA WHERE ID = 012)"_qs, true);
}

void tst_dialect_rows::condition()
{
    QFETCH(QString, text);
    QFETCH(QString, condition);
    TestSong song;
    song.title = text;
    m_catalogue->AddSong(song);
    m_catalogue->Run(u"UPDATE MUSICA SET ID = 12"_qs);
    QTEST(!m_connection->Execute(u"SELECT ID FROM MUSICA WHERE " + condition).Eof(), "holds");
}

void tst_dialect_rows::fails_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("a second statement") << u"DELETE FROM TOM; DROP TABLE TOM"_qs;
    QTest::newRow("letters at a number") << u"DELETE FROM TOM WHERE ID = 0abc"_qs;
    QTest::newRow("an empty list") << u"DELETE FROM TOM WHERE ID IN ()"_qs;
    QTest::newRow("a list that begins with a comma") << u"DELETE FROM TOM WHERE ID IN (,1)"_qs;
    QTest::newRow("an apostrophe in a text") << u"UPDATE TOM SET NOTA = 'D'água'"_qs;
    QTest::newRow("an aggregate in WHERE") << u"DELETE FROM TOM WHERE MAX(ID) = 1"_qs;
}

void tst_dialect_rows::fails()
{
    QFETCH(QString, sql);
    try {
        m_connection->Execute(sql);
        QFAIL("was run");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.Number(), static_cast<int>(RuntimeError::StoreFailure));
        QVERIFY(!error.WhatFailed().isEmpty());
    }
    m_connection->Close();
    QCOMPARE(m_catalogue->Field(u"SELECT group_concat(NOTA) FROM TOM"_qs),
             u"C,C#,D,D#,E,F,F#,G,G#,A,A#,B"_qs);
}

void tst_dialect_rows::textsSortAsInPortuguese()
{
    for (const QString& title : {u"abade"_qs, u"f"_qs, u"Ábaco"_qs, u"é"_qs, QString(), u"abaco"_qs,
                                 u""_qs, u"e"_qs, u"ABACO"_qs})
        m_catalogue->AddSong(title);
    QCOMPARE(Column(u"SELECT TITULO FROM MUSICA ORDER BY TITULO"_qs),
             QStringList({QString(u""_qs), u""_qs, u"abaco"_qs, u"ABACO"_qs, u"Ábaco"_qs,
                          u"abade"_qs, u"e"_qs, u"é"_qs, u"f"_qs}));
    QCOMPARE(Column(u"SELECT ID FROM MUSICA ORDER BY TITULO"_qs),
             QStringList({u"5"_qs, u"7"_qs, u"6"_qs, u"9"_qs, u"3"_qs, u"1"_qs, u"8"_qs, u"4"_qs,
                          u"2"_qs}));
    QCOMPARE(Column(u"SELECT ID FROM MUSICA ORDER BY TITULO DESC"_qs),
             QStringList({u"2"_qs, u"4"_qs, u"8"_qs, u"1"_qs, u"3"_qs, u"6"_qs, u"9"_qs, u"7"_qs,
                          u"5"_qs}));
}

void tst_dialect_rows::distinctComparesUnderTheCollation()
{
    for (const QString& title : {u"Sol"_qs, u"SOL"_qs, u"Sól"_qs, u"sol "_qs, u"sol"_qs})
        m_catalogue->AddSong(title);
    QCOMPARE(Column(u"SELECT DISTINCT TITULO FROM MUSICA"_qs),
             QStringList({u"Sol"_qs, u"Sól"_qs, u"sol "_qs}));
    QCOMPARE(Column(u"SELECT COUNT(ID) FROM MUSICA GROUP BY TITULO"_qs).size(), 3);
}

void tst_dialect_rows::aLongSongComesBackWhole()
{
    TestSong song;
    song.text = u"É longa. "_qs.repeated(16'667).left(150'000);
    m_catalogue->Link(m_catalogue->AddSong(song), 1);
    Recordset found = m_connection->Execute(
        u"SELECT DISTINCT MUSICA.TITULO, MUSICA.MUSICA FROM MUSICA INNER JOIN TEMA_MUSICA ON"
        " MUSICA.ID = TEMA_MUSICA.ID_MUSICA"_qs);
    QCOMPARE(found.RecordCount(), 1);
    QVERIFY(found.Fields(u"MUSICA").ToText() == song.text);
}

void tst_dialect_rows::fortyThousandMarkedSongs()
{
    m_catalogue->AddSong(u"Um"_qs);
    m_catalogue->AddSong(u"Dois"_qs);
    QString marked;
    for (int id = 40'000; id > 0; --id)
        marked += QString::number(id) + u',';
    QCOMPARE(Column(u"SELECT TITULO FROM MUSICA WHERE ID IN (0" + marked + u")"),
             QStringList({u"Um"_qs, u"Dois"_qs}));
}

void tst_dialect_rows::rowsWithoutOrderComeByIdThenByPlace()
{
    m_catalogue->Run(uR"(
INSERT INTO TEMA (ID, DESCRICAO) VALUES (9, 'nove'), (2, 'dois'), (5, 'cinco');
INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)
VALUES (7, 5), (30, 2), (10, 9), (20, 2), (7, 9), (7, 2);
)"_qs);
    QCOMPARE(Column(u"SELECT DESCRICAO FROM TEMA"_qs),
             QStringList({u"dois"_qs, u"cinco"_qs, u"nove"_qs}));
    QCOMPARE(Column(u"SELECT DESCRICAO & ID_MUSICA FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID ="
                    " TEMA_MUSICA.ID_TEMA"_qs),
             QStringList({u"dois30"_qs, u"dois20"_qs, u"dois7"_qs, u"cinco7"_qs, u"nove10"_qs,
                          u"nove7"_qs}));
    QCOMPARE(Column(u"SELECT ID_TEMA FROM TEMA_MUSICA WHERE ID_MUSICA = 07"_qs),
             QStringList({u"5"_qs, u"9"_qs, u"2"_qs}));
}

void tst_dialect_rows::theStarShowsTheIdFirstAndTheTextSecond()
{
    QCOMPARE(m_connection->Execute(u"SELECT * FROM TEMA ORDER BY DESCRICAO"_qs).FieldNames(),
             QStringList({u"ID"_qs, u"DESCRICAO"_qs, u"ORDEM"_qs, u"COR"_qs}));
}

void tst_dialect_rows::aDateColumnReadsAsADate()
{
    m_catalogue->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    m_catalogue->AddSetlist(u"Sem data"_qs, QDate());
    for (const QString& sql :
         {u"SELECT * FROM LISTA"_qs, u"SELECT DATA FROM LISTA"_qs,
          u"SELECT DISTINCT DATA FROM LISTA WHERE ID = 1"_qs,
          u"SELECT DATA FROM LISTA WHERE DATA = CDATE('5/3/2009') GROUP BY DATA"_qs})
        QCOMPARE(m_connection->Execute(sql).Fields(u"DATA").ToText(), u"05/03/2009"_qs);
    QVERIFY(m_connection->Execute(u"SELECT * FROM LISTA WHERE ID = 2"_qs).Fields(u"DATA").IsNull());
}

void tst_dialect_rows::theLargestIdOfAnEmptyTableIsOneNull()
{
    Recordset rows = m_connection->Execute(u"SELECT MAX(ID) AS ID FROM MUSICA"_qs);
    QCOMPARE(rows.RecordCount(), 1);
    QVERIFY(rows.Fields(u"ID").IsNull());
}

void tst_dialect_rows::identifiersAreNeverUsedAgain()
{
    const QString insert = u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('x', 2)"_qs;
    m_connection->Execute(insert);
    m_connection->Execute(insert);
    m_connection->Execute(u"DELETE FROM TEMA WHERE ID = 02"_qs);
    m_connection->Execute(insert);
    QCOMPARE(Column(u"SELECT ID FROM TEMA"_qs), QStringList({u"1"_qs, u"3"_qs}));
}

void tst_dialect_rows::emptyTextAndNullStayWhatTheyAre()
{
    m_connection->Execute(u"INSERT INTO TEMA (DESCRICAO, COR) VALUES ('', NULL)"_qs);
    Recordset rows = m_connection->Execute(u"SELECT DESCRICAO, COR, ORDEM FROM TEMA"_qs);
    QVERIFY(rows.Fields(0) == Value(u""_qs));
    QVERIFY(rows.Fields(1).IsNull());
    QVERIFY(rows.Fields(2).IsNull());
}

void tst_dialect_rows::whatDoesNotFitIsNotStored_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("error");
    const int overflow = RuntimeError::Overflow;
    QTest::newRow("32 bits and one") << u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1"_qs << overflow;
    QTest::newRow("16 bits and one") << u"UPDATE MUSICA SET CATEGORIA = 32768"_qs << overflow;
    QTest::newRow("16 bits below") << u"UPDATE MUSICA SET CATEGORIA = -32769"_qs << overflow;
    QTest::newRow("a number beyond 64 bits")
        << u"UPDATE MUSICA SET CONTADOR = 99999999999999999999"_qs << overflow;
    QTest::newRow("an inserted number")
        << u"INSERT INTO MUSICA (CATEGORIA) VALUES (99999)"_qs << overflow;
    QTest::newRow("a selected number")
        << u"INSERT INTO MUSICA (CATEGORIA) SELECT 32760 + ID FROM TOM"_qs << overflow;
    QTest::newRow("a text that is no number")
        << u"UPDATE MUSICA SET CATEGORIA = 'x'"_qs << static_cast<int>(RuntimeError::TypeMismatch);
}

void tst_dialect_rows::whatDoesNotFitIsNotStored()
{
    QFETCH(QString, sql);
    TestSong song;
    song.count = 2147483647;
    m_catalogue->AddSong(song);
    try {
        m_connection->Execute(sql);
        QFAIL("was stored");
    } catch (const RuntimeError& error) {
        QTEST(error.Number(), "error");
    }
    m_connection->Close();
    QCOMPARE(m_catalogue->Rows(u"SELECT CATEGORIA, CONTADOR FROM MUSICA"_qs),
             QList<QStringList>({{u"1"_qs, u"2147483647"_qs}}));
}

void tst_dialect_rows::linksToNothingAndRepeatedNamesAreTaken()
{
    m_connection->Execute(u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (0, 0)"_qs);
    for (int i = 0; i < 2; ++i)
        m_connection->Execute(
            u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('Sem Tema', 3, '')"_qs);
    QCOMPARE(Column(u"SELECT ID_TEMA FROM TEMA_MUSICA"_qs), QStringList({u"0"_qs}));
    QCOMPARE(Column(u"SELECT ID FROM TEMA WHERE DESCRICAO = 'Sem Tema'"_qs),
             QStringList({u"1"_qs, u"2"_qs}));
}

void tst_dialect_rows::theDeepestStatementsRun_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("core");
    QTest::addColumn<QString>("behind");
    QTest::addColumn<int>("depth");
    QTest::newRow("parentheses") << u"("_qs << u"1"_qs << u")"_qs << 12;
    QTest::newRow("minus") << u"-"_qs << u"1"_qs << u""_qs << 12;
    QTest::newRow("NOT") << u"NOT "_qs << u"1"_qs << u""_qs << 12;
    QTest::newRow("functions") << u"Day("_qs << u"NULL"_qs << u")"_qs << 12;
    QTest::newRow("lists") << u"1 IN ("_qs << u"1"_qs << u")"_qs << 12;
    QTest::newRow("sub-queries") << u"1 IN (SELECT ID FROM TOM WHERE "_qs << u"1"_qs << u")"_qs
                                 << 4;
    QTest::newRow("OR inside AND") << u"0 OR (1 AND ("_qs << u"1"_qs << u"))"_qs << 6;
    QTest::newRow("all sorts") << u"0 OR 1 AND NOT Day(-"_qs << u"1"_qs << u")"_qs << 4;
    QTest::newRow("a long sum") << u""_qs << u"1"_qs << u" + 1"_qs << 99;
    QTest::newRow("a long text") << u""_qs << u"'a'"_qs << u" & 'b'"_qs << 99;
    QTest::newRow("a long chain of conditions") << u""_qs << u"1"_qs << u" AND 1"_qs << 500;
}

void tst_dialect_rows::theDeepestStatementsRun()
{
    QFETCH(QString, before);
    QFETCH(QString, core);
    QFETCH(QString, behind);
    QFETCH(int, depth);
    // Throws when SQLite's own parser is overrun.
    m_connection->Execute(u"SELECT ID FROM TOM WHERE " + before.repeated(depth) + core +
                          behind.repeated(depth));
}

QTEST_GUILESS_MAIN(tst_dialect_rows)
#include "tst_dialect_rows.moc"
