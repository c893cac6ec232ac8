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

void Look(ExchangeLoss& loss, const QString& field, QStringView signs)
{
    const QString written = ExchangeWriter::Composed(field);
    loss.letters = loss.letters || !CodePage::Holds(written);
    loss.unreadable =
        loss.unreadable || std::any_of(written.begin(), written.end(), [signs](QChar unit) {
            return signs.contains(unit) || IsControl(unit);
        });
}

} // namespace

ExchangeLoss ExchangeLoss::Of(const ExchangeSong& song)
{
    ExchangeLoss loss;
    for (const auto& text : {&song.titulo, &song.referencia, &song.letra1, &song.letra2})
        Look(loss, (*text).value_or(QString()), u"&");
    for (const auto& text : {&song.tom, &song.variacao})
        Look(loss, (*text).value_or(QString()), u"&<>");
    for (const QString& tema : song.temas)
        Look(loss, tema, u"&<>");
    return loss;
}
