#include "store/Connection.h"
#include "store/Failed.h"
#include "store/Recordset.h"
#include "support/TestCatalogue.h"

#include <QTest>

class tst_recordset : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void walksTheRows();
    void goesToAnyRow();
    void countsRowsExactly();
    void findsFieldsByNameInAnyLetters();
    void refusesUnknownFields();
    void refusesAFieldWithoutACurrentRow();
    void refusesToMoveBehindTheEnd();
    void isClosedAfterAnAction();
    void isClosedAfterClosing();
    void sharesRowsButNotTheCurrentOne();
    void tellsNullFromEmpty();
    void givesAFieldInUtf8();
    void readsDatesAsDates_data();
    void readsDatesAsDates();
    void namesColumnsAsTheStatementDoes();
    void bringsLongTextsWhole();
    void outlivesItsConnection();
    void keepsTextsOfAnyKind_data();
    void keepsTextsOfAnyKind();

private:
    Recordset Query(const QString& sql) { return m_connection->Execute(sql); }

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<Connection> m_connection;
};

void tst_recordset::init()
{
    m_catalogue = std::make_unique<TestCatalogue>();
    m_connection = std::make_unique<Connection>();
    m_connection->Open(m_catalogue->ConnectionString());
}

void tst_recordset::cleanup()
{
    m_connection.reset();
    m_catalogue.reset();
}

void tst_recordset::walksTheRows()
{
    Recordset rows = Query(u"SELECT ID, NOMENCLATURA FROM VARIACAO ORDER BY ID"_qs);
    QVERIFY(rows.IsOpen());
    QVERIFY(!rows.Eof());
    QCOMPARE(rows.Fields(0), Value(1));
    rows.MoveNext();
    QCOMPARE(rows.Fields(1), Value(u"m"_qs));
    QVERIFY(!rows.Eof());
    rows.MoveNext();
    QVERIFY(rows.Eof());
    QVERIFY(Query(u"SELECT * FROM TEMA"_qs).Eof());
}

void tst_recordset::goesToAnyRow()
{
    Recordset rows = Query(u"SELECT ID FROM VARIACAO ORDER BY ID"_qs);
    rows.MoveTo(1);
    QCOMPARE(rows.Fields(0), Value(2));
    rows.MoveNext();
    QVERIFY(rows.Eof());
    rows.MoveTo(0);
    QCOMPARE(rows.Fields(0), Value(1));
    for (const int row : {-1, 2})
        QCOMPARE(Failed([&] { rows.MoveTo(row); }).number, 3021);
    QCOMPARE(rows.Fields(0), Value(1));
}

void tst_recordset::countsRowsExactly()
{
    Recordset rows = Query(u"SELECT * FROM TOM"_qs);
    QCOMPARE(rows.RecordCount(), 12);
    rows.MoveNext();
    QCOMPARE(rows.RecordCount(), 12);
    QCOMPARE(Query(u"SELECT * FROM TEMA"_qs).RecordCount(), 0);
    QCOMPARE(Query(u"SELECT MAX(ID) AS ID FROM TEMA"_qs).RecordCount(), 1);
    QVERIFY(Query(u"SELECT MAX(ID) AS ID FROM TEMA"_qs).Fields(u"ID").IsNull());
}

void tst_recordset::findsFieldsByNameInAnyLetters()
{
    const Recordset rows = Query(u"SELECT ID, NOTA, MAIS FROM TOM WHERE ORDEM = 2"_qs);
    QCOMPARE(rows.Fields(u"NOTA").ToText(), u"C#"_qs);
    QCOMPARE(rows.Fields(u"nota").ToText(), u"C#"_qs);
    QCOMPARE(rows.Fields(u"Mais").ToText(), u"Db"_qs);
    QCOMPARE(rows.Fields(2).ToText(), u"Db"_qs);
}

void tst_recordset::refusesUnknownFields()
{
    const Recordset rows = Query(u"SELECT ID, NOTA FROM TOM"_qs);
    const Failed byName([&] { rows.Fields(u"COR"); });
    QCOMPARE(byName.number, 3265);
    QCOMPARE(byName.description, u"Item cannot be found in the collection corresponding to the "
                                 "requested name or ordinal: COR"_qs);
    QCOMPARE(Failed([&] { rows.Fields(2); }).number, 3265);
    QCOMPARE(Failed([&] { rows.Fields(-1); }).number, 3265);
}

void tst_recordset::refusesAFieldWithoutACurrentRow()
{
    const Recordset rows = Query(u"SELECT * FROM MUSICA WHERE ID = 07"_qs);
    const Failed failed([&] { rows.Fields(u"TITULO"); });
    QCOMPARE(failed.number, 3021);
    QCOMPARE(failed.description, u"Either BOF or EOF is True, or the current record has been "
                                 "deleted. Requested operation requires a current record."_qs);
    QCOMPARE(Failed([&] { rows.Fields(0); }).number, 3021);
    QCOMPARE(Failed([&] { rows.Fields(u"NADA"); }).number, 3265);
}

void tst_recordset::refusesToMoveBehindTheEnd()
{
    Recordset rows = Query(u"SELECT * FROM VARIACAO"_qs);
    rows.MoveNext();
    rows.MoveNext();
    QCOMPARE(Failed([&] { rows.MoveNext(); }).number, 3021);
    QVERIFY(rows.Eof());
}

void tst_recordset::isClosedAfterAnAction()
{
    Recordset none = Query(u"UPDATE TOM SET ORDEM = 1 WHERE ID = 01"_qs);
    QVERIFY(!none.IsOpen());
    QCOMPARE(Failed([&] { none.Eof(); }).number, 3704);
    QCOMPARE(Failed([&] { none.MoveNext(); }).number, 3704);
    QCOMPARE(Failed([&] { none.RecordCount(); }).number, 3704);
    QCOMPARE(Failed([&] { none.Fields(0); }).number, 3704);
    QCOMPARE(Failed([&] { none.Fields(u"ID"); }).number, 3704);
    QCOMPARE(Failed([&] { none.FieldNames(); }).number, 3704);
    QCOMPARE(Failed([&] { none.Close(); }).number, 3704);
}

void tst_recordset::isClosedAfterClosing()
{
    Recordset rows = Query(u"SELECT * FROM TOM"_qs);
    rows.Close();
    QVERIFY(!rows.IsOpen());
    QCOMPARE(Failed([&] { rows.Fields(u"NOTA"); }).number, 3704);
    QVERIFY(!Recordset().IsOpen());
}

void tst_recordset::sharesRowsButNotTheCurrentOne()
{
    Recordset rows = Query(u"SELECT NOTA FROM TOM ORDER BY ORDEM"_qs);
    Recordset copy = rows;
    rows.MoveNext();
    QCOMPARE(copy.Fields(0).ToText(), u"C"_qs);
    rows.Close();
    QCOMPARE(copy.RecordCount(), 12);
}

void tst_recordset::tellsNullFromEmpty()
{
    TestSong song;
    song.reference = QString();
    song.variation = u""_qs;
    m_catalogue->AddSong(song);
    const Recordset rows = Query(u"SELECT REFERENCIA, VARIACAO FROM MUSICA"_qs);
    QVERIFY(rows.Fields(0).IsNull());
    QCOMPARE(rows.Fields(0).ToText(), QString());
    QCOMPARE(rows.Fields(0).ToNumber(), 0);
    QVERIFY(!rows.Fields(1).IsNull());
    QCOMPARE(rows.Fields(1), Value(u""_qs));
    QCOMPARE(Failed([&] { rows.Fields(1).ToNumber(); }).number, 13);
}

void tst_recordset::givesAFieldInUtf8()
{
    m_catalogue->Run(u"INSERT INTO LISTA (NOME, DATA) VALUES ('Céu', '2009-03-05'), ('', NULL)"_qs);
    Recordset rows = Query(u"SELECT NOME, DATA, ID FROM LISTA ORDER BY ID"_qs);
    QCOMPARE(rows.Utf8(0), QByteArray("C\xC3\xA9u"));
    QCOMPARE(rows.Utf8(1), QByteArray("05/03/2009"));
    QCOMPARE(rows.Utf8(2), QByteArray("1"));
    rows.MoveNext();
    QCOMPARE(rows.Utf8(0), QByteArray(""));
    QVERIFY(!rows.Utf8(1));
    QCOMPARE(Failed([&] { rows.Utf8(3); }).number, 3265);
    rows.MoveNext();
    QCOMPARE(Failed([&] { rows.Utf8(0); }).number, 3021);
    rows.Close();
    QCOMPARE(Failed([&] { rows.Utf8(0); }).number, 3704);
}

void tst_recordset::readsDatesAsDates_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a day") << u"'2009-03-05'"_qs << u"05/03/2009"_qs;
    QTest::newRow("first year") << u"'0100-01-01'"_qs << u"01/01/0100"_qs;
    QTest::newRow("with a time of another tool") << u"'2009-03-05 10:20:00'"_qs << u"05/03/2009"_qs;
    QTest::newRow("with a time behind a T") << u"'2009-03-05T10:20:00'"_qs << u"05/03/2009"_qs;
    QTest::newRow("none") << u"NULL"_qs << QString();
    QTest::newRow("no such day") << u"'2009-02-31'"_qs << u"2009-02-31"_qs;
    QTest::newRow("written otherwise") << u"'5/3/2009'"_qs << u"5/3/2009"_qs;
    QTest::newRow("behind the day") << u"'2009-03-051'"_qs << u"2009-03-051"_qs;
    QTest::newRow("year zero") << u"'0000-01-01'"_qs << u"0000-01-01"_qs;
    QTest::newRow("signs") << u"'2009-+3-05'"_qs << u"2009-+3-05"_qs;
    QTest::newRow("a number") << u"7"_qs << u"7"_qs;
}

void tst_recordset::readsDatesAsDates()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    m_catalogue->Run(u"INSERT INTO LISTA (NOME, DATA) VALUES ('Domingo', "_qs + stored + u")"_qs);
    QCOMPARE(Query(u"SELECT * FROM LISTA WHERE ID = 01"_qs).Fields(u"DATA").ToText(), shown);
    QCOMPARE(Query(u"SELECT LISTA.DATA FROM LISTA"_qs).Fields(0).ToText(), shown);
    QCOMPARE(Query(u"SELECT NOME FROM LISTA"_qs).Fields(0).ToText(), u"Domingo"_qs);
}

void tst_recordset::namesColumnsAsTheStatementDoes()
{
    QCOMPARE(Query(u"SELECT * FROM MUSICA"_qs).FieldNames().join(u' '),
             u"ID TITULO REFERENCIA MUSICA MUSICA2 TOM VARIACAO CATEGORIA CONTADOR"_qs);
    QCOMPARE(Query(u"SELECT MAX(ID) AS ID FROM TOM"_qs).FieldNames(), QStringList(u"ID"_qs));
}

void tst_recordset::bringsLongTextsWhole()
{
    TestSong song;
    song.text = u"Ação "_qs.repeated(200000);
    song.text2 = u"x"_qs;
    m_catalogue->AddSong(song);
    m_catalogue->AddSong(song);
    Recordset rows = Query(u"SELECT MUSICA, MUSICA2 FROM MUSICA"_qs);
    for (; !rows.Eof(); rows.MoveNext()) {
        QCOMPARE(rows.Fields(0).ToText(), song.text);
        QCOMPARE(rows.Fields(1).ToText(), song.text2);
    }
}

void tst_recordset::outlivesItsConnection()
{
    Recordset rows = Query(u"SELECT NOTA FROM TOM ORDER BY ORDEM"_qs);
    m_connection->Close();
    m_connection.reset();
    rows.MoveNext();
    QCOMPARE(rows.Fields(0).ToText(), u"C#"_qs);
}

void tst_recordset::keepsTextsOfAnyKind_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("beyond the basic plane") << u"\U0001F3B5 canção"_qs;
    QTest::newRow("decomposed") << u"cancao\u0303"_qs;
    QTest::newRow("NUL inside") << QString(u"a"_qs + QChar(u'\0') + u"b"_qs);
    QTest::newRow("no-break space") << u"a\u00a0b"_qs;
    QTest::newRow("begins like a file with a mark") << u"\uFEFFcanção\uFEFF"_qs;
    QTest::newRow("nothing but marks") << u"\uFEFF\uFEFF"_qs;
    QTest::newRow("lines") << u"C  G7\r\nSanto Deus\n\r"_qs;
    QTest::newRow("looks like SQL") << u"'; DROP TABLE MUSICA; --"_qs;
}

void tst_recordset::keepsTextsOfAnyKind()
{
    QFETCH(QString, text);
    QString quoted = text;
    quoted.replace(u'\'', u"''"_qs);
    Query(u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('"_qs + quoted + u"', 2)"_qs);
    QCOMPARE(Query(u"SELECT DESCRICAO FROM TEMA"_qs).Fields(0).ToText(), text);
}

QTEST_GUILESS_MAIN(tst_recordset)
#include "tst_recordset.moc"
