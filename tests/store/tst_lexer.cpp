#include "runtime/RuntimeError.h"
#include "store/dialect/Lexer.h"

#include <QStringList>
#include <QTest>

/// What a statement is cut into.
class tst_lexer : public QObject
{
    Q_OBJECT

private slots:
    void cuts_data();
    void cuts();
    void refuses_data();
    void refuses();
    void tellsWhereATokenStands();
    void matchesKeywordsInAnyLetterCase();
    void namesInBracketsAreNoKeywords();
    void describesALongTokenByItsBeginning();
};

namespace {

QString Written(const Token& token)
{
    static constexpr std::array Kinds{u"end", u"keyword", u"name", u"number", u"text", u"symbol"};
    return QString::fromUtf16(Kinds[static_cast<std::size_t>(token.kind)]) + u' ' + token.Value();
}

QStringList Cut(const QString& sql)
{
    const Complaint complaint(sql);
    Lexer lexer(sql, complaint);
    QStringList written;
    for (Token token = lexer.Next(); token.kind != Token::Kind::End; token = lexer.Next())
        written.append(Written(token));
    return written;
}

} // namespace

void tst_lexer::cuts_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("tokens");

    QTest::newRow("nothing") << u""_qs << QStringList();
    QTest::newRow("blanks, tabs and line breaks only") << u" \t\r\n "_qs << QStringList();
    QTest::newRow("words") << u"SELECT Titulo FROM musica"_qs
                           << QStringList{u"keyword SELECT"_qs, u"name Titulo"_qs,
                                          u"keyword FROM"_qs, u"name musica"_qs};
    QTest::newRow("a word that begins like a keyword is a name")
        << u"ORDEM INNERT"_qs << QStringList{u"name ORDEM"_qs, u"name INNERT"_qs};
    QTest::newRow("letters with accents and digits belong to a word")
        << u"ÁGUA_2"_qs << QStringList{u"name ÁGUA_2"_qs};
    QTest::newRow("a name in brackets") << u"[ORDER BY]"_qs << QStringList{u"name ORDER BY"_qs};
    QTest::newRow("text in single quotes") << u"'Santo'"_qs << QStringList{u"text Santo"_qs};
    QTest::newRow("text in double quotes") << u"\"d'água\""_qs << QStringList{u"text d'água"_qs};
    QTest::newRow("a doubled quote is one") << u"'D''água'"_qs << QStringList{u"text D'água"_qs};
    QTest::newRow("a doubled double quote is one")
        << u"\"a\"\"b\""_qs << QStringList{u"text a\"b"_qs};
    QTest::newRow("nothing but an apostrophe") << u"''''"_qs << QStringList{u"text '"_qs};
    QTest::newRow("an empty text") << u"''"_qs << QStringList{u"text "_qs};
    QTest::newRow("line breaks stay in a text")
        << u"'a\r\nb;--'"_qs << QStringList{u"text a\r\nb;--"_qs};
    QTest::newRow("leading zeros are decimal") << u"012"_qs << QStringList{u"number 12"_qs};
    QTest::newRow("zero stays") << u"0 00 000"_qs
                                << QStringList{u"number 0"_qs, u"number 0"_qs, u"number 0"_qs};
    QTest::newRow("fractions and powers of ten")
        << u"1.5 .5 2. 1e3 1E-3"_qs
        << QStringList{u"number 1.5"_qs, u"number .5"_qs, u"number 2."_qs, u"number 1e3"_qs,
                       u"number 1E-3"_qs};
    QTest::newRow("zeros before a point") << u"00.5"_qs << QStringList{u"number 0.5"_qs};
    QTest::newRow("symbols") << u"<><=>=<>=.,;()*+-/&"_qs
                             << QStringList{u"symbol <>"_qs, u"symbol <="_qs, u"symbol >="_qs,
                                            u"symbol <>"_qs, u"symbol ="_qs,  u"symbol ."_qs,
                                            u"symbol ,"_qs,  u"symbol ;"_qs,  u"symbol ("_qs,
                                            u"symbol )"_qs,  u"symbol *"_qs,  u"symbol +"_qs,
                                            u"symbol -"_qs,  u"symbol /"_qs,  u"symbol &"_qs};
    QTest::newRow("no blanks needed")
        << u"ID=0"_qs << QStringList{u"name ID"_qs, u"symbol ="_qs, u"number 0"_qs};
    QTest::newRow("two dashes are no comment")
        << u"1--1"_qs
        << QStringList{u"number 1"_qs, u"symbol -"_qs, u"symbol -"_qs, u"number 1"_qs};
}

void tst_lexer::cuts()
{
    QFETCH(QString, sql);
    QTEST(Cut(sql), "tokens");
}

void tst_lexer::refuses_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("whatFailed");
    QTest::addColumn<QString>("description");
    const QString plain = u"O banco de dados não entendeu um comando."_qs;
    const QString apostrophe = plain + u" Um apóstrofo (') no texto digitado pode ser a causa."_qs;

    QTest::newRow("letters at a number")
        << u"ID = 0abc"_qs << plain << u"Character 6: expected a number, found 0abc\nID = »0abc"_qs;
    QTest::newRow("a digit of another script at a number")
        << u"1٣"_qs << plain << u"Character 1: expected a number, found 1٣\n»1٣"_qs;
    QTest::newRow("a power of ten without its digits")
        << u"1e"_qs << plain << u"Character 1: expected a number, found 1e\n»1e"_qs;
    QTest::newRow("a text without its end")
        << u"TITULO = 'Santo"_qs << apostrophe
        << u"Character 10: expected a closing ', found the end of the statement\n"
           "TITULO = »'Santo"_qs;
    QTest::newRow("a text that ends with a doubled quote")
        << u"'a''"_qs << apostrophe
        << u"Character 1: expected a closing ', found the end of the statement\n»'a''"_qs;
    QTest::newRow("a bracket without its end")
        << u"[TITULO"_qs << plain
        << u"Character 1: expected a closing ], found the end of the statement\n»[TITULO"_qs;
    QTest::newRow("an unknown sign")
        << u"ID ! 1"_qs << plain
        << u"Character 4: expected a word, a number, a text or an operator, found !\n"
           "ID »! 1"_qs;
    QTest::newRow("a sign behind a text")
        << u"LIKE 'D'%'"_qs << apostrophe
        << u"Character 9: expected a word, a number, a text or an operator, found %\n"
           "LIKE 'D'»%'"_qs;
    QTest::newRow("a control character")
        << u"ID \a1"_qs << plain
        << u"Character 4: expected a word, a number, a text or an operator,"
           " found character code 7\nID » 1"_qs;
    QTest::newRow("the excerpt is short")
        << u"UPDATE MUSICA SET MUSICA = 'uma letra que segue adiante' ! WHERE ID = 057 AND"
           " CONTADOR = 0"_qs
        << plain
        << u"Character 58: expected a word, a number, a text or an operator, found !\n"
           "…'uma letra que segue adiante' »! WHERE ID = 057 AND CONTADOR …"_qs;
}

void tst_lexer::refuses()
{
    QFETCH(QString, sql);
    try {
        Cut(sql);
        QFAIL("was taken");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.Number(), static_cast<int>(RuntimeError::StoreFailure));
        QTEST(error.WhatFailed(), "whatFailed");
        QTEST(error.Description(), "description");
    }
}

void tst_lexer::tellsWhereATokenStands()
{
    const QString sql = u"  SELECT 'a'"_qs;
    const Complaint complaint(sql);
    Lexer lexer(sql, complaint);
    QCOMPARE(lexer.Next().place, 2);
    QCOMPARE(lexer.Next().place, 9);
    QCOMPARE(lexer.Next().place, 12);
    QCOMPARE(lexer.Next().place, 12);
}

void tst_lexer::matchesKeywordsInAnyLetterCase()
{
    const QString sql = u"like <>"_qs;
    const Complaint complaint(sql);
    Lexer lexer(sql, complaint);
    const Token like = lexer.Next();
    QVERIFY(like.Is(u"LIKE"));
    QVERIFY(!like.Is(u"NOT"));
    QVERIFY(lexer.Next().Is(u"<>"));
    QVERIFY(!lexer.Next().Is(u"LIKE"));
}

void tst_lexer::namesInBracketsAreNoKeywords()
{
    const QString sql = u"[SELECT] 'SELECT'"_qs;
    const Complaint complaint(sql);
    Lexer lexer(sql, complaint);
    QVERIFY(!lexer.Next().Is(u"SELECT"));
    QVERIFY(!lexer.Next().Is(u"SELECT"));
}

void tst_lexer::describesALongTokenByItsBeginning()
{
    const QString sql = u"'" + QString(100, u'a') + u"'";
    const Complaint complaint(sql);
    Lexer lexer(sql, complaint);
    QCOMPARE(lexer.Next().Describe(), QString(u"'" + QString(29, u'a') + u"…"));
    QCOMPARE(lexer.Next().Describe(), u"the end of the statement"_qs);
}

QTEST_APPLESS_MAIN(tst_lexer)
#include "tst_lexer.moc"
