// What the panel shows of the catalogue: the songs on offer, and a stored setlist for editing.

#include "main/PainelLista.h"

#include "ui_PainelLista.h"

#include "main/Datas.h"
#include "main/SQL_Lista.h"
#include "store/Connection.h"
#include "store/NotUnderstood.h"
#include "store/Preenche.h"

#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>

bool PainelLista::Inicializa_Lista()
{
    if (m_preparando)
        return true;
    m_preparando = true;
    const QPointer<PainelLista> vivo(this);
    const auto fim = qScopeGuard([vivo] {
        if (vivo)
            vivo->m_preparando = false;
    });
    if (!Preenche_Listas())
        return false;
    cmdLimpar_Click();
    if (!vivo || !Funcoes::Conexao.IsOpen())
        return false;
    Preenche_Temas();
    Oferece_Ao_Entrar();
    return true;
}

void PainelLista::Preenche_Temas()
{
    const QScopedValueRollback<bool> preenchendo(m_preenchendoTemas, true);
    Funcoes::SQL = SQL_Lista::Temas();
    Funcoes::Preenche_Combo(*ui->cmbTema, Funcoes::SQL, Value(-1), true, QStringLiteral("TODAS"));
}

void PainelLista::Preenche_Musicas_Disponiveis()
{
    SQL_Lista::Filtro filtro;
    filtro.categoria = ui->optTipo_0->isChecked() ? 1 : 2;
    if (const int tema = ui->cmbTema->ListIndex(); tema >= 1)
        filtro.tema = QString::number(ui->cmbTema->ItemData(tema));
    filtro.inicio = ui->txtFiltro->text();
    Funcoes::SQL = SQL_Lista::Musicas_Disponiveis(filtro);
    Funcoes::Preenche_ListBox(*ui->lstMusicasLista, Funcoes::SQL, QString(), true);
    Funcoes::Consulta = Funcoes::Conexao.Execute(Funcoes::SQL);
    ui->lblMusicasEncontradas->setText(QString::number(Funcoes::Consulta.RecordCount()) %
                                       u" Música(s) disponível(is)");
    Funcoes::Consulta.Close();
    m_falhaFiltro.reset();
}

/// Offers songs while the filter is typed. An apostrophe in it makes a statement that nobody
/// understands; while it stands every letter behind it fails in other words. So the first of these
/// failures stands for all. Any other failure is shown for itself.
void PainelLista::Oferece_Musicas()
{
    m_oferta.Run([this] {
        const bool apostrofo = ui->txtFiltro->text().contains(u'\'');
        if (!apostrofo)
            m_falhaFiltro.reset();
        try {
            Preenche_Musicas_Disponiveis();
        } catch (const NotUnderstood& falha) {
            if (!apostrofo)
                throw;
            if (!m_falhaFiltro)
                m_falhaFiltro = falha;
            throw RuntimeError(*m_falhaFiltro);
        }
    });
}

/// Offers songs when the panel comes up, which an apostrophe that was told of must not hinder.
void PainelLista::Oferece_Ao_Entrar()
{
    try {
        Preenche_Musicas_Disponiveis();
    } catch (const NotUnderstood&) {
        if (!m_falhaFiltro)
            throw;
    }
}

void PainelLista::Carrega_Lista(const QString& id)
{
    Funcoes::Consulta = Funcoes::Conexao.Execute(SQL_Lista::Lista(id));
    const Recordset lista = Funcoes::Consulta;
    if (lista.Eof())
        return;
    Marca_Identidade(id);
    ui->txtNome->setText(lista.Fields(u"NOME").ToText());
    Funcoes::Escreve_Maskedit(*ui->txtData, Funcoes::Prepara_Data(lista.Fields(u"DATA").ToText()));
    Carrega_Musicas(id);
}

void PainelLista::Copia_Lista(const QString& id)
{
    Funcoes::Consulta = Funcoes::Conexao.Execute(SQL_Lista::Lista(id));
    const Recordset lista = Funcoes::Consulta;
    if (lista.Eof())
        return;
    Marca_Identidade(QStringLiteral("0"));
    ui->txtNome->setText(u"Cópia de " % lista.Fields(u"NOME").ToText());
    Funcoes::Escreve_Maskedit(*ui->txtData, Hoje());
    Carrega_Musicas(id);
}

void PainelLista::Carrega_Musicas(const QString& id)
{
    Funcoes::SQL = SQL_Lista::Musicas_Da_Lista(id);
    Esvazia_Selecionadas();
    Funcoes::Preenche_ListBox(*ui->lstMusicasSelecionadas, Funcoes::SQL, QString(), true);
    Marca_Modificada(false);
    Funcoes::Consulta = Funcoes::Conexao.Execute(Funcoes::SQL);
    const int musicas = Funcoes::Consulta.RecordCount();
    if (musicas == 0)
        Esvazia_Selecionadas(); // the filler's row for "nothing there" is no song of a setlist
    Mostra_Contagem(musicas);
    Funcoes::Consulta.Close();
}

void PainelLista::txtFiltro_Change()
{
    Oferece_Musicas();
}

void PainelLista::txtFiltro_KeyDown(int tecla)
{
    if (tecla == Qt::Key_Return)
        Adiciona_Lista();
}

void PainelLista::optTipo_Click()
{
    Preenche_Musicas_Disponiveis();
}

void PainelLista::cmbTema_Click()
{
    // Filling the themes chooses one; the songs are offered once they are all there.
    if (!m_preenchendoTemas)
        Preenche_Musicas_Disponiveis();
}
