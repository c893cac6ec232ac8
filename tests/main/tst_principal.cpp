#include "PrincipalTeste.h"

#include "controls/RecordingDialogs.h"
#include "controls/RecordingFileDialogs.h"
#include "runtime/RuntimeError.h"
#include "runtime/Version.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <memory>

class tst_principal : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loadingLaysTheFormOut();
    void loadingRunsItsStepsInOrder();
    void anErrorInTheThemesEndsTheLoadingBeforeTheFirstSearch();
    void anErrorInTheImportLeavesALoadedForm();
    void menuEntriesStandInThisOrder();
    void toolbarButtonsStandInThisOrder();
    void menuEntriesSwitchPanels_data();
    void menuEntriesSwitchPanels();
    void toolbarButtonsDoAsTheMenu_data();
    void toolbarButtonsDoAsTheMenu();
    void toolbarButtonWithAnotherKeyDoesNothing_data();
    void toolbarButtonWithAnotherKeyDoesNothing();
    void refusedSwitchLeavesEverythingAsItWas_data();
    void refusedSwitchLeavesEverythingAsItWas();
    void listaIsInitialisedWithoutAQuestion();
    void cadastroStartsANewSong();
    void aboutBoxTellsVersionAndCredits();
    void sairClosesFormAndConnection();
    void sairStaysWhenRefused();
    void frameCloseAsksNothing();
    void closingStopsTheClock();
    void viewersOutliveTheForm();
    void timerIsOneShotOf200Ms();
    void timerWaitsForTheLoading();
    void msgShowsItsArgument();
    void abrirAsksAndOpens();
    void abrirAnsweredNoOpensNothing();
    void otherCommandsDoNothing_data();
    void otherCommandsDoNothing();
    void f10ReachesTheMenuAndLeavesIt();
    void accessKeyOfTheShownPanelWins();
    void accessKeysReachTheMenuOtherwise();

private:
    QWidget* Painel(int i) const;
    QList<bool> Mostrados() const;
    QList<QWidget*> Visualizadores() const;
    void Dispara(const char* menu) const;
    QAction* Botao(const QString& chave) const;

    std::unique_ptr<TestCatalogue> m_catalogo;
    std::unique_ptr<RecordingDialogs> m_caixas;
    RecordingFileDialogs m_escolhas; ///< every picker is cancelled
    std::unique_ptr<PrincipalTeste> m_form;
};

void tst_principal::init()
{
    m_catalogo = std::make_unique<TestCatalogue>();
    m_caixas = std::make_unique<RecordingDialogs>();
    m_form = std::make_unique<PrincipalTeste>(*m_catalogo);
    m_form->Form_Load(QString());
    m_form->show();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    m_form->chamadas.clear();
}

void tst_principal::cleanup()
{
    const QList<QWidget*> abertos = Visualizadores();
    for (QWidget* visualizador : abertos)
        delete visualizador;
    m_form.reset();
    m_caixas.reset();
    m_catalogo.reset();
}

QWidget* tst_principal::Painel(int i) const
{
    return m_form->Acha<QWidget>(qPrintable(u"pctFrame_%1"_qs.arg(i)));
}

QList<bool> tst_principal::Mostrados() const
{
    QList<bool> mostrados;
    for (int i = 0; i < 3; ++i) {
        // The two properties always change together.
        if (Painel(i)->isHidden() == Painel(i)->isEnabled())
            qFatal("panel %d is neither shown nor hidden", i);
        mostrados.append(!Painel(i)->isHidden());
    }
    return mostrados;
}

QList<QWidget*> tst_principal::Visualizadores() const
{
    QList<QWidget*> achados;
    const QWidgetList janelas = QApplication::topLevelWidgets();
    for (QWidget* janela : janelas) {
        if (janela->objectName() == u"frmVisualizar")
            achados.append(janela);
    }
    return achados;
}

void tst_principal::Dispara(const char* menu) const
{
    m_form->Acha<QAction>(menu)->trigger();
}

QAction* tst_principal::Botao(const QString& chave) const
{
    const QList<QAction*> acoes = m_form->Acha<QToolBar>("Toolbar")->actions();
    for (QAction* acao : acoes) {
        if (acao->data().toString() == chave)
            return acao;
    }
    return nullptr;
}

void tst_principal::loadingLaysTheFormOut()
{
    QCOMPARE(m_form->objectName(), u"frmPrincipal"_qs);
    QCOMPARE(m_form->windowTitle(), u"Melodario v."_qs + Version::ToText());
    QCOMPARE(m_form->size(), QSize(1024, 740));
    const QSize tela = QGuiApplication::primaryScreen()->size();
    QCOMPARE(m_form->pos(), QPoint(tela.width() / 2 - 512, (tela.height() - 28) / 2 - 370));

    QCOMPARE(Mostrados(), QList<bool>({true, false, false}));
    const auto* barra = m_form->Acha<QToolBar>("Toolbar");
    const QPoint topo = Painel(0)->mapTo(m_form.get(), QPoint(0, 0));
    QCOMPARE(topo, QPoint(0, barra->geometry().bottom() + 1)); // 8 twips are half a pixel
    QCOMPARE(Painel(0)->width(), m_form->width());
}

void tst_principal::loadingRunsItsStepsInOrder()
{
    QStringList sql;
    m_form.reset();
    m_form = std::make_unique<PrincipalTeste>(*m_catalogo);
    Funcoes::Conexao.SetStatementHook([&](const QString& texto) { sql.append(texto); });
    m_form->Form_Load(u"/tmp/a b.mld"_qs);
    Funcoes::Conexao.SetStatementHook({});
    QCOMPARE(m_form->chamadas,
             QStringList({u"Conecta_Banco"_qs, u"Importa_Musicas /tmp/a b.mld"_qs}));
    QCOMPARE(sql, QStringList(u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs));
    QVERIFY(!m_form->isVisible());
    QVERIFY(m_form->Acha<QTimer>("Timer1")->isActive());
}

void tst_principal::anErrorInTheThemesEndsTheLoadingBeforeTheFirstSearch()
{
    m_form.reset();
    m_form = std::make_unique<PrincipalTeste>(*m_catalogo);
    Funcoes::Conexao.SetStatementHook([](const QString&) {
        throw RuntimeError(RuntimeError::StoreFailure, u"Não deu."_qs, QString());
    });
    QVERIFY_THROWS_EXCEPTION(RuntimeError, m_form->Form_Load(u"x.mld"_qs));
    Funcoes::Conexao.SetStatementHook({});
    QVERIFY(!m_form->Acha<QTimer>("Timer1")->isActive());
    QCOMPARE(m_form->chamadas, QStringList(u"Conecta_Banco"_qs));
}

void tst_principal::anErrorInTheImportLeavesALoadedForm()
{
    class Falha final : public frmPrincipal
    {
    protected:
        void Conecta_Banco() override {}
        void Importa_Musicas(const QString& /*caminho*/) override
        {
            throw RuntimeError(RuntimeError::FileFailure, u"Arquivo."_qs, QString());
        }
    } form;
    QVERIFY_THROWS_EXCEPTION(RuntimeError, form.Form_Load(u"x.mld"_qs));
    QVERIFY(form.findChild<QTimer*>(u"Timer1"_qs)->isActive());
    form.findChild<QTimer*>(u"Timer1"_qs)->stop();
}

void tst_principal::menuEntriesStandInThisOrder()
{
    const QList<std::pair<QString, QString>> dadas{
        {u"mnuPesquisa"_qs, u"&Pesquisa"_qs}, {u"mnuCadastro"_qs, u"&Cadastro"_qs},
        {u"mnuLista"_qs, u"&Lista"_qs},       {u"mnuExportar"_qs, u"&Exportar"_qs},
        {u"mnuImportar"_qs, u"&Importar"_qs}, {u"mnuSobre"_qs, u"&Sobre"_qs},
        {u"mnuSair"_qs, u"Sai&r"_qs}};
    const QList<QAction*> entradas = m_form->menuBar()->actions();
    QCOMPARE(entradas.size(), dadas.size());
    for (int i = 0; i < dadas.size(); ++i) {
        QCOMPARE(entradas[i]->objectName(), dadas[i].first);
        QCOMPARE(entradas[i]->text(), dadas[i].second);
        QVERIFY(entradas[i]->shortcut().isEmpty());
        QVERIFY(entradas[i]->icon().isNull());
    }
}

void tst_principal::toolbarButtonsStandInThisOrder()
{
    const QList<QStringList> dados{
        {u"pesquisa"_qs, u"Pesquisa"_qs, u"Pesquisar Música"_qs},
        {u"cadastro"_qs, u"Cadastro"_qs, u"Cadastrar Música"_qs},
        {u"lista"_qs, u"Lista"_qs, u"Gerenciar Listas"_qs},
        {u"exportar"_qs, u"Exportar"_qs, u"Exporta as músicas listadas"_qs},
        {u"importar"_qs, u"Importar"_qs, u"Importar Músicas de Arquivo"_qs},
        {u"sobre"_qs, u"Sobre"_qs, u"Sobre o Melodario"_qs},
        {u"sair"_qs, u"Sair"_qs, u"Sair do Melodario"_qs}};
    const QList<QAction*> botoes = m_form->Acha<QToolBar>("Toolbar")->actions();
    QCOMPARE(botoes.size(), dados.size());
    for (int i = 0; i < dados.size(); ++i) {
        QCOMPARE(
            QStringList({botoes[i]->data().toString(), botoes[i]->text(), botoes[i]->toolTip()}),
            dados[i]);
        QVERIFY2(!botoes[i]->icon().pixmap(32, 32).isNull(), qPrintable(dados[i][0]));
    }
}

void tst_principal::menuEntriesSwitchPanels_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<QStringList>("chamadas");
    QTest::addColumn<QList<bool>>("mostrados");
    QTest::addColumn<QByteArray>("foco");

    QTest::newRow("Pesquisa") << QByteArray("mnuPesquisa")
                              << QStringList(u"Verifica_Modificacoes"_qs)
                              << QList<bool>{true, false, false} << QByteArray("txtTitulo");
    QTest::newRow("Cadastro") << QByteArray("mnuCadastro")
                              << QStringList(
                                     {u"Verifica_Modificacoes"_qs, u"Inicializa_Cadastro 0"_qs})
                              << QList<bool>{false, false, true} << QByteArray("txtCadTitulo");
    QTest::newRow("Lista") << QByteArray("mnuLista") << QStringList(u"Inicializa_Lista"_qs)
                           << QList<bool>{false, true, false} << QByteArray("txtNome");
}

void tst_principal::menuEntriesSwitchPanels()
{
    QFETCH(QByteArray, menu);
    QFETCH(QStringList, chamadas);
    QFETCH(QList<bool>, mostrados);
    QFETCH(QByteArray, foco);
    // From each of the three panels, its own included.
    for (const char* antes : {"mnuPesquisa", "mnuCadastro", "mnuLista"}) {
        Dispara(antes);
        m_form->chamadas.clear();
        Dispara(menu.constData());
        QCOMPARE(m_form->chamadas, chamadas);
        QCOMPARE(Mostrados(), mostrados);
        QCOMPARE(QApplication::focusWidget(), m_form->Acha<QWidget>(foco.constData()));
    }
}

void tst_principal::toolbarButtonsDoAsTheMenu_data()
{
    QTest::addColumn<QString>("chave");
    QTest::addColumn<QByteArray>("menu");
    QTest::newRow("pesquisa") << u"pesquisa"_qs << QByteArray("mnuPesquisa");
    QTest::newRow("cadastro") << u"cadastro"_qs << QByteArray("mnuCadastro");
    QTest::newRow("lista") << u"lista"_qs << QByteArray("mnuLista");
    QTest::newRow("exportar") << u"exportar"_qs << QByteArray("mnuExportar");
    QTest::newRow("importar") << u"importar"_qs << QByteArray("mnuImportar");
    QTest::newRow("sobre") << u"sobre"_qs << QByteArray("mnuSobre");
    QTest::newRow("sair") << u"sair"_qs << QByteArray("mnuSair");
}

void tst_principal::toolbarButtonsDoAsTheMenu()
{
    QFETCH(QString, chave);
    QFETCH(QByteArray, menu);
    // Seen: the calls, the panels and whether the form is still there.
    const auto estado = [this] {
        QStringList visto = m_form->chamadas;
        for (const bool mostrado : Mostrados())
            visto.append(mostrado ? u"shown"_qs : u"hidden"_qs);
        visto.append(m_form->isVisible() ? u"open"_qs : u"closed"_qs);
        visto.append(QString::number(m_caixas->boxes.size()));
        return visto;
    };
    const QStringList antes = estado();
    Dispara(menu.constData());
    const QStringList peloMenu = estado();
    QVERIFY(peloMenu != antes); // every entry does something that is seen here
    cleanup();
    init();
    auto* barra = m_form->Acha<QToolBar>("Toolbar");
    QTest::mouseClick(barra->widgetForAction(Botao(chave)), Qt::LeftButton);
    QCOMPARE(estado(), peloMenu);
}

void tst_principal::toolbarButtonWithAnotherKeyDoesNothing_data()
{
    QTest::addColumn<QVariant>("chave");
    QTest::newRow("unknown") << QVariant(u"imprimir"_qs);
    QTest::newRow("capitals") << QVariant(u"Lista"_qs);
    QTest::newRow("empty") << QVariant(QString());
    QTest::newRow("none") << QVariant();
}

void tst_principal::toolbarButtonWithAnotherKeyDoesNothing()
{
    QFETCH(QVariant, chave);
    auto* barra = m_form->Acha<QToolBar>("Toolbar");
    QAction* outra = barra->addAction(u"Outra"_qs);
    outra->setData(chave);
    QTest::mouseClick(barra->widgetForAction(outra), Qt::LeftButton);
    QVERIFY(m_form->chamadas.isEmpty());
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Mostrados(), QList<bool>({true, false, false}));
}

void tst_principal::refusedSwitchLeavesEverythingAsItWas_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::newRow("Pesquisa") << QByteArray("mnuPesquisa");
    QTest::newRow("Cadastro") << QByteArray("mnuCadastro");
    QTest::newRow("Sair") << QByteArray("mnuSair");
}

void tst_principal::refusedSwitchLeavesEverythingAsItWas()
{
    QFETCH(QByteArray, menu);
    Dispara("mnuLista");
    m_form->Acha<QLineEdit>("txtNome")->setText(u"Ensaio"_qs);
    m_form->chamadas.clear();
    m_form->aceita = false;
    Dispara(menu.constData());
    QCOMPARE(m_form->chamadas, QStringList(u"Verifica_Modificacoes"_qs));
    QCOMPARE(Mostrados(), QList<bool>({false, true, false}));
    QCOMPARE(QApplication::focusWidget(), m_form->Acha<QWidget>("txtNome"));
    QCOMPARE(m_form->Acha<QLineEdit>("txtNome")->text(), u"Ensaio"_qs);
    QVERIFY(m_form->isVisible());
    QVERIFY(Funcoes::Conexao.IsOpen());
}

void tst_principal::listaIsInitialisedWithoutAQuestion()
{
    Dispara("mnuLista");
    m_form->chamadas.clear();
    m_form->aceita = false;
    Dispara("mnuLista");
    QCOMPARE(m_form->chamadas, QStringList(u"Inicializa_Lista"_qs));
    QCOMPARE(Mostrados(), QList<bool>({false, true, false}));
}

void tst_principal::cadastroStartsANewSong()
{
    Dispara("mnuCadastro");
    m_form->Inicializa_Cadastro(12);
    m_form->chamadas.clear();
    Dispara("mnuCadastro");
    QCOMPARE(m_form->chamadas,
             QStringList({u"Verifica_Modificacoes"_qs, u"Inicializa_Cadastro 0"_qs}));
}

void tst_principal::aboutBoxTellsVersionAndCredits()
{
    Dispara("mnuSobre");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Nenhum);
    const QStringList linhas = m_caixas->boxes[0].text.split(u"\r\n"_qs);
    QCOMPARE(linhas[0], u"Melodario Versão "_qs + Version::ToText());
    // Two credits, an empty line, and more credits.
    QVERIFY(linhas.size() > 4);
    for (int i = 0; i < linhas.size(); ++i)
        QCOMPARE(linhas[i].isEmpty(), i == 3);
    QVERIFY(!linhas.join(QString()).contains(u'\n'));
}

void tst_principal::sairClosesFormAndConnection()
{
    Dispara("mnuSair");
    QCOMPARE(m_form->chamadas, QStringList(u"Verifica_Modificacoes"_qs));
    QVERIFY(!m_form->isVisible());
    QVERIFY(!Funcoes::Conexao.IsOpen());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_principal::sairStaysWhenRefused()
{
    m_form->aceita = false;
    Dispara("mnuSair");
    QVERIFY(m_form->isVisible());
    QVERIFY(Funcoes::Conexao.IsOpen());
}

void tst_principal::frameCloseAsksNothing()
{
    m_form->aceita = false;
    Dispara("mnuLista");
    m_form->chamadas.clear();
    m_form->close(); // what the frame's button asks for
    QVERIFY(m_form->chamadas.isEmpty());
    QVERIFY(!m_form->isVisible());
    QVERIFY(!Funcoes::Conexao.IsOpen());
}

void tst_principal::closingStopsTheClock()
{
    m_form->Reinicia_Timer1();
    m_form->close();
    QVERIFY(!m_form->Acha<QTimer>("Timer1")->isActive());
    m_form->close(); // a second time: nothing is left to close
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_principal::viewersOutliveTheForm()
{
    const qint64 id = m_catalogo->AddSong(u"Luar"_qs);
    m_form->Executa_Comando(u"abrir@%1"_qs.arg(id));
    QCOMPARE(Visualizadores().size(), 1);
    QVERIFY(!Visualizadores().first()->parentWidget());
    Dispara("mnuSair");
    m_form.reset();
    QCOMPARE(Visualizadores().size(), 1);
    QVERIFY(Visualizadores().first()->isVisible());
}

void tst_principal::timerIsOneShotOf200Ms()
{
    auto* timer = m_form->Acha<QTimer>("Timer1");
    QVERIFY(timer->parent() == m_form.get());
    QCOMPARE(timer->interval(), 200);
    QTRY_VERIFY(!timer->isActive()); // the first search
    int pesquisas = 0;
    Funcoes::Conexao.SetStatementHook([&](const QString& /*sql*/) {
        ++pesquisas;
        QVERIFY(!timer->isActive()); // it is off before the search runs
    });
    m_form->Reinicia_Timer1();
    QTest::qWait(120);
    m_form->Reinicia_Timer1(); // the interval starts anew
    QTest::qWait(120);
    QCOMPARE(pesquisas, 0);
    QTest::qWait(400);
    Funcoes::Conexao.SetStatementHook({});
    QCOMPARE(pesquisas, 1);
}

void tst_principal::timerWaitsForTheLoading()
{
    m_form.reset();
    m_form = std::make_unique<PrincipalTeste>(*m_catalogo);
    QVERIFY(!m_form->Acha<QTimer>("Timer1")->isActive());
}

void tst_principal::msgShowsItsArgument()
{
    m_form->Executa_Comando(u"msg@Olá"_qs);
    m_form->Executa_Comando(u"msg@um@dois"_qs);
    m_form->Executa_Comando(u"msg@"_qs);
    QCOMPARE(m_caixas->boxes.size(), 3);
    QCOMPARE(m_caixas->boxes[0].text, u"Olá"_qs);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Informacao);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(m_caixas->boxes[1].text, u"um"_qs);
    QCOMPARE(m_caixas->boxes[2].text, QString());
}

void tst_principal::abrirAsksAndOpens()
{
    for (int i = 0; i < 12; ++i)
        m_catalogo->AddSong(u"Canção %1"_qs.arg(i + 1));
    m_form->Executa_Comando(u"abrir@12"_qs);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].text, u"Foi enviada uma nova música. Deseja abrí-la?"_qs);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Pergunta);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(Visualizadores().size(), 1);
    QCOMPARE(Visualizadores().first()->findChild<QLabel*>(u"lblTitulo"_qs)->text(),
             u"Canção 12"_qs);
    QVERIFY(!Visualizadores().first()->isModal());
    delete Visualizadores().first();
    m_form->Executa_Comando(u"abrir@3@12"_qs);
    QCOMPARE(Visualizadores().size(), 1);
    QCOMPARE(Visualizadores().first()->findChild<QLabel*>(u"lblTitulo"_qs)->text(), u"Canção 3"_qs);
}

void tst_principal::abrirAnsweredNoOpensNothing()
{
    m_caixas->answer = false;
    m_form->Executa_Comando(u"abrir@%1"_qs.arg(m_catalogo->AddSong(u"Luar"_qs)));
    QCOMPARE(m_caixas->boxes.size(), 1);
    QVERIFY(Visualizadores().isEmpty());
}

void tst_principal::otherCommandsDoNothing_data()
{
    QTest::addColumn<QString>("comando");
    QTest::newRow("empty") << QString();
    QTest::newRow("abrir without argument") << u"abrir"_qs;
    QTest::newRow("abrir with an empty argument") << u"abrir@"_qs;
    QTest::newRow("abrir with something that is no number") << u"abrir@doze"_qs;
    QTest::newRow("msg without argument") << u"msg"_qs;
    QTest::newRow("verb in capitals") << u"ABRIR@1"_qs;
    QTest::newRow("message verb in capitals") << u"Msg@Olá"_qs;
    QTest::newRow("unknown verb") << u"apagar@1"_qs;
    QTest::newRow("no verb") << u"@1"_qs;
    QTest::newRow("blank before the verb") << u" msg@1"_qs;
}

void tst_principal::otherCommandsDoNothing()
{
    QFETCH(QString, comando);
    m_catalogo->AddSong(u"Luar"_qs);
    m_form->Executa_Comando(comando);
    QVERIFY(m_caixas->boxes.isEmpty());
    QVERIFY(Visualizadores().isEmpty());
}

void tst_principal::f10ReachesTheMenuAndLeavesIt()
{
    QMenuBar* menu = m_form->menuBar();
    QWidget* caixa = m_form->Acha<QWidget>("txtReferencia");
    caixa->setFocus();
    QTest::keyClick(caixa, Qt::Key_F10);
    QVERIFY(menu->hasFocus());
    QCOMPARE(menu->activeAction(), m_form->Acha<QAction>("mnuPesquisa"));
    QTest::keyClick(menu, Qt::Key_Escape);
    QVERIFY(caixa->hasFocus());

    QTest::keyClick(caixa, Qt::Key_F10);
    QTest::keyClick(menu, Qt::Key_Right);
    QTest::keyClick(menu, Qt::Key_Right);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(Mostrados(), QList<bool>({false, true, false}));
    QVERIFY(m_form->Acha<QWidget>("txtNome")->hasFocus());

    QTest::keyClick(m_form->Acha<QWidget>("txtNome"), Qt::Key_F10);
    QTest::keyClick(menu, Qt::Key_End);
    QTest::keyClick(menu, Qt::Key_F10);
    QVERIFY(m_form->Acha<QWidget>("txtNome")->hasFocus());
}

void tst_principal::accessKeyOfTheShownPanelWins()
{
    Dispara("mnuCadastro");
    QSignalSpy cliques(m_form->Acha<QPushButton>("cmdCadSalvar"), &QPushButton::clicked);
    for (int i = 1; i <= 3; ++i) {
        QTest::keyClick(m_form->Acha<QWidget>("txtCadTitulo"), Qt::Key_S, Qt::AltModifier);
        QCOMPARE(cliques.size(), i);
        QCOMPARE(m_caixas->boxes.size(), i);
        QCOMPARE(m_caixas->boxes.last().text, u"Preencha o Título da música."_qs);
    }

    // Hidden with its panel, it leaves the letter to the menu.
    Dispara("mnuPesquisa");
    QTest::keyClick(m_form->Acha<QWidget>("txtTitulo"), Qt::Key_S, Qt::AltModifier);
    QCOMPARE(cliques.size(), 3);
    QCOMPARE(m_caixas->boxes.size(), 4);
    QVERIFY(m_caixas->boxes.last().text.startsWith(u"Melodario Versão"));
}

void tst_principal::accessKeysReachTheMenuOtherwise()
{
    QTest::keyClick(m_form->Acha<QWidget>("txtTitulo"), Qt::Key_C, Qt::AltModifier);
    QCOMPARE(Mostrados(), QList<bool>({false, false, true}));
    QTest::keyClick(m_form->Acha<QWidget>("txtCadTitulo"), Qt::Key_L, Qt::AltModifier);
    QCOMPARE(Mostrados(), QList<bool>({false, true, false}));
    QTest::keyClick(m_form->Acha<QWidget>("txtNome"), Qt::Key_P, Qt::AltModifier);
    QCOMPARE(Mostrados(), QList<bool>({true, false, false}));
}

QTEST_MAIN(tst_principal)
#include "tst_principal.moc"
