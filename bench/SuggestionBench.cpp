// The suggestions of the entry panel: from a letter typed to the painted list.

#include "Benches.h"
#include "controls/ListBox.h"
#include "harness/Catalogue.h"
#include "harness/MainForm.h"

#include <QAction>

namespace {

constexpr int Rounds = 25;

struct Suggestion
{
    const char* box;
    const char* list;
    const char16_t* column; ///< as the table calls it
    const char16_t* before; ///< the text that a letter is typed behind
    QChar letter;
};

constexpr std::array<Suggestion, 6> Suggestions{{
    {"txtCadTitulo", "lstMusicasSemelhantes", u"title", u"zzq", u'x'},
    {"txtCadTitulo", "lstMusicasSemelhantes", u"title", u"lu", u'z'},
    {"txtCadTitulo", "lstMusicasSemelhantes", u"title", u"", u'%'},
    {"txtCadReferencia", "lstReferenciasSemelhantes", u"reference", u"zzq", u'x'},
    {"txtCadReferencia", "lstReferenciasSemelhantes", u"reference", u"lu", u'z'},
    {"txtCadReferencia", "lstReferenciasSemelhantes", u"reference", u"", u'%'},
}};

void Measure(const Suggestion& suggestion, const Scale& scale, const MainForm& form,
             ResultTable& table)
{
    auto& box = form.Find<QLineEdit>(suggestion.box);
    auto& list = form.Find<ListBox>(suggestion.list);
    box.setFocus();
    PaintCounter painted(*list.viewport());
    const auto type = [&] {
        box.setText(QString::fromUtf16(suggestion.before));
        return painted.UntilPainted([&] {
            QTest::sendKeyEvent(QTest::Press, &box, Qt::Key_unknown, QString(suggestion.letter),
                                Qt::NoModifier);
        });
    };
    const auto repaint = [&] {
        QWidget& whole = const_cast<MainForm&>(form);
        return painted.Bare(whole);
    };
    const auto times = Interleaved(scale.Rounds(Rounds), {type, repaint});
    const QString text = QString::fromUtf16(suggestion.before) + suggestion.letter;
    table.Add(u"letter to painted suggestions, %1 %2 (%3)"_qs.arg(
                  QStringView(suggestion.column), text, QString::number(list.ListCount())),
              times[0], u"repaint of the form"_qs, times[1], {Aim::AtMost, 1});
}

} // namespace

void BenchSuggestions(const Scale& scale, ResultTable& table)
{
    const GeneratedCatalogue catalogue(scale.songs);
    const MainForm form(catalogue);
    form.Find<QAction>("mnuCadastro").trigger();
    for (const Suggestion& suggestion : Suggestions)
        Measure(suggestion, scale, form, table);
}
