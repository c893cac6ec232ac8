#include "app/Installation.h"
#include "app/VirtualScreen.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

// The splash and message boxes share their title; they are told apart by what keys do to them.
QString Box()
{
    return u"^Melodario$"_qs;
}

QString InputBox()
{
    return u"^Endere.+o do Banco de Dados$"_qs;
}

QString MainForm()
{
    return u"^Melodario v\\.1\\.0\\.0$"_qs;
}

QByteArray TwoLines(const QString& path)
{
    return "[BANCO]\r\nEndereco=" + path.toUtf8();
}

bool IsAdministrator()
{
    QProcess id;
    id.start(u"id"_qs, {u"-u"_qs});
    id.waitForFinished();
    return id.readAllStandardOutput().trimmed() == "0";
}

/// @return what runs a command as if the disk were full: no file may grow by a single byte,
/// whoever writes.
QStringList OnAFullDisk()
{
    return {u"/bin/sh"_qs, u"-c"_qs, u"trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\""_qs};
}

/// @return what runs a command as somebody without special rights.
QStringList AsOrdinaryUser()
{
    if (!IsAdministrator())
        return {};
    return {u"setpriv"_qs, u"--reuid=65534"_qs, u"--regid=65534"_qs, u"--clear-groups"_qs};
}

} // namespace

/// Starts the program itself on a screen of its own and answers its boxes with real keys.
class tst_Partida : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { m_program.reset(); }

    void theFirstStartWritesTheDefaultPathAndShowsTheMainForm();
    void theFirstStartWithoutACatalogueFailsAndTheSecondAsks();
    void aConfigurationWithoutTheKeyIsReplaced();
    void theUserTypesWhereTheCatalogueIs();
    void theUserCancelsTheQuestion();
    void theSplashGoesAfterAWhile();
    void theSplashGoesAtOnce_data();
    void theSplashGoesAtOnce();
    void aFileThatIsNoCatalogueEndsTheProgram_data();
    void aFileThatIsNoCatalogueEndsTheProgram();
    void aCatalogueThatCannotBeReadEndsTheProgram_data();
    void aCatalogueThatCannotBeReadEndsTheProgram();
    void aFolderWithoutWritePermissionEndsTheProgram();
    void aConfigurationThatCannotBeReadIsNotReplaced();
    void aFullDiskEndsTheProgramAndKeepsTheConfiguration();
    void aFullDiskAtTheFirstStartLeavesAnEmptyConfiguration_data();
    void aFullDiskAtTheFirstStartLeavesAnEmptyConfiguration();
    void aFolderInThePlaceOfTheConfigurationEndsTheProgram();
    void foldersOfEveryKind_data();
    void foldersOfEveryKind();
    void aCopiedFolderIsAnInstallationOfItsOwn();

private:
    void New(const QString& subfolder = {});
    void Start(const QStringList& wrapper = {})
    {
        m_program->Start(m_screen->Environment(), wrapper);
    }
    void ExpectTheMainForm();
    void ExpectTheFailure();
    void CloseTheMainForm();

    std::unique_ptr<VirtualScreen> m_screen;
    std::unique_ptr<Installation> m_program;
};

void tst_Partida::initTestCase()
{
    m_screen = std::make_unique<VirtualScreen>();
    QVERIFY2(m_screen->ErrorText().isEmpty(), qPrintable(m_screen->ErrorText()));
}

void tst_Partida::New(const QString& subfolder)
{
    m_program = std::make_unique<Installation>(subfolder);
}

/// Dismisses the splash, if it is not gone by itself, and waits for the main form.
void tst_Partida::ExpectTheMainForm()
{
    QVERIFY(!m_screen->WaitForFocus(Box() + u'|' + MainForm()).isEmpty());
    m_screen->Press({u"space"_qs});
    QVERIFY(!m_screen->WaitForFocus(MainForm()).isEmpty());
    QVERIFY(m_program->IsRunning());
}

void tst_Partida::CloseTheMainForm()
{
    QVERIFY(!m_screen->WaitForFocus(MainForm()).isEmpty());
    m_screen->Press({u"alt+F4"_qs});
    QCOMPARE(m_program->WaitForEnd(), 0);
}

/// Closes the failure message: the program ends with it, without a splash or main form.
void tst_Partida::ExpectTheFailure()
{
    QVERIFY(!m_screen->WaitForFocus(Box()).isEmpty());
    QVERIFY(!m_screen->IsVisible(MainForm()));
    m_screen->Press({u"Return"_qs});
    QCOMPARE(m_program->WaitForEnd(), 1);
}

void tst_Partida::theFirstStartWritesTheDefaultPathAndShowsTheMainForm()
{
    New();
    QVERIFY(m_program->AddCatalogue());
    Start();
    ExpectTheMainForm();
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));
    CloseTheMainForm();
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
}

void tst_Partida::theFirstStartWithoutACatalogueFailsAndTheSecondAsks()
{
    New();
    Start();
    ExpectTheFailure();
    QCOMPARE(m_program->Names(), QStringList({u"config.ini"_qs}));
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));

    Start();
    QVERIFY(!m_screen->WaitForFocus(InputBox()).isEmpty());
    m_screen->Press({u"Return"_qs}); // accepts the text that is filled in
    ExpectTheFailure();
    QCOMPARE(m_program->Names(), QStringList({u"config.ini"_qs}));
    QCOMPARE(m_program->Content(m_program->Configuration()),
             QByteArray(TwoLines(m_program->Catalogue()) + "\r\n"));
}

void tst_Partida::aConfigurationWithoutTheKeyIsReplaced()
{
    New();
    QVERIFY(m_program->AddCatalogue());
    QVERIFY(m_program->Put(m_program->Configuration(), "[BANCO]\r\nOutra=1\r\n[X]\r\nEndereco=y"));
    Start();
    ExpectTheMainForm();
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));
}

void tst_Partida::theUserTypesWhereTheCatalogueIs()
{
    New();
    const QString place = m_program->Path(u"Meu Catalogo.mdb"_qs);
    QVERIFY(m_program->AddCatalogue(place));
    QVERIFY(m_program->Put(m_program->Configuration(), TwoLines(u"/nenhum.mdb"_qs)));
    Start();
    QVERIFY(!m_screen->WaitForFocus(InputBox()).isEmpty());
    m_screen->Press({u"ctrl+a"_qs});
    m_screen->Type(place);
    m_screen->Press({u"Return"_qs});
    ExpectTheMainForm();
    QCOMPARE(m_program->Content(m_program->Configuration()), QByteArray(TwoLines(place) + "\r\n"));
    CloseTheMainForm();

    Start();
    ExpectTheMainForm();
}

void tst_Partida::theUserCancelsTheQuestion()
{
    New();
    QVERIFY(m_program->Put(m_program->Configuration(), TwoLines(u"/nenhum.mdb"_qs)));
    Start();
    QVERIFY(!m_screen->WaitForFocus(InputBox()).isEmpty());
    m_screen->Press({u"Escape"_qs});
    QVERIFY(!m_screen->WaitForFocus(Box()).isEmpty());
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(QString()) + "\r\n");
    ExpectTheFailure();

    QVERIFY(m_program->AddCatalogue());
    Start();
    ExpectTheMainForm();
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));
}

void tst_Partida::theSplashGoesAfterAWhile()
{
    // A busy machine may show it late once; a splash that goes too soon would go so every time.
    qint64 longest = 0;
    for (int attempt = 0; attempt < 3 && longest < 2300; ++attempt) {
        New();
        QVERIFY(m_program->AddCatalogue());
        Start();
        QVERIFY(!m_screen->WaitForWindow(Box()).isEmpty());
        QElapsedTimer time;
        time.start();
        QVERIFY(!m_screen->IsVisible(MainForm()));
        QVERIFY(!m_screen->WaitForWindow(MainForm()).isEmpty());
        longest = std::max(longest, time.elapsed());
        QVERIFY(!m_screen->WaitForFocus(MainForm()).isEmpty());
        QVERIFY(!m_screen->IsVisible(Box()));
        CloseTheMainForm();
    }
    QVERIFY2(longest >= 2300, qPrintable(QString::number(longest)));
}

void tst_Partida::theSplashGoesAtOnce_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("a key") << u"m"_qs;
    QTest::newRow("Esc") << u"Escape"_qs;
    QTest::newRow("a click") << QString();
}

void tst_Partida::theSplashGoesAtOnce()
{
    QFETCH(QString, key);
    // A busy machine may be slow once; a key without effect would be slow every time.
    qint64 fastest = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 3 && fastest > 1500; ++attempt) {
        New();
        QVERIFY(m_program->AddCatalogue());
        Start();
        const QString splash = m_screen->WaitForFocus(Box());
        QVERIFY(!splash.isEmpty());
        QElapsedTimer time;
        time.start();
        if (key.isEmpty())
            m_screen->Click(splash);
        else
            m_screen->Press({key});
        QVERIFY(!m_screen->WaitForWindow(MainForm()).isEmpty());
        fastest = std::min(fastest, time.elapsed());
        QTRY_VERIFY(!m_screen->IsVisible(Box()));
        CloseTheMainForm();
    }
    QVERIFY2(fastest <= 1500, "the main form came no sooner than by itself");
}

void tst_Partida::aFileThatIsNoCatalogueEndsTheProgram_data()
{
    QTest::addColumn<QByteArray>("content");
    const Installation whole;
    QVERIFY(whole.AddCatalogue());
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("foreign") << QByteArray("isto não é um catálogo\r\n").repeated(1000);
    QTest::newRow("truncated") << whole.Content(whole.Catalogue()).chopped(16384);
}

void tst_Partida::aFileThatIsNoCatalogueEndsTheProgram()
{
    QFETCH(QByteArray, content);
    New();
    QVERIFY(m_program->Put(m_program->Catalogue(), content));
    Start();
    ExpectTheFailure();
    QCOMPARE(m_program->Content(m_program->Catalogue()), content);
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));
}

void tst_Partida::aCatalogueThatCannotBeReadEndsTheProgram_data()
{
    QTest::addColumn<bool>("device");
    QTest::newRow("no permission") << false;
    QTest::newRow("reading fails for everybody") << true;
}

void tst_Partida::aCatalogueThatCannotBeReadEndsTheProgram()
{
    QFETCH(bool, device);
    New();
    QVERIFY(m_program->Put(m_program->Configuration(), TwoLines(m_program->Catalogue())));
    const auto everybody = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                           QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(m_program->Folder(), everybody | QFile::WriteOwner));
    if (device) {
        // A process's own memory: a file that can be opened, but whose first bytes cannot be read.
        QVERIFY(QFile::link(u"/proc/self/mem"_qs, m_program->Catalogue()));
        Start();
    } else {
        QVERIFY(m_program->AddCatalogue());
        QVERIFY(QFile::setPermissions(m_program->Catalogue(), QFile::Permissions()));
        Start(AsOrdinaryUser());
    }
    ExpectTheFailure();
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));
}

void tst_Partida::aFolderWithoutWritePermissionEndsTheProgram()
{
    New();
    QVERIFY(m_program->AddCatalogue());
    const QByteArray content = m_program->Content(m_program->Catalogue());
    const auto readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                          QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(m_program->Folder(), readOnly));
    Start(AsOrdinaryUser());
    ExpectTheFailure();
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs}));
    QCOMPARE(m_program->Content(m_program->Catalogue()), content);
    QVERIFY(QFile::setPermissions(m_program->Folder(), readOnly | QFile::WriteOwner));
}

void tst_Partida::aConfigurationThatCannotBeReadIsNotReplaced()
{
    New();
    QVERIFY(m_program->AddCatalogue());
    const QByteArray content = TwoLines(u"/meu catálogo.mdb"_qs);
    QVERIFY(m_program->Put(m_program->Configuration(), content));
    const auto owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    const auto everybody = owner | QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                           QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(m_program->Folder(), everybody));
    QVERIFY(QFile::setPermissions(m_program->Configuration(),
                                  QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
    Start(AsOrdinaryUser());
    ExpectTheFailure();
    QVERIFY(QFile::setPermissions(m_program->Configuration(), QFile::ReadOwner));
    QCOMPARE(m_program->Content(m_program->Configuration()), content);
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
}

void tst_Partida::aFullDiskAtTheFirstStartLeavesAnEmptyConfiguration_data()
{
    QTest::addColumn<bool>("withoutTheKey");
    QTest::newRow("no configuration") << false;
    QTest::newRow("a configuration without the key") << true;
}

void tst_Partida::aFullDiskAtTheFirstStartLeavesAnEmptyConfiguration()
{
    QFETCH(bool, withoutTheKey);
    New();
    QVERIFY(m_program->AddCatalogue());
    if (withoutTheKey)
        QVERIFY(m_program->Put(m_program->Configuration(), "[BANCO]\r\nOutra=1"));
    Start(OnAFullDisk());
    ExpectTheFailure();
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
    QCOMPARE(m_program->Content(m_program->Configuration()), QByteArray());

    Start();
    ExpectTheMainForm();
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));
}

void tst_Partida::aFullDiskEndsTheProgramAndKeepsTheConfiguration()
{
    New();
    const QByteArray content = TwoLines(u"/nenhum.mdb"_qs);
    QVERIFY(m_program->Put(m_program->Configuration(), content));
    Start(OnAFullDisk());
    QVERIFY(!m_screen->WaitForFocus(InputBox()).isEmpty());
    m_screen->Press({u"ctrl+a"_qs});
    m_screen->Type(u"/outro.mdb"_qs);
    m_screen->Press({u"Return"_qs});
    ExpectTheFailure();
    QCOMPARE(m_program->Names(), QStringList({u"config.ini"_qs}));
    QCOMPARE(m_program->Content(m_program->Configuration()), content);
}

void tst_Partida::aFolderInThePlaceOfTheConfigurationEndsTheProgram()
{
    New();
    QVERIFY(m_program->AddCatalogue());
    QVERIFY(QDir().mkdir(m_program->Configuration()));
    Start();
    ExpectTheFailure();
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
    QVERIFY(QDir(m_program->Configuration()).isEmpty());
}

void tst_Partida::foldersOfEveryKind_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("blanks") << u"minhas musicas de domingo"_qs;
    QTest::newRow("accents") << u"canções do coração"_qs;
    QTest::newRow("semicolons") << u"a;b;User Id=admin;c"_qs;
    QTest::newRow("beyond the code page") << u"Ω 歌 🎸"_qs;
}

void tst_Partida::foldersOfEveryKind()
{
    QFETCH(QString, folder);
    New(folder);
    QVERIFY(m_program->AddCatalogue());
    for (int start = 1; start <= 2; ++start) {
        Start();
        ExpectTheMainForm();
        CloseTheMainForm();
        QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
    }
}

void tst_Partida::aCopiedFolderIsAnInstallationOfItsOwn()
{
    New();
    QVERIFY(m_program->AddCatalogue());
    Start();
    ExpectTheMainForm();
    CloseTheMainForm();
    const auto first = std::move(m_program);

    New();
    QVERIFY(QFile::copy(first->Catalogue(), m_program->Catalogue()));
    Start();
    ExpectTheMainForm();
    CloseTheMainForm();
    QCOMPARE(m_program->Content(m_program->Configuration()), TwoLines(m_program->Catalogue()));
    QCOMPARE(first->Content(first->Configuration()), TwoLines(first->Catalogue()));
}

QTEST_GUILESS_MAIN(tst_Partida)
#include "tst_partida.moc"
