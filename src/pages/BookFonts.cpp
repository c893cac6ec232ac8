#include "pages/BookFonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

namespace Pages {

namespace {

QString FirstInstalled(const QStringList& wanted, QFontDatabase::SystemFont otherwise)
{
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : wanted) {
        if (installed.contains(family, Qt::CaseInsensitive))
            return family;
    }
    return QFontDatabase::systemFont(otherwise).family();
}

QFont Sized(const QString& family, double size, bool bold)
{
    QFont font(family);
    font.setPointSizeF(size);
    font.setBold(bold);
    // Paper has no pixels to fit letters to, and in a sheet each letter keeps its column.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

} // namespace

QFont SheetFont(double size, bool bold)
{
    static const QString family = FirstInstalled(
        {u"Consolas"_qs, u"Inconsolata"_qs, u"DejaVu Sans Mono"_qs}, QFontDatabase::FixedFont);
    QFont font = Sized(family, size, bold);
    font.setFixedPitch(true);
    return font;
}

QFont TitleFont(double size, bool bold)
{
    static const QString family =
        FirstInstalled({u"Calibri"_qs, u"Carlito"_qs}, QFontDatabase::GeneralFont);
    QFont font = Sized(family, size, bold);
    font.setKerning(true);
    // Letters that are spaced are not joined into one sign, which programs that search the book or
    // read it aloud would not know. A twentieth of a dot is not seen.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05);
    return font;
}

double SheetCharWidth()
{
    // Measured large, so that no rounding is left in it.
    QFont font = SheetFont(12, false);
    constexpr int Large = 1000;
    font.setPixelSize(Large);
    return QFontMetricsF(font).horizontalAdvance(u'm') / Large;
}

} // namespace Pages
