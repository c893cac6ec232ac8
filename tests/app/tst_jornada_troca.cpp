#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "support/PlainSqlite.h"

#include <QTest>

/// The program itself on a screen of its own: songs are marked, exported, deleted, imported and
/// imported once more, and the catalogue's rows are read after each step.
class tst_JornadaTroca : public QObject
{
    Q_OBJECT

private slots:
    void songsLeaveAndComeBack();

private:
    void Prepare();
    void ExportThree();
    void DeleteThem();
    void ImportThem();
    void ImportThemAgain();
    /// One box follows another of the same title: keys for the next would meet the one that is
    /// about to close.
    void Answer(const QString& window, const QStringList& keys)
    {
        QString active;
        const auto isNext = [&] {
            active = m_screen.WaitForFocus(window);
            return active.isEmpty() || active != m_answered;
        };
        QVERIFY2(QTest::qWaitFor(isNext, VirtualScreen::Patience) && !active.isEmpty(),
                 qPrintable(window + u'\n' + m_screen.Report()));
        m_answered = active;
        m_screen.Press(keys);
    }
    void WaitForForm()
    {
        QVERIFY2(!m_screen.WaitForFocus(Form).isEmpty(), qPrintable(m_screen.Report()));
    }
    void ChooseFile(const QString& picker)
    {
        Answer(picker, {u"ctrl+a"_qs});
        m_screen.Type(Installation::NameOf(m_program.Path(u"three.mld"_qs)));
        m_screen.Press({u"Return"_qs});
    }
    QList<QStringList> Rows(const QString& sql) const
    {
        return PlainSqlite(m_program.Catalogue()).Rows(sql);
    }
    QString Titles() const
    {
        return Rows(u"SELECT ifnull(group_concat(TITULO, '|'), '') FROM (SELECT TITULO FROM MUSICA"
                    " ORDER BY ID)"_qs)
            .first()
            .first();
    }

    const QString Form = u"^Melodario v\\.1\\.0\\.0$"_qs;
    const QString Box = u"^Melodario$"_qs;
    VirtualScreen m_screen;
    QString m_answered; ///< the window that was answered last
    Installation m_program;
};

void tst_JornadaTroca::Prepare()
{
    QVERIFY2(m_screen.ErrorText().isEmpty(), qPrintable(m_screen.ErrorText()));
    QVERIFY(m_program.AddCatalogue());
    PlainSqlite(m_program.Catalogue())
        .Run("INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Louvor', 2), ('Festa', 2);"
             "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA)"
             " VALUES ('Amor d''agua', 'Ana', 'C' || char(13, 10) || 'Amor', 'D', 'C', '', 1),"
             " ('Bem', 'Ana', '  Bem', 'Bem', 'A', 'm', 2),"
             " ('Canção', 'Zé', 'Canção', 'Canção', 'Bb', '', 1),"
             " ('Dia', 'Ana', 'Dia', 'Dia', 'C', '', 1);"
             "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (1, 1), (2, 1), (2, 2), (3, 2),"
             " (4, 1)");
    m_program.Start(m_screen.Environment());
    Answer(Box, {u"Return"_qs}); // the splash
    WaitForForm();
}

void tst_JornadaTroca::ExportThree()
{
    // Without a mark there is nothing to export.
    Answer(Form, {u"alt+e"_qs});
    Answer(Box, {u"Return"_qs});
    // From the first box back to the list.
    Answer(Form, {u"alt+p"_qs, u"shift+Tab"_qs, u"shift+Tab"_qs, u"Home"_qs, u"shift+Down"_qs,
                  u"shift+Down"_qs, u"alt+e"_qs});
    Answer(u"^Exportar$"_qs, {u"Return"_qs});
    ChooseFile(u"^Salvar Arquivo$"_qs);
    Answer(Box, {});
    const QByteArray file = Installation::Content(m_program.Path(u"three.mld"_qs));
    QCOMPARE(file.count("<musica>"), 3);
    QVERIFY(file.contains("<titulo>Amor d'agua</titulo>"));
    QVERIFY(file.contains("<letra1>C[br]Amor</letra1>"));
    QVERIFY(file.contains("<titulo>Can\xE7\xE3o</titulo>"));
    QVERIFY(!file.contains("Dia"));
    QVERIFY(file.endsWith("\r\n</musicas>"));
    QCOMPARE(Titles(), u"Amor d'agua|Bem|Canção|Dia"_qs);
    m_screen.Press({u"Return"_qs});
    WaitForForm();
}

void tst_JornadaTroca::DeleteThem()
{
    for (const QString& left : {u"Bem|Canção|Dia"_qs, u"Canção|Dia"_qs, u"Dia"_qs}) {
        // The first row; deleting leads to the entry panel.
        Answer(Form, {u"alt+p"_qs, u"shift+Tab"_qs, u"shift+Tab"_qs, u"Home"_qs, u"Delete"_qs});
        Answer(Box, {u"Return"_qs});
        QTRY_COMPARE(Titles(), left);
    }
    QCOMPARE(Rows(u"SELECT ID_MUSICA FROM TEMA_MUSICA"_qs), QList<QStringList>({{u"4"_qs}}));
    PlainSqlite(m_program.Catalogue()).Run("DELETE FROM TEMA WHERE DESCRICAO = 'Festa'");
}

void tst_JornadaTroca::ImportThem()
{
    Answer(Form, {u"alt+p"_qs, u"alt+i"_qs});
    ChooseFile(u"^Importar\\.\\.\\.$"_qs);
    Answer(Box, {});
    QCOMPARE(
        Rows(u"SELECT TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA FROM"
             " MUSICA WHERE ID > 4 ORDER BY ID"_qs),
        QList<QStringList>(
            {{u"Amor d'agua"_qs, u"Ana"_qs, u"C\r\nAmor"_qs, u"D"_qs, u"C"_qs, u""_qs, u"1"_qs},
             {u"Bem"_qs, u"Ana"_qs, u"  Bem"_qs, u"Bem"_qs, u"A"_qs, u"m"_qs, u"2"_qs},
             {u"Canção"_qs, u"Zé"_qs, u"Canção"_qs, u"Canção"_qs, u"Bb"_qs, u""_qs, u"1"_qs}}));
    QCOMPARE(Rows(u"SELECT ID_MUSICA, DESCRICAO FROM TEMA JOIN TEMA_MUSICA ON TEMA.ID = ID_TEMA"
                  " ORDER BY 1, 2 DESC"_qs),
             QList<QStringList>({{u"4"_qs, u"Louvor"_qs},
                                 {u"5"_qs, u"Louvor"_qs},
                                 {u"6"_qs, u"Louvor"_qs},
                                 {u"6"_qs, u"Festa"_qs},
                                 {u"7"_qs, u"Festa"_qs}}));
    m_screen.Press({u"Return"_qs});
    WaitForForm();
}

void tst_JornadaTroca::ImportThemAgain()
{
    Answer(Form, {u"alt+i"_qs});
    ChooseFile(u"^Importar\\.\\.\\.$"_qs);
    Answer(Box, {u"alt+s"_qs}); // yes
    QTRY_COMPARE(Titles(), u"Dia|Amor d'agua|Bem|Canção|Amor d'agua (Importação)"_qs);
    Answer(Box, {u"Escape"_qs}); // no
    Answer(Box, {u"alt+n"_qs});  // no
    // How many came in is told, and it is one.
    Answer(Box, {u"Return"_qs});
    WaitForForm();
    QCOMPARE(Titles(), u"Dia|Amor d'agua|Bem|Canção|Amor d'agua (Importação)"_qs);
    QCOMPARE(Rows(u"SELECT DESCRICAO FROM TEMA ORDER BY ID"_qs),
             QList<QStringList>({{u"Louvor"_qs}, {u"Festa"_qs}}));
}

void tst_JornadaTroca::songsLeaveAndComeBack()
{
    for (const auto step :
         {&tst_JornadaTroca::Prepare, &tst_JornadaTroca::ExportThree, &tst_JornadaTroca::DeleteThem,
          &tst_JornadaTroca::ImportThem, &tst_JornadaTroca::ImportThemAgain}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
    Answer(Form, {u"alt+r"_qs});
    QCOMPARE(m_program.WaitForEnd(), 0);
}

QTEST_GUILESS_MAIN(tst_JornadaTroca)
#include "tst_jornada_troca.moc"
