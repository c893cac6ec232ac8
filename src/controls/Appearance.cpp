#include "controls/Appearance.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>

#include <array>
#include <utility>

namespace {

constexpr QColor AccentDark(0, 82, 168);
constexpr QColor Selection(214, 232, 250); // rows: the accent, thinned so that texts stay dark
constexpr QColor Hover(238, 244, 251);
constexpr QColor QuietSelection(224, 235, 247); // the same while another window is in use
constexpr QColor Progress(107, 170, 232);       // the accent, as dark as the text of the bar allows
constexpr QColor Quiet(228, 232, 237);
constexpr QColor Header(240, 242, 245);
constexpr QColor StrongBorder(158, 168, 179);
constexpr QColor Scroll(190, 198, 207);
constexpr QColor Disabled(125, 134, 145);

QString FirstInstalled(std::initializer_list<QString> families, QFontDatabase::SystemFont otherwise)
{
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family))
            return family;
    }
    return QFontDatabase::systemFont(otherwise).family();
}

/// Every role in every group: whatever is left out comes from the desktop's palette, and light text
/// of a dark one would stand on our light ground.
QPalette LightPalette()
{
    using namespace Appearance;
    QPalette palette(Text, Header, Surface, StrongBorder, Border, Text, Surface, Surface, Window);
    palette.setColor(QPalette::Midlight, Quiet);
    palette.setColor(QPalette::ButtonText, Text);
    palette.setColor(QPalette::AlternateBase, Window);
    palette.setColor(QPalette::Shadow, StrongBorder);
    palette.setColor(QPalette::Highlight, Accent);
    palette.setColor(QPalette::HighlightedText, Surface);
    palette.setColor(QPalette::Link, Accent);
    palette.setColor(QPalette::LinkVisited, AccentDark);
    palette.setColor(QPalette::ToolTipBase, Text);
    palette.setColor(QPalette::ToolTipText, Surface);
    palette.setColor(QPalette::PlaceholderText, MutedText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Disabled);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, Quiet);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, Disabled);
    return palette;
}

QString StyleSheet()
{
    using namespace Appearance;
    static constexpr std::array<std::pair<const char16_t*, QColor>, 16> colours{{
        {u"@quietSelection", QuietSelection}, // longer words before their own beginnings
        {u"@accentDark", AccentDark},
        {u"@accent", Accent},
        {u"@progress", Progress},
        {u"@text", Text},
        {u"@muted", MutedText},
        {u"@window", Window},
        {u"@surface", Surface},
        {u"@border", Border},
        {u"@strongBorder", StrongBorder},
        {u"@selection", Selection},
        {u"@hover", Hover},
        {u"@quiet", Quiet},
        {u"@header", Header},
        {u"@scroll", Scroll},
        {u"@disabled", Disabled},
    }};
    QFile file(QStringLiteral(":/controls/appearance.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString sheet = QString::fromUtf8(file.readAll());
    for (const auto& [word, colour] : colours)
        sheet.replace(QStringView(word).toString(), colour.name());
    return sheet;
}

} // namespace

namespace Appearance {

QString TextFamily()
{
    static const QString family = FirstInstalled(
        {QStringLiteral("Calibri"), QStringLiteral("Carlito")}, QFontDatabase::GeneralFont);
    return family;
}

QString MonospacedFamily()
{
    static const QString family =
        FirstInstalled({QStringLiteral("Consolas"), QStringLiteral("Inconsolata"),
                        QStringLiteral("DejaVu Sans Mono")},
                       QFontDatabase::FixedFont);
    return family;
}

void Apply(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(LightPalette());
    application.setFont(QFont(TextFamily(), TextPoints));
    application.setStyleSheet(StyleSheet());
    // Rolling a list down takes 150 ms; whoever plays wants the next song now.
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
}

} // namespace Appearance
