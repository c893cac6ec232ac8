#include "main/Linhas_Musicas.h"

#include "runtime/RuntimeError.h"

namespace {

/// Looking a column up by its name costs as much as reading it, so it is done once per list.
int Posicao(const QStringList& nomes, const QString& nome)
{
    for (int i = 0; i < nomes.size(); ++i) {
        if (nomes.at(i).compare(nome, Qt::CaseInsensitive) == 0)
            return i;
    }
    throw RuntimeError(RuntimeError::ItemNotFound,
                       QStringLiteral("Não foi possível listar as músicas."), nome);
}

} // namespace

std::vector<LinhaMusica> Le_Linhas_Musicas(Recordset& musicas)
{
    const QStringList nomes = musicas.FieldNames();
    const int id = Posicao(nomes, QStringLiteral("ID"));
    const int titulo = Posicao(nomes, QStringLiteral("TITULO"));
    const int referencia = Posicao(nomes, QStringLiteral("REFERENCIA"));
    const int tom = Posicao(nomes, QStringLiteral("TOM"));
    const int variacao = Posicao(nomes, QStringLiteral("VARIACAO"));
    const int contador = Posicao(nomes, QStringLiteral("CONTADOR"));

    std::vector<LinhaMusica> linhas;
    linhas.reserve(static_cast<std::size_t>(musicas.RecordCount()));
    for (; !musicas.Eof(); musicas.MoveNext()) {
        LinhaMusica linha;
        linha.id = musicas.Fields(id).ToNumber();
        linha.titulo = musicas.Fields(titulo).ToText();
        linha.referencia = musicas.Fields(referencia).ToText();
        linha.tom = musicas.Fields(tom).ToText() % musicas.Fields(variacao).ToText();
        linha.contador = musicas.Fields(contador).ToText();
        linhas.push_back(std::move(linha));
    }
    return linhas;
}
