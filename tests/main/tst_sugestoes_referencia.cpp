// The references that the song entry panel suggests while one is being typed.

#include "SugestoesTeste.h"

class tst_sugestoes_referencia : public SugestoesTeste
{
    Q_OBJECT

private slots:
    void referenceStatementIsAsGiven();
    void typedReferenceListsEachReferenceOnce();
    void downArrowWithoutACurrentItemSelectsNothing();
    void downArrowWithACurrentItemBeginsAtTheTop();
    void downArrowOnASingleMatchKeepsItSelected();
    void downArrowWhileTheListIsHiddenDoesNothing();
    void otherKeysStayInTheBox();
    void enterTakesTheReference_data();
    void enterTakesTheReference();
    void enterWithoutACurrentItemTakesNothing();
    void doubleClickTakesTheReference();
    void otherKeysInTheListTakeNothing();
    void thePlaceholderCanBeTakenAsAReference();
    void referencesStayWhenTheirBoxLosesTheFocus();
    void referencesStayWhileTheTitleHasTheFocus();
    void referencesGoWhenTheirListLosesTheFocus();
    void clearedReferenceHidesTheList();
    void aReferenceEmptiedFromElsewhereHidesTheList_data();
    void aReferenceEmptiedFromElsewhereHidesTheList();
    void blanksTypedAreAskedForAsTheyAre();
    void listFollowsItsBoxWhenTheWindowIsResized();
    void aFailureIsShownOnceWhileTyping();
};

void tst_sugestoes_referencia::referenceStatementIsAsGiven()
{
    Cadastro();
    Escreve_Referencia(u"A"_qs);
    QCOMPARE(m_comandos, QStringList(u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA WHERE REFERENCIA "
                                     "LIKE 'A%' ORDER BY REFERENCIA"_qs));
    QCOMPARE(Funcoes::SQL, m_comandos.last());
}

void tst_sugestoes_referencia::typedReferenceListsEachReferenceOnce()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Hinário"_qs);
    Com_Referencia(u"Três"_qs, u"Harpa"_qs);
    Com_Referencia(u"Quatro"_qs, u"Cantor"_qs);
    Cadastro();
    Escreve_Referencia(u"h"_qs);
    QVERIFY(m_referencias->isVisible());
    QCOMPARE(Itens(*m_referencias), QStringList({u"Harpa"_qs, u"Hinário"_qs}));
    QCOMPARE(m_referencias->ItemData(0), 1);
    QCOMPARE(m_referencias->ItemData(1), 1);
}

void tst_sugestoes_referencia::downArrowWithoutACurrentItemSelectsNothing()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Hinário"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    Tecla(Qt::Key_Down);
    QVERIFY(m_referencias->hasFocus());
    QVERIFY(m_referencias->isVisible());
    QCOMPARE(m_referencias->ListIndex(), -1);
    QVERIFY(!m_referencias->Selected(0));
    // The next arrow does.
    Tecla(Qt::Key_Down);
    QCOMPARE(m_referencias->ListIndex(), 0);
}

void tst_sugestoes_referencia::downArrowWithACurrentItemBeginsAtTheTop()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Hinário"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    m_referencias->SetListIndex(1);
    Tecla(Qt::Key_Down);
    QVERIFY(m_referencias->hasFocus());
    QCOMPARE(m_referencias->ListIndex(), 0);
    QVERIFY(m_referencias->Selected(0));
    QVERIFY(!m_referencias->Selected(1));
}

void tst_sugestoes_referencia::downArrowOnASingleMatchKeepsItSelected()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Cantor"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    QVERIFY(m_referencias->Selected(0)); // the filler selects the only row
    Tecla(Qt::Key_Down);
    QVERIFY(m_referencias->hasFocus());
    QVERIFY(m_referencias->isVisible());
    QCOMPARE(m_referencias->ListIndex(), 0);
    QVERIFY(m_referencias->Selected(0));
    // So one more key takes it.
    Tecla(Qt::Key_Return);
    QCOMPARE(m_referencia->text(), u"Harpa"_qs);
    QVERIFY(Acha<RichTextBox>("txtCadLetra_0")->hasFocus());
    QVERIFY(m_referencias->isHidden());
}

void tst_sugestoes_referencia::downArrowWhileTheListIsHiddenDoesNothing()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    m_referencia->setFocus();
    Tecla(Qt::Key_Down);
    QVERIFY(m_referencia->hasFocus());
    QVERIFY(m_referencias->isHidden());
    Escreve_Referencia(u"H"_qs);
    Tecla(Qt::Key_Backspace);
    Tecla(Qt::Key_Down);
    QVERIFY(m_referencia->hasFocus());
    QVERIFY(m_referencias->isHidden());
}

void tst_sugestoes_referencia::otherKeysStayInTheBox()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    for (const int tecla : {int{Qt::Key_Up}, int{Qt::Key_Return}, int{Qt::Key_End}}) {
        Tecla(tecla);
        QVERIFY(m_referencia->hasFocus());
        QCOMPARE(m_referencia->text(), u"H"_qs);
    }
}

void tst_sugestoes_referencia::enterTakesTheReference_data()
{
    QTest::addColumn<int>("versao");
    QTest::addColumn<int>("tecla");
    QTest::newRow("version 1 shown") << 0 << int{Qt::Key_Return};
    QTest::newRow("version 2 shown") << 1 << int{Qt::Key_Return};
    QTest::newRow("the keypad's") << 0 << int{Qt::Key_Enter};
}

void tst_sugestoes_referencia::enterTakesTheReference()
{
    QFETCH(int, versao);
    QFETCH(int, tecla);
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Hinário"_qs);
    Cadastro();
    QTest::mouseClick(Acha<QWidget>(qPrintable(u"lblMostraMusica_%1"_qs.arg(versao))),
                      Qt::LeftButton);
    Escreve_Referencia(u"H"_qs);
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Down);
    m_comandos.clear();
    Tecla(tecla);
    QCOMPARE(m_referencia->text(), u"Hinário"_qs);
    QVERIFY(Acha<RichTextBox>(qPrintable(u"txtCadLetra_%1"_qs.arg(versao)))->hasFocus());
    QVERIFY(m_referencias->isHidden());
    // The text that was set asked once more.
    QCOMPARE(m_comandos.size(), 1);
    QVERIFY(m_comandos.last().contains(u"'Hinário%'"));
    QCOMPARE(Itens(*m_referencias), QStringList(u"Hinário"_qs));
}

void tst_sugestoes_referencia::enterWithoutACurrentItemTakesNothing()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Hinário"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Return);
    QCOMPARE(m_referencia->text(), u"H"_qs);
    QVERIFY(m_referencias->isVisible());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_sugestoes_referencia::doubleClickTakesTheReference()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Hinário"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    const QPoint lugar = m_referencias->visualRect(m_referencias->model()->index(0, 0)).center();
    QTest::mouseClick(m_referencias->viewport(), Qt::LeftButton, {}, lugar);
    QVERIFY(m_referencias->hasFocus()); // a click leaves the list where it is
    QVERIFY(m_referencias->isVisible());
    QCOMPARE(m_referencia->text(), u"H"_qs);
    Clica_Duas_Vezes(*m_referencias, 0);
    QCOMPARE(m_referencia->text(), u"Harpa"_qs);
    QVERIFY(Acha<RichTextBox>("txtCadLetra_0")->hasFocus());
    QVERIFY(m_referencias->isHidden());
}

void tst_sugestoes_referencia::otherKeysInTheListTakeNothing()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Com_Referencia(u"Dois"_qs, u"Hinário"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    Tecla(Qt::Key_Down);
    for (const int tecla : {int{Qt::Key_Down}, int{Qt::Key_Space}, int{Qt::Key_Delete}})
        Tecla(tecla);
    QCOMPARE(m_referencia->text(), u"H"_qs);
    QVERIFY(m_referencias->hasFocus());
}

void tst_sugestoes_referencia::thePlaceholderCanBeTakenAsAReference()
{
    Cadastro();
    Escreve_Referencia(u"x"_qs);
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Return);
    QCOMPARE(m_referencia->text(), u"Não há dados a serem mostrados."_qs);
}

void tst_sugestoes_referencia::referencesStayWhenTheirBoxLosesTheFocus()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    Tecla(Qt::Key_Tab);
    QVERIFY(!m_referencia->hasFocus());
    QVERIFY(!m_referencias->hasFocus());
    QVERIFY(m_referencias->isVisible());
}

void tst_sugestoes_referencia::referencesStayWhileTheTitleHasTheFocus()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    QTest::keyClick(m_referencia, Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(m_titulo->hasFocus());
    QVERIFY(m_referencias->isVisible());
    Escreve_Titulo(u"U"_qs);
    QVERIFY(m_musicas->isVisible());
    QVERIFY(m_referencias->isVisible());
    Acha<QWidget>("lstCadTema")->setFocus();
    QVERIFY(m_musicas->isHidden());
    QVERIFY(m_referencias->isVisible());
}

void tst_sugestoes_referencia::referencesGoWhenTheirListLosesTheFocus()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    Tecla(Qt::Key_Down);
    m_titulo->setFocus();
    QVERIFY(m_referencias->isHidden());
    // Back in the box it is there again, as it was.
    m_comandos.clear();
    m_referencia->setFocus();
    QVERIFY(m_referencias->isVisible());
    QCOMPARE(m_comandos, QStringList());
    // Straight from the list into its box, too.
    Tecla(Qt::Key_Down);
    m_referencia->setFocus();
    QVERIFY(m_referencias->isVisible());
}

void tst_sugestoes_referencia::clearedReferenceHidesTheList()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    m_comandos.clear();
    Tecla(Qt::Key_Backspace);
    QVERIFY(m_referencias->isHidden());
    QCOMPARE(m_comandos, QStringList());
    QCOMPARE(Itens(*m_referencias), QStringList(u"Harpa"_qs));
}

void tst_sugestoes_referencia::aReferenceEmptiedFromElsewhereHidesTheList_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("the focus beside box and list") << int{Qt::Key_Tab};
    QTest::newRow("the focus in the list") << int{Qt::Key_Down};
}

void tst_sugestoes_referencia::aReferenceEmptiedFromElsewhereHidesTheList()
{
    QFETCH(int, key);
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    Tecla(key);
    QVERIFY(!m_referencia->hasFocus());
    QVERIFY(m_referencias->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier); // "Novo"
    QTRY_COMPARE(m_referencia->text(), QString());
    QVERIFY(m_referencias->isHidden());
}

void tst_sugestoes_referencia::blanksTypedAreAskedForAsTheyAre()
{
    Com_Referencia(u"Um"_qs, u"Ana Clara"_qs);
    Com_Referencia(u"Dois"_qs, u"Anabela"_qs);
    Cadastro();
    Escreve_Referencia(u"Ana "_qs);
    QCOMPARE(Itens(*m_referencias), QStringList(u"Ana Clara"_qs));
    m_referencia->clear();
    Escreve_Referencia(u" "_qs);
    QCOMPARE(Itens(*m_referencias), QStringList(u"Não há dados a serem mostrados."_qs));
}

void tst_sugestoes_referencia::listFollowsItsBoxWhenTheWindowIsResized()
{
    Com_Referencia(u"Um"_qs, u"Harpa"_qs);
    Cadastro();
    Escreve_Referencia(u"H"_qs);
    const int antes = m_referencias->width();
    m_form->resize(m_form->width() + 200, m_form->height());
    QTRY_VERIFY(m_referencias->width() > antes);
    QCOMPARE(No_Formulario(*m_referencias).top(), No_Formulario(*m_referencia).bottom() + 1);
    QCOMPARE(No_Formulario(*m_referencias).left(),
             (No_Formulario(*m_referencia).left() * 15 - 10) / 15);
}

void tst_sugestoes_referencia::aFailureIsShownOnceWhileTyping()
{
    Cadastro();
    Funcoes::Conexao.Close();
    Escreve_Referencia(u"Harpa"_qs);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_referencia->text(), u"Harpa"_qs);
}

QTEST_MAIN(tst_sugestoes_referencia)
#include "tst_sugestoes_referencia.moc"
