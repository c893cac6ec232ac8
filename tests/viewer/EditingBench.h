#pragma once

#include "SongListBench.h"
#include "controls/RecordingDialogs.h"
#include "viewer/frmMensagem.h"

#include <QCloseEvent>
#include <QTimer>

#include <functional>

/// What tests of edit mode share: a viewer in a window that has the keyboard, and a user's hands.
class EditingBench : public SongListBench
{
public:
    /// @return a viewer whose window is active; empty when that did not happen
    static QPointer<frmVisualizar> Active(const QPointer<frmVisualizar>& viewer)
    {
        viewer->activateWindow();
        return QTest::qWaitForWindowActive(viewer.data()) ? viewer : nullptr;
    }

    QPointer<frmVisualizar> OpenActive(const TestSong& song = {}) const
    {
        return Active(Open(song));
    }

    QPointer<frmVisualizar> OpenActive(qint64 song) const { return Active(Open(song)); }

    QString Stored(const char* column, qint64 song = 1) const
    {
        return catalogue.Field(QStringLiteral("SELECT %1 FROM MUSICA WHERE ID = %2")
                                   .arg(QString::fromLatin1(column))
                                   .arg(song));
    }

    RecordingDialogs dialogs;
};

/// @return the version that is to be seen
inline RichTextBox* Shown(const QWidget* viewer)
{
    return Box(viewer, Box(viewer, 1)->isVisible() ? 1 : 2);
}

inline bool Editing(const QWidget* viewer)
{
    return In(viewer, "cmdSalvar")->isVisible() && !In(viewer, "cmdEditar")->isVisible();
}

/// Presses a key wherever the focus is.
inline void Press(const QWidget* viewer, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QWidget* focus = viewer->focusWidget();
    QTest::keyClick(focus ? focus : const_cast<QWidget*>(viewer), key, modifiers);
}

/// Types at the end of the shown sheet, which must have the focus.
inline void TypeAtTheEnd(const QWidget* viewer, const QString& text)
{
    Press(viewer, Qt::Key_End, Qt::ControlModifier);
    // Letters that no key of the test library has come as they do from any keyboard.
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, viewer->focusWidget(), Qt::Key_unknown, QString(letter),
                            Qt::NoModifier);
}

/// Begins editing and types at the end of the shown sheet.
inline void Edit(const QWidget* viewer, const QString& text)
{
    Click(viewer, "cmdEditar");
    TypeAtTheEnd(viewer, text);
}

/// Does something that asks how to save, and does something with that dialog.
/// @return whether the dialog came up
inline bool WithChoice(const std::function<void()>& action,
                       const std::function<void(QWidget&)>& choose)
{
    bool asked = false;
    QObject here;
    QTimer::singleShot(0, &here, [&] {
        auto* dialog = qobject_cast<frmMensagem*>(QApplication::activeModalWidget());
        asked = dialog != nullptr;
        if (asked)
            choose(*dialog);
    });
    action();
    return asked;
}

/// Clicks on a control of the viewer that asks how to save, and on the answer.
inline bool ClickAndChoose(const QWidget* viewer, const char* control, const char* answer)
{
    return WithChoice([&] { Click(viewer, control); },
                      [&](QWidget& dialog) { Click(&dialog, answer); });
}
