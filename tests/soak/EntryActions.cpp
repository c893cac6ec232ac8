// The song entry panel.

#include "Actions.h"
#include "Musician.h"

#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "controls/RichTextBox.h"

#include <QApplication>
#include <QLineEdit>

#include <algorithm>

namespace {

template <typename Control>
Control* In(const Musician& user, const char* name)
{
    return user.form->findChild<Control*>(QString::fromLatin1(name));
}

QString Text(const Musician& user, int version)
{
    return In<RichTextBox>(user, version == 0 ? "txtCadLetra_0" : "txtCadLetra_1")->Text();
}

RichTextBox* ShownText(const Musician& user)
{
    auto* first = user.Seen<RichTextBox>("txtCadLetra_0");
    return first ? first : user.Seen<RichTextBox>("txtCadLetra_1");
}

QString Chosen(const Musician& user, const char* box)
{
    const auto* combo = In<ComboBox>(user, box);
    return combo->ListIndex() < 0 ? QString() : combo->Text(combo->ListIndex());
}

/// @return what the panel shows, as it must be stored
StoredSong Panel(const Musician& user)
{
    StoredSong song;
    song.title = In<QLineEdit>(user, "txtCadTitulo")->text();
    song.reference = In<QLineEdit>(user, "txtCadReferencia")->text();
    song.text = Text(user, 0);
    song.text2 = Text(user, 1);
    song.key = Chosen(user, "cmbCadTom");
    song.variation = Chosen(user, "cmbCadVariacao");
    const auto* category = In<ComboBox>(user, "cmbCadCategoria");
    song.category = QString::number(category->ItemData(category->ListIndex()));
    const auto* themes = In<ListBox>(user, "lstCadTema");
    QList<qint64> checked;
    for (int i = 0; i < themes->ListCount(); ++i) {
        if (themes->Selected(i))
            checked += themes->ItemData(i);
    }
    std::sort(checked.begin(), checked.end());
    for (const qint64 id : checked)
        song.themes += QString::number(id);
    return song;
}

/// @return what the panel must say; "" when it stores the song
QString Refusal(const StoredSong& song)
{
    if (song.title.isEmpty())
        return u"Preencha o Título da música."_qs;
    if (song.reference.isEmpty())
        return u"Preencha a Refrência da música."_qs;
    if (song.text.isEmpty())
        return u"Preencha a Letra e Cifra da música."_qs;
    if (song.themes.isEmpty())
        return u"Selecione pelo menos um Tema para a música."_qs;
    return {};
}

void Saves(Musician& user, bool equal)
{
    StoredSong song = Panel(user);
    if (equal && ShownText(user) && !ShownText(user)->Text().isEmpty())
        song.text = song.text2 = ShownText(user)->Text();
    if (song.text2.isEmpty())
        song.text2 = song.text;
    const QString refusal = Refusal(song);
    qint64 id = user.Tag("txtCadTitulo").toLongLong();
    if (refusal.isEmpty()) {
        user.permitted.newSongs = id == 0;
        user.permitted.songs += id;
    }
    user.journal.Note(u"saves song %1 %2"_qs.arg(id).arg(song.title));
    user.Click(equal ? "cmdCadIgualarSalvar" : "cmdCadSalvar");
    Hands::Settle();
    const QString wanted = !refusal.isEmpty() ? refusal
                           : id == 0          ? u"Música Cadastrada com Sucesso!"_qs
                                              : u"Música Atualizada com Sucesso!"_qs;
    user.Demand(user.Heard(wanted), u"was not told: "_qs + wanted);
    if (!refusal.isEmpty())
        return;
    id = user.Tag("txtCadTitulo").toLongLong();
    user.Demand(id != 0, u"a stored song without a number"_qs);
    user.Expect(id, song);
    user.journal.Count("songs saved in the entry");
}

void ChoosesInCombo(Musician& user, const char* name)
{
    auto* combo = user.Seen<ComboBox>(name);
    if (user.chance.OneIn(2)) {
        Hands::Click(combo);
        Hands::Settle();
    }
    // The list that has dropped down takes the keys, else the box itself.
    for (int i = user.chance.Below(12); i > 0; --i) {
        QWidget* popup = QApplication::activePopupWidget();
        Hands::Press(popup ? static_cast<QWidget*>(combo->view()) : combo,
                     user.chance.OneIn(3) ? Qt::Key_Up : Qt::Key_Down);
    }
    if (QApplication::activePopupWidget())
        Hands::Press(combo->view(), Qt::Key_Return);
    Hands::Settle();
}

void TypesText(Musician& user)
{
    auto* box = ShownText(user);
    Hands::Click(box->viewport());
    if (user.chance.OneIn(2)) {
        Hands::Press(box, Qt::Key_End, Qt::ControlModifier);
        Hands::Type(box, u"\nAm  D\n"_qs + user.Word());
        return;
    }
    Hands::Press(box, Qt::Key_A, Qt::ControlModifier);
    Hands::Paste(box, user.NewText());
    if (user.chance.OneIn(3)) {
        Hands::Press(box, Qt::Key_Z, Qt::ControlModifier);
        Hands::Press(box, Qt::Key_Y, Qt::ControlModifier);
    }
}

void TurnsATheme(Musician& user)
{
    auto* themes = user.Seen<ListBox>("lstCadTema");
    Hands::ClickRow(themes, user.chance.Below(themes->ListCount()));
}

bool EntersASong(Musician& user)
{
    if (user.Full() || !user.GoToEntry())
        return false;
    user.Choose("Cadastro");
    Hands::Settle();
    Hands::Replace(user.Seen("txtCadTitulo"), user.NewTitle());
    Hands::Settle();
    Hands::Replace(user.Seen("txtCadReferencia"), user.Word() + u" e "_qs + user.Word());
    Hands::Settle();
    ChoosesInCombo(user, "cmbCadTom");
    ChoosesInCombo(user, "cmbCadVariacao");
    ChoosesInCombo(user, "cmbCadCategoria");
    auto* text = ShownText(user);
    Hands::Click(text->viewport());
    Hands::Paste(text, user.NewText());
    TurnsATheme(user);
    Saves(user, user.chance.OneIn(4));
    return true;
}

bool ChangesTheSong(Musician& user)
{
    if (!user.GoToEntry())
        return true;
    switch (user.chance.Below(7)) {
    case 0:
        Hands::Replace(user.Seen("txtCadTitulo"),
                       user.chance.OneIn(8) ? QString() : user.NewTitle());
        break;
    case 1:
        Hands::Replace(user.Seen("txtCadReferencia"),
                       user.chance.OneIn(8) ? QString() : user.StoredPiece());
        break;
    case 2:
        ChoosesInCombo(user, "cmbCadTom");
        ChoosesInCombo(user, "cmbCadVariacao");
        break;
    case 3:
        ChoosesInCombo(user, "cmbCadCategoria");
        break;
    case 4:
        TurnsATheme(user);
        break;
    default:
        TypesText(user);
    }
    return true;
}

bool SavesTheSong(Musician& user)
{
    // Where nothing is stored yet this adds one.
    if (!user.GoToEntry() || (user.Full() && user.Tag("txtCadTitulo") == u"0"))
        return false;
    Saves(user, user.chance.OneIn(3));
    return true;
}

bool TurnsTheVersion(Musician& user)
{
    return user.GoToEntry() &&
           user.Click(user.chance.OneIn(2) ? "lblMostraMusica_0" : "lblMostraMusica_1");
}

bool BeginsANewSong(Musician& user)
{
    return user.GoToEntry() && user.Click("cmdCadLimpar");
}

bool DeletesTheSong(Musician& user)
{
    return user.watch->Rows().songs.size() > 20 && user.GoToEntry() && user.Click("cmdExcluir");
}

bool ViewsTheSong(Musician& user)
{
    if (!user.RoomForViewers() || !user.GoToEntry() || !user.Click("cmdVisualizar"))
        return false;
    user.journal.Count("viewers opened");
    return true;
}

bool FollowsASuggestion(Musician& user)
{
    if (!user.GoToEntry() || !user.RoomForViewers())
        return false;
    const bool title = user.chance.OneIn(2);
    const auto songs = user.watch->Rows().songs.values();
    const StoredSong song = user.chance.Of(songs);
    Hands::Replace(user.Seen(title ? "txtCadTitulo" : "txtCadReferencia"),
                   (title ? song.title : song.reference).left(1 + user.chance.Below(5)));
    Hands::Settle();
    auto* list = user.Seen<ListBox>(title ? "lstMusicasSemelhantes" : "lstReferenciasSemelhantes");
    if (list && list->ListCount() > 0) {
        user.journal.Count("suggestions followed");
        Hands::DoubleClickRow(list, user.chance.Below(list->ListCount()));
    }
    return true;
}

} // namespace

void AddEntryActions(QList<Action>& actions)
{
    actions +=
        {{"enter a new song", 8, EntersASong},    {"change the song", 12, ChangesTheSong},
         {"save the song", 8, SavesTheSong},      {"turn the version", 3, TurnsTheVersion},
         {"begin a new song", 2, BeginsANewSong}, {"delete the song", 3, DeletesTheSong},
         {"view the song", 4, ViewsTheSong},      {"follow a suggestion", 4, FollowsASuggestion}};
}
