#include "ToolRun.h"
#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// New catalogues that melodario-verifica makes out of old ones, by the real program.

namespace {

const QString Tool = QStringLiteral(MELODARIO_VERIFICA);

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(path));
}

/// Every row of the seven tables, in the order of the file.
QStringList Everything(const QString& path)
{
    PlainSqlite database(path);
    QStringList rows;
    for (const char* table :
         {"MUSICA", "TEMA", "TEMA_MUSICA", "LISTA", "LISTA_MUSICA", "TOM", "VARIACAO"}) {
        const QString name = QString::fromLatin1(table);
        for (const QStringList& row :
             database.Rows(u"SELECT rowid, * FROM %1 NOT INDEXED ORDER BY rowid"_qs.arg(name))) {
            QStringList fields;
            for (const QString& field : row)
                fields += field.isNull() ? u"NULL"_qs : u'\'' + field + u'\'';
            rows += name + u": " + fields.join(u", "_qs);
        }
    }
    return rows;
}

/// Many songs on many pages, each with a theme, and one with a text of its own many pages.
class Large : public TestCatalogue
{
public:
    static constexpr int Songs = 400;
    static constexpr qint64 LongSong = 200;

    Large()
    {
        SongGenerator generator(3);
        PlainSqlite database(Path());
        database.Run("BEGIN");
        database.Run("INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('Natal', 2, '')");
        for (int i = 1; i <= Songs; ++i) {
            const GeneratedSong song = generator.Next();
            const QString text = i == LongSong ? song.text + QString(150'000, u'ã') : song.text;
            database.Rows(u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO,"
                          " CATEGORIA) VALUES (?, ?, ?, '', 'C', '', 1)"_qs,
                          {u"Título %1"_qs.arg(i), song.reference, text});
            database.Rows(u"INSERT INTO TEMA_MUSICA VALUES (?, 1)"_qs, {i});
        }
        database.Run("COMMIT");
    }

    /// @return the page on which most bytes of a text lie, from 0
    static qsizetype PageOf(const QByteArray& bytes, const QByteArray& text)
    {
        return bytes.indexOf(text) / PageSize;
    }

    static constexpr qsizetype PageSize = 16384;
};

} // namespace

class tst_verifica_reparo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void wellCatalogueIsCopiedWhole();
    void linksToWhatIsGoneAreTaken();
    void setlistIsNumberedWithoutEmptyPlaces();
    void songsWithoutThemeGetOne();
    void themesOfOneNameAreJoined();
    void fixedRowsComeBack();
    void missingTableAndColumnComeBack();
    void identifiersAreNotGivenTwice();
    void whatOnlyTheUserCanDecideStays();
    void lostPageCostsItsOwnRowsAlone();
    void longTextOnALostPageLeavesTheRestOfItsSong();
    void cutFileIsRescuedUpToTheCut();
    void destroyedIndexIsMadeAgain();
    void flippedBytesNeverCrash();
    void nothingLegibleIsNotDone();
    void simulationWritesNothing();
    void nothingIsOverwrittenWithoutForce();
    void theCatalogueItselfIsNeverTheNewOne();
    void placesThatTakeNoFileAreTold_data();
    void placesThatTakeNoFileAreTold();
    void restOfAnInterruptedWriteIsKeptAwayFrom();

private:
    Outcome Repair(const QString& catalogue, const QStringList& options = {}) const
    {
        return RunTool(Tool, QStringList{catalogue, u"--reparar"_qs, m_new} + options);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_new;
};

void tst_verifica_reparo::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_new = m_folder->filePath(u"novo.mdb"_qs);
}

void tst_verifica_reparo::wellCatalogueIsCopiedWhole()
{
    const TestCatalogue catalogue;
    TestSong song;
    song.text = QString();
    song.text2 = u""_qs;
    song.category = std::nullopt;
    song.count = 41;
    const qint64 odd = catalogue.AddSong(song);
    const qint64 other = catalogue.AddSong(u"D'Ávila \"x\" \U0001F3B5"_qs);
    const qint64 second = catalogue.AddTheme(u"Páscoa"_qs);
    const qint64 first = catalogue.AddTheme(u"Natal"_qs, 7);
    catalogue.Link(other, first);
    catalogue.Link(other, second);
    catalogue.Link(odd, second);
    catalogue.AddSetlist(u"Missa"_qs, QDate(2026, 1, 2), {other, odd, other});
    catalogue.AddSetlist(u"Sem data"_qs, {});
    const Outcome outcome = Repair(catalogue.Path());
    QCOMPARE(Everything(m_new), Everything(catalogue.Path()));
    // The song without a text is told, and stays.
    QVERIFY2(
        outcome.out.contains(u"\nNo catálogo novo continua como estava:\n- Músicas sem letra: 1"),
        qPrintable(outcome.out + outcome.err));
    QCOMPARE(outcome.code, 1);
    QCOMPARE(PlainSqlite(m_new).Rows(u"PRAGMA page_size"_qs).first().first(), u"16384"_qs);
}

void tst_verifica_reparo::linksToWhatIsGoneAreTaken()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"Luar"_qs);
    catalogue.AddTheme(u"Natal"_qs);
    catalogue.Link(1, 1);
    const QStringList before = Everything(catalogue.Path());
    catalogue.Run(u"INSERT INTO TEMA_MUSICA VALUES (1, 1), (1, 9), (7, 1), (NULL, NULL);"
                  "INSERT INTO LISTA_MUSICA VALUES (3, 1, 0)"_qs);
    const Outcome outcome = Repair(catalogue.Path());
    QCOMPARE(Everything(m_new), before);
    QVERIFY2(
        outcome.out.contains(u"    ligações de temas com músicas que não existem retiradas: 2\n"
                             "    ligações de músicas com temas que não existem retiradas: 1\n"
                             "    ligações repetidas retiradas: 1\n"
                             "    lugares em listas que não existem retirados: 1\n"),
        qPrintable(outcome.out + outcome.err));
    QCOMPARE(outcome.code, 0);
    QCOMPARE(RunTool(Tool, {m_new}).code, 0);
}

void tst_verifica_reparo::setlistIsNumberedWithoutEmptyPlaces()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Natal"_qs);
    for (const char16_t* title : {u"Luar", u"Asa", u"Sol"})
        catalogue.Link(catalogue.AddSong(QString::fromUtf16(title)), 1);
    catalogue.AddSetlist(u"Missa"_qs, {}, {2, 9, 3, 9, 1});
    catalogue.AddSetlist(u"Outra"_qs, {}, {1, 2});
    // A numbering of its own that nothing is wrong with stays.
    catalogue.Run(u"UPDATE LISTA_MUSICA SET ORDEM = ORDEM + 5 WHERE ID_LISTA = 2"_qs);
    Repair(catalogue.Path());
    QCOMPARE(PlainSqlite(m_new).Rows(u"SELECT ID_LISTA, ID_MUSICA, ORDEM FROM LISTA_MUSICA "
                                     "ORDER BY ID_LISTA, ORDEM"_qs),
             (QList<QStringList>{{u"1"_qs, u"2"_qs, u"0"_qs},
                                 {u"1"_qs, u"3"_qs, u"1"_qs},
                                 {u"1"_qs, u"1"_qs, u"2"_qs},
                                 {u"2"_qs, u"1"_qs, u"5"_qs},
                                 {u"2"_qs, u"2"_qs, u"6"_qs}}));
}

void tst_verifica_reparo::songsWithoutThemeGetOne()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"Luar"_qs);
    catalogue.AddSong(u"Asa"_qs);
    catalogue.AddTheme(u"Natal"_qs);
    catalogue.Link(2, 9);
    const Outcome outcome = Repair(catalogue.Path());
    QVERIFY(outcome.out.contains(u"    músicas sem tema postas em \"Sem Tema\": 2\n"));
    QCOMPARE(PlainSqlite(m_new).Rows(
                 u"SELECT ID_MUSICA, DESCRICAO, ORDEM, COR FROM TEMA_MUSICA JOIN TEMA "
                 "ON TEMA.ID = ID_TEMA ORDER BY ID_MUSICA"_qs),
             (QList<QStringList>{{u"1"_qs, u"Sem Tema"_qs, u"3"_qs, u""_qs},
                                 {u"2"_qs, u"Sem Tema"_qs, u"3"_qs, u""_qs}}));
}

void tst_verifica_reparo::themesOfOneNameAreJoined()
{
    const TestCatalogue catalogue;
    for (const char16_t* title : {u"Luar", u"Asa", u"Sol"})
        catalogue.AddSong(QString::fromUtf16(title));
    for (const char16_t* name : {u"Natal", u"Sem Tema", u"Natal", u"natal", u"Sem Tema"})
        catalogue.AddTheme(QString::fromUtf16(name));
    catalogue.Link(1, 1);
    catalogue.Link(1, 3);
    catalogue.Link(2, 5);
    catalogue.Link(3, 4);
    const Outcome outcome = Repair(catalogue.Path());
    QVERIFY2(outcome.out.contains(u"    temas juntados a outro com o mesmo nome: 2\n"
                                  "    ligações repetidas retiradas: 1\n"_qs),
             qPrintable(outcome.out + outcome.err));
    QCOMPARE(PlainSqlite(m_new).Rows(u"SELECT DESCRICAO FROM TEMA ORDER BY ID"_qs),
             (QList<QStringList>{{u"Natal"_qs}, {u"Sem Tema"_qs}, {u"natal"_qs}}));
    QCOMPARE(PlainSqlite(m_new).Rows(u"SELECT * FROM TEMA_MUSICA ORDER BY ID_MUSICA"_qs),
             (QList<QStringList>{{u"1"_qs, u"1"_qs}, {u"2"_qs, u"2"_qs}, {u"3"_qs, u"4"_qs}}));
    QCOMPARE(outcome.code, 0);
}

void tst_verifica_reparo::fixedRowsComeBack()
{
    const TestCatalogue catalogue;
    const QStringList before = Everything(catalogue.Path());
    catalogue.Run(u"DELETE FROM TOM WHERE ID > 3; DELETE FROM VARIACAO"_qs);
    const Outcome outcome = Repair(catalogue.Path());
    QCOMPARE(Everything(m_new), before);
    QVERIFY(outcome.out.contains(u"as doze notas postas de novo"));
    QCOMPARE(outcome.code, 0);
}

void tst_verifica_reparo::missingTableAndColumnComeBack()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Natal"_qs);
    catalogue.Link(catalogue.AddSong(u"Luar"_qs), 1);
    catalogue.Run(u"DROP TABLE LISTA; DROP INDEX MUSICA_LISTAGEM; "
                  "ALTER TABLE MUSICA DROP COLUMN CONTADOR"_qs);
    const Outcome outcome = Repair(catalogue.Path());
    QVERIFY2(outcome.out.contains(u"Perdido: 1\n    tabela LISTA criada de novo\n"),
             qPrintable(outcome.out));
    QCOMPARE(outcome.code, 1);
    QCOMPARE(PlainSqlite(m_new).Rows(u"SELECT TITULO, CONTADOR FROM MUSICA"_qs),
             (QList<QStringList>{{u"Luar"_qs, u"0"_qs}}));
    QCOMPARE(RunTool(Tool, {m_new}).code, 0);
}

void tst_verifica_reparo::identifiersAreNotGivenTwice()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Natal"_qs);
    for (int i = 0; i < 5; ++i)
        catalogue.Link(catalogue.AddSong(u"Música %1"_qs.arg(i)), 1);
    catalogue.Run(u"DELETE FROM MUSICA WHERE ID > 2"_qs);
    Repair(catalogue.Path());
    PlainSqlite repaired(m_new);
    repaired.Run("INSERT INTO MUSICA (TITULO) VALUES ('x')");
    QCOMPARE(repaired.LastId(), 6);
}

void tst_verifica_reparo::whatOnlyTheUserCanDecideStays()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Natal"_qs);
    catalogue.Link(catalogue.AddSong(u"Luar"_qs), 1);
    catalogue.Link(catalogue.AddSong(u"LUAR"_qs), 1);
    const Outcome outcome = Repair(catalogue.Path());
    QCOMPARE(Everything(m_new), Everything(catalogue.Path()));
    QVERIFY(outcome.out.contains(u"- Músicas parecidas: 1\n"));
    QCOMPARE(outcome.code, 1);
}

void tst_verifica_reparo::lostPageCostsItsOwnRowsAlone()
{
    const Large catalogue;
    const QStringList before = Everything(catalogue.Path());
    QByteArray bytes = Content(catalogue.Path());
    const QString text = catalogue.Field(u"SELECT MUSICA FROM MUSICA WHERE ID = 77"_qs);
    const qsizetype page = Large::PageOf(bytes, text.toUtf8().left(200));
    QVERIFY(page > 0);
    bytes.replace(page * Large::PageSize, Large::PageSize, QByteArray(Large::PageSize, '\xA5'));
    Write(catalogue.Path(), bytes);
    const Outcome outcome = Repair(catalogue.Path());
    QCOMPARE(outcome.code, 1);

    PlainSqlite repaired(m_new);
    QList<int> gone;
    for (int id = 1; id <= Large::Songs; ++id) {
        if (repaired.Rows(u"SELECT 1 FROM MUSICA WHERE ID = ?"_qs, {id}).isEmpty())
            gone.append(id);
    }
    QVERIFY(gone.contains(77));
    QVERIFY2(gone.size() < 20, qPrintable(QString::number(gone.size())));
    QCOMPARE(gone.last() - gone.first() + 1, gone.size());
    QVERIFY2(outcome.out.contains(u"músicas: não foi possível ler as que havia entre os números %1 "
                                  "e %2\n"_qs.arg(gone.first())
                                      .arg(gone.last())),
             qPrintable(outcome.out));
    // The index still knows what they were called.
    QVERIFY2(outcome.out.contains(u"    música perdida: 77 \"Título 77\" ("),
             qPrintable(outcome.out));
    // All others are as before.
    const QStringList after = Everything(m_new);
    for (const QString& row : after)
        QVERIFY2(before.contains(row), qPrintable(row.left(100)));
    QCOMPARE(after.size(), before.size() - 2 * gone.size());
    QVERIFY(RunTool(Tool, {m_new}).code == 0);
}

void tst_verifica_reparo::longTextOnALostPageLeavesTheRestOfItsSong()
{
    const Large catalogue;
    QByteArray bytes = Content(catalogue.Path());
    // A page in the chain of the long text, made to lead nowhere.
    const qsizetype page = Large::PageOf(bytes, QString(4000, u'ã').toUtf8()) + 2;
    bytes.replace(page * Large::PageSize, 4, QByteArray("\x7F\xFF\xFF\xFF", 4));
    Write(catalogue.Path(), bytes);
    const Outcome outcome = Repair(catalogue.Path());
    QVERIFY2(outcome.out.contains(u"    músicas: da de número 200 só uma parte pôde ser lida\n"_qs),
             qPrintable(outcome.out + outcome.err));
    PlainSqlite repaired(m_new);
    QCOMPARE(repaired.Rows(u"SELECT COUNT(*), COUNT(MUSICA) FROM MUSICA"_qs).first(),
             (QStringList{QString::number(Large::Songs), QString::number(Large::Songs - 1)}));
    QCOMPARE(repaired.Rows(u"SELECT TITULO FROM MUSICA WHERE ID = 200"_qs).first().first(),
             u"Título 200"_qs);
}

void tst_verifica_reparo::cutFileIsRescuedUpToTheCut()
{
    const Large catalogue;
    QByteArray bytes = Content(catalogue.Path());
    bytes.truncate(bytes.size() / 2 + 777);
    Write(catalogue.Path(), bytes);
    const Outcome outcome = Repair(catalogue.Path());
    QCOMPARE(outcome.code, 1);
    const int kept =
        PlainSqlite(m_new).Rows(u"SELECT COUNT(*) FROM MUSICA"_qs).first().first().toInt();
    QVERIFY2(kept > Large::Songs / 4 && kept < Large::Songs, qPrintable(outcome.out));
    QVERIFY(outcome.out.contains(u"Perdido: "));
}

void tst_verifica_reparo::destroyedIndexIsMadeAgain()
{
    const TestCatalogue catalogue;
    catalogue.AddTheme(u"Natal"_qs);
    for (int i = 0; i < 30; ++i)
        catalogue.Link(catalogue.AddSong(u"Música %1"_qs.arg(i)), 1);
    catalogue.Run(u"UPDATE MUSICA SET MUSICA = 'Letra ' || ID * ID * 7919 || hex(ID * 31)"_qs);
    const QStringList before = Everything(catalogue.Path());
    const int root =
        catalogue.Field(u"SELECT rootpage FROM sqlite_master WHERE name = 'MUSICA_LISTAGEM'"_qs)
            .toInt();
    QByteArray bytes = Content(catalogue.Path());
    bytes.replace((root - 1) * Large::PageSize, Large::PageSize, QByteArray(Large::PageSize, '\0'));
    Write(catalogue.Path(), bytes);
    QCOMPARE(RunTool(Tool, {catalogue.Path()}).code, 1);
    const Outcome outcome = Repair(catalogue.Path());
    QVERIFY2(!outcome.out.contains(u"Perdido"), qPrintable(outcome.out));
    QCOMPARE(Everything(m_new), before);
}

/// Any byte may be any other. Whatever comes of it, the command ends with one of its three codes,
/// and a new catalogue is there exactly when it says so and is one itself.
void tst_verifica_reparo::flippedBytesNeverCrash()
{
    const Large catalogue;
    const QByteArray bytes = Content(catalogue.Path());
    std::uint64_t state = 2026;
    const auto below = [&state](qsizetype limit) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<qsizetype>((state >> 33U) % static_cast<std::uint64_t>(limit));
    };
    int repaired = 0;
    constexpr int Rounds = 30;
    for (int round = 0; round < Rounds; ++round) {
        QByteArray damaged = bytes;
        for (int i = 0; i < 1 + round; ++i) {
            // Every other one where it hurts: in the heads of pages.
            const qsizetype page = below(bytes.size() / Large::PageSize);
            const qsizetype place =
                i % 2 == 0 ? page * Large::PageSize + below(64) : below(bytes.size());
            damaged[place] = static_cast<char>(below(256));
        }
        Write(catalogue.Path(), damaged);
        QFile::remove(m_new);
        const Outcome outcome = Repair(catalogue.Path());
        QVERIFY2(outcome.code >= 0 && outcome.code <= 2, qPrintable(QString::number(round)));
        QCOMPARE(QFile::exists(m_new), outcome.code < 2);
        QCOMPARE(Content(catalogue.Path()), damaged);
        if (outcome.code == 2)
            continue;
        ++repaired;
        QCOMPARE(PlainSqlite(m_new).Rows(u"PRAGMA integrity_check"_qs).first().first(), u"ok"_qs);
    }
    QVERIFY2(repaired > Rounds / 2, qPrintable(QString::number(repaired)));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), QFile::exists(m_new) ? 1 : 0);
}

void tst_verifica_reparo::nothingLegibleIsNotDone()
{
    const Large catalogue;
    QByteArray bytes = Content(catalogue.Path());
    bytes.replace(100, bytes.size() - 100, QByteArray(bytes.size() - 100, '\x5A'));
    Write(catalogue.Path(), bytes);
    const Outcome outcome = Repair(catalogue.Path());
    QVERIFY2(outcome.err.contains(u"Nada do que há no arquivo pôde ser lido."),
             qPrintable(outcome.out + outcome.err));
    QCOMPARE(outcome.code, 2);
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void tst_verifica_reparo::simulationWritesNothing()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"Luar"_qs);
    const Outcome outcome = Repair(catalogue.Path(), {u"--simular"_qs});
    QVERIFY2(outcome.out.contains(u"\nSeria escrito: %1, com 1 música(s), 1 tema(s), 0 lista(s)\n"
                                  "    músicas sem tema postas em \"Sem Tema\": 1\n"
                                  "Simulação: nada foi escrito.\n"_qs.arg(m_new)),
             qPrintable(outcome.out));
    QVERIFY(QDir(m_folder->path()).isEmpty());
    QCOMPARE(outcome.code, 0);
}

void tst_verifica_reparo::nothingIsOverwrittenWithoutForce()
{
    const TestCatalogue catalogue;
    Write(m_new, "dear");
    const Outcome refused = Repair(catalogue.Path());
    QCOMPARE(refused.code, 2);
    QVERIFY2(refused.err.contains(m_new + u": o arquivo já existe; --force o substitui"),
             qPrintable(refused.err));
    QCOMPARE(Content(m_new), QByteArray("dear"));
    QCOMPARE(Repair(catalogue.Path(), {u"--force"_qs}).code, 0);
    QCOMPARE(Everything(m_new), Everything(catalogue.Path()));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{u"novo.mdb"_qs});
}

void tst_verifica_reparo::theCatalogueItselfIsNeverTheNewOne()
{
    const TestCatalogue catalogue;
    const QByteArray before = Content(catalogue.Path());
    QVERIFY(QFile::link(catalogue.Path(), m_new));
    for (const QString& path : {catalogue.Path(), m_new}) {
        const Outcome outcome =
            RunTool(Tool, {catalogue.Path(), u"--reparar"_qs, path, u"--force"_qs});
        QVERIFY2(outcome.err.contains(u"é o próprio catálogo"), qPrintable(outcome.err));
        QCOMPARE(outcome.code, 2);
        QCOMPARE(Content(catalogue.Path()), before);
    }
}

void tst_verifica_reparo::placesThatTakeNoFileAreTold_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("told");
    QTest::newRow("folder") << u"/"_qs
                            << u"/: é uma pasta; o catálogo novo precisa de um nome de arquivo"_qs;
    QTest::newRow("device") << u"/dev/null"_qs
                            << u"/dev/null: não é um arquivo comum; escolha outro nome"_qs;
    QTest::newRow("no folder") << u"/nada/novo.mdb"_qs << u"/nada: a pasta não existe"_qs;
    const QString lengthy = QDir::tempPath() + u'/' + QString(300, u'a');
    QTest::newRow("name that no disk takes")
        << lengthy << lengthy + u": não foi possível criar o arquivo (o nome é longo demais)";
}

void tst_verifica_reparo::placesThatTakeNoFileAreTold()
{
    QFETCH(QString, path);
    QFETCH(QString, told);
    const TestCatalogue catalogue;
    const Outcome outcome = RunTool(Tool, {catalogue.Path(), u"--force"_qs, u"--reparar"_qs, path});
    QCOMPARE(outcome.err, told + u'\n');
    QCOMPARE(outcome.code, 2);
    QVERIFY(!QFileInfo(u"/dev/null"_qs).isFile());
}

void tst_verifica_reparo::restOfAnInterruptedWriteIsKeptAwayFrom()
{
    const TestCatalogue catalogue;
    for (const QString& rest : {u"-journal"_qs, u"-wal"_qs, u"-shm"_qs}) {
        Write(m_new + rest, "rest");
        const Outcome outcome = Repair(catalogue.Path());
        QVERIFY2(outcome.err.contains(
                     QString(u"novo.mdb"_qs + rest + u": é de uma gravação interrompida")),
                 qPrintable(outcome.err));
        QCOMPARE(outcome.code, 2);
        QVERIFY(!QFile::exists(m_new));
        QVERIFY(QFile::remove(m_new + rest));
    }
}

QTEST_GUILESS_MAIN(tst_verifica_reparo)

#include "tst_verifica_reparo.moc"
