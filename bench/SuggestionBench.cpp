// The suggestions of the entry panel: from a letter typed to the painted list.

#include "Benches.h"
#include "controls/ListBox.h"
#include "harness/Catalogue.h"
#include "harness/MainForm.h"

#include <QAction>
#include <QKeyEvent>

namespace {

constexpr int Rounds = 25;

struct Suggestion
{
    const char* box;
    const char* list;
    const char16_t* column; ///< as the table calls it
    const char16_t* before; ///< the text that a letter is typed behind
    QChar letter;
    bool isTyped; ///< by somebody who enters a song; all songs at once are a curiosity
};

constexpr std::array<Suggestion, 8> Suggestions{{
    {"txtCadTitulo", "lstMusicasSemelhantes", u"title", u"zzq", u'x', true},
    {"txtCadTitulo", "lstMusicasSemelhantes", u"title", u"lu", u'z', true},
    {"txtCadTitulo", "lstMusicasSemelhantes", u"title", u"", u'a', true},
    {"txtCadTitulo", "lstMusicasSemelhantes", u"title", u"", u'%', false},
    {"txtCadReferencia", "lstReferenciasSemelhantes", u"reference", u"zzq", u'x', true},
    {"txtCadReferencia", "lstReferenciasSemelhantes", u"reference", u"lu", u'z', true},
    {"txtCadReferencia", "lstReferenciasSemelhantes", u"reference", u"", u'a', true},
    {"txtCadReferencia", "lstReferenciasSemelhantes", u"reference", u"", u'%', false},
}};

void Measure(const Suggestion& suggestion, const Scale& scale, MainForm& form, ResultTable& table)
{
    auto& box = form.Find<QLineEdit>(suggestion.box);
    auto& list = form.Find<ListBox>(suggestion.list);
    box.setFocus();
    PaintCounter painted(*list.viewport());
    const auto type = [&] {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier,
                        QString(suggestion.letter));
        QCoreApplication::sendEvent(&box, &press);
    };
    const auto paint = [&] {
        box.setText(QString::fromUtf16(suggestion.before));
        return painted.UntilPainted(type);
    };
    const auto repaint = [&] { return painted.Bare(form); };
    const auto times = Interleaved(scale.Rounds(Rounds), {paint, repaint});
    const QString text = QString::fromUtf16(suggestion.before) + suggestion.letter;
    const QString work = u"letter to painted suggestions, %1 %2 (%3)"_qs.arg(
        QStringView(suggestion.column), text, QString::number(list.ListCount()));
    table.Add(work, times[0], u"repaint of the form"_qs, times[1],
              suggestion.isTyped ? Aim{Aim::AtMost, 1} : Aim{});
}

} // namespace

void BenchSuggestions(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    MainForm form(catalogue);
    form.Find<QAction>("mnuCadastro").trigger();
    for (const char* name : {"txtCadTitulo", "txtCadReferencia"}) {
        auto& box = form.Find<QLineEdit>(name);
        // Once only: the songs are put into that order.
        const Nanoseconds first = Timed([&] { box.setText(u"zzqx"_qs); });
        const Nanoseconds next = Timed([&] { box.setText(u"zzqxx"_qs); });
        table.Add(u"first suggestions after the start, "_qs + QString::fromLatin1(name), first,
                  u"the next ones"_qs, next);
        box.clear();
    }
    for (const Suggestion& suggestion : Suggestions)
        Measure(suggestion, scale, form, table);
}
