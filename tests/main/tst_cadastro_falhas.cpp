#include "CadastroTeste.h"

#include "controls/Handler.h"
#include "runtime/RuntimeError.h"
#include "store/WatchedFiles.h"
#include "support/PlainSqlite.h"

#include <QAction>
#include <QFile>

/// The store refuses what the song entry panel asks of it: one box of the general error path says
/// so, what was typed stays, and the search results follow all the same.
class tst_cadastro_falhas : public CadastroTeste
{
    Q_OBJECT

private slots:
    void anotherProgramWrites_data();
    void anotherProgramWrites();
    void commitFailsBeforeTheSuccessOfAnInsert();
    void commitFailsBeforeTheSuccessOfAnUpdate();
    void commitFailsAfterADeletion();
    void fullDisk();
    void readOnlyFile();
    void whatRanBeforeAFailureStaysDone();
    void apostropheInAKeyOrVariationIsAnError_data();
    void apostropheInAKeyOrVariationIsAnError();
    void whatFollowsAFailureDoesNotRun_data();
    void whatFollowsAFailureDoesNotRun();
    void aLoadThatFailsLeavesTheSongBefore_data();
    void aLoadThatFailsLeavesTheSongBefore();
    void aLoadThatFailsKeepsWhatWasTyped();
    void aCatalogueInUseLeavesTheSongBefore();
    void anotherProgramDoesNotWaitForTheSheets();
    void anotherProgramWaitsForALoad_data();
    void anotherProgramWaitsForALoad();
    void aCategoryThatIsNoneLeavesTheSongBefore_data();
    void aCategoryThatIsNoneLeavesTheSongBefore();
    void aPanelThatCannotBePreparedDoesNotCome_data();
    void aPanelThatCannotBePreparedDoesNotCome();
    void themesStayInTheListWhenTheStoreRefuses_data();
    void themesStayInTheListWhenTheStoreRefuses();

private:
    /// Compares the one box of the general error path and what the panel holds.
    void Confere_Falha(const QString& texto, const QString& id)
    {
        Confere_Caixa(texto, Icone::Critico);
        QCOMPARE(Identidade(), id);
        QCOMPARE(Texto("txtCadTitulo"), u"Luz"_qs);
        QCOMPARE(Texto("txtCadReferencia"), u"Ana"_qs);
        QCOMPARE(Letra(0), u"C\r\nLuz"_qs);
        QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
        QCOMPARE(Acha<QPushButton>("cmdExcluir")->isEnabled(), id != u"0");
        QCOMPARE(Acha<QPushButton>("cmdVisualizar")->isEnabled(), id != u"0");
        QCOMPARE(Pesquisas(), 1);
    }
    /// From now on the store refuses statements that begin so.
    static void Recusa(const QString& comando)
    {
        Funcoes::Conexao.SetStatementHook([comando](const QString& sql) {
            if (sql.startsWith(comando))
                throw RuntimeError(RuntimeError::StoreFailure, u"Recusado."_qs, u"refused"_qs);
        });
    }
    qint64 Luz() const
    {
        return Musica({.title = u"Luz"_qs, .reference = u"Ana"_qs, .text = u"C\r\nLuz"_qs});
    }
};

namespace {

const QString EmUso = u"O banco de dados está sendo usado por outro programa."_qs;
const QString Desfeitas = u" As alterações desta operação foram desfeitas."_qs;
const QString Recusado = u"Recusado.\n\nrefused"_qs;
const QString Trancado = u"\n\ndatabase is locked (5)"_qs;

} // namespace

void tst_cadastro_falhas::anotherProgramWrites_data()
{
    QTest::addColumn<QByteArray>("comando");
    QTest::newRow("it is about to write") << QByteArray("BEGIN IMMEDIATE");
    QTest::newRow("it writes, and nobody reads") << QByteArray("BEGIN EXCLUSIVE");
}

void tst_cadastro_falhas::anotherProgramWrites()
{
    QFETCH(QByteArray, comando);
    Carrega();
    Digita_Musica();
    PlainSqlite outro(m_catalogo->Path());
    outro.Run(comando);
    m_comandos.clear();
    Clica("cmdCadSalvar");
    Confere_Falha(EmUso + Trancado, u"0"_qs);
    outro.Run("ROLLBACK");
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
}

void tst_cadastro_falhas::commitFailsBeforeTheSuccessOfAnInsert()
{
    Carrega();
    Digita_Musica();
    PlainSqlite outro(m_catalogo->Path());
    outro.Run("BEGIN; SELECT count(*) FROM MUSICA");
    m_comandos.clear();
    Clica("cmdCadSalvar");
    Confere_Falha(EmUso + Desfeitas + Trancado, u"0"_qs);
    QCOMPARE(Titulos(), QStringList());
    outro.Run("COMMIT");
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(ID) FROM MUSICA"_qs), Identidade());
}

void tst_cadastro_falhas::commitFailsBeforeTheSuccessOfAnUpdate()
{
    const qint64 id = Luz();
    m_catalogo->Run(u"UPDATE MUSICA SET TITULO = 'Antes'"_qs);
    Edita(id);
    Digita("txtCadTitulo", u"Luz"_qs);
    PlainSqlite outro(m_catalogo->Path());
    outro.Run("BEGIN; SELECT count(*) FROM MUSICA");
    m_comandos.clear();
    Clica("cmdCadSalvar");
    Confere_Falha(EmUso + Desfeitas + Trancado, QString::number(id));
    QCOMPARE(Titulos(), QStringList(u"Antes"_qs));
    outro.Run("COMMIT");
    QCOMPARE(m_catalogo->Field(u"SELECT TITULO FROM MUSICA"_qs), u"Antes"_qs);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA_MUSICA"_qs), u"1"_qs);
}

void tst_cadastro_falhas::commitFailsAfterADeletion()
{
    const qint64 id = Luz();
    Edita(id);
    PlainSqlite outro(m_catalogo->Path());
    outro.Run("BEGIN; SELECT count(*) FROM MUSICA");
    Clica("cmdExcluir");
    QCOMPARE(m_caixas->boxes.size(), 2);
    m_caixas->boxes.removeFirst();
    Confere_Falha(EmUso + Desfeitas + Trancado, QString::number(id));
    outro.Run("COMMIT");
    QCOMPARE(Titulos(), QStringList(u"Luz"_qs));
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA_MUSICA"_qs), u"1"_qs);
}

void tst_cadastro_falhas::fullDisk()
{
    WatchedFiles arquivos;
    Carrega();
    Digita_Musica();
    arquivos.Watch([](WatchedFiles::Step passo) { return passo != WatchedFiles::Step::Write; });
    m_comandos.clear();
    Clica("cmdCadSalvar");
    arquivos.Watch({});
    QCOMPARE(m_caixas->boxes.size(), 1);
    QVERIFY(m_caixas->boxes.first().text.startsWith(u"O disco está cheio."));
    Confere_Falha(m_caixas->boxes.first().text, u"0"_qs);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"PRAGMA integrity_check"_qs), u"ok"_qs);
    m_form.reset(); // its connection goes before what watches it
}

void tst_cadastro_falhas::readOnlyFile()
{
    const qint64 id = Luz();
    {
        // File rights stop no administrator; a format that only newer programs may write stops all.
        QFile arquivo(m_catalogo->Path());
        QVERIFY(arquivo.open(QIODevice::ReadWrite) && arquivo.seek(18));
        arquivo.putChar(3);
    }
    Edita(id);
    Clica("cmdCadSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QVERIFY(m_caixas->boxes.first().text.startsWith(
        u"O banco de dados só pode ser lido, não alterado."));
    Confere_Falha(m_caixas->boxes.first().text, QString::number(id));
    QCOMPARE(Titulos(), QStringList(u"Luz"_qs));
}

void tst_cadastro_falhas::whatRanBeforeAFailureStaysDone()
{
    // A table of another tool's making that takes no link to theme 2.
    m_catalogo->Run(u"DROP TABLE TEMA_MUSICA; CREATE TABLE TEMA_MUSICA (ID_MUSICA INTEGER, ID_TEMA "
                    "INTEGER CHECK (ID_TEMA <> 2))"_qs);
    const qint64 id = Luz();
    Edita(id);
    Clica_Tema(1);
    Clica_Tema(2);
    Digita("txtCadTitulo", u"Luz nova"_qs);
    m_comandos.clear();
    Clica("cmdCadSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes.first().icon, Icone::Critico);
    QCOMPARE(Alteracoes().last(),
             u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (1, 2)"_qs);
    QCOMPARE(m_catalogo->Field(u"SELECT TITULO || ':' || (SELECT group_concat(ID_TEMA) FROM "
                               "TEMA_MUSICA) FROM MUSICA"_qs),
             u"Luz nova:1"_qs);
    QCOMPARE(Temas_Marcados(), QStringList({u"Louvor"_qs, u"Natal"_qs, u"Sem Tema"_qs}));
    QCOMPARE(Titulos(), QStringList(u"Luz nova"_qs));
}

void tst_cadastro_falhas::whatFollowsAFailureDoesNotRun_data()
{
    QTest::addColumn<QByteArray>("botao");
    QTest::addColumn<bool>("nova");
    QTest::addColumn<QStringList>("comandos"); // beginnings of those that run; the last one fails
    const QString update = u"UPDATE MUSICA SET "_qs;
    const QString links = u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 01"_qs;
    const QString link = u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (1, 1)"_qs;
    const QString song = u"DELETE FROM MUSICA WHERE ID = 01"_qs;
    const QString insert = u"INSERT INTO MUSICA ("_qs;
    const QString max = u"SELECT MAX(ID) AS ID FROM MUSICA"_qs;
    const QByteArray salvar = "cmdCadSalvar";
    const QByteArray excluir = "cmdExcluir";
    QTest::newRow("update: the song") << salvar << false << QStringList{update};
    QTest::newRow("update: its old links") << salvar << false << QStringList{update, links};
    QTest::newRow("update: a link") << salvar << false << QStringList{update, links, link};
    QTest::newRow("deletion: the links") << excluir << false << QStringList{links};
    QTest::newRow("deletion: the song") << excluir << false << QStringList{links, song};
    QTest::newRow("insert: the song") << salvar << true << QStringList{insert};
    QTest::newRow("insert: the new identity") << salvar << true << QStringList{insert, max};
    QTest::newRow("insert: a link") << salvar << true << QStringList{insert, max, link};
}

void tst_cadastro_falhas::whatFollowsAFailureDoesNotRun()
{
    QFETCH(QByteArray, botao);
    QFETCH(bool, nova);
    QFETCH(QStringList, comandos);
    if (nova) {
        Carrega();
        Digita_Musica();
    } else {
        Edita(Luz());
    }
    Clica_Tema(1); // one more link that would follow
    m_comandos.clear();
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        m_comandos.append(sql);
        if (sql.startsWith(comandos.last()))
            throw RuntimeError(RuntimeError::StoreFailure, u"Recusado."_qs, u"refused"_qs);
    });
    Clica(botao.constData());
    if (botao == "cmdExcluir")
        m_caixas->boxes.removeFirst(); // the question
    QStringList antesDaPesquisa;
    for (const QString& sql : m_comandos) {
        if (sql.startsWith(u"SELECT DISTINCT MUSICA.ID"))
            break;
        antesDaPesquisa.append(sql);
    }
    QCOMPARE(antesDaPesquisa.size(), comandos.size());
    for (int i = 0; i < comandos.size(); ++i)
        QVERIFY2(antesDaPesquisa[i].startsWith(comandos[i]), qPrintable(antesDaPesquisa[i]));
    Confere_Caixa(Recusado, Icone::Critico);
    QCOMPARE(Pesquisas(), 1);
    // What ran before it stays done, and the panel holds what it held.
    QCOMPARE(Identidade(), nova ? u"0"_qs : u"1"_qs);
    QCOMPARE(Texto("txtCadTitulo"), u"Luz"_qs);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs),
             nova && comandos.size() == 1 ? u"0"_qs : u"1"_qs);
    const bool semElos = nova || comandos.size() > (botao == "cmdExcluir" ? 1 : 2);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA_MUSICA"_qs),
             semElos ? u"0"_qs : u"1"_qs);
}

void tst_cadastro_falhas::aLoadThatFailsLeavesTheSongBefore_data()
{
    QTest::addColumn<QString>("comando");
    QTest::newRow("the keys") << u"SELECT ID, NOTA FROM TOM"_qs;
    QTest::newRow("the variations") << u"SELECT ID, NOMENCLATURA"_qs;
    QTest::newRow("the song's themes") << u"SELECT * FROM TEMA_MUSICA"_qs;
    QTest::newRow("all themes") << u"SELECT * FROM TEMA ORDER"_qs;
}

/// The store fails in the middle of a load; a save afterwards must not write one song over the
/// other.
void tst_cadastro_falhas::aLoadThatFailsLeavesTheSongBefore()
{
    QFETCH(QString, comando);
    const qint64 id = Luz();
    const qint64 outra = m_catalogo->AddSong(
        {.title = u"Sol"_qs, .reference = u"Bia"_qs, .text = u"D\r\nSol"_qs, .key = u"D"_qs});
    m_catalogo->Link(outra, 2);
    Edita(id);
    const QString tom = Acha<ComboBox>("cmbCadTom")->currentText();
    const int tons = Acha<ComboBox>("cmbCadTom")->ListCount();
    Recusa(comando);
    QVERIFY(!RunHandler([&] { m_form->Inicializa_Cadastro(static_cast<double>(outra)); }));
    Funcoes::Conexao.SetStatementHook([this](const QString& sql) { m_comandos.append(sql); });
    m_form->frmPrincipal::Pesquisa();
    Confere_Falha(Recusado, QString::number(id));
    QCOMPARE(Letra(1), u"D  A7\r\nSanto Deus"_qs);
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->currentText(), tom);
    QCOMPARE(Acha<ComboBox>("cmbCadTom")->ListCount(), tons);
    QCOMPARE(Acha<ComboBox>("cmbCadCategoria")->ListCount(), 2);
    Clica("cmdCadSalvar");
    QCOMPARE(
        m_catalogo->Field(
            u"SELECT group_concat(UMA) FROM (SELECT TITULO || ':' || TOM || ':' || ID_TEMA AS UMA FROM MUSICA JOIN TEMA_MUSICA ON ID_MUSICA = ID ORDER BY ID)"_qs),
        QString(u"Luz:"_qs + tom + u":1,Sol:D:2"_qs));
}

void tst_cadastro_falhas::aLoadThatFailsKeepsWhatWasTyped()
{
    const qint64 outra = Musica({.title = u"Sol"_qs});
    Carrega();
    Digita_Musica();
    Recusa(u"SELECT * FROM TEMA_MUSICA"_qs);
    QVERIFY(!RunHandler([&] { m_form->Inicializa_Cadastro(static_cast<double>(outra)); }));
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Texto("txtCadTitulo"), u"Luz"_qs);
    QCOMPARE(Letra(0), u"C\r\nLuz"_qs);
    QCOMPARE(Letra(1), QString());
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
    QVERIFY(!Acha<QPushButton>("cmdExcluir")->isEnabled());
}

void tst_cadastro_falhas::aCatalogueInUseLeavesTheSongBefore()
{
    const qint64 outra = Musica({.title = u"Sol"_qs});
    const qint64 id = Luz();
    Edita(id);
    PlainSqlite outro(m_catalogo->Path());
    outro.Run("BEGIN EXCLUSIVE");
    QVERIFY(!RunHandler([&] { m_form->Inicializa_Cadastro(static_cast<double>(outra)); }));
    outro.Run("ROLLBACK");
    m_form->frmPrincipal::Pesquisa();
    Confere_Falha(EmUso + Trancado, QString::number(id));
}

void tst_cadastro_falhas::anotherProgramWaitsForALoad_data()
{
    QTest::addColumn<QString>("comando"); // before which the other program wants to write
    QTest::newRow("the keys") << u"SELECT ID, NOTA FROM TOM"_qs;
    QTest::newRow("the variations") << u"SELECT ID, NOMENCLATURA"_qs;
    QTest::newRow("the song's themes") << u"SELECT * FROM TEMA_MUSICA"_qs;
    QTest::newRow("all themes") << u"SELECT * FROM TEMA ORDER"_qs;
}

/// A song is never shown with themes that another program has given it since it was read.
void tst_cadastro_falhas::anotherProgramWaitsForALoad()
{
    QFETCH(QString, comando);
    const qint64 id = Luz();
    Carrega();
    PlainSqlite outro(m_catalogo->Path());
    const QByteArray muda = "BEGIN; UPDATE MUSICA SET TITULO = 'Sol'; UPDATE TEMA_MUSICA SET "
                            "ID_TEMA = 2; UPDATE TEMA SET DESCRICAO = 'Noite' WHERE ID = 1; COMMIT";
    int vezes = 0;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        if (!sql.startsWith(comando))
            return;
        ++vezes;
        outro.RunUnlessLocked(muda);
    });
    QVERIFY(RunHandler([&] { m_form->Inicializa_Cadastro(static_cast<double>(id)); }));
    QCOMPARE(vezes, 1);
    QCOMPARE(Texto("txtCadTitulo"), u"Luz"_qs);
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
    // It waits no longer than that.
    Funcoes::Conexao.SetStatementHook({});
    QVERIFY(outro.RunUnlessLocked(muda));
    QVERIFY(RunHandler([&] { m_form->Inicializa_Cadastro(static_cast<double>(id)); }));
    QCOMPARE(Texto("txtCadTitulo"), u"Sol"_qs);
    QCOMPARE(Temas_Marcados(), QStringList(u"Natal"_qs));
}

/// They take longest to draw, and all of the song is read by then.
void tst_cadastro_falhas::anotherProgramDoesNotWaitForTheSheets()
{
    const qint64 id = Luz();
    Carrega();
    PlainSqlite outro(m_catalogo->Path());
    QList<bool> gravou;
    for (const int versao : {0, 1})
        connect(Caixa(versao), &QTextEdit::textChanged, m_form.get(), [&] {
            gravou.append(outro.RunUnlessLocked("UPDATE MUSICA SET TITULO = TITULO || 'x'"));
        });
    QVERIFY(RunHandler([&] { m_form->Inicializa_Cadastro(static_cast<double>(id)); }));
    QVERIFY(gravou.size() >= 2);
    QVERIFY(!gravou.contains(false));
    QCOMPARE(Texto("txtCadTitulo"), u"Luz"_qs);
    QCOMPARE(Letra(0), u"C\r\nLuz"_qs);
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
}

void tst_cadastro_falhas::aCategoryThatIsNoneLeavesTheSongBefore_data()
{
    QTest::addColumn<QString>("categoria");
    QTest::newRow("beyond the second") << u"3"_qs;
    QTest::newRow("below none") << u"-1"_qs;
    QTest::newRow("larger than any list") << u"4294967297"_qs;
}

void tst_cadastro_falhas::aCategoryThatIsNoneLeavesTheSongBefore()
{
    QFETCH(QString, categoria);
    const qint64 outra = Musica({.title = u"Sol"_qs});
    m_catalogo->Run(u"UPDATE MUSICA SET CATEGORIA = "_qs + categoria);
    const qint64 id = Luz();
    Edita(id);
    QVERIFY(!RunHandler([&] { m_form->Inicializa_Cadastro(static_cast<double>(outra)); }));
    QCOMPARE(m_caixas->boxes.size(), 1);
    m_form->frmPrincipal::Pesquisa();
    Confere_Falha(m_caixas->boxes.first().text, QString::number(id));
    QCOMPARE(Acha<ComboBox>("cmbCadCategoria")->ListCount(), 2);
}

void tst_cadastro_falhas::apostropheInAKeyOrVariationIsAnError_data()
{
    QTest::addColumn<QString>("comando");
    QTest::addColumn<QByteArray>("lista");
    QTest::newRow("key") << u"UPDATE TOM SET NOTA = 'd''x' WHERE ID = 12"_qs
                         << QByteArray("cmbCadTom");
    QTest::newRow("variation") << u"INSERT INTO VARIACAO (ID, NOMENCLATURA) VALUES (9, 'd''x')"_qs
                               << QByteArray("cmbCadVariacao");
}

/// These two texts are stored as they are chosen: nobody types them, and no quote is doubled.
void tst_cadastro_falhas::apostropheInAKeyOrVariationIsAnError()
{
    QFETCH(QString, comando);
    QFETCH(QByteArray, lista);
    m_catalogo->Run(comando);
    Carrega();
    Digita_Musica();
    auto* escolhas = Acha<ComboBox>(lista.constData());
    escolhas->SetListIndex(escolhas->ListCount() - 1);
    QCOMPARE(escolhas->currentText(), u"d'x"_qs);
    m_comandos.clear();
    Clica("cmdCadSalvar");
    QCOMPARE(Alteracoes().size(), 1);
    QVERIFY(Alteracoes().first().contains(u"'d'x'"));
    QCOMPARE(m_caixas->boxes.size(), 1);
    Confere_Falha(m_caixas->boxes.first().text, u"0"_qs);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
}

void tst_cadastro_falhas::aPanelThatCannotBePreparedDoesNotCome_data()
{
    QTest::addColumn<QByteArray>("menu");
    QTest::addColumn<QString>("comando");
    QTest::newRow("song entry") << QByteArray("mnuCadastro") << u"SELECT ID, NOTA FROM TOM"_qs;
    QTest::newRow("setlists") << QByteArray("mnuLista") << u"SELECT * FROM TEMA ORDER"_qs;
}

void tst_cadastro_falhas::aPanelThatCannotBePreparedDoesNotCome()
{
    QFETCH(QByteArray, menu);
    QFETCH(QString, comando);
    Carrega();
    m_form->mnuPesquisa_Click();
    Recusa(comando);
    Acha<QAction>(menu.constData())->trigger();
    Confere_Caixa(Recusado, Icone::Critico);
    QVERIFY(Acha<QWidget>("pctFrame_0")->isVisible());
    QVERIFY(Acha<QWidget>("txtTitulo")->hasFocus());
}

void tst_cadastro_falhas::themesStayInTheListWhenTheStoreRefuses_data()
{
    QTest::addColumn<QByteArray>("comando");
    QTest::addColumn<QString>("falha");
    QTest::newRow("at the statement") << QByteArray("BEGIN IMMEDIATE") << QString(EmUso + Trancado);
    QTest::newRow("at the commit")
        << QByteArray("BEGIN; SELECT count(*) FROM TEMA") << QString(EmUso + Desfeitas + Trancado);
}

void tst_cadastro_falhas::themesStayInTheListWhenTheStoreRefuses()
{
    QFETCH(QByteArray, comando);
    QFETCH(QString, falha);
    Carrega();
    Clica_Tema(1);
    PlainSqlite outro(m_catalogo->Path());
    outro.Run(comando);
    m_caixas->typed = {u"Paz"_qs, u"Advento"_qs};
    const auto confere = [&] {
        QCOMPARE(m_caixas->boxes.size(), 2);
        m_caixas->boxes.removeFirst();
        Confere_Caixa(falha, Icone::Critico);
        QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"Natal"_qs, u"Sem Tema"_qs}));
        QCOMPARE(Temas_Marcados(), QStringList(u"Natal"_qs));
    };
    Clica("cmdCadTema");
    confere();
    Clica_Tema(1, Qt::RightButton);
    confere();
    QTest::keyClick(Temas(), Qt::Key_Delete);
    confere();
    outro.Run("ROLLBACK");
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(DESCRICAO) FROM TEMA"_qs),
             u"Louvor,Natal,Sem Tema"_qs);
}

QTEST_MAIN(tst_cadastro_falhas)
#include "tst_cadastro_falhas.moc"
