// Editing in a viewer.

#include "Actions.h"
#include "Musician.h"

#include "controls/RichTextBox.h"
#include "viewer/frmVisualizar.h"

namespace {

QWidget* In(const QWidget* viewer, const char* name)
{
    auto* control = viewer->findChild<QWidget*>(QString::fromLatin1(name));
    return Hands::Reachable(control) ? control : nullptr;
}

RichTextBox* Shown(const QWidget* viewer)
{
    auto* first = In(viewer, "RichTextBox_1");
    return static_cast<RichTextBox*>(first ? first : In(viewer, "RichTextBox_2"));
}

/// Types where the sheet ends; there is always something to keep then.
void TypesAtTheEnd(Musician& user, frmVisualizar& viewer)
{
    RichTextBox* sheet = Shown(&viewer);
    user.Demand(sheet != nullptr, u"no sheet to be seen"_qs);
    Hands::Press(sheet, Qt::Key_End, Qt::ControlModifier);
    Hands::Type(sheet, u"\nG7  C\n"_qs + user.Word());
}

bool BeginsToEdit(Musician& user)
{
    const QPointer<frmVisualizar> viewer = user.SomeViewer();
    if (!viewer || !In(viewer, "cmdEditar"))
        return false;
    if (user.chance.OneIn(2))
        Hands::Click(In(viewer, "cmdEditar"));
    else
        Hands::Press(viewer, Qt::Key_E, Qt::ShiftModifier);
    Hands::Settle();
    user.Demand(In(viewer, "cmdSalvar") != nullptr, u"edit mode did not begin"_qs);
    const QString before = Shown(viewer)->Text();
    TypesAtTheEnd(user, *viewer);
    user.Demand(Shown(viewer)->Text() != before, u"nothing could be typed"_qs);
    user.journal.Count("edits begun");
    return true;
}

frmVisualizar* Edited(Musician& user)
{
    const auto viewers = user.Viewers();
    for (frmVisualizar* viewer : viewers) {
        if (In(viewer, "cmdSalvar"))
            return viewer;
    }
    return nullptr;
}

bool TypesOn(Musician& user)
{
    frmVisualizar* viewer = Edited(user);
    if (!viewer)
        return false;
    RichTextBox* sheet = Shown(viewer);
    static const QList<Qt::Key> keys{Qt::Key_Left,   Qt::Key_Up,     Qt::Key_Home,
                                     Qt::Key_Down,   Qt::Key_End,    Qt::Key_Backspace,
                                     Qt::Key_Delete, Qt::Key_Return, Qt::Key_S,
                                     Qt::Key_V,      Qt::Key_Escape};
    for (int i = user.chance.Below(15); i > 0; --i)
        Hands::Press(sheet, user.chance.Of(keys));
    if (user.chance.OneIn(3)) {
        Hands::Press(sheet, Qt::Key_A, Qt::ControlModifier);
        Hands::Paste(sheet, user.NewText());
    }
    for (int i = user.chance.Below(4); i > 0; --i)
        Hands::Press(sheet, user.chance.OneIn(2) ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
    TypesAtTheEnd(user, *viewer);
    return true;
}

bool Leaves(Musician& user, const char* button)
{
    const QPointer<frmVisualizar> viewer = Edited(user);
    if (!viewer)
        return false;
    user.journal.Note(u"song %1"_qs.arg(viewer->ID_Musica));
    Hands::Click(In(viewer, button));
    Hands::Settle();
    return true;
}

bool SavesTheEdit(Musician& user)
{
    return Leaves(user, "cmdSalvar");
}

bool DiscardsTheEdit(Musician& user)
{
    return Leaves(user, "cmdDescartar");
}

bool ClosesWhileEditing(Musician& user)
{
    return Leaves(user, user.chance.OneIn(3) ? "cmdMinimizar" : "cmdFechar");
}

} // namespace

void AddEditingActions(QList<Action>& actions)
{
    actions += {{"begin to edit", 9, BeginsToEdit},
                {"type on", 5, TypesOn},
                {"save the edit", 8, SavesTheEdit},
                {"discard the edit", 3, DiscardsTheEdit},
                {"close while editing", 3, ClosesWhileEditing}};
}
