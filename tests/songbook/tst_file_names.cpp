#include "songbook/FileNames.h"

#include <QTest>

using namespace Songbook;

/// Names of files for songs.
class tst_file_names : public QObject
{
    Q_OBJECT

private slots:
    void titlesBecomeNames_data();
    void titlesBecomeNames();
    void namesNeverCollide_data();
    void namesNeverCollide();
    void longTitlesAreCutBehindALetter();
};

void tst_file_names::titlesBecomeNames_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::newRow("accents stay") << u"Água Viva"_qs << u"Água Viva"_qs;
    QTest::newRow("decomposed accents") << u"A\u0301gua"_qs << u"Água"_qs;
    QTest::newRow("signs of paths") << u"a/b\\c:d*e?f\"g<h>i|j"_qs << u"a b c d e f g h i j"_qs;
    QTest::newRow("a path upward") << u"../../etc/passwd"_qs << u"etc passwd"_qs;
    QTest::newRow("only dots") << u"..."_qs << u"Sem Título"_qs;
    QTest::newRow("nothing") << u""_qs << u"Sem Título"_qs;
    QTest::newRow("control characters") << u"a\r\nb\tc\u0001d"_qs << u"a b c d"_qs;
    QTest::newRow("a sign that turns the reading") << u"a\u202Eohc.b"_qs << u"a ohc.b"_qs;
    QTest::newRow("half a sign") << u"a"_qs + QChar(0xD800) << u"a"_qs;
    QTest::newRow("a hidden file") << u".oculta"_qs << u"oculta"_qs;
    QTest::newRow("a dot at the end") << u"Amém. "_qs << u"Amém"_qs;
    QTest::newRow("an option") << u"--force"_qs << u"force"_qs;
    QTest::newRow("a device") << u"con"_qs << u"_con"_qs;
    QTest::newRow("a device with an ending") << u"Aux.1"_qs << u"_Aux.1"_qs;
    QTest::newRow("a numbered device") << u"LPT1"_qs << u"_LPT1"_qs;
    QTest::newRow("only like a device") << u"Contigo"_qs << u"Contigo"_qs;
    QTest::newRow("signs that are allowed")
        << u"D'água & cia (1) #2"_qs << u"D'água & cia (1) #2"_qs;
}

void tst_file_names::titlesBecomeNames()
{
    QFETCH(QString, title);
    QFETCH(QString, name);
    QCOMPARE(SafeName(title), name);
    QCOMPARE(FileNames().For(title, u".cho"_qs), QString(name + u".cho"));
}

void tst_file_names::namesNeverCollide_data()
{
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("the same title")
        << QStringList{u"Luar"_qs, u"Luar"_qs, u"Luar"_qs}
        << QStringList{u"Luar.cho"_qs, u"Luar (2).cho"_qs, u"Luar (3).cho"_qs};
    QTest::newRow("another letter case")
        << QStringList{u"LUAR"_qs, u"luar"_qs} << QStringList{u"LUAR.cho"_qs, u"luar (2).cho"_qs};
    QTest::newRow("accented letters in another case")
        << QStringList{u"ÁGUA"_qs, u"água"_qs} << QStringList{u"ÁGUA.cho"_qs, u"água (2).cho"_qs};
    QTest::newRow("other accents")
        << QStringList{u"Avó"_qs, u"Avô"_qs} << QStringList{u"Avó.cho"_qs, u"Avô.cho"_qs};
    QTest::newRow("signs that are left out")
        << QStringList{u"Luar?"_qs, u"Luar!"_qs, u"Luar:"_qs}
        << QStringList{u"Luar.cho"_qs, u"Luar!.cho"_qs, u"Luar (2).cho"_qs};
    QTest::newRow("a title that looks like a numbered one")
        << QStringList{u"Luar (2)"_qs, u"Luar"_qs, u"Luar"_qs}
        << QStringList{u"Luar (2).cho"_qs, u"Luar.cho"_qs, u"Luar (3).cho"_qs};
}

void tst_file_names::namesNeverCollide()
{
    QFETCH(QStringList, titles);
    QFETCH(QStringList, names);
    FileNames files;
    QStringList given;
    for (const QString& title : titles)
        given += files.For(title, u".cho"_qs);
    QCOMPARE(given, names);
}

void tst_file_names::longTitlesAreCutBehindALetter()
{
    const QString letter = u"e\u0323\u0301\u0302"_qs; // one letter of several characters
    const QString name = SafeName(letter.repeated(100));
    QVERIFY(name.toUtf8().size() <= 200);
    QVERIFY(name.toUtf8().size() > 190);
    const QString whole = letter.normalized(QString::NormalizationForm_C);
    QCOMPARE(name, whole.repeated(name.size() / whole.size()));
    FileNames files;
    const QString first = files.For(QString(500, u'a'), u".cho"_qs);
    const QString second = files.For(QString(500, u'a') + u'b', u".cho"_qs);
    QVERIFY(first != second);
    QVERIFY(second.toUtf8().size() < 255);
}

QTEST_APPLESS_MAIN(tst_file_names)
#include "tst_file_names.moc"
