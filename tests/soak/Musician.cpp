#include "Musician.h"

#include "Actions.h"
#include "Boxes.h"

#include "support/GeneratedSongs.h"
#include "viewer/frmVisualizar.h"

#include <QAction>
#include <QApplication>
#include <QHash>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr int FirstSongs = 60;
constexpr int MostSongs = 120;
constexpr int MostViewers = 12;

const QList<Action>& AllActions()
{
    static const QList<Action> all = [] {
        QList<Action> actions;
        AddSearchActions(actions);
        AddEntryActions(actions);
        AddThemeActions(actions);
        AddSetlistActions(actions);
        AddViewerActions(actions);
        AddEditingActions(actions);
        AddExchangeActions(actions);
        AddWindowActions(actions);
        return actions;
    }();
    return all;
}

const Action& SomeAction(Chance& chance)
{
    int all = 0;
    for (const Action& action : AllActions())
        all += action.weight;
    int drawn = chance.Below(all);
    for (const Action& action : AllActions()) {
        if (drawn < action.weight)
            return action;
        drawn -= action.weight;
    }
    return AllActions().constFirst();
}

} // namespace

Musician::Musician(std::uint64_t seed)
    : chance(seed, 0)
    , journal(seed)
    , m_seed(seed)
{
    FillCatalogue();
    watch = std::make_unique<CatalogueWatch>(catalogue.Path());
    OpenProgram();
    m_boxes = std::make_unique<Boxes>(*this);
}

Musician::~Musician()
{
    m_boxes.reset();
    const auto viewers = Viewers();
    qDeleteAll(viewers);
    form->close();
}

void Musician::FillCatalogue() const
{
    for (const QString& theme : {u"Louvor"_qs, u"Natal"_qs, u"Páscoa"_qs, u"Festa"_qs})
        catalogue.AddTheme(theme);
    catalogue.AddTheme(u"Sem Tema"_qs, 3);
    SongGenerator songs(m_seed);
    for (int i = 0; i < FirstSongs; ++i) {
        const GeneratedSong song = songs.Next();
        const qint64 id = catalogue.AddSong({.title = song.title,
                                             .reference = song.reference,
                                             .text = song.text,
                                             .text2 = song.text,
                                             .key = song.key,
                                             .variation = song.variation + u""_qs,
                                             .category = song.category,
                                             .count = song.count});
        catalogue.Link(id, 1 + i % 5);
        if (i % 3 == 0)
            catalogue.Link(id, 1 + (i + 2) % 5);
    }
    catalogue.AddSetlist(u"Domingo"_qs, QDate(2024, 5, 12), {1, 2, 3, 4});
}

void Musician::OpenProgram()
{
    orphaned = false;
    form = std::make_unique<FormOnCatalogue>(catalogue);
    form->Form_Load({});
    form->show();
    form->activateWindow();
    Demand(QTest::qWaitForWindowActive(form.get()), u"the main form does not come up"_qs);
    AwaitSearch();
}

void Musician::Act(int number)
{
    chance = Chance(m_seed, static_cast<std::uint64_t>(number));
    permitted = {};
    heard.clear();
    quoteTyped = false;
    // Where one cannot be done now, another one can.
    for (;;) {
        const Action& action = SomeAction(chance);
        journal.Begin(number, action.kind);
        if (action.perform(*this)) {
            journal.End(action.kind);
            break;
        }
        journal.Note(u"not now"_qs);
    }
    Hands::Settle();
    LetTimePass(chance.Below(7));
    LookAround();
}

void Musician::LookAround()
{
    while (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        Hands::Settle();
    }
    Demand(!QApplication::activeModalWidget(), u"a window still stands in the way"_qs);
    const QString difference = watch->Look(permitted);
    Demand(difference.isEmpty(), difference);
    CompareSaved();
    if (form->isVisible())
        return;
    journal.Note(u"left the program"_qs);
    journal.Count("program left");
    orphaned = true;
    const auto viewers = Viewers();
    for (frmVisualizar* viewer : viewers) {
        const QPointer<frmVisualizar> open(viewer);
        Hands::Press(viewer, Qt::Key_S);
        Hands::Tick(viewer, "tmrContador", 12);
        Hands::Settle();
        if (open)
            open->close();
        Hands::Settle();
        delete open; // whoever went on editing without a catalogue
    }
    form.reset();
    OpenProgram();
}

void Musician::CompareSaved()
{
    if (!m_expected)
        return;
    const auto [id, expected] = *std::exchange(m_expected, std::nullopt);
    StoredSong song = watch->Rows().songs.value(id);
    if (expected.key.isNull())
        song.key = QString();
    const QString difference = expected.DifferenceFrom(song);
    Demand(difference.isEmpty() || MayFail(),
           u"song %1 was saved otherwise: "_qs.arg(id) + difference);
    journal.Count("saved songs compared");
}

void Musician::Rest()
{
    const QString unsound = watch->Unsound();
    Demand(unsound.isEmpty(), u"the catalogue is not sound: "_qs + unsound);
    permitted = {};
    const auto viewers = Viewers();
    for (const QPointer<frmVisualizar> viewer : viewers) {
        // Whoever edits is asked, and may go on.
        while (viewer) {
            viewer->close();
            Hands::Settle();
            LookAround();
        }
    }
    while (!GoToSearch())
        journal.Note(u"stays"_qs);
    for (const char* box : {"txtTitulo", "txtReferencia", "txtLetra"})
        Hands::Replace(Seen(box), {});
    AwaitSearch();
}

bool Musician::Click(const char* name) const
{
    auto* control = Seen(name);
    if (control)
        Hands::Click(control);
    return control != nullptr;
}

bool Musician::GoTo(const char* entry)
{
    static const QHash<QString, const char*> panels{{u"Pesquisa"_qs, "pctFrame_0"},
                                                    {u"Lista"_qs, "pctFrame_1"},
                                                    {u"Cadastro"_qs, "pctFrame_2"}};
    form->setWindowState(form->windowState() & ~Qt::WindowMinimized);
    form->raise();
    form->activateWindow();
    Hands::Settle();
    const char* panel = panels.value(QString::fromLatin1(entry));
    if (Seen(panel))
        return true;
    Choose(entry);
    Hands::Settle();
    return Seen(panel) != nullptr;
}

void Musician::Choose(const char* entry)
{
    journal.Note(u"choose "_qs + QString::fromLatin1(entry));
    const QString name = QString::fromLatin1(entry);
    if (chance.OneIn(2)) {
        QMenuBar* menu = form->menuBar();
        auto* found = form->findChild<QAction*>(u"mnu"_qs + name);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(found).center());
        return;
    }
    auto* bar = form->findChild<QToolBar*>(u"Toolbar"_qs);
    const auto buttons = bar->actions();
    for (QAction* button : buttons) {
        if (button->data().toString() == name.toLower()) {
            Hands::Click(bar->widgetForAction(button));
            return;
        }
    }
}

bool Musician::AwaitSearch() const
{
    const auto* timer = form->findChild<QTimer*>(u"Timer1"_qs);
    const bool due = timer->isActive();
    Hands::Settle();
    Hands::Tick(form.get(), "Timer1");
    Hands::Settle();
    return due;
}

void Musician::LetTimePass(int seconds)
{
    constexpr int ScrollTicks = 3;
    secondsUsed += seconds;
    const auto viewers = Viewers();
    for (frmVisualizar* viewer : viewers) {
        Hands::Tick(viewer, "tmrContador", seconds);
        Hands::Tick(viewer, "TimerRolagem", ScrollTicks);
    }
}

QList<frmVisualizar*> Musician::Viewers() const
{
    QList<frmVisualizar*> viewers;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* viewer = qobject_cast<frmVisualizar*>(window); viewer && viewer->isVisible())
            viewers += viewer;
    }
    // The order of the windows is nobody's choice.
    std::sort(viewers.begin(), viewers.end(), [](const auto* a, const auto* b) {
        return std::pair(a->ID_Lista, a->ID_Musica) < std::pair(b->ID_Lista, b->ID_Musica);
    });
    return viewers;
}

frmVisualizar* Musician::SomeViewer()
{
    const auto viewers = Viewers();
    if (viewers.isEmpty())
        return nullptr;
    frmVisualizar* viewer = chance.Of(viewers);
    viewer->setWindowState(viewer->windowState() & ~Qt::WindowMinimized);
    viewer->raise();
    viewer->activateWindow();
    Hands::Settle();
    journal.Note(u"viewer of song %1, list %2"_qs.arg(viewer->ID_Musica).arg(viewer->ID_Lista));
    return viewer;
}

bool Musician::RoomForViewers() const
{
    return Viewers().size() < MostViewers;
}

QString Musician::Tag(const char* control) const
{
    const auto* found = form->findChild<QWidget*>(QString::fromLatin1(control));
    return found ? found->property("Tag").toString() : QString();
}

QString Musician::Word()
{
    static const QStringList words{u"Luz"_qs,   u"Coração"_qs, u"Manhã"_qs, u"Santo"_qs,
                                   u"Amor"_qs,  u"Água"_qs,    u"Céu"_qs,   u"Rio"_qs,
                                   u"Noite"_qs, u"Canção"_qs,  u"Paz"_qs,   u"Estrela"_qs};
    return chance.Of(words);
}

QString Musician::NewTitle()
{
    const QString title = Word() + u' ' + Word() + u' ' + QString::number(chance.Below(1000));
    return chance.OneIn(12) ? u"D'"_qs + title : title;
}

QString Musician::NewText()
{
    static const QStringList chords{u"C   G7"_qs, u"Am  F#m7"_qs, u"D/F#  Bb"_qs, u"E7(9)  A"_qs};
    QString text;
    for (int i = 1 + chance.Below(12); i > 0; --i)
        text += chance.Of(chords) + u"\r\n"_qs + Word() + u" d'"_qs + Word() +
                (chance.OneIn(40) ? u" & "_qs : u" <b> "_qs) + Word() + u"\r\n"_qs;
    return text + Word();
}

QString Musician::StoredPiece()
{
    const auto songs = watch->Rows().songs.values();
    if (songs.isEmpty())
        return Word();
    const StoredSong song = chance.Of(songs);
    const QString whole = chance.OneIn(2)   ? song.title
                          : chance.OneIn(2) ? song.reference
                                            : song.text;
    return whole.mid(chance.Below(qMax<qsizetype>(whole.size() - 6, 1)), 1 + chance.Below(6))
        .simplified();
}

bool Musician::Full() const
{
    return watch->Rows().songs.size() >= MostSongs;
}

bool Musician::Heard(const QString& part) const
{
    return std::any_of(heard.begin(), heard.end(),
                       [&part](const QString& text) { return text.contains(part); });
}

bool Musician::MayFail() const
{
    const auto* filter = form ? form->findChild<QLineEdit*>(u"txtFiltro"_qs) : nullptr;
    return orphaned || !form || !form->isVisible() || quoteTyped ||
           (filter && filter->text().contains(u'\''));
}
