#include "exchange/Exporta_Musicas.h"

#include "exchange/Musica_Exportada.h"
#include "exchange/SQL_Exportacao.h"
#include "mld/ExchangeWriter.h"
#include "runtime/RuntimeError.h"
#include "store/Arquivo.h"
#include "store/CodePage.h"
#include "store/Connection.h"
#include "store/text/Utf8.h"

namespace {

QString Nome_Arquivo(const StoredSong& musica, const QString& id)
{
    if (!musica.titulo)
        throw RuntimeError(
            RuntimeError::InvalidUseOfNull,
            QStringLiteral("A música %1 não tem título que dê nome ao seu arquivo.").arg(id),
            QStringLiteral("Invalid use of Null"));
    const QByteArray& titulo = *musica.titulo;
    return ExchangeWriter::FileName(
        Utf8::ToText({titulo.constData(), static_cast<std::size_t>(titulo.size())}));
}

/// A document on its way into the code page and its file. A library has many megabytes: they pass
/// through one piece of memory that stays in the processor's reach.
class Documento
{
public:
    explicit Documento(const QString& arquivo)
        : m_gravacao(arquivo)
    {
        Codifica(ExchangeWriter::Head());
    }

    void Acrescenta(const StoredSong& musica)
    {
        ExchangeWriter::Append(m_pedaco, musica);
        if (m_pedaco.size() >= Pedaco)
            Esvazia();
    }

    void Grava()
    {
        Codifica(ExchangeWriter::Tail());
        Esvazia();
        m_gravacao.Conclui();
    }

private:
    static constexpr qsizetype Pedaco = qsizetype{128} * 1024; ///< bytes

    void Codifica(const QString& texto) { CodePage::AppendFromUnicode(m_pedaco, texto); }

    void Esvazia()
    {
        m_gravacao.Acrescenta(m_pedaco);
        m_pedaco.resize(0); // keeps its room
    }

    Funcoes::Gravacao_Arquivo m_gravacao;
    QByteArray m_pedaco;
};

} // namespace

bool Exporta_Musicas(const QString& lista, const Destino_Exportacao& destino,
                     const Andamento_Exportacao& andamento)
{
    const bool um_arquivo = !destino.arquivo.isEmpty();
    Documento todas(destino.arquivo);
    Funcoes::SQL = SQL_Musicas_Exportadas(lista);
    Recordset linhas = Funcoes::Conexao.Execute(Funcoes::SQL);
    const int total = linhas.RecordCount();
    if (total > 0 && !andamento(0, total))
        return false;
    for (int posicao = 1; !linhas.Eof(); linhas.MoveNext(), ++posicao) {
        const QString id = Id_Exportado(linhas);
        StoredSong musica = Musica_Guardada(linhas);
        musica.temas = Temas_Exportados(id);
        if (um_arquivo) {
            todas.Acrescenta(musica);
        } else {
            Documento uma(destino.pasta + Nome_Arquivo(musica, id));
            uma.Acrescenta(musica);
            uma.Grava();
        }
        if (!andamento(posicao, total))
            return false;
    }
    linhas.Close();
    if (um_arquivo)
        todas.Grava();
    return true;
}
