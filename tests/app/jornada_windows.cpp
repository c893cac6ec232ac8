// The program for Windows under Wine, on a screen of its own: what that system has and this one
// lacks, and one catalogue that is used on both. Not one of CTest's: packaging/windows/check runs
// it with MELODARIO_WINDOWS, the folder that the zip holds, and MELODARIO_PICTURES, where pictures
// go.

#include "app/Installation.h"
#include "app/VirtualScreen.h"
#include "app/WindowsFolder.h"
#include "support/PlainSqlite.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QString Form = u"^Melodario v\\."_qs;
const QString Box = u"^Melodario$"_qs; // the splash and all messages
const QString Fish = u"^Peixe Vivo"_qs;
const QString Choice = u"^Titulo$"_qs;
const QString Classes = uR"(HKCU\Software\Classes)"_qs;

QString Delivered()
{
    return qEnvironmentVariable("MELODARIO_WINDOWS") + u"/Melodario.mdb";
}

QByteArray ExchangeFile(const QByteArray& title)
{
    return "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n<musicas>\r\n<musica><titulo>" +
           title +
           "</titulo><referencia>Ana</referencia><letra1>C[br]Um</letra1><letra2>C[br]Dois</letra2>"
           "<tom>C</tom><variacao></variacao><categoria>1</categoria><temas><d>Louvor</d></temas>"
           "</musica>\r\n</musicas>";
}

} // namespace

class JornadaWindows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void aFolderWithANameBeyondTheCodePage();
    void aSongIsFoundTransposedAndKept();
    void songsLeaveAndComeBack();
    void bothSystemsUseTheSameCatalogue();
    void aCatalogueInADeepFolder();
    void bothSystemsConvertAlike();
    void aFileIsOpenedAsRegistered();
    void nothingRegistersByItself();
    void aCatalogueInTheOlderFormatIsRefused();

private:
    void New(const QString& subfolder = {});
    void Start() { m_program->Start(m_screen->Environment()); }
    void Splash();
    void StartToTheForm();
    void CloseTheForm();
    void OpenTheFish();
    /// Wine on a bare window manager leaves nobody with the keyboard when a box closes; Windows
    /// gives it to the form behind.
    void Return() { QVERIFY2(!m_screen->Activate(Form).isEmpty(), qPrintable(m_screen->Report())); }
    void Picture(const QString& name) const;
    void Wait(const QString& window) const
    {
        QVERIFY2(!m_screen->WaitForFocus(window).isEmpty(),
                 qPrintable(window + u'\n' + m_screen->Report()));
    }
    QString Tool(const QString& name) const { return m_program->Path(name + u".exe"); }
    QString FishText() const
    {
        return PlainSqlite(m_program->Catalogue())
            .Rows(u"SELECT MUSICA2 FROM MUSICA WHERE TITULO = 'Peixe Vivo'"_qs)
            .value(0)
            .value(0);
    }
    int Songs(const QString& title) const
    {
        return PlainSqlite(m_program->Catalogue())
            .Rows(u"SELECT count(*) FROM MUSICA WHERE TITULO = ?"_qs, {title})
            .value(0)
            .value(0)
            .toInt();
    }

    std::unique_ptr<VirtualScreen> m_screen;
    std::unique_ptr<Installation> m_program;
};

void JornadaWindows::initTestCase()
{
    QVERIFY(QFile::exists(Delivered()));
    QVERIFY(QDir().mkpath(qEnvironmentVariable("MELODARIO_PICTURES")));
    m_screen = std::make_unique<VirtualScreen>();
    QVERIFY2(m_screen->ErrorText().isEmpty(), qPrintable(m_screen->ErrorText()));
    // What is started otherwise shows its windows there too.
    qputenv("DISPLAY", m_screen->Environment().value(u"DISPLAY"_qs).toLatin1());
}

void JornadaWindows::cleanup()
{
    if (QTest::currentTestFailed())
        Picture(u"falha-"_qs + QString::fromLatin1(QTest::currentTestFunction()));
    m_program.reset();
}

void JornadaWindows::New(const QString& subfolder)
{
    m_program = std::make_unique<Installation>(subfolder);
    QVERIFY(QFile::copy(Delivered(), m_program->Catalogue()));
    QVERIFY(QFile::setPermissions(m_program->Catalogue(), QFile::ReadOwner | QFile::WriteOwner));
}

void JornadaWindows::Picture(const QString& name) const
{
    QTest::qWait(1500); // what a window shows comes after its title
    QProcess import;
    import.setProcessEnvironment(m_screen->Environment());
    import.start(u"import"_qs,
                 {u"-window"_qs, u"root"_qs,
                  qEnvironmentVariable("MELODARIO_PICTURES") + u'/' + name + u".png"});
    QVERIFY(import.waitForFinished());
}

/// A key before the splash is drawn would be lost: it goes by itself then.
void JornadaWindows::Splash()
{
    Wait(Box + u'|' + Form);
    m_screen->Press({u"space"_qs});
    Wait(Form);
}

void JornadaWindows::StartToTheForm()
{
    Start();
    Splash();
    QTest::qWait(1000); // the first search comes 200 ms after the start
}

void JornadaWindows::CloseTheForm()
{
    Return();
    m_screen->Press({u"alt+F4"_qs});
    QCOMPARE(m_program->WaitForEnd(), 0);
}

void JornadaWindows::OpenTheFish()
{
    m_screen->Press({u"alt+c"_qs, u"alt+p"_qs});
    m_screen->Type(u"peixe"_qs);
    QTest::qWait(1500);
    Picture(u"pesquisa"_qs);
    m_screen->Press({u"Return"_qs});
    Wait(Fish);
}

void JornadaWindows::aFolderWithANameBeyondTheCodePage()
{
    New(u"Música песни 歌"_qs);
    Start();
    Wait(Box);
    Picture(u"abertura"_qs);
    Splash();
    Picture(u"principal"_qs);
    CloseTheForm();
    QCOMPARE(Installation::Content(m_program->Configuration()),
             "[BANCO]\r\nEndereco=" + Installation::NameOf(m_program->Catalogue()).toUtf8());
    QCOMPARE(m_program->Names(), QStringList({u"Melodario.mdb"_qs, u"config.ini"_qs}));
    // Moved as it is, the folder still names its catalogue.
    StartToTheForm();
    CloseTheForm();
}

void JornadaWindows::aSongIsFoundTransposedAndKept()
{
    New();
    const QStringList before = FishText().split(u"\r\n"_qs);
    QVERIFY(before.contains(u"     G"_qs) && before.contains(u"      D7           G"_qs));
    StartToTheForm();
    OpenTheFish();
    Picture(u"visualizador"_qs);
    m_screen->Press({u"s"_qs});
    Picture(u"visualizador-um-semitom-acima"_qs);
    m_screen->Press({u"shift+e"_qs});
    m_screen->Type(u"Bb  "_qs);
    Picture(u"visualizador-edicao"_qs);
    m_screen->Press({u"Tab"_qs, u"Return"_qs});
    Wait(Choice);
    Picture(u"visualizador-salvar"_qs);
    m_screen->Press({u"alt+s"_qs});
    Wait(Fish);
    QTRY_VERIFY(FishText().startsWith(u"Bb  "));
    const QStringList after = FishText().split(u"\r\n"_qs);
    QVERIFY2(after.contains(u"     G#"_qs), qPrintable(after.join(u'\n')));
    QVERIFY2(after.contains(u"      D#7           G#"_qs), qPrintable(after.join(u'\n')));
    QCOMPARE(after.size(), before.size() + 1); // the sheet begins with an empty line
    m_screen->Press({u"Escape"_qs});
    CloseTheForm();
}

void JornadaWindows::songsLeaveAndComeBack()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"peixe.mld"_qs);
    New();
    StartToTheForm();
    m_screen->Press({u"alt+c"_qs, u"alt+p"_qs});
    m_screen->Type(u"peixe"_qs);
    QTest::qWait(1500);
    m_screen->Press({u"shift+Tab"_qs, u"shift+Tab"_qs, u"Home"_qs, u"alt+e"_qs});
    Wait(u"^Exportar$"_qs);
    Picture(u"exportar"_qs);
    m_screen->Press({u"Return"_qs});
    Wait(u"^Salvar Arquivo$"_qs);
    Picture(u"exportar-arquivo"_qs);
    m_screen->Press({u"ctrl+a"_qs});
    m_screen->Type(Installation::NameOf(file));
    m_screen->Press({u"Return"_qs});
    Wait(Box);
    QTRY_VERIFY(Installation::Content(file).endsWith("\r\n</musicas>"));
    const QByteArray exported = Installation::Content(file);
    QVERIFY(exported.contains("<titulo>Peixe Vivo</titulo>"));
    QVERIFY(exported.contains("Viver fora da \xE1gua fria?"));
    m_screen->Press({u"Return"_qs});

    QTest::qWait(1500);
    Return();
    QVERIFY(Installation::Put(file, ExchangeFile("Can\xE7\xE3o da \xC1gua")));
    m_screen->Press({u"alt+i"_qs});
    Wait(u"^Importar\\.\\.\\.$"_qs);
    Picture(u"importar-arquivo"_qs);
    m_screen->Press({u"ctrl+a"_qs});
    m_screen->Type(Installation::NameOf(file));
    m_screen->Press({u"Return"_qs});
    Wait(Box);
    QTRY_COMPARE(Songs(u"Canção da Água"_qs), 1);
    Picture(u"importar-mensagem"_qs);
    m_screen->Press({u"Return"_qs});
    CloseTheForm();
}

void JornadaWindows::bothSystemsUseTheSameCatalogue()
{
    New();
    PlainSqlite(m_program->Catalogue())
        .Run("INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA, "
             "CONTADOR) VALUES ('Xote de Linux', 'Zé', 'C' || char(13, 10) || 'Um', 'C' || "
             "char(13, 10) || 'Dois', 'C', '', 1, 0);"
             "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT MUSICA.ID, TEMA.ID FROM MUSICA, "
             "TEMA WHERE TITULO = 'Xote de Linux' AND DESCRICAO = 'Amor'");
    // Written here, changed on Windows.
    StartToTheForm();
    m_screen->Press({u"alt+c"_qs, u"alt+p"_qs});
    m_screen->Type(u"xote"_qs);
    QTest::qWait(1500);
    m_screen->Press({u"Return"_qs});
    Wait(u"^Xote de Linux"_qs);
    m_screen->Press({u"shift+e"_qs});
    m_screen->Type(u"G "_qs);
    m_screen->Press({u"Tab"_qs, u"Return"_qs});
    Wait(Choice);
    m_screen->Press({u"alt+i"_qs});
    Wait(u"^Xote de Linux"_qs);
    const auto texts = [this] {
        return PlainSqlite(m_program->Catalogue())
            .Rows(u"SELECT MUSICA, MUSICA2 FROM MUSICA WHERE TITULO = 'Xote de Linux'"_qs)
            .value(0);
    };
    QTRY_COMPARE(texts(), QStringList({u"G C\r\nDois"_qs, u"G C\r\nDois"_qs}));
    m_screen->Press({u"Escape"_qs});
    CloseTheForm();

    // What Windows wrote is in order for this system, and the other way round.
    const auto here =
        WindowsFolder::RunHere({QStringLiteral(MELODARIO_VERIFICA), m_program->Catalogue()});
    const auto there = WindowsFolder::Run(
        {Tool(u"melodario-verifica"_qs), Installation::NameOf(m_program->Catalogue())});
    QCOMPARE(there.code, here.code);
    const auto findings = [](const QByteArray& out) {
        return out.mid(out.indexOf(".mdb: ")).replace("\r", "");
    };
    QVERIFY(findings(here.out).contains(" tema(s)"));
    QCOMPARE(findings(there.out), findings(here.out));
}

void JornadaWindows::aCatalogueInADeepFolder()
{
    New();
    // Longer than the 260 characters that a path had there once.
    const QString deep =
        m_program->Path(QString(100, u'a') + u'/' + QString(100, u'b') + u'/' + QString(100, u'c'));
    QVERIFY(QDir().mkpath(deep));
    const QString place = deep + u"/Melodario.mdb";
    QVERIFY(QFile::rename(m_program->Catalogue(), place));
    QVERIFY(Installation::Put(m_program->Configuration(),
                              "[BANCO]\r\nEndereco=" + Installation::NameOf(place).toUtf8()));
    StartToTheForm();
    OpenTheFish();
    m_screen->Press({u"shift+e"_qs});
    m_screen->Type(u"Bb  "_qs);
    m_screen->Press({u"Tab"_qs, u"Return"_qs});
    Wait(Choice);
    m_screen->Press({u"alt+s"_qs});
    Wait(Fish);
    const auto text = [&place] {
        return PlainSqlite(place)
            .Rows(u"SELECT MUSICA2 FROM MUSICA WHERE TITULO = 'Peixe Vivo'"_qs)
            .value(0)
            .value(0);
    };
    QTRY_VERIFY(text().startsWith(u"Bb  "));
    m_screen->Press({u"Escape"_qs});
    CloseTheForm();
}

void JornadaWindows::bothSystemsConvertAlike()
{
    New(u"песни"_qs);
    for (const QString& ending : {u"mld"_qs, u"txt"_qs, u"cho"_qs}) {
        const QString here = m_program->Path(u"aqui."_qs + ending);
        const QString there = m_program->Path(u"lá."_qs + ending);
        QCOMPARE(WindowsFolder::RunHere(
                     {QStringLiteral(MELODARIO_CONVERTE), m_program->Catalogue(), here})
                     .code,
                 0);
        const auto ended = WindowsFolder::Run({Tool(u"melodario-converte"_qs),
                                               Installation::NameOf(m_program->Catalogue()),
                                               Installation::NameOf(there)});
        QVERIFY2(ended.code == 0, ended.err.constData());
        const QByteArray content = Installation::Content(there);
        QVERIFY(content.size() > 1000);
        QCOMPARE(content, Installation::Content(here));
        // Through the standard output the bytes are the same.
        const auto piped =
            WindowsFolder::Run({Tool(u"melodario-converte"_qs), u"--formato"_qs, ending,
                                Installation::NameOf(m_program->Catalogue()), u"-"_qs});
        QCOMPARE(piped.out, content);
    }
    const QString book = m_program->Path(u"cancioneiro.pdf"_qs);
    const auto made = WindowsFolder::Run({Tool(u"melodario-converte"_qs),
                                          Installation::NameOf(m_program->Catalogue()),
                                          Installation::NameOf(book)});
    QVERIFY2(made.code == 0, made.err.constData());
    // With the fonts that the program carries, not with whatever is installed.
    const auto fonts = WindowsFolder::RunHere({u"pdffonts"_qs, book});
    QVERIFY2(fonts.out.contains("DejaVuSansMono") && fonts.out.contains("Carlito"),
             fonts.out.constData());

    QVERIFY(QFile::copy(QStringLiteral(MELODARIO_SOURCE_DIR "/tests/jet/dados/catalogo-antigo.mdb"),
                        m_program->Path(u"antigo.mdb"_qs)));
    const auto refused = WindowsFolder::Run(
        {Tool(u"melodario-converte"_qs), Installation::NameOf(m_program->Path(u"antigo.mdb"_qs)),
         Installation::NameOf(m_program->Path(u"novo.mdb"_qs))});
    QCOMPARE(refused.code, 2);
    QVERIFY2(refused.err.contains("não convertido: Falta o programa melodario-jet"),
             refused.err.constData());
    QVERIFY(!QFile::exists(m_program->Path(u"novo.mdb"_qs)));
}

void JornadaWindows::nothingRegistersByItself()
{
    QVERIFY(WindowsFolder::Run({u"reg"_qs, u"query"_qs, Classes + u"\\.mld"}).code != 0);
    New();
    StartToTheForm();
    CloseTheForm();
    QVERIFY(WindowsFolder::Run({u"reg"_qs, u"query"_qs, Classes + u"\\.mld"}).code != 0);
    // Asked for nothing, the command only tells how it is used.
    const auto help = WindowsFolder::Run({Tool(u"melodario-registra"_qs)});
    QCOMPARE(help.code, 2);
    QVERIFY(help.err.contains("--registrar"));
    QVERIFY(WindowsFolder::Run({u"reg"_qs, u"query"_qs, Classes + u"\\.mld"}).code != 0);
    const auto removed = WindowsFolder::Run({Tool(u"melodario-registra"_qs), u"--remover"_qs});
    QCOMPARE(removed.code, 0);
    QVERIFY2(removed.out.contains("nada foi mudado"), removed.out.constData());
}

void JornadaWindows::aFileIsOpenedAsRegistered()
{
    New(u"Música песни"_qs);
    const auto registered = WindowsFolder::Run({Tool(u"melodario-registra"_qs), u"--registrar"_qs});
    QCOMPARE(registered.code, 0);
    QVERIFY2(registered.out.contains(Installation::NameOf(m_program->Program()).toUtf8()),
             registered.out.constData());
    const auto entry = WindowsFolder::Run({u"reg"_qs, u"query"_qs, Classes + u"\\.mld"});
    QCOMPARE(entry.code, 0);
    QVERIFY2(entry.out.contains("Melodario.mld"), entry.out.constData());

    const QString file = m_program->Path(u"canções da Ana 歌.mld"_qs);
    QVERIFY(Installation::Put(file, ExchangeFile("Luz")));
    // Wine does not ask the user's own classes; the desktop would run this command.
    const auto command = WindowsFolder::Run(
        {u"reg"_qs, u"query"_qs, Classes + uR"(\Melodario.mld\shell\open\command)", u"/ve"_qs});
    QVERIFY2(command.out.contains(" \"%1\"") && command.out.contains("Melodario.exe\""),
             command.out.constData());
    QProcess explorer;
    explorer.start(u"wine"_qs, {m_program->Program(), Installation::NameOf(file)});
    Wait(Box);
    QTRY_COMPARE(Songs(u"Luz"_qs), 1);
    Picture(u"arquivo-aberto"_qs);
    m_screen->Press({u"Return"_qs});
    QTest::qWait(500);
    Splash();
    m_screen->Press({u"alt+F4"_qs});
    QVERIFY(explorer.waitForFinished(VirtualScreen::Patience));

    const auto removed = WindowsFolder::Run({Tool(u"melodario-registra"_qs), u"--remover"_qs});
    QCOMPARE(removed.code, 0);
    QVERIFY2(removed.out.contains("Melodario.exe"), removed.out.constData());
    for (const QString& key : {u"\\.mld"_qs, u"\\Melodario.mld"_qs})
        QVERIFY(WindowsFolder::Run({u"reg"_qs, u"query"_qs, Classes + key}).code != 0);
}

void JornadaWindows::aCatalogueInTheOlderFormatIsRefused()
{
    New();
    QVERIFY(QFile::remove(m_program->Catalogue()));
    QVERIFY(QFile::copy(QStringLiteral(MELODARIO_SOURCE_DIR "/tests/jet/dados/catalogo-antigo.mdb"),
                        m_program->Catalogue()));
    const QByteArray before = Installation::Content(m_program->Catalogue());
    Start();
    Wait(Box);
    Picture(u"catalogo-antigo"_qs);
    m_screen->Press({u"Return"_qs});
    // The failure that follows gets no keys under Wine on a bare window manager.
    QTest::qWait(3000);
    Picture(u"catalogo-antigo-falha"_qs);
    m_screen->ClickOnlyButton(m_screen->WaitForWindow(Box));
    QCOMPARE(m_program->WaitForEnd(), 1);
    QVERIFY(Installation::Content(m_program->Catalogue()) == before);
}

QTEST_GUILESS_MAIN(JornadaWindows)
#include "jornada_windows.moc"
