#include "runtime/RuntimeError.h"
#include "store/Arquivo.h"
#include "store/Failed.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace {

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

bool Put(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// @return the number of the error that the action ends with; 0 when it runs to its end.
int ErrorOf(const std::function<void()>& action)
{
    try {
        action();
        return 0;
    } catch (const RuntimeError& error) {
        return error.WhatFailed().isEmpty() ? -1 : error.Number();
    }
}

} // namespace

/// Runs in a folder of its own, because config.ini lies beside the executable.
class tst_Arquivo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { QFile::remove(Funcoes::Caminho_Configuracao()); }

    void theProgramFolderHasNoSeparatorAtItsEnd();
    void aFileExistsButNotAFolderNorTheEmptyPath();
    void creatingMakesAnEmptyFile();
    void creatingReplacesOnlyWhenAllowed();
    void writingCreatesAndReplacesInTheCodePage();
    void aFileInPiecesIsThereWhenItIsWhole();
    void anUnfinishedFileLeavesTheOldOneAndNothingElse();
    void writingWhereNothingCanBeWrittenFails_data();
    void writingWhereNothingCanBeWrittenFails();
    void readingAnIniFile();
    void aLongValueIsCutAt1023Characters();
    void aCutNeverHalvesACharacter();
    void readingLetsPendingEventsRun();
    void pendingEventsRunBeforeTheFileIsRead();
    void writingAnIniFileKeepsTheOtherLines();
    void anIniFileThatIsAFolderIsNotReplaced();
    void theConfigurationLiesInTheProgramFolder();
    void noConfigurationFileGivesAnEmptyText();
    void readingTheConfigurationLetsPendingEventsRun_data();
    void readingTheConfigurationLetsPendingEventsRun();
    void aConfigurationThatIsThereButCannotBeReadFails();
    void pathsOfEveryKind_data();
    void pathsOfEveryKind();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QStringList Files() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
};

void tst_Arquivo::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(!QFileInfo::exists(Funcoes::Caminho_Configuracao()));
}

void tst_Arquivo::theProgramFolderHasNoSeparatorAtItsEnd()
{
    QCOMPARE(QDir::fromNativeSeparators(Funcoes::Pasta_Programa()),
             QCoreApplication::applicationDirPath());
    QVERIFY(!Funcoes::Pasta_Programa().endsWith(QDir::separator()));
    QCOMPARE(Funcoes::Caminho_Configuracao(),
             QString(Funcoes::Pasta_Programa() + QDir::separator() + u"config.ini"_qs));
}

void tst_Arquivo::aFileExistsButNotAFolderNorTheEmptyPath()
{
    QVERIFY(!Funcoes::Existe_Arquivo(Path(u"a"_qs)));
    QVERIFY(Put(Path(u"a"_qs), QByteArray()));
    QVERIFY(Funcoes::Existe_Arquivo(Path(u"a"_qs)));
    QVERIFY(!Funcoes::Existe_Arquivo(m_folder->path()));
    QVERIFY(!Funcoes::Existe_Arquivo(QString()));
}

void tst_Arquivo::creatingMakesAnEmptyFile()
{
    Funcoes::Cria_Arquivo(Path(u"novo"_qs), false);
    QCOMPARE(Content(Path(u"novo"_qs)), QByteArray());
    Funcoes::Cria_Arquivo(Path(u"novo2"_qs), true);
    QCOMPARE(Content(Path(u"novo2"_qs)), QByteArray());
}

void tst_Arquivo::creatingReplacesOnlyWhenAllowed()
{
    const QString path = Path(u"velho"_qs);
    QVERIFY(Put(path, "texto"));
    QCOMPARE(ErrorOf([&] { Funcoes::Cria_Arquivo(path, false); }), int(RuntimeError::FileFailure));
    QCOMPARE(Content(path), QByteArray("texto"));
    Funcoes::Cria_Arquivo(path, true);
    QCOMPARE(Content(path), QByteArray());
}

void tst_Arquivo::writingCreatesAndReplacesInTheCodePage()
{
    const QString path = Path(u"texto"_qs);
    Funcoes::Grava_Arquivo(u"Canção €\r\n日"_qs, path);
    QCOMPARE(Content(path), QByteArray("Can\xE7\xE3o \x80\r\n?"));
    Funcoes::Grava_Arquivo(u"b"_qs, path);
    QCOMPARE(Content(path), QByteArray("b"));
}

void tst_Arquivo::aFileInPiecesIsThereWhenItIsWhole()
{
    const QString path = Path(u"texto"_qs);
    const QByteArray large(200'000, 'x');
    Funcoes::Gravacao_Arquivo writing(path);
    QCOMPARE(Files(), QStringList());
    for (const QByteArray& piece : {QByteArray("a"), large, QByteArray(), QByteArray("\xE7")}) {
        writing.Acrescenta(piece);
        QVERIFY(!QFile::exists(path));
    }
    writing.Conclui();
    QCOMPARE(Content(path), "a" + large + "\xE7");
    QCOMPARE(Files(), QStringList({u"texto"_qs}));
}

void tst_Arquivo::anUnfinishedFileLeavesTheOldOneAndNothingElse()
{
    const QString path = Path(u"texto"_qs);
    QVERIFY(Put(path, "velho"));
    {
        Funcoes::Gravacao_Arquivo writing(path);
        writing.Acrescenta(QByteArray(200'000, 'x'));
        QCOMPARE(Content(path), QByteArray("velho"));
    }
    QCOMPARE(Content(path), QByteArray("velho"));
    QCOMPARE(Files(), QStringList({u"texto"_qs}));
}

void tst_Arquivo::writingWhereNothingCanBeWrittenFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder is there") << u"pasta"_qs;
    QTest::newRow("no such folder") << u"nenhuma/x.ini"_qs;
    QTest::newRow("a file where a folder should be") << u"arquivo/x.ini"_qs;
}

void tst_Arquivo::writingWhereNothingCanBeWrittenFails()
{
    QFETCH(QString, name);
    QVERIFY(QDir(m_folder->path()).mkdir(u"pasta"_qs));
    QVERIFY(Put(Path(u"arquivo"_qs), "x"));
    const QString path = Path(name);
    const int failure = RuntimeError::FileFailure;
    QCOMPARE(ErrorOf([&] { Funcoes::Cria_Arquivo(path, true); }), failure);
    QCOMPARE(ErrorOf([&] { Funcoes::Cria_Arquivo(path, false); }), failure);
    QCOMPARE(ErrorOf([&] { Funcoes::Grava_Arquivo(u"x"_qs, path); }), failure);
    QCOMPARE(ErrorOf([&] { Funcoes::Grava_Ini(u"S"_qs, u"k"_qs, path, u"v"_qs); }), failure);
    QCOMPARE(Content(Path(u"arquivo"_qs)), QByteArray("x"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList({u"arquivo"_qs, u"pasta"_qs}));
}

void tst_Arquivo::readingAnIniFile()
{
    const QString path = Path(u"a.ini"_qs);
    QCOMPARE(Funcoes::Le_Ini(u"S"_qs, u"k"_qs, path), QString());
    QVERIFY(Put(path, "[s]\nK = v "));
    QCOMPARE(Funcoes::Le_Ini(u"S"_qs, u"k"_qs, path), u"v"_qs);
    QCOMPARE(Funcoes::Le_Ini(u"S"_qs, u"x"_qs, path), QString());
    QCOMPARE(Funcoes::Le_Ini(u"X"_qs, u"k"_qs, path), QString());
}

void tst_Arquivo::aLongValueIsCutAt1023Characters()
{
    const QString path = Path(u"a.ini"_qs);
    const QByteArray longest(1023, 'x');
    QVERIFY(Put(path, "[S]\nk=" + longest));
    QCOMPARE(Funcoes::Le_Ini(u"S"_qs, u"k"_qs, path), QString::fromLatin1(longest));
    QVERIFY(Put(path, "[S]\nk=" + longest + "y"));
    QCOMPARE(Funcoes::Le_Ini(u"S"_qs, u"k"_qs, path), QString::fromLatin1(longest));
}

void tst_Arquivo::aCutNeverHalvesACharacter()
{
    const QString path = Path(u"a.ini"_qs);
    const QString value = QString(1022, u'x') + u"🎸"_qs;
    Funcoes::Grava_Ini(u"S"_qs, u"k"_qs, path, value);
    QCOMPARE(Funcoes::Le_Ini(u"S"_qs, u"k"_qs, path), QString(1022, u'x'));
}

void tst_Arquivo::readingLetsPendingEventsRun()
{
    bool ran = false;
    QMetaObject::invokeMethod(
        this, [&] { ran = true; }, Qt::QueuedConnection);
    QVERIFY(!ran);
    Funcoes::Le_Ini(u"S"_qs, u"k"_qs, Path(u"nenhum.ini"_qs));
    QVERIFY(ran);
}

void tst_Arquivo::pendingEventsRunBeforeTheFileIsRead()
{
    const QString path = Path(u"a.ini"_qs);
    for (const QString& file : {path, Funcoes::Caminho_Configuracao()}) {
        QVERIFY(Put(file, "[S]\r\nk=antes"));
        QMetaObject::invokeMethod(
            this, [file] { Put(file, "[S]\r\nk=depois"); }, Qt::QueuedConnection);
        const QString value = file == path ? Funcoes::Le_Ini(u"S"_qs, u"k"_qs, file)
                                           : Funcoes::Le_Configuracao(u"S"_qs, u"k"_qs);
        QCOMPARE(value, u"depois"_qs);
    }
}

void tst_Arquivo::writingAnIniFileKeepsTheOtherLines()
{
    const QString path = Path(u"a.ini"_qs);
    QVERIFY(Put(path, "; nota\r\n[S]\r\nk=1\r\nz=2\r\n"));
    Funcoes::Grava_Ini(u"S"_qs, u"k"_qs, path, u"ção"_qs);
    QCOMPARE(Content(path), QByteArray("; nota\r\n[S]\r\nk=\xE7\xE3o\r\nz=2\r\n"));
}

void tst_Arquivo::anIniFileThatIsAFolderIsNotReplaced()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"a.ini"_qs));
    QCOMPARE(ErrorOf([&] { Funcoes::Grava_Ini(u"S"_qs, u"k"_qs, Path(u"a.ini"_qs), u"v"_qs); }),
             int(RuntimeError::FileFailure));
    QVERIFY(QFileInfo(Path(u"a.ini"_qs)).isDir());
}

void tst_Arquivo::theConfigurationLiesInTheProgramFolder()
{
    QVERIFY(Put(Funcoes::Caminho_Configuracao(), "[BANCO]\r\nEndereco=/x/y.mdb"));
    QCOMPARE(Funcoes::Le_Configuracao(u"BANCO"_qs, u"Endereco"_qs), u"/x/y.mdb"_qs);
    QCOMPARE(Funcoes::Le_Configuracao(u"BANCO"_qs, u"Outra"_qs), QString());
}

void tst_Arquivo::noConfigurationFileGivesAnEmptyText()
{
    QCOMPARE(Funcoes::Le_Configuracao(u"BANCO"_qs, u"Endereco"_qs), QString());
    QVERIFY(!QFileInfo::exists(Funcoes::Caminho_Configuracao()));
}

void tst_Arquivo::readingTheConfigurationLetsPendingEventsRun_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("a file to read") << true;
    QTest::newRow("none: nothing is read") << false;
}

void tst_Arquivo::readingTheConfigurationLetsPendingEventsRun()
{
    QFETCH(bool, exists);
    if (exists)
        QVERIFY(Put(Funcoes::Caminho_Configuracao(), "[BANCO]\r\nEndereco=/x/y.mdb"));
    bool ran = false;
    QMetaObject::invokeMethod(
        this, [&] { ran = true; }, Qt::QueuedConnection);
    Funcoes::Le_Configuracao(u"BANCO"_qs, u"Endereco"_qs);
    QCOMPARE(ran, exists);
    QCoreApplication::processEvents();
}

void tst_Arquivo::aConfigurationThatIsThereButCannotBeReadFails()
{
    QVERIFY(QDir().mkdir(Funcoes::Caminho_Configuracao()));
    const Failed failed([] { Funcoes::Le_Configuracao(u"BANCO"_qs, u"Endereco"_qs); });
    QVERIFY(QDir().rmdir(Funcoes::Caminho_Configuracao()));
    QCOMPARE(failed.number, int(RuntimeError::FileFailure));
    QVERIFY2(failed.whatFailed.startsWith(u"Não foi possível ler o arquivo"_qs),
             qPrintable(failed.whatFailed));
    QCOMPARE(failed.description, u"é uma pasta"_qs);
}

void tst_Arquivo::pathsOfEveryKind_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << u"minhas músicas.ini"_qs;
    QTest::newRow("semicolon") << u"a;b.ini"_qs;
    QTest::newRow("beyond the code page") << u"歌🎸.ini"_qs;
}

void tst_Arquivo::pathsOfEveryKind()
{
    QFETCH(QString, name);
    const QString path = Path(name);
    Funcoes::Grava_Ini(u"BANCO"_qs, u"Endereco"_qs, path, path);
    QVERIFY(Funcoes::Existe_Arquivo(path));
    QCOMPARE(Funcoes::Le_Ini(u"BANCO"_qs, u"Endereco"_qs, path), path);
}

QTEST_GUILESS_MAIN(tst_Arquivo)
#include "tst_arquivo.moc"
