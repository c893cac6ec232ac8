// The panels' background and the on-screen keyboard that a click on it hides.

#include "PesquisaTeste.h"

#include <QAction>

class tst_fundo : public PesquisaTeste
{
    Q_OBJECT

private slots:
    void keyboardIsHiddenOverThePanels();
    void clickOnABackgroundHidesTheKeyboard_data();
    void clickOnABackgroundHidesTheKeyboard();
    void clickBetweenTheFiltersHidesTheKeyboard();
    void clickBesideTheBackgroundKeepsTheKeyboard_data();
    void clickBesideTheBackgroundKeepsTheKeyboard();
    void pressThatLeavesTheBackgroundKeepsTheKeyboard_data();
    void pressThatLeavesTheBackgroundKeepsTheKeyboard();

private:
    QWidget* Painel(int i) const { return Acha<QWidget>(qPrintable(u"pctFrame_%1"_qs.arg(i))); }
    void Dispara(const char* menu) const { Acha<QAction>(menu)->trigger(); }
};

void tst_fundo::keyboardIsHiddenOverThePanels()
{
    Carrega();
    auto* teclado = m_form->Acha<QWidget>("pctTeclado");
    QVERIFY(teclado->isHidden());
    QCOMPARE(teclado->parentWidget(), Painel(0)->parentWidget());
    // Shown, it lies over whichever panel is.
    teclado->move(40, 40);
    teclado->show();
    for (const char* menu : {"mnuPesquisa", "mnuLista", "mnuCadastro"}) {
        Dispara(menu);
        const QWidget* emCima = teclado->parentWidget()->childAt(teclado->geometry().center());
        QVERIFY2(teclado->isAncestorOf(emCima), menu);
        const QPoint beira = teclado->geometry().topLeft() + QPoint(2, 2);
        QCOMPARE(teclado->parentWidget()->childAt(beira), teclado);
    }
    Funcoes::Conexao.Close();
    m_form->Form_Load(QString());
    QVERIFY(teclado->isHidden());
}

void tst_fundo::clickOnABackgroundHidesTheKeyboard_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<int>("painel");
    QTest::newRow("search") << QByteArray("mnuPesquisa") << 0;
    QTest::newRow("setlists") << QByteArray("mnuLista") << 1;
    QTest::newRow("song entry") << QByteArray("mnuCadastro") << 2;
}

void tst_fundo::clickOnABackgroundHidesTheKeyboard()
{
    Carrega();
    QFETCH(QByteArray, menu);
    QFETCH(int, painel);
    Dispara(menu.constData());
    m_form->chamadas.clear();
    QTest::mouseClick(Painel(painel), Qt::LeftButton, {}, QPoint(4, 4));
    QCOMPARE(m_form->chamadas, QStringList(u"Oculta_Teclado"_qs));
}

void tst_fundo::clickBetweenTheFiltersHidesTheKeyboard()
{
    Carrega();
    QTest::mouseClick(m_form->Acha<QWidget>("fraFiltro"), Qt::LeftButton, {}, QPoint(6, 6));
    QCOMPARE(m_form->chamadas, QStringList(u"Oculta_Teclado"_qs));
}

void tst_fundo::clickBesideTheBackgroundKeepsTheKeyboard_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<int>("painel");
    QTest::addColumn<QByteArray>("controle");
    for (const char* rotulo : {"lblTitulo", "lblTema", "Label3", "lblResultado", "fraAlfa"})
        QTest::newRow(rotulo) << QByteArray("mnuPesquisa") << 0 << QByteArray(rotulo);
    QTest::newRow("a label of the setlists")
        << QByteArray("mnuLista") << 1 << QByteArray("lblDica");
    QTest::newRow("a label of the song entry")
        << QByteArray("mnuCadastro") << 2 << QByteArray("lblCadDica");
}

void tst_fundo::clickBesideTheBackgroundKeepsTheKeyboard()
{
    Carrega();
    QFETCH(QByteArray, menu);
    QFETCH(int, painel);
    QFETCH(QByteArray, controle);
    Dispara(menu.constData());
    m_form->chamadas.clear();
    auto* alvo = Painel(painel)->findChild<QWidget*>(QString::fromLatin1(controle));
    QVERIFY(alvo && alvo->isVisible());
    QTest::mouseClick(alvo, Qt::LeftButton, {}, QPoint(1, 1));
    QCOMPARE(m_form->chamadas, QStringList());
}

void tst_fundo::pressThatLeavesTheBackgroundKeepsTheKeyboard_data()
{
    QTest::addColumn<QPoint>("antes");
    QTest::addColumn<QPoint>("depois");
    const QPoint fundo(4, 4);
    QTest::newRow("out of the panel") << fundo << QPoint(4, -20);
    QTest::newRow("onto a label") << fundo << QPoint();
    QTest::newRow("from a label") << QPoint() << fundo;
}

void tst_fundo::pressThatLeavesTheBackgroundKeepsTheKeyboard()
{
    Carrega();
    QFETCH(QPoint, antes);
    QFETCH(QPoint, depois);
    const auto* rotulo = m_form->Acha<QWidget>("lblTitulo");
    const auto lugar = [&](const QPoint& ponto) {
        return ponto.isNull() ? rotulo->mapTo(Painel(0), rotulo->rect().center()) : ponto;
    };
    QTest::mousePress(Painel(0), Qt::LeftButton, {}, lugar(antes));
    QTest::mouseRelease(Painel(0), Qt::LeftButton, {}, lugar(depois));
    QCOMPARE(m_form->chamadas, QStringList());
}

QTEST_MAIN(tst_fundo)
#include "tst_fundo.moc"
