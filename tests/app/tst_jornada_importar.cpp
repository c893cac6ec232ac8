#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "support/PlainSqlite.h"

#include <QDir>
#include <QTest>

/// The program itself on a screen of its own, started with an exchange file as a file manager or
/// somebody in a terminal does it: its boxes come first, then the splash, then the main form.
class tst_JornadaImportar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(m_screen.ErrorText().isEmpty(), qPrintable(m_screen.ErrorText()));
    }
    void aRelativePathIsImportedBeforeTheMainForm();
    void theProgramStartsAfterARefusedFile_data();
    void theProgramStartsAfterARefusedFile();

private:
    void Start(Installation& program, const QString& folder, const QString& file);
    void ExpectTheMainForm(Installation& program);

    const QString Form = u"^Melodario v\\.1\\.0\\.0$"_qs;
    const QString Box = u"^Melodario$"_qs; // the splash is called so, too
    VirtualScreen m_screen;
};

namespace {

const QString& Name()
{
    static const QString name = u"Canção d'água.mld"_qs;
    return name;
}

QByteArray Song(const char* title)
{
    return QByteArray("<musica><titulo>") + title +
           "</titulo><referencia>Ana</referencia><letra1>a</letra1><letra2/><tom>C</tom><variacao/>"
           "<categoria>1</categoria><temas><d>Louvor</d></temas></musica>";
}

QString Titles(const Installation& program)
{
    return PlainSqlite(program.Catalogue())
        .Rows(u"SELECT ifnull(group_concat(TITULO, '|'), '') FROM (SELECT TITULO FROM MUSICA ORDER "
              "BY ID)"_qs)
        .first()
        .first();
}

} // namespace

void tst_JornadaImportar::Start(Installation& program, const QString& folder, const QString& file)
{
    QVERIFY(program.AddCatalogue());
    PlainSqlite(program.Catalogue())
        .Run("INSERT INTO MUSICA (TITULO, REFERENCIA, CATEGORIA) VALUES ('Luz', 'Ana', 1)");
    // The program comes last in what is run.
    program.Start(m_screen.Environment(),
                  {u"/bin/sh"_qs, u"-c"_qs,
                   uR"(cd "$1" && file=$2 && shift 2 && exec "$@" "$file")"_qs, u"sh"_qs, folder,
                   file});
}

/// The splash, and the main form behind it, which ends the program.
void tst_JornadaImportar::ExpectTheMainForm(Installation& program)
{
    QVERIFY(!m_screen.WaitForFocus(Box + u'|' + Form).isEmpty());
    QVERIFY(program.IsRunning());
    m_screen.Press({u"space"_qs});
    QVERIFY(!m_screen.WaitForFocus(Form).isEmpty());
    m_screen.Press({u"alt+F4"_qs});
    QCOMPARE(program.WaitForEnd(), 0);
}

void tst_JornadaImportar::aRelativePathIsImportedBeforeTheMainForm()
{
    const QTemporaryDir folder;
    QVERIFY(Installation::Put(folder.filePath(Name()), "<?xml version=\"1.0\"?><m>" + Song("Mar") +
                                                           Song("Luz") + Song("Paz") + "</m>"));
    Installation program;
    Start(program, folder.path(), Name());
    // The question: what came before it is stored already, the rest waits for the answer.
    QVERIFY(!m_screen.WaitForFocus(Box).isEmpty());
    QTRY_COMPARE(Titles(program), u"Luz|Mar"_qs);
    QVERIFY(!m_screen.IsVisible(Form));
    m_screen.Press({u"alt+s"_qs}); // yes
    // How many came in is told once they are stored.
    QTRY_COMPARE(Titles(program), u"Luz|Mar|Luz (Importação)|Paz"_qs);
    QVERIFY(!m_screen.WaitForFocus(Box).isEmpty());
    QVERIFY(!m_screen.IsVisible(Form));
    m_screen.Press({u"Return"_qs});
    ExpectTheMainForm(program);
}

void tst_JornadaImportar::theProgramStartsAfterARefusedFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("no file") << u"nenhum.mld"_qs;
    QTest::newRow("an ampersand") << Name();
}

void tst_JornadaImportar::theProgramStartsAfterARefusedFile()
{
    QFETCH(QString, file);
    const QTemporaryDir folder;
    QVERIFY(Installation::Put(folder.filePath(Name()), "<m>" + Song("Mar & Luz") + "</m>"));
    Installation program;
    Start(program, folder.path(), file);
    QVERIFY(!m_screen.WaitForFocus(Box).isEmpty());
    QVERIFY(!m_screen.IsVisible(Form));
    m_screen.Press({u"Return"_qs});
    ExpectTheMainForm(program);
    QCOMPARE(Titles(program), u"Luz"_qs);
}

QTEST_GUILESS_MAIN(tst_JornadaImportar)
#include "tst_jornada_importar.moc"
