#include "controls/Andamento.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int Partes = 1000;
constexpr int Largura = 340; // pixels
constexpr qint64 EsperaMs = 500;
constexpr qint64 EntreEventosMs = 30;

} // namespace

class Andamento::Janela final : public QDialog
{
public:
    Janela(QWidget* dono, const QString& titulo, const QString& texto)
        : QDialog(dono, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
        , m_barra(new QProgressBar(this))
    {
        setObjectName(QStringLiteral("Andamento"));
        setWindowTitle(titulo);
        setWindowModality(Qt::ApplicationModal);
        // Nothing is typed into it: who has the keyboard keeps it.
        setAttribute(Qt::WA_ShowWithoutActivating);
        m_barra->setAccessibleName(texto);
        m_barra->setRange(0, Partes);
        m_barra->setMinimumWidth(Largura);
        auto* linhas = new QVBoxLayout(this);
        linhas->addWidget(new QLabel(texto, this));
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

Andamento::Andamento(QWidget* dono, QString titulo, QString texto)
    : m_titulo(std::move(titulo))
    , m_texto(std::move(texto))
    , m_dono(dono)
    , m_temDono(dono != nullptr)
{
    m_desde.start();
    m_eventos.start();
}

Andamento::~Andamento()
{
    delete m_janela;
}

void Andamento::Mostra()
{
    if (m_temDono && !(m_dono && m_dono->isVisible()))
        return; // nobody is left to show it to
    m_janela = new Janela(m_dono, m_titulo, m_texto);
    m_janela->show();
}

void Andamento::Avanca(double parte)
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

void Andamento::Suspende()
{
    delete m_janela;
    m_desde.restart();
}
