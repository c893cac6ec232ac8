#include "exchange/Andamento_Importacao.h"

#include <QCoreApplication>

namespace {

constexpr int Partes = 1000;
constexpr int EsperaMs = 500;

} // namespace

Andamento_Importacao::Andamento_Importacao(QWidget* dono)
    : m_janela(new QProgressDialog(dono))
{
    m_janela->setObjectName(QStringLiteral("Andamento"));
    m_janela->setWindowTitle(QStringLiteral("Importar..."));
    m_janela->setLabelText(QStringLiteral("Importando músicas..."));
    m_janela->setWindowModality(Qt::ApplicationModal);
    m_janela->setMinimumDuration(EsperaMs);
    m_janela->setAutoClose(false);
    m_janela->setAutoReset(false);
    m_janela->setRange(0, Partes);
    m_janela->setValue(0);
}

Andamento_Importacao::~Andamento_Importacao()
{
    delete m_janela;
}

bool Andamento_Importacao::Avanca(double parte)
{
    if (m_janela) {
        // Its own loop would let the user's events in, and return to a window that may be gone.
        const QSignalBlocker quieto(*m_janela);
        m_janela->setValue(static_cast<int>(parte * Partes));
    }
    const bool aberta = m_janela && m_janela->isVisible();
    QCoreApplication::processEvents(aberta ? QEventLoop::AllEvents
                                           : QEventLoop::ExcludeUserInputEvents);
    return m_janela && !m_janela->wasCanceled();
}
