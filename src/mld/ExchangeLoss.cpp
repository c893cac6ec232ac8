#include "mld/ExchangeLoss.h"

#include "mld/ExchangeWriter.h"
#include "store/CodePage.h"

#include <algorithm>

namespace {

/// @return whether XML has no place for it
bool IsControl(QChar unit)
{
    return unit < u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r';
}

enum class Brackets { Dropped, Written };

void Look(ExchangeLoss& loss, const QString& field, Brackets brackets)
{
    const QString written = ExchangeWriter::Composed(field);
    loss.letters = loss.letters || !CodePage::Holds(written);
    const auto harms = [brackets](QChar unit) {
        if (unit == u'<' || unit == u'>')
            return brackets == Brackets::Written;
        return unit == u'&' || IsControl(unit);
    };
    loss.unreadable = loss.unreadable || std::any_of(written.begin(), written.end(), harms);
}

} // namespace

ExchangeLoss ExchangeLoss::Of(const ExchangeSong& song)
{
    ExchangeLoss loss;
    for (const auto& text : {&song.titulo, &song.referencia, &song.letra1, &song.letra2})
        Look(loss, (*text).value_or(QString()), Brackets::Dropped);
    for (const auto& text : {&song.tom, &song.variacao})
        Look(loss, (*text).value_or(QString()), Brackets::Written);
    for (const QString& tema : song.temas)
        Look(loss, tema, Brackets::Written);
    return loss;
}
