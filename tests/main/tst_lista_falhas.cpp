// The store cannot write while a setlist is saved or deleted: what is told, what stays on screen,
// and what lies in the file afterwards.

#include "ListaTeste.h"

#include "store/WatchedFiles.h"
#include "support/PlainSqlite.h"

#include <QFile>

class tst_lista_falhas : public ListaTeste
{
    Q_OBJECT

private slots:
    void aSongThatTakesTheWholeBatchAlongKeepsTheChanges_data();
    void aSongThatTakesTheWholeBatchAlongKeepsTheChanges();
    void theCommitFails_data() { Acoes(); }
    void theCommitFails();
    void theDiskIsFull_data() { Acoes(); }
    void theDiskIsFull();
    void theFileCanOnlyBeRead_data() { Acoes(); }
    void theFileCanOnlyBeRead();

private:
    enum Acao { Nova, Alterada, Excluida };

    static void Acoes()
    {
        QTest::addColumn<int>("acao");
        QTest::newRow("a new setlist") << int{Nova};
        QTest::newRow("a changed one") << int{Alterada};
        QTest::newRow("a deleted one") << int{Excluida};
    }

    void Prepara(int acao);
    void Age(int acao);
    void Confere_Falha(int acao, const QString& texto);
    void Confere_Sucesso(int acao);

    QString m_antes; ///< name and songs of the stored setlists
    QString Guardadas() const
    {
        return m_catalogo->Field(u"SELECT group_concat(NOME || ':' || (SELECT count(*) FROM "
                                 u"LISTA_MUSICA WHERE ID_LISTA ="
                                 " LISTA.ID), '|') FROM LISTA"_qs);
    }
};

/// Brings the panel to where one click (and an answer) acts on the store.
void tst_lista_falhas::Prepara(int acao)
{
    const qint64 amor = Musica(u"Amor"_qs);
    Musica(u"Bem"_qs);
    m_catalogo->AddSetlist(u"Guardada"_qs, QDate(2009, 1, 2), {amor});
    Carrega();
    if (acao == Alterada)
        Responde(0, "cmdEditar");
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0, 1});
    Caixas();
    m_antes = Guardadas();
}

void tst_lista_falhas::Age(int acao)
{
    if (acao == Excluida)
        Responde(0, "cmdExcluir");
    else
        Clica("cmdSalvar");
}

/// One box of the general error path tells, and everything is as it was.
void tst_lista_falhas::Confere_Falha(int acao, const QString& texto)
{
    if (acao == Excluida)
        m_caixas->boxes.removeFirst(); // the question
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes.first().icon, Icone::Critico);
    QVERIFY2(m_caixas->boxes.first().text.startsWith(texto),
             qPrintable(m_caixas->boxes.first().text));
    Caixas();
    QCOMPARE(Identidade(), acao == Alterada ? u"1"_qs : u"0"_qs);
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    QCOMPARE(Titulos().size(), acao == Alterada ? 3 : 2);
    QCOMPARE(Grade(), QStringList({u"Guardada|2009-01-02"_qs}));
}

/// The same once more, now that nothing is in its way.
void tst_lista_falhas::Confere_Sucesso(int acao)
{
    QCOMPARE(Guardadas(), m_antes);
    QCOMPARE(m_catalogo->Field(u"PRAGMA integrity_check"_qs), u"ok"_qs);
    Age(acao);
    const QStringList mensagens{u"Lista Cadastrada com Sucesso!"_qs,
                                u"Lista Alterada com Sucesso!"_qs,
                                u"Lista Excluída com Sucesso!"_qs};
    const QStringList caixas = Caixas();
    QVERIFY2(caixas.contains(mensagens[acao]), qPrintable(caixas.join(u'|')));
    const QStringList depois{u"Guardada:1|Ensaio:2"_qs, u"Ensaio:3"_qs, QString()};
    QCOMPARE(Guardadas(), depois[acao]);
}

void tst_lista_falhas::aSongThatTakesTheWholeBatchAlongKeepsTheChanges_data()
{
    QTest::addColumn<bool>("guardada");
    QTest::newRow("a new setlist") << false;
    QTest::newRow("a changed one") << true;
}

void tst_lista_falhas::aSongThatTakesTheWholeBatchAlongKeepsTheChanges()
{
    QFETCH(bool, guardada);
    // Another tool's index, so large that the two songs change different pages of it: the second
    // one has to be written to the journal when its turn comes, and SQLite undoes everything.
    m_catalogo->Run(
        u"CREATE INDEX POR_MUSICA ON LISTA_MUSICA (ID_MUSICA);"
        "INSERT INTO MUSICA (ID, TITULO, REFERENCIA, MUSICA, CATEGORIA) VALUES"
        " (1, 'Amor', 'Ana', '', 1), (9000, 'Bem', 'Ana', '', 1);"
        "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (1, 1), (9000, 1);"
        "WITH N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 9000)"
        " INSERT INTO LISTA_MUSICA (ID_LISTA, ID_MUSICA, ORDEM) SELECT 99, I, I FROM N"_qs);
    m_catalogo->AddSetlist(u"Guardada"_qs, QDate(2009, 1, 2), {1});
    const QString antes = Guardadas();
    WatchedFiles arquivos;
    Carrega();
    if (guardada)
        Responde(0, "cmdEditar");
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0, 1});
    const QStringList titulos = Titulos();
    const QString ultima = guardada ? u", 9000, 2)"_qs : u", 9000, 1)"_qs;
    bool cheio = false;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) { cheio = sql.endsWith(ultima); });
    arquivos.Watch(
        [&](WatchedFiles::Step passo) { return !cheio || passo != WatchedFiles::Step::Write; });
    Clica("cmdSalvar");
    QVERIFY(cheio);
    Funcoes::Conexao.SetStatementHook({});
    arquivos.Watch({});
    QCOMPARE(m_caixas->boxes.size(), 1);
    QVERIFY2(m_caixas->boxes.first().text.startsWith(
                 u"O disco está cheio. As alterações desta operação foram desfeitas."),
             qPrintable(m_caixas->boxes.first().text));
    Caixas();
    QCOMPARE(Guardadas(), antes);
    QCOMPARE(Modificada(), u"1"_qs);
    QCOMPARE(Titulos(), titulos);
    QCOMPARE(Texto("txtNome"), u"Ensaio"_qs);
    // Whoever leaves is asked, and whoever tries again loses nothing.
    m_caixas->answer = false;
    Escolhe("mnuPesquisa");
    QCOMPARE(Caixas(), QStringList({u"Deseja descartar as modificações na lista?"_qs}));
    m_caixas->answer = true;
    Clica("cmdSalvar");
    QCOMPARE(Caixas(), QStringList({guardada ? u"Lista Alterada com Sucesso!"_qs
                                             : u"Lista Cadastrada com Sucesso!"_qs}));
    QCOMPARE(Guardadas(), guardada ? u"Ensaio:3"_qs : u"Guardada:1|Ensaio:2"_qs);
    m_form.reset(); // its connection goes before what watches it
}

void tst_lista_falhas::theCommitFails()
{
    QFETCH(int, acao);
    Prepara(acao);
    PlainSqlite outro(m_catalogo->Path());
    outro.Run("BEGIN; SELECT count(*) FROM LISTA");
    Age(acao);
    outro.Run("COMMIT");
    Confere_Falha(acao, u"O banco de dados está sendo usado por outro programa. As alterações desta"
                        " operação foram desfeitas."_qs);
    Confere_Sucesso(acao);
}

void tst_lista_falhas::theDiskIsFull()
{
    QFETCH(int, acao);
    WatchedFiles arquivos;
    Prepara(acao);
    arquivos.Watch([](WatchedFiles::Step passo) { return passo != WatchedFiles::Step::Write; });
    Age(acao);
    arquivos.Watch({});
    Confere_Falha(acao, u"O disco está cheio."_qs);
    Confere_Sucesso(acao);
    m_form.reset(); // its connection goes before what watches it
}

void tst_lista_falhas::theFileCanOnlyBeRead()
{
    QFETCH(int, acao);
    Prepara(acao);
    m_form.reset();
    {
        // File rights stop no administrator; a format that only newer programs may write stops all.
        QFile arquivo(m_catalogo->Path());
        QVERIFY(arquivo.open(QIODevice::ReadWrite) && arquivo.seek(18));
        arquivo.putChar(3);
    }
    Carrega();
    if (acao == Alterada)
        Responde(0, "cmdEditar");
    Digita("txtNome", u"Ensaio"_qs);
    Adiciona({0, 1});
    Caixas();
    Age(acao);
    Confere_Falha(acao, u"O banco de dados só pode ser lido, não alterado."_qs);
    QCOMPARE(Guardadas(), m_antes);
}

QTEST_MAIN(tst_lista_falhas)
#include "tst_lista_falhas.moc"
