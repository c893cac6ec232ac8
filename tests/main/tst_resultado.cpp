#include "PesquisaTeste.h"

#include <QHeaderView>
#include <QKeyEvent>

class tst_resultado : public PesquisaTeste
{
    Q_OBJECT

private slots:
    void enterInABoxOpensTheFirstRow_data();
    void enterInABoxOpensTheFirstRow();
    void heldEnterInABoxOpensOneViewer();
    void enterFollowsTheSortOfTheList();
    void enterOnAnEmptyListDoesNothing();
    void onlyASearchWithoutHitsLeavesAPicture();
    void enterBeforeThePendingSearchOpensTheOldList();
    void doubleClickOpensASong();
    void doubleClickWithCtrlOpensTheRowUnderIt_data();
    void doubleClickWithCtrlOpensTheRowUnderIt();
    void enterOpensTheSelectedSong();
    void everyOpeningIsOneMoreViewer();
    void openingASongThatIsGoneTellsNothing();
    void openingThatFailsTellsNothing();
    void keyboardThatStaysTellsNothing();
    void nothingSelectedDoesNothing();
    void deleteLoadsAndDeletes();
    void deleteGoesOnAfterARefusedSwitch();
    void rightButtonLoadsForEditing();
    void rightButtonGoesOnAfterARefusedSwitch();
    void rowIsReadBeforeTheQuestion_data();
    void rowIsReadBeforeTheQuestion();
    void countLineTogglesTheView();
    void headersSortAndANewSearchDoesNot();
    void eachHeaderSortsByItsColumn();
    void twoFastClicksOnAHeaderTurnTheOrderTwice();
};

void tst_resultado::enterInABoxOpensTheFirstRow_data()
{
    QTest::addColumn<QByteArray>("caixa");
    QTest::addColumn<int>("tecla");
    for (const char* caixa : {"txtTitulo", "txtReferencia", "txtLetra"}) {
        QTest::addRow("Enter in %s", caixa) << QByteArray(caixa) << int{Qt::Key_Return};
        QTest::addRow("keypad Enter in %s", caixa) << QByteArray(caixa) << int{Qt::Key_Enter};
    }
}

void tst_resultado::enterInABoxOpensTheFirstRow()
{
    QFETCH(QByteArray, caixa);
    QFETCH(int, tecla);
    Musica(u"Luz"_qs);
    Musica(u"Bossa"_qs);
    Carrega();
    QTest::keyClick(Acha<QWidget>(caixa.constData()), static_cast<Qt::Key>(tecla));
    QCOMPARE(Abertas(), QStringList(u"Bossa"_qs));
    QCOMPARE(m_form->chamadas, QStringList(u"Oculta_Teclado"_qs));
    QVERIFY(m_pesquisas.isEmpty());
}

void tst_resultado::heldEnterInABoxOpensOneViewer()
{
    Musica(u"Luz"_qs);
    Carrega();
    for (const bool repetida : {false, true, true, true}) {
        QKeyEvent tecla(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), repetida);
        QCoreApplication::sendEvent(Acha<QWidget>("txtTitulo"), &tecla);
    }
    QCOMPARE(Abertas(), QStringList(u"Luz"_qs));
}

void tst_resultado::enterFollowsTheSortOfTheList()
{
    Musica(u"Bossa"_qs);
    Musica(u"Luz"_qs);
    Musica(u"Zelo"_qs);
    Carrega();
    QTest::mouseClick(m_lista->header()->viewport(), Qt::LeftButton, {}, QPoint(40, 12));
    QTest::keyClick(Acha<QWidget>("txtTitulo"), Qt::Key_Return);
    QCOMPARE(Abertas(), QStringList(u"Zelo"_qs));
}

void tst_resultado::enterOnAnEmptyListDoesNothing()
{
    Carrega();
    QCOMPARE(m_lista->ListCount(), 0);
    QTest::keyClick(Acha<QWidget>("txtTitulo"), Qt::Key_Return);
    QVERIFY(Visualizadores().isEmpty());
    QVERIFY(m_form->chamadas.isEmpty());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_resultado::onlyASearchWithoutHitsLeavesAPicture()
{
    Musica(u"Bossa"_qs);
    QVERIFY(Mostra_Formulario());
    m_lista = Acha<ListaMusicas>("lstMusicas");
    QVERIFY(!Desenho_No_Meio(*m_lista)); // nothing was looked for yet
    QTest::keyClicks(Acha<QWidget>("txtTitulo"), u"zzz"_qs);
    Espera_Pesquisa();
    QCOMPARE(m_lista->ListCount(), 0);
    QVERIFY(Desenho_No_Meio(*m_lista));
    QTest::keyClick(Acha<QWidget>("txtTitulo"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(Acha<QWidget>("txtTitulo"), u"bos"_qs);
    Espera_Pesquisa();
    QCOMPARE(m_lista->ListCount(), 1);
    QVERIFY(!Desenho_No_Meio(*m_lista));
}

void tst_resultado::enterBeforeThePendingSearchOpensTheOldList()
{
    Musica(u"Bossa"_qs);
    Musica(u"Luz"_qs);
    Carrega();
    QTest::keyClicks(Acha<QWidget>("txtTitulo"), u"luz"_qs);
    QTest::keyClick(Acha<QWidget>("txtTitulo"), Qt::Key_Return);
    QCOMPARE(Abertas(), QStringList(u"Bossa"_qs));
    Espera_Pesquisa();
    QCOMPARE(Titulos(), QStringList(u"Luz"_qs));
}

void tst_resultado::doubleClickOpensASong()
{
    Musica(u"Bossa"_qs);
    Musica(u"Luz"_qs);
    Carrega();
    const QPoint segunda = m_lista->visualRect(m_lista->model()->index(1, 0)).center();
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, {}, segunda);
    QVERIFY(Visualizadores().isEmpty());
    QTest::mouseDClick(m_lista->viewport(), Qt::LeftButton, {}, segunda);
    QCOMPARE(Abertas(), QStringList(u"Luz"_qs));
    QVERIFY(Visualizadores().first()->isWindow());
    QVERIFY(!Visualizadores().first()->isModal());
    QCOMPARE(m_form->chamadas, QStringList(u"Oculta_Teclado"_qs));
}

void tst_resultado::doubleClickWithCtrlOpensTheRowUnderIt_data()
{
    QTest::addColumn<QList<int>>("marcadas");
    QTest::newRow("nothing marked") << QList<int>{};
    QTest::newRow("others marked") << QList<int>{0, 2};
    QTest::newRow("marked itself") << QList<int>{1};
    QTest::newRow("marked with others") << QList<int>{0, 1, 2};
}

/// With Ctrl the first press of two marks a row or takes its mark away.
void tst_resultado::doubleClickWithCtrlOpensTheRowUnderIt()
{
    QFETCH(QList<int>, marcadas);
    Musica(u"Bossa"_qs);
    Musica(u"Luz"_qs);
    Musica(u"Zelo"_qs);
    Carrega();
    const auto lugar = [this](int linha) {
        return m_lista->visualRect(m_lista->model()->index(linha, 0)).center();
    };
    for (const int linha : marcadas)
        QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier, lugar(linha));
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier, lugar(1));
    QTest::mouseDClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier, lugar(1));
    QCOMPARE(Abertas(), QStringList(u"Luz"_qs));
    // Songs that were marked for export stay so.
    for (const int linha : marcadas)
        QVERIFY(m_lista->selectionModel()->isSelected(m_lista->model()->index(linha, 0)));
}

void tst_resultado::enterOpensTheSelectedSong()
{
    Musica(u"Bossa"_qs);
    Musica(u"Luz"_qs);
    Carrega();
    Clica_Linha(1);
    QTest::keyClick(m_lista, Qt::Key_Return);
    QCOMPARE(Abertas(), QStringList(u"Luz"_qs));
}

void tst_resultado::everyOpeningIsOneMoreViewer()
{
    Musica(u"Luz"_qs);
    Carrega();
    Clica_Linha(0);
    QTest::keyClick(m_lista, Qt::Key_Return);
    QTest::keyClick(m_lista, Qt::Key_Enter);
    QCOMPARE(Abertas(), QStringList({u"Luz"_qs, u"Luz"_qs}));
}

void tst_resultado::openingASongThatIsGoneTellsNothing()
{
    const qint64 id = Musica(u"Luz"_qs);
    Carrega();
    m_catalogo->Run(u"DELETE FROM MUSICA WHERE ID = %1"_qs.arg(id));
    Clica_Linha(0);
    QTest::keyClick(m_lista, Qt::Key_Return);
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Abertas(), QStringList(QString())); // a viewer without a song
    QVERIFY(Visualizadores().first()->isVisible());
    QCOMPARE(m_form->chamadas, QStringList(u"Oculta_Teclado"_qs));
}

void tst_resultado::openingThatFailsTellsNothing()
{
    Musica(u"Luz"_qs);
    Carrega();
    m_catalogo->Run(u"INSERT INTO TOM (ID, NOTA, ORDEM, MAIS) VALUES (13, 'H', 13, 'H')"_qs);
    QTest::keyClick(Acha<QWidget>("txtTitulo"), Qt::Key_Return);
    QVERIFY(m_caixas->boxes.isEmpty());
    const QList<QWidget*> abertos = Visualizadores();
    for (const QWidget* visualizador : abertos)
        QVERIFY(!visualizador->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(Visualizadores().isEmpty());
    QCOMPARE(m_form->chamadas, QStringList(u"Oculta_Teclado"_qs));
}

void tst_resultado::keyboardThatStaysTellsNothing()
{
    Musica(u"Luz"_qs);
    Carrega();
    m_form->falhaAoOcultar = true;
    QTest::keyClick(Acha<QWidget>("txtTitulo"), Qt::Key_Return);
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Abertas(), QStringList(u"Luz"_qs));
}

void tst_resultado::nothingSelectedDoesNothing()
{
    Musica(u"Luz"_qs);
    Carrega();
    m_lista->setFocus();
    QTest::keyClick(m_lista, Qt::Key_Return);
    QTest::keyClick(m_lista, Qt::Key_Delete);
    const QPoint vazio(30, m_lista->viewport()->height() - 6);
    QTest::mouseClick(m_lista->viewport(), Qt::RightButton, {}, vazio);
    QTest::mouseDClick(m_lista->viewport(), Qt::LeftButton, {}, vazio);
    QVERIFY(m_form->chamadas.isEmpty());
    QVERIFY(Visualizadores().isEmpty());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_resultado::deleteLoadsAndDeletes()
{
    const qint64 id = Musica(u"Luz"_qs);
    Carrega();
    Clica_Linha(0);
    QTest::keyClick(m_lista, Qt::Key_Delete);
    QCOMPARE(m_form->chamadas,
             QStringList({u"Verifica_Modificacoes"_qs, u"Inicializa_Cadastro 0"_qs,
                          u"Inicializa_Cadastro %1"_qs.arg(id), u"cmdExcluir_Click"_qs}));
    QVERIFY(Acha<QWidget>("pctFrame_2")->isVisible());
    QVERIFY(!Acha<QWidget>("pctFrame_0")->isVisible());
}

void tst_resultado::deleteGoesOnAfterARefusedSwitch()
{
    const qint64 id = Musica(u"Luz"_qs);
    Carrega();
    m_form->aceita = false;
    Clica_Linha(0);
    QTest::keyClick(m_lista, Qt::Key_Delete);
    QCOMPARE(m_form->chamadas,
             QStringList({u"Verifica_Modificacoes"_qs, u"Inicializa_Cadastro %1"_qs.arg(id),
                          u"cmdExcluir_Click"_qs}));
    QVERIFY(Acha<QWidget>("pctFrame_0")->isVisible());
}

void tst_resultado::rightButtonLoadsForEditing()
{
    Musica(u"Bossa"_qs);
    const qint64 id = Musica(u"Luz"_qs);
    Carrega();
    Clica_Linha(0);
    Clica_Linha(1, Qt::RightButton);
    QCOMPARE(m_form->chamadas,
             QStringList({u"Verifica_Modificacoes"_qs, u"Inicializa_Cadastro 0"_qs,
                          u"Inicializa_Cadastro %1"_qs.arg(id)}));
    QVERIFY(Acha<QWidget>("pctFrame_2")->isVisible());
}

void tst_resultado::rightButtonGoesOnAfterARefusedSwitch()
{
    const qint64 id = Musica(u"Luz"_qs);
    Carrega();
    m_form->aceita = false;
    Clica_Linha(0, Qt::RightButton);
    QCOMPARE(m_form->chamadas,
             QStringList({u"Verifica_Modificacoes"_qs, u"Inicializa_Cadastro %1"_qs.arg(id)}));
    QVERIFY(Acha<QWidget>("pctFrame_0")->isVisible());
}

void tst_resultado::rowIsReadBeforeTheQuestion_data()
{
    QTest::addColumn<bool>("exclui");
    QTest::newRow("right button") << false;
    QTest::newRow("Delete") << true;
}

void tst_resultado::rowIsReadBeforeTheQuestion()
{
    QFETCH(bool, exclui);
    Musica(u"Bossa"_qs);
    const qint64 id = Musica(u"Luz"_qs);
    Carrega();
    // While the setlist's question stands open, a search empties the list.
    m_form->enquantoPergunta = [this] { Clica_Letra(25); };
    QStringList chamadas{u"Verifica_Modificacoes"_qs, u"Inicializa_Cadastro 0"_qs,
                         u"Inicializa_Cadastro %1"_qs.arg(id)};
    if (exclui) {
        // The deletion's own question; after it a search fills the list again.
        m_caixas->whileOpen = [this] { QCOMPARE(m_lista->ListCount(), 0); };
        Clica_Linha(1);
        QTest::keyClick(m_lista, Qt::Key_Delete);
        chamadas.append(u"cmdExcluir_Click"_qs);
        QCOMPARE(m_caixas->boxes.size(), 1);
        QCOMPARE(Titulos(), QStringList(u"Bossa"_qs));
    } else {
        Clica_Linha(1, Qt::RightButton);
        QCOMPARE(m_lista->ListCount(), 0);
    }
    QCOMPARE(m_form->chamadas, chamadas);
}

void tst_resultado::countLineTogglesTheView()
{
    Carrega();
    QCOMPARE(m_lista->View(), 3);
    Clica("lblResultado");
    QCOMPARE(m_lista->View(), 2);
    Clica("lblResultado");
    QCOMPARE(m_lista->View(), 3);
}

void tst_resultado::headersSortAndANewSearchDoesNot()
{
    Musica(u"Bossa"_qs, {}, {.count = 5});
    Musica(u"Aboio"_qs, {}, {.count = 1});
    Musica(u"Luz"_qs, {}, {.count = 3});
    Carrega();
    const auto titulo = [this] {
        QTest::mouseClick(m_lista->header()->viewport(), Qt::LeftButton, {}, QPoint(40, 12));
    };
    titulo();
    QCOMPARE(Titulos(), QStringList({u"Luz"_qs, u"Bossa"_qs, u"Aboio"_qs}));
    Clica("chkOrdenar");
    QCOMPARE(Titulos(), QStringList({u"Bossa"_qs, u"Luz"_qs, u"Aboio"_qs}));
    titulo();
    QCOMPARE(Titulos(), QStringList({u"Aboio"_qs, u"Bossa"_qs, u"Luz"_qs}));
}

void tst_resultado::eachHeaderSortsByItsColumn()
{
    const qint64 bencao = m_catalogo->AddTheme(u"Bênção"_qs);
    const qint64 adoracao = m_catalogo->AddTheme(u"Adoração"_qs);
    Musica(u"Aboio"_qs, {bencao}, {.reference = u"Caymmi"_qs});
    Musica(u"Bossa"_qs, {}, {.reference = u"Ataulfo"_qs});
    Musica(u"Luz"_qs, {adoracao}, {.reference = u"Buarque"_qs});
    Carrega();
    const auto clica = [this](int coluna) {
        const QHeaderView* cabecalho = m_lista->header();
        QTest::mouseClick(cabecalho->viewport(), Qt::LeftButton, {},
                          QPoint(cabecalho->sectionViewportPosition(coluna) + 40, 12));
        return Titulos();
    };
    // The direction turns with every click, also with one on another column.
    const QStringList porTitulo{u"Aboio"_qs, u"Bossa"_qs, u"Luz"_qs};
    const QStringList porReferencia{u"Bossa"_qs, u"Luz"_qs, u"Aboio"_qs};
    const QStringList porTemas{u"Luz"_qs, u"Aboio"_qs, u"Bossa"_qs};
    const auto de_tras = [](const QStringList& titulos) {
        return QStringList(titulos.crbegin(), titulos.crend());
    };
    QCOMPARE(clica(0), de_tras(porTitulo));
    QCOMPARE(clica(1), porReferencia);
    QCOMPARE(clica(2), de_tras(porTemas));
    QCOMPARE(clica(0), porTitulo);
    QCOMPARE(clica(1), de_tras(porReferencia));
    QCOMPARE(clica(2), porTemas);
}

void tst_resultado::twoFastClicksOnAHeaderTurnTheOrderTwice()
{
    Musica(u"Aboio"_qs);
    Musica(u"Bossa"_qs);
    Carrega();
    QWidget* cabecalho = m_lista->header()->viewport();
    const QPoint titulo(40, 12);
    QTest::mouseClick(cabecalho, Qt::LeftButton, {}, titulo);
    QCOMPARE(Titulos(), QStringList({u"Bossa"_qs, u"Aboio"_qs}));
    // What arrives of the second one is a double click.
    QTest::mouseDClick(cabecalho, Qt::LeftButton, {}, titulo);
    QTest::mouseRelease(cabecalho, Qt::LeftButton, {}, titulo);
    QCOMPARE(Titulos(), QStringList({u"Aboio"_qs, u"Bossa"_qs}));
    QTest::mouseClick(cabecalho, Qt::LeftButton, {}, titulo);
    QCOMPARE(Titulos(), QStringList({u"Bossa"_qs, u"Aboio"_qs}));
    // Other buttons sort nothing, nor does what makes a column as wide as its texts.
    QTest::mouseDClick(cabecalho, Qt::RightButton, {}, titulo);
    QTest::mouseDClick(cabecalho, Qt::LeftButton, {},
                       QPoint(m_lista->header()->sectionViewportPosition(1), 12));
    QCOMPARE(Titulos(), QStringList({u"Bossa"_qs, u"Aboio"_qs}));
}

QTEST_MAIN(tst_resultado)
#include "tst_resultado.moc"
