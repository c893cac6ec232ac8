#include "CadastroTeste.h"

#include "chords/Notas.h"
#include "controls/Appearance.h"
#include "runtime/RuntimeError.h"

#include <QAction>
#include <QLabel>

/// How songs come into the entry panel, and its version tabs.
class tst_cadastro : public CadastroTeste
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }

    void newSongIsEmpty();
    void newSongAsksForItsLists();
    void storedSongIsShown();
    void storedSongIsAskedForAsGiven();
    void missingSecondVersionShowsTheFirst_data();
    void missingSecondVersionShowsTheFirst();
    void missingFirstVersionStaysEmpty_data();
    void missingFirstVersionStaysEmpty();
    void songThatIsGoneLeavesTheFields();
    void songOfNullsIsShownEmpty();
    void unknownKeyAndVariationSelectNothing();
    void keyIsComparedExactly();
    void emptyTablesOfKeysAndVariations();
    void songOnEmptyTablesOfKeysAndVariations();
    void linkToAThemeThatIsGoneChecksNothing();
    void singleThemeIsCheckedForANewSong();
    void emptyTableOfThemesShowsThePlaceholder();
    void themesStandInTheirOrder();
    void namesOfNotesAreReadAnew();
    void thirteenNotesAreAnError();
    void chordsAreShownAsASheet();
    void aNewSongIsTypedInTheSizeOfASheet();
    void tabsSwitchTheVersion();
    void tabsHaveTheirColours();
    void theButtonThatStoresHasTheAccentWhereverTheFocusIs();
    void tabsStandOnOneLineWithTheirLabel();
    void everyLoadingShowsVersionOne();
    void newSongAsksFirst();
    void viewerShowsTheStoredSong();
    void viewerNeedsAStoredSong();
    void viewerOfASongThatIsGoneShowsNone();
    void viewerThatFailsIsTold();
    void viewerKeepsASongThatThePanelDeletes();
    void leavingWithTypedTextAsksNothing_data();
    void leavingWithTypedTextAsksNothing();
    void captionsAndItemsAreTheGivenOnes();
};

void tst_cadastro::newSongIsEmpty()
{
    const qint64 id = Musica();
    Edita(id);
    m_form->Inicializa_Cadastro(0);
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Texto("txtCadTitulo"), QString());
    QCOMPARE(Texto("txtCadReferencia"), QString());
    QCOMPARE(Letra(0), QString());
    QCOMPARE(Letra(1), QString());
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->currentText(), u"C"_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadVariacao")->currentText(), u""_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadVariacao")->ListIndex(), 0);
    QCOMPARE(Acha<ComboBox>("cmbCadCategoria")->currentText(), u"Religiosa"_qs);
    QCOMPARE(Temas_Marcados(), QStringList());
    QVERIFY(!Acha<QPushButton>("cmdVisualizar")->isEnabled());
    QVERIFY(!Acha<QPushButton>("cmdExcluir")->isEnabled());
    QVERIFY(Caixa(0)->isVisible());
    QVERIFY(!Caixa(1)->isVisible());
}

void tst_cadastro::newSongAsksForItsLists()
{
    Carrega();
    m_form->Inicializa_Cadastro(0);
    QCOMPARE(m_comandos,
             QStringList({u"SELECT ID, NOTA FROM TOM ORDER BY ORDEM"_qs,
                          u"SELECT ID, NOMENCLATURA FROM VARIACAO ORDER BY ID"_qs,
                          u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs}));
}

void tst_cadastro::storedSongIsShown()
{
    const qint64 id = Musica({.title = u"D'água"_qs,
                              .reference = u"Zé \"da\" Ilha"_qs,
                              .key = u"F#"_qs,
                              .variation = u"m"_qs,
                              .category = 2});
    m_catalogo->Link(id, 3);
    Edita(id);
    QCOMPARE(Identidade(), QString::number(id));
    QCOMPARE(Texto("txtCadTitulo"), u"D'água"_qs);
    QCOMPARE(Texto("txtCadReferencia"), u"Zé \"da\" Ilha"_qs);
    QCOMPARE(Letra(0), u"C  G7\r\nSanto Deus"_qs);
    QCOMPARE(Letra(1), u"D  A7\r\nSanto Deus"_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->currentText(), u"F#"_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadVariacao")->currentText(), u"m"_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadCategoria")->currentText(), u"Secular"_qs);
    QCOMPARE(Temas_Marcados(), QStringList({u"Louvor"_qs, u"Sem Tema"_qs}));
    QVERIFY(Acha<QPushButton>("cmdVisualizar")->isEnabled());
    QVERIFY(Acha<QPushButton>("cmdExcluir")->isEnabled());
}

void tst_cadastro::storedSongIsAskedForAsGiven()
{
    const qint64 id = Musica();
    Carrega();
    m_form->Inicializa_Cadastro(static_cast<double>(id));
    QCOMPARE(m_comandos,
             QStringList(
                 {u"SELECT * FROM TOM ORDER BY ORDEM"_qs, u"SELECT * FROM MUSICA WHERE ID = 01"_qs,
                  // the boxes' changes ask for suggestions
                  u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE '"_qs +
                      Acha<QLineEdit>("txtCadTitulo")->text() +
                      u"%' ORDER BY TITULO & ' - ' & REFERENCIA"_qs,
                  u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA WHERE REFERENCIA LIKE '"_qs +
                      Acha<QLineEdit>("txtCadReferencia")->text() + u"%' ORDER BY REFERENCIA"_qs,
                  u"SELECT ID, NOTA FROM TOM ORDER BY ORDEM"_qs,
                  u"SELECT ID, NOMENCLATURA FROM VARIACAO ORDER BY ID"_qs,
                  u"SELECT * FROM TEMA_MUSICA WHERE ID_MUSICA = 01"_qs,
                  u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs}));
    QVERIFY(!Funcoes::Consulta.IsOpen());
}

void tst_cadastro::missingSecondVersionShowsTheFirst_data()
{
    QTest::addColumn<QString>("versao2");
    QTest::newRow("NULL") << QString();
    QTest::newRow("empty") << u""_qs;
}

void tst_cadastro::missingSecondVersionShowsTheFirst()
{
    QFETCH(QString, versao2);
    Edita(Musica({.text = u"C\r\nLuz"_qs, .text2 = versao2}));
    QCOMPARE(Letra(0), u"C\r\nLuz"_qs);
    QCOMPARE(Letra(1), u"C\r\nLuz"_qs);
}

void tst_cadastro::missingFirstVersionStaysEmpty_data()
{
    QTest::addColumn<QString>("versao1");
    QTest::newRow("NULL") << QString();
    QTest::newRow("empty") << u""_qs;
}

void tst_cadastro::missingFirstVersionStaysEmpty()
{
    QFETCH(QString, versao1);
    Edita(Musica({.text = versao1, .text2 = u"C\r\nLuz"_qs}));
    QCOMPARE(Letra(0), QString());
    QCOMPARE(Letra(1), u"C\r\nLuz"_qs);
}

void tst_cadastro::songThatIsGoneLeavesTheFields()
{
    const qint64 id = Musica();
    Edita(id);
    Digita("txtCadTitulo", u"Digitado"_qs);
    Digita("txtCadLetra_0", u"letra"_qs);
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    m_form->Inicializa_Cadastro(99);
    QCOMPARE(Identidade(), QString::number(id));
    QCOMPARE(Texto("txtCadTitulo"), u"Digitado"_qs);
    QCOMPARE(Letra(0), u"letra"_qs);
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
    QVERIFY(Acha<QPushButton>("cmdExcluir")->isEnabled());
    QVERIFY(Caixa(0)->isVisible());
    QVERIFY(!Caixa(1)->isVisible());
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_cadastro::songOfNullsIsShownEmpty()
{
    m_catalogo->Run(u"INSERT INTO MUSICA (ID, CATEGORIA) VALUES (7, 1)"_qs);
    Carrega();
    Digita("txtCadTitulo", u"Antes"_qs);
    Digita("txtCadLetra_0", u"Antes"_qs);
    m_form->Inicializa_Cadastro(7);
    QCOMPARE(Identidade(), u"7"_qs);
    QCOMPARE(Texto("txtCadTitulo"), QString());
    QCOMPARE(Texto("txtCadReferencia"), QString());
    QCOMPARE(Letra(0), QString());
    QCOMPARE(Letra(1), QString());
    QCOMPARE(Temas_Marcados(), QStringList());
}

void tst_cadastro::unknownKeyAndVariationSelectNothing()
{
    Edita(Musica({.key = u"H"_qs, .variation = u"sus9"_qs}));
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->ListIndex(), -1);
    QCOMPARE(Acha<ComboBox>("cmbCadVariacao")->ListIndex(), -1);
}

void tst_cadastro::keyIsComparedExactly()
{
    Edita(Musica({.key = u"c"_qs}));
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->ListIndex(), -1);
}

void tst_cadastro::emptyTablesOfKeysAndVariations()
{
    m_catalogo->Run(u"DELETE FROM TOM; DELETE FROM VARIACAO"_qs);
    Carrega();
    for (const char* lista : {"cmbCadTom", "cmbCadVariacao"}) {
        const auto* combo = Acha<ComboBox>(lista);
        QCOMPARE(combo->ListCount(), 1);
        QCOMPARE(combo->currentText(), u"Não Cadastrado"_qs);
        QCOMPARE(combo->ListIndex(), 0);
        QCOMPARE(combo->ItemData(0), 0);
    }
    Digita_Musica();
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    // What is chosen is what is stored.
    QCOMPARE(m_catalogo->Field(u"SELECT TOM || '|' || VARIACAO FROM MUSICA"_qs),
             u"Não Cadastrado|Não Cadastrado"_qs);
}

void tst_cadastro::songOnEmptyTablesOfKeysAndVariations()
{
    m_catalogo->Run(u"DELETE FROM TOM; DELETE FROM VARIACAO"_qs);
    Edita(Musica({.key = u"F#"_qs, .variation = u"m"_qs}));
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Texto("txtCadTitulo"), u"Santo Deus"_qs);
    QVERIFY(Letra(0).contains(u"Santo Deus"));
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->currentText(), u"Não Cadastrado"_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadVariacao")->currentText(), u"Não Cadastrado"_qs);
}

void tst_cadastro::linkToAThemeThatIsGoneChecksNothing()
{
    const qint64 id = Musica();
    m_catalogo->Link(id, 99);
    Edita(id);
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Atualizada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA"_qs), u"1"_qs);
    // With no other link left there is no theme to save with.
    m_catalogo->Run(u"UPDATE TEMA_MUSICA SET ID_TEMA = 99"_qs);
    Edita(id);
    QCOMPARE(Temas_Marcados(), QStringList());
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Selecione pelo menos um Tema para a música."_qs, Icone::Exclamacao);
}

void tst_cadastro::singleThemeIsCheckedForANewSong()
{
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID > 1"_qs);
    Carrega();
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
}

void tst_cadastro::emptyTableOfThemesShowsThePlaceholder()
{
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Carrega();
    QCOMPARE(Nomes_Temas(), QStringList(u"Não há dados a serem mostrados."_qs));
    QCOMPARE(Temas()->ItemData(0), 0);
    QCOMPARE(Temas_Marcados(), QStringList());
}

void tst_cadastro::themesStandInTheirOrder()
{
    m_catalogo->AddTheme(u"Ação de graças"_qs);
    m_catalogo->AddTheme(u"Zelo"_qs, 1);
    Carrega();
    QCOMPARE(Nomes_Temas(), QStringList({u"Zelo"_qs, u"Ação de graças"_qs, u"Louvor"_qs,
                                         u"Natal"_qs, u"Sem Tema"_qs}));
}

void tst_cadastro::namesOfNotesAreReadAnew()
{
    Carrega();
    const qint64 id = Musica({.text = u"Dó  Sol\r\nLuz"_qs});
    Funcoes::Notas.fill(QString());
    Funcoes::Notas_Mais.fill(QString());
    Edita(id);
    QCOMPARE(Funcoes::Notas[0], u"?"_qs);
    QCOMPARE(Funcoes::Notas[2], u"C#"_qs);
    QCOMPARE(Funcoes::Notas_Mais[0], u"?"_qs);
    QCOMPARE(Funcoes::Notas_Mais[2], u"Db"_qs);
    QCOMPARE(Funcoes::Notas[12], u"B"_qs);
}

void tst_cadastro::thirteenNotesAreAnError()
{
    const qint64 id = Musica();
    m_catalogo->Run(u"INSERT INTO TOM (ID, NOTA, ORDEM, MAIS) VALUES (13, 'H', 13, 'H')"_qs);
    Carrega();
    try {
        m_form->Inicializa_Cadastro(static_cast<double>(id));
        QFAIL("a thirteenth note was taken");
    } catch (const RuntimeError& erro) {
        QCOMPARE(erro.Number(), int{RuntimeError::SubscriptOutOfRange});
    }
    QCOMPARE(Identidade(), u"0"_qs);
}

void tst_cadastro::chordsAreShownAsASheet()
{
    Edita(Musica());
    for (int versao = 0; versao < 2; ++versao) {
        QTextCursor cifra(Caixa(versao)->document());
        cifra.setPosition(1);
        QCOMPARE(cifra.charFormat().fontWeight(), int(QFont::Bold));
        QCOMPARE(cifra.charFormat().foreground().color(), QColor(0, 102, 204));
        QCOMPARE(cifra.charFormat().font().pointSizeF(), 14.0);
        QVERIFY(!Caixa(versao)->isReadOnly());
    }
}

void tst_cadastro::aNewSongIsTypedInTheSizeOfASheet()
{
    const qint64 id = Musica();
    Carrega();
    for (const bool depoisDeOutra : {false, true}) {
        if (depoisDeOutra) {
            Edita(id); // begins with a chord
            m_form->Inicializa_Cadastro(0);
        }
        for (int versao = 0; versao < 2; ++versao) {
            QTest::mouseClick(
                Acha<QWidget>(versao == 0 ? "lblMostraMusica_0" : "lblMostraMusica_1"),
                Qt::LeftButton);
            Digita(versao == 0 ? "txtCadLetra_0" : "txtCadLetra_1", u"Am"_qs);
            QTextCursor letra(Caixa(versao)->document());
            letra.setPosition(1);
            QCOMPARE(letra.charFormat().font().pointSizeF(), 14.0);
            QVERIFY(letra.charFormat().fontWeight() <= int(QFont::Normal));
            QCOMPARE(Caixa(versao)->document()->defaultFont().family(),
                     Appearance::MonospacedFamily());
        }
    }
}

void tst_cadastro::tabsSwitchTheVersion()
{
    Carrega();
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    QVERIFY(!Caixa(0)->isVisible());
    QVERIFY(Caixa(1)->isVisible());
    const QRect lugar = Caixa(1)->geometry();
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_0"), Qt::LeftButton);
    QVERIFY(Caixa(0)->isVisible());
    QVERIFY(!Caixa(1)->isVisible());
    QCOMPARE(Caixa(0)->geometry(), lugar);
    QCOMPARE(m_comandos, QStringList());
}

void tst_cadastro::theButtonThatStoresHasTheAccentWhereverTheFocusIs()
{
    Carrega();
    const auto fundo = [this](const char* botao) {
        return Acha<QWidget>(botao)->grab().toImage().pixelColor(8, 16);
    };
    for (const char* foco : {"cmdCadSalvar", "cmdCadLimpar", "cmdCadSalvar", "txtCadTitulo"}) {
        Acha<QWidget>(foco)->setFocus();
        QCOMPARE(fundo("cmdCadSalvar"), Appearance::Accent);
        for (const char* outro : {"cmdCadLimpar", "cmdCadIgualarSalvar", "cmdCadTema"})
            QCOMPARE(fundo(outro), Appearance::Surface);
    }
}

void tst_cadastro::tabsHaveTheirColours()
{
    Carrega();
    const auto cores = [this] {
        QList<QRgb> duas;
        for (const char* aba : {"lblMostraMusica_0", "lblMostraMusica_1"})
            duas.append(Acha<QLabel>(aba)->palette().color(QPalette::WindowText).rgb());
        return duas;
    };
    const QRgb mostrada = qRgb(255, 255, 128);
    const QRgb outra = qRgb(192, 192, 192);
    QCOMPARE(cores(), QList<QRgb>({mostrada, outra}));
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    QCOMPARE(cores(), QList<QRgb>({outra, mostrada}));
    // What is painted, not only what is asked for; under the pointer, too.
    const auto amarelos = [](QWidget* aba) {
        const QImage quadro = aba->grab().toImage();
        int pontos = 0;
        for (int y = 0; y < quadro.height(); ++y) {
            for (int x = 0; x < quadro.width(); ++x) {
                const QColor cor = quadro.pixelColor(x, y);
                pontos += cor.red() > 200 && cor.green() > 200 && cor.blue() < 160 ? 1 : 0;
            }
        }
        return pontos;
    };
    auto* aba = Acha<QLabel>("lblMostraMusica_1");
    QVERIFY(amarelos(aba) > 20);
    QTest::mouseMove(aba, aba->rect().center());
    QCoreApplication::processEvents();
    QVERIFY(amarelos(aba) > 20);
    QCOMPARE(amarelos(Acha<QLabel>("lblMostraMusica_0")), 0);
}

void tst_cadastro::tabsStandOnOneLineWithTheirLabel()
{
    Carrega();
    const QImage faixa = Acha<QWidget>("fraVersoes")->grab().toImage();
    const double escala = faixa.devicePixelRatio();
    // The lowest point of the first letter, which reaches no lower than the line it stands on.
    const auto base = [&](const char* rotulo) {
        const QRect lugar = Acha<QWidget>(rotulo)->geometry();
        const QRgb fundo = faixa.pixel(3, faixa.height() / 2);
        const int esquerda = qRound(lugar.left() * escala);
        for (int y = qRound((lugar.bottom() + 1) * escala) - 1; y > 0; --y) {
            for (int x = esquerda; x < esquerda + qRound(8 * escala); ++x) {
                if (qAbs(qGray(faixa.pixel(x, y)) - qGray(fundo)) > 60)
                    return y;
            }
        }
        return -1;
    };
    QVERIFY(base("lblCadMusica") > 0);
    QCOMPARE(base("lblMostraMusica_0"), base("lblCadMusica"));
    QCOMPARE(base("lblMostraMusica_1"), base("lblCadMusica"));
}

void tst_cadastro::everyLoadingShowsVersionOne()
{
    const qint64 id = Musica();
    Edita(id);
    for (const double qual : {0.0, static_cast<double>(id), 99.0}) {
        QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
        m_form->Inicializa_Cadastro(qual);
        QVERIFY(Caixa(0)->isVisible());
        QVERIFY(!Caixa(1)->isVisible());
    }
}

void tst_cadastro::newSongAsksFirst()
{
    const qint64 id = Musica();
    Edita(id);
    m_caixas->answer = false;
    Clica("cmdCadLimpar");
    Confere_Caixa(u"Deseja limpar os campos para cadastrar uma nova música?"_qs, Icone::Pergunta);
    QCOMPARE(Identidade(), QString::number(id));
    QCOMPARE(Texto("txtCadTitulo"), u"Santo Deus"_qs);
    m_caixas->answer = true;
    Clica("cmdCadLimpar");
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Texto("txtCadTitulo"), QString());
    QCOMPARE(Pesquisas(), 0);
}

void tst_cadastro::viewerShowsTheStoredSong()
{
    Edita(Musica());
    Digita("txtCadTitulo", u"Ainda não guardado"_qs);
    Clica("cmdVisualizar");
    QCOMPARE(Visualizadores().size(), 1);
    QWidget& visualizador = *Visualizadores().first();
    QVERIFY(visualizador.isVisible());
    QVERIFY(!visualizador.isModal());
    QCOMPARE(visualizador.findChild<QLabel*>(u"lblTitulo"_qs)->text(), u"Santo Deus"_qs);
    Clica("cmdVisualizar");
    QCOMPARE(Visualizadores().size(), 2);
}

void tst_cadastro::viewerNeedsAStoredSong()
{
    Carrega();
    Acha<QWidget>("cmdVisualizar")->setEnabled(true);
    for (const QString& id : {u"0"_qs, u""_qs, u"abc"_qs}) {
        Acha<QWidget>("txtCadTitulo")->setProperty("Tag", id);
        Clica("cmdVisualizar");
        QVERIFY(Visualizadores().isEmpty());
    }
}

void tst_cadastro::viewerOfASongThatIsGoneShowsNone()
{
    Edita(Musica());
    m_catalogo->Run(u"DELETE FROM MUSICA; DELETE FROM TEMA_MUSICA"_qs);
    Clica("cmdVisualizar");
    QCOMPARE(Visualizadores().size(), 1);
    QWidget& visualizador = *Visualizadores().first();
    QVERIFY(visualizador.isVisible());
    QCOMPARE(visualizador.findChild<QLabel*>(u"lblTitulo"_qs)->text(), QString());
    QCOMPARE(visualizador.findChild<RichTextBox*>()->Text(), QString());
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Texto("txtCadTitulo"), u"Santo Deus"_qs);
}

void tst_cadastro::viewerThatFailsIsTold()
{
    Edita(Musica());
    m_catalogo->Run(u"INSERT INTO TOM (ID, NOTA, ORDEM, MAIS) VALUES (13, 'H', 13, 'H')"_qs);
    Clica("cmdVisualizar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes.first().icon, Icone::Critico);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(Visualizadores().isEmpty());
    QCOMPARE(Texto("txtCadTitulo"), u"Santo Deus"_qs);
}

void tst_cadastro::viewerKeepsASongThatThePanelDeletes()
{
    Edita(Musica());
    Clica("cmdVisualizar");
    QCOMPARE(Visualizadores().size(), 1);
    m_form->activateWindow();
    Clica("cmdExcluir");
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
    QCOMPARE(Visualizadores().size(), 1);
    const QWidget& visualizador = *Visualizadores().first();
    QVERIFY(visualizador.isVisible());
    QCOMPARE(visualizador.findChild<QLabel*>(u"lblTitulo"_qs)->text(), u"Santo Deus"_qs);
}

void tst_cadastro::leavingWithTypedTextAsksNothing_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::newRow("to the search") << QByteArray("mnuPesquisa");
    QTest::newRow("to the setlists") << QByteArray("mnuLista");
}

void tst_cadastro::leavingWithTypedTextAsksNothing()
{
    QFETCH(QByteArray, menu);
    const qint64 id = Musica();
    Edita(id);
    Digita("txtCadTitulo", u"Digitado"_qs);
    Digita("txtCadLetra_0", u"letra"_qs);
    Clica_Tema(1);
    m_comandos.clear();
    Acha<QAction>(menu.constData())->trigger();
    QVERIFY(!Acha<QWidget>("pctFrame_2")->isVisible());
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Alteracoes(), QStringList());
    QCOMPARE(Texto("txtCadTitulo"), u"Digitado"_qs);
    // Its menu entry begins a new song, without a question, too.
    Acha<QAction>("mnuCadastro")->trigger();
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Texto("txtCadTitulo"), QString());
    QCOMPARE(Letra(0), QString());
    QCOMPARE(Temas_Marcados(), QStringList());
    QVERIFY(Acha<QWidget>("txtCadTitulo")->hasFocus());
    QCOMPARE(m_catalogo->Field(u"SELECT TITULO FROM MUSICA"_qs), u"Santo Deus"_qs);
}

void tst_cadastro::captionsAndItemsAreTheGivenOnes()
{
    Carrega();
    const QList<std::pair<const char*, QString>> rotulos{
        {"lblCadTitulo", u"Título:"_qs},
        {"lblCadReferencia", u"Referência:"_qs},
        {"lblCadTom", u"Tom:"_qs},
        {"lblCadCategoria", u"Categoria:"_qs},
        {"lblCadTema", u"Temas:"_qs},
        {"lblCadMusica", u"Música:"_qs},
        {"lblMostraMusica_0", u"Letra v.1"_qs},
        {"lblMostraMusica_1", u"Letra v.2"_qs},
        {"lblCadDica", u"Para excluir um tema acima, selecione na lista e pressione Delete."_qs}};
    for (const auto& [nome, texto] : rotulos)
        QCOMPARE(Acha<QLabel>(nome)->text(), texto);
    const QList<std::pair<const char*, QString>> botoes{
        {"cmdCadSalvar", u"&Salvar"_qs}, {"cmdCadIgualarSalvar", u"&Igualar e Salvar"_qs},
        {"cmdCadLimpar", u"&Novo"_qs},   {"cmdVisualizar", u"&Visualizar"_qs},
        {"cmdExcluir", u"&Excluir"_qs},  {"cmdCadTema", u"Adicionar Tema"_qs}};
    for (const auto& [nome, texto] : botoes)
        QCOMPARE(Acha<QPushButton>(nome)->text(), texto);
    const auto* categorias = Acha<ComboBox>("cmbCadCategoria");
    QCOMPARE(categorias->ListCount(), 2);
    QCOMPARE(categorias->ItemData(0), 1);
    QCOMPARE(categorias->ItemData(1), 2);
    QCOMPARE(categorias->Text(1), u"Secular"_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->ListCount(), 12);
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->ItemData(0), 1);
}

QTEST_MAIN(tst_cadastro)
#include "tst_cadastro.moc"
