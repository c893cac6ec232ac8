#include "controls/Appearance.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>

#include <array>
#include <utility>

namespace {

/// What a look is painted with. Words with an @ in the style sheet are members of it.
struct Scheme
{
    QColor accent;
    QColor accentDark; ///< the accent under the pointer
    QColor text;
    QColor muted; ///< hints and counts
    QColor window;
    QColor surface; ///< what is typed into or chosen from; on the accent, the colour of texts
    QColor border;
    QColor strongBorder;
    QColor selection;      ///< rows: the accent, thinned so that texts keep their colour
    QColor quietSelection; ///< the same while another window is in use
    QColor hover;
    QColor quiet;
    QColor header;
    QColor scroll;
    QColor disabled;
    QColor progress;       ///< the accent, as strong as the text on the bar allows
    const char16_t* check; ///< the picture in a checked box
};

const Scheme& Light()
{
    using namespace Appearance;
    static const Scheme scheme{
        .accent = Accent,
        .accentDark = QColor(0, 82, 168),
        .text = Text,
        .muted = MutedText,
        .window = Window,
        .surface = Surface,
        .border = Border,
        .strongBorder = QColor(158, 168, 179),
        .selection = QColor(214, 232, 250),
        .quietSelection = QColor(224, 235, 247),
        .hover = QColor(238, 244, 251),
        .quiet = QColor(228, 232, 237),
        .header = QColor(240, 242, 245),
        .scroll = QColor(190, 198, 207),
        .disabled = QColor(98, 107, 118),
        .progress = QColor(107, 170, 232),
        .check = u"check",
    };
    return scheme;
}

const Scheme& Dark()
{
    static const Scheme scheme{
        .accent = QColor(97, 171, 255),
        .accentDark = QColor(143, 196, 255),
        .text = QColor(230, 234, 239),
        .muted = QColor(165, 174, 185),
        .window = QColor(27, 31, 36),
        .surface = QColor(36, 41, 48),
        .border = QColor(70, 79, 91),
        .strongBorder = QColor(95, 105, 118),
        .selection = QColor(38, 70, 108),
        .quietSelection = QColor(44, 62, 84),
        .hover = QColor(46, 54, 64),
        .quiet = QColor(54, 62, 72),
        .header = QColor(43, 49, 57),
        .scroll = QColor(88, 98, 110),
        .disabled = QColor(142, 151, 162),
        .progress = QColor(50, 100, 162),
        .check = u"check-dark",
    };
    return scheme;
}

/// What shows on either accent as the accent does on its ground.
constexpr QColor FocusOnAccent(6, 16, 28);

bool s_dark = false;

const Scheme& Shown()
{
    return s_dark ? Dark() : Light();
}

QString FirstInstalled(std::initializer_list<QString> families, QFontDatabase::SystemFont otherwise)
{
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family))
            return family;
    }
    return QFontDatabase::systemFont(otherwise).family();
}

/// Every role in every group: whatever is left out comes from the desktop's palette, which need not
/// go with the rest.
QPalette PaletteOf(const Scheme& scheme)
{
    QPalette palette(scheme.text, scheme.header, scheme.surface, scheme.strongBorder, scheme.border,
                     scheme.text, scheme.surface, scheme.surface, scheme.window);
    palette.setColor(QPalette::Midlight, scheme.quiet);
    palette.setColor(QPalette::ButtonText, scheme.text);
    palette.setColor(QPalette::AlternateBase, scheme.window);
    palette.setColor(QPalette::Shadow, scheme.strongBorder);
    palette.setColor(QPalette::Highlight, scheme.accent);
    palette.setColor(QPalette::HighlightedText, scheme.surface);
    palette.setColor(QPalette::Link, scheme.accent);
    palette.setColor(QPalette::LinkVisited, scheme.accentDark);
    palette.setColor(QPalette::ToolTipBase, scheme.text);
    palette.setColor(QPalette::ToolTipText, scheme.surface);
    palette.setColor(QPalette::PlaceholderText, scheme.muted);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, scheme.disabled);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, scheme.quiet);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, scheme.disabled);
    return palette;
}

QString StyleSheet(const Scheme& scheme)
{
    const std::array<std::pair<const char16_t*, QColor>, 17> colours{{
        {u"@quietSelection", scheme.quietSelection}, // longer words before their own beginnings
        {u"@focusOnAccent", FocusOnAccent},
        {u"@accentDark", scheme.accentDark},
        {u"@accent", scheme.accent},
        {u"@progress", scheme.progress},
        {u"@text", scheme.text},
        {u"@muted", scheme.muted},
        {u"@window", scheme.window},
        {u"@surface", scheme.surface},
        {u"@border", scheme.border},
        {u"@strongBorder", scheme.strongBorder},
        {u"@selection", scheme.selection},
        {u"@hover", scheme.hover},
        {u"@quiet", scheme.quiet},
        {u"@header", scheme.header},
        {u"@scroll", scheme.scroll},
        {u"@disabled", scheme.disabled},
    }};
    QFile file(QStringLiteral(":/controls/appearance.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString sheet = QString::fromUtf8(file.readAll());
    for (const auto& [word, colour] : colours)
        sheet.replace(QStringView(word).toString(), colour.name());
    sheet.replace(QStringLiteral("@check"), QStringView(scheme.check).toString());
    return sheet;
}

/// Draws a picture at whatever size is asked for.
class DrawingEngine final : public QIconEngine
{
public:
    explicit DrawingEngine(QString path)
        : m_path(std::move(path))
    {
    }

    QIconEngine* clone() const override { return new DrawingEngine(m_path); }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
               QIcon::State /*state*/) override
    {
        constexpr qreal Unavailable = 0.35;
        if (!m_picture.IsValid()) // not before it is seen: the start does not wait for it
            m_picture = Appearance::Drawing(m_path);
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(Unavailable);
        m_picture.Render(*painter, place);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }

private:
    QString m_path;
    VectorPicture m_picture;
};

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

bool IsDark()
{
    return s_dark;
}

VectorPicture Drawing(const QString& path)
{
    if (!s_dark)
        return VectorPicture(path);
    // The three colours that every drawing is made of: ink, accent, and what is inert.
    static const PictureColours colours{{QColor(0x2b, 0x34, 0x40), QColor(0xd3, 0xda, 0xe2)},
                                        {QColor(0x00, 0x66, 0xcc), Dark().accent},
                                        {QColor(0xb9, 0xc0, 0xc8), QColor(0x56, 0x5f, 0x6a)}};
    return VectorPicture(path, colours);
}

QIcon Icon(const QString& path)
{
    return QIcon(new DrawingEngine(path)); // the icon deletes it
}

void Apply(QApplication& application)
{
    constexpr int Middle = 128;
    s_dark = QApplication::palette().color(QPalette::Window).lightness() < Middle;
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(PaletteOf(Shown()));
    application.setStyleSheet(StyleSheet(Shown()));
    // Last: a new style brings back the fonts that the desktop has for menus, lists and boxes.
    application.setFont(QFont(TextFamily(), TextPoints));
    // Rolling a list down takes 150 ms; whoever plays wants the next song now.
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
}

} // namespace Appearance
