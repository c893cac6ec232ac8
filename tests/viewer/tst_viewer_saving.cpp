// What a save writes, and what becomes of edit mode.

#include "EditingBench.h"

#include "controls/Resposta_Mensagem.h"

namespace {

const QString Before = u"D  A7\r\nSanto Deus"_qs; // version 2 as shown at first
const QString After = u"D  A7\r\nSanto Deus forte"_qs;

/// Notes what a viewer does, in its order: it leaves edit mode, and is minimised.
class Steps : public QObject
{
public:
    explicit Steps(QWidget& viewer)
        : m_viewer(viewer)
    {
        viewer.installEventFilter(this);
        In(&viewer, "cmdEditar")->installEventFilter(this);
    }

    QStringList done;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == &m_viewer && event->type() == QEvent::WindowStateChange &&
            m_viewer.isMinimized())
            done += u"minimises"_qs;
        if (watched != &m_viewer && event->type() == QEvent::ShowToParent)
            done += u"leaves"_qs;
        return false;
    }

private:
    QWidget& m_viewer;
};

} // namespace

class tst_viewer_saving : public QObject
{
    Q_OBJECT

private slots:
    void init() { bench = std::make_unique<EditingBench>(); }
    void cleanup() { bench.reset(); }

    void everyWayOutWithEveryAnswer_data();
    void everyWayOutWithEveryAnswer();
    void theStatement();
    void theUnseenVersionIsStoredEmpty();
    void theSeenVersionIsStoredAsRendered();
    void theOtherBoxMayHoldAnotherSong();
    void igualarStoresTheShownVersionTwice_data();
    void igualarStoresTheShownVersionTwice();
    void aTransposedSongIsStoredAsShown();
    void aSheetWithoutChordsIsStoredAsShown();
    void theKeyIsStoredInItsFirstSpelling_data();
    void theKeyIsStoredInItsFirstSpelling();
    void starsAndNothingElseLeaveTheTitle_data();
    void starsAndNothingElseLeaveTheTitle();
    void apostrophesOfTheTextAreKept();
    void anApostropheInTheTitleFails();
    void whatIsTypedComesBack_data();
    void whatIsTypedComesBack();
    void bothVersionsKeepTheirCharacters();
    void naoSalvarKeepsKeyFontAndVersion();
    void savingKeepsFontAndChords();
    void savingLoadsTheSongAgain();
    void othersReadTheSaveAtOnce();
    void viewersSaveTheirOwnSongs();
    void theViewerMayGoWhileTheChoiceIsOpen_data();
    void theViewerMayGoWhileTheChoiceIsOpen();
    void minimisingSavesThenLeavesThenMinimises();
    void aMinimisedViewerComesBackToAsk();
    void theAnswerIsKeptUntilTheNextDialog();

private:
    void CloseByTheWindowManager(QWidget* viewer) { viewer->windowHandle()->close(); }

    std::unique_ptr<EditingBench> bench;
};

void tst_viewer_saving::everyWayOutWithEveryAnswer_data()
{
    QTest::addColumn<QByteArray>("way");
    QTest::addColumn<QByteArray>("answer");
    const QList<QByteArray> answers = {
        "cmdSalvar", "cmdSalvarIgualar", "cmdNaoSalvar", "cmdCancelar", "Esc", "title bar"};
    for (const char* way : {"cmdSalvar", "cmdFechar", "cmdMinimizar", "window manager"})
        for (const QByteArray& answer : answers)
            QTest::addRow("%s, %s", way, answer.constData()) << QByteArray(way) << answer;
}

void tst_viewer_saving::everyWayOutWithEveryAnswer()
{
    QFETCH(QByteArray, way);
    QFETCH(QByteArray, answer);
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);

    const bool asked = WithChoice(
        [&] {
            if (way == "window manager")
                CloseByTheWindowManager(viewer);
            else
                Click(viewer, way.constData());
        },
        [&](QWidget& dialog) {
            if (answer == "Esc")
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else if (answer == "title bar")
                dialog.close();
            else
                Click(&dialog, answer.constData());
        });
    QVERIFY(asked);

    const bool goesOn = answer == "cmdCancelar" || answer == "Esc";
    const bool writes = !goesOn && answer != "cmdNaoSalvar";
    QCOMPARE(bench->Stored("MUSICA2"), writes ? After : Before);
    const QString first = answer == "cmdSalvarIgualar" ? After : QString(u""_qs);
    QCOMPARE(bench->Stored("MUSICA"), writes ? first : u"C  G7\r\nSanto Deus"_qs);

    const bool closes = way == "cmdFechar" || way == "window manager";
    if (closes && !goesOn) {
        QVERIFY(Gone(viewer));
        return;
    }
    QVERIFY(!Gone(viewer));
    QCOMPARE(viewer->isMinimized(), way == "cmdMinimizar" && !goesOn);
    viewer->showNormal();
    QCOMPARE(Editing(viewer), goesOn);
    QCOMPARE(Box(viewer, 2)->Text(), answer == "cmdNaoSalvar" ? Before : After);
    QVERIFY(bench->dialogs.boxes.isEmpty());
}

void tst_viewer_saving::theStatement()
{
    const auto viewer =
        bench->OpenActive({.title = u"Santo *Deus*"_qs, .text2 = u"D\r\nÁgua d'Oxum"_qs});
    Edit(viewer, u"'s"_qs);
    Statements statements;
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(statements.value(0),
             u"UPDATE MUSICA SET TITULO = 'Santo Deus', TOM = 'C',  MUSICA = '',  MUSICA2 = 'D\r\n"
             "Água d''Oxum''s'  WHERE ID = 01"_qs);
    QCOMPARE(statements.filter(u"UPDATE"_qs).size(), 1);
    QVERIFY(statements.contains(u"SELECT * FROM MUSICA WHERE ID = 01"_qs));
}

void tst_viewer_saving::theUnseenVersionIsStoredEmpty()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("MUSICA"), u""_qs);
    QCOMPARE(bench->Stored("MUSICA2"), After);
}

void tst_viewer_saving::theSeenVersionIsStoredAsRendered()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "lblVersao");
    Click(viewer, "cmdSobe"); // version 1 is rendered in C#
    Click(viewer, "cmdDesce");
    Click(viewer, "cmdSobe");
    Click(viewer, "lblVersao");
    Click(viewer, "cmdTomOriginal");
    Edit(viewer, u" forte"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("MUSICA"), u"C#  G#7\r\nSanto Deus"_qs);
    QCOMPARE(bench->Stored("MUSICA2"), After);
    QCOMPARE(bench->Stored("TOM"), u"C"_qs);
}

void tst_viewer_saving::theOtherBoxMayHoldAnotherSong()
{
    const auto viewer = EditingBench::Active(bench->ThreeSongs());
    Click(viewer, "lblVersao");
    Click(viewer, "lblVersao"); // version 1 of the first song has been seen
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Amar"_qs);
    Edit(viewer, u" e rir"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("MUSICA", 2), u"C\r\nUm Rosa"_qs);
    QCOMPARE(bench->Stored("MUSICA2", 2), u"C\r\nDois Amar e rir"_qs);
    QCOMPARE(bench->Stored("MUSICA2", 1), u"C\r\nDois Rosa"_qs);
}

void tst_viewer_saving::igualarStoresTheShownVersionTwice_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << 1;
    QTest::newRow("version 2") << 2;
}

void tst_viewer_saving::igualarStoresTheShownVersionTwice()
{
    QFETCH(int, version);
    const auto viewer = bench->OpenActive();
    if (version == 1)
        Click(viewer, "lblVersao");
    Edit(viewer, u" forte"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvarIgualar"));
    const QString saved = version == 1 ? u"C  G7\r\nSanto Deus forte"_qs : After;
    QCOMPARE(bench->Stored("MUSICA"), saved);
    QCOMPARE(bench->Stored("MUSICA2"), saved);
    QCOMPARE(Shown(viewer)->Text(), saved);
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.%1"_qs.arg(version));
}

void tst_viewer_saving::aTransposedSongIsStoredAsShown()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdSobe");
    Click(viewer, "cmdSobe");
    const QString shown = Box(viewer, 2)->Text();
    const QString sheet = Box(viewer, 2)->TextRTF();
    QCOMPARE(shown, u"E  B7\r\nSanto Deus"_qs);
    Click(viewer, "cmdEditar");
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("TOM"), u"D"_qs);
    QCOMPARE(bench->Stored("MUSICA2"), shown);
    QCOMPARE(Caption(viewer, "lblTom"), u"(D)"_qs);
    QCOMPARE(Box(viewer, 2)->TextRTF(), sheet);
    // That is now the stored key.
    Click(viewer, "cmdTomOriginal");
    QCOMPARE(Caption(viewer, "lblTom"), u"(D)"_qs);
    Click(viewer, "cmdSobe");
    QCOMPARE(Box(viewer, 2)->Text(), u"F  C7\r\nSanto Deus"_qs);
}

void tst_viewer_saving::aSheetWithoutChordsIsStoredAsShown()
{
    const auto viewer = bench->OpenActive();
    Click(viewer, "cmdLetra");
    const QString shown = Box(viewer, 2)->Text();
    QVERIFY(!shown.contains(u"A7"));
    Click(viewer, "cmdEditar");
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("MUSICA2"), shown);
}

void tst_viewer_saving::theKeyIsStoredInItsFirstSpelling_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::newRow("as it is") << u"C#"_qs << u"C#"_qs;
    QTest::newRow("other spelling") << u"Db"_qs << u"C#"_qs;
    QTest::newRow("no key of the table: the last one") << u"H"_qs << u"B"_qs;
}

void tst_viewer_saving::theKeyIsStoredInItsFirstSpelling()
{
    QFETCH(QString, key);
    QFETCH(QString, stored);
    const auto viewer = bench->OpenActive({.key = key, .variation = u"m"_qs});
    Click(viewer, "cmdEditar");
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("TOM"), stored);
    QCOMPARE(bench->Stored("VARIACAO"), u"m"_qs);
}

void tst_viewer_saving::starsAndNothingElseLeaveTheTitle_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("stored");
    QTest::newRow("stars") << u"**Santo* Deus"_qs << u"Santo Deus"_qs;
    QTest::newRow("stars alone") << u"***"_qs << u""_qs;
    QTest::newRow("blanks at both ends") << u"  Santo *Deus * "_qs << u"  Santo Deus  "_qs;
    QTest::newRow("signs of captions and markup") << u"<b>&Tom</b> [*]"_qs << u"<b>&Tom</b> []"_qs;
}

void tst_viewer_saving::starsAndNothingElseLeaveTheTitle()
{
    QFETCH(QString, title);
    QFETCH(QString, stored);
    const auto viewer = bench->OpenActive({.title = title});
    Click(viewer, "cmdEditar");
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("TITULO"), stored);
    QCOMPARE(Caption(viewer, "lblTitulo"), stored);
}

void tst_viewer_saving::apostrophesOfTheTextAreKept()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" d'água ''"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvarIgualar"));
    QCOMPARE(bench->Stored("MUSICA"), Before + u" d'água ''"_qs);
    QCOMPARE(bench->Stored("MUSICA2"), Before + u" d'água ''"_qs);
}

void tst_viewer_saving::anApostropheInTheTitleFails()
{
    const auto viewer = bench->OpenActive({.title = u"Olho d'água"_qs});
    Edit(viewer, u" forte"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->dialogs.boxes.size(), 1);
    QCOMPARE(bench->dialogs.boxes.first().title, u"Melodario"_qs);
    QCOMPARE(int(bench->dialogs.boxes.first().icon), int(Icone::Critico));
    QVERIFY(Editing(viewer));
    QCOMPARE(Box(viewer, 2)->Text(), After);
    QCOMPARE(bench->Stored("MUSICA2"), Before);
    // Closing asks again, and failing again keeps the viewer.
    QVERIFY(ClickAndChoose(viewer, "cmdFechar", "cmdSalvar"));
    QCOMPARE(bench->dialogs.boxes.size(), 2);
    QVERIFY(!Gone(viewer));
    QVERIFY(Editing(viewer));
    QVERIFY(ClickAndChoose(viewer, "cmdFechar", "cmdNaoSalvar"));
    QVERIFY(Gone(viewer));
    QCOMPARE(bench->Stored("TITULO"), u"Olho d'água"_qs);
}

void tst_viewer_saving::whatIsTypedComesBack_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("signs of RTF") << u"{\\b0 x}"_qs;
    QTest::newRow("markup") << u"<b>&amp;</b>"_qs;
    QTest::newRow("wildcards") << u"50_[a]*#"_qs;
    QTest::newRow("beyond the code page") << u"Łódź 日本"_qs;
    QTest::newRow("statement") << u"'; DELETE FROM MUSICA; --"_qs;
}

void tst_viewer_saving::whatIsTypedComesBack()
{
    QFETCH(QString, typed);
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" "_qs + typed);
    const QString expected = Before + u" "_qs + typed;
    for (int i = 0; i < 2; ++i) {
        QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
        QCOMPARE(bench->Stored("MUSICA2"), expected);
        QCOMPARE(Box(viewer, 2)->Text(), expected);
        Click(viewer, "cmdEditar");
    }
}

void tst_viewer_saving::bothVersionsKeepTheirCharacters()
{
    const QString text = u"C\r\né\u00A0d'água \u266B {\\b} \u2029 "_qs;
    const auto viewer = bench->OpenActive({.text = text + u"um"_qs, .text2 = text + u"dois"_qs});
    Click(viewer, "lblVersao");
    Click(viewer, "lblVersao");
    Edit(viewer, u"\u00A0"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->Stored("MUSICA"), QString(text + u"um"_qs));
    QCOMPARE(bench->Stored("MUSICA2"), QString(text + u"dois\u00A0"_qs));
}

void tst_viewer_saving::naoSalvarKeepsKeyFontAndVersion()
{
    const auto viewer = bench->OpenActive();
    for (const char* control : {"lblVersao", "cmdSobe", "cmdAumentaFonte"})
        Click(viewer, control);
    const QString sheet = Box(viewer, 1)->TextRTF();
    Edit(viewer, u" forte"_qs);
    Statements statements;
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdNaoSalvar"));
    QCOMPARE(statements, QStringList());
    QCOMPARE(Box(viewer, 1)->TextRTF(), sheet);
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.1"_qs);
}

void tst_viewer_saving::savingKeepsFontAndChords()
{
    const auto viewer = bench->OpenActive();
    for (const char* control : {"cmdAumentaFonte", "lblVersao", "lblVersao", "cmdLetra"})
        Click(viewer, control);
    const QString sheet = Box(viewer, 2)->TextRTF();
    QVERIFY(sheet.contains(u"\\fs38"_qs));
    Click(viewer, "cmdEditar");
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(Box(viewer, 2)->TextRTF(), sheet);
    // The other version was stored with its chords, which stay hidden.
    QCOMPARE(bench->Stored("MUSICA"), u"C  G7\r\nSanto Deus"_qs);
    Click(viewer, "lblVersao");
    QCOMPARE(Box(viewer, 1)->Text(), u"\r\nSanto Deus"_qs);
    Click(viewer, "cmdLetra");
    QCOMPARE(Box(viewer, 1)->Text(), u"C  G7\r\nSanto Deus"_qs);
}

void tst_viewer_saving::savingLoadsTheSongAgain()
{
    const auto viewer = bench->OpenActive();
    auto* count = In<QTimer>(viewer, "tmrContador");
    count->stop(); // as after the play was counted
    Edit(viewer, u" forte"_qs);
    bench->catalogue.Run(u"UPDATE MUSICA SET REFERENCIA = 'Outra'"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdSalvar"));
    QVERIFY(count->isActive());
    QCOMPARE(Caption(viewer, "lblReferencia"), u"Outra"_qs);
    // The stored text is now what a discarded change goes back to.
    Edit(viewer, u" e mais"_qs);
    Click(viewer, "cmdDescartar");
    QCOMPARE(Box(viewer, 2)->Text(), After);
}

void tst_viewer_saving::othersReadTheSaveAtOnce()
{
    const auto first = bench->OpenActive();
    Edit(first, u" forte"_qs);
    QVERIFY(ClickAndChoose(first, "cmdSalvar", "cmdSalvar"));
    const auto second = bench->OpenActive(1);
    QCOMPARE(Box(second, 2)->Text(), After);
    // Its empty first version stays empty: only the second one falls back on the other.
    Click(second, "lblVersao");
    QCOMPARE(Box(second, 1)->Text(), QString());
}

void tst_viewer_saving::viewersSaveTheirOwnSongs()
{
    const qint64 one = bench->catalogue.AddSong({.title = u"Um"_qs, .key = u"C"_qs});
    const qint64 two = bench->catalogue.AddSong({.title = u"Dois"_qs, .key = u"A"_qs});
    const auto first = bench->OpenActive(one);
    Edit(first, u" um"_qs);
    const auto second = bench->OpenActive(two);
    Edit(second, u" dois"_qs);
    QVERIFY(Editing(first));
    QVERIFY(ClickAndChoose(first, "cmdFechar", "cmdSalvar"));
    QVERIFY(Gone(first));
    QVERIFY(Editing(second));
    QVERIFY(ClickAndChoose(second, "cmdSalvar", "cmdSalvar"));
    QCOMPARE(bench->catalogue.Rows(u"SELECT TITULO, TOM, MUSICA2 FROM MUSICA ORDER BY ID"_qs),
             QList<QStringList>({{u"Um"_qs, u"C"_qs, Before + u" um"_qs},
                                 {u"Dois"_qs, u"A"_qs, Before + u" dois"_qs}}));
}

void tst_viewer_saving::theViewerMayGoWhileTheChoiceIsOpen_data()
{
    QTest::addColumn<QByteArray>("way");
    for (const char* way : {"cmdSalvar", "cmdFechar", "cmdMinimizar", "window manager"})
        QTest::newRow(way) << QByteArray(way);
}

void tst_viewer_saving::theViewerMayGoWhileTheChoiceIsOpen()
{
    QFETCH(QByteArray, way);
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    QVERIFY(WithChoice(
        [&] {
            if (way == "window manager")
                CloseByTheWindowManager(viewer);
            else
                Click(viewer, way.constData());
        },
        [&](QWidget&) { delete viewer; }));
    QVERIFY(!viewer);
    QCOMPARE(bench->Stored("MUSICA2"), Before);
    QVERIFY(bench->dialogs.boxes.isEmpty());
}

void tst_viewer_saving::minimisingSavesThenLeavesThenMinimises()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    Steps steps(*viewer);
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        if (sql.startsWith(u"UPDATE"))
            steps.done += u"saves"_qs;
    });
    QVERIFY(ClickAndChoose(viewer, "cmdMinimizar", "cmdSalvar"));
    Funcoes::Conexao.SetStatementHook({});
    QCOMPARE(steps.done, QStringList({u"saves"_qs, u"leaves"_qs, u"minimises"_qs}));
}

void tst_viewer_saving::aMinimisedViewerComesBackToAsk()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    viewer->showMinimized();
    QVERIFY(viewer->isMinimized());
    bool back = false;
    QVERIFY(WithChoice([&] { CloseByTheWindowManager(viewer); },
                       [&](QWidget& dialog) {
                           back = !viewer->isMinimized() && viewer->isVisible();
                           Click(&dialog, "cmdCancelar");
                       }));
    QVERIFY(back);
    QVERIFY(Editing(viewer));
    QCOMPARE(Box(viewer, 2)->Text(), After);
    // One that is only looked at has nothing to ask.
    Click(viewer, "cmdDescartar");
    viewer->showMinimized();
    CloseByTheWindowManager(viewer);
    QVERIFY(Gone(viewer));
}

void tst_viewer_saving::theAnswerIsKeptUntilTheNextDialog()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    QVERIFY(ClickAndChoose(viewer, "cmdSalvar", "cmdNaoSalvar"));
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 3);
    for (const char* control : {"cmdEditar", "cmdDescartar", "cmdEditar"})
        Click(viewer, control);
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 3);
    int open = -1;
    QVERIFY(WithChoice([&] { Click(viewer, "cmdSalvar"); },
                       [&](QWidget& dialog) {
                           open = Funcoes::Resposta_Mensagem;
                           dialog.close();
                       }));
    QCOMPARE(open, 0);
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 0);
}

QTEST_MAIN(tst_viewer_saving)
#include "tst_viewer_saving.moc"
