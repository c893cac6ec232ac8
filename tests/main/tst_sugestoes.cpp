// The songs that the song entry panel suggests while a title is being typed, and both lists
// together.

#include "SugestoesTeste.h"

#include <QLineEdit>
#include <QWindow>

namespace {

/// Writes down the presses that reach any control of a form but one list.
class Olheiro : public QObject
{
public:
    Olheiro(QWidget& form, QWidget& lista)
        : m_form(form)
        , m_lista(lista)
    {
        qApp->installEventFilter(this);
    }

    QStringList vistos;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override
    {
        const auto* controle = qobject_cast<QWidget*>(objeto);
        const QEvent::Type tipo = evento->type();
        const bool toque = tipo == QEvent::MouseButtonPress ||
                           tipo == QEvent::MouseButtonDblClick ||
                           tipo == QEvent::MouseButtonRelease;
        // An event that a control ignores goes on to what it lies on: that is told once.
        if (toque && controle && controle->window() == &m_form && !m_lista.isAncestorOf(controle) &&
            controle != &m_form && m_ultimo != evento) {
            m_ultimo = evento;
            vistos.append(controle->objectName() + QString::number(tipo));
        }
        return false;
    }

private:
    QWidget& m_form;
    QWidget& m_lista;
    const QEvent* m_ultimo = nullptr;
};

} // namespace

class tst_sugestoes : public SugestoesTeste
{
    Q_OBJECT

private slots:
    void listsAreHiddenAtFirst();
    void typedTitleListsItsSongs();
    void titleStatementIsAsGiven();
    void clearedTitleHidesTheListAndAsksNothing();
    void blanksTypedAreAskedForAsTheyAre();
    void tabbingOutHidesTheTitlesAndBackShowsThemAgain();
    void titlesAppearWithoutTakingTheFocus();
    void listsLieDirectlyBelowTheirBoxes_data();
    void listsLieDirectlyBelowTheirBoxes();
    void listsNeitherCoverTheirBoxNorLeaveTheForm();
    void listFollowsItsBoxWhenTheWindowIsResized();
    void clickIntoTheTitlesHidesThem();
    void doubleClickOnATitleOpensItsSong();
    void doubleClickOnThePlaceholderOpensNoSong();
    void doubleClickOnASongThatIsGoneOpensNoSong();
    void doubleClickThroughTheWindowOpensItsSong();
    void twoSlowClicksReachWhatLiesBeneath();
    void aSecondClickElsewhereReachesWhatIsThere();
    void aSecondClickOfTheOtherButtonOpensNothing();
    void keyboardStaysOnTopOfTheLists();
    void anotherWindowHidesNoList();
    void mouseIntoAnotherBoxHidesTheTitles();
    void accessKeyHidesTheTitles();
    void singleMatchIsSelected();
    void prefixWithoutMatchShowsThePlaceholder();
    void versionBoxHidesBothLists_data();
    void versionBoxHidesBothLists();
    void leavingThePanelHidesBothLists();
    void apostropheRaisesNoError_data();
    void apostropheRaisesNoError();
    void loadingASongFillsTheListsAndShowsNeither();
    void loadingASongIntoTheFocusedTitleShowsItsList();
    void accentsAndLetterCaseAreTakenAsInASearch();
    void badInputRaisesNoError_data();
    void badInputRaisesNoError();
    void aFailureIsShownOnceWhileTyping();

private:
    QPoint Na_Janela(const ListBox& lista, int item) const
    {
        const QRect linha = lista.visualRect(lista.model()->index(item, 0));
        return lista.viewport()->mapTo(m_form.get(), linha.center());
    }
};

void tst_sugestoes::listsAreHiddenAtFirst()
{
    Cadastro();
    QVERIFY(m_musicas->isHidden());
    QVERIFY(m_referencias->isHidden());
    // On the form, over the panels.
    QCOMPARE(m_musicas->parentWidget(), Acha<QWidget>("pctFrame_2")->parentWidget());
    QCOMPARE(m_referencias->parentWidget(), Acha<QWidget>("pctFrame_2")->parentWidget());
}

void tst_sugestoes::typedTitleListsItsSongs()
{
    Com_Referencia(u"Amor maior"_qs, u"Zeca"_qs);
    Com_Referencia(u"Amanhecer"_qs, u"Bia"_qs);
    Com_Referencia(u"Amor maior"_qs, u"Ana"_qs);
    Com_Referencia(u"Meu amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    QVERIFY(m_musicas->isVisible());
    QCOMPARE(Itens(*m_musicas),
             QStringList({u"Amanhecer - Bia"_qs, u"Amor maior - Ana"_qs, u"Amor maior - Zeca"_qs}));
    QCOMPARE(m_musicas->ItemData(0), 2);
    QCOMPARE(m_musicas->ListIndex(), -1);
}

void tst_sugestoes::titleStatementIsAsGiven()
{
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    QCOMPARE(m_comandos,
             QStringList({u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE "
                          "'A%' ORDER BY TITULO & ' - ' & REFERENCIA"_qs,
                          u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE "
                          "'Am%' ORDER BY TITULO & ' - ' & REFERENCIA"_qs}));
    QCOMPARE(Funcoes::SQL, m_comandos.last());
}

void tst_sugestoes::clearedTitleHidesTheListAndAsksNothing()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"A"_qs);
    m_comandos.clear();
    Tecla(Qt::Key_Backspace);
    QVERIFY(m_musicas->isHidden());
    QCOMPARE(m_comandos, QStringList());
    QCOMPARE(Itens(*m_musicas), QStringList(u"Amor - Ana"_qs));
}

void tst_sugestoes::blanksTypedAreAskedForAsTheyAre()
{
    Com_Referencia(u"Amor eterno"_qs, u"Ana"_qs);
    Com_Referencia(u"Amora"_qs, u"Bia"_qs);
    Cadastro();
    Escreve_Titulo(u"Amor "_qs);
    QCOMPARE(Itens(*m_musicas), QStringList(u"Amor eterno - Ana"_qs));
    m_titulo->clear();
    Escreve_Titulo(u" "_qs);
    QVERIFY(m_musicas->isVisible());
    QCOMPARE(Itens(*m_musicas), QStringList(u"Não há dados a serem mostrados."_qs));
}

void tst_sugestoes::tabbingOutHidesTheTitlesAndBackShowsThemAgain()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"A"_qs);
    m_comandos.clear();
    Tecla(Qt::Key_Tab);
    QVERIFY(m_referencia->hasFocus());
    QVERIFY(m_musicas->isHidden());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(m_titulo->hasFocus());
    QVERIFY(m_musicas->isVisible());
    QCOMPARE(Itens(*m_musicas), QStringList(u"Amor - Ana"_qs));
    QCOMPARE(m_comandos, QStringList());
}

void tst_sugestoes::titlesAppearWithoutTakingTheFocus()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    QVERIFY(m_titulo->hasFocus());
    Escreve_Referencia(u"An"_qs);
    QVERIFY(m_referencia->hasFocus());
    QCOMPARE(m_titulo->text() + m_referencia->text(), u"AmAn"_qs);
}

void tst_sugestoes::listsLieDirectlyBelowTheirBoxes_data()
{
    QTest::addColumn<bool>("titulo");
    QTest::newRow("titles") << true;
    QTest::newRow("references") << false;
}

void tst_sugestoes::listsLieDirectlyBelowTheirBoxes()
{
    QFETCH(bool, titulo);
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    if (titulo)
        Escreve_Titulo(u"A"_qs);
    else
        Escreve_Referencia(u"A"_qs);
    const QRect caixa = No_Formulario(titulo ? *m_titulo : *m_referencia);
    const QRect lista = No_Formulario(titulo ? *m_musicas : *m_referencias);
    QCOMPARE(lista.top(), caixa.bottom() + 1);
    QCOMPARE(lista.left(), (caixa.left() * 15 - 10) / 15);
    // On top of whatever lies there.
    const QWidget* emCima = m_form->childAt(lista.center());
    QVERIFY((titulo ? m_musicas : m_referencias)->isAncestorOf(emCima));
}

void tst_sugestoes::listsNeitherCoverTheirBoxNorLeaveTheForm()
{
    for (int i = 0; i < 300; ++i)
        Com_Referencia(u"Amor %1"_qs.arg(i), u"Ana %1"_qs.arg(i));
    Cadastro();
    m_form->resize(m_form->minimumSizeHint());
    Escreve_Titulo(u"A"_qs);
    QCOMPARE(m_musicas->ListCount(), 300);
    QVERIFY(!No_Formulario(*m_musicas).intersects(No_Formulario(*m_titulo)));
    QVERIFY(m_form->rect().contains(No_Formulario(*m_musicas)));
    Escreve_Referencia(u"A"_qs);
    QCOMPARE(m_referencias->ListCount(), 300);
    QVERIFY(!No_Formulario(*m_referencias).intersects(No_Formulario(*m_referencia)));
    QVERIFY(m_form->rect().contains(No_Formulario(*m_referencias)));
    QVERIFY(m_referencias->height() > 3 * m_referencia->height());
}

void tst_sugestoes::listFollowsItsBoxWhenTheWindowIsResized()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"A"_qs);
    const int antes = m_musicas->width();
    m_form->resize(m_form->width() + 200, m_form->height());
    QTRY_VERIFY(m_musicas->width() > antes);
    QCOMPARE(No_Formulario(*m_musicas).top(), No_Formulario(*m_titulo).bottom() + 1);
}

void tst_sugestoes::clickIntoTheTitlesHidesThem()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"A"_qs);
    QTest::mouseClick(m_musicas->viewport(), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(m_musicas->isHidden());
    QVERIFY(m_referencia->hasFocus()); // what is hidden passes it on
    QCOMPARE(m_titulo->text(), u"A"_qs);
    QCOMPARE(Visualizadores().size(), 0);
}

void tst_sugestoes::doubleClickOnATitleOpensItsSong()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"Amanhecer"_qs, u"Bia"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    Clica_Duas_Vezes(*m_musicas, 1);
    QCOMPARE(Abertas(), QStringList(u"Amor"_qs));
    QCOMPARE(m_titulo->text(), u"Am"_qs); // nothing is taken over
    QCOMPARE(m_referencia->text(), QString());
}

void tst_sugestoes::doubleClickOnThePlaceholderOpensNoSong()
{
    Cadastro();
    Escreve_Titulo(u"Zz"_qs);
    Clica_Duas_Vezes(*m_musicas, 0);
    QCOMPARE(Visualizadores().size(), 1);
    QVERIFY(!Abertas().contains(u"Zz"_qs));
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_sugestoes::doubleClickOnASongThatIsGoneOpensNoSong()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    m_catalogo->Run(u"DELETE FROM MUSICA"_qs);
    Clica_Duas_Vezes(*m_musicas, 0);
    QCOMPARE(Abertas(), QStringList(QString()));
    QVERIFY(m_caixas->boxes.isEmpty());
    Escreve_Titulo(u"o"_qs);
    QCOMPARE(Itens(*m_musicas), QStringList(u"Não há dados a serem mostrados."_qs));
}

void tst_sugestoes::doubleClickThroughTheWindowOpensItsSong()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"Amanhecer"_qs, u"Bia"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    const QPoint lugar = Na_Janela(*m_musicas, 1);
    Olheiro beneath(*m_form, *m_musicas);
    QTest::mouseDClick(m_form->windowHandle(), Qt::LeftButton, {}, lugar);
    QCOMPARE(Abertas(), QStringList(u"Amor"_qs));
    QCOMPARE(beneath.vistos, QStringList());
    QVERIFY(m_musicas->isHidden());
    QVERIFY(!m_titulo->hasFocus());
    // What comes after it is an ordinary click again.
    QTest::mouseClick(m_form->windowHandle(), Qt::LeftButton, {}, lugar);
    QVERIFY(!beneath.vistos.isEmpty());
    QCOMPARE(Visualizadores().size(), 1);
}

void tst_sugestoes::twoSlowClicksReachWhatLiesBeneath()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"Amanhecer"_qs, u"Bia"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    const QPoint lugar = Na_Janela(*m_musicas, 1);
    Olheiro beneath(*m_form, *m_musicas);
    // Each click of its own is later than a double click's by the events' own clock.
    QTest::mouseClick(m_form->windowHandle(), Qt::LeftButton, {}, lugar);
    QCOMPARE(beneath.vistos, QStringList());
    QTest::mouseClick(m_form->windowHandle(), Qt::LeftButton, {}, lugar);
    QVERIFY(!beneath.vistos.isEmpty());
    QCOMPARE(Visualizadores().size(), 0);
}

void tst_sugestoes::aSecondClickElsewhereReachesWhatIsThere()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"Amanhecer"_qs, u"Bia"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    QWindow* janela = m_form->windowHandle();
    QTest::mousePress(janela, Qt::LeftButton, {}, Na_Janela(*m_musicas, 1));
    Olheiro beneath(*m_form, *m_musicas);
    QTest::mousePress(janela, Qt::LeftButton, {}, No_Formulario(*m_titulo).center());
    QVERIFY(m_titulo->hasFocus());
    QTest::mouseRelease(janela, Qt::LeftButton, {}, No_Formulario(*m_titulo).center());
    QCOMPARE(Visualizadores().size(), 0);
}

void tst_sugestoes::aSecondClickOfTheOtherButtonOpensNothing()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"Amanhecer"_qs, u"Bia"_qs);
    Cadastro();
    Escreve_Titulo(u"Am"_qs);
    const QPoint lugar = Na_Janela(*m_musicas, 1);
    QWindow* janela = m_form->windowHandle();
    QTest::mousePress(janela, Qt::LeftButton, {}, lugar);
    QTest::mousePress(janela, Qt::RightButton, {}, lugar); // no later than a double click's
    QTest::mouseRelease(janela, Qt::RightButton, {}, lugar);
    QTest::mouseRelease(janela, Qt::LeftButton, {}, lugar);
    QCOMPARE(Visualizadores().size(), 0);
}

void tst_sugestoes::keyboardStaysOnTopOfTheLists()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    auto* teclado = Acha<QWidget>("pctTeclado");
    const auto no_teclado = [teclado](const QWidget* um) {
        return um == teclado || teclado->isAncestorOf(um);
    };
    m_form->frmPrincipal::Mostra_Teclado(*m_titulo);
    Escreve_Titulo(u"A"_qs);
    QVERIFY(m_musicas->isVisible());
    QVERIFY(No_Formulario(*m_musicas).intersects(No_Formulario(*teclado)));
    const QPoint ambos = No_Formulario(*m_musicas).intersected(No_Formulario(*teclado)).center();
    QVERIFY(no_teclado(m_form->childAt(ambos)));
    Escreve_Titulo(u"m"_qs);
    QVERIFY(no_teclado(m_form->childAt(ambos)));
    // The list lies over everything else all the same.
    teclado->hide();
    QVERIFY(m_musicas->isAncestorOf(m_form->childAt(ambos)));
}

void tst_sugestoes::anotherWindowHidesNoList()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"Luz"_qs, u"Alba"_qs);
    Cadastro();
    const auto vai_e_volta = [this] {
        QLineEdit outra;
        outra.show();
        outra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&outra));
        m_form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    };
    Escreve_Titulo(u"A"_qs);
    vai_e_volta();
    QVERIFY(m_titulo->hasFocus());
    QVERIFY(m_musicas->isVisible());
    Escreve_Referencia(u"A"_qs);
    QVERIFY(m_musicas->isHidden());
    Tecla(Qt::Key_Down);
    QVERIFY(m_referencias->hasFocus());
    vai_e_volta();
    QVERIFY(m_referencias->hasFocus());
    QVERIFY(m_referencias->isVisible());
}

void tst_sugestoes::mouseIntoAnotherBoxHidesTheTitles()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"A"_qs);
    QTest::mouseClick(Acha<QWidget>("txtCadLetra_0"), Qt::LeftButton);
    QVERIFY(m_musicas->isHidden());
}

void tst_sugestoes::accessKeyHidesTheTitles()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"A"_qs);
    QTest::keyClick(m_titulo, Qt::Key_S, Qt::AltModifier);
    QTRY_VERIFY(!m_titulo->hasFocus());
    QVERIFY(m_musicas->isHidden());
}

void tst_sugestoes::singleMatchIsSelected()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"Luz"_qs, u"Bia"_qs);
    Cadastro();
    Escreve_Titulo(u"A"_qs);
    QCOMPARE(m_musicas->ListIndex(), 0);
    QVERIFY(m_musicas->Selected(0));
}

void tst_sugestoes::prefixWithoutMatchShowsThePlaceholder()
{
    Com_Referencia(u"Meu amor"_qs, u"Ana"_qs);
    Cadastro();
    Escreve_Titulo(u"amor"_qs);
    QVERIFY(m_musicas->isVisible());
    QCOMPARE(Itens(*m_musicas), QStringList(u"Não há dados a serem mostrados."_qs));
    QCOMPARE(m_musicas->ItemData(0), 0);
    Escreve_Referencia(u"x"_qs);
    QVERIFY(m_referencias->isVisible());
    QCOMPARE(Itens(*m_referencias), QStringList(u"Não há dados a serem mostrados."_qs));
}

void tst_sugestoes::versionBoxHidesBothLists_data()
{
    QTest::addColumn<int>("versao");
    QTest::newRow("version 1") << 0;
    QTest::newRow("version 2") << 1;
}

void tst_sugestoes::versionBoxHidesBothLists()
{
    QFETCH(int, versao);
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    QTest::mouseClick(Acha<QWidget>(qPrintable(u"lblMostraMusica_%1"_qs.arg(versao))),
                      Qt::LeftButton);
    Escreve_Referencia(u"H"_qs);
    m_musicas->show();
    Acha<RichTextBox>(qPrintable(u"txtCadLetra_%1"_qs.arg(versao)))->setFocus();
    QVERIFY(m_referencias->isHidden());
    QVERIFY(m_musicas->isHidden());
}

void tst_sugestoes::leavingThePanelHidesBothLists()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Titulo(u"U"_qs);
    Acha<QAction>("mnuPesquisa")->trigger();
    QVERIFY(m_musicas->isHidden());
    Acha<QAction>("mnuCadastro")->trigger();
    Escreve_Referencia(u"H"_qs);
    Acha<QAction>("mnuPesquisa")->trigger();
    QVERIFY(m_referencias->isHidden());
}

void tst_sugestoes::apostropheRaisesNoError_data()
{
    QTest::addColumn<QString>("titulo");
    QTest::newRow("in the middle") << u"D'água"_qs;
    QTest::newRow("alone") << u"'"_qs;
    QTest::newRow("two") << u"''"_qs;
    QTest::newRow("at the end") << u"Povo'"_qs;
}

void tst_sugestoes::apostropheRaisesNoError()
{
    QFETCH(QString, titulo);
    Com_Referencia(titulo + u" viva"_qs, titulo);
    Com_Referencia(u"Outra"_qs, u"Outro"_qs);
    Cadastro();
    Escreve_Titulo(titulo);
    QCOMPARE(Itens(*m_musicas), QStringList(titulo + u" viva - "_qs + titulo));
    Escreve_Referencia(titulo);
    QCOMPARE(Itens(*m_referencias), QStringList(titulo));
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_sugestoes::loadingASongFillsTheListsAndShowsNeither()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    Acha<QWidget>("lstCadTema")->setFocus();
    m_form->Inicializa_Cadastro(1);
    QCOMPARE(m_titulo->text(), u"Amor"_qs);
    QCOMPARE(Itens(*m_musicas), QStringList(u"Amor - Ana"_qs));
    QCOMPARE(Itens(*m_referencias), QStringList(u"Ana"_qs));
    QVERIFY(m_musicas->isHidden());
    QVERIFY(m_referencias->isHidden());
    m_referencia->setFocus();
    QVERIFY(m_referencias->isVisible());
}

void tst_sugestoes::loadingASongIntoTheFocusedTitleShowsItsList()
{
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Cadastro();
    QVERIFY(m_titulo->hasFocus());
    m_form->Inicializa_Cadastro(1);
    QVERIFY(m_musicas->isVisible());
    QVERIFY(m_referencias->isHidden());
    QVERIFY(m_titulo->hasFocus());
}

void tst_sugestoes::accentsAndLetterCaseAreTakenAsInASearch()
{
    Com_Referencia(u"Água viva"_qs, u"Érica"_qs);
    Com_Referencia(u"Agua mansa"_qs, u"erica"_qs);
    Cadastro();
    Escreve_Titulo(u"agua"_qs);
    QCOMPARE(m_musicas->ListCount(), 2);
    m_titulo->clear();
    Escreve_Titulo(u"água"_qs);
    QCOMPARE(Itens(*m_musicas), QStringList(u"Água viva - Érica"_qs));
    Escreve_Referencia(u"e"_qs);
    QCOMPARE(Itens(*m_referencias), QStringList({u"erica"_qs, u"Érica"_qs}));
}

void tst_sugestoes::badInputRaisesNoError_data()
{
    QTest::addColumn<QString>("texto");
    QTest::newRow("100,000 characters") << QString(100000, u'a');
    QTest::newRow("100,000 apostrophes") << QString(100000, u'\'');
    QTest::newRow("100,000 percent signs") << QString(100000, u'%');
    QTest::newRow("100,000 brackets") << QString(100000, u'[');
    QTest::newRow("control characters") << u"\u0001\u0007\u001b\u007f"_qs;
    QTest::newRow("the character 0") << QString(QChar(0)) + u"a"_qs;
    QTest::newRow("a high surrogate alone") << u"a"_qs + QString(QChar(0xd83c));
    QTest::newRow("a low surrogate alone") << QString(QChar(0xdfb5)) + u"a"_qs;
    QTest::newRow("a percent sign") << u"50% da%"_qs;
    QTest::newRow("underlines") << u"a_b__"_qs;
    QTest::newRow("an open bracket") << u"Sol [vivo"_qs;
    QTest::newRow("a set") << u"[a-z]"_qs;
    QTest::newRow("quotes and backslashes") << u"\"a\\\" -- ; DROP TABLE MUSICA"_qs;
}

void tst_sugestoes::badInputRaisesNoError()
{
    QFETCH(QString, texto);
    Com_Referencia(u"Amor"_qs, u"Ana"_qs);
    Com_Referencia(u"50% da vida"_qs, u"Sol [vivo]"_qs);
    Cadastro();
    for (TextBox* caixa : {m_titulo, m_referencia}) {
        caixa->setFocus();
        caixa->setText(texto);
        QVERIFY2(m_caixas->boxes.isEmpty(), qPrintable(caixa->objectName()));
        QVERIFY((caixa == m_titulo ? m_musicas : m_referencias)->isVisible());
        QVERIFY((caixa == m_titulo ? m_musicas : m_referencias)->ListCount() > 0);
    }
    // What is there can still be looked for.
    m_titulo->setText(u"50"_qs);
    QCOMPARE(Itens(*m_musicas), QStringList(u"50% da vida - Sol [vivo]"_qs));
}

void tst_sugestoes::aFailureIsShownOnceWhileTyping()
{
    Cadastro();
    Funcoes::Conexao.Close();
    Escreve_Titulo(u"Amor"_qs);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_titulo->text(), u"Amor"_qs);
}

QTEST_MAIN(tst_sugestoes)
#include "tst_sugestoes.moc"
