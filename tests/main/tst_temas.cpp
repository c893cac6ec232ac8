#include "CadastroTeste.h"

/// Adding, renaming and deleting themes in the entry panel.
class tst_temas : public CadastroTeste
{
    Q_OBJECT

private slots:
    void addingStoresAndShows();
    void addingIsHandedInAsGiven();
    void inputBoxStandsAtTheMiddleOfTheScreen();
    void blanksAtTheEndsAreCut();
    void newThemeTakesItsPlace();
    void nothingTypedAddsNothing();
    void nothingTypedMatchesAnEmptyTheme();
    void duplicateIsRefused_data();
    void duplicateIsRefused();
    void addingTakesTheChecksAway();
    void theOnlyThemeIsChecked();
    void apostropheInAName();
    void renamingStoresAndShows();
    void renamingIsHandedInAsGiven();
    void renamingNeedsACurrentItem();
    void renamingTakesTheCurrentItemNotTheOneBelow();
    void otherButtonsRenameNothing();
    void unchangedNameDoesNothing_data();
    void unchangedNameDoesNothing();
    void otherLetterCaseIsRefused();
    void renamingToAnotherThemeIsRefused_data();
    void renamingToAnotherThemeIsRefused();
    void renamingTakesTheChecksAway();
    void placeholderRenamedChangesNothing();
    void placeholderDeletedGoesFromTheList();
    void placeholderInUseStays();
    void deletingTheLastThemeEmptiesTheList();
    void doubledLinksAreCounted();
    void deletingAsksAndRemoves();
    void deletingKeepsTheChecks();
    void deletingRefused();
    void themeInUseStays();
    void deletingNeedsACurrentItem();
    void deletingWithShiftToo();
    void otherKeysDeleteNothing();
    void keyGoesOnToTheList_data();
    void keyGoesOnToTheList();
    void searchPanelKeepsItsThemes();
    void committedBeforeAnyMessage();

private:
    /// Makes an item current with the keyboard, which checks nothing.
    void Vai_Ao_Tema(int posicao)
    {
        Temas()->setFocus();
        QTest::keyClick(Temas(), Qt::Key_Home);
        for (int i = 0; i < posicao; ++i)
            QTest::keyClick(Temas(), Qt::Key_Down);
        QCOMPARE(Temas()->ListIndex(), posicao);
    }
    QString Guardados() const
    {
        return m_catalogo->Field(u"SELECT group_concat(DESCRICAO || ':' || ORDEM || ':' || "
                                 "ifnull(COR, '-'), '|') FROM TEMA WHERE ID > 3"_qs);
    }
    QString Todos() const
    {
        return m_catalogo->Field(u"SELECT group_concat(DESCRICAO, '|') FROM TEMA"_qs);
    }
};

void tst_temas::addingStoresAndShows()
{
    Carrega();
    m_caixas->typed = {u"Páscoa"_qs};
    Clica("cmdCadTema");
    QCOMPARE(Guardados(), u"Páscoa:2:-"_qs);
    QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"Natal"_qs, u"Páscoa"_qs, u"Sem Tema"_qs}));
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[0].text, u"Digite o nome do Tema"_qs);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario - Cadastro de Tema"_qs);
    QCOMPARE(m_caixas->boxes[0].initial, QString());
    QCOMPARE(m_caixas->boxes[1].text,
             u"Tema 'Páscoa' Cadastrado com Sucesso!\r\nPara alterar um tema, selecione na lista e "
             "clique com o botão direito do mouse sobre ele.\r\nPara excluir um tema, selecione na "
             "lista e pressione Delete."_qs);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Informacao);
    QCOMPARE(m_caixas->boxes[1].title, u"Melodario"_qs);
}

void tst_temas::addingIsHandedInAsGiven()
{
    Carrega();
    m_caixas->typed = {u"D'alma"_qs};
    Clica("cmdCadTema");
    QCOMPARE(m_comandos,
             QStringList({u"SELECT ID FROM TEMA WHERE DESCRICAO = 'D''alma'"_qs,
                          u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('D''alma', 2)"_qs,
                          u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs}));
}

void tst_temas::inputBoxStandsAtTheMiddleOfTheScreen()
{
    Carrega();
    Clica("cmdCadTema");
    Vai_Ao_Tema(0);
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(m_caixas->boxes.size(), 2);
    for (const auto& caixa : m_caixas->boxes)
        QCOMPARE(caixa.corner, std::optional(QPoint(683, 384))); // of 1366 x 768
}

void tst_temas::blanksAtTheEndsAreCut()
{
    Carrega();
    m_caixas->typed = {u"  Ceia do  Senhor "_qs};
    Clica("cmdCadTema");
    QCOMPARE(Guardados(), u"Ceia do  Senhor:2:-"_qs);
}

void tst_temas::newThemeTakesItsPlace()
{
    m_catalogo->AddTheme(u"Zelo"_qs, 1);
    Carrega();
    for (const QString& nome : {u"Águas"_qs, u"Paz"_qs}) {
        m_caixas->typed = {nome};
        Clica("cmdCadTema");
    }
    QCOMPARE(Nomes_Temas(), QStringList({u"Zelo"_qs, u"Águas"_qs, u"Louvor"_qs, u"Natal"_qs,
                                         u"Paz"_qs, u"Sem Tema"_qs}));
}

void tst_temas::nothingTypedAddsNothing()
{
    Carrega();
    for (const QString& nada : {u""_qs, u"   "_qs}) {
        m_comandos.clear();
        m_caixas->boxes.clear();
        m_caixas->typed = {nada};
        Clica("cmdCadTema");
        QCOMPARE(m_caixas->boxes.size(), 1);
        QCOMPARE(m_comandos, QStringList(u"SELECT ID FROM TEMA WHERE DESCRICAO = ''"_qs));
    }
    QCOMPARE(Todos(), u"Louvor|Natal|Sem Tema"_qs);
}

void tst_temas::nothingTypedMatchesAnEmptyTheme()
{
    m_catalogo->AddTheme(u""_qs);
    Carrega();
    m_caixas->typed = {u""_qs};
    Clica("cmdCadTema");
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[1].text, u"Já existe um Tema com essa descrição."_qs);
}

void tst_temas::duplicateIsRefused_data()
{
    QTest::addColumn<QString>("nome");
    QTest::newRow("the same") << u"Louvor"_qs;
    QTest::newRow("small letters") << u"louvor"_qs;
    QTest::newRow("capitals and blanks around") << u" LOUVOR "_qs;
}

void tst_temas::duplicateIsRefused()
{
    QFETCH(QString, nome);
    Carrega();
    Clica_Tema(1);
    m_caixas->typed = {nome};
    Clica("cmdCadTema");
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[1].text, u"Já existe um Tema com essa descrição."_qs);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Exclamacao);
    QCOMPARE(m_caixas->boxes[1].title, u"Melodario"_qs);
    QCOMPARE(Todos(), u"Louvor|Natal|Sem Tema"_qs);
    QCOMPARE(Temas_Marcados(), QStringList(u"Natal"_qs));
}

void tst_temas::addingTakesTheChecksAway()
{
    Edita(Musica());
    Clica_Tema(2);
    m_caixas->typed = {u"Paz"_qs};
    Clica("cmdCadTema");
    QCOMPARE(Temas_Marcados(), QStringList());
    Clica("cmdCadSalvar");
    QCOMPARE(m_caixas->boxes.last().text, u"Selecione pelo menos um Tema para a música."_qs);
}

void tst_temas::theOnlyThemeIsChecked()
{
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Carrega();
    m_caixas->typed = {u"Paz"_qs};
    Clica("cmdCadTema");
    QCOMPARE(Temas_Marcados(), QStringList(u"Paz"_qs));
}

void tst_temas::apostropheInAName()
{
    Carrega();
    m_caixas->typed = {u"Mãe d'água"_qs};
    Clica("cmdCadTema");
    QCOMPARE(Guardados(), u"Mãe d'água:2:-"_qs);
    QVERIFY(m_caixas->boxes.last().text.startsWith(u"Tema 'Mãe d'água' Cadastrado"));
    m_caixas->typed = {u"mãe D'ÁGUA"_qs};
    Clica("cmdCadTema");
    QCOMPARE(m_caixas->boxes.last().text, u"Já existe um Tema com essa descrição."_qs);
    Vai_Ao_Tema(1);
    QCOMPARE(Temas()->Text(1), u"Mãe d'água"_qs);
    m_caixas->typed = {u"Copo d'água"_qs};
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(Guardados(), u"Copo d'água:2:-"_qs);
    Vai_Ao_Tema(0);
    QCOMPARE(Temas()->Text(0), u"Copo d'água"_qs);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    QCOMPARE(Guardados(), QString());
}

void tst_temas::renamingStoresAndShows()
{
    Carrega();
    Vai_Ao_Tema(1);
    m_caixas->typed = {u" Advento "_qs};
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(Todos(), u"Louvor|Advento|Sem Tema"_qs);
    QCOMPARE(Nomes_Temas(), QStringList({u"Advento"_qs, u"Louvor"_qs, u"Sem Tema"_qs}));
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[0].text, u"Digite o novo nome do Tema"_qs);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario - Alteração de Tema"_qs);
    QCOMPARE(m_caixas->boxes[0].initial, u"Natal"_qs);
    QCOMPARE(m_caixas->boxes[1].text,
             u"Tema Alterado com Sucesso!\r\nPara excluir um tema, selecione na lista e pressione "
             "Delete."_qs);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Informacao);
    QCOMPARE(m_caixas->boxes[1].title, u"Melodario"_qs);
}

void tst_temas::renamingIsHandedInAsGiven()
{
    Carrega();
    Vai_Ao_Tema(1);
    m_caixas->typed = {u"D'alma"_qs};
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(m_comandos,
             QStringList({u"SELECT ID FROM TEMA WHERE DESCRICAO = 'D''alma'"_qs,
                          u"UPDATE TEMA SET DESCRICAO = 'D''alma' WHERE ID = 02"_qs,
                          u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs}));
}

void tst_temas::renamingNeedsACurrentItem()
{
    Carrega();
    QCOMPARE(Temas()->ListIndex(), -1);
    Clica_Tema(1, Qt::RightButton);
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(Temas()->ListIndex(), -1);
    QCOMPARE(m_comandos, QStringList());
}

void tst_temas::renamingTakesTheCurrentItemNotTheOneBelow()
{
    Carrega();
    Clica_Tema(0);
    m_caixas->typed = {u"Adoração"_qs};
    Clica_Tema(2, Qt::RightButton);
    QCOMPARE(m_caixas->boxes[0].initial, u"Louvor"_qs);
    QCOMPARE(Todos(), u"Adoração|Natal|Sem Tema"_qs);
}

void tst_temas::otherButtonsRenameNothing()
{
    Carrega();
    Clica_Tema(0);
    Clica_Tema(1, Qt::MiddleButton);
    QVERIFY(m_caixas->boxes.isEmpty());
}

void tst_temas::unchangedNameDoesNothing_data()
{
    QTest::addColumn<QString>("nome");
    QTest::newRow("the same") << u"Natal"_qs;
    QTest::newRow("the same between blanks") << u"  Natal "_qs;
    QTest::newRow("empty or cancelled") << u""_qs;
    QTest::newRow("blanks") << u"   "_qs;
}

void tst_temas::unchangedNameDoesNothing()
{
    QFETCH(QString, nome);
    Carrega();
    Clica_Tema(1);
    m_caixas->typed = {nome};
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_comandos, QStringList());
    QCOMPARE(Temas_Marcados(), QStringList(u"Natal"_qs));
}

void tst_temas::otherLetterCaseIsRefused()
{
    Carrega();
    Vai_Ao_Tema(1);
    m_caixas->typed = {u"NATAL"_qs};
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[1].text, u"Já existe um Tema com essa descrição."_qs);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Exclamacao);
    QCOMPARE(Todos(), u"Louvor|Natal|Sem Tema"_qs);
}

void tst_temas::renamingTakesTheChecksAway()
{
    Edita(Musica());
    Vai_Ao_Tema(1);
    m_caixas->typed = {u"Advento"_qs};
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(Temas_Marcados(), QStringList());
}

void tst_temas::deletingAsksAndRemoves()
{
    Carrega();
    Vai_Ao_Tema(1);
    m_comandos.clear();
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Deseja realmente excluir este Tema?"_qs, Icone::Pergunta);
    QCOMPARE(m_comandos, QStringList({u"SELECT * FROM TEMA_MUSICA WHERE ID_TEMA = 02"_qs,
                                      u"DELETE FROM TEMA WHERE ID = 02"_qs}));
    QCOMPARE(Todos(), u"Louvor|Sem Tema"_qs);
    QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"Sem Tema"_qs}));
    QCOMPARE(Temas()->ListIndex(), -1);
}

void tst_temas::deletingKeepsTheChecks()
{
    Carrega();
    Clica_Tema(0);
    Clica_Tema(2);
    Vai_Ao_Tema(1);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    QCOMPARE(Temas_Marcados(), QStringList({u"Louvor"_qs, u"Sem Tema"_qs}));
}

void tst_temas::deletingRefused()
{
    Carrega();
    Vai_Ao_Tema(1);
    m_caixas->answer = false;
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Deseja realmente excluir este Tema?"_qs, Icone::Pergunta);
    QCOMPARE(Todos(), u"Louvor|Natal|Sem Tema"_qs);
    QCOMPARE(Temas()->ListIndex(), 1);
}

void tst_temas::themeInUseStays()
{
    for (int i = 0; i < 3; ++i)
        Musica();
    Carrega();
    Vai_Ao_Tema(0);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Não é possível excluir porque existe(m) 3 música(s) cadastradas neste tema."_qs,
                  Icone::Exclamacao);
    QCOMPARE(Alteracoes(), QStringList());
    QCOMPARE(Todos(), u"Louvor|Natal|Sem Tema"_qs);
    QCOMPARE(Nomes_Temas().size(), 3);
}

void tst_temas::deletingNeedsACurrentItem()
{
    Carrega();
    Temas()->setFocus();
    QCOMPARE(Temas()->ListIndex(), -1);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(m_comandos, QStringList());
}

void tst_temas::deletingWithShiftToo()
{
    Carrega();
    Vai_Ao_Tema(1);
    QTest::keyClick(Temas(), Qt::Key_Delete, Qt::ShiftModifier);
    QCOMPARE(Todos(), u"Louvor|Sem Tema"_qs);
}

void tst_temas::otherKeysDeleteNothing()
{
    Carrega();
    Vai_Ao_Tema(1);
    for (const Qt::Key tecla : {Qt::Key_Backspace, Qt::Key_Period, Qt::Key_Insert})
        QTest::keyClick(Temas(), tecla);
    QVERIFY(m_caixas->boxes.isEmpty());
    QCOMPARE(m_comandos, QStringList());
}

void tst_temas::keyGoesOnToTheList_data()
{
    QTest::addColumn<int>("tema");
    QTest::addColumn<bool>("resposta");
    QTest::addColumn<int>("restam");
    QTest::newRow("deleted") << 1 << true << 2;
    QTest::newRow("answered No") << 1 << false << 3;
    QTest::newRow("in use") << 0 << true << 3;
}

void tst_temas::keyGoesOnToTheList()
{
    QFETCH(int, tema);
    QFETCH(bool, resposta);
    QFETCH(int, restam);
    Musica();
    Carrega();
    Vai_Ao_Tema(tema);
    m_caixas->answer = resposta;
    // Connected last, so it runs when every handler of the signal has ended.
    int chegou = 0;
    connect(Temas(), &ListBox::KeyDown, this, [&](const QKeyEvent* evento) {
        ++chegou;
        QVERIFY(!evento->isAccepted());
    });
    QKeyEvent tecla(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(Temas(), &tecla);
    QCOMPARE(chegou, 1);
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(Nomes_Temas().size(), restam);
}

void tst_temas::searchPanelKeepsItsThemes()
{
    Carrega();
    const auto filtro = [this] {
        QStringList nomes;
        const auto* lista = Acha<ListBox>("lstTema");
        for (int i = 0; i < lista->ListCount(); ++i)
            nomes.append(lista->Text(i));
        return nomes;
    };
    const QStringList antes{u"Louvor"_qs, u"Natal"_qs, u"Sem Tema"_qs};
    QCOMPARE(filtro(), antes);
    m_caixas->typed = {u"Paz"_qs, u"Advento"_qs};
    Clica("cmdCadTema");
    Vai_Ao_Tema(1);
    Clica_Tema(1, Qt::RightButton);
    Vai_Ao_Tema(0);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    QCOMPARE(Todos(), u"Louvor|Sem Tema|Paz"_qs);
    QCOMPARE(filtro(), antes);
}

void tst_temas::committedBeforeAnyMessage()
{
    Carrega();
    QStringList vistos;
    m_caixas->whileOpen = [&] { vistos.append(Todos()); };
    m_caixas->typed = {u"Paz"_qs, u"Advento"_qs};
    Clica("cmdCadTema");
    Vai_Ao_Tema(1);
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(vistos,
             QStringList({u"Louvor|Natal|Sem Tema"_qs, u"Louvor|Natal|Sem Tema|Paz"_qs,
                          u"Louvor|Natal|Sem Tema|Paz"_qs, u"Louvor|Advento|Sem Tema|Paz"_qs}));
}

void tst_temas::renamingToAnotherThemeIsRefused_data()
{
    QTest::addColumn<QString>("nome");
    QTest::newRow("the same letters") << u"Louvor"_qs;
    QTest::newRow("other letter case") << u"LOUVOR"_qs;
}

void tst_temas::renamingToAnotherThemeIsRefused()
{
    QFETCH(QString, nome);
    Carrega();
    Vai_Ao_Tema(1);
    m_caixas->typed = {nome};
    Clica_Tema(1, Qt::RightButton);
    QCOMPARE(m_caixas->boxes.size(), 2);
    m_caixas->boxes.removeFirst();
    Confere_Caixa(u"Já existe um Tema com essa descrição."_qs, Icone::Exclamacao);
    QCOMPARE(Todos(), u"Louvor|Natal|Sem Tema"_qs);
    QCOMPARE(Alteracoes(), QStringList());
}

void tst_temas::placeholderRenamedChangesNothing()
{
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Carrega();
    Vai_Ao_Tema(0);
    m_caixas->typed = {u"Paz"_qs};
    Clica_Tema(0, Qt::RightButton);
    QCOMPARE(m_caixas->boxes[0].initial, u"Não há dados a serem mostrados."_qs);
    QCOMPARE(Alteracoes(), QStringList(u"UPDATE TEMA SET DESCRICAO = 'Paz' WHERE ID = 00"_qs));
    m_caixas->boxes.removeFirst();
    Confere_Caixa(u"Tema Alterado com Sucesso!\r\nPara excluir um tema, selecione na lista e "
                  "pressione Delete."_qs,
                  Icone::Informacao);
    QCOMPARE(Nomes_Temas(), QStringList(u"Não há dados a serem mostrados."_qs));
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA"_qs), u"0"_qs);
}

void tst_temas::placeholderDeletedGoesFromTheList()
{
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Carrega();
    Vai_Ao_Tema(0);
    m_comandos.clear();
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Deseja realmente excluir este Tema?"_qs, Icone::Pergunta);
    QCOMPARE(m_comandos, QStringList({u"SELECT * FROM TEMA_MUSICA WHERE ID_TEMA = 00"_qs,
                                      u"DELETE FROM TEMA WHERE ID = 00"_qs}));
    QCOMPARE(Nomes_Temas(), QStringList());
    // The list can still be used.
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Clica("cmdCadSalvar");
    m_caixas->boxes.clear();
    m_caixas->typed = {u"Paz"_qs};
    Clica("cmdCadTema");
    QCOMPARE(Temas_Marcados(), QStringList(u"Paz"_qs));
}

void tst_temas::placeholderInUseStays()
{
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    m_catalogo->Link(m_catalogo->AddSong(TestSong()), 0);
    Carrega();
    Vai_Ao_Tema(0);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Não é possível excluir porque existe(m) 1 música(s) cadastradas neste tema."_qs,
                  Icone::Exclamacao);
    QCOMPARE(Nomes_Temas().size(), 1);
}

void tst_temas::deletingTheLastThemeEmptiesTheList()
{
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID > 1"_qs);
    Carrega();
    Vai_Ao_Tema(0);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    QCOMPARE(Nomes_Temas(), QStringList());
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA"_qs), u"0"_qs);
}

void tst_temas::doubledLinksAreCounted()
{
    m_catalogo->Link(Musica(), 1);
    Carrega();
    Vai_Ao_Tema(0);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Não é possível excluir porque existe(m) 2 música(s) cadastradas neste tema."_qs,
                  Icone::Exclamacao);
}

QTEST_MAIN(tst_temas)
#include "tst_temas.moc"
