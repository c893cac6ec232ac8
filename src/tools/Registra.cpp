// melodario-registra: opens exchange files with the program of its folder, for the user who asks.

#include "tools/Console.h"
#include "tools/DesktopNews.h"
#include "tools/FileAssociation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTextStream>

namespace {

constexpr int Done = 0;
constexpr int NotDone = 2;

const QString Help =
    u"Uso: melodario-registra --registrar | --remover\n"
    "\n"
    "Diz ao Windows que os arquivos .mld são abertos com o Melodario desta pasta, só "
    "para você\ne sem mudar nada para os outros usuários deste computador.\n"
    "\n"
    "  --registrar  abre os arquivos .mld com o Melodario desta pasta\n"
    "  --remover    desfaz isso\n"
    "  --help       mostra esta ajuda\n"
    "\n"
    "Se a pasta mudar de lugar, registre outra vez.\n"
    "Saída: 0 feito; 2 não feito.\n"_qs;

int Register(QSettings& classes, QTextStream& out, QTextStream& err)
{
    const QString program =
        QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + u"/Melodario.exe");
    if (!QFileInfo(program).isFile()) {
        err << program << u": o programa não está nesta pasta; nada foi mudado\n"_qs;
        return NotDone;
    }
    if (!FileAssociation::Register(classes, program)) {
        err << u"O Windows não deixou registrar.\n"_qs;
        return NotDone;
    }
    TellDesktopOfNewAssociations();
    out << u"Os arquivos .mld são abertos agora com "_qs << program
        << u"\n--remover desfaz isso.\n"_qs;
    return Done;
}

int Unregister(QSettings& classes, QTextStream& out, QTextStream& err)
{
    const QString program = FileAssociation::RegisteredProgram(classes);
    if (program.isEmpty()) {
        out << u"Nenhum Melodario está registrado para os arquivos .mld; nada foi mudado.\n"_qs;
        return Done;
    }
    if (!FileAssociation::Unregister(classes)) {
        err << u"O Windows não deixou remover o registro.\n"_qs;
        return NotDone;
    }
    TellDesktopOfNewAssociations();
    out << u"Os arquivos .mld não são mais abertos com "_qs << program << u'\n';
    return Done;
}

int Run(const QStringList& arguments, QTextStream& out, QTextStream& err)
{
    QSettings classes(uR"(HKEY_CURRENT_USER\Software\Classes)"_qs, QSettings::NativeFormat);
    if (arguments == QStringList(u"--registrar"_qs))
        return Register(classes, out, err);
    if (arguments == QStringList(u"--remover"_qs))
        return Unregister(classes, out, err);
    const bool asked = arguments == QStringList(u"--help"_qs);
    (asked ? out : err) << Help;
    return asked ? Done : NotDone;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Console console;
    QTextStream out(stdout);
    QTextStream err(stderr);
    const int code = Run(QCoreApplication::arguments().mid(1), out, err);
    out.flush();
    err.flush();
    if (Console::ClosesWithTheCommand()) {
        out << u"\nTecle Enter para fechar."_qs << Qt::flush;
        QTextStream(stdin).readLine();
    }
    return code;
}
