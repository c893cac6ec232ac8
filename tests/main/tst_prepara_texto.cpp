#include "exchange/Prepara_Texto.h"

#include <QTest>

#include <random>

/// What becomes of a field on its way into a statement.
class tst_prepara_texto : public QObject
{
    Q_OBJECT

private slots:
    void apostrophesAndMarks_data();
    void apostrophesAndMarks();
    void anyTextIsWhatTwoReplacementsMakeOfIt();
};

void tst_prepara_texto::apostrophesAndMarks_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("preparado");
    QTest::newRow("nothing") << u""_qs << u""_qs;
    QTest::newRow("neither") << u"Luz"_qs << u"Luz"_qs;
    QTest::newRow("an apostrophe") << u"d'água"_qs << u"d''água"_qs;
    QTest::newRow("only apostrophes") << u"'''"_qs << u"''''''"_qs;
    QTest::newRow("a mark") << u"A[br]B"_qs << u"A\r\nB"_qs;
    QTest::newRow("only marks") << u"[br][br]"_qs << u"\r\n\r\n"_qs;
    QTest::newRow("a mark in capitals is none") << u"A[BR]B"_qs << u"A[BR]B"_qs;
    QTest::newRow("a mark that is cut short") << u"A[br"_qs << u"A[br"_qs;
    QTest::newRow("a mark inside a bracket") << u"[[br]]"_qs << u"[\r\n]"_qs;
    QTest::newRow("an apostrophe inside a mark") << u"[b'r]"_qs << u"[b''r]"_qs;
    QTest::newRow("side by side") << u"'[br]'"_qs << u"''\r\n''"_qs;
}

void tst_prepara_texto::apostrophesAndMarks()
{
    QFETCH(QString, texto);
    QFETCH(QString, preparado);
    QCOMPARE(Prepara_Texto(texto), preparado);
}

void tst_prepara_texto::anyTextIsWhatTwoReplacementsMakeOfIt()
{
    const QString pieces[] = {u"'"_qs, u"[br]"_qs, u"["_qs,    u"br]"_qs, u"[b"_qs,
                              u"é"_qs, u"luz "_qs, u"\r\n"_qs, u"]"_qs,   u"\U0001F3B5"_qs};
    std::minstd_rand numbers(3);
    for (int round = 0; round < 5'000; ++round) {
        QString texto;
        for (auto i = numbers() % 12; i > 0; --i)
            texto += pieces[numbers() % std::size(pieces)];
        QString esperado = texto;
        esperado.replace(u"'"_qs, u"''"_qs).replace(u"[br]"_qs, u"\r\n"_qs);
        QCOMPARE(Prepara_Texto(texto), esperado);
    }
}

QTEST_GUILESS_MAIN(tst_prepara_texto)
#include "tst_prepara_texto.moc"
