// A song corrected in the viewer of the program itself, once with each answer, with real keys.
// After each answer the rows are read as any other tool would.

#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "support/PlainSqlite.h"

#include <QTest>

#include <memory>

namespace {

const QString MainForm = u"^Melodario v\\."_qs;
const QString Box = u"^Melodario$"_qs; // the splash and all messages
const QString Viewer = u"^Brilha"_qs;
const QString Choice = u"^Titulo$"_qs;

} // namespace

class tst_Jornada_Edicao : public QObject
{
    Q_OBJECT

private slots:
    void aSongIsCorrectedWithEachAnswer();

private:
    void OpenTheProgram();
    void OpenTheSong();
    void EditWithEachAnswer();
    void CloseTheViewer();

    /// Presses Shift+E and types before the sheet's first line.
    void Type(const QString& text) const
    {
        m_screen->Press({u"shift+e"_qs});
        m_screen->Type(text);
    }
    /// Goes from the text to the button "Concluir a edição" and presses it.
    void AskToSave() const { m_screen->Press({u"Tab"_qs, u"Return"_qs}); }
    void Answer(const QString& key) const
    {
        QVERIFY(!m_screen->WaitForFocus(Choice).isEmpty());
        m_screen->Press({key});
        QVERIFY(!m_screen->WaitForFocus(Viewer).isEmpty());
    }
    QStringList Texts() const
    {
        return PlainSqlite(m_program->Catalogue())
            .Rows(u"SELECT MUSICA, MUSICA2 FROM MUSICA"_qs)
            .value(0);
    }

    std::unique_ptr<VirtualScreen> m_screen;
    std::unique_ptr<Installation> m_program;
};

void tst_Jornada_Edicao::OpenTheProgram()
{
    m_screen = std::make_unique<VirtualScreen>();
    QVERIFY2(m_screen->ErrorText().isEmpty(), qPrintable(m_screen->ErrorText()));
    m_program = std::make_unique<Installation>();
    QVERIFY(m_program->AddCatalogue());
    PlainSqlite(m_program->Catalogue())
        .Run("INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, "
             "CONTADOR) VALUES ('Brilha', 'Tradicional', 'C' || char(13, 10) || 'Um', 'C' || "
             "char(13, 10) || 'Dois', 'C', '', 1, 0);"
             "INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Louvor', 2);"
             "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (1, 1)");
    m_program->Start(m_screen->Environment());
    QVERIFY(!m_screen->WaitForFocus(Box + u'|' + MainForm).isEmpty());
    m_screen->Press({u"space"_qs});
    QVERIFY(!m_screen->WaitForFocus(MainForm).isEmpty());
}

void tst_Jornada_Edicao::OpenTheSong()
{
    // Enter opens the list's first row, which the first search brings.
    m_screen->Press({u"alt+c"_qs, u"alt+p"_qs});
    m_screen->Type(u"ril"_qs);
    QString viewer;
    for (int i = 0; i < 20 && viewer.isEmpty(); ++i) {
        m_screen->Press({u"Return"_qs});
        if (QTest::qWaitFor([&] { return m_screen->IsVisible(Viewer); }, 1000))
            viewer = m_screen->WaitForFocus(Viewer);
    }
    QVERIFY(!viewer.isEmpty());
}

void tst_Jornada_Edicao::EditWithEachAnswer()
{
    const QStringList untouched = Texts();
    Type(u"G "_qs);
    AskToSave();
    Answer(u"Escape"_qs);
    QCOMPARE(Texts(), untouched);
    m_screen->Press({u"Return"_qs}); // the button still has the focus
    Answer(u"alt+c"_qs);
    QCOMPARE(Texts(), untouched);

    m_screen->Press({u"Return"_qs});
    Answer(u"alt+s"_qs); // the version that was never shown is stored empty
    QTRY_COMPARE(Texts(), QStringList({u""_qs, u"G C\r\nDois"_qs}));

    Type(u"A "_qs);
    AskToSave();
    Answer(u"alt+i"_qs);
    QTRY_COMPARE(Texts(), QStringList({u"A G C\r\nDois"_qs, u"A G C\r\nDois"_qs}));

    const QStringList equal = Texts();
    Type(u"D "_qs);
    AskToSave();
    Answer(u"alt+n"_qs);
    QCOMPARE(Texts(), equal);

    Type(u"E "_qs);
    AskToSave();
    Answer(u"alt+F4"_qs); // closed without an answer: saved
    QTRY_COMPARE(Texts(), QStringList({u"A G C\r\nDois"_qs, u"E A G C\r\nDois"_qs}));
}

void tst_Jornada_Edicao::CloseTheViewer()
{
    const QStringList before = Texts();
    Type(u"D "_qs);
    m_screen->Press({u"alt+F4"_qs}); // the window manager's own close asks, too
    Answer(u"Escape"_qs);
    m_screen->Press({u"alt+F4"_qs});
    QVERIFY(!m_screen->WaitForFocus(Choice).isEmpty());
    m_screen->Press({u"alt+n"_qs});
    QVERIFY(!m_screen->WaitForFocus(MainForm).isEmpty());
    QCOMPARE(Texts(), before);
}

void tst_Jornada_Edicao::aSongIsCorrectedWithEachAnswer()
{
    for (const auto step :
         {&tst_Jornada_Edicao::OpenTheProgram, &tst_Jornada_Edicao::OpenTheSong,
          &tst_Jornada_Edicao::EditWithEachAnswer, &tst_Jornada_Edicao::CloseTheViewer}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
    m_screen->Press({u"alt+r"_qs});
    QCOMPARE(m_program->WaitForEnd(), 0);
}

QTEST_GUILESS_MAIN(tst_Jornada_Edicao)
#include "tst_jornada_edicao.moc"
