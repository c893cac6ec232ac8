// The speeds of scrolling by itself: their ladder, when they take effect, how long they are kept.

#include "ScrollingBench.h"

#include "controls/Appearance.h"

class tst_viewer_speed : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init()
    {
        bench = std::make_unique<ViewerBench>();
        viewer = bench->Open({.text = LongSong(60), .text2 = LongSong(60)});
    }
    void cleanup() { bench.reset(); }

    void speedLadder_data();
    void speedLadder();
    void aSpeedTakesEffectFromTheNextPeriod_data();
    void aSpeedTakesEffectFromTheNextPeriod();
    void speedChangesWhileNothingRunsToo();
    void theSpeedIsKeptAcrossSongs();

private:
    std::unique_ptr<ViewerBench> bench;
    QPointer<frmVisualizar> viewer;
};

void tst_viewer_speed::speedLadder_data()
{
    using Step = std::pair<QString, int>;
    QTest::addColumn<QList<int>>("before"); // keys
    QTest::addColumn<int>("key");
    QTest::addColumn<QList<Step>>("steps");

    const auto keys = [](int key, int times) { return QList<int>(times, key); };
    QTest::newRow("faster from the first speed") << QList<int>() << int(Qt::Key_Right)
                                                 << QList<Step>{{u"100"_qs, 5},
                                                                {u"66,6666666666667"_qs, 6},
                                                                {u"44,4444444444445"_qs, 7},
                                                                {u"29,6296296296297"_qs, 8},
                                                                {u"19,7530864197531"_qs, 9},
                                                                {u"13,1687242798354"_qs, 10},
                                                                {u"8,77914951989027"_qs, 11},
                                                                {u"5,85276634659351"_qs, 12},
                                                                {u"3,90184423106234"_qs, 13},
                                                                {u"2,60122948737489"_qs, 14},
                                                                {u"1,73415299158326"_qs, 15},
                                                                {u"1,15610199438884"_qs, 16},
                                                                {u"1"_qs, 16},
                                                                {u"1"_qs, 16},
                                                                {u"1"_qs, 16}};
    QTest::newRow("slower from the first speed")
        << QList<int>() << int(Qt::Key_Left)
        << QList<Step>{{u"225"_qs, 3}, {u"337,5"_qs, 2}, {u"500"_qs, 1}, {u"500"_qs, 1}};
    QTest::newRow("slower from the fastest") << keys(Qt::Key_Right, 13) << int(Qt::Key_Left)
                                             << QList<Step>{{u"1,5"_qs, 15},
                                                            {u"2,25"_qs, 14},
                                                            {u"3,375"_qs, 13},
                                                            {u"5,0625"_qs, 12},
                                                            {u"7,59375"_qs, 11},
                                                            {u"11,390625"_qs, 10},
                                                            {u"17,0859375"_qs, 9},
                                                            {u"25,62890625"_qs, 8},
                                                            {u"38,443359375"_qs, 7},
                                                            {u"57,6650390625"_qs, 6},
                                                            {u"86,49755859375"_qs, 5},
                                                            {u"129,746337890625"_qs, 4},
                                                            {u"194,619506835938"_qs, 3},
                                                            {u"291,929260253907"_qs, 2},
                                                            {u"437,893890380861"_qs, 1},
                                                            {u"500"_qs, 1},
                                                            {u"500"_qs, 1}};
    QTest::newRow("faster from the slowest") << keys(Qt::Key_Left, 3) << int(Qt::Key_Right)
                                             << QList<Step>{{u"333,333333333333"_qs, 2},
                                                            {u"222,222222222222"_qs, 3},
                                                            {u"148,148148148148"_qs, 4},
                                                            {u"98,7654320987653"_qs, 5},
                                                            {u"65,8436213991769"_qs, 6},
                                                            {u"43,8957475994513"_qs, 7},
                                                            {u"29,2638317329675"_qs, 8},
                                                            {u"19,5092211553117"_qs, 9},
                                                            {u"13,0061474368745"_qs, 10},
                                                            {u"8,67076495791633"_qs, 11},
                                                            {u"5,78050997194422"_qs, 12},
                                                            {u"3,85367331462948"_qs, 13},
                                                            {u"2,56911554308632"_qs, 14},
                                                            {u"1,71274369539088"_qs, 15},
                                                            {u"1,14182913026059"_qs, 16},
                                                            {u"1"_qs, 16},
                                                            {u"1"_qs, 16}};
    // Fifteen digits lose a little on the way up and down. Only whole milliseconds are compared
    // with the limit.
    QTest::newRow("slower, from the slowest up and down again")
        << keys(Qt::Key_Left, 3) + keys(Qt::Key_Right, 15) + keys(Qt::Key_Left, 12)
        << int(Qt::Key_Left)
        << QList<Step>{{u"222,222222222225"_qs, 3},
                       {u"333,333333333338"_qs, 2},
                       {u"500,000000000007"_qs, 1},
                       {u"500"_qs, 1}};
}

void tst_viewer_speed::speedLadder()
{
    using Step = std::pair<QString, int>;
    QFETCH(QList<int>, before);
    QFETCH(int, key);
    QFETCH(QList<Step>, steps);
    for (const int first : before)
        Press(viewer, Qt::Key(first));
    for (const Step& step : steps) {
        Press(viewer, Qt::Key(key));
        QCOMPARE(Speed(viewer), step.first);
        QCOMPARE(Level(viewer), step.second);
    }
}

void tst_viewer_speed::aSpeedTakesEffectFromTheNextPeriod_data()
{
    QTest::addColumn<QString>("speed");
    QTest::addColumn<int>("interval");
    QTest::newRow("whole") << u"100"_qs << 100;
    QTest::newRow("rounded up") << u"66,6666666666667"_qs << 67;
    QTest::newRow("rounded down") << u"44,4444444444445"_qs << 44;
    QTest::newRow("a half to the even above") << u"337,5"_qs << 338;
    QTest::newRow("a half to the even below") << u"2,5"_qs << 2;
    QTest::newRow("the fastest") << u"1"_qs << 1;
}

void tst_viewer_speed::aSpeedTakesEffectFromTheNextPeriod()
{
    QFETCH(QString, speed);
    QFETCH(int, interval);
    auto* timer = In<QTimer>(viewer, "TimerRolagem");
    viewer->Auto_Rolagem(true);
    timer->setProperty("Tag", speed);
    QCOMPARE(timer->interval(), 150);
    Tick(viewer, "TimerRolagem");
    QCOMPARE(timer->interval(), interval);
    QVERIFY(timer->isActive());
}

void tst_viewer_speed::speedChangesWhileNothingRunsToo()
{
    Press(viewer, Qt::Key_Right);
    QCOMPARE(Speed(viewer), u"100"_qs);
    QVERIFY(!Runs(viewer));
    QVERIFY(!In(viewer, "ProgressBarRolagem")->isVisible());
    QCOMPARE(Shown(viewer), 0);
    // The first period is still one of the speed before.
    Press(viewer, Qt::Key_Return);
    QCOMPARE(In<QTimer>(viewer, "TimerRolagem")->interval(), 150);
    Tick(viewer, "TimerRolagem");
    QCOMPARE(In<QTimer>(viewer, "TimerRolagem")->interval(), 100);
}

void tst_viewer_speed::theSpeedIsKeptAcrossSongs()
{
    bench->catalogue.AddSong({.title = u"Vem"_qs, .text2 = LongSong(60)});
    viewer = bench->Open(1);
    Press(viewer, Qt::Key_Right, 2);
    viewer->Auto_Rolagem(true);
    Press(viewer, Qt::Key_P);
    QCOMPARE(Caption(viewer, "lblTitulo"), u"Vem"_qs);
    QVERIFY(!Runs(viewer));
    QCOMPARE(Speed(viewer), u"66,6666666666667"_qs);
    QCOMPARE(Level(viewer), 6);
}

QTEST_MAIN(tst_viewer_speed)
#include "tst_viewer_speed.moc"
