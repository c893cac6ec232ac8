#include "store/CatalogueSchema.h"
#include "store/dialect/LinkJoin.h"
#include "store/dialect/Parser.h"
#include "store/dialect/Resolver.h"
#include "store/dialect/Writer.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/sqlite/Statement.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <random>
#include <sqlite3.h>

/// The join with the links becomes a question whether one exists, and nobody sees a difference.
class tst_linkjoin : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void folds_data();
    void folds();
    void leavesAlone_data();
    void leavesAlone();
    void givesTheSameRows_data();
    void givesTheSameRows();

private:
    TestCatalogue m_catalogue;
};

namespace {

Translation Translated(const QString& sql, bool folded)
{
    static const Schema schema = CatalogueSchema();
    const Complaint complaint(sql);
    Syntax::Statement statement = Parser(sql, complaint).ParseStatement();
    Resolver(schema, complaint).Resolve(statement);
    if (folded)
        FoldLinkJoin(std::get<Syntax::Select>(statement));
    return Writer::Write(statement);
}

QList<QByteArrayList> Rows(const QString& path, const Translation& translation)
{
    sqlite3* database = nullptr;
    if (sqlite3_open(path.toUtf8().constData(), &database) != SQLITE_OK)
        qFatal("the catalogue does not open");
    SqlFunctions::AddAll(database);
    QList<QByteArrayList> rows;
    {
        Statement statement(database, translation.sql);
        statement.Bind(translation.values);
        while (statement.Step()) {
            QByteArrayList row;
            for (int i = 0; i < statement.ColumnCount(); ++i) {
                const bool null = statement.ColumnKind(i) == Statement::Kind::Null;
                const std::string_view text = null ? "NULL" : statement.Text(i);
                row.append(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
            }
            rows.append(row);
        }
    }
    sqlite3_close(database);
    return rows;
}

const QString Shown =
    u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, MUSICA.VARIACAO,"
    " MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID ="
    " TEMA_MUSICA.ID_MUSICA "_qs;

const QString Available =
    u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA  FROM MUSICA INNER JOIN"
    " TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.CATEGORIA = 01"_qs;

} // namespace

/// Titles, references and links by chance: alike but for letter case, empty, missing, without a
/// link, with several links, links to nothing.
void tst_linkjoin::initTestCase()
{
    std::mt19937 chance(1);
    const auto below = [&chance](int n) { return static_cast<int>(chance() % unsigned(n)); };
    const QStringList words{u"luz"_qs,  u"Luz"_qs, u"LUZ"_qs, u"água"_qs,
                            u"Agua"_qs, u""_qs,    QString(), u"Amor"_qs};
    PlainSqlite database(m_catalogue.Path());
    for (int i = 0; i < 300; ++i) {
        const auto word = [&] {
            const QString text = words[below(int(words.size()))];
            return text.isNull() ? QVariant() : QVariant(text);
        };
        database.Rows(u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, CATEGORIA, CONTADOR)"
                      " VALUES (?, ?, ?, ?, ?)"_qs,
                      {word(), word(), word(), 1 + below(3), below(3)});
    }
    for (int i = 0; i < 500; ++i)
        database.Rows(u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (?, ?)"_qs,
                      {below(320), 1 + below(8)});
    database.Run("INSERT INTO TEMA_MUSICA VALUES (NULL, 3), (5, NULL)");
    database.Run("INSERT INTO TEMA (ID, DESCRICAO, ORDEM) VALUES (1, 'Louvor', 2), (3, 'Paz', 1)");
}

void tst_linkjoin::folds_data()
{
    QTest::addColumn<QString>("sql");

    QTest::newRow("conditions part between the tables")
        << u"SELECT DISTINCT MUSICA.ID, TITULO FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID ="
           " ID_MUSICA WHERE CATEGORIA = 1 AND ID_TEMA IN (3,7) ORDER BY TITULO"_qs;
    QTest::newRow("the link on the left of the condition, no WHERE")
        << u"SELECT DISTINCT MUSICA.ID FROM MUSICA INNER JOIN TEMA_MUSICA ON ID_MUSICA ="
           " MUSICA.ID"_qs;
    QTest::newRow("one table that shows its ID") << u"SELECT DISTINCT ID, TITULO FROM MUSICA"_qs;
}

void tst_linkjoin::folds()
{
    QFETCH(QString, sql);
    const auto rows = Rows(m_catalogue.Path(), Translated(sql, false));
    QVERIFY(!rows.isEmpty());
    QCOMPARE(Rows(m_catalogue.Path(), Translated(sql, true)), rows);
}

void tst_linkjoin::leavesAlone_data()
{
    QTest::addColumn<QString>("sql");
    const QString join = u" FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID = ID_MUSICA "_qs;
    QTest::newRow("without DISTINCT a row comes once for each link") << u"SELECT MUSICA.ID" + join;
    QTest::newRow("the ID is not shown") << u"SELECT DISTINCT TITULO" + join;
    QTest::newRow("the ID is shown only inside a text") << u"SELECT DISTINCT MUSICA.ID & ''" + join;
    QTest::newRow("the link is shown") << u"SELECT DISTINCT MUSICA.ID, ID_TEMA" + join;
    QTest::newRow("sorted by the link")
        << u"SELECT DISTINCT MUSICA.ID" + join + u"ORDER BY ID_TEMA";
    QTest::newRow("a condition names both tables")
        << u"SELECT DISTINCT MUSICA.ID" + join + u"WHERE CATEGORIA = ID_TEMA";
    QTest::newRow("a condition holds a sub-query")
        << u"SELECT DISTINCT MUSICA.ID" + join + u"WHERE ID_TEMA IN (SELECT ID FROM TEMA)";
    QTest::newRow("OR between the tables")
        << u"SELECT DISTINCT MUSICA.ID" + join + u"WHERE CATEGORIA = 1 OR ID_TEMA = 3";
    QTest::newRow("not joined by the ID")
        << u"SELECT DISTINCT MUSICA.ID FROM MUSICA INNER JOIN TEMA_MUSICA ON CATEGORIA = ID_TEMA"_qs;
    QTest::newRow("joined by less")
        << u"SELECT DISTINCT MUSICA.ID FROM MUSICA INNER JOIN TEMA_MUSICA ON MUSICA.ID >"
           " ID_MUSICA"_qs;
    QTest::newRow("three tables") << u"SELECT DISTINCT MUSICA.ID" + join +
                                         u"INNER JOIN TEMA ON TEMA.ID = ID_TEMA";
    QTest::newRow("grouped") << u"SELECT DISTINCT MUSICA.ID, COUNT(*)" + join +
                                    u"GROUP BY MUSICA.ID";
    QTest::newRow("one table without its ID") << u"SELECT DISTINCT TITULO FROM MUSICA"_qs;
}

void tst_linkjoin::leavesAlone()
{
    QFETCH(QString, sql);
    const auto rows = Rows(m_catalogue.Path(), Translated(sql, false));
    QVERIFY(!rows.isEmpty());
    QCOMPARE(Rows(m_catalogue.Path(), Translated(sql, true)), rows);
}

void tst_linkjoin::givesTheSameRows_data()
{
    QTest::addColumn<QString>("sql");

    const QStringList categories{u"1,2"_qs, u"2"_qs};
    const QStringList filters{u""_qs, u" AND MUSICA.TITULO LIKE 'a%' "_qs,
                              u" AND MUSICA.TITULO LIKE '%luz%'  AND MUSICA.MUSICA LIKE '%U%' "_qs,
                              u" AND TEMA_MUSICA.ID_TEMA IN (3,7) "_qs,
                              u" AND MUSICA.REFERENCIA LIKE '%agua%'  AND TEMA_MUSICA.ID_TEMA IN"
                              " (1) "_qs};
    const QStringList orders{u" ORDER BY MUSICA.TITULO "_qs,
                             u" ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO "_qs, u""_qs};
    for (const QString& category : categories) {
        for (const QString& filter : filters) {
            for (const QString& order : orders) {
                const QString sql =
                    Shown + u" WHERE MUSICA.CATEGORIA IN (" + category + u") " + filter + order;
                QTest::newRow(sql.mid(Shown.size()).toUtf8().constData()) << sql;
            }
        }
    }
    QTest::newRow("marked songs") << Shown + u" WHERE MUSICA.ID IN (012,15,999,5,)";
    QTest::newRow("available songs")
        << Available + u" ORDER BY MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA ";
    QTest::newRow("available songs of a theme that begin with a letter")
        << Available + u" AND TEMA_MUSICA.ID_TEMA = 03 AND MUSICA.titulo like 'l%'  ORDER BY"
                       " MUSICA.TITULO & ' - ' &  MUSICA.REFERENCIA ";
}

void tst_linkjoin::givesTheSameRows()
{
    QFETCH(QString, sql);
    const Translation literal = Translated(sql, false);
    const Translation folded = Translated(sql, true);
    const auto rows = Rows(m_catalogue.Path(), literal);
    QVERIFY(!rows.isEmpty());
    QCOMPARE(Rows(m_catalogue.Path(), folded), rows);
}

QTEST_GUILESS_MAIN(tst_linkjoin)
#include "tst_linkjoin.moc"
