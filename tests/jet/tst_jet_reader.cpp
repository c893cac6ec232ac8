#include "CatalogoAntigo.h"

#include "jet/JetConversion.h"
#include "jet/JetReader.h"
#include "runtime/RuntimeError.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct Failure
{
    QString words;
    QString description;
};

/// @return what reading the sample's list of tables fails with
Failure FailureOfReading(int patience = 30000)
{
    const std::vector<Table> none;
    JetReader reader(CatalogoAntigo::Caminho(), none);
    reader.SetPatience(patience);
    try {
        reader.Read({});
        return {};
    } catch (const RuntimeError& error) {
        return {error.WhatFailed(), error.Description()};
    }
}

} // namespace

/// What the program does when the process that reads for it misbehaves: something else lies in the
/// place of melodario-jet, beside this test.
class tst_jet_reader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theTablesOfTheSample();
    void theRealReaderIsRunWithoutItsSettings();
    void aReaderThatMisbehavesIsAFailure_data();
    void aReaderThatMisbehavesIsAFailure();
    void aReaderThatSaysNothingIsEnded();
    void aMissingReaderIsNamed();
    void aMisbehavingReaderLeavesNoCatalogue();

private:
    static void PutScript(const QByteArray& script)
    {
        QFile::remove(JetReader::Program());
        QFile file(JetReader::Program());
        if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + script) < 0)
            qFatal("not written");
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

void tst_jet_reader::init()
{
    QFile::remove(JetReader::Program());
    QVERIFY(QFile::copy(QStringLiteral(MELODARIO_JET), JetReader::Program()));
}

void tst_jet_reader::cleanup()
{
    QFile::remove(JetReader::Program());
}

void tst_jet_reader::theTablesOfTheSample()
{
    QList<JetTable> tables;
    JetReader::Listener listener;
    listener.tables = [&tables](const QList<JetTable>& found) { tables = found; };
    const std::vector<Table> none;
    JetReader(CatalogoAntigo::Caminho(), none).Read(listener);
    QCOMPARE(tables.size(), 8);
    const auto songs = std::find_if(tables.begin(), tables.end(),
                                    [](const JetTable& t) { return t.name == u"MUSICA"; });
    QVERIFY(songs != tables.end());
    QCOMPARE(songs->rows, 59);
    QCOMPARE(songs->lastNumber, 75);
    QCOMPARE(songs->counted, u"ID"_qs);
    QCOMPARE(songs->columns.size(), 10);
}

void tst_jet_reader::theRealReaderIsRunWithoutItsSettings()
{
    // The library would talk on the standard output.
    qputenv("MDBOPTS", "debug_all");
    const Failure failure = FailureOfReading();
    qunsetenv("MDBOPTS");
    QCOMPARE(failure.words, QString());
}

void tst_jet_reader::aReaderThatMisbehavesIsAFailure_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("words");
    const QString damaged = u"O catálogo antigo está danificado."_qs;
    const QString stopped =
        u"O catálogo antigo está danificado: a leitura dele parou de repente ou "
        "passou do limite de tempo ou de memória."_qs;
    const QByteArray hello = "printf 'H\\10\\0\\0\\0\\1\\0\\0\\0\\0\\0\\0\\0'\n";
    const QByteArray tables = hello + "printf 't\\0\\0\\0\\0'\n";
    QTest::newRow("crashes") << QByteArray("kill -SEGV $$\n") << stopped;
    QTest::newRow("is ended by a limit") << QByteArray(tables + "kill -XCPU $$\n") << stopped;
    QTest::newRow("says nothing") << QByteArray("exit 0\n") << stopped;
    QTest::newRow("ends with an error") << QByteArray("exit 2\n") << stopped;
    QTest::newRow("stops before the end") << tables << stopped;
    QTest::newRow("says all and ends with an error")
        << QByteArray(tables + "printf 'D\\0\\0\\0\\0'\nexit 1\n") << stopped;
    QTest::newRow("says half a frame more")
        << QByteArray(tables + "printf 'D\\0\\0\\0\\0D\\0'\n") << stopped;
    QTest::newRow("says more after the end")
        << QByteArray(tables + "printf 'D\\0\\0\\0\\0D\\0\\0\\0\\0'\n") << damaged;
    QTest::newRow("begins with the end") << QByteArray("printf 'D\\0\\0\\0\\0'\n") << damaged;
    QTest::newRow("says hello twice") << QByteArray(hello + hello) << damaged;
    QTest::newRow("sends rows that nobody asked for")
        << QByteArray(tables + "printf 'B\\4\\0\\0\\0\\0\\0\\0\\0'\n") << damaged;
    QTest::newRow("sends a row between tables")
        << QByteArray(tables + "printf 'R\\0\\0\\0\\0'\n") << damaged;
    QTest::newRow("invents frames") << QByteArray("printf '?\\0\\0\\0\\0'\n") << damaged;
    QTest::newRow("announces an endless frame")
        << QByteArray("printf 'H\\377\\377\\377\\377'\n") << damaged;
    QTest::newRow("a name that is longer than its frame")
        << QByteArray(hello + "printf 'T\\4\\0\\0\\0\\377\\0\\0\\0'\n") << damaged;
    QTest::newRow("a frame that goes on")
        << QByteArray("printf 'H\\11\\0\\0\\0\\1\\0\\0\\0\\0\\0\\0\\0x'\n") << damaged;
    QTest::newRow("more than the file can hold")
        << QByteArray(hello + "cat /dev/zero\n") << damaged;
    QTest::newRow("another version")
        << QByteArray("printf 'H\\10\\0\\0\\0\\2\\0\\0\\0\\0\\0\\0\\0'\n")
        << u"O programa melodario-jet é de outra versão do Melodario."_qs;
    QTest::newRow("cannot read the file")
        << QByteArray("printf 'F\\6\\0\\0\\0\\1\\1\\0\\0\\0x'\nexit 1\n")
        << u"O catálogo antigo não pode ser lido."_qs;
    QTest::newRow("misses a table")
        << QByteArray("printf 'F\\6\\0\\0\\0\\2\\1\\0\\0\\0x'\nexit 1\n")
        << u"Falta no catálogo antigo a tabela x."_qs;
}

void tst_jet_reader::aReaderThatMisbehavesIsAFailure()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, words);
    PutScript(script);
    QCOMPARE(FailureOfReading().words, words);
}

void tst_jet_reader::aReaderThatSaysNothingIsEnded()
{
    const QTemporaryDir folder;
    const QString number = folder.filePath(u"processo"_qs);
    PutScript("echo $$ >'" + number.toUtf8() + "'\nexec sleep 1000\n");
    QCOMPARE(FailureOfReading(300).words,
             u"O catálogo antigo está danificado: a leitura dele parou."_qs);
    QFile file(number);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray process = file.readAll().trimmed();
    QVERIFY(!process.isEmpty());
    QVERIFY(!QDir(u"/proc/"_qs + QString::fromLatin1(process)).exists());
}

void tst_jet_reader::aMissingReaderIsNamed()
{
    QFile::remove(JetReader::Program());
    QCOMPARE(FailureOfReading().words,
             u"Falta o programa melodario-jet, que lê catálogos no formato antigo e vem com o "
             "Melodario para Linux."_qs);
}

void tst_jet_reader::aMisbehavingReaderLeavesNoCatalogue()
{
    // Sound until the rows of the first table are half through.
    PutScript("'" MELODARIO_JET "' \"$@\" | head -c 200000\nexit 0\n");
    const QTemporaryDir folder;
    QVERIFY_THROWS_EXCEPTION(RuntimeError,
                             JetConversion::Convert(CatalogoAntigo::Caminho(),
                                                    folder.filePath(u"novo.mdb"_qs), false, {}));
    QVERIFY(QDir(folder.path()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_jet_reader)
#include "tst_jet_reader.moc"
