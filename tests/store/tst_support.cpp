#include "support/Interruption.h"
#include "support/TestCatalogue.h"

#include <QTest>

/// The catalogue that all other tests stand on, and the judgement of those that kill a program.
class tst_support : public QObject
{
    Q_OBJECT

private slots:
    void holdsTheDeliveredRows();
    void tellsNullFromEmpty();
    void numbersTheSongsOfASetlist();
    void judgesAKilledAction_data();
    void judgesAKilledAction();
};

void tst_support::holdsTheDeliveredRows()
{
    const TestCatalogue catalogue;
    QCOMPARE(catalogue.Field(u"SELECT group_concat(NOTA) FROM TOM"_qs),
             u"C,C#,D,D#,E,F,F#,G,G#,A,A#,B"_qs);
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
    QVERIFY(catalogue.Path().startsWith(catalogue.Folder()));
    QCOMPARE(TestCatalogue::ConnectionString(u"/x.mdb"_qs),
             u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/x.mdb;User Id=admin;Password=;"_qs);
}

void tst_support::tellsNullFromEmpty()
{
    const TestCatalogue catalogue;
    TestSong song;
    song.title = u"D'água"_qs;
    song.reference = QString();
    song.variation = u""_qs;
    song.category = std::nullopt;
    QCOMPARE(catalogue.AddSong(song), 1);
    const auto rows =
        catalogue.Rows(u"SELECT TITULO, REFERENCIA, VARIACAO, CATEGORIA, CONTADOR FROM MUSICA"_qs);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows[0], QStringList({u"D'água"_qs, QString(), u""_qs, QString(), u"0"_qs}));
    QVERIFY(rows[0][1].isNull());
    QVERIFY(!rows[0][2].isNull());
}

void tst_support::numbersTheSongsOfASetlist()
{
    const TestCatalogue catalogue;
    const qint64 song = catalogue.AddSong(u"Um"_qs);
    const qint64 other = catalogue.AddSong(u"Dois"_qs, u"Alguém"_qs);
    catalogue.Link(song, catalogue.AddTheme(u"Louvor"_qs));
    const qint64 list = catalogue.AddSetlist(u"Domingo"_qs, QDate(2009, 3, 5), {other, song});
    catalogue.AddSetlist(u"Sem data"_qs, QDate());
    QCOMPARE(catalogue.Rows(u"SELECT * FROM LISTA_MUSICA"_qs),
             QList<QStringList>({{QString::number(list), u"2"_qs, u"0"_qs},
                                 {QString::number(list), u"1"_qs, u"1"_qs}}));
    QCOMPARE(catalogue.Field(u"SELECT DATA FROM LISTA WHERE ID = 1"_qs), u"2009-03-05"_qs);
    QVERIFY(catalogue.Field(u"SELECT DATA FROM LISTA WHERE ID = 2"_qs).isNull());
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM TEMA_MUSICA"_qs), u"1"_qs);
}

void tst_support::judgesAKilledAction_data()
{
    QTest::addColumn<QStringList>("states");
    QTest::addColumn<QString>("wrong");
    const QString a = u"a"_qs;
    const QString b = u"b"_qs;
    QTest::newRow("old, then new") << QStringList{a, a, b, b} << QString();
    QTest::newRow("too few") << QStringList{a, b, b} << u"only 2 boundaries"_qs;
    QTest::newRow("nothing done") << QStringList{a, a, a, a} << u"the action changes nothing"_qs;
    const QString side = u"not killed on both sides of the commit"_qs;
    QTest::newRow("never before the commit") << QStringList{b, b, b, b} << side;
    QTest::newRow("never after the commit") << QStringList{a, a, a, b} << side;
    QTest::newRow("half of it") << QStringList{a, u"ab"_qs, b, b} << u"killed at boundary 1: ab"_qs;
    QTest::newRow("undone again") << QStringList{a, b, a, b} << u"killed at boundary 2: a"_qs;
    QTest::newRow("a damaged file")
        << QStringList{a, b, u"damaged"_qs, b} << u"killed at boundary 2: damaged"_qs;
}

void tst_support::judgesAKilledAction()
{
    QFETCH(QStringList, states);
    QFETCH(QString, wrong);
    QCOMPARE(Interruption::WhatIsNotWhole(u"a"_qs, states, 3), wrong);
}

QTEST_GUILESS_MAIN(tst_support)
#include "tst_support.moc"
