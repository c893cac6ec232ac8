#include "exchange/Musica_Exportada.h"

#include "exchange/SQL_Exportacao.h"
#include "store/Connection.h"

namespace {

// Columns by their place in the statement.
enum Coluna { Id, Titulo, Referencia, Letra1, Letra2, Tom, Variacao, Categoria };

template <typename Texto>
std::optional<Texto> Campo(const Recordset& linha, Coluna coluna);

template <>
std::optional<QString> Campo(const Recordset& linha, Coluna coluna)
{
    const Value valor = linha.Fields(coluna);
    if (valor.IsNull())
        return std::nullopt;
    return valor.ToText();
}

template <>
std::optional<QByteArray> Campo(const Recordset& linha, Coluna coluna)
{
    return linha.Utf8(coluna);
}

template <typename Texto>
ExchangeSongOf<Texto> Musica(const Recordset& linha)
{
    ExchangeSongOf<Texto> musica;
    musica.titulo = Campo<Texto>(linha, Titulo);
    musica.referencia = Campo<Texto>(linha, Referencia);
    musica.letra1 = Campo<Texto>(linha, Letra1);
    musica.letra2 = Campo<Texto>(linha, Letra2);
    musica.tom = Campo<Texto>(linha, Tom);
    musica.variacao = Campo<Texto>(linha, Variacao);
    const Value categoria = linha.Fields(Categoria);
    if (!categoria.IsNull())
        musica.categoria = static_cast<int>(categoria.ToNumber());
    return musica;
}

} // namespace

ExchangeSong Musica_Exportada(const Recordset& linha)
{
    return Musica<QString>(linha);
}

StoredSong Musica_Guardada(const Recordset& linha)
{
    return Musica<QByteArray>(linha);
}

QString Id_Exportado(const Recordset& linha)
{
    return linha.Fields(Id).ToText();
}

QList<QByteArray> Temas_Exportados(const QString& id)
{
    Funcoes::SQL = SQL_Temas_Exportados(id);
    Recordset temas = Funcoes::Conexao.Execute(Funcoes::SQL);
    QList<QByteArray> descricoes;
    for (; !temas.Eof(); temas.MoveNext()) {
        const QByteArray descricao = temas.Utf8(0).value_or(QByteArray());
        // A copy: these rows do not outlive the statement.
        descricoes.append(QByteArray(descricao.constData(), descricao.size()));
    }
    return descricoes;
}
