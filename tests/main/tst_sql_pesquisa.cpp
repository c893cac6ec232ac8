#include "main/SQL_Pesquisa.h"

#include <QTest>

namespace {

const QString Inicio =
    QStringLiteral("SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
                   "MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN "
                   "TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.CATEGORIA IN (");
const QString Ambas = Inicio + QStringLiteral("1,2) ");
const QString PorTitulo = QStringLiteral(" ORDER BY MUSICA.TITULO ");
const QString PorContador = QStringLiteral(" ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO ");

} // namespace

Q_DECLARE_METATYPE(Pedido_Pesquisa)

class tst_sql_pesquisa : public QObject
{
    Q_OBJECT

private slots:
    void statementIsExactlyThisText_data();
    void statementIsExactlyThisText();
    void theWholeTextOfAUsualSearch();
    void boxesJoinInEveryCombination_data();
    void boxesJoinInEveryCombination();
    void categoriesOfTheTwoBoxes_data();
    void categoriesOfTheTwoBoxes();
};

void tst_sql_pesquisa::statementIsExactlyThisText_data()
{
    QTest::addColumn<Pedido_Pesquisa>("pedido");
    QTest::addColumn<QString>("sql");

    QTest::newRow("nothing asked for") << Pedido_Pesquisa{} << Ambas + PorTitulo;
    QTest::newRow("most played first") << Pedido_Pesquisa{.ordenar = true} << Ambas + PorContador;
    QTest::newRow("part of the title")
        << Pedido_Pesquisa{.titulo = u"luz"_qs}
        << Ambas + u" AND MUSICA.TITULO LIKE '%luz%' "_qs + PorTitulo;
    QTest::newRow("part of the reference")
        << Pedido_Pesquisa{.referencia = u"Gonzaga"_qs}
        << Ambas + u" AND MUSICA.REFERENCIA LIKE '%Gonzaga%' "_qs + PorTitulo;
    QTest::newRow("part of the lyrics looks at the first version only")
        << Pedido_Pesquisa{.letra = u"olhei"_qs}
        << Ambas + u" AND MUSICA.MUSICA LIKE '%olhei%' "_qs + PorTitulo;
    QTest::newRow("a typed apostrophe is dropped, not doubled")
        << Pedido_Pesquisa{.titulo = u"d'água"_qs}
        << Ambas + u" AND MUSICA.TITULO LIKE '%dágua%' "_qs + PorTitulo;
    QTest::newRow("apostrophes are dropped in all three boxes")
        << Pedido_Pesquisa{.titulo = u"a'b"_qs, .referencia = u"'c"_qs, .letra = u"d''"_qs}
        << Ambas +
               u" AND MUSICA.TITULO LIKE '%ab%'  AND MUSICA.REFERENCIA LIKE '%c%'  AND "
               u"MUSICA.MUSICA LIKE '%d%' "_qs +
               PorTitulo;
    QTest::newRow("boxes with nothing but apostrophes ask for nothing")
        << Pedido_Pesquisa{.titulo = u"'"_qs, .referencia = u"''"_qs, .letra = u"'''"_qs}
        << Ambas + PorTitulo;
    QTest::newRow("blanks are looked for as typed")
        << Pedido_Pesquisa{.titulo = u" a  b "_qs}
        << Ambas + u" AND MUSICA.TITULO LIKE '% a  b %' "_qs + PorTitulo;
    QTest::newRow("pattern letters are spliced as typed")
        << Pedido_Pesquisa{.titulo = u"50%_["_qs}
        << Ambas + u" AND MUSICA.TITULO LIKE '%50%_[%' "_qs + PorTitulo;
    QTest::newRow("one theme") << Pedido_Pesquisa{.temas = {3}}
                               << Ambas + u" AND TEMA_MUSICA.ID_TEMA IN (3) "_qs + PorTitulo;
    QTest::newRow("themes 3 and 7") << Pedido_Pesquisa{.temas = {3, 7}}
                                    << Ambas + u" AND TEMA_MUSICA.ID_TEMA IN (3,7) "_qs + PorTitulo;
    QTest::newRow("the placeholder row of an empty theme list counts like a theme")
        << Pedido_Pesquisa{.temas = {0}}
        << Ambas + u" AND TEMA_MUSICA.ID_TEMA IN (0) "_qs + PorTitulo;
    QTest::newRow("first letter") << Pedido_Pesquisa{.inicial = u"B"_qs}
                                  << Ambas + u" AND MUSICA.TITULO LIKE 'B%' "_qs + PorTitulo;
    QTest::newRow("first letter ignores boxes and themes")
        << Pedido_Pesquisa{.inicial = u"B"_qs,
                           .titulo = u"luz"_qs,
                           .referencia = u"x"_qs,
                           .letra = u"y"_qs,
                           .temas = {3, 7}}
        << Ambas + u" AND MUSICA.TITULO LIKE 'B%' "_qs + PorTitulo;
    QTest::newRow("first letter keeps category and order")
        << Pedido_Pesquisa{.inicial = u"Z"_qs, .secular = 0, .ordenar = true}
        << Inicio + u"1)  AND MUSICA.TITULO LIKE 'Z%' "_qs + PorContador;
    QTest::newRow("everything at once")
        << Pedido_Pesquisa{.titulo = u"t"_qs,
                           .referencia = u"r"_qs,
                           .letra = u"x"_qs,
                           .religiosa = 0,
                           .secular = 1,
                           .temas = {12, 3, 40},
                           .ordenar = true}
        << Inicio +
               u"2)  AND MUSICA.TITULO LIKE '%t%'  AND MUSICA.REFERENCIA LIKE '%r%'  AND "
               u"MUSICA.MUSICA LIKE '%x%'  AND TEMA_MUSICA.ID_TEMA IN (12,3,40) "_qs +
               PorContador;
}

void tst_sql_pesquisa::statementIsExactlyThisText()
{
    QFETCH(Pedido_Pesquisa, pedido);
    QFETCH(QString, sql);
    QCOMPARE(Monta_SQL_Pesquisa(pedido), sql);
}

void tst_sql_pesquisa::theWholeTextOfAUsualSearch()
{
    const Pedido_Pesquisa pedido{.titulo = u"luz"_qs};
    QCOMPARE(Monta_SQL_Pesquisa(pedido),
             u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
             u"MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN TEMA_MUSICA "
             u"ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.CATEGORIA IN (1,2)  AND "
             u"MUSICA.TITULO LIKE '%luz%'  ORDER BY MUSICA.TITULO "_qs);
}

void tst_sql_pesquisa::boxesJoinInEveryCombination_data()
{
    QTest::addColumn<bool>("titulo");
    QTest::addColumn<bool>("referencia");
    QTest::addColumn<bool>("letra");
    QTest::addColumn<bool>("temas");
    QTest::addColumn<bool>("ordenar");
    for (int i = 0; i < 32; ++i) {
        QByteArray nome;
        const auto parte = [&](int bit, const char* texto) {
            if ((i & bit) != 0)
                nome += texto;
            return (i & bit) != 0;
        };
        const bool t = parte(1, " title");
        const bool r = parte(2, " reference");
        const bool x = parte(4, " lyrics");
        const bool m = parte(8, " themes");
        const bool o = parte(16, " order");
        QTest::newRow(nome.isEmpty() ? "none" : nome.trimmed().constData())
            << t << r << x << m << o;
    }
}

void tst_sql_pesquisa::boxesJoinInEveryCombination()
{
    QFETCH(bool, titulo);
    QFETCH(bool, referencia);
    QFETCH(bool, letra);
    QFETCH(bool, temas);
    QFETCH(bool, ordenar);

    Pedido_Pesquisa pedido;
    QString esperado = Ambas;
    if (titulo) {
        pedido.titulo = u"t"_qs;
        esperado += u" AND MUSICA.TITULO LIKE '%t%' "_qs;
    }
    if (referencia) {
        pedido.referencia = u"r"_qs;
        esperado += u" AND MUSICA.REFERENCIA LIKE '%r%' "_qs;
    }
    if (letra) {
        pedido.letra = u"x"_qs;
        esperado += u" AND MUSICA.MUSICA LIKE '%x%' "_qs;
    }
    if (temas) {
        pedido.temas = {1, 2};
        esperado += u" AND TEMA_MUSICA.ID_TEMA IN (1,2) "_qs;
    }
    pedido.ordenar = ordenar;
    esperado += ordenar ? PorContador : PorTitulo;
    QCOMPARE(Monta_SQL_Pesquisa(pedido), esperado);
}

void tst_sql_pesquisa::categoriesOfTheTwoBoxes_data()
{
    QTest::addColumn<int>("religiosa");
    QTest::addColumn<int>("secular");
    QTest::addColumn<QString>("categorias");

    QTest::newRow("both checked") << 1 << 1 << u"1,2"_qs;
    QTest::newRow("both unchecked means both") << 0 << 0 << u"1,2"_qs;
    QTest::newRow("Religiosa alone") << 1 << 0 << u"1"_qs;
    QTest::newRow("Secular alone") << 0 << 1 << u"2"_qs;
    QTest::newRow("Religiosa greyed alone") << 2 << 0 << u"1"_qs;
    QTest::newRow("Secular greyed alone") << 0 << 2 << u"2"_qs;
    QTest::newRow("both greyed") << 2 << 2 << u"1,2"_qs;
    QTest::newRow("checked and greyed share no bit") << 1 << 2 << u"1"_qs;
    QTest::newRow("greyed and checked share no bit") << 2 << 1 << u"1"_qs;
}

void tst_sql_pesquisa::categoriesOfTheTwoBoxes()
{
    QFETCH(int, religiosa);
    QFETCH(int, secular);
    QFETCH(QString, categorias);
    QCOMPARE(Lista_Categorias(religiosa, secular), categorias);
    QCOMPARE(Monta_SQL_Pesquisa({.religiosa = religiosa, .secular = secular}),
             Inicio + categorias + u") "_qs + PorTitulo);
}

QTEST_APPLESS_MAIN(tst_sql_pesquisa)
#include "tst_sql_pesquisa.moc"
