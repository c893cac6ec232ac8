// A song's whole life in the program itself: entered, found by a search, corrected, deleted, with
// real keys and the mouse. After each step the rows are read as any other tool would.

#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "support/PlainSqlite.h"

#include <QTest>

#include <memory>

namespace {

const QString MainForm = u"^Melodario v\\."_qs;
const QString Box = u"^Melodario$"_qs; // the splash and all messages
const QString AnyViewer = u"clara|Brilha"_qs;

/// Where the first row of the result list lies in the main form.
constexpr QPoint FirstResult(90, 420);

} // namespace

class tst_JornadaCadastro : public QObject
{
    Q_OBJECT

private slots:
    void aSongIsEnteredFoundCorrectedAndDeleted();

private:
    void Prepare();
    void OpenTheProgram();
    void EnterTheSong();
    void FindTheSong();
    void CorrectTheSong();
    void DeleteTheSong();
    void CloseTheBox();
    QString OpenFirstResult();
    QList<QStringList> Rows(const QString& sql) const
    {
        return PlainSqlite(m_program->Catalogue()).Rows(sql);
    }

    std::unique_ptr<VirtualScreen> m_screen;
    std::unique_ptr<Installation> m_program;
    QString m_form;
};

/// A catalogue with two themes and one song, which comes before the new one in every list.
void tst_JornadaCadastro::Prepare()
{
    m_screen = std::make_unique<VirtualScreen>();
    QVERIFY2(m_screen->ErrorText().isEmpty(), qPrintable(m_screen->ErrorText()));
    m_program = std::make_unique<Installation>();
    QVERIFY(m_program->AddCatalogue());
    PlainSqlite(m_program->Catalogue())
        .Run("INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Louvor', 1), ('Natal', 2);"
             "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, "
             "CONTADOR) VALUES ('A Brilha', 'Tradicional', 'A', 'A', 'C', '', 1, 0);"
             "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (1, 1)");
}

void tst_JornadaCadastro::OpenTheProgram()
{
    m_program->Start(m_screen->Environment());
    QVERIFY(!m_screen->WaitForFocus(Box + u'|' + MainForm).isEmpty());
    m_screen->Press({u"space"_qs});
    m_form = m_screen->WaitForFocus(MainForm);
    QVERIFY(!m_form.isEmpty());
}

void tst_JornadaCadastro::CloseTheBox()
{
    QVERIFY(!m_screen->WaitForFocus(Box).isEmpty());
    m_screen->Press({u"Return"_qs});
    QVERIFY(!m_screen->WaitForFocus(MainForm).isEmpty());
}

void tst_JornadaCadastro::EnterTheSong()
{
    m_screen->Press({u"alt+c"_qs});
    m_screen->Type(u"Agua clara d'Oxum"_qs);
    m_screen->Press({u"Tab"_qs});
    // The suggested reference: it takes the place of what was typed, the focus goes to version 1.
    m_screen->Type(u"trad"_qs);
    m_screen->Press({u"Down"_qs, u"Return"_qs});
    m_screen->Type(u"C     G7"_qs);
    m_screen->Press({u"Return"_qs});
    m_screen->Type(u"Agua clara"_qs);
    m_screen->Press({u"Tab"_qs, u"Down"_qs, u"Down"_qs, u"space"_qs, u"alt+s"_qs});
    QVERIFY(!m_screen->WaitForFocus(Box).isEmpty());
    QCOMPARE(Rows(u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA "
                  "FROM MUSICA WHERE ID > 1"_qs),
             QList<QStringList>({{u"2"_qs, u"Agua clara d'Oxum"_qs, u"Tradicional"_qs,
                                  u"C     G7\r\nAgua clara"_qs, u"C     G7\r\nAgua clara"_qs,
                                  u"C"_qs, u""_qs, u"1"_qs}}));
    QCOMPARE(Rows(u"SELECT ID_TEMA FROM TEMA_MUSICA WHERE ID_MUSICA = 2"_qs),
             QList<QStringList>({{u"2"_qs}}));
    CloseTheBox();
}

/// Presses Enter in a search box. @return the title of the song that opens; its viewer is closed
QString tst_JornadaCadastro::OpenFirstResult()
{
    m_screen->Press({u"Return"_qs});
    if (m_screen->WaitForFocus(AnyViewer).isEmpty())
        return QString();
    const QString title = m_screen->IsVisible(u"Agua clara"_qs) ? u"new"_qs : u"old"_qs;
    m_screen->Press({u"Escape"_qs});
    return m_screen->WaitForFocus(MainForm).isEmpty() ? QString() : title;
}

void tst_JornadaCadastro::FindTheSong()
{
    m_screen->Press({u"alt+p"_qs});
    m_screen->Type(u"clara"_qs);
    // Until the search has run, Enter opens the first row of the list before it.
    QString opened = u"old"_qs;
    for (int i = 0; i < 20 && opened == u"old"; ++i)
        opened = OpenFirstResult();
    QCOMPARE(opened, u"new"_qs);
}

void tst_JornadaCadastro::CorrectTheSong()
{
    m_screen->RightClick(m_form, FirstResult);
    m_screen->Press({u"ctrl+a"_qs});
    m_screen->Type(u"Agua limpa d'Oxum"_qs);
    m_screen->Press({u"alt+s"_qs});
    QVERIFY(!m_screen->WaitForFocus(Box).isEmpty());
    QCOMPARE(Rows(u"SELECT ID, TITULO, REFERENCIA, MUSICA FROM MUSICA ORDER BY ID"_qs),
             QList<QStringList>({{u"1"_qs, u"A Brilha"_qs, u"Tradicional"_qs, u"A"_qs},
                                 {u"2"_qs, u"Agua limpa d'Oxum"_qs, u"Tradicional"_qs,
                                  u"C     G7\r\nAgua clara"_qs}}));
    QCOMPARE(Rows(u"SELECT ID_TEMA FROM TEMA_MUSICA WHERE ID_MUSICA = 2"_qs),
             QList<QStringList>({{u"2"_qs}}));
    CloseTheBox();
}

void tst_JornadaCadastro::DeleteTheSong()
{
    m_screen->Press({u"alt+e"_qs});
    QVERIFY(!m_screen->WaitForFocus(Box).isEmpty());
    QCOMPARE(Rows(u"SELECT COUNT(*) FROM MUSICA"_qs), QList<QStringList>({{u"2"_qs}}));
    m_screen->Press({u"alt+s"_qs}); // Sim
    QVERIFY(!m_screen->WaitForFocus(MainForm).isEmpty());
    QTRY_COMPARE(Rows(u"SELECT TITULO FROM MUSICA"_qs), QList<QStringList>({{u"A Brilha"_qs}}));
    QCOMPARE(Rows(u"SELECT ID_MUSICA FROM TEMA_MUSICA"_qs), QList<QStringList>({{u"1"_qs}}));
}

void tst_JornadaCadastro::aSongIsEnteredFoundCorrectedAndDeleted()
{
    for (const auto step :
         {&tst_JornadaCadastro::Prepare, &tst_JornadaCadastro::OpenTheProgram,
          &tst_JornadaCadastro::EnterTheSong, &tst_JornadaCadastro::FindTheSong,
          &tst_JornadaCadastro::CorrectTheSong, &tst_JornadaCadastro::DeleteTheSong}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
    m_screen->Press({u"alt+r"_qs});
    QCOMPARE(m_program->WaitForEnd(), 0);
}

QTEST_GUILESS_MAIN(tst_JornadaCadastro)
#include "tst_jornada_cadastro.moc"
