// The main window, its menu, and whatever else can be touched.

#include "Actions.h"
#include "Musician.h"

#include "controls/ClickableLabel.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QToolBar>

namespace {

bool GoesSomewhere(Musician& user)
{
    static const QList<const char*> entries{"Pesquisa", "Cadastro", "Lista", "Sobre"};
    user.GoTo("Pesquisa");
    user.Choose(user.chance.Of(entries));
    return true;
}

bool ResizesTheWindow(Musician& user)
{
    if (user.form->windowState() & Qt::WindowMinimized)
        return false;
    user.form->resize(800 + user.chance.Below(1000), 560 + user.chance.Below(500));
    Hands::Settle();
    return true;
}

bool MinimisesTheWindow(Musician& user)
{
    user.form->showMinimized();
    Hands::Settle();
    user.LetTimePass(3);
    user.form->showNormal();
    user.form->activateWindow();
    return true;
}

bool LeavesTheProgram(Musician& user)
{
    // It takes a long time to come back.
    if (!user.chance.OneIn(4))
        return false;
    if (user.chance.OneIn(2))
        user.Choose("Sair");
    else
        user.form->close();
    return true;
}

bool IsTouched(const QWidget* widget)
{
    // Buttons of the toolbar have actions of their own here.
    return !qobject_cast<QToolBar*>(widget->parentWidget()) &&
           (qobject_cast<const QAbstractButton*>(widget) ||
            qobject_cast<const ClickableLabel*>(widget) || qobject_cast<const QLineEdit*>(widget));
}

/// Nothing of it stores what is on the screen, nor takes or moves a song of a setlist that has no
/// current one, which is refused with an error.
bool Harmless(const QWidget* widget)
{
    static const QStringList refused{u"cmdCadSalvar"_qs, u"cmdCadIgualarSalvar"_qs, u"cmdSalvar"_qs,
                                     u"cmdRemover"_qs, u"cmdDown"_qs};
    return !refused.contains(widget->objectName());
}

bool TouchesAnything(Musician& user)
{
    QList<QWidget*> shown;
    const auto widgets = user.form->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (Hands::Reachable(widget) && !widget->objectName().isEmpty() && IsTouched(widget) &&
            Harmless(widget))
            shown += widget;
    }
    if (shown.isEmpty() || !user.RoomForViewers())
        return false;
    QWidget* touched = user.chance.Of(shown);
    user.journal.Note(touched->objectName());
    if (user.chance.OneIn(3))
        Hands::Click(touched, Qt::RightButton);
    else
        Hands::Click(touched);
    return true;
}

bool TabsAround(Musician& user)
{
    QWidget* focus = user.form->focusWidget();
    for (int i = user.chance.Below(20); i > 0 && focus; --i) {
        Hands::Press(focus, Qt::Key_Tab, user.chance.OneIn(4) ? Qt::ShiftModifier : Qt::NoModifier);
        focus = user.form->focusWidget();
    }
    return true;
}

bool Waits(Musician& user)
{
    user.LetTimePass(5 + user.chance.Below(30));
    user.AwaitSearch();
    return true;
}

} // namespace

void AddWindowActions(QList<Action>& actions)
{
    actions += {{"menu", 6, GoesSomewhere},
                {"resize the window", 3, ResizesTheWindow},
                {"minimise the window", 2, MinimisesTheWindow},
                {"leave the program", 1, LeavesTheProgram},
                {"touch anything", 10, TouchesAnything},
                {"tab around", 4, TabsAround},
                {"wait", 4, Waits}};
}
