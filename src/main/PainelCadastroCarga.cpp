// How a song, or none, comes into the panel.

#include "main/PainelCadastro.h"

#include "ui_PainelCadastro.h"

#include "chords/Cifra.h"
#include "chords/Notas.h"
#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "store/Preenche.h"

using namespace Funcoes;

namespace {

constexpr int IdTomInicial = 1; // TOM.ID of the key that a new song begins with

void Carrega_Notas()
{
    SQL = u"SELECT * FROM TOM ORDER BY ORDEM"_qs;
    Consulta = Conexao.Execute(SQL);
    Notas[0] = u"?"_qs;
    Notas_Mais[0] = u"?"_qs;
    for (std::size_t i = 1; !Consulta.Eof(); ++i, Consulta.MoveNext()) {
        if (i >= Notas.size())
            RuntimeError::ThrowSubscriptOutOfRange();
        Notas[i] = Consulta.Fields(u"NOTA").ToText();
        Notas_Mais[i] = Consulta.Fields(u"MAIS").ToText();
    }
    Consulta.Close();
}

/// @return the song's TEMA.ID, decimal digits joined by bare commas
QString Temas_Da_Musica(double id)
{
    SQL = u"SELECT * FROM TEMA_MUSICA WHERE ID_MUSICA = 0"_qs + Number::ToText(id);
    Consulta = Conexao.Execute(SQL);
    QStringList temas;
    for (; !Consulta.Eof(); Consulta.MoveNext())
        temas.append(Consulta.Fields(u"ID_TEMA").ToText());
    Consulta.Close();
    return temas.join(u',');
}

} // namespace

void PainelCadastro::Inicializa_Cadastro(double id)
{
    if (id == 0)
        Prepara_Musica_Nova();
    else
        Carrega_Musica(id);
    lblMostraMusica_Click(0);
}

void PainelCadastro::Prepara_Musica_Nova()
{
    Guarda_Identidade(u"0"_qs);
    Habilita_Musica_Guardada(false);
    ui->txtCadTitulo->clear();
    ui->txtCadReferencia->clear();
    for (RichTextBox* caixa : txtCadLetra)
        caixa->SetText(QString());
    Preenche_Tons(IdTomInicial);
    Preenche_Variacoes(u""_qs);
    Preenche_Categorias(0);
    Preenche_Temas(QString());
}

void PainelCadastro::Carrega_Musica(double id)
{
    const auto devolve = Guarda_Estado();
    try {
        if (const auto letras = Carrega_Dados(id))
            Mostra_Letras(*letras);
    } catch (...) {
        // Half of one song and half of another could be saved over either.
        devolve();
        throw;
    }
}

/// Reads all that the panel shows of a song and shows what is drawn quickly. Another program that
/// wants to write waits for as long.
/// @return both versions of the song's text; nothing when there is no such song
std::optional<std::array<QString, 2>> PainelCadastro::Carrega_Dados(double id)
{
    // A song and its themes as they belong together, whatever another program is about to change.
    const Connection::Snapshot umEstado(Conexao);
    Carrega_Notas();
    SQL = u"SELECT * FROM MUSICA WHERE ID = 0"_qs + Number::ToText(id);
    // The row is kept apart: whatever reacts to the boxes' changes reads rows of its own into the
    // shared recordset.
    const Recordset musica = Conexao.Execute(SQL);
    if (musica.Eof())
        return std::nullopt;
    Guarda_Identidade(Number::ToText(id));
    Habilita_Musica_Guardada(true);
    ui->txtCadTitulo->setText(musica.Fields(u"TITULO").ToText());
    ui->txtCadReferencia->setText(musica.Fields(u"REFERENCIA").ToText());
    Preenche_Tons(musica.Fields(u"TOM"));
    Preenche_Variacoes(musica.Fields(u"VARIACAO"));
    std::array<QString, 2> letras{musica.Fields(u"MUSICA").ToText(),
                                  musica.Fields(u"MUSICA2").ToText()};
    if (letras[1].isEmpty())
        letras[1] = letras[0];
    Preenche_Categorias(
        Number::ToInteger(static_cast<double>(musica.Fields(u"CATEGORIA").ToNumber())) - 1);
    Preenche_Temas(Temas_Da_Musica(id));
    return letras;
}

void PainelCadastro::Mostra_Letras(const std::array<QString, 2>& letras)
{
    for (std::size_t i = 0; i < letras.size(); ++i)
        txtCadLetra[i]->SetTextRTF(Monta_Cifra(letras[i], 0, AjusteFonte, true));
}

void PainelCadastro::Preenche_Tons(const Value& selecao)
{
    SQL = u"SELECT ID, NOTA FROM TOM ORDER BY ORDEM"_qs;
    Preenche_Combo(*ui->cmbCadTom, SQL, selecao, true, QString());
}

void PainelCadastro::Preenche_Variacoes(const Value& selecao)
{
    SQL = u"SELECT ID, NOMENCLATURA FROM VARIACAO ORDER BY ID"_qs;
    Preenche_Combo(*ui->cmbCadVariacao, SQL, selecao, true, QString());
}

void PainelCadastro::Preenche_Categorias(int posicao)
{
    ComboBox& categorias = *ui->cmbCadCategoria;
    categorias.Clear();
    categorias.AddItem(u"Religiosa"_qs);
    categorias.SetItemData(categorias.NewIndex(), 1);
    categorias.AddItem(u"Secular"_qs);
    categorias.SetItemData(categorias.NewIndex(), 2);
    categorias.SetListIndex(posicao);
}

void PainelCadastro::Preenche_Temas(const QString& selecionados)
{
    SQL = u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs;
    Preenche_ListBox(*ui->lstCadTema, SQL, selecionados, true);
}
