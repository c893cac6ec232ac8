// Imports an exchange file through the real main form: importacao_interrompida CATALOGUE FILE
// Tells when the import begins; whoever started it kills it when it likes.

#include "controls/Dialogs.h"
#include "main/frmPrincipal.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {

class Principal final : public frmPrincipal
{
public:
    explicit Principal(QString caminho)
        : m_caminho(std::move(caminho))
    {
    }
    ~Principal() override { close(); }
    using frmPrincipal::Importa_Musicas;

protected:
    void Conecta_Banco() override
    {
        Funcoes::Conexao.Open(TestCatalogue::ConnectionString(m_caminho));
        Funcoes::Conexao.CursorLocation = ::Connection::UseClient;
    }

private:
    QString m_caminho;
};

/// Answers every question with No, so that a second import completes a first one.
class Caixas final : public Dialogs
{
public:
    Caixas() { SetDialogs(this); }
    ~Caixas() override { SetDialogs(nullptr); }
    void Message(QWidget*, const QString& texto, Icone icone, const QString&) override
    {
        if (icone != Icone::Informacao)
            qFatal("%s", qPrintable(texto));
    }
    bool Question(QWidget*, const QString&, const QString&) override { return false; }
    QString Input(QWidget*, const QString&, const QString&, const QString& inicial,
                  std::optional<QPoint>) override
    {
        return inicial;
    }
};

} // namespace

int main(int argc, char* argv[])
{
    const QApplication aplicacao(argc, argv);
    const QStringList argumentos = QApplication::arguments();
    if (argumentos.size() != 3)
        return 2;
    const Caixas caixas;
    Principal form(argumentos[1]);
    form.Form_Load(QString());
    form.findChild<QTimer*>(u"Timer1"_qs)->stop();
    std::puts("importing");
    std::fflush(stdout);
    form.Importa_Musicas(argumentos[2]);
    return 0;
}
