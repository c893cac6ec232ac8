#include "runtime/Number.h"
#include "runtime/RuntimeError.h"

#include <QTest>

class tst_number : public QObject
{
    Q_OBJECT

private slots:
    void textHasFifteenDigitsAndAComma();
    void textsThatAreNumbers_data();
    void textsThatAreNumbers();
    void roundsHalfToEven_data();
    void roundsHalfToEven();
    void sumsAndProductsAreChecked();
};

void tst_number::textHasFifteenDigitsAndAComma()
{
    // The ladder of scroll periods: each text is read back before the next division.
    const QStringList ladder = {u"100"_qs, u"66,6666666666667"_qs, u"44,4444444444445"_qs,
                                u"29,6296296296297"_qs};
    QString text = u"150"_qs;
    for (const QString& expected : ladder) {
        text = Number::ToText(Number::ToDouble(text) / 1.5);
        QCOMPARE(text, expected);
    }
    QCOMPARE(Number::ToText(0), u"0"_qs);
    QCOMPARE(Number::ToText(-2.5), u"-2,5"_qs);
    QCOMPARE(Number::ToText(57), u"57"_qs);
    QCOMPARE(Number::ToText(-57), u"-57"_qs);
    QCOMPARE(Number::ToText(1'000'000), u"1000000"_qs);
    QCOMPARE(Number::ToText(999'999'999'999'999), u"999999999999999"_qs);
    QCOMPARE(Number::ToText(1e15), u"1E+15"_qs);
    QCOMPARE(Number::ToText(1e300), u"1E+300"_qs);
}

void tst_number::textsThatAreNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<double>("number");
    QTest::newRow("digits") << u"12"_qs << true << 12.0;
    QTest::newRow("comma") << u"1,5"_qs << true << 1.5;
    QTest::newRow("blanks around") << u" 7 "_qs << true << 7.0;
    QTest::newRow("sign") << u"-3"_qs << true << -3.0;
    QTest::newRow("empty") << u""_qs << false << 0.0;
    QTest::newRow("word") << u"doze"_qs << false << 0.0;
    QTest::newRow("no number by name") << u"nan"_qs << false << 0.0;
    QTest::newRow("infinity by name") << u"inf"_qs << false << 0.0;
    QTest::newRow("two commas") << u"1,5,2"_qs << false << 0.0;
}

void tst_number::textsThatAreNumbers()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(double, number);
    QCOMPARE(Number::IsNumeric(text), isNumber);
    if (isNumber)
        QCOMPARE(Number::ToDouble(text), number);
    else
        QVERIFY_THROWS_EXCEPTION(RuntimeError, Number::ToDouble(text));
}

void tst_number::roundsHalfToEven_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("expected");
    QTest::newRow("0.5") << 0.5 << 0;
    QTest::newRow("1.5") << 1.5 << 2;
    QTest::newRow("2.5") << 2.5 << 2;
    QTest::newRow("-0.5") << -0.5 << 0;
    QTest::newRow("-1.5") << -1.5 << -2;
    QTest::newRow("32767.4") << 32767.4 << 32767;
}

void tst_number::roundsHalfToEven()
{
    QFETCH(double, number);
    QFETCH(int, expected);
    QCOMPARE(Number::ToLong(number), expected);
    QCOMPARE(Number::ToInteger(number), expected);
}

void tst_number::sumsAndProductsAreChecked()
{
    QCOMPARE(Number::AddInteger(32766, 1), std::int16_t{32767});
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Number::AddInteger(32767, 1));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Number::AddInteger(-32768, -1));
    QCOMPARE(Number::AddLong(2147483646, 1), 2147483647);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Number::AddLong(2147483647, 1));
    QCOMPARE(Number::MultiplyLong(32767, 65536), 2147418112);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Number::MultiplyLong(32768, 65536));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Number::ToInteger(32767.5));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Number::ToLong(qQNaN()));
}

QTEST_APPLESS_MAIN(tst_number)
#include "tst_number.moc"
