#include "main/Linhas_Musicas.h"

#include "runtime/RuntimeError.h"

namespace {

/// Looking a column up by its name costs as much as reading it, so it is done once per list.
int Coluna(const Recordset& musicas, const QString& nome)
{
    const QStringList nomes = musicas.FieldNames();
    for (int i = 0; i < nomes.size(); ++i) {
        if (nomes.at(i).compare(nome, Qt::CaseInsensitive) == 0)
            return i;
    }
    throw RuntimeError(RuntimeError::ItemNotFound,
                       QStringLiteral("Não foi possível listar as músicas."), nome);
}

class Linhas final : public FonteMusicas
{
public:
    explicit Linhas(Recordset musicas)
        : m_musicas(std::move(musicas))
        , m_quantas(m_musicas.RecordCount())
        , m_id(Coluna(m_musicas, QStringLiteral("ID")))
        , m_titulo(Coluna(m_musicas, QStringLiteral("TITULO")))
        , m_referencia(Coluna(m_musicas, QStringLiteral("REFERENCIA")))
        , m_tom(Coluna(m_musicas, QStringLiteral("TOM")))
        , m_variacao(Coluna(m_musicas, QStringLiteral("VARIACAO")))
        , m_contador(Coluna(m_musicas, QStringLiteral("CONTADOR")))
    {
    }

    int Quantas() const override { return m_quantas; }

    qint64 Id(int posicao) const override
    {
        m_musicas.MoveTo(posicao);
        return m_musicas.Fields(m_id).ToNumber();
    }

    LinhaMusica Le(int posicao) const override
    {
        LinhaMusica linha;
        linha.id = Id(posicao);
        linha.titulo = m_musicas.Fields(m_titulo).ToText();
        linha.referencia = m_musicas.Fields(m_referencia).ToText();
        linha.tom = m_musicas.Fields(m_tom).ToText() % m_musicas.Fields(m_variacao).ToText();
        linha.contador = m_musicas.Fields(m_contador).ToText();
        return linha;
    }

private:
    mutable Recordset m_musicas; // its current row is wherever it was read last
    int m_quantas;
    int m_id;
    int m_titulo;
    int m_referencia;
    int m_tom;
    int m_variacao;
    int m_contador;
};

} // namespace

std::shared_ptr<const FonteMusicas> Fonte_Musicas(Recordset musicas)
{
    return std::make_shared<Linhas>(std::move(musicas));
}
