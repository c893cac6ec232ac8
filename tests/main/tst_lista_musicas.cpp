#include "LinhasMusica.h"

#include "controls/RecordingDialogs.h"
#include "store/Connection.h"
#include "support/TestCatalogue.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <exception>
#include <memory>
#include <new>
#include <stdexcept>

namespace {

QList<qint64> Tags(const ListaMusicas& lista)
{
    QList<qint64> tags;
    for (int i = 0; i < lista.ListCount(); ++i)
        tags.append(lista.Tag(i));
    return tags;
}

} // namespace

class tst_lista_musicas : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aHeldListIsLaidOutWhenItIsLetGo_data();
    void aHeldListIsLaidOutWhenItIsLetGo();
    void cleanup();

    void headersAreTheGivenOnes();
    void aFillIsOneReset();
    void equalTextsKeepTheirOrder();
    void selectionFollowsItsRowsWhenSorted();
    void firstClickSortsDescendingAndEachClickTurns();
    void aNewFillShowsItsOwnOrderAndKeepsTheDirection();
    void laterFillOvertakesTheEarlier();
    void onlyVisibleRowsReadTheirThemes();
    void sortingByThemesReadsThemAll();
    void failureOfPaintingIsToldOnceAndNeverThrown();
    void failureThatComesBackIsToldAgain();
    void exceptionsOfAnyKindAreToldAndNeverThrown();
    void failureOfSortingIsIgnored();
    void viewTurnsIntoAPlainListAndBack();
    void selectedItemIsTheCurrentOne();
    void markedItemsComeInTheOrderShown();
    void keysAreToldOncePerPress();
    void typedLettersLookForTitlesWhateverColumnIsCurrent();
    void rightButtonSelectsTheRowUnderIt();
    void rightButtonKeepsSeveralMarkedRows();
    void rightButtonBesideTheRowsDoesNothing();
    void doubleClickIsToldOnRowsOnly();
    void toolTipShowsMarkupAsTyped();
    void columnsKeepTheirSharesWhenResized();
    void holdsTwentyThousandRows();

private:
    void Mostra(std::vector<LinhaMusica> linhas);
    QPoint Meio(int linha, int coluna = 0) const;
    int Leituras() const;

    std::unique_ptr<TestCatalogue> m_catalogo;
    std::unique_ptr<RecordingDialogs> m_caixas;
    std::unique_ptr<ListaMusicas> m_lista;
    QStringList m_sql;
};

void tst_lista_musicas::init()
{
    m_catalogo = std::make_unique<TestCatalogue>();
    m_caixas = std::make_unique<RecordingDialogs>();
    m_lista = std::make_unique<ListaMusicas>();
    m_lista->resize(700, 400);
    Funcoes::Conexao.Open(m_catalogo->ConnectionString());
    m_sql.clear();
    Funcoes::Conexao.SetStatementHook([this](const QString& sql) { m_sql.append(sql); });
}

void tst_lista_musicas::cleanup()
{
    Funcoes::Conexao.SetStatementHook({});
    m_lista.reset();
    m_caixas.reset();
    if (Funcoes::Conexao.IsOpen())
        Funcoes::Conexao.Close();
    m_catalogo.reset();
}

void tst_lista_musicas::Mostra(std::vector<LinhaMusica> linhas)
{
    m_lista->Preenche(std::move(linhas));
    m_lista->show();
    QVERIFY(QTest::qWaitForWindowActive(m_lista.get()));
}

QPoint tst_lista_musicas::Meio(int linha, int coluna) const
{
    return m_lista->visualRect(m_lista->model()->index(linha, coluna)).center();
}

int tst_lista_musicas::Leituras() const
{
    return static_cast<int>(m_sql.filter(u"FROM TEMA_MUSICA"_qs).size());
}

void tst_lista_musicas::headersAreTheGivenOnes()
{
    QStringList titulos;
    for (int i = 0; i < m_lista->model()->columnCount(); ++i)
        titulos.append(m_lista->model()->headerData(i, Qt::Horizontal).toString());
    QCOMPARE(titulos, QStringList({u"Título"_qs, u"Referência"_qs, u"Temas"_qs}));
}

void tst_lista_musicas::aFillIsOneReset()
{
    QSignalSpy reset(m_lista->model(), &QAbstractItemModel::modelReset);
    QSignalSpy inseridas(m_lista->model(), &QAbstractItemModel::rowsInserted);
    m_lista->Preenche(Linhas(1000));
    QCOMPARE(reset.size(), 1);
    QCOMPARE(inseridas.size(), 0);
    QCOMPARE(m_lista->ListCount(), 1000);
    QVERIFY(m_lista->Itens_Selecionados().isEmpty());
}

void tst_lista_musicas::equalTextsKeepTheirOrder()
{
    m_lista->Preenche({Linha(9, u"A"_qs, u"x"_qs), Linha(5, u"B"_qs, u"X"_qs),
                       Linha(7, u"C"_qs, u"a"_qs), Linha(1, u"D"_qs, u"x"_qs)});
    m_lista->Ordena_Por(1);
    QCOMPARE(Tags(*m_lista), QList<qint64>({9, 5, 1, 7}));
    m_lista->Ordena_Por(1);
    QCOMPARE(Tags(*m_lista), QList<qint64>({7, 9, 5, 1}));
}

void tst_lista_musicas::selectionFollowsItsRowsWhenSorted()
{
    Mostra({Linha(1, u"a"_qs), Linha(2, u"b"_qs), Linha(3, u"c"_qs), Linha(4, u"d"_qs)});
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, {}, Meio(0));
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier, Meio(2));
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>({1, 3}));
    m_lista->Ordena_Por(0);
    QCOMPARE(Tags(*m_lista), QList<qint64>({4, 3, 2, 1}));
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>({3, 1}));
    QCOMPARE(m_lista->Item_Selecionado(), std::optional<qint64>(3));
}

void tst_lista_musicas::firstClickSortsDescendingAndEachClickTurns()
{
    Mostra({Linha(1, u"b"_qs, u"y"_qs), Linha(2, u"c"_qs, u"x"_qs), Linha(3, u"a"_qs, u"z"_qs)});
    QVERIFY(!m_lista->header()->isSortIndicatorShown());
    m_lista->Ordena_Por(0);
    QCOMPARE(Tags(*m_lista), QList<qint64>({2, 1, 3}));
    QVERIFY(m_lista->header()->isSortIndicatorShown());
    m_lista->Ordena_Por(1); // another column turns the direction as well
    QCOMPARE(Tags(*m_lista), QList<qint64>({2, 1, 3}));
    m_lista->Ordena_Por(1);
    QCOMPARE(Tags(*m_lista), QList<qint64>({3, 1, 2}));
}

void tst_lista_musicas::aNewFillShowsItsOwnOrderAndKeepsTheDirection()
{
    const std::vector<LinhaMusica> linhas{Linha(1, u"b"_qs), Linha(2, u"c"_qs), Linha(3, u"a"_qs)};
    Mostra(linhas);
    m_lista->Ordena_Por(0);
    m_lista->Preenche(linhas);
    QCOMPARE(Tags(*m_lista), QList<qint64>({1, 2, 3}));
    QVERIFY(!m_lista->header()->isSortIndicatorShown());
    m_lista->Ordena_Por(0); // descending was the last one
    QCOMPARE(Tags(*m_lista), QList<qint64>({3, 1, 2}));
}

void tst_lista_musicas::laterFillOvertakesTheEarlier()
{
    const quint64 primeira = m_lista->Anuncia_Preenchimento();
    QVERIFY(m_lista->Vale(primeira));
    const quint64 segunda = m_lista->Anuncia_Preenchimento();
    QVERIFY(!m_lista->Vale(primeira));
    QVERIFY(m_lista->Vale(segunda));
}

void tst_lista_musicas::onlyVisibleRowsReadTheirThemes()
{
    Mostra(Linhas(20000));
    m_lista->grab();
    const int visiveis = m_lista->viewport()->height() /
                             m_lista->visualRect(m_lista->model()->index(0, 0)).height() +
                         1;
    QVERIFY(Leituras() > 0);
    QVERIFY2(Leituras() <= visiveis, qPrintable(QString::number(Leituras())));
    const int antes = Leituras();
    m_lista->grab();
    QCOMPARE(Leituras(), antes);
    m_lista->scrollToBottom();
    m_lista->grab();
    QVERIFY(Leituras() > antes);
    QVERIFY(Leituras() <= antes + visiveis);
}

void tst_lista_musicas::sortingByThemesReadsThemAll()
{
    const qint64 a = m_catalogo->AddSong(u"A"_qs);
    const qint64 b = m_catalogo->AddSong(u"B"_qs);
    m_catalogo->Link(a, m_catalogo->AddTheme(u"Natal"_qs));
    m_catalogo->Link(b, m_catalogo->AddTheme(u"Páscoa"_qs));
    m_lista->Preenche({Linha(a, u"A"_qs), Linha(b, u"B"_qs)});
    m_lista->Ordena_Por(2);
    QCOMPARE(Coluna(*m_lista->model(), 2), QStringList({u"Páscoa"_qs, u"Natal"_qs}));
    QCOMPARE(Leituras(), 2);
    m_lista->Ordena_Por(2);
    QCOMPARE(Leituras(), 2);
}

void tst_lista_musicas::failureOfPaintingIsToldOnceAndNeverThrown()
{
    Funcoes::Conexao.Close();
    Mostra(Linhas(3));
    m_lista->grab();
    QTRY_COMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    m_lista->Preenche(Linhas(3));
    m_lista->grab();
    QTest::qWait(50);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(Coluna(*m_lista->model(), 2), QStringList({QString(), QString(), QString()}));
}

void tst_lista_musicas::failureThatComesBackIsToldAgain()
{
    const auto pinta = [this] {
        m_lista->Preenche(Linhas(3));
        m_lista->grab();
        QTest::qWait(20);
    };
    Funcoes::Conexao.Close();
    Mostra(Linhas(3));
    pinta();
    QCOMPARE(m_caixas->boxes.size(), 1);
    Funcoes::Conexao.Open(m_catalogo->ConnectionString());
    pinta();
    QCOMPARE(m_caixas->boxes.size(), 1);
    Funcoes::Conexao.Close();
    pinta();
    QCOMPARE(m_caixas->boxes.size(), 2);
    pinta();
    QCOMPARE(m_caixas->boxes.size(), 2);
}

void tst_lista_musicas::exceptionsOfAnyKindAreToldAndNeverThrown()
{
    class SemMemoria final : public FonteMusicas
    {
        int Quantas() const override { return 3; }
        qint64 Id(int /*posicao*/) const override { throw std::bad_alloc(); }
        LinhaMusica Le(int /*posicao*/) const override { throw std::bad_alloc(); }
    };
    Mostra(Linhas(1));
    m_lista->Preenche_De(std::make_shared<SemMemoria>());
    m_lista->grab();
    QTRY_COMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(Coluna(*m_lista->model(), 0), QStringList({QString(), QString(), QString()}));

    Funcoes::Conexao.SetStatementHook(
        [](const QString& /*sql*/) { throw std::logic_error("themes"); });
    m_lista->Preenche(Linhas(3));
    m_lista->grab();
    QTRY_COMPARE(m_caixas->boxes.size(), 2);
    QVERIFY(m_caixas->boxes[1].text.contains(u"themes"_qs));
    QCOMPARE(Coluna(*m_lista->model(), 2), QStringList({QString(), QString(), QString()}));
}

void tst_lista_musicas::failureOfSortingIsIgnored()
{
    Funcoes::Conexao.Close();
    m_lista->Preenche(Linhas(3));
    m_lista->Ordena_Por(2);
    QTest::qWait(50);
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(m_lista->ListCount(), 3);
}

void tst_lista_musicas::viewTurnsIntoAPlainListAndBack()
{
    Mostra(Linhas(5));
    QCOMPARE(m_lista->property("View").toInt(), 3);
    const int largura = m_lista->columnWidth(0);
    m_lista->SetView(ListaMusicas::ListView);
    QCOMPARE(m_lista->property("View").toInt(), 2);
    QVERIFY(m_lista->isHeaderHidden());
    QVERIFY(m_lista->isColumnHidden(1));
    QVERIFY(m_lista->isColumnHidden(2));
    QCOMPARE(m_lista->columnWidth(0), m_lista->viewport()->width());
    m_lista->SetView(ListaMusicas::ReportView);
    QVERIFY(!m_lista->isHeaderHidden());
    QVERIFY(!m_lista->isColumnHidden(1));
    QVERIFY(!m_lista->isColumnHidden(2));
    QCOMPARE(m_lista->columnWidth(0), largura);
}

void tst_lista_musicas::selectedItemIsTheCurrentOne()
{
    Mostra(Linhas(6));
    m_lista->setFocus();
    QVERIFY(!m_lista->Item_Selecionado());
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, {}, Meio(1));
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ShiftModifier, Meio(3));
    QCOMPARE(m_lista->Item_Selecionado(), std::optional<qint64>(4));
    // The current row taken out of the selection: the first one left.
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier, Meio(3));
    QCOMPARE(m_lista->Item_Selecionado(), std::optional<qint64>(2));
}

void tst_lista_musicas::markedItemsComeInTheOrderShown()
{
    Mostra(Linhas(6));
    for (const int linha : {4, 0, 2})
        QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier, Meio(linha));
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>({1, 3, 5}));
    QTest::keyClick(m_lista.get(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>({1, 2, 3, 4, 5, 6}));
}

void tst_lista_musicas::keysAreToldOncePerPress()
{
    Mostra(Linhas(3));
    QSignalSpy teclas(m_lista.get(), &ListaMusicas::KeyDown);
    QTest::keyClick(m_lista.get(), Qt::Key_Return);
    QTest::keyClick(m_lista.get(), Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(m_lista.get(), Qt::Key_Delete);
    QTest::keyClick(m_lista.get(), Qt::Key_Down);
    QCOMPARE(teclas.size(), 3);
    QKeyEvent repetida(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(m_lista.get(), &repetida);
    QCOMPARE(teclas.size(), 3);
}

void tst_lista_musicas::typedLettersLookForTitlesWhateverColumnIsCurrent()
{
    std::vector<LinhaMusica> linhas = Linhas(3000);
    linhas.push_back(Linha(3001, u"Zabumba"_qs));
    Mostra(linhas);
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, {}, Meio(1, ModeloMusicas::Temas));
    QCOMPARE(m_lista->currentIndex().column(), int{ModeloMusicas::Temas});
    m_lista->grab();
    const int antes = Leituras();
    QTest::keyClick(m_lista.get(), Qt::Key_Z);
    QCOMPARE(m_lista->currentIndex().row(), 3000);
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>{3001});
    QCOMPARE(Leituras(), antes);
}

void tst_lista_musicas::rightButtonSelectsTheRowUnderIt()
{
    Mostra(Linhas(5));
    QList<std::optional<qint64>> vistos;
    connect(m_lista.get(), &ListaMusicas::BotaoDireito, m_lista.get(),
            [&] { vistos.append(m_lista->Item_Selecionado()); });
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, {}, Meio(1));
    QTest::mouseClick(m_lista->viewport(), Qt::RightButton, {}, Meio(3, 1));
    QCOMPARE(vistos, QList<std::optional<qint64>>(1, 4));
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>({4}));
}

void tst_lista_musicas::rightButtonKeepsSeveralMarkedRows()
{
    Mostra(Linhas(5));
    for (const int linha : {1, 2, 3})
        QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, Qt::ControlModifier, Meio(linha));
    QTest::mouseClick(m_lista->viewport(), Qt::RightButton, {}, Meio(2));
    QCOMPARE(m_lista->Item_Selecionado(), std::optional<qint64>(3));
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>({2, 3, 4}));
}

void tst_lista_musicas::rightButtonBesideTheRowsDoesNothing()
{
    Mostra(Linhas(2));
    QTest::mouseClick(m_lista->viewport(), Qt::LeftButton, {}, Meio(1));
    QSignalSpy direito(m_lista.get(), &ListaMusicas::BotaoDireito);
    QTest::mouseClick(m_lista->viewport(), Qt::RightButton, {},
                      QPoint(20, m_lista->viewport()->height() - 5));
    QCOMPARE(direito.size(), 0);
    QCOMPARE(m_lista->Itens_Selecionados(), QList<qint64>({2}));
}

void tst_lista_musicas::doubleClickIsToldOnRowsOnly()
{
    Mostra(Linhas(2));
    QSignalSpy duplos(m_lista.get(), &ListaMusicas::DblClick);
    QTest::mouseDClick(m_lista->viewport(), Qt::LeftButton, {}, Meio(1, 2));
    QCOMPARE(duplos.size(), 1);
    QCOMPARE(m_lista->Item_Selecionado(), std::optional<qint64>(2));
    QTest::mouseDClick(m_lista->viewport(), Qt::LeftButton, {},
                       QPoint(20, m_lista->viewport()->height() - 5));
    QTest::mouseDClick(m_lista->viewport(), Qt::RightButton, {}, Meio(0));
    QCOMPARE(duplos.size(), 1);
}

void tst_lista_musicas::toolTipShowsMarkupAsTyped()
{
    Mostra({Linha(1, u"<b>Sol</b>"_qs), Linha(2, u"Lua"_qs)});
    const auto dica = [this](int linha) {
        QHelpEvent ajuda(QEvent::ToolTip, Meio(linha),
                         m_lista->viewport()->mapToGlobal(Meio(linha)));
        QCoreApplication::sendEvent(m_lista->viewport(), &ajuda);
        return QToolTip::text();
    };
    QCOMPARE(dica(1), u"Lua [0] (C)"_qs);
    QVERIFY(dica(0).contains(u"&lt;b&gt;Sol&lt;/b&gt; [0] (C)"));
}

void tst_lista_musicas::columnsKeepTheirSharesWhenResized()
{
    Mostra(Linhas(2));
    m_lista->header()->resizeSection(0, m_lista->viewport()->width() / 2);
    const double antes =
        static_cast<double>(m_lista->columnWidth(0)) / m_lista->viewport()->width();
    m_lista->resize(1400, 400);
    const double depois =
        static_cast<double>(m_lista->columnWidth(0)) / m_lista->viewport()->width();
    QVERIFY(qAbs(antes - depois) < 0.01);
    QCOMPARE(m_lista->header()->length(), m_lista->viewport()->width());
}

void tst_lista_musicas::holdsTwentyThousandRows()
{
    Mostra({});
    const std::vector<LinhaMusica> linhas = Linhas(20000);
    m_lista->Preenche(linhas);
    m_lista->grab();
    QCOMPARE(m_lista->Tag(19999), 20000);
}

void tst_lista_musicas::aHeldListIsLaidOutWhenItIsLetGo_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("waits"); // events run between the fill and the letting go
    QTest::newRow("empty to long") << 0 << 300 << false;
    QTest::newRow("long to short") << 300 << 2 << false;
    QTest::newRow("long to empty") << 300 << 0 << false;
    QTest::newRow("long to long") << 300 << 400 << false;
    QTest::newRow("empty to long, later") << 0 << 300 << true;
    QTest::newRow("long to short, later") << 300 << 2 << true;
    QTest::newRow("long to empty, later") << 300 << 0 << true;
    QTest::newRow("long to long, later") << 300 << 400 << true;
}

void tst_lista_musicas::aHeldListIsLaidOutWhenItIsLetGo()
{
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(bool, waits);
    ListaMusicas lista;
    lista.resize(600, 300);
    lista.Preenche(Linhas(before));
    lista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&lista));
    QTest::qWait(20);
    lista.verticalScrollBar()->setValue(100);
    QCOMPARE(lista.verticalScrollBar()->value(), before == 300 ? 100 : 0);
    lista.Segura(true);
    lista.Limpa();
    QTest::qWait(20);
    QCOMPARE(lista.verticalScrollBar()->isVisible(), before == 300);
    lista.Preenche(Linhas(after));
    if (waits)
        QTest::qWait(20);
    lista.Segura(false);
    QTRY_COMPARE(lista.verticalScrollBar()->isVisible(), after >= 300);
    QCOMPARE(lista.verticalScrollBar()->value(), 0);
    QVERIFY(lista.updatesEnabled());
    lista.setCurrentIndex(lista.model()->index(0, 0));
    QTest::keyClick(&lista, Qt::Key_End);
    QCOMPARE(lista.currentIndex().row(), after - 1);
    QVERIFY(after == 0 ||
            lista.viewport()->rect().contains(lista.visualRect(lista.currentIndex()).topLeft()));
}

QTEST_MAIN(tst_lista_musicas)
#include "tst_lista_musicas.moc"
