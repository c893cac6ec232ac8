// The setlist panel.

#include "Actions.h"
#include "Musician.h"

#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "main/GradeListas.h"

#include <QDate>
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>

namespace {

constexpr int MostSetlists = 15;

QStringList SongsOnScreen(const Musician& user)
{
    QStringList songs;
    const auto* list = user.Seen<ListBox>("lstMusicasSelecionadas");
    for (int i = 0; i < list->ListCount(); ++i)
        songs += QString::number(list->ItemData(i));
    return songs;
}

void AddsSome(Musician& user, int songs)
{
    auto* offered = user.Seen<ListBox>("lstMusicasLista");
    for (int i = 0; i < songs && offered->ListCount() > 0; ++i) {
        const int row = user.chance.Below(offered->ListCount());
        switch (user.chance.Below(3)) {
        case 0:
            Hands::ClickRow(offered, row);
            user.Click("cmdAdicionar");
            break;
        case 1:
            Hands::ClickRow(offered, row);
            Hands::Press(offered, Qt::Key_Return);
            break;
        default:
            Hands::DoubleClickRow(offered, row);
        }
    }
}

/// Saves what is on screen, and compares it with what is stored then.
void Saves(Musician& user)
{
    const QString name = user.Seen<QLineEdit>("txtNome")->text();
    const QString date = user.Seen<QLineEdit>("txtData")->text();
    const QDate day = QDate::fromString(date, u"dd/MM/yyyy"_qs);
    const QStringList songs = SongsOnScreen(user);
    const qint64 id = user.Tag("txtNome").toLongLong();
    const auto before = user.watch->Rows().setlists;
    const bool valid = !name.isEmpty() && day.isValid();
    user.permitted.setlists = valid;
    user.journal.Note(u"saves list %1 %2 %3"_qs.arg(id).arg(name, date));
    user.Click("cmdSalvar");
    Hands::Settle();
    if (!valid) {
        user.Demand(user.Heard(u"Preencha o nome e a data da lista corretamente."_qs),
                    u"a setlist without name or date was taken"_qs);
        return;
    }
    user.Demand(user.Heard(id == 0 ? u"Lista Cadastrada com Sucesso!"_qs
                                   : u"Lista Alterada com Sucesso!"_qs),
                u"the setlist was not saved"_qs);
    const QString difference = user.watch->Look(user.permitted);
    user.Demand(difference.isEmpty(), difference);
    const auto& after = user.watch->Rows().setlists;
    const qint64 stored = id != 0 ? id : (after.isEmpty() ? 0 : after.lastKey());
    const QStringList expected = QStringList{name, day.toString(u"yyyy-MM-dd"_qs)} + songs;
    // One that was deleted since it was loaded is changed in vain.
    if (id == 0 || before.contains(id))
        user.Demand(after.value(stored) == expected,
                    u"the setlist was saved otherwise: "_qs + after.value(stored).join(u'|'));
    user.journal.Count("setlists saved");
}

bool MakesASetlist(Musician& user)
{
    if (user.watch->Rows().setlists.size() >= MostSetlists || !user.GoToSetlists())
        return false;
    user.Click("cmdLimpar");
    Hands::Settle();
    Hands::Replace(user.Seen("txtNome"),
                   user.Word() + (user.chance.OneIn(6) ? u"'s"_qs : u" 7"_qs));
    AddsSome(user, 1 + user.chance.Below(6));
    Saves(user);
    return true;
}

bool SavesTheSetlist(Musician& user)
{
    if (!user.GoToSetlists() || user.watch->Rows().setlists.size() > MostSetlists)
        return false;
    Saves(user);
    return true;
}

bool ChangesTheSongs(Musician& user)
{
    if (!user.GoToSetlists())
        return true;
    auto* chosen = user.Seen<ListBox>("lstMusicasSelecionadas");
    if (user.chance.OneIn(3) || chosen->ListCount() == 0) {
        AddsSome(user, 1 + user.chance.Below(3));
        return true;
    }
    Hands::ClickRow(chosen, user.chance.Below(chosen->ListCount()));
    const QStringList before = SongsOnScreen(user);
    switch (user.chance.Below(6)) {
    case 0:
        Hands::Press(chosen, Qt::Key_Delete);
        user.Demand(SongsOnScreen(user).size() == before.size() - 1, u"no song was removed"_qs);
        return true;
    case 1:
        user.Click("cmdRemover");
        return true;
    case 2:
        user.Click("cmdUp");
        break;
    case 3:
        user.Click("cmdDown");
        break;
    default:
        Hands::Press(chosen, user.chance.OneIn(2) ? Qt::Key_Up : Qt::Key_Down, Qt::ShiftModifier);
    }
    QStringList was = before;
    QStringList is = SongsOnScreen(user);
    was.sort();
    is.sort();
    user.Demand(was == is, u"moving a song changed the songs"_qs);
    return true;
}

bool FiltersTheOffer(Musician& user)
{
    if (!user.GoToSetlists())
        return true;
    switch (user.chance.Below(4)) {
    case 0:
        user.Click(user.chance.OneIn(2) ? "optTipo_0" : "optTipo_1");
        break;
    case 1: {
        auto* themes = user.Seen<ComboBox>("cmbTema");
        for (int i = user.chance.Below(6); i > 0; --i)
            Hands::Press(themes, user.chance.OneIn(2) ? Qt::Key_Up : Qt::Key_Down);
        break;
    }
    default:
        Hands::Replace(user.Seen("txtFiltro"), user.StoredPiece().left(user.chance.Below(3)));
        if (user.chance.OneIn(3))
            Hands::Press(user.Seen("txtFiltro"), Qt::Key_Return);
    }
    Hands::Settle();
    // An apostrophe would make every later filling fail, as it does for anybody who leaves it.
    if (user.MayFail())
        Hands::Replace(user.Seen("txtFiltro"), {});
    return true;
}

bool TypesNameOrDate(Musician& user)
{
    if (!user.GoToSetlists())
        return true;
    if (user.chance.OneIn(2)) {
        Hands::Replace(user.Seen("txtNome"), user.chance.OneIn(5) ? QString() : user.Word());
        return true;
    }
    static const QStringList dates{u"05032024"_qs, u"31122025"_qs, u"31022024"_qs, u"1/2/2026"_qs,
                                   u"29022023"_qs, u"0101"_qs,     u"29022024"_qs, u"xx"_qs};
    auto* date = user.Seen<QLineEdit>("txtData");
    Hands::Click(date);
    Hands::Press(date, Qt::Key_A, Qt::ControlModifier);
    Hands::Type(date, user.chance.Of(dates));
    return true;
}

GradeListas* Grid(Musician& user)
{
    auto* grid = user.GoToSetlists() ? user.Seen<GradeListas>("lstLista") : nullptr;
    return grid && grid->ListCount() > 0 ? grid : nullptr;
}

bool UsesAStoredSetlist(Musician& user)
{
    auto* grid = user.RoomForViewers() ? Grid(user) : nullptr;
    if (!grid)
        return false;
    Hands::DoubleClickRow(grid, user.chance.Below(grid->ListCount()));
    Hands::Settle();
    return true;
}

bool PlaysASetlist(Musician& user)
{
    auto* grid = user.RoomForViewers() ? Grid(user) : nullptr;
    if (!grid)
        return false;
    Hands::ClickRow(grid, user.chance.Below(grid->ListCount()));
    Hands::Press(grid, Qt::Key_Return);
    user.journal.Count("setlists played");
    return true;
}

bool SortsTheGrid(Musician& user)
{
    auto* grid = Grid(user);
    if (!grid)
        return false;
    const QHeaderView* header = grid->header();
    QTest::mouseClick(
        header->viewport(), Qt::LeftButton, {},
        QPoint(header->sectionViewportPosition(user.chance.Below(2)) + 20, header->height() / 2));
    return true;
}

bool ClearsTheSetlist(Musician& user)
{
    return user.GoToSetlists() && user.Click("cmdLimpar");
}

} // namespace

void AddSetlistActions(QList<Action>& actions)
{
    actions +=
        {{"make a setlist", 6, MakesASetlist},      {"save the setlist", 4, SavesTheSetlist},
         {"change its songs", 9, ChangesTheSongs},  {"filter the offer", 5, FiltersTheOffer},
         {"type name or date", 3, TypesNameOrDate}, {"use a stored setlist", 7, UsesAStoredSetlist},
         {"play a setlist", 5, PlaysASetlist},      {"sort the setlists", 2, SortsTheGrid},
         {"clear the setlist", 2, ClearsTheSetlist}};
}
