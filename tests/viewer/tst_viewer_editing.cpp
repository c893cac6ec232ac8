// Edit mode: what is shown, where keys and focus go, undo, discarding.

#include "EditingBench.h"

#include "controls/Appearance.h"

#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QWheelEvent>

#include <cstdlib>

namespace {

const QString Before = u"D  A7\r\nSanto Deus"_qs; // version 2 as shown at first
constexpr QRgb Silver = 0xFFC0C0C0;
constexpr QRgb White = 0xFFFFFFFF;

/// @return the colour of the sheet beside its text
QRgb Ground(RichTextBox* box)
{
    const QImage picture = box->viewport()->grab().toImage();
    return picture.pixel(picture.width() - 20, picture.height() - 20);
}

QString LongText()
{
    QString text;
    for (int i = 1; i <= 120; ++i)
        text += u"C  G7\r\nlinha %1\r\n"_qs.arg(i);
    return text;
}

} // namespace

class tst_viewer_editing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init() { bench = std::make_unique<EditingBench>(); }
    void cleanup() { bench.reset(); }

    void picturesTakeTurns_data();
    void picturesTakeTurns();
    void arrowsFollowTheListUnderTheirTwins();
    void versionAndListAreDisabled();
    void editedSheetsAreGrey_data();
    void editedSheetsAreGrey();
    void editingStopsTheAutomaticScrolling();
    void theHiddenSaveButtonBeginsEditing();
    void keysReachTheTextAndNothingElse();
    void shiftETypesNothing();
    void aHeldShiftETypesNothing();
    void theCaretComesWhereTheSheetIsRead_data();
    void theCaretComesWhereTheSheetIsRead();
    void tabWalksThroughTheWorkingButtons();
    void buttonsArePressedByKeys_data();
    void buttonsArePressedByKeys();
    void otherKeysMeanNothingOnButtons();
    void aClickBesideTheSheetKeepsTheFocus();
    void undoAndRedo();
    void undoCannotTakeTheSheetAway();
    void textIsPastedPlain();
    void textIsCopiedPlain();
    void discardingAsksFirst_data();
    void discardingAsksFirst();
    void discardingKeepsTheKey();
    void discardingKeepsFontAndChords();
    void discardingNeedsNoConnection();
    void theViewerMayGoWhileTheQuestionIsOpen();
    void theWheelDoesNotChangeTheLetters();

private:
    std::unique_ptr<EditingBench> bench;
};

void tst_viewer_editing::picturesTakeTurns_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<bool>("reading");
    for (const char* name : {"cmdSobe", "cmdTomOriginal", "cmdDesce", "cmdLetra", "cmdAumentaFonte",
                             "cmdDiminuiFonte", "cmdAutoRolagem", "cmdDescartar2", "cmdEditar"})
        QTest::addRow("%s while reading", name) << QByteArray(name) << true;
    for (const char* name :
         {"cmdSobe2", "cmdTomOriginal2", "cmdDesce2", "cmdLetra2", "cmdAumentaFonte2",
          "cmdDiminuiFonte2", "cmdDescartar", "cmdSalvar", "cmdAnterior2", "cmdProxima2"})
        QTest::addRow("%s while editing", name) << QByteArray(name) << false;
}

void tst_viewer_editing::picturesTakeTurns()
{
    QFETCH(QByteArray, control);
    QFETCH(bool, reading);
    const auto viewer = bench->OpenActive();
    const QWidget* picture = In(viewer, control.constData());
    QCOMPARE(picture->isVisible(), reading);
    Click(viewer, "cmdEditar");
    QCOMPARE(picture->isVisible(), !reading);
    Click(viewer, "cmdDescartar");
    QCOMPARE(picture->isVisible(), reading);
}

void tst_viewer_editing::arrowsFollowTheListUnderTheirTwins()
{
    const auto viewer = EditingBench::Active(bench->ThreeSongs());
    Click(viewer, "cmdEditar");
    QCOMPARE(Arrows(viewer), u">"_qs);
    Click(viewer, "cmdDescartar");
    QTest::keyClick(viewer.data(), Qt::Key_P);
    Edit(viewer, u" e rir"_qs);
    QCOMPARE(Arrows(viewer), u"<>"_qs);
    for (const char* arrow : {"cmdAnterior", "cmdProxima"}) {
        const QWidget* button = In(viewer, arrow);
        const QPoint place = button->mapTo(viewer.data(), button->rect().center());
        QTest::mouseClick(viewer->windowHandle(), Qt::LeftButton, {}, place);
        QCOMPARE(Title(viewer), u"Amar"_qs);
        QCOMPARE(Box(viewer, 2)->Text(), u"C\r\nDois Amar e rir"_qs);
    }
    Click(viewer, "cmdDescartar");
    QCOMPARE(Arrows(viewer), u"<>"_qs);
    Click(viewer, "cmdProxima");
    QCOMPARE(Title(viewer), u"Luar"_qs);
}

void tst_viewer_editing::versionAndListAreDisabled()
{
    const auto viewer = EditingBench::Active(bench->ThreeSongs());
    Edit(viewer, u" a"_qs);
    QVERIFY(!In(viewer, "lblVersao")->isEnabled());
    QVERIFY(!In(viewer, "cmbLista")->isEnabled());
    for (const char* control : {"lblVersao", "cmbLista"}) {
        const QWidget* widget = In(viewer, control);
        QTest::mouseClick(viewer->windowHandle(), Qt::LeftButton, {},
                          widget->mapTo(viewer.data(), widget->rect().center()));
    }
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.2"_qs);
    QVERIFY(!List(viewer)->view()->isVisible());
    QCOMPARE(Box(viewer, 2)->Text(), u"C\r\nDois Rosa a"_qs);
    Click(viewer, "cmdDescartar");
    QVERIFY(In(viewer, "lblVersao")->isEnabled());
    QVERIFY(In(viewer, "cmbLista")->isEnabled());
}

void tst_viewer_editing::editedSheetsAreGrey_data()
{
    QTest::addColumn<QColor>("desktop");
    QTest::newRow("light desktop") << QColor(0xEF, 0xEF, 0xEF);
    QTest::newRow("dark desktop") << QColor(0x20, 0x22, 0x26);
}

void tst_viewer_editing::editedSheetsAreGrey()
{
    QFETCH(QColor, desktop);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(desktop));
    const auto viewer = bench->OpenActive();
    QCOMPARE(Ground(Box(viewer, 2)), White);
    Click(viewer, "cmdEditar");
    for (const int version : {1, 2})
        QCOMPARE(Ground(Box(viewer, version)), Silver);
    // A desktop that turns dark meanwhile changes nothing, nor does the text turn light.
    QApplication::setPalette(QPalette(Qt::black));
    QCOMPARE(Ground(Box(viewer, 2)), Silver);
    QVERIFY(Box(viewer, 2)->palette().color(QPalette::Text).lightness() < 80);
    Click(viewer, "cmdDescartar");
    for (const int version : {1, 2})
        QCOMPARE(Ground(Box(viewer, version)), White);
    QApplication::setPalette(before);
}

void tst_viewer_editing::editingStopsTheAutomaticScrolling()
{
    const auto viewer = bench->OpenActive({.text2 = LongText()});
    Click(viewer, "cmdAutoRolagem");
    QVERIFY(In<QTimer>(viewer, "TimerRolagem")->isActive());
    Click(viewer, "cmdEditar");
    QVERIFY(!In<QTimer>(viewer, "TimerRolagem")->isActive());
    for (const char* control : {"cmdAutoRolagem", "cmdAutoRolagem2", "ProgressBarRolagem"})
        QVERIFY(!In(viewer, control)->isVisible());
}

void tst_viewer_editing::theHiddenSaveButtonBeginsEditing()
{
    const auto viewer = bench->OpenActive();
    In<QAbstractButton>(viewer, "cmdSalvar")->click(); // as an aid for the blind may do
    QVERIFY(Editing(viewer));
    QVERIFY(Box(viewer, 2)->hasFocus());
    TypeAtTheEnd(viewer, u" forte"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), Before + u" forte"_qs);
    QCOMPARE(bench->Stored("MUSICA2"), Before);
}

void tst_viewer_editing::keysReachTheTextAndNothingElse()
{
    const auto viewer = EditingBench::Active(bench->ThreeSongs());
    QTest::keyClick(viewer.data(), Qt::Key_P);
    Edit(viewer, u" sdrcvpaSDRCVPAE+-= "_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"C\r\nDois Amar sdrcvpaSDRCVPAE+-= "_qs);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Home, Qt::Key_Up, Qt::Key_Right})
        Press(viewer, key);
    QTest::keyClicks(viewer->focusWidget(), u"m"_qs);
    Press(viewer, Qt::Key_Down);
    Press(viewer, Qt::Key_Home);
    Press(viewer, Qt::Key_Delete);
    Press(viewer, Qt::Key_Return);
    QCOMPARE(Box(viewer, 2)->Text(), u"Cm\r\n\r\nois Amar sdrcvpaSDRCVPAE+-= "_qs);

    QVERIFY(viewer->isVisible());
    QVERIFY(Editing(viewer));
    QCOMPARE(Title(viewer), u"Amar"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(D)"_qs);
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.2"_qs);
    QCOMPARE(Box(viewer, 2)->font().pointSizeF(), 17.0);
    QVERIFY(!In<QTimer>(viewer, "TimerRolagem")->isActive());
    QVERIFY(bench->dialogs.boxes.isEmpty());
}

void tst_viewer_editing::shiftETypesNothing()
{
    const auto viewer = bench->OpenActive();
    Press(viewer, Qt::Key_E, Qt::ShiftModifier);
    QVERIFY(Editing(viewer));
    QVERIFY(Box(viewer, 2)->hasFocus());
    QCOMPARE(Box(viewer, 2)->Text(), Before);
    QTest::keyClick(viewer->focusWidget(), 'E', Qt::ShiftModifier);
    QCOMPARE(Box(viewer, 2)->Text(), u"E"_qs + Before);
}

void tst_viewer_editing::aHeldShiftETypesNothing()
{
    const auto viewer = bench->OpenActive();
    Press(viewer, Qt::Key_E, Qt::ShiftModifier);
    const auto repeat = [&](const QString& letter, Qt::KeyboardModifiers modifiers) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_E, modifiers, letter, true);
        QCoreApplication::sendEvent(viewer->focusWidget(), &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_E, modifiers, letter, true);
        QCoreApplication::sendEvent(viewer->focusWidget(), &release);
    };
    for (int i = 0; i < 3; ++i)
        repeat(u"E"_qs, Qt::ShiftModifier);
    // Shift is let go first.
    QTest::keyRelease(viewer->focusWidget(), Qt::Key_Shift);
    repeat(u"e"_qs, {});
    QCOMPARE(Box(viewer, 2)->Text(), Before);
    // A key pressed anew may repeat.
    QTest::keyPress(viewer->focusWidget(), Qt::Key_E);
    repeat(u"e"_qs, {});
    QCOMPARE(Box(viewer, 2)->Text(), u"ee"_qs + Before);
}

void tst_viewer_editing::theCaretComesWhereTheSheetIsRead_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << 1;
    QTest::newRow("version 2") << 2;
}

void tst_viewer_editing::theCaretComesWhereTheSheetIsRead()
{
    QFETCH(int, version);
    const auto viewer = bench->OpenActive({.text = LongText(), .text2 = LongText()});
    if (version == 1)
        Click(viewer, "lblVersao");
    RichTextBox* box = Box(viewer, version);
    QTest::keyClick(viewer.data(), Qt::Key_End);
    const int position = box->verticalScrollBar()->value();
    QVERIFY(position > 1000);
    Click(viewer, "cmdEditar");
    QCOMPARE(box->verticalScrollBar()->value(), position);
    QTest::keyClicks(box, u"x"_qs);
    QVERIFY(std::abs(box->verticalScrollBar()->value() - position) < box->height());
    QVERIFY(box->Text().contains(u'x'));
}

void tst_viewer_editing::tabWalksThroughTheWorkingButtons()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdEditar");
    QStringList forth;
    for (int i = 0; i < 5; ++i) {
        Press(viewer, Qt::Key_Tab);
        forth.append(viewer->focusWidget()->objectName());
    }
    QCOMPARE(forth, QStringList({u"cmdSalvar"_qs, u"cmdDescartar"_qs, u"cmdMinimizar"_qs,
                                 u"cmdFechar"_qs, u"RichTextBox_2"_qs}));
    QStringList back;
    for (int i = 0; i < 5; ++i) {
        Press(viewer, Qt::Key_Backtab, Qt::ShiftModifier);
        back.append(viewer->focusWidget()->objectName());
    }
    QCOMPARE(back, QStringList({u"cmdFechar"_qs, u"cmdMinimizar"_qs, u"cmdDescartar"_qs,
                                u"cmdSalvar"_qs, u"RichTextBox_2"_qs}));
    QCOMPARE(Box(viewer, 2)->Text(), Before);
}

void tst_viewer_editing::buttonsArePressedByKeys_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("key");
    for (const char* button : {"cmdSalvar", "cmdDescartar", "cmdMinimizar", "cmdFechar"})
        for (const auto& [name, key] : {std::pair{"Space", Qt::Key_Space},
                                        {"Enter", Qt::Key_Return},
                                        {"keypad Enter", Qt::Key_Enter}})
            QTest::addRow("%s by %s", button, name) << QByteArray(button) << int{key};
}

void tst_viewer_editing::buttonsArePressedByKeys()
{
    QFETCH(QByteArray, button);
    QFETCH(int, key);
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdEditar");
    for (int i = 0; i < 5 && viewer->focusWidget()->objectName().toLatin1() != button; ++i)
        Press(viewer, Qt::Key_Tab);
    const bool asked = WithChoice([&] { Press(viewer, static_cast<Qt::Key>(key)); },
                                  [](QWidget& dialog) { Click(&dialog, "cmdNaoSalvar"); });
    QCOMPARE(asked, button != "cmdDescartar");
    QCOMPARE(bench->dialogs.boxes.size(), asked ? 0 : 1);
    if (button == "cmdFechar") {
        QVERIFY(Gone(viewer));
        return;
    }
    QVERIFY(!Editing(viewer));
    QCOMPARE(viewer->isMinimized(), button == "cmdMinimizar");
    // Nothing but the form has the keys again.
    QVERIFY(viewer->focusWidget() == nullptr || viewer->focusWidget() == viewer);
}

void tst_viewer_editing::otherKeysMeanNothingOnButtons()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdEditar");
    Press(viewer, Qt::Key_Tab);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_S, Qt::Key_P, Qt::Key_Up, Qt::Key_Down,
                              Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_Plus}) {
        Press(viewer, key);
        QCOMPARE(viewer->focusWidget(), In(viewer, "cmdSalvar"));
    }
    QVERIFY(Editing(viewer));
    QCOMPARE(Caption(viewer, "lblTom"), u"(C)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), Before);
}

void tst_viewer_editing::aClickBesideTheSheetKeepsTheFocus()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdEditar");
    for (const char* place : {"lblTitulo", "pctBotoes", "imgFundoEsq", "cmdSobe2", "pctMusica"}) {
        QTest::mouseClick(viewer->windowHandle(), Qt::LeftButton, {},
                          In(viewer, place)->mapTo(viewer.data(), QPoint(2, 2)));
        QVERIFY2(Box(viewer, 2)->hasFocus(), place);
    }
}

void tst_viewer_editing::undoAndRedo()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    Press(viewer, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Box(viewer, 2)->Text(), Before);
    Press(viewer, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Box(viewer, 2)->Text(), Before + u" forte"_qs);
}

void tst_viewer_editing::undoCannotTakeTheSheetAway()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdEditar");
    Press(viewer, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Box(viewer, 2)->Text(), Before);
    // Nor after a discarded or a stored change, back to what was before it.
    TypeAtTheEnd(viewer, u" forte"_qs);
    Click(viewer, "cmdDescartar");
    Click(viewer, "cmdEditar");
    Press(viewer, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    Press(viewer, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Box(viewer, 2)->Text(), Before);
    TypeAtTheEnd(viewer, u" forte"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    Click(viewer, "cmdEditar");
    for (int i = 0; i < 3; ++i)
        Press(viewer, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Box(viewer, 2)->Text(), Before + u" forte"_qs);
}

void tst_viewer_editing::textIsPastedPlain()
{
    auto* content = new QMimeData;
    content->setText(u"Santo\nForte"_qs);
    content->setHtml(u"<h1 style='color:red'>Santo</h1><p>Forte"_qs);
    QGuiApplication::clipboard()->setMimeData(content);
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" "_qs);
    const QString format = Box(viewer, 2)->TextRTF();
    Press(viewer, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Box(viewer, 2)->Text(), Before + u" Santo\r\nForte"_qs);
    Press(viewer, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Box(viewer, 2)->TextRTF(), format);
}

void tst_viewer_editing::textIsCopiedPlain()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdEditar");
    Press(viewer, Qt::Key_A, Qt::ControlModifier);
    Press(viewer, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* clipboard = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(clipboard->text(), u"D  A7\nSanto Deus"_qs);
    QVERIFY(!clipboard->hasHtml());
}

void tst_viewer_editing::discardingAsksFirst_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("Sim") << true;
    QTest::newRow("Não") << false;
}

void tst_viewer_editing::discardingAsksFirst()
{
    QFETCH(bool, yes);
    bench->dialogs.answer = yes;
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    Statements statements;
    Click(viewer, "cmdDescartar");
    QCOMPARE(bench->dialogs.boxes.size(), 1);
    const RecordingDialogs::Box& box = bench->dialogs.boxes.first();
    QCOMPARE(box.text, u"Deseja descartar as alterações realizadas?"_qs);
    QCOMPARE(int(box.icon), int(Icone::Pergunta));
    QCOMPARE(box.title, u"Melodario"_qs);
    QCOMPARE(Editing(viewer), !yes);
    QCOMPARE(Box(viewer, 2)->Text(), yes ? Before : QString(Before + u" forte"_qs));
    QCOMPARE(Box(viewer, 2)->hasFocus(), !yes);
    QCOMPARE(statements, QStringList());
    QCOMPARE(bench->Stored("MUSICA2"), Before);
}

void tst_viewer_editing::discardingKeepsTheKey()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdSobe");
    Edit(viewer, u" forte"_qs);
    Click(viewer, "cmdDescartar");
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"D#  A#7\r\nSanto Deus"_qs);
}

void tst_viewer_editing::discardingKeepsFontAndChords()
{
    const auto viewer = bench->OpenActive();
    for (const char* control : {"cmdSobe", "cmdDiminuiFonte", "cmdLetra", "lblVersao"})
        Click(viewer, control);
    const QString sheet = Box(viewer, 1)->TextRTF();
    Edit(viewer, u" forte"_qs);
    QVERIFY(Box(viewer, 1)->TextRTF() != sheet);
    Click(viewer, "cmdDescartar");
    QCOMPARE(Box(viewer, 1)->TextRTF(), sheet);
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.1"_qs);
}

void tst_viewer_editing::discardingNeedsNoConnection()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    Funcoes::Conexao.Close(); // as when the main form is closed
    Click(viewer, "cmdDescartar");
    QCOMPARE(bench->dialogs.boxes.size(), 1);
    QVERIFY(!Editing(viewer));
    QCOMPARE(Box(viewer, 2)->Text(), Before);
}

void tst_viewer_editing::theViewerMayGoWhileTheQuestionIsOpen()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    bench->dialogs.whileOpen = [&] { delete viewer; };
    Click(viewer, "cmdDescartar");
    QVERIFY(!viewer);
    QCOMPARE(bench->dialogs.boxes.size(), 1);
    QCOMPARE(bench->Stored("MUSICA2"), Before);
}

void tst_viewer_editing::theWheelDoesNotChangeTheLetters()
{
    const auto viewer = bench->OpenActive({.text2 = LongText()});
    RichTextBox* box = Box(viewer, 2);
    const QScrollBar* bar = box->verticalScrollBar();
    const QFont font = box->font();
    const int limit = bar->maximum();
    const auto turn = [&](Qt::KeyboardModifiers held) {
        const QPointF place(40, 40);
        QWheelEvent wheel(place, box->viewport()->mapToGlobal(place), QPoint(), QPoint(0, -120), {},
                          held, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box->viewport(), &wheel);
    };
    turn({});
    const int step = bar->value();
    QVERIFY(step > 0);
    turn(Qt::ControlModifier);
    QCOMPARE(box->font(), font);
    QCOMPARE(bar->maximum(), limit);
    QCOMPARE(bar->value(), 2 * step);
    Click(viewer, "cmdEditar");
    turn(Qt::ControlModifier);
    QCOMPARE(box->font(), font);
}

QTEST_MAIN(tst_viewer_editing)
#include "tst_viewer_editing.moc"
