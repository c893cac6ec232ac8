// Viewers that stay open when the main form is closed, which takes the connection along.

#include "PrincipalTeste.h"
#include "viewer/Ticks.h"

#include "controls/ComboBox.h"
#include "controls/RecordingDialogs.h"
#include "viewer/Musicas_Contadas.h"

class tst_visualizador_orfao : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theSheetStaysAlive();
    void everyStoreOperationTellsItsFailureOnce();
    void theCountdownTellsItsFailureOnce();
    void everyViewerTellsForItself();
    void closingLeavesNothingBehind();

private:
    QPointer<frmVisualizar> Open(qint64 song) const;

    std::unique_ptr<TestCatalogue> catalogue;
    std::unique_ptr<PrincipalTeste> form;
    QPointer<frmVisualizar> first;
    QPointer<frmVisualizar> second;
};

QPointer<frmVisualizar> tst_visualizador_orfao::Open(qint64 song) const
{
    auto* viewer = new frmVisualizar;
    viewer->ID_Musica = static_cast<double>(song);
    viewer->Show();
    return viewer;
}

void tst_visualizador_orfao::init()
{
    Funcoes::Musicas_Contadas.clear();
    catalogue = std::make_unique<TestCatalogue>();
    for (const QString& title : {u"Amém"_qs, u"Bendita"_qs, u"Ciranda"_qs})
        catalogue->AddSong({.title = title, .text = LongSong(60), .text2 = LongSong(60)});
    form = std::make_unique<PrincipalTeste>(*catalogue);
    form->Form_Load(QString());
    form->show();
    first = Open(1);
    second = Open(2);
    form->close();
    QVERIFY(!Funcoes::Conexao.IsOpen());
}

void tst_visualizador_orfao::cleanup()
{
    delete first;
    delete second;
    form.reset();
    catalogue.reset();
}

void tst_visualizador_orfao::theSheetStaysAlive()
{
    RecordingDialogs dialogs;
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_Plus, Qt::Key_C, Qt::Key_V, Qt::Key_Down,
                              Qt::Key_Return, Qt::Key_Right, Qt::Key_Home})
        QTest::keyClick(first.data(), key);
    QCOMPARE(Caption(first, "lblTom"), u"(C#)"_qs);
    QCOMPARE(Caption(first, "lblVersao"), u"v.1"_qs);
    QCOMPARE(dialogs.boxes.size(), 0);
}

void tst_visualizador_orfao::everyStoreOperationTellsItsFailureOnce()
{
    RecordingDialogs dialogs;
    QTest::keyClick(first.data(), Qt::Key_P);
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].icon, Icone::Critico);
    QCOMPARE(dialogs.boxes[0].title, u"Melodario"_qs);
    QCOMPARE(Caption(first, "lblTitulo"), u"Amém"_qs);
    Click(first, "cmdProxima");
    QCOMPARE(dialogs.boxes.size(), 2);
    In<ComboBox>(second, "cmbLista")->SetListIndex(0);
    QCOMPARE(dialogs.boxes.size(), 3);
    QVERIFY(first->isVisible());
    QVERIFY(second->isVisible());
}

void tst_visualizador_orfao::theCountdownTellsItsFailureOnce()
{
    RecordingDialogs dialogs;
    Tick(first, "tmrContador", 44);
    QCOMPARE(dialogs.boxes.size(), 1);
    QVERIFY(In<QTimer>(first, "tmrContador")->isActive());
    QCOMPARE(Funcoes::Musicas_Contadas, QString());
    QCOMPARE(catalogue->Field(u"SELECT SUM(CONTADOR) FROM MUSICA"_qs), u"0"_qs);
}

void tst_visualizador_orfao::everyViewerTellsForItself()
{
    RecordingDialogs dialogs;
    Tick(first, "tmrContador", 22);
    Tick(second, "tmrContador", 22);
    QCOMPARE(dialogs.boxes.size(), 2);
}

void tst_visualizador_orfao::closingLeavesNothingBehind()
{
    RecordingDialogs dialogs;
    QTest::keyClick(first.data(), Qt::Key_Escape);
    Click(second, "cmdFechar");
    QVERIFY(Gone(first));
    QVERIFY(Gone(second));
    QCOMPARE(dialogs.boxes.size(), 0);
}

QTEST_MAIN(tst_visualizador_orfao)
#include "tst_visualizador_orfao.moc"
