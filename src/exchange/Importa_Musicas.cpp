#include "exchange/Importa_Musicas.h"

#include "controls/Andamento.h"
#include "controls/Dialogs.h"
#include "exchange/Prepara_Texto.h"
#include "exchange/SQL_Importacao.h"
#include "exchange/ServicosImportacao.h"
#include "exchange/Texto_Defeitos.h"
#include "mld/ExchangeReader.h"
#include "runtime/Number.h"
#include "store/Arquivo.h"
#include "store/Connection.h"

#include <QFile>
#include <QFileInfo>

#include <memory>

namespace {

using Funcoes::Conexao;
using Funcoes::SQL;

/// Songs that are committed together: few enough for little to be lost, many enough for the disk to
/// be waited for seldom.
constexpr int Porcao = 1000;
/// The part of the work that reading is.
constexpr double Leitura = 0.3;

constexpr int OrdemTema = 2;
constexpr int OrdemSemTema = 3;

Recordset Executa(const QString& sql)
{
    SQL = sql;
    return Conexao.Execute(sql);
}

/// @return the ID that was given out last in a table, in decimal
QString Ultimo_Id(const QString& sql)
{
    Recordset consulta = Executa(sql);
    const auto id = static_cast<double>(consulta.Fields(u"ID").ToNumber());
    consulta.Close();
    return Number::ToText(id);
}

class Importacao
{
public:
    Importacao(ServicosImportacao& principal, QWidget& dono)
        : m_principal(principal)
        , m_dono(&dono)
    {
    }

    void Importa(const QString& caminho);

private:
    /// Whether anybody is left to import for: the form may be closed while events run.
    bool Vale() const { return m_dono && Conexao.IsOpen(); }
    QWidget* Dono() const { return m_dono && m_dono->isVisible() ? m_dono.data() : nullptr; }

    void Recusa(const QString& texto)
    {
        Funcoes::Mostra_Mensagem(Dono(), texto, Icone::Exclamacao);
    }
    std::optional<ExchangeSongs> Le(const QString& caminho);
    bool Importa(const ExchangeSongs& musicas);
    bool Importa(const ExchangeSong& musica);
    bool Pergunta(const Musica_Preparada& musica);
    QString Temas(const ExchangeSong& musica);
    QString Id_Tema(const QString& descricao);
    QString Insere_Tema(const QString& descricao, int ordem);
    void Grava();
    void Conclui(const ExchangeSongs& musicas);

    ServicosImportacao& m_principal;
    QPointer<QWidget> m_dono;
    std::unique_ptr<Andamento> m_andamento;
    std::int16_t m_contador = 0;
    int m_naPorcao = 0;
};

void Importacao::Importa(const QString& caminho)
{
    if (!Funcoes::Existe_Arquivo(caminho)) {
        Recusa(QStringLiteral("Arquivo não Encontrado"));
        return;
    }
    if (caminho.right(3).toLower() != u"mld") {
        Recusa(QStringLiteral("Arquivo não Reconhecido."));
        return;
    }
    m_andamento =
        std::make_unique<Andamento>(Dono(), u"Importar..."_qs, u"Importando músicas..."_qs);
    const std::optional<ExchangeSongs> musicas = Le(caminho);
    if (!Vale())
        return;
    if (!musicas) {
        m_andamento.reset();
        Recusa(QStringLiteral("Arquivo no formato inválido."));
        return;
    }
    if (!Importa(*musicas))
        return;
    Grava();
    m_andamento.reset();
    Conclui(*musicas);
}

std::optional<ExchangeSongs> Importacao::Le(const QString& caminho)
{
    QFile arquivo(caminho);
    if (!arquivo.open(QIODevice::ReadOnly))
        return std::nullopt;
    const auto tamanho = static_cast<double>(std::max<qint64>(arquivo.size(), 1));
    return ExchangeReader::Read(arquivo, [&](qint64 lido) {
        // A file that grows while it is read has no end to wait for.
        const double parte = std::min(static_cast<double>(lido) / tamanho, 1.0);
        m_andamento->Avanca(parte * Leitura);
        return Vale();
    });
}

/// @return false when nobody is left to import for
bool Importacao::Importa(const ExchangeSongs& musicas)
{
    const qsizetype total = musicas.Count();
    for (qsizetype i = 0; i < total; ++i) {
        if (!Importa(musicas.At(i)))
            return false;
        if (++m_naPorcao >= Porcao)
            Grava();
        const double parte = static_cast<double>(i + 1) / static_cast<double>(total);
        m_andamento->Avanca(Leitura + parte * (1 - Leitura));
        if (!Vale())
            return false;
    }
    return true;
}

/// @return false when nobody is left to import for
bool Importacao::Importa(const ExchangeSong& musica)
{
    Musica_Preparada preparada{Prepara_Texto(*musica.titulo),
                               Prepara_Texto(*musica.referencia),
                               Prepara_Texto(*musica.letra1),
                               Prepara_Texto(*musica.letra2),
                               Prepara_Texto(*musica.tom),
                               Prepara_Texto(*musica.variacao),
                               *musica.categoria};
    Recordset iguais = Executa(SQL_Musica_Igual(preparada));
    const bool existe = !iguais.Eof();
    iguais.Close();
    if (existe) {
        const bool importa = Pergunta(preparada);
        if (!Vale())
            return false;
        if (!importa)
            return true;
        preparada.titulo += QStringLiteral(" (Importação)");
    }
    const QString temas = Temas(musica);
    Executa(SQL_Insere_Musica(preparada));
    const QString id = Ultimo_Id(QStringLiteral("SELECT MAX(ID) AS ID FROM MUSICA"));
    Executa(SQL_Liga_Temas(id, temas));
    m_contador = Number::AddInteger(m_contador, 1);
    return true;
}

bool Importacao::Pergunta(const Musica_Preparada& musica)
{
    const QString texto = u"A música '" % musica.titulo %
                          u"' já encontra-se no Banco de Dados. Deseja importar assim mesmo?";
    m_andamento->Suspende();
    m_naPorcao = 0; // the question commits first
    const bool sim = Funcoes::Pergunta(Dono(), texto);
    m_andamento->Suspende(); // the time that the question took does not count
    return sim;
}

/// @return TEMA.ID of each theme of the song, with commas between them
QString Importacao::Temas(const ExchangeSong& musica)
{
    QStringList temas;
    for (const QString& tema : musica.temas)
        temas.append(Id_Tema(Prepara_Texto(tema)));
    if (!temas.isEmpty())
        return temas.join(u',');
    // One more "Sem Tema" where there is one already, on purpose; and where there is none, it has
    // to be made for the song to be found.
    const QString semTema = QStringLiteral("Sem Tema");
    Executa(SQL_Tema_Igual(semTema)).Close();
    return Insere_Tema(semTema, OrdemSemTema);
}

QString Importacao::Id_Tema(const QString& descricao)
{
    Recordset iguais = Executa(SQL_Tema_Igual(descricao));
    const QString id = iguais.Eof() ? QString() : iguais.Fields(u"ID").ToText();
    iguais.Close();
    return id.isEmpty() ? Insere_Tema(descricao, OrdemTema) : id;
}

QString Importacao::Insere_Tema(const QString& descricao, int ordem)
{
    Executa(SQL_Insere_Tema(descricao, ordem));
    return Ultimo_Id(QStringLiteral("SELECT MAX(ID) AS ID FROM TEMA"));
}

void Importacao::Grava()
{
    Conexao.CommitBatch();
    m_naPorcao = 0;
}

void Importacao::Conclui(const ExchangeSongs& musicas)
{
    m_principal.Preenche_Temas();
    m_principal.Pesquisa();
    if (!Vale())
        return;
    if (musicas.DefectCount() > 0) {
        Recusa(Texto_Defeitos(musicas));
        if (!Vale())
            return;
    }
    Funcoes::Mostra_Mensagem(Dono(),
                             QString::number(m_contador) % u" música(s) importada(s) com sucesso!",
                             Icone::Informacao);
}

} // namespace

void Funcoes::Importa_Musicas(QString caminho, ServicosImportacao& principal, QWidget& dono)
{
    Importacao(principal, dono).Importa(caminho.remove(u'"'));
}
