#include "runtime/RuntimeError.h"
#include "store/Arquivo.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// A disk that takes no more, for every user: the shell lets no process write a single byte. Only
/// where the system knows such limits.
class tst_Disco_Cheio : public QObject
{
    Q_OBJECT

private slots:
    void aFailedWriteKeepsTheOldContentAndLeavesNothingBehind_data();
    void aFailedWriteKeepsTheOldContentAndLeavesNothingBehind();
};

void tst_Disco_Cheio::aFailedWriteKeepsTheOldContentAndLeavesNothingBehind_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("in one piece") << u"--write"_qs;
    QTest::newRow("in several pieces") << u"--write-pieces"_qs;
}

void tst_Disco_Cheio::aFailedWriteKeepsTheOldContentAndLeavesNothingBehind()
{
    QFETCH(QString, how);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"texto"_qs);
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("velho") == 5);
    old.close();
    QProcess child;
    child.start(u"/bin/sh"_qs, {u"-c"_qs, uR"(trap '' XFSZ; ulimit -f 0; exec "$0" "$@")"_qs,
                                QCoreApplication::applicationFilePath(), how, path});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitCode(), int(RuntimeError::FileFailure));
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), QByteArray("velho"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList({u"texto"_qs}));
}

namespace {

void WritePieces(const QString& path)
{
    Funcoes::Gravacao_Arquivo writing(path);
    writing.Acrescenta("novo");
    writing.Acrescenta(QByteArray(200'000, 'x'));
    writing.Conclui();
}

int WriteAndTell(const QString& how, const QString& path)
{
    try {
        if (how == u"--write-pieces")
            WritePieces(path);
        else
            Funcoes::Grava_Arquivo(u"novo"_qs, path);
        return 0;
    } catch (const RuntimeError& error) {
        return error.WhatFailed().isEmpty() ? -1 : error.Number();
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1).startsWith(u"--write"_qs))
        return WriteAndTell(arguments.value(1), arguments.value(2));
    tst_Disco_Cheio test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_disco_cheio.moc"
