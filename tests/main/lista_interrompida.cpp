// Stores, changes or deletes a setlist through the real setlist panel and stands still at one of
// the boundaries on the way: lista_interrompida CATALOGUE insere|atualiza|exclui BOUNDARY

#include "controls/Dialogs.h"
#include "controls/ListBox.h"
#include "controls/MaskEdit.h"
#include "main/GradeListas.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/Interruption.h"
#include "support/TestCatalogue.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int Musicas = 60;

class PrincipalListas final : public frmPrincipal
{
public:
    explicit PrincipalListas(QString caminho)
        : m_caminho(std::move(caminho))
    {
    }
    ~PrincipalListas() override { close(); }

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
class CaixasListas final : public Dialogs
{
public:
    explicit CaixasListas(Interruption::Boundaries& limites)
        : m_limites(limites)
    {
        SetDialogs(this);
    }
    ~CaixasListas() override { SetDialogs(nullptr); }
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

/// Double clicks the stored setlist and answers with a button of the dialog.
void Responde(PrincipalListas& form, const QString& botao)
{
    auto* grade = form.findChild<GradeListas*>(u"lstLista"_qs);
    grade->setCurrentIndex(grade->model()->index(0, 0));
    QTimer::singleShot(0, grade, [botao] {
        QApplication::activeModalWidget()->findChild<QPushButton*>(botao)->click();
    });
    emit grade->DblClick();
}

void Muda_Musicas(PrincipalListas& form)
{
    auto* escolha = form.findChild<ListBox*>(u"lstMusicasSelecionadas"_qs);
    while (escolha->ListCount() > Musicas / 2)
        escolha->RemoveItem(0);
    while (escolha->ListCount() < Musicas) {
        escolha->AddItem(u"Outra"_qs);
        escolha->SetItemData(escolha->NewIndex(), 2);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication aplicacao(argc, argv);
    const QStringList argumentos = QApplication::arguments();
    if (argumentos.size() != 4)
        return 2;
    const QString acao = argumentos[2];
    Interruption::Boundaries limites(argumentos[3].toInt());
    PrincipalListas form(argumentos[1]);
    form.Form_Load(QString());
    form.findChild<QTimer*>(u"Timer1"_qs)->stop();
    form.mnuLista_Click();
    if (acao == u"atualiza")
        Responde(form, u"cmdEditar"_qs);
    if (acao != u"exclui") {
        form.findChild<QLineEdit*>(u"txtNome"_qs)->setText(u"Depois"_qs);
        form.findChild<MaskEdit*>(u"txtData"_qs)->setText(u"31/12/2010"_qs);
        Muda_Musicas(form);
    }
    const CaixasListas caixas(limites);
    Funcoes::Conexao.SetStatementHook([&limites](const QString&) { limites.Reached(); });
    if (acao == u"exclui")
        Responde(form, u"cmdExcluir"_qs);
    else
        form.findChild<QPushButton*>(u"cmdSalvar"_qs)->click();
    Funcoes::Conexao.SetStatementHook({});
    return 0;
}
