#include "exchange/Musica_Exportada.h"

#include "exchange/SQL_Exportacao.h"
#include "store/Connection.h"

namespace {

// Columns by their place in the statement.
enum Coluna { Id, Titulo, Referencia, Letra1, Letra2, Tom, Variacao, Categoria };

std::optional<QString> Texto(const Recordset& linha, Coluna coluna)
{
    const Value valor = linha.Fields(coluna);
    if (valor.IsNull())
        return std::nullopt;
    return valor.ToText();
}

} // namespace

ExchangeSong Musica_Exportada(const Recordset& linha)
{
    ExchangeSong musica;
    musica.titulo = Texto(linha, Titulo);
    musica.referencia = Texto(linha, Referencia);
    musica.letra1 = Texto(linha, Letra1);
    musica.letra2 = Texto(linha, Letra2);
    musica.tom = Texto(linha, Tom);
    musica.variacao = Texto(linha, Variacao);
    const Value categoria = linha.Fields(Categoria);
    if (!categoria.IsNull())
        musica.categoria = static_cast<int>(categoria.ToNumber());
    return musica;
}

QString Id_Exportado(const Recordset& linha)
{
    return linha.Fields(Id).ToText();
}

QStringList Temas_Exportados(const QString& id)
{
    Funcoes::SQL = SQL_Temas_Exportados(id);
    Recordset temas = Funcoes::Conexao.Execute(Funcoes::SQL);
    QStringList descricoes;
    for (; !temas.Eof(); temas.MoveNext())
        descricoes.append(temas.Fields(0).ToText());
    return descricoes;
}
