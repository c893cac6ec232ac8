#include "exchange/Aviso_Exportacao.h"

#include "exchange/Musica_Exportada.h"
#include "exchange/SQL_Exportacao.h"
#include "mld/ExchangeLoss.h"
#include "store/Connection.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr int No_Resumo = 6;
constexpr int Em_Todas = 30;           ///< as many as a message box has room for
constexpr qsizetype Maior_Titulo = 60; ///< characters of a title that are shown

ExchangeLoss Soma(const ExchangeLoss& uma, const ExchangeLoss& outra)
{
    return {uma.letters || outra.letters, uma.unreadable || outra.unreadable};
}

/// What the themes do to the songs that are linked to them. Few themes do anything, so that their
/// links are asked for instead of each song's themes.
QHash<QString, ExchangeLoss> Perdas_Por_Temas()
{
    QHash<QString, ExchangeLoss> perdas;
    Recordset temas = Funcoes::Conexao.Execute(QStringLiteral("SELECT ID, DESCRICAO FROM TEMA"));
    for (; !temas.Eof(); temas.MoveNext()) {
        ExchangeSong so_tema;
        so_tema.temas = {temas.Fields(1).ToText()};
        const ExchangeLoss perda = ExchangeLoss::Of(so_tema);
        if (perda == ExchangeLoss())
            continue;
        Recordset elos = Funcoes::Conexao.Execute(
            u"SELECT ID_MUSICA FROM TEMA_MUSICA WHERE ID_TEMA = 0" % temas.Fields(0).ToText());
        for (; !elos.Eof(); elos.MoveNext()) {
            const QString id = elos.Fields(0).ToText();
            perdas[id] = Soma(perdas.value(id), perda);
        }
    }
    return perdas;
}

/// The songs that one thing happens to.
class Atingidas
{
public:
    void Acrescenta(const ExchangeSong& musica)
    {
        if (m_titulos.size() < Em_Todas)
            m_titulos.append(Titulo(musica));
        ++m_quantas;
    }

    /// @param mostradas  how many titles at most
    QString Linha(const QString& o_que_acontece, int mostradas) const
    {
        if (m_quantas == 0)
            return QString();
        const int citadas = std::min(mostradas, static_cast<int>(m_titulos.size()));
        QString linha = o_que_acontece % m_titulos.first(citadas).join(u", "_qs);
        if (m_quantas > citadas)
            linha += QStringLiteral(" e mais %1").arg(m_quantas - citadas);
        return linha % u'.';
    }

private:
    static QString Titulo(const ExchangeSong& musica)
    {
        const QString titulo = musica.titulo.value_or(QStringLiteral("Sem Título")).simplified();
        if (titulo.size() <= Maior_Titulo)
            return u'“' % titulo % u'”';
        const bool parte_par = titulo.at(Maior_Titulo - 1).isHighSurrogate();
        return u'“' % titulo.first(parte_par ? Maior_Titulo - 1 : Maior_Titulo) % u"…”";
    }

    QStringList m_titulos;
    int m_quantas = 0;
};

} // namespace

Aviso_Exportacao Aviso_Exportacao::De(const QString& lista)
{
    const Connection::Snapshot retrato(Funcoes::Conexao); // locks once, not for each song
    const QHash<QString, ExchangeLoss> por_temas = Perdas_Por_Temas();
    Atingidas letras;
    Atingidas ilegiveis;
    Recordset linhas = Funcoes::Conexao.Execute(SQL_Musicas_Exportadas(lista));
    for (; !linhas.Eof(); linhas.MoveNext()) {
        const ExchangeSong musica = Musica_Exportada(linhas);
        const ExchangeLoss perda =
            Soma(ExchangeLoss::Of(musica), por_temas.value(Id_Exportado(linhas)));
        if (perda.letters)
            letras.Acrescenta(musica);
        if (perda.unreadable)
            ilegiveis.Acrescenta(musica);
    }
    const auto linha = [&](int mostradas) {
        QStringList partes{
            letras.Linha(QStringLiteral("O arquivo não comporta todas as letras e sinais destas "
                                        "músicas; em lugar deles terá “?”: "),
                         mostradas),
            ilegiveis.Linha(QStringLiteral("Um arquivo com estas músicas pode ser recusado ao ser "
                                           "importado, por causa de “&”, “<”, “>” ou de "
                                           "caracteres de controle: "),
                            mostradas)};
        partes.removeAll(QString());
        return partes.join(u'\n');
    };
    return {linha(No_Resumo), linha(Em_Todas)};
}
