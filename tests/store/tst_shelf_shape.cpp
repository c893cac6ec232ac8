#include "store/CatalogueSchema.h"
#include "store/SearchText.h"
#include "store/dialect/Dialect.h"
#include "store/shelf/SongSearch.h"

#include <QTest>

namespace {

std::optional<SongSearch> Recognised(const QString& sql)
{
    static const Schema schema = CatalogueSchema();
    return SongSearch::Recognise(ReadStatement(sql, schema));
}

const QString Plain = u"SELECT ID, TITULO FROM MUSICA "_qs;

} // namespace

/// Which queries are answered from memory: searches, and nothing that only looks like one.
class tst_shelf_shape : public QObject
{
    Q_OBJECT

private slots:
    void takes_data();
    void takes();
    void leavesToSqlite_data();
    void leavesToSqlite();
    void readsWhatASearchAsksFor();
    void leavesColumnsOfOtherTypes();
};

void tst_shelf_shape::takes_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("all songs") << SearchText{}.Sql();
    QTest::newRow("one category") << SearchText{.categories = u"2"_qs}.Sql();
    QTest::newRow("a first letter") << SearchText{.letter = u"B"_qs}.Sql();
    QTest::newRow("all boxes")
        << SearchText{.title = u"a"_qs, .reference = u"[b"_qs, .lyrics = u"ç_%"_qs}.Sql();
    QTest::newRow("themes") << SearchText{.themes = u"3,7"_qs}.Sql();
    QTest::newRow("most played first") << SearchText{.mostPlayedFirst = true}.Sql();
    QTest::newRow("no condition") << Plain + u"ORDER BY TITULO"_qs;
    QTest::newRow("other letter case") << u"select musica.id from musica order by titulo"_qs;
    QTest::newRow("distinct without a link")
        << u"SELECT DISTINCT ID FROM MUSICA ORDER BY TITULO"_qs;
    QTest::newRow("titles suggested")
        << u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE 'a''b%' "
           "ORDER BY TITULO & ' - ' & REFERENCIA"_qs;
    QTest::newRow("references suggested")
        << u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA WHERE REFERENCIA LIKE 'a%' "
           "ORDER BY REFERENCIA"_qs;
    QTest::newRow("every song by its reference") << Plain + u"ORDER BY REFERENCIA"_qs;
    QTest::newRow("marked songs for a file")
        << u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA FROM MUSICA "
           "WHERE ID IN (012,15,)"_qs;
    QTest::newRow("marked songs for a list")
        << u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
           "MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN TEMA_MUSICA ON "
           "MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.ID IN (012,15,)"_qs;
    QTest::newRow("another name for a column")
        << u"SELECT ID, TITULO AS NOME FROM MUSICA ORDER BY TITULO"_qs;
}

void tst_shelf_shape::takes()
{
    QFETCH(QString, sql);
    QVERIFY(Recognised(sql));
}

void tst_shelf_shape::leavesToSqlite_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("no order") << Plain;
    QTest::newRow("descending titles") << Plain + u"ORDER BY TITULO DESC"_qs;
    QTest::newRow("least played first") << Plain + u"ORDER BY CONTADOR, TITULO"_qs;
    QTest::newRow("by count alone") << Plain + u"ORDER BY CONTADOR DESC"_qs;
    QTest::newRow("title before count") << Plain + u"ORDER BY TITULO, CONTADOR DESC"_qs;
    QTest::newRow("by another computed text")
        << Plain + u"WHERE TITULO LIKE 'x%' ORDER BY TITULO & ' / ' & REFERENCIA"_qs;
    QTest::newRow("by reference and title")
        << Plain + u"WHERE TITULO LIKE 'x%' ORDER BY REFERENCIA & ' - ' & TITULO"_qs;
    QTest::newRow("descending labels") << Plain + u"ORDER BY TITULO & ' - ' & REFERENCIA DESC"_qs;
    QTest::newRow("most played labels")
        << Plain + u"ORDER BY CONTADOR DESC, TITULO & ' - ' & REFERENCIA"_qs;
    QTest::newRow("most played references") << Plain + u"ORDER BY CONTADOR DESC, REFERENCIA"_qs;
    QTest::newRow("labels told apart")
        << u"SELECT DISTINCT TITULO & ' - ' & REFERENCIA FROM MUSICA ORDER BY REFERENCIA"_qs;
    QTest::newRow("references told apart with their keys")
        << u"SELECT DISTINCT TOM, REFERENCIA FROM MUSICA ORDER BY REFERENCIA"_qs;
    QTest::newRow("references told apart in another order")
        << u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA ORDER BY TITULO"_qs;
    QTest::newRow("another number") << u"SELECT DISTINCT 2, REFERENCIA FROM MUSICA "
                                       "ORDER BY REFERENCIA"_qs;
    QTest::newRow("by the place of a column") << Plain + u"ORDER BY 2"_qs;
    QTest::newRow("the second text") << u"SELECT MUSICA2 FROM MUSICA ORDER BY TITULO"_qs;
    QTest::newRow("every column") << u"SELECT * FROM MUSICA ORDER BY TITULO"_qs;
    QTest::newRow("a computed column") << u"SELECT TITULO & '' FROM MUSICA ORDER BY TITULO"_qs;
    QTest::newRow("a count") << u"SELECT COUNT(*) FROM MUSICA"_qs;
    QTest::newRow("groups") << u"SELECT TITULO FROM MUSICA GROUP BY TITULO ORDER BY TITULO"_qs;
    QTest::newRow("titles told apart") << u"SELECT DISTINCT TITULO FROM MUSICA ORDER BY TITULO"_qs;
    QTest::newRow("one song") << Plain + u"WHERE ID = 05 ORDER BY TITULO"_qs;
    QTest::newRow("marked songs") << Plain + u"WHERE ID IN (1,2) ORDER BY TITULO"_qs;
    QTest::newRow("songs marked twice") << Plain + u"WHERE ID IN (1) AND ID IN (2)"_qs;
    QTest::newRow("songs that are not marked") << Plain + u"WHERE ID NOT IN (1)"_qs;
    QTest::newRow("a text as a marked song") << Plain + u"WHERE ID IN ('1')"_qs;
    QTest::newRow("a category without an order") << Plain + u"WHERE CATEGORIA IN (1)"_qs;
    QTest::newRow("either condition")
        << Plain + u"WHERE TITULO LIKE 'a' OR TITULO LIKE 'b' ORDER BY TITULO"_qs;
    QTest::newRow("not alike") << Plain + u"WHERE TITULO NOT LIKE 'a' ORDER BY TITULO"_qs;
    QTest::newRow("not a category") << Plain + u"WHERE CATEGORIA NOT IN (1) ORDER BY TITULO"_qs;
    QTest::newRow("a fraction as category")
        << Plain + u"WHERE CATEGORIA IN (1.5) ORDER BY TITULO"_qs;
    QTest::newRow("a text as category") << Plain + u"WHERE CATEGORIA IN ('1') ORDER BY TITULO"_qs;
    QTest::newRow("a number beyond any")
        << Plain + u"WHERE CATEGORIA IN (99999999999999999999) ORDER BY TITULO"_qs;
    QTest::newRow("a pattern from a column") << Plain + u"WHERE TITULO LIKE TOM ORDER BY TITULO"_qs;
    QTest::newRow("the key alike") << Plain + u"WHERE TOM LIKE 'C' ORDER BY TITULO"_qs;
    QTest::newRow("songs of a setlist")
        << Plain + u"WHERE ID IN (SELECT ID_MUSICA FROM LISTA_MUSICA) ORDER BY TITULO"_qs;
    QTest::newRow("themes as songs")
        << Plain + u"WHERE ID IN (SELECT ID_TEMA FROM TEMA_MUSICA) ORDER BY TITULO"_qs;
    QTest::newRow("songs without a theme")
        << Plain + u"WHERE ID NOT IN (SELECT ID_MUSICA FROM TEMA_MUSICA) ORDER BY TITULO"_qs;
    QTest::newRow("links by song")
        << Plain +
               u"WHERE ID IN (SELECT ID_MUSICA FROM TEMA_MUSICA WHERE ID_MUSICA IN (3)) ORDER BY TITULO"_qs;
    QTest::newRow("another table") << u"SELECT ID FROM TEMA ORDER BY ORDEM"_qs;
    QTest::newRow("a change") << u"DELETE FROM MUSICA"_qs;
}

void tst_shelf_shape::leavesToSqlite()
{
    QFETCH(QString, sql);
    QVERIFY(!Recognised(sql));
}

void tst_shelf_shape::readsWhatASearchAsksFor()
{
    using Field = SongSearch::Field;
    const auto search = Recognised(SearchText{.categories = u"2,1"_qs,
                                              .title = u"a''b"_qs,
                                              .lyrics = u"ção"_qs,
                                              .themes = u"7,03"_qs,
                                              .mostPlayedFirst = true}
                                       .Sql());
    QVERIFY(search);
    QCOMPARE(search->columns.size(), std::size_t{7});
    QCOMPARE(search->columns.back(), Field::Text);
    QCOMPARE(search->names.first(), u"ID"_qs);
    QCOMPARE(*search->categories, (std::vector<qint64>{1, 2}));
    QCOMPARE(search->patterns.size(), std::size_t{2});
    QCOMPARE(search->patterns[0].field, Field::Title);
    QCOMPARE(search->patterns[0].like, QByteArray("%a'b%"));
    QCOMPARE(search->patterns[1].field, Field::Text);
    QCOMPARE(search->patterns[1].like, u"%ção%"_qs.toUtf8());
    QCOMPARE(*search->links->themes, (std::vector<qint64>{3, 7}));
    QVERIFY(search->order == SongSearch::Order::MostPlayed);
}

void tst_shelf_shape::leavesColumnsOfOtherTypes()
{
    for (const ColumnType type : {ColumnType::Text, ColumnType::Other, ColumnType::Long}) {
        Schema schema;
        schema.Add({u"MUSICA"_qs, {{u"ID"_qs, ColumnType::Long}, {u"TITULO"_qs, type}}});
        const QString sql = Plain + u"ORDER BY TITULO"_qs;
        const auto statement = ReadStatement(sql, schema);
        QCOMPARE(SongSearch::Recognise(statement).has_value(), type == ColumnType::Text);
    }
}

QTEST_APPLESS_MAIN(tst_shelf_shape)
#include "tst_shelf_shape.moc"
