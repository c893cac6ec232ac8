#include "ToolRun.h"
#include "mld/ExchangeReader.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

// The command as a user meets it: the real program, its exit code, what it prints, what it leaves.

namespace {

const QString Tool = QStringLiteral(MELODARIO_CONVERTE);

Outcome Convert(const QStringList& arguments, const QByteArray& input = {})
{
    return RunTool(Tool, arguments, input);
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

/// The songs as an import finds them.
QList<ExchangeSong> Songs(QByteArray document)
{
    QBuffer buffer(&document);
    buffer.open(QIODevice::ReadOnly);
    const auto read = ExchangeReader::Read(buffer);
    QList<ExchangeSong> songs;
    if (!read || read->DefectCount() > 0)
        return songs;
    for (qsizetype i = 0; i < read->Count(); ++i) {
        ExchangeSong song = read->At(i);
        song.letra1->replace(u"[br]"_qs, u"\r\n"_qs);
        song.letra2->replace(u"[br]"_qs, u"\r\n"_qs);
        songs.append(song);
    }
    return songs;
}

const QByteArray PeixeVivo = "{title: Peixe Vivo}\n{artist: Folclore}\n{key: G}\n"
                             "[G]Como pode o [D7]peixe vivo\n";

} // namespace

class tst_converte : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyFormatGoesIntoOneFile();
    void folderOfTwoThousandFilesIsConverted();
    void foldersAreReadInTheOrderOfTheirNames();
    void oddFilesDoNotStopTheOthers();
    void whatStaysBehindIsToldWithFileAndLine();
    void simulationWritesNothingAndTellsAll();
    void existingDestinationIsKept();
    void pipesWorkAtBothEnds();
    void hostileTextsLeaveTheFileReadable();
    void onlyAnExchangeFileIsToldToHoldLess_data();
    void onlyAnExchangeFileIsToldToHoldLess();
    void failuresLeaveNoFile_data();
    void failuresLeaveNoFile();
    void wrongUseShowsWhyAndHow_data();
    void wrongUseShowsWhyAndHow();
    void namesWithLineFeedsStayOnTheirLine();
    void fullDiskBehindTheSummaryIsTold();
    void helpIsNoError();
    void progressIsShownOnATerminalOnly_data();
    void progressIsShownOnATerminalOnly();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }

    QString Put(const QString& name, const QByteArray& content) const
    {
        const QString path = Path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
                   ? path
                   : u"<not written>"_qs;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_converte::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_converte::everyFormatGoesIntoOneFile()
{
    const QStringList sources = {
        Put(u"a.cho"_qs, PeixeVivo),
        Put(u"b"_qs, "<song><title>Aberto</title><key>Am</key><lyrics>.Am\n Lá</lyrics></song>"),
        Put(u"c.xml"_qs, "<song xmlns='http://openlyrics.info/namespace/2009/song'><properties>"
                         "<titles><title>Livre</title></titles></properties><lyrics>"
                         "<verse name='v1'><lines><chord name='D'/>Li</lines></verse></lyrics>"
                         "</song>"),
        Put(u"d.txt"_qs, "São João\n\nC\nLé\n")};
    const QString target = Path(u"novo.mld"_qs);
    const Outcome outcome = Convert(sources + QStringList{target});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.out, target + u": 4 música(s) de 4 arquivo(s)\n");
    const QList<ExchangeSong> songs = Songs(Content(target));
    QCOMPARE(songs.size(), 4);
    QCOMPARE(*songs[0].titulo, u"Peixe Vivo"_qs);
    QCOMPARE(*songs[0].referencia, u"Folclore"_qs);
    QCOMPARE(*songs[0].tom, u"G"_qs);
    QCOMPARE(*songs[0].letra1, u"G           D7\r\nComo pode o peixe vivo"_qs);
    QCOMPARE(*songs[0].letra2, *songs[0].letra1);
    QCOMPARE(*songs[1].letra1, u"Am\r\nLá"_qs);
    QCOMPARE(*songs[1].variacao, u"m"_qs);
    QCOMPARE(*songs[2].letra1, u"    1ª estrofe\r\nD\r\nLi"_qs);
    QCOMPARE(*songs[3].titulo, u"São João"_qs);
}

void tst_converte::folderOfTwoThousandFilesIsConverted()
{
    static const QStringList chords = {u"C"_qs, u"Am7"_qs, u"F7M"_qs, u"Bb"_qs, u"G7(b9)"_qs};
    static const QStringList words = {u"peixe "_qs, u"água"_qs, u"coração "_qs, u"luar "_qs};
    for (int i = 0; i < 2000; ++i) {
        QString song =
            u"{title: Música %1}\n{artist: Autor %2}\n{key: %3}\n"_qs.arg(i).arg(i % 37).arg(
                chords[i % 2]);
        for (int line = 0; line < 12; ++line) {
            for (int word = 0; word < 5; ++word)
                song += u'[' + chords[(i + line + word) % chords.size()] + u']' +
                        words[(i + word) % words.size()];
            song += u'\n';
        }
        Put(u"acervo/%1/%2.cho"_qs.arg(i % 20).arg(i, 4, 10, QChar(u'0')), song.toUtf8());
    }
    const QString target = Path(u"acervo.mld"_qs);
    const Outcome outcome = Convert({Path(u"acervo"_qs), target});
    // The keys of every second song are chords ("Am7"), of which only the minor can be kept.
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.out, target + u": 2000 música(s) de 2000 arquivo(s); em 1000 algo ficou para "
                                   u"trás\n");
    const QList<ExchangeSong> songs = Songs(Content(target));
    QCOMPARE(songs.size(), 2000);
    QSet<QString> titles;
    for (const ExchangeSong& song : songs) {
        titles.insert(*song.titulo);
        QCOMPARE(song.letra1->count(u"\r\n"_qs), 23);
        QVERIFY(song.tom == u"C" || (song.tom == u"A" && song.variacao == u"m"));
    }
    QCOMPARE(titles.size(), 2000);
}

void tst_converte::foldersAreReadInTheOrderOfTheirNames()
{
    for (const QString& name : {u"b.cho"_qs, u"a.cho"_qs, u"sub/c.cho"_qs, u"sub/fundo/d.cho"_qs})
        Put(u"pasta/"_qs + name, "{title: " + name.toUtf8() + "}\n[C]Lá\n");
    const QString target = Path(u"novo.mld"_qs);
    QCOMPARE(Convert({Path(u"pasta"_qs), target}).code, 0);
    QStringList titles;
    for (const ExchangeSong& song : Songs(Content(target)))
        titles += *song.titulo;
    QCOMPARE(titles,
             QStringList({u"a.cho"_qs, u"b.cho"_qs, u"sub/c.cho"_qs, u"sub/fundo/d.cho"_qs}));
}

void tst_converte::oddFilesDoNotStopTheOthers()
{
    Put(u"pasta/a.cho"_qs, PeixeVivo);
    const QString broken = Put(u"pasta/b.xml"_qs, "<song><title>\n</song>");
    const QString picture = Put(u"pasta/c.png"_qs, QByteArray("\x89PNG\0\0", 6));
    const QString missing = Path(u"nada.cho"_qs);
    Put(u"pasta/z.cho"_qs, PeixeVivo);
    const QString target = Path(u"novo.mld"_qs);
    const Outcome outcome = Convert({Path(u"pasta"_qs), missing, target});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(Songs(Content(target)).size(), 2);
    QVERIFY2(outcome.err.contains(QString(broken + u":2: não lido: o XML não está bem formado\n")),
             qPrintable(outcome.err));
    QVERIFY(outcome.err.contains(QString(picture + u": não lido: o arquivo não é um texto\n")));
    QVERIFY(outcome.err.contains(QString(missing + u": não lido: ")));
    QCOMPARE(outcome.err.count(u'\n'), 3);
    QCOMPARE(outcome.out, target + u": 2 música(s) de 5 arquivo(s); em 3 algo ficou para trás\n");
}

void tst_converte::whatStaysBehindIsToldWithFileAndLine()
{
    const QString source = Put(u"a.cho"_qs, PeixeVivo + "[Cmaj7]Lá\n{tempo: 96}\n");
    const Outcome outcome = Convert({source, Path(u"novo.mld"_qs)});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.err, source + u":6: sem lugar: {tempo: 96}\n");
}

void tst_converte::simulationWritesNothingAndTellsAll()
{
    const QString source = Put(u"a.cho"_qs, PeixeVivo + "[Cmaj7]Lá\n{tempo: 96}\n");
    const QString target = Path(u"novo.mld"_qs);
    const Outcome outcome = Convert({u"--simular"_qs, source, target});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.err, source + u":5: o acorde \"Cmaj7\" foi escrito \"C7+\"\n" + source +
                              u":6: sem lugar: {tempo: 96}\n");
    QVERIFY(outcome.out.endsWith(u"(simulação: nada foi escrito)\n"));
    QVERIFY(!QFile::exists(target));
}

void tst_converte::existingDestinationIsKept()
{
    const QString source = Put(u"a.cho"_qs, PeixeVivo);
    const QString target = Put(u"novo.mld"_qs, "meu repertório");
    const Outcome refused = Convert({source, target});
    QCOMPARE(refused.code, 2);
    QCOMPARE(refused.err, target + u": o arquivo já existe; --force o substitui\n");
    QCOMPARE(Content(target), QByteArray("meu repertório"));
    QCOMPARE(Convert({u"--simular"_qs, u"--force"_qs, source, target}).code, 0);
    QCOMPARE(Content(target), QByteArray("meu repertório"));
    QCOMPARE(Convert({source, u"--force"_qs, target}).code, 0);
    QCOMPARE(Songs(Content(target)).size(), 1);
}

void tst_converte::pipesWorkAtBothEnds()
{
    const Outcome outcome = Convert({u"-"_qs, u"-"_qs}, PeixeVivo);
    QCOMPARE(outcome.code, 0);
    QCOMPARE(Songs(outcome.raw).size(), 1);
    QVERIFY(outcome.raw.endsWith("</musicas>"));
    QCOMPARE(outcome.err, u"-: 1 música(s) de 1 arquivo(s)\n"_qs);
}

void tst_converte::hostileTextsLeaveTheFileReadable()
{
    const QString source =
        Put(u"a.cho"_qs, "{title: Tom & <Jerry>}\n[C]a[br]b & c\x01 \xE2\x99\xAB\n{key: C}\n");
    const QString target = Path(u"novo.mld"_qs);
    QCOMPARE(Convert({source, target}).code, 1);
    const QList<ExchangeSong> songs = Songs(Content(target));
    QCOMPARE(songs.size(), 1);
    QCOMPARE(*songs.first().titulo, u"Tom e \u2039Jerry\u203A"_qs);
    QVERIFY(songs.first().letra1->contains(u"b e c"));
}

void tst_converte::onlyAnExchangeFileIsToldToHoldLess_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("told");
    QTest::newRow("an exchange file") << u"novo.mld"_qs << true;
    for (const char* target : {"novo.txt", "novo.cho", "novo.pdf", "novas/"})
        QTest::newRow(target) << QString::fromLatin1(target) << false;
}

void tst_converte::onlyAnExchangeFileIsToldToHoldLess()
{
    QFETCH(QString, target);
    QFETCH(bool, told);
    const QString source = Put(u"a.cho"_qs, "{title: Tom & Jerry}\n{key: C}\n[C]La \xC5\x91\n");
    const Outcome outcome = Convert({source, Path(target)});
    const QString line = source + u": o formato .mld não guarda "_qs;
    QCOMPARE(outcome.err,
             told ? QString(line + u"\"&\": ficou \"e\"\n" + line + u"\"\u0151\": ficou \"o\"\n")
                  : QString());
    QCOMPARE(outcome.code, told ? 1 : 0);
}

void tst_converte::failuresLeaveNoFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("target");
    QTest::newRow("nothing can be read") << QByteArray("\0\0", 2) << u"novo.mld"_qs;
    QTest::newRow("an empty file") << QByteArray() << u"novo.mld"_qs;
    QTest::newRow("the destination's folder is missing") << PeixeVivo << u"nada/novo.mld"_qs;
}

void tst_converte::failuresLeaveNoFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, target);
    const QString source = Put(u"a.cho"_qs, content);
    const Outcome outcome = Convert({source, Path(target)});
    QCOMPARE(outcome.code, 2);
    QVERIFY(!outcome.err.isEmpty());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{u"a.cho"_qs});
}

void tst_converte::wrongUseShowsWhyAndHow_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("wrong");
    QTest::newRow("nothing") << QStringList() << u"faltam a origem e o destino"_qs;
    QTest::newRow("no destination")
        << QStringList{u"a.cho"_qs} << u"faltam a origem e o destino"_qs;
    QTest::newRow("another ending")
        << QStringList{u"a.cho"_qs, u"b.doc"_qs}
        << u"o destino precisa terminar em .mld, .mdb, .txt, .pdf, .cho ou / (uma pasta): b.doc"_qs;
    const auto row = [](const char* story, const QStringList& options, const QString& destination,
                        const QString& wrong) {
        QTest::newRow(story) << options + QStringList{u"a.mdb"_qs, destination} << wrong;
    };
    row("a setlist of several sources", {u"--lista"_qs, u"Missa"_qs, u"b.mdb"_qs}, u"c.pdf"_qs,
        u"--lista precisa de uma só origem, um catálogo"_qs);
    row("paper for a text", {u"--papel=telefone"_qs}, u"c.txt"_qs,
        u"--papel só vale para um destino .pdf"_qs);
    row("unknown paper", {u"--papel"_qs, u"a5"_qs}, u"c.pdf"_qs,
        u"--papel é a4 ou telefone, não \"a5\""_qs);
    row("a format for a file", {u"--formato"_qs, u"txt"_qs}, u"c.pdf"_qs,
        u"--formato só vale para uma pasta (terminada em /) ou para a saída padrão (-)"_qs);
    row("a format that a folder cannot have", {u"--formato"_qs, u"pdf"_qs}, u"c/"_qs,
        u"--formato de uma pasta é cho ou txt, não \"pdf\""_qs);
    row("an unknown format", {u"--formato"_qs, u"rtf"_qs}, u"-"_qs,
        u"--formato da saída padrão é mld, txt, cho ou pdf, não \"rtf\""_qs);
    row("no number of semitones", {u"--tom"_qs, u"Am"_qs}, u"c.pdf"_qs,
        u"--tom é um número de semitons de -12 a +12, não \"Am\""_qs);
    row("too many semitones", {u"--tom=+13"_qs}, u"c.pdf"_qs,
        u"--tom é um número de semitons de -12 a +12, não \"+13\""_qs);
    row("an unknown version", {u"--versao"_qs, u"3"_qs}, u"c.pdf"_qs,
        u"--versao é 1 ou 2, não \"3\""_qs);
    row("a version twice", {u"--versao=1"_qs, u"--versao=2"_qs}, u"c.pdf"_qs,
        u"--versao só pode ser dito uma vez"_qs);
    row("an empty name", {u"--lista="_qs}, u"c.pdf"_qs, u"falta o valor de --lista"_qs);
    row("the standard input twice", {u"-"_qs, u"-"_qs}, u"c.pdf"_qs,
        u"a entrada padrão (-) só pode ser lida uma vez"_qs);
    QTest::newRow("an option without its value")
        << QStringList{u"a.mdb"_qs, u"c.pdf"_qs, u"--tema"_qs} << u"falta o valor de --tema"_qs;
    QTest::newRow("an option in the place of a value")
        << QStringList{u"--tema"_qs, u"--force"_qs, u"a.mdb"_qs, u"c.pdf"_qs}
        << u"falta o valor de --tema"_qs;
    QTest::newRow("a source without a name")
        << QStringList{u""_qs, u"b.mld"_qs} << u"o nome de uma origem está vazio"_qs;
    QTest::newRow("an unknown option with a line feed")
        << QStringList{u"--tu\ndo"_qs, u"a.cho"_qs, u"b.mld"_qs}
        << u"opção desconhecida: --tu?do"_qs;
    QTest::newRow("an unknown option")
        << QStringList{u"--tudo"_qs, u"a.cho"_qs, u"b.mld"_qs} << u"opção desconhecida: --tudo"_qs;
}

void tst_converte::wrongUseShowsWhyAndHow()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, wrong);
    const Outcome outcome = Convert(arguments);
    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.err.startsWith(QString(wrong + u"\n\nUso: melodario-converte")),
             qPrintable(outcome.err));
    QVERIFY(outcome.err.contains(u"--help"));
    // A whole help would push the reason out of a window.
    QVERIFY(arguments.isEmpty() || outcome.err.count(u'\n') <= 4);
    QCOMPARE(outcome.out, QString());
}

void tst_converte::namesWithLineFeedsStayOnTheirLine()
{
    const QString source = Put(u"a\n\u001b[2Jb.cho"_qs, PeixeVivo);
    const Outcome done = Convert({source, Path(u"c\nd.mld"_qs)});
    QCOMPARE(done.code, 0);
    QCOMPARE(done.out, Path(u"c?d.mld: 1 música(s) de 1 arquivo(s)\n"_qs));
    const Outcome refused = Convert({source, Path(u"c\nd.mld"_qs)});
    QCOMPARE(refused.err, Path(u"c?d.mld: o arquivo já existe; --force o substitui\n"_qs));
    QCOMPARE(Convert({source + u'x', Path(u"e.mld"_qs)}).err,
             Path(u"a??[2Jb.chox: não lido: o arquivo não existe\n"
                  "nenhuma música encontrada; nada foi escrito\n"_qs));
}

void tst_converte::fullDiskBehindTheSummaryIsTold()
{
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_qs);
    process.start(Tool, {Put(u"a.cho"_qs, PeixeVivo), Path(u"b.mld"_qs)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(QString::fromUtf8(process.readAllStandardError()),
             u"não foi possível escrever na saída padrão\n"_qs);
    QCOMPARE(process.exitCode(), 1);
    QVERIFY(QFile::exists(Path(u"b.mld"_qs)));
}

void tst_converte::helpIsNoError()
{
    const Outcome outcome = Convert({u"--help"_qs});
    QCOMPARE(outcome.code, 0);
    QVERIFY(outcome.out.startsWith(u"Uso: melodario-converte"));
    QCOMPARE(outcome.err, QString());
}

void tst_converte::progressIsShownOnATerminalOnly_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* story, const QString& source, const QString& target,
                        const QString& shown) {
        QTest::newRow(story) << source << target << shown;
    };
    row("reading files", u"pasta"_qs, u"novo.mld"_qs, u"20 de 40 arquivos lidos"_qs);
    row("reading songs", u"tudo.mld"_qs, u"novo.cho"_qs, u"20 de 40 músicas lidas"_qs);
    row("making an exchange file", u"pasta"_qs, u"novo.mld"_qs, u"20 de 40 músicas\r"_qs);
    row("making a text", u"tudo.mld"_qs, u"novo.txt"_qs, u"20 de 40 músicas\r"_qs);
    row("making a book", u"tudo.mld"_qs, u"novo.pdf"_qs, u"20 de 40 músicas\r"_qs);
    row("writing files", u"tudo.mld"_qs, u"nova/"_qs, u"20 de 40 arquivos gravados"_qs);
}

void tst_converte::progressIsShownOnATerminalOnly()
{
    QFETCH(QString, source);
    QFETCH(QString, target);
    QFETCH(QString, shown);
    for (int i = 0; i < 40; ++i)
        Put(u"pasta/%1.cho"_qs.arg(i), PeixeVivo);
    QCOMPARE(Convert({Path(u"pasta"_qs), Path(u"tudo.mld"_qs)}).code, 0);
    const QString command = Tool + u" --force " + Path(source) + u' ' + Path(target);
    const Outcome terminal = RunTool(u"script"_qs, {u"-qec"_qs, command, u"/dev/null"_qs});
    QCOMPARE(terminal.code, 0);
    QVERIFY2(terminal.out.contains(shown), qPrintable(terminal.out));
    const Outcome piped = Convert({u"--force"_qs, Path(source), Path(target)});
    QCOMPARE(piped.code, 0);
    QCOMPARE(piped.err, QString());
}

QTEST_GUILESS_MAIN(tst_converte)
#include "tst_converte.moc"
