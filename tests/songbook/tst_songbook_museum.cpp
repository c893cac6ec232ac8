#include "SongDump.h"
#include "songbook/ChordProReader.h"
#include "songbook/ChordProWriter.h"
#include "songbook/UsualScale.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

/// One file for each thing that is special in a format, named after it, with what must come out
/// beside it (".esperado").
class tst_songbook_museum : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Songbook::LoadUsualScale(); }
    void everyFileIsReadAsExpected_data() { Files(); }
    void everyFileIsReadAsExpected();
    void everySongSurvivesChordPro_data() { Files(); }
    void everySongSurvivesChordPro();

private:
    static void Files();
};

namespace {

const QString Museum = QStringLiteral(MELODARIO_SOURCE_DIR "/tests/songbook/museum");
const QString Expected = QStringLiteral(".esperado");

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

Songbook::Source Read(const QString& path)
{
    return Songbook::ReadSource(Content(path), QFileInfo(path).completeBaseName());
}

} // namespace

void tst_songbook_museum::Files()
{
    QTest::addColumn<QString>("path");
    int files = 0;
    const QDir museum(Museum);
    for (const QString& room : museum.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QDir folder(museum.filePath(room));
        for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
            if (name.endsWith(Expected))
                continue;
            const QString title = room + u'/' + name;
            QTest::newRow(qPrintable(title)) << folder.filePath(name);
            ++files;
        }
    }
    QVERIFY(files > 40); // else the museum was not found
}

void tst_songbook_museum::everyFileIsReadAsExpected()
{
    QFETCH(QString, path);
    const QStringList read = SongDump::Whole(Read(path)).split(u'\n');
    const QString expected = QString::fromUtf8(Content(path + Expected));
    QCOMPARE(read.join(u'\n'), expected);
}

void tst_songbook_museum::everySongSurvivesChordPro()
{
    QFETCH(QString, path);
    for (const ExchangeSong& song : Read(path).reading.songs) {
        const QString written = Songbook::WriteChordPro(song);
        const Songbook::Reading reading = Songbook::ReadChordPro(written, u"?"_qs);
        QCOMPARE(reading.songs.size(), 1);
        QCOMPARE(SongDump::Song(reading.songs.first()), SongDump::Song(song));
    }
}

QTEST_APPLESS_MAIN(tst_songbook_museum)
#include "tst_songbook_museum.moc"
