#include "store/Connection.h"
#include "store/Failed.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QFile>
#include <QTest>

namespace {

Failed Opening(const QString& connectionString)
{
    return Failed([&] {
        Connection connection;
        connection.Open(connectionString);
    });
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read");
    return file.readAll();
}

void Write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write");
}

} // namespace

class tst_connection : public QObject
{
    Q_OBJECT

private slots:
    void opensTheDeliveredCatalogue();
    void readsAPathWithASemicolon();
    void readsAPathInAnyLetters();
    void refusesWhatIsNoCatalogue_data();
    void refusesWhatIsNoCatalogue();
    void refusesADamagedTable();
    void createsNoFile();
    void refusesACatalogueThatLacks_data();
    void refusesACatalogueThatLacks();
    void opensAReadOnlyFileButCannotChangeIt();
    void readsButCannotChangeWhileAnotherProgramWrites();
    void opensASchemaInOtherLetters();
    void knowsTypesInOtherLetters();
    void bringsAWriteAheadLogBack();
    void refusesAWriteAheadLogInUse();
    void saysThatAnotherProgramHoldsTheFile();
    void cannotBeOpenedTwice();
    void isDeadAfterClosing();
    void canBeOpenedAgain();
    void showsEachStatementAsHandedIn();
    void neverTakesDoubleQuotesForAColumn();
    void runsOneStatementOnly();
    void findsATableThatAnotherToolAdded();
    void firesNoTriggerOfTheFile();
    void keepsAnApostropheInATitle();
    void countsAnUnplayedSongAsZero();
    void ordersThemesByGroupThenName();
    void readsTheNotesInTheirOrder();
    void takesFortyThousandNumbersInAList();
    void neverGivesAnIdentifierTwice();
    void runsMoreStatementsThanItKeeps();
};

void tst_connection::opensTheDeliveredCatalogue()
{
    const TestCatalogue catalogue;
    Connection connection;
    QVERIFY(!connection.IsOpen());
    connection.Open(catalogue.ConnectionString(), u""_qs, u""_qs, -1);
    connection.CursorLocation = Connection::UseClient;
    QVERIFY(connection.IsOpen());
    QCOMPARE(connection.Execute(u"SELECT * FROM VARIACAO ORDER BY ID"_qs).RecordCount(), 2);
}

void tst_connection::readsAPathWithASemicolon()
{
    const TestCatalogue catalogue;
    const QString path = catalogue.Folder() + u"/a;User Id=b;ção.mdb"_qs;
    QVERIFY(QFile::copy(catalogue.Path(), path));
    QCOMPARE(Opening(TestCatalogue::ConnectionString(path)).description, QString());
    QVERIFY(QFile::remove(path));
    QCOMPARE(Opening(TestCatalogue::ConnectionString(path)).number,
             int{RuntimeError::StoreFailure});
}

void tst_connection::readsAPathInAnyLetters()
{
    const TestCatalogue catalogue;
    QCOMPARE(Opening(u"data source="_qs + catalogue.Path() + u";user id=admin;"_qs).number, 0);
    QCOMPARE(Opening(u"Data Source="_qs + catalogue.Path()).number, 0);
    QVERIFY(Opening(catalogue.Path()).number != 0);
    QVERIFY(Opening(TestCatalogue::ConnectionString(QString())).number != 0);
}

void tst_connection::refusesWhatIsNoCatalogue_data()
{
    const TestCatalogue catalogue;
    const QByteArray good = Content(catalogue.Path());
    QByteArray garbled = good;
    garbled.replace(100, 4000, QByteArray(4000, 'x'));
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("whatFailed");
    const QString foreign = u"O arquivo não é um banco de dados do Melodario."_qs;
    const QString damaged = u"O arquivo do banco de dados está danificado."_qs;
    const QString old =
        u"O banco de dados está no formato antigo e precisa ser convertido antes."_qs;
    QTest::newRow("empty") << QByteArray() << u"O arquivo do banco de dados está vazio."_qs;
    QTest::newRow("text") << QByteArray("Santo Deus\r\n") << foreign;
    QTest::newRow("long text") << QByteArray(100000, 'a') << foreign;
    QTest::newRow("first bytes alone") << good.left(16) << foreign;
    QTest::newRow("header alone") << good.left(100) << damaged;
    QTest::newRow("first page alone") << good.left(16384) << damaged;
    QTest::newRow("last page missing") << good.left(good.size() - 16384) << damaged;
    QTest::newRow("half a page missing") << good.left(good.size() - 8000) << damaged;
    QTest::newRow("first page overwritten") << garbled << damaged;
    QTest::newRow("Jet 4") << QByteArray("\0\1\0\0Standard Jet DB\0\1\0\0\0", 24) +
                                  QByteArray(9999, '\0')
                           << old;
    QTest::newRow("newer Jet") << QByteArray("\0\1\0\0Standard ACE DB\0\2\0\0\0", 24) << old;
}

void tst_connection::refusesWhatIsNoCatalogue()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, whatFailed);
    const TestCatalogue catalogue;
    Write(catalogue.Path(), content);
    const Failed failed = Opening(catalogue.ConnectionString());
    QCOMPARE(failed.number, int{RuntimeError::StoreFailure});
    QCOMPARE(failed.whatFailed, whatFailed);
    QVERIFY(!failed.description.isEmpty());
    QCOMPARE(Content(catalogue.Path()), content);
}

void tst_connection::refusesADamagedTable()
{
    const TestCatalogue catalogue;
    const int page =
        catalogue.Field(u"SELECT rootpage FROM sqlite_master WHERE name = 'TOM'"_qs).toInt();
    QByteArray content = Content(catalogue.Path());
    content.replace(qsizetype{page - 1} * 16384, 16384, QByteArray(16384, '\xee'));
    Write(catalogue.Path(), content);
    const Failed failed = Opening(catalogue.ConnectionString());
    QCOMPARE(failed.whatFailed, u"O arquivo do banco de dados está danificado."_qs);
    // SQLite's own words and its code.
    QCOMPARE(failed.description, u"database disk image is malformed (11)"_qs);
}

void tst_connection::createsNoFile()
{
    const TestCatalogue catalogue;
    const QString path = catalogue.Folder() + u"/none.mdb"_qs;
    QCOMPARE(Opening(TestCatalogue::ConnectionString(path)).whatFailed,
             u"O arquivo do banco de dados não existe."_qs);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(Opening(TestCatalogue::ConnectionString(catalogue.Folder())).whatFailed,
             u"O banco de dados é um arquivo, e isto é uma pasta."_qs);
#ifndef Q_OS_WIN // which has no such file
    QCOMPARE(Opening(TestCatalogue::ConnectionString(u"/dev/null"_qs)).whatFailed,
             u"O banco de dados é um arquivo comum, e isto não é."_qs);
#endif
    QVERIFY(Opening(TestCatalogue::ConnectionString(u":memory:"_qs)).number != 0);
    QVERIFY(Opening(TestCatalogue::ConnectionString(u"file:"_qs + catalogue.Path())).number != 0);
}

void tst_connection::refusesACatalogueThatLacks_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("description");
    for (const char* table :
         {"MUSICA", "TEMA", "TEMA_MUSICA", "LISTA", "LISTA_MUSICA", "TOM", "VARIACAO"}) {
        const QString name = QString::fromLatin1(table);
        QTest::newRow(table) << u"DROP TABLE "_qs + name << u"no table "_qs + name;
    }
    QTest::newRow("a column") << u"ALTER TABLE TEMA DROP COLUMN COR"_qs << u"no column TEMA.COR"_qs;
}

void tst_connection::refusesACatalogueThatLacks()
{
    QFETCH(QString, change);
    QFETCH(QString, description);
    const TestCatalogue catalogue;
    catalogue.Run(change);
    const Failed failed = Opening(catalogue.ConnectionString());
    QCOMPARE(failed.whatFailed, u"O arquivo não é um banco de dados do Melodario."_qs);
    QCOMPARE(failed.description, description);
}

void tst_connection::opensAReadOnlyFileButCannotChangeIt()
{
    // File rights stop no administrator; a format that only newer programs may write stops all.
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Louvor"_qs);
    QByteArray content = Content(catalogue.Path());
    content[18] = 3;
    Write(catalogue.Path(), content);
    QFile::setPermissions(catalogue.Path(), QFile::ReadOwner);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QCOMPARE(connection.Execute(u"SELECT * FROM TEMA"_qs).RecordCount(), 1);
    const Failed failed([&] { connection.Execute(u"DELETE FROM TEMA"_qs); });
    QCOMPARE(failed.number, int{RuntimeError::StoreFailure});
    QCOMPARE(failed.whatFailed, u"O banco de dados só pode ser lido, não alterado."_qs);
    QCOMPARE(connection.Execute(u"SELECT * FROM TEMA"_qs).RecordCount(), 1);
    connection.Close();
    QCOMPARE(Content(catalogue.Path()), content);
}

void tst_connection::readsButCannotChangeWhileAnotherProgramWrites()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"Um"_qs);
    PlainSqlite other(catalogue.Path());
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    other.Run("BEGIN IMMEDIATE");
    QCOMPARE(connection.Execute(u"SELECT * FROM MUSICA"_qs).RecordCount(), 1);
    const Failed failed([&] { connection.Execute(u"DELETE FROM MUSICA"_qs); });
    QCOMPARE(failed.number, int{RuntimeError::StoreFailure});
    other.Run("ROLLBACK");
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
    QVERIFY(!connection.CommitBatch()); // the statement that failed has left no batch
    connection.Execute(u"DELETE FROM MUSICA"_qs);
    QVERIFY(connection.CommitBatch());
    QVERIFY(!connection.CommitBatch());
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
}

void tst_connection::opensASchemaInOtherLetters()
{
    const TestCatalogue catalogue;
    catalogue.Run(u"ALTER TABLE TEMA RENAME TO x; ALTER TABLE x RENAME TO Tema;"
                  "ALTER TABLE Tema RENAME COLUMN DESCRICAO TO Descricao"_qs);
    catalogue.AddTheme(u"Louvor"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QCOMPARE(connection.Execute(u"SELECT DESCRICAO FROM TEMA"_qs).Fields(u"DESCRICAO").ToText(),
             u"Louvor"_qs);
}

void tst_connection::knowsTypesInOtherLetters()
{
    const TestCatalogue catalogue;
    catalogue.Run(
        u"DROP TABLE LISTA; DROP TABLE LISTA_MUSICA;"
        "CREATE TABLE LISTA (ID Integer PRIMARY KEY, NOME Text, DATA Date);"
        "CREATE TABLE LISTA_MUSICA (ID_LISTA integer, ID_MUSICA integer, ORDEM smallint)"_qs);
    catalogue.AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QCOMPARE(connection.Execute(u"SELECT * FROM LISTA"_qs).Fields(u"DATA").ToText(),
             u"05/03/2009"_qs);
    const auto error = [&connection](const QString& sql) {
        return Failed([&] { connection.Execute(sql); }).number;
    };
    QCOMPARE(error(u"UPDATE LISTA SET DATA = '31/02/2009'"_qs), int{RuntimeError::TypeMismatch});
    const QString link = u"INSERT INTO LISTA_MUSICA (ID_LISTA, ORDEM) VALUES (%1, %2)"_qs;
    QCOMPARE(error(link.arg(1).arg(32768)), int{RuntimeError::Overflow});
    QCOMPARE(error(link.arg(2147483648).arg(0)), int{RuntimeError::Overflow});
    QCOMPARE(error(link.arg(2147483647).arg(32767)), 0);
}

void tst_connection::bringsAWriteAheadLogBack()
{
    const TestCatalogue catalogue;
    catalogue.Run(u"PRAGMA journal_mode = WAL; INSERT INTO TEMA (DESCRICAO) VALUES ('Louvor')"_qs);
    QCOMPARE(catalogue.Field(u"PRAGMA journal_mode"_qs), u"wal"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QCOMPARE(connection.Execute(u"SELECT * FROM TEMA"_qs).RecordCount(), 1);
    connection.Close();
    QCOMPARE(catalogue.Field(u"PRAGMA journal_mode"_qs), u"delete"_qs);
}

void tst_connection::refusesAWriteAheadLogInUse()
{
    const TestCatalogue catalogue;
    PlainSqlite other(catalogue.Path());
    other.Run("PRAGMA journal_mode = WAL; BEGIN; SELECT * FROM TEMA");
    QCOMPARE(Opening(catalogue.ConnectionString()).whatFailed,
             u"O banco de dados está sendo usado por outro programa."_qs);
}

void tst_connection::saysThatAnotherProgramHoldsTheFile()
{
    const TestCatalogue catalogue;
    PlainSqlite other(catalogue.Path());
    other.Run("BEGIN EXCLUSIVE");
    const Failed failed = Opening(catalogue.ConnectionString());
    QCOMPARE(failed.whatFailed, u"O banco de dados está sendo usado por outro programa."_qs);
    QCOMPARE(failed.description, u"database is locked (5)"_qs);
}

void tst_connection::cannotBeOpenedTwice()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QCOMPARE(Failed([&] { connection.Open(catalogue.ConnectionString()); }).number, 3705);
    QVERIFY(connection.IsOpen());
}

void tst_connection::isDeadAfterClosing()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    const Recordset rows = connection.Execute(u"SELECT * FROM TOM"_qs);
    connection.Close();
    QVERIFY(!connection.IsOpen());
    const Failed failed([&] { connection.Execute(u"SELECT * FROM TOM"_qs); });
    QCOMPARE(failed.number, 3704);
    QCOMPARE(failed.description, u"Operation is not allowed when the object is closed."_qs);
    QCOMPARE(Failed([&] { connection.Close(); }).number, 3704);
    QVERIFY(!connection.CommitBatch());
    // Rows were fetched before.
    QCOMPARE(rows.Fields(u"NOTA").ToText(), u"C"_qs);
}

void tst_connection::canBeOpenedAgain()
{
    const TestCatalogue catalogue;
    Connection connection;
    QVERIFY(Failed([&] { connection.Open(TestCatalogue::ConnectionString(u"/none"_qs)); }).number);
    for (int i = 0; i < 2; ++i) {
        connection.Open(catalogue.ConnectionString());
        QCOMPARE(connection.Execute(u"SELECT * FROM TOM"_qs).RecordCount(), 12);
        connection.Close();
    }
}

void tst_connection::showsEachStatementAsHandedIn()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QStringList seen;
    connection.SetStatementHook([&seen](const QString& sql) { seen << sql; });
    connection.Execute(u"SELECT  *  FROM TOM ORDER BY ORDEM"_qs);
    QVERIFY(Failed([&] { connection.Execute(u"no statement"_qs); }).number);
    connection.SetStatementHook({});
    connection.Execute(u"SELECT * FROM TEMA"_qs);
    QCOMPARE(seen, QStringList({u"SELECT  *  FROM TOM ORDER BY ORDEM"_qs, u"no statement"_qs}));
}

void tst_connection::neverTakesDoubleQuotesForAColumn()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"DESCRICAO"_qs);
    catalogue.AddTheme(u"Louvor"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    const Recordset rows =
        connection.Execute(u"SELECT ID FROM TEMA WHERE DESCRICAO = \"DESCRICAO\""_qs);
    QCOMPARE(rows.RecordCount(), 1);
}

void tst_connection::runsOneStatementOnly()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Louvor"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QVERIFY(Failed([&] { connection.Execute(u"DELETE FROM TEMA; DROP TABLE TEMA"_qs); }).number);
    connection.Close();
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM TEMA"_qs), u"1"_qs);
}

void tst_connection::findsATableThatAnotherToolAdded()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    const auto query = [&] { connection.Execute(u"SELECT N FROM NOVA"_qs); };
    QVERIFY(Failed(query).number);
    catalogue.Run(u"CREATE TABLE NOVA (N INTEGER)"_qs);
    QCOMPARE(Failed(query).number, 0);
    catalogue.Run(u"ALTER TABLE NOVA ADD COLUMN M TEXT"_qs);
    QCOMPARE(Failed([&] { connection.Execute(u"SELECT M FROM NOVA"_qs); }).number, 0);
    catalogue.Run(u"DROP TABLE NOVA"_qs);
    QCOMPARE(Failed(query).number, int{RuntimeError::StoreFailure});
}

void tst_connection::firesNoTriggerOfTheFile()
{
    const TestCatalogue catalogue;
    catalogue.Run(u"CREATE TRIGGER t AFTER INSERT ON TEMA BEGIN DELETE FROM TOM; END"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    connection.Execute(u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Louvor', 2)"_qs);
    connection.Close();
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM TOM"_qs), u"12"_qs);
}

void tst_connection::keepsAnApostropheInATitle()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    connection.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('Copo D''água')"_qs);
    const Recordset rows =
        connection.Execute(u"SELECT * FROM MUSICA WHERE TITULO = 'Copo D''água'"_qs);
    QCOMPARE(rows.RecordCount(), 1);
    QCOMPARE(rows.Fields(u"TITULO").ToText(), u"Copo D'água"_qs);
    connection.Close();
    QCOMPARE(catalogue.Field(u"SELECT TITULO FROM MUSICA"_qs), u"Copo D'água"_qs);
}

void tst_connection::countsAnUnplayedSongAsZero()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    connection.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('Nova')"_qs);
    connection.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('Tocada')"_qs);
    connection.Execute(u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 02"_qs);
    Recordset rows =
        connection.Execute(u"SELECT TITULO, CONTADOR FROM MUSICA ORDER BY CONTADOR DESC"_qs);
    QCOMPARE(rows.Fields(0).ToText(), u"Tocada"_qs);
    QCOMPARE(rows.Fields(1), Value(1));
    rows.MoveNext();
    QCOMPARE(rows.Fields(0).ToText(), u"Nova"_qs);
    QCOMPARE(rows.Fields(1), Value(0));
}

void tst_connection::ordersThemesByGroupThenName()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Sem Tema"_qs, 3);
    for (const char16_t* name : {u"louvor", u"Água", u"Zelo", u"abade", u"ABACO"})
        catalogue.AddTheme(QString::fromUtf16(name));
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    Recordset rows =
        connection.Execute(u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs);
    QStringList names;
    for (; !rows.Eof(); rows.MoveNext())
        names << rows.Fields(1).ToText();
    QCOMPARE(names, QStringList({u"ABACO"_qs, u"abade"_qs, u"Água"_qs, u"louvor"_qs, u"Zelo"_qs,
                                 u"Sem Tema"_qs}));
}

void tst_connection::readsTheNotesInTheirOrder()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    Recordset rows = connection.Execute(u"SELECT * FROM TOM ORDER BY ORDEM"_qs);
    QCOMPARE(rows.RecordCount(), 12);
    QStringList notes;
    QStringList others;
    for (; !rows.Eof(); rows.MoveNext()) {
        notes << rows.Fields(u"NOTA").ToText();
        others << rows.Fields(u"MAIS").ToText();
    }
    QCOMPARE(notes.join(u' '), u"C C# D D# E F F# G G# A A# B"_qs);
    QCOMPARE(others.join(u' '), u"C Db D Eb E F Gb G Ab A Bb B"_qs);
}

void tst_connection::takesFortyThousandNumbersInAList()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"Um"_qs);
    catalogue.AddSong(u"Dois"_qs);
    QString list = u"0"_qs;
    for (int id = 2; id < 40000; ++id)
        list += u',' + QString::number(id);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    QCOMPARE(connection.Execute(u"SELECT ID FROM MUSICA WHERE ID IN ("_qs + list + u")"_qs)
                 .RecordCount(),
             1);
}

void tst_connection::neverGivesAnIdentifierTwice()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    for (const char16_t* sql :
         {u"INSERT INTO MUSICA (TITULO) VALUES ('a')", u"INSERT INTO MUSICA (TITULO) VALUES ('b')",
          u"DELETE FROM MUSICA WHERE ID = 02", u"INSERT INTO MUSICA (TITULO) VALUES ('c')"})
        connection.Execute(QString::fromUtf16(sql));
    QCOMPARE(connection.Execute(u"SELECT MAX(ID) AS ID FROM MUSICA"_qs).Fields(u"ID"), Value(3));
}

void tst_connection::runsMoreStatementsThanItKeeps()
{
    const TestCatalogue catalogue;
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 200; ++i) {
            // Another text each, with another name for the column.
            const QString name = u"N%1"_qs.arg(i);
            const Recordset rows = connection.Execute(
                u"SELECT NOTA AS %1 FROM TOM WHERE ORDEM = %2"_qs.arg(name).arg(i % 12 + 1));
            QCOMPARE(rows.FieldNames(), QStringList(name));
            QCOMPARE(rows.RecordCount(), 1);
        }
    }
}

QTEST_GUILESS_MAIN(tst_connection)
#include "tst_connection.moc"
