// The songs on offer: which they are, and what a filter does to them.

#include "ListaTeste.h"

#include "support/GeneratedSongs.h"

#include <QElapsedTimer>

class tst_lista_oferta : public ListaTeste
{
    Q_OBJECT

private slots:
    void theStatements_data();
    void theStatements();
    void theStatementRunsOnceForTheListAndOnceForItsNumber();
    void categoriesAreKeptApart();
    void aThemeNarrowsTheOffer();
    void openingAgainOffersAllThemesAndKeepsTheOtherFilters();
    void aCatalogueWithOneThemeOffersThatOne();
    void aCatalogueWithoutThemesSaysSo();
    void songsInSeveralThemesAreOfferedOnce();
    void songsWithoutAThemeAreNeverOffered();
    void theFilterAsksForTheBeginningOfTitles();
    void percentAndUnderscoreAreWildcards();
    void whatLooksLikeAStatementIsABeginningOfATitle_data();
    void whatLooksLikeAStatementIsABeginningOfATitle();
    void theOnlySongLeftIsCurrent();
    void severalSongsLeaveNoneCurrent();
    void anApostropheFailsOnceWhileItStands();
    void anApostropheFailsAgainWhenItComesBack();
    void anApostropheDoesNotKeepThePanelFromComingUp();
    void anApostropheFailsAtEveryClick();
    void anApostropheEmptiesTheOfferAndEnterOnlyMarksAChange();
    void twoApostrophesAreOneOfATitle();
    void aFilterOfTenThousandCharacters();
    void twentyThousandSongsAreOfferedAndCanBeAdded();
};

namespace {

QString Comando(int categoria, const QString& tema = {}, const QString& filtro = {})
{
    QString sql = u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA  FROM"
                  " MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE"
                  " MUSICA.CATEGORIA = 0"_qs +
                  QString::number(categoria);
    if (!tema.isEmpty())
        sql += u" AND TEMA_MUSICA.ID_TEMA = 0"_qs + tema;
    if (!filtro.isEmpty())
        sql += u" AND MUSICA.titulo like '"_qs + filtro + u"%' ";
    return sql + u" ORDER BY MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA ";
}

} // namespace

void tst_lista_oferta::theStatements_data()
{
    QTest::addColumn<bool>("secular");
    QTest::addColumn<int>("theme");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("sql");
    QTest::newRow("all of the first category") << false << 0 << u""_qs << Comando(1);
    QTest::newRow("all of the second") << true << 0 << u""_qs << Comando(2);
    QTest::newRow("a theme") << false << 1 << u""_qs << Comando(1, u"1"_qs);
    QTest::newRow("the other category, another theme")
        << true << 2 << u""_qs << Comando(2, u"2"_qs);
    QTest::newRow("a beginning") << false << 0 << u"a"_qs << Comando(1, {}, u"a"_qs);
    QTest::newRow("all of them") << true << 2 << u"_u%Z "_qs << Comando(2, u"2"_qs, u"_u%Z "_qs);
}

void tst_lista_oferta::theStatements()
{
    QFETCH(bool, secular);
    QFETCH(int, theme);
    QFETCH(QString, filter);
    QFETCH(QString, sql);
    Carrega();
    if (secular)
        Clica("optTipo_1");
    Digita("txtFiltro", filter);
    m_comandos.clear();
    auto* temas = Acha<ComboBox>("cmbTema");
    temas->setFocus();
    for (int i = 0; i < theme; ++i)
        QTest::keyClick(temas, Qt::Key_Down);
    if (theme == 0)
        Clica(secular ? "optTipo_1" : "optTipo_0");
    QCOMPARE(m_comandos.last(), sql);
}

void tst_lista_oferta::theStatementRunsOnceForTheListAndOnceForItsNumber()
{
    Carrega();
    m_comandos.clear();
    Clica("optTipo_1");
    QCOMPARE(m_comandos, QStringList({Comando(2), Comando(2)}));
}

void tst_lista_oferta::categoriesAreKeptApart()
{
    Musica(u"Amor"_qs);
    TestSong secular;
    secular.category = 2;
    Musica(u"Asa Branca"_qs, secular);
    Carrega();
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
    Clica("optTipo_1");
    QCOMPARE(Oferecidas(), QStringList({u"Asa Branca - Anônimo"_qs}));
    QCOMPARE(Texto("lblMusicasEncontradas"), u"1 Música(s) disponível(is)"_qs);
    Clica("optTipo_0");
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
    // By key as well.
    Acha<QWidget>("optTipo_0")->setFocus();
    Tecla("optTipo_0", Qt::Key_Right);
    QCOMPARE(Oferecidas(), QStringList({u"Asa Branca - Anônimo"_qs}));
}

void tst_lista_oferta::aThemeNarrowsTheOffer()
{
    Musica(u"Amor"_qs);
    m_catalogo->Link(Musica(u"Bem"_qs), m_outro);
    Carrega();
    auto* temas = Acha<ComboBox>("cmbTema");
    QCOMPARE(temas->Text(0), u"TODAS"_qs);
    QCOMPARE(temas->ItemData(0), qint64{0});
    QCOMPARE(temas->ListCount(), 3);
    QCOMPARE(Oferecidas().size(), 2);
    temas->setFocus();
    QTest::keyClick(temas, Qt::Key_End);
    QCOMPARE(temas->currentText(), u"Outro"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Bem - Anônimo"_qs}));
    QTest::keyClick(temas, Qt::Key_Home);
    QCOMPARE(Oferecidas().size(), 2);
}

void tst_lista_oferta::openingAgainOffersAllThemesAndKeepsTheOtherFilters()
{
    TestSong secular;
    secular.category = 2;
    Musica(u"Asa Branca"_qs, secular);
    m_catalogo->Link(Musica(u"Aquarela"_qs, secular), m_outro);
    Musica(u"Baião"_qs, secular);
    Musica(u"Amor"_qs);
    Carrega();
    Clica("optTipo_1");
    Digita("txtFiltro", u"a"_qs);
    auto* temas = Acha<ComboBox>("cmbTema");
    temas->setFocus();
    QTest::keyClick(temas, Qt::Key_End);
    QCOMPARE(Oferecidas(), QStringList({u"Aquarela - Anônimo"_qs}));
    Escolhe("mnuPesquisa");
    Escolhe("mnuLista");
    QCOMPARE(temas->currentText(), u"TODAS"_qs);
    QVERIFY(Acha<QRadioButton>("optTipo_1")->isChecked());
    QCOMPARE(Texto("txtFiltro"), u"a"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Aquarela - Anônimo"_qs, u"Asa Branca - Anônimo"_qs}));
    QCOMPARE(Texto("lblMusicasEncontradas"), u"2 Música(s) disponível(is)"_qs);
}

void tst_lista_oferta::aCatalogueWithOneThemeOffersThatOne()
{
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID = 2"_qs);
    Musica(u"Amor"_qs);
    m_catalogo->Link(m_catalogo->AddSong(u"Bem"_qs), m_outro);
    Carrega();
    QCOMPARE(Acha<ComboBox>("cmbTema")->currentText(), u"Louvor"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
}

void tst_lista_oferta::aCatalogueWithoutThemesSaysSo()
{
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Musica(u"Amor"_qs);
    Carrega();
    QCOMPARE(Acha<ComboBox>("cmbTema")->currentText(), u"Não Cadastrado"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
}

void tst_lista_oferta::songsInSeveralThemesAreOfferedOnce()
{
    m_catalogo->Link(Musica(u"Amor"_qs), m_outro);
    Carrega();
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
    QCOMPARE(Texto("lblMusicasEncontradas"), u"1 Música(s) disponível(is)"_qs);
}

void tst_lista_oferta::songsWithoutAThemeAreNeverOffered()
{
    m_catalogo->AddSong(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega();
    QCOMPARE(Oferecidas(), QStringList({u"Bem - Anônimo"_qs}));
}

void tst_lista_oferta::theFilterAsksForTheBeginningOfTitles()
{
    Musica(u"Água Viva"_qs);
    Musica(u"Santo"_qs);
    Musica(u"Viva Água"_qs);
    Carrega();
    Digita("txtFiltro", u"AGUA"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Água Viva - Anônimo"_qs}));
    QCOMPARE(Texto("lblMusicasEncontradas"), u"1 Música(s) disponível(is)"_qs);
    Digita("txtFiltro", u"anon"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Não há dados a serem mostrados."_qs}));
    QCOMPARE(Texto("lblMusicasEncontradas"), u"0 Música(s) disponível(is)"_qs);
}

void tst_lista_oferta::percentAndUnderscoreAreWildcards()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Musica(u"Só Amor"_qs);
    Carrega();
    Digita("txtFiltro", u"%mor"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs, u"Só Amor - Anônimo"_qs}));
    Digita("txtFiltro", u"_e"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Bem - Anônimo"_qs}));
}

void tst_lista_oferta::whatLooksLikeAStatementIsABeginningOfATitle_data()
{
    QTest::addColumn<QString>("filter");
    QTest::newRow("quotes") << uR"("a" OR "a" = "a)"_qs;
    QTest::newRow("another statement") << u"a; DELETE FROM LISTA; --"_qs;
    QTest::newRow("a comment") << u"a /* b */ -- c"_qs;
    QTest::newRow("places for values") << u"?1 :a @b $c"_qs;
    QTest::newRow("backslashes") << uR"(a\b\)"_qs;
    QTest::newRow("stars and question marks") << u"a*?"_qs;
    QTest::newRow("an open bracket") << u"Sol [vivo"_qs;
}

void tst_lista_oferta::whatLooksLikeAStatementIsABeginningOfATitle()
{
    QFETCH(QString, filter);
    Musica(filter + u" viva"_qs);
    Musica(u"ab"_qs);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    Carrega();
    Digita("txtFiltro", filter);
    QCOMPARE(Caixas(), QStringList());
    QCOMPARE(Oferecidas(), QStringList(filter + u" viva - Anônimo"_qs));
    QCOMPARE(Listas().size(), 1);
}

void tst_lista_oferta::theOnlySongLeftIsCurrent()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega();
    Digita("txtFiltro", u"b"_qs);
    QCOMPARE(Acha<ListBox>("lstMusicasLista")->ListIndex(), 0);
}

void tst_lista_oferta::severalSongsLeaveNoneCurrent()
{
    Musica(u"Amor"_qs);
    Musica(u"Amora"_qs);
    Carrega();
    Digita("txtFiltro", u"amo"_qs);
    QCOMPARE(Acha<ListBox>("lstMusicasLista")->ListIndex(), -1);
}

void tst_lista_oferta::anApostropheFailsOnceWhileItStands()
{
    Musica(u"D'agua"_qs);
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0, 1});
    Digita("txtNome", u"Ensaio"_qs);
    Digita("txtFiltro", u"d' agua 'viva"_qs);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    // Nothing that the user has made is lost, and the filter goes on as soon as it can.
    QCOMPARE(Texto("txtFiltro"), u"d' agua 'viva"_qs);
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    QCOMPARE(Selecionadas().size(), 2);
    Digita("txtFiltro", u"d"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"D'agua - Anônimo"_qs}));
    QCOMPARE(m_caixas->boxes.size(), 1);
}

void tst_lista_oferta::anApostropheFailsAgainWhenItComesBack()
{
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtFiltro", u"d'a"_qs);
    Digita("txtFiltro", u"a"_qs);
    Digita("txtFiltro", u"d'a"_qs);
    QCOMPARE(m_caixas->boxes.size(), 2);
}

void tst_lista_oferta::anApostropheDoesNotKeepThePanelFromComingUp()
{
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtFiltro", u"d'a"_qs);
    QCOMPARE(m_caixas->boxes.size(), 1);
    Escolhe("mnuPesquisa");
    Escolhe("mnuLista");
    QVERIFY(Acha<QWidget>("pctFrame_1")->isVisible());
    QCOMPARE(m_caixas->boxes.size(), 1);
    Digita("txtFiltro", u"a"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
}

void tst_lista_oferta::anApostropheFailsAtEveryClick()
{
    Carrega();
    Digita("txtFiltro", u"d'a"_qs);
    Clica("optTipo_1");
    Clica("optTipo_1");
    auto* temas = Acha<ComboBox>("cmbTema");
    temas->setFocus();
    QTest::keyClick(temas, Qt::Key_Down);
    QCOMPARE(m_caixas->boxes.size(), 4);
}

void tst_lista_oferta::anApostropheEmptiesTheOfferAndEnterOnlyMarksAChange()
{
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtFiltro", u"'"_qs);
    QCOMPARE(Caixas().size(), 1);
    QCOMPARE(Oferecidas(), QStringList());
    QCOMPARE(Modificada(), u"0"_qs);
    Tecla("txtFiltro", Qt::Key_Return);
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(Texto("lblLista"), u"0 Música(s) Selecionada(s)"_qs);
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_oferta::twoApostrophesAreOneOfATitle()
{
    Musica(u"D'agua"_qs);
    Musica(u"Dagua"_qs);
    Carrega();
    Acha<QLineEdit>("txtFiltro")->setText(u"d''a"_qs);
    QCOMPARE(Caixas(), QStringList());
    QCOMPARE(Oferecidas(), QStringList({u"D'agua - Anônimo"_qs}));
}

void tst_lista_oferta::aFilterOfTenThousandCharacters()
{
    Musica(u"a"_qs.repeated(10000) + u"b"_qs);
    Musica(u"Amor"_qs);
    Carrega();
    Acha<QLineEdit>("txtFiltro")->setText(u"a"_qs.repeated(10000));
    QCOMPARE(Oferecidas().size(), 1);
    QCOMPARE(Caixas(), QStringList());
    Acha<QLineEdit>("txtFiltro")->setText(u"%a_"_qs.repeated(3000));
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_oferta::twentyThousandSongsAreOfferedAndCanBeAdded()
{
    SongGenerator gerador(7);
    QString sql = u"BEGIN;"_qs;
    for (int id = 1; id <= 20000; ++id) {
        const GeneratedSong musica = gerador.Next();
        sql += u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, CATEGORIA) VALUES"
               " ('%1','%2','%3',1); INSERT INTO TEMA_MUSICA VALUES (%4,1);"_qs
                   .arg(musica.title, musica.reference, musica.text)
                   .arg(id);
    }
    m_catalogo->Run(sql + u"COMMIT;");
    Carrega();
    QCOMPARE(Acha<ListBox>("lstMusicasLista")->ListCount(), 20000);
    QElapsedTimer relogio;
    relogio.start();
    Clica("optTipo_0");
    qInfo("20,000 songs on offer: %lld ms", relogio.restart());
    Digita("txtFiltro", u"a"_qs);
    qInfo("a letter in the filter: %lld ms", relogio.restart());
    Adiciona({0, 0, 0});
    qInfo("three songs added: %lld ms", relogio.elapsed());
    QCOMPARE(Selecionadas().size(), 3);
}

QTEST_MAIN(tst_lista_oferta)
#include "tst_lista_oferta.moc"
