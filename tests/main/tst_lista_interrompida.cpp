#include "support/Interruption.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

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

/// @return all setlists with their songs
QString Listas_No_Arquivo(const QString& caminho)
{
    PlainSqlite banco(caminho);
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
    const QStringList estados = Interruption::StatesAfterKills(
        QStringLiteral(INTERROMPIDO), modelo.Path(), acao, Listas_No_Arquivo);
    qInfo("%lld kills", static_cast<long long>(estados.size() - 1));
    QCOMPARE(Interruption::WhatIsNotWhole(antes, estados, minimo), QString());
}

QTEST_GUILESS_MAIN(tst_lista_interrompida)
#include "tst_lista_interrompida.moc"
