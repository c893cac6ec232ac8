#include "pages/SongBlocks.h"
#include "songbook/UsualScale.h"

#include <QTest>

using namespace Pages;

/// What of a sheet stays together on paper.
class tst_song_blocks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Songbook::LoadUsualScale(); }
    void sheetsAreCut_data();
    void sheetsAreCut();
    void chordsStayOverTheirSyllablesWhenALineIsCut_data();
    void chordsStayOverTheirSyllablesWhenALineIsCut();
    void nothingOfALongLineIsLost_data();
    void nothingOfALongLineIsLost();
    void endlessRowsAreSeveral();
    void columnsAreCountedAsTheyAreSeen_data();
    void columnsAreCountedAsTheyAreSeen();
};

namespace {

/// One line for each row: "T" heading, "c" chords, "l" lyric; "+" joins what is never parted.
QStringList Shown(const Unit& unit)
{
    QStringList rows;
    if (!unit.heading.isEmpty())
        rows += u"T|"_qs + unit.heading;
    if (!unit.chords.isEmpty())
        rows += u"c|"_qs + unit.chords;
    if (!unit.lyric.isEmpty())
        rows += (unit.chords.isEmpty() ? u"l|"_qs : u"+|"_qs) + unit.lyric;
    return rows;
}

QStringList Shown(const QList<Block>& blocks)
{
    QStringList rows;
    for (const Block& block : blocks) {
        if (!rows.isEmpty())
            rows += QString();
        for (const Unit& unit : block)
            rows += Shown(unit);
    }
    return rows;
}

} // namespace

void tst_song_blocks::sheetsAreCut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("chords belong to the lyric below")
        << u"C  G\r\nLá lá\r\nLé"_qs << QStringList{u"c|C  G"_qs, u"+|Lá lá"_qs, u"l|Lé"_qs};
    QTest::newRow("chords alone") << u"C\r\nG\r\n\r\nLá"_qs
                                  << QStringList{u"c|C"_qs, u"c|G"_qs, u""_qs, u"l|Lá"_qs};
    QTest::newRow("a blank row parts chords from lyrics")
        << u"C\r\n\r\nLá"_qs << QStringList{u"c|C"_qs, u""_qs, u"l|Lá"_qs};
    QTest::newRow("several blank rows are one gap")
        << u"\r\n\r\nLá\r\n   \r\n\r\nLé\r\n\r\n"_qs << QStringList{u"l|Lá"_qs, u""_qs, u"l|Lé"_qs};
    QTest::newRow("a heading in capitals begins a block")
        << u"Lá\r\n    Refrão\r\nC\r\nLé"_qs
        << QStringList{u"l|Lá"_qs, u""_qs, u"T|REFRÃO"_qs, u"c|C"_qs, u"+|Lé"_qs};
    QTest::newRow("a heading waits for what follows")
        << u"    Refrão\r\n\r\nLé"_qs << QStringList{u"T|REFRÃO"_qs, u"l|Lé"_qs};
    QTest::newRow("a heading at the end")
        << u"Lá\r\n    Fim da música"_qs << QStringList{u"l|Lá"_qs, u""_qs, u"T|FIM DA MÚSICA"_qs};
    QTest::newRow("a pound sign ends a line") << u"C£Lá"_qs << QStringList{u"c|C"_qs, u"+|Lá"_qs};
    QTest::newRow("percent signs stay on paper")
        << u"C %\r\n50% lá"_qs << QStringList{u"c|C %"_qs, u"+|50% lá"_qs};
    QTest::newRow("tabs") << u"a\tLá"_qs << QStringList{u"l|a       Lá"_qs};
    QTest::newRow("nothing") << u""_qs << QStringList();
    QTest::newRow("blank rows only") << u"\r\n \r\n"_qs << QStringList();
}

void tst_song_blocks::sheetsAreCut()
{
    QFETCH(QString, text);
    QFETCH(QStringList, rows);
    QCOMPARE(Shown(BlocksOf(text)), rows);
}

void tst_song_blocks::chordsStayOverTheirSyllablesWhenALineIsCut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("between words") << u"C         G     D\r\nComo pode o peixe vivo"_qs << 14
                                   << QStringList{u"c|C         G"_qs, u"+|Como pode o"_qs,
                                                  u"c|      D"_qs, u"+|  peixe vivo"_qs};
    QTest::newRow("it fits") << u"C    G\r\nComo pode"_qs << 9
                             << QStringList{u"c|C    G"_qs, u"+|Como pode"_qs};
    QTest::newRow("chords behind the words")
        << u"C    G   Am7 D7\r\nVida"_qs << 12
        << QStringList{u"c|C    G"_qs, u"+|Vida"_qs, u"c|  Am7 D7"_qs};
    QTest::newRow("chords alone") << u"C  G  Am7  D7"_qs << 10
                                  << QStringList{u"c|C  G  Am7"_qs, u"c|  D7"_qs};
    QTest::newRow("lyric alone") << u"Como pode o peixe"_qs << 10
                                 << QStringList{u"l|Como pode"_qs, u"l|  o peixe"_qs};
    QTest::newRow("a heading") << u"    Refrão que se repete"_qs << 10
                               << QStringList{u"T|REFRÃO QUE"_qs, u"T|SE REPETE"_qs};
    QTest::newRow("rather through a word than through a chord")
        << u"C           Am7(9)\r\nextraordinariamente"_qs << 14
        << QStringList{u"c|C"_qs, u"+|extraordin"_qs, u"c|    Am7(9)"_qs, u"+|  ariamente"_qs};
    QTest::newRow("no word is left alone where the parts can be even")
        << u"Se a lua nasce por detrás da verde mata"_qs << 35
        << QStringList{u"l|Se a lua nasce por detrás"_qs, u"l|  da verde mata"_qs};
    QTest::newRow("a chord over blanks")
        << u"C             G\r\nLá lá lá lá       lé"_qs << 13
        << QStringList{u"c|C"_qs, u"+|Lá lá lá lá"_qs, u"c|  G"_qs, u"+|      lé"_qs};
}

void tst_song_blocks::chordsStayOverTheirSyllablesWhenALineIsCut()
{
    QFETCH(QString, text);
    QFETCH(int, columns);
    QFETCH(QStringList, rows);
    QStringList shown;
    for (const Unit& part : Wrapped(BlocksOf(text).first().first(), columns)) {
        QVERIFY(part.Columns() <= columns);
        shown += Shown(part);
    }
    QCOMPARE(shown, rows);
}

void tst_song_blocks::nothingOfALongLineIsLost_data()
{
    QTest::addColumn<QString>("chords");
    QTest::addColumn<QString>("lyric");
    QTest::newRow("no blank anywhere") << QString(90, u'C') << QString(90, u'x');
    QTest::newRow("chords only") << u"C G7 Am "_qs.repeated(30) << u""_qs;
    QTest::newRow("lyrics only") << u""_qs << u"Como pode "_qs.repeated(30);
    QTest::newRow("chords over blanks") << QString(80, u' ') + u"C" << u"Lá"_qs;
    QTest::newRow("signs of two units") << u"C   G"_qs << u"\U0001F3B8"_qs.repeated(60);
    QTest::newRow("marks") << u"C   G"_qs << u"e\u0301"_qs.repeated(60);
}

void tst_song_blocks::nothingOfALongLineIsLost()
{
    QFETCH(QString, chords);
    QFETCH(QString, lyric);
    for (int columns = 8; columns < 40; ++columns) {
        QString foundChords;
        QString foundLyric;
        for (const Unit& part : Wrapped({{}, chords, lyric}, columns)) {
            QVERIFY(part.Columns() <= columns);
            foundChords += part.chords;
            foundLyric += part.lyric;
        }
        QCOMPARE(foundChords.remove(u' '), QString(chords).remove(u' '));
        QCOMPARE(foundLyric.remove(u' '), QString(lyric).remove(u' '));
    }
}

void tst_song_blocks::endlessRowsAreSeveral()
{
    const QList<Block> blocks = BlocksOf(QString(150'000, u'x'));
    QCOMPARE(blocks.size(), 1);
    qsizetype letters = 0;
    for (const Unit& unit : blocks.first()) {
        QVERIFY(unit.lyric.size() <= 4000);
        letters += unit.lyric.size();
    }
    QCOMPARE(letters, 150'000);
}

void tst_song_blocks::columnsAreCountedAsTheyAreSeen_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("column");
    QTest::newRow("letters") << u"ação"_qs << 3 << 3;
    QTest::newRow("marks take none") << u"ac\u0327a\u0303o"_qs << 5 << 3;
    QTest::newRow("two units are one sign") << u"\U0001F3B8 a"_qs << 3 << 2;
    QTest::newRow("behind the end") << u"a\u0301b"_qs << 10 << 9;
    QTest::newRow("empty") << u""_qs << 4 << 4;
}

void tst_song_blocks::columnsAreCountedAsTheyAreSeen()
{
    QFETCH(QString, row);
    QFETCH(int, index);
    QFETCH(int, column);
    QCOMPARE(SeenColumn(row, index), qsizetype{column});
}

QTEST_APPLESS_MAIN(tst_song_blocks)
#include "tst_song_blocks.moc"
