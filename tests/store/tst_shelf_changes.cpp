#include "store/Connection.h"
#include "store/Failed.h"
#include "store/RecordsetFields.h"
#include "store/SearchText.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

namespace {

const QString Marked = u"SELECT ID, TITULO, MUSICA, MUSICA2 FROM MUSICA WHERE ID IN (02,1,2,)"_qs;

} // namespace

/// A search shows the catalogue as it is now: what this program has changed, committed or not, and
/// what another one has.
class tst_shelf_changes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void findsANewSongOnceItIsLinked();
    void seesAnOpenBatch();
    void movesASongWithItsTitle();
    void countsAPlay();
    void findsLyricsAsTheyAreNow();
    void losesADeletedSong();
    void losesASongWithItsLastLink();
    void movesALinkToAnotherTheme();
    void losesEverySongWhenAllLinksGo();
    void losesEverySong();
    void keepsTheOldSongsWhenABatchFails();
    void keepsTheOldSongWhenAStatementFails();
    void seesWhatAnotherProgramWrites();
    void seesWhatAnotherProgramWritesBetweenOwnChanges();
    void findsASongThatAnotherProgramGivesALowNumber();
    void keepsAResultWhileItsSongsChange();
    void keepsAResultThatOutlivesTheConnection();
    void keepsTheTextsOfSongsThatAreDeleted();
    void keepsTheFirstTextOfASongThatChangesTwice();
    void keepsTheTextsOfSongsThatChangeTogether_data();
    void keepsTheTextsOfSongsThatChangeTogether();
    void keepsBothTextsOfMarkedSongsThatChange_data();
    void keepsBothTextsOfMarkedSongsThatChange();
    void givesTheTextsOfMarkedSongsInUtf8();
    void textsOfASongThatAnotherProgramDeletedAreAnError();
    void ordersSongsAfterManyChangesAtOnce();
    void tellsTheThemesOfASongAsTheyAreNow();
    void seesWhatAnotherProgramWritesBetweenTwoSnapshots();
    void findsTextsOfOddKindsAsSqliteDoes();
    void saysThatAnotherProgramHoldsTheFile();
    void findsAllAgainAfterOpeningAnotherCatalogue();

private:
    QStringList Titles(const SearchText& search = {});
    void Change(const QString& sql);

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<Connection> m_connection;
    qint64 m_theme = 0;
    qint64 m_luz = 0;
    qint64 m_amor = 0;
};

void tst_shelf_changes::init()
{
    m_catalogue = std::make_unique<TestCatalogue>();
    m_theme = m_catalogue->AddTheme(u"Louvor"_qs);
    m_luz = m_catalogue->AddSong(TestSong{.title = u"Luz"_qs, .text = u"brilha"_qs, .count = 5});
    m_amor = m_catalogue->AddSong(TestSong{.title = u"Amor"_qs, .text = u"coração"_qs, .count = 2});
    m_catalogue->Link(m_luz, m_theme);
    m_catalogue->Link(m_amor, m_theme);
    m_connection = std::make_unique<Connection>();
    m_connection->Open(m_catalogue->ConnectionString());
    // Everything is in memory from here on, lyrics too.
    QCOMPARE(Titles(), (QStringList{u"Amor"_qs, u"Luz"_qs}));
    QCOMPARE(Titles({.lyrics = u"r"_qs}), (QStringList{u"Amor"_qs, u"Luz"_qs}));
}

void tst_shelf_changes::cleanup()
{
    m_connection.reset();
    m_catalogue.reset();
}

QStringList tst_shelf_changes::Titles(const SearchText& search)
{
    QStringList titles;
    for (const QStringList& song : AllFields(m_connection->Execute(search.Sql())))
        titles.append(song.at(1));
    return titles;
}

void tst_shelf_changes::Change(const QString& sql)
{
    m_connection->Execute(sql);
    m_connection->CommitBatch();
}

void tst_shelf_changes::findsANewSongOnceItIsLinked()
{
    Change(u"INSERT INTO MUSICA (TITULO, MUSICA, CATEGORIA) VALUES ('Céu', 'estrela', 1)"_qs);
    QCOMPARE(Titles({.title = u"céu"_qs}), QStringList());
    Change(u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (3, 1)"_qs);
    QCOMPARE(Titles({.title = u"céu"_qs}), QStringList{u"Céu"_qs});
    QCOMPARE(Titles({.lyrics = u"estrela"_qs}), QStringList{u"Céu"_qs});
    QCOMPARE(Titles(), (QStringList{u"Amor"_qs, u"Céu"_qs, u"Luz"_qs}));
}

void tst_shelf_changes::seesAnOpenBatch()
{
    m_connection->Execute(u"UPDATE MUSICA SET TITULO = 'Zelo' WHERE ID = 02"_qs);
    QCOMPARE(Titles(), (QStringList{u"Luz"_qs, u"Zelo"_qs}));
    m_connection->CommitBatch();
    QCOMPARE(Titles(), (QStringList{u"Luz"_qs, u"Zelo"_qs}));
}

void tst_shelf_changes::movesASongWithItsTitle()
{
    Change(u"UPDATE MUSICA SET TITULO = 'Água' WHERE ID = 01"_qs);
    QCOMPARE(Titles(), (QStringList{u"Água"_qs, u"Amor"_qs}));
    QCOMPARE(Titles({.title = u"luz"_qs}), QStringList());
    Change(u"UPDATE MUSICA SET TITULO = NULL WHERE ID = 02"_qs);
    QCOMPARE(Titles(), (QStringList{QString(), u"Água"_qs}));
}

void tst_shelf_changes::countsAPlay()
{
    const SearchText mostPlayed{.mostPlayedFirst = true};
    QCOMPARE(Titles(mostPlayed), (QStringList{u"Luz"_qs, u"Amor"_qs}));
    for (int i = 0; i < 4; ++i)
        Change(u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 02"_qs);
    QCOMPARE(Titles(mostPlayed), (QStringList{u"Amor"_qs, u"Luz"_qs}));
    QCOMPARE(m_connection->Execute(mostPlayed.Sql()).Fields(u"CONTADOR"), Value(6));
}

void tst_shelf_changes::findsLyricsAsTheyAreNow()
{
    Change(u"UPDATE MUSICA SET MUSICA = 'água viva' WHERE ID = 01"_qs);
    QCOMPARE(Titles({.lyrics = u"água"_qs}), QStringList{u"Luz"_qs});
    QCOMPARE(Titles({.lyrics = u"brilha"_qs}), QStringList());
    Change(u"UPDATE MUSICA SET MUSICA = NULL WHERE ID = 01"_qs);
    QCOMPARE(Titles({.lyrics = u"a"_qs}), QStringList{u"Amor"_qs});
}

void tst_shelf_changes::losesADeletedSong()
{
    Change(u"DELETE FROM MUSICA WHERE ID = 01"_qs);
    QCOMPARE(Titles(), QStringList{u"Amor"_qs});
    QCOMPARE(Titles({.lyrics = u"r"_qs}), QStringList{u"Amor"_qs});
}

void tst_shelf_changes::losesASongWithItsLastLink()
{
    Change(u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 01"_qs);
    QCOMPARE(Titles(), QStringList{u"Amor"_qs});
}

void tst_shelf_changes::movesALinkToAnotherTheme()
{
    QCOMPARE(Titles({.themes = u"7"_qs}), QStringList());
    Change(u"UPDATE TEMA_MUSICA SET ID_TEMA = 7 WHERE ID_MUSICA = 01"_qs);
    QCOMPARE(Titles({.themes = u"7"_qs}), QStringList{u"Luz"_qs});
    QCOMPARE(Titles({.themes = u"1"_qs}), QStringList{u"Amor"_qs});
}

void tst_shelf_changes::losesEverySongWhenAllLinksGo()
{
    Change(u"DELETE FROM TEMA_MUSICA"_qs);
    QCOMPARE(Titles(), QStringList());
}

void tst_shelf_changes::losesEverySong()
{
    Change(u"DELETE FROM MUSICA"_qs);
    QCOMPARE(Titles(), QStringList());
}

void tst_shelf_changes::keepsTheOldSongsWhenABatchFails()
{
    m_connection->Execute(u"UPDATE MUSICA SET TITULO = 'Zelo' WHERE ID = 02"_qs);
    QCOMPARE(Titles(), (QStringList{u"Luz"_qs, u"Zelo"_qs}));
    // While another program reads, a commit has to give up, and undoes the batch.
    PlainSqlite reader(m_catalogue->Path());
    reader.Run("BEGIN; SELECT count(*) FROM MUSICA");
    QVERIFY(Failed([&] { m_connection->CommitBatch(); }).number != 0);
    reader.Run("COMMIT");
    QCOMPARE(Titles(), (QStringList{u"Amor"_qs, u"Luz"_qs}));
}

void tst_shelf_changes::keepsTheOldSongWhenAStatementFails()
{
    const Failed failed(
        [&] { m_connection->Execute(u"UPDATE MUSICA SET CONTADOR = CONTADOR * 1000000000"_qs); });
    QCOMPARE(failed.number, int{RuntimeError::Overflow});
    QCOMPARE(m_connection->Execute(SearchText{}.Sql()).Fields(u"CONTADOR"), Value(2));
    m_connection->CommitBatch();
    QCOMPARE(m_connection->Execute(SearchText{}.Sql()).Fields(u"CONTADOR"), Value(2));
}

void tst_shelf_changes::seesWhatAnotherProgramWrites()
{
    m_catalogue->Run(u"UPDATE MUSICA SET TITULO = 'Água', MUSICA = 'fonte' WHERE ID = 1"_qs);
    QCOMPARE(Titles(), (QStringList{u"Água"_qs, u"Amor"_qs}));
    QCOMPARE(Titles({.lyrics = u"fonte"_qs}), QStringList{u"Água"_qs});
    m_catalogue->Run(u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 1"_qs);
    QCOMPARE(Titles(), QStringList{u"Amor"_qs});
    m_catalogue->Run(u"DELETE FROM MUSICA"_qs);
    QCOMPARE(Titles(), QStringList());
}

void tst_shelf_changes::seesWhatAnotherProgramWritesBetweenOwnChanges()
{
    Change(u"UPDATE MUSICA SET TITULO = 'B' WHERE ID = 01"_qs);
    m_catalogue->Run(u"UPDATE MUSICA SET TITULO = 'A' WHERE ID = 2"_qs);
    Change(u"UPDATE MUSICA SET TITULO = 'C' WHERE ID = 01"_qs);
    QCOMPARE(Titles(), (QStringList{u"A"_qs, u"C"_qs}));
}

void tst_shelf_changes::findsASongThatAnotherProgramGivesALowNumber()
{
    Change(u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (-3, 1)"_qs);
    m_catalogue->Run(u"INSERT INTO MUSICA (ID, TITULO, CATEGORIA) VALUES (-3, 'Bem', 1)"_qs);
    QCOMPARE(Titles(), (QStringList{u"Amor"_qs, u"Bem"_qs, u"Luz"_qs}));
    Change(u"INSERT INTO MUSICA (ID, TITULO, CATEGORIA) VALUES (0, 'Cem', 1)"_qs);
    Change(u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (0, 1)"_qs);
    QCOMPARE(Titles(), (QStringList{u"Amor"_qs, u"Bem"_qs, u"Cem"_qs, u"Luz"_qs}));
}

void tst_shelf_changes::keepsAResultWhileItsSongsChange()
{
    const Recordset before = m_connection->Execute(SearchText{}.Sql());
    Change(u"UPDATE MUSICA SET TITULO = 'Zelo', MUSICA = 'novo', CONTADOR = 9 WHERE ID = 02"_qs);
    QCOMPARE(Titles(), (QStringList{u"Luz"_qs, u"Zelo"_qs}));
    QCOMPARE(AllFields(before).first(), (QStringList{u"2"_qs, u"Amor"_qs, u"Anônimo"_qs, u"C"_qs,
                                                     u""_qs, u"2"_qs, u"coração"_qs}));
}

/// A text that changed was kept before it went; the others were never read, and closing does not
/// wait for them.
void tst_shelf_changes::keepsAResultThatOutlivesTheConnection()
{
    Recordset before = m_connection->Execute(SearchText{}.Sql());
    Change(u"UPDATE MUSICA SET MUSICA = 'novo' WHERE ID = 01"_qs);
    m_connection->Close();
    QCOMPARE(before.RecordCount(), 2);
    QCOMPARE(before.Fields(u"TITULO"), Value(u"Amor"_qs));
    QCOMPARE(Failed([&] { before.Fields(u"MUSICA"); }).number, int{RuntimeError::ObjectClosed});
    before.MoveNext();
    QCOMPARE(before.Fields(u"TITULO"), Value(u"Luz"_qs));
    QCOMPARE(before.Fields(u"MUSICA"), Value(u"brilha"_qs));
}

void tst_shelf_changes::keepsTheTextsOfSongsThatAreDeleted()
{
    const Recordset before = m_connection->Execute(SearchText{}.Sql());
    Change(u"DELETE FROM MUSICA WHERE ID = 02"_qs);
    QCOMPARE(before.RecordCount(), 2);
    QCOMPARE(before.Fields(u"MUSICA"), Value(u"coração"_qs));
}

void tst_shelf_changes::keepsTheFirstTextOfASongThatChangesTwice()
{
    const Recordset before = m_connection->Execute(SearchText{}.Sql());
    Change(u"UPDATE MUSICA SET MUSICA = 'novo' WHERE ID = 02"_qs);
    Change(u"UPDATE MUSICA SET MUSICA = 'outro' WHERE ID = 02"_qs);
    QCOMPARE(before.Fields(u"MUSICA"), Value(u"coração"_qs));
}

void tst_shelf_changes::keepsTheTextsOfSongsThatChangeTogether_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("all") << u"UPDATE MUSICA SET MUSICA = 'novo'"_qs;
    QTest::newRow("some") << u"UPDATE MUSICA SET MUSICA = 'novo' WHERE ID > 0"_qs;
    QTest::newRow("by another column")
        << u"UPDATE MUSICA SET MUSICA = 'novo' WHERE CATEGORIA = 1"_qs;
    QTest::newRow("several") << u"UPDATE MUSICA SET MUSICA = 'novo' WHERE ID IN (1, 2)"_qs;
    QTest::newRow("deleted") << u"DELETE FROM MUSICA"_qs;
}

void tst_shelf_changes::keepsTheTextsOfSongsThatChangeTogether()
{
    QFETCH(QString, change);
    const Recordset before = m_connection->Execute(SearchText{}.Sql());
    Change(change);
    QCOMPARE(AllFields(before).at(0).last(), u"coração"_qs);
    QCOMPARE(AllFields(before).at(1).last(), u"brilha"_qs);
}

void tst_shelf_changes::keepsBothTextsOfMarkedSongsThatChange_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("first text") << u"UPDATE MUSICA SET MUSICA = 'novo' WHERE ID = 1"_qs;
    QTest::newRow("second text") << u"UPDATE MUSICA SET MUSICA2 = 'novo' WHERE ID = 1"_qs;
    QTest::newRow("both, of all songs") << u"UPDATE MUSICA SET MUSICA = '', MUSICA2 = NULL"_qs;
    QTest::newRow("deleted") << u"DELETE FROM MUSICA WHERE ID = 1"_qs;
}

void tst_shelf_changes::keepsBothTextsOfMarkedSongsThatChange()
{
    QFETCH(QString, change);
    Change(u"UPDATE MUSICA SET MUSICA2 = 'solo' WHERE ID = 1"_qs);
    Change(u"UPDATE MUSICA SET MUSICA2 = NULL WHERE ID = 2"_qs);
    const Recordset before = m_connection->Execute(Marked);
    Change(change);
    QCOMPARE(AllFields(before), (QList<QStringList>{{u"1"_qs, u"Luz"_qs, u"brilha"_qs, u"solo"_qs},
                                                    {u"2"_qs, u"Amor"_qs, u"coração"_qs, {}}}));
}

void tst_shelf_changes::givesTheTextsOfMarkedSongsInUtf8()
{
    Change(u"UPDATE MUSICA SET TITULO = 'Céu', MUSICA2 = '' WHERE ID = 1"_qs);
    Change(u"UPDATE MUSICA SET MUSICA2 = NULL WHERE ID = 2"_qs);
    Recordset songs = m_connection->Execute(Marked);
    QCOMPARE(songs.RecordCount(), 2);
    QCOMPARE(songs.Utf8(0), QByteArray("1"));
    QCOMPARE(songs.Utf8(1), u"Céu"_qs.toUtf8());
    QCOMPARE(songs.Utf8(3), QByteArray(""));
    songs.MoveNext();
    QCOMPARE(songs.Utf8(2), u"coração"_qs.toUtf8());
    QCOMPARE(songs.Utf8(3), std::nullopt);
}

void tst_shelf_changes::textsOfASongThatAnotherProgramDeletedAreAnError()
{
    Recordset songs = m_connection->Execute(Marked);
    m_catalogue->Run(u"DELETE FROM MUSICA WHERE ID = 1"_qs);
    QCOMPARE(songs.Fields(u"TITULO"), Value(u"Luz"_qs));
    QCOMPARE(Failed([&] { songs.Fields(u"MUSICA"); }).number, int{RuntimeError::StoreFailure});
    QCOMPARE(Failed([&] { songs.Utf8(2); }).number, int{RuntimeError::StoreFailure});
    Change(u"UPDATE MUSICA SET MUSICA = 'novo'"_qs); // what is gone cannot be kept
    songs.MoveNext();
    QCOMPARE(songs.Fields(u"MUSICA"), Value(u"coração"_qs));
}

/// As an import asks and inserts, without any search between.
void tst_shelf_changes::ordersSongsAfterManyChangesAtOnce()
{
    const SearchText most{.mostPlayedFirst = true};
    QCOMPARE(Titles(most), (QStringList{u"Luz"_qs, u"Amor"_qs}));
    QStringList titles{u"Amor"_qs, u"Luz"_qs};
    for (int i = 0; i < 300; ++i) {
        const QString title = u"M%1"_qs.arg((i * 7919) % 1000, 3, 10, QChar(u'0'));
        titles += title;
        QVERIFY(
            m_connection
                ->Execute(
                    u"SELECT ID FROM MUSICA WHERE TITULO = '%1' AND REFERENCIA = ''"_qs.arg(title))
                .Eof());
        m_connection->Execute(u"INSERT INTO MUSICA (TITULO, REFERENCIA, CATEGORIA, CONTADOR) "
                              "VALUES ('%1', '', 1, 0)"_qs.arg(title));
        m_connection->Execute(
            u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT %1, ID FROM TEMA"_qs.arg(i + 3));
    }
    titles.sort();
    QCOMPARE(Titles(), titles);
    Change(u"UPDATE MUSICA SET CONTADOR = 9 WHERE TITULO = 'M595'"_qs);
    titles.removeAll(u"M595"_qs);
    titles.removeAll(u"Luz"_qs);
    titles.removeAll(u"Amor"_qs);
    QCOMPARE(Titles(most), (QStringList{u"M595"_qs, u"Luz"_qs, u"Amor"_qs} + titles));
}

void tst_shelf_changes::tellsTheThemesOfASongAsTheyAreNow()
{
    const auto themes = [this] {
        QStringList names;
        Recordset rows = m_connection->Execute(
            u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA "
            "WHERE ID_MUSICA = 01"_qs);
        for (; !rows.Eof(); rows.MoveNext())
            names += rows.Fields(0).ToText();
        return names;
    };
    QCOMPARE(themes(), QStringList{u"Louvor"_qs});
    Change(u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('Adoração', 2, '')"_qs);
    for (const int theme : {2, 1})
        Change(
            u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 1, ID FROM TEMA WHERE ID = %1"_qs
                .arg(theme));
    // In the order of the themes, whatever that of the links, one that is there twice twice.
    QCOMPARE(themes(), (QStringList{u"Louvor"_qs, u"Louvor"_qs, u"Adoração"_qs}));
    Change(u"UPDATE TEMA SET DESCRICAO = 'Graças' WHERE DESCRICAO = 'Louvor'"_qs);
    QCOMPARE(themes(), (QStringList{u"Graças"_qs, u"Graças"_qs, u"Adoração"_qs}));
    Change(u"DELETE FROM TEMA WHERE DESCRICAO = 'Graças'"_qs);
    QCOMPARE(themes(), QStringList{u"Adoração"_qs});
    Change(u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 01"_qs);
    QCOMPARE(themes(), QStringList());
    // Nobody asks whether the song itself is there.
    Change(u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 1, ID FROM TEMA"_qs);
    Change(u"DELETE FROM MUSICA WHERE ID = 01"_qs);
    QCOMPARE(themes(), QStringList{u"Adoração"_qs});
}

void tst_shelf_changes::seesWhatAnotherProgramWritesBetweenTwoSnapshots()
{
    const auto asked = [this] {
        const ::Connection::Snapshot snapshot(*m_connection);
        const QStringList first = Titles();
        return first == Titles() ? first : QStringList{u"two answers"_qs};
    };
    QCOMPARE(asked(), (QStringList{u"Amor"_qs, u"Luz"_qs}));
    m_catalogue->Run(u"UPDATE MUSICA SET TITULO = 'Sol' WHERE ID = 1"_qs);
    QCOMPARE(asked(), (QStringList{u"Amor"_qs, u"Sol"_qs}));
    Change(u"UPDATE MUSICA SET TITULO = 'Mar' WHERE ID = 1"_qs);
    QCOMPARE(asked(), (QStringList{u"Amor"_qs, u"Mar"_qs}));
    m_catalogue->Run(u"UPDATE MUSICA SET TITULO = 'Rio' WHERE ID = 1"_qs);
    QCOMPARE(asked(), (QStringList{u"Amor"_qs, u"Rio"_qs}));
}

/// Another tool may store numbers in letters and texts as bytes.
void tst_shelf_changes::findsTextsOfOddKindsAsSqliteDoes()
{
    m_catalogue->Run(u"UPDATE MUSICA SET MUSICA = CAST('fonte' AS BLOB) WHERE ID = 1"_qs);
    QCOMPARE(Titles({.lyrics = u"FONTE"_qs}), QStringList{u"Luz"_qs});
    m_catalogue->Run(u"UPDATE MUSICA SET TITULO = CAST('Abc' AS BLOB) WHERE ID = 1"_qs);
    QCOMPARE(Titles(), (QStringList{u"Amor"_qs, u"Abc"_qs}));
    m_catalogue->Run(u"UPDATE MUSICA SET TITULO = 'Luz', CONTADOR = 'muitas'"_qs);
    QCOMPARE(Titles({.mostPlayedFirst = true}).size(), 2);
    m_catalogue->Run(u"UPDATE MUSICA SET CATEGORIA = 'um' WHERE ID = 2"_qs);
    QCOMPARE(Titles(), QStringList{u"Luz"_qs});
}

void tst_shelf_changes::saysThatAnotherProgramHoldsTheFile()
{
    PlainSqlite writer(m_catalogue->Path());
    writer.Run("BEGIN EXCLUSIVE");
    const Failed failed([&] { Titles(); });
    QCOMPARE(failed.whatFailed, u"O banco de dados está sendo usado por outro programa."_qs);
    writer.Run("COMMIT");
    QCOMPARE(Titles(), (QStringList{u"Amor"_qs, u"Luz"_qs}));
}

void tst_shelf_changes::findsAllAgainAfterOpeningAnotherCatalogue()
{
    const TestCatalogue other;
    const qint64 song = other.AddSong(u"Outra"_qs);
    other.Link(song, other.AddTheme(u"Tema"_qs));
    m_connection->Close();
    m_connection->Open(other.ConnectionString());
    QCOMPARE(Titles(), QStringList{u"Outra"_qs});
}

QTEST_GUILESS_MAIN(tst_shelf_changes)
#include "tst_shelf_changes.moc"
