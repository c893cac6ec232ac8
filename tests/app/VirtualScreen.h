#pragma once

#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

/// An X server of its own with a window manager, and the hands of a user on it: programs that a
/// test starts there show real windows and get real keys. Needs Xvfb, openbox and xdotool.
class VirtualScreen
{
public:
    /// Starts the server, a second and a third time when it or the manager does not come up;
    /// ErrorText() tells when even that failed, and how.
    VirtualScreen();
    ~VirtualScreen();
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    QString ErrorText() const { return m_error; }

    /// @return the environment that programs need to show their windows here.
    QProcessEnvironment Environment() const { return m_environment; }

    /// Waits until a window whose title matches the regular expression is visible.
    /// @return its number; "" when that took too long
    QString WaitForWindow(const QString& title) const;

    /// Waits until such a window has the keyboard. @return as WaitForWindow
    QString WaitForFocus(const QString& title) const;

    bool IsVisible(const QString& title) const;

    /// @return the titles of all visible windows and which of them has the keyboard, for the text
    /// of
    ///         a failure
    QString Report() const;

    /// Gives the screen a keyboard ("br"), for programs that are started then. @return success
    bool UseKeyboard(const QString& layout) const;

    /// Presses keys one after the other, in the words of xdotool ("Return", "ctrl+a").
    void Press(const QStringList& keys) const;

    /// Types a text of ASCII characters.
    void Type(const QString& text) const;

    /// Clicks into a window, near its upper-left corner.
    void Click(const QString& window) const;

    /// Clicks on the button that is alone at the lower right of a message.
    void ClickOnlyButton(const QString& message) const;

    /// Gives a window the keyboard, as its entry in a task bar does. @return as WaitForWindow
    QString Activate(const QString& title) const;

    /// Clicks with the right button. @param place  in the window's pixels
    void RightClick(const QString& window, const QPoint& place) const;

    /// How long a wait lasts at most, in ms: long, since it ends as soon as it may.
    static constexpr int Patience = 60000;

private:
    bool StartServer();
    bool StartManager();
    void StopBoth();
    QString Xdotool(const QStringList& arguments) const;
    QStringList Windows(const QString& title) const;

    QProcess m_server;
    QProcess m_manager;
    QProcessEnvironment m_environment;
    QString m_error;
};
