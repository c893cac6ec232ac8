// Enters, corrects or deletes a song through the real song entry panel and stands still at one of
// the boundaries on the way: cadastro_interrompido CATALOGUE insere|atualiza|exclui BOUNDARY

#include "controls/Dialogs.h"
#include "controls/ListBox.h"
#include "controls/RichTextBox.h"
#include "controls/TextBox.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/Interruption.h"
#include "support/TestCatalogue.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

namespace {

class Principal final : public frmPrincipal
{
public:
    explicit Principal(QString caminho)
        : m_caminho(std::move(caminho))
    {
    }
    ~Principal() override { close(); }

protected:
    void Conecta_Banco() override
    {
        Funcoes::Conexao.Open(TestCatalogue::ConnectionString(m_caminho));
        Funcoes::Conexao.CursorLocation = ::Connection::UseClient;
    }

private:
    QString m_caminho;
};

/// A box that opens is a boundary, too; it is answered with Yes or OK.
class Caixas final : public Dialogs
{
public:
    explicit Caixas(Interruption::Boundaries& limites)
        : m_limites(limites)
    {
        SetDialogs(this);
    }
    ~Caixas() override { SetDialogs(nullptr); }
    void Message(QWidget*, const QString&, Icone icone, const QString&) override
    {
        if (icone == Icone::Critico || icone == Icone::Exclamacao)
            qFatal("the panel refuses to save");
        m_limites.Reached();
    }
    bool Question(QWidget*, const QString&, const QString&) override
    {
        m_limites.Reached();
        return true;
    }
    QString Input(QWidget*, const QString&, const QString&, const QString& inicial,
                  std::optional<QPoint>) override
    {
        return inicial;
    }

private:
    Interruption::Boundaries& m_limites;
};

/// Puts the panel into the state in which the button is pressed. @return the button's name
QString Prepara(Principal& form, const QString& acao)
{
    form.mnuCadastro_Click();
    if (acao != u"insere")
        form.Inicializa_Cadastro(1);
    if (acao == u"exclui")
        return u"cmdExcluir"_qs;
    form.findChild<TextBox*>(u"txtCadTitulo"_qs)->setText(u"Depois"_qs);
    form.findChild<TextBox*>(u"txtCadReferencia"_qs)->setText(u"Ana"_qs);
    form.findChild<RichTextBox*>(u"txtCadLetra_0"_qs)->SetText(u"C\nDepois"_qs);
    auto* temas = form.findChild<ListBox*>(u"lstCadTema"_qs);
    for (int i = 0; i < temas->ListCount(); ++i)
        temas->SetSelected(i, !temas->Selected(i));
    return u"cmdCadSalvar"_qs;
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication aplicacao(argc, argv);
    const QStringList argumentos = QApplication::arguments();
    if (argumentos.size() != 4)
        return 2;
    Interruption::Boundaries limites(argumentos[3].toInt());
    Principal form(argumentos[1]);
    form.Form_Load(QString());
    form.findChild<QTimer*>(u"Timer1"_qs)->stop();
    const QString botao = Prepara(form, argumentos[2]);
    const Caixas caixas(limites);
    Funcoes::Conexao.SetStatementHook([&limites](const QString&) { limites.Reached(); });
    form.findChild<QPushButton*>(botao)->click();
    Funcoes::Conexao.SetStatementHook({});
    return 0;
}
