// The on-screen keyboard: its keys, what they type and where, and when it is there.

#include "PesquisaTeste.h"

#include "controls/Appearance.h"
#include "main/TecladoVirtual.h"

#include <QAction>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QWindow>

namespace {

constexpr int Twip = 15; // to a logical pixel

const QByteArray Caixas[] = {"txtTitulo", "txtReferencia", "txtLetra"};

/// Writes down the keys that reach a control.
class TeclasRecebidas : public QObject
{
public:
    explicit TeclasRecebidas(QWidget& controle) { controle.installEventFilter(this); }

    QStringList eventos;

protected:
    bool eventFilter(QObject*, QEvent* evento) override
    {
        if (evento->type() == QEvent::KeyPress || evento->type() == QEvent::KeyRelease) {
            const auto* tecla = static_cast<const QKeyEvent*>(evento);
            const bool desce = evento->type() == QEvent::KeyPress;
            const bool comando = tecla->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
            eventos.append((desce ? u"+"_qs : u"-"_qs) + QString::number(tecla->key(), 16) +
                           (comando ? u" with a command"_qs : QString()));
        }
        return false;
    }
};

} // namespace

class tst_teclado : public PesquisaTeste
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }

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
    void amorIsTypedIntoTheLyricsAndSearchedFor();
    void everyKeyTypesItsCharacter_data();
    void everyKeyTypesItsCharacter();
    void keysArriveAsPressAndRelease();
    void aClickWaitsForNothing();
    void typesWhereTheCaretIs();
    void backspaceInAnEmptyBoxChangesNothing();
    void backspaceTakesTheCharacterInFrontOfTheCaret();
    void doubleTappedKeyTypesTwice();
    void tapBetweenTwoKeysIsTheLeftOnes();
    void slipOffAKeyTypesNothing();
    void rightButtonTypesNothing();
    void accentJoinsTheLetterAfterIt_data();
    void accentJoinsTheLetterAfterIt();
    void accentOfAnotherKeyboardStaysAlone();
    void accentStaysAloneAfterTheCaretMoved();
    void accentOfAnotherBoxStaysThere();
    void accentReplacesASelectionThatTheLetterDoesNot();
    void typesIntoAnEditorToo();
    void spacePressesTheFocusedCheckBox();
    void keysNeverTakeTheFocus();
    void nothingFocusedTakesNothing();
    void boxThatGoesTakesItsKeysAlong();
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

private:
    void Abre(int caixa)
    {
        QTest::mouseClick(Acha<QWidget>(qPrintable(u"imgTeclado_%1"_qs.arg(caixa))),
                          Qt::LeftButton);
    }
    QWidget* Tecla(int indice) const
    {
        return Acha<QWidget>(qPrintable(u"lblTecla_%1"_qs.arg(indice)));
    }
    /// Moves the mouse there.
    void Passa(const QWidget* controle) const
    {
        QWindow* janela = m_form->windowHandle();
        QTest::mouseMove(janela, controle->mapTo(m_form.get(), controle->rect().center()));
        QCoreApplication::processEvents();
    }
    void Toca(int indice) const { QTest::mouseClick(Tecla(indice), Qt::LeftButton); }
    /// Types keys by their codes and waits until they have arrived.
    void Digita(const QList<int>& indices) const
    {
        for (const int indice : indices)
            Toca(indice);
        QCoreApplication::processEvents();
    }
    QWidget* Teclado() const { return Acha<QWidget>("pctTeclado"); }
    TextBox* Caixa(int i) const { return Acha<TextBox>(Caixas[i].constData()); }
    QString Texto(int i) const { return Caixa(i)->text(); }

    /// The colours of a key as they are on the screen: its ground, and its text where the ground is
    /// not.
    QColor Fundo(int indice) const { return Retrato(indice).pixelColor(3, 3); }
    /// @return whether there are strokes of a colour, as far as thin ones reach it
    bool Escreve_Em(int indice, const QColor& cor) const
    {
        const QImage retrato = Retrato(indice);
        const auto perto = [&cor](const QColor& ponto) {
            return qAbs(ponto.red() - cor.red()) < 70 && qAbs(ponto.green() - cor.green()) < 70 &&
                   qAbs(ponto.blue() - cor.blue()) < 70;
        };
        constexpr int Canto = 3; // rounded, the keyboard's own ground shows there
        for (int y = Canto; y < retrato.height() - Canto; ++y) {
            for (int x = Canto; x < retrato.width() - Canto; ++x) {
                if (perto(retrato.pixelColor(x, y)))
                    return true;
            }
        }
        return false;
    }
    QImage Retrato(int indice) const
    {
        return Tecla(indice)->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QList<int> Realcadas() const
    {
        QList<int> realcadas;
        for (int i = 1; i <= 256; ++i) {
            const auto* tecla = m_form->findChild<QWidget*>(u"lblTecla_%1"_qs.arg(i));
            if (tecla && Fundo(i) == QColor(0x80, 0x80, 0x80))
                realcadas.append(i);
        }
        return realcadas;
    }
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
        QTest::newRow(Caixas[i].constData()) << i;
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

void tst_teclado::amorIsTypedIntoTheLyricsAndSearchedFor()
{
    TestSong letra;
    letra.text = u"Meu amor"_qs;
    Musica(u"Primeira"_qs, {}, letra);
    Musica(u"Segunda"_qs);
    Carrega();
    Abre(2);
    Digita({65, 77, 79, 82});
    QCOMPARE(Texto(2), u"AMOR"_qs);
    QVERIFY(Acha<QTimer>("Timer1")->isActive());
    QCOMPARE(Acha<QTimer>("Timer1")->interval(), 200);
    QCOMPARE(m_pesquisas.size(), 0);
    Espera_Pesquisa();
    QCOMPARE(m_pesquisas.size(), 1);
    QCOMPARE(Titulos(), QStringList(u"Primeira"_qs));
}

void tst_teclado::everyKeyTypesItsCharacter_data()
{
    QTest::addColumn<int>("indice");
    QTest::addColumn<QString>("texto");
    const QString comoEstao = u"'1234567890QWERTYUIOP^ASDFGHJKL~ZXCVBNM,.; "_qs;
    for (const QChar caractere : comoEstao)
        QTest::addRow("%c", caractere.toLatin1()) << int{caractere.unicode()} << QString(caractere);
    QTest::newRow("acute accent") << 255 << u"´"_qs;
    QTest::newRow("the key with the cedilla, character 128") << 128 << u"€"_qs;
}

void tst_teclado::everyKeyTypesItsCharacter()
{
    QFETCH(int, indice);
    QFETCH(QString, texto);
    Carrega();
    Abre(0);
    Digita({indice});
    QCOMPARE(Texto(0), texto);
    Digita({indice});
    QCOMPARE(Texto(0), texto + texto);
    QVERIFY(Caixa(0)->hasFocus());
    QVERIFY(Teclado()->isVisible());
    QCOMPARE(Visualizadores().size(), 0);
}

void tst_teclado::keysArriveAsPressAndRelease()
{
    Carrega();
    Abre(0);
    TeclasRecebidas recebidas(*Caixa(0));
    Digita({65, 126, 94, 256, 32});
    QCOMPARE(recebidas.eventos,
             QStringList({u"+41"_qs, u"-41"_qs, u"+7e"_qs, u"-7e"_qs, u"+5e"_qs, u"-5e"_qs,
                          u"+1000003"_qs, u"-1000003"_qs, u"+20"_qs, u"-20"_qs}));
}

void tst_teclado::aClickWaitsForNothing()
{
    Carrega();
    Abre(0);
    Toca(65);
    QCOMPARE(Texto(0), QString());
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), u"A"_qs);
}

void tst_teclado::typesWhereTheCaretIs()
{
    Carrega();
    QTest::keyClicks(Caixa(0), u"luz"_qs);
    QTest::keyClick(Caixa(0), Qt::Key_Left);
    Abre(0);
    Digita({65});
    QCOMPARE(Texto(0), u"luAz"_qs);
    QTest::keyClick(Caixa(0), Qt::Key_A, Qt::ControlModifier);
    Digita({66});
    QCOMPARE(Texto(0), u"B"_qs);
}

void tst_teclado::backspaceInAnEmptyBoxChangesNothing()
{
    Carrega();
    Abre(1);
    const QSignalSpy mudancas(Caixa(1), &TextBox::Change);
    Digita({256});
    QCOMPARE(Texto(1), QString());
    QCOMPARE(mudancas.size(), 0);
    QVERIFY(!Acha<QTimer>("Timer1")->isActive());
    QVERIFY(Caixa(1)->hasFocus());
}

void tst_teclado::backspaceTakesTheCharacterInFrontOfTheCaret()
{
    Carrega();
    Abre(0);
    Digita({65, 66, 256, 67});
    QCOMPARE(Texto(0), u"AC"_qs);
}

void tst_teclado::doubleTappedKeyTypesTwice()
{
    Carrega();
    Abre(0);
    Toca(76);
    QTest::mouseDClick(Tecla(76), Qt::LeftButton); // the second press of a double click
    QTest::mouseRelease(Tecla(76), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), u"LL"_qs);
}

void tst_teclado::tapBetweenTwoKeysIsTheLeftOnes()
{
    Carrega();
    Abre(0);
    auto* area = Acha<QWidget>("pctTeclas");
    const QRect q = Tecla(81)->geometry();
    for (const QPoint& lugar :
         {QPoint(q.right() + 1, q.center().y()), QPoint(q.center().x(), q.bottom() + 1),
          q.bottomRight() + QPoint(1, 1)}) {
        QCOMPARE(area->childAt(lugar), nullptr);
        QTest::mouseClick(area, Qt::LeftButton, {}, lugar);
    }
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), u"QQQ"_qs);
    QCOMPARE(Realcadas(), QList<int>{81});
}

void tst_teclado::slipOffAKeyTypesNothing()
{
    Carrega();
    Abre(0);
    QTest::mousePress(Tecla(65), Qt::LeftButton);
    QTest::mouseRelease(Tecla(65), Qt::LeftButton, {}, QPoint(40, 5));
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), QString());
}

void tst_teclado::rightButtonTypesNothing()
{
    Carrega();
    Abre(0);
    QTest::mouseClick(Tecla(65), Qt::RightButton);
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), QString());
}

void tst_teclado::accentJoinsTheLetterAfterIt_data()
{
    QTest::addColumn<QList<int>>("teclas");
    QTest::addColumn<QString>("texto");
    const auto linhas = [](int acento, const QString& letras, const QString& capitais) {
        for (int i = 0; i < letras.size(); ++i)
            QTest::addRow("%d and %c", acento, letras.at(i).toLatin1())
                << QList<int>{acento, letras.at(i).unicode()} << capitais.mid(i, 1);
    };
    linhas(255, u"AEIOUC"_qs, u"ÁÉÍÓÚÇ"_qs);
    linhas(94, u"AEIOU"_qs, u"ÂÊÎÔÛ"_qs);
    linhas(126, u"AON"_qs, u"ÃÕÑ"_qs);
    QTest::newRow("a word") << QList<int>{67, 79, 82, 65, 255, 67, 126, 65, 79} << u"CORAÇÃO"_qs;
    QTest::newRow("a letter that takes none") << QList<int>{255, 66} << u"´B"_qs;
    QTest::newRow("an accent that the letter does not know") << QList<int>{126, 69} << u"~E"_qs;
    QTest::newRow("another key in between") << QList<int>{255, 66, 65} << u"´BA"_qs;
    QTest::newRow("a blank in between") << QList<int>{126, 32, 65} << u"~ A"_qs;
    QTest::newRow("the second accent counts") << QList<int>{126, 94, 65} << u"~Â"_qs;
    QTest::newRow("the same accent twice") << QList<int>{255, 255, 65} << u"´Á"_qs;
    QTest::newRow("joined only once") << QList<int>{255, 65, 65} << u"ÁA"_qs;
    QTest::newRow("an accent that was deleted") << QList<int>{255, 256, 65} << u"A"_qs;
    QTest::newRow("an accent beside a deleted one") << QList<int>{255, 255, 256, 65} << u"´A"_qs;
}

void tst_teclado::accentJoinsTheLetterAfterIt()
{
    QFETCH(QList<int>, teclas);
    QFETCH(QString, texto);
    Carrega();
    Abre(0);
    Digita(teclas);
    QCOMPARE(Texto(0), texto);
    // Slowly, key by key, it comes to the same.
    Caixa(0)->clear();
    for (const int tecla : teclas)
        Digita({tecla});
    QCOMPARE(Texto(0), texto);
    // In the middle of a text, too.
    Caixa(0)->setText(u"aquilo"_qs);
    Caixa(0)->setCursorPosition(3);
    Digita(teclas);
    QCOMPARE(Texto(0), u"aqu"_qs + texto + u"ilo"_qs);
}

void tst_teclado::accentOfAnotherKeyboardStaysAlone()
{
    Carrega();
    Abre(0);
    QTest::keyClicks(Caixa(0), u"~"_qs);
    Digita({65});
    QCOMPARE(Texto(0), u"~A"_qs);
    Caixa(0)->clear();
    Digita({126});
    QTest::keyClicks(Caixa(0), u"a"_qs);
    QCOMPARE(Texto(0), u"~a"_qs);
}

void tst_teclado::accentStaysAloneAfterTheCaretMoved()
{
    Carrega();
    Abre(0);
    Digita({65, 126});
    QTest::keyClick(Caixa(0), Qt::Key_Left);
    Digita({79});
    QCOMPARE(Texto(0), u"AO~"_qs);
}

void tst_teclado::accentOfAnotherBoxStaysThere()
{
    Carrega();
    Caixa(1)->setText(u"~"_qs);
    Abre(0);
    Digita({126});
    Abre(1);
    Digita({65});
    QCOMPARE(Texto(0), u"~"_qs);
    QCOMPARE(Texto(1), u"~A"_qs);
}

void tst_teclado::accentReplacesASelectionThatTheLetterDoesNot()
{
    Carrega();
    Caixa(0)->setText(u"velho"_qs);
    Abre(0);
    Caixa(0)->selectAll();
    Digita({255, 69});
    QCOMPARE(Texto(0), u"É"_qs);
    // Selected meanwhile, the accent is overwritten like any text.
    Caixa(0)->clear();
    Digita({255});
    Caixa(0)->selectAll();
    Digita({69});
    QCOMPARE(Texto(0), u"E"_qs);
}

void tst_teclado::typesIntoAnEditorToo()
{
    Carrega();
    Abre(0);
    QPlainTextEdit editor(m_form.get());
    editor.setGeometry(600, 300, 200, 80);
    editor.show();
    editor.setFocus();
    Digita({65, 32, 126, 79, 255, 67});
    QCOMPARE(editor.toPlainText(), u"A ÕÇ"_qs);
    editor.setPlainText(u"um\ndois"_qs);
    editor.moveCursor(QTextCursor::End);
    Digita({94, 65, 256});
    QCOMPARE(editor.toPlainText(), u"um\ndois"_qs);
    QCOMPARE(Texto(0), QString());
}

void tst_teclado::spacePressesTheFocusedCheckBox()
{
    Carrega();
    Abre(0);
    auto* secular = Acha<QCheckBox>("chkSecular");
    secular->setFocus();
    Digita({32});
    QVERIFY(!secular->isChecked());
    QVERIFY(Teclado()->isVisible());
    QCOMPARE(m_pesquisas.size(), 1);
}

void tst_teclado::keysNeverTakeTheFocus()
{
    Carrega();
    Abre(1);
    const QList<QWidget*> partes = Teclado()->findChildren<QWidget*>();
    for (QWidget* parte : partes) {
        QCOMPARE(parte->focusPolicy(), Qt::NoFocus);
        if (parte->objectName() == u"imgFecharTeclado")
            continue;
        QTest::mouseClick(parte, Qt::LeftButton, {}, QPoint(1, 1));
        QVERIFY(Caixa(1)->hasFocus());
    }
    QTest::mouseClick(Teclado(), Qt::LeftButton, {}, QPoint(2, 2));
    QVERIFY(Caixa(1)->hasFocus());
    // Nor does Tab get there.
    for (int i = 0; i < 12; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(!Teclado()->isAncestorOf(QApplication::focusWidget()));
    }
}

void tst_teclado::nothingFocusedTakesNothing()
{
    Carrega();
    Abre(0);
    QApplication::focusWidget()->clearFocus();
    Digita({65, 256});
    QCOMPARE(Texto(0), QString());
}

void tst_teclado::boxThatGoesTakesItsKeysAlong()
{
    Carrega();
    Abre(0);
    auto* passageira = new TextBox(m_form.get());
    passageira->show();
    passageira->setFocus();
    Toca(65);
    delete passageira;
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), QString());
    // One that goes while the key is being typed.
    auto* fugaz = new TextBox(m_form.get());
    fugaz->show();
    fugaz->setFocus();
    QObject::connect(fugaz, &QObject::destroyed, this, [] {});
    QObject::connect(
        fugaz, &TextBox::KeyDown, fugaz, [fugaz] { fugaz->deleteLater(); }, Qt::QueuedConnection);
    Digita({126, 65});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Digita({65});
    QCOMPARE(Texto(0), QString());
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
