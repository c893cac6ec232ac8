#include "exchange/Exporta_Musicas.h"

#include "exchange/Musica_Exportada.h"
#include "exchange/SQL_Exportacao.h"
#include "mld/ExchangeWriter.h"
#include "runtime/RuntimeError.h"
#include "store/Arquivo.h"
#include "store/Connection.h"

namespace {

QString Nome_Arquivo(const ExchangeSong& musica, const QString& id)
{
    if (!musica.titulo)
        throw RuntimeError(
            RuntimeError::InvalidUseOfNull,
            QStringLiteral("A música %1 não tem título que dê nome ao seu arquivo.").arg(id),
            QStringLiteral("Invalid use of Null"));
    return ExchangeWriter::FileName(*musica.titulo);
}

void Grava_Musica(const ExchangeSong& musica, const QString& arquivo)
{
    QString texto = ExchangeWriter::Head();
    ExchangeWriter::Append(texto, musica);
    Funcoes::Grava_Arquivo(texto + ExchangeWriter::Tail(), arquivo);
}

} // namespace

bool Exporta_Musicas(const QString& lista, const Destino_Exportacao& destino,
                     const Andamento_Exportacao& andamento)
{
    const bool um_arquivo = !destino.arquivo.isEmpty();
    QString texto = ExchangeWriter::Head();
    Recordset linhas = Funcoes::Conexao.Execute(SQL_Musicas_Exportadas(lista));
    const int total = linhas.RecordCount();
    if (total > 0 && !andamento(0, total))
        return false;
    for (int posicao = 1; !linhas.Eof(); linhas.MoveNext(), ++posicao) {
        const QString id = Id_Exportado(linhas);
        ExchangeSong musica = Musica_Exportada(linhas);
        musica.temas = Temas_Exportados(id);
        if (um_arquivo)
            ExchangeWriter::Append(texto, musica);
        else
            Grava_Musica(musica, destino.pasta + Nome_Arquivo(musica, id));
        if (!andamento(posicao, total))
            return false;
    }
    linhas.Close();
    if (um_arquivo) {
        texto += ExchangeWriter::Tail(); // in its place: it may be very long
        Funcoes::Grava_Arquivo(texto, destino.arquivo);
    }
    return true;
}
