#include "app/Main.h"

#include "app/frmSplash.h"
#include "artwork/Artwork.h"
#include "controls/Appearance.h"
#include "fonts/ProgramFonts.h"
#include "main/Conecta_Banco.h"
#include "main/frmPrincipal.h"
#include "runtime/Version.h"
#include "store/Arquivo.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

void Funcoes::Prepara(QApplication& programa)
{
    QApplication::setApplicationName(QStringLiteral("Melodario"));
    QApplication::setOrganizationName(QStringLiteral("Melodario"));
    QApplication::setApplicationVersion(Version::ToText());
    // The name of the menu entry, by which a desktop finds the icon of a window.
    QApplication::setDesktopFileName(QStringLiteral("melodario"));
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    // The buttons of boxes come from the toolkit.
    auto* traducao = new QTranslator(&programa);
    if (traducao->load(QStringLiteral("qtbase_pt_BR"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(traducao);
    ProgramFonts::Load(Funcoes::Pasta_Programa() % u"/fontes");
    Appearance::Apply(programa);
    QApplication::setWindowIcon(QIcon(Artwork::Path(QStringLiteral("melodario"))));
}

QString Funcoes::Linha_Comando(const QStringList& argumentos)
{
    return argumentos.mid(1).join(u' ').remove(u'"');
}

namespace {

void Mostra_Splash(frmPrincipal& principal)
{
    const QString linha_comando = Funcoes::Linha_Comando(QApplication::arguments());
    auto splash = std::make_unique<frmSplash>(
        principal, [&principal, linha_comando] { principal.Form_Load(linha_comando); });
    // A box that is closed while nothing else is open yet must not end the program.
    QApplication::setQuitOnLastWindowClosed(false);
    splash->Form_Load();
    splash.release()->show(); // it destroys itself
    QApplication::setQuitOnLastWindowClosed(true);
}

} // namespace

int Funcoes::Main(QApplication& programa)
{
    Prepara(programa);
    try {
        frmPrincipal principal;
        Mostra_Splash(principal);
        return QApplication::exec();
    } catch (const Fim_Programa&) {
        return 1;
    }
}
