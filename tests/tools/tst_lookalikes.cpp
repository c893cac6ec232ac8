#include "songbook/UsualScale.h"
#include "support/GeneratedSongs.h"
#include "tools/LookAlikes.h"
#include "tools/LyricLetters.h"

#include <QTest>

#include <array>

// Which songs count as the same, and what of a song counts.

namespace {

const QString Asa = u"    PRIMEIRA PARTE\r\n"
                    "G            C\r\n"
                    "Quando olhei a terra ardendo\r\n"
                    "G           D\r\n"
                    "Na fogueira acesa no quintal\r\n"
                    "\r\n"
                    "G            C\r\n"
                    "Ouvi o galo velho cantando\r\n"
                    "G        D     G\r\n"
                    "E pedi que não fizesse mal\r\n"_qs;

QByteArray Letters(const QString& title, const QString& text)
{
    return LyricLetters::Of(title, text);
}

/// @return groups as "1 2 (100); 3 5 (93)"
QString Told(const LookAlikes& alikes)
{
    QStringList groups;
    for (const LookAlikes::Group& group : alikes.Groups()) {
        QStringList songs;
        for (const qint64 song : group.songs)
            songs += QString::number(song);
        groups += songs.join(u' ') + u" (" + QString::number(group.likeness) + u')';
    }
    return groups.join(u"; "_qs);
}

} // namespace

class tst_lookalikes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Songbook::LoadUsualScale(); }
    void lettersThatCount_data();
    void lettersThatCount();
    void songsThatAreTheSame_data();
    void songsThatAreTheSame();
    void oneVerseMoreIsAlike();
    void anotherSongIsNot();
    void copiesStayTogetherWithTheirLikes();
    void shortSongsAreComparedWhole();
    void songWithoutLettersIsLikeNoOther();
    void thousandsOfCopiesAreOneGroup();
    void likesAreFoundAmongManySongs();
    void likesAreFoundWhereAllSongsShareTheirWords();
};

void tst_lookalikes::lettersThatCount_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("letters");

    QTest::newRow("title and lyrics") << u"Luz"_qs << u"Sobre o mar"_qs << u"luzsobreomar"_qs;
    QTest::newRow("capitals and accents") << u"CORAÇÃO"_qs << u"É só"_qs << u"coracaoeso"_qs;
    QTest::newRow("accents in two characters")
        << u"Corac\u0327a\u0303o"_qs << u""_qs << u"coracao"_qs;
    QTest::newRow("chord lines") << u"Luz"_qs << u"C  G7/B  Am\r\nO mar"_qs << u"luzomar"_qs;
    QTest::newRow("blanks and line ends")
        << u" A\tB "_qs << u"lu\u00A0z \r\n\r\nfim"_qs << u"abluzfim"_qs;
    QTest::newRow("punctuation") << u"Luz!"_qs << u"“o — mar…” (vai)?"_qs << u"luzomarvai"_qs;
    QTest::newRow("numbers stay") << u"Salmo 22"_qs << u""_qs << u"salmo22"_qs;
    QTest::newRow("other alphabets stay") << u"Κύριε"_qs << u""_qs << u"κυριε"_qs;
    QTest::newRow("nothing") << u""_qs << u"C  G\r\n"_qs << u""_qs;
}

void tst_lookalikes::lettersThatCount()
{
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QString, letters);
    QCOMPARE(QString::fromUtf8(Letters(title, text)), letters);
}

void tst_lookalikes::songsThatAreTheSame_data()
{
    QTest::addColumn<QString>("text");

    QString other = Asa;
    QString flat = Asa;
    QString spaced = Asa;
    QTest::newRow("without chords") << other.remove(u"G            C\r\n"_qs);
    QTest::newRow("without accents") << flat.replace(u"não"_qs, u"nao"_qs);
    QTest::newRow("other blanks")
        << spaced.replace(u"\r\n\r\n"_qs, u"\r\n"_qs).replace(u"a t"_qs, u"a  t"_qs);
    QTest::newRow("in capitals") << Asa.toUpper();
}

void tst_lookalikes::songsThatAreTheSame()
{
    QFETCH(QString, text);
    QVERIFY(text != Asa);
    LookAlikes alikes;
    alikes.Add(4, Letters(u"Asa Branca"_qs, Asa));
    alikes.Add(9, Letters(u"Asa branca"_qs, text));
    QCOMPARE(Told(alikes), u"4 9 (100)"_qs);
}

void tst_lookalikes::oneVerseMoreIsAlike()
{
    SongGenerator generator(7);
    const QString song = generator.Next().text;
    LookAlikes alikes;
    alikes.Add(1, Letters(u"Luz"_qs, song));
    alikes.Add(2, Letters(u"Luz"_qs, song + u"\r\nE mais uma linha no fim da letra"));
    const QList<LookAlikes::Group> groups = alikes.Groups();
    QCOMPARE(groups.size(), 1);
    QVERIFY2(groups.first().likeness > 90 && groups.first().likeness < 100,
             qPrintable(Told(alikes)));
}

void tst_lookalikes::anotherSongIsNot()
{
    SongGenerator generator(7);
    const QString song = generator.Next().text;
    LookAlikes alikes;
    alikes.Add(1, Letters(u"Luz"_qs, song));
    alikes.Add(2, Letters(u"Luz"_qs, generator.Next().text));
    // Half of it is the first one.
    alikes.Add(3, Letters(u"Luz"_qs, song.left(song.size() / 2) + generator.Next().text));
    QCOMPARE(Told(alikes), QString());
}

void tst_lookalikes::copiesStayTogetherWithTheirLikes()
{
    SongGenerator generator(7);
    const QString song = generator.Next().text;
    LookAlikes alikes;
    alikes.Add(1, Letters(u"Luz"_qs, song));
    alikes.Add(2, Letters(u"Luz"_qs, song + u"fim da letra"));
    alikes.Add(3, Letters(u"Luz"_qs, song));
    alikes.Add(4, Letters(u"Luz"_qs, song + u"fim da letra"));
    const QList<LookAlikes::Group> groups = alikes.Groups();
    QCOMPARE(groups.size(), 1);
    QCOMPARE(groups.first().songs, (QList<qint64>{1, 3, 2, 4}));
}

void tst_lookalikes::shortSongsAreComparedWhole()
{
    LookAlikes alikes;
    alikes.Add(1, Letters(u"Sol"_qs, {}));
    alikes.Add(2, Letters(u"Som"_qs, {}));
    alikes.Add(3, Letters(u"sol."_qs, {}));
    QCOMPARE(Told(alikes), u"1 3 (100)"_qs);
}

void tst_lookalikes::songWithoutLettersIsLikeNoOther()
{
    LookAlikes alikes;
    alikes.Add(1, Letters({}, u"C  G\r\n"_qs));
    alikes.Add(2, Letters({}, {}));
    QCOMPARE(Told(alikes), QString());
}

void tst_lookalikes::thousandsOfCopiesAreOneGroup()
{
    LookAlikes alikes;
    for (int i = 0; i < 5000; ++i)
        alikes.Add(i, Letters(u"Asa Branca"_qs, Asa + QString(i % 3, u'x')));
    const QList<LookAlikes::Group> groups = alikes.Groups();
    QCOMPARE(groups.size(), 1);
    QCOMPARE(groups.first().songs.size(), 5000);
}

void tst_lookalikes::likesAreFoundAmongManySongs()
{
    SongGenerator generator(11);
    LookAlikes alikes;
    QStringList planted;
    for (int i = 0; i < 2000; ++i) {
        const GeneratedSong song = generator.Next();
        alikes.Add(i, Letters(song.title, song.text));
        if (i % 100 != 0)
            continue;
        // The first lines are another singer's.
        alikes.Add(10'000 + i, Letters(song.title, u"Outra primeira linha\r\n"_qs +
                                                       song.text.mid(song.text.size() / 20)));
        planted += QString::number(i) + u' ' + QString::number(10'000 + i);
    }
    QStringList found;
    for (const LookAlikes::Group& group : alikes.Groups()) {
        QCOMPARE(group.songs.size(), 2);
        found += QString::number(group.songs[0]) + u' ' + QString::number(group.songs[1]);
    }
    QCOMPARE(found, planted);
}

/// Hymns: a few words make them all, so every piece of one is in hundreds of others.
void tst_lookalikes::likesAreFoundWhereAllSongsShareTheirWords()
{
    constexpr std::array words = {u"santo",  u"glória", u"aleluia",  u"senhor", u"céus", u"terra",
                                  u"louvor", u"amém",   u"cordeiro", u"paz",    u"povo", u"luz"};
    SongGenerator numbers(5);
    LookAlikes alikes;
    QStringList planted;
    QByteArray before;
    for (int i = 0; i < 1500; ++i) {
        QString text;
        for (int word = 0; word < 300; ++word)
            text +=
                QString::fromUtf16(words[static_cast<std::size_t>(numbers.Below(words.size()))]);
        QByteArray letters = Letters(QString::number(i), text);
        if (i % 50 == 49) {
            letters = before + "fim";
            planted += QString::number(i - 1) + u' ' + QString::number(i);
        }
        alikes.Add(i, letters);
        before = letters;
    }
    QStringList found;
    for (const LookAlikes::Group& group : alikes.Groups()) {
        QCOMPARE(group.songs.size(), 2);
        found += QString::number(group.songs[0]) + u' ' + QString::number(group.songs[1]);
    }
    QCOMPARE(found, planted);
}

QTEST_APPLESS_MAIN(tst_lookalikes)

#include "tst_lookalikes.moc"
