#include "controls/Appearance.h"

#include "controls/ClickableLabel.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
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

} // namespace

class tst_appearance : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void the_style_sheet_has_no_word_left_and_parses();
    void texts_stand_out_from_their_ground_data();
    void texts_stand_out_from_their_ground();
    void a_dark_desktop_palette_does_not_show_through();
    void plain_and_bold_of_the_sheet_font_are_equally_wide();
    void a_default_button_shows_the_accent();
    void a_label_under_the_pointer_shows_the_accent();
    void the_text_of_a_bar_is_readable_wherever_the_bar_reaches();
};

void tst_appearance::initTestCase()
{
    QPalette dark(Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray, Qt::white, Qt::white,
                  Qt::black, Qt::black);
    QApplication::setPalette(dark);
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
    QTest::addColumn<QPalette::ColorRole>("text");
    QTest::addColumn<QPalette::ColorRole>("ground");
    QTest::newRow("form") << QPalette::WindowText << QPalette::Window;
    QTest::newRow("box") << QPalette::Text << QPalette::Base;
    QTest::newRow("button") << QPalette::ButtonText << QPalette::Button;
    QTest::newRow("selection") << QPalette::HighlightedText << QPalette::Highlight;
    QTest::newRow("tool tip") << QPalette::ToolTipText << QPalette::ToolTipBase;
    QTest::newRow("placeholder") << QPalette::PlaceholderText << QPalette::Base;
    QTest::newRow("link") << QPalette::Link << QPalette::Base;
}

void tst_appearance::texts_stand_out_from_their_ground()
{
    QFETCH(QPalette::ColorRole, text);
    QFETCH(QPalette::ColorRole, ground);
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        QVERIFY(Contrast(palette.color(group, text), palette.color(group, ground)) >= 4.5);
}

void tst_appearance::a_dark_desktop_palette_does_not_show_through()
{
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QVERIFY(palette.color(group, QPalette::Window).lightness() > 200);
        QVERIFY(palette.color(group, QPalette::Base).lightness() > 200);
        QVERIFY(palette.color(group, QPalette::Text).lightness() < 160);
    }
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

void tst_appearance::the_text_of_a_bar_is_readable_wherever_the_bar_reaches()
{
    constexpr QSize Size(200, 24);
    const auto shown = [Size](int value) {
        QProgressBar bar;
        bar.resize(Size);
        bar.setValue(value);
        return bar.grab().toImage();
    };
    const auto ground = [Size](const QImage& image) {
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
