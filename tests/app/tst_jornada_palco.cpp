// An evening on stage with the program itself, its real windows and real keys of a Brazilian
// keyboard: a setlist is stepped through, played, scrolled and corrected. What happened is read
// from the file, as any other tool would.

#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "support/PlainSqlite.h"

#include <QTest>

#include <memory>

namespace {

const QString MainForm = u"^Melodario v\\."_qs;
const QString Box = u"^Melodario$"_qs; // the splash and all messages
const QString Choice = u"^Titulo$"_qs;
const QString First = u"^Abertura "_qs;
const QString Second = u"^Passagem "_qs;
const QString Last = u"^Final "_qs;

constexpr int Verses = 60; // two lines each: several screens
constexpr int Placed = 3;  // MUSICA.ID of the last song

/// Both versions of each song: a chord line over each verse.
const QByteArray Songs =
    "CREATE TEMP TABLE t AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
    "i < 60) SELECT group_concat('C  G7' || char(13, 10) || 'verso ' || i, char(13, 10)) AS x "
    "FROM n;"
    "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, CONTADOR) "
    "SELECT column1, 'Tradicional', x, x, 'C', '', 1, 0 FROM t, "
    "(VALUES ('Abertura'), ('Passagem'), ('Final'));"
    "DROP TABLE t;"
    "INSERT INTO LISTA (NOME, DATA) VALUES ('Domingo', '2009-03-08');"
    "INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM) VALUES (1, 1, 0), (1, 2, 1), (1, 3, 2)";

} // namespace

class tst_Jornada_Palco : public QObject
{
    Q_OBJECT

private slots:
    void anEveningOnStage();

private:
    void OpenTheProgram();
    void OpenTheSetlist();
    void StepThroughIt();
    void PlayASong();
    void ScrollAndCorrect();
    void ScrollAlone();
    void TransposeWithAltGr();
    void OutliveTheMainForm();

    /// Begins editing, types a sign where the sheet is read and asks to save.
    void Mark(const QString& sign) const
    {
        m_screen->Press({u"shift+e"_qs});
        m_screen->Type(sign);
        m_screen->Press({u"Tab"_qs, u"Return"_qs});
    }
    void Answer(const QString& key) const
    {
        QVERIFY(!m_screen->WaitForFocus(Choice).isEmpty());
        m_screen->Press({key});
        QVERIFY(!m_screen->WaitForFocus(Last).isEmpty());
    }
    QString Field(const QString& column, int song = Placed) const
    {
        return PlainSqlite(m_program->Catalogue())
            .Rows(u"SELECT %1 FROM MUSICA WHERE ID = %2"_qs.arg(column).arg(song))
            .value(0)
            .value(0);
    }
    /// @return the line that a sign stands in, from 0; -1 for none
    int LineOf(QChar sign, const QString& column = u"MUSICA2"_qs) const
    {
        const QStringList lines = Field(column).split(u"\r\n"_qs);
        for (int i = 0; i < lines.size(); ++i)
            if (lines[i].contains(sign))
                return i;
        return -1;
    }

    std::unique_ptr<VirtualScreen> m_screen;
    std::unique_ptr<Installation> m_program;
};

void tst_Jornada_Palco::OpenTheProgram()
{
    m_screen = std::make_unique<VirtualScreen>();
    QVERIFY2(m_screen->ErrorText().isEmpty(), qPrintable(m_screen->ErrorText()));
    QVERIFY(m_screen->UseKeyboard(u"br"_qs));
    m_program = std::make_unique<Installation>();
    QVERIFY(m_program->AddCatalogue());
    PlainSqlite(m_program->Catalogue()).Run(Songs);
    m_program->Start(m_screen->Environment());
    QVERIFY(!m_screen->WaitForFocus(Box + u'|' + MainForm).isEmpty());
    m_screen->Press({u"space"_qs});
    QVERIFY(!m_screen->WaitForFocus(MainForm).isEmpty());
}

void tst_Jornada_Palco::OpenTheSetlist()
{
    // The grid of setlists comes before the first box.
    m_screen->Press({u"alt+l"_qs, u"shift+Tab"_qs, u"Home"_qs, u"Return"_qs});
    QVERIFY(!m_screen->WaitForFocus(First).isEmpty());
}

void tst_Jornada_Palco::StepThroughIt()
{
    m_screen->Press({u"p"_qs, u"p"_qs}); // the second song is passed by at once
    QVERIFY(!m_screen->WaitForFocus(Last).isEmpty());
    m_screen->Press({u"p"_qs, u"a"_qs}); // there is none after the last
    QVERIFY(!m_screen->WaitForFocus(Second).isEmpty());
    m_screen->Press({u"p"_qs});
    QVERIFY(!m_screen->WaitForFocus(Last).isEmpty());
}

void tst_Jornada_Palco::PlayASong()
{
    QCOMPARE(Field(u"CONTADOR"_qs), u"0"_qs);
    QTRY_COMPARE_WITH_TIMEOUT(Field(u"CONTADOR"_qs), u"1"_qs, VirtualScreen::Patience);
}

/// Where a sign is typed after scrolling tells where the sheet was. Each of the four answers.
void tst_Jornada_Palco::ScrollAndCorrect()
{
    const QString untouched = Field(u"MUSICA2"_qs);
    m_screen->Press({u"End"_qs});
    Mark(u"X"_qs);
    Answer(u"alt+c"_qs); // on with typing
    QCOMPARE(Field(u"MUSICA2"_qs), untouched);
    m_screen->Press({u"Return"_qs}); // the button still has the focus
    Answer(u"alt+s"_qs);
    QTRY_VERIFY2(LineOf(u'X') > Verses, qPrintable(Field(u"MUSICA2"_qs)));
    QCOMPARE(Field(u"MUSICA"_qs), QString()); // the version that was never shown

    m_screen->Press({u"Down"_qs, u"Down"_qs, u"Down"_qs}); // 300 pixels
    Mark(u"Y"_qs);
    Answer(u"alt+i"_qs);
    QTRY_VERIFY(LineOf(u'Y') > 0);
    QVERIFY(LineOf(u'Y') < Verses / 2);
    QCOMPARE(Field(u"MUSICA"_qs), Field(u"MUSICA2"_qs));

    const QString before = Field(u"MUSICA2"_qs);
    m_screen->Press({u"space"_qs, u"Up"_qs, u"Home"_qs});
    Mark(u"Z"_qs);
    Answer(u"alt+n"_qs);
    QCOMPARE(Field(u"MUSICA2"_qs), before);
    m_screen->Press({u"space"_qs, u"Up"_qs, u"Home"_qs});
    Mark(u"W"_qs);
    Answer(u"alt+s"_qs);
    QTRY_COMPARE(LineOf(u'W'), 0);
}

void tst_Jornada_Palco::ScrollAlone()
{
    m_screen->Press(QStringList{u"Return"_qs} + QStringList(12, u"Right"_qs));
    QTest::qWait(3000); // a thousand pixels and more; one line is enough here
    Mark(u"V"_qs);      // that stops it
    Answer(u"alt+s"_qs);
    QTRY_VERIFY(LineOf(u'V') > 0);
}

void tst_Jornada_Palco::TransposeWithAltGr()
{
    // The keys AltGr and S by their places: together they would type ß.
    m_screen->Press({u"s"_qs, u"108+39"_qs});
    Mark(u"T"_qs);
    Answer(u"alt+s"_qs);
    QTRY_COMPARE(LineOf(u'T'), 0);
    QCOMPARE(Field(u"TOM"_qs), u"D"_qs);
    QVERIFY(Field(u"MUSICA2"_qs).contains(u"D  A7\r\nverso 60"_qs));
}

void tst_Jornada_Palco::OutliveTheMainForm()
{
    // Counted once, however often it was loaded again; what was only passed by is not counted.
    QCOMPARE(Field(u"CONTADOR"_qs), u"1"_qs);
    QCOMPARE(Field(u"CONTADOR"_qs, 2), u"0"_qs);

    QVERIFY(!m_screen->Activate(MainForm).isEmpty());
    m_screen->Press({u"alt+F4"_qs});
    QTRY_VERIFY_WITH_TIMEOUT(!m_screen->IsVisible(MainForm), VirtualScreen::Patience);
    QVERIFY(!m_screen->Activate(Last).isEmpty());
    m_screen->Press({u"a"_qs}); // the song before it cannot be loaded any more
    QVERIFY(!m_screen->WaitForFocus(Box).isEmpty());
    m_screen->Press({u"Return"_qs});
    QVERIFY(!m_screen->WaitForFocus(Last).isEmpty());
    m_screen->Press({u"Escape"_qs});
    QCOMPARE(m_program->WaitForEnd(), 0);
}

void tst_Jornada_Palco::anEveningOnStage()
{
    using Self = tst_Jornada_Palco;
    for (const auto step : {&Self::OpenTheProgram, &Self::OpenTheSetlist, &Self::StepThroughIt,
                            &Self::PlayASong, &Self::ScrollAndCorrect, &Self::ScrollAlone,
                            &Self::TransposeWithAltGr, &Self::OutliveTheMainForm}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
}

QTEST_GUILESS_MAIN(tst_Jornada_Palco)
#include "tst_jornada_palco.moc"
