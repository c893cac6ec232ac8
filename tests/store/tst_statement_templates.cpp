#include "runtime/RuntimeError.h"
#include "store/CatalogueSchema.h"
#include "store/Connection.h"
#include "store/StatementTemplates.h"
#include "store/dialect/Lexer.h"
#include "store/dialect/Writer.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <memory>

/// Statements that differ in their values alone are read once. Nobody may notice.
class tst_statement_templates : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreLiftedOutOfAStatement_data();
    void valuesAreLiftedOutOfAStatement();
    void unusualStatementsHaveNoShape_data();
    void unusualStatementsHaveNoShape();
    void manyValuesHaveNoShape();
    void literalsAreWhatTheLexerSees();
    void aTemplateSaysWhatReadingWould_data();
    void aTemplateSaysWhatReadingWould();
    void aWarmConnectionAnswersLikeAFreshOne();
    void insertedValuesArrive_data();
    void insertedValuesArrive();
    void aColumnThatAnotherToolAddsIsSeen();
    void aTableThatAnotherToolMakesAnewIsSeen();
    void rowsThatAnotherConnectionWritesAreSeen();
    void themesAreFoundByName_data();
    void themesAreFoundByName();
    void manyThemesShareAName();
    void whatIsUndoneIsForgotten();
};

namespace {

/// Statements with %1 for a value, and values of every kind.
const QStringList& Families()
{
    static const QStringList families{
        u"SELECT * FROM MUSICA WHERE TITULO = %1"_qs,
        u"SELECT * FROM MUSICA WHERE TITULO LIKE %1"_qs,
        u"SELECT * FROM MUSICA WHERE MUSICA NOT LIKE %1 AND ID > 02"_qs,
        u"SELECT * FROM MUSICA WHERE ID = %1"_qs,
        u"SELECT * FROM MUSICA WHERE ID <> 0%1"_qs,
        u"SELECT * FROM MUSICA WHERE %1 = TITULO"_qs,
        u"SELECT * FROM MUSICA WHERE REFERENCIA = %1 OR REFERENCIA IS NULL"_qs,
        u"SELECT * FROM MUSICA WHERE CATEGORIA IN (%1)"_qs,
        u"SELECT * FROM MUSICA WHERE CATEGORIA IN (1,%1,)"_qs,
        u"SELECT * FROM MUSICA WHERE ID BETWEEN 2 AND %1"_qs,
        u"SELECT ID, %1 AS X FROM MUSICA"_qs,
        u"SELECT ID, TITULO & %1 AS X FROM MUSICA ORDER BY TITULO & ' - '"_qs,
        u"SELECT ID, TITULO & ' - ' AS X FROM MUSICA ORDER BY TITULO & %1 DESC"_qs,
        u"SELECT ID, TITULO FROM MUSICA ORDER BY %1"_qs,
        u"SELECT TITULO, ID FROM MUSICA ORDER BY %1 DESC"_qs,
        u"SELECT COUNT(*) AS N FROM MUSICA GROUP BY %1"_qs,
        u"SELECT MAX(ID) AS M FROM MUSICA WHERE CONTADOR + %1 > 3"_qs,
        u"SELECT ID FROM MUSICA WHERE TITULO = %1 AND REFERENCIA = 'Ana'"_qs,
        u"SELECT ID FROM MUSICA WHERE TITULO = 'Luz' AND REFERENCIA = %1"_qs,
        u"SELECT ID FROM TEMA WHERE DESCRICAO = %1"_qs,
        u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA "
        "WHERE ID_MUSICA = %1"_qs,
        u"SELECT * FROM LISTA WHERE DATA = CDATE(%1)"_qs,
        u"SELECT Day(DATA) & '/' & %1 AS D FROM LISTA"_qs,
        u"SELECT * FROM MUSICA WHERE ID IN (SELECT ID_MUSICA FROM TEMA_MUSICA WHERE ID_TEMA = "
        "%1)"_qs,
        u"SELECT * FROM MUSICA WHERE -%1 = -ID"_qs,
    };
    return families;
}

const QStringList& Values()
{
    static const QStringList values{u"'Luz'"_qs,
                                    u"'luz'"_qs,
                                    u"\"Luz\""_qs,
                                    u"'d''água'"_qs,
                                    u"\"d'água\""_qs,
                                    u"''"_qs,
                                    u"''''"_qs,
                                    u"'%'"_qs,
                                    u"'l%'"_qs,
                                    u"'[l]uz'"_qs,
                                    u"'_uz'"_qs,
                                    u"'[%'"_qs,
                                    u"'5/3/2009'"_qs,
                                    u"'31/02/2009'"_qs,
                                    u"'Sol; --'"_qs,
                                    u"' - '"_qs,
                                    u"1"_qs,
                                    u"2"_qs,
                                    u"02"_qs,
                                    u"0"_qs,
                                    u"3"_qs,
                                    u"1.5"_qs,
                                    u".5"_qs,
                                    u"1e0"_qs,
                                    u"-1"_qs,
                                    u"NULL"_qs,
                                    u"'1'"_qs,
                                    u"'2'"_qs,
                                    u"999999999999999999"_qs,
                                    u"9999999999999999999"_qs,
                                    u"Ana"_qs,
                                    u"TITULO"_qs,
                                    u"'a' & 'b'"_qs,
                                    u"(1)"_qs,
                                    u"'Luz"_qs,
                                    u"1a"_qs,
                                    u"'\r\n'"_qs,
                                    u"'\U0001F3B5?'"_qs};
    return values;
}

void Fill(const TestCatalogue& catalogue)
{
    const QStringList titles{u"Luz"_qs, u"luz"_qs, u"d'água"_qs, u""_qs, u"[%"_qs, u"1"_qs};
    for (const QString& title : titles) {
        TestSong song;
        song.title = title;
        song.reference = title.isEmpty() ? QString() : u"Ana"_qs;
        song.category = static_cast<int>(title.size() % 3);
        catalogue.AddSong(song);
    }
    for (const QString& theme : {u"Louvor"_qs, u"luz"_qs, u"LUZ"_qs, u""_qs})
        catalogue.AddTheme(theme);
    catalogue.Link(1, 2);
    catalogue.Link(1, 3);
    catalogue.Link(2, 1);
    catalogue.AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5));
}

/// @return the rows of a query, or what is wrong with it
QStringList Told(Connection& connection, const QString& sql)
{
    try {
        QStringList told;
        Recordset rows = connection.Execute(sql);
        told += rows.FieldNames().join(u'|');
        for (; !rows.Eof(); rows.MoveNext()) {
            QStringList fields;
            for (int i = 0; i < rows.FieldNames().size(); ++i) {
                const Value field = rows.Fields(i);
                fields += (field.IsNull() ? u"NULL"_qs : field.ToText()) +
                          QString::number(field.Get().index());
            }
            told += fields.join(u'|');
        }
        return told;
    } catch (const RuntimeError& error) {
        return {QString::number(error.Number()), error.WhatFailed(), error.Description()};
    }
}

Connection& Opened(Connection& connection, const TestCatalogue& catalogue)
{
    connection.Open(catalogue.ConnectionString());
    return connection;
}

} // namespace

void tst_statement_templates::valuesAreLiftedOutOfAStatement_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("values");
    const QString text(QChar(1));
    const QString number(QChar(2));
    QTest::newRow("a text and a number")
        << u"A = 'x' AND B=012"_qs << QString(u"A = "_qs + text + u" AND B=" + number)
        << QStringList{u"x"_qs, u"12"_qs};
    QTest::newRow("doubled quotes") << u"'d''água' \"d'\"\"\""_qs << QString(text + u' ' + text)
                                    << QStringList{u"d'água"_qs, u"d'\""_qs};
    QTest::newRow("an empty text and one quote")
        << u"'','''';"_qs << QString(text + u',' + text + u';') << QStringList{u""_qs, u"'"_qs};
    QTest::newRow("digits of a name are no number")
        << u"MUSICA2 = X1.ID_3"_qs << u"MUSICA2 = X1.ID_3"_qs << QStringList{};
    QTest::newRow("eighteen digits")
        << u"999999999999999999"_qs << number << QStringList{u"999999999999999999"_qs};
    QTest::newRow("any letters inside a text")
        << u"'ç\U0001F3B5[\x01\x02'"_qs << text << QStringList{u"ç\U0001F3B5[\x01\x02"_qs};
    QTest::newRow("nothing") << u""_qs << u""_qs << QStringList{};
}

void tst_statement_templates::valuesAreLiftedOutOfAStatement()
{
    QFETCH(QString, sql);
    QFETCH(QString, key);
    QFETCH(QStringList, values);
    Shape shape;
    QVERIFY(shape.Read(sql));
    QCOMPARE(shape.Key(), key);
    QCOMPARE(shape.Count(), values.size());
    for (qsizetype i = 0; i < values.size(); ++i)
        QCOMPARE(Shape::ValueOf(shape.At(i)).ToText(), values[i]);
}

void tst_statement_templates::unusualStatementsHaveNoShape_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("a text without an end") << u"A = 'x"_qs;
    QTest::newRow("a text whose last quote is doubled") << u"A = 'x''"_qs;
    QTest::newRow("a fraction") << u"A = 1.5"_qs;
    QTest::newRow("a fraction without a whole part") << u"A = .5"_qs;
    QTest::newRow("a number with a power") << u"A = 1e3"_qs;
    QTest::newRow("a number with letters") << u"A = 0abc"_qs;
    QTest::newRow("a number with an accent") << u"A = 0é"_qs;
    QTest::newRow("nineteen digits") << u"A = 1000000000000000000"_qs;
    QTest::newRow("a name in brackets") << u"[A'B] = 1"_qs;
    QTest::newRow("a name with an accent") << u"AÇÃO = 1"_qs;
    QTest::newRow("the signs of a key") << u"A = \x01"_qs;
    QTest::newRow("any other sign") << u"A # 1"_qs;
    QTest::newRow("a very long one") << QString(u"A"_qs.repeated(Shape::LongestKey + 1));
    QTest::newRow("long before a value") << QString(u"A"_qs.repeated(Shape::LongestKey) + u" 1");
}

void tst_statement_templates::unusualStatementsHaveNoShape()
{
    QFETCH(QString, sql);
    QVERIFY(!Shape().Read(sql));
}

void tst_statement_templates::manyValuesHaveNoShape()
{
    const auto list = [](qsizetype values) {
        return QString(u"A IN (0" + u",1"_qs.repeated(values - 1) + u')');
    };
    QVERIFY(Shape().Read(list(Shape::MostLiterals)));
    QVERIFY(!Shape().Read(list(Shape::MostLiterals + 1)));
}

void tst_statement_templates::literalsAreWhatTheLexerSees()
{
    int compared = 0;
    for (const QString& family : Families()) {
        for (const QString& value : Values()) {
            const QString sql = family.arg(value);
            Shape shape;
            if (!shape.Read(sql))
                continue;
            const Complaint complaint(sql);
            Lexer lexer(sql, complaint);
            qsizetype literal = 0;
            for (Token token = lexer.Next(); token.kind != Token::Kind::End; token = lexer.Next()) {
                if (token.kind != Token::Kind::Text && token.kind != Token::Kind::Number)
                    continue;
                QVERIFY2(literal < shape.Count(), qPrintable(sql));
                QCOMPARE(shape.At(literal).place, token.place);
                QCOMPARE(Shape::ValueOf(shape.At(literal++)).ToText(), token.Value());
                ++compared;
            }
            QCOMPARE(literal, shape.Count());
        }
    }
    QVERIFY2(compared > 500, qPrintable(QString::number(compared)));
}

void tst_statement_templates::aTemplateSaysWhatReadingWould_data()
{
    QTest::addColumn<QString>("family");
    QStringList families = Families();
    families += {u"INSERT INTO MUSICA (TITULO, CATEGORIA) VALUES (%1, 1)"_qs,
                 u"INSERT INTO MUSICA (TITULO, CATEGORIA) VALUES ('a', %1)"_qs,
                 u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT %1, ID FROM TEMA"_qs,
                 u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 5, ID FROM TEMA WHERE ID IN "
                 "(%1)"_qs,
                 u"INSERT INTO LISTA (DATA) VALUES (%1)"_qs,
                 u"UPDATE MUSICA SET TITULO = %1"_qs,
                 u"DELETE FROM MUSICA WHERE ID = %1"_qs};
    for (const QString& family : families)
        QTest::newRow(qPrintable(family)) << family;
}

/// Every value after every other: each finds the templates of all before it.
void tst_statement_templates::aTemplateSaysWhatReadingWould()
{
    QFETCH(QString, family);
    const Schema schema = CatalogueSchema();
    StatementTemplates templates;
    for (int round = 0; round < 2; ++round) {
        for (const QString& value : Values()) {
            const QString sql = family.arg(value);
            Shape shape;
            const bool isUsual = shape.Read(sql);
            const StatementTemplate* const known = isUsual ? templates.Find(shape) : nullptr;
            try {
                const Syntax::Statement statement = ReadStatement(sql, schema);
                const Translation anew = Writer::Write(statement, Writer::Compared::Bound);
                if (known) {
                    const Translation again = known->With(shape);
                    QCOMPARE(again.sql, anew.sql);
                    QVERIFY2(again.values == anew.values, qPrintable(sql));
                    QCOMPARE(again.isQuery, anew.isQuery);
                } else if (isUsual) {
                    templates.Keep(shape, statement, anew, AskedOfMemory(statement));
                }
            } catch (const RuntimeError&) {
                QVERIFY2(!known, qPrintable(sql));
            }
        }
    }
}

void tst_statement_templates::aWarmConnectionAnswersLikeAFreshOne()
{
    const TestCatalogue catalogue;
    Fill(catalogue);
    Connection warm;
    Opened(warm, catalogue);
    for (int round = 0; round < 2; ++round) {
        for (const QString& family : Families()) {
            Connection fresh; // knows no statement of this family yet
            Opened(fresh, catalogue);
            const QStringList& values = Values();
            for (qsizetype i = 0; i < values.size(); ++i) {
                const QString sql = family.arg(values[i]);
                const QString other = family.arg(values[values.size() - 1 - i]);
                QCOMPARE(Told(warm, sql), Told(fresh, sql));
                QCOMPARE(Told(fresh, other), Told(warm, other));
            }
        }
    }
}

void tst_statement_templates::insertedValuesArrive_data()
{
    QTest::addColumn<QString>("literal");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a text") << u"'Luz'"_qs << u"Luz|text"_qs;
    QTest::newRow("quotes") << u"'''d''''água'''"_qs << u"'d''água'|text"_qs;
    QTest::newRow("other quotes") << u"\"d'\"\"água\""_qs << u"d'\"água|text"_qs;
    QTest::newRow("an empty text") << u"''"_qs << u"|text"_qs;
    QTest::newRow("NULL") << u"NULL"_qs << u"|null"_qs;
    QTest::newRow("a number") << u"012"_qs << u"12|text"_qs;
    QTest::newRow("a negative number") << u"-12"_qs << u"-12|text"_qs;
    QTest::newRow("a fraction") << u"1.5"_qs << u"1.5|text"_qs;
    QTest::newRow("a computed text") << u"'a' & 'b'"_qs << u"ab|text"_qs;
    QTest::newRow("a parameter's sign") << u"'?1'"_qs << u"?1|text"_qs;
}

void tst_statement_templates::insertedValuesArrive()
{
    QFETCH(QString, literal);
    QFETCH(QString, stored);
    const TestCatalogue catalogue;
    Connection connection;
    Opened(connection, catalogue);
    const QString insertion =
        u"INSERT INTO MUSICA (TITULO, REFERENCIA, CATEGORIA) VALUES (%1, 'r', %2)"_qs;
    connection.Execute(insertion.arg(u"'antes'"_qs, u"1"_qs));
    connection.Execute(insertion.arg(u"'outra'"_qs, u"2"_qs));
    connection.Execute(insertion.arg(literal, u"3"_qs));
    connection.CommitBatch();
    QCOMPARE(catalogue.Field(u"SELECT TITULO || '|' || typeof(TITULO) FROM MUSICA WHERE ID = 3 "
                             "UNION SELECT '|null' FROM MUSICA WHERE ID = 3 AND TITULO IS NULL "
                             "ORDER BY 1 DESC"_qs),
             stored);
    QCOMPARE(catalogue.Field(u"SELECT group_concat(CATEGORIA) FROM MUSICA"_qs), u"1,2,3"_qs);
}

void tst_statement_templates::aColumnThatAnotherToolAddsIsSeen()
{
    const TestCatalogue catalogue;
    Fill(catalogue);
    Connection connection;
    Opened(connection, catalogue);
    const QString all = u"SELECT * FROM TEMA WHERE ID = 01"_qs;
    QCOMPARE(connection.Execute(all).FieldNames().size(), 4);
    catalogue.Run(u"ALTER TABLE TEMA ADD COLUMN NOVA TEXT DEFAULT 'n'"_qs);
    // A statement that names it makes the connection look.
    QCOMPARE(connection.Execute(u"SELECT NOVA FROM TEMA WHERE ID = 01"_qs).Fields(0).ToText(),
             u"n"_qs);
    QCOMPARE(connection.Execute(all).FieldNames().size(), 5);
    QCOMPARE(connection.Execute(all).Fields(u"NOVA").ToText(), u"n"_qs);
}

void tst_statement_templates::aTableThatAnotherToolMakesAnewIsSeen()
{
    const TestCatalogue catalogue;
    Fill(catalogue);
    Connection connection;
    Opened(connection, catalogue);
    const QString names = u"SELECT DESCRICAO FROM TEMA WHERE ID = %1"_qs;
    QCOMPARE(connection.Execute(names.arg(1)).Fields(0).ToText(), u"Louvor"_qs);
    catalogue.Run(
        u"ALTER TABLE TEMA RENAME TO ANTIGA; CREATE TABLE TEMA (COR TEXT, DESCRICAO TEXT, "
        "ID INTEGER PRIMARY KEY); INSERT INTO TEMA VALUES ('c', 'Novo', 1)"_qs);
    QCOMPARE(connection.Execute(names.arg(1)).Fields(0).ToText(), u"Novo"_qs);
    QVERIFY(connection.Execute(names.arg(2)).Eof());
    QCOMPARE(Told(connection, u"SELECT ID FROM TEMA WHERE DESCRICAO = 'novo'"_qs).value(1),
             u"11"_qs);
}

void tst_statement_templates::rowsThatAnotherConnectionWritesAreSeen()
{
    const TestCatalogue catalogue;
    Fill(catalogue);
    Connection connection;
    Opened(connection, catalogue);
    const QString title = u"SELECT TITULO FROM MUSICA WHERE ID = 0%1"_qs;
    QCOMPARE(connection.Execute(title.arg(1)).Fields(0).ToText(), u"Luz"_qs);
    catalogue.Run(u"UPDATE MUSICA SET TITULO = 'Mar' WHERE ID = 1"_qs);
    QCOMPARE(connection.Execute(title.arg(1)).Fields(0).ToText(), u"Mar"_qs);
    QCOMPARE(connection.Execute(title.arg(2)).Fields(0).ToText(), u"luz"_qs);
}

void tst_statement_templates::themesAreFoundByName_data()
{
    QTest::addColumn<QString>("change"); // by another program
    QTest::addColumn<QString>("own");    // by the program itself
    QTest::addColumn<QString>("found");  // themes called "luz" afterwards
    QTest::newRow("none") << QString() << QString() << u"2,3"_qs;
    QTest::newRow("added elsewhere")
        << u"INSERT INTO TEMA (DESCRICAO) VALUES ('Luz')"_qs << QString() << u"2,3,5"_qs;
    QTest::newRow("renamed elsewhere")
        << u"UPDATE TEMA SET DESCRICAO = 'x' WHERE ID = 2"_qs << QString() << u"3"_qs;
    QTest::newRow("deleted elsewhere") << u"DELETE FROM TEMA"_qs << QString() << QString();
    QTest::newRow("added") << QString()
                           << u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('LuZ', 2, '')"_qs
                           << u"2,3,5"_qs;
    QTest::newRow("renamed") << QString() << u"UPDATE TEMA SET DESCRICAO = 'luz' WHERE ID = 1"_qs
                             << u"1,2,3"_qs;
    QTest::newRow("renamed away") << QString()
                                  << u"UPDATE TEMA SET DESCRICAO = 'luz ' WHERE ID = 3"_qs
                                  << u"2"_qs;
    QTest::newRow("deleted") << QString() << u"DELETE FROM TEMA WHERE ID = 2"_qs << u"3"_qs;
    QTest::newRow("all deleted") << QString() << u"DELETE FROM TEMA"_qs << QString();
    QTest::newRow("no name") << QString() << u"UPDATE TEMA SET DESCRICAO = NULL WHERE ID = 2"_qs
                             << u"3"_qs;
    QTest::newRow("bytes of no kind")
        << u"UPDATE TEMA SET DESCRICAO = x'6c757a' WHERE ID = 1"_qs << QString() << u"2,3"_qs;
}

void tst_statement_templates::themesAreFoundByName()
{
    QFETCH(QString, change);
    QFETCH(QString, own);
    QFETCH(QString, found);
    const TestCatalogue catalogue;
    Fill(catalogue);
    Connection connection;
    Opened(connection, catalogue);
    const auto named = [&connection](const QString& name) {
        QStringList ids;
        Recordset rows =
            connection.Execute(u"SELECT ID FROM TEMA WHERE DESCRICAO = '%1'"_qs.arg(name));
        for (; !rows.Eof(); rows.MoveNext())
            ids += rows.Fields(u"ID").ToText();
        return ids.join(u',');
    };
    QCOMPARE(named(u"luz"_qs), u"2,3"_qs);
    QCOMPARE(named(u"Luz"_qs), u"2,3"_qs);
    if (!change.isEmpty())
        catalogue.Run(change);
    if (!own.isEmpty())
        connection.Execute(own);
    QCOMPARE(named(u"luz"_qs), found);
    // As SQLite itself answers, from the file.
    connection.CommitBatch();
    QCOMPARE(named(u"LUZ"_qs), found);
}

void tst_statement_templates::manyThemesShareAName()
{
    const TestCatalogue catalogue;
    Connection connection;
    Opened(connection, catalogue);
    constexpr int Many = 3000;
    Recordset held;
    for (int i = 1; i <= Many; ++i) {
        connection.Execute(
            u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('Sem Tema', 3, '')"_qs);
        Recordset named =
            connection.Execute(u"SELECT ID FROM TEMA WHERE DESCRICAO = 'sem tema'"_qs);
        QCOMPARE(named.RecordCount(), i);
        if (i == Many / 2)
            held = named;
    }
    // What was found stays what it was.
    QCOMPARE(held.RecordCount(), Many / 2);
    held.MoveTo(Many / 2 - 1);
    QCOMPARE(held.Fields(0).ToNumber(), Many / 2);
}

void tst_statement_templates::whatIsUndoneIsForgotten()
{
    const TestCatalogue catalogue;
    Fill(catalogue);
    Connection connection;
    Opened(connection, catalogue);
    const QString named = u"SELECT ID FROM TEMA WHERE DESCRICAO = 'luz'"_qs;
    QCOMPARE(connection.Execute(named).RecordCount(), 2);
    {
        // Nobody can commit while somebody else reads.
        Connection other;
        Opened(other, catalogue);
        const Connection::Snapshot reads(other);
        other.Execute(u"SELECT ID FROM MUSICA WHERE ID = 01"_qs);
        connection.Execute(u"UPDATE TEMA SET DESCRICAO = 'luz' WHERE ID = 01"_qs);
        QCOMPARE(connection.Execute(named).RecordCount(), 3);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, connection.CommitBatch());
    }
    QCOMPARE(connection.Execute(named).RecordCount(), 2);
}

QTEST_GUILESS_MAIN(tst_statement_templates)
#include "tst_statement_templates.moc"
