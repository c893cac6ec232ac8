#include "controls/Dialogs.h"
#include "main/Conecta_Banco.h"
#include "runtime/RuntimeError.h"
#include "store/Arquivo.h"
#include "store/Connection.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

namespace {

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

bool Put(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Answers input boxes, and remembers what config.ini held while each box stood open.
class AnsweringDialogs final : public Dialogs
{
public:
    struct Box
    {
        QString text;
        QString title;
        QString initial;
        std::optional<Icone> icon;
        bool placed = false;
        QByteArray configuration;
    };

    AnsweringDialogs() { SetDialogs(this); }
    ~AnsweringDialogs() override { SetDialogs(nullptr); }

    void Message(QWidget*, const QString& text, Icone icon, const QString& title) override
    {
        boxes.append({text, title, {}, icon, false, Content(Funcoes::Caminho_Configuracao())});
    }

    bool Question(QWidget*, const QString& text, const QString& title) override
    {
        boxes.append({text, title, {}, Icone::Pergunta, false, {}});
        return false;
    }

    QString Input(QWidget*, const QString& prompt, const QString& title, const QString& initial,
                  std::optional<QPoint> corner) override
    {
        boxes.append({prompt, title, initial, std::nullopt, corner.has_value(),
                      Content(Funcoes::Caminho_Configuracao())});
        return answer;
    }

    QString answer;
    QList<Box> boxes;
};

QByteArray TwoLines(const QString& path)
{
    return "[BANCO]\r\nEndereco=" + path.toUtf8();
}

} // namespace

/// Runs in a folder of its own: config.ini and the default catalogue lie beside the executable.
class tst_Conecta_Banco : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theFirstStartWritesTheDefaultPathAndOpensIt();
    void theFirstStartWithoutACatalogueFailsAndTheSecondAsks();
    void aConfigurationWithoutTheKeyIsReplaced_data();
    void aConfigurationWithoutTheKeyIsReplaced();
    void theStoredCatalogueIsOpenedWithoutAQuestion();
    void aStoredPathThatIsMissingIsAskedForOnce();
    void aWrongAnswerIsStoredBeforeItIsTriedAndOfferedNextTime();
    void aCancelledQuestionStoresAnEmptyPathAndTheNextStartTriesTheDefault();
    void theAnswerKeepsTheOtherLinesOfTheConfiguration();
    void aFileThatIsNoCatalogueEndsTheProgram_data();
    void aFileThatIsNoCatalogueEndsTheProgram();
    void aConfigurationThatCannotBeWrittenEndsTheProgram();
    void pathsOfEveryKind_data();
    void pathsOfEveryKind();
    void closingTheConnection();

private:
    static QString Default();
    bool Configure(const QString& path);
    void ExpectTheFailure(qsizetype boxes);

    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<TestCatalogue> m_catalogue;
};

QString tst_Conecta_Banco::Default()
{
    return QCoreApplication::applicationDirPath() + u"/Melodario.mdb"_qs;
}

bool tst_Conecta_Banco::Configure(const QString& path)
{
    return Put(Funcoes::Caminho_Configuracao(), TwoLines(path));
}

void tst_Conecta_Banco::ExpectTheFailure(qsizetype boxes)
{
    QVERIFY_THROWS_EXCEPTION(Fim_Programa, Funcoes::Conecta_Banco());
    QVERIFY(!Funcoes::Conexao.IsOpen());
    QCOMPARE(m_dialogs->boxes.size(), boxes);
    const auto& box = m_dialogs->boxes.last();
    QCOMPARE(box.text, u"Falha ao acessar o banco de dados. Verifique se o arquivo Melodario.mdb "
                       "encontra-se na mesma pasta do Melodario."_qs);
    QCOMPARE(box.title, u"Melodario"_qs);
    QCOMPARE(box.icon, Icone::Critico);
}

void tst_Conecta_Banco::init()
{
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_catalogue = std::make_unique<TestCatalogue>();
    QVERIFY(!QFileInfo::exists(Funcoes::Caminho_Configuracao()));
    QVERIFY(!QFileInfo::exists(Default()));
}

void tst_Conecta_Banco::cleanup()
{
    if (Funcoes::Conexao.IsOpen())
        Funcoes::Conexao.Close();
    QDir().rmdir(Funcoes::Caminho_Configuracao());
    QFile::remove(Funcoes::Caminho_Configuracao());
    QFile::remove(Default());
    m_dialogs.reset();
}

void tst_Conecta_Banco::theFirstStartWritesTheDefaultPathAndOpensIt()
{
    QVERIFY(QFile::copy(m_catalogue->Path(), Default()));
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(Funcoes::Conexao.CursorLocation, int(Connection::UseClient));
    QCOMPARE(Content(Funcoes::Caminho_Configuracao()), TwoLines(Default()));
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_Conecta_Banco::theFirstStartWithoutACatalogueFailsAndTheSecondAsks()
{
    ExpectTheFailure(1);
    QCOMPARE(m_dialogs->boxes[0].configuration, TwoLines(Default()));
    QVERIFY(!QFileInfo::exists(Default()));

    m_dialogs->answer = m_catalogue->Path();
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(m_dialogs->boxes.size(), 2);
    const auto& question = m_dialogs->boxes[1];
    QCOMPARE(question.text,
             u"O Arquivo do banco de dados 'Melodario.mdb' não foi encontrado. Insira o endereço "
             "completo onde ele se encontra para continuar."_qs);
    QCOMPARE(question.title, u"Endereço do Banco de Dados"_qs);
    QCOMPARE(question.initial, Default());
    QVERIFY(!question.placed);
}

void tst_Conecta_Banco::aConfigurationWithoutTheKeyIsReplaced_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("section alone") << QByteArray("[BANCO]\r\n");
    QTest::newRow("another key") << QByteArray("[BANCO]\r\nOutra=1\r\n");
    QTest::newRow("key in another section") << QByteArray("[OUTRA]\r\nEndereco=/x\r\n");
    QTest::newRow("empty value") << QByteArray("[BANCO]\r\nEndereco=");
    QTest::newRow("no INI file at all") << QByteArray("\x00\x01\x02 nada\r\n", 9);
}

void tst_Conecta_Banco::aConfigurationWithoutTheKeyIsReplaced()
{
    QFETCH(QByteArray, content);
    QVERIFY(Put(Funcoes::Caminho_Configuracao(), content));
    QVERIFY(QFile::copy(m_catalogue->Path(), Default()));
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(Content(Funcoes::Caminho_Configuracao()), TwoLines(Default()));
    QVERIFY(m_dialogs->boxes.isEmpty());
}

void tst_Conecta_Banco::theStoredCatalogueIsOpenedWithoutAQuestion()
{
    const QByteArray content =
        "; minha nota\n[banco]\nEndereco = \"" + m_catalogue->Path().toUtf8() + "\"\n";
    QVERIFY(Put(Funcoes::Caminho_Configuracao(), content));
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QVERIFY(m_dialogs->boxes.isEmpty());
    QCOMPARE(Content(Funcoes::Caminho_Configuracao()), content);
}

void tst_Conecta_Banco::aStoredPathThatIsMissingIsAskedForOnce()
{
    const QString missing = m_catalogue->Folder() + u"/Outro.mdb"_qs;
    QVERIFY(Configure(missing));
    m_dialogs->answer = m_catalogue->Path();
    Funcoes::Conecta_Banco();
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QCOMPARE(m_dialogs->boxes[0].initial, missing);
    QCOMPARE(m_dialogs->boxes[0].configuration, TwoLines(missing));
    QCOMPARE(Funcoes::Le_Configuracao(u"BANCO"_qs, u"Endereco"_qs), m_catalogue->Path());

    Funcoes::Desconecta_Banco();
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(m_dialogs->boxes.size(), 1);
    QVERIFY(!QFileInfo::exists(missing));
}

void tst_Conecta_Banco::aWrongAnswerIsStoredBeforeItIsTriedAndOfferedNextTime()
{
    const QString wrong = m_catalogue->Folder() + u"/não há.mdb"_qs;
    QVERIFY(Configure(u"/nenhum.mdb"_qs));
    m_dialogs->answer = wrong;
    ExpectTheFailure(2);
    QCOMPARE(m_dialogs->boxes[1].configuration,
             QByteArray("[BANCO]\r\nEndereco=" + wrong.toLatin1() + "\r\n"));
    QVERIFY(!QFileInfo::exists(wrong));

    ExpectTheFailure(4);
    QCOMPARE(m_dialogs->boxes[2].initial, wrong);
}

void tst_Conecta_Banco::aCancelledQuestionStoresAnEmptyPathAndTheNextStartTriesTheDefault()
{
    QVERIFY(Configure(u"/nenhum.mdb"_qs));
    ExpectTheFailure(2);
    QCOMPARE(m_dialogs->boxes[1].configuration, QByteArray("[BANCO]\r\nEndereco=\r\n"));

    QVERIFY(QFile::copy(m_catalogue->Path(), Default()));
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(m_dialogs->boxes.size(), 2);
    QCOMPARE(Content(Funcoes::Caminho_Configuracao()), TwoLines(Default()));
}

void tst_Conecta_Banco::theAnswerKeepsTheOtherLinesOfTheConfiguration()
{
    QVERIFY(Put(Funcoes::Caminho_Configuracao(), "; nota\n[BANCO]\nEndereco=/x.mdb\nOutra=1\n"));
    m_dialogs->answer = m_catalogue->Path();
    Funcoes::Conecta_Banco();
    QCOMPARE(
        Content(Funcoes::Caminho_Configuracao()),
        QByteArray("; nota\n[BANCO]\nEndereco=" + m_catalogue->Path().toUtf8() + "\r\nOutra=1\n"));
}

void tst_Conecta_Banco::aFileThatIsNoCatalogueEndsTheProgram_data()
{
    QTest::addColumn<QByteArray>("content");
    const TestCatalogue catalogue;
    const QByteArray whole = Content(catalogue.Path());

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a text") << QByteArray("isto é só um texto, e não um catálogo\n").repeated(99);
    QTest::newRow("one byte") << QByteArray("S");
    QTest::newRow("cut inside the header") << whole.first(50);
    QTest::newRow("cut after the first page") << whole.first(16384);
    QTest::newRow("cut before the last page") << whole.chopped(16384);
    QTest::newRow("half its last page missing") << whole.chopped(8192);

    QTemporaryDir folder;
    const QString other = folder.filePath(u"outro.db"_qs);
    PlainSqlite(other).Run("CREATE TABLE MUSICA (ID INTEGER)");
    QTest::newRow("another program's tables") << Content(other);
    for (const auto* const table :
         {"MUSICA", "TEMA", "TEMA_MUSICA", "LISTA", "LISTA_MUSICA", "TOM", "VARIACAO"}) {
        const TestCatalogue without;
        without.Run(u"DROP TABLE "_qs + QString::fromLatin1(table));
        QTest::addRow("without the table %s", table) << Content(without.Path());
    }
}

void tst_Conecta_Banco::aFileThatIsNoCatalogueEndsTheProgram()
{
    QFETCH(QByteArray, content);
    const QString path = m_catalogue->Folder() + u"/x.mdb"_qs;
    const QStringList names{u"Melodario.mdb"_qs, u"x.mdb"_qs};
    QVERIFY(Put(path, content));
    QVERIFY(Configure(path));
    ExpectTheFailure(1);
    QCOMPARE(Content(path), content);
    QCOMPARE(Content(Funcoes::Caminho_Configuracao()), TwoLines(path));
    QCOMPARE(QDir(m_catalogue->Folder()).entryList(QDir::Files), names);
}

void tst_Conecta_Banco::aConfigurationThatCannotBeWrittenEndsTheProgram()
{
    // A folder of that name: nobody can write there, whatever his rights.
    QVERIFY(QDir().mkdir(Funcoes::Caminho_Configuracao()));
    QVERIFY(QFile::copy(m_catalogue->Path(), Default()));
    ExpectTheFailure(1);
    QVERIFY(QFileInfo(Funcoes::Caminho_Configuracao()).isDir());
}

void tst_Conecta_Banco::pathsOfEveryKind_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("typed");
    const QList<std::pair<const char*, QString>> folders{
        {"blanks", u"minhas músicas de domingo"_qs},
        {"semicolon", u"a;b;User Id=c;"_qs},
        {"what a provider string ends with", u"x;User Id=admin;Password=;"_qs},
        {"quotes and apostrophes", u"d'água \"sol\" x"_qs},
        {"equals sign and percent", u"a=b %20"_qs},
        {"euro and dash", u"€ – “a”"_qs},
        {"UTF-8 by chance", u"Ã© Ã£"_qs},
        {"beyond the code page", u"Ω 歌 🎸"_qs},
        {"question and hash", u"a?mode=rwc#b"_qs},
    };
    for (const auto& [name, folder] : folders) {
        QTest::addRow("stored: %s", name) << folder << false;
        QTest::addRow("typed: %s", name) << folder << true;
    }
}

void tst_Conecta_Banco::pathsOfEveryKind()
{
    QFETCH(QString, folder);
    QFETCH(bool, typed);
    QVERIFY(QDir(m_catalogue->Folder()).mkdir(folder));
    const QString path = m_catalogue->Folder() + u'/' + folder + u"/Melodario.mdb"_qs;
    QVERIFY(QFile::copy(m_catalogue->Path(), path));
    m_catalogue->AddTheme(u"no outro"_qs);
    QVERIFY(Configure(typed ? u"/nenhum.mdb"_qs : path));
    m_dialogs->answer = path;
    Funcoes::Conecta_Banco();
    QCOMPARE(m_dialogs->boxes.size(), typed ? 1 : 0);
    QVERIFY(Funcoes::Conexao.Execute(u"SELECT * FROM TEMA"_qs).Eof());

    Funcoes::Desconecta_Banco();
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(m_dialogs->boxes.size(), typed ? 1 : 0);
}

void tst_Conecta_Banco::closingTheConnection()
{
    QVERIFY(Configure(m_catalogue->Path()));
    Funcoes::Conecta_Banco();
    Funcoes::Desconecta_Banco();
    QVERIFY(!Funcoes::Conexao.IsOpen());
    try {
        Funcoes::Conexao.Execute(u"SELECT * FROM TOM"_qs);
        QFAIL("the connection is still open");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.Number(), int(RuntimeError::ObjectClosed));
    }
    QCOMPARE(QDir(m_catalogue->Folder()).entryList(QDir::Files), {u"Melodario.mdb"_qs});
}

QTEST_GUILESS_MAIN(tst_Conecta_Banco)
#include "tst_conecta_banco.moc"
