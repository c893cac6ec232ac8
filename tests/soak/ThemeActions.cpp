// Themes in the entry panel.

#include "Actions.h"
#include "Musician.h"

#include "controls/ListBox.h"

namespace {

constexpr int MostThemes = 30;

bool AddsATheme(Musician& user)
{
    if (user.watch->Rows().themes.size() >= MostThemes || !user.GoToEntry())
        return false;
    user.Click("cmdCadTema");
    Hands::Settle();
    if (user.Heard(u"Cadastrado com Sucesso!"_qs))
        user.journal.Count("themes added");
    return true;
}

ListBox* SomeTheme(Musician& user)
{
    auto* themes = user.GoToEntry() ? user.Seen<ListBox>("lstCadTema") : nullptr;
    if (themes)
        Hands::ClickRow(themes, user.chance.Below(themes->ListCount()));
    return themes;
}

bool RenamesATheme(Musician& user)
{
    auto* themes = SomeTheme(user);
    if (!themes)
        return false;
    Hands::ClickRow(themes, themes->ListIndex(), Qt::RightButton);
    Hands::Settle();
    if (user.Heard(u"Tema Alterado com Sucesso!"_qs))
        user.journal.Count("themes renamed");
    return true;
}

bool DeletesATheme(Musician& user)
{
    auto* themes = SomeTheme(user);
    if (!themes)
        return false;
    Hands::Press(themes, Qt::Key_Delete);
    return true;
}

} // namespace

void AddThemeActions(QList<Action>& actions)
{
    actions += {{"add a theme", 3, AddsATheme},
                {"rename a theme", 2, RenamesATheme},
                {"delete a theme", 4, DeletesATheme}};
}
