// The half of the main form that hands songs to the export form.

#include "main/frmPrincipal.h"

#include "ui_frmPrincipal.h"

#include "controls/Dialogs.h"
#include "exchange/frmExportar.h"

#include <QScopeGuard>

QString frmPrincipal::Musicas_Selecionadas() const
{
    QString lista;
    const QList<qint64> marcadas = ui->pctFrame_0->Musicas_Marcadas();
    for (const qint64 id : marcadas)
        lista += QString::number(id) % u',';
    return lista;
}

void frmPrincipal::mnuExportar_Click()
{
    if (m_exportar)
        return; // events run while it is being filled
    const QString lista = Musicas_Selecionadas();
    if (lista.isEmpty()) {
        Funcoes::Mostra_Mensagem(
            this, QStringLiteral("Marque as músicas da lista que você deseja exportar."),
            Icone::Informacao);
        return;
    }
    m_exportar = new frmExportar(*this, this);
    const QPointer<frmExportar> form = m_exportar;
    const auto descarga = qScopeGuard([&form] { delete form; });
    if (!form->Inicializa(lista))
        return;
    const QPointer<frmPrincipal> vivo(this);
    form->ShowModal();
    delete form;
    // The message and the form go at one time. A window manager that hands the keyboard from the
    // one to the other may be late and leave nobody with it.
    if (vivo && vivo->isVisible())
        vivo->activateWindow();
}

void frmPrincipal::Preenche_Musicas(QString sql, ListaMusicas& lista)
{
    ui->pctFrame_0->Preenche_Musicas(std::move(sql), lista);
}
