// What the keys of the on-screen keyboard type, and where.

#include "TecladoTeste.h"

namespace {

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

class tst_teclado_digitacao : public TecladoTeste
{
    Q_OBJECT

private slots:
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
};

void tst_teclado_digitacao::amorIsTypedIntoTheLyricsAndSearchedFor()
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

void tst_teclado_digitacao::everyKeyTypesItsCharacter_data()
{
    QTest::addColumn<int>("indice");
    QTest::addColumn<QString>("texto");
    const QString comoEstao = u"'1234567890QWERTYUIOP^ASDFGHJKL~ZXCVBNM,.; "_qs;
    for (const QChar caractere : comoEstao)
        QTest::addRow("%c", caractere.toLatin1()) << int{caractere.unicode()} << QString(caractere);
    QTest::newRow("acute accent") << 255 << u"´"_qs;
    QTest::newRow("the key with the cedilla, character 128") << 128 << u"€"_qs;
}

void tst_teclado_digitacao::everyKeyTypesItsCharacter()
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

void tst_teclado_digitacao::keysArriveAsPressAndRelease()
{
    Carrega();
    Abre(0);
    TeclasRecebidas recebidas(*Caixa(0));
    Digita({65, 126, 94, 256, 32});
    QCOMPARE(recebidas.eventos,
             QStringList({u"+41"_qs, u"-41"_qs, u"+7e"_qs, u"-7e"_qs, u"+5e"_qs, u"-5e"_qs,
                          u"+1000003"_qs, u"-1000003"_qs, u"+20"_qs, u"-20"_qs}));
}

void tst_teclado_digitacao::aClickWaitsForNothing()
{
    Carrega();
    Abre(0);
    Toca(65);
    QCOMPARE(Texto(0), QString());
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), u"A"_qs);
}

void tst_teclado_digitacao::typesWhereTheCaretIs()
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

void tst_teclado_digitacao::backspaceInAnEmptyBoxChangesNothing()
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

void tst_teclado_digitacao::backspaceTakesTheCharacterInFrontOfTheCaret()
{
    Carrega();
    Abre(0);
    Digita({65, 66, 256, 67});
    QCOMPARE(Texto(0), u"AC"_qs);
}

void tst_teclado_digitacao::doubleTappedKeyTypesTwice()
{
    Carrega();
    Abre(0);
    Toca(76);
    QTest::mouseDClick(Tecla(76), Qt::LeftButton); // the second press of a double click
    QTest::mouseRelease(Tecla(76), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), u"LL"_qs);
}

void tst_teclado_digitacao::tapBetweenTwoKeysIsTheLeftOnes()
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

void tst_teclado_digitacao::slipOffAKeyTypesNothing()
{
    Carrega();
    Abre(0);
    QTest::mousePress(Tecla(65), Qt::LeftButton);
    QTest::mouseRelease(Tecla(65), Qt::LeftButton, {}, QPoint(40, 5));
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), QString());
}

void tst_teclado_digitacao::rightButtonTypesNothing()
{
    Carrega();
    Abre(0);
    QTest::mouseClick(Tecla(65), Qt::RightButton);
    QCoreApplication::processEvents();
    QCOMPARE(Texto(0), QString());
}

void tst_teclado_digitacao::accentJoinsTheLetterAfterIt_data()
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

void tst_teclado_digitacao::accentJoinsTheLetterAfterIt()
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

void tst_teclado_digitacao::accentOfAnotherKeyboardStaysAlone()
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

void tst_teclado_digitacao::accentStaysAloneAfterTheCaretMoved()
{
    Carrega();
    Abre(0);
    Digita({65, 126});
    QTest::keyClick(Caixa(0), Qt::Key_Left);
    Digita({79});
    QCOMPARE(Texto(0), u"AO~"_qs);
}

void tst_teclado_digitacao::accentOfAnotherBoxStaysThere()
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

void tst_teclado_digitacao::accentReplacesASelectionThatTheLetterDoesNot()
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

void tst_teclado_digitacao::typesIntoAnEditorToo()
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

void tst_teclado_digitacao::spacePressesTheFocusedCheckBox()
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

void tst_teclado_digitacao::keysNeverTakeTheFocus()
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

void tst_teclado_digitacao::nothingFocusedTakesNothing()
{
    Carrega();
    Abre(0);
    QApplication::focusWidget()->clearFocus();
    Digita({65, 256});
    QCOMPARE(Texto(0), QString());
}

void tst_teclado_digitacao::boxThatGoesTakesItsKeysAlong()
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

QTEST_MAIN(tst_teclado_digitacao)
#include "tst_teclado_digitacao.moc"
