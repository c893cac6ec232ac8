#include "CadastroTeste.h"

#include <QContextMenuEvent>
#include <QLabel>

/// The song entry panel without a mouse.
class tst_cadastro_teclas : public CadastroTeste
{
    Q_OBJECT

private slots:
    void tabFollowsTheEye_data();
    void tabFollowsTheEye();
    void aSongIsEnteredAndDeletedWithKeysAlone();
    void accessKeysPressTheButtons_data();
    void accessKeysPressTheButtons();
    void tabsTurnWithSpaceAndEnter();
    void themesAreKeptWithKeysAlone();
    void enterInABoxPressesNothing();
    void everyControlHasANameForReaders();

private:
    void Tecla(Qt::Key tecla, Qt::KeyboardModifiers com = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), tecla, com);
    }
    /// Presses Tab until a control has the focus.
    void Vai_A(const char* controle)
    {
        for (int i = 0; i < 60 && QApplication::focusWidget() != Acha<QWidget>(controle); ++i)
            Tecla(Qt::Key_Tab);
        QVERIFY(Acha<QWidget>(controle)->hasFocus());
    }
};

void tst_cadastro_teclas::tabFollowsTheEye_data()
{
    QTest::addColumn<bool>("guardada");
    QTest::addColumn<QStringList>("ordem");
    const QStringList nova{
        u"txtCadTitulo"_qs,      u"txtCadReferencia"_qs, u"cmbCadTom"_qs,
        u"cmbCadVariacao"_qs,    u"cmbCadCategoria"_qs,  u"lblMostraMusica_0"_qs,
        u"lblMostraMusica_1"_qs, u"txtCadLetra_0"_qs,    u"lstCadTema"_qs,
        u"cmdCadTema"_qs,        u"cmdCadSalvar"_qs,     u"cmdCadIgualarSalvar"_qs,
        u"cmdCadLimpar"_qs};
    QTest::newRow("new song") << false << nova;
    QTest::newRow("stored song") << true
                                 << nova + QStringList({u"cmdVisualizar"_qs, u"cmdExcluir"_qs});
}

void tst_cadastro_teclas::tabFollowsTheEye()
{
    QFETCH(bool, guardada);
    QFETCH(QStringList, ordem);
    const qint64 id = Musica();
    Carrega();
    QVERIFY(Acha<QWidget>("txtCadTitulo")->hasFocus());
    if (guardada)
        Edita(id);
    QStringList vistos;
    for (qsizetype i = 0; i < ordem.size(); ++i) {
        vistos.append(QApplication::focusWidget()->objectName());
        Tecla(Qt::Key_Tab);
    }
    QCOMPARE(vistos, ordem);
    Tecla(Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget()->objectName(), ordem.last());
}

void tst_cadastro_teclas::aSongIsEnteredAndDeletedWithKeysAlone()
{
    Carrega();
    Escreve(QApplication::focusWidget(), u"Luz"_qs);
    Vai_A("txtCadReferencia");
    Escreve(QApplication::focusWidget(), u"Ana"_qs);
    Vai_A("cmbCadTom");
    Tecla(Qt::Key_Down);
    Vai_A("cmbCadVariacao");
    Tecla(Qt::Key_Down);
    Vai_A("cmbCadCategoria");
    Tecla(Qt::Key_Down);
    Vai_A("txtCadLetra_0");
    Escreve(QApplication::focusWidget(), u"C\nLuz"_qs);
    Vai_A("lstCadTema");
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Down);
    Tecla(Qt::Key_Space);
    Tecla(Qt::Key_S, Qt::AltModifier);
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Rows(u"SELECT TITULO, REFERENCIA, MUSICA, TOM, VARIACAO, CATEGORIA, "
                              "(SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA) FROM MUSICA"_qs),
             QList<QStringList>(
                 {{u"Luz"_qs, u"Ana"_qs, u"C\r\nLuz"_qs, u"C#"_qs, u"m"_qs, u"2"_qs, u"2"_qs}}));
    Vai_A("cmdExcluir");
    Tecla(Qt::Key_Return);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
}

void tst_cadastro_teclas::accessKeysPressTheButtons_data()
{
    QTest::addColumn<Qt::Key>("tecla");
    QTest::addColumn<QString>("caixa");
    QTest::newRow("Salvar") << Qt::Key_S << u"Música Atualizada com Sucesso!"_qs;
    QTest::newRow("Igualar e Salvar") << Qt::Key_I << u"Música Atualizada com Sucesso!"_qs;
    QTest::newRow("Novo") << Qt::Key_N
                          << u"Deseja limpar os campos para cadastrar uma nova música?"_qs;
    QTest::newRow("Excluir") << Qt::Key_E << u"Deseja realmente excluir esta música?"_qs;
    QTest::newRow("Visualizar") << Qt::Key_V << QString();
}

void tst_cadastro_teclas::accessKeysPressTheButtons()
{
    QFETCH(Qt::Key, tecla);
    QFETCH(QString, caixa);
    Edita(Musica());
    // From every control: the menu's letters S, I and E stay behind.
    for (const char* onde : {"txtCadTitulo", "txtCadLetra_0", "lstCadTema"}) {
        m_form->Inicializa_Cadastro(1);
        m_caixas->answer = false;
        m_caixas->boxes.clear();
        m_form->chamadas.clear();
        Acha<QWidget>(onde)->setFocus();
        const QString antes = Letra(0);
        Tecla(tecla, Qt::AltModifier);
        QCOMPARE(Letra(0), antes);
        QCOMPARE(m_form->chamadas, QStringList());
        if (tecla == Qt::Key_V) {
            QTRY_COMPARE(Visualizadores().size(), 1);
            delete Visualizadores().first();
            m_form->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
        } else {
            QTRY_COMPARE(m_caixas->boxes.size(), 1);
            QCOMPARE(m_caixas->boxes.first().text, caixa);
        }
    }
}

void tst_cadastro_teclas::tabsTurnWithSpaceAndEnter()
{
    Edita(Musica());
    Vai_A("lblMostraMusica_1");
    Tecla(Qt::Key_Space);
    QVERIFY(Caixa(1)->isVisible());
    Vai_A("txtCadLetra_1");
    Escreve(QApplication::focusWidget(), u"x"_qs);
    QVERIFY(Letra(1).startsWith(u"xD"));
    Vai_A("lblMostraMusica_0");
    Tecla(Qt::Key_Return);
    QVERIFY(Caixa(0)->isVisible());
    QVERIFY(!Caixa(1)->isVisible());
}

void tst_cadastro_teclas::themesAreKeptWithKeysAlone()
{
    Carrega();
    Vai_A("cmdCadTema");
    m_caixas->typed = {u"Paz"_qs, u"Advento"_qs};
    Tecla(Qt::Key_Return);
    QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"Natal"_qs, u"Paz"_qs, u"Sem Tema"_qs}));
    Vai_A("lstCadTema");
    for (int i = 0; i < 3; ++i)
        Tecla(Qt::Key_Down);
    QCOMPARE(Temas()->Text(Temas()->ListIndex()), u"Paz"_qs);
    // The menu key is the right button of those who have no mouse.
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(5, 5),
                           Temas()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(Temas(), &menu);
    QCOMPARE(Nomes_Temas(),
             QStringList({u"Advento"_qs, u"Louvor"_qs, u"Natal"_qs, u"Sem Tema"_qs}));
    Tecla(Qt::Key_Home);
    Tecla(Qt::Key_Delete);
    QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"Natal"_qs, u"Sem Tema"_qs}));
}

void tst_cadastro_teclas::enterInABoxPressesNothing()
{
    Carrega();
    for (const char* caixa : {"txtCadTitulo", "txtCadReferencia", "txtCadLetra_0", "lstCadTema"}) {
        Acha<QWidget>(caixa)->setFocus();
        Tecla(Qt::Key_Return);
        QVERIFY(m_caixas->boxes.isEmpty());
    }
    QCOMPARE(m_comandos, QStringList());
}

void tst_cadastro_teclas::everyControlHasANameForReaders()
{
    Carrega();
    const auto rotulo_de = [this](const char* controle) {
        const auto rotulos = m_form->findChildren<QLabel*>();
        for (const QLabel* rotulo : rotulos) {
            if (rotulo->buddy() == Acha<QWidget>(controle))
                return rotulo->text();
        }
        return QString();
    };
    QCOMPARE(rotulo_de("txtCadTitulo"), u"Título:"_qs);
    QCOMPARE(rotulo_de("txtCadReferencia"), u"Referência:"_qs);
    QCOMPARE(rotulo_de("cmbCadTom"), u"Tom:"_qs);
    QCOMPARE(rotulo_de("cmbCadCategoria"), u"Categoria:"_qs);
    QCOMPARE(rotulo_de("lstCadTema"), u"Temas:"_qs);
    for (const char* controle : {"cmbCadVariacao", "txtCadLetra_0", "txtCadLetra_1"})
        QVERIFY2(!Acha<QWidget>(controle)->accessibleName().isEmpty(), controle);
}

QTEST_MAIN(tst_cadastro_teclas)
#include "tst_cadastro_teclas.moc"
