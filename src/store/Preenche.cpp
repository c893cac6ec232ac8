#include "store/Preenche.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "store/Connection.h"
#include "store/ListControl.h"

#include <QSet>

namespace {

/// Frames a fill, also one that an error ends.
class Fill
{
public:
    explicit Fill(ListControl& list)
        : m_list(list)
    {
        m_list.BeginFill();
    }
    ~Fill() { m_list.EndFill(); }
    Fill(const Fill&) = delete;
    Fill& operator=(const Fill&) = delete;

private:
    ListControl& m_list;
};

void AddRow(ListControl& list, qint64 id, const QString& text)
{
    list.AddItem(text);
    list.SetItemData(list.NewIndex(), id);
}

/// @return a number as it is: a fraction is not rounded, nothing is too large.
double Exactly(const Value& number)
{
    const auto* real = std::get_if<double>(&number.Get());
    return real ? *real : static_cast<double>(number.ToNumber());
}

bool IsSelection(const Value& selecao, const Value& id, const QString& text)
{
    if (!selecao.IsNumber())
        return selecao.ToText() == text;
    const double number = Exactly(selecao);
    return number >= 0 && number == Exactly(id);
}

/// Selects every item whose identifier is written among the texts.
void SelectListed(ListControl& list, const QString& selecionados)
{
    const QStringList parts = Text::Split(selecionados, u',');
    const QSet<QString> ids(parts.begin(), parts.end());
    for (int i = 0; i < list.ListCount(); ++i) {
        if (ids.contains(QString::number(list.ItemData(i))))
            list.SetSelected(i, true);
    }
}

} // namespace

// The query comes by value: a handler that runs inside the fill writes the shared buffer.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void Funcoes::Preenche_Combo(ListControl& controle, QString consulta, const Value& selecao,
                             bool seleciona_unico, const QString& primeiro_item)
{
    const Fill fill(controle);
    controle.Clear();
    Recordset rows = Conexao.Execute(consulta);
    if (rows.Eof()) {
        if (controle.Style() != ListControl::EditableCombo) {
            controle.AddItem(QStringLiteral("Não Cadastrado"));
            controle.SetListIndex(0);
        }
        return;
    }
    if (!primeiro_item.isEmpty()) {
        AddRow(controle, 0, primeiro_item);
        controle.SetListIndex(0);
    }
    const bool selectOnly = seleciona_unico && rows.RecordCount() == 1;
    for (; !rows.Eof(); rows.MoveNext()) {
        const Value id = rows.Fields(0);
        const QString text = rows.Fields(1).ToText();
        AddRow(controle, id.ToNumber(), text);
        if (selectOnly || IsSelection(selecao, id, text))
            controle.SetListIndex(controle.NewIndex());
    }
}

// The query comes by value: a handler that runs inside the fill writes the shared buffer.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void Funcoes::Preenche_ListBox(ListControl& controle, QString consulta, const QString& selecionados,
                               bool seleciona_unico)
{
    const Fill fill(controle);
    controle.Clear();
    Recordset rows = Conexao.Execute(consulta);
    if (rows.Eof()) {
        controle.AddItem(QStringLiteral("Não há dados a serem mostrados."));
        return;
    }
    const bool selectOnly = seleciona_unico && selecionados.isEmpty() && rows.RecordCount() == 1;
    for (; !rows.Eof(); rows.MoveNext()) {
        AddRow(controle, rows.Fields(0).ToNumber(), rows.Fields(1).ToText());
        if (selectOnly)
            controle.SetSelected(controle.NewIndex(), true);
    }
    try {
        SelectListed(controle, selecionados);
    } catch (const RuntimeError&) {
        // What is not selected by now stays so.
    }
}

QString Funcoes::Busca_Temas_Musica(double id)
{
    // In a text of its own: the shared buffer belongs to whoever asks.
    Recordset rows = Conexao.Execute(
        QStringLiteral("SELECT TEMA.DESCRICAO, TEMA.COR FROM TEMA_MUSICA INNER JOIN TEMA "
                       "ON TEMA.ID = TEMA_MUSICA.ID_TEMA WHERE ID_MUSICA = 0") +
        Number::ToText(id) + QStringLiteral(" ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"));
    QStringList themes;
    for (; !rows.Eof(); rows.MoveNext())
        themes << rows.Fields(u"DESCRICAO").ToText();
    return themes.join(u", "_qs);
}
