#include "CadastroTeste.h"

/// Saving, making equal and deleting songs in the entry panel: every statement, check and message,
/// and what then lies in the file.
class tst_cadastro_salvar : public CadastroTeste
{
    Q_OBJECT

private slots:
    void newSongIsInserted();
    void insertIsHandedInAsGiven();
    void secondSaveUpdates();
    void updateIsHandedInAsGiven();
    void updateReplacesTheThemes();
    void boxesStayAfterASave();
    void emptySecondVersionTakesTheFirst();
    void apostrophesAreStoredAsTyped();
    void typedTextIsStoredAsTyped();
    void openingAndSavingTwiceChangesNothingTheSecondTime_data();
    void openingAndSavingTwiceChangesNothingTheSecondTime();
    void missingFieldStopsTheSave_data();
    void missingFieldStopsTheSave();
    void checksComeInTheirOrder();
    void blanksPassTheChecks();
    void missingVersionOneIsShownForItsFocus();
    void placeholderThemeLinksToThemeZero();
    void identityThatIsNoNumberInserts();
    void songWithoutACategoryIsAnError();
    void equalCopiesWhatIsShown_data();
    void equalCopiesWhatIsShown();
    void equalKeepsTheFormats();
    void undoDoesNotTakeTheCopyAway();
    void deletingAsksAndDeletes();
    void deletingRefusedOnlySearches();
    void deletingANewSongStillAsks();
    void deletingWithoutANumberDoesNothing();
    void deletingASongThatIsGone();
    void deletedSongStaysInSetlistRows();
    void committedBeforeAnyMessage();
    void newIdentityComesAfterTheMessage();
    void searchResultsFollow();

private:
    QString Musica_Guardada(qint64 id) const
    {
        return m_catalogo->Field(
            u"SELECT TITULO || '|' || REFERENCIA || '|' || replace(MUSICA, char(13, 10), '/') || "
            u"'|' "
            "|| replace(MUSICA2, char(13, 10), '/') || '|' || TOM || '|' || VARIACAO || '|' || "
            "CATEGORIA || '|' || CONTADOR FROM MUSICA WHERE ID = %1"_qs.arg(id));
    }
    QString Temas_Guardados(qint64 id) const
    {
        return m_catalogo->Field(
            u"SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA WHERE ID_MUSICA = %1"_qs.arg(id));
    }
};

void tst_cadastro_salvar::newSongIsInserted()
{
    Carrega();
    Digita_Musica();
    Acha<ComboBox>("cmbCadTom")->SetListIndex(7);
    Acha<ComboBox>("cmbCadVariacao")->SetListIndex(1);
    Acha<ComboBox>("cmbCadCategoria")->SetListIndex(1);
    Clica_Tema(2);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(Musica_Guardada(1), u"Luz|Ana|C/Luz|C/Luz|G|m|2|0"_qs);
    QCOMPARE(Temas_Guardados(1), u"1,3"_qs);
    QCOMPARE(Identidade(), u"1"_qs);
    QVERIFY(Acha<QPushButton>("cmdVisualizar")->isEnabled());
    QVERIFY(Acha<QPushButton>("cmdExcluir")->isEnabled());
}

void tst_cadastro_salvar::insertIsHandedInAsGiven()
{
    Carrega();
    Digita_Musica(u"D'água"_qs);
    Clica_Tema(1);
    m_comandos.clear();
    Clica("cmdCadSalvar");
    QCOMPARE(
        m_comandos.first(5),
        QStringList({u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, "
                     "CATEGORIA)  VALUES ('D''água', 'Ana', 'C\r\nLuz', 'C\r\nLuz', 'C', '', 1)"_qs,
                     u"SELECT MAX(ID) AS ID FROM MUSICA"_qs,
                     u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (1, 1)"_qs,
                     u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (1, 2)"_qs,
                     m_comandos.value(4)}));
    QVERIFY(m_comandos[4].startsWith(u"SELECT DISTINCT MUSICA.ID"));
    QCOMPARE(Pesquisas(), 1);
}

void tst_cadastro_salvar::secondSaveUpdates()
{
    Carrega();
    Digita_Musica();
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    Digita("txtCadTitulo", u"Luz do mundo"_qs);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Atualizada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(TITULO) FROM MUSICA"_qs), u"Luz do mundo"_qs);
    QCOMPARE(Temas_Guardados(1), u"1"_qs);
    QCOMPARE(Identidade(), u"1"_qs);
}

void tst_cadastro_salvar::updateIsHandedInAsGiven()
{
    const qint64 id = Musica({.title = u"Luz"_qs, .count = 12});
    Edita(id);
    Clica("cmdCadSalvar");
    QCOMPARE(m_comandos.first(3),
             QStringList(
                 {u"UPDATE MUSICA SET TITULO = 'Luz', REFERENCIA = 'Anônimo', MUSICA = 'C  G7\r\n"
                  "Santo Deus', MUSICA2 = 'D  A7\r\nSanto Deus', TOM = 'C', VARIACAO = '', "
                  "CATEGORIA = 1 WHERE ID = 01"_qs,
                  u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 01"_qs,
                  u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (1, 1)"_qs}));
    QCOMPARE(Pesquisas(), 1);
    QCOMPARE(Musica_Guardada(id), u"Luz|Anônimo|C  G7/Santo Deus|D  A7/Santo Deus|C||1|12"_qs);
}

void tst_cadastro_salvar::updateReplacesTheThemes()
{
    const qint64 outra = Musica();
    const qint64 id = Musica();
    Edita(id);
    Clica_Tema(0);
    Clica_Tema(1);
    Clica_Tema(2);
    Clica("cmdCadSalvar");
    QCOMPARE(Temas_Guardados(id), u"2,3"_qs);
    QCOMPARE(Temas_Guardados(outra), u"1"_qs);
}

void tst_cadastro_salvar::boxesStayAfterASave()
{
    Carrega();
    Digita_Musica();
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    Clica("cmdCadSalvar");
    QCOMPARE(Letra(0), u"C\r\nLuz"_qs);
    QCOMPARE(Letra(1), QString());
    QVERIFY(Caixa(1)->isVisible());
    QCOMPARE(Temas_Marcados(), QStringList(u"Louvor"_qs));
    Caixa(0)->undo();
    QVERIFY(Letra(0) != u"C\r\nLuz"_qs);
}

void tst_cadastro_salvar::emptySecondVersionTakesTheFirst()
{
    const qint64 id = Musica();
    Edita(id);
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    Digita("txtCadLetra_1", QString());
    Clica("cmdCadSalvar");
    QCOMPARE(Musica_Guardada(id).section(u'|', 2, 3), u"C  G7/Santo Deus|C  G7/Santo Deus"_qs);
}

void tst_cadastro_salvar::apostrophesAreStoredAsTyped()
{
    Carrega();
    Digita_Musica(u"D'água ''"_qs);
    Digita("txtCadReferencia", u"'; DELETE FROM MUSICA; --"_qs);
    Digita("txtCadLetra_0", u"C\nd'água"_qs);
    Clica("cmdCadSalvar");
    QCOMPARE(Musica_Guardada(1).section(u'|', 0, 2),
             u"D'água ''|'; DELETE FROM MUSICA; --|C/d'água"_qs);
    m_form->Inicializa_Cadastro(1);
    QCOMPARE(Texto("txtCadTitulo"), u"D'água ''"_qs);
    QCOMPARE(Letra(0), u"C\r\nd'água"_qs);
}

void tst_cadastro_salvar::typedTextIsStoredAsTyped()
{
    Carrega();
    Digita_Musica();
    // Nothing of what a rendering would change: that comes with the next loading.
    Digita("txtCadLetra_0", u"    Refrão £ 50% {Coro} \\o/\nC\n\n  fim  \n"_qs);
    Clica("cmdCadSalvar");
    QCOMPARE(m_catalogo->Field(u"SELECT MUSICA FROM MUSICA"_qs),
             u"    Refrão £ 50% {Coro} \\o/\r\nC\r\n\r\n  fim  \r\n"_qs);
}

void tst_cadastro_salvar::openingAndSavingTwiceChangesNothingTheSecondTime_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("depois");
    const QString comum = u"C  G7\r\nSanto Deus\r\n\r\nAm\r\n"_qs;
    QTest::newRow("chords and lyrics") << comum << comum;
    QTest::newRow("a lyric first") << u"Santo\r\nC"_qs << u"\r\nSanto\r\nC"_qs;
    QTest::newRow("a heading first") << u"    Refrão\r\nC"_qs << u"\r\n    REFRÃO\r\nC"_qs;
    QTest::newRow("signs of the rendering") << u"C\r\né 50% £{x}\\"_qs << u"C\r\né 50 \r\n{x}\\"_qs;
    QTest::newRow("no-break spaces") << u"C\r\na\u00A0b"_qs << u"C\r\na\u00A0b"_qs;
}

void tst_cadastro_salvar::openingAndSavingTwiceChangesNothingTheSecondTime()
{
    QFETCH(QString, texto);
    QFETCH(QString, depois);
    const qint64 id = Musica({.text = texto, .text2 = texto});
    for (int vez = 0; vez < 2; ++vez) {
        Edita(id);
        Clica("cmdCadSalvar");
        QCOMPARE(m_catalogo->Field(u"SELECT MUSICA FROM MUSICA"_qs), depois);
        QCOMPARE(m_catalogo->Field(u"SELECT MUSICA2 FROM MUSICA"_qs), depois);
    }
}

void tst_cadastro_salvar::missingFieldStopsTheSave_data()
{
    QTest::addColumn<QByteArray>("campo");
    QTest::addColumn<QString>("mensagem");
    QTest::newRow("title") << QByteArray("txtCadTitulo") << u"Preencha o Título da música."_qs;
    QTest::newRow("reference, spelt as it always was")
        << QByteArray("txtCadReferencia") << u"Preencha a Refrência da música."_qs;
    QTest::newRow("version 1") << QByteArray("txtCadLetra_0")
                               << u"Preencha a Letra e Cifra da música."_qs;
    QTest::newRow("theme") << QByteArray("lstCadTema")
                           << u"Selecione pelo menos um Tema para a música."_qs;
}

void tst_cadastro_salvar::missingFieldStopsTheSave()
{
    QFETCH(QByteArray, campo);
    QFETCH(QString, mensagem);
    Carrega();
    Digita_Musica();
    if (campo == "lstCadTema")
        Clica_Tema(0);
    else
        Digita(campo.constData(), QString());
    Acha<QWidget>("cmdCadTema")->setFocus();
    m_comandos.clear();
    Clica("cmdCadSalvar");
    Confere_Caixa(mensagem, Icone::Exclamacao);
    QVERIFY(Acha<QWidget>(campo.constData())->hasFocus());
    QCOMPARE(m_comandos, QStringList());
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
    QCOMPARE(Identidade(), u"0"_qs);
}

void tst_cadastro_salvar::checksComeInTheirOrder()
{
    Carrega();
    QStringList mensagens;
    const auto salva = [&] {
        Clica("cmdCadSalvar");
        mensagens.append(m_caixas->boxes.last().text.section(u' ', 0, 3));
    };
    salva();
    Digita("txtCadTitulo", u"Luz"_qs);
    salva();
    Digita("txtCadReferencia", u"Ana"_qs);
    salva();
    Digita("txtCadLetra_0", u"C"_qs);
    salva();
    Clica_Tema(0);
    salva();
    QCOMPARE(mensagens, QStringList({u"Preencha o Título da"_qs, u"Preencha a Refrência da"_qs,
                                     u"Preencha a Letra e"_qs, u"Selecione pelo menos um"_qs,
                                     u"Música Cadastrada com Sucesso!"_qs}));
}

void tst_cadastro_salvar::blanksPassTheChecks()
{
    Carrega();
    Digita_Musica(u" "_qs);
    Digita("txtCadReferencia", u"  "_qs);
    Digita("txtCadLetra_0", u" "_qs);
    Clica("cmdCadSalvar");
    QCOMPARE(Musica_Guardada(1), u" |  | | |C||1|0"_qs);
}

void tst_cadastro_salvar::missingVersionOneIsShownForItsFocus()
{
    Carrega();
    Digita_Musica();
    Digita("txtCadLetra_0", QString());
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    Digita("txtCadLetra_1", u"D"_qs);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Preencha a Letra e Cifra da música."_qs, Icone::Exclamacao);
    QVERIFY(Caixa(0)->hasFocus());
    QCOMPARE(Letra(1), u"D"_qs);
}

void tst_cadastro_salvar::placeholderThemeLinksToThemeZero()
{
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Carrega();
    Digita_Musica();
    QCOMPARE(Temas_Marcados(), QStringList(u"Não há dados a serem mostrados."_qs));
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(Temas_Guardados(1), u"0"_qs);
}

void tst_cadastro_salvar::identityThatIsNoNumberInserts()
{
    Carrega();
    Digita_Musica();
    Acha<QWidget>("txtCadTitulo")->setProperty("Tag", u"abc"_qs);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(Identidade(), u"1"_qs);
}

void tst_cadastro_salvar::songWithoutACategoryIsAnError()
{
    const qint64 id = Musica({.category = std::nullopt});
    Edita(id);
    QCOMPARE(Acha<ComboBox>("cmbCadCategoria")->ListIndex(), -1);
    Clica("cmdCadSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes.first().icon, Icone::Critico);
    QCOMPARE(m_comandos, QStringList());
    m_caixas->boxes.clear();
    // What is to be stored is read before anything is checked.
    Digita("txtCadTitulo", QString());
    Clica("cmdCadSalvar");
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes.first().icon, Icone::Critico);
    m_caixas->boxes.clear();
    Digita("txtCadTitulo", u"Luz"_qs);
    Acha<ComboBox>("cmbCadCategoria")->SetListIndex(1);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Atualizada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT CATEGORIA FROM MUSICA"_qs), u"2"_qs);
}

void tst_cadastro_salvar::equalCopiesWhatIsShown_data()
{
    QTest::addColumn<QString>("versao1");
    QTest::addColumn<QString>("versao2");
    QTest::addColumn<int>("mostrada");
    QTest::addColumn<QString>("guardadas");
    QTest::newRow("version 1 over version 2") << u"um"_qs << u"dois"_qs << 0 << u"um|um"_qs;
    QTest::newRow("version 2 over version 1") << u"um"_qs << u"dois"_qs << 1 << u"dois|dois"_qs;
    QTest::newRow("version 2 over an empty version 1")
        << u""_qs << u"dois"_qs << 1 << u"dois|dois"_qs;
    QTest::newRow("version 1 over an empty version 2") << u"um"_qs << u""_qs << 0 << u"um|um"_qs;
    QTest::newRow("the shown version 2 empty") << u"um"_qs << u""_qs << 1 << u"um|um"_qs;
    QTest::newRow("the shown version 1 empty, nothing is saved")
        << u""_qs << u"dois"_qs << 0 << QString();
    QTest::newRow("both empty, nothing is saved") << u""_qs << u""_qs << 0 << QString();
}

void tst_cadastro_salvar::equalCopiesWhatIsShown()
{
    QFETCH(QString, versao1);
    QFETCH(QString, versao2);
    QFETCH(int, mostrada);
    QFETCH(QString, guardadas);
    Carrega();
    Digita_Musica();
    Digita("txtCadLetra_0", versao1);
    QTest::mouseClick(Acha<QWidget>("lblMostraMusica_1"), Qt::LeftButton);
    Digita("txtCadLetra_1", versao2);
    if (mostrada == 0)
        QTest::mouseClick(Acha<QWidget>("lblMostraMusica_0"), Qt::LeftButton);
    Clica("cmdCadIgualarSalvar");
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(MUSICA || '|' || MUSICA2) FROM MUSICA"_qs),
             guardadas);
    if (guardadas.isEmpty())
        Confere_Caixa(u"Preencha a Letra e Cifra da música."_qs, Icone::Exclamacao);
    else
        Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
}

void tst_cadastro_salvar::equalKeepsTheFormats()
{
    Edita(Musica());
    Clica("cmdCadIgualarSalvar");
    QCOMPARE(Letra(1), Letra(0));
    QTextCursor cifra(Caixa(1)->document());
    cifra.setPosition(1);
    QCOMPARE(cifra.charFormat().fontWeight(), int(QFont::Bold));
    QCOMPARE(cifra.charFormat().font().pointSizeF(), 14.0);
}

void tst_cadastro_salvar::undoDoesNotTakeTheCopyAway()
{
    Edita(Musica());
    Clica("cmdCadIgualarSalvar");
    Caixa(1)->undo();
    QCOMPARE(Letra(1), u"C  G7\r\nSanto Deus"_qs);
}

void tst_cadastro_salvar::deletingAsksAndDeletes()
{
    const qint64 outra = Musica({.title = u"Outra"_qs});
    const qint64 id = Musica();
    Edita(id);
    Clica("cmdExcluir");
    Confere_Caixa(u"Deseja realmente excluir esta música?"_qs, Icone::Pergunta);
    QCOMPARE(Alteracoes(), QStringList({u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 02"_qs,
                                        u"DELETE FROM MUSICA WHERE ID = 02"_qs}));
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(ID) FROM MUSICA"_qs), QString::number(outra));
    QCOMPARE(Temas_Guardados(id), QString());
    QCOMPARE(Temas_Guardados(outra), u"1"_qs);
    QCOMPARE(Identidade(), u"0"_qs);
    QCOMPARE(Texto("txtCadTitulo"), QString());
    QCOMPARE(Pesquisas(), 1);
    QCOMPARE(Titulos(), QStringList(u"Outra"_qs));
}

void tst_cadastro_salvar::deletingRefusedOnlySearches()
{
    const qint64 id = Musica();
    Edita(id);
    m_caixas->answer = false;
    Clica("cmdExcluir");
    Confere_Caixa(u"Deseja realmente excluir esta música?"_qs, Icone::Pergunta);
    QCOMPARE(Alteracoes(), QStringList());
    QCOMPARE(Pesquisas(), 1);
    QCOMPARE(Identidade(), QString::number(id));
    QCOMPARE(Texto("txtCadTitulo"), u"Santo Deus"_qs);
}

void tst_cadastro_salvar::deletingANewSongStillAsks()
{
    Musica();
    Carrega();
    Digita("txtCadTitulo", u"Digitado"_qs);
    m_comandos.clear();
    m_form->cmdExcluir_Click();
    Confere_Caixa(u"Deseja realmente excluir esta música?"_qs, Icone::Pergunta);
    QCOMPARE(Alteracoes(), QStringList({u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 00"_qs,
                                        u"DELETE FROM MUSICA WHERE ID = 00"_qs}));
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
    QCOMPARE(Texto("txtCadTitulo"), QString());
}

void tst_cadastro_salvar::deletingWithoutANumberDoesNothing()
{
    Carrega();
    m_comandos.clear();
    for (const QString& id : {u""_qs, u"abc"_qs}) {
        Acha<QWidget>("txtCadTitulo")->setProperty("Tag", id);
        m_form->cmdExcluir_Click();
        QVERIFY(m_caixas->boxes.isEmpty());
        QCOMPARE(m_comandos, QStringList());
    }
}

void tst_cadastro_salvar::deletingASongThatIsGone()
{
    const qint64 id = Musica();
    Edita(id);
    m_catalogo->Run(u"DELETE FROM MUSICA"_qs);
    Clica("cmdExcluir");
    Confere_Caixa(u"Deseja realmente excluir esta música?"_qs, Icone::Pergunta);
    QCOMPARE(Identidade(), u"0"_qs);
}

void tst_cadastro_salvar::deletedSongStaysInSetlistRows()
{
    const qint64 id = Musica();
    m_catalogo->AddSetlist(u"Domingo"_qs, QDate(2026, 11, 22), {id});
    Edita(id);
    Clica("cmdExcluir");
    QCOMPARE(m_catalogo->Field(u"SELECT ID_MUSICA FROM LISTA_MUSICA"_qs), QString::number(id));
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM LISTA_MUSICA INNER JOIN MUSICA ON MUSICA.ID "
                               "= LISTA_MUSICA.ID_MUSICA"_qs),
             u"0"_qs);
}

void tst_cadastro_salvar::committedBeforeAnyMessage()
{
    QStringList vistos;
    m_caixas->whileOpen = [&] {
        vistos.append(m_catalogo->Field(
            u"SELECT group_concat(TITULO) || ':' || (SELECT count(*) FROM TEMA_MUSICA) FROM "
            "MUSICA"_qs));
    };
    Carrega();
    Digita_Musica();
    Clica("cmdCadSalvar");
    Digita("txtCadTitulo", u"Luz do mundo"_qs);
    Clica("cmdCadSalvar");
    QCOMPARE(vistos, QStringList({u"Luz:1"_qs, u"Luz do mundo:1"_qs}));
}

void tst_cadastro_salvar::newIdentityComesAfterTheMessage()
{
    QStringList vistos;
    m_caixas->whileOpen = [&] {
        const bool exclui = Acha<QPushButton>("cmdExcluir")->isEnabled();
        vistos.append(Identidade() + (exclui ? u" stored"_qs : u" new"_qs));
    };
    Carrega();
    Digita_Musica();
    Clica("cmdCadSalvar");
    Clica("cmdCadSalvar");
    QCOMPARE(vistos, QStringList({u"0 new"_qs, u"1 stored"_qs}));
}

void tst_cadastro_salvar::searchResultsFollow()
{
    Carrega();
    Digita_Musica();
    Clica("cmdCadSalvar");
    QCOMPARE(Titulos(), QStringList(u"Luz"_qs));
    Digita("txtCadTitulo", u"Zelo"_qs);
    Clica("cmdCadSalvar");
    QCOMPARE(Titulos(), QStringList(u"Zelo"_qs));
    Clica("cmdExcluir");
    QCOMPARE(Titulos(), QStringList());
}

QTEST_MAIN(tst_cadastro_salvar)
#include "tst_cadastro_salvar.moc"
