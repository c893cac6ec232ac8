// A save that cannot be stored: the text stays where it was typed.

#include "EditingBench.h"

#include "support/PlainSqlite.h"

namespace {

const QString Before = u"D  A7\r\nSanto Deus"_qs; // version 2 as shown at first
const QString After = u"D  A7\r\nSanto Deus forte"_qs;

} // namespace

class tst_viewer_failed_saves : public QObject
{
    Q_OBJECT

private slots:
    void init() { bench = std::make_unique<EditingBench>(); }
    void cleanup() { bench.reset(); }

    void aFailedStatementKeepsTheText_data();
    void aFailedStatementKeepsTheText();
    void withoutAConnectionTheTextStays_data();
    void withoutAConnectionTheTextStays();
    void aSongThatIsGoneIsNotStored();
    void igualarWhoseStatementFailsStoresNothing();

private:
    std::unique_ptr<EditingBench> bench;
};

void tst_viewer_failed_saves::aFailedStatementKeepsTheText_data()
{
    QTest::addColumn<QByteArray>("other");
    QTest::newRow("another program writes: at the statement") << QByteArray("BEGIN IMMEDIATE");
    QTest::newRow("another program reads: at the commit")
        << QByteArray("BEGIN; SELECT count(*) FROM MUSICA");
}

void tst_viewer_failed_saves::aFailedStatementKeepsTheText()
{
    QFETCH(QByteArray, other);
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    PlainSqlite holder(bench->catalogue.Path());
    holder.Run(other);
    QVERIFY(ClickAndChoose(viewer, "cmdFechar", "cmdSalvar"));
    holder.Run("COMMIT");
    QCOMPARE(bench->dialogs.boxes.size(), 1);
    QVERIFY(!Gone(viewer));
    QVERIFY(Editing(viewer));
    QCOMPARE(Box(viewer, 2)->Text(), After);
    QCOMPARE(bench->Stored("MUSICA2"), Before);
    QVERIFY(ClickAndChoose(viewer, "cmdFechar", "cmdSalvar"));
    QVERIFY(Gone(viewer));
    QCOMPARE(bench->Stored("MUSICA2"), After);
}

void tst_viewer_failed_saves::withoutAConnectionTheTextStays_data()
{
    QTest::addColumn<QByteArray>("way");
    for (const char* way : {"cmdSalvar", "cmdFechar", "cmdMinimizar", "window manager"})
        QTest::newRow(way) << QByteArray(way);
}

void tst_viewer_failed_saves::withoutAConnectionTheTextStays()
{
    QFETCH(QByteArray, way);
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    Funcoes::Conexao.Close(); // as when the main form is closed
    QVERIFY(WithChoice(
        [&] {
            if (way == "window manager")
                viewer->windowHandle()->close();
            else
                Click(viewer, way.constData());
        },
        [](QWidget& dialog) { Click(&dialog, "cmdSalvar"); }));
    QCOMPARE(bench->dialogs.boxes.size(), 1);
    QCOMPARE(int(bench->dialogs.boxes.first().icon), int(Icone::Critico));
    QVERIFY(!Gone(viewer));
    QVERIFY(Editing(viewer));
    QVERIFY(!viewer->isMinimized());
    QCOMPARE(Box(viewer, 2)->Text(), After);
    QVERIFY(ClickAndChoose(viewer, "cmdFechar", "cmdNaoSalvar"));
    QVERIFY(Gone(viewer));
    QCOMPARE(bench->dialogs.boxes.size(), 1);
}

void tst_viewer_failed_saves::aSongThatIsGoneIsNotStored()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    bench->catalogue.Run(u"DELETE FROM MUSICA"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QVERIFY(bench->dialogs.boxes.isEmpty());
    QCOMPARE(bench->catalogue.Field(u"SELECT COUNT(*) FROM MUSICA"_qs), u"0"_qs);
    QVERIFY(!Editing(viewer));
    QCOMPARE(Caption(viewer, "lblTitulo"), u"Santo Deus"_qs);
}

void tst_viewer_failed_saves::igualarWhoseStatementFailsStoresNothing()
{
    const auto viewer = bench->OpenActive({.title = u"Olho d'água"_qs});
    Click(viewer, "lblVersao"); // both versions have been seen
    Click(viewer, "lblVersao");
    const QString first = Box(viewer, 1)->Text();
    Edit(viewer, u" forte"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvarIgualar"));
    QCOMPARE(bench->dialogs.boxes.size(), 1);
    QVERIFY(Editing(viewer));
    QCOMPARE(Box(viewer, 2)->Text(), After);
    QCOMPARE(bench->Stored("MUSICA"), u"C  G7\r\nSanto Deus"_qs);
    QCOMPARE(bench->Stored("MUSICA2"), Before);
    // What was equalised stays so in the box; giving up the change shows both as stored again.
    QCOMPARE(Box(viewer, 1)->Text(), After);
    Click(viewer, "cmdDescartar");
    QCOMPARE(Box(viewer, 2)->Text(), Before);
    Click(viewer, "lblVersao");
    QCOMPARE(Box(viewer, 1)->Text(), first);
}

QTEST_MAIN(tst_viewer_failed_saves)
#include "tst_viewer_failed_saves.moc"
