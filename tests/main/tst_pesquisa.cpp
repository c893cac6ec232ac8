#include "PesquisaTeste.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>

#include <functional>

namespace {

/// Runs something at the n-th round of the event loop from now on: a search yields once per round,
/// so this is something that the user does in the middle of a search.
class NaRodada : public QObject
{
public:
    NaRodada(int rodada, std::function<void()> faz)
        : m_faltam(rodada)
        , m_faz(std::move(faz))
    {
        m_relogio.callOnTimeout(this, [this] {
            if (--m_faltam > 0)
                return;
            m_relogio.stop();
            m_faz();
        });
        m_relogio.start(0);
    }

private:
    QTimer m_relogio;
    int m_faltam;
    std::function<void()> m_faz;
};

} // namespace

class tst_pesquisa : public PesquisaTeste
{
    Q_OBJECT

private slots:
    void panelShowsItsGivenTexts();
    void firstSearchComes200MsAfterLoading();
    void typingSearchesOnce200MsAfterTheLastKey();
    void rowsShowSongKeyReferenceAndThemes();
    void nullsShowAsEmptyTexts();
    void categoryBoxesSearchAtOnce();
    void bothUncheckedFindsBothCategories();
    void apostropheIsDropped();
    void eachBoxLooksInItsColumn_data();
    void eachBoxLooksInItsColumn();
    void letterIgnoresBoxesAndThemes();
    void letterKeepsCategoryAndOrder();
    void everyLetterAsksForItsOwn();
    void tudoSearchesWithoutALetter();
    void aLetterCountsForOneSearchOnly();
    void arrowKeysReachEveryLetter();
    void chosenThemesNarrowTheSearch();
    void singleThemeIsChosenAtLoading();
    void placeholderOfAnEmptyThemeListCanBeChosen();
    void songWithoutThemeIsNeverListed();
    void mostPlayedComeFirst();
    void emptyResultSaysSo();
    void doubleClickEmptiesTheBoxAndSearches_data();
    void doubleClickEmptiesTheBoxAndSearches();
    void keyboardImagesNameTheirBox();
    void statusSaysWaitWhileSearching();
    void overtakenSearchStops_data();
    void overtakenSearchStops();
    void failingSearchIsTold();
    void failingClockTellsOnlyOnce();
    void closingDuringASearchTellsNothing();
    void otherListsFillWithTheCountHere();
    void themesAreFilledAgainWithNoneChosen();
};

void tst_pesquisa::panelShowsItsGivenTexts()
{
    m_form = std::make_unique<PrincipalTeste>(*m_catalogo);
    QCOMPARE(Contagem(), u"0 Músicas Encontradas"_qs);
    QCOMPARE(Acha<QLabel>("lblTitulo")->text(), u"Título:"_qs);
    QCOMPARE(Acha<QLabel>("lblReferencia")->text(), u"Referência:"_qs);
    QCOMPARE(Acha<QLabel>("lblLetra")->text(), u"Letra:"_qs);
    QCOMPARE(Acha<QLabel>("lblTema")->text(), u"Temas:"_qs);
    QCOMPARE(Acha<QCheckBox>("chkReligiosa")->text(), u"Religiosa"_qs);
    QCOMPARE(Acha<QCheckBox>("chkSecular")->text(), u"Secular"_qs);
    QCOMPARE(Acha<QCheckBox>("chkOrdenar")->text(), u"Ordenar pelas músicas mais visualizadas"_qs);
    QVERIFY(Acha<QCheckBox>("chkReligiosa")->isChecked());
    QVERIFY(Acha<QCheckBox>("chkSecular")->isChecked());
    QVERIFY(!Acha<QCheckBox>("chkOrdenar")->isChecked());
    QCOMPARE(Acha<QLabel>("Label3")->text(),
             u"Para abrir uma música, dê um duplo clique sobre ela. Para editar ou excluir uma "
             u"música, clique com o botão direito sobre ela."_qs);
    for (int i = 0; i < 26; ++i)
        QCOMPARE(Acha<QLabel>(qPrintable(u"lblAlfa_%1"_qs.arg(i)))->text(),
                 QString(QChar(char16_t(u'A' + i))));
    QCOMPARE(Acha<QLabel>("lblAlfa_26")->text(), u"Tudo"_qs);
}

void tst_pesquisa::firstSearchComes200MsAfterLoading()
{
    Musica(u"Asa Branca"_qs);
    m_form = std::make_unique<PrincipalTeste>(*m_catalogo);
    m_lista = Acha<ListaMusicas>("lstMusicas");
    QElapsedTimer relogio;
    m_form->Form_Load(QString());
    relogio.start();
    Funcoes::Conexao.SetStatementHook([this](const QString& sql) { m_pesquisas.append(sql); });
    QCOMPARE(m_lista->ListCount(), 0);
    QTRY_COMPARE(m_lista->ListCount(), 1);
    QVERIFY2(relogio.elapsed() >= 180, qPrintable(QString::number(relogio.elapsed())));
    QCOMPARE(Contagem(), u"1 Registro(s) Encontrado(s)."_qs);
    QTest::qWait(300);
    QCOMPARE(m_pesquisas.filter(u"DISTINCT"_qs).size(), 1);
}

void tst_pesquisa::typingSearchesOnce200MsAfterTheLastKey()
{
    Musica(u"Luz do Sertão"_qs);
    Musica(u"Asa Branca"_qs);
    Carrega();
    QTest::keyClicks(Acha<QWidget>("txtTitulo"), u"luz"_qs, {}, 60);
    QVERIFY(m_pesquisas.isEmpty());
    Espera_Pesquisa();
    QCOMPARE(m_pesquisas.size(), 1);
    QCOMPARE(Ultimo_SQL(),
             u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
             u"MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN TEMA_MUSICA "
             u"ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.CATEGORIA IN (1,2)  AND "
             u"MUSICA.TITULO LIKE '%luz%'  ORDER BY MUSICA.TITULO "_qs);
    QCOMPARE(Titulos(), QStringList(u"Luz do Sertão"_qs));
    QCOMPARE(Contagem(), u"1 Registro(s) Encontrado(s)."_qs);
}

void tst_pesquisa::rowsShowSongKeyReferenceAndThemes()
{
    const qint64 id = Musica(
        u"Asa Branca"_qs, {m_catalogo->AddTheme(u"Sem Tema"_qs, 3)},
        {.reference = u"Luiz Gonzaga"_qs, .key = u"A"_qs, .variation = u"m"_qs, .count = 12});
    Carrega();
    const auto* modelo = m_lista->model();
    QCOMPARE(modelo->index(0, 0).data().toString(), u"Asa Branca (Am)"_qs);
    QCOMPARE(modelo->index(0, 0).data(Qt::ToolTipRole).toString(), u"Asa Branca [12] (Am)"_qs);
    QCOMPARE(modelo->index(0, 0).data(Qt::UserRole).toString(), QString::number(id));
    QCOMPARE(modelo->index(0, 1).data().toString(), u"Luiz Gonzaga"_qs);
    QCOMPARE(modelo->index(0, 1).data(Qt::ToolTipRole).toString(), u"Luiz Gonzaga"_qs);
    QCOMPARE(modelo->index(0, 2).data().toString(), u"Louvor, Sem Tema"_qs);
    QCOMPARE(modelo->index(0, 2).data(Qt::ToolTipRole).toString(), u"Louvor, Sem Tema"_qs);
}

void tst_pesquisa::nullsShowAsEmptyTexts()
{
    const qint64 id = Musica(u"x"_qs);
    m_catalogo->Run(u"UPDATE MUSICA SET TITULO = NULL, REFERENCIA = NULL, TOM = NULL, "
                    u"VARIACAO = NULL, CONTADOR = NULL WHERE ID = %1"_qs.arg(id));
    Carrega();
    QCOMPARE(m_lista->model()->index(0, 0).data().toString(), u" ()"_qs);
    QCOMPARE(m_lista->model()->index(0, 0).data(Qt::ToolTipRole).toString(), u" [] ()"_qs);
    QCOMPARE(m_lista->model()->index(0, 1).data().toString(), QString());
}

void tst_pesquisa::categoryBoxesSearchAtOnce()
{
    Musica(u"Hino"_qs, {}, {.category = 1});
    Musica(u"Samba"_qs, {}, {.category = 2});
    Carrega();
    Clica("chkSecular");
    QCOMPARE(Titulos(), QStringList(u"Hino"_qs));
    QVERIFY(Ultimo_SQL().contains(u"CATEGORIA IN (1) "));
    Clica("chkReligiosa");
    Clica("chkSecular");
    QCOMPARE(Titulos(), QStringList(u"Samba"_qs));
    QVERIFY(Ultimo_SQL().contains(u"CATEGORIA IN (2) "));
    QCOMPARE(m_pesquisas.size(), 3);
}

void tst_pesquisa::bothUncheckedFindsBothCategories()
{
    Musica(u"Hino"_qs, {}, {.category = 1});
    Musica(u"Samba"_qs, {}, {.category = 2});
    Carrega();
    const QStringList ambas = Titulos();
    Clica("chkReligiosa");
    Clica("chkSecular");
    QVERIFY(!Acha<QCheckBox>("chkReligiosa")->isChecked());
    QVERIFY(!Acha<QCheckBox>("chkSecular")->isChecked());
    QCOMPARE(Titulos(), ambas);
    QCOMPARE(ambas, QStringList({u"Hino"_qs, u"Samba"_qs}));
}

void tst_pesquisa::apostropheIsDropped()
{
    Musica(u"Gota dágua"_qs);
    Musica(u"Gota d'água"_qs);
    Carrega();
    QTest::keyClicks(Acha<QWidget>("txtTitulo"), u"d'"_qs);
    Acha<QLineEdit>("txtTitulo")->insert(u"água"_qs);
    Espera_Pesquisa();
    QVERIFY(Ultimo_SQL().contains(u" AND MUSICA.TITULO LIKE '%dágua%' "));
    QCOMPARE(Titulos(), QStringList(u"Gota dágua"_qs));
}

void tst_pesquisa::eachBoxLooksInItsColumn_data()
{
    QTest::addColumn<QByteArray>("caixa");
    QTest::addColumn<QString>("digita");
    QTest::addColumn<QStringList>("titulos");
    QTest::newRow("title") << QByteArray("txtTitulo") << u"branca"_qs
                           << QStringList(u"Asa Branca"_qs);
    QTest::newRow("reference") << QByteArray("txtReferencia") << u"ATAULFO"_qs
                               << QStringList(u"Amelia"_qs);
    QTest::newRow("lyrics") << QByteArray("txtLetra") << u"olhei a terra"_qs
                            << QStringList(u"Asa Branca"_qs);
    QTest::newRow("lyrics of the second version are not searched")
        << QByteArray("txtLetra") << u"segunda"_qs << QStringList();
    QTest::newRow("a lower-case letter finds capitals")
        << QByteArray("txtTitulo") << u"a"_qs << QStringList({u"Amelia"_qs, u"Asa Branca"_qs});
}

void tst_pesquisa::eachBoxLooksInItsColumn()
{
    QFETCH(QByteArray, caixa);
    QFETCH(QString, digita);
    QFETCH(QStringList, titulos);
    Musica(u"Asa Branca"_qs, {},
           {.reference = u"Luiz Gonzaga"_qs,
            .text = u"C\r\nQuando olhei a terra ardendo"_qs,
            .text2 = u"D\r\nsegunda"_qs});
    Musica(u"Amelia"_qs, {}, {.reference = u"Ataulfo Alves"_qs});
    Carrega();
    QTest::keyClicks(Acha<QWidget>(caixa.constData()), digita);
    Espera_Pesquisa();
    QCOMPARE(Titulos(), titulos);
}

void tst_pesquisa::letterIgnoresBoxesAndThemes()
{
    const qint64 outro = m_catalogo->AddTheme(u"Natal"_qs);
    Musica(u"Bossa"_qs);
    Musica(u"baião"_qs);
    Musica(u"Aboio"_qs, {outro});
    Carrega();
    Clica_Tema(1);
    QCOMPARE(Titulos(), QStringList(u"Aboio"_qs));
    QTest::keyClicks(Acha<QWidget>("txtTitulo"), u"abo"_qs);
    Espera_Pesquisa();
    Clica_Letra(1);
    QCOMPARE(Titulos(), QStringList({u"baião"_qs, u"Bossa"_qs}));
    QVERIFY(Ultimo_SQL().endsWith(
        u" WHERE MUSICA.CATEGORIA IN (1,2)  AND MUSICA.TITULO LIKE 'B%'  ORDER BY MUSICA.TITULO "));
    QCOMPARE(Acha<QLineEdit>("txtTitulo")->text(), u"abo"_qs);
}

void tst_pesquisa::letterKeepsCategoryAndOrder()
{
    Musica(u"Bela"_qs, {}, {.category = 1, .count = 1});
    Musica(u"Bossa"_qs, {}, {.category = 1, .count = 9});
    Musica(u"Baque"_qs, {}, {.category = 2, .count = 50});
    Carrega();
    Clica("chkSecular");
    Clica("chkOrdenar");
    Clica_Letra(1);
    QCOMPARE(Titulos(), QStringList({u"Bossa"_qs, u"Bela"_qs}));
}

void tst_pesquisa::everyLetterAsksForItsOwn()
{
    Carrega();
    for (int i = 0; i < 26; ++i) {
        Clica_Letra(i);
        QCOMPARE(m_pesquisas.size(), i + 1);
        const QString parte = u" AND MUSICA.TITULO LIKE '%1%' "_qs.arg(QChar(char16_t(u'A' + i)));
        QVERIFY2(Ultimo_SQL().contains(parte), qPrintable(Ultimo_SQL()));
    }
}

void tst_pesquisa::tudoSearchesWithoutALetter()
{
    Musica(u"Bossa"_qs);
    Musica(u"Luz"_qs);
    Carrega();
    Clica_Letra(1);
    Clica_Letra(26);
    QCOMPARE(Titulos(), QStringList({u"Bossa"_qs, u"Luz"_qs}));
    QVERIFY(!Ultimo_SQL().contains(u"LIKE"));
}

void tst_pesquisa::aLetterCountsForOneSearchOnly()
{
    Musica(u"Bossa"_qs);
    Musica(u"Luz"_qs);
    Carrega();
    const QList<std::function<void()>> filtros{
        [this] { Clica("chkSecular"); },
        [this] { Clica("chkReligiosa"); }, // both unchecked is both
        [this] { Clica("chkOrdenar"); },
        [this] { Clica_Tema(0); },
        [this] { m_form->Pesquisa(); }, // after a save or a deletion
        [this] {
            QTest::keyClicks(Acha<QWidget>("txtTitulo"), u"z"_qs);
            Espera_Pesquisa();
        }};
    for (const auto& filtra : filtros) {
        Clica_Letra(1);
        QCOMPARE(Titulos(), QStringList(u"Bossa"_qs));
        filtra();
        QVERIFY2(!Ultimo_SQL().contains(u"LIKE 'B%'"), qPrintable(Ultimo_SQL()));
        QVERIFY(Titulos().contains(u"Luz"_qs));
    }
}

void tst_pesquisa::arrowKeysReachEveryLetter()
{
    Carrega();
    auto* faixa = Acha<QWidget>("fraAlfa");
    faixa->setFocus();
    QTest::keyClick(faixa, Qt::Key_Right);
    QTest::keyClick(faixa, Qt::Key_Return);
    QVERIFY(Ultimo_SQL().contains(u"LIKE 'B%'"));
    QTest::keyClick(faixa, Qt::Key_End);
    QTest::keyClick(faixa, Qt::Key_Space);
    QVERIFY(!Ultimo_SQL().contains(u"LIKE"));
    QTest::keyClick(faixa, Qt::Key_Home);
    QTest::keyClick(faixa, Qt::Key_Left);
    QTest::keyClick(faixa, Qt::Key_Enter);
    QVERIFY(Ultimo_SQL().contains(u"LIKE 'A%'"));
    QCOMPARE(m_pesquisas.size(), 3);
}

void tst_pesquisa::chosenThemesNarrowTheSearch()
{
    for (int i = 3; i <= 7; ++i)
        QCOMPARE(m_catalogo->AddTheme(u"Tema %1"_qs.arg(i)), i);
    Musica(u"Nos dois"_qs, {3, 7});
    Musica(u"Em um"_qs, {7});
    Musica(u"Em outro"_qs, {5});
    Carrega();
    QCOMPARE(Acha<ListBox>("lstTema")->ListCount(), 7);
    Clica_Tema(2);
    QCOMPARE(Titulos(), QStringList(u"Nos dois"_qs));
    Clica_Tema(6);
    QVERIFY(Ultimo_SQL().contains(u" AND TEMA_MUSICA.ID_TEMA IN (3,7) "));
    QCOMPARE(Titulos(), QStringList({u"Em um"_qs, u"Nos dois"_qs}));
    QCOMPARE(Contagem(), u"2 Registro(s) Encontrado(s)."_qs);
    Clica_Tema(2);
    Clica_Tema(6);
    QCOMPARE(m_lista->ListCount(), 3);
    QCOMPARE(m_pesquisas.size(), 4);
}

void tst_pesquisa::singleThemeIsChosenAtLoading()
{
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID <> %1"_qs.arg(m_tema));
    Musica(u"Luz"_qs);
    Carrega();
    QVERIFY(Acha<ListBox>("lstTema")->Selected(0));
    Clica("chkOrdenar");
    QVERIFY(Ultimo_SQL().contains(u" AND TEMA_MUSICA.ID_TEMA IN (1) "));
}

void tst_pesquisa::placeholderOfAnEmptyThemeListCanBeChosen()
{
    Musica(u"Luz"_qs);
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Carrega();
    QCOMPARE(Acha<ListBox>("lstTema")->Text(0), u"Não há dados a serem mostrados."_qs);
    Clica_Tema(0);
    QVERIFY(Ultimo_SQL().contains(u" AND TEMA_MUSICA.ID_TEMA IN (0) "));
    QCOMPARE(Contagem(), u"0 Registro(s) Encontrado(s)."_qs);
}

void tst_pesquisa::songWithoutThemeIsNeverListed()
{
    m_catalogo->AddSong(u"Sozinha"_qs);
    Musica(u"Ligada"_qs);
    Carrega();
    QCOMPARE(Titulos(), QStringList(u"Ligada"_qs));
    Clica_Letra(18);
    QCOMPARE(m_lista->ListCount(), 0);
}

void tst_pesquisa::mostPlayedComeFirst()
{
    Musica(u"Cedo"_qs, {}, {.count = 2});
    Musica(u"Aboio"_qs, {}, {.count = 0});
    Musica(u"Dia"_qs, {}, {.count = 7});
    Musica(u"Bossa"_qs, {}, {.count = 2});
    Carrega();
    QCOMPARE(Titulos(), QStringList({u"Aboio"_qs, u"Bossa"_qs, u"Cedo"_qs, u"Dia"_qs}));
    Clica("chkOrdenar");
    QCOMPARE(Titulos(), QStringList({u"Dia"_qs, u"Bossa"_qs, u"Cedo"_qs, u"Aboio"_qs}));
    QVERIFY(Ultimo_SQL().endsWith(u" ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO "));
}

void tst_pesquisa::emptyResultSaysSo()
{
    Musica(u"Luz"_qs);
    Carrega();
    Clica_Letra(25);
    QCOMPARE(Contagem(), u"0 Registro(s) Encontrado(s)."_qs);
    QCOMPARE(m_lista->ListCount(), 0);
}

void tst_pesquisa::doubleClickEmptiesTheBoxAndSearches_data()
{
    QTest::addColumn<QByteArray>("caixa");
    QTest::newRow("title") << QByteArray("txtTitulo");
    QTest::newRow("reference") << QByteArray("txtReferencia");
    QTest::newRow("lyrics") << QByteArray("txtLetra");
}

void tst_pesquisa::doubleClickEmptiesTheBoxAndSearches()
{
    QFETCH(QByteArray, caixa);
    Musica(u"Luz"_qs);
    Carrega();
    auto* texto = Acha<QLineEdit>(caixa.constData());
    for (const char* outra : {"txtTitulo", "txtReferencia", "txtLetra"})
        Acha<QLineEdit>(outra)->setText(u"%"_qs); // finds everything
    QTest::keyClicks(texto, u"xyz"_qs);
    Espera_Pesquisa();
    QCOMPARE(m_lista->ListCount(), 0);
    QTest::mouseDClick(texto, Qt::LeftButton, {}, QPoint(20, texto->height() / 2));
    for (const char* outra : {"txtTitulo", "txtReferencia", "txtLetra"})
        QCOMPARE(Acha<QLineEdit>(outra)->text(), caixa == outra ? QString() : u"%"_qs);
    QCOMPARE(m_pesquisas.size(), 1);
    QVERIFY(Acha<QTimer>("Timer1")->isActive());
    Espera_Pesquisa();
    QCOMPARE(m_pesquisas.size(), 2);
    QCOMPARE(m_lista->ListCount(), 1);
}

void tst_pesquisa::keyboardImagesNameTheirBox()
{
    Carrega();
    for (int i = 0; i < 3; ++i)
        QTest::mouseClick(Acha<QWidget>(qPrintable(u"imgTeclado_%1"_qs.arg(i))), Qt::LeftButton);
    QCOMPARE(m_form->chamadas,
             QStringList({u"Mostra_Teclado txtTitulo"_qs, u"Mostra_Teclado txtReferencia"_qs,
                          u"Mostra_Teclado txtLetra"_qs}));
}

void tst_pesquisa::statusSaysWaitWhileSearching()
{
    Musica(u"Luz"_qs);
    Carrega();
    QString durante;
    int linhas = -1;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        if (!sql.startsWith(u"SELECT DISTINCT"))
            return;
        durante = Contagem();
        linhas = m_lista->ListCount();
    });
    Clica_Letra(26);
    QCOMPARE(durante, u"Aguarde..."_qs);
    QCOMPARE(linhas, 0);
    QCOMPARE(Contagem(), u"1 Registro(s) Encontrado(s)."_qs);
}

void tst_pesquisa::overtakenSearchStops_data()
{
    QTest::addColumn<int>("rodada");
    QTest::newRow("before anything") << 1;
    QTest::newRow("before the list is emptied") << 2;
    QTest::newRow("between the query and the filling") << 3;
    QTest::newRow("between the filling and the count line") << 4;
}

void tst_pesquisa::overtakenSearchStops()
{
    QFETCH(int, rodada);
    Musica(u"Aboio"_qs);
    Musica(u"Arara"_qs);
    Musica(u"Bossa"_qs);
    Carrega();
    QStringList misturas;
    connect(m_lista->model(), &QAbstractItemModel::modelReset, this, [&] {
        QStringList iniciais;
        for (const QString& titulo : Titulos())
            iniciais.append(titulo.left(1));
        iniciais.removeDuplicates();
        if (iniciais.size() > 1)
            misturas.append(iniciais.join(u','));
    });
    bool clicou = false;
    {
        const NaRodada meio(rodada, [&] {
            clicou = true;
            Clica_Letra(1);
        });
        Clica_Letra(0);
        QTRY_VERIFY(clicou);
    }
    QCOMPARE(Titulos(), QStringList(u"Bossa"_qs));
    QCOMPARE(Contagem(), u"1 Registro(s) Encontrado(s)."_qs);
    QVERIFY2(misturas.isEmpty(), qPrintable(misturas.join(u';')));
    QVERIFY(Ultimo_SQL().contains(u"LIKE 'B%'"));
    QCOMPARE(m_pesquisas.size(), rodada < 3 ? 1 : 2);
}

void tst_pesquisa::failingSearchIsTold()
{
    Musica(u"Luz"_qs);
    Carrega();
    m_catalogo->Run(u"DROP TABLE TEMA_MUSICA"_qs);
    Clica("chkOrdenar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(m_lista->ListCount(), 0);
    Clica("chkOrdenar"); // done on purpose, so told every time
    QCOMPARE(m_caixas->boxes.size(), 2);
    QVERIFY(m_lista->updatesEnabled());
}

void tst_pesquisa::failingClockTellsOnlyOnce()
{
    Carrega();
    Funcoes::Conexao.Close();
    auto* caixa = Acha<QLineEdit>("txtTitulo");
    for (const QString& texto : {u"a"_qs, u"ab"_qs}) {
        caixa->setText(texto);
        QTRY_VERIFY(!Acha<QTimer>("Timer1")->isActive());
        QTRY_COMPARE(m_caixas->boxes.size(), 1);
    }
    Funcoes::Conexao.Open(m_catalogo->ConnectionString());
}

void tst_pesquisa::closingDuringASearchTellsNothing()
{
    Musica(u"Luz"_qs);
    for (int rodada = 1; rodada <= 4; ++rodada) {
        Carrega();
        bool fechou = false;
        const NaRodada meio(rodada, [&] {
            fechou = true;
            m_form->close();
        });
        Clica_Letra(26);
        QTRY_VERIFY(fechou);
        QVERIFY2(m_caixas->boxes.isEmpty(), qPrintable(QString::number(rodada)));
        m_form.reset();
    }
}

void tst_pesquisa::otherListsFillWithTheCountHere()
{
    const qint64 a = Musica(u"Luz"_qs);
    Musica(u"Bossa"_qs);
    const qint64 c = Musica(u"Aboio"_qs);
    Carrega();
    ListaMusicas outra;
    Acha<PainelPesquisa>("pctFrame_0")
        ->Preenche_Musicas(
            u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM, "
            u"MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN TEMA_MUSICA "
            u"ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE MUSICA.ID IN (0%1,%2,)"_qs.arg(a)
                .arg(c),
            outra);
    QCOMPARE(outra.ListCount(), 2);
    QCOMPARE(Contagem(), u"2 Registro(s) Encontrado(s)."_qs);
    QCOMPARE(m_lista->ListCount(), 3);
}

void tst_pesquisa::themesAreFilledAgainWithNoneChosen()
{
    m_catalogo->AddTheme(u"Sem Tema"_qs, 3);
    m_catalogo->AddTheme(u"Adoração"_qs, 2);
    Carrega();
    auto* temas = Acha<ListBox>("lstTema");
    Clica_Tema(1);
    QVERIFY(temas->Selected(1));
    m_catalogo->AddTheme(u"Natal"_qs, 1);
    Acha<PainelPesquisa>("pctFrame_0")->Preenche_Temas();
    QStringList textos;
    for (int i = 0; i < temas->ListCount(); ++i) {
        textos.append(temas->Text(i));
        QVERIFY(!temas->Selected(i));
    }
    QCOMPARE(textos,
             QStringList({u"Natal"_qs, u"Adoração"_qs, u"Louvor"_qs, u"Outro"_qs, u"Sem Tema"_qs}));
}

QTEST_MAIN(tst_pesquisa)
#include "tst_pesquisa.moc"
