// melodario-converte: turns songs from anywhere into an exchange file, a songbook or files of other
// programs, and a catalogue in the older format into a new one.

#include "fonts/ProgramFonts.h"
#include "songbook/UsualScale.h"
#include "tools/CatalogueConversion.h"
#include "tools/Console.h"
#include "tools/ConversionOrder.h"
#include "tools/DestinationKind.h"
#include "tools/Interruption.h"
#include "tools/Messages.h"
#include "tools/OutputFiles.h"
#include "tools/SongSources.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QHashSeed>
#include <QTextStream>

#include <algorithm>
#include <memory>

namespace {

constexpr int Done = 0;
constexpr int SomethingLeft = 1;
constexpr int NotDone = 2;

const QString Help =
    u"Uso: melodario-converte [OPÇÕES] ORIGEM... DESTINO\n"
    "\n"
    "Converte músicas: de outros programas para o Melodario, e do Melodario para o papel\n"
    "ou para outros programas. O conteúdo diz o que cada origem é, e o final do nome, o\n"
    "que será feito.\n"
    "\n"
    "  ORIGEM   um catálogo (.mdb) ou arquivo do Melodario (.mld); arquivos ChordPro,\n"
    "           OpenSong, OpenLyrics ou de texto com acordes sobre a letra, ou pastas com\n"
    "           eles. \"-\" lê da entrada padrão. Nenhuma origem é alterada\n"
    "  DESTINO  .mld    um arquivo do Melodario, para importar\n"
    "           .mdb    um catálogo novo, de um só catálogo no formato antigo (Jet)\n"
    "           .pdf    um cancioneiro para imprimir, com índice\n"
    "           .txt    um texto com todas as músicas\n"
    "           .cho    um arquivo ChordPro com todas as músicas\n"
    "           pasta/  um arquivo ChordPro para cada música\n"
    "           -       a saída padrão\n"
    "\n"
    "Escolha (sem acento e sem maiúsculas vale para todas as grafias):\n"
    "  --lista NOME     as músicas de uma lista do catálogo, na ordem dela; se houver mais\n"
    "                   de uma com esse nome, com a data atrás: \"Missa 05/03/2009\"\n"
    "  --tema NOME      as músicas com esse tema\n"
    "  --titulo TEXTO   as músicas com esse texto no título, como na pesquisa\n"
    "                   (--tema e --titulo podem ser repetidos)\n"
    "  --versao 1|2     a versão da letra; sem esta opção .pdf e .txt usam a 2, que o\n"
    "                   programa mostra primeiro, e os outros destinos levam as duas\n"
    "  --tom N          transpõe N semitons, de -12 a +12\n"
    "\n"
    "Escrita:\n"
    "  --papel a4|telefone  o tamanho das páginas do .pdf\n"
    "  --formato FORMATO    cho ou txt numa pasta; mld, txt, cho ou pdf na saída padrão\n"
    "  --simular            não escreve nada e conta tudo o que seria mudado\n"
    "  --force              substitui o que já existe\n"
    "  --help               mostra esta ajuda\n"
    "\n"
    "Em .pdf, .txt e .cho as músicas vêm na ordem dos títulos.\n"
    "Saída: 0 feito; 1 feito, mas algo ficou para trás, como foi dito; 2 não feito.\n"_qs;

int Fail(QTextStream& err, const QString& why)
{
    err << Showable(why) << u'\n';
    return NotDone;
}

/// @return why nothing can be written, in Portuguese; empty when there are songs
QString WhyNothing(const SongSources& sources, const ConversionOrder& order,
                   const ChosenSongs& songs)
{
    if (!sources.Failure().isEmpty())
        return sources.Failure();
    if (!songs.songs.isEmpty())
        return {};
    return sources.SongsSeen() > 0 && order.Chooses()
               ? u"nenhuma música corresponde à escolha; nada foi escrito"_qs
               : u"nenhuma música encontrada; nada foi escrito"_qs;
}

QString IsASource(const QString& path)
{
    return path + u": é uma das origens, e nenhuma origem é alterada";
}

/// @return why a file must not be written: songs were read from it
QString WhyASource(const SongSources& sources, const QList<OutputFile>& files)
{
    for (const OutputFile& file : files) {
        if (sources.IsSource(file.path))
            return IsASource(file.path);
    }
    return {};
}

/// @return true when the destination is a file that is named as a source, also by another way to it
bool IsNamedAsSource(const ConversionOrder& order)
{
    const QFileInfo destination(order.destination);
    const QString there = destination.canonicalFilePath();
    const auto isThere = [&there](const QString& source) {
        return source != Standard() && QFileInfo(source).canonicalFilePath() == there;
    };
    return order.destination != Standard() && destination.isFile() &&
           std::any_of(order.sources.begin(), order.sources.end(), isThere);
}

/// Looks at the destination before anything is read, which may take long.
/// @return why it cannot be written, in Portuguese; empty when nothing is known against it
QString WhyNoDestination(const ConversionOrder& order)
{
    const QString& path = order.destination;
    if (path == Standard())
        return {};
    if (IsNamedAsSource(order))
        return IsASource(path);
    if (order.kind->ending == u"/")
        return WhyNoFolder(path);
    const QFileInfo target(path);
    if (!order.force && (target.exists() || target.isSymLink()))
        return path + u": o arquivo já existe; --force o substitui";
    return order.kind->make ? WhyNoFile(path) : QString(); // a catalogue's place is looked at there
}

int ConvertCatalogue(const ConversionOrder& order, QTextStream& out, QTextStream& err)
{
    Messages messages(err);
    CatalogueConversion conversion({[&messages](const QString& line) { messages.Tell(line); },
                                    [&messages](int done) {
                                        constexpr int All = 100;
                                        if (done < All)
                                            Interruption::Check();
                                        messages.Show(QString::number(done) + u" %");
                                    }},
                                   order.simulate, order.force);
    const auto outcome = conversion.Run(order.sources.first(), order.destination);
    messages.Clear();
    if (outcome == CatalogueConversion::Outcome::NotDone)
        return NotDone;
    out << Showable(conversion.Summary())
        << (order.simulate ? u" (simulação: nada foi escrito)\n"_qs : u"\n"_qs);
    return outcome == CatalogueConversion::Outcome::SomethingLeft ? SomethingLeft : Done;
}

int Convert(const ConversionOrder& order, QTextStream& out, QTextStream& err)
{
    const QString noDestination = WhyNoDestination(order);
    if (!noDestination.isEmpty())
        return Fail(err, noDestination);
    if (!order.kind->make)
        return ConvertCatalogue(order, out, err);
    Songbook::LoadUsualScale();
    Messages messages(err);
    ConversionReport report({[&messages](const QString& line) { messages.Tell(line); },
                             [&messages](qsizetype done, qsizetype all, const QString& what) {
                                 Interruption::Check();
                                 messages.Progress(done, all, what);
                             }},
                            order.simulate);
    SongSources sources(order, report);
    sources.Read();
    const ChosenSongs songs = sources.Take();
    const QString nothing = WhyNothing(sources, order, songs);
    if (!nothing.isEmpty())
        return Fail(err, nothing);
    const QList<OutputFile> files = order.kind->make(songs, order, report);
    const QString folder = order.kind->ending == u"/" ? order.destination : QString();
    QString failure = WhyASource(sources, files);
    if (failure.isEmpty())
        failure = WhyNotWritten(files, folder, order.force);
    if (failure.isEmpty() && !order.simulate)
        failure = WriteFiles(files, folder, report);
    if (!failure.isEmpty())
        return Fail(err, failure);
    // The document itself may be on the standard output.
    QTextStream& summary = order.destination == Standard() ? err : out;
    summary << Showable(order.destination) << u": "_qs << songs.songs.size() << u" música(s) de "_qs
            << sources.Files() << u" arquivo(s)"_qs;
    if (report.SourcesWithLosses() > 0)
        summary << u"; em "_qs << report.SourcesWithLosses() << u" algo ficou para trás"_qs;
    summary << (order.simulate ? u" (simulação: nada foi escrito)\n"_qs : u"\n"_qs);
    return report.SourcesWithLosses() > 0 ? SomethingLeft : Done;
}

int Run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    if (arguments.contains(u"--help"_qs) || arguments.contains(u"-h"_qs)) {
        out << Help;
        return Done;
    }
    QString wrong;
    const std::optional<ConversionOrder> order = ReadOrder(arguments, wrong);
    if (!order) {
        err << (arguments.isEmpty() ? QString(wrong + u"\n\n" + Help) : WrongUse(wrong, Help));
        return NotDone;
    }
    try {
        Interruption::Watch();
        return Convert(*order, out, err);
    } catch (const Interrupted&) {
        return Fail(err, u"interrompido; nada foi escrito"_qs);
    }
}

/// Only pages need fonts, whose loading takes longer than most conversions.
bool NeedsFonts(int argc, char** argv)
{
    return std::any_of(argv, argv + argc, [](const char* argument) {
        return QByteArrayView(argument).toByteArray().toLower().endsWith("pdf");
    });
}

std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv)
{
    if (!NeedsFonts(argc, argv))
        return std::make_unique<QCoreApplication>(argc, argv);
    // Pages are drawn without a screen; and the same songs give the same file.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QHashSeed::setDeterministicGlobalSeed();
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    ProgramFonts::Load(QCoreApplication::applicationDirPath() + u"/fontes"_qs);
    return application;
}

} // namespace

int main(int argc, char** argv)
{
    SilenceLibraries();
    const std::unique_ptr<QCoreApplication> application = MakeApplication(argc, argv);
    const Console console;
    QTextStream out(stdout);
    QTextStream err(stderr);
    const int code = Run(QCoreApplication::arguments().mid(1), out, err);
    out.flush();
    if (out.status() == QTextStream::Ok)
        return code;
    err << u"não foi possível escrever na saída padrão\n"_qs;
    return qMax(code, SomethingLeft);
}
