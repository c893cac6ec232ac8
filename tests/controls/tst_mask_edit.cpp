#include "controls/MaskEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

class tst_mask_edit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void anEmptyBoxShowsItsMask();
    void typingFillsThePlaces_data();
    void typingFillsThePlaces();
    void aWrongKeyIsRefusedAndKeepsTheSelection();
    void typingInTheMiddleOverwrites();
    void typingOverASelectionEmptiesIt();
    void backspaceTakesTheDigitBeforeTheCaret();
    void backspaceGoesOverTheSlash();
    void deleteTakesTheDigitBehindTheCaret();
    void deleteStaysInItsField_data();
    void deleteStaysInItsField();
    void deleteAndThenADigitCorrectsInPlace();
    void aSelectionIsEmptiedAndNothingMoves_data();
    void aSelectionIsEmptiedAndNothingMoves();
    void cuttingTakesTheTextAlong();
    void pasting_data();
    void pasting();
    void pastingOverAPart_data();
    void pastingOverAPart();
    void pastingAtTheCaretOverwrites();
    void copiesOfUnfinishedDatesCanBePasted();
    void anInputMethodGoesThroughTheMask();
    void whateverIsWrittenByCodeFitsTheMask_data();
    void whateverIsWrittenByCodeFitsTheMask();
    void escreveMaskeditWritesPastTheMask_data();
    void escreveMaskeditWritesPastTheMask();
    void withoutAMaskAnyTextGoes();
    void tabSelectsTheWholeDate();
    void aClickIntoAnEmptyBoxBeginsAtItsStart();
    void aReadOnlyBoxKeepsItsText();

private:
    void Write(const QString& text, int caret);
    void Keys(const QString& keys);

    std::unique_ptr<QWidget> m_form;
    MaskEdit* m_box = nullptr;
};

void tst_mask_edit::init()
{
    m_form = std::make_unique<QWidget>();
    auto* column = new QVBoxLayout(m_form.get());
    column->addWidget(new QLineEdit);
    m_box = new MaskEdit;
    m_box->SetMask(u"##/##/####"_qs);
    column->addWidget(m_box);
    m_form->show();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    m_box->setFocus();
    m_box->setCursorPosition(0);
}

void tst_mask_edit::cleanup()
{
    m_form.reset();
}

void tst_mask_edit::Write(const QString& text, int caret)
{
    Funcoes::Escreve_Maskedit(*m_box, text);
    QCOMPARE(m_box->text(), text);
    m_box->setCursorPosition(caret);
}

void tst_mask_edit::Keys(const QString& keys)
{
    for (const QChar key : keys)
        QTest::keyClick(m_box, key.toLatin1());
}

void tst_mask_edit::anEmptyBoxShowsItsMask()
{
    QCOMPARE(m_box->text(), u"__/__/____"_qs);
    QCOMPARE(m_box->displayText(), u"__/__/____"_qs);
    QCOMPARE(m_box->property("Mask").toString(), u"##/##/####"_qs);
}

void tst_mask_edit::typingFillsThePlaces_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::newRow("two digits") << u"53"_qs << u"53/__/____"_qs;
    QTest::newRow("three digits: the slash is skipped") << u"531"_qs << u"53/1_/____"_qs;
    QTest::newRow("digits only") << u"05032009"_qs << u"05/03/2009"_qs;
    QTest::newRow("with its slashes") << u"05/03/2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("a slash finishes a field") << u"5/3/2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("a slash at a field's beginning") << u"05//3"_qs << u"05/3_/____"_qs;
    QTest::newRow("a slash first") << u"/5"_qs << u"5_/__/____"_qs;
    QTest::newRow("more than there is room for") << u"050320091"_qs << u"05/03/2009"_qs;
    QTest::newRow("letters") << u"a5b3c"_qs << u"53/__/____"_qs;
    QTest::newRow("blanks and signs") << u" 5 -3."_qs << u"53/__/____"_qs;
    QTest::newRow("the sign for what is missing") << u"_5"_qs << u"5_/__/____"_qs;
}

void tst_mask_edit::typingFillsThePlaces()
{
    QFETCH(QString, keys);
    QFETCH(QString, text);
    Keys(keys);
    QCOMPARE(m_box->text(), text);
}

void tst_mask_edit::aWrongKeyIsRefusedAndKeepsTheSelection()
{
    Write(u"05/03/2009"_qs, 0);
    m_box->selectAll();
    Keys(u"x/ -"_qs);
    QCOMPARE(m_box->text(), u"05/03/2009"_qs);
    QCOMPARE(m_box->selectedText(), u"05/03/2009"_qs);
}

void tst_mask_edit::typingInTheMiddleOverwrites()
{
    Write(u"05/03/2009"_qs, 4);
    Keys(u"41"_qs);
    QCOMPARE(m_box->text(), u"05/04/1009"_qs);
    QCOMPARE(m_box->cursorPosition(), 7);
}

void tst_mask_edit::typingOverASelectionEmptiesIt()
{
    Write(u"05/03/2009"_qs, 0);
    m_box->selectAll();
    Keys(u"1"_qs);
    QCOMPARE(m_box->text(), u"1_/__/____"_qs);
    Keys(u"1121999"_qs);
    QCOMPARE(m_box->text(), u"11/12/1999"_qs);
}

void tst_mask_edit::backspaceTakesTheDigitBeforeTheCaret()
{
    Write(u"05/03/2009"_qs, 10);
    QTest::keyClick(m_box, Qt::Key_Backspace);
    QCOMPARE(m_box->text(), u"05/03/200_"_qs);
    QCOMPARE(m_box->cursorPosition(), 9);
    Keys(u"8"_qs);
    QCOMPARE(m_box->text(), u"05/03/2008"_qs);
    for (int i = 0; i < 9; ++i)
        QTest::keyClick(m_box, Qt::Key_Backspace);
    QCOMPARE(m_box->text(), u"__/__/____"_qs);
    QCOMPARE(m_box->cursorPosition(), 0);
}

void tst_mask_edit::backspaceGoesOverTheSlash()
{
    Write(u"05/03/2009"_qs, 3);
    QTest::keyClick(m_box, Qt::Key_Backspace);
    QCOMPARE(m_box->text(), u"0_/03/2009"_qs);
    QCOMPARE(m_box->cursorPosition(), 1);
}

void tst_mask_edit::deleteTakesTheDigitBehindTheCaret()
{
    Write(u"05/03/2009"_qs, 1);
    QTest::keyClick(m_box, Qt::Key_Delete);
    QCOMPARE(m_box->text(), u"0_/03/2009"_qs);
    QCOMPARE(m_box->cursorPosition(), 1);
    m_box->setCursorPosition(2);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(m_box, Qt::Key_Delete);
    QCOMPARE(m_box->text(), u"0_/__/2009"_qs);
    QCOMPARE(m_box->cursorPosition(), 2);
}

void tst_mask_edit::deleteStaysInItsField_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("after");
    QTest::newRow("an empty day") << u"__/03/2009"_qs << 0 << u"__/03/2009"_qs;
    QTest::newRow("empty up to the year") << u"__/__/2009"_qs << 0 << u"__/__/2009"_qs;
    QTest::newRow("behind the day's only digit") << u"0_/03/2009"_qs << 1 << u"0_/03/2009"_qs;
    QTest::newRow("before the day's only digit") << u"_5/03/2009"_qs << 0 << u"__/03/2009"_qs;
    QTest::newRow("at the day's end: the month") << u"05/03/2009"_qs << 2 << u"05/_3/2009"_qs;
    QTest::newRow("at the end of the day, no month") << u"05/__/2009"_qs << 2 << u"05/__/2009"_qs;
    QTest::newRow("at the end") << u"05/03/2009"_qs << 10 << u"05/03/2009"_qs;
}

void tst_mask_edit::deleteStaysInItsField()
{
    QFETCH(QString, before);
    QFETCH(int, caret);
    QFETCH(QString, after);
    Write(before, caret);
    QTest::keyClick(m_box, Qt::Key_Delete);
    QCOMPARE(m_box->text(), after);
    QCOMPARE(m_box->cursorPosition(), caret);
}

void tst_mask_edit::deleteAndThenADigitCorrectsInPlace()
{
    Write(u"05/03/2009"_qs, 4);
    QTest::keyClick(m_box, Qt::Key_Delete);
    Keys(u"4"_qs);
    QCOMPARE(m_box->text(), u"05/04/2009"_qs);
}

void tst_mask_edit::aSelectionIsEmptiedAndNothingMoves_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("left");
    QTest::newRow("all") << 0 << 10 << u"__/__/____"_qs;
    QTest::newRow("the month with both slashes") << 2 << 4 << u"05/__/2009"_qs;
    QTest::newRow("a slash alone") << 2 << 1 << u"05/03/2009"_qs;
    QTest::newRow("the year") << 6 << 4 << u"05/03/____"_qs;
    QTest::newRow("the last digit") << 9 << 1 << u"05/03/200_"_qs;
    QTest::newRow("the first digit") << 0 << 1 << u"_5/03/2009"_qs;
}

void tst_mask_edit::aSelectionIsEmptiedAndNothingMoves()
{
    QFETCH(int, from);
    QFETCH(int, length);
    QFETCH(QString, left);
    const QList<int> keys{Qt::Key_Delete, Qt::Key_Backspace};
    for (const int key : keys) {
        Write(u"05/03/2009"_qs, 0);
        m_box->setSelection(from, length);
        QTest::keyClick(m_box, static_cast<Qt::Key>(key));
        QCOMPARE(m_box->text(), left);
    }
}

void tst_mask_edit::cuttingTakesTheTextAlong()
{
    Write(u"05/03/2009"_qs, 0);
    m_box->setSelection(9, 1);
    QTest::keyClick(m_box, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(m_box->text(), u"05/03/200_"_qs);
    QCOMPARE(QApplication::clipboard()->text(), u"9"_qs);
}

void tst_mask_edit::pasting_data()
{
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("text");
    const QString before = u"20/12/1999"_qs;
    QTest::newRow("a whole date") << u"05/03/2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("with blanks and a line end") << u"  05/03/2009\n"_qs << u"05/03/2009"_qs;
    QTest::newRow("without zeros") << u"5/3/2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("beginning as the box does") << u"2/3/2009"_qs << u"02/03/2009"_qs;
    QTest::newRow("with dots") << u"5.3.2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("with hyphens") << u"05-03-2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("as the grid shows it") << u"2009-03-05"_qs << u"05/03/2009"_qs;
    QTest::newRow("digits only") << u"05032009"_qs << u"05/03/2009"_qs;
    QTest::newRow("the first digits") << u"0503"_qs << u"05/03/____"_qs;
    QTest::newRow("a day that does not exist") << u"31/02/2009"_qs << u"31/02/2009"_qs;
    QTest::newRow("words") << u"amanhã"_qs << before;
    QTest::newRow("digits among words") << u"dia 5"_qs << before;
    QTest::newRow("too many digits") << u"050320091"_qs << before;
}

void tst_mask_edit::pasting()
{
    QFETCH(QString, clipboard);
    QFETCH(QString, text);
    Write(u"20/12/1999"_qs, 0);
    m_box->selectAll();
    QApplication::clipboard()->setText(clipboard);
    QTest::keyClick(m_box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_box->text(), text);
}

void tst_mask_edit::pastingOverAPart_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("text");
    QTest::newRow("a date over the day, both with 1")
        << u"15/03/2026"_qs << 0 << 2 << u"12/04/2026"_qs << u"12/04/2026"_qs;
    QTest::newRow("a date over the day, both with 2")
        << u"25/12/1999"_qs << 0 << 2 << u"21/11/2001"_qs << u"21/11/2001"_qs;
    QTest::newRow("a date over month and year")
        << u"05/12/2009"_qs << 3 << 7 << u"15/04/2010"_qs << u"15/04/2010"_qs;
    QTest::newRow("a date over the year")
        << u"05/03/2009"_qs << 6 << 4 << u"20/12/2010"_qs << u"20/12/2010"_qs;
    QTest::newRow("a date of the same end over the month")
        << u"05/03/2009"_qs << 3 << 2 << u"01/03/2009"_qs << u"01/03/2009"_qs;
    QTest::newRow("a date without zeros over the day")
        << u"15/03/2026"_qs << 0 << 2 << u"1/4/2026"_qs << u"01/04/2026"_qs;
    QTest::newRow("a date as the grid shows it over the year")
        << u"05/03/2009"_qs << 6 << 4 << u"2010-12-20"_qs << u"20/12/2010"_qs;
    QTest::newRow("the day's digits and a blank over all")
        << u"20/12/1999"_qs << 0 << 10 << u"20 "_qs << u"20/__/____"_qs;
    QTest::newRow("the same day over the day")
        << u"20/12/1999"_qs << 0 << 2 << u" 20"_qs << u"20/12/1999"_qs;
    QTest::newRow("one digit over the day")
        << u"15/03/2026"_qs << 0 << 2 << u"1"_qs << u"1_/03/2026"_qs;
    QTest::newRow("words over the day")
        << u"15/03/2026"_qs << 0 << 2 << u"dia"_qs << u"15/03/2026"_qs;
    QTest::newRow("too many digits over the year")
        << u"05/03/2009"_qs << 6 << 4 << u"20091"_qs << u"05/03/2009"_qs;
}

void tst_mask_edit::pastingOverAPart()
{
    QFETCH(QString, before);
    QFETCH(int, from);
    QFETCH(int, length);
    QFETCH(QString, clipboard);
    QFETCH(QString, text);
    QApplication::clipboard()->setText(clipboard);
    Write(before, 0);
    m_box->setSelection(from, length);
    QTest::keyClick(m_box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_box->text(), text);
    // Selected from the right, the caret stands at the selection's beginning.
    Write(before, 0);
    m_box->setSelection(from + length, -length);
    m_box->paste();
    QCOMPARE(m_box->text(), text);
}

void tst_mask_edit::pastingAtTheCaretOverwrites()
{
    Write(u"05/03/2009"_qs, 6);
    QApplication::clipboard()->setText(u"2012"_qs);
    QTest::keyClick(m_box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_box->text(), u"05/03/2012"_qs);

    // A whole date needs no selection.
    QApplication::clipboard()->setText(u"31/12/1999"_qs);
    QTest::keyClick(m_box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_box->text(), u"31/12/1999"_qs);
}

void tst_mask_edit::copiesOfUnfinishedDatesCanBePasted()
{
    Keys(u"05"_qs);
    m_box->selectAll();
    QTest::keyClick(m_box, Qt::Key_C, Qt::ControlModifier);
    Write(u"31/12/1999"_qs, 0);
    m_box->selectAll();
    QTest::keyClick(m_box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(m_box->text(), u"05/__/____"_qs);
}

void tst_mask_edit::anInputMethodGoesThroughTheMask()
{
    QInputMethodEvent typed;
    typed.setCommitString(u"5a"_qs);
    QApplication::sendEvent(m_box, &typed);
    QCOMPARE(m_box->text(), u"__/__/____"_qs);
    QInputMethodEvent digits;
    digits.setCommitString(u"531"_qs);
    QApplication::sendEvent(m_box, &digits);
    QCOMPARE(m_box->text(), u"53/1_/____"_qs);
}

void tst_mask_edit::whateverIsWrittenByCodeFitsTheMask_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("text");
    QTest::newRow("a date") << u"05/03/2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("an unfinished date") << u"05/0_/____"_qs << u"05/0_/____"_qs;
    QTest::newRow("without zeros") << u"5/3/2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("nothing") << u""_qs << u"__/__/____"_qs;
}

void tst_mask_edit::whateverIsWrittenByCodeFitsTheMask()
{
    QFETCH(QString, written);
    QFETCH(QString, text);
    m_box->setText(u"31/12/1999"_qs);
    m_box->setText(written);
    QCOMPARE(m_box->text(), text);
}

void tst_mask_edit::escreveMaskeditWritesPastTheMask_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("a whole date") << u"05/03/2009"_qs << u"05/03/2009"_qs;
    QTest::newRow("the same date again") << u"31/12/1999"_qs << u"31/12/1999"_qs;
    QTest::newRow("no date") << u""_qs << u"__/__/____"_qs;
    QTest::newRow("what cannot be") << u"amanhã"_qs << u"__/__/____"_qs;
}

void tst_mask_edit::escreveMaskeditWritesPastTheMask()
{
    QFETCH(QString, value);
    QFETCH(QString, text);
    m_box->setText(u"31/12/1999"_qs);
    Funcoes::Escreve_Maskedit(*m_box, value);
    QCOMPARE(m_box->text(), text);
    QCOMPARE(m_box->Mask(), u"##/##/####"_qs);

    // The mask holds again.
    m_box->setFocus();
    m_box->setCursorPosition(0);
    Keys(u"x2"_qs);
    QCOMPARE(m_box->text(), u"2"_qs + text.sliced(1));
}

void tst_mask_edit::withoutAMaskAnyTextGoes()
{
    m_box->SetMask(QString());
    m_box->setText(u"qualquer coisa"_qs);
    QCOMPARE(m_box->text(), u"qualquer coisa"_qs);
    m_box->selectAll();
    Keys(u"a/5"_qs);
    QCOMPARE(m_box->text(), u"a/5"_qs);
}

void tst_mask_edit::tabSelectsTheWholeDate()
{
    Write(u"05/03/2009"_qs, 0);
    m_form->findChild<QLineEdit*>()->setFocus();
    QTest::keyClick(m_form->findChild<QLineEdit*>(), Qt::Key_Tab);
    QVERIFY(m_box->hasFocus());
    QCOMPARE(m_box->selectedText(), u"05/03/2009"_qs);
}

void tst_mask_edit::aClickIntoAnEmptyBoxBeginsAtItsStart()
{
    QTest::mouseClick(m_box, Qt::LeftButton, {}, QPoint(60, m_box->height() / 2));
    QCOMPARE(m_box->cursorPosition(), 0);
    Keys(u"5"_qs);
    QCOMPARE(m_box->text(), u"5_/__/____"_qs);
}

void tst_mask_edit::aReadOnlyBoxKeepsItsText()
{
    Write(u"05/03/2009"_qs, 10);
    m_box->setReadOnly(true);
    QTest::keyClick(m_box, Qt::Key_Backspace);
    m_box->setCursorPosition(0);
    QTest::keyClick(m_box, Qt::Key_Delete);
    Keys(u"1"_qs);
    QCOMPARE(m_box->text(), u"05/03/2009"_qs);
}

QTEST_MAIN(tst_mask_edit)
#include "tst_mask_edit.moc"
