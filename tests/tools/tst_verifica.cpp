#include "ToolRun.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

// What melodario-verifica says of catalogues, by the real program.

namespace {

const QString Tool = QStringLiteral(MELODARIO_VERIFICA);
const QString Delivered = QStringLiteral(MELODARIO_DELIVERED);

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

/// Two songs, two themes and a setlist, with nothing wrong.
struct Tidy : TestCatalogue
{
    Tidy()
    {
        AddTheme(u"Natal"_qs);
        AddTheme(u"Páscoa"_qs);
        TestSong song;
        song.title = u"Asa Branca"_qs;
        song.text = u"G\r\nQuando olhei a terra"_qs;
        AddSong(song);
        song.title = u"Luar"_qs;
        song.text = u"C\r\nNão há luar como esse"_qs;
        AddSong(song);
        Link(1, 1);
        Link(2, 2);
        AddSetlist(u"Missa"_qs, QDate(2026, 11, 21), {2, 1});
    }
};

} // namespace

class tst_verifica : public QObject
{
    Q_OBJECT

private slots:
    void tidyCatalogueIsWell();
    void deliveredCatalogueIsWell();
    void everyFindingIsTold_data();
    void everyFindingIsTold();
    void casesAreToldUpToTwenty();
    void likesAreToldWithTheirTitles();
    void hostileTextsAreQuotedShort_data();
    void hostileTextsAreQuotedShort();
    void catalogueIsNeverChanged();
    void whatIsNoCatalogueIsNotDone_data();
    void whatIsNoCatalogueIsNotDone();
    void interruptedWriteIsNotUndone();
    void damageIsTold();
    void catalogueThroughAPipe();
    void closedInputIsTold();
    void nameWithALineFeedStaysOnItsLine();
    void fullDiskBehindTheOutputIsTold();
    void fullDiskUnderTheNewCatalogueIsTold();
    void helpIsPortuguese();
    void wrongUse_data();
    void wrongUse();
};

void tst_verifica::tidyCatalogueIsWell()
{
    const Tidy catalogue;
    const Outcome outcome = RunTool(Tool, {catalogue.Path()});
    QCOMPARE(outcome.out,
             catalogue.Path() + u": 2 música(s), 2 tema(s), 1 lista(s)\nTudo em ordem.\n");
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
}

void tst_verifica::deliveredCatalogueIsWell()
{
    const Outcome outcome = RunTool(Tool, {Delivered});
    QVERIFY2(outcome.out.endsWith(u"Tudo em ordem.\n"_qs), qPrintable(outcome.out));
    QCOMPARE(outcome.code, 0);
}

void tst_verifica::everyFindingIsTold_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("told");

    QTest::newRow("theme link without its song")
        << u"INSERT INTO TEMA_MUSICA VALUES (77, 1)"_qs
        << u"* Ligações de temas com músicas que não existem: 1\n    música 77, tema \"Natal\"\n"_qs;
    QTest::newRow("theme link of nothing")
        << u"INSERT INTO TEMA_MUSICA VALUES (NULL, NULL)"_qs
        << u"* Ligações de temas com músicas que não existem: 1\n    música (nenhuma), tema"_qs;
    QTest::newRow("link without its theme")
        << u"INSERT INTO TEMA_MUSICA VALUES (1, 9)"_qs
        << u"* Ligações de músicas com temas que não existem: 1\n"
           "    1 \"Asa Branca\" (Anônimo), tema 9\n"_qs;
    QTest::newRow("link twice") << u"INSERT INTO TEMA_MUSICA VALUES (1, 1)"_qs
                                << u"* Ligações repetidas de uma música com um tema: 1\n"
                                   "    1 \"Asa Branca\" (Anônimo), tema \"Natal\", 2 vezes\n"_qs;
    QTest::newRow("place without its song")
        << u"INSERT INTO LISTA_MUSICA VALUES (1, 5, 2)"_qs
        << u"* Lugares em listas com músicas que não existem: 1\n"
           "    lista \"Missa\", lugar 3, música 5\n"_qs;
    QTest::newRow("place without its setlist")
        << u"INSERT INTO LISTA_MUSICA VALUES (8, 1, 0)"_qs
        << u"* Lugares em listas que não existem: 1\n    lista 8, lugar 1\n"_qs;
    QTest::newRow("song without a theme")
        << u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 2"_qs
        << u"* Músicas sem tema: 1\n    2 \"Luar\" (Anônimo)\n"_qs;
    QTest::newRow("song without a title") << u"UPDATE MUSICA SET TITULO = ' ' WHERE ID = 1"_qs
                                          << u"- Músicas sem título: 1\n    1 \"\" (Anônimo)\n"_qs;
    QTest::newRow("song without a text")
        << u"UPDATE MUSICA SET MUSICA = NULL, MUSICA2 = char(13, 10) WHERE ID = 1"_qs
        << u"- Músicas sem letra: 1\n    1 \"Asa Branca\" (Anônimo)\n"_qs;
    QTest::newRow("song in a key that is none")
        << u"UPDATE MUSICA SET TOM = 'H' WHERE ID = 1"_qs
        << u"- Músicas com um tom que não existe: 1\n    1 \"Asa Branca\" (Anônimo), tom \"H\"\n"_qs;
    QTest::newRow("theme without a name") << u"UPDATE TEMA SET DESCRICAO = '' WHERE ID = 1"_qs
                                          << u"- Temas sem nome: 1\n    tema 1\n"_qs;
    QTest::newRow("theme twice") << u"UPDATE TEMA SET DESCRICAO = 'Natal'"_qs
                                 << u"* Temas com o mesmo nome: 1\n    \"Natal\", 2 vezes\n"_qs;
    QTest::newRow("thirteen notes")
        << u"INSERT INTO TOM (NOTA, ORDEM, MAIS) VALUES ('H', 13, 'H')"_qs
        << u"* Faltam linhas com que o programa conta: 1\n"
           "    a tabela TOM não tem exatamente doze notas\n"_qs;
    QTest::newRow("no empty variation")
        << u"DELETE FROM VARIACAO WHERE NOMENCLATURA = ''"_qs
        << u"* Faltam linhas com que o programa conta: 1\n"
           "    a tabela VARIACAO não tem exatamente uma linha vazia\n"_qs;
    QTest::newRow("table gone")
        << u"DROP TABLE LISTA_MUSICA"_qs
        << u"* Faltam tabelas ou colunas de que o programa precisa: 1\n    tabela LISTA_MUSICA\n"_qs;
    QTest::newRow("column gone")
        << u"ALTER TABLE TEMA DROP COLUMN COR"_qs
        << u"* Faltam tabelas ou colunas de que o programa precisa: 1\n    coluna TEMA.COR\n"_qs;
}

void tst_verifica::everyFindingIsTold()
{
    QFETCH(QString, change);
    QFETCH(QString, told);
    const Tidy catalogue;
    catalogue.Run(change);
    const Outcome outcome = RunTool(Tool, {catalogue.Path()});
    QVERIFY2(outcome.out.contains(told), qPrintable(outcome.out + outcome.err));
    QVERIFY2(outcome.out.contains(u"\nNada foi alterado."), qPrintable(outcome.out));
    QCOMPARE(outcome.out.contains(u"--reparar NOVO cuida do que está marcado com *."),
             told.startsWith(u'*'));
    QCOMPARE(outcome.out.count(u"\n* "_qs) + outcome.out.count(u"\n- "_qs), 1);
    QCOMPARE(outcome.code, 1);
}

void tst_verifica::casesAreToldUpToTwenty()
{
    const Tidy catalogue;
    for (int i = 0; i < 25; ++i)
        catalogue.Run(u"INSERT INTO TEMA_MUSICA VALUES (%1, 1)"_qs.arg(100 + i));
    const Outcome few = RunTool(Tool, {catalogue.Path()});
    QVERIFY(few.out.contains(u"música 119,") && !few.out.contains(u"música 120,"));
    QVERIFY(few.out.contains(u"    e mais 5 (--tudo mostra todos)\n"));
    const Outcome all = RunTool(Tool, {u"--tudo"_qs, catalogue.Path()});
    QVERIFY(all.out.contains(u"música 124,") && !all.out.contains(u"e mais"));
}

void tst_verifica::likesAreToldWithTheirTitles()
{
    const Tidy catalogue;
    TestSong copy;
    copy.title = u"ASA BRANCA"_qs;
    copy.reference = u"Luiz"_qs;
    copy.text = u"D A\r\nquando olhei a térra!\r\n"_qs;
    catalogue.Link(catalogue.AddSong(copy), 1);
    const Outcome outcome = RunTool(Tool, {catalogue.Path()});
    QVERIFY2(
        outcome.out.contains(u"- Músicas parecidas: 1\n    iguais: 1 \"Asa Branca\" (Anônimo); "
                             "3 \"ASA BRANCA\" (Luiz)\n"),
        qPrintable(outcome.out));
    QCOMPARE(outcome.code, 1);
}

void tst_verifica::hostileTextsAreQuotedShort_data()
{
    QTest::addColumn<QString>("change");

    const QString hostile = u"char(27) || '[2J' || char(10) || char(7) || char(8238) || "
                            "replace(hex(zeroblob(50000)), '0', 'á')"_qs;
    QTest::newRow("title") << u"UPDATE MUSICA SET TITULO = %1 WHERE ID = 2; "
                              "DELETE FROM TEMA_MUSICA"_qs.arg(hostile);
    QTest::newRow("reference") << u"UPDATE MUSICA SET REFERENCIA = %1; "
                                  "DELETE FROM TEMA_MUSICA"_qs.arg(hostile);
    QTest::newRow("key") << u"UPDATE MUSICA SET TOM = %1"_qs.arg(hostile);
    QTest::newRow("theme without its song")
        << u"UPDATE TEMA SET DESCRICAO = %1; INSERT INTO TEMA_MUSICA VALUES (77, 1)"_qs.arg(
               hostile);
    QTest::newRow("themes of one name") << u"UPDATE TEMA SET DESCRICAO = %1"_qs.arg(hostile);
    QTest::newRow("link twice") << u"UPDATE TEMA SET DESCRICAO = %1 WHERE ID = 1; "
                                   "INSERT INTO TEMA_MUSICA VALUES (1, 1)"_qs.arg(hostile);
    QTest::newRow("setlist") << u"UPDATE LISTA SET NOME = %1; "
                                "INSERT INTO LISTA_MUSICA VALUES (1, 5, 2)"_qs.arg(hostile);
    QTest::newRow("number of a song that is a text")
        << u"INSERT INTO TEMA_MUSICA VALUES (%1, 1)"_qs.arg(hostile);
    QTest::newRow("look-alikes")
        << u"UPDATE MUSICA SET TITULO = %1, MUSICA = 'Quando olhei a terra ardendo'"_qs.arg(
               hostile);
}

/// A title may be as long as a book, and may hold what moves the cursor of a terminal.
void tst_verifica::hostileTextsAreQuotedShort()
{
    QFETCH(QString, change);
    const Tidy catalogue;
    catalogue.Run(change);
    const Outcome outcome = RunTool(Tool, {catalogue.Path()});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.out.contains(u"ááá…"), qPrintable(outcome.out.left(2000)));
    for (const QString& line : outcome.out.split(u'\n')) {
        QVERIFY2(line.size() < 400, qPrintable(line.left(400)));
        for (const QChar sign : line)
            QVERIFY2(sign.isPrint(), qPrintable(line));
    }
}

void tst_verifica::catalogueIsNeverChanged()
{
    const Tidy catalogue;
    catalogue.Run(u"INSERT INTO TEMA_MUSICA VALUES (77, 1)"_qs);
    const QByteArray before = Content(catalogue.Path());
    RunTool(Tool, {catalogue.Path()});
    RunTool(Tool, {catalogue.Path(), u"--reparar"_qs, catalogue.Folder() + u"/novo.mdb"});
    QCOMPARE(Content(catalogue.Path()), before);
    QCOMPARE(QDir(catalogue.Folder()).entryList(QDir::Files),
             (QStringList{u"Melodario.mdb"_qs, u"novo.mdb"_qs}));
}

void tst_verifica::whatIsNoCatalogueIsNotDone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("told");

    QByteArray jet(4096, '\0');
    jet.replace(0, 19, QByteArray("\x00\x01\x00\x00Standard Jet DB", 19));
    QTest::newRow("older format") << jet << u"formato antigo"_qs;
    QTest::newRow("empty") << QByteArray() << u"está vazio"_qs;
    QTest::newRow("text") << QByteArray("Asa Branca\n").repeated(40)
                          << u"não é um banco de dados do Melodario"_qs;
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.db"_qs);
    PlainSqlite(path).Run("CREATE TABLE CONTAS (ID INTEGER)");
    QTest::newRow("another program's database")
        << Content(path) << u"não é um banco de dados do Melodario"_qs;
}

void tst_verifica::whatIsNoCatalogueIsNotDone()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    QTemporaryDir folder;
    const QString path = folder.filePath(u"a.mdb"_qs);
    Write(path, bytes);
    const Outcome outcome = RunTool(Tool, {path, u"--reparar"_qs, folder.filePath(u"b.mdb"_qs)});
    QVERIFY2(outcome.err.startsWith(path) && outcome.err.contains(told), qPrintable(outcome.err));
    QCOMPARE(outcome.out, QString());
    QCOMPARE(outcome.code, 2);
    QVERIFY(!QFile::exists(folder.filePath(u"b.mdb"_qs)));
}

/// A journal that must be rolled back, as a power cut in the middle of a write leaves it.
void tst_verifica::interruptedWriteIsNotUndone()
{
    const Tidy catalogue;
    const QString copy = catalogue.Folder() + u"/copia.mdb";
    {
        PlainSqlite writer(catalogue.Path());
        writer.Run("PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN; "
                   "WITH N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 3000) "
                   "INSERT INTO MUSICA (TITULO, MUSICA) SELECT 'x', hex(zeroblob(1000)) FROM N");
        Write(copy, Content(catalogue.Path()));
        Write(copy + u"-journal", Content(catalogue.Path() + u"-journal"));
        writer.Run("ROLLBACK");
    }
    const QByteArray before = Content(copy);
    const Outcome outcome = RunTool(Tool, {copy});
    QVERIFY2(outcome.err.contains(u"Uma gravação foi interrompida no meio."),
             qPrintable(outcome.out + outcome.err));
    QCOMPARE(outcome.code, 2);
    QCOMPARE(Content(copy), before);
    QVERIFY(QFile::exists(copy + u"-journal"));
}

void tst_verifica::damageIsTold()
{
    const Tidy catalogue;
    QByteArray bytes = Content(catalogue.Path());
    bytes.chop(20'000);
    Write(catalogue.Path(), bytes);
    const Outcome outcome = RunTool(Tool, {catalogue.Path()});
    QVERIFY2(outcome.out.contains(u"* O arquivo está danificado"), qPrintable(outcome.out));
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 1);
}

void tst_verifica::catalogueThroughAPipe()
{
    const Tidy catalogue;
    const QByteArray bytes = Content(catalogue.Path());
    const Outcome outcome = RunTool(Tool, {u"-"_qs}, bytes);
    QCOMPARE(outcome.out, u"-: 2 música(s), 2 tema(s), 1 lista(s)\nTudo em ordem.\n"_qs);
    QCOMPARE(outcome.code, 0);

    const Outcome repaired = RunTool(Tool, {u"-"_qs, u"--reparar"_qs, u"-"_qs}, bytes);
    QCOMPARE(repaired.code, 0);
    const QString path = catalogue.Folder() + u"/novo.mdb";
    Write(path, repaired.raw);
    QCOMPARE(RunTool(Tool, {path}).code, 0);
}

void tst_verifica::closedInputIsTold()
{
    for (const QString& input : {u"<&-"_qs, u"</"_qs}) {
        const Outcome outcome = RunTool(u"/bin/sh"_qs, {u"-c"_qs, u"exec \"$0\" - " + input, Tool});
        QCOMPARE(outcome.err, u"a entrada padrão não pode ser lida\n"_qs);
        QCOMPARE(outcome.code, 2);
    }
}

void tst_verifica::nameWithALineFeedStaysOnItsLine()
{
    const Tidy catalogue;
    const QString path = catalogue.Folder() + u"/a\n\u001b[2Jb.mdb";
    QVERIFY(QFile::copy(catalogue.Path(), path));
    const Outcome outcome = RunTool(Tool, {path});
    QVERIFY2(outcome.out.startsWith(catalogue.Folder() + u"/a??[2Jb.mdb: 2 música(s)"),
             qPrintable(outcome.out));
    QCOMPARE(RunTool(Tool, {path + u'x'}).err,
             catalogue.Folder() + u"/a??[2Jb.mdbx: O arquivo do banco de dados não existe.\n");
}

void tst_verifica::fullDiskBehindTheOutputIsTold()
{
    const Tidy catalogue;
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_qs);
    process.start(Tool, {catalogue.Path()});
    QVERIFY(process.waitForFinished());
    QCOMPARE(QString::fromUtf8(process.readAllStandardError()),
             u"não foi possível escrever na saída padrão\n"_qs);
    QCOMPARE(process.exitCode(), 2);
}

/// The system takes no file of more than a few kilobytes.
void tst_verifica::fullDiskUnderTheNewCatalogueIsTold()
{
    const Tidy catalogue;
    const Outcome outcome = RunTool(
        u"/bin/sh"_qs, {u"-c"_qs, u"trap '' XFSZ; ulimit -f 8; exec \"$@\""_qs, u"sh"_qs, Tool,
                        catalogue.Path(), u"--reparar"_qs, catalogue.Folder() + u"/novo.mdb"});
    QCOMPARE(outcome.code, 2);
    QCOMPARE(outcome.err, catalogue.Path() + u": o catálogo novo não pôde ser feito: O arquivo do "
                                             "banco de dados não pode ser lido ou gravado.\n");
    QCOMPARE(QDir(catalogue.Folder()).entryList(QDir::Files), QStringList{u"Melodario.mdb"_qs});
}

void tst_verifica::helpIsPortuguese()
{
    const Outcome outcome = RunTool(Tool, {u"--help"_qs});
    QVERIFY(outcome.out.startsWith(u"Uso: melodario-verifica [OPÇÕES] CATALOGO\n"));
    for (const char* option : {"--reparar", "--simular", "--force", "--tudo", "--help"})
        QVERIFY2(outcome.out.contains(QLatin1String(option)), option);
    QCOMPARE(outcome.code, 0);
}

void tst_verifica::wrongUse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("told");

    QTest::newRow("nothing") << QStringList() << u"falta o catálogo"_qs;
    QTest::newRow("two catalogues")
        << QStringList{u"a"_qs, u"b"_qs} << u"só um catálogo de cada vez: b"_qs;
    QTest::newRow("unknown option")
        << QStringList{u"--conserta"_qs, u"a"_qs} << u"opção desconhecida: --conserta"_qs;
    QTest::newRow("repair without a name")
        << QStringList{u"a"_qs, u"--reparar"_qs} << u"--reparar precisa do nome"_qs;
    QTest::newRow("repair with an option in the place of the name")
        << QStringList{u"a"_qs, u"--reparar"_qs, u"--force"_qs} << u"--reparar precisa do nome"_qs;
    QTest::newRow("force without repair")
        << QStringList{u"a"_qs, u"--force"_qs}
        << u"--simular e --force só têm sentido com --reparar\n"_qs;
    QTest::newRow("no such file") << QStringList{u"/nada/a.mdb"_qs}
                                  << u"/nada/a.mdb: O arquivo do banco de dados não existe.\n"_qs;
    QTest::newRow("folder") << QStringList{u"/"_qs}
                            << u"/: O banco de dados é um arquivo, e isto é uma pasta.\n"_qs;
    QTest::newRow("device")
        << QStringList{u"/dev/null"_qs}
        << u"/dev/null: O banco de dados é um arquivo comum, e isto não é.\n"_qs;
    // A file that nobody can read, whatever his rights.
    QTest::newRow("unreadable")
        << QStringList{u"/proc/self/mem"_qs}
        << u"/proc/self/mem: O arquivo do banco de dados não pode ser lido: "
           "o disco não entrega o conteúdo.\n"_qs;
}

void tst_verifica::wrongUse()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, told);
    const Outcome outcome = RunTool(Tool, arguments);
    QVERIFY2(outcome.err.startsWith(told), qPrintable(outcome.err));
    // A whole help would push the reason out of a window.
    QVERIFY(arguments.isEmpty() || outcome.err.count(u'\n') <= 4);
    QCOMPARE(outcome.out, QString());
    QCOMPARE(outcome.code, 2);
}

QTEST_GUILESS_MAIN(tst_verifica)

#include "tst_verifica.moc"
