// Opening, closing and living side by side; keys and focus outside edit mode.

#include "ViewerBench.h"

#include "controls/ComboBox.h"
#include "runtime/RuntimeError.h"

#include <QTimer>

class tst_viewer_life : public QObject
{
    Q_OBJECT

private slots:
    void init() { bench = std::make_unique<ViewerBench>(); }
    void cleanup() { bench.reset(); }

    void theFormIsBorderlessModelessAndNobodys();
    void controlsAtFirst_data();
    void controlsAtFirst();
    void escCloses_data();
    void escCloses();
    void theCloseButtonCloses();
    void theWindowSystemCloses();
    void minimise();
    void keysDoNotTouchTheText_data();
    void keysDoNotTouchTheText();
    void keysDoNotMoveTheSongList();
    void clickingIntoTheTextLeavesNoCaret();
    void severalViewersKeepTheirOwnState();
    void closingOneViewerLeavesTheOthers();
    void aSongOpenedAgainStartsAnew();
    void anOpenViewerOutlivesTheConnection();
    void openingWithoutAConnectionFailsAndTheFormGoes();

private:
    std::unique_ptr<ViewerBench> bench;
};

void tst_viewer_life::theFormIsBorderlessModelessAndNobodys()
{
    const auto viewer = bench->Open(TestSong{});
    QCOMPARE(viewer->objectName(), u"frmVisualizar"_qs);
    QVERIFY(viewer->isWindow());
    QVERIFY(viewer->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(!viewer->isModal());
    QCOMPARE(viewer->parent(), nullptr);
}

void tst_viewer_life::controlsAtFirst_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<bool>("visible");
    for (const char* shown :
         {"cmdSobe", "cmdDesce", "cmdTomOriginal", "cmdLetra", "cmdAumentaFonte", "cmdDiminuiFonte",
          "cmdAutoRolagem", "cmdEditar", "cmdDescartar2", "cmdFechar", "cmdMinimizar", "lblVersao",
          "cmbLista", "RichTextBox_2"})
        QTest::addRow("%s is shown", shown) << QByteArray(shown) << true;
    for (const char* hidden :
         {"cmdSobe2", "cmdDesce2", "cmdTomOriginal2", "cmdLetra2", "cmdAumentaFonte2",
          "cmdDiminuiFonte2", "cmdAutoRolagem2", "cmdAnterior2", "cmdProxima2", "cmdSalvar",
          "cmdDescartar", "cmdAnterior", "cmdProxima", "ProgressBarRolagem", "RichTextBox_1"})
        QTest::addRow("%s is hidden", hidden) << QByteArray(hidden) << false;
}

void tst_viewer_life::controlsAtFirst()
{
    QFETCH(QByteArray, control);
    QFETCH(bool, visible);
    const auto viewer = bench->Open(TestSong{});
    QCOMPARE(In(viewer, control.constData())->isVisible(), visible);
}

void tst_viewer_life::escCloses_data()
{
    QTest::addColumn<QByteArray>("receiver");
    QTest::newRow("the form") << QByteArray();
    QTest::newRow("the sheet") << QByteArray("RichTextBox_2");
    QTest::newRow("the song list") << QByteArray("cmbLista");
}

void tst_viewer_life::escCloses()
{
    QFETCH(QByteArray, receiver);
    const auto viewer = bench->Open(TestSong{});
    QWidget* widget = receiver.isEmpty() ? viewer.data() : In(viewer, receiver.constData());
    QTest::keyClick(widget, Qt::Key_Escape);
    QVERIFY(Gone(viewer));
}

void tst_viewer_life::theCloseButtonCloses()
{
    const auto viewer = bench->Open(TestSong{});
    Click(viewer, "cmdFechar");
    QVERIFY(Gone(viewer));
}

void tst_viewer_life::theWindowSystemCloses()
{
    const auto viewer = bench->Open(TestSong{});
    viewer->close();
    QVERIFY(Gone(viewer));
}

void tst_viewer_life::minimise()
{
    const auto viewer = bench->Open(TestSong{});
    Click(viewer, "cmdMinimizar");
    QVERIFY(viewer->isMinimized());
    viewer->showNormal();
    QVERIFY(!viewer->isMinimized());
    QCOMPARE(Caption(viewer, "lblTitulo"), u"Santo Deus"_qs);
}

void tst_viewer_life::keysDoNotTouchTheText_data()
{
    QTest::addColumn<QByteArray>("receiver");
    QTest::newRow("the form") << QByteArray();
    QTest::newRow("the sheet") << QByteArray("RichTextBox_2");
    QTest::newRow("the song list") << QByteArray("cmbLista");
}

void tst_viewer_life::keysDoNotTouchTheText()
{
    QFETCH(QByteArray, receiver);
    const auto viewer = bench->Open(TestSong{});
    // The form keeps the keys away, also from a sheet that would take them.
    Box(viewer, 2)->setTextInteractionFlags(Qt::TextEditorInteraction);
    QWidget* widget = receiver.isEmpty() ? viewer.data() : In(viewer, receiver.constData());
    if (!receiver.isEmpty())
        widget->setFocus();
    QTest::keyClicks(widget, u"xyz"_qs);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Delete,
                              Qt::Key_Backspace, Qt::Key_F1})
        QTest::keyClick(widget, key);
    QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    QVERIFY(viewer);
    QCOMPARE(Box(viewer, 2)->Text(), u"D  A7\r\nSanto Deus"_qs);
}

void tst_viewer_life::keysDoNotMoveTheSongList()
{
    const auto viewer = bench->Open(TestSong{});
    auto* list = In<ComboBox>(viewer, "cmbLista");
    for (const QString& song : {u"Amazônia"_qs, u"Bendita"_qs, u"Ciranda"_qs})
        list->AddItem(song);
    list->SetListIndex(1);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_C})
        QTest::keyClick(list, key);
    QCOMPARE(list->ListIndex(), 1);
}

void tst_viewer_life::clickingIntoTheTextLeavesNoCaret()
{
    const auto viewer = bench->Open(TestSong{});
    viewer->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    RichTextBox* box = Box(viewer, 2);
    QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseDClick(box->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QVERIFY(!box->hasFocus());
    QVERIFY(!box->textCursor().hasSelection());
    QTest::keyClicks(QApplication::focusWidget() ? QApplication::focusWidget() : viewer.data(),
                     u"xyz"_qs);
    QCOMPARE(box->Text(), u"D  A7\r\nSanto Deus"_qs);
}

void tst_viewer_life::severalViewersKeepTheirOwnState()
{
    const auto first = bench->Open({.title = u"Primeira"_qs, .key = u"C"_qs});
    const auto second = bench->Open({.title = u"Segunda"_qs, .key = u"A"_qs});
    Click(first, "cmdSobe");
    Click(second, "cmdDesce");
    Click(second, "lblVersao");
    QCOMPARE(Caption(first, "lblTom"), u"(C#)"_qs);
    QCOMPARE(Caption(second, "lblTom"), u"(G#)"_qs);
    QCOMPARE(Caption(first, "lblVersao"), u"v.2"_qs);
    QCOMPARE(Caption(second, "lblVersao"), u"v.1"_qs);
    QCOMPARE(Caption(first, "lblTitulo"), u"Primeira"_qs);
    QCOMPARE(first->ID_Musica + 1, second->ID_Musica);
}

void tst_viewer_life::closingOneViewerLeavesTheOthers()
{
    const auto first = bench->Open(TestSong{});
    const auto second = bench->Open(TestSong{});
    QTest::keyClick(first.data(), Qt::Key_Escape);
    QVERIFY(Gone(first));
    QVERIFY(second);
    Click(second, "cmdSobe");
    QCOMPARE(Caption(second, "lblTom"), u"(C#)"_qs);
}

void tst_viewer_life::aSongOpenedAgainStartsAnew()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    const auto first = bench->Open(song);
    const QString sheet = Box(first, 2)->TextRTF();
    for (const char* control : {"cmdSobe", "cmdAumentaFonte", "cmdLetra", "lblVersao"})
        Click(first, control);
    QCOMPARE(Caption(first, "lblTom"), u"(C#)"_qs);
    QCOMPARE(Caption(first, "lblVersao"), u"v.1"_qs);
    Click(first, "cmdFechar");
    QVERIFY(Gone(first));

    const auto second = bench->Open(song);
    QCOMPARE(Caption(second, "lblTom"), u"(C)"_qs);
    QCOMPARE(Caption(second, "lblVersao"), u"v.2"_qs);
    QCOMPARE(Box(second, 2)->Text(), u"D  A7\r\nSanto Deus"_qs);
    QCOMPARE(Box(second, 2)->TextRTF(), sheet); // the letters' size, too
    QVERIFY(Box(second, 2)->isVisible());
    QVERIFY(!Box(second, 1)->isVisible());
    QCOMPARE(Box(second, 1)->Text(), QString());
}

void tst_viewer_life::anOpenViewerOutlivesTheConnection()
{
    const auto viewer = bench->Open(TestSong{});
    Funcoes::Conexao.Close();
    Click(viewer, "cmdSobe");
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);
    Click(viewer, "lblVersao");
    QCOMPARE(Box(viewer, 1)->Text(), u"C#  G#7\r\nSanto Deus"_qs);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, viewer->Carrega_Musica());
    Click(viewer, "cmdFechar");
    QVERIFY(Gone(viewer));
}

void tst_viewer_life::openingWithoutAConnectionFailsAndTheFormGoes()
{
    Funcoes::Conexao.Close();
    const QPointer<frmVisualizar> viewer = new frmVisualizar;
    viewer->ID_Musica = 1;
    int number = 0;
    try {
        viewer->Show();
    } catch (const RuntimeError& error) {
        number = error.Number();
    }
    QCOMPARE(number, int(RuntimeError::ObjectClosed));
    QVERIFY(!viewer->isVisible());
    QVERIFY(Gone(viewer));
}

QTEST_MAIN(tst_viewer_life)
#include "tst_viewer_life.moc"
