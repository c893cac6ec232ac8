#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The build's last step: a catalogue comes beside the program only where there is none.

namespace {

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

bool Write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

class TestEntrega : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(Write(From(), "delivered"));
    }

    void ProgramWithoutCatalogueGetsOne()
    {
        Deliver();
        QCOMPARE(Content(To()), QByteArray("delivered"));
        QCOMPARE(QDir(m_folder->filePath(u"bin"_qs)).entryList(QDir::Files),
                 QStringList({u"Melodario.mdb"_qs}));
    }

    void CatalogueThatIsThereStays_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("in use") << QByteArray("my songs");
        QTest::newRow("empty, so that nobody believes it can be overwritten") << QByteArray();
    }
    void CatalogueThatIsThereStays()
    {
        QFETCH(QByteArray, content);
        QVERIFY(QDir(m_folder->path()).mkdir(u"bin"_qs));
        QVERIFY(Write(To(), content));
        const QDateTime before = QFileInfo(To()).lastModified();
        Deliver();
        Deliver();
        QCOMPARE(Content(To()), content);
        QCOMPARE(QFileInfo(To()).lastModified(), before);
    }

    void NewerDeliveryDoesNotReplaceAnOlderOne()
    {
        Deliver();
        QVERIFY(Write(From(), "delivered later"));
        Deliver();
        QCOMPARE(Content(To()), QByteArray("delivered"));
    }

private:
    QString From() const { return m_folder->filePath(u"delivered.mdb"_qs); }
    QString To() const { return m_folder->filePath(u"bin/Melodario.mdb"_qs); }

    void Deliver() const
    {
        QCOMPARE(
            QProcess::execute(QStringLiteral(MELODARIO_CMAKE),
                              {u"-DFROM="_qs + From(), u"-DTO="_qs + To(), u"-P"_qs,
                               QStringLiteral(MELODARIO_SOURCE_DIR "/cmake/DeliverOnce.cmake")}),
            0);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(TestEntrega)
#include "tst_entrega.moc"
