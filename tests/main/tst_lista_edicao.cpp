// The setlist on screen: songs taken over, taken out and moved, and when that asks before it goes.

#include "ListaTeste.h"

#include "controls/ImageButton.h"
#include "runtime/RuntimeError.h"

class tst_lista_edicao : public ListaTeste
{
    Q_OBJECT

private slots:
    void theMenuShowsAPreparedPanel();
    void theDateIsToday_data();
    void theDateIsToday();
    void afterMidnightTodayIsTheNextDay();
    void aDoubleClickAdds();
    void enterInTheListAdds();
    void enterInTheFilterAddsTheOnlySongLeft();
    void aHeldEnterAddsOnce_data();
    void aHeldEnterAddsOnce();
    void theAddButtonAdds();
    void addingWithoutACurrentSongOnlyMarksAChange();
    void theSameSongCanBeAddedTwice();
    void thePlaceholderRowCanBeAdded();
    void removingGoesOnToTheNextSong();
    void removingTheLastSongGoesBackToTheOneBefore();
    void removingTheOnlySongLeavesNone();
    void deleteRemoves();
    void deleteWithoutACurrentSongDoesNothing();
    void removingWithoutACurrentSongFailsAndChangesNothing();
    void arrowButtonsMoveAndLeaveTheFlagAlone();
    void arrowButtonsStopAtTheEnds();
    void theArrowsMoveTheSongThatASecondPressMet();
    void loadingTellsTheCurrentSong();
    void withoutACurrentSongUpDoesNothingAndDownFails();
    void clearingStartsANewSetlist();
    void clearingForgetsTheCurrentSong();
    void clearingKeepsTheFiltersAndTheOffer();
    void clearingAsksOnlyAfterChanges();
    void namesAndDatesAreNoChanges();
    void movedByButtonsNothingAsks();
    void movedByKeysTheQuestionComes();
    void theDiscardQuestionKeepsComingBack();
    void refusedClearingStillRefreshesThePanel();
    void choosingListaAgainInitialisesItWithoutAQuestion();
    void accessKeysBelongToTheShownPanel();
    void tabFollowsTheEye();
    void everyControlHasANameForScreenReaders();

private:
    void Carrega_Com_Quatro();
};

void tst_lista_edicao::Carrega_Com_Quatro()
{
    for (const QString& titulo : {u"Amor"_qs, u"Bondade"_qs, u"Canto"_qs, u"Deus"_qs})
        Musica(titulo);
    Carrega();
    Adiciona({0, 1, 2, 3});
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bondade"_qs, u"Canto"_qs, u"Deus"_qs}));
}

void tst_lista_edicao::theMenuShowsAPreparedPanel()
{
    Musica(u"Amor"_qs);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    Carrega();
    QVERIFY(Acha<QWidget>("pctFrame_1")->isVisible());
    QVERIFY(Acha<QWidget>("txtNome")->hasFocus());
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
    QCOMPARE(Texto("txtNome"), QString());
    QCOMPARE(Texto("txtData"), u"05/03/2009"_qs);
    QCOMPARE(Texto("lblLista"), u"0 Música(s) Selecionada(s)"_qs);
    QCOMPARE(Texto("lblMusicasEncontradas"), u"1 Música(s) disponível(is)"_qs);
    QCOMPARE(Texto("lblResultado2"), u"1 Registro(s) Encontrado(s)."_qs);
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
    QCOMPARE(Selecionadas(), QStringList());
    QVERIFY(Acha<QRadioButton>("optTipo_0")->isChecked());
    QCOMPARE(Acha<ComboBox>("cmbTema")->currentText(), u"TODAS"_qs);
    QCOMPARE(Texto("lblNome"), u"Nome:"_qs);
    QCOMPARE(Texto("lblData"), u"Data:"_qs);
    QCOMPARE(Texto("lblMusicas"), u"Músicas:"_qs);
    QCOMPARE(Texto("optTipo_0"), u"Religiosas"_qs);
    QCOMPARE(Texto("optTipo_1"), u"Seculares"_qs);
    QCOMPARE(Texto("cmdSalvar"), u"&Salvar"_qs);
    QCOMPARE(Texto("cmdLimpar"), u"&Limpar"_qs);
    QCOMPARE(Acha<QWidget>("cmdUp")->toolTip(), u"Sobe a música selecionada"_qs);
    QCOMPARE(Acha<QWidget>("cmdDown")->toolTip(), u"Desce a música selecionada"_qs);
    QCOMPARE(Texto("lblDica"),
             u"Para abrir, editar, copiar ou excluir uma lista, dê um duplo clique sobre ela."_qs);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::theDateIsToday_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QString>("text");
    QTest::newRow("2009") << QDate(2009, 3, 5) << u"05/03/2009"_qs;
    QTest::newRow("a clock set to 1999") << QDate(1999, 12, 31) << u"31/12/1999"_qs;
    QTest::newRow("a clock set to 2100") << QDate(2100, 2, 28) << u"28/02/2100"_qs;
    QTest::newRow("a leap day") << QDate(2000, 2, 29) << u"29/02/2000"_qs;
}

void tst_lista_edicao::theDateIsToday()
{
    QFETCH(QDate, today);
    QFETCH(QString, text);
    m_hoje = today;
    Carrega();
    QCOMPARE(Texto("txtData"), text);
    Digita("txtNome", u"Ensaio"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Ensaio"_qs, today.toString(Qt::ISODate)}}));
    QCOMPARE(Grade(), QStringList({u"Ensaio|"_qs + today.toString(Qt::ISODate)}));
    QCOMPARE(Texto("txtData"), text);
}

void tst_lista_edicao::afterMidnightTodayIsTheNextDay()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2008, 1, 2));
    Carrega();
    QCOMPARE(Texto("txtData"), u"05/03/2009"_qs);
    m_hoje = QDate(2009, 3, 6);
    Clica("cmdLimpar");
    QCOMPARE(Texto("txtData"), u"06/03/2009"_qs);
    m_hoje = QDate(2009, 3, 7);
    Responde(0, "cmdCopiar");
    QCOMPARE(Texto("txtData"), u"07/03/2009"_qs);
}

void tst_lista_edicao::aDoubleClickAdds()
{
    const qint64 amor = Musica(u"Amor"_qs);
    const qint64 canto = Musica(u"Canto"_qs);
    Carrega();
    Adiciona({1, 0});
    QCOMPARE(Selecionadas(), QStringList({u"Canto - Anônimo"_qs, u"Amor - Anônimo"_qs}));
    QCOMPARE(Ids(*Acha<ListBox>("lstMusicasSelecionadas")), QList<qint64>({canto, amor}));
    QCOMPARE(Texto("lblLista"), u"2 Música(s) Selecionada(s)"_qs);
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Oferecidas().size(), 2);
}

void tst_lista_edicao::enterInTheListAdds()
{
    Musica(u"Amor"_qs);
    Musica(u"Canto"_qs);
    Carrega();
    Clica_Item("lstMusicasLista", 1);
    Tecla("lstMusicasLista", Qt::Key_Return);
    Tecla("lstMusicasLista", Qt::Key_Enter);
    Tecla("lstMusicasLista", Qt::Key_Space);
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs, u"Canto"_qs}));
}

void tst_lista_edicao::enterInTheFilterAddsTheOnlySongLeft()
{
    Musica(u"Amor"_qs);
    Musica(u"Canto"_qs);
    Carrega();
    Digita("txtFiltro", u"ca"_qs);
    Tecla("txtFiltro", Qt::Key_Return);
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs}));
    QVERIFY(Acha<QWidget>("txtFiltro")->hasFocus());
    // The filter stands and the song is still on offer.
    QCOMPARE(Texto("txtFiltro"), u"ca"_qs);
    Tecla("txtFiltro", Qt::Key_Enter);
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs, u"Canto"_qs}));
    QCOMPARE(Oferecidas(), QStringList({u"Canto - Anônimo"_qs}));
}

void tst_lista_edicao::aHeldEnterAddsOnce_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("in the list") << QByteArray("lstMusicasLista");
    QTest::newRow("in the filter") << QByteArray("txtFiltro");
}

void tst_lista_edicao::aHeldEnterAddsOnce()
{
    QFETCH(QByteArray, control);
    Musica(u"Amor"_qs);
    Carrega();
    Segura_Enter(control.constData());
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
}

void tst_lista_edicao::theAddButtonAdds()
{
    Musica(u"Amor"_qs);
    Musica(u"Canto"_qs);
    Carrega();
    Clica_Item("lstMusicasLista", 0);
    Clica("cmdAdicionar");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
}

void tst_lista_edicao::addingWithoutACurrentSongOnlyMarksAChange()
{
    Musica(u"Amor"_qs);
    Musica(u"Canto"_qs);
    Carrega();
    Clica("cmdAdicionar");
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(Texto("lblLista"), u"0 Música(s) Selecionada(s)"_qs);
    QCOMPARE(Modificada(), u"1"_qs);
}

void tst_lista_edicao::theSameSongCanBeAddedTwice()
{
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0, 0});
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Amor"_qs}));
    QCOMPARE(Texto("lblLista"), u"2 Música(s) Selecionada(s)"_qs);
}

void tst_lista_edicao::thePlaceholderRowCanBeAdded()
{
    Carrega();
    QCOMPARE(Oferecidas(), QStringList({u"Não há dados a serem mostrados."_qs}));
    QCOMPARE(Texto("lblMusicasEncontradas"), u"0 Música(s) disponível(is)"_qs);
    Adiciona({0});
    QCOMPARE(Selecionadas(), QStringList({u"Não há dados a serem mostrados."_qs}));
    QCOMPARE(Ids(*Acha<ListBox>("lstMusicasSelecionadas")), QList<qint64>({0}));
}

void tst_lista_edicao::removingGoesOnToTheNextSong()
{
    Carrega_Com_Quatro();
    Seleciona(1);
    Clica("cmdRemover");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Canto"_qs, u"Deus"_qs}));
    QCOMPARE(Atual(), 1);
    QCOMPARE(Texto("lblLista"), u"3 Música(s) Selecionada(s)"_qs);
    Clica("cmdRemover");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Deus"_qs}));
    QCOMPARE(Atual(), 1);
    QCOMPARE(Modificada(), u"1"_qs);
}

void tst_lista_edicao::removingTheLastSongGoesBackToTheOneBefore()
{
    Carrega_Com_Quatro();
    Seleciona(3);
    Clica("cmdRemover");
    QCOMPARE(Atual(), 2);
    Clica("cmdUp");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Canto"_qs, u"Bondade"_qs}));
    QCOMPARE(Atual(), 1);
}

void tst_lista_edicao::removingTheOnlySongLeavesNone()
{
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0});
    Seleciona(0);
    Clica("cmdRemover");
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(Atual(), -1);
    QCOMPARE(Caixas(), QStringList());
    // The arrows have nothing to move now.
    Clica("cmdUp");
    Clica("cmdDown");
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::deleteRemoves()
{
    Carrega_Com_Quatro();
    Seleciona(0);
    Tecla("lstMusicasSelecionadas", Qt::Key_Delete);
    Tecla("lstMusicasSelecionadas", Qt::Key_Delete);
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs, u"Deus"_qs}));
    QCOMPARE(Atual(), 0);
}

void tst_lista_edicao::deleteWithoutACurrentSongDoesNothing()
{
    Carrega_Com_Quatro();
    Tecla("lstMusicasSelecionadas", Qt::Key_Delete);
    QCOMPARE(Selecionadas().size(), 4);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::removingWithoutACurrentSongFailsAndChangesNothing()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Clica("cmdRemover");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs}));
    QCOMPARE(Modificada(), u"0"_qs);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QVERIFY(m_caixas->boxes[0].text.contains(u"Não há item nessa posição da lista."));
}

void tst_lista_edicao::arrowButtonsMoveAndLeaveTheFlagAlone()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs), Musica(u"Canto"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Seleciona(2);
    Clica("cmdUp");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Canto"_qs, u"Bem"_qs}));
    QCOMPARE(Ids(*Acha<ListBox>("lstMusicasSelecionadas")), QList<qint64>({1, 3, 2}));
    QCOMPARE(Atual(), 1);
    Clica("cmdUp");
    Clica("cmdDown");
    Clica("cmdDown");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs, u"Canto"_qs}));
    QCOMPARE(Atual(), 2);
    QCOMPARE(Modificada(), u"0"_qs);
}

void tst_lista_edicao::arrowButtonsStopAtTheEnds()
{
    Carrega_Com_Quatro();
    const QStringList antes = Titulos();
    Seleciona(0);
    Clica("cmdUp");
    QCOMPARE(Titulos(), antes);
    Seleciona(3);
    Clica("cmdDown");
    QCOMPARE(Titulos(), antes);
    QCOMPARE(Atual(), 3);
}

void tst_lista_edicao::theArrowsMoveTheSongThatASecondPressMet()
{
    Carrega_Com_Quatro();
    Seleciona(0);
    auto* lista = Acha<ListBox>("lstMusicasSelecionadas");
    const QPoint outra = Lugar(lista, 2);
    QTest::mouseDClick(lista->viewport(), Qt::LeftButton, {}, outra);
    QTest::mouseRelease(lista->viewport(), Qt::LeftButton, {}, outra);
    QCOMPARE(Atual(), 2);
    Clica("cmdDown");
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bondade"_qs, u"Deus"_qs, u"Canto"_qs}));
    QCOMPARE(Atual(), 3);
}

void tst_lista_edicao::loadingTellsTheCurrentSong()
{
    const qint64 amor = Musica(u"Amor"_qs);
    const qint64 bem = Musica(u"Bem"_qs);
    m_catalogo->AddSetlist(u"Duas"_qs, QDate(2009, 3, 6), {amor, bem});
    m_catalogo->AddSetlist(u"Uma"_qs, QDate(2009, 3, 5), {amor});
    Carrega();
    Adiciona({0, 1});
    Seleciona(1);
    Responde(0, "cmdEditar");
    QCOMPARE(Atual(), -1);
    Clica("cmdUp"); // no song is current, though the second one was before
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs}));
    Responde(1, "cmdEditar");
    QCOMPARE(Atual(), 0); // the only one there is
    Adiciona({1});
    Clica("cmdDown");
    QCOMPARE(Titulos(), QStringList({u"Bem"_qs, u"Amor"_qs}));
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::withoutACurrentSongUpDoesNothingAndDownFails()
{
    Carrega_Com_Quatro();
    // The focus that arrives makes no song the current one.
    Acha<QWidget>("lstMusicasSelecionadas")->setFocus();
    Clica("cmdUp");
    QCOMPARE(Caixas(), QStringList());
    Clica("cmdDown");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QVERIFY(m_caixas->boxes[0].text.contains(u"Não há item nessa posição da lista."));
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bondade"_qs, u"Canto"_qs, u"Deus"_qs}));
}

void tst_lista_edicao::clearingStartsANewSetlist()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2008, 12, 31), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Identidade(), u"1"_qs);
    Clica("cmdLimpar");
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Texto("txtNome"), QString());
    QCOMPARE(Texto("txtData"), u"05/03/2009"_qs);
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(Texto("lblLista"), u"0 Música(s) Selecionada(s)"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::clearingForgetsTheCurrentSong()
{
    Carrega_Com_Quatro();
    Seleciona(1);
    Clica("cmdLimpar");
    Adiciona({2, 3});
    Clica("cmdUp");
    QCOMPARE(Titulos(), QStringList({u"Canto"_qs, u"Deus"_qs}));
    QCOMPARE(Atual(), -1);
}

void tst_lista_edicao::clearingKeepsTheFiltersAndTheOffer()
{
    Musica(u"Amor"_qs);
    Musica(u"Canto"_qs);
    Carrega();
    Digita("txtFiltro", u"a"_qs);
    Acha<ComboBox>("cmbTema")->SetListIndex(1);
    QCOMPARE(Acha<ListBox>("lstMusicasLista")->ListIndex(), 0);
    Clica("cmdLimpar");
    QCOMPARE(Acha<ListBox>("lstMusicasLista")->ListIndex(), 0);
    QCOMPARE(Texto("txtFiltro"), u"a"_qs);
    QCOMPARE(Acha<ComboBox>("cmbTema")->ListIndex(), 1);
    QCOMPARE(Oferecidas(), QStringList({u"Amor - Anônimo"_qs}));
}

void tst_lista_edicao::clearingAsksOnlyAfterChanges()
{
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0});
    m_caixas->answer = false;
    Clica("cmdLimpar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].text, u"Deseja descartar as modificações na lista?"_qs);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Pergunta);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
    QCOMPARE(Modificada(), u"1"_qs);

    m_caixas->answer = true;
    Clica("cmdLimpar");
    QCOMPARE(Titulos(), QStringList());
    Caixas();
    Clica("cmdLimpar");
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::namesAndDatesAreNoChanges()
{
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Digita("txtData", u"31122008"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::movedByButtonsNothingAsks()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Seleciona(0);
    Clica("cmdDown");
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), QStringList());
    QVERIFY(Acha<QWidget>("pctFrame_0")->isVisible());
}

void tst_lista_edicao::movedByKeysTheQuestionComes()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Seleciona(0);
    Tecla("lstMusicasSelecionadas", Qt::Key_Down, Qt::ShiftModifier);
    m_caixas->answer = false;
    for (const char* menu : {"mnuPesquisa", "mnuCadastro", "mnuSair"}) {
        Escolhe(menu);
        QCOMPARE(Caixas(), QStringList({u"Deseja descartar as modificações na lista?"_qs}));
        QVERIFY(Acha<QWidget>("pctFrame_1")->isVisible());
        QCOMPARE(Titulos(), QStringList({u"Bem"_qs, u"Amor"_qs}));
    }
}

void tst_lista_edicao::theDiscardQuestionKeepsComingBack()
{
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0});
    const QStringList pergunta{u"Deseja descartar as modificações na lista?"_qs};
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), pergunta);
    QVERIFY(Acha<QWidget>("pctFrame_0")->isVisible());
    QCOMPARE(Modificada(), u"1"_qs);
    Escolhe("mnuCadastro");
    QCOMPARE(Caixas(), pergunta);
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), pergunta);
    // Opening the panel clears it, and that asks as well; then there is peace.
    Escolhe("mnuLista");
    QCOMPARE(Caixas(), pergunta);
    QCOMPARE(Modificada(), u"0"_qs);
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::refusedClearingStillRefreshesThePanel()
{
    Musica(u"Amor"_qs);
    Carrega();
    Adiciona({0});
    Escolhe("mnuPesquisa");
    Musica(u"Novo"_qs);
    m_catalogo->AddTheme(u"Natal"_qs);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    m_caixas->answer = false;
    Escolhe("mnuLista");
    QVERIFY(Acha<QWidget>("pctFrame_1")->isVisible());
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Oferecidas().size(), 2);
    QCOMPARE(Acha<ComboBox>("cmbTema")->ListCount(), 4);
    QCOMPARE(Grade().size(), 1);
}

void tst_lista_edicao::choosingListaAgainInitialisesItWithoutAQuestion()
{
    Carrega();
    Digita("txtNome", u"Ensaio"_qs);
    Escolhe("mnuLista");
    QCOMPARE(Texto("txtNome"), QString());
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_edicao::accessKeysBelongToTheShownPanel()
{
    Carrega();
    QTest::keyClick(m_form.get(), Qt::Key_S, Qt::AltModifier);
    QCOMPARE(Caixas(), QStringList({u"Preencha o nome e a data da lista corretamente."_qs}));
    Digita("txtNome", u"Ensaio"_qs);
    QTest::keyClick(m_form.get(), Qt::Key_L, Qt::AltModifier);
    QCOMPARE(Texto("txtNome"), QString());
}

void tst_lista_edicao::tabFollowsTheEye()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
    Carrega();
    QStringList visitados;
    for (int i = 0; i < 15; ++i) {
        visitados.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    // One of the two option buttons is reached, the arrows go to the other.
    QCOMPARE(visitados.mid(0, 14),
             QStringList({u"txtNome"_qs, u"txtData"_qs, u"txtFiltro"_qs, u"optTipo_0"_qs,
                          u"cmbTema"_qs, u"lstMusicasLista"_qs, u"cmdAdicionar"_qs,
                          u"cmdRemover"_qs, u"lstMusicasSelecionadas"_qs, u"cmdUp"_qs,
                          u"cmdDown"_qs, u"cmdSalvar"_qs, u"cmdLimpar"_qs, u"lstLista"_qs}));
}

void tst_lista_edicao::everyControlHasANameForScreenReaders()
{
    Carrega();
    const QStringList nomes{u"lstMusicasLista"_qs, u"lstMusicasSelecionadas"_qs,
                            u"lstLista"_qs,        u"cmbTema"_qs,
                            u"cmdAdicionar"_qs,    u"cmdRemover"_qs,
                            u"cmdUp"_qs,           u"cmdDown"_qs};
    for (const QString& nome : nomes)
        QVERIFY2(!Acha<QWidget>(qPrintable(nome))->accessibleName().isEmpty(), qPrintable(nome));
    QCOMPARE(Acha<QLabel>("lblNome")->buddy(), Acha<QWidget>("txtNome"));
    QCOMPARE(Acha<QLabel>("lblData")->buddy(), Acha<QWidget>("txtData"));
    QCOMPARE(Acha<QLabel>("lblMusicas")->buddy(), Acha<QWidget>("txtFiltro"));
}

QTEST_MAIN(tst_lista_edicao)
#include "tst_lista_edicao.moc"
