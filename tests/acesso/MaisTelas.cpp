#include "acesso/MaisTelas.h"

#include "pictures/TelasCadastro.h"
#include "pictures/TelasExportacao.h"
#include "viewer/frmVisualizar.h"

#include <QAbstractButton>
#include <QMessageBox>

namespace Telas {

namespace {

void SetList(QWidget& form, const QString& name)
{
    auto* box = form.findChild<QLineEdit*>(u"txtNome"_qs);
    box->selectAll();
    QTest::keyClicks(box, name);
}

/// Answers the dialog of a stored setlist. @param button  of the dialog
void InSetlist(QWidget& form, int row, const QString& button)
{
    WhenBoxIsOpen(form, [button](QDialog& dialog) { Click(dialog, button); });
    DoubleClick(form, "lstLista", row);
}

/// A setlist's life: stored, changed, copied, deleted.
void ShowSetlistMessages(Pictures& pictures, Principal& form)
{
    form.mnuLista_Click();
    SetList(form, u"Ensaio"_qs);
    DoubleClick(form, "lstMusicasLista", 1);
    const auto save = [&form] { Click(form, u"cmdSalvar"_qs); };
    SaveBox(pictures, u"lista-cadastrada"_qs, save);
    InSetlist(form, 0, u"cmdEditar"_qs);
    SaveBox(pictures, u"lista-alterada"_qs, save);
    InSetlist(form, 0, u"cmdCopiar"_qs);
    pictures.Save(u"lista-copia"_qs);
    // Yes to the question, then the message that it is gone.
    WhenBoxIsOpen(form, [&](QDialog& dialog) {
        WhenBoxIsOpen(form, [&](QDialog& question) {
            pictures.Save(u"lista-excluir"_qs);
            WhenBoxIsOpen(pictures,
                          [&](QDialog& box) { SaveAndClose(pictures, u"lista-excluida"_qs, box); });
            static_cast<QMessageBox&>(question).button(QMessageBox::Yes)->click();
        });
        Click(dialog, u"cmdExcluir"_qs);
    });
    DoubleClick(form, "lstLista", 0);
    form.findChild<QLineEdit*>(u"txtFiltro"_qs)->setText(u"zzz"_qs);
    pictures.Save(u"lista-nenhuma"_qs);
}

void ShowViewerTexts(Pictures& pictures)
{
    auto* viewer = Open(1);
    SaveBox(pictures, u"visualizador-copiada"_qs, [viewer] { viewer->Copia_Musica(); });
    Click(*viewer, u"lblVersao"_qs);
    pictures.Save(u"visualizador-versao-1"_qs);
    viewer->close();
    auto* empty = new frmVisualizar; // deletes itself when closed
    empty->ID_Lista = 999;
    empty->Show();
    pictures.Save(u"visualizador-lista-sem-musica"_qs);
    empty->close();
    QTest::qWait(PaintMs);
}

} // namespace

void ShowTheRest(Pictures& pictures, const QString& catalogue)
{
    Principal form(catalogue);
    form.Form_Load(QString());
    form.show();
    auto* clock = form.findChild<QTimer*>(u"Timer1"_qs);
    clock->stop(); // however long the painting takes
    pictures.Save(u"principal-antes-da-pesquisa"_qs);
    clock->start();
    WaitForSearch(form);
    SaveBox(pictures, u"sobre"_qs, [&form] { form.mnuSobre_Click(); });
    SaveBox(pictures, u"comando-abrir"_qs, [&form] { form.Executa_Comando(u"abrir@1"_qs); });
    WhenBoxIsOpen(pictures, [&pictures](QDialog& picker) {
        pictures.Save(u"importar-abrir"_qs);
        picker.reject();
    });
    form.mnuImportar_Click();
    ShowSetlistMessages(pictures, form);
    ShowViewerTexts(pictures);
    ShowSuggestions(pictures, form);
    ShowExportProgress(pictures, form, 0);
    form.close();
}

} // namespace Telas
