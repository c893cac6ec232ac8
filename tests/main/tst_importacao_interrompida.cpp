#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

/// The program is killed at a hundred moments of an import. The file is sound each time, every
/// song in it has its text and its themes; importing once more, after every tenth, gives the whole
/// file.
class tst_importacao_interrompida : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void killsLeaveWholeSongs_data();
    void killsLeaveWholeSongs();
    void cleanupTestCase() const;

private:
    /// Puts an empty catalogue in the place of the last one.
    bool Renova() const;

    const QTemporaryDir m_pasta;
    const TestCatalogue m_modelo;
    const QString m_copia = m_pasta.filePath(u"Melodario.mdb"_qs);
    QMap<int, QString> m_arquivos; ///< by the number of songs
    QMap<int, int> m_duracoes;     ///< of whole imports, in ms
    int m_mortes = 0;
    int m_pelaMetade = 0;
};

namespace {

constexpr int Repetida = 100; // asked about: what came before it is committed first
constexpr int Poucas = 300;
constexpr int Muitas = 1200; // a portion is committed a thousand songs after the question
constexpr int Mortes = 10;   // of each row
constexpr int PacienciaMs = 120000;

QString Arquivo(const QTemporaryDir& pasta, int musicas)
{
    SongGenerator gerador(7);
    QString texto = u"<m>"_qs;
    for (int i = 0; i < musicas; ++i) {
        const GeneratedSong musica = gerador.Next();
        const QString elemento =
            u"<s><titulo>%1 %2</titulo><referencia>Ana</referencia><letra1>%3</letra1><letra2>"
            "fim</letra2><tom>C</tom><variacao/><categoria>1</categoria><temas><d>A</d><d>Tema "
            "%4</d></temas></s>"_qs.arg(musica.title, QString::number(i),
                                        musica.text.toHtmlEscaped(), QString::number(i % 40));
        texto += i + 1 == Repetida ? QString(elemento + elemento) : elemento;
    }
    QFile arquivo(pasta.filePath(QString::number(musicas) + u".mld"));
    if (!arquivo.open(QIODevice::WriteOnly))
        qFatal("no exchange file");
    arquivo.write((texto + u"</m>").toUtf8());
    return arquivo.fileName();
}

/// @param depois  ms from the import's beginning; negative: lets it end
/// @param duracao  is set to the ms that it took from there
/// @return whether it was killed in the middle
bool Importa(const QString& catalogo, const QString& arquivo, int depois, int* duracao = nullptr)
{
    QProcess processo;
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(QStringLiteral(INTERROMPIDA), {catalogo, arquivo});
    QByteArray dito;
    while (!dito.contains("importing") && processo.waitForReadyRead(PacienciaMs))
        dito += processo.readAllStandardOutput();
    if (!dito.contains("importing"))
        qFatal("the import does not begin");
    QElapsedTimer relogio; // only to spread the moments over the import
    relogio.start();
    if (depois >= 0) {
        QThread::msleep(static_cast<unsigned long>(depois));
        processo.kill();
    }
    if (!processo.waitForFinished(PacienciaMs))
        qFatal("the import does not end");
    if (duracao)
        *duracao = static_cast<int>(relogio.elapsed());
    const bool morta = processo.exitStatus() == QProcess::CrashExit;
    if (!morta && processo.exitCode() != 0)
        qFatal("the import failed");
    return morta;
}

/// @return how many songs there are; -1 when anything is wrong with the file
int Inteiras(const QString& catalogo)
{
    PlainSqlite banco(catalogo);
    const auto campo = [&banco](const QString& sql) { return banco.Rows(sql).first().first(); };
    const QString faltas = campo(
        u"SELECT (SELECT count(*) FROM MUSICA WHERE length(MUSICA) < 100 OR MUSICA2 <> 'fim') + "
        "(SELECT count(*) FROM MUSICA WHERE 2 <> (SELECT count(*) FROM TEMA_MUSICA JOIN TEMA ON "
        "TEMA.ID = ID_TEMA WHERE ID_MUSICA = MUSICA.ID)) + (SELECT count(*) FROM TEMA_MUSICA WHERE "
        "ID_MUSICA NOT IN (SELECT ID FROM MUSICA)) + (SELECT count(*) - count(DISTINCT TITULO) "
        "FROM MUSICA)"_qs);
    if (campo(u"PRAGMA integrity_check"_qs) != u"ok"_qs || faltas != u"0"_qs)
        return -1;
    return campo(u"SELECT count(*) FROM MUSICA"_qs).toInt();
}

} // namespace

void tst_importacao_interrompida::initTestCase()
{
    for (const int musicas : {Poucas, Muitas}) {
        m_arquivos[musicas] = Arquivo(m_pasta, musicas);
        QVERIFY(Renova());
        QVERIFY(!Importa(m_copia, m_arquivos[musicas], -1, &m_duracoes[musicas]));
        QCOMPARE(Inteiras(m_copia), musicas);
    }
}

void tst_importacao_interrompida::killsLeaveWholeSongs_data()
{
    QTest::addColumn<quint64>("semente");
    QTest::addColumn<int>("musicas");
    for (int semente = 11; semente < 21; ++semente) {
        // Every fifth import is long enough for a portion.
        const int musicas = semente % 5 == 0 ? Muitas : Poucas;
        QTest::addRow("seed %d, %d songs", semente, musicas) << quint64(semente) << musicas;
    }
}

void tst_importacao_interrompida::killsLeaveWholeSongs()
{
    QFETCH(quint64, semente);
    QFETCH(int, musicas);
    const QString arquivo = m_arquivos[musicas];
    SongGenerator acaso(semente);
    int mortes = 0;
    for (int vez = 0; mortes < Mortes && vez < 3 * Mortes; ++vez) {
        QVERIFY(Renova());
        if (!Importa(m_copia, arquivo, acaso.Below(std::max(m_duracoes[musicas], 2))))
            continue;
        ++mortes;
        const int inteiras = Inteiras(m_copia);
        QVERIFY(inteiras >= 0);
        m_pelaMetade += inteiras > 0 && inteiras < musicas ? 1 : 0;
    }
    m_mortes += mortes;
    QCOMPARE(mortes, Mortes);
    // What the last kill left is completed by a second import.
    QVERIFY(!Importa(m_copia, arquivo, -1));
    QCOMPARE(Inteiras(m_copia), musicas);
}

void tst_importacao_interrompida::cleanupTestCase() const
{
    qInfo("%d kills, %d of them between two portions", m_mortes, m_pelaMetade);
    QCOMPARE(m_mortes, 100);
    QVERIFY(m_pelaMetade > 0);
}

bool tst_importacao_interrompida::Renova() const
{
    QFile::remove(m_copia + u"-journal");
    QFile::remove(m_copia);
    return QFile::copy(m_modelo.Path(), m_copia);
}

QTEST_GUILESS_MAIN(tst_importacao_interrompida)
#include "tst_importacao_interrompida.moc"
