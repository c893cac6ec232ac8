// A stored setlist brought back: loaded, copied, deleted, or left by a double click.

#include "ListaTeste.h"

class tst_lista_guardada : public ListaTeste
{
    Q_OBJECT

private slots:
    void aSetlistWhoseSongsAreAllGoneLoadsEmpty();
    void aSetlistWhoseSongsAreAllGoneIsSavedAndCopied();
    void aCopyOfASetlistWithoutAName();
    void anEmptySaveOfAStoredSetlistWithChanges();
    void songsThatCannotBeReadLeaveTheSetlistAsItWas();
    void theDoubleClickForgetsTheIdentityWhateverTheAnswer_data();
    void theDoubleClickForgetsTheIdentityWhateverTheAnswer();
    void afterAnUnansweredDoubleClickSavingStoresANewOne_data();
    void afterAnUnansweredDoubleClickSavingStoresANewOne();
    void aCopyIsStoredOnlyBySaving();
    void aCopyIsLeftWithoutAQuestion();
    void deletingAsksAndDeletes();
    void deletingRefusedDeletesNothing();
    void deletingClearsThePanelWithoutAQuestion();
    void deletingTheSetlistOnScreenLeavesItAsANewOne();
    void loadingReplacesUnsavedChangesWithoutAQuestion();
    void aSetlistDeletedElsewhereLoadsNothing();
};

namespace {

const QString Cadastrada = u"Lista Cadastrada com Sucesso!"_qs;
const QString Alterada = u"Lista Alterada com Sucesso!"_qs;
const QString Excluida = u"Lista Excluída com Sucesso!"_qs;
const QString Descartar = u"Deseja descartar as modificações na lista?"_qs;

} // namespace

void tst_lista_guardada::aSetlistWhoseSongsAreAllGoneLoadsEmpty()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {71, 72});
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Identidade(), u"1"_qs);
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(Texto("lblLista"), u"0 Música(s) Selecionada(s)"_qs);
}

void tst_lista_guardada::aSetlistWhoseSongsAreAllGoneIsSavedAndCopied()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {77, 78});
    Carrega();
    Responde(0, "cmdCopiar");
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(Texto("lblLista"), u"0 Música(s) Selecionada(s)"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
    QCOMPARE(Listas()[1][1], u"Cópia de Ensaio"_qs);
    QCOMPARE(Lugares().size(), 2);
    m_catalogo->Run(u"DELETE FROM LISTA WHERE ID = 2"_qs);
    Escolhe("mnuLista");
    Responde(0, "cmdEditar");
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Alterada}));
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Ensaio"_qs, u"2009-03-05"_qs}}));
    QCOMPARE(Lugares(), QList<QStringList>());
}

void tst_lista_guardada::aCopyOfASetlistWithoutAName()
{
    m_catalogo->Run(u"INSERT INTO LISTA (NOME, DATA) VALUES (NULL, '2009-01-02')"_qs);
    Carrega();
    Responde(0, "cmdCopiar");
    QCOMPARE(Texto("txtNome"), u"Cópia de "_qs);
    QCOMPARE(Texto("txtData"), u"05/03/2009"_qs);
    QCOMPARE(Identidade(), u"0"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
    QCOMPARE(Listas()[1], QStringList({u"2"_qs, u"Cópia de "_qs, u"2009-03-05"_qs}));
}

void tst_lista_guardada::anEmptySaveOfAStoredSetlistWithChanges()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Clica_Item("lstMusicasSelecionadas", 0);
    Clica("cmdRemover");
    m_caixas->answer = false;
    Clica("cmdSalvar");
    // The message, then the question of the clearing; refused, the stored setlist stays on screen.
    QCOMPARE(Caixas(), QStringList({Alterada, Descartar}));
    QCOMPARE(Lugares(), QList<QStringList>());
    QCOMPARE(Identidade(), u"1"_qs);
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    QCOMPARE(Modificada(), u"1"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Alterada, Descartar}));
    // Until a song is saved: then nobody asks any more.
    Adiciona({0});
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Alterada}));
    QCOMPARE(Listas().size(), 1);
    QCOMPARE(Lugares().size(), 1);
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_guardada::songsThatCannotBeReadLeaveTheSetlistAsItWas()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    m_catalogo->Run(u"ALTER TABLE LISTA_MUSICA RENAME TO GUARDADA"_qs);
    Responde(0, "cmdEditar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(Identidade(), u"1"_qs);
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    QCOMPARE(Selecionadas(), QStringList());
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM GUARDADA"_qs), u"1"_qs);
}

void tst_lista_guardada::theDoubleClickForgetsTheIdentityWhateverTheAnswer_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("Excluir, then no") << QByteArray("cmdExcluir");
    QTest::newRow("the close box") << QByteArray();
    QTest::newRow("Abrir") << QByteArray("cmdAbrir");
}

void tst_lista_guardada::theDoubleClickForgetsTheIdentityWhateverTheAnswer()
{
    QFETCH(QByteArray, button);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Identidade(), u"1"_qs);
    m_caixas->answer = false;
    if (button.isEmpty())
        Na_Lista(0, [](QWidget& dialogo) { dialogo.close(); });
    else
        Responde(0, button.constData());
    QCOMPARE(Identidade(), u"0"_qs);
    m_form->activateWindow();
    Caixas();
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({Cadastrada}));
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Ensaio"_qs, u"2009-03-05"_qs},
                                           {u"2"_qs, u"Ensaio"_qs, u"2009-03-05"_qs}}));
    QCOMPARE(Lugares().size(), 2);
}

void tst_lista_guardada::afterAnUnansweredDoubleClickSavingStoresANewOne_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("Cancelar") << u"cmdCancelar"_qs;
    QTest::newRow("Abrir") << u"cmdAbrir"_qs;
}

void tst_lista_guardada::afterAnUnansweredDoubleClickSavingStoresANewOne()
{
    QFETCH(QString, button);
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    QCOMPARE(Identidade(), u"1"_qs);
    Responde(0, qPrintable(button));
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
    m_form->activateWindow();
    Clica("cmdSalvar");
    QCOMPARE(Listas().size(), 2);
    QCOMPARE(Lugares().size(), 2);
}

void tst_lista_guardada::aCopyIsStoredOnlyBySaving()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2008, 12, 31),
                           {Musica(u"Amor"_qs), Musica(u"Bem"_qs)});
    Carrega();
    Responde(0, "cmdCopiar");
    QCOMPARE(Texto("txtNome"), u"Cópia de Ensaio"_qs);
    QCOMPARE(Texto("txtData"), u"05/03/2009"_qs);
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Modificada(), u"0"_qs);
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Bem"_qs}));
    QCOMPARE(Texto("lblLista"), u"2 Música(s) Selecionada(s)"_qs);
    QCOMPARE(Listas().size(), 1);
    Clica("cmdSalvar");
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Ensaio"_qs, u"2008-12-31"_qs},
                                           {u"2"_qs, u"Cópia de Ensaio"_qs, u"2009-03-05"_qs}}));
    QCOMPARE(Lugares().mid(2),
             QList<QStringList>({{u"2"_qs, u"1"_qs, u"0"_qs}, {u"2"_qs, u"2"_qs, u"1"_qs}}));
}

void tst_lista_guardada::aCopyIsLeftWithoutAQuestion()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2008, 12, 31), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdCopiar");
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), QStringList());
    QVERIFY(Acha<QWidget>("pctFrame_0")->isVisible());
}

void tst_lista_guardada::deletingAsksAndDeletes()
{
    const qint64 amor = Musica(u"Amor"_qs);
    m_catalogo->AddSetlist(u"Velha"_qs, QDate(2008, 12, 31), {amor});
    m_catalogo->AddSetlist(u"Nova"_qs, QDate(2009, 3, 5), {amor, amor});
    Carrega();
    Responde(0, "cmdExcluir");
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Pergunta);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Informacao);
    QCOMPARE(Caixas(), QStringList({u"Deseja realmente excluir essa lista?"_qs, Excluida}));
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 5);
    QCOMPARE(Listas(), QList<QStringList>({{u"1"_qs, u"Velha"_qs, u"2008-12-31"_qs}}));
    QCOMPARE(Lugares(), QList<QStringList>({{u"1"_qs, u"1"_qs, u"0"_qs}}));
    QCOMPARE(Grade(), QStringList({u"Velha|2008-12-31"_qs}));
    QCOMPARE(Texto("lblResultado2"), u"1 Registro(s) Encontrado(s)."_qs);
    // The song itself stays.
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
}

void tst_lista_guardada::deletingRefusedDeletesNothing()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    m_caixas->answer = false;
    Responde(0, "cmdExcluir");
    QCOMPARE(Caixas(), QStringList({u"Deseja realmente excluir essa lista?"_qs}));
    QCOMPARE(int{Funcoes::Resposta_Mensagem}, 4);
    QCOMPARE(Listas().size(), 1);
    QCOMPARE(Lugares().size(), 1);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_lista_guardada::deletingClearsThePanelWithoutAQuestion()
{
    const qint64 amor = Musica(u"Amor"_qs);
    m_catalogo->AddSetlist(u"Nova"_qs, QDate(2009, 3, 6), {amor});
    m_catalogo->AddSetlist(u"Velha"_qs, QDate(2008, 12, 31), {amor});
    Carrega();
    // Another one is on screen, and only its name was changed.
    Responde(1, "cmdEditar");
    Digita("txtNome", u"Minha"_qs);
    Responde(0, "cmdExcluir");
    QCOMPARE(Caixas(), QStringList({u"Deseja realmente excluir essa lista?"_qs, Excluida}));
    QCOMPARE(Texto("txtNome"), QString());
    QCOMPARE(Texto("txtData"), u"05/03/2009"_qs);
    QCOMPARE(Titulos(), QStringList());
    QCOMPARE(Texto("lblLista"), u"0 Música(s) Selecionada(s)"_qs);
    QCOMPARE(Grade(), QStringList({u"Velha|2008-12-31"_qs}));
}

void tst_lista_guardada::deletingTheSetlistOnScreenLeavesItAsANewOne()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Responde(0, "cmdEditar");
    Adiciona({0});
    // The deletion clears the panel, which asks about the changes: No keeps the songs on screen.
    m_caixas->whileOpen = [this] { m_caixas->answer = m_caixas->boxes.last().text != Descartar; };
    Responde(0, "cmdExcluir");
    m_caixas->whileOpen = nullptr;
    QCOMPARE(Caixas(),
             QStringList({u"Deseja realmente excluir essa lista?"_qs, Excluida, Descartar}));
    QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Amor"_qs}));
    QCOMPARE(Identidade(), u"0"_qs);
    Clica("cmdSalvar");
    QCOMPARE(Listas(), QList<QStringList>({{u"2"_qs, u"Ensaio"_qs, u"2009-03-05"_qs}}));
    QCOMPARE(Lugares().size(), 2);
}

void tst_lista_guardada::loadingReplacesUnsavedChangesWithoutAQuestion()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Musica(u"Bem"_qs);
    Carrega();
    for (const char* botao : {"cmdEditar", "cmdCopiar"}) {
        Adiciona({1});
        QCOMPARE(Modificada(), u"1"_qs);
        Responde(0, botao);
        QCOMPARE(Titulos(), QStringList({u"Amor"_qs}));
        QCOMPARE(Modificada(), u"0"_qs);
    }
    QCOMPARE(Caixas(), QStringList());
}

void tst_lista_guardada::aSetlistDeletedElsewhereLoadsNothing()
{
    m_catalogo->AddSetlist(u"Ensaio"_qs, QDate(2009, 3, 5), {Musica(u"Amor"_qs)});
    Carrega();
    Digita("txtNome", u"Minha"_qs);
    Adiciona({0, 0});
    m_catalogo->Run(u"DELETE FROM LISTA"_qs);
    for (const char* botao : {"cmdEditar", "cmdCopiar"}) {
        Responde(0, botao);
        QCOMPARE(Texto("txtNome"), u"Minha"_qs);
        QCOMPARE(Titulos(), QStringList({u"Amor"_qs, u"Amor"_qs}));
        QCOMPARE(Modificada(), u"1"_qs);
        QCOMPARE(Caixas(), QStringList());
    }
}

QTEST_MAIN(tst_lista_guardada)
#include "tst_lista_guardada.moc"
