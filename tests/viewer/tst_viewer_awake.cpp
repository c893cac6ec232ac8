// The desktop is asked to keep the screen on while a viewer is open. A bus of the test's own, with
// a desktop on it that writes down what it is asked.

#include "ViewerBench.h"

#include <QDBusConnection>
#include <QProcess>

class Desktop : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    QStringList asked;

public slots:
    uint Inhibit(const QString& program, const QString& reason)
    {
        asked += u"on: "_qs + program + u", "_qs + reason;
        return 7 + uint(asked.size());
    }
    void UnInhibit(uint number) { asked += u"off: %1"_qs.arg(number); }
};

class tst_viewer_awake : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { bench = std::make_unique<ViewerBench>(); }
    void cleanup();
    void cleanupTestCase();

    void theScreenStaysOnWhileAViewerIsOpen();
    void severalViewersAskOnce();
    void aViewerClosedAtOnceTakesItBack();
    void aDesktopThatDoesNotListenIsNoError();

private:
    bool Offer() { return m_bus->registerService(u"org.freedesktop.ScreenSaver"_qs); }

    std::unique_ptr<ViewerBench> bench;
    Desktop desktop;
    QProcess daemon;
    std::optional<QDBusConnection> m_bus;
};

void tst_viewer_awake::initTestCase()
{
    daemon.start(QStringLiteral(DBUS_DAEMON),
                 {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs});
    QVERIFY(daemon.waitForReadyRead());
    const QString address = QString::fromUtf8(daemon.readLine()).trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    m_bus = QDBusConnection::connectToBus(address, u"desktop"_qs);
    QVERIFY(m_bus->isConnected());
    QVERIFY(m_bus->registerObject(u"/org/freedesktop/ScreenSaver"_qs, &desktop,
                                  QDBusConnection::ExportAllSlots));
    QVERIFY(Offer());
}

void tst_viewer_awake::cleanup()
{
    bench.reset();
    QCoreApplication::processEvents();
    desktop.asked.clear();
}

void tst_viewer_awake::cleanupTestCase()
{
    m_bus.reset();
    daemon.terminate();
    daemon.waitForFinished();
}

void tst_viewer_awake::theScreenStaysOnWhileAViewerIsOpen()
{
    const auto viewer = bench->Open(TestSong{});
    QTRY_COMPARE(desktop.asked, QStringList{u"on: Melodario, Uma música está aberta"_qs});
    Click(viewer, "cmdFechar");
    QVERIFY(Gone(viewer));
    QTRY_COMPARE(desktop.asked.size(), 2);
    QCOMPARE(desktop.asked.last(), u"off: 8"_qs);
}

void tst_viewer_awake::severalViewersAskOnce()
{
    const auto first = bench->Open(TestSong{});
    const auto second = bench->Open(TestSong{});
    QTRY_COMPARE(desktop.asked.size(), 1);
    Click(first, "cmdFechar");
    QVERIFY(Gone(first));
    QTest::qWait(50);
    QCOMPARE(desktop.asked.size(), 1);
    Click(second, "cmdFechar");
    QVERIFY(Gone(second));
    QTRY_COMPARE(desktop.asked.size(), 2);
    QVERIFY(desktop.asked.last().startsWith(u"off"));
}

void tst_viewer_awake::aViewerClosedAtOnceTakesItBack()
{
    const auto viewer = bench->Open(TestSong{});
    Click(viewer, "cmdFechar");
    QVERIFY(Gone(viewer));
    QTRY_COMPARE(desktop.asked.size(), 2);
    QCOMPARE(desktop.asked.last(), u"off: 8"_qs);
}

void tst_viewer_awake::aDesktopThatDoesNotListenIsNoError()
{
    QVERIFY(m_bus->unregisterService(u"org.freedesktop.ScreenSaver"_qs));
    const auto viewer = bench->Open(TestSong{});
    QTest::qWait(50);
    QVERIFY(viewer->isVisible());
    Click(viewer, "cmdFechar");
    QVERIFY(Gone(viewer));
    QTest::qWait(50);
    QCOMPARE(desktop.asked, QStringList());
    QVERIFY(Offer());
}

QTEST_MAIN(tst_viewer_awake)
#include "tst_viewer_awake.moc"
