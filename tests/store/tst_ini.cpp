#include "store/CodePage.h"
#include "store/Ini.h"

#include <QTest>

class tst_Ini : public QObject
{
    Q_OBJECT

private slots:
    void read_data();
    void read();
    void write_data();
    void write();
    void aValueStaysWithinItsLine();
    void whatIsWrittenIsReadBack_data();
    void whatIsWrittenIsReadBack();
    void aValueStaysInTheCodePageWhereThatIsSafe_data();
    void aValueStaysInTheCodePageWhereThatIsSafe();
    void writingTwiceChangesNothingMore();
};

void tst_Ini::read_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("value");
    const QString found = u"/a/b.mdb"_qs;

    QTest::newRow("as the program writes it")
        << QByteArray("[BANCO]\r\nEndereco=/a/b.mdb") << found;
    QTest::newRow("LF ends lines") << QByteArray("[BANCO]\nEndereco=/a/b.mdb\n") << found;
    QTest::newRow("CR ends lines") << QByteArray("[BANCO]\rEndereco=/a/b.mdb\r") << found;
    QTest::newRow("blank lines between")
        << QByteArray("\r\n[BANCO]\n\n\r\nEndereco=/a/b.mdb") << found;
    QTest::newRow("letter case of names") << QByteArray("[banco]\nENDERECO=/a/b.mdb") << found;
    QTest::newRow("blanks around names")
        << QByteArray("  [ BANCO ] \n \tEndereco \t=/a/b.mdb") << found;
    QTest::newRow("blanks around the value")
        << QByteArray("[BANCO]\nEndereco= \t/a/b.mdb \t\r\n") << found;
    QTest::newRow("double quotes") << QByteArray("[BANCO]\nEndereco=\"/a/b.mdb\"") << found;
    QTest::newRow("single quotes") << QByteArray("[BANCO]\nEndereco= '/a/b.mdb' ") << found;
    QTest::newRow("only one pair of quotes")
        << QByteArray("[BANCO]\nEndereco=\"\"/a/b.mdb\"\"") << u"\"/a/b.mdb\""_qs;
    QTest::newRow("quotes keep inner blanks")
        << QByteArray("[BANCO]\nEndereco=\" /a/b.mdb \"") << u" /a/b.mdb "_qs;
    QTest::newRow("unequal quotes stay")
        << QByteArray("[BANCO]\nEndereco=\"/a/b.mdb'") << u"\"/a/b.mdb'"_qs;
    QTest::newRow("a single quote sign stays") << QByteArray("[BANCO]\nEndereco=\"") << u"\""_qs;
    QTest::newRow("equals sign in the value")
        << QByteArray("[BANCO]\nEndereco=/a=1/b.mdb") << u"/a=1/b.mdb"_qs;
    QTest::newRow("semicolon in the value")
        << QByteArray("[BANCO]\nEndereco=/a;1/b.mdb") << u"/a;1/b.mdb"_qs;
    QTest::newRow("bracket in the value")
        << QByteArray("[BANCO]\nEndereco=[a]/b.mdb") << u"[a]/b.mdb"_qs;
    QTest::newRow("comment lines")
        << QByteArray("; [BANCO]\n[BANCO]\n;Endereco=/x\n ;Endereco=/y\nEndereco=/a/b.mdb")
        << found;
    QTest::newRow("first key wins")
        << QByteArray("[BANCO]\nEndereco=/a/b.mdb\nEndereco=/x") << found;
    QTest::newRow("first section wins")
        << QByteArray("[BANCO]\nEndereco=/a/b.mdb\n[BANCO]\nEndereco=/x") << found;
    QTest::newRow("only the first section of a name is looked at")
        << QByteArray("[BANCO]\nx=1\n[BANCO]\nEndereco=/a/b.mdb") << QString();
    QTest::newRow("other sections around")
        << QByteArray("[A]\nEndereco=/x\n[BANCO]\nEndereco=/a/b.mdb\n[C]\nEndereco=/y") << found;
    QTest::newRow("key in the next section only")
        << QByteArray("[BANCO]\nx=1\n[C]\nEndereco=/y") << QString();
    QTest::newRow("key before any section") << QByteArray("Endereco=/x\n[BANCO]\n") << QString();
    QTest::newRow("longer key name") << QByteArray("[BANCO]\nEndereco2=/x") << QString();
    QTest::newRow("section without its bracket") << QByteArray("[BANCO\nEndereco=/x") << QString();
    QTest::newRow("line without equals sign") << QByteArray("[BANCO]\nEndereco\n") << QString();
    QTest::newRow("empty value") << QByteArray("[BANCO]\nEndereco=\nEndereco=/x") << QString();
    QTest::newRow("empty file") << QByteArray() << QString();
    QTest::newRow("not an INI file") << QByteArray("\x00\x01\xff[[[===", 10) << QString();
    QTest::newRow("UTF-8 value") << QByteArray("[BANCO]\nEndereco=/m\xC3\xBAsica") << u"/música"_qs;
    QTest::newRow("1252 value") << QByteArray("[BANCO]\nEndereco=/m\xFAsica") << u"/música"_qs;
    QTest::newRow("1252 letter at the end")
        << QByteArray("[BANCO]\nEndereco=/caf\xE9") << u"/café"_qs;
    QTest::newRow("1252 value that is cut UTF-8")
        << QByteArray("[BANCO]\nEndereco=/a\xE6\x97") << u"/aæ—"_qs;
    QTest::newRow("each value for itself")
        << QByteArray("[BANCO]\nx=\xFA\nEndereco=/m\xC3\xBAsica") << u"/música"_qs;
    QTest::newRow("UTF-8 mark before the first line")
        << QByteArray("\xEF\xBB\xBF[BANCO]\nEndereco=/a/b.mdb") << found;
}

void tst_Ini::read()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, value);
    QCOMPARE(Ini::Read(content, u"BANCO", u"Endereco"), value);
}

void tst_Ini::write_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("new file") << QByteArray() << QByteArray("[BANCO]\r\nEndereco=/n\r\n");
    QTest::newRow("value of the last line, which has no end")
        << QByteArray("[BANCO]\r\nEndereco=/old") << QByteArray("[BANCO]\r\nEndereco=/n\r\n");
    QTest::newRow("other lines are kept byte for byte")
        << QByteArray("; caf\xE9 \n[BANCO]\r  x = 1 \nEndereco=/old\r\n\r\ny=2\n[C]\nz")
        << QByteArray("; caf\xE9 \n[BANCO]\r  x = 1 \nEndereco=/n\r\n\r\ny=2\n[C]\nz");
    QTest::newRow("spelling of the key is kept")
        << QByteArray("[banco]\n endereco =/old\n") << QByteArray("[banco]\n endereco =/n\r\n");
    QTest::newRow("first of several keys") << QByteArray("[BANCO]\nEndereco=/1\nEndereco=/2\n")
                                           << QByteArray("[BANCO]\nEndereco=/n\r\nEndereco=/2\n");
    QTest::newRow("a comment is not the key")
        << QByteArray("[BANCO]\n;Endereco=/1\n")
        << QByteArray("[BANCO]\n;Endereco=/1\nEndereco=/n\r\n");
    QTest::newRow("new key at the end of its section")
        << QByteArray("[BANCO]\r\nx=1\r\n\r\n[C]\r\nz=1\r\n")
        << QByteArray("[BANCO]\r\nx=1\r\nEndereco=/n\r\n\r\n[C]\r\nz=1\r\n");
    QTest::newRow("new key in an empty section")
        << QByteArray("[BANCO]\n[C]\n") << QByteArray("[BANCO]\nEndereco=/n\r\n[C]\n");
    QTest::newRow("new key after a last line without end")
        << QByteArray("[BANCO]\r\nx=1") << QByteArray("[BANCO]\r\nx=1\r\nEndereco=/n\r\n");
    QTest::newRow("new section at the end of the file")
        << QByteArray("[C]\r\nEndereco=1\r\n")
        << QByteArray("[C]\r\nEndereco=1\r\n[BANCO]\r\nEndereco=/n\r\n");
    QTest::newRow("new section after a last line without end")
        << QByteArray("[C]\nz=1") << QByteArray("[C]\nz=1\r\n[BANCO]\r\nEndereco=/n\r\n");
    QTest::newRow("UTF-8 mark stays in front")
        << QByteArray("\xEF\xBB\xBF[BANCO]\nEndereco=/old\n")
        << QByteArray("\xEF\xBB\xBF[BANCO]\nEndereco=/n\r\n");
}

void tst_Ini::aValueStaysWithinItsLine()
{
    const QByteArray before("[BANCO]\r\nEndereco=/old\r\n[C]\r\n");
    const QByteArray after = Ini::Write(before, u"BANCO", u"Endereco", u"/n\n[C]\r\nx=1"_qs);
    QCOMPARE(after, QByteArray("[BANCO]\r\nEndereco=/n\r\n[C]\r\n"));
}

void tst_Ini::write()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QCOMPARE(Ini::Write(before, u"BANCO", u"Endereco", u"/n"_qs), after);
}

void tst_Ini::whatIsWrittenIsReadBack_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << u"/home/ana/Melodario.mdb"_qs;
    QTest::newRow("blanks inside") << u"/home/ana/minhas músicas/M e.mdb"_qs;
    QTest::newRow("every character of the code page but control characters")
        << CodePage::ToUnicode([] {
               QByteArray all("/");
               for (int byte = 0x21; byte < 256; ++byte)
                   all.append(static_cast<char>(byte));
               return all;
           }());
    QTest::newRow("what 1252 would make UTF-8 by chance") << u"/AÃ©Ã£.mdb"_qs;
    QTest::newRow("japanese") << u"/歌/Melodario.mdb"_qs;
    QTest::newRow("guitar") << u"/🎸/Melodario.mdb"_qs;
    QTest::newRow("combining signs stay apart") << QString(u"/e"_qs + QChar(0x301) + u".mdb"_qs);
    QTest::newRow("semicolons and equals signs") << u";/a;b=c;"_qs;
    QTest::newRow("starts with a byte order mark") << QString(QChar(0xFEFF) + u"/x"_qs);
    QTest::newRow("blanks around") << u" /a b\t"_qs;
    QTest::newRow("quotes around") << u"\"/a\""_qs;
    QTest::newRow("quotes and blanks around") << u" '/a' "_qs;
    QTest::newRow("quotes alone") << u"\"\""_qs;
    QTest::newRow("empty") << QString();
}

void tst_Ini::whatIsWrittenIsReadBack()
{
    QFETCH(QString, value);
    const QByteArray content = Ini::Write("[BANCO]\nEndereco=/old", u"BANCO", u"Endereco", value);
    QCOMPARE(Ini::Read(content, u"BANCO", u"Endereco"), value);
}

void tst_Ini::aValueStaysInTheCodePageWhereThatIsSafe_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("accents in 1252") << u"/música"_qs << QByteArray("/m\xFAsica");
    QTest::newRow("euro in 1252") << u"/€"_qs << QByteArray("/\x80");
    QTest::newRow("would be read as UTF-8") << u"Ã©"_qs << QByteArray("\xC3\x83\xC2\xA9");
    QTest::newRow("has no place in 1252") << u"/ú歌"_qs << QByteArray("/\xC3\xBA\xE6\xAD\x8C");
}

void tst_Ini::aValueStaysInTheCodePageWhereThatIsSafe()
{
    QFETCH(QString, value);
    QFETCH(QByteArray, bytes);
    QCOMPARE(Ini::EncodeValue(value), bytes);
    QCOMPARE(Ini::DecodeValue(bytes), value);
}

void tst_Ini::writingTwiceChangesNothingMore()
{
    const QByteArray once = Ini::Write("[C]\nz=1", u"BANCO", u"Endereco", u"/n"_qs);
    QCOMPARE(Ini::Write(once, u"BANCO", u"Endereco", u"/n"_qs), once);
}

QTEST_APPLESS_MAIN(tst_Ini)
#include "tst_ini.moc"
