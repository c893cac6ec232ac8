#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QElapsedTimer>
#include <QFile>
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
    QString m_arquivo;
    int m_duracao = 0; ///< of a whole import, in ms
    int m_mortes = 0;
    int m_pelaMetade = 0;
};

namespace {

constexpr int Repetida = 100; // asked about: what came before it is committed first
constexpr int Musicas = 1200; // a portion is committed a thousand songs later
constexpr int Mortes = 10;    // of each row
constexpr int PacienciaMs = 120000;

QString Arquivo(const QTemporaryDir& pasta)
{
    SongGenerator gerador(7);
    QString texto = u"<m>"_qs;
    for (int i = 0; i < Musicas; ++i) {
        const GeneratedSong musica = gerador.Next();
        const QString elemento =
            u"<s><titulo>%1 %2</titulo><referencia>Ana</referencia><letra1>%3</letra1><letra2>"
            "fim</letra2><tom>C</tom><variacao/><categoria>1</categoria><temas><d>A</d><d>Tema "
            "%4</d></temas></s>"_qs.arg(musica.title, QString::number(i),
                                        musica.text.toHtmlEscaped(), QString::number(i % 40));
        texto += i + 1 == Repetida ? QString(elemento + elemento) : elemento;
    }
    QFile arquivo(pasta.filePath(u"a.mld"_qs));
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
    m_arquivo = Arquivo(m_pasta);
    QVERIFY(Renova());
    QVERIFY(!Importa(m_copia, m_arquivo, -1, &m_duracao));
    QCOMPARE(Inteiras(m_copia), Musicas);
}

void tst_importacao_interrompida::killsLeaveWholeSongs_data()
{
    QTest::addColumn<quint64>("semente");
    for (quint64 semente = 11; semente < 21; ++semente)
        QTest::addRow("seed %d", static_cast<int>(semente)) << semente;
}

void tst_importacao_interrompida::killsLeaveWholeSongs()
{
    QFETCH(quint64, semente);
    SongGenerator acaso(semente);
    int mortes = 0;
    for (int vez = 0; mortes < Mortes && vez < 3 * Mortes; ++vez) {
        QVERIFY(Renova());
        if (!Importa(m_copia, m_arquivo, acaso.Below(std::max(m_duracao, 2))))
            continue;
        ++mortes;
        const int inteiras = Inteiras(m_copia);
        QVERIFY(inteiras >= 0);
        m_pelaMetade += inteiras > 0 && inteiras < Musicas ? 1 : 0;
    }
    m_mortes += mortes;
    QCOMPARE(mortes, Mortes);
    // What the last kill left is completed by a second import.
    QVERIFY(!Importa(m_copia, m_arquivo, -1));
    QCOMPARE(Inteiras(m_copia), Musicas);
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
