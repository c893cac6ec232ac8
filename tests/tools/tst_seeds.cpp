#include "chords/Cifra.h"
#include "chords/Notas.h"
#include "tools/SeedFiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

// The delivered songs, line by line. Their form tells what each line is meant to be: stanzas are
// set apart by empty lines; a stanza is chord line, lyric line, chord line, lyric line ..., with a
// heading above it when its lines are odd in number, or one chord line alone (an introduction).

namespace {

const QString Songs = QStringLiteral(MELODARIO_SOURCE_DIR "/data/songs/");
const QString HeadingBlanks = u"    "_qs;

enum class Meant { Chords, Lyrics, Heading };

struct Line
{
    Meant meant;
    QString text;
};

QList<Line> LinesByPlace(const QString& song)
{
    QList<Line> lines;
    for (const QString& stanza : song.split(u"\r\n\r\n"_qs)) {
        const QStringList texts = stanza.split(u"\r\n"_qs);
        const bool headed = texts.size() > 1 && texts.size() % 2 == 1;
        for (qsizetype i = 0; i < texts.size(); ++i) {
            const bool chords = (i % 2 == 0) != headed;
            const Meant meant = headed && i == 0 ? Meant::Heading
                                : chords         ? Meant::Chords
                                                 : Meant::Lyrics;
            lines.append({meant, texts[i]});
        }
    }
    return lines;
}

} // namespace

class TestSeeds : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void ThereAreADozenOrMore();
    void FileTellsSourceYearAndWhyItIsFree_data() { EachFile(); }
    void FileTellsSourceYearAndWhyItIsFree();
    void EveryLineIsTakenForWhatItIs_data() { EachVersion(); }
    void EveryLineIsTakenForWhatItIs();
    void ChordsStandOverTheirLyrics_data() { EachVersion(); }
    void ChordsStandOverTheirLyrics();
    void ChordsAreNamesThatTheEngineKnows_data() { EachVersion(); }
    void ChordsAreNamesThatTheEngineKnows();
    void AnOctaveUpOrDownGivesTheSameSheet_data() { EachVersion(); }
    void AnOctaveUpOrDownGivesTheSameSheet();
    void EveryKeyShowsARootForEveryChord_data() { EachVersion(); }
    void EveryKeyShowsARootForEveryChord();

private:
    static QStringList Files() { return QDir(Songs).entryList({u"*.txt"_qs}, QDir::Files); }

    static void EachFile()
    {
        QTest::addColumn<QString>("file");
        for (const QString& file : Files())
            QTest::newRow(qPrintable(file)) << Songs + file;
    }

    static void EachVersion()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tonic");
        for (const QString& file : Files()) {
            const Seed::Song song = Seed::ReadSong(Songs + file);
            const QString tonic = song.key + song.variation;
            QTest::newRow(qPrintable(file + u" v.1")) << song.text << tonic;
            if (!song.secondText.isEmpty())
                QTest::newRow(qPrintable(file + u" v.2")) << song.secondText << tonic;
        }
    }

    static QStringList Chords(const QString& text)
    {
        QStringList chords;
        for (const Line& line : LinesByPlace(text)) {
            if (line.meant == Meant::Chords)
                chords += line.text.split(u' ', Qt::SkipEmptyParts);
        }
        chords.removeAll(u"INTRO:"_qs);
        return chords;
    }
};

void TestSeeds::initTestCase()
{
    Funcoes::Notas = {u"?"_qs,  u"C"_qs, u"C#"_qs, u"D"_qs, u"D#"_qs, u"E"_qs, u"F"_qs,
                      u"F#"_qs, u"G"_qs, u"G#"_qs, u"A"_qs, u"A#"_qs, u"B"_qs};
    Funcoes::Notas_Mais = {u"?"_qs,  u"C"_qs, u"Db"_qs, u"D"_qs, u"Eb"_qs, u"E"_qs, u"F"_qs,
                           u"Gb"_qs, u"G"_qs, u"Ab"_qs, u"A"_qs, u"Bb"_qs, u"B"_qs};
}

void TestSeeds::ThereAreADozenOrMore()
{
    QVERIFY(Files().size() >= 12);
    QVERIFY(Files().contains(u"peixe-vivo.txt"_qs));
}

void TestSeeds::FileTellsSourceYearAndWhyItIsFree()
{
    QFETCH(QString, file);
    QString comments;
    for (const QString& line : Seed::ReadLines(file)) {
        if (!line.startsWith(u'#'))
            break;
        comments += line + u'\n';
    }
    static const QRegularExpression year(u"\\b1[0-9]{3}\\b|década de 1[0-9]{3}"_qs);
    QVERIFY(comments.startsWith(u"# "_qs + Seed::ReadSong(file).title));
    QVERIFY(comments.contains(u"\n# Fonte: "));
    QVERIFY(comments.contains(u"\n# Domínio público: "));
    QVERIFY(year.match(comments).hasMatch());
}

void TestSeeds::EveryLineIsTakenForWhatItIs()
{
    QFETCH(QString, text);
    for (const Line& line : LinesByPlace(text)) {
        QVERIFY2(Funcoes::Linha_Cifra(line.text) == (line.meant == Meant::Chords),
                 qPrintable(line.text));
        if (line.meant != Meant::Chords)
            QVERIFY2(line.text.startsWith(HeadingBlanks) == (line.meant == Meant::Heading),
                     qPrintable(line.text));
        QVERIFY2(!line.text.trimmed().isEmpty(), qPrintable(text));
    }
}

void TestSeeds::ChordsStandOverTheirLyrics()
{
    QFETCH(QString, text);
    static const QRegularExpression letter(u"\\p{L}"_qs);
    const QList<Line> lines = LinesByPlace(text);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (lines[i].meant != Meant::Lyrics)
            continue;
        const QString& chords = lines[i - 1].text;
        for (qsizetype at = 0; at < chords.size(); ++at) {
            const bool begins = chords[at] != u' ' && (at == 0 || chords[at - 1] == u' ');
            // Under the first character of every chord there is a syllable, not a blank.
            if (begins)
                QVERIFY2(at < lines[i].text.size() && lines[i].text[at].isLetter(),
                         qPrintable(chords + u'\n' + lines[i].text));
        }
    }
}

void TestSeeds::ChordsAreNamesThatTheEngineKnows()
{
    QFETCH(QString, text);
    QFETCH(QString, tonic);
    static const QRegularExpression chord(u"^[A-G](#|b)?m?7?(\\(b[59]\\))?(/[A-G](#|b)?)?$"_qs);
    const QStringList chords = Chords(text);
    for (const QString& name : chords)
        QVERIFY2(chord.match(name).hasMatch(), qPrintable(name));
    QVERIFY(chords.contains(tonic));
}

void TestSeeds::AnOctaveUpOrDownGivesTheSameSheet()
{
    QFETCH(QString, text);
    const QString sheet = Funcoes::Monta_Cifra(text, 0, 0, true);
    QVERIFY(sheet.contains(u"\\cf1\\b "));
    QCOMPARE(Funcoes::Monta_Cifra(text, 12, 0, true), sheet);
    QCOMPARE(Funcoes::Monta_Cifra(text, -12, 0, true), sheet);
}

/// No chord loses its root on the way through the keys: a sheet in any key has as many note letters
/// in its chord lines as the written one.
void TestSeeds::EveryKeyShowsARootForEveryChord()
{
    QFETCH(QString, text);
    static const QRegularExpression chordLine(u"\\\\cf1\\\\b ([^\\r]*)\\\\cf0"_qs);
    static const QRegularExpression root(u"[A-G]"_qs);
    const auto roots = [](const QString& sheet) {
        qsizetype count = 0;
        for (auto lines = chordLine.globalMatch(sheet); lines.hasNext();)
            count += lines.next().captured(1).count(root);
        return count;
    };
    const qsizetype written = roots(Funcoes::Monta_Cifra(text, 0, 0, true));
    QVERIFY(written >= Chords(text).size());
    for (std::int16_t offset = -11; offset <= 11; ++offset)
        QCOMPARE(roots(Funcoes::Monta_Cifra(text, offset, 0, true)), written);
}

QTEST_GUILESS_MAIN(TestSeeds)
#include "tst_seeds.moc"
