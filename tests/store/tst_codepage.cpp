#include "store/CodePage.h"

#include <QTest>

class tst_CodePage : public QObject
{
    Q_OBJECT

private slots:
    void everyByteSurvivesTheWayToTextAndBack();
    void bytesBelowAndAboveTheOwnRowAreTheirCodePoints();
    void characters_data();
    void characters();
    void whatHasNoPlaceBecomesAQuestionMark_data();
    void whatHasNoPlaceBecomesAQuestionMark();
    void charactersAreConvertedWhereverTheyStand();
    void textIsAppended();
};

void tst_CodePage::everyByteSurvivesTheWayToTextAndBack()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    const QString text = CodePage::ToUnicode(all);
    QCOMPARE(text.size(), 256);
    QVERIFY(CodePage::Holds(text));
    QCOMPARE(CodePage::FromUnicode(text), all);
    for (int one = 0; one < 256; ++one)
        QCOMPARE(text.count(text.at(one)), 1);
}

void tst_CodePage::bytesBelowAndAboveTheOwnRowAreTheirCodePoints()
{
    for (char16_t code = 0; code < 256; ++code) {
        if (code < 0x80 || code > 0x9F)
            QCOMPARE(CodePage::ToUnicode(QByteArray(1, static_cast<char>(code))),
                     QString(QChar(code)));
    }
}

void tst_CodePage::characters_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<QString>("character");
    QTest::newRow("euro") << 0x80 << u"€"_qs;
    QTest::newRow("hole 81") << 0x81 << QString(QChar(0x81));
    QTest::newRow("low quote") << 0x82 << u"‚"_qs;
    QTest::newRow("ellipsis") << 0x85 << u"…"_qs;
    QTest::newRow("Scaron") << 0x8A << u"Š"_qs;
    QTest::newRow("OE") << 0x8C << u"Œ"_qs;
    QTest::newRow("hole 8D") << 0x8D << QString(QChar(0x8D));
    QTest::newRow("Zcaron") << 0x8E << u"Ž"_qs;
    QTest::newRow("hole 8F") << 0x8F << QString(QChar(0x8F));
    QTest::newRow("hole 90") << 0x90 << QString(QChar(0x90));
    QTest::newRow("left quote") << 0x91 << u"‘"_qs;
    QTest::newRow("right quotes") << 0x94 << u"”"_qs;
    QTest::newRow("en dash") << 0x96 << u"–"_qs;
    QTest::newRow("trade mark") << 0x99 << u"™"_qs;
    QTest::newRow("hole 9D") << 0x9D << QString(QChar(0x9D));
    QTest::newRow("Y with dots") << 0x9F << u"Ÿ"_qs;
    QTest::newRow("no-break space") << 0xA0 << QString(QChar(0xA0));
    QTest::newRow("c cedilla") << 0xE7 << u"ç"_qs;
    QTest::newRow("pound") << 0xA3 << u"£"_qs;
}

void tst_CodePage::characters()
{
    QFETCH(int, byte);
    QFETCH(QString, character);
    const QByteArray bytes(1, static_cast<char>(byte));
    QCOMPARE(CodePage::ToUnicode(bytes), character);
    QCOMPARE(CodePage::FromUnicode(character), bytes);
}

void tst_CodePage::whatHasNoPlaceBecomesAQuestionMark_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("japanese") << u"a日b"_qs << QByteArray("a?b");
    QTest::newRow("an astral character is one") << u"a🎸b"_qs << QByteArray("a?b");
    QTest::newRow("half of a pair") << QString(QChar(0xD83C)) << QByteArray("?");
    QTest::newRow("two halves in the wrong order")
        << QString(QChar(0xDFB8)) + QChar(0xD83C) << QByteArray("??");
    QTest::newRow("combining acute") << QString(u'e') + QChar(0x301) << QByteArray("e?");
    QTest::newRow("flat sign") << u"B♭"_qs << QByteArray("B?");
    QTest::newRow("code point of the euro's byte") << QString(QChar(0x80)) << QByteArray("?");
}

void tst_CodePage::whatHasNoPlaceBecomesAQuestionMark()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QVERIFY(!CodePage::Holds(text));
    QCOMPARE(CodePage::FromUnicode(text), bytes);
}

void tst_CodePage::charactersAreConvertedWhereverTheyStand()
{
    constexpr int Longest = 20;
    const QList<QPair<QString, QByteArray>> signs{
        {u"é"_qs, "\xE9"}, {u"€"_qs, "\x80"}, {u"♪"_qs, "?"}, {u"\u4141"_qs, "?"}, {u"🎸"_qs, "?"}};
    for (int length = 0; length <= Longest; ++length) {
        for (int at = 0; at <= length; ++at) {
            for (const auto& [sign, byte] : signs) {
                const QString text = QString(at, u'a') + sign + QString(length - at, u'~');
                const QByteArray bytes = QByteArray(at, 'a') + byte + QByteArray(length - at, '~');
                QCOMPARE(CodePage::FromUnicode(text), bytes);
            }
        }
    }
}

void tst_CodePage::textIsAppended()
{
    QByteArray bytes("\x81 before ");
    CodePage::AppendFromUnicode(bytes, u"a música 🎸 longa");
    CodePage::AppendFromUnicode(bytes, u"");
    CodePage::AppendFromUnicode(bytes, u"!");
    QCOMPARE(bytes, QByteArray("\x81 before a m\xFAsica ? longa!"));
}

QTEST_APPLESS_MAIN(tst_CodePage)
#include "tst_codepage.moc"
