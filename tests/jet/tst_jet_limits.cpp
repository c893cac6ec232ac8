#include <QProcess>
#include <QTest>

/// What the process that reads old catalogues sets itself really ends a process.
class tst_jet_limits : public QObject
{
    Q_OBJECT

private slots:
    void timeIsBounded();
    void memoryIsBounded();

private:
    static bool IsStopped(const QString& what)
    {
        QProcess process;
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QStringLiteral(GASTA), {what});
        if (!process.waitForFinished(60000))
            return false;
        return process.exitStatus() == QProcess::CrashExit;
    }
};

void tst_jet_limits::timeIsBounded()
{
    QVERIFY(IsStopped(u"tempo"_qs));
}

void tst_jet_limits::memoryIsBounded()
{
    // The address sanitizer takes more addresses than any limit allows; there is none then.
    QCOMPARE(IsStopped(u"memoria"_qs), MEMORY_IS_BOUNDED != 0);
}

QTEST_GUILESS_MAIN(tst_jet_limits)
#include "tst_jet_limits.moc"
