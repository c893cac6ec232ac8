#include "SongDump.h"
#include "songbook/PlainTextReader.h"
#include "songbook/PlainTextWriter.h"
#include "songbook/UsualScale.h"

#include <QTest>

using namespace Songbook;

/// Songs that we write as text come back as the same songs.
class tst_plain_text : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void songsComeBack_data();
    void songsComeBack();
    void whatATextCannotHoldComesBackSo_data();
    void whatATextCannotHoldComesBackSo();
    void manySongsComeBackAsMany();
    void changedTextsAreReadAllTheSame_data();
    void changedTextsAreReadAllTheSame();
    void linesOfALaterSongAreCountedFromTheTop();
};

namespace {

ExchangeSong Plain()
{
    ExchangeSong song;
    song.titulo = u"Peixe Vivo"_qs;
    song.referencia = u"Folclore"_qs;
    song.letra1 = song.letra2 = u"G       D7\r\nComo pode o peixe"_qs;
    song.tom = u"G"_qs;
    song.variacao = u""_qs;
    song.categoria = 2;
    song.temas = {u"Roda"_qs, u"Popular, velha"_qs};
    return song;
}

/// A plain song in which one field is another.
template <typename Value>
ExchangeSong With(Value ExchangeSong::*field, const Value& value)
{
    ExchangeSong song = Plain();
    song.*field = value;
    return song;
}

ExchangeSong WithText(const QString& text)
{
    ExchangeSong song = Plain();
    song.letra1 = song.letra2 = text;
    return song;
}

ExchangeSong WithKey(const QString& tom, const QString& variacao)
{
    ExchangeSong song = Plain();
    song.tom = tom;
    song.variacao = variacao;
    return song;
}

const QString Apart = u"\r\n"_qs + SongsApart() + u"\r\n\r\n";

QString Dump(const QList<ExchangeSong>& songs)
{
    QString dump;
    for (const ExchangeSong& song : songs)
        dump += SongDump::Song(song);
    return dump;
}

} // namespace

void tst_plain_text::songsComeBack_data()
{
    QTest::addColumn<ExchangeSong>("song");
    using Text = std::optional<QString>;
    const auto row = [](const char* story, const ExchangeSong& song) {
        QTest::newRow(story) << song;
    };
    row("as most are", Plain());
    row("an empty title", With(&ExchangeSong::titulo, Text(u""_qs)));
    row("blanks around a title", With(&ExchangeSong::titulo, Text(u"  Noite "_qs)));
    row("an empty reference", With(&ExchangeSong::referencia, Text(u""_qs)));
    row("a reference that reads like a field", With(&ExchangeSong::referencia, Text(u"Tom: A"_qs)));
    row("a religious song", With(&ExchangeSong::categoria, std::optional(1)));
    row("no themes", With(&ExchangeSong::temas, QStringList()));
    row("an empty text", WithText(u""_qs));
    row("chords that others spell in another way", WithText(u"C7b9  Cmaj7  Bb7M\r\nÁgua"_qs));
    row("brackets and braces", WithText(u"[G]Noite {c: x}\r\n{title: y}"_qs));
    row("headings", WithText(u"    Refrão\r\nG\r\nLa\r\n\r\n[Solo] C"_qs));
    row("blank rows at both ends", WithText(u"\r\n\r\nLa\r\n\r\n"_qs));
    row("blanks and tabs at the ends of rows", WithText(u"La  \r\n\tLa\t\r\n \r\nLa"_qs));
    row("a first row that reads like a field", WithText(u"Temas: do povo\r\nLa"_qs));
    row("a row of signs", WithText(u"La\r\n"_qs + SongsApart() + u"\r\nLa"));
    row("guards and emojis", WithText(u"\u00A0A E\r\n\U0001F3B8 ção"_qs));
    row("a flat key", WithKey(u"Bb"_qs, u"m"_qs));
    row("a sharp key", WithKey(u"F#"_qs, u""_qs));
    row("a key with more than a mode", WithKey(u"A"_qs, u"m7(9)"_qs));
    row("a key with a remark", WithKey(u"E"_qs, u" (capo 2)"_qs));
    row("no key", WithKey(u""_qs, u""_qs));
}

void tst_plain_text::songsComeBack()
{
    QFETCH(ExchangeSong, song);
    const QString written = WritePlainText(song, 1);
    const Source alone = ReadSource(written.toUtf8(), u"?"_qs);
    QCOMPARE(Dump(alone.reading.songs), SongDump::Song(song));
    QVERIFY(alone.reading.remarks.isEmpty());
    // Also with others before and behind it, and with the ends of lines of another system.
    QString book =
        WritePlainText(Plain(), 1) + Apart + written + Apart + WritePlainText(Plain(), 1);
    const QString three = Dump({Plain(), song, Plain()});
    QCOMPARE(Dump(ReadSource(book.toUtf8(), u"?"_qs).reading.songs), three);
    book.replace(u"\r\n"_qs, u"\n"_qs);
    QCOMPARE(Dump(ReadSource(book.toUtf8(), u"?"_qs).reading.songs), three);
    QCOMPARE(Dump(ReadSource(QString(u"\uFEFF" + book).toUtf8(), u"?"_qs).reading.songs), three);
}

void tst_plain_text::whatATextCannotHoldComesBackSo_data()
{
    QTest::addColumn<ExchangeSong>("song");
    QTest::addColumn<ExchangeSong>("back");
    using Text = std::optional<QString>;
    const auto row = [](const char* story, const ExchangeSong& song, const ExchangeSong& back) {
        QTest::newRow(story) << song << back;
    };
    ExchangeSong two = Plain();
    two.letra2 = u"A\r\nLa"_qs;
    row("the other version", two, Plain());
    row("other breaks of lines", WithText(u"La\nla\rla"_qs), WithText(u"La\r\nla\r\nla"_qs));
    row("a title of two lines", With(&ExchangeSong::titulo, Text(u"Noite\nFeliz"_qs)),
        With(&ExchangeSong::titulo, Text(u"Noite Feliz"_qs)));
    row("a theme that looks like two", With(&ExchangeSong::temas, QStringList{u"a; b"_qs}),
        With(&ExchangeSong::temas, QStringList{u"a"_qs, u"b"_qs}));
    row("a category of one's own", With(&ExchangeSong::categoria, std::optional(7)),
        With(&ExchangeSong::categoria, std::optional(1)));
    row("a key in words", WithKey(u"Sol"_qs, u"m"_qs), WithKey(u"G"_qs, u"m"_qs));
    row("no value at all", ExchangeSong(), [] {
        ExchangeSong song = WithText(u"Sem Letra"_qs);
        song.titulo = u"Sem Título"_qs;
        song.referencia = u"Sem Referência"_qs;
        song.tom = u"C"_qs;
        song.categoria = 1;
        song.temas.clear();
        return song;
    }());
}

void tst_plain_text::whatATextCannotHoldComesBackSo()
{
    QFETCH(ExchangeSong, song);
    QFETCH(ExchangeSong, back);
    const Source read = ReadSource(WritePlainText(song, 1).toUtf8(), u"?"_qs);
    QCOMPARE(Dump(read.reading.songs), SongDump::Song(back));
}

void tst_plain_text::manySongsComeBackAsMany()
{
    constexpr int Many = 3000;
    QList<ExchangeSong> songs;
    QString book;
    for (int i = 0; i < Many; ++i) {
        songs.append(With(&ExchangeSong::titulo, std::optional(u"Canto %1"_qs.arg(i))));
        book += (i == 0 ? QString() : Apart) + WritePlainText(songs.last(), 1);
    }
    const Source read = ReadSource(book.toUtf8(), u"?"_qs);
    QCOMPARE(read.reading.songs.size(), Many);
    QCOMPARE(Dump(read.reading.songs), Dump(songs));
}

void tst_plain_text::changedTextsAreReadAllTheSame_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QStringList>("titles");
    const QStringList both = {u"Peixe Vivo"_qs, u"Peixe Vivo"_qs};
    QTest::newRow("as written") << u""_qs << u""_qs << both;
    QTest::newRow("a field taken away") << u"Categoria: Secular\r\n"_qs << u""_qs << both;
    QTest::newRow("a field in another place")
        << u"Título: Peixe Vivo\r\nReferência: Folclore\r\n"_qs
        << u"Título: Peixe Vivo\r\nTom: G\r\nReferência: Folclore\r\n"_qs << both;
    QTest::newRow("a category of one's own") << u"Secular"_qs << u"Popular"_qs << both;
    QTest::newRow("no blank line before the next")
        << u"peixe\r\n\r\n==="_qs << u"peixe\r\n==="_qs << both;
    QTest::newRow("more blank lines before the next")
        << u"===\r\n\r\n"_qs << u"===\r\n\r\n\r\n\r\n"_qs << both;
    QTest::newRow("blanks behind the separator") << u"===\r\n"_qs << u"===  \r\n"_qs << both;
}

void tst_plain_text::changedTextsAreReadAllTheSame()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QStringList, titles);
    QString book = WritePlainText(Plain(), 1) + Apart + WritePlainText(Plain(), 1);
    if (!before.isEmpty()) {
        QVERIFY(book.contains(before));
        book.replace(before, after);
    }
    const Source read = ReadSource(book.toUtf8(), u"?"_qs);
    QStringList found;
    for (const ExchangeSong& song : read.reading.songs) {
        found += *song.titulo;
        QCOMPARE(*song.letra1, u"G       D7\r\nComo pode o peixe"_qs);
        QCOMPARE(*song.tom, u"G"_qs);
    }
    QCOMPARE(found, titles);
    const qsizetype told = read.reading.remarks.size();
    QCOMPARE(told, after == u"Popular" ? 1 : 0); // what was said once is not said again
}

void tst_plain_text::linesOfALaterSongAreCountedFromTheTop()
{
    const QString first = WritePlainText(Plain(), 1) + Apart;
    const QString second = u"Título: Noite\r\nTom: Original\r\n\r\nG\r\nLa\r\n"_qs;
    const Source read = ReadSource(QString(first + second).toUtf8(), u"?"_qs);
    QCOMPARE(read.reading.songs.size(), 2);
    QVERIFY(!read.reading.remarks.isEmpty());
    QCOMPARE(
        SongDump::Remark(read.reading.remarks.first()),
        u"perdido %1: o tom \"Original\" não foi reconhecido\n"_qs.arg(first.count(u'\n') + 2));
}

QTEST_APPLESS_MAIN(tst_plain_text)
#include "tst_plain_text.moc"
