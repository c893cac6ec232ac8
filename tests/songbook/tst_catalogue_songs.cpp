#include "chords/Notas.h"
#include "runtime/RuntimeError.h"
#include "songbook/CatalogueSongs.h"
#include "songbook/SongChoice.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace Songbook;

/// Songs and setlists of a catalogue, read without changing it.
class tst_catalogue_songs : public QObject
{
    Q_OBJECT

private slots:
    void songsComeAsTheyAreStored();
    void themesComeInTheOrderOfTheirLinks();
    void setlistsKeepTheirOrder();
    void catalogueIsNotChanged();
    void catalogueThatAnotherProgramHasOpenIsRead();
    void notesAreTheCataloguesOwn();
    void otherFilesAreRefused_data();
    void otherFilesAreRefused();
    void songsAreChosenLikeInTheSearch_data();
    void songsAreChosenLikeInTheSearch();
    void setlistsAreFoundByName_data();
    void setlistsAreFoundByName();
};

namespace {

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

QStringList Titles(const QList<ExchangeSong>& songs)
{
    QStringList titles;
    for (const ExchangeSong& song : songs)
        titles += song.titulo.value_or(u"<NULL>"_qs);
    return titles;
}

} // namespace

void tst_catalogue_songs::songsComeAsTheyAreStored()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(TestSong{});
    catalogue.AddSong(
        {QString(), QString(), QString(), u""_qs, QString(), QString(), std::nullopt, 3});
    const QString longText = u"Lá\r\n"_qs.repeated(40'000);
    catalogue.AddSong({u"Longa"_qs, u"R"_qs, longText, longText});
    const QList<ExchangeSong> songs = CatalogueSongs(catalogue.Path()).Songs();
    QCOMPARE(Titles(songs), QStringList({u"Santo Deus"_qs, u"<NULL>"_qs, u"Longa"_qs}));
    QCOMPARE(*songs[0].letra1, u"C  G7\r\nSanto Deus"_qs);
    QCOMPARE(*songs[0].letra2, u"D  A7\r\nSanto Deus"_qs);
    QCOMPARE(*songs[0].tom, u"C"_qs);
    QCOMPARE(*songs[0].variacao, QString());
    QCOMPARE(*songs[0].categoria, 1);
    QVERIFY(!songs[1].referencia && !songs[1].letra1 && !songs[1].tom && !songs[1].categoria);
    QCOMPARE(*songs[1].letra2, QString());
    QCOMPARE(*songs[2].letra1, longText);
    QCOMPARE(*songs[2].letra2, longText);
}

void tst_catalogue_songs::themesComeInTheOrderOfTheirLinks()
{
    const TestCatalogue catalogue;
    const qint64 song = catalogue.AddSong(u"Noite"_qs);
    const qint64 natal = catalogue.AddTheme(u"Natal"_qs);
    const qint64 adoracao = catalogue.AddTheme(u"Adoração"_qs);
    catalogue.Link(song, natal);
    catalogue.Link(song, adoracao);
    catalogue.Link(song, 4711); // a theme that is gone
    QCOMPARE(CatalogueSongs(catalogue.Path()).Songs().first().temas,
             QStringList({u"Natal"_qs, u"Adoração"_qs}));
}

void tst_catalogue_songs::setlistsKeepTheirOrder()
{
    const TestCatalogue catalogue;
    const qint64 a = catalogue.AddSong(u"A"_qs);
    const qint64 b = catalogue.AddSong(u"B"_qs);
    catalogue.AddSong(u"C"_qs);
    catalogue.AddSetlist(u"Velha"_qs, QDate(2009, 3, 5), {a});
    catalogue.AddSetlist(u"Nova"_qs, QDate(2010, 1, 20), {b, 4711, a, b});
    catalogue.AddSetlist(u"Sem data"_qs, QDate(), {});
    CatalogueSongs songs(catalogue.Path());
    const QList<Setlist> lists = songs.Setlists();
    QCOMPARE(lists.size(), 3);
    QCOMPARE(lists[0].FullName(), u"Nova 20/01/2010"_qs);
    QCOMPARE(lists[1].FullName(), u"Velha 05/03/2009"_qs);
    QCOMPARE(lists[2].FullName(), u"Sem data"_qs);
    int gone = 0;
    QCOMPARE(Titles(songs.SongsOf(lists[0].id, true, gone)),
             QStringList({u"B"_qs, u"A"_qs, u"B"_qs}));
    QCOMPARE(gone, 1);
    QCOMPARE(Titles(songs.SongsOf(lists[0].id, false, gone)), QStringList({u"B"_qs, u"A"_qs}));
    QCOMPARE(Titles(songs.SongsOf(lists[2].id, true, gone)), QStringList());
    QCOMPARE(gone, 0);
}

void tst_catalogue_songs::catalogueIsNotChanged()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"A"_qs);
    const QByteArray before = Content(catalogue.Path());
    QFile file(catalogue.Path());
    QVERIFY(file.setPermissions(QFileDevice::ReadOwner));
    QCOMPARE(CatalogueSongs(catalogue.Path()).Songs().size(), 1);
    QCOMPARE(Content(catalogue.Path()), before);
    QCOMPARE(QDir(catalogue.Folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{u"Melodario.mdb"_qs});
}

void tst_catalogue_songs::catalogueThatAnotherProgramHasOpenIsRead()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"A"_qs);
    PlainSqlite other(catalogue.Path());
    other.Run("BEGIN IMMEDIATE; INSERT INTO MUSICA (TITULO) VALUES ('B')");
    QCOMPARE(Titles(CatalogueSongs(catalogue.Path()).Songs()), QStringList{u"A"_qs});
    other.Run("COMMIT");
    QCOMPARE(CatalogueSongs(catalogue.Path()).Songs().size(), 2);
}

void tst_catalogue_songs::notesAreTheCataloguesOwn()
{
    const TestCatalogue catalogue;
    catalogue.Run(u"UPDATE TOM SET MAIS = 'Cis' WHERE NOTA = 'C#'"_qs);
    const CatalogueSongs songs(catalogue.Path());
    QCOMPARE(Funcoes::Notas[2], u"C#"_qs);
    QCOMPARE(Funcoes::Notas_Mais[2], u"Cis"_qs);
    QCOMPARE(Funcoes::Notas[12], u"B"_qs);
}

void tst_catalogue_songs::otherFilesAreRefused_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("why");
    QTest::newRow("a table is missing")
        << u"DROP TABLE TEMA"_qs << u"O arquivo não é um banco de dados do Melodario."_qs;
    QTest::newRow("a note is missing") << u"DELETE FROM TOM WHERE ORDEM = 12"_qs
                                       << u"A tabela TOM do catálogo não tem as doze notas."_qs;
    QTest::newRow("a note too many")
        << u"INSERT INTO TOM (NOTA, ORDEM, MAIS) VALUES ('H', 13, 'H')"_qs
        << u"A tabela TOM do catálogo não tem as doze notas."_qs;
}

void tst_catalogue_songs::otherFilesAreRefused()
{
    QFETCH(QString, sql);
    QFETCH(QString, why);
    const TestCatalogue catalogue;
    catalogue.Run(sql);
    try {
        const CatalogueSongs songs(catalogue.Path());
        QFAIL("opened");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.WhatFailed(), why);
    }
}

void tst_catalogue_songs::songsAreChosenLikeInTheSearch_data()
{
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QStringList>("themes");
    QTest::addColumn<bool>("taken");
    const auto row = [](const char* story, const QStringList& titles, const QStringList& themes,
                        bool taken) { QTest::newRow(story) << titles << themes << taken; };
    row("nothing asked", {}, {}, true);
    row("a part of the title", {u"viva"_qs}, {}, true);
    row("without accents", {u"agua"_qs}, {}, true);
    row("another accent", {u"àgua"_qs}, {}, false);
    row("an apostrophe", {u"D'ÁGUA"_qs}, {}, true);
    row("one of two titles", {u"fogo"_qs, u"água"_qs}, {}, true);
    row("another title", {u"fogo"_qs}, {}, false);
    row("a sign of the search", {u"d_água%viva"_qs}, {}, true);
    row("a theme", {}, {u"adoracao"_qs}, true);
    row("a part of a theme", {}, {u"adora"_qs}, false);
    row("one of two themes", {}, {u"Natal"_qs, u"Adoração"_qs}, true);
    row("another theme", {}, {u"Natal"_qs}, false);
    row("a sign in a theme is itself", {}, {u"%"_qs}, false);
    row("title and theme", {u"viva"_qs}, {u"Adoração"_qs}, true);
    row("title without theme", {u"viva"_qs}, {u"Natal"_qs}, false);
}

void tst_catalogue_songs::songsAreChosenLikeInTheSearch()
{
    QFETCH(QStringList, titles);
    QFETCH(QStringList, themes);
    QFETCH(bool, taken);
    ExchangeSong song;
    song.titulo = u"Fonte d'Água Viva"_qs;
    song.temas = QStringList{u"Louvor"_qs, u"Adoração"_qs};
    QCOMPARE(SongChoice(titles, themes).Takes(song), taken);
    if (!titles.isEmpty())
        QVERIFY(!SongChoice(titles, themes).Takes(ExchangeSong()));
}

void tst_catalogue_songs::setlistsAreFoundByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("failure");
    QTest::newRow("whole name") << u"Missa"_qs << 1 << QString();
    QTest::newRow("letter case and accents") << u"sarau de sabado"_qs << 2 << QString();
    QTest::newRow("a part") << u"sarau"_qs << 2 << QString();
    QTest::newRow("with its date") << u"Ensaio 12/03/2009"_qs << 4 << QString();
    QTest::newRow("by its date alone") << u"12/03/2009"_qs << 4 << QString();
    QTest::newRow("twice the same name")
        << u"ensaio"_qs << 0
        << u"há mais de uma lista \"ensaio\": \"Ensaio 05/03/2009\", \"Ensaio 12/03/2009\""_qs;
    QTest::newRow("none") << u"Natal"_qs << 0
                          << u"não há lista \"Natal\"; há \"Missa\", \"Sarau de Sábado\", \"Ensaio "
                             "05/03/2009\", \"Ensaio 12/03/2009\", \"Missa solene\""_qs;
}

void tst_catalogue_songs::setlistsAreFoundByName()
{
    QFETCH(QString, name);
    QFETCH(int, id);
    QFETCH(QString, failure);
    const QList<Setlist> lists = {{1, u"Missa"_qs, u""_qs},
                                  {2, u"Sarau de Sábado"_qs, u""_qs},
                                  {3, u"Ensaio"_qs, u"05/03/2009"_qs},
                                  {4, u"Ensaio"_qs, u"12/03/2009"_qs},
                                  {5, u"Missa solene"_qs, u""_qs}};
    const FoundSetlist found = FindSetlist(lists, name);
    QCOMPARE(found.failure, failure);
    QCOMPARE(found.list.value_or(Setlist()).id, qint64{id});
    QCOMPARE(FindSetlist({}, name).failure, u"o catálogo não tem listas"_qs);
}

QTEST_GUILESS_MAIN(tst_catalogue_songs)
#include "tst_catalogue_songs.moc"
