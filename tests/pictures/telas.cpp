// Makes a picture of every screen: telas DELIVERED_CATALOGUE PICTURE_FOLDER [visualizador] [escuro]
// With "visualizador" of the viewer only: it has to fit on screens that the main form is not for.
// With "escuro" as on a dark desktop.
// Works on copies in a folder of its own. Real forms, driven by real events; where the platform is
// a virtual screen, what is saved is what that screen shows.

#include "pictures/TelasCatalogoAntigo.h"
#include "pictures/TelasImportacao.h"

#include "app/Main.h"
#include "pictures/TelasCadastro.h"
#include "pictures/TelasExportacao.h"
#include "pictures/TelasVisualizador.h"
#include "pictures/TodasAsTelas.h"
#include "support/GeneratedSongs.h"
#include "support/TestCatalogue.h"
#include "viewer/frmVisualizar.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Telas;

namespace {

constexpr int ManySongs = 20000;
constexpr QRgb DarkDesktop = 0xff2d2d2d;

void ShowViewerAlone(Pictures& pictures, const QString& catalogue)
{
    Principal form(catalogue);
    form.Form_Load(QString());
    ShowViewers(pictures, {1});
    ShowEditing(pictures);
    ShowSetlist(pictures, catalogue);
    ShowLongHeader(pictures, catalogue);
}

void AddManySongs(const TestCatalogue& catalogue)
{
    const qint64 theme = catalogue.AddTheme(QStringLiteral("Louvor"), 1);
    SongGenerator generator(1);
    QString insert = QStringLiteral("BEGIN;");
    for (int id = 1; id <= ManySongs; ++id) {
        const GeneratedSong song = generator.Next();
        insert += QStringLiteral("INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, TOM, VARIACAO, "
                                 "CATEGORIA, CONTADOR) VALUES ('%1','%2','%3','%4','%5',%6,%7);"
                                 "INSERT INTO TEMA_MUSICA VALUES (%8,%9);")
                      .arg(song.title, song.reference, song.text, song.key, song.variation)
                      .arg(song.category)
                      .arg(song.count)
                      .arg(id)
                      .arg(theme);
    }
    catalogue.Run(insert + u"COMMIT;");
}

void ShowMany(Pictures& pictures)
{
    const TestCatalogue catalogue;
    AddManySongs(catalogue);
    Principal form(catalogue.Path());
    form.Form_Load(QString());
    form.show();
    WaitForSearch(form);
    pictures.Save(QStringLiteral("principal-20000"));
    frmVisualizar* viewer = Open(ManySongs / 2);
    Click(*viewer, QStringLiteral("cmbLista"));
    pictures.Save(QStringLiteral("visualizador-categoria-aberta"));
    viewer->close();
    ShowSuggestions(pictures, form);
    ShowExportProgress(pictures, form, ManySongs / 4);
    form.close();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    QStringList options = words.mid(3);
    const bool viewer = options.removeOne(u"visualizador"_qs);
    const bool dark = options.removeOne(u"escuro"_qs);
    if (words.size() < 3 || !options.isEmpty()) {
        QTextStream(stderr) << "telas DELIVERED_CATALOGUE PICTURE_FOLDER [visualizador] [escuro]"
                            << Qt::endl;
        return 2;
    }
    if (dark)
        QApplication::setPalette(QPalette(QColor(DarkDesktop)));
    QApplication::setQuitOnLastWindowClosed(false);
    Funcoes::Prepara(application);

    const QTemporaryDir folder;
    // Pickers remember the last folder: the next run would show another one.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    const QString copy = folder.filePath(QStringLiteral("Melodario.mdb"));
    if (!QFile::copy(words.at(1), copy) || !QDir().mkpath(words.at(2))) {
        QTextStream(stderr) << "no such catalogue, or no place for the pictures" << Qt::endl;
        return 2;
    }
    Pictures pictures(words.at(2), dark ? u"-escuro"_qs : QString());
    if (viewer) {
        ShowViewerAlone(pictures, copy);
        return 0;
    }
    ShowDelivered(pictures, copy);
    ShowMany(pictures);
    const auto save = [&pictures](const QString& name) { pictures.Save(name); };
    ShowImport(save);
    ShowOldCatalogue(save);
    return 0;
}
