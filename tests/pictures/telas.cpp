// Makes a picture of every screen: telas DELIVERED_CATALOGUE PICTURE_FOLDER [visualizador]
// With the third word, of the viewer only: it has to fit on screens that the main form is not for.
// Works on copies in a folder of its own. Real forms, driven by real events; where the platform is
// a virtual screen, what is saved is what that screen shows.

#include "TelasCatalogoAntigo.h"
#include "TelasImportacao.h"

#include "app/Main.h"
#include "app/frmSplash.h"
#include "pictures/TelasCadastro.h"
#include "pictures/TelasExportacao.h"
#include "pictures/TelasLista.h"
#include "pictures/TelasTeclado.h"
#include "pictures/TelasVisualizador.h"
#include "support/GeneratedSongs.h"
#include "support/TestCatalogue.h"
#include "viewer/frmVisualizar.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Telas;

namespace {

constexpr int ManySongs = 20000;

void ShowDelivered(Pictures& pictures, const QString& catalogue)
{
    Principal form(catalogue);
    auto* splash = new frmSplash(form, [&form] { form.Form_Load(QString()); });
    splash->Form_Load();
    splash->show();
    pictures.Save(QStringLiteral("abertura"));
    splash->Inicializar();
    QTest::qWait(SearchMs);
    pictures.Save(QStringLiteral("principal"));
    Type(form, QStringLiteral("zzz"));
    pictures.Save(QStringLiteral("principal-vazio"));
    Type(form, QStringLiteral("pei"));
    pictures.Save(QStringLiteral("principal-tres-letras"));
    ShowKeyboard(pictures, form);
    Type(form, QString());
    ShowExport(pictures, form);
    ShowViewers(pictures, {1, 2, 3});
    ShowEditing(pictures);
    ShowEntry(pictures, form, catalogue);
    ShowSetlist(pictures, catalogue);
    form.mnuPesquisa_Click();
    ShowExportNotice(pictures, form, catalogue);
    ShowSetlists(pictures, form);
    ShowLongHeader(pictures, catalogue);
    form.close();
}

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
    QTest::qWait(SearchMs);
    pictures.Save(QStringLiteral("principal-20000"));
    frmVisualizar* viewer = Open(ManySongs / 2);
    Click(*viewer, QStringLiteral("cmbLista"));
    pictures.Save(QStringLiteral("visualizador-categoria-aberta"));
    viewer->close();
    ShowSuggestions(pictures, form);
    ShowExportProgress(pictures, form, ManySongs);
    form.close();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    const bool viewer = words.value(3) == u"visualizador";
    if (words.size() != (viewer ? 4 : 3)) {
        QTextStream(stderr) << "telas DELIVERED_CATALOGUE PICTURE_FOLDER [visualizador]"
                            << Qt::endl;
        return 2;
    }
    QApplication::setQuitOnLastWindowClosed(false);
    Funcoes::Prepara(application);

    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("Melodario.mdb"));
    if (!QFile::copy(words.at(1), copy) || !QDir().mkpath(words.at(2))) {
        QTextStream(stderr) << "no such catalogue, or no place for the pictures" << Qt::endl;
        return 2;
    }
    Pictures pictures(words.at(2));
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
