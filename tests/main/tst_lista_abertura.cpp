// The panel coming up: what it asks of the store, and what happens while events run meanwhile.

#include "ListaTeste.h"

#include "support/PlainSqlite.h"

class tst_lista_abertura : public ListaTeste
{
    Q_OBJECT

private slots:
    void theStatementsInTheirOrder();
    void theStatementsAfterASuccessMessage();
    void theOnlyThemeIsChosenBeforeSongsAreOffered();
    void closedMeanwhileItAsksNothing_data();
    void closedMeanwhileItAsksNothing();
    void closedWhileASuccessIsTold();
    void chosenTwiceItAsksOnce();
    void anyOtherFailureIsToldAtEveryTry();
    void anApostropheHidesNoOtherFailure();

private:
    static QString Oferta()
    {
        return u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA  FROM MUSICA"
               " INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE"
               " MUSICA.CATEGORIA = 01 ORDER BY MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA "_qs;
    }
};

namespace {

const QString TodasListas =
    u"SELECT ID, NOME, Day(DATA) & '/' & Month(DATA) & '/' &  Year(DATA) AS DATA"
    " FROM LISTA ORDER BY DATA DESC"_qs;
const QString Descartar = u"Deseja descartar as modificações na lista?"_qs;
const QString EmUso = u"O banco de dados está sendo usado por outro programa."_qs;

} // namespace

void tst_lista_abertura::theStatementsInTheirOrder()
{
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0});
    m_comandos.clear();
    m_caixas->whileOpen = [this] { m_comandos.append(u"?"_qs); };
    Escolhe("mnuLista");
    m_caixas->whileOpen = {};
    QCOMPARE(Caixas(), QStringList({Descartar}));
    // The songs on offer once for the list and once for their number, however themes are chosen.
    QCOMPARE(m_comandos, QStringList({TodasListas, u"?"_qs,
                                      u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs,
                                      Oferta(), Oferta()}));
}

void tst_lista_abertura::theStatementsAfterASuccessMessage()
{
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0});
    m_comandos.clear();
    QString nome;
    m_caixas->whileOpen = [&] {
        m_comandos.append(u"!"_qs);
        nome = Texto("txtNome");
    };
    Clica("cmdSalvar");
    m_caixas->whileOpen = {};
    // The message comes over the setlist as it was saved, then the panel is cleared and refilled.
    QCOMPARE(nome, u"Ensaio"_qs);
    QCOMPARE(Texto("txtNome"), QString());
    QCOMPARE(m_comandos.mid(m_comandos.size() - 2), QStringList({u"!"_qs, TodasListas}));
}

void tst_lista_abertura::theOnlyThemeIsChosenBeforeSongsAreOffered()
{
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID = 2"_qs);
    Musica(u"Amor"_qs);
    const qint64 outra = m_catalogo->AddSong(u"Bem"_qs);
    m_catalogo->Link(outra, 2);
    Carrega();
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
    QCOMPARE(Texto("lblMusicasEncontradas"), u"1 Música(s) disponível(is)"_qs);
}

void tst_lista_abertura::closedMeanwhileItAsksNothing_data()
{
    QTest::addColumn<bool>("deleted");
    QTest::newRow("closed") << false;
    QTest::newRow("closed and deleted") << true;
}

void tst_lista_abertura::closedMeanwhileItAsksNothing()
{
    QFETCH(bool, deleted);
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0});
    QTimer::singleShot(0, qApp, [this, deleted] {
        if (deleted)
            m_form.reset();
        else
            m_form->close();
    });
    Escolhe("mnuLista");
    QCOMPARE(Caixas(), QStringList());
    QVERIFY(!Funcoes::Conexao.IsOpen());
    QCOMPARE(m_form == nullptr, deleted);
}

void tst_lista_abertura::closedWhileASuccessIsTold()
{
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0});
    Seleciona(0);
    Clica("cmdRemover");
    // Without songs the changes stay unsaved; but nobody asks over a form that is gone.
    m_caixas->whileOpen = [this] { m_form->close(); };
    Clica("cmdSalvar");
    m_caixas->whileOpen = {};
    QCOMPARE(Caixas(), QStringList({u"Lista Cadastrada com Sucesso!"_qs}));
    QCOMPARE(Listas().size(), 1);
}

void tst_lista_abertura::chosenTwiceItAsksOnce()
{
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0});
    m_caixas->answer = false;
    m_comandos.clear();
    QTimer::singleShot(0, this, [this] { Escolhe("mnuLista"); });
    Escolhe("mnuLista");
    QCOMPARE(Caixas(), QStringList({Descartar}));
    QCOMPARE(m_comandos.count(TodasListas), 1);
    QVERIFY(Acha<QWidget>("pctFrame_1")->isVisible());
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
    // Afterwards it is prepared again as ever.
    m_caixas->answer = true;
    Escolhe("mnuLista");
    QCOMPARE(Caixas(), QStringList({Descartar}));
    QCOMPARE(Titulos(), QStringList());
}

void tst_lista_abertura::anyOtherFailureIsToldAtEveryTry()
{
    Musica(u"Amor"_qs);
    Carrega();
    m_catalogo->Run(u"ALTER TABLE TEMA_MUSICA RENAME TO GUARDADA"_qs);
    for (int i = 0; i < 3; ++i) {
        Escolhe("mnuLista");
        QCOMPARE(Caixas().size(), 1);
        Clica("optTipo_0");
        QCOMPARE(Caixas().size(), 1);
    }
    // Letters are typed without a thought of the catalogue: one box for all of them.
    Digita("txtFiltro", u"amor"_qs);
    QCOMPARE(Caixas().size(), 1);
    m_catalogo->Run(u"ALTER TABLE GUARDADA RENAME TO TEMA_MUSICA"_qs);
    Digita("txtFiltro", u"am"_qs);
    QCOMPARE(Caixas(), QStringList());
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
}

void tst_lista_abertura::anApostropheHidesNoOtherFailure()
{
    Musica(u"D'agua"_qs);
    Carrega();
    Digita("txtFiltro", u"d'"_qs);
    QCOMPARE(Caixas().size(), 1);
    PlainSqlite outro(m_catalogo->Path());
    outro.Run("BEGIN EXCLUSIVE");
    // Two of them are one apostrophe of a title: now it is the store that cannot answer.
    QTest::keyClicks(Acha<QLineEdit>("txtFiltro"), u"'"_qs);
    QStringList caixas = Caixas();
    QCOMPARE(caixas.size(), 1);
    QVERIFY2(caixas.first().startsWith(EmUso), qPrintable(caixas.first()));
    for (int i = 0; i < 2; ++i) {
        Clica("optTipo_0");
        QCOMPARE(Caixas().size(), 1);
    }
    outro.Run("ROLLBACK");
    Tecla("txtFiltro", Qt::Key_A);
    QCOMPARE(Caixas(), QStringList());
    QCOMPARE(Oferecidas(), QStringList({u"D'agua - Anônimo"_qs}));
}

QTEST_MAIN(tst_lista_abertura)
#include "tst_lista_abertura.moc"
