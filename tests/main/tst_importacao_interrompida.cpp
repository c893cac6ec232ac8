#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QThread>

/// The program is killed at a hundred moments of an import. The file is sound each time, every
/// song in it has its text and its themes, and importing once more gives the whole file.
class tst_importacao_interrompida : public QObject
{
    Q_OBJECT

private slots:
    void aHundredKillsLeaveWholeSongs();
};

namespace {

constexpr int Musicas = 3000;
constexpr int Mortes = 100;
constexpr int PacienciaMs = 120000;

QString Arquivo(const QTemporaryDir& pasta)
{
    SongGenerator gerador(7);
    QString texto = u"<m>"_qs;
    for (int i = 0; i < Musicas; ++i) {
        const GeneratedSong musica = gerador.Next();
        texto +=
            u"<s><titulo>%1 %2</titulo><referencia>Ana</referencia><letra1>%3</letra1><letra2>"
            "fim</letra2><tom>C</tom><variacao/><categoria>1</categoria><temas><d>A</d><d>Tema "
            "%4</d></temas></s>"_qs.arg(musica.title, QString::number(i),
                                        musica.text.toHtmlEscaped(), QString::number(i % 40));
    }
    QFile arquivo(pasta.filePath(u"a.mld"_qs));
    if (!arquivo.open(QIODevice::WriteOnly))
        qFatal("no exchange file");
    arquivo.write((texto + u"</m>").toUtf8());
    return arquivo.fileName();
}

/// @param depois  ms from the import's beginning; negative: lets it end
/// @return whether it was killed in the middle
bool Importa(const QString& catalogo, const QString& arquivo, int depois)
{
    QProcess processo;
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(QStringLiteral(INTERROMPIDA), {catalogo, arquivo});
    QByteArray dito;
    while (!dito.contains("importing") && processo.waitForReadyRead(PacienciaMs))
        dito += processo.readAllStandardOutput();
    if (!dito.contains("importing"))
        qFatal("the import does not begin");
    if (depois >= 0) {
        QThread::msleep(static_cast<unsigned long>(depois));
        processo.kill();
    }
    if (!processo.waitForFinished(PacienciaMs))
        qFatal("the import does not end");
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

void tst_importacao_interrompida::aHundredKillsLeaveWholeSongs()
{
    const QTemporaryDir pasta;
    const QString arquivo = Arquivo(pasta);
    const TestCatalogue modelo;
    const QString copia = pasta.filePath(u"Melodario.mdb"_qs);
    const auto nova = [&] {
        QFile::remove(copia + u"-journal");
        QFile::remove(copia);
        return QFile::copy(modelo.Path(), copia);
    };
    QVERIFY(nova());
    QElapsedTimer relogio; // only to spread the moments over the import
    relogio.start();
    QVERIFY(!Importa(copia, arquivo, -1));
    const auto duracao = static_cast<int>(relogio.elapsed());
    QCOMPARE(Inteiras(copia), Musicas);

    SongGenerator acaso(11);
    int mortes = 0;
    int pelaMetade = 0;
    for (int vez = 0; mortes < Mortes && vez < 3 * Mortes; ++vez) {
        QVERIFY(nova());
        if (!Importa(copia, arquivo, acaso.Below(std::max(duracao, 2))))
            continue;
        ++mortes;
        const int inteiras = Inteiras(copia);
        QVERIFY(inteiras >= 0);
        pelaMetade += inteiras > 0 && inteiras < Musicas ? 1 : 0;
        if (mortes % 5 != 0)
            continue;
        QVERIFY(!Importa(copia, arquivo, -1));
        QCOMPARE(Inteiras(copia), Musicas);
    }
    qInfo("%d kills, %d of them between two portions", mortes, pelaMetade);
    QCOMPARE(mortes, Mortes);
    QVERIFY(pelaMetade > 0);
}

QTEST_GUILESS_MAIN(tst_importacao_interrompida)
#include "tst_importacao_interrompida.moc"
