#include "AcaoInterrompida.h"

#include "controls/Dialogs.h"
#include "store/Connection.h"
#include "support/Interruption.h"
#include "support/TestCatalogue.h"

#include <QApplication>
#include <QTimer>

namespace {

class PrincipalInterrompido final : public frmPrincipal
{
public:
    explicit PrincipalInterrompido(QString caminho)
        : m_caminho(std::move(caminho))
    {
    }
    ~PrincipalInterrompido() override { close(); }

protected:
    void Conecta_Banco() override
    {
        Funcoes::Conexao.Open(TestCatalogue::ConnectionString(m_caminho));
        Funcoes::Conexao.CursorLocation = ::Connection::UseClient;
    }

private:
    QString m_caminho;
};

/// A box that opens is a boundary, too.
class CaixasInterrompidas final : public Dialogs
{
public:
    explicit CaixasInterrompidas(Interruption::Boundaries& limites)
        : m_limites(limites)
    {
        SetDialogs(this);
    }
    ~CaixasInterrompidas() override { SetDialogs(nullptr); }
    void Message(QWidget*, const QString& texto, Icone icone, const QString&) override
    {
        if (icone == Icone::Critico || icone == Icone::Exclamacao)
            qFatal("the action is refused: %s", qPrintable(texto));
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
        m_limites.Reached();
        return inicial;
    }

private:
    Interruption::Boundaries& m_limites;
};

} // namespace

int Executa_E_Para(int argc, char* argv[], const PreparaAcao& prepara)
{
    const QApplication aplicacao(argc, argv);
    const QStringList argumentos = QApplication::arguments();
    if (argumentos.size() != 4)
        return 2;
    Interruption::Boundaries limites(argumentos[3].toInt());
    PrincipalInterrompido form(argumentos[1]);
    form.Form_Load(QString());
    form.findChild<QTimer*>(u"Timer1"_qs)->stop(); // the first search is no part of any action
    const std::function<void()> age = prepara(form, argumentos[2]);
    const CaixasInterrompidas caixas(limites);
    Funcoes::Conexao.SetStatementHook([&limites](const QString&) { limites.Reached(); });
    age();
    Funcoes::Conexao.SetStatementHook({});
    return 0;
}
