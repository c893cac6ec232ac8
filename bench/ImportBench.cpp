// The import: a file of songs from its path to the durable catalogue, against a DOM parse of the
// same file and one bulk insert of the same rows; and the memory that reading takes.

#include "Benches.h"
#include "controls/Dialogs.h"
#include "exchange/Importa_Musicas.h"
#include "exchange/ServicosImportacao.h"
#include "harness/Memory.h"
#include "harness/Rounds.h"
#include "mld/ExchangeReader.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "support/GeneratedSongs.h"
#include "support/TestCatalogue.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <QWidget>

#include <libxml/parser.h>
#include <sqlite3.h>

namespace {

constexpr int Rounds = 5;
constexpr int Themes = 12;

/// Takes every box as read.
class NoBoxes final : public Dialogs
{
public:
    NoBoxes() { SetDialogs(this); }
    ~NoBoxes() override { SetDialogs(nullptr); }
    void Message(QWidget*, const QString& text, Icone icon, const QString&) override
    {
        if (icon != Icone::Informacao)
            qFatal("%s", qPrintable(text));
    }
    bool Question(QWidget*, const QString&, const QString&) override { return true; }
    QString Input(QWidget*, const QString&, const QString&, const QString& initial,
                  std::optional<QPoint>) override
    {
        return initial;
    }
};

class NoPanels final : public ServicosImportacao
{
    void Preenche_Temas() override {}
    void Pesquisa() override {}
};

/// @return an exchange file as the program writes it
QByteArray ExchangeFile(int songs)
{
    SongGenerator generator(5);
    QString text = u"<?xml version=\"1.0\" encoding=\"iso-8859-1\" ?>\r\n<musicas>\r\n"_qs;
    for (int i = 0; i < songs; ++i) {
        const GeneratedSong song = generator.Next();
        QString lyrics = song.text;
        lyrics.replace(u"\r\n"_qs, u"[br]"_qs);
        text +=
            u"   <musica>\r\n       <titulo>%1 %2</titulo>\r\n       <referencia>%3</referencia>"
            "\r\n       <letra1>%4</letra1>\r\n       <letra2></letra2>\r\n       <tom>C</tom>"
            "\r\n       <variacao></variacao>\r\n       <categoria>1</categoria>\r\n"
            "       <temas>\r\n           <descricao>Tema %5</descricao>\r\n       </temas>\r\n"
            "   </musica>\r\n"_qs.arg(song.title, QString::number(i), song.reference, lyrics,
                                      QString::number(i % Themes));
    }
    return (text + u"</musicas>").toLatin1();
}

ExchangeSongs ReadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the exchange file cannot be opened");
    auto songs = ExchangeReader::Read(file);
    if (!songs)
        qFatal("the exchange file is not well-formed");
    return std::move(*songs);
}

Nanoseconds Imported(const QString& path, int songs)
{
    const TestCatalogue catalogue;
    const NoBoxes boxes;
    NoPanels panels;
    QWidget owner;
    Funcoes::Conexao.Open(catalogue.ConnectionString());
    const Nanoseconds time = Timed([&] {
        Funcoes::Importa_Musicas(path, panels, owner);
        Funcoes::Conexao.CommitBatch();
    });
    Funcoes::Conexao.Close();
    if (catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs).toInt() != songs)
        qFatal("songs are missing");
    return time;
}

/// @return bytes that the import of the file takes at its peak, in a process that did nothing else
double PeakOfImport(const QString& path)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {u"--import-alone"_qs, path});
    constexpr int Patience = 60'000; // ms
    if (!process.waitForFinished(Patience) || process.exitCode() != 0)
        qFatal("the import failed in a process of its own");
    return process.readAllStandardOutput().trimmed().toDouble();
}

Nanoseconds ParsedAsTree(const QByteArray& bytes)
{
    return Timed([&] {
        xmlDoc* tree = xmlReadMemory(bytes.constData(), static_cast<int>(bytes.size()), nullptr,
                                     nullptr, XML_PARSE_NONET);
        if (!tree)
            qFatal("no tree");
        xmlFreeDoc(tree);
    });
}

/// Writes the rows of the songs in one transaction with the durability of the program.
Nanoseconds InsertedInBulk(const ExchangeSongs& songs)
{
    const TestCatalogue catalogue;
    sqlite3* database = nullptr;
    sqlite3_open(catalogue.Path().toUtf8().constData(), &database);
    sqlite3_exec(database, "PRAGMA synchronous = EXTRA", nullptr, nullptr, nullptr);
    QList<QByteArrayList> rows;
    for (qsizetype i = 0; i < songs.Count(); ++i) {
        const ExchangeSong song = songs.At(i);
        QString text = *song.letra1;
        text.replace(u"[br]"_qs, u"\r\n"_qs);
        rows.append({song.titulo->toUtf8(), song.referencia->toUtf8(), text.toUtf8()});
    }
    const Nanoseconds time = Timed([&] {
        sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_stmt* insert = nullptr;
        sqlite3_stmt* link = nullptr;
        sqlite3_prepare_v2(database,
                           "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO,"
                           " CATEGORIA) VALUES (?, ?, ?, '', 'C', '', 1)",
                           -1, &insert, nullptr);
        sqlite3_prepare_v2(database, "INSERT INTO TEMA_MUSICA VALUES (last_insert_rowid(), 1)", -1,
                           &link, nullptr);
        for (const QByteArrayList& row : rows) {
            for (int i = 0; i < 3; ++i)
                sqlite3_bind_text64(insert, i + 1, row[i].constData(),
                                    static_cast<sqlite3_uint64>(row[i].size()), nullptr,
                                    SQLITE_UTF8);
            for (sqlite3_stmt* statement : {insert, link}) {
                sqlite3_step(statement);
                sqlite3_reset(statement);
            }
        }
        sqlite3_finalize(insert);
        sqlite3_finalize(link);
        sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
    });
    sqlite3_close(database);
    return time;
}

} // namespace

void ImportAlone(const QString& path)
{
    const TestCatalogue catalogue;
    const NoBoxes boxes;
    NoPanels panels;
    QWidget owner;
    Funcoes::Conexao.Open(catalogue.ConnectionString());
    const qint64 before = Memory::Peak();
    Funcoes::Importa_Musicas(path, panels, owner);
    const qint64 peak = Memory::Peak();
    Funcoes::Conexao.Close();
    QTextStream(stdout) << peak - before << Qt::endl;
}

void BenchImport(const Scale& scale, ResultTable& table)
{
    const int songs = scale.isShort ? 300 : 10000;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.mld"_qs);
    const QByteArray bytes = ExchangeFile(songs);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("no exchange file");

    const qint64 before = Memory::Held();
    const ExchangeSongs read = ReadFile(path);
    const auto held = static_cast<double>(Memory::Held() - before);

    const auto times = Interleaved(
        scale.Rounds(Rounds),
        {[&] { return Imported(path, songs); }, [&] { return ParsedAsTree(bytes); },
         [&] { return InsertedInBulk(read); }, [&] { return Timed([&] { ReadFile(path); }); }});
    const QString size = ResultTable::Bytes(static_cast<double>(bytes.size()));
    table.Add(u"import of %1 songs, %2, durable"_qs.arg(QString::number(songs), size), times[0],
              u"DOM parse and one bulk insert"_qs, times[1] + times[2], {Aim::AtMost, 1});
    table.Add(u"the same file read and checked"_qs, times[3], u"DOM parse"_qs, times[1]);
    const double peak = PeakOfImport(path);
    table.AddText(u"memory of the import at its peak"_qs, ResultTable::Bytes(peak), u"the file"_qs,
                  peak / static_cast<double>(bytes.size()), {Aim::AtMost, 3});
    table.AddText(u"memory of what was read"_qs, ResultTable::Bytes(held), u"the file"_qs,
                  held / static_cast<double>(bytes.size()));
}
