#include "songbook/Exchangeable.h"
#include "songbook/UsualScale.h"

#include "store/CodePage.h"

#include <QTest>

using namespace Songbook;

/// What an exchange file cannot hold is changed, and told.
class tst_exchangeable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void everyFieldCanBeHeld();
    void signsAreReplacedByTheNearest_data();
    void signsAreReplacedByTheNearest();
    void chordsKeepTheirColumns();
    void aTitleOfTwoLinesComesBackAsSuch();
    void theFormatIsToldOf_data();
    void theFormatIsToldOf();
    void nothingIsToldOfAnOrdinarySong();
};

void tst_exchangeable::everyFieldCanBeHeld()
{
    const QString hostile = u"A & <b> \u266B\u0001 \u0151"_qs;
    ExchangeSong song{hostile, hostile, hostile, hostile, hostile, hostile, 1, {hostile}};
    Remarks remarks;
    const ExchangeSong held = MadeExchangeable(song, remarks);
    const QString expected = u"A e \u2039b\u203A ?  o"_qs;
    QCOMPARE(*held.titulo, expected);
    QCOMPARE(*held.referencia, expected);
    QCOMPARE(*held.letra1, expected);
    QCOMPARE(*held.letra2, expected);
    QCOMPARE(*held.tom, expected);
    QCOMPARE(*held.variacao, expected);
    QCOMPARE(held.temas, QStringList{expected});
    QVERIFY(CodePage::Holds(expected));
    QCOMPARE(remarks.All().size(), 6);
}

void tst_exchangeable::signsAreReplacedByTheNearest_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("held");
    QTest::newRow("Portuguese letters stay") << u"ção é à ü"_qs << u"ção é à ü"_qs;
    QTest::newRow("typographic signs stay")
        << u"\u2019 \u201C \u2026 \u20AC"_qs << u"\u2019 \u201C \u2026 \u20AC"_qs;
    QTest::newRow("decomposed letters are composed") << u"a\u0303"_qs << u"\u00E3"_qs;
    QTest::newRow("foreign letters lose their marks") << u"\u0158\u016F"_qs << u"Ru"_qs;
    QTest::newRow("a sign beyond the first plane is one") << u"\U0001F3B8"_qs << u"?"_qs;
    QTest::newRow("the mark of a line break") << u"a[br]b"_qs << u"a(br)b"_qs;
    QTest::newRow("line breaks stay") << u"a\r\nb"_qs << u"a\r\nb"_qs;
}

void tst_exchangeable::signsAreReplacedByTheNearest()
{
    QFETCH(QString, text);
    ExchangeSong song;
    song.letra1 = text;
    Remarks remarks;
    QTEST(*MadeExchangeable(song, remarks).letra1, "held");
}

void tst_exchangeable::chordsKeepTheirColumns()
{
    ExchangeSong song;
    song.letra1 = u"<C>  G\r\nLá <lá>"_qs;
    Remarks remarks;
    QCOMPARE(*MadeExchangeable(song, remarks).letra1, u"-C-  G\r\nLá \u2039lá\u203A"_qs);
}

void tst_exchangeable::aTitleOfTwoLinesComesBackAsSuch()
{
    ExchangeSong song;
    song.titulo = u"Luz\r\nMar"_qs;
    song.temas = {u"Paz\r\nBem"_qs};
    Remarks remarks;
    const ExchangeSong held = MadeExchangeable(song, remarks);
    // Only lyrics get the mark when they are written, but wherever it stands it is read.
    QCOMPARE(*held.titulo, u"Luz[br]Mar"_qs);
    QCOMPARE(held.temas, QStringList{u"Paz[br]Bem"_qs});
    QVERIFY(remarks.All().isEmpty());
}

void tst_exchangeable::theFormatIsToldOf_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("told");
    QTest::newRow("a sign of markup") << u"Tom & Jerry"_qs << u"\"&\": ficou \"e\""_qs;
    QTest::newRow("a foreign letter") << u"\u0151"_qs << u"\"\u0151\": ficou \"o\""_qs;
    QTest::newRow("a sign that is not seen") << u"a\u0001"_qs << u"\"U+0001\": ficou \" \""_qs;
    QTest::newRow("the mark of a line break") << u"a[br]b"_qs << u"\"[br]\": ficou \"(br)\""_qs;
    QTest::newRow("signs among chords")
        << u"<C>  G"_qs << u"\"<\" e \">\": ficou \"-\" nos acordes"_qs;
}

void tst_exchangeable::theFormatIsToldOf()
{
    QFETCH(QString, text);
    QFETCH(QString, told);
    ExchangeSong song;
    song.letra1 = text;
    Remarks remarks;
    MadeExchangeable(song, remarks);
    QCOMPARE(remarks.All().size(), 1);
    QCOMPARE(remarks.All().first().what, u"o formato .mld não guarda "_qs + told);
}

void tst_exchangeable::nothingIsToldOfAnOrdinarySong()
{
    ExchangeSong song;
    song.titulo = u"Água"_qs;
    song.letra1 = u"C\r\nÁgua"_qs;
    Remarks remarks;
    QCOMPARE(*MadeExchangeable(song, remarks).letra1, *song.letra1);
    QVERIFY(remarks.All().isEmpty());
    QVERIFY(!MadeExchangeable(song, remarks).letra2.has_value());
}

QTEST_APPLESS_MAIN(tst_exchangeable)
#include "tst_exchangeable.moc"
