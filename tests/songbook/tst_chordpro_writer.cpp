#include "SongDump.h"
#include "songbook/ChordProReader.h"
#include "songbook/ChordProWriter.h"
#include "songbook/ChordTextReader.h"
#include "songbook/PlainTextWriter.h"
#include "songbook/UsualScale.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Songbook;

/// Songs written in other programs' formats, and taken back.
class tst_chordpro_writer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void chordsGoIntoTheLineOfTheirSyllables();
    void otherProgramsFindTitleArtistKeyAndCapo();
    void whatTheFormatLacksIsKeptExactly_data();
    void whatTheFormatLacksIsKeptExactly();
    void exceptionsAreTheNamedOnes_data();
    void exceptionsAreTheNamedOnes();
    void randomSongsComeBack();
    void plainTextIsReadable();
    void plainTextComesBack();
};

namespace {

ExchangeSong UsualSong()
{
    ExchangeSong song;
    song.titulo = u"Peixe Vivo"_qs;
    song.referencia = u"Folclore"_qs;
    song.tom = u"A"_qs;
    song.variacao = u"m"_qs;
    song.categoria = 2;
    song.temas = QStringList{u"Popular"_qs, u"Roda"_qs};
    song.letra1 = u"    Refrão\r\nAm      E7\r\nComo pode o peixe\r\n\r\nINTRO: Am  E7 (2x)"_qs;
    song.letra2 = song.letra1;
    return song;
}

ExchangeSong ReadBack(const ExchangeSong& song)
{
    const Reading reading = ReadChordPro(WriteChordPro(song), u"nome do arquivo"_qs);
    return reading.songs.size() == 1 ? reading.songs.first() : ExchangeSong();
}

/// What the two sides of a comparison show when they differ.
QString Shown(const ExchangeSong& song)
{
    return song.titulo ? SongDump::Song(song) : u"<not one song>"_qs;
}

const QStringList& Pieces()
{
    static const QStringList pieces = {u"C"_qs,
                                       u"G7"_qs,
                                       u"Am7"_qs,
                                       u"D/F#"_qs,
                                       u"Bb"_qs,
                                       u"C7(b9)"_qs,
                                       u" "_qs,
                                       u"  "_qs,
                                       u"    "_qs,
                                       u"Santo"_qs,
                                       u"ção"_qs,
                                       u"Bom"_qs,
                                       u"[C]"_qs,
                                       u"[*x]"_qs,
                                       u"["_qs,
                                       u"]"_qs,
                                       u"{"_qs,
                                       u"}"_qs,
                                       u"{t: x}"_qs,
                                       u"{soc}"_qs,
                                       u"#"_qs,
                                       u"\\"_qs,
                                       u"\\u0041"_qs,
                                       u"%"_qs,
                                       u"<b>"_qs,
                                       u"|"_qs,
                                       u"INTRO:"_qs,
                                       u"(2x)"_qs,
                                       u"\u00A0"_qs,
                                       u"\t"_qs,
                                       u"£"_qs,
                                       u":"_qs,
                                       u"Cmaj7"_qs,
                                       u"N.C."_qs,
                                       u"\u266B"_qs,
                                       u"\U0001F3B8"_qs,
                                       u"{x_versao: 2}"_qs,
                                       u"{ci: }"_qs,
                                       u"    Capotraste: 2"_qs,
                                       u"&"_qs,
                                       u"\u0001"_qs};
    return pieces;
}

class SongMaker
{
public:
    explicit SongMaker(quint32 seed)
        : m_random(seed)
    {
    }

    ExchangeSong Make()
    {
        ExchangeSong song;
        song.titulo = Field();
        song.referencia = Field();
        static const QStringList keys = {u"C"_qs, u"F#"_qs,  u"Bb"_qs, u""_qs,
                                         u"H"_qs, u" G "_qs, u"}"_qs,  u"Dó"_qs};
        song.tom = keys[Below(keys.size())];
        song.variacao = Below(3) == 0 ? u"m"_qs : Below(3) == 0 ? u" x}"_qs : u""_qs;
        song.categoria = Below(4) == 0 ? 7 - Below(14) : 1 + Below(2);
        for (int i = Below(4); i > 0; --i)
            song.temas.append(Field());
        song.letra1 = Text();
        song.letra2 = Below(2) == 0 ? *song.letra1 : Text();
        return song;
    }

private:
    int Below(qsizetype bound)
    {
        return static_cast<int>(m_random.bounded(static_cast<quint32>(bound)));
    }

    QString Row()
    {
        QString row;
        for (int i = Below(7); i > 0; --i)
            row += Pieces()[Below(Pieces().size())];
        return row;
    }

    QString Field()
    {
        const QString field = Row().replace(u'\t', u' ').trimmed();
        return field.isEmpty() ? u"Nome"_qs : field;
    }

    QString Text()
    {
        QStringList rows;
        for (int i = Below(9); i > 0; --i)
            rows += Row();
        return rows.join(u"\r\n");
    }

    QRandomGenerator m_random;
};

} // namespace

void tst_chordpro_writer::chordsGoIntoTheLineOfTheirSyllables()
{
    QCOMPARE(WriteChordPro(UsualSong()),
             u"{title: Peixe Vivo}\n{artist: Folclore}\n{key: Am}\n{x_categoria: Secular}\n"
             u"{tag: Popular}\n{tag: Roda}\n\n{comment: Refrão}\n[Am]Como pod[E7]e o peixe\n\n"
             u"[*INTRO:]       [Am]    [E7]   [*(2x)]\n"_qs);
}

void tst_chordpro_writer::otherProgramsFindTitleArtistKeyAndCapo()
{
    ExchangeSong song = UsualSong();
    song.letra1 = u"    Capotraste: 3\r\nC\r\nLá"_qs;
    song.letra2 = song.letra1;
    const QString written = WriteChordPro(song);
    QVERIFY2(written.contains(u"\n{capo: 3}\n\n[C]Lá\n"), qPrintable(written));
    QCOMPARE(Shown(ReadBack(song)), Shown(song));
}

void tst_chordpro_writer::whatTheFormatLacksIsKeptExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << u""_qs;
    QTest::newRow("one blank row") << u"\r\n"_qs;
    QTest::newRow("blank rows around") << u"\r\n\r\nLá\r\n\r\n"_qs;
    QTest::newRow("blanks at a row's end") << u"C  \r\nLá  "_qs;
    QTest::newRow("an indented heading") << u"        Refrão"_qs;
    QTest::newRow("a bracket among lyrics") << u"Lá [bis] lá"_qs;
    QTest::newRow("chords in brackets") << u"[C]  [G]"_qs;
    QTest::newRow("a directive for text") << u"{title: não}"_qs;
    QTest::newRow("a comment for text") << u"# não"_qs;
    QTest::newRow("a backslash at the end") << u"Lá\\\r\nlá"_qs;
    QTest::newRow("chords over chords") << u"C  G\r\nD  A\r\nLá"_qs;
    QTest::newRow("chords behind the words") << u"C          G7\r\nLá"_qs;
    QTest::newRow("lyrics of chord characters") << u"C\r\nBom"_qs;
    QTest::newRow("a guarded lyric") << u"C\r\nBom\u00A0"_qs;
    QTest::newRow("tab within a row") << u"Lá\tlá"_qs;
    QTest::newRow("capo alone") << u"    Capotraste: 2"_qs;
    QTest::newRow("capo and a blank row") << u"    Capotraste: 2\r\n"_qs;
    QTest::newRow("no capo at all") << u"    Capotraste: 0\r\nLá"_qs;
    QTest::newRow("words without a place in the code page") << u"\u266B Lá \U0001F3B8"_qs;
    QTest::newRow("a very long row") << QString(5000, u'C') + u" Lá"_qs;
}

void tst_chordpro_writer::whatTheFormatLacksIsKeptExactly()
{
    QFETCH(QString, text);
    ExchangeSong song = UsualSong();
    song.letra1 = text;
    song.letra2 = text;
    QCOMPARE(Shown(ReadBack(song)), Shown(song));
    song.letra2 = u"C\r\nOutra"_qs;
    QCOMPARE(Shown(ReadBack(song)), Shown(song));
    std::swap(song.letra1, song.letra2);
    QCOMPARE(Shown(ReadBack(song)), Shown(song));
}

void tst_chordpro_writer::exceptionsAreTheNamedOnes_data()
{
    QTest::addColumn<ExchangeSong>("song");
    QTest::addColumn<ExchangeSong>("back");
    const ExchangeSong usual = UsualSong();
    const auto row = [&usual](const char* story, auto change, auto changed) {
        ExchangeSong song = usual;
        change(song);
        ExchangeSong back = usual;
        changed(back);
        QTest::newRow(story) << song << back;
    };
    row(
        "no value anywhere", [](ExchangeSong& song) { song = {}; },
        [](ExchangeSong& song) {
            song = {u"Sem Título"_qs,
                    u"Sem Referência"_qs,
                    u"Sem Letra"_qs,
                    u"Sem Letra"_qs,
                    u"C"_qs,
                    u""_qs,
                    1,
                    {}};
        });
    row(
        "empty title", [](ExchangeSong& song) { song.titulo = u""_qs; },
        [](ExchangeSong& song) { song.titulo = u"Sem Título"_qs; });
    row(
        "blanks around a title", [](ExchangeSong& song) { song.titulo = u" Peixe\r\nVivo "_qs; },
        [](ExchangeSong&) {});
    row(
        "theme of blanks", [](ExchangeSong& song) { song.temas.append(u" "_qs); },
        [](ExchangeSong&) {});
    row(
        "lone line ends in a text",
        [](ExchangeSong& song) { song.letra1 = song.letra2 = u"Lá\nli\rlé"_qs; },
        [](ExchangeSong& song) { song.letra1 = song.letra2 = u"Lá\r\nli\r\nlé"_qs; });
}

void tst_chordpro_writer::exceptionsAreTheNamedOnes()
{
    QFETCH(ExchangeSong, song);
    QFETCH(ExchangeSong, back);
    QCOMPARE(Shown(ReadBack(song)), Shown(back));
}

void tst_chordpro_writer::randomSongsComeBack()
{
    for (quint32 seed = 0; seed < 1500; ++seed) {
        const ExchangeSong song = SongMaker(seed).Make();
        const ExchangeSong back = ReadBack(song);
        if (Shown(back) != Shown(song))
            QFAIL(qPrintable(u"seed %1:\n%2\n---\n%3\n---\n%4"_qs.arg(seed).arg(
                Shown(song), Shown(back), WriteChordPro(song))));
    }
}

void tst_chordpro_writer::plainTextIsReadable()
{
    QCOMPARE(WritePlainText(UsualSong(), 1),
             u"Título: Peixe Vivo\r\nReferência: Folclore\r\nTom: Am\r\nCategoria: Secular\r\n"
             u"Temas: Popular; Roda\r\n\r\n    Refrão\r\nAm      E7\r\nComo pode o peixe\r\n\r\n"
             u"INTRO: Am  E7 (2x)\r\n"_qs);
    ExchangeSong song = UsualSong();
    song.letra2 = u"Outra"_qs;
    QVERIFY(WritePlainText(song, 2).endsWith(u"\r\n\r\nOutra\r\n"));
}

void tst_chordpro_writer::plainTextComesBack()
{
    const Reading reading = ReadChordText(WritePlainText(UsualSong(), 1), u"?"_qs);
    QCOMPARE(reading.songs.size(), 1);
    QCOMPARE(Shown(reading.songs.first()), Shown(UsualSong()));
    QVERIFY(reading.remarks.isEmpty());
}

QTEST_APPLESS_MAIN(tst_chordpro_writer)
#include "tst_chordpro_writer.moc"
