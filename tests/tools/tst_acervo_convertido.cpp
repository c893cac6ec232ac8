#include "ToolRun.h"
#include "controls/Dialogs.h"
#include "exchange/Importa_Musicas.h"
#include "exchange/ServicosImportacao.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <array>
#include <memory>

// What a musician with a folder of 2,000 ChordPro files does: converts it once and imports what
// came. The songs are invented together with the rows that must lie in the catalogue in the end.

namespace {

constexpr int Files = 2000;

constexpr std::array Words = {u"coração",  u"terra",  u"vento",   u"manhã",  u"estrela",
                              u"caminho",  u"sertão", u"saudade", u"canção", u"madrugada",
                              u"porteira", u"bênção", u"chuva",   u"flores", u"janela",
                              u"violão",   u"irmãos", u"paixão"};
constexpr std::array Chords = {u"C", u"Am", u"F",   u"G7",   u"Dm7",
                               u"E", u"Bb", u"F#m", u"D/F#", u"Bm"};
constexpr std::array Keys = {u"C", u"D", u"E", u"F", u"G", u"A", u"B"};
constexpr std::array Themes = {u"Natal", u"Páscoa", u"São João", u"Comunhão", u"Ofertório"};
constexpr std::array Parts = {std::pair{u"chorus", u"Refrão"}, std::pair{u"bridge", u"Ponte"},
                              std::pair{u"coda", u"Coda"}};

/// One song as its file and as its rows.
struct Invented
{
    QString file; ///< ChordPro, LF
    QString title;
    QString artist;
    QString text; ///< as the program stores it
    QString key;
    QString variation;
    QStringList themes;
};

class Inventor
{
public:
    Invented Next(int number);

private:
    int Below(int below);
    template <typename Pieces>
    QString Any(const Pieces& pieces)
    {
        return QString::fromUtf16(
            pieces[static_cast<std::size_t>(Below(static_cast<int>(pieces.size())))]);
    }
    void AddLine(Invented& song, QStringList& rows);
    void AddPart(Invented& song, QStringList& rows);

    std::uint64_t m_state = 2000;
};

int Inventor::Below(int below)
{
    m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((m_state >> 33U) % static_cast<std::uint64_t>(below));
}

/// Every word is longer than any chord, so no lyric is pushed.
void Inventor::AddLine(Invented& song, QStringList& rows)
{
    QString chords;
    QString lyric;
    const int words = 3 + Below(4);
    const bool withChords = Below(5) > 0;
    for (int i = 0; i < words; ++i) {
        if (i > 0) {
            lyric += u' ';
            song.file += u' ';
        }
        if (withChords && (i == 0 || Below(2) == 0)) {
            const QString chord = Any(Chords);
            chords = chords.leftJustified(lyric.size()) + chord;
            song.file += u'[' + chord + u']';
        }
        const QString word = Any(Words);
        lyric += word;
        song.file += word;
    }
    song.file += u'\n';
    if (!chords.isEmpty())
        rows += chords;
    rows += lyric;
}

void Inventor::AddPart(Invented& song, QStringList& rows)
{
    const int part = Below(5);
    const bool labelled = part < int{Parts.size()};
    if (!rows.isEmpty()) {
        song.file += u'\n';
        rows += QString();
    }
    QString name;
    if (labelled) {
        name = QString::fromUtf16(Parts[static_cast<std::size_t>(part)].first);
        song.file += u"{start_of_" + name + u"}\n";
        rows += u"    " + QString::fromUtf16(Parts[static_cast<std::size_t>(part)].second);
    }
    const int lines = 2 + Below(4);
    for (int i = 0; i < lines; ++i)
        AddLine(song, rows);
    if (labelled)
        song.file += u"{end_of_" + name + u"}\n";
}

Invented Inventor::Next(int number)
{
    Invented song;
    song.title = Any(Words) + u' ' + Any(Words) + u' ' + QString::number(number);
    song.artist = u"Trio " + Any(Words);
    song.key = Any(Keys);
    song.variation = Below(3) == 0 ? u"m"_qs : u""_qs;
    song.file = u"# " + QString::number(number) + u"\n{title: " + song.title + u"}\n{artist: " +
                song.artist + u"}\n{key: " + song.key + song.variation + u"}\n";
    const int first = Below(int{Themes.size()});
    const int themes = Below(3);
    for (int i = 0; i < themes; ++i) {
        song.themes += QString::fromUtf16(
            Themes[static_cast<std::size_t>(first + i) % std::size_t{Themes.size()}]);
        song.file += u"{tag: " + song.themes.last() + u"}\n";
    }
    song.file += u'\n';
    QStringList rows;
    const int parts = 2 + Below(4);
    for (int i = 0; i < parts; ++i)
        AddPart(song, rows);
    song.text = rows.join(u"\r\n"_qs);
    return song;
}

/// A row as the test compares it.
QString Told(const Invented& song)
{
    QStringList themes = song.themes.isEmpty() ? QStringList{u"Sem Tema"_qs} : song.themes;
    themes.sort();
    return QStringList{song.title, song.artist,    song.text, song.text,
                       song.key,   song.variation, u"1"_qs,   themes.join(u';')}
        .join(u'|');
}

/// Takes every box as read, and keeps what it said.
class KeptBoxes final : public Dialogs
{
public:
    KeptBoxes() { SetDialogs(this); }
    ~KeptBoxes() override { SetDialogs(nullptr); }
    KeptBoxes(const KeptBoxes&) = delete;
    KeptBoxes& operator=(const KeptBoxes&) = delete;
    void Message(QWidget*, const QString& text, Icone icon, const QString&) override
    {
        said += text;
        wellOnly = wellOnly && icon == Icone::Informacao;
    }
    bool Question(QWidget*, const QString& text, const QString&) override
    {
        said += text;
        wellOnly = false;
        return true;
    }
    QString Input(QWidget*, const QString&, const QString&, const QString& initial,
                  std::optional<QPoint>) override
    {
        wellOnly = false;
        return initial;
    }

    QStringList said;
    bool wellOnly = true;
};

class NoPanels final : public ServicosImportacao
{
    void Preenche_Temas() override {}
    void Pesquisa() override {}
};

/// @return title, reference, both texts, key, variation, category and themes of each song
QStringList Stored(const TestCatalogue& catalogue)
{
    QHash<QString, QStringList> themes;
    for (const QStringList& link :
         catalogue.Rows(u"SELECT ID_MUSICA, DESCRICAO FROM TEMA_MUSICA JOIN TEMA ON TEMA.ID = "
                        "ID_TEMA"_qs))
        themes[link[0]] += link[1];
    QStringList rows;
    for (QStringList row :
         catalogue.Rows(u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA "
                        "FROM MUSICA ORDER BY ID"_qs)) {
        QStringList named = themes.value(row.takeFirst());
        named.sort();
        row += named.join(u';');
        rows += row.join(u'|');
    }
    return rows;
}

} // namespace

class tst_acervo_convertido : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyFileIsConverted();
    void oddFilesAreTold() const;
    void everySongIsInTheCatalogue();

private:
    void Write(const QString& name, const QByteArray& bytes);
    void WriteOddFiles();

    QTemporaryDir m_folder;
    QStringList m_expected; ///< what Told gives, in the order of the files' names
    Outcome m_converted;
    QString m_exchange;
};

void tst_acervo_convertido::Write(const QString& name, const QByteArray& bytes)
{
    const QString path = m_folder.filePath(u"acervo/"_qs + name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// Eleven files beside the folders: five are songs (one of them two), the others are not.
void tst_acervo_convertido::WriteOddFiles()
{
    Inventor inventor;
    Invented song = inventor.Next(100'001);
    Write(u"z1-janelas.cho"_qs, song.file.toLatin1());
    m_expected += Told(song);
    song = inventor.Next(100'002);
    Write(u"z2-marca.pro"_qs,
          "\xEF\xBB\xBF" + QString(song.file).replace(u"\n"_qs, u"\r\n"_qs).toUtf8());
    m_expected += Told(song);
    song = inventor.Next(100'003);
    Invented second = inventor.Next(100'004);
    Write(u"z3-duas.crd"_qs, QString(song.file + u"{new_song}\n" + second.file).toUtf8());
    m_expected += Told(song);
    m_expected += Told(second);
    song = inventor.Next(100'005);
    song.file.remove(QString(u"{title: " + song.title + u"}\n"));
    song.title = u"z4 sem título"_qs;
    Write(u"z4 sem título.chopro"_qs, song.file.toUtf8());
    m_expected += Told(song);
    song = inventor.Next(100'006);
    song.file.remove(QString(u"{artist: " + song.artist + u"}\n"));
    song.artist = u"Sem Referência"_qs;
    Write(u"z5.cho"_qs, song.file.toUtf8());
    m_expected += Told(song);
    Write(u"z6-vazio.cho"_qs, {});
    Write(u"z7-foto.cho"_qs, QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0", 18).repeated(40));
    Write(u"z8-zeros.cho"_qs, QByteArray(5000, '\0'));
    Write(u"z9.xml"_qs, "<musica><titulo>");
    Write(u"z9.rtf"_qs, R"({\rtf1\ansi Asa Branca\par Quando olhei})");
    Write(u"z9.pdf"_qs, "%PDF-1.4\n\xE2\xE3\xCF\xD3\n1 0 obj\n");
}

void tst_acervo_convertido::initTestCase()
{
    constexpr int Odd = 11;
    // The files of a folder come before its folders.
    WriteOddFiles();
    Inventor inventor;
    for (int i = 0; i < Files - Odd; ++i) {
        const Invented song = inventor.Next(i);
        // Folders of a hundred, in the order of their names.
        Write(u"%1/%2.cho"_qs.arg(i / 100, 2, 10, QLatin1Char('0')).arg(i, 4, 10, QLatin1Char('0')),
              song.file.toUtf8());
        m_expected += Told(song);
    }
    m_exchange = m_folder.filePath(u"acervo.mld"_qs);
    m_converted =
        RunTool(QStringLiteral(MELODARIO_CONVERTE), {m_folder.filePath(u"acervo"_qs), m_exchange});
}

void tst_acervo_convertido::everyFileIsConverted()
{
    QVERIFY2(m_converted.out.startsWith(u"%1: %2 música(s) de %3 arquivo(s)"_qs.arg(m_exchange)
                                            .arg(m_expected.size())
                                            .arg(Files)),
             qPrintable(m_converted.out + m_converted.err.left(2000)));
    QCOMPARE(m_converted.code, 1);
}

void tst_acervo_convertido::oddFilesAreTold() const
{
    for (const char16_t* name :
         {u"z6-vazio.cho", u"z7-foto.cho", u"z8-zeros.cho", u"z9.xml", u"z9.rtf", u"z9.pdf"})
        QVERIFY2(m_converted.err.contains(u"acervo/" + QString::fromUtf16(name) + u':'),
                 qPrintable(QString::fromUtf16(name) + u'\n' + m_converted.err.left(2000)));
    QVERIFY2(!m_converted.err.contains(u"/0000.cho"), qPrintable(m_converted.err.left(2000)));
}

void tst_acervo_convertido::everySongIsInTheCatalogue()
{
    const TestCatalogue catalogue;
    const KeptBoxes boxes;
    NoPanels panels;
    QWidget owner;
    Funcoes::Conexao.Open(catalogue.ConnectionString());
    Funcoes::Importa_Musicas(m_exchange, panels, owner);
    Funcoes::Conexao.Close();
    QVERIFY2(boxes.wellOnly, qPrintable(boxes.said.join(u'\n')));

    const QStringList stored = Stored(catalogue);
    for (qsizetype i = 0; i < qMin(stored.size(), m_expected.size()); ++i)
        QCOMPARE(stored[i], m_expected[i]);
    QCOMPARE(stored.size(), m_expected.size());
    QCOMPARE(catalogue.Field(u"SELECT COUNT(DISTINCT DESCRICAO) FROM TEMA"_qs).toInt(),
             int{Themes.size()} + 1);
}

QTEST_MAIN(tst_acervo_convertido)

#include "tst_acervo_convertido.moc"
