#include "CadastroTeste.h"

/// What nobody should type, and what other tools may have left in a catalogue, in the song entry
/// panel.
class tst_hostile_entry : public CadastroTeste
{
    Q_OBJECT

private slots:
    void oddTextsComeBack_data();
    void oddTextsComeBack();
    void lineBreaksInATitleStay();
    void oddThemeNames_data();
    void oddThemeNames();
    void fiveHundredThemes();
    void songGoneBeforeItsUpdate();
    void themeGoneBeforeTheSave();
    void themeGoneBeforeItsDeletion();
    void themeGoneBeforeItsRenaming();
    void themesAlikeButForLetterCase();
    void tenThousandLinesAreStored();
};

void tst_hostile_entry::oddTextsComeBack_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("guardado");
    const auto linha = [](const char* nome, const QString& texto) {
        QTest::newRow(nome) << texto << texto;
    };
    linha("100,000 characters", u"é"_qs.repeated(100000));
    linha("control characters", u"a\u0001b\u001Bc\u007Fd"_qs);
    linha("tab", u"a\tb"_qs);
    linha("signs of sheets and statements", u"£ 50% {x} \\par ' '' \" ; -- /* [x] * ? _"_qs);
    linha("signs of placeholders", u"?1 :a @b $c %1 %n"_qs);
    linha("markup", u"<b>a</b> &amp;"_qs);
    linha("characters beyond the code page", u"\u266B \U0001F3B5 \u0436 \u05E9 \u200F\u202E"_qs);
    linha("no-break and narrow spaces", u"a\u00A0b\u202Fc\uFEFF"_qs);
    // No file can hold half a character; it becomes a question mark, once and for all.
    QTest::newRow("unpaired surrogates")
        << QString(u"a"_qs).append(QChar(0xD83C)).append(u'b').append(QChar(0xDFB5)) << u"a?b?"_qs;
}

void tst_hostile_entry::oddTextsComeBack()
{
    QFETCH(QString, texto);
    QFETCH(QString, guardado);
    Carrega();
    Digita_Musica();
    Acha<TextBox>("txtCadTitulo")->setText(texto);
    Acha<TextBox>("txtCadReferencia")->setText(texto);
    Caixa(0)->SetText(QString(u"é "_qs + texto));
    QTest::mouseClick(Acha<QWidget>("cmdCadSalvar"), Qt::LeftButton);
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    const QString linha = u"SELECT TITULO, REFERENCIA, MUSICA FROM MUSICA"_qs;
    QCOMPARE(m_catalogo->Rows(linha),
             QList<QStringList>({{guardado, guardado, QString(u"é "_qs + guardado)}}));
    // Opened and saved again: whatever the rendering changes, it changes once.
    QList<QStringList> depois;
    for (int vez = 0; vez < 2; ++vez) {
        m_form->Inicializa_Cadastro(1);
        QCOMPARE(Texto("txtCadTitulo"), guardado);
        QCOMPARE(Texto("txtCadReferencia"), guardado);
        Clica("cmdCadSalvar");
        Confere_Caixa(u"Música Atualizada com Sucesso!"_qs, Icone::Informacao);
        if (vez == 0)
            depois = m_catalogo->Rows(linha);
    }
    QCOMPARE(m_catalogo->Rows(linha), depois);
}

void tst_hostile_entry::lineBreaksInATitleStay()
{
    const QString titulo = u"um\r\ndois\ntrês"_qs;
    Edita(Musica({.title = titulo}));
    Clica("cmdCadSalvar");
    QCOMPARE(m_catalogo->Field(u"SELECT TITULO FROM MUSICA"_qs), titulo);
}

void tst_hostile_entry::oddThemeNames_data()
{
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("guardado");
    const auto linha = [](const char* como, const QString& nome) {
        QTest::newRow(como) << nome << nome;
    };
    linha("signs of statements", u"50% 'x' \"y\" ; -- [z] £ {a} \\"_qs);
    linha("markup", u"<b>Louvor</b>"_qs);
    linha("control characters", u"a\u0001b"_qs);
    linha("100,000 characters", u"x"_qs.repeated(100000));
    linha("places of arguments", u"%1 %2"_qs);
    QTest::newRow("unpaired surrogates")
        << QString(u"a"_qs).append(QChar(0xD83C)).append(u'b').append(QChar(0xDFB5)) << u"a?b?"_qs;
}

void tst_hostile_entry::oddThemeNames()
{
    QFETCH(QString, nome);
    QFETCH(QString, guardado);
    Carrega();
    m_caixas->typed = {nome, nome};
    Clica("cmdCadTema");
    QVERIFY(m_caixas->boxes.last().text.startsWith(
        QString(u"Tema '"_qs + nome + u"' Cadastrado com Sucesso!\r\n"_qs)));
    QCOMPARE(m_catalogo->Field(u"SELECT DESCRICAO FROM TEMA WHERE ID = 4"_qs), guardado);
    QVERIFY(Nomes_Temas().contains(guardado));
    Clica("cmdCadTema");
    QCOMPARE(m_caixas->boxes.last().text, u"Já existe um Tema com essa descrição."_qs);
}

void tst_hostile_entry::fiveHundredThemes()
{
    QString temas;
    for (int i = 4; i <= 500; ++i)
        temas += u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Tema %1', 2);"_qs.arg(i);
    m_catalogo->Run(temas);
    Carrega();
    Digita_Musica();
    QCOMPARE(Temas()->ListCount(), 500);
    for (int i = 0; i < 500; ++i)
        Temas()->SetSelected(i, true);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT count(DISTINCT ID_TEMA) FROM TEMA_MUSICA"_qs), u"500"_qs);
    m_form->Inicializa_Cadastro(1);
    QCOMPARE(Temas_Marcados().size(), 500);
    Clica_Tema(499);
    Clica("cmdCadSalvar");
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA_MUSICA"_qs), u"499"_qs);
}

void tst_hostile_entry::songGoneBeforeItsUpdate()
{
    const qint64 id = Musica();
    Edita(id);
    m_catalogo->Run(u"DELETE FROM MUSICA; DELETE FROM TEMA_MUSICA"_qs);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Atualizada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
    QCOMPARE(Titulos(), QStringList());
    QCOMPARE(Texto("txtCadTitulo"), u"Santo Deus"_qs);
}

void tst_hostile_entry::themeGoneBeforeTheSave()
{
    Carrega();
    Digita_Musica();
    m_catalogo->Run(u"DELETE FROM TEMA"_qs);
    Clica("cmdCadSalvar");
    Confere_Caixa(u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    QCOMPARE(m_catalogo->Field(u"SELECT ID_TEMA FROM TEMA_MUSICA"_qs), u"1"_qs);
    QCOMPARE(Titulos(), QStringList(u"Luz"_qs));
}

void tst_hostile_entry::themeGoneBeforeItsDeletion()
{
    Carrega();
    Clica_Tema(1);
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID = 2"_qs);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Deseja realmente excluir este Tema?"_qs, Icone::Pergunta);
    QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"Sem Tema"_qs}));
}

void tst_hostile_entry::themeGoneBeforeItsRenaming()
{
    Carrega();
    Clica_Tema(1);
    m_catalogo->Run(u"DELETE FROM TEMA WHERE ID = 2"_qs);
    m_caixas->typed = {u"Advento"_qs};
    Clica_Tema(1, Qt::RightButton);
    QVERIFY(m_caixas->boxes.last().text.startsWith(u"Tema Alterado com Sucesso!"));
    // The list tells what there is.
    QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"Sem Tema"_qs}));
    QCOMPARE(m_catalogo->Field(u"SELECT count(*) FROM TEMA"_qs), u"2"_qs);
}

/// Another tool may have made them; here nobody could.
void tst_hostile_entry::themesAlikeButForLetterCase()
{
    m_catalogo->AddTheme(u"LOUVOR"_qs);
    Carrega();
    QCOMPARE(Nomes_Temas(), QStringList({u"Louvor"_qs, u"LOUVOR"_qs, u"Natal"_qs, u"Sem Tema"_qs}));
    Digita_Musica();
    Clica_Tema(0);
    Clica_Tema(1);
    Clica("cmdCadSalvar");
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA"_qs), u"4"_qs);
    m_form->Inicializa_Cadastro(1);
    QCOMPARE(Temas_Marcados(), QStringList(u"LOUVOR"_qs));
    // The other one is nobody's, so it alone can be deleted.
    m_caixas->boxes.clear();
    Temas()->setFocus();
    QTest::keyClick(Temas(), Qt::Key_Home);
    QTest::keyClick(Temas(), Qt::Key_Delete);
    Confere_Caixa(u"Deseja realmente excluir este Tema?"_qs, Icone::Pergunta);
    QCOMPARE(m_catalogo->Field(u"SELECT group_concat(ID) FROM TEMA"_qs), u"2,3,4"_qs);
    QCOMPARE(Temas_Marcados(), QStringList(u"LOUVOR"_qs));
}

void tst_hostile_entry::tenThousandLinesAreStored()
{
    QString letra;
    for (int i = 0; i < 5000; ++i)
        letra += u"C  G7  Am\r\nverso %1\r\n"_qs.arg(i);
    const qint64 id = Musica({.text = letra, .text2 = letra});
    Edita(id);
    QCOMPARE(Letra(0), letra);
    Caixa(0)->moveCursor(QTextCursor::End);
    Escreve(Caixa(0), u"fim"_qs);
    Clica("cmdCadIgualarSalvar");
    QCOMPARE(m_catalogo->Field(u"SELECT MUSICA FROM MUSICA"_qs), QString(letra + u"fim"_qs));
    QCOMPARE(m_catalogo->Field(u"SELECT MUSICA2 FROM MUSICA"_qs), QString(letra + u"fim"_qs));
}

QTEST_MAIN(tst_hostile_entry)
#include "tst_hostile_entry.moc"
