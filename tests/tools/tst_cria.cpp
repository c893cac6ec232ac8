#include "support/PlainSqlite.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The tool as a user meets it: the real program, its exit code, what it prints, what it leaves.

namespace {

const QString Tool = QStringLiteral(MELODARIO_CRIA);
const QString Data = QStringLiteral(MELODARIO_SOURCE_DIR "/data");

struct Outcome
{
    int code = -1;
    QString out;
    QString err;
};

Outcome RunTool(const QStringList& arguments)
{
    QProcess process;
    process.start(Tool, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

bool Write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

const QByteArray GoodSong = "# Um teste\n"
                            "TITULO: Teste\n"
                            "REFERENCIA: Ninguém\n"
                            "TOM: C\n"
                            "VARIACAO: m\n"
                            "CATEGORIA: Secular\n"
                            "TEMAS: Natal, Amor\n"
                            "\n"
                            "== MUSICA\n"
                            "\n"
                            "C   G7\n"
                            "Lá, lá\n"
                            "\n"
                            "== MUSICA2\n"
                            "G7\n"
                            "Lá\n"
                            "\n";

} // namespace

class TestCria : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void MadeCatalogueHasSevenTables();
    void MadeCatalogueHasTheTwelveSemitones();
    void MadeCatalogueHasItsThemes();
    void MadeCatalogueHasSongsOfBothCategories();
    void EverySongCanBeFoundAndPlayed();
    void LinesOfASongEndWithCrLf();
    void FileIsOrdinaryAndFitsLongScans();
    void NewRowsGoOnAfterTheDeliveredOnes();
    void SameDataMakeSameBytes();
    void BlankLinesAroundATextAreNotPartOfIt();
    void SeedsWithCrLfMakeTheSameCatalogue();
    void ExistingFileIsNotTouched();
    void WrongDataNameFileAndLine_data();
    void WrongDataNameFileAndLine();
    void MissingDataFolderIsNamed();
    void UnwritableOutputIsNamed();
    void WrongUseShowsTheHelp_data();
    void WrongUseShowsTheHelp();
    void HelpIsNoError();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }

    /// A small data folder with one song, to be spoiled.
    void MakeSmallData() const
    {
        QDir().mkpath(Path(u"data/songs"_qs));
        for (const QString& name : {u"schema.sql"_qs, u"fixed.sql"_qs})
            QVERIFY(QFile::copy(Data + u'/' + name, Path(u"data/"_qs + name)));
        QVERIFY(Write(Path(u"data/themes.txt"_qs), "# temas\n1 Natal\n1 Amor\n3 Sem Tema\n"));
        QVERIFY(Write(Path(u"data/songs/teste.txt"_qs), GoodSong));
    }

    /// The catalogue made from the delivered data.
    QString Delivered()
    {
        const QString path = Path(u"Melodario.mdb"_qs);
        const Outcome outcome = RunTool({u"--dados"_qs, Data, path});
        return outcome.code == 0 ? path : outcome.err;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestCria::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void TestCria::MadeCatalogueHasSevenTables()
{
    PlainSqlite db(Delivered());
    QStringList tables;
    for (const QStringList& row : db.Rows(
             u"SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' "
             u"ORDER BY name"_qs))
        tables += row.first();
    QCOMPARE(tables, QStringList({u"LISTA"_qs, u"LISTA_MUSICA"_qs, u"MUSICA"_qs, u"TEMA"_qs,
                                  u"TEMA_MUSICA"_qs, u"TOM"_qs, u"VARIACAO"_qs}));
    QCOMPARE(db.Rows(u"SELECT COUNT(*) FROM LISTA"_qs).first().first(), u"0"_qs);
}

void TestCria::MadeCatalogueHasTheTwelveSemitones()
{
    PlainSqlite db(Delivered());
    QStringList notes;
    QStringList others;
    for (const QStringList& row : db.Rows(u"SELECT NOTA, MAIS FROM TOM ORDER BY ORDEM"_qs)) {
        notes += row[0];
        others += row[1];
    }
    QCOMPARE(notes.join(u' '), u"C C# D D# E F F# G G# A A# B"_qs);
    QCOMPARE(others.join(u' '), u"C Db D Eb E F Gb G Ab A Bb B"_qs);
    const QList<QStringList> variations =
        db.Rows(u"SELECT ID, NOMENCLATURA FROM VARIACAO ORDER BY ID"_qs);
    QCOMPARE(variations, QList<QStringList>({{u"1"_qs, u""_qs}, {u"2"_qs, u"m"_qs}}));
}

void TestCria::MadeCatalogueHasItsThemes()
{
    PlainSqlite db(Delivered());
    QVERIFY(db.Rows(u"SELECT COUNT(*) FROM TEMA WHERE ORDEM = 1"_qs).first().first().toInt() >= 12);
    QCOMPARE(db.Rows(u"SELECT DESCRICAO FROM TEMA WHERE ORDEM <> 1"_qs),
             QList<QStringList>({{u"Sem Tema"_qs}}));
    QCOMPARE(db.Rows(u"SELECT DISTINCT ORDEM, COR FROM TEMA ORDER BY ORDEM"_qs),
             QList<QStringList>({{u"1"_qs, u""_qs}, {u"3"_qs, u""_qs}}));
}

void TestCria::MadeCatalogueHasSongsOfBothCategories()
{
    PlainSqlite db(Delivered());
    const QList<QStringList> counts =
        db.Rows(u"SELECT CATEGORIA, COUNT(*) FROM MUSICA GROUP BY CATEGORIA ORDER BY 1"_qs);
    QCOMPARE(counts.size(), 2);
    QCOMPARE(counts[0][0], u"1"_qs);
    QCOMPARE(counts[1][0], u"2"_qs);
    QVERIFY(counts[0][1].toInt() >= 3);
    QVERIFY(counts[1][1].toInt() >= 3);
    QVERIFY(counts[0][1].toInt() + counts[1][1].toInt() >= 12);
    const int second =
        db.Rows(u"SELECT COUNT(*) FROM MUSICA WHERE MUSICA2 <> ''"_qs).first().first().toInt();
    QVERIFY(second > 0 && second < counts[0][1].toInt() + counts[1][1].toInt());
}

void TestCria::EverySongCanBeFoundAndPlayed()
{
    PlainSqlite db(Delivered());
    const QString whole = u"SELECT COUNT(*) FROM MUSICA"_qs;
    QCOMPARE(db.Rows(whole +
                     u" WHERE TITULO <> '' AND REFERENCIA <> '' AND MUSICA <> ''"
                     u" AND MUSICA2 IS NOT NULL AND CONTADOR = 0"
                     u" AND TOM IN (SELECT NOTA FROM TOM)"
                     u" AND VARIACAO IN (SELECT NOMENCLATURA FROM VARIACAO)"
                     u" AND ID IN (SELECT ID_MUSICA FROM TEMA_MUSICA JOIN TEMA ON ID = ID_TEMA)"),
             db.Rows(whole));
    QCOMPARE(db.Rows(u"SELECT COUNT(*) FROM TEMA_MUSICA WHERE ID_MUSICA NOT IN (SELECT ID FROM "
                     u"MUSICA) OR ID_TEMA NOT IN (SELECT ID FROM TEMA)"_qs)
                 .first()
                 .first(),
             u"0"_qs);
    QCOMPARE(
        db.Rows(u"SELECT TOM || VARIACAO, CATEGORIA FROM MUSICA WHERE TITULO = 'Peixe Vivo'"_qs),
        QList<QStringList>({{u"G"_qs, u"2"_qs}}));
}

void TestCria::LinesOfASongEndWithCrLf()
{
    PlainSqlite db(Delivered());
    for (const QStringList& row : db.Rows(u"SELECT MUSICA, MUSICA2 FROM MUSICA"_qs)) {
        QVERIFY(row[0].contains(u"\r\n"));
        for (const QString& text : row) {
            QCOMPARE(text.count(u'\r'), text.count(u"\r\n"));
            QCOMPARE(text.count(u'\n'), text.count(u"\r\n"));
            QVERIFY(!text.startsWith(u'\r') && !text.endsWith(u'\n'));
        }
    }
}

void TestCria::FileIsOrdinaryAndFitsLongScans()
{
    PlainSqlite db(Delivered());
    QCOMPARE(db.Rows(u"PRAGMA page_size"_qs).first().first(), u"16384"_qs);
    QCOMPARE(db.Rows(u"PRAGMA encoding"_qs).first().first(), u"UTF-8"_qs);
    QCOMPARE(db.Rows(u"PRAGMA journal_mode"_qs).first().first(), u"delete"_qs);
    QCOMPARE(db.Rows(u"PRAGMA integrity_check"_qs).first().first(), u"ok"_qs);
    QCOMPARE(db.Rows(u"SELECT name FROM sqlite_master WHERE type IN ('trigger', 'view')"_qs).size(),
             0);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList({u"Melodario.mdb"_qs}));
}

void TestCria::NewRowsGoOnAfterTheDeliveredOnes()
{
    PlainSqlite db(Delivered());
    for (const QString& table : {u"MUSICA"_qs, u"TEMA"_qs, u"TOM"_qs, u"VARIACAO"_qs}) {
        QCOMPARE(db.Rows(u"SELECT seq FROM sqlite_sequence WHERE name = '"_qs + table + u"'"),
                 db.Rows(u"SELECT MAX(ID) FROM "_qs + table));
    }
    // The last identifier is not given out a second time.
    const qint64 last = db.Rows(u"SELECT MAX(ID) FROM MUSICA"_qs).first().first().toLongLong();
    db.Run("DELETE FROM MUSICA; INSERT INTO MUSICA (TITULO) VALUES ('Nova')");
    QCOMPARE(db.LastId(), last + 1);
}

void TestCria::SameDataMakeSameBytes()
{
    const QString other = Path(u"outro.mdb"_qs);
    QCOMPARE(RunTool({u"--dados"_qs, Data, other}).code, 0);
    QVERIFY(Content(other).size() > 16384);
    QCOMPARE(Content(Delivered()), Content(other));
}

void TestCria::BlankLinesAroundATextAreNotPartOfIt()
{
    MakeSmallData();
    const QString path = Path(u"novo.mdb"_qs);
    const Outcome outcome = RunTool({u"--dados"_qs, Path(u"data"_qs), path});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.out, path + u": 3 temas, 1 músicas\n");
    PlainSqlite db(path);
    QCOMPARE(db.Rows(u"SELECT * FROM MUSICA"_qs),
             QList<QStringList>({{u"1"_qs, u"Teste"_qs, u"Ninguém"_qs, u"C   G7\r\nLá, lá"_qs,
                                  u"G7\r\nLá"_qs, u"C"_qs, u"m"_qs, u"2"_qs, u"0"_qs}}));
    QCOMPARE(db.Rows(u"SELECT * FROM TEMA_MUSICA"_qs),
             QList<QStringList>({{u"1"_qs, u"1"_qs}, {u"1"_qs, u"2"_qs}}));
}

void TestCria::SeedsWithCrLfMakeTheSameCatalogue()
{
    MakeSmallData();
    QCOMPARE(RunTool({u"--dados"_qs, Path(u"data"_qs), Path(u"lf.mdb"_qs)}).code, 0);
    QVERIFY(Write(Path(u"data/songs/teste.txt"_qs), QByteArray(GoodSong).replace("\n", "\r\n")));
    QVERIFY(Write(Path(u"data/themes.txt"_qs), "1 Natal\r\n1 Amor\r\n3 Sem Tema\r\n"));
    QCOMPARE(RunTool({u"--dados"_qs, Path(u"data"_qs), Path(u"crlf.mdb"_qs)}).err, QString());
    QCOMPARE(Content(Path(u"crlf.mdb"_qs)), Content(Path(u"lf.mdb"_qs)));
}

void TestCria::ExistingFileIsNotTouched()
{
    const QString path = Path(u"Melodario.mdb"_qs);
    for (const QByteArray& content : {QByteArray(), QByteArray("meu repertório")}) {
        QVERIFY(Write(path, content));
        const Outcome outcome = RunTool({u"--dados"_qs, Data, path});
        QCOMPARE(outcome.code, 1);
        QCOMPARE(outcome.err, path + u": o arquivo já existe e não será substituído\n");
        QCOMPARE(Content(path), content);
    }
}

void TestCria::WrongDataNameFileAndLine_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("was");
    QTest::addColumn<QByteArray>("becomes");
    QTest::addColumn<QString>("message"); ///< after the file's path
    const QString song = u"songs/teste.txt"_qs;
    const QString themes = u"themes.txt"_qs;
    const QByteArray none;

    QTest::newRow("a key that no semitone has")
        << song << QByteArray("TOM: C") << QByteArray("TOM: H") << u":4: o tom \"H\" não existe"_qs;
    QTest::newRow("a key by its other name, which the entry form cannot choose")
        << song << QByteArray("TOM: C") << QByteArray("TOM: Db")
        << u":4: o tom \"Db\" não existe"_qs;
    QTest::newRow("an unknown variation")
        << song << QByteArray("VARIACAO: m") << QByteArray("VARIACAO: 7")
        << u":5: a variação \"7\" não existe"_qs;
    QTest::newRow("an unknown category")
        << song << QByteArray("Secular") << QByteArray("Outra")
        << u":6: a categoria é \"Religiosa\" ou \"Secular\", não \"Outra\""_qs;
    QTest::newRow("a theme that is not in the list")
        << song << QByteArray("Natal, Amor") << QByteArray("Natal, Verão")
        << u":7: o tema \"Verão\" não está em themes.txt"_qs;
    QTest::newRow("a theme twice")
        << song << QByteArray("Natal, Amor") << QByteArray("Natal, Natal")
        << u":7: tema vazio ou repetido: \"Natal\""_qs;
    QTest::newRow("no theme") << song << QByteArray("TEMAS: Natal, Amor") << QByteArray("TEMAS:")
                              << u":7: o campo TEMAS está vazio"_qs;
    QTest::newRow("a field that is unknown")
        << song << QByteArray("TOM: C") << QByteArray("TON: C")
        << u":4: esperava um campo (TITULO, REFERENCIA, TOM, VARIACAO, CATEGORIA, TEMAS), "
           u"encontrei \"TON: C\""_qs;
    QTest::newRow("a field twice") << song << QByteArray("TOM: C") << QByteArray("TITULO: C")
                                   << u":4: o campo TITULO já foi dado na linha 2"_qs;
    QTest::newRow("a field that is missing")
        << song << QByteArray("VARIACAO: m\n") << none << u": falta o campo VARIACAO"_qs;
    QTest::newRow("an empty title") << song << QByteArray("TITULO: Teste") << QByteArray("TITULO: ")
                                    << u":2: o campo TITULO está vazio"_qs;
    QTest::newRow("no text at all") << song << GoodSong.mid(GoodSong.indexOf("== MUSICA\n")) << none
                                    << u": esperava a seção \"== MUSICA\""_qs;
    QTest::newRow("an empty text") << song << QByteArray("C   G7\nLá, lá\n") << none
                                   << u":9: a seção \"== MUSICA\" está vazia"_qs;
    QTest::newRow("an unknown section")
        << song << QByteArray("== MUSICA2") << QByteArray("== MUSICA3")
        << u":14: esperava a seção \"== MUSICA2\""_qs;
    QTest::newRow("a tab, which no column survives")
        << song << QByteArray("C   G7") << QByteArray("C\tG7")
        << u":11: o sinal U+0009 não pode estar no texto de uma música"_qs;
    QTest::newRow("a sign that the sheet drops")
        << song << QByteArray("Lá, lá") << QByteArray("100%")
        << u":12: o sinal U+0025 não pode estar no texto de uma música"_qs;
    QTest::newRow("a sign that breaks the sheet's line")
        << song << QByteArray("Lá, lá") << QByteArray("Lá £ lá")
        << u":12: o sinal U+00a3 não pode estar no texto de uma música"_qs;
    QTest::newRow("blanks at the end of a line")
        << song << QByteArray("Lá, lá") << QByteArray("Lá, lá ")
        << u":12: brancos no fim da linha"_qs;
    QTest::newRow("bytes that are no UTF-8")
        << song << QByteArray("Lá, lá") << QByteArray("L\xe1, l\xe1")
        << u":12: a linha não é UTF-8"_qs;
    QTest::newRow("a theme without its group")
        << themes << QByteArray("1 Amor") << QByteArray("Amor")
        << u":3: esperava um número, um branco e um nome, encontrei \"Amor\""_qs;
    QTest::newRow("a theme twice, in other letter case")
        << themes << QByteArray("1 Amor") << QByteArray("1 NATAL")
        << u":3: o tema \"NATAL\" já foi dado na linha 2"_qs;
    QTest::newRow("no themes") << themes << QByteArray("1 Natal\n1 Amor\n3 Sem Tema\n") << none
                               << u": não há nenhum tema"_qs;
    QTest::newRow("a table that does not exist")
        << u"fixed.sql"_qs << QByteArray("INTO VARIACAO") << QByteArray("INTO VARIAÇÃO")
        << u":17: no such table: VARIAÇÃO"_qs;
    QTest::newRow("a script that is no SQL")
        << u"schema.sql"_qs << QByteArray("CREATE TABLE LISTA (")
        << QByteArray("CRIE TABLE LISTA (") << u":32: near \"CRIE\": syntax error"_qs;
}

void TestCria::WrongDataNameFileAndLine()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, was);
    QFETCH(QByteArray, becomes);
    QFETCH(QString, message);
    MakeSmallData();
    const QString spoiled = Path(u"data/"_qs + file);
    QByteArray content = Content(spoiled);
    QCOMPARE(content.count(was), 1);
    QVERIFY(Write(spoiled, content.replace(was, becomes)));

    const Outcome outcome = RunTool({u"--dados"_qs, Path(u"data"_qs), Path(u"novo.mdb"_qs)});
    QCOMPARE(outcome.err, spoiled + message + u'\n');
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.out, QString());
    // Nothing half made is left.
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList());
}

void TestCria::MissingDataFolderIsNamed()
{
    const Outcome outcome = RunTool({u"--dados"_qs, Path(u"nada"_qs), Path(u"novo.mdb"_qs)});
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.err.startsWith(Path(u"nada/themes.txt"_qs) + u": não foi possível ler: "),
             qPrintable(outcome.err));
}

void TestCria::UnwritableOutputIsNamed()
{
    const QString path = Path(u"nada/novo.mdb"_qs);
    const Outcome outcome = RunTool({u"--dados"_qs, Data, path});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.err, path + u": unable to open database file\n");
}

void TestCria::WrongUseShowsTheHelp_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no output") << QStringList({u"--dados"_qs, Data});
    QTest::newRow("no data folder") << QStringList({u"novo.mdb"_qs});
    QTest::newRow("an option without its folder") << QStringList({u"novo.mdb"_qs, u"--dados"_qs});
    QTest::newRow("two outputs") << QStringList({u"--dados"_qs, Data, u"a"_qs, u"b"_qs});
    QTest::newRow("an unknown option") << QStringList({u"--dados"_qs, Data, u"--forca"_qs});
}

void TestCria::WrongUseShowsTheHelp()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = RunTool(arguments);
    QCOMPARE(outcome.code, 2);
    QCOMPARE(outcome.out, QString());
    QVERIFY(outcome.err.startsWith(u"Uso: melodario-cria "));
}

void TestCria::HelpIsNoError()
{
    const Outcome outcome = RunTool({u"--help"_qs});
    QCOMPARE(outcome.code, 0);
    QVERIFY(outcome.out.startsWith(u"Uso: melodario-cria --dados PASTA ARQUIVO\n"));
    QCOMPARE(outcome.err, QString());
}

QTEST_GUILESS_MAIN(TestCria)
#include "tst_cria.moc"
