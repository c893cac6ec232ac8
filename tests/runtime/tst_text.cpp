#include "runtime/Text.h"

#include <QTest>

class tst_text : public QObject
{
    Q_OBJECT

private slots:
    void trimTakesBlanksOnly_data();
    void trimTakesBlanksOnly();
    void capitalsKeepTheLength_data();
    void capitalsKeepTheLength();
    void splitOfNothingHasNoParts();
    void splitKeepsEmptyParts();
};

void tst_text::trimTakesBlanksOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing to take") << u"Louvor"_qs << u"Louvor"_qs;
    QTest::newRow("both ends") << u"  Louvor e paz "_qs << u"Louvor e paz"_qs;
    QTest::newRow("a tab stays") << u" \tLouvor\t "_qs << u"\tLouvor\t"_qs;
    QTest::newRow("a no-break space stays") << u"\u00A0Louvor "_qs << u"\u00A0Louvor"_qs;
    QTest::newRow("blanks only") << u"   "_qs << u""_qs;
    QTest::newRow("empty") << u""_qs << u""_qs;
}

void tst_text::trimTakesBlanksOnly()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(Text::Trim(text), expected);
}

void tst_text::capitalsKeepTheLength_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Portuguese") << u"coração e fé"_qs << u"CORAÇÃO E FÉ"_qs;
    QTest::newRow("sharp s stays one letter") << u"straße ção"_qs << u"STRAßE ÇÃO"_qs;
    QTest::newRow("micro sign and ordinals stay") << u"µ 1ª 2º"_qs << u"µ 1ª 2º"_qs;
    QTest::newRow("y with diaeresis") << u"ÿ"_qs << u"Ÿ"_qs;
    QTest::newRow("ligature stays one letter") << u"\uFB01m"_qs << u"\uFB01M"_qs;
    QTest::newRow("pair of surrogates stays") << u"\U0001F3B5a"_qs << u"\U0001F3B5A"_qs;
}

void tst_text::capitalsKeepTheLength()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(Text::UCase(text), expected);
    QCOMPARE(Text::UCase(text).size(), text.size());
}

void tst_text::splitOfNothingHasNoParts()
{
    QCOMPARE(Text::Split(u"", u'@'), QStringList());
}

void tst_text::splitKeepsEmptyParts()
{
    QCOMPARE(Text::Split(u"msg@@Olá", u'@'), QStringList({u"msg"_qs, u""_qs, u"Olá"_qs}));
    QCOMPARE(Text::Split(u"msg", u'@'), QStringList({u"msg"_qs}));
}

QTEST_APPLESS_MAIN(tst_text)
#include "tst_text.moc"
