#include "support/Interruption.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QFile>
#include <QTest>

/// The program is killed while it stores, changes or deletes a setlist, once at every statement and
/// every box on the way. The file then holds the setlist as it was before the action or after it,
/// with all of its songs in their order.
class tst_lista_interrompida : public QObject
{
    Q_OBJECT

private slots:
    void everyBoundaryLeavesTheOldOrTheNewSetlist_data();
    void everyBoundaryLeavesTheOldOrTheNewSetlist();
};

namespace {

constexpr int Musicas = 60;

/// @return all setlists with their songs, or what is wrong with the file
QString Listas_No_Arquivo(const QString& caminho)
{
    PlainSqlite banco(caminho);
    if (banco.Rows(u"PRAGMA integrity_check"_qs).first().first() != u"ok"_qs)
        return u"damaged"_qs;
    QStringList linhas;
    const QList<QStringList> listas =
        banco.Rows(u"SELECT ID, NOME, DATA FROM LISTA ORDER BY ID"_qs);
    const QList<QStringList> lugares = banco.Rows(
        u"SELECT ID_LISTA, ORDEM, ID_MUSICA FROM LISTA_MUSICA ORDER BY ID_LISTA, ORDEM, rowid"_qs);
    for (const QStringList& linha : listas + lugares)
        linhas.append(linha.join(u':'));
    return linhas.join(u'|');
}

} // namespace

void tst_lista_interrompida::everyBoundaryLeavesTheOldOrTheNewSetlist_data()
{
    QTest::addColumn<QString>("acao");
    QTest::addColumn<int>("minimo");
    QTest::newRow("a new setlist") << u"insere"_qs << Musicas + 3;
    QTest::newRow("a setlist changed") << u"atualiza"_qs << Musicas + 3;
    QTest::newRow("a setlist deleted") << u"exclui"_qs << 4;
}

void tst_lista_interrompida::everyBoundaryLeavesTheOldOrTheNewSetlist()
{
    QFETCH(QString, acao);
    QFETCH(int, minimo);
    const TestCatalogue modelo;
    const QList<qint64> musicas{modelo.AddSong(u"Uma"_qs), modelo.AddSong(u"Outra"_qs)};
    QList<qint64> lista;
    for (int i = 0; i < Musicas; ++i)
        lista.append(musicas[i % 2]);
    modelo.AddSetlist(u"Antes"_qs, QDate(2009, 3, 5), lista);
    const QString antes = Listas_No_Arquivo(modelo.Path());

    QStringList estados;
    for (bool parou = true; parou;) {
        const QTemporaryDir pasta;
        const QString copia = pasta.filePath(u"Melodario.mdb"_qs);
        QVERIFY(QFile::copy(modelo.Path(), copia));
        parou = Interruption::StartAndKill(QStringLiteral(INTERROMPIDA),
                                           {copia, acao, QString::number(estados.size())});
        estados.append(Listas_No_Arquivo(copia));
    }
    const QString depois = estados.last(); // of the one that ran to its end
    const qsizetype mortes = estados.size() - 1;
    qInfo("%lld kills", static_cast<long long>(mortes));
    QVERIFY2(mortes >= minimo, qPrintable(QString::number(mortes)));
    QVERIFY(depois != antes);
    const qsizetype primeira = estados.indexOf(depois);
    QVERIFY(primeira > 0 && primeira < mortes); // also killed after the commit
    for (qsizetype i = 0; i < mortes; ++i)
        QCOMPARE(estados[i], i < primeira ? antes : depois);
}

QTEST_GUILESS_MAIN(tst_lista_interrompida)
#include "tst_lista_interrompida.moc"
