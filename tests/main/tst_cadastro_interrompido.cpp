#include "support/Interruption.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

/// The program is killed while it stores, corrects or deletes a song, once at every statement and
/// every box on the way. The file then holds the song as it was before the action or after it, with
/// all of its themes.
class tst_cadastro_interrompido : public QObject
{
    Q_OBJECT

private slots:
    void everyBoundaryLeavesTheOldOrTheNewState_data();
    void everyBoundaryLeavesTheOldOrTheNewState();
    void cleanupTestCase() const;

private:
    int m_mortes = 0;
};

namespace {

constexpr int Temas = 96; // all but the song's own are linked by a save: so many statements

/// @return all songs with their themes
QString Musicas_No_Arquivo(const QString& caminho)
{
    PlainSqlite banco(caminho);
    const auto campo = [&banco](const QString& sql) { return banco.Rows(sql).first().first(); };
    if (campo(
            u"SELECT count(*) FROM MUSICA WHERE ID NOT IN (SELECT ID_MUSICA FROM TEMA_MUSICA)"_qs) !=
        u"0"_qs)
        return u"a song without themes"_qs;
    return campo(u"SELECT ifnull(group_concat(ID || ':' || TITULO || ':' || MUSICA || ':' || "
                 "(SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA WHERE ID_MUSICA = MUSICA.ID), "
                 "'|'), '-') || '|' || (SELECT count(*) FROM TEMA_MUSICA) FROM MUSICA"_qs);
}

} // namespace

void tst_cadastro_interrompido::everyBoundaryLeavesTheOldOrTheNewState_data()
{
    QTest::addColumn<QString>("acao");
    QTest::addColumn<int>("minimo");
    QTest::newRow("a new song") << u"insere"_qs << Temas + 4;
    QTest::newRow("a song corrected") << u"atualiza"_qs << Temas + 3;
    QTest::newRow("a song deleted") << u"exclui"_qs << 4;
}

void tst_cadastro_interrompido::everyBoundaryLeavesTheOldOrTheNewState()
{
    QFETCH(QString, acao);
    QFETCH(int, minimo);
    const TestCatalogue modelo;
    QString temas;
    for (int i = 1; i <= Temas; ++i)
        temas += u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Tema %1', 2);"_qs.arg(i);
    modelo.Run(temas);
    modelo.Link(modelo.AddSong(u"Antes"_qs), Temas);
    const QString antes = Musicas_No_Arquivo(modelo.Path());
    const QStringList estados = Interruption::StatesAfterKills(
        QStringLiteral(INTERROMPIDO), modelo.Path(), acao, Musicas_No_Arquivo);
    QCOMPARE(Interruption::WhatIsNotWhole(antes, estados, minimo), QString());
    m_mortes += static_cast<int>(estados.size()) - 1;
}

void tst_cadastro_interrompido::cleanupTestCase() const
{
    qInfo("%d kills", m_mortes);
    QVERIFY(m_mortes >= 200);
}

QTEST_GUILESS_MAIN(tst_cadastro_interrompido)
#include "tst_cadastro_interrompido.moc"
