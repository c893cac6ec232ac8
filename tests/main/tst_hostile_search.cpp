// Searches and songs that nobody would write, through the search panel.

#include "PesquisaTeste.h"

#include "store/Connection.h"

#include <QLineEdit>

#include <algorithm>

namespace {

// A debug build with sanitizers is to finish too.
#if defined(__SANITIZE_ADDRESS__)
constexpr int Length = 15'000;
#else
constexpr int Length = 100'000;
#endif
/// What a box takes; three times that still fits into a title.
constexpr int Longest = std::min(Length / 3, 32'767);

} // namespace

class tst_hostile_search : public PesquisaTeste
{
    Q_OBJECT

private slots:
    void patternsOfAnyLengthAreAnswered_data();
    void patternsOfAnyLengthAreAnswered();
    void wildcardsDoNotExplode_data();
    void wildcardsDoNotExplode();
    void rowsOfAnyLengthAreShown_data();
    void rowsOfAnyLengthAreShown();

private:
    void Procura(const char* caixa, const QString& texto)
    {
        Acha<QLineEdit>(caixa)->setText(texto);
        Acha<QTimer>("Timer1")->stop();
        Acha<PainelPesquisa>("pctFrame_0")->Pesquisa();
    }
};

void tst_hostile_search::patternsOfAnyLengthAreAnswered_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("found");
    const auto row = [](const char* name, const QString& piece, bool found, int length = 4000) {
        QTest::newRow(name) << piece.repeated(length / piece.size()) << found;
    };
    row("letters", u"a"_qs, true, Longest);
    row("other letters", u"ab"_qs, false);
    row("any run", u"%"_qs, true);
    row("any run and letters", u"%a"_qs, true);
    row("any run and another letter", u"%b"_qs, false, Longest);
    row("any character", u"_"_qs, true);
    row("any run and any character", u"_%"_qs, true);
    row("sets", u"[a-z]"_qs, true, Longest);
    row("sets of nothing here", u"[!a]"_qs, false);
    row("open brackets", u"["_qs, false);
    row("closing brackets", u"]"_qs, false);
    row("apostrophes", u"'"_qs, true); // dropped, so nothing is asked for
    row("quotes", u"\""_qs, false);
    row("signs on nothing", u"\u0301"_qs, false);
    row("unpaired surrogates", QString(QChar(0xD83C)), false);
}

void tst_hostile_search::patternsOfAnyLengthAreAnswered()
{
    QFETCH(QString, pattern);
    QFETCH(bool, found);
    const QString longText(Length, u'a');
    Musica(longText, {}, {.reference = longText, .text = longText, .text2 = longText});
    Carrega();
    for (const char* caixa : {"txtTitulo", "txtReferencia", "txtLetra"}) {
        Procura(caixa, pattern);
        QVERIFY(Acha<QLineEdit>(caixa)->text() == pattern);
        QVERIFY2(Contagem() == (found ? u"1 Registro(s) Encontrado(s)."_qs
                                      : u"0 Registro(s) Encontrado(s)."_qs),
                 caixa);
        Procura(caixa, QString());
    }
    QCOMPARE(m_caixas->boxes.size(), 0);

    // Longer than a box takes, straight to the store.
    QString longer = pattern.repeated(3);
    longer.remove(u'\'');
    Recordset rows = Funcoes::Conexao.Execute(u"SELECT ID FROM MUSICA WHERE TITULO LIKE '%"_qs +
                                              longer + u"%'"_qs);
    QCOMPARE(!rows.Eof(), found);
}

void tst_hostile_search::wildcardsDoNotExplode_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::newRow("any runs between letters that are there, then one that is not")
        << u"a%"_qs.repeated(50) + u"b"_qs;
    QTest::newRow("pairs") << u"%aa"_qs.repeated(200) + u"%b"_qs;
    QTest::newRow("any characters between") << u"%_a_"_qs.repeated(200) + u"b"_qs;
    QTest::newRow("sets between") << u"%[a-c]"_qs.repeated(200) + u"b"_qs;
}

/// A matcher that tries every way would not end before the world does.
void tst_hostile_search::wildcardsDoNotExplode()
{
    QFETCH(QString, pattern);
    const QString longText(20'000, u'a');
    Musica(longText, {}, {.reference = longText, .text = longText, .text2 = longText});
    Carrega();
    for (const char* caixa : {"txtTitulo", "txtReferencia", "txtLetra"}) {
        Procura(caixa, pattern);
        QCOMPARE(Contagem(), u"0 Registro(s) Encontrado(s)."_qs);
        Procura(caixa, QString());
    }
    QCOMPARE(Contagem(), u"1 Registro(s) Encontrado(s)."_qs);
}

void tst_hostile_search::rowsOfAnyLengthAreShown_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << u"Santo "_qs.repeated(Length / 6);
    QTest::newRow("one word") << QString(Length, u'x');
    QTest::newRow("lines") << u"Santo\r\n"_qs.repeated(Length / 7);
    QTest::newRow("signs on one letter") << QString(u"a"_qs + QString(Length, QChar(0x0301)));
    QTest::newRow("marks of direction") << u"\u202Ea\u202B"_qs.repeated(Length / 3);
    QTest::newRow("markup") << u"<b>&amp;"_qs.repeated(Length / 8);
}

void tst_hostile_search::rowsOfAnyLengthAreShown()
{
    QFETCH(QString, text);
    const qint64 tema = m_catalogo->AddTheme(text);
    for (int i = 0; i < 5; ++i)
        Musica(text, {tema}, {.reference = text});
    Carrega();
    QCOMPARE(m_lista->ListCount(), 5);
    for (int i = 0; i < 3; ++i)
        m_lista->viewport()->repaint();
    Clica_Linha(1);
    QCOMPARE(m_lista->currentIndex().row(), 1);
    const QString shown = m_lista->model()->index(0, 0).data().toString();
    QVERIFY(shown.startsWith(text.first(1000)));
}

QTEST_MAIN(tst_hostile_search)
#include "tst_hostile_search.moc"
