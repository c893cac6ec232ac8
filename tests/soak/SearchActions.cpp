// The search panel.

#include "Actions.h"
#include "Musician.h"

#include "controls/ListBox.h"
#include "controls/ListaMusicas.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <array>

namespace {

constexpr std::array SearchBoxes{"txtTitulo", "txtReferencia", "txtLetra"};

/// @return the text without letter case and accents
QString Plain(const QString& text)
{
    QString plain;
    for (const QChar letter : text.normalized(QString::NormalizationForm_D)) {
        if (letter.category() != QChar::Mark_NonSpacing)
            plain += letter.toLower();
    }
    return plain;
}

bool Checked(const Musician& user, const char* box)
{
    return user.Seen<QCheckBox>(box)->isChecked();
}

bool CategoryWanted(const Musician& user, const QString& category)
{
    const bool first = Checked(user, "chkReligiosa");
    const bool second = Checked(user, "chkSecular");
    return first == second || category == (first ? u"1" : u"2");
}

bool ThemeWanted(const Musician& user, const QStringList& themes)
{
    const auto* list = user.Seen<ListBox>("lstTema");
    bool any = true;
    for (int i = 0; i < list->ListCount(); ++i) {
        if (!list->Selected(i))
            continue;
        any = false;
        if (themes.contains(QString::number(list->ItemData(i))))
            return true;
    }
    return any;
}

bool TextsWanted(const Musician& user, const StoredSong& song)
{
    const std::array<QString, 3> fields{song.title, song.reference, song.text};
    for (std::size_t i = 0; i < SearchBoxes.size(); ++i) {
        const QString typed = user.Seen<QLineEdit>(SearchBoxes.at(i))->text().remove(u'\'');
        if (!Plain(fields.at(i)).contains(Plain(typed)))
            return false;
    }
    return true;
}

/// @return whether the boxes hold nothing that means more than itself
bool Literal(const Musician& user)
{
    for (const char* name : SearchBoxes) {
        const QString typed = user.Seen<QLineEdit>(name)->text();
        for (const QChar letter : typed) {
            const bool plain =
                letter < QChar(0x80) && (letter.isLetterOrNumber() || letter == u' ');
            if (!plain)
                return false;
        }
    }
    return true;
}

void ComparesResult(Musician& user)
{
    if (!Literal(user))
        return;
    QSet<qint64> expected;
    const auto& songs = user.watch->Rows().songs;
    for (auto song = songs.begin(); song != songs.end(); ++song) {
        if (CategoryWanted(user, song->category) && ThemeWanted(user, song->themes) &&
            TextsWanted(user, *song))
            expected += song.key();
    }
    const auto* list = user.Seen<ListaMusicas>("lstMusicas");
    QSet<qint64> found;
    for (int row = 0; row < list->ListCount(); ++row)
        found += list->Tag(row);
    user.Demand(found == expected && found.size() == list->ListCount(),
                u"the search found %1 songs in %2 rows instead of %3"_qs.arg(found.size())
                    .arg(list->ListCount())
                    .arg(expected.size()));
    user.Demand(user.Seen<QLabel>("lblResultado")->text() ==
                    QString::number(expected.size()) + u" Registro(s) Encontrado(s)."_qs,
                u"the count line is wrong: "_qs + user.Seen<QLabel>("lblResultado")->text());
    user.journal.Count("searches compared");
}

bool SearchesByText(Musician& user)
{
    if (!user.GoToSearch())
        return true;
    // Leftovers in the other boxes are usual, but then nothing is found any more.
    if (user.chance.OneIn(2)) {
        for (const char* name : SearchBoxes)
            Hands::Replace(user.Seen(name), {});
    }
    static const QStringList odd{u"%"_qs, u"_"_qs, u"[a"_qs, u"d'á"_qs, u"--"_qs, u"ã"_qs};
    const QString text = user.chance.OneIn(8) ? user.chance.Of(odd) : user.StoredPiece();
    const char* box = SearchBoxes.at(static_cast<std::size_t>(user.chance.Below(3)));
    user.journal.Note(QString::fromLatin1(box) + u' ' + text);
    Hands::Replace(user.Seen(box), text);
    if (user.AwaitSearch())
        ComparesResult(user);
    return true;
}

bool SearchesByLetter(Musician& user)
{
    return user.GoToSearch() && user.Click(qPrintable(u"lblAlfa_%1"_qs.arg(user.chance.Below(27))));
}

bool ChangesFilters(Musician& user)
{
    if (!user.GoToSearch())
        return true;
    static const QStringList boxes{u"chkReligiosa"_qs, u"chkSecular"_qs, u"chkOrdenar"_qs};
    auto* themes = user.Seen<ListBox>("lstTema");
    if (user.chance.OneIn(2))
        user.Click(qPrintable(user.chance.Of(boxes)));
    else
        Hands::ClickRow(themes, user.chance.Below(themes->ListCount()));
    user.AwaitSearch();
    ComparesResult(user);
    return true;
}

bool ClearsABox(Musician& user)
{
    if (!user.GoToSearch())
        return true;
    Hands::DoubleClick(user.Seen(SearchBoxes.at(static_cast<std::size_t>(user.chance.Below(3)))));
    user.AwaitSearch();
    return true;
}

ListaMusicas* Results(Musician& user)
{
    if (!user.GoToSearch())
        return nullptr;
    user.AwaitSearch();
    auto* list = user.Seen<ListaMusicas>("lstMusicas");
    if (list && list->ListCount() == 0) {
        user.Click("lblAlfa_26");
        Hands::Settle();
    }
    return list && list->ListCount() > 0 ? list : nullptr;
}

bool OpensASong(Musician& user)
{
    auto* list = user.RoomForViewers() ? Results(user) : nullptr;
    if (!list)
        return false;
    const auto before = user.Viewers().size();
    const int row = user.chance.Below(list->ListCount());
    if (user.chance.OneIn(3)) {
        Hands::ClickRow(list, row);
        Hands::Press(list, Qt::Key_Return);
    } else {
        Hands::DoubleClickRow(list, row);
    }
    Hands::Settle();
    user.Demand(user.Viewers().size() == before + 1, u"no viewer came up"_qs);
    user.journal.Count("viewers opened");
    return true;
}

bool TakesASongToTheEntry(Musician& user)
{
    auto* list = Results(user);
    if (!list)
        return false;
    const int row = user.chance.Below(list->ListCount());
    const qint64 id = list->Tag(row);
    Hands::ClickRow(list, row, Qt::RightButton);
    Hands::Settle();
    user.Demand(user.Tag("txtCadTitulo") == QString::number(id), u"another song is edited"_qs);
    user.Demand(user.form->findChild<QLineEdit*>(u"txtCadTitulo"_qs)->text() ==
                    user.watch->Rows().songs.value(id).title,
                u"the edited song has another title"_qs);
    return true;
}

bool DeletesFromTheList(Musician& user)
{
    auto* list = Results(user);
    if (!list || user.watch->Rows().songs.size() < 20)
        return false;
    Hands::ClickRow(list, user.chance.Below(list->ListCount()));
    Hands::Press(list, Qt::Key_Delete);
    return true;
}

bool SortsAndTurns(Musician& user)
{
    if (!user.GoToSearch())
        return true;
    auto* list = user.Seen<ListaMusicas>("lstMusicas");
    const QHeaderView* header = list->header();
    if (user.chance.OneIn(3) || !header->isVisible())
        return user.Click("lblResultado");
    const int column = user.chance.Below(3);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(column) + 20, header->height() / 2));
    return true;
}

bool TypesOnTheScreen(Musician& user)
{
    if (!user.GoToSearch() ||
        !user.Click(qPrintable(u"imgTeclado_%1"_qs.arg(user.chance.Below(3)))))
        return true;
    for (int i = user.chance.Below(12); i > 0; --i) {
        auto* keys = user.Seen("pctTeclado");
        if (!keys)
            return true;
        QList<QWidget*> shown;
        for (int code = 1; code <= 256; ++code) {
            if (auto* key = user.Seen(qPrintable(u"lblTecla_%1"_qs.arg(code))))
                shown += key;
        }
        Hands::Click(user.chance.Of(shown));
        Hands::Settle();
    }
    if (user.chance.OneIn(2))
        user.Click("imgFecharTeclado");
    if (user.AwaitSearch())
        ComparesResult(user);
    return true;
}

} // namespace

void AddSearchActions(QList<Action>& actions)
{
    actions += {{"search by text", 12, SearchesByText},
                {"search by letter", 4, SearchesByLetter},
                {"change filters", 5, ChangesFilters},
                {"clear a search box", 2, ClearsABox},
                {"open a song", 12, OpensASong},
                {"take to entry", 6, TakesASongToTheEntry},
                {"delete from list", 3, DeletesFromTheList},
                {"sort or turn list", 4, SortsAndTurns},
                {"on-screen keyboard", 4, TypesOnTheScreen}};
}
