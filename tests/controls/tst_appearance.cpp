#include "controls/Appearance.h"

#include "controls/ClickableLabel.h"
#include "controls/RichTextBox.h"
#include "fonts/ProgramFonts.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QFontMetrics>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double Luminance(const QColor& colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const double lighter = std::max(Luminance(a), Luminance(b));
    const double darker = std::min(Luminance(a), Luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

/// The colours of a picture that nothing shows through.
QSet<QRgb> SolidColours(const VectorPicture& picture)
{
    QImage drawn(QSize(96, 96), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    picture.Render(painter, QRectF(drawn.rect()));
    painter.end();
    QSet<QRgb> colours;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            if (qAlpha(drawn.pixel(x, y)) == 255)
                colours.insert(drawn.pixel(x, y));
        }
    }
    return colours;
}

/// A desktop that is dark, or light, for as long as it stands; a light one afterwards.
class OnDesktop
{
public:
    explicit OnDesktop(bool dark) { Show(dark); }
    ~OnDesktop() { Show(false); }
    Q_DISABLE_COPY_MOVE(OnDesktop)

private:
    static void Show(bool dark)
    {
        QApplication::setPalette(QPalette(dark ? QColor(0x2d, 0x2d, 0x2d) : QColor(Qt::lightGray)));
        Appearance::Apply(*qApp);
    }
};

} // namespace

class tst_appearance : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void the_style_sheet_has_no_word_left_and_parses();
    void texts_stand_out_from_their_ground_data();
    void texts_stand_out_from_their_ground();
    void the_look_is_dark_where_the_desktop_is_data();
    void the_look_is_dark_where_the_desktop_is();
    void no_role_of_the_desktops_palette_shows_through();
    void drawings_stand_out_from_their_ground_data();
    void drawings_stand_out_from_their_ground();
    void a_drawing_without_a_file_is_empty();
    void icons_are_drawn_sharp_at_every_size();
    void a_songs_sheet_is_white_paper_under_a_dark_look();
    void plain_and_bold_of_the_sheet_font_are_equally_wide();
    void a_default_button_shows_the_accent();
    void a_label_under_the_pointer_shows_the_accent();
    void fonts_of_a_folder_are_known();
    void the_text_of_a_bar_is_readable_wherever_the_bar_reaches();
};

void tst_appearance::initTestCase()
{
    Appearance::Apply(*qApp);
}

void tst_appearance::the_style_sheet_has_no_word_left_and_parses()
{
    const QString sheet = qApp->styleSheet();
    QVERIFY(sheet.contains(Appearance::Accent.name()));
    static const QRegularExpression wordLeft(u": [^;]*@"_s);
    QVERIFY(!sheet.contains(wordLeft));
    QTest::failOnWarning(QRegularExpression(u"parse"_s));
    QPushButton button(u"&Salvar"_s);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
}

void tst_appearance::texts_stand_out_from_their_ground_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<QPalette::ColorRole>("text");
    QTest::addColumn<QPalette::ColorRole>("ground");
    for (const bool dark : {false, true}) {
        const auto row = [dark](const char* what, QPalette::ColorRole text,
                                QPalette::ColorRole ground) {
            QTest::addRow("%s, %s", what, dark ? "dark" : "light") << dark << text << ground;
        };
        row("form", QPalette::WindowText, QPalette::Window);
        row("box", QPalette::Text, QPalette::Base);
        row("every other row", QPalette::Text, QPalette::AlternateBase);
        row("button", QPalette::ButtonText, QPalette::Button);
        row("selection", QPalette::HighlightedText, QPalette::Highlight);
        row("tool tip", QPalette::ToolTipText, QPalette::ToolTipBase);
        row("hint in a box", QPalette::PlaceholderText, QPalette::Base);
        row("hint on a form", QPalette::PlaceholderText, QPalette::Window);
        row("link in a box", QPalette::Link, QPalette::Base);
        row("count on a form", QPalette::Highlight, QPalette::Window);
        row("visited link", QPalette::LinkVisited, QPalette::Base);
    }
}

void tst_appearance::texts_stand_out_from_their_ground()
{
    QFETCH(bool, dark);
    QFETCH(QPalette::ColorRole, text);
    QFETCH(QPalette::ColorRole, ground);
    const OnDesktop desktop(dark);
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        QVERIFY(Contrast(palette.color(group, text), palette.color(group, ground)) >= 4.5);
}

void tst_appearance::the_look_is_dark_where_the_desktop_is_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void tst_appearance::the_look_is_dark_where_the_desktop_is()
{
    QFETCH(bool, dark);
    const OnDesktop desktop(dark);
    QCOMPARE(Appearance::IsDark(), dark);
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
            QCOMPARE(palette.color(group, ground).lightness() < 100, dark);
            QCOMPARE(palette.color(group, ground).lightness() > 200, !dark);
        }
        QCOMPARE(palette.color(group, QPalette::Text).lightness() >
                     palette.color(group, QPalette::Base).lightness(),
                 dark);
    }
}

void tst_appearance::no_role_of_the_desktops_palette_shows_through()
{
    QPalette loud;
    for (int role = 0; role < QPalette::NColorRoles; ++role)
        loud.setColor(static_cast<QPalette::ColorRole>(role), Qt::magenta);
    QApplication::setPalette(loud);
    Appearance::Apply(*qApp);
    const QPalette palette = QApplication::palette();
    const OnDesktop afterwards(false);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            const auto which = static_cast<QPalette::ColorRole>(role);
            if (which != QPalette::NoRole)
                QVERIFY2(palette.color(group, which) != QColor(Qt::magenta),
                         qPrintable(QVariant::fromValue(which).toString()));
        }
    }
}

void tst_appearance::drawings_stand_out_from_their_ground_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("toolbar") << u":/artwork/toolbar/cadastro.svg"_s;
    QTest::newRow("keyboard") << u":/artwork/teclado.svg"_s;
    QTest::newRow("setlist") << u":/artwork/lista/sobe.svg"_s;
    QTest::newRow("viewer") << u":/artwork/viewer/cmdSobe.svg"_s;
    QTest::newRow("answer") << u":/artwork/mensagem.svg"_s;
}

void tst_appearance::drawings_stand_out_from_their_ground()
{
    QFETCH(QString, path);
    for (const bool dark : {false, true}) {
        const OnDesktop desktop(dark);
        const QSet<QRgb> colours = SolidColours(Appearance::Drawing(path));
        const QPalette palette = QApplication::palette();
        QVERIFY(colours.contains(palette.color(QPalette::Highlight).rgb()));
        const auto stands_out = [&](QRgb colour) {
            return colour != palette.color(QPalette::Highlight).rgb() &&
                   Contrast(QColor(colour), palette.color(QPalette::Window)) >= 4.5;
        };
        QVERIFY(std::ranges::any_of(colours, stands_out));
    }
}

void tst_appearance::a_drawing_without_a_file_is_empty()
{
    QVERIFY(!Appearance::Drawing(u":/artwork/none.svg"_s).IsValid());
}

void tst_appearance::icons_are_drawn_sharp_at_every_size()
{
    const QIcon icon = Appearance::Icon(u":/artwork/toolbar/lista.svg"_s);
    for (const int side : {16, 32, 96}) {
        const QImage drawn = icon.pixmap(QSize(side, side)).toImage();
        QCOMPARE(drawn.size(), QSize(side, side));
        int solid = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x)
                solid += qAlpha(drawn.pixel(x, y)) > 200;
        }
        QVERIFY(solid > side);
    }
    const QImage off = icon.pixmap(QSize(32, 32), QIcon::Disabled).toImage();
    for (int x = 0; x < 32; ++x)
        QVERIFY(qAlpha(off.pixel(x, 7)) < 128);
}

void tst_appearance::a_songs_sheet_is_white_paper_under_a_dark_look()
{
    const OnDesktop desktop(true);
    RichTextBox sheet;
    sheet.SetText(u"Luar"_s);
    sheet.resize(200, 100);
    const QImage drawn = sheet.grab().toImage();
    QCOMPARE(drawn.pixelColor(150, 80), QColor(Qt::white));
    int dark = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x)
            dark += drawn.pixelColor(x, y).lightness() < 60;
    }
    QVERIFY(dark > 20);
}

void tst_appearance::plain_and_bold_of_the_sheet_font_are_equally_wide()
{
    QFont plain(Appearance::MonospacedFamily(), 17);
    QFont bold = plain;
    bold.setBold(true);
    const QString line = u"D  A7  Bm  Santo Deus"_s;
    QCOMPARE(QFontMetrics(plain).horizontalAdvance(line),
             QFontMetrics(bold).horizontalAdvance(line));
    QCOMPARE(QFontMetrics(plain).horizontalAdvance(u"iiii"_s),
             QFontMetrics(plain).horizontalAdvance(u"MMMM"_s));
}

void tst_appearance::a_default_button_shows_the_accent()
{
    QPushButton button(u"&Salvar"_s);
    button.setDefault(true);
    button.resize(120, 40);
    QCOMPARE(button.grab().toImage().pixelColor(10, 20), Appearance::Accent);
}

void tst_appearance::a_label_under_the_pointer_shows_the_accent()
{
    const auto accented = [](const QImage& image) {
        int count = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y)
                count += image.pixelColor(x, y) == Appearance::Accent;
        }
        return count;
    };
    QWidget form;
    form.resize(300, 200);
    ClickableLabel label(u"MELODARIO"_s, &form);
    label.setGeometry(100, 100, 120, 30);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QTest::mouseMove(form.windowHandle(), QPoint(10, 10));
    QTRY_COMPARE(accented(label.grab().toImage()), 0);
    QTest::mouseMove(form.windowHandle(), QPoint(120, 115));
    QTRY_VERIFY(accented(label.grab().toImage()) > 0);
}

void tst_appearance::fonts_of_a_folder_are_known()
{
    const QTemporaryDir folder;
    QCOMPARE(ProgramFonts::Load(folder.filePath(u"none"_s)), QStringList());
    QFile damaged(folder.filePath(u"a.ttf"_s));
    QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("no font") > 0);
    damaged.close();
    QCOMPARE(ProgramFonts::Load(folder.path()), QStringList());

    QDirIterator fonts(u"/usr/share/fonts"_s, {u"Carlito-*.ttf"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    int copied = 0;
    while (fonts.hasNext()) {
        const QString font = fonts.next();
        QVERIFY(QFile::copy(font, folder.filePath(QFileInfo(font).fileName())));
        ++copied;
    }
    QVERIFY(copied > 1);
    QCOMPARE(ProgramFonts::Load(folder.path()), QStringList(u"Carlito"_s));
}

void tst_appearance::the_text_of_a_bar_is_readable_wherever_the_bar_reaches()
{
    constexpr QSize Size(200, 24);
    const auto shown = [Size](int value) {
        QProgressBar bar;
        bar.resize(Size);
        bar.setValue(value);
        return bar.grab().toImage();
    };
    const auto ground = [](const QImage& image) {
        return image.pixelColor(image.width() / 8, image.height() / 2);
    };
    const auto darkest = [](const QImage& image) {
        QColor found = Qt::white;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = image.width() / 3; x < 2 * image.width() / 3; ++x) {
                if (Luminance(image.pixelColor(x, y)) < Luminance(found))
                    found = image.pixelColor(x, y);
            }
        }
        return found;
    };
    const QImage empty = shown(0);
    const QImage full = shown(100);
    QVERIFY(Contrast(ground(empty), darkest(empty)) >= 4.5);
    QVERIFY(Contrast(ground(full), darkest(full)) >= 4.5);
    QVERIFY(Contrast(ground(empty), ground(full)) >= 1.7); // and the bar is seen
}

QTEST_MAIN(tst_appearance)
#include "tst_appearance.moc"
