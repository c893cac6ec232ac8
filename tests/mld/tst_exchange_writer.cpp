#include "mld/ExchangeWriter.h"
#include "store/CodePage.h"
#include "store/text/Utf8.h"

#include <QFile>
#include <QTest>

#include <array>
#include <random>
#include <vector>

namespace {

QByteArray Golden(const QString& name)
{
    QFile file(QStringLiteral(MELODARIO_SOURCE_DIR "/tests/mld/golden/%1.mld").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

std::optional<QByteArray> ToUtf8(const std::optional<QString>& text)
{
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

/// @return the song as a catalogue holds it
StoredSong Stored(const ExchangeSong& song)
{
    StoredSong stored{
        ToUtf8(song.titulo), ToUtf8(song.referencia), ToUtf8(song.letra1), ToUtf8(song.letra2),
        ToUtf8(song.tom),    ToUtf8(song.variacao),   song.categoria,      {}};
    for (const QString& theme : song.temas)
        stored.temas += theme.toUtf8();
    return stored;
}

/// Both ways to write songs, which have to be one.
QByteArray Written(const std::vector<ExchangeSong>& songs)
{
    QString document = ExchangeWriter::Head();
    QByteArray encoded = CodePage::FromUnicode(document);
    for (const ExchangeSong& song : songs) {
        ExchangeWriter::Append(document, song);
        ExchangeWriter::Append(encoded, Stored(song));
    }
    document += ExchangeWriter::Tail();
    encoded += CodePage::FromUnicode(ExchangeWriter::Tail());
    const QByteArray written = CodePage::FromUnicode(document);
    return encoded == written ? written : "<two documents>" + encoded + written;
}

ExchangeSong Song(const QString& title, const QString& reference, const QString& first,
                  const QString& second, const QString& key, const QString& variation, int category,
                  const QStringList& themes)
{
    return {title, reference, first, second, key, variation, category, themes};
}

/// What differs between the code page and Latin 1, the five holes included, and the rest of it.
QString EveryLetter()
{
    QString letters = u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008dŽ\u008f\u0090‘’“”•–—˜™š›œ\u009džŸ"_qs;
    for (char16_t code = 0xa0; code <= 0xff; ++code)
        letters += QChar(code);
    return letters;
}

} // namespace

class tst_exchange_writer : public QObject
{
    Q_OBJECT

private slots:
    void a_document_is_the_same_byte_for_byte_data();
    void a_document_is_the_same_byte_for_byte();
    void a_missing_text_gets_its_default_and_an_empty_one_stays_empty();
    void each_field_is_composed_for_itself();
    void signs_are_seen_wherever_they_stand();
    void bytes_that_are_no_text_are_written_as_text_would_be();
    void a_file_is_named_after_the_title_data();
    void a_file_is_named_after_the_title();
};

void tst_exchange_writer::a_document_is_the_same_byte_for_byte_data()
{
    QTest::addColumn<std::vector<ExchangeSong>>("songs");
    const auto row = [](const char* name, const std::vector<ExchangeSong>& songs) {
        QTest::newRow(name) << songs;
    };
    row("three-songs",
        {Song(u"Asa do vento"_qs, u"Tradição oral"_qs, u"C  G7\r\nSanto Deus"_qs,
              u"D  A7\r\nSanto Deus"_qs, u"C"_qs, u""_qs, 1, {u"Louvor"_qs, u"Adoração"_qs}),
         Song(u"Canção d'água"_qs, u"Zé"_qs, u"Am\r\n\r\nChão"_qs, u"Am\r\n\r\nChão"_qs, u"A"_qs,
              u"m"_qs, 2, {u"Festa"_qs}),
         Song(u"Luz"_qs, u"Ana e Beto"_qs, u"luz"_qs, u""_qs, u"Bb"_qs, u""_qs, 1, {})});
    row("no-song", {});
    row("nothing-stored", {ExchangeSong()});
    row("empty-texts", {Song(u""_qs, u""_qs, u""_qs, u""_qs, u""_qs, u""_qs, 2, {u""_qs, u""_qs})});
    row("signs-dropped", {Song(u"Rock <ao> vivo"_qs, u"<br>/nota>"_qs, u"<A>\r\n<B>"_qs,
                               u"C  G\r<>\n"_qs, u"C#/Db"_qs, u"m"_qs, 1, {u"Louvor"_qs})});
    row("signs-written-raw",
        {Song(u"Rock & Roll"_qs, u"A &amp; B"_qs, u"&lt;\r\n&#65;"_qs, u"&"_qs, u"<C>"_qs, u"&m"_qs,
              1, {u"> R&B <"_qs, u"'aspas' \"duplas\""_qs})});
    row("breaks",
        {Song(u"Duas\r\nlinhas"_qs, u"uma\rduas\ntrês"_qs, u"A\r\nB\rC\nD\n\r\r\n\r\nE\r"_qs,
              u"\r\n\r\n\r\n\tF  "_qs, u"C"_qs, u"\r\n"_qs, 1, {u"tema\r\nde duas"_qs})});
    row("code-page",
        {Song(EveryLetter(), u"ac\u0327a\u0303o e\u0301 a\u0300 C\u0327"_qs, u"mac\u0327a\u0303"_qs,
              u"São João"_qs, u"C"_qs, u"º"_qs, 1, {u"Corac\u0327a\u0303o"_qs})});
    const std::array<QChar, 3> broken{QChar(0xdc00), QChar(0xd800), QChar(0xffff)};
    row("no-place",
        {Song(u"日 e 🎸"_qs, u"\uFEFFcanta"_qs, u"\u0301 <\u0338 a<\u0301"_qs,
              QString(broken.data(), 3), u"C♯"_qs, u"♭"_qs, 1, {u"\u0338tema"_qs, u"\uFEFF"_qs})});
}

void tst_exchange_writer::a_document_is_the_same_byte_for_byte()
{
    QFETCH(std::vector<ExchangeSong>, songs);
    const QByteArray golden = Golden(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(Written(songs), golden);
}

void tst_exchange_writer::a_missing_text_gets_its_default_and_an_empty_one_stays_empty()
{
    ExchangeSong song;
    song.titulo = u"Luz"_qs;
    song.referencia = u""_qs;
    const QByteArray written = Written({song});
    QVERIFY(written.contains("<titulo>Luz</titulo>\r\n       <referencia></referencia>\r\n"));
    QVERIFY(written.contains("<letra1>Sem Letra</letra1>"));
}

void tst_exchange_writer::each_field_is_composed_for_itself()
{
    // A mark in front of a field must not join the sign that ends the tag before it.
    ExchangeSong song;
    song.titulo = u"\u0338"_qs;
    song.tom = u"e"_qs;
    song.variacao = u"\u0301"_qs;
    const QByteArray written = Written({song});
    QVERIFY(written.contains("<titulo>?</titulo>"));
    QVERIFY(written.contains("<tom>e</tom>"));
    QVERIFY(written.contains("<variacao>?</variacao>"));
}

void tst_exchange_writer::signs_are_seen_wherever_they_stand()
{
    constexpr int Longest = 14;
    const auto written = [](const QString& lyrics) {
        ExchangeSong song;
        song.letra1 = lyrics;
        const QString document = CodePage::ToUnicode(Written({song}));
        const QString before = u"<letra1>"_qs;
        const qsizetype from = document.indexOf(before) + before.size();
        return document.mid(from, document.indexOf(u"</letra1>"_qs) - from);
    };
    for (int length = 0; length <= Longest; ++length) {
        for (int at = 0; at <= length; ++at) {
            const QString head(at, u'=');
            const QString tail(length - at, u'\u00ff');
            QCOMPARE(written(head + u'<' + tail), head + tail);
            QCOMPARE(written(head + u'>' + tail), head + tail);
            QCOMPARE(written(head + u'\n' + tail), head + u'\n' + tail);
            QCOMPARE(written(head + u"\r\n"_qs + tail), head + u"[br]"_qs + tail);
            QCOMPARE(written(head + u"a\u0303"_qs + tail), head + u"ã"_qs + tail);
            QCOMPARE(written(head + u'\u013c' + tail), head + u'?' + tail);
            QCOMPARE(written(head + u'\u0153' + tail), head + u'\u0153' + tail);
            QCOMPARE(written(head + u"€\U0001F3B5"_qs + tail), head + u"€?"_qs + tail);
        }
    }
}

void tst_exchange_writer::bytes_that_are_no_text_are_written_as_text_would_be()
{
    const QByteArray pieces[] = {"a",
                                 "Amor <3>",
                                 "\xC3\xA7",
                                 "\xC3",
                                 "\xA7",
                                 "\xCC\x81",
                                 "\r",
                                 "\n",
                                 "\r\n",
                                 "\xE2\x82\xAC",
                                 "\xF0\x9F\x8E\xB5",
                                 "\xFF",
                                 "\xC0\x80",
                                 "\xEF\xBB\xBF",
                                 "<",
                                 "&",
                                 "\xC2\x9D"};
    std::minstd_rand numbers(11);
    const auto below = [&numbers](std::size_t bound) { return numbers() % bound; };
    int broken = 0;
    for (int round = 0; round < 20'000; ++round) {
        QByteArray bytes;
        for (std::size_t i = below(24); i > 0; --i)
            bytes += pieces[below(std::size(pieces))];
        StoredSong stored;
        stored.letra1 = bytes;
        stored.tom = bytes;
        ExchangeSong song;
        song.letra1 = Utf8::ToText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        song.tom = song.letra1;
        QByteArray encoded;
        ExchangeWriter::Append(encoded, stored);
        QString document;
        ExchangeWriter::Append(document, song);
        QCOMPARE(encoded, CodePage::FromUnicode(document));
        broken += song.letra1->contains(QChar(QChar::ReplacementCharacter)) ? 1 : 0;
    }
    QVERIFY2(broken > 1000, qPrintable(QString::number(broken)));
}

void tst_exchange_writer::a_file_is_named_after_the_title_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << u"Asa Branca"_qs << u"Asa_Branca.mld"_qs;
    QTest::newRow("blanks at the ends and side by side") << u" a  b "_qs << u"_a__b_.mld"_qs;
    QTest::newRow("question mark and colon")
        << u"Quem és tu? Salmo 1: 2"_qs << u"Quem_és_tu_Salmo_1_2.mld"_qs;
    QTest::newRow("all nine") << u"a|b>c<d\"e?f:g*h\\i/j"_qs << u"abcdefghij.mld"_qs;
    QTest::newRow("nothing is left") << u"?/*"_qs << u".mld"_qs;
    QTest::newRow("empty") << u""_qs << u".mld"_qs;
    QTest::newRow("other signs stay") << u"d'água & [vivo]. #1"_qs << u"d'água_&_[vivo]._#1.mld"_qs;
    QTest::newRow("letters of any kind") << u"日 🎸"_qs << u"日_🎸.mld"_qs;
    QTest::newRow("no other blank") << u"a\tb\u00a0c"_qs << u"a\tb\u00a0c.mld"_qs;
    QTest::newRow("names another folder") << u"../../x"_qs << u"....x.mld"_qs;
}

void tst_exchange_writer::a_file_is_named_after_the_title()
{
    QFETCH(QString, title);
    QFETCH(QString, name);
    QCOMPARE(ExchangeWriter::FileName(title), name);
}

QTEST_APPLESS_MAIN(tst_exchange_writer)
#include "tst_exchange_writer.moc"
