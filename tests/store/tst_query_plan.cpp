#include "store/CatalogueSchema.h"
#include "store/dialect/Dialect.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/sqlite/Statement.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <sqlite3.h>

/// How SQLite goes about the statements: one song, one song's links or one setlist are looked up,
/// never searched for among all of them.
class tst_query_plan : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void looksUp_data();
    void looksUp();

private:
    QStringList Plan(const QString& sql);

    TestCatalogue m_catalogue;
    sqlite3* m_database = nullptr;
};

void tst_query_plan::initTestCase()
{
    QCOMPARE(sqlite3_open(m_catalogue.Path().toUtf8().constData(), &m_database), SQLITE_OK);
    SqlFunctions::AddAll(m_database);
}

void tst_query_plan::cleanupTestCase()
{
    sqlite3_close(m_database);
}

QStringList tst_query_plan::Plan(const QString& sql)
{
    static const Schema schema = CatalogueSchema();
    const Translation translation = Translate(sql, schema);
    Statement statement(m_database, "EXPLAIN QUERY PLAN " + translation.sql);
    statement.Bind(translation.values);
    QStringList plan;
    while (statement.Step()) {
        const std::string_view line = statement.Text(statement.ColumnCount() - 1);
        plan.append(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
    }
    return plan;
}

void tst_query_plan::looksUp_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("lookUps");
    const QString song = u"SEARCH MUSICA USING INTEGER PRIMARY KEY (rowid=?)"_qs;
    const QString theme = u"SEARCH TEMA USING INTEGER PRIMARY KEY (rowid=?)"_qs;
    const QString linksOfSong =
        u"SEARCH TEMA_MUSICA USING INDEX TEMA_MUSICA_POR_MUSICA (ID_MUSICA=?)"_qs;
    const QString linksOfTheme =
        u"SEARCH TEMA_MUSICA USING INDEX TEMA_MUSICA_POR_TEMA (ID_TEMA=?)"_qs;
    const QString setlist =
        u"SEARCH LISTA_MUSICA USING INDEX LISTA_MUSICA_POR_LISTA (ID_LISTA=?)"_qs;

    QTest::newRow("a song") << u"SELECT * FROM MUSICA WHERE ID = 057"_qs << QStringList{song};
    QTest::newRow("marked songs") << u"SELECT ID, TITULO FROM MUSICA WHERE ID IN (012,15,)"_qs
                                  << QStringList{song};
    QTest::newRow("a song saved") << u"UPDATE MUSICA SET TITULO = 'x' WHERE ID = 057"_qs
                                  << QStringList{song};
    QTest::newRow("a play counted")
        << u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 057 AND ID NOT IN (1,2)"_qs
        << QStringList{song};
    QTest::newRow("the links of a song")
        << u"SELECT * FROM TEMA_MUSICA WHERE ID_MUSICA = 057"_qs << QStringList{linksOfSong};
    QTest::newRow("the links of a theme")
        << u"SELECT * FROM TEMA_MUSICA WHERE ID_TEMA = 03"_qs << QStringList{linksOfTheme};
    QTest::newRow("links removed")
        << u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 057"_qs << QStringList{linksOfSong};
    QTest::newRow("the themes of a song")
        << u"SELECT TEMA.DESCRICAO, TEMA.COR FROM TEMA_MUSICA INNER JOIN TEMA ON TEMA.ID ="
           " TEMA_MUSICA.ID_TEMA WHERE ID_MUSICA = 057 ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs
        << QStringList{linksOfSong, theme};
    QTest::newRow("the songs of a setlist")
        << u"SELECT MUSICA.ID FROM MUSICA INNER JOIN LISTA_MUSICA ON MUSICA.ID ="
           " LISTA_MUSICA.ID_MUSICA WHERE LISTA_MUSICA.ID_LISTA = 01 ORDER BY LISTA_MUSICA.ORDEM"_qs
        << QStringList{setlist, song};
    QTest::newRow("the songs of a theme")
        << u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO FROM MUSICA INNER JOIN TEMA_MUSICA ON"
           " MUSICA.ID = TEMA_MUSICA.ID_MUSICA WHERE TEMA_MUSICA.ID_TEMA IN (3,7)"_qs
        << QStringList{song, linksOfTheme};
    QTest::newRow("the newest song")
        << u"SELECT MAX(ID) AS ID FROM MUSICA"_qs << QStringList{u"SEARCH MUSICA"_qs};
    QTest::newRow("links to themes by their numbers")
        << u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 5, ID FROM TEMA WHERE ID IN"
           " (3,7)"_qs
        << QStringList{theme};
}

void tst_query_plan::looksUp()
{
    QFETCH(QString, sql);
    QFETCH(QStringList, lookUps);
    const QStringList plan = Plan(sql);
    for (const QString& lookUp : lookUps)
        QVERIFY2(plan.contains(lookUp), qPrintable(plan.join(u'\n')));
    for (const QString& step : plan)
        QVERIFY2(!step.startsWith(u"SCAN"), qPrintable(plan.join(u'\n')));
}

QTEST_GUILESS_MAIN(tst_query_plan)
#include "tst_query_plan.moc"
