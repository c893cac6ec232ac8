// The dialog that asks how to save.

#include "ViewerBench.h"

#include "controls/Appearance.h"
#include "controls/Resposta_Mensagem.h"
#include "viewer/frmMensagem.h"

#include <QPushButton>

#include <array>

namespace {

struct Choice
{
    const char* button;
    const char16_t* caption;
    int answer;
    const char16_t* hint;
    Qt::Key letter;
};

constexpr std::array Choices = {
    Choice{"cmdSalvar", u"&Salvar", 1, u"Salva apenas esta versão", Qt::Key_S},
    Choice{"cmdSalvarIgualar", u"&Igualar e Salvar", 2, u"Iguala as duas versões e salva",
           Qt::Key_I},
    Choice{"cmdNaoSalvar", u"&Não Salvar", 3,
           u"Não salva as modificações e retorna ao estado inicial", Qt::Key_N},
    Choice{"cmdCancelar", u"&Cancelar", 4, u"Não salva para continuar alterando", Qt::Key_C},
};

} // namespace

class tst_viewer_choice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init();
    void cleanup() { dialog.reset(); }

    void theDialogLooksAsGiven();
    void openingForgetsTheAnswerBefore();
    void eachButton_data();
    void eachButton()
    {
        QFETCH(int, row);
        Check(Choices.at(static_cast<std::size_t>(row)));
    }
    void theLineBeginsEmpty();
    void thePointerOverTheFormClearsTheHint_data();
    void thePointerOverTheFormClearsTheHint();
    void hintsDoNotMoveTheDialog();
    void escIsCancelar();
    void theTitleBarAnswersNothing();
    void enterTakesTheFirstButton();
    void aHeldKeyAnswersNothing_data();
    void aHeldKeyAnswersNothing();

private:
    void Check(const Choice& choice);
    QString Hint() const { return Caption(dialog.get(), "lblObs"); }
    void PointAt(const char* control)
    {
        QWidget* widget = In(dialog.get(), control);
        QTest::mouseMove(dialog->windowHandle(),
                         widget->mapTo(dialog.get(), widget->rect().center()));
    }

    std::unique_ptr<frmMensagem> dialog;
};

void tst_viewer_choice::init()
{
    Funcoes::Resposta_Mensagem = 5;
    dialog = std::make_unique<frmMensagem>();
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
}

void tst_viewer_choice::theDialogLooksAsGiven()
{
    QCOMPARE(dialog->objectName(), u"frmMensagem"_qs);
    QCOMPARE(dialog->windowTitle(), u"Titulo"_qs);
    QVERIFY(dialog->isModal());
    QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    QCOMPARE(dialog->minimumSize(), dialog->maximumSize());
    QCOMPARE(Caption(dialog.get(), "Label2"), u"O que deseja fazer?"_qs);
    QVERIFY(In(dialog.get(), "Image1")->isVisible());
    int left = 0;
    for (const Choice& choice : Choices) {
        auto* button = In<QPushButton>(dialog.get(), choice.button);
        QCOMPARE(button->text(), QString::fromUtf16(choice.caption));
        QVERIFY(button->x() > left);
        left = button->x();
    }
}

void tst_viewer_choice::openingForgetsTheAnswerBefore()
{
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 0);
}

void tst_viewer_choice::eachButton_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < static_cast<int>(Choices.size()); ++row)
        QTest::newRow(Choices.at(static_cast<std::size_t>(row)).button) << row;
}

/// The hint for pointer and focus, and the answer by mouse, by its letter and by Space.
void tst_viewer_choice::Check(const Choice& choice)
{
    const QString hint = QString::fromUtf16(choice.hint);
    PointAt(choice.button);
    QCOMPARE(Hint(), hint);
    PointAt("Label2");
    QCOMPARE(Hint(), QString());

    auto* button = In<QPushButton>(dialog.get(), choice.button);
    for (int i = 0; i < 4 && !(button->hasFocus() && !Hint().isEmpty()); ++i)
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    QVERIFY(button->hasFocus());
    QCOMPARE(Hint(), hint);

    for (const int way : {0, 1, 2}) {
        init();
        if (way == 0)
            Click(dialog.get(), choice.button);
        else if (way == 1)
            QTest::keyClick(dialog.get(), choice.letter, Qt::AltModifier);
        else {
            In(dialog.get(), choice.button)->setFocus();
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Space);
        }
        // A letter answers with the short animation of a press.
        QTRY_VERIFY(!dialog->isVisible());
        QCOMPARE(int{Funcoes::Resposta_Mensagem}, choice.answer);
    }
}

void tst_viewer_choice::theLineBeginsEmpty()
{
    QVERIFY(In(dialog.get(), "cmdSalvar")->hasFocus());
    QCOMPARE(Hint(), QString());
}

void tst_viewer_choice::thePointerOverTheFormClearsTheHint_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("beside the controls") << QPoint(3, 3);
    QTest::newRow("between the buttons") << QPoint();
}

void tst_viewer_choice::thePointerOverTheFormClearsTheHint()
{
    QFETCH(QPoint, place);
    if (place.isNull()) {
        const QRect first = In(dialog.get(), "cmdSalvar")->geometry();
        place = QPoint(first.right() + 3, first.center().y());
    }
    PointAt("cmdNaoSalvar");
    QVERIFY(!Hint().isEmpty());
    QTest::mouseMove(dialog->windowHandle(), place);
    QCOMPARE(Hint(), QString());
}

void tst_viewer_choice::hintsDoNotMoveTheDialog()
{
    const QSize size = dialog->size();
    for (const Choice& choice : Choices) {
        PointAt(choice.button);
        QCoreApplication::processEvents();
        QCOMPARE(dialog->size(), size);
        const QWidget* line = In(dialog.get(), "lblObs");
        QVERIFY(line->fontMetrics().horizontalAdvance(Hint()) <= line->width());
    }
}

void tst_viewer_choice::escIsCancelar()
{
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 4);
}

void tst_viewer_choice::theTitleBarAnswersNothing()
{
    dialog->close();
    QVERIFY(!dialog->isVisible());
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 0);
}

void tst_viewer_choice::enterTakesTheFirstButton()
{
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 1);
}

void tst_viewer_choice::aHeldKeyAnswersNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int{Qt::Key_Return};
    QTest::newRow("the keypad's Enter") << int{Qt::Key_Enter};
    QTest::newRow("Esc") << int{Qt::Key_Escape};
}

void tst_viewer_choice::aHeldKeyAnswersNothing()
{
    QFETCH(int, key);
    for (int i = 0; i < 3; ++i)
        QTest::simulateEvent(QApplication::focusWidget(), true, key, {}, QString(), true);
    QVERIFY(dialog->isVisible());
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 0);
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    QVERIFY(!dialog->isVisible());
}

QTEST_MAIN(tst_viewer_choice)
#include "tst_viewer_choice.moc"
