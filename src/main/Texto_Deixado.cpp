#include "main/Texto_Deixado.h"

#include <algorithm>

namespace {

using JetConversion::LeftBehind;

/// More of them would hide the question itself.
constexpr qsizetype Na_Pergunta = 8;

/// As many as fit on a small screen.
constexpr qsizetype No_Relatorio = 12;

/// No table or column has a longer name; a damaged file may say what it likes.
constexpr qsizetype Maior_Nome = 64;

qsizetype Quantos(const LeftBehind& deixado)
{
    return deixado.tables.size() + deixado.columns.size();
}

QStringList Linhas(const LeftBehind& deixado)
{
    QStringList linhas;
    for (const QString& tabela : deixado.tables)
        linhas.append(u"a tabela "_qs + tabela.simplified().left(Maior_Nome));
    for (const QString& coluna : deixado.columns)
        linhas.append(u"a coluna "_qs + coluna.simplified().left(2 * Maior_Nome + 1));
    return linhas;
}

} // namespace

bool Texto_Deixado::Diz_Tudo(const std::optional<LeftBehind>& deixado)
{
    return deixado && Quantos(*deixado) <= Na_Pergunta;
}

QString Texto_Deixado::Antes(const std::optional<LeftBehind>& deixado)
{
    if (!deixado)
        return u"\n\nO que o Melodario não conhece não é levado para o catálogo novo; se houver "
               "algo assim, será dito depois da conversão."_qs;
    if (deixado->IsEmpty())
        return {};
    if (!Diz_Tudo(deixado))
        return u"\n\nO Melodario não conhece %1 tabelas e colunas deste arquivo, e por isso não as "
               "leva para o catálogo novo; depois da conversão será dito quais são."_qs.arg(
                   Quantos(*deixado));
    return u"\n\nO Melodario não conhece, e por isso não leva para o catálogo novo: "_qs +
           deixado->ToText() + u'.';
}

QString Texto_Deixado::Depois(const LeftBehind& deixado, const QString& guardado)
{
    const QStringList linhas = Linhas(deixado);
    const qsizetype mostradas = std::min(linhas.size(), No_Relatorio);
    QString texto = u"O catálogo foi convertido.\n\nO Melodario não conhece o que segue, que por "
                    "isso ficou só no arquivo antigo, '%1':\n\n"_qs.arg(guardado) +
                    linhas.first(mostradas).join(u'\n');
    if (mostradas < linhas.size())
        texto += u"\n... e mais "_qs + QString::number(linhas.size() - mostradas);
    return texto;
}
