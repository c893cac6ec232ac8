#include "jet/CatalogueSwap.h"
#include "runtime/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

/// Files change places so that there is always a catalogue, and always the old one's bytes.
class tst_catalogue_swap : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void afterEachStepThereIsACatalogueAndTheOldOne();
    void whereADiskKnowsNoSecondNamesACopyIsKept();
    void theNewCatalogueHasTheOldOnesPermissions();
    void nothingIsEverReplacedByWhatIsKept();
    void namesUnderWhichTheOldOneIsKept_data();
    void namesUnderWhichTheOldOneIsKept();
    void aMissingDraftChangesNothing();
    void whatAnInterruptedWriterLeftKeepsTheNewOneOut_data();
    void whatAnInterruptedWriterLeftKeepsTheNewOneOut();
    void aLinkLeadsToTheRealFile();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QString Put(const QString& name, const QByteArray& content) const
    {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("not written");
        return file.fileName();
    }
    static QByteArray Content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
    }
    QStringList Files() const { return QDir(m_folder->path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_catalogue_swap::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_catalogue_swap::afterEachStepThereIsACatalogueAndTheOldOne()
{
    const QString path = Put(u"Melodario.mdb"_qs, "old");
    const QString draft = Put(u"Melodario.mdb.parcial"_qs, "new");
    const QString kept = CatalogueSwap::KeptPath(path);

    CatalogueSwap::KeepOld(path, kept);
    QCOMPARE(Content(path), QByteArray("old"));
    QCOMPARE(Content(kept), QByteArray("old"));

    CatalogueSwap::PutInPlace(draft, path);
    QCOMPARE(Content(path), QByteArray("new"));
    QCOMPARE(Content(kept), QByteArray("old"));
    QCOMPARE(Files(), (QStringList{u"Melodario (formato antigo).mdb"_qs, u"Melodario.mdb"_qs}));
}

void tst_catalogue_swap::whereADiskKnowsNoSecondNamesACopyIsKept()
{
    const QByteArray content = QByteArray("0123456789").repeated(400000);
    const QString path = Put(u"Melodario.mdb"_qs, content);
    CatalogueSwap::CopyOld(path, Path(u"cópia.mdb"_qs));
    QVERIFY(Content(path) == content);
    QVERIFY(Content(Path(u"cópia.mdb"_qs)) == content);
    QVERIFY_THROWS_EXCEPTION(RuntimeError,
                             CatalogueSwap::CopyOld(path, Path(u"nada/cópia.mdb"_qs)));
    QVERIFY_THROWS_EXCEPTION(RuntimeError,
                             CatalogueSwap::CopyOld(Path(u"nada.mdb"_qs), Path(u"outra.mdb"_qs)));
    QCOMPARE(Files(), (QStringList{u"Melodario.mdb"_qs, u"cópia.mdb"_qs}));
}

void tst_catalogue_swap::theNewCatalogueHasTheOldOnesPermissions()
{
    const QString path = Put(u"Melodario.mdb"_qs, "old");
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QVERIFY(QFile::setPermissions(path, permissions));
    CatalogueSwap::PutInPlace(Put(u"x"_qs, "new"), path);
    QCOMPARE(QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser), permissions);
}

void tst_catalogue_swap::nothingIsEverReplacedByWhatIsKept()
{
    const QString path = Put(u"Melodario.mdb"_qs, "old");
    const QString taken = Put(u"meu.mdb"_qs, "mine");
    QVERIFY_THROWS_EXCEPTION(RuntimeError, CatalogueSwap::KeepOld(path, taken));
    QCOMPARE(Content(taken), QByteArray("mine"));
}

void tst_catalogue_swap::namesUnderWhichTheOldOneIsKept_data()
{
    QTest::addColumn<QStringList>("there");
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QString>("kept");
    QTest::newRow("the first") << QStringList() << u"Melodario.mdb"_qs
                               << u"Melodario (formato antigo).mdb"_qs;
    QTest::newRow("the next") << QStringList{u"Melodario (formato antigo).mdb"_qs}
                              << u"Melodario.mdb"_qs << u"Melodario (formato antigo 2).mdb"_qs;
    QTest::newRow("one after that")
        << QStringList{u"Melodario (formato antigo).mdb"_qs, u"Melodario (formato antigo 2).mdb"_qs}
        << u"Melodario.mdb"_qs << u"Melodario (formato antigo 3).mdb"_qs;
    QTest::newRow("points in the name")
        << QStringList() << u"coro.da.igreja.mdb"_qs << u"coro.da.igreja (formato antigo).mdb"_qs;
    QTest::newRow("no ending") << QStringList() << u"catálogo"_qs
                               << u"catálogo (formato antigo)"_qs;
}

void tst_catalogue_swap::namesUnderWhichTheOldOneIsKept()
{
    QFETCH(QStringList, there);
    QFETCH(QString, catalogue);
    QFETCH(QString, kept);
    for (const QString& name : there)
        Put(name, "x");
    QCOMPARE(CatalogueSwap::KeptPath(Put(catalogue, "old")), Path(kept));
}

void tst_catalogue_swap::aMissingDraftChangesNothing()
{
    const QString path = Put(u"Melodario.mdb"_qs, "old");
    QVERIFY_THROWS_EXCEPTION(RuntimeError, CatalogueSwap::PutInPlace(Path(u"nada"_qs), path));
    QCOMPARE(Content(path), QByteArray("old"));
}

void tst_catalogue_swap::whatAnInterruptedWriterLeftKeepsTheNewOneOut_data()
{
    QTest::addColumn<QString>("rest");
    QTest::newRow("a journal") << u"-journal"_qs;
    QTest::newRow("a log") << u"-wal"_qs;
    QTest::newRow("a log's index") << u"-shm"_qs;
}

void tst_catalogue_swap::whatAnInterruptedWriterLeftKeepsTheNewOneOut()
{
    QFETCH(QString, rest);
    const QString draft = Put(u"x"_qs, "new");
    const QString path = Path(u"Melodario.mdb"_qs);
    const QString left = Put(u"Melodario.mdb"_qs + rest, "left");
    QVERIFY_THROWS_EXCEPTION(RuntimeError, CatalogueSwap::PutBeside(draft, path));
    QVERIFY(!QFile::exists(path));
    Put(u"Melodario.mdb"_qs, "old");
    try {
        CatalogueSwap::PutInPlace(draft, path);
        QFAIL("the new one is in its place");
    } catch (const RuntimeError& error) {
        QVERIFY2(error.WhatFailed().contains(left), qPrintable(error.WhatFailed()));
    }
    QCOMPARE(Content(path), QByteArray("old"));
    QCOMPARE(Content(left), QByteArray("left"));
    QVERIFY(QFile::remove(left));
    CatalogueSwap::PutInPlace(draft, path);
    QCOMPARE(Content(path), QByteArray("new"));
}

void tst_catalogue_swap::aLinkLeadsToTheRealFile()
{
    const QString path = Put(u"Melodario.mdb"_qs, "old");
    const QString link = Path(u"atalho.mdb"_qs);
    QVERIFY(QFile::link(path, link));
    QCOMPARE(CatalogueSwap::RealPath(link), QFileInfo(path).canonicalFilePath());
    QCOMPARE(CatalogueSwap::RealPath(Path(u"nada.mdb"_qs)), Path(u"nada.mdb"_qs));
}

QTEST_GUILESS_MAIN(tst_catalogue_swap)
#include "tst_catalogue_swap.moc"
