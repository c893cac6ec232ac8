#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "support/PlainSqlite.h"

#include <QDate>
#include <QTest>

/// The program itself on a screen of its own: a setlist is built, ordered, stored, copied,
/// stepped through and deleted with the keyboard alone, and the file is read after each step.
class tst_Jornada_Lista : public QObject
{
    Q_OBJECT

private slots:
    void aSetlistFromItsFirstSongToItsEnd();

private:
    void Answer(const QString& box, const QStringList& keys) const
    {
        QVERIFY2(!m_screen.WaitForFocus(box).isEmpty(),
                 qPrintable(box + u'\n' + m_screen.Report()));
        m_screen.Press(keys);
    }
    QList<QStringList> Rows(const QString& sql) const
    {
        return PlainSqlite(m_program.Catalogue()).Rows(sql);
    }
    QString Places(int setlist) const
    {
        return Rows(
                   u"SELECT ifnull(group_concat(ORDEM || ':' || ID_MUSICA), '') FROM (SELECT * FROM"
                   " LISTA_MUSICA WHERE ID_LISTA = %1 ORDER BY ORDEM)"_qs.arg(setlist))
            .first()
            .first();
    }
    QString Setlists() const
    {
        return Rows(u"SELECT ifnull(group_concat(NOME, '|'), '') FROM (SELECT * FROM LISTA ORDER BY"
                    " ID)"_qs)
            .first()
            .first();
    }

    VirtualScreen m_screen;
    Installation m_program;
};

void tst_Jornada_Lista::aSetlistFromItsFirstSongToItsEnd()
{
    const QString box = u"^Melodario$"_qs;
    const QString form = u"^Melodario v\\.1\\.0\\.0$"_qs;
    const QString dialog = u"^Titulo$"_qs;
    QVERIFY2(m_screen.ErrorText().isEmpty(), qPrintable(m_screen.ErrorText()));
    QVERIFY(m_program.AddCatalogue());
    PlainSqlite(m_program.Catalogue())
        .Run("INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Louvor', 2);"
             "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA)"
             " VALUES ('Amor', 'Ana', 'Amor', 'Amor', 'C', '', 1),"
             " ('Bem', 'Ana', 'Bem', 'Bem', 'C', '', 1),"
             " ('Canto', 'Ana', 'Canto', 'Canto', 'C', '', 1);"
             "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (1, 1), (2, 1), (3, 1);");
    m_program.Start(m_screen.Environment());
    Answer(box, {u"Return"_qs}); // the splash
    Answer(form, {u"alt+l"_qs});

    m_screen.Type(u"Ensaio"_qs);
    m_screen.Press({u"Tab"_qs});
    m_screen.Type(u"05032009"_qs);
    m_screen.Press({u"Tab"_qs});
    for (const QString& title : {u"Amor"_qs, u"Bem"_qs, u"Canto"_qs}) {
        m_screen.Press({u"ctrl+a"_qs});
        m_screen.Type(title);
        m_screen.Press({u"Return"_qs});
    }
    // On to the setlist, whose last song goes up one place.
    m_screen.Press({u"Tab"_qs, u"Tab"_qs, u"Tab"_qs, u"Tab"_qs, u"Tab"_qs, u"Tab"_qs, u"Down"_qs,
                    u"End"_qs, u"shift+Up"_qs, u"alt+s"_qs});
    Answer(box, {});
    QCOMPARE(Setlists(), u"Ensaio"_qs);
    QCOMPARE(Places(1), u"0:1,1:3,2:2"_qs);
    QCOMPARE(Rows(u"SELECT DATA FROM LISTA"_qs).first().first(), u"2009-03-05"_qs);
    m_screen.Press({u"Return"_qs});

    // From the button to the grid, whose dialog copies it.
    Answer(form, {u"Tab"_qs, u"Tab"_qs, u"Menu"_qs});
    Answer(dialog, {u"alt+c"_qs, u"space"_qs});
    Answer(form, {u"alt+s"_qs});
    const QDate today = QDate::currentDate();
    Answer(box, {});
    QCOMPARE(Setlists(), u"Ensaio|Cópia de Ensaio"_qs);
    const QString copied = Rows(u"SELECT DATA FROM LISTA WHERE ID = 2"_qs).first().first();
    // Over midnight it is tomorrow's.
    QVERIFY2(copied == today.toString(Qt::ISODate) ||
                 copied == today.addDays(-1).toString(Qt::ISODate),
             qPrintable(copied));
    QCOMPARE(Places(2), Places(1));
    m_screen.Press({u"Return"_qs});

    // The newest one comes first: it is the copy that is stepped through and then deleted.
    Answer(form, {u"Tab"_qs, u"Tab"_qs, u"Return"_qs});
    const auto viewer = [](const char* title) {
        return u"^%1 \\(Ana\\)$"_qs.arg(QString::fromLatin1(title));
    };
    Answer(viewer("Amor"), {u"a"_qs, u"p"_qs}); // there is none before the first
    Answer(viewer("Canto"), {u"p"_qs});
    Answer(viewer("Bem"), {u"p"_qs, u"a"_qs}); // and none after the last
    Answer(viewer("Canto"), {u"Escape"_qs});

    // The same by the dialog's first button.
    Answer(form, {u"Menu"_qs});
    Answer(dialog, {u"alt+a"_qs});
    Answer(viewer("Amor"), {u"Escape"_qs});

    // Brought back for editing it loses its first song, and the place of the next one is free.
    Answer(form, {u"Menu"_qs});
    Answer(dialog, {u"alt+e"_qs, u"space"_qs});
    Answer(form,
           QStringList(5, u"shift+Tab"_qs) + QStringList({u"Home"_qs, u"Delete"_qs, u"alt+s"_qs}));
    Answer(box, {}); // it was changed
    QCOMPARE(Setlists(), u"Ensaio|Cópia de Ensaio"_qs);
    QCOMPARE(Places(2), u"0:3,1:2"_qs);
    QCOMPARE(Places(1), u"0:1,1:3,2:2"_qs);
    m_screen.Press({u"Return"_qs});
    Answer(form, {u"Tab"_qs, u"Tab"_qs, u"Menu"_qs});
    Answer(dialog, {u"alt+e"_qs, u"alt+e"_qs, u"space"_qs});
    Answer(box, {u"Return"_qs}); // yes
    QTRY_COMPARE(Setlists(), u"Ensaio"_qs);
    QCOMPARE(Places(2), QString());
    QCOMPARE(Places(1), u"0:1,1:3,2:2"_qs);
    Answer(box, {u"Return"_qs});
    Answer(form, {u"alt+r"_qs});
    QCOMPARE(m_program.WaitForEnd(), 0);
}

QTEST_GUILESS_MAIN(tst_Jornada_Lista)
#include "tst_jornada_lista.moc"
