#include "controls/RtfReader.h"
#include "controls/RtfWriter.h"

#include <QRandomGenerator>
#include <QTest>

using Rtf::Document;
using Rtf::Format;
using Rtf::Read;
using Rtf::Run;

namespace {

const QString SheetHead =
    u"{\\rtf1\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Consolas;}}\r\n"
    u"{\\colortbl ;\\red0 \\green102 \\blue204;\\red255 \\green255 \\blue255;}\r\n"
    u"\\viewkind4\\uc1\\pard\\lang1046\\f0\\fs34\r\n"_qs;

constexpr std::uint32_t Blue = 0x0066CC;

Format Plain(int halfPoints = 34)
{
    return {false, std::nullopt, halfPoints};
}

Format Chord()
{
    return {true, Blue, 34};
}

/// A document of random pieces, many of them broken.
QString AnyRtf(QRandomGenerator& random)
{
    static const QStringList pieces = {u"{"_qs,
                                       u"}"_qs,
                                       u"\\"_qs,
                                       u"\\par "_qs,
                                       u"\\b"_qs,
                                       u"\\b0 "_qs,
                                       u"\\cf1"_qs,
                                       u"\\cf99999"_qs,
                                       u"\\fs-4 "_qs,
                                       u"\\fs70000"_qs,
                                       u"\\u-8000 "_qs,
                                       u"\\u9835?"_qs,
                                       u"\\uc0"_qs,
                                       u"\\uc99999 "_qs,
                                       u"\\'e3"_qs,
                                       u"\\'"_qs,
                                       u"\\'z"_qs,
                                       u"{\\*\\x "_qs,
                                       u"{\\fonttbl"_qs,
                                       u"\\f2 Arial;"_qs,
                                       u"{\\colortbl;\\red1;"_qs,
                                       u"\\bin9 "_qs,
                                       u"\\bin-1 "_qs,
                                       u"\\deff7"_qs,
                                       u"{\\info "_qs,
                                       u"\r\n"_qs,
                                       u"Santo"_qs,
                                       u"ã\u266B"_qs,
                                       u";"_qs,
                                       u"\\plain "_qs,
                                       u"\\zzz123456789012345678 "_qs};
    QString rtf = random.bounded(2) == 0 ? SheetHead : QString();
    for (quint32 count = random.bounded(60u); count > 0; --count) {
        if (random.bounded(10) == 0)
            rtf += QChar(char16_t(random.bounded(0x10000)));
        else
            rtf += pieces.at(random.bounded(int(pieces.size())));
    }
    return rtf;
}

} // namespace

class tst_rtf_reader : public QObject
{
    Q_OBJECT

private slots:
    void textOfTheBody_data();
    void textOfTheBody();
    void chordSheetKeepsItsFormats();
    void formats_data();
    void formats();
    void fontOfTheText_data();
    void fontOfTheText();
    void sizeOfAnEmptySheet();
    void deepNesting();
    void hugeTables();
    void millionsOfPiecesAreRead();
    void anythingIsRead();
    void whatIsWrittenIsReadBack();
    void writtenTextIsEscaped();
};

void tst_rtf_reader::textOfTheBody_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& body, const QString& text) {
        QTest::newRow(name) << body << text;
    };
    row("plain text", u"Santo Deus"_qs, u"Santo Deus"_qs);
    row("CR and LF do not break lines", u"San\r\nto\nDe\rus"_qs, u"SantoDeus"_qs);
    row("par breaks a line", u"Santo\\par Deus"_qs, u"Santo\nDeus"_qs);
    row("one blank belongs to the word", u"\\par   Deus"_qs, u"\n  Deus"_qs);
    row("a number ends at its blank", u"\\b0  Deus"_qs, u" Deus"_qs);
    row("a line end after a word vanishes, the blank after it counts", u"\\b0\r\n Deus"_qs,
        u" Deus"_qs);
    row("a backslash ends a word", u"\\b\\par\\b0 a"_qs, u"\na"_qs);
    row("a sign that is no number ends a word", u"\\b-a"_qs, u"-a"_qs);
    row("last break is dropped", u"a\\par"_qs, u"a"_qs);
    row("only one last break is dropped", u"a\\par\\par\\par "_qs, u"a\n\n"_qs);
    row("formatting after the last break is nothing visible", u"a\\par \\cf1\\b \\cf0\\b0\r\n"_qs,
        u"a"_qs);
    row("a group after the last break is nothing visible", u"a\\par {\\b }"_qs, u"a"_qs);
    row("a blank after the last break is visible", u"a\\par  "_qs, u"a\n "_qs);
    row("nothing but a break", u"\\par"_qs, u""_qs);
    row("nothing", u""_qs, u""_qs);
    row("escaped braces and backslash", u"\\{Coro\\} a\\\\b"_qs, u"{Coro} a\\b"_qs);
    row("groups do not show", u"a{\\b b{c}}d"_qs, u"abcd"_qs);
    row("unknown words are ignored", u"\\foo\\bar7 \\baz-3 a"_qs, u"a"_qs);
    row("words are told by capitals", u"a\\PAR b"_qs, u"ab"_qs);
    row("unknown symbols are ignored", u"a\\|b\\:c\\-d"_qs, u"abcd"_qs);
    row("a backslash before a line end is no break", u"a\\\r\nb"_qs, u"ab"_qs);
    row("marked groups are ignored", u"a{\\*\\generator X {y} \\par;}b"_qs, u"ab"_qs);
    row("groups beside the body are ignored",
        u"a{\\info{\\title T}}{\\pict 00ff}{\\stylesheet s;}b"_qs, u"ab"_qs);
    row("text of an unknown group shows", u"a{\\foo b}c"_qs, u"abc"_qs);
    row("tables in the middle do not show", u"a{\\fonttbl{\\f1 Arial;}}{\\colortbl;\\red9;}b"_qs,
        u"ab"_qs);
    row("code page bytes", u"cora\\'e7\\'E3o \\'93a\\'94 \\'80"_qs, u"coração “a” €"_qs);
    row("half a byte is ignored", u"a\\'zzb\\'4"_qs, u"azzb4"_qs);
    row("a byte that is a line end breaks nothing", u"a\\'0d\\'0ab"_qs, u"ab"_qs);
    row("unicode escape and its fallback", u"\\u9835?a"_qs, u"\u266Ba"_qs);
    row("negative unicode escape", u"\\u-10179 ?\\u-9055 ?"_qs, u"\U0001F4A1"_qs);
    row("a byte as fallback", u"\\u227\\'e3o"_qs, u"ão"_qs);
    row("no fallback", u"\\uc0\\u227 o"_qs, u"ão"_qs);
    row("two fallbacks", u"\\uc2\\u227 ??o"_qs, u"ão"_qs);
    row("fallbacks end with their group", u"{\\uc5\\u227 x}o"_qs, u"ão"_qs);
    row("no-break space", u"a\u00A0b\\~c"_qs, u"a\u00A0b\u00A0c"_qs);
    row("tabs", u"a\tb\\tab c"_qs, u"a\tb\tc"_qs);
    row("beyond the code page", u"\u266B\U0001F3B5"_qs, u"\u266B\U0001F3B5"_qs);
    row("raw data is passed over", u"a{\\pict\\bin4 }}{{}b"_qs, u"ab"_qs);
}

void tst_rtf_reader::textOfTheBody()
{
    QFETCH(QString, body);
    QFETCH(QString, text);
    QCOMPARE(Read(QString(SheetHead + body + u"}"_qs)).text, text);
    // The last brace may be missing; nothing after it shows.
    QCOMPARE(Read(QString(SheetHead + body)).text, text);
    QCOMPARE(Read(QString(SheetHead + body + u"} more\\par "_qs)).text, text);
}

void tst_rtf_reader::chordSheetKeepsItsFormats()
{
    const Document sheet = Read(QString(SheetHead + u"\\cf1\\b D  A7\\cf0\\b0\r\n"
                                                    u"\\par Santo Deus\r\n"
                                                    u"\\par \\b     REFRÃO\\b0\r\n"
                                                    u"\\par \\cf1\\b \\cf0\\b0\r\n}"_qs));
    Format heading = Plain();
    heading.bold = true;
    QCOMPARE(sheet.text, u"D  A7\nSanto Deus\n    REFRÃO"_qs);
    const std::vector<Run> runs = {{5, Chord()}, {12, Plain()}, {10, heading}};
    QVERIFY(sheet.runs == runs);
    QCOMPARE(sheet.halfPoints, 34);
    QCOMPARE(sheet.fontName, u"Consolas"_qs);
}

void tst_rtf_reader::formats_data()
{
    QTest::addColumn<QString>("body"); // shows one character
    QTest::addColumn<bool>("bold");
    QTest::addColumn<int>("colour"); // -1: the display's own
    QTest::addColumn<int>("halfPoints");
    QTest::newRow("none") << u"a"_qs << false << -1 << 34;
    QTest::newRow("bold") << u"\\b a"_qs << true << -1 << 34;
    QTest::newRow("bold with a number") << u"\\b1 a"_qs << true << -1 << 34;
    QTest::newRow("bold and off") << u"\\b\\b0 a"_qs << false << -1 << 34;
    QTest::newRow("bold ends with its group") << u"{\\b }a"_qs << false << -1 << 34;
    QTest::newRow("bold reaches into groups") << u"\\b{a}"_qs << true << -1 << 34;
    QTest::newRow("chord colour") << u"\\cf1 a"_qs << false << int(Blue) << 34;
    QTest::newRow("white") << u"\\cf2 a"_qs << false << 0xFFFFFF << 34;
    QTest::newRow("colour 0") << u"\\cf1\\cf0 a"_qs << false << -1 << 34;
    QTest::newRow("colour without a number") << u"\\cf1\\cf a"_qs << false << -1 << 34;
    QTest::newRow("colour outside the table") << u"\\cf1\\cf3 a"_qs << false << -1 << 34;
    QTest::newRow("negative colour") << u"\\cf1\\cf-1 a"_qs << false << -1 << 34;
    QTest::newRow("size") << u"\\fs28 a"_qs << false << -1 << 28;
    QTest::newRow("odd size") << u"\\fs35 a"_qs << false << -1 << 35;
    QTest::newRow("size ends with its group") << u"{\\fs28 }a"_qs << false << -1 << 34;
    QTest::newRow("no size at all is passed over") << u"\\fs0 a"_qs << false << -1 << 34;
    QTest::newRow("negative size") << u"\\fs-6 a"_qs << false << -1 << 34;
    QTest::newRow("huge size") << u"\\fs32767 a"_qs << false << -1 << Rtf::LargestSize;
    QTest::newRow("a number of many digits")
        << u"\\fs99999999999999999999 a"_qs << false << -1 << Rtf::LargestSize;
    QTest::newRow("plain") << u"\\b\\cf1\\plain a"_qs << false << -1 << Rtf::DefaultSize;
}

void tst_rtf_reader::formats()
{
    QFETCH(QString, body);
    QFETCH(bool, bold);
    QFETCH(int, colour);
    QFETCH(int, halfPoints);
    const Document sheet = Read(QString(SheetHead + body + u"}"_qs));
    QCOMPARE(sheet.text, u"a"_qs);
    QCOMPARE(sheet.runs.size(), std::size_t{1});
    const Format format = sheet.runs.front().format;
    QCOMPARE(format.bold, bold);
    QCOMPARE(format.colour ? int(*format.colour) : -1, colour);
    QCOMPARE(format.halfPoints, halfPoints);
    QCOMPARE(sheet.halfPoints, halfPoints);
}

void tst_rtf_reader::fontOfTheText_data()
{
    QTest::addColumn<QString>("rtf");
    QTest::addColumn<QString>("font");
    const QString table = u"{\\fonttbl{\\f0\\fnil Consolas;}{\\f3\\fswiss{\\*\\falt X}Arial;}}"_qs;
    const auto row = [](const char* name, const QString& rtf, const QString& font) {
        QTest::newRow(name) << rtf << font;
    };
    row("default font", u"{\\rtf1\\deff0"_qs + table + u"a}"_qs, u"Consolas"_qs);
    row("another default font", u"{\\rtf1\\deff3"_qs + table + u"a}"_qs, u"Arial"_qs);
    row("chosen font", u"{\\rtf1\\deff0"_qs + table + u"\\f3 a\\f0 b}"_qs, u"Arial"_qs);
    row("unknown font", u"{\\rtf1\\deff0"_qs + table + u"\\f9 a}"_qs, u""_qs);
    row("no table", u"{\\rtf1 a}"_qs, u""_qs);
    row("entries without groups", u"{\\rtf1{\\fonttbl\\f0 One;\\f1 Two;}\\f1 a}"_qs, u"Two"_qs);
}

void tst_rtf_reader::fontOfTheText()
{
    QFETCH(QString, rtf);
    QFETCH(QString, font);
    QCOMPARE(Read(rtf).fontName, font);
}

void tst_rtf_reader::sizeOfAnEmptySheet()
{
    const Document sheet = Read(u"{\\rtf1{\\fonttbl{\\f0 Consolas;}}\\f0\\fs50 }");
    QCOMPARE(sheet.text, QString());
    QCOMPARE(sheet.halfPoints, 50);
    QCOMPARE(sheet.fontName, u"Consolas"_qs);
    QVERIFY(sheet.runs.empty());
}

void tst_rtf_reader::deepNesting()
{
    const int depth = 1'000'000;
    const QString open = QString(depth, u'{');
    QCOMPARE(Read(QString(u"a{\\b "_qs + open + u"b"_qs + QString(depth, u'}') + u"c}d"_qs)).text,
             u"ac"_qs);
    QCOMPARE(Read(QString(u"{\\rtf1 a"_qs + open)).text, u"a"_qs);
    QCOMPARE(Read(QString(depth, u'}')).text, QString());
}

void tst_rtf_reader::hugeTables()
{
    QString rtf = u"{\\rtf1{\\colortbl;"_qs;
    for (int i = 0; i < 200'000; ++i)
        rtf += u"\\red1;"_qs;
    rtf += u"}{\\fonttbl"_qs;
    for (int i = 0; i < 200'000; ++i)
        rtf += u"{\\f1 A;}"_qs;
    rtf += u"}\\cf1\\f1 a}"_qs;
    const Document sheet = Read(rtf);
    QCOMPARE(sheet.text, u"a"_qs);
    QVERIFY(sheet.runs.front().format.colour == 0x010000U);
    QCOMPARE(sheet.fontName, u"A"_qs);
}

void tst_rtf_reader::millionsOfPiecesAreRead()
{
    // Each repeated a million times: a quadratic reader would still be at it when CTest gives up.
    for (const QString& piece : {u"\\b a\\b0 "_qs, u"\\par "_qs, u"{\\cf1 a}"_qs, u"\\u9835?"_qs,
                                 u"\\'"_qs, u"\\"_qs, u"1"_qs, u"\\fs"_qs, u"{\\*"_qs}) {
        const Document sheet = Read(QString(SheetHead + piece.repeated(1'000'000)));
        QCOMPARE(sheet.fontName, u"Consolas"_qs);
    }
}

void tst_rtf_reader::anythingIsRead()
{
    QRandomGenerator random(1906);
    for (int round = 0; round < 20'000; ++round) {
        const Document sheet = Read(AnyRtf(random));
        qsizetype length = 0;
        for (const Run& run : sheet.runs) {
            QVERIFY(run.length > 0);
            QVERIFY(run.format.halfPoints >= 1 && run.format.halfPoints <= Rtf::LargestSize);
            length += run.length;
        }
        QCOMPARE(length, sheet.text.size());
        QVERIFY(!sheet.text.contains(u'\r'));
    }
}

void tst_rtf_reader::whatIsWrittenIsReadBack()
{
    QRandomGenerator random(2206);
    for (int round = 0; round < 5'000; ++round) {
        Document sheet = Read(AnyRtf(random));
        sheet.fontName.remove(u'\\').remove(u'{').remove(u'}');
        const Document back = Read(Rtf::Write(sheet));
        QCOMPARE(back.text, sheet.text);
        QVERIFY(back == sheet);
    }
}

void tst_rtf_reader::writtenTextIsEscaped()
{
    Document sheet;
    sheet.fontName = u"Odd;{Name}\\"_qs;
    sheet.Append(u"{C}\\\n\n", Chord());
    const QString rtf = Rtf::Write(sheet);
    QVERIFY2(rtf.endsWith(u"\\fs34\r\n\\b\\cf1 \\{C\\}\\\\\\par\r\n\\par\r\n\\par\r\n}"),
             qPrintable(rtf));
    QVERIFY(rtf.contains(u"{\\f0\\fnil\\fcharset0 OddName;}"));
    QVERIFY(rtf.contains(u"{\\colortbl ;\\red0\\green102\\blue204;}"));
    QCOMPARE(Read(rtf).text, sheet.text);
}

QTEST_APPLESS_MAIN(tst_rtf_reader)
#include "tst_rtf_reader.moc"
