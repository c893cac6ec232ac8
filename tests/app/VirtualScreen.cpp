#include "app/VirtualScreen.h"

#include <QRegularExpression>
#include <QTest>

#include <functional>

namespace {

/// How often the server and the manager are started, and how long each start may take, in ms.
constexpr int Attempts = 3;
constexpr int StartMs = 20000;

QString WaitFor(const std::function<QString()>& look, int ms = VirtualScreen::Patience)
{
    QString found;
    (void)QTest::qWaitFor(
        [&] {
            found = look();
            return !found.isEmpty();
        },
        ms);
    return found;
}

} // namespace

VirtualScreen::VirtualScreen()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(u"QT_QPA_PLATFORM"_qs, u"xcb"_qs);
    m_environment.remove(u"WAYLAND_DISPLAY"_qs);
    // This screen has no desktop around it, so no message bus either: one that the toolkit would
    // start for it stays behind.
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_qs, u"disabled:"_qs);
    m_environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_qs, u"disabled:"_qs);
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (StartServer() && StartManager()) {
            m_error.clear();
            return;
        }
        StopBoth();
    }
}

VirtualScreen::~VirtualScreen()
{
    StopBoth();
}

bool VirtualScreen::StartServer()
{
    // A server that may reset does so when its only client leaves, and takes along whoever is just
    // coming: the first look for the manager would end the manager.
    m_server.start(u"Xvfb"_qs,
                   {u"-displayfd"_qs, u"1"_qs, u"-screen"_qs, u"0"_qs, u"1366x768x24"_qs, u"-ac"_qs,
                    u"-noreset"_qs, u"-nolisten"_qs, u"tcp"_qs});
    if (!m_server.waitForReadyRead(StartMs)) {
        m_error += u"Xvfb: "_qs + m_server.errorString() + u'\n';
        return false;
    }
    const QByteArray number = m_server.readLine().trimmed();
    m_environment.insert(u"DISPLAY"_qs, u":"_qs + QString::fromLatin1(number));
    return true;
}

bool VirtualScreen::StartManager()
{
    m_manager.setProcessEnvironment(m_environment);
    m_manager.setProcessChannelMode(QProcess::MergedChannels);
    m_manager.start(u"openbox"_qs, QStringList());
    // The desktop's name is there as soon as the manager manages.
    if (m_manager.waitForStarted(StartMs) &&
        !WaitFor([this] { return Xdotool({u"get_desktop"_qs}); }, StartMs).isEmpty()) {
        return true;
    }
    m_error += u"openbox on "_qs + m_environment.value(u"DISPLAY"_qs) +
               (m_manager.state() == QProcess::Running ? u" runs but does not answer: "_qs
                                                       : u" has ended: "_qs) +
               QString::fromLocal8Bit(m_manager.readAll()) + u'\n';
    return false;
}

void VirtualScreen::StopBoth()
{
    for (QProcess* process : {&m_manager, &m_server}) {
        if (process->state() == QProcess::NotRunning)
            continue;
        process->terminate();
        if (!process->waitForFinished(StartMs)) {
            process->kill();
            process->waitForFinished();
        }
    }
}

QString VirtualScreen::Xdotool(const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(u"xdotool"_qs, arguments);
    if (!process.waitForFinished(StartMs) || process.exitCode() != 0)
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

QString VirtualScreen::Report() const
{
    QString report;
    for (const QString& window : Windows(u"."_qs))
        report += window + u' ' + Xdotool({u"getwindowname"_qs, window}) + u'\n';
    return report + u"active "_qs + Xdotool({u"getactivewindow"_qs}) + u", keys go to "_qs +
           Xdotool({u"getwindowfocus"_qs, u"-f"_qs});
}

QString VirtualScreen::WaitForWindow(const QString& title) const
{
    return WaitFor([&] { return Windows(title).value(0); });
}

QString VirtualScreen::WaitForFocus(const QString& title) const
{
    return WaitFor([&] {
        QString active = Xdotool({u"getactivewindow"_qs});
        const QStringList wanted = Windows(title);
        if (wanted.contains(active))
            return active;
        // Windows gives the keyboard to the form behind a box that closes; Wine on a bare window
        // manager gives it to nobody.
        if (qEnvironmentVariableIsSet("MELODARIO_WINDOWS") && !wanted.isEmpty() &&
            !Windows(u"."_qs).contains(active))
            Xdotool({u"windowactivate"_qs, wanted.first()});
        return QString();
    });
}

bool VirtualScreen::UseKeyboard(const QString& layout) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(u"setxkbmap"_qs, {layout});
    return process.waitForFinished(StartMs) && process.exitCode() == 0;
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

void VirtualScreen::ClickOnlyButton(const QString& message) const
{
    const QString geometry = Xdotool({u"getwindowgeometry"_qs, u"--shell"_qs, message});
    const auto number = [&](const QString& name) {
        const QRegularExpression line(name + uR"(=(\d+))", QRegularExpression::MultilineOption);
        return line.match(geometry).captured(1).toInt();
    };
    // Half a button away from the corner.
    Xdotool({u"mousemove"_qs, u"--window"_qs, message, QString::number(number(u"WIDTH"_qs) - 60),
             QString::number(number(u"HEIGHT"_qs) - 27), u"click"_qs, u"1"_qs});
}

QString VirtualScreen::Activate(const QString& title) const
{
    Xdotool({u"windowactivate"_qs, Windows(title).value(0)});
    return WaitForFocus(title);
}

void VirtualScreen::RightClick(const QString& window, const QPoint& place) const
{
    Xdotool({u"mousemove"_qs, u"--window"_qs, window, QString::number(place.x()),
             QString::number(place.y()), u"click"_qs, u"3"_qs});
}
