// The on-screen keyboard: its keys, how they look, and when and where it is there.

#include "TecladoTeste.h"

namespace {

constexpr int Twip = 15; // to a logical pixel

} // namespace

class tst_teclado : public TecladoTeste
{
    Q_OBJECT

private slots:
    void keysHaveTheirPlacesAndCaptions_data();
    void keysHaveTheirPlacesAndCaptions();
    void thereAreNoOtherKeys();
    void captionsFitTheirKeys();
    void keysFitAFinger();
    void keyHasItsColoursFromTheStart();
    void keyboardIsHiddenAtFirst();
    void opensBelowItsBox_data();
    void opensBelowItsBox();
    void movesFromBoxToBox();
    void highlightFollowsTheMouse();
    void highlightStaysWhenTheMouseLeaves();
    void fingerHighlightsTheKeyItTouches();
    void closeIconHidesAndKeepsTheText();
    void backgroundHidesAndKeepsTheText();
    void openingASongHides();
    void switchingPanelsDoesNotHide();
    void clickBesideTheKeysChangesNothing();
    void staysInsideASmallWindow();
    void comesBackToItsBoxWhenTheWindowGrows();
    void screenReaderFindsTheKeys();
};

void tst_teclado::keysHaveTheirPlacesAndCaptions_data()
{
    QTest::addColumn<int>("topo");
    QTest::addColumn<int>("esquerda");
    QTest::addColumn<QStringList>("textos");
    QTest::addColumn<QList<int>>("indices");
    QTest::addColumn<int>("ultima"); // the width of the last key
    QTest::newRow("digits") << 60 << 60 << u"' 1 2 3 4 5 6 7 8 9 0 Bksp"_qs.split(u' ')
                            << QList<int>{39, 49, 50, 51, 52, 53, 54, 55, 56, 57, 48, 256} << 465;
    QTest::newRow("Q to circumflex")
        << 360 << 120 << u"Q W E R T Y U I O P ´ ^"_qs.split(u' ')
        << QList<int>{81, 87, 69, 82, 84, 89, 85, 73, 79, 80, 255, 94} << 285;
    QTest::newRow("A to tilde") << 660 << 300 << u"A S D F G H J K L Ç ~"_qs.split(u' ')
                                << QList<int>{65, 83, 68, 70, 71, 72, 74, 75, 76, 128, 126} << 285;
    QTest::newRow("Z to semicolon") << 960 << 480 << u"Z X C V B N M , . ;"_qs.split(u' ')
                                    << QList<int>{90, 88, 67, 86, 66, 78, 77, 44, 46, 59} << 285;
    QTest::newRow("space bar") << 1260 << 900 << QStringList(u" ESPAÇO"_qs) << QList<int>{32}
                               << 2085;
}

void tst_teclado::keysHaveTheirPlacesAndCaptions()
{
    QFETCH(int, topo);
    QFETCH(int, esquerda);
    QFETCH(QStringList, textos);
    QFETCH(QList<int>, indices);
    QFETCH(int, ultima);
    Carrega();
    const auto* area = Acha<QWidget>("pctTeclas");
    QCOMPARE(area->parentWidget(), Teclado());
    for (int i = 0; i < indices.size(); ++i) {
        const auto* tecla = qobject_cast<QLabel*>(Tecla(indices[i]));
        QVERIFY(tecla);
        QCOMPARE(tecla->text(), textos[i]);
        QCOMPARE(tecla->parentWidget(), area);
        const int largura = i + 1 == indices.size() ? ultima : 285;
        QCOMPARE(tecla->geometry(),
                 QRect((esquerda + 300 * i) / Twip, topo / Twip, largura / Twip, 285 / Twip));
    }
}

void tst_teclado::thereAreNoOtherKeys()
{
    Carrega();
    int teclas = 0;
    const QList<QLabel*> rotulos = Teclado()->findChildren<QLabel*>();
    for (const QLabel* rotulo : rotulos)
        teclas += rotulo->objectName().startsWith(u"lblTecla_") ? 1 : 0;
    QCOMPARE(teclas, 12 + 12 + 11 + 10 + 1);
    QCOMPARE(rotulos.size(), teclas);
}

void tst_teclado::captionsFitTheirKeys()
{
    Carrega();
    const QList<QLabel*> teclas = Acha<QWidget>("pctTeclas")->findChildren<QLabel*>();
    for (const QLabel* tecla : teclas) {
        const QRect texto = tecla->fontMetrics().boundingRect(tecla->text());
        QVERIFY2(texto.width() <= tecla->width() && texto.height() <= tecla->height(),
                 qPrintable(tecla->text()));
        QVERIFY2(tecla->parentWidget()->rect().contains(tecla->geometry()),
                 qPrintable(tecla->text()));
    }
}

void tst_teclado::keysFitAFinger()
{
    Carrega();
    Abre(0);
    // 19 points of a screen at 100 %, 38 of one at 200 %, which is about a fingertip there.
    const int escala = qEnvironmentVariableIntValue("QT_SCALE_FACTOR");
    QVERIFY(escala == 1 || escala == 2);
    const QList<QLabel*> teclas = Acha<QWidget>("pctTeclas")->findChildren<QLabel*>();
    for (QLabel* tecla : teclas) {
        const QSize pontos = tecla->grab().size();
        QVERIFY2(pontos.width() >= 19 * escala && pontos.height() == 19 * escala,
                 qPrintable(tecla->text()));
    }
    const auto* fechar = Acha<QWidget>("imgFecharTeclado");
    QCOMPARE(fechar->parentWidget(), Teclado());
    QVERIFY(fechar->width() >= 19 && fechar->height() >= 19);
    QVERIFY(m_form->rect().contains(
        QRect(Teclado()->mapTo(m_form.get(), QPoint(0, 0)), Teclado()->size())));
}

void tst_teclado::keyHasItsColoursFromTheStart()
{
    Carrega();
    Abre(0);
    const QList<int> indices{39, 81, 128, 256, 32};
    for (const int indice : indices)
        QCOMPARE(Fundo(indice), QColor(0xE0, 0xE0, 0xE0));
    for (const int indice : indices)
        QVERIFY(Escreve_Em(indice, QApplication::palette().color(QPalette::ButtonText)));
    QCOMPARE(Realcadas(), QList<int>());
}

void tst_teclado::keyboardIsHiddenAtFirst()
{
    Carrega();
    QVERIFY(Teclado()->isHidden());
}

void tst_teclado::opensBelowItsBox_data()
{
    QTest::addColumn<int>("caixa");
    for (int i = 0; i < 3; ++i)
        QTest::newRow(Caixas.at(static_cast<std::size_t>(i))) << i;
}

void tst_teclado::opensBelowItsBox()
{
    QFETCH(int, caixa);
    Carrega();
    Abre(caixa);
    QVERIFY(Teclado()->isVisible());
    QVERIFY(Caixa(caixa)->hasFocus());
    const QPoint emBaixo = Caixa(caixa)->mapTo(m_form.get(), QPoint(0, Caixa(caixa)->height()));
    QCOMPARE(Teclado()->mapTo(m_form.get(), QPoint(0, 0)), emBaixo + QPoint(0, 60 / Twip));
    // Over whatever lies there.
    const QPoint meio = Teclado()->geometry().center();
    QVERIFY(Teclado()->isAncestorOf(Teclado()->parentWidget()->childAt(meio)));
}

void tst_teclado::movesFromBoxToBox()
{
    Carrega();
    Abre(0);
    const QPoint antes = Teclado()->pos();
    Abre(2);
    QVERIFY(Teclado()->isVisible());
    QVERIFY(Teclado()->pos().y() > antes.y());
    Digita({65});
    QCOMPARE(Texto(0), QString());
    QCOMPARE(Texto(2), u"A"_qs);
}

void tst_teclado::highlightFollowsTheMouse()
{
    Carrega();
    Abre(0);
    for (const int indice : {39, 49, 256, 81, 255, 128, 59, 32, 65}) {
        Passa(Tecla(indice));
        QCOMPARE(Realcadas(), QList<int>{indice});
        QVERIFY(Escreve_Em(indice, QColor(Qt::white)));
    }
    QCOMPARE(Fundo(32), QColor(0xE0, 0xE0, 0xE0));
    QVERIFY(Escreve_Em(32, QApplication::palette().color(QPalette::ButtonText)));
    // Nothing is typed by passing over.
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), QString());
}

void tst_teclado::highlightStaysWhenTheMouseLeaves()
{
    Carrega();
    Abre(0);
    Passa(Tecla(71));
    Passa(m_lista->viewport());
    QCOMPARE(Realcadas(), QList<int>{71});
    Acha<QWidget>("pctTeclado")->hide();
    Abre(1);
    QCOMPARE(Realcadas(), QList<int>{71});
}

void tst_teclado::fingerHighlightsTheKeyItTouches()
{
    Carrega();
    Abre(0);
    QTest::mousePress(Tecla(88), Qt::LeftButton);
    QCOMPARE(Realcadas(), QList<int>{88});
    QTest::mouseRelease(Tecla(88), Qt::LeftButton);
}

void tst_teclado::closeIconHidesAndKeepsTheText()
{
    Carrega();
    Abre(0);
    Digita({65, 66});
    QTest::mouseClick(Acha<QWidget>("imgFecharTeclado"), Qt::LeftButton);
    QVERIFY(Teclado()->isHidden());
    QCOMPARE(Texto(0), u"AB"_qs);
    QVERIFY(Caixa(0)->hasFocus());
}

void tst_teclado::backgroundHidesAndKeepsTheText()
{
    Carrega();
    Abre(0);
    Digita({65, 66});
    QTest::mouseClick(Acha<QWidget>("pctFrame_0"), Qt::LeftButton, {}, QPoint(4, 4));
    QVERIFY(Teclado()->isHidden());
    QCOMPARE(Texto(0), u"AB"_qs);
}

void tst_teclado::openingASongHides()
{
    Musica(u"Luz"_qs);
    Carrega();
    Abre(0);
    QTest::keyClick(Caixa(0), Qt::Key_Return);
    QCOMPARE(Visualizadores().size(), 1);
    QVERIFY(Teclado()->isHidden());
}

void tst_teclado::switchingPanelsDoesNotHide()
{
    Carrega();
    Abre(0);
    for (const char* menu : {"mnuLista", "mnuCadastro", "mnuPesquisa"}) {
        Acha<QAction>(menu)->trigger();
        QVERIFY(Teclado()->isVisible());
    }
    // There too it types into what has the focus.
    Acha<QAction>("mnuCadastro")->trigger();
    Digita({65});
    QCOMPARE(Acha<QLineEdit>("txtCadTitulo")->text(), u"A"_qs);
}

void tst_teclado::clickBesideTheKeysChangesNothing()
{
    Carrega();
    Abre(0);
    QTest::mouseClick(Acha<QWidget>("pctTeclas"), Qt::LeftButton, {}, QPoint(250, 100));
    QTest::mouseClick(Teclado(), Qt::LeftButton, {}, QPoint(2, 2));
    QCoreApplication::processEvents();
    QVERIFY(Teclado()->isVisible());
    QCOMPARE(Texto(0), QString());
    QCOMPARE(Realcadas(), QList<int>());
}

void tst_teclado::staysInsideASmallWindow()
{
    Carrega();
    m_form->resize(m_form->minimumSizeHint());
    for (int i = 0; i < 3; ++i) {
        Abre(i);
        QVERIFY(Teclado()->parentWidget()->rect().contains(Teclado()->geometry()));
        const QRect caixa(Caixa(i)->mapTo(Teclado()->parentWidget(), QPoint(0, 0)),
                          Caixa(i)->size());
        QVERIFY(!Teclado()->geometry().intersects(caixa));
    }
}

void tst_teclado::comesBackToItsBoxWhenTheWindowGrows()
{
    Carrega();
    auto* longe = new TextBox(Acha<QWidget>("pctFrame_0"));
    longe->setGeometry(900, 500, 80, 28);
    longe->show();
    m_form->Mostra_Teclado(*longe);
    const QRect dentro = Teclado()->parentWidget()->rect();
    QVERIFY(dentro.contains(Teclado()->geometry()));
    m_form->resize(m_form->width() + 250, m_form->height() + 60);
    const QPoint emBaixo = longe->mapTo(Teclado()->parentWidget(), QPoint(0, longe->height()));
    QCOMPARE(Teclado()->pos(), emBaixo + QPoint(0, 60 / Twip));
    m_form->resize(m_form->width() - 250, m_form->height() - 60);
    QVERIFY(Teclado()->parentWidget()->rect().contains(Teclado()->geometry()));
}

void tst_teclado::screenReaderFindsTheKeys()
{
    Carrega();
    QCOMPARE(Acha<QWidget>("imgFecharTeclado")->accessibleName(), u"Fechar o teclado"_qs);
    QCOMPARE(Tecla(256)->accessibleName(), u"Apagar"_qs);
    QCOMPARE(Tecla(32)->accessibleName(), u"Espaço"_qs);
}

QTEST_MAIN(tst_teclado)
#include "tst_teclado.moc"
