#include "pictures/TelasExportacao.h"

#include "support/PlainSqlite.h"

#include <QMessageBox>
#include <QProgressBar>
#include <QTemporaryDir>

namespace Telas {

namespace {

void InExportForm(Principal& form, const std::function<void(QDialog&)>& act)
{
    WithWindow<QDialog>([&form] { form.mnuExportar_Click(); }, act);
}

/// Exports from the form and takes a picture of the message that comes in the end.
void SaveExported(Pictures& pictures, const QString& name, QDialog& dialog)
{
    WithWindow<QMessageBox>([&dialog] { Click(dialog, QStringLiteral("cmdExportar")); },
                            [&](QMessageBox&) { pictures.Save(name); });
}

} // namespace

void ShowExport(Pictures& pictures, Principal& form)
{
    auto* songs = form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicas"));
    songs->clearSelection();
    SaveBox(pictures, QStringLiteral("exportar-nenhuma"), [&form] { form.mnuExportar_Click(); });
    songs->selectAll();
    const QTemporaryDir folder;
    InExportForm(form, [&](QDialog& dialog) {
        pictures.Save(QStringLiteral("exportar"));
        SaveBox(pictures, QStringLiteral("exportar-salvar"),
                [&dialog] { Click(dialog, QStringLiteral("cmdExportar")); });
        QTest::keyClick(dialog.findChild<QWidget*>(QStringLiteral("chkArquivo")), Qt::Key_Space);
        SaveBox(pictures, QStringLiteral("exportar-pasta"),
                [&dialog] { Click(dialog, QStringLiteral("cmdExportar")); });
        const ChosenPlace place(folder.path());
        SaveExported(pictures, QStringLiteral("exportar-arquivos-gerados"), dialog);
    });
    InExportForm(form, [&](QDialog& dialog) {
        const ChosenPlace place(folder.filePath(QStringLiteral("domingo.mld")));
        SaveExported(pictures, QStringLiteral("exportar-arquivo-gerado"), dialog);
    });
    InExportForm(form, [&](QDialog& dialog) {
        // A place that is gone: the next picker has to begin in one that it can list.
        const ChosenPlace place(QStringLiteral("/media/pendrive/domingo.mld"));
        SaveExported(pictures, QStringLiteral("exportar-recusado"), dialog);
    });
}

void ShowExportNotice(Pictures& pictures, Principal& form, const QString& catalogue)
{
    PlainSqlite database(catalogue);
    database.Run("UPDATE MUSICA SET TITULO = 'Rock & roll do sertão' WHERE ID = 2;"
                 "UPDATE MUSICA SET REFERENCIA = 'Tradição ♪' WHERE ID IN (3, 4, 5)");
    form.Pesquisa();
    auto* songs = form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicas"));
    songs->selectAll();
    InExportForm(form, [&](QDialog&) { pictures.Save(QStringLiteral("exportar-aviso")); });
}

void ShowExportProgress(Pictures& pictures, Principal& form, int written)
{
    form.mnuPesquisa_Click();
    form.Pesquisa();
    form.findChild<QAbstractItemView*>(QStringLiteral("lstMusicas"))->selectAll();
    const QTemporaryDir folder;
    const ChosenPlace place(folder.filePath(QStringLiteral("todas.mld")));
    InExportForm(form, [&](QDialog& dialog) {
        pictures.Save(QStringLiteral("exportar-20000"));
        const auto* bar = dialog.findChild<QProgressBar*>();
        bool saved = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &dialog, [&] {
            if (bar->isVisible() && bar->value() >= written && !std::exchange(saved, true))
                pictures.Save(QStringLiteral("exportar-andamento"));
        });
        watch.start(0);
        SaveExported(pictures, QStringLiteral("exportar-20000-gerado"), dialog);
    });
}

} // namespace Telas
