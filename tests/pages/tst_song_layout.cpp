#include "pages/SongLayout.h"
#include "songbook/UsualScale.h"

#include <QTest>

using namespace Pages;

/// Sizes, columns and pages of a song.
class tst_song_layout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Songbook::LoadUsualScale(); }
    void shortSongIsLarge();
    void linesShrinkBeforeTheyAreCut();
    void linesAreCutWhereTheyWouldGetTooSmall();
    void twoColumnsSaveAPage();
    void columnsOfAPageAreEven_data();
    void columnsOfAPageAreEven();
    void songThatFitsOnePageIsNotBroken();
    void longSongTakesAsFewPagesAsPossible();
    void verseStaysTogether();
    void headingNeverStandsAlone();
    void blockHigherThanAPageIsBroken();
    void everyRowIsInItsPlace_data();
    void everyRowIsInItsPlace();
    void emptySongHasItsPage();
};

namespace {

/// 60 columns and 30 rows of lyrics at size 10.
Room UsualRoom()
{
    Room room;
    room.width = 300;
    room.firstHeight = 300 * LyricHeight;
    room.nextHeight = 320 * LyricHeight;
    room.gap = 20;
    room.charWidth = 0.5;
    room.largest = 12;
    room.smallest = 8;
    room.smallestOfMany = 10;
    room.mostColumns = 2;
    return room;
}

QString Verse(int rows, int columns)
{
    QStringList verse;
    for (int i = 0; i < rows; ++i)
        verse += QString(columns, u'y');
    return verse.join(u"\r\n");
}

/// Verses of some rows each, divided by blank rows.
QString Verses(int verses, int rows, int columns)
{
    QStringList all;
    for (int i = 0; i < verses; ++i)
        all += Verse(rows, columns);
    return all.join(u"\r\n\r\n");
}

SongLayout Of(const QString& text, const Room& room = UsualRoom())
{
    return LayOut(BlocksOf(text), room);
}

} // namespace

void tst_song_layout::shortSongIsLarge()
{
    const SongLayout layout = Of(Verses(2, 4, 30));
    QCOMPARE(layout.size, 12.0);
    QCOMPARE(layout.columns, 1);
    QCOMPARE(layout.pages, 1);
    QCOMPARE(layout.placed.size(), 8);
}

void tst_song_layout::linesShrinkBeforeTheyAreCut()
{
    const SongLayout layout = Of(Verse(4, 60));
    QCOMPARE(layout.size, 10.0);
    QCOMPARE(layout.wrapped, 0);
}

void tst_song_layout::linesAreCutWhereTheyWouldGetTooSmall()
{
    const SongLayout layout = Of(u"Como pode o peixe vivo "_qs.repeated(6));
    QVERIFY(layout.wrapped > 0);
    QCOMPARE(layout.size, 12.0);
    QCOMPARE(layout.pages, 1);
}

void tst_song_layout::twoColumnsSaveAPage()
{
    const QString text = Verses(8, 6, 20);
    const SongLayout layout = Of(text);
    QCOMPARE(layout.pages, 1);
    QCOMPARE(layout.columns, 2);
    QVERIFY(layout.size > 8);
    Room narrow = UsualRoom();
    narrow.mostColumns = 1;
    QCOMPARE(Of(text, narrow).pages, 2);
}

void tst_song_layout::columnsOfAPageAreEven_data()
{
    QTest::addColumn<QList<int>>("verses");
    QTest::addColumn<int>("first");
    QTest::newRow("verses of one length") << QList<int>{6, 6, 6, 6, 6, 6, 6, 6} << 4;
    QTest::newRow("an odd number of verses") << QList<int>{6, 6, 6, 6, 6, 6, 6} << 4;
    QTest::newRow("a long verse first") << QList<int>{20, 4, 4, 4, 4, 4} << 1;
    QTest::newRow("a long verse last") << QList<int>{4, 4, 4, 4, 20} << 4;
    QTest::newRow("two that fill a column each") << QList<int>{22, 22} << 1;
}

void tst_song_layout::columnsOfAPageAreEven()
{
    QFETCH(QList<int>, verses);
    QFETCH(int, first);
    QStringList texts;
    for (const int rows : verses)
        texts += Verse(rows, 20);
    const SongLayout layout = Of(texts.join(u"\r\n\r\n"));
    QCOMPARE(layout.pages, 1);
    QCOMPARE(layout.columns, 2);
    qsizetype at = 0;
    for (qsizetype verse = 0; verse < verses.size(); ++verse) {
        for (int row = 0; row < verses[verse]; ++row)
            QCOMPARE(layout.placed[at++].column, verse < first ? 0 : 1);
    }
}

void tst_song_layout::songThatFitsOnePageIsNotBroken()
{
    // 36 rows fit at the smallest size only.
    const SongLayout layout = Of(Verse(37, 60));
    QCOMPARE(layout.pages, 1);
    QCOMPARE(layout.columns, 1);
    QCOMPARE(layout.size, 8.0);
    QVERIFY(Of(Verse(38, 60)).pages > 1);
}

void tst_song_layout::longSongTakesAsFewPagesAsPossible()
{
    const SongLayout layout = Of(Verses(30, 5, 25));
    QVERIFY(layout.size >= 10);
    QCOMPARE(layout.columns, 2);
    Room room = UsualRoom();
    room.mostColumns = 1;
    QVERIFY(Of(Verses(30, 5, 25), room).pages > layout.pages);
}

void tst_song_layout::verseStaysTogether()
{
    const SongLayout layout = Of(Verses(14, 8, 55));
    QVERIFY(layout.pages > 2);
    for (qsizetype i = 0; i < layout.placed.size(); ++i) {
        const Placed& first = layout.placed[i - i % 8];
        QCOMPARE(layout.placed[i].page, first.page);
        QCOMPARE(layout.placed[i].column, first.column);
    }
}

void tst_song_layout::headingNeverStandsAlone()
{
    for (int rows = 1; rows < 60; ++rows) {
        const SongLayout layout = Of(Verse(rows, 55) + u"\r\n    Refrão\r\n" + Verse(70, 55));
        for (qsizetype i = 0; i + 1 < layout.placed.size(); ++i) {
            if (!layout.placed[i].unit.heading.isEmpty()) {
                QCOMPARE(layout.placed[i + 1].page, layout.placed[i].page);
                QCOMPARE(layout.placed[i + 1].column, layout.placed[i].column);
            }
        }
    }
}

void tst_song_layout::blockHigherThanAPageIsBroken()
{
    const SongLayout layout = Of(Verse(100, 55));
    QCOMPARE(layout.placed.size(), 100);
    QVERIFY(layout.pages >= 4);
}

void tst_song_layout::everyRowIsInItsPlace_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one page") << Verses(3, 4, 30);
    QTest::newRow("two columns") << Verses(8, 6, 20);
    QTest::newRow("many pages") << Verses(50, 7, 70);
    QTest::newRow("one endless block") << Verse(300, 30);
    QTest::newRow("chords") << u"C    G7\r\nComo pode\r\n    Refrão\r\nAm\r\n\r\n"_qs.repeated(40);
}

void tst_song_layout::everyRowIsInItsPlace()
{
    QFETCH(QString, text);
    const Room room = UsualRoom();
    const SongLayout layout = Of(text, room);
    int page = 0;
    int column = 0;
    double bottom = 0;
    for (const Placed& placed : layout.placed) {
        const bool same = placed.page == page && placed.column == column;
        const bool further = placed.page > page || (placed.page == page && placed.column > column);
        QVERIFY(same || further);
        if (further)
            bottom = 0;
        page = placed.page;
        column = placed.column;
        QVERIFY(placed.top > bottom - 0.001);
        bottom = placed.top + HeightOf(placed.unit) * layout.size;
        QVERIFY(bottom <= (page == 0 ? room.firstHeight : room.nextHeight) + 0.001);
        const double width = (room.width - room.gap * (layout.columns - 1)) / layout.columns;
        QVERIFY(static_cast<double>(placed.unit.Columns()) * room.charWidth * layout.size <=
                width + 0.001);
    }
    QCOMPARE(page + 1, layout.pages);
    QVERIFY(column < layout.columns);
}

void tst_song_layout::emptySongHasItsPage()
{
    const SongLayout layout = Of(QString());
    QCOMPARE(layout.pages, 1);
    QVERIFY(layout.placed.isEmpty());
    QVERIFY(layout.size > 0);
}

QTEST_APPLESS_MAIN(tst_song_layout)
#include "tst_song_layout.moc"
