#include "exchange/Andamento_Importacao.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

constexpr int Partes = 1000;
constexpr int Largura = 340; // pixels
constexpr qint64 EsperaMs = 500;
constexpr qint64 EntreEventosMs = 30;

} // namespace

class Andamento_Importacao::Janela final : public QDialog
{
public:
    explicit Janela(QWidget* dono)
        : QDialog(dono, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
        , m_barra(new QProgressBar(this))
    {
        setObjectName(QStringLiteral("Andamento"));
        setWindowTitle(QStringLiteral("Importar..."));
        setWindowModality(Qt::ApplicationModal);
        // Nothing is typed into it: who has the keyboard keeps it.
        setAttribute(Qt::WA_ShowWithoutActivating);
        m_barra->setAccessibleName(QStringLiteral("Andamento da importação"));
        m_barra->setRange(0, Partes);
        m_barra->setMinimumWidth(Largura);
        auto* linhas = new QVBoxLayout(this);
        linhas->addWidget(new QLabel(QStringLiteral("Importando músicas..."), this));
        linhas->addWidget(m_barra);
        linhas->setSizeConstraint(QLayout::SetFixedSize);
    }

    void Marca(double parte) { m_barra->setValue(static_cast<int>(parte * Partes)); }

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* evento) override
    {
        // Once its owner is closed, it must not keep the program from ending.
        evento->setAccepted(parentWidget() && !parentWidget()->isVisible());
    }

private:
    QProgressBar* m_barra;
};

Andamento_Importacao::Andamento_Importacao(QWidget* dono)
    : m_dono(dono)
    , m_temDono(dono != nullptr)
{
    m_desde.start();
    m_eventos.start();
}

Andamento_Importacao::~Andamento_Importacao()
{
    delete m_janela;
}

void Andamento_Importacao::Mostra()
{
    if (m_temDono && !(m_dono && m_dono->isVisible()))
        return; // nobody is left to show it to
    m_janela = new Janela(m_dono);
    m_janela->show();
}

void Andamento_Importacao::Avanca(double parte)
{
    if (m_eventos.elapsed() < EntreEventosMs)
        return;
    if (!m_janela && m_desde.elapsed() >= EsperaMs)
        Mostra();
    if (m_janela)
        m_janela->Marca(parte);
    QCoreApplication::processEvents(m_janela ? QEventLoop::AllEvents
                                             : QEventLoop::ExcludeUserInputEvents);
    m_eventos.restart();
}

void Andamento_Importacao::Suspende()
{
    delete m_janela;
    m_desde.restart();
}
