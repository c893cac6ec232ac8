// Open viewers, outside edit mode.

#include "Actions.h"
#include "Musician.h"

#include "controls/ComboBox.h"
#include "controls/RichTextBox.h"
#include "viewer/frmVisualizar.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeySequence>
#include <QTest>

namespace {

QWidget* In(const QWidget* viewer, const QString& name)
{
    auto* control = viewer->findChild<QWidget*>(name);
    return Hands::Reachable(control) ? control : nullptr;
}

bool Editing(const QWidget* viewer)
{
    return In(viewer, u"cmdSalvar"_qs) != nullptr;
}

/// @return a viewer that plays, nullptr for none
frmVisualizar* Playing(Musician& user)
{
    frmVisualizar* viewer = user.SomeViewer();
    return viewer && !Editing(viewer) ? viewer : nullptr;
}

bool PressesKeys(Musician& user)
{
    const QPointer<frmVisualizar> viewer = Playing(user);
    if (!viewer)
        return false;
    static const QList<Qt::Key> keys{
        Qt::Key_S,     Qt::Key_D,      Qt::Key_R,      Qt::Key_C,    Qt::Key_C,     Qt::Key_V,
        Qt::Key_V,     Qt::Key_P,      Qt::Key_A,      Qt::Key_Up,   Qt::Key_Down,  Qt::Key_Space,
        Qt::Key_End,   Qt::Key_Home,   Qt::Key_Return, Qt::Key_Left, Qt::Key_Right, Qt::Key_Plus,
        Qt::Key_Minus, Qt::Key_Delete, Qt::Key_X,      Qt::Key_Tab};
    for (int i = 1 + user.chance.Below(14); i > 0 && viewer; --i) {
        const Qt::Key key = user.chance.Of(keys);
        user.journal.Note(QKeySequence(key).toString());
        QWidget* focus = viewer->focusWidget();
        Hands::Press(focus ? focus : viewer.data(), key);
        if (user.chance.OneIn(4))
            Hands::Settle();
    }
    return true;
}

bool ClicksButtons(Musician& user)
{
    const QPointer<frmVisualizar> viewer = Playing(user);
    if (!viewer)
        return false;
    static const QStringList buttons{
        u"cmdSobe"_qs,         u"cmdDesce"_qs,        u"cmdTomOriginal"_qs, u"cmdLetra"_qs,
        u"cmdAumentaFonte"_qs, u"cmdDiminuiFonte"_qs, u"cmdAutoRolagem"_qs, u"cmdAutoRolagem2"_qs,
        u"cmdAnterior"_qs,     u"cmdProxima"_qs,      u"lblVersao"_qs};
    for (int i = 1 + user.chance.Below(6); i > 0 && viewer; --i) {
        if (QWidget* button = In(viewer, user.chance.Of(buttons))) {
            user.journal.Note(button->objectName());
            Hands::Click(button);
        }
        Hands::Settle();
    }
    return true;
}

bool ChoosesASong(Musician& user)
{
    const QPointer<frmVisualizar> viewer = Playing(user);
    auto* list = viewer ? viewer->findChild<ComboBox*>(u"cmbLista"_qs) : nullptr;
    if (!Hands::Reachable(list) || list->ListCount() == 0)
        return false;
    Hands::Click(list);
    Hands::Settle();
    if (!QApplication::activePopupWidget())
        return true;
    const int row = user.chance.Below(list->ListCount());
    auto* view = list->view();
    const QModelIndex index = list->model()->index(row, list->modelColumn());
    if (user.chance.OneIn(2)) {
        for (int i = user.chance.Below(10); i > 0; --i)
            Hands::Press(view, user.chance.OneIn(3) ? Qt::Key_Up : Qt::Key_Down);
    } else {
        view->scrollTo(index);
        QTest::mouseMove(view->viewport(), view->visualRect(index).center());
        Hands::Settle();
    }
    Hands::Press(view, Qt::Key_Return);
    Hands::Settle();
    user.journal.Count("songs chosen in viewers");
    return true;
}

bool PlaysForAWhile(Musician& user)
{
    const QPointer<frmVisualizar> viewer = Playing(user);
    if (!viewer)
        return false;
    if (QWidget* start = In(viewer, u"cmdAutoRolagem"_qs))
        Hands::Click(start);
    Hands::Tick(viewer, "TimerRolagem", 60);
    user.LetTimePass(12);
    return true;
}

bool ClicksInTheSheet(Musician& user)
{
    const QPointer<frmVisualizar> viewer = Playing(user);
    if (!viewer)
        return false;
    auto* box = viewer->findChild<RichTextBox*>(u"RichTextBox_2"_qs);
    if (!Hands::Reachable(box))
        return false;
    QTest::mouseDClick(box->viewport(), Qt::LeftButton, {}, QPoint(30, 20));
    QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, QPoint(60, 40));
    return true;
}

bool ResizesAViewer(Musician& user)
{
    const QPointer<frmVisualizar> viewer = user.SomeViewer();
    if (!viewer)
        return false;
    viewer->resize(700 + user.chance.Below(900), 400 + user.chance.Below(600));
    return true;
}

bool MinimisesAViewer(Musician& user)
{
    const QPointer<frmVisualizar> viewer = user.SomeViewer();
    QWidget* button = viewer ? In(viewer, u"cmdMinimizar"_qs) : nullptr;
    if (!button)
        return false;
    Hands::Click(button);
    Hands::Settle();
    return true;
}

bool ClosesAViewer(Musician& user)
{
    const QPointer<frmVisualizar> viewer = Playing(user);
    if (!viewer)
        return false;
    switch (user.chance.Below(3)) {
    case 0:
        Hands::Press(viewer, Qt::Key_Escape);
        break;
    case 1:
        Hands::Click(In(viewer, u"cmdFechar"_qs));
        break;
    default:
        viewer->close(); // by the task bar
    }
    Hands::Settle();
    user.Demand(!viewer, u"a closed viewer stays"_qs);
    user.journal.Count("viewers closed");
    return true;
}

} // namespace

void AddViewerActions(QList<Action>& actions)
{
    actions +=
        {{"keys in a viewer", 22, PressesKeys},       {"buttons of a viewer", 12, ClicksButtons},
         {"choose a song to play", 7, ChoosesASong},  {"play for a while", 6, PlaysForAWhile},
         {"click in the sheet", 2, ClicksInTheSheet}, {"resize a viewer", 3, ResizesAViewer},
         {"minimise a viewer", 3, MinimisesAViewer},  {"close a viewer", 9, ClosesAViewer}};
}
