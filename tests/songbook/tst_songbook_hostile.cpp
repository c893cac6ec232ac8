#include "songbook/Source.h"
#include "songbook/SourceText.h"
#include "songbook/UsualScale.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Songbook;

/// Files that mean harm, or that no hand has written: each is refused or read, in bounded memory,
/// and nothing but the file itself is looked at.
class tst_songbook_hostile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { LoadUsualScale(); }
    void refusedWithItsReason_data();
    void refusedWithItsReason();
    void foreignFilesAreNeverRead_data();
    void foreignFilesAreNeverRead();
    void entitiesOfTheFileItselfAreDecoded();
    void longLinesAreRead_data();
    void longLinesAreRead();
    void remarksAreBounded();
};

namespace {

QByteArray Song(const QByteArray& lyrics)
{
    return "<song><title>T</title><lyrics>" + lyrics + "</lyrics></song>";
}

QByteArray Nested(int depth)
{
    QByteArray xml = "<song xmlns='http://openlyrics.info/namespace/2009/song'><lyrics>"
                     "<verse name='v1'><lines>";
    for (int i = 0; i < depth; ++i)
        xml += "<chord root='C'>";
    xml += "la";
    for (int i = 0; i < depth; ++i)
        xml += "</chord>";
    return xml + "</lines></verse></lyrics></song>";
}

QByteArray Laughs()
{
    QByteArray dtd = "<?xml version='1.0'?><!DOCTYPE song [<!ENTITY a0 'hahahahaha'>";
    for (int i = 1; i < 12; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ";";
        dtd += "<!ENTITY a" + QByteArray::number(i) + " '" + inner.repeated(10) + "'>";
    }
    return dtd + "]>" + Song("&a11;");
}

} // namespace

void tst_songbook_hostile::refusedWithItsReason_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("failure");
    const QString malformed = u"o XML não está bem formado"_qs;
    QTest::newRow("an empty file") << QByteArray() << u"o arquivo está vazio"_qs;
    QTest::newRow("blanks only") << QByteArray(" \r\n\t") << u"o arquivo está vazio"_qs;
    QTest::newRow("a hundred megabytes of text") << QByteArray(qsizetype{100} * 1024 * 1024, 'a')
                                                 << u"o arquivo é grande demais para uma música"_qs;
    QTest::newRow("a program") << QByteArray("\x7f"
                                             "ELF\0\0\1",
                                             7)
                               << u"o arquivo não é um texto"_qs;
    QTest::newRow("a catalogue of ours")
        << QByteArray("SQLite format 3\0rest", 20) << u"é um catálogo, não uma música"_qs;
    QTest::newRow("a catalogue in the Jet format")
        << QByteArray("\0\1\0\0Standard Jet DB\0....", 24) << u"é um catálogo, não uma música"_qs;
    QTest::newRow("an exchange file of ours")
        << QByteArray("<musicas></musicas>") << u"já é um arquivo do Melodario"_qs;
    QTest::newRow("other XML") << QByteArray("<?xml version='1.0'?><livro/>")
                               << u"o XML não é de música: <livro>"_qs;
    QTest::newRow("a song of neither format")
        << QByteArray("<song><nota/></song>") << u"o XML não tem letra nem título"_qs;
    QTest::newRow("cut off in the middle") << QByteArray("<song><title>T</ti") << malformed;
    QTest::newRow("nesting of a hundred thousand") << Nested(100'000) << malformed;
    QTest::newRow("entities that grow without end") << Laughs() << malformed;
}

void tst_songbook_hostile::refusedWithItsReason()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, failure);
    const Source source = ReadSource(bytes, u"x"_qs);
    QCOMPARE(source.reading.failure, failure);
    QVERIFY(source.reading.songs.isEmpty());
}

void tst_songbook_hostile::foreignFilesAreNeverRead_data()
{
    QTest::addColumn<QByteArray>("head"); ///< %1 is the path of a file that exists
    QTest::addColumn<QByteArray>("lyrics");
    QTest::newRow("an external entity")
        << QByteArray("<!DOCTYPE song [<!ENTITY e SYSTEM '%1'>]>") << QByteArray("&e;");
    QTest::newRow("an external entity that nobody uses")
        << QByteArray("<!DOCTYPE song [<!ENTITY e SYSTEM '%1'>]>") << QByteArray("la");
    QTest::newRow("an external DTD")
        << QByteArray("<!DOCTYPE song SYSTEM '%1'>") << QByteArray("la");
    QTest::newRow("a public DTD") << QByteArray("<!DOCTYPE song PUBLIC '-//X' '%1'>")
                                  << QByteArray("la");
    QTest::newRow("an external parameter entity")
        << QByteArray("<!DOCTYPE song [<!ENTITY % p SYSTEM '%1'> %p;]>") << QByteArray("la");
}

void tst_songbook_hostile::foreignFilesAreNeverRead()
{
    QFETCH(QByteArray, head);
    QFETCH(QByteArray, lyrics);
    const QTemporaryDir folder;
    QFile secret(folder.filePath(u"segredo.txt"_qs));
    QVERIFY(secret.open(QIODevice::WriteOnly) && secret.write("segredo") == 7);
    secret.close();
    const QByteArray xml =
        "<?xml version='1.0'?>" + head.replace("%1", secret.fileName().toUtf8()) + Song(lyrics);
    const Source source = ReadSource(xml, u"x"_qs);
    QCOMPARE(source.reading.failure,
             u"o XML pede algo de fora do arquivo, o que não é permitido"_qs);
}

void tst_songbook_hostile::entitiesOfTheFileItselfAreDecoded()
{
    const QByteArray xml =
        "<?xml version='1.0'?><!DOCTYPE song [<!ENTITY v 'vem'>]>" + Song(" &v; &#233; &amp;");
    const Source source = ReadSource(xml, u"x"_qs);
    QCOMPARE(source.reading.failure, QString());
    QCOMPARE(*source.reading.songs.first().letra1, u"vem é &"_qs);
}

void tst_songbook_hostile::longLinesAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const qsizetype many = 100'000;
    QTest::newRow("chords without words") << QByteArray("[C]").repeated(many);
    QTest::newRow("chords within one word") << QByteArray("a[Gm7]").repeated(many);
    QTest::newRow("brackets that never end") << QByteArray("[C]a" + QByteArray(many * 3, '['));
    QTest::newRow("annotations") << QByteArray("[C]a" + QByteArray("[*la]").repeated(many));
    QTest::newRow("escapes") << QByteArray("[C]a" + QByteArray("\\u0041").repeated(many));
    QTest::newRow("directives") << QByteArray("{artist: x}\n").repeated(many);
    QTest::newRow("different artists") << [] {
        QByteArray text;
        for (int i = 0; i < 50'000; ++i)
            text += "{artist: " + QByteArray::number(i) + "}\n";
        return text;
    }();
    QTest::newRow("joined lines") << QByteArray("{t: x}\n" + QByteArray("a\\\n").repeated(many));
    QTest::newRow("rows of chords over nothing") << QByteArray("C  G7\n").repeated(many);
    QTest::newRow("tabs") << QByteArray("C\n" + QByteArray(many, '\t') + "a");
    QTest::newRow("braces") << QByteArray(QByteArray(many, '{') + QByteArray(many, '}'));
}

void tst_songbook_hostile::longLinesAreRead()
{
    QFETCH(QByteArray, bytes);
    const Source source = ReadSource(bytes, u"x"_qs);
    QCOMPARE(source.reading.failure, QString());
    QCOMPARE(source.reading.songs.size(), 1);
    QVERIFY(source.reading.songs.first().letra1->size() < 20 * bytes.size());
}

void tst_songbook_hostile::remarksAreBounded()
{
    QByteArray text = "{title: x}\n";
    for (int i = 0; i < 5000; ++i)
        text += "{tempo: " + QByteArray::number(i) + "}\n";
    const QList<Remark> remarks = ReadSource(text, u"x"_qs).reading.remarks;
    QCOMPARE(remarks.size(), 201);
    QCOMPARE(remarks.last().what, u"e mais 4800 observações"_qs);
    QVERIFY(remarks.last().kind == Remark::Kind::Lost);
}

QTEST_APPLESS_MAIN(tst_songbook_hostile)
#include "tst_songbook_hostile.moc"
