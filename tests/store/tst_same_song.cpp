#include "store/Connection.h"
#include "store/Failed.h"
#include "store/shelf/SongNames.h"
#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

/// Whether a song is stored already is answered from memory, as SQLite would answer it.
class tst_same_song : public QObject
{
    Q_OBJECT

private slots:
    void memoryAgreesWithSqlite();
    void randomLettersOfManyScripts();
    void fewSongsAreCandidates();
    void aSongThatChangesTakesNoMoreRoom();
    void changesAreSeenAtOnce();
    void aSongIsFoundUnderItsNewName_data();
    void aSongIsFoundUnderItsNewName();
    void whatIsUndoneIsForgotten();
    void whatAnotherProgramWroteIsSeen();
};

namespace {

const QStringList& Titles()
{
    static const QStringList titles{u"Luz"_qs,
                                    u"luz"_qs,
                                    u"LUZ"_qs,
                                    u"Luz "_qs,
                                    u" Luz"_qs,
                                    u"Lúz"_qs,
                                    u"Lu\u0301z"_qs,
                                    u"Lu\u007Fz"_qs,
                                    u""_qs,
                                    u"rossa"_qs,
                                    u"roßa"_qs,
                                    u"1a"_qs,
                                    u"1ª"_qs,
                                    u"Ｌｕｚ"_qs,
                                    u"歌"_qs,
                                    u"d'água"_qs,
                                    u"D'ÁGUA"_qs,
                                    u"\u0001Luz"_qs,
                                    u"-"_qs,
                                    u"–"_qs,
                                    u"\uFEFFLuz"_qs,
                                    u"Калинка"_qs,
                                    u"КАЛИНКА"_qs,
                                    u"Калі́нка"_qs,
                                    u"Nº 1"_qs,
                                    u"No 1"_qs,
                                    u"nº 1"_qs,
                                    u"Nº  1"_qs,
                                    u"Não’s"_qs,
                                    u"Não's"_qs,
                                    u"não’S"_qs,
                                    u"Nao’s"_qs,
                                    u"É"_qs,
                                    u"E\u0301"_qs,
                                    u"\U0001F3B5"_qs,
                                    u"x"_qs,
                                    u"Привет"_qs,
                                    u"привет"_qs,
                                    u"d’água"_qs.repeated(600),
                                    u"X"_qs.repeated(600),
                                    u"x"_qs,
                                    u"Привет"_qs,
                                    u"привет"_qs,
                                    u"d’água"_qs.repeated(599) + u"y"};
    return titles;
}

QString Quoted(QString text)
{
    return text.replace(u'\'', u"''"_qs);
}

QStringList Ids(Recordset rows)
{
    QStringList ids;
    for (; !rows.Eof(); rows.MoveNext())
        ids.append(rows.Fields(0).ToText());
    return ids;
}

QStringList Asked(::Connection& connection, const QString& columns, const QString& title,
                  const QString& reference)
{
    return Ids(connection.Execute(u"SELECT %1 FROM MUSICA WHERE TITULO = '"_qs.arg(columns) +
                                  Quoted(title) + u"' AND REFERENCIA = '" + Quoted(reference) +
                                  u"'"));
}

void Insert(::Connection& connection, const QString& title, const QString& reference)
{
    connection.Execute(u"INSERT INTO MUSICA (TITULO, REFERENCIA) VALUES ('"_qs + Quoted(title) +
                       u"', '" + Quoted(reference) + u"')");
}

} // namespace

void tst_same_song::memoryAgreesWithSqlite()
{
    const TestCatalogue catalogue;
    ::Connection connection;
    connection.Open(catalogue.ConnectionString());
    connection.Execute(u"INSERT INTO MUSICA (TITULO, REFERENCIA) VALUES (NULL, 'x')"_qs);
    SongGenerator random(3);
    const auto any = [&] { return Titles().at(random.Below(static_cast<int>(Titles().size()))); };
    int found = 0;
    for (int round = 0; round < 400; ++round) {
        const QString title = any();
        const QString reference = any();
        // Two columns: no shape that memory answers.
        const QStringList expected = Asked(connection, u"ID, ID AS B"_qs, title, reference);
        QCOMPARE(Asked(connection, u"ID"_qs, title, reference), expected);
        found += expected.isEmpty() ? 0 : 1;
        Insert(connection, any(), any());
        if (round % 7 == 0)
            connection.Execute(
                u"UPDATE MUSICA SET TITULO = '%1' WHERE ID = %2"_qs.arg(Quoted(any()))
                    .arg(1 + random.Below(round + 1)));
        if (round % 11 == 0)
            connection.Execute(
                u"DELETE FROM MUSICA WHERE ID = %1"_qs.arg(1 + random.Below(round + 1)));
    }
    QVERIFY(found > 100);
}

void tst_same_song::randomLettersOfManyScripts()
{
    const TestCatalogue catalogue;
    ::Connection connection;
    connection.Open(catalogue.ConnectionString());
    const QString letters = u"aAáÁªºoßsｓКкйи\u0306’'\u0301\u200D\u0001-–歌ĳøœæþ"_qs;
    SongGenerator random(17);
    const auto any = [&] {
        QString title;
        for (int length = random.Below(3); length >= 0; --length)
            title += letters.at(random.Below(static_cast<int>(letters.size())));
        return title;
    };
    for (int i = 0; i < 1500; ++i)
        Insert(connection, any(), u"Ana"_qs);
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        const QString title = any();
        const QStringList expected = Asked(connection, u"ID, ID AS B"_qs, title, u"Ana"_qs);
        QCOMPARE(Asked(connection, u"ID"_qs, title, u"Ana"_qs), expected);
        found += expected.isEmpty() ? 0 : 1;
        // A song moves from one title to another, and back to the one it had.
        connection.Execute(u"UPDATE MUSICA SET TITULO = '%1' WHERE ID = %2"_qs.arg(
            Quoted(round % 3 == 0 ? u"Калинка"_qs : any()), QString::number(1 + round % 40)));
    }
    QVERIFY(found > 100);
}

void tst_same_song::fewSongsAreCandidates()
{
    SongNames names;
    const auto title = [](int number) { return u"Калинка %1 – Nº ’"_qs.arg(number).toStdString(); };
    for (int i = 0; i < 1000; ++i)
        names.Put(static_cast<SongTable::Place>(i), title(i));
    names.Put(1000, std::nullopt);
    QCOMPARE(names.Places(), SongTable::Place{1001});
    for (int i = 0; i < 1000; ++i)
        QCOMPARE(names.Candidates(title(i)),
                 std::vector<SongTable::Place>{static_cast<SongTable::Place>(i)});
    QVERIFY(names.Candidates(title(1000)).empty());
}

void tst_same_song::aSongThatChangesTakesNoMoreRoom()
{
    SongNames names;
    names.Put(0, "Luz");
    const std::size_t size = names.Size();
    for (int i = 0; i < 100; ++i) {
        names.Put(0, "Mar");
        names.Put(0, "Mar");
        names.Put(0, "Луна");
    }
    QCOMPARE(names.Size(), size);
    QVERIFY(names.Candidates("Luz").empty());
    QVERIFY(names.Candidates("Mar").empty());
    QCOMPARE(names.Candidates("Луна").size(), std::size_t{1});
}

void tst_same_song::changesAreSeenAtOnce()
{
    const TestCatalogue catalogue;
    ::Connection connection;
    connection.Open(catalogue.ConnectionString());
    const auto asked = [&] { return Asked(connection, u"ID"_qs, u"LUZ"_qs, u"ana"_qs); };
    QCOMPARE(asked(), QStringList());
    Insert(connection, u"Luz"_qs, u"Ana"_qs);
    QCOMPARE(asked(), QStringList(u"1"_qs));
    connection.Execute(u"UPDATE MUSICA SET TITULO = 'Mar' WHERE ID = 1"_qs);
    QCOMPARE(asked(), QStringList());
    connection.Execute(u"UPDATE MUSICA SET TITULO = 'luz' WHERE ID = 1"_qs);
    Insert(connection, u"Luz"_qs, u"Ana"_qs);
    QCOMPARE(asked(), QStringList({u"1"_qs, u"2"_qs}));
    connection.Execute(u"DELETE FROM MUSICA WHERE ID = 1"_qs);
    QCOMPARE(asked(), QStringList(u"2"_qs));
}

void tst_same_song::aSongIsFoundUnderItsNewName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("asked");
    QTest::newRow("plain") << u"Mar"_qs << u"MAR"_qs;
    QTest::newRow("accents") << u"Água"_qs << u"a\u0301gua"_qs;
    QTest::newRow("sharp s") << u"Straße"_qs << u"straße"_qs;
    QTest::newRow("printed apostrophe") << u"D’Água"_qs << u"d’água"_qs;
    QTest::newRow("Cyrillic") << u"Привет"_qs << u"привет"_qs;
    QTest::newRow("Greek") << u"Φως"_qs << u"φως"_qs;
}

/// Whoever renamed it.
void tst_same_song::aSongIsFoundUnderItsNewName()
{
    QFETCH(QString, name);
    QFETCH(QString, asked);
    const TestCatalogue catalogue;
    ::Connection connection;
    connection.Open(catalogue.ConnectionString());
    Insert(connection, u"Luz"_qs, u"Ana"_qs);
    Insert(connection, u"Sol"_qs, u"Ana"_qs);
    connection.CommitBatch();
    const auto found = [&](const QString& title) {
        return Asked(connection, u"ID"_qs, title, u"Ana"_qs);
    };
    QCOMPARE(found(asked), QStringList());
    connection.Execute(u"UPDATE MUSICA SET TITULO = '%1' WHERE ID = 1"_qs.arg(Quoted(name)));
    connection.CommitBatch();
    QCOMPARE(found(asked), QStringList(u"1"_qs));
    QCOMPARE(found(u"Luz"_qs), QStringList());
    catalogue.Run(u"UPDATE MUSICA SET TITULO = '%1' WHERE ID = 2"_qs.arg(Quoted(name)));
    QCOMPARE(found(asked), QStringList({u"1"_qs, u"2"_qs}));
    catalogue.Run(u"DELETE FROM MUSICA WHERE ID = 1"_qs);
    QCOMPARE(found(asked), QStringList(u"2"_qs));
    connection.Execute(u"UPDATE MUSICA SET REFERENCIA = 'Bia' WHERE ID = 2"_qs);
    QCOMPARE(found(asked), QStringList());
    QCOMPARE(Asked(connection, u"ID"_qs, asked, u"BIA"_qs), QStringList(u"2"_qs));
}

/// While another program reads, a commit has to give up, and undoes the batch.
void tst_same_song::whatIsUndoneIsForgotten()
{
    const TestCatalogue catalogue;
    ::Connection connection;
    connection.Open(catalogue.ConnectionString());
    Insert(connection, u"Luz"_qs, u"Ana"_qs);
    connection.CommitBatch();
    const auto found = [&](const QString& title) {
        return Asked(connection, u"ID"_qs, title, u"Ana"_qs);
    };
    QCOMPARE(found(u"Luz"_qs), QStringList(u"1"_qs));
    connection.Execute(u"UPDATE MUSICA SET TITULO = 'Mar' WHERE ID = 1"_qs);
    Insert(connection, u"Sol"_qs, u"Ana"_qs);
    QCOMPARE(found(u"Mar"_qs), QStringList(u"1"_qs));
    QCOMPARE(found(u"Sol"_qs), QStringList(u"2"_qs));
    PlainSqlite reader(catalogue.Path());
    reader.Run("BEGIN; SELECT count(*) FROM MUSICA");
    QVERIFY(Failed([&] { connection.CommitBatch(); }).number != 0);
    reader.Run("COMMIT");
    QCOMPARE(found(u"Luz"_qs), QStringList(u"1"_qs));
    QCOMPARE(found(u"Mar"_qs), QStringList());
    QCOMPARE(found(u"Sol"_qs), QStringList());
}

void tst_same_song::whatAnotherProgramWroteIsSeen()
{
    const TestCatalogue catalogue;
    ::Connection connection;
    connection.Open(catalogue.ConnectionString());
    QCOMPARE(Asked(connection, u"ID"_qs, u"Luz"_qs, u"Ana"_qs), QStringList());
    catalogue.AddSong(u"luz"_qs, u"Ana"_qs);
    QCOMPARE(Asked(connection, u"ID"_qs, u"Luz"_qs, u"Ana"_qs), QStringList(u"1"_qs));
}

QTEST_GUILESS_MAIN(tst_same_song)
#include "tst_same_song.moc"
