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

/// A document on its way into the code page.
class Documento
{
public:
    Documento() { Codifica(ExchangeWriter::Head()); }

    void Acrescenta(const StoredSong& musica) { ExchangeWriter::Append(m_conteudo, musica); }

    void Grava(const QString& arquivo)
    {
        Codifica(ExchangeWriter::Tail());
        Funcoes::Grava_Arquivo(m_conteudo, arquivo);
    }

private:
    void Codifica(const QString& texto) { CodePage::AppendFromUnicode(m_conteudo, texto); }

    QByteArray m_conteudo;
};

} // namespace

bool Exporta_Musicas(const QString& lista, const Destino_Exportacao& destino,
                     const Andamento_Exportacao& andamento)
{
    const bool um_arquivo = !destino.arquivo.isEmpty();
    Documento todas;
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
            Documento uma;
            uma.Acrescenta(musica);
            uma.Grava(destino.pasta + Nome_Arquivo(musica, id));
        }
        if (!andamento(posicao, total))
            return false;
    }
    linhas.Close();
    if (um_arquivo)
        todas.Grava(destino.arquivo);
    return true;
}
