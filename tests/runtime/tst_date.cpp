#include "runtime/Date.h"

#include <QTest>

class tst_date : public QObject
{
    Q_OBJECT

private slots:
    void readsDayMonthYear_data();
    void readsDayMonthYear();
};

void tst_date::readsDayMonthYear_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    QTest::newRow("as the box shows it") << u"05/03/2009"_qs << u"2009-03-05"_qs;
    QTest::newRow("without padding") << u"5/3/2009"_qs << u"2009-03-05"_qs;
    QTest::newRow("leap day") << u"29/02/2008"_qs << u"2008-02-29"_qs;
    QTest::newRow("first year") << u"1/1/100"_qs << u"0100-01-01"_qs;
    QTest::newRow("last year") << u"31/12/9999"_qs << u"9999-12-31"_qs;
    QTest::newRow("no such day") << u"31/02/2009"_qs << QString();
    QTest::newRow("no leap year") << u"29/02/2009"_qs << QString();
    QTest::newRow("day zero") << u"00/05/2014"_qs << QString();
    QTest::newRow("month 13") << u"13/13/2009"_qs << QString();
    QTest::newRow("month first") << u"03/25/2009"_qs << QString();
    QTest::newRow("two-digit year") << u"05/03/09"_qs << QString();
    QTest::newRow("year below 100") << u"05/03/099"_qs << QString();
    QTest::newRow("three digits of a day") << u"005/03/2009"_qs << QString();
    QTest::newRow("three digits of a month") << u"05/003/2009"_qs << QString();
    QTest::newRow("five digits of a year") << u"05/03/02009"_qs << QString();
    QTest::newRow("unfinished") << u"05/03/209_"_qs << QString();
    QTest::newRow("mask alone") << u"__/__/____"_qs << QString();
    QTest::newRow("empty") << u""_qs << QString();
    QTest::newRow("blank inside") << u"5/ 3/2009"_qs << QString();
    QTest::newRow("other digits") << u"٥/٣/٢٠٠٩"_qs << QString();
    QTest::newRow("four parts") << u"5/3/2009/1"_qs << QString();
}

void tst_date::readsDayMonthYear()
{
    QFETCH(QString, text);
    QFETCH(QString, stored);
    const auto date = Date::FromText(text);
    QCOMPARE(date.has_value(), !stored.isEmpty());
    if (date) {
        QCOMPARE(Date::ToStored(*date), stored);
        QCOMPARE(Date::FromText(Date::ToText(*date)), date);
    }
}

QTEST_APPLESS_MAIN(tst_date)
#include "tst_date.moc"
