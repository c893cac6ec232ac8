#include "tools/ConversionReport.h"
#include "tools/Interruption.h"
#include "tools/OutputFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <functional>
#include <memory>

/// Files are written all together or not at all, and whoever is interrupted leaves nothing behind.
class tst_output : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void filesGetTheirPlaces_data();
    void filesGetTheirPlaces();
    void newFolderIsOpenToWhomOthersAre();
    void interruptionLeavesAllAsItWas_data();
    void interruptionLeavesAllAsItWas();
    void wishIsNotedUntilItIsAskedFor_data();
    void wishIsNotedUntilItIsAskedFor();
    void failureLeavesAllAsItWas();
    void linkInAFolderIsWrittenThrough();
    void aWishWhileFilesGetTheirPlacesComesTooLate();
    void leftDraftsOfOthersAreNoHindrance();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    void Put(const QString& name, const QByteArray& content) const;
    QStringList All() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

QList<OutputFile> Files(const QString& folder)
{
    return {
        {folder + u"a.cho", "new a"}, {folder + u"b.cho", "new b"}, {folder + u"c.cho", "new c"}};
}

/// @param progress  is told of each file
ConversionReport Report(const std::function<void(qsizetype done)>& progress = {})
{
    return ConversionReport({[](const QString&) {},
                             [progress](qsizetype done, qsizetype, const QString&) {
                                 if (progress)
                                     progress(done);
                             }},
                            false);
}

} // namespace

void tst_output::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_output::Put(const QString& name, const QByteArray& content) const
{
    QDir().mkpath(QFileInfo(Path(name)).path());
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("not written");
}

/// All that is there, also what is hidden.
QStringList tst_output::All() const
{
    QStringList all;
    QDirIterator entries(m_folder->path(),
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        all += QDir(m_folder->path()).relativeFilePath(entries.next());
    all.sort();
    return all;
}

void tst_output::filesGetTheirPlaces_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QStringList>("all");
    QTest::newRow("a new folder") << u"nova/"_qs
                                  << QStringList{u"nova"_qs,       u"nova/a.cho"_qs,
                                                 u"nova/b.cho"_qs, u"nova/c.cho"_qs,
                                                 u"velha"_qs,      u"velha/b.cho"_qs};
    QTest::newRow("a new folder in new folders")
        << u"x/y//nova/"_qs << QStringList{u"velha"_qs,
                                           u"velha/b.cho"_qs,
                                           u"x"_qs,
                                           u"x/y"_qs,
                                           u"x/y/nova"_qs,
                                           u"x/y/nova/a.cho"_qs,
                                           u"x/y/nova/b.cho"_qs,
                                           u"x/y/nova/c.cho"_qs};
    QTest::newRow("a folder that is there, one file of it replaced")
        << u"velha/"_qs
        << QStringList{u"velha"_qs, u"velha/a.cho"_qs, u"velha/b.cho"_qs, u"velha/c.cho"_qs};
}

void tst_output::filesGetTheirPlaces()
{
    QFETCH(QString, folder);
    QFETCH(QStringList, all);
    Put(u"velha/b.cho"_qs, "old b");
    QList<qsizetype> told;
    const QString failure = WriteFiles(Files(Path(folder)), Path(folder),
                                       Report([&told](qsizetype done) { told.append(done); }));
    QCOMPARE(failure, QString());
    QCOMPARE(All(), all);
    QCOMPARE(Content(Path(folder + u"a.cho")), QByteArray("new a"));
    QCOMPARE(Content(Path(folder + u"b.cho")), QByteArray("new b"));
    QCOMPARE(told, QList<qsizetype>({1, 2, 3}));
}

void tst_output::newFolderIsOpenToWhomOthersAre()
{
    QVERIFY(QDir().mkdir(Path(u"outra"_qs)));
    QCOMPARE(WriteFiles(Files(Path(u"nova/"_qs)), Path(u"nova/"_qs), Report()), QString());
    QCOMPARE(QFile::permissions(Path(u"nova"_qs)), QFile::permissions(Path(u"outra"_qs)));
}

void tst_output::interruptionLeavesAllAsItWas_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("file");
    for (const int file : {1, 2, 3}) {
        QTest::addRow("at file %d of a new folder", file) << u"nova/"_qs << file;
        QTest::addRow("at file %d of a folder in new ones", file) << u"x/y/nova/"_qs << file;
        QTest::addRow("at file %d of a folder that is there", file) << u"velha/"_qs << file;
    }
}

void tst_output::interruptionLeavesAllAsItWas()
{
    QFETCH(QString, folder);
    QFETCH(int, file);
    Put(u"velha/b.cho"_qs, "old b");
    const auto interrupt = [file](qsizetype done) {
        if (done == file)
            throw Interrupted();
    };
    QVERIFY_THROWS_EXCEPTION(Interrupted,
                             WriteFiles(Files(Path(folder)), Path(folder), Report(interrupt)));
    QCOMPARE(All(), QStringList({u"velha"_qs, u"velha/b.cho"_qs}));
    QCOMPARE(Content(Path(u"velha/b.cho"_qs)), QByteArray("old b"));
}

void tst_output::wishIsNotedUntilItIsAskedFor_data()
{
    QTest::addColumn<int>("wish");
    QTest::newRow("Ctrl+C") << SIGINT;
    QTest::newRow("the end of the system") << SIGTERM;
}

/// A single file, too, is there whole or not at all.
void tst_output::wishIsNotedUntilItIsAskedFor()
{
    QFETCH(int, wish);
    std::signal(wish, SIG_DFL); // whoever started the tests may have it ignored
    Interruption::Watch();
    Interruption::Check();
    QCOMPARE(std::raise(wish), 0);
    QVERIFY_THROWS_EXCEPTION(Interrupted, Interruption::Check());
    Put(u"meu.mld"_qs, "mine");
    for (const QString& name : {u"meu.mld"_qs, u"novo.mld"_qs})
        QVERIFY_THROWS_EXCEPTION(Interrupted, WriteFiles({{Path(name), "new"}}, {}, Report()));
    QCOMPARE(All(), QStringList{u"meu.mld"_qs});
    QCOMPARE(Content(Path(u"meu.mld"_qs)), QByteArray("mine"));
    Interruption::Watch(); // and nothing of it is left for the next
    Interruption::Check();
}

void tst_output::failureLeavesAllAsItWas()
{
    Put(u"velha/b.cho"_qs, "old b");
    // The last name is one that no system gives a file.
    const QString name(300, u'x');
    for (const QString& folder : {u"nova/"_qs, u"velha/"_qs}) {
        const QString path = Path(folder);
        QList<OutputFile> files = Files(path);
        files.append({path + name, "new"});
        const QString failure = WriteFiles(files, path, Report());
        QVERIFY2(failure.startsWith(path + name + u": não foi possível escrever: "),
                 qPrintable(failure));
        QCOMPARE(All(), QStringList({u"velha"_qs, u"velha/b.cho"_qs}));
        QCOMPARE(Content(Path(u"velha/b.cho"_qs)), QByteArray("old b"));
    }
}

void tst_output::linkInAFolderIsWrittenThrough()
{
    Put(u"longe/b.cho"_qs, "old b");
    QVERIFY(QDir().mkdir(Path(u"velha"_qs)));
    QVERIFY(QFile::link(Path(u"longe/b.cho"_qs), Path(u"velha/b.cho"_qs)));
    QCOMPARE(WriteFiles(Files(Path(u"velha/"_qs)), Path(u"velha/"_qs), Report()), QString());
    QVERIFY(QFileInfo(Path(u"velha/b.cho"_qs)).isSymLink());
    QCOMPARE(Content(Path(u"longe/b.cho"_qs)), QByteArray("new b"));
    QCOMPARE(All().size(), 6);
}

/// Some files may be in their places by then: the others follow, instead of the claim that nothing
/// was written.
void tst_output::aWishWhileFilesGetTheirPlacesComesTooLate()
{
    Put(u"velha/outro.txt"_qs, "other");
    Put(u"longe/b.cho"_qs, "old b");
    QVERIFY(QFile::link(Path(u"longe/b.cho"_qs), Path(u"velha/b.cho"_qs)));
    std::signal(SIGINT, SIG_DFL); // whoever started the tests may have it ignored
    Interruption::Watch();
    const QList<OutputFile> files = Files(Path(u"velha/"_qs));
    const auto wishAtTheEnd = [&files](qsizetype done) {
        if (done == files.size())
            QCOMPARE(std::raise(SIGINT), 0);
    };
    QCOMPARE(WriteFiles(files, Path(u"velha/"_qs), Report(wishAtTheEnd)), QString());
    QCOMPARE(Content(Path(u"velha/a.cho"_qs)), QByteArray("new a"));
    QCOMPARE(Content(Path(u"longe/b.cho"_qs)), QByteArray("new b"));
    QVERIFY_THROWS_EXCEPTION(Interrupted, Interruption::Check());
    Interruption::Watch(); // nothing of it is left for the next
}

/// A run that was ended by force could not clean up, and another may be at work.
void tst_output::leftDraftsOfOthersAreNoHindrance()
{
    Put(u".melodario-parcial-1/a.cho"_qs, "theirs");
    QCOMPARE(WriteFiles(Files(Path(u"nova/"_qs)), Path(u"nova/"_qs), Report()), QString());
    QCOMPARE(Content(Path(u"nova/a.cho"_qs)), QByteArray("new a"));
    QCOMPARE(Content(Path(u".melodario-parcial-1/a.cho"_qs)), QByteArray("theirs"));
}

QTEST_APPLESS_MAIN(tst_output)
#include "tst_output.moc"
