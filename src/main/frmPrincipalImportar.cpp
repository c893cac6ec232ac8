// The half of the main form that imports exchange files.

#include "main/frmPrincipal.h"

#include "ui_frmPrincipal.h"

#include "controls/FileDialogs.h"
#include "exchange/Importa_Musicas.h"

#include <QScopeGuard>
#include <QTimer>

void frmPrincipal::mnuImportar_Click()
{
    if (m_importando)
        return; // a file that is picked now would be dropped without a word
    const QString extensao = QStringLiteral("mld");
    Pedido_Arquivo pedido;
    pedido.especie = Pedido_Arquivo::Abrir;
    pedido.titulo = QStringLiteral("Importar...");
    pedido.filtro = u"Arquivo Melodario" % (u" (*." % extensao % u") | *." % extensao);
    const QPointer<frmPrincipal> vivo(this);
    const QString arquivo = Funcoes::Escolhe_Arquivo(this, pedido);
    if (vivo && m_conectado && !arquivo.isEmpty())
        Importa_Musicas(arquivo);
}

void frmPrincipal::Importa_Musicas(const QString& caminho)
{
    if (m_importando)
        return;
    const QPointer<frmPrincipal> vivo(this);
    m_importando = true;
    // A search that waits does not run between the songs of one portion.
    const bool espera = Timer1->isActive();
    Timer1->stop();
    const auto termina = qScopeGuard([&vivo, espera] {
        if (!vivo)
            return;
        vivo->m_importando = false;
        if (espera && vivo->m_conectado)
            vivo->Reinicia_Timer1();
    });
    Funcoes::Importa_Musicas(caminho, *this, *this);
}

void frmPrincipal::Preenche_Temas()
{
    ui->pctFrame_0->Preenche_Temas();
}
