#include "runtime/FileTrouble.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_filetrouble : public QObject
{
    Q_OBJECT

private slots:
    void ofANumber_data();
    void ofANumber();
    void everyNumberHasWords();
    void ofAFile();
};

void tst_filetrouble::ofANumber_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("words");

    QTest::newRow("no right") << EACCES << u"falta a permissão"_qs;
    QTest::newRow("no right to do that to anything") << EPERM << u"falta a permissão"_qs;
    QTest::newRow("folder") << EISDIR << u"é uma pasta"_qs;
    QTest::newRow("missing") << ENOENT << u"o arquivo não existe"_qs;
    QTest::newRow("file in the place of a folder") << ENOTDIR << u"o arquivo não existe"_qs;
    QTest::newRow("there") << EEXIST << u"já existe um arquivo com esse nome"_qs;
    QTest::newRow("full") << ENOSPC << u"o disco está cheio"_qs;
    QTest::newRow("too large") << EFBIG << u"o disco não aceita um arquivo tão grande"_qs;
    QTest::newRow("to read only") << EROFS << u"no disco só se pode ler"_qs;
    QTest::newRow("disk fails") << EIO << u"o disco falhou"_qs;
    QTest::newRow("long name") << ENAMETOOLONG << u"o nome é longo demais"_qs;
    QTest::newRow("another disk") << EXDEV << u"o destino fica em outro disco"_qs;
    QTest::newRow("open files") << EMFILE << u"o sistema não tem mais recursos"_qs;
    QTest::newRow("memory") << ENOMEM << u"falta memória"_qs;
    QTest::newRow("any other") << ELOOP << u"o sistema não o permite"_qs;
}

void tst_filetrouble::ofANumber()
{
    QFETCH(int, number);
    QFETCH(QString, words);
    QCOMPARE(FileTrouble(std::error_code(number, std::generic_category())), words);
#ifndef Q_OS_WIN // whose own numbers are others
    QCOMPARE(FileTrouble(std::error_code(number, std::system_category())), words);
#endif
}

void tst_filetrouble::everyNumberHasWords()
{
    for (int number = 1; number < 200; ++number) {
        const std::error_code failure(number, std::system_category());
        QVERIFY(!FileTrouble(failure).isEmpty());
        QVERIFY(FileTrouble(failure) != QString::fromStdString(failure.message()));
    }
}

void tst_filetrouble::ofAFile()
{
    const QTemporaryDir folder;
    QFile missing(folder.filePath(u"nada"_qs));
    QVERIFY(!missing.open(QIODevice::ReadOnly));
    QCOMPARE(FileTrouble(missing), u"o arquivo não existe"_qs);

    // Whatever his rights, nobody can look up such a name.
    QFile lengthy(folder.filePath(QString(300, u'a')));
    QVERIFY(!lengthy.open(QIODevice::WriteOnly));
#ifndef Q_OS_WIN // which tells it as a missing one
    QCOMPARE(FileTrouble(lengthy), u"o nome é longo demais"_qs);
#endif

    QFile place(folder.path());
    QVERIFY(!place.open(QIODevice::WriteOnly));
    QCOMPARE(FileTrouble(place), u"é uma pasta"_qs);

#ifndef Q_OS_WIN // which has no such files
    QFile full(u"/dev/full"_qs);
    QVERIFY(full.open(QIODevice::WriteOnly));
    full.write("x");
    QVERIFY(!full.flush());
    QCOMPARE(FileTrouble(full), u"o disco está cheio"_qs);

    QFile mute(u"/proc/self/mem"_qs);
    QVERIFY(mute.open(QIODevice::ReadOnly));
    QCOMPARE(mute.read(1), QByteArray());
    QCOMPARE(FileTrouble(mute), u"o disco não entrega o conteúdo"_qs);
#endif
}

QTEST_GUILESS_MAIN(tst_filetrouble)
#include "tst_filetrouble.moc"
