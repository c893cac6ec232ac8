// The desktop is asked over the session bus. Nobody waits for its answers: a desktop that does not
// listen must not keep a song from opening.

#include "viewer/TelaAcesa.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

int vivas = 0;
QDBusPendingReply<uint> pedido; ///< answered with the number under which it can be taken back

QDBusMessage Chamada(const QString& metodo)
{
    QDBusMessage chamada = QDBusMessage::createMethodCall(
        u"org.freedesktop.ScreenSaver"_qs, u"/org/freedesktop/ScreenSaver"_qs,
        u"org.freedesktop.ScreenSaver"_qs, metodo);
    chamada.setAutoStartService(false);
    return chamada;
}

/// Without an address the bus would be looked for, and even started, at length.
bool Ha_Barramento()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") &&
           QDBusConnection::sessionBus().isConnected();
}

void Retira(const QDBusPendingReply<uint>& resposta)
{
    if (!resposta.isValid())
        return;
    QDBusMessage chamada = Chamada(u"UnInhibit"_qs);
    chamada << resposta.value();
    QDBusConnection::sessionBus().asyncCall(chamada);
}

/// The answer may still be on its way. When the program ends first, the bus takes it all back.
void Retira_Quando_Vier()
{
    auto* espera = new QDBusPendingCallWatcher(pedido, QCoreApplication::instance());
    QObject::connect(espera, &QDBusPendingCallWatcher::finished, espera, [espera] {
        Retira(*espera);
        espera->deleteLater();
    });
    pedido = QDBusPendingReply<uint>();
}

} // namespace

TelaAcesa::TelaAcesa()
{
    if (++vivas > 1 || !Ha_Barramento())
        return;
    QDBusMessage chamada = Chamada(u"Inhibit"_qs);
    chamada << u"Melodario"_qs << u"Uma música está aberta"_qs;
    pedido = QDBusConnection::sessionBus().asyncCall(chamada);
}

TelaAcesa::~TelaAcesa()
{
    if (--vivas == 0 && Ha_Barramento())
        Retira_Quando_Vier();
}
