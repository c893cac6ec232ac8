#include "PesquisaTeste.h"

#include "support/PlainSqlite.h"

/// Another program writes into the catalogue while the main form is open.
class tst_catalogo_ocupado : public PesquisaTeste
{
    Q_OBJECT

private slots:
    void aSearchSaysSoOnceAndWorksAgainAfterwards();
};

void tst_catalogo_ocupado::aSearchSaysSoOnceAndWorksAgainAfterwards()
{
    Musica(u"Luz"_qs);
    Musica(u"Bossa"_qs);
    Carrega();
    QCOMPARE(Titulos(), QStringList({u"Bossa"_qs, u"Luz"_qs}));
    PlainSqlite outro(m_catalogo->Path());
    outro.Run("BEGIN EXCLUSIVE");

    auto* titulo = Acha<QWidget>("txtTitulo");
    QTest::keyClicks(titulo, u"l"_qs);
    QTRY_COMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes.first().text,
             u"O banco de dados está sendo usado por outro programa.\n\ndatabase is locked (5)"_qs);
    QCOMPARE(m_caixas->boxes.first().icon, Icone::Critico);
    QCOMPARE(m_caixas->boxes.first().title, u"Melodario"_qs);
    // The same failure of a search that nobody started on purpose is told once.
    m_pesquisas.clear();
    QTest::keyClicks(titulo, u"u"_qs);
    QTRY_VERIFY(!m_pesquisas.isEmpty());
    QTRY_VERIFY(!Acha<QTimer>("Timer1")->isActive());
    QCOMPARE(m_caixas->boxes.size(), 1);

    outro.Run("ROLLBACK");
    QTest::keyClicks(titulo, u"z"_qs);
    QTRY_COMPARE(Titulos(), QStringList(u"Luz"_qs));
    QCOMPARE(Contagem(), u"1 Registro(s) Encontrado(s)."_qs);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"2"_qs);
}

QTEST_MAIN(tst_catalogo_ocupado)
#include "tst_catalogo_ocupado.moc"
