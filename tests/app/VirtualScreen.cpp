#include "app/VirtualScreen.h"

#include <QTest>

#include <functional>

namespace {

QString WaitFor(const std::function<QString()>& look)
{
    QString found;
    (void)QTest::qWaitFor(
        [&] {
            found = look();
            return !found.isEmpty();
        },
        VirtualScreen::Patience);
    return found;
}

} // namespace

VirtualScreen::VirtualScreen()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_server.start(u"Xvfb"_qs, {u"-displayfd"_qs, u"1"_qs, u"-screen"_qs, u"0"_qs,
                                u"1366x768x24"_qs, u"-ac"_qs, u"-nolisten"_qs, u"tcp"_qs});
    if (!m_server.waitForReadyRead(Patience)) {
        m_error = u"Xvfb: "_qs + m_server.errorString();
        return;
    }
    const QByteArray number = m_server.readLine().trimmed();
    m_environment.insert(u"DISPLAY"_qs, u":"_qs + QString::fromLatin1(number));
    m_environment.insert(u"QT_QPA_PLATFORM"_qs, u"xcb"_qs);
    m_environment.remove(u"WAYLAND_DISPLAY"_qs);
    // This screen has no desktop around it, so no message bus either: one that the toolkit would
    // start for it stays behind.
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_qs, u"disabled:"_qs);
    m_environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_qs, u"disabled:"_qs);
    m_manager.setProcessEnvironment(m_environment);
    m_manager.setStandardErrorFile(QProcess::nullDevice());
    m_manager.start(u"openbox"_qs, QStringList());
    if (!m_manager.waitForStarted(Patience)) {
        m_error = u"openbox: "_qs + m_manager.errorString();
        return;
    }
    // The desktop's name is there as soon as the manager manages.
    if (WaitFor([this] { return Xdotool({u"get_desktop"_qs}); }).isEmpty())
        m_error = u"xdotool: the window manager does not answer"_qs;
}

VirtualScreen::~VirtualScreen()
{
    m_manager.terminate();
    m_manager.waitForFinished();
    m_server.terminate();
    m_server.waitForFinished();
}

QString VirtualScreen::Xdotool(const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(u"xdotool"_qs, arguments);
    if (!process.waitForFinished(Patience) || process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QStringList VirtualScreen::Windows(const QString& title) const
{
    return Xdotool({u"search"_qs, u"--onlyvisible"_qs, u"--name"_qs, title})
        .split(u'\n', Qt::SkipEmptyParts);
}

bool VirtualScreen::IsVisible(const QString& title) const
{
    return !Windows(title).isEmpty();
}

QString VirtualScreen::WaitForWindow(const QString& title) const
{
    return WaitFor([&] { return Windows(title).value(0); });
}

QString VirtualScreen::WaitForFocus(const QString& title) const
{
    return WaitFor([&] {
        const QString active = Xdotool({u"getactivewindow"_qs});
        return Windows(title).contains(active) ? active : QString();
    });
}

void VirtualScreen::Press(const QStringList& keys) const
{
    Xdotool(QStringList{u"key"_qs, u"--delay"_qs, u"40"_qs} + keys);
}

void VirtualScreen::Type(const QString& text) const
{
    Xdotool({u"type"_qs, u"--delay"_qs, u"15"_qs, text});
}

void VirtualScreen::Click(const QString& window) const
{
    Xdotool({u"mousemove"_qs, u"--window"_qs, window, u"60"_qs, u"60"_qs, u"click"_qs, u"1"_qs});
}
