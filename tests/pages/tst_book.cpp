#include "pages/BookWriter.h"
#include "songbook/UsualScale.h"

#include <QFile>
#include <QHashSeed>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Pages;

/// A printed book as another program finds it: its pages, the words on them and where they stand.
class tst_book : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Songbook::LoadUsualScale(); }
    void init();
    void contentsTellThePageOfEachSong();
    void contentsOfManySongsTakeSeveralPages();
    void singleSongNeedsNoContents();
    void chordsStandOverTheirSyllables_data();
    void chordsStandOverTheirSyllables();
    void chordsAreBlue();
    void songThatFitsIsOnOnePage();
    void longSongGoesOnUnderItsName();
    void longTitlesAreWhole();
    void telephonePagesAreSmall();
    void linksAndBookmarksLeadToTheSongs();
    void sameBookMakesTheSameBytes();
    void oddTextsArePrinted();

private:
    QString Put(const Book& book, Paper paper = Paper::A4) const;
    static QString Run(const QString& program, const QStringList& arguments);
    static QString TextOf(const QString& pdf, int page);
    static int PagesOf(const QString& pdf);

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

BookSong Song(const QString& title, const QString& text)
{
    return {title, u"Folclore"_qs, u"Am"_qs, text};
}

const QString& Short()
{
    static const QString text = u"    Refrão\r\nAm      E7\r\nComo pode o peixe vivo"_qs;
    return text;
}

Book BookOf(const QList<BookSong>& songs)
{
    return {u"Missa das Dez"_qs, u"05/03/2009 · %1 músicas"_qs.arg(songs.size()), songs};
}

QString Strophes(int count)
{
    QStringList strophes;
    for (int i = 1; i <= count; ++i)
        strophes +=
            u"    %1ª estrofe\r\nC       G7\r\nComo pode o peixe\r\nAm\r\nviver\r\nF   C\r\n"
            "fora da água?"_qs.arg(i);
    return strophes.join(u"\r\n\r\n");
}

/// A word on a page, in points.
struct SeenWord
{
    QString text;
    double left = 0;
    double top = 0;
};

} // namespace

void tst_book::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

QString tst_book::Put(const Book& book, Paper paper) const
{
    const QString path = m_folder->filePath(u"livro.pdf"_qs);
    const QByteArray bytes = WriteBook(book, paper, {});
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path : QString();
}

/// @return what it prints; fails the test when it complains
QString tst_book::Run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool ran = process.waitForFinished(120'000) && process.exitCode() == 0;
    const QByteArray complaint = process.readAllStandardError();
    if (!ran || !complaint.isEmpty()) {
        QTest::qFail(qPrintable(program + u": " + QString::fromUtf8(complaint)), __FILE__,
                     __LINE__);
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString tst_book::TextOf(const QString& pdf, int page)
{
    const QString number = QString::number(page);
    return Run(u"pdftotext"_qs, {u"-layout"_qs, u"-f"_qs, number, u"-l"_qs, number, pdf, u"-"_qs});
}

int tst_book::PagesOf(const QString& pdf)
{
    static const QRegularExpression line(u"^Pages:\\s+(\\d+)$"_qs,
                                         QRegularExpression::MultilineOption);
    return line.match(Run(u"pdfinfo"_qs, {pdf})).captured(1).toInt();
}

void tst_book::contentsTellThePageOfEachSong()
{
    const QString pdf =
        Put(BookOf({Song(u"Peixe Vivo"_qs, Short()), Song(u"Longa"_qs, Strophes(20)),
                    Song(u"Água Viva"_qs, Short())}));
    QCOMPARE(PagesOf(pdf), 5);
    const QString contents = TextOf(pdf, 1);
    QVERIFY2(contents.contains(u"Missa das Dez\n05/03/2009 · 3 músicas\n"), qPrintable(contents));
    QVERIFY(contents.contains(u"Índice"));
    static const QStringList lines = {u"Peixe Vivo\\s+Folclore\\s+Am\\s+2\n"_qs,
                                      u"Longa\\s+Folclore\\s+Am\\s+3\n"_qs,
                                      u"Água Viva\\s+Folclore\\s+Am\\s+5\n"_qs};
    for (const QString& line : lines)
        QVERIFY2(contents.contains(QRegularExpression(line)), qPrintable(contents));
    for (const auto& [page, title] : {std::pair(2, u"Peixe Vivo"_qs), std::pair(3, u"Longa"_qs),
                                      std::pair(5, u"Água Viva"_qs)}) {
        const QString text = TextOf(pdf, page);
        QVERIFY2(
            text.contains(QRegularExpression(u"^\\s*%1\\s+Tom: Am\n\\s*Folclore\n"_qs.arg(title))),
            qPrintable(text));
        QVERIFY(text.contains(QRegularExpression(u"Missa das Dez\\s+%1\\s*$"_qs.arg(page))));
    }
}

void tst_book::contentsOfManySongsTakeSeveralPages()
{
    QList<BookSong> songs;
    for (int i = 1; i <= 100; ++i)
        songs += Song(u"Música %1"_qs.arg(i), Short());
    const QString pdf = Put(BookOf(songs));
    const int contents = PagesOf(pdf) - 100;
    QCOMPARE(contents, 3);
    QString all;
    for (int page = 1; page <= contents; ++page)
        all += TextOf(pdf, page);
    for (int i = 1; i <= 100; ++i)
        QVERIFY(all.contains(QRegularExpression(
            u"Música %1\\s+Folclore\\s+Am\\s+%2\n"_qs.arg(i).arg(i + contents))));
    QVERIFY(TextOf(pdf, 100 + contents).contains(u"Música 100"));
}

void tst_book::singleSongNeedsNoContents()
{
    const QString pdf = Put(BookOf({Song(u"Peixe Vivo"_qs, Short())}));
    QCOMPARE(PagesOf(pdf), 1);
    const QString text = TextOf(pdf, 1);
    QVERIFY(!text.contains(u"Índice"));
    QVERIFY2(
        text.contains(QRegularExpression(u"REFRÃO\n\\s*Am\\s+E7\n\\s*Como pode o peixe vivo\n"_qs)),
        qPrintable(text));
}

void tst_book::chordsStandOverTheirSyllables_data()
{
    QTest::addColumn<Paper>("paper");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("chords");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("on A4") << Paper::A4
                           << u"Am   E7   D/F#  G7(b9)\r\nComo pode peixe viver fora"_qs
                           << QStringList{u"Am"_qs, u"E7"_qs, u"D/F#"_qs, u"G7(b9)"_qs}
                           << QStringList{u"Como"_qs, u"pode"_qs, u"peixe"_qs, u"viver"_qs};
    QTest::newRow("behind letters of other types")
        << Paper::A4 << u"C G7\r\n\u266B Lá"_qs << QStringList{u"C"_qs, u"G7"_qs}
        << QStringList{u"\u266B"_qs, u"Lá"_qs};
    QTest::newRow("on a telephone") << Paper::Phone << u"Am   E7   Dm\r\nComo pode peixe"_qs
                                    << QStringList{u"Am"_qs, u"E7"_qs, u"Dm"_qs}
                                    << QStringList{u"Como"_qs, u"pode"_qs, u"peixe"_qs};
    QTest::newRow("in a line that is cut")
        << Paper::Phone
        << u"Am   E7   Dm    G7    F      C      Bb  A7\r\n"
           "Como pode peixe viver sempre longe, meu riacho escondido"_qs
        << QStringList{u"Am"_qs, u"Dm"_qs, u"F"_qs, u"C"_qs, u"A7"_qs}
        << QStringList{u"Como"_qs, u"peixe"_qs, u"sempre"_qs, u"longe,"_qs, u"riacho"_qs};
}

void tst_book::chordsStandOverTheirSyllables()
{
    QFETCH(Paper, paper);
    QFETCH(QString, text);
    QFETCH(QStringList, chords);
    QFETCH(QStringList, words);
    const QString pdf = Put(BookOf({{u"Título"_qs, u"Autor"_qs, QString(), text}}), paper);
    static const QRegularExpression word(
        u"<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>([^<]*)</word>"_qs);
    QList<SeenWord> seen;
    const QString page = Run(u"pdftotext"_qs, {u"-bbox"_qs, pdf, u"-"_qs});
    for (auto found = word.globalMatch(page); found.hasNext();) {
        const auto match = found.next();
        seen.append(
            {match.captured(3), match.captured(1).toDouble(), match.captured(2).toDouble()});
    }
    const auto find = [&seen](const QString& wanted) {
        for (const SeenWord& found : seen) {
            if (found.text == wanted)
                return found;
        }
        return SeenWord{u"<missing>"_qs};
    };
    for (qsizetype i = 0; i < chords.size(); ++i) {
        const SeenWord chord = find(chords[i]);
        const SeenWord syllable = find(words[i]);
        QCOMPARE(chord.text, chords[i]);
        QCOMPARE(syllable.text, words[i]);
        QVERIFY2(qAbs(chord.left - syllable.left) < 1.0,
                 qPrintable(u"%1: %2, %3: %4"_qs.arg(chord.text)
                                .arg(chord.left)
                                .arg(syllable.text)
                                .arg(syllable.left)));
        QVERIFY(chord.top < syllable.top && syllable.top - chord.top < 20);
    }
}

void tst_book::chordsAreBlue()
{
    const QString pdf = Put(BookOf({Song(u"Peixe"_qs, u"Am E7\r\nComo pode"_qs)}));
    const QString picture = m_folder->filePath(u"pagina"_qs);
    Run(u"pdftoppm"_qs, {u"-r"_qs, u"150"_qs, u"-png"_qs, u"-singlefile"_qs, pdf, picture});
    const QImage page(picture + u".png");
    QVERIFY(!page.isNull());
    int blue = 0;
    int dark = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QColor colour = page.pixelColor(x, y);
            blue += colour == QColor(0, 102, 204) ? 1 : 0;
            dark += colour.lightness() < 40 ? 1 : 0;
        }
    }
    QVERIFY2(blue > 500, qPrintable(QString::number(blue)));
    QVERIFY2(dark > 500, qPrintable(QString::number(dark)));
}

void tst_book::songThatFitsIsOnOnePage()
{
    // Eight strophes need more than one column of one page.
    const QString pdf = Put(BookOf({Song(u"Oito"_qs, Strophes(8))}));
    QCOMPARE(PagesOf(pdf), 1);
    const QString text = TextOf(pdf, 1);
    for (int i = 1; i <= 8; ++i)
        QVERIFY(text.contains(u"%1ª ESTROFE"_qs.arg(i)));
    QVERIFY2(text.contains(QRegularExpression(u"1ª ESTROFE +\\dª ESTROFE"_qs)), qPrintable(text));
}

void tst_book::longSongGoesOnUnderItsName()
{
    const QString pdf = Put(BookOf({Song(u"Longa"_qs, Strophes(60))}));
    const int pages = PagesOf(pdf);
    QVERIFY(pages > 2);
    QString all;
    for (int page = 1; page <= pages; ++page) {
        const QString text = TextOf(pdf, page);
        QVERIFY(text.trimmed().startsWith(u"Longa"));
        QCOMPARE(text.contains(u"continuação"), page > 1);
        all += text;
    }
    for (int i = 1; i <= 60; ++i)
        QCOMPARE(all.count(QRegularExpression(u"(?<!\\d)%1ª ESTROFE"_qs.arg(i))), 1);
}

void tst_book::longTitlesAreWhole()
{
    const QString title = u"Um título tão comprido que nenhuma folha de papel deste mundo o leva "
                          "numa linha só, por menor que seja a letra"_qs;
    for (const Paper paper : {Paper::A4, Paper::Phone}) {
        const QString pdf = Put(BookOf({Song(title, Short())}), paper);
        QString text = TextOf(pdf, 1);
        text.remove(u"Tom: Am"_qs);
        QVERIFY2(text.simplified().startsWith(title), qPrintable(text));
        QVERIFY(text.contains(u"Como pode o peixe vivo"));
    }
}

void tst_book::telephonePagesAreSmall()
{
    const QString pdf = Put(BookOf({Song(u"Peixe"_qs, Short())}), Paper::Phone);
    static const QRegularExpression size(u"Page size:\\s+([\\d.]+) x ([\\d.]+) pts"_qs);
    const auto match = size.match(Run(u"pdfinfo"_qs, {pdf}));
    QVERIFY(match.hasMatch());
    QVERIFY(match.captured(1).toDouble() < 220);
    QVERIFY(match.captured(2).toDouble() > 2 * match.captured(1).toDouble());
    QVERIFY(Run(u"pdfinfo"_qs, {Put(BookOf({Song(u"Peixe"_qs, Short())}))}).contains(u"(A4)"));
}

void tst_book::linksAndBookmarksLeadToTheSongs()
{
    const QString pdf =
        Put(BookOf({Song(u"Peixe Vivo"_qs, Short()), Song(u"Longa"_qs, Strophes(20)),
                    Song(u"Água (Viva)"_qs, Short())}));
    const QString places = Run(u"pdfinfo"_qs, {u"-dests"_qs, pdf});
    QVERIFY(!places.isNull());
    QFile file(pdf);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QCOMPARE(bytes.count("/Subtype /Link"), 3);
    QVERIFY(bytes.contains("/PageMode /UseOutlines"));
    // The format's other programs show them; here it is enough that one reads the outline.
    const QString html = Run(u"pdftohtml"_qs, {u"-xml"_qs, u"-stdout"_qs, u"-i"_qs, pdf});
    QVERIFY2(html.contains(u"<item page=\"2\">Peixe Vivo</item>"), qPrintable(html.right(600)));
    QVERIFY(html.contains(u"<item page=\"3\">Longa</item>"));
    QVERIFY(html.contains(u"<item page=\"5\">Água (Viva)</item>"));
    for (const QString& link : {u"#2\""_qs, u"#3\""_qs, u"#5\""_qs})
        QVERIFY2(html.contains(link), qPrintable(html.left(3000)));
}

void tst_book::sameBookMakesTheSameBytes()
{
    const Book book = BookOf({Song(u"A"_qs, Short()), Song(u"B"_qs, Strophes(20))});
    const QByteArray first = WriteBook(book, Paper::A4, {});
    QCOMPARE(WriteBook(book, Paper::A4, {}), first);
    QVERIFY(!first.contains("CreationDate"));
}

void tst_book::oddTextsArePrinted()
{
    const QString pdf = Put(BookOf(
        {Song(u""_qs, u""_qs),
         Song(u"<b>\\(x)</b>"_qs, u"\r\n\r\n"_qs),
         Song(u"\u266B \U0001F3B8"_qs, u"\U0001F3B8 \u6C34 e\u0301\r\n"_qs + QString(3000, u'x')),
         {u"Sem tom"_qs, QString(), QString(), Short()}}));
    QCOMPARE(PagesOf(pdf), 5);
    QVERIFY(TextOf(pdf, 3).contains(u"<b>\\(x)</b>"));
    QVERIFY(!TextOf(pdf, 5).contains(u"Tom:"));
    int letters = 0;
    for (const QChar sign : TextOf(pdf, 4))
        letters += sign == u'x' ? 1 : 0;
    QCOMPARE(letters, 3000);
}

int main(int argc, char** argv)
{
    QHashSeed::setDeterministicGlobalSeed();
    QGuiApplication application(argc, argv);
    tst_book test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_book.moc"
