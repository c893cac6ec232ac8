#include "main/Conecta_Banco.h"

#include "controls/Dialogs.h"
#include "main/Catalogo_Antigo.h"
#include "store/Arquivo.h"
#include "store/CodePage.h"
#include "store/Connection.h"
#include "store/Ini.h"

#include <QDir>

namespace {

QString Secao()
{
    return QStringLiteral("BANCO");
}

QString Chave()
{
    return QStringLiteral("Endereco");
}

QString Caminho_Padrao()
{
    return Funcoes::Pasta_Programa() + QDir::separator() + QStringLiteral("Melodario.mdb");
}

/// Writes config.ini anew with the path as its only key. On a full disk an empty config.ini stays,
/// as good as none: it held no path before, and the next start writes it again.
void Cria_Configuracao(const QString& caminho)
{
    const QString arquivo = Funcoes::Caminho_Configuracao();
    Funcoes::Cria_Arquivo(arquivo, true);
    // The path in the bytes that reading it back understands; as text of the code page they pass
    // through the writing of the file unchanged.
    const QString valor = CodePage::ToUnicode(Ini::EncodeValue(caminho));
    Funcoes::Grava_Arquivo(u"[" % Secao() % u"]\r\n" % Chave() % u"=" % valor, arquivo);
}

QString Pergunta_Caminho(QWidget* pai, const QString& caminho)
{
    return Funcoes::Caixa_Entrada(
        pai,
        QStringLiteral("O Arquivo do banco de dados 'Melodario.mdb' não foi encontrado. Insira o "
                       "endereço completo onde ele se encontra para continuar."),
        QStringLiteral("Endereço do Banco de Dados"), caminho);
}

QString Caminho_Banco(QWidget* pai)
{
    QString caminho = Funcoes::Le_Configuracao(Secao(), Chave());
    if (caminho.isEmpty()) {
        caminho = Caminho_Padrao();
        Cria_Configuracao(caminho);
    } else if (!Funcoes::Existe_Arquivo(caminho)) {
        caminho = Pergunta_Caminho(pai, caminho);
        Funcoes::Grava_Ini(Secao(), Chave(), Funcoes::Caminho_Configuracao(), caminho);
    }
    return caminho;
}

void Abre_Conexao(QWidget* pai)
{
    if (Funcoes::Conexao.IsOpen())
        Funcoes::Conexao.Close();
    const QString caminho = Caminho_Banco(pai);
    Funcoes::Oferece_Conversao(pai, caminho);
    Funcoes::Conexao.Open(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" % caminho %
                          u";User Id=admin;Password=;");
    Funcoes::Conexao.CursorLocation = Connection::UseClient;
}

} // namespace

void Funcoes::Conecta_Banco(QWidget* pai)
{
    try {
        Abre_Conexao(pai);
        return;
    } catch (const std::exception&) {
        // Whatever went wrong, the user is told the same below.
    }
    Mostra_Mensagem(pai,
                    QStringLiteral("Falha ao acessar o banco de dados. Verifique se o arquivo "
                                   "Melodario.mdb encontra-se na mesma pasta do Melodario."),
                    Icone::Critico);
    throw Fim_Programa();
}

void Funcoes::Desconecta_Banco()
{
    Conexao.Close();
}
