// Setlists stored, changed, copied and deleted: what lies in the catalogue afterwards.

#include "ListaTeste.h"

#include <QLineEdit>

class tst_lista_gravacao : public ListaTeste
{
    Q_OBJECT

private slots:
    void aNewSetlistWithThreeSongs();
    void theStatementsOfANewSetlist();
    void theStatementsOfAChangedSetlist();
    void theStatementsOfADeletedSetlist();
    void theStatementsOfLoading();
    void savingLeavesTheOfferAsItWas();
    void anEmptySetlistIsStored();
    void anEmptySetlistAfterChangesAsksAndStaysNew();
    void aChangedSetlistIsRewritten();
    void theOrderOfTheArrowButtonsIsStored();
    void theSameSongTwiceIsStoredTwice();
    void thePlaceholderRowIsStoredAsSongZeroAndNeverListedAgain();
    void linksToDeletedSongsAreDroppedAtTheNextSave();
    void apostrophesInTheNameAreKept();
    void blanksOfTheNameAreKept_data();
    void blanksOfTheNameAreKept();
    void aNameOfTenThousandCharacters();
    void aNameLongerThanATextBoxUsuallyTakes();
    void twoHundredSongs();
    void aNameAndADateAreNeeded_data();
    void aNameAndADateAreNeeded();
    void typedDatesAreStored_data();
    void typedDatesAreStored();
    void aTagThatIsNoNumberMeansANewSetlist();
};

namespace {

const QString Cadastrada = u"Lista Cadastrada com Sucesso!"_qs;
const QString Alterada = u"Lista Alterada com Sucesso!"_qs;
const QString Descartar = u"Deseja descartar as modificações na lista?"_qs;
const QString Preencha = u"Preencha o nome e a data da lista corretamente."_qs;

} // namespace

void tst_lista_gravacao::aNewSetlistWithThreeSongs()
{
    const qint64 amor = Musica(u"Amor"_qs);
    const qint64 bem = Musica(u"Bem"_qs);
    const qint64 canto = Musica(u"Canto"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Digita("txtData", u"05032009"_qs);
    Adiciona({2, 0, 1});
    Clica("cmdSalvar");
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Ensaio"_qs, u"2009-03-05"_qs}}));
    QCOMPARE(Lugares(), QList<QStringList>({{u"1"_qs, QString::number(canto), u"0"_qs},
                                            {u"1"_qs, QString::number(amor), u"1"_qs},
                                            {u"1"_qs, QString::number(bem), u"2"_qs}}));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Informacao);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
    // The panel is ready for a new one, and the grid knows the stored one.
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
    QCOMPARE(Texto("txtNome"), QString());
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(Grade(), QStringList({u"Ensaio|2009-03-05"_qs}));

    Responde(0, "cmdEditar");
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs, u"Amor"_qs, u"Bem"_qs}));
    QCOMPARE(Identidade(), u"1"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    QCOMPARE(Texto("txtData"), u"05/03/2009"_qs);
    QCOMPARE(Texto("lblLista"), u"3 Música(s) Selecionada(s)"_qs);
}

void tst_lista_gravacao::theStatementsOfANewSetlist()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega();
    Digita("txtNome", u"Sant'Ana"_qs);
    Adiciona({1, 0});
    m_comandos.clear();
    Clica("cmdSalvar");
    QCOMPARE(m_comandos,
             QStringList(
                 {u"INSERT INTO LISTA (NOME, DATA)  VALUES ('Sant''Ana', CDATE('05/03/2009'))"_qs,
                  u"SELECT MAX(ID) AS ID FROM LISTA"_qs,
                  u"INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM)  VALUES (1, 2, 0)"_qs,
                  u"INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM)  VALUES (1, 1, 1)"_qs,
                  u"SELECT ID, NOME, Day(DATA) & '/' & Month(DATA) & '/' &  Year(DATA) AS DATA"
                  " FROM LISTA ORDER BY DATA DESC"_qs}));
}

void tst_lista_gravacao::theStatementsOfAChangedSetlist()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Digita("txtNome", u"Ensaio d'hoje"_qs);
    m_comandos.clear();
    Clica("cmdSalvar");
    QCOMPARE(m_comandos.mid(0, 3),
             QStringList(
                 {u"UPDATE LISTA SET NOME = 'Ensaio d''hoje', DATA = CDATE('05/03/2009') "
                  " WHERE ID = 01"_qs,
                  u"DELETE FROM LISTA_MUSICA WHERE ID_LISTA = 01"_qs,
                  u"INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM)  VALUES (1, 1, 0)"_qs}));
    QCOMPARE(m_comandos.size(), 4);
    QCOMPARE(Caixas(), QStringList({Alterada}));
}

void tst_lista_gravacao::theStatementsOfADeletedSetlist()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    m_comandos.clear();
    Responde(0, "cmdExcluir");
    QCOMPARE(m_comandos.mid(0, 2), QStringList({u"DELETE FROM LISTA_MUSICA WHERE ID_LISTA = 01"_qs,
                                                u"DELETE FROM LISTA WHERE ID = 01"_qs}));
    QCOMPARE(m_comandos.size(), 3);
}

void tst_lista_gravacao::theStatementsOfLoading()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    const QString lista = u"SELECT * FROM LISTA WHERE ID = 01"_qs;
    const QString musicas =
        u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA,"
        " LISTA_MUSICA.ORDEM  FROM MUSICA INNER JOIN LISTA_MUSICA ON MUSICA.ID ="
        " LISTA_MUSICA.ID_MUSICA  WHERE LISTA_MUSICA.ID_LISTA = 01 ORDER BY"
        " LISTA_MUSICA.ORDEM "_qs;
    for (const char* botao : {"cmdEditar", "cmdCopiar"}) {
        m_comandos.clear();
        Responde(0, botao);
        QCOMPARE(m_comandos, QStringList({lista, musicas, musicas}));
    }
}

void tst_lista_gravacao::savingLeavesTheOfferAsItWas()
{
    Musica(u"Amor"_qs);
    Musica(u"Amora"_qs);
    Musica(u"Bem"_qs);
    Carrega();
    Digita("txtFiltro", u"am"_qs);
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({1});
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
    QCOMPARE(Texto("txtFiltro"), u"am"_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs, u"Amora - Anônimo"_qs}));
    QCOMPARE(Acha<ListBox>("lstMusicasLista")->ListIndex(), 1);
}

void tst_lista_gravacao::anEmptySetlistIsStored()
{
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Ensaio"_qs, u"2009-03-05"_qs}}));
    QCOMPARE(Lugares(), QList<QStringList>());
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
    QCOMPARE(Texto("txtNome"), QString());
}

void tst_lista_gravacao::anEmptySetlistAfterChangesAsksAndStaysNew()
{
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0});
    Clica_Item("lstMusicasSelecionadas", 0);
    Clica("cmdRemover");
    m_caixas->answer = false;
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Cadastrada, Descartar}));
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Grade().size(), 1);
    // It is still a new one, so saving again stores another.
    m_caixas->answer = true;
    Clica("cmdSalvar");
    QCOMPARE(Listas().size(), 2);
    QCOMPARE(Texto("txtNome"), QString());
}

void tst_lista_gravacao::aChangedSetlistIsRewritten()
{
    const qint64 amor = Musica(u"Amor"_qs);
    const qint64 bem = Musica(u"Bem"_qs);
    const qint64 canto = Musica(u"Canto"_qs);
    m_catalogo->AddSetlist(u"Outra"_qs, QDate(2001, 1, 1), {canto, amor});
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {amor, bem});
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Identidade(), u"2"_qs);
    Digita("txtNome", u"Culto"_qs);
    Digita("txtData", u"1/2/2010"_qs);
    Adiciona({2});
    Clica_Item("lstMusicasSelecionadas", 0);
    Tecla("lstMusicasSelecionadas", Qt::Key_Delete);
    QCOMPARE(Modificada(), u"1"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Alterada}));
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Outra"_qs, u"2001-01-01"_qs},
                                           {u"2"_qs, u"Culto"_qs, u"2010-02-01"_qs}}));
    QCOMPARE(Lugares(), QList<QStringList>({{u"1"_qs, u"3"_qs, u"0"_qs},
                                            {u"1"_qs, u"1"_qs, u"1"_qs},
                                            {u"2"_qs, u"2"_qs, u"0"_qs},
                                            {u"2"_qs, u"3"_qs, u"1"_qs}}));
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
}

void tst_lista_gravacao::theOrderOfTheArrowButtonsIsStored()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Clica_Item("lstMusicasSelecionadas", 1);
    Clica("cmdUp");
    Clica("cmdSalvar");
    QCOMPARE(Lugares(),
             QList<QStringList>({{u"1"_qs, u"2"_qs, u"0"_qs}, {u"1"_qs, u"1"_qs, u"1"_qs}}));
}

void tst_lista_gravacao::theSameSongTwiceIsStoredTwice()
{
    Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0, 1, 0});
    Clica("cmdSalvar");
    QCOMPARE(Lugares(), QList<QStringList>({{u"1"_qs, u"1"_qs, u"0"_qs},
                                            {u"1"_qs, u"2"_qs, u"1"_qs},
                                            {u"1"_qs, u"1"_qs, u"2"_qs}}));
    Responde(0, "cmdEditar");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs, u"Amor"_qs}));
    QCOMPARE(Texto("lblLista"), u"3 Música(s) Selecionada(s)"_qs);
}

void tst_lista_gravacao::thePlaceholderRowIsStoredAsSongZeroAndNeverListedAgain()
{
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0});
    Digita("txtFiltro", u"zzz"_qs);
    Adiciona({0});
    QCOMPARE(Selecionadas(),
             QStringList({u"Amor - Anônimo"_qs, u"Não há dados a serem mostrados."_qs}));
    Clica("cmdSalvar");
    QCOMPARE(Lugares(),
             QList<QStringList>({{u"1"_qs, u"1"_qs, u"0"_qs}, {u"1"_qs, u"0"_qs, u"1"_qs}}));
    Responde(0, "cmdEditar");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
    QCOMPARE(Texto("lblLista"), u"1 Música(s) Selecionada(s)"_qs);
}

void tst_lista_gravacao::linksToDeletedSongsAreDroppedAtTheNextSave()
{
    const qint64 amor = Musica(u"Amor"_qs);
    const qint64 bem = Musica(u"Bem"_qs);
    const qint64 canto = Musica(u"Canto"_qs);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {amor, bem, canto});
    m_catalogo->Run(u"DELETE FROM MUSICA WHERE ID = %1"_qs.arg(bem));
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Canto"_qs}));
    QCOMPARE(Lugares().size(), 3);
    Clica("cmdSalvar");
    QCOMPARE(Lugares(),
             QList<QStringList>({{u"1"_qs, u"1"_qs, u"0"_qs}, {u"1"_qs, u"3"_qs, u"1"_qs}}));
}

void tst_lista_gravacao::apostrophesInTheNameAreKept()
{
    Carrega();
    Digita("txtNome", u"Sant'Ana d''agua"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Listas()[0][1], u"Sant'Ana d''agua"_qs);
    Responde(0, "cmdEditar");
    QCOMPARE(Texto("txtNome"), u"Sant'Ana d''agua"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Listas()[0][1], u"Sant'Ana d''agua"_qs);
}

void tst_lista_gravacao::blanksOfTheNameAreKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("around") << u"  Ensaio  geral "_qs;
    QTest::newRow("nothing else") << u"   "_qs;
}

void tst_lista_gravacao::blanksOfTheNameAreKept()
{
    QFETCH(QString, name);
    Carrega();
    Digita("txtNome", name);
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, name, u"2009-03-05"_qs}}));
}

void tst_lista_gravacao::aNameOfTenThousandCharacters()
{
    const QString nome = u"Ensaio d'água "_qs.repeated(714) + u"fim!"_qs;
    QCOMPARE(nome.size(), 10000);
    Musica(nome);
    Carrega();
    Acha<QLineEdit>("txtNome")->setText(nome);
    Adiciona({0});
    Clica("cmdSalvar");
    QCOMPARE(Listas()[0][1], nome);
    QCOMPARE(Grade(), QStringList({nome + u"|2009-03-05"_qs}));
    Responde(0, "cmdEditar");
    QCOMPARE(Texto("txtNome"), nome);
    QCOMPARE(Selecionadas(), QStringList({nome + u" - Anônimo"_qs}));
    Responde(0, "cmdCopiar");
    QCOMPARE(Texto("txtNome"), u"Cópia de "_qs + nome);
}

void tst_lista_gravacao::aNameLongerThanATextBoxUsuallyTakes()
{
    const QString nome = u"Ensaio "_qs.repeated(10'000) + u"fim"_qs;
    m_catalogo->AddSetlist(nome, QDate(2009, 3, 5));
    Carrega();
    Responde(0, "cmdEditar");
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Alterada}));
    QVERIFY(Listas()[0][1] == nome);
    const QString filtro = u"a"_qs.repeated(40'000);
    Acha<QLineEdit>("txtFiltro")->setText(filtro);
    QVERIFY(Texto("txtFiltro") == filtro);
}

void tst_lista_gravacao::twoHundredSongs()
{
    QList<qint64> musicas;
    for (int i = 0; i < 100; ++i)
        musicas.append(Musica(u"Canto %1"_qs.arg(i, 3, 10, QLatin1Char('0'))));
    m_catalogo->AddSetlist(u"Longa"_qs, QDate(2009, 3, 5), musicas + musicas);
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Texto("lblLista"), u"200 Música(s) Selecionada(s)"_qs);
    Clica_Item("lstMusicasSelecionadas", 199);
    for (int i = 0; i < 199; ++i)
        Tecla("lstMusicasSelecionadas", Qt::Key_Up, Qt::ShiftModifier);
    Clica("cmdSalvar");
    const QList<QStringList> lugares = Lugares();
    QCOMPARE(lugares.size(), 200);
    QCOMPARE(lugares[0], QStringList({u"1"_qs, u"100"_qs, u"0"_qs}));
    QCOMPARE(lugares[199], QStringList({u"1"_qs, u"99"_qs, u"199"_qs}));
}

void tst_lista_gravacao::aNameAndADateAreNeeded_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("date");
    QTest::newRow("no name") << u""_qs << u"05/03/2009"_qs;
    QTest::newRow("no date") << u"Ensaio"_qs << u""_qs;
    QTest::newRow("neither") << u""_qs << u""_qs;
    QTest::newRow("31 February") << u"Ensaio"_qs << u"31/02/2009"_qs;
    QTest::newRow("29 February of a common year") << u"Ensaio"_qs << u"29/02/2009"_qs;
    QTest::newRow("29 February of 2100") << u"Ensaio"_qs << u"29/02/2100"_qs;
    QTest::newRow("day zero") << u"Ensaio"_qs << u"00/05/2014"_qs;
    QTest::newRow("month 13") << u"Ensaio"_qs << u"13/13/2009"_qs;
    QTest::newRow("month before day") << u"Ensaio"_qs << u"03/25/2009"_qs;
    QTest::newRow("unfinished year") << u"Ensaio"_qs << u"05/03/209"_qs;
    QTest::newRow("two-digit year") << u"Ensaio"_qs << u"05/03/09"_qs;
    QTest::newRow("year below 100") << u"Ensaio"_qs << u"05/03/0099"_qs;
}

void tst_lista_gravacao::aNameAndADateAreNeeded()
{
    QFETCH(QString, name);
    QFETCH(QString, date);
    Musica(u"Amor"_qs);
    Carrega();
    Digita("txtNome", name);
    Digita("txtData", date);
    Adiciona({0});
    m_comandos.clear();
    Clica("cmdSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Exclamacao);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(Caixas(), QStringList({Preencha}));
    QVERIFY(Acha<QWidget>("txtNome")->hasFocus());
    QCOMPARE(m_comandos, QStringList());
    QCOMPARE(Listas().size(), 0);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
    QCOMPARE(Modificada(), u"1"_qs);
}

void tst_lista_gravacao::typedDatesAreStored_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("stored");
    QTest::newRow("digits") << u"05032009"_qs << u"2009-03-05"_qs;
    QTest::newRow("with slashes") << u"5/3/2009"_qs << u"2009-03-05"_qs;
    QTest::newRow("a day that could be a month") << u"05122011"_qs << u"2011-12-05"_qs;
    QTest::newRow("a day that could be none") << u"25122011"_qs << u"2011-12-25"_qs;
    QTest::newRow("leap day") << u"29022012"_qs << u"2012-02-29"_qs;
    QTest::newRow("leap day of 2000") << u"29022000"_qs << u"2000-02-29"_qs;
    QTest::newRow("the first year") << u"01010100"_qs << u"0100-01-01"_qs;
    QTest::newRow("the last day") << u"31129999"_qs << u"9999-12-31"_qs;
}

void tst_lista_gravacao::typedDatesAreStored()
{
    QFETCH(QString, keys);
    QFETCH(QString, stored);
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Digita("txtData", keys);
    const QString digitada = Texto("txtData");
    Clica("cmdSalvar");
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Ensaio"_qs, stored}}));
    QCOMPARE(Grade(), QStringList({u"Ensaio|"_qs + stored}));
    Responde(0, "cmdEditar");
    QCOMPARE(Texto("txtData"), digitada);
}

void tst_lista_gravacao::aTagThatIsNoNumberMeansANewSetlist()
{
    Carrega();
    Acha<QWidget>("txtNome")->setProperty("Tag", u"abc"_qs);
    Digita("txtNome", u"Ensaio"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
}

QTEST_MAIN(tst_lista_gravacao)
#include "tst_lista_gravacao.moc"
