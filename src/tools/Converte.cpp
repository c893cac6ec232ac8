// melodario-converte: turns song files of other programs into an exchange file.

#include "songbook/UsualScale.h"
#include "tools/SongConversion.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

#include <cstdio>
#include <optional>

namespace {

constexpr int Done = 0;
constexpr int SomethingLeft = 1;
constexpr int NotDone = 2;

const QString Help =
    u"Uso: melodario-converte [OPÇÕES] ORIGEM... DESTINO\n"
    "\n"
    "Converte músicas de outros programas em um arquivo do Melodario.\n"
    "\n"
    "  ORIGEM   arquivos ChordPro, OpenSong, OpenLyrics ou de texto com acordes sobre a\n"
    "           letra, ou pastas com eles; o conteúdo diz o que cada um é. \"-\" lê da\n"
    "           entrada padrão\n"
    "  DESTINO  um arquivo .mld; \"-\" escreve na saída padrão\n"
    "\n"
    "  --simular  não escreve nada e conta tudo o que seria mudado\n"
    "  --force    substitui o destino, se ele já existe\n"
    "  --help     mostra esta ajuda\n"
    "\n"
    "Saída: 0 feito; 1 feito, mas algo ficou para trás, como foi dito; 2 não feito.\n"_qs;

const QString Standard = QStringLiteral("-");

struct Order
{
    QStringList sources;
    QString destination;
    bool simulate = false;
    bool force = false;
};

/// @return nothing for wrong use, of which wrong then tells
std::optional<Order> ReadOrder(const QStringList& arguments, QString& wrong)
{
    Order order;
    bool options = true;
    for (const QString& argument : arguments) {
        if (!options || argument == Standard || !argument.startsWith(u'-')) {
            order.sources.append(argument);
        } else if (argument == u"--") {
            options = false;
        } else if (argument == u"--simular") {
            order.simulate = true;
        } else if (argument == u"--force") {
            order.force = true;
        } else {
            wrong = u"opção desconhecida: "_qs + argument;
            return std::nullopt;
        }
    }
    if (order.sources.size() < 2) {
        wrong = u"faltam a origem e o destino"_qs;
        return std::nullopt;
    }
    order.destination = order.sources.takeLast();
    if (order.destination != Standard &&
        !order.destination.endsWith(u".mld", Qt::CaseInsensitive)) {
        wrong = u"o destino precisa terminar em .mld: "_qs + order.destination;
        return std::nullopt;
    }
    return order;
}

/// @return true when the messages go to a terminal, where a line can be written over. Systems
/// without this folder get no progress line.
bool MessagesGoToATerminal()
{
    const QString target = QFile::symLinkTarget(u"/proc/self/fd/2"_qs);
    return target.startsWith(u"/dev/pts/") || target.startsWith(u"/dev/tty");
}

/// Messages and, on a terminal, one line below them that tells how far the work is.
class Messages
{
public:
    explicit Messages(QTextStream& err)
        : m_err(err)
        , m_terminal(MessagesGoToATerminal())
    {
    }

    void Tell(const QString& line)
    {
        Clear();
        m_err << line << Qt::endl;
    }

    void Progress(qsizetype done, qsizetype all)
    {
        constexpr qsizetype Step = 20;
        if (!m_terminal || all < 2 || (done % Step != 0 && done != all))
            return;
        m_err << u'\r' << done << u" de "_qs << all << u" arquivos"_qs << Qt::flush;
        m_shown = true;
        if (done == all)
            Clear();
    }

private:
    void Clear()
    {
        if (m_shown)
            m_err << u'\r' << QString(40, u' ') << u'\r' << Qt::flush;
        m_shown = false;
    }

    QTextStream& m_err;
    bool m_terminal;
    bool m_shown = false;
};

/// @return why it failed; empty when the whole file is there
QString Write(const QByteArray& document, const QString& destination)
{
    if (destination == Standard) {
        QFile out;
        const bool written = out.open(stdout, QIODevice::WriteOnly) &&
                             out.write(document) == document.size() && out.flush();
        return written ? QString() : out.errorString();
    }
    QSaveFile file(destination);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(document) == document.size() && file.commit();
    return written ? QString() : file.errorString();
}

bool IsTaken(const Order& order)
{
    const QFileInfo target(order.destination);
    return order.destination != Standard && !order.force && !order.simulate &&
           (target.exists() || target.isSymLink());
}

int Convert(const Order& order, QTextStream& out, QTextStream& err)
{
    if (IsTaken(order)) {
        err << order.destination << u": o arquivo já existe; --force o substitui\n"_qs;
        return NotDone;
    }
    Songbook::LoadUsualScale();
    Messages messages(err);
    SongConversion conversion(
        {[&messages](const QString& line) { messages.Tell(line); },
         [&messages](qsizetype done, qsizetype all) { messages.Progress(done, all); }},
        order.simulate);
    conversion.Read(order.sources);
    if (conversion.Songs() == 0) {
        err << u"nenhuma música encontrada; nada foi escrito\n"_qs;
        return NotDone;
    }
    if (!order.simulate) {
        const QString failure = Write(conversion.Document(), order.destination);
        if (!failure.isEmpty()) {
            err << order.destination << u": não foi possível escrever: "_qs << failure << u'\n';
            return NotDone;
        }
    }
    // The document itself may be on the standard output.
    QTextStream& summary = order.destination == Standard ? err : out;
    summary << order.destination << u": "_qs << conversion.Songs() << u" música(s) de "_qs
            << conversion.Files() << u" arquivo(s)"_qs;
    if (conversion.FilesWithLosses() > 0)
        summary << u"; em "_qs << conversion.FilesWithLosses() << u" algo ficou para trás"_qs;
    summary << (order.simulate ? u" (simulação: nada foi escrito)\n"_qs : u"\n"_qs);
    return conversion.FilesWithLosses() > 0 ? SomethingLeft : Done;
}

int Run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    if (arguments.contains(u"--help"_qs) || arguments.contains(u"-h"_qs)) {
        out << Help;
        return Done;
    }
    QString wrong;
    const std::optional<Order> order = ReadOrder(arguments, wrong);
    if (order)
        return Convert(*order, out, err);
    err << wrong << u"\n\n"_qs << Help;
    return NotDone;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return Run(application.arguments().mid(1), out, err);
}
