#include "ToolRun.h"
#include "mld/ExchangeReader.h"
#include "songbook/ChordProReader.h"
#include "songbook/UsualScale.h"
#include "support/GeneratedSongs.h"
#include "support/TestCatalogue.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

// Songs that leave a catalogue or an exchange file, by the real program.

namespace {

const QString Tool = QStringLiteral(MELODARIO_CONVERTE);

Outcome Convert(const QStringList& arguments, const QByteArray& input = {})
{
    return RunTool(Tool, arguments, input);
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

QStringList Names(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

/// The songs of an exchange file, each as one text.
QStringList Songs(QByteArray document)
{
    QBuffer buffer(&document);
    buffer.open(QIODevice::ReadOnly);
    const auto read = ExchangeReader::Read(buffer);
    QStringList songs;
    for (qsizetype i = 0; read && i < read->Count(); ++i) {
        const ExchangeSong song = read->At(i);
        songs += QStringList{*song.titulo,
                             *song.referencia,
                             *song.letra1,
                             *song.letra2,
                             *song.tom,
                             *song.variacao,
                             QString::number(*song.categoria),
                             song.temas.join(u';')}
                     .join(u'|');
    }
    return songs;
}

QStringList Titles(const QByteArray& document)
{
    QStringList titles;
    for (const QString& song : Songs(document))
        titles += song.section(u'|', 0, 0);
    return titles;
}

} // namespace

class tst_converte_saida : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Songbook::LoadUsualScale(); }
    void init();
    void catalogueBecomesAnExchangeFile();
    void catalogueIsNeverChanged_data();
    void catalogueIsNeverChanged();
    void setlistKeepsItsOrder();
    void setlistThatIsNotThereIsTold();
    void setlistNeedsACatalogue();
    void themesAndTitlesChoose_data();
    void themesAndTitlesChoose();
    void nothingChosenWritesNothing();
    void chordsAreTransposed();
    void versionIsChosen_data();
    void versionIsChosen();
    void textsAreOneAfterTheOther();
    void folderHasOneFileForEachSong();
    void folderOfTexts();
    void filesInAFolderAreKept();
    void songsComeBackFromChordPro_data();
    void songsComeBackFromChordPro();
    void songsComeBackFromText_data();
    void songsComeBackFromText();
    void songbookIsPrinted();
    void songbookIsTheSameEachTime();
    void pipesCarryEverything();
    void exchangeFileThatIsNoneIsToldWithItsLine();
    void lineBreakMarksAreReadInEveryText_data();
    void lineBreakMarksAreReadInEveryText();
    void faultySongsAreTold();
    void otherProgramsSongsGoToPaperToo();
    void damagedCatalogueIsTold();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    void Fill();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestCatalogue> m_catalogue;
};

void tst_converte_saida::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_catalogue = std::make_unique<TestCatalogue>();
    Fill();
}

/// Three songs, two themes, two setlists.
void tst_converte_saida::Fill()
{
    const qint64 peixe = m_catalogue->AddSong(
        {u"Peixe Vivo"_qs, u"Folclore"_qs, u"G       D7\r\nComo pode o peixe"_qs,
         u"A       E7\r\nComo pode o peixe"_qs, u"G"_qs, u""_qs, 2});
    const qint64 agua = m_catalogue->AddSong({u"Água Viva"_qs, u"Coral"_qs, u"C7b9\r\nÁgua"_qs,
                                              u"C7b9\r\nÁgua"_qs, u"Bb"_qs, u"m"_qs, 1});
    const qint64 noite =
        m_catalogue->AddSong({u"Noite"_qs, u"Coral"_qs, u"F\r\nNoite"_qs, u""_qs, u"F"_qs});
    const qint64 natal = m_catalogue->AddTheme(u"Natal"_qs);
    const qint64 louvor = m_catalogue->AddTheme(u"Adoração"_qs);
    m_catalogue->Link(noite, natal);
    m_catalogue->Link(agua, louvor);
    m_catalogue->Link(agua, natal);
    m_catalogue->AddSetlist(u"Missa"_qs, QDate(2009, 3, 5), {peixe, noite, 4711, peixe});
    m_catalogue->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 12), {agua});
}

void tst_converte_saida::catalogueBecomesAnExchangeFile()
{
    const QString target = Path(u"novo.mld"_qs);
    const Outcome outcome = Convert({m_catalogue->Path(), target});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.out, target + u": 3 música(s) de 1 arquivo(s)\n");
    const QByteArray document = Content(target);
    QCOMPARE(Songs(document),
             QStringList({u"Peixe Vivo|Folclore|G       D7[br]Como pode o peixe|A       E7[br]Como "
                          "pode o peixe|G||2|"_qs,
                          u"Água Viva|Coral|C7b9[br]Água|C7b9[br]Água|Bb|m|1|Adoração;Natal"_qs,
                          u"Noite|Coral|F[br]Noite||F||1|Natal"_qs}));
    // And from one exchange file to the other nothing changes any more.
    const QString again = Path(u"outro.mld"_qs);
    QCOMPARE(Convert({target, again}).code, 0);
    QCOMPARE(Content(again), document);
}

void tst_converte_saida::catalogueIsNeverChanged_data()
{
    QTest::addColumn<QString>("target");
    for (const char* target : {"novo.mld", "novo.txt", "novo.pdf", "novo.cho", "pasta/"})
        QTest::newRow(target) << QString::fromLatin1(target);
}

void tst_converte_saida::catalogueIsNeverChanged()
{
    QFETCH(QString, target);
    const QByteArray before = Content(m_catalogue->Path());
    QFile file(m_catalogue->Path());
    QVERIFY(file.setPermissions(QFileDevice::ReadOwner));
    QCOMPARE(Convert({m_catalogue->Path(), Path(target)}).code, 0);
    QCOMPARE(Content(m_catalogue->Path()), before);
    QCOMPARE(Names(m_catalogue->Folder()), QStringList{u"Melodario.mdb"_qs});
}

void tst_converte_saida::setlistKeepsItsOrder()
{
    const QString text = Path(u"missa.txt"_qs);
    const Outcome outcome = Convert({u"--lista"_qs, u"missa"_qs, m_catalogue->Path(), text});
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.err, m_catalogue->Path() + u": 1 música(s) da lista não existe(m) mais\n");
    const QString written = QString::fromUtf8(Content(text));
    QStringList titles;
    for (const QString& line : written.split(u"\r\n"_qs)) {
        if (line.startsWith(u"Título: "))
            titles += line.mid(8);
    }
    QCOMPARE(titles, QStringList({u"Peixe Vivo"_qs, u"Noite"_qs, u"Peixe Vivo"_qs}));
    // An exchange file brings each song once.
    const QString exchange = Path(u"missa.mld"_qs);
    QCOMPARE(Convert({u"--lista=Missa"_qs, m_catalogue->Path(), exchange}).code, 1);
    QCOMPARE(Titles(Content(exchange)), QStringList({u"Peixe Vivo"_qs, u"Noite"_qs}));
}

void tst_converte_saida::setlistThatIsNotThereIsTold()
{
    const Outcome outcome =
        Convert({u"--lista"_qs, u"Páscoa"_qs, m_catalogue->Path(), Path(u"x.pdf"_qs)});
    QCOMPARE(outcome.code, 2);
    QCOMPARE(outcome.err, m_catalogue->Path() +
                              u": não há lista \"Páscoa\"; há \"Ensaio 12/03/2009\", \"Missa "
                              "05/03/2009\"\n");
    QCOMPARE(Names(m_folder->path()), QStringList());
}

void tst_converte_saida::setlistNeedsACatalogue()
{
    const QString exchange = Path(u"a.mld"_qs);
    QCOMPARE(Convert({m_catalogue->Path(), exchange}).code, 0);
    const Outcome outcome = Convert({u"--lista=Missa"_qs, exchange, Path(u"b.pdf"_qs)});
    QCOMPARE(outcome.code, 2);
    QCOMPARE(outcome.err, u"--lista precisa de um catálogo como origem: "_qs + exchange + u'\n');
}

void tst_converte_saida::themesAndTitlesChoose_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("a theme") << QStringList{u"--tema"_qs, u"natal"_qs}
                             << QStringList{u"Água Viva"_qs, u"Noite"_qs};
    QTest::newRow("a theme without its accents")
        << QStringList{u"--tema=adoracao"_qs} << QStringList{u"Água Viva"_qs};
    QTest::newRow("a part of a title")
        << QStringList{u"--titulo=viv"_qs} << QStringList{u"Peixe Vivo"_qs, u"Água Viva"_qs};
    QTest::newRow("two titles") << QStringList{u"--titulo=agua"_qs, u"--titulo=noite"_qs}
                                << QStringList{u"Água Viva"_qs, u"Noite"_qs};
    QTest::newRow("title and theme")
        << QStringList{u"--titulo=viv"_qs, u"--tema=Natal"_qs} << QStringList{u"Água Viva"_qs};
    QTest::newRow("a setlist's songs with a theme")
        << QStringList{u"--lista=Ensaio"_qs, u"--tema=Natal"_qs} << QStringList{u"Água Viva"_qs};
}

void tst_converte_saida::themesAndTitlesChoose()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, titles);
    const QString target = Path(u"novo.mld"_qs);
    QCOMPARE(Convert(options + QStringList{m_catalogue->Path(), target}).code, 0);
    QCOMPARE(Titles(Content(target)), titles);
    if (options.first().startsWith(u"--lista"))
        return;
    // The same choice from an exchange file.
    const QString all = Path(u"tudo.mld"_qs);
    const QString chosen = Path(u"escolha.mld"_qs);
    QCOMPARE(Convert({m_catalogue->Path(), all}).code, 0);
    QCOMPARE(Convert(options + QStringList{all, chosen}).code, 0);
    QCOMPARE(Content(chosen), Content(target));
}

void tst_converte_saida::nothingChosenWritesNothing()
{
    const Outcome outcome =
        Convert({u"--tema"_qs, u"Páscoa"_qs, m_catalogue->Path(), Path(u"x.pdf"_qs)});
    QCOMPARE(outcome.code, 2);
    QCOMPARE(outcome.err, u"nenhuma música corresponde à escolha; nada foi escrito\n"_qs);
    QCOMPARE(Names(m_folder->path()), QStringList());
}

void tst_converte_saida::chordsAreTransposed()
{
    const QString target = Path(u"novo.mld"_qs);
    const Outcome outcome = Convert({u"--tom"_qs, u"+2"_qs, m_catalogue->Path(), target});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
    const QStringList songs = Songs(Content(target));
    QCOMPARE(songs.size(), 3);
    QVERIFY2(songs[0].contains(u"|A       E7[br]Como pode o peixe|B       F#7[br]"),
             qPrintable(songs[0]));
    QVERIFY(songs[0].contains(u"|A||2|"));
    QVERIFY(songs[1].contains(u"|D7(b9)[br]Água|"));
    QVERIFY(songs[1].contains(u"|C|m|1|"));
    const QString down = Path(u"baixo.mld"_qs);
    QCOMPARE(Convert({u"--tom"_qs, u"-1"_qs, m_catalogue->Path(), down}).code, 0);
    QVERIFY(Songs(Content(down))[2].contains(u"|E[br]Noite|"));
}

void tst_converte_saida::versionIsChosen_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");
    QTest::newRow("a text has what the program shows first")
        << QStringList() << u"novo.txt"_qs << false << true;
    QTest::newRow("a text of the first")
        << QStringList{u"--versao=1"_qs} << u"novo.txt"_qs << true << false;
    QTest::newRow("an exchange file has both") << QStringList() << u"novo.mld"_qs << true << true;
    QTest::newRow("an exchange file of the first")
        << QStringList{u"--versao=1"_qs} << u"novo.mld"_qs << true << false;
    QTest::newRow("ChordPro of both") << QStringList() << u"novo.cho"_qs << true << true;
    QTest::newRow("ChordPro of the second")
        << QStringList{u"--versao=2"_qs} << u"novo.cho"_qs << false << true;
}

void tst_converte_saida::versionIsChosen()
{
    QFETCH(QStringList, options);
    QFETCH(QString, target);
    QFETCH(bool, first);
    QFETCH(bool, second);
    QCOMPARE(Convert(options + QStringList{m_catalogue->Path(), Path(target)}).code, 0);
    const QString written = QString::fromUtf8(Content(Path(target)));
    QCOMPARE(written.contains(u"D7"), first);
    QCOMPARE(written.contains(u"E7"), second);
    // The third song has no second text: what is printed then is the first.
    QVERIFY(written.contains(u"Noite\r\n") || written.contains(u"F[br]Noite") ||
            written.contains(u"[F]Noite"));
}

void tst_converte_saida::textsAreOneAfterTheOther()
{
    const QString target = Path(u"novo.txt"_qs);
    QCOMPARE(Convert({m_catalogue->Path(), target}).code, 0);
    const QString apart = u"\r\n"_qs + QString(72, u'=') + u"\r\n\r\n";
    QCOMPARE(QString::fromUtf8(Content(target)),
             u"Título: Água Viva\r\nReferência: Coral\r\nTom: Bbm\r\nCategoria: Religiosa\r\n"
             "Temas: Adoração; Natal\r\n\r\nC7b9\r\nÁgua\r\n"_qs +
                 apart +
                 u"Título: Noite\r\nReferência: Coral\r\nTom: F\r\nCategoria: Religiosa\r\n"
                 "Temas: Natal\r\n\r\nF\r\nNoite\r\n" +
                 apart +
                 u"Título: Peixe Vivo\r\nReferência: Folclore\r\nTom: G\r\nCategoria: Secular\r\n"
                 "\r\nA       E7\r\nComo pode o peixe\r\n");
}

void tst_converte_saida::folderHasOneFileForEachSong()
{
    m_catalogue->AddSong({u"NOITE"_qs});
    m_catalogue->AddSong({u"../fora"_qs});
    const QString folder = Path(u"pasta/nova/"_qs);
    const Outcome outcome = Convert({m_catalogue->Path(), folder});
    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.out, folder + u": 5 música(s) de 1 arquivo(s)\n");
    QCOMPARE(Names(folder), QStringList({u"NOITE (2).cho"_qs, u"Noite.cho"_qs, u"Peixe Vivo.cho"_qs,
                                         u"fora.cho"_qs, u"Água Viva.cho"_qs}));
    QVERIFY(
        Content(folder + u"Noite.cho").startsWith("{title: Noite}\n{artist: Coral}\n{key: F}\n"));
}

void tst_converte_saida::folderOfTexts()
{
    const QString folder = Path(u"pasta/"_qs);
    QCOMPARE(Convert({u"--formato"_qs, u"txt"_qs, m_catalogue->Path(), folder}).code, 0);
    QCOMPARE(Names(folder),
             QStringList({u"Noite.txt"_qs, u"Peixe Vivo.txt"_qs, u"Água Viva.txt"_qs}));
    QVERIFY(QString::fromUtf8(Content(folder + u"Noite.txt")).endsWith(u"\r\n\r\nF\r\nNoite\r\n"));
}

void tst_converte_saida::filesInAFolderAreKept()
{
    const QString folder = Path(u"pasta/"_qs);
    QVERIFY(QDir().mkpath(folder));
    QFile mine(folder + u"Noite.cho");
    QVERIFY(mine.open(QIODevice::WriteOnly) && mine.write("minha") == 5);
    mine.close();
    const Outcome refused = Convert({m_catalogue->Path(), folder});
    QCOMPARE(refused.code, 2);
    QCOMPARE(refused.err, folder + u"Noite.cho: o arquivo já existe; --force o substitui\n");
    QCOMPARE(Names(folder), QStringList{u"Noite.cho"_qs});
    QCOMPARE(Content(folder + u"Noite.cho"), QByteArray("minha"));
    QCOMPARE(Convert({u"--simular"_qs, u"--force"_qs, m_catalogue->Path(), folder}).code, 0);
    QCOMPARE(Content(folder + u"Noite.cho"), QByteArray("minha"));
    QCOMPARE(Convert({u"--force"_qs, m_catalogue->Path(), folder}).code, 0);
    QCOMPARE(Names(folder).size(), 3);
    // A folder of one song is a folder, too.
    const QString single = Path(u"uma/so/"_qs);
    QCOMPARE(Convert({u"--titulo=noite"_qs, m_catalogue->Path(), single}).code, 0);
    QCOMPARE(Names(single), QStringList{u"Noite.cho"_qs});
    // A file stands where the folder should be.
    QCOMPARE(Convert({m_catalogue->Path(), single + u"Noite.cho/"}).code, 2);
    // Without its slash it could be meant for a file.
    QCOMPARE(Convert({m_catalogue->Path(), Path(u"pasta"_qs)}).code, 2);
}

void tst_converte_saida::songsComeBackFromChordPro_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("from a folder") << u"pasta/"_qs;
    QTest::newRow("from one file") << u"tudo.cho"_qs;
}

void tst_converte_saida::songsComeBackFromChordPro()
{
    QFETCH(QString, target);
    SongGenerator generator(9);
    for (int i = 0; i < 150; ++i) {
        const GeneratedSong song = generator.Next();
        m_catalogue->AddSong({song.title, song.reference, song.text,
                              i % 3 == 0 ? u"C\r\nOutra"_qs : song.text, song.key, song.variation,
                              song.category});
    }
    const QString before = Path(u"antes.mld"_qs);
    const QString after = Path(u"depois.mld"_qs);
    QCOMPARE(Convert({m_catalogue->Path(), before}).code, 0);
    QCOMPARE(Convert({m_catalogue->Path(), Path(target)}).code, 0);
    const Outcome back = Convert({Path(target), after});
    QCOMPARE(back.err, QString());
    QCOMPARE(back.code, 0);
    QStringList songs = Songs(Content(before));
    QStringList songsBack = Songs(Content(after));
    songs.sort();
    songsBack.sort();
    QCOMPARE(songsBack.size(), 153);
    QCOMPARE(songsBack, songs);
}

void tst_converte_saida::songsComeBackFromText_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("one text") << u"tudo.txt"_qs << QStringList();
    QTest::newRow("a folder of texts") << u"textos/"_qs << QStringList{u"--formato"_qs, u"txt"_qs};
}

/// Of each song one version, which comes back as both.
void tst_converte_saida::songsComeBackFromText()
{
    QFETCH(QString, target);
    QFETCH(QStringList, options);
    m_catalogue->AddSong({u"[G] {c}"_qs, u"Tom: A"_qs,
                          u"C7b9  Bb7M\r\n    Refrão\r\n\r\n[A]b\r\n"_qs,
                          u"C7b9  Bb7M\r\n    Refrão\r\n\r\n[A]b\r\n"_qs, u"Bb"_qs, u"m"_qs, 2});
    m_catalogue->AddSong({u"Vazia"_qs, u""_qs, u""_qs, u""_qs, u"D#"_qs, u""_qs, 1});
    const QString direct = Path(u"direto.mld"_qs);
    QCOMPARE(Convert({u"--versao=2"_qs, m_catalogue->Path(), direct}).code, 0);
    const QString text = Path(target);
    QCOMPARE(Convert(options + QStringList{m_catalogue->Path(), text}).code, 0);
    const QString back = Path(u"volta.mld"_qs);
    const Outcome outcome = Convert({text, back});
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.code, 0);
    QStringList wanted = Songs(Content(direct));
    QStringList found = Songs(Content(back));
    QCOMPARE(found.size(), 5);
    wanted.sort();
    found.sort();
    QCOMPARE(found, wanted);
}

void tst_converte_saida::songbookIsPrinted()
{
    const QString target = Path(u"missa.pdf"_qs);
    const Outcome outcome =
        Convert({u"--lista=Missa"_qs, u"--tom=+2"_qs, m_catalogue->Path(), target});
    QCOMPARE(outcome.code, 1);
    const Outcome read = RunTool(u"pdftotext"_qs, {u"-layout"_qs, target, u"-"_qs});
    QCOMPARE(read.code, 0);
    const QStringList pages = read.out.split(u'\f');
    QCOMPARE(pages.size(), 5); // contents, three songs, and nothing behind the last
    QVERIFY2(pages[0].contains(u"Missa\n05/03/2009 · 3 músicas\n"), qPrintable(pages[0]));
    QVERIFY2(pages[1].contains(u"Peixe Vivo") && pages[1].contains(u"Tom: A"),
             qPrintable(pages[1]));
    QVERIFY(pages[1].contains(u"B       F#7\n"_qs) || pages[1].contains(u"F#7"));
    QVERIFY(pages[2].contains(u"Noite"));
    QVERIFY(pages[3].contains(u"Peixe Vivo"));
    const QString phone = Path(u"fone.pdf"_qs);
    QCOMPARE(Convert({u"--papel"_qs, u"telefone"_qs, m_catalogue->Path(), phone}).code, 0);
    QVERIFY(RunTool(u"pdfinfo"_qs, {phone}).out.contains(u"Page size:       21"));
}

void tst_converte_saida::songbookIsTheSameEachTime()
{
    QCOMPARE(Convert({m_catalogue->Path(), Path(u"a.pdf"_qs)}).code, 0);
    QCOMPARE(Convert({m_catalogue->Path(), Path(u"b.pdf"_qs)}).code, 0);
    QCOMPARE(Content(Path(u"b.pdf"_qs)), Content(Path(u"a.pdf"_qs)));
    QVERIFY(Content(Path(u"a.pdf"_qs)).startsWith("%PDF-"));
}

void tst_converte_saida::pipesCarryEverything()
{
    const Outcome exchange = Convert({u"-"_qs, u"-"_qs}, Content(m_catalogue->Path()));
    QCOMPARE(exchange.code, 0);
    QCOMPARE(Songs(exchange.raw).size(), 3);
    QCOMPARE(exchange.err, u"-: 3 música(s) de 1 arquivo(s)\n"_qs);
    const Outcome text = Convert({u"--formato=txt"_qs, u"-"_qs, u"-"_qs}, exchange.raw);
    QCOMPARE(text.code, 0);
    QVERIFY(text.out.startsWith(u"Título: Água Viva\r\n"));
    const Outcome chordPro = Convert({u"--formato=cho"_qs, u"-"_qs, u"-"_qs}, exchange.raw);
    QCOMPARE(chordPro.code, 0);
    QCOMPARE(Songbook::ReadChordPro(chordPro.out, {}).songs.size(), 3);
    const Outcome pdf = Convert({u"--formato=pdf"_qs, u"-"_qs, u"-"_qs}, exchange.raw);
    QCOMPARE(pdf.code, 0);
    QVERIFY(pdf.raw.startsWith("%PDF-") && pdf.raw.endsWith("%%EOF\n"));
}

void tst_converte_saida::exchangeFileThatIsNoneIsToldWithItsLine()
{
    const QString broken = Path(u"a.mld"_qs);
    QFile file(broken);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<musicas>\n<musica>\n<titulo>Tom & Jerry</titulo>\n</musica></musicas>");
    file.close();
    const Outcome outcome = Convert({broken, Path(u"b.txt"_qs)});
    QCOMPARE(outcome.code, 2);
    QCOMPARE(outcome.err, broken + u":3: não lido: não é um arquivo do Melodario bem formado\n" +
                              u"nenhuma música encontrada; nada foi escrito\n");
}

void tst_converte_saida::lineBreakMarksAreReadInEveryText_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("part");
    QTest::newRow("an exchange file")
        << u"b.mld"_qs << u"<titulo>Luz[br]Mar</titulo>\r\n       <referencia>Ana[br]Zé<"_qs;
    QTest::newRow("a text") << u"b.txt"_qs << u"Título: Luz Mar\r\nReferência: Ana Zé\r\n"_qs;
    QTest::newRow("a text's themes") << u"b.txt"_qs << u"Temas: Paz Bem\r\n"_qs;
    QTest::newRow("a song for others") << u"b.cho"_qs << u"{title: Luz Mar}\n{artist: Ana Zé}\n"_qs;
}

void tst_converte_saida::lineBreakMarksAreReadInEveryText()
{
    QFETCH(QString, target);
    QFETCH(QString, part);
    QFile file(Path(u"a.mld"_qs));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<m><s><titulo>Luz[br]Mar</titulo><referencia>Ana[br]Z\xC3\xA9</referencia>"
               "<letra1>C[br]La</letra1><letra2/><tom>C</tom><variacao/><categoria>1</categoria>"
               "<temas><d>Paz[br]Bem</d></temas></s></m>");
    file.close();
    const Outcome outcome = Convert({file.fileName(), Path(target)});
    QCOMPARE(outcome.err, QString());
    const QByteArray written = Content(Path(target));
    const bool isUtf8 = !target.endsWith(u".mld");
    const QByteArray expected = isUtf8 ? part.toUtf8() : part.toLatin1();
    QVERIFY2(written.contains(expected), written.constData());
}

void tst_converte_saida::faultySongsAreTold()
{
    const QString source = Path(u"a.mld"_qs);
    QCOMPARE(Convert({m_catalogue->Path(), source}).code, 0);
    QByteArray document = Content(source);
    document.replace("<categoria>2<", "<categoria>duas<");
    const Outcome outcome = Convert({u"-"_qs, Path(u"b.txt"_qs)}, document);
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.err, u"(entrada): \"Peixe Vivo\": a música 1 ficou para trás: a categoria não "
                          "é um número\n"_qs);
}

void tst_converte_saida::otherProgramsSongsGoToPaperToo()
{
    const Outcome outcome = Convert({u"--formato=txt"_qs, u"--tom=2"_qs, u"-"_qs, u"-"_qs},
                                    "{title: Luar}\n{key: C}\n[C]Lá [G7]lá\n");
    QCOMPARE(outcome.code, 0);
    QVERIFY2(outcome.out.contains(u"Tom: D\r\n") && outcome.out.endsWith(u"D  A7\r\nLá lá\r\n"),
             qPrintable(outcome.out));
}

void tst_converte_saida::damagedCatalogueIsTold()
{
    QFile file(m_catalogue->Path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.resize(file.size() - 20'000));
    file.close();
    const Outcome outcome = Convert({m_catalogue->Path(), Path(u"b.txt"_qs)});
    QCOMPARE(outcome.code, 2);
    QVERIFY2(outcome.err.startsWith(QString(m_catalogue->Path() +
                                            u": não lido: O arquivo do banco de dados está "
                                            "danificado.\n")),
             qPrintable(outcome.err));
    QCOMPARE(Names(m_folder->path()), QStringList());
}

QTEST_GUILESS_MAIN(tst_converte_saida)
#include "tst_converte_saida.moc"
