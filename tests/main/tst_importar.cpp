#include "ImportarTeste.h"

#include "runtime/RuntimeError.h"

#include <QLabel>

#include <cstdlib>

class tst_importar : public ImportarTeste
{
    Q_OBJECT

private slots:
    void thePickerIsAskedAsGivenAndCancellingDoesNothing();
    void aFileIsImportedWithItsThemesAndShown();
    void theStatementsAreTheGivenOnesInTheirOrder();
    void everySongAsksForItsThemesItself();
    void whatIsNoExchangeFileIsRefused_data();
    void whatIsNoExchangeFileIsRefused();
    void theExtensionInCapitalsIsAccepted();
    void doubleQuotesAroundThePathDoNotCount();
    void anEqualSongIsAskedAboutAndSuffixed();
    void anEqualSongAnsweredWithNoIsSkippedAndNotCounted();
    void eachEqualSongHasAnAnswerOfItsOwn();
    void equalSongsOfOneFileAreAskedAbout();
    void anApostropheIsDoubledInTheQuestionAndStoredOnce();
    void aThemeSpelledDifferentlyIsANewOne();
    void aThemeNamedTwiceIsLinkedOnce();
    void aThemeWithoutANameIsAThemeAsWell();
    void aFileMayNameSemTemaItself_data();
    void aFileMayNameSemTemaItself();
    void aSongWithoutThemesGetsANewSemTema_data();
    void aSongWithoutThemesGetsANewSemTema();
    void faultySongsAreToldOfAndTheOthersImported();
    void nothingOfABrokenFileIsImported();
    void quotesAndStatementsInEveryFieldAreStoredAsTheyAre();
    void whatWasImportedIsCommittedBeforeEachQuestion();
    void closingTheFormDuringAQuestionEndsTheImport();
    void theCounterHasSixteenBits();
    void aStoreFailureKeepsWhatWasStored();
    void theFormLoadsAndImportsTheCommandLine();
};

void tst_importar::thePickerIsAskedAsGivenAndCancellingDoesNothing()
{
    Carrega_Importar();
    Importa(QString());
    QCOMPARE(m_pedidos.size(), 1);
    QCOMPARE(m_pedidos[0].especie, Pedido_Arquivo::Abrir);
    QCOMPARE(m_pedidos[0].titulo, u"Importar..."_qs);
    QCOMPARE(m_pedidos[0].filtro, u"Arquivo Melodario (*.mld) | *.mld"_qs);
    QCOMPARE(Caixas(), QStringList());
    QCOMPARE(m_comandos, QStringList());
}

void tst_importar::aFileIsImportedWithItsThemesAndShown()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs) + Tema_Xml(u"Novo"_qs)) +
                    Musica_Xml(u"Mar"_qs, Tema_Xml(u"Novo"_qs))));
    QCOMPARE(Musicas(), QStringList({u"Luz|Ana|C\r\na|D\r\nb|C|m|1|0|Louvor:2:,Novo:2:"_qs,
                                     u"Mar|Ana|C\r\na|D\r\nb|C|m|1|0|Novo:2:"_qs}));
    QCOMPARE(Caixas(), QStringList(u"i 2 música(s) importada(s) com sucesso!"_qs));
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(Titulos(), QStringList({u"Luz"_qs, u"Mar"_qs}));
    QCOMPARE(Contagem(), u"2 Registro(s) Encontrado(s)."_qs);
    QCOMPARE(Acha<ListBox>("lstTema")->ListCount(), 3);
}

void tst_importar::theStatementsAreTheGivenOnesInTheirOrder()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"D'água"_qs, Tema_Xml(u"Novo"_qs))));
    const QStringList esperados{
        u"SELECT ID FROM MUSICA WHERE TITULO = 'D''água' AND REFERENCIA = 'Ana'"_qs,
        u"SELECT ID FROM TEMA WHERE DESCRICAO = 'Novo'"_qs,
        u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('Novo', 2, '')"_qs,
        u"SELECT MAX(ID) AS ID FROM TEMA"_qs,
        u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA) "
        u"VALUES "
        "('D''água', 'Ana', 'C\r\na', 'D\r\nb', 'C', 'm', 1)"_qs,
        u"SELECT MAX(ID) AS ID FROM MUSICA"_qs,
        u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT 1, ID FROM TEMA WHERE ID IN (3)"_qs,
        u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs};
    QCOMPARE(m_comandos.mid(0, esperados.size()), esperados);
    QVERIFY(m_comandos.value(esperados.size()).startsWith(u"SELECT DISTINCT MUSICA.ID"));
}

void tst_importar::everySongAsksForItsThemesItself()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)) +
                    Musica_Xml(u"Mar"_qs, Tema_Xml(u"Louvor"_qs) + Tema_Xml(u"Louvor"_qs)) +
                    Musica_Xml(u"Paz"_qs, QString()) + Musica_Xml(u"Sol"_qs, QString())));
    const auto vezes = [this](const QString& sql) { return m_comandos.count(sql); };
    QCOMPARE(vezes(u"SELECT ID FROM TEMA WHERE DESCRICAO = 'Louvor'"_qs), 3);
    QCOMPARE(vezes(u"SELECT ID FROM TEMA WHERE DESCRICAO = 'Sem Tema'"_qs), 2);
    QCOMPARE(vezes(u"INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES ('Sem Tema', 3, '')"_qs), 2);
}

void tst_importar::whatIsNoExchangeFileIsRefused_data()
{
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("conteudo"); // null: nothing is made
    QTest::addColumn<QString>("mensagem");
    const QString ausente = u"! Arquivo não Encontrado"_qs;
    const QString estranho = u"! Arquivo não Reconhecido."_qs;
    const QString invalido = u"! Arquivo no formato inválido."_qs;
    QTest::newRow("no file") << u"x.mld"_qs << QString() << ausente;
    QTest::newRow("no file, by another name") << u"x.txt"_qs << QString() << ausente;
    QTest::newRow("a folder") << u"pasta.mld"_qs << QString() << ausente;
#ifndef Q_OS_WIN // which has no such files
    QTest::newRow("a pipe") << u"cano.mld"_qs << QString() << ausente;
    QTest::newRow("a link to itself") << u"laco.mld"_qs << QString() << ausente;
    QTest::newRow("a name with double quotes") << u"x\"y.mld"_qs << u"<m/>"_qs << ausente;
#endif
    QTest::newRow("a longer extension") << u"songs.mld.bak"_qs << u"<m/>"_qs << estranho;
    QTest::newRow("no extension") << u"ml"_qs << u"<m/>"_qs << estranho;
    QTest::newRow("an empty file") << u"x.mld"_qs << u""_qs << invalido;
    QTest::newRow("an ampersand") << u"x.mld"_qs << u"<m>Ana & Beto</m>"_qs << invalido;
    QTest::newRow("a truncated file") << u"x.mld"_qs << u"<m><a>"_qs << invalido;
    QTest::newRow("an external entity")
        << u"x.mld"_qs << u"<!DOCTYPE m [<!ENTITY x SYSTEM 'a.mld'>]><m>&x;</m>"_qs << invalido;
}

void tst_importar::whatIsNoExchangeFileIsRefused()
{
    QFETCH(QString, nome);
    QFETCH(QString, conteudo);
    QFETCH(QString, mensagem);
    Carrega_Importar();
    const QString caminho = m_pasta.filePath(nome);
    QFile::remove(caminho);
    QDir(m_pasta.path()).mkdir(u"pasta.mld"_qs);
    if (nome == u"cano.mld")
        QCOMPARE(std::system(qPrintable(u"mkfifo '%1'"_qs.arg(caminho))), 0);
    if (nome == u"laco.mld")
        QVERIFY(QFile::link(caminho, caminho));
    if (!conteudo.isNull()) {
        QFile arquivo(caminho);
        QVERIFY(arquivo.open(QIODevice::WriteOnly));
        arquivo.write(conteudo.toUtf8());
    }
    Importa(caminho);
    QCOMPARE(Caixas(), QStringList(mensagem));
    QCOMPARE(m_comandos, QStringList());
}

void tst_importar::theExtensionInCapitalsIsAccepted()
{
    Carrega_Importar();
    Importa(Arquivo(QString(), u"SONGS.MLD"_qs));
    QCOMPARE(Caixas(), QStringList(u"i 0 música(s) importada(s) com sucesso!"_qs));
}

void tst_importar::doubleQuotesAroundThePathDoNotCount()
{
    Carrega_Importar();
    Importa(u'"' + Arquivo(QString(), u"Canção d'água.mld"_qs) + u'"');
    QCOMPARE(Caixas(), QStringList(u"i 0 música(s) importada(s) com sucesso!"_qs));
}

void tst_importar::anEqualSongIsAskedAboutAndSuffixed()
{
    Musica(u"luz"_qs, {}, TestSong{.reference = u"ANA"_qs});
    Carrega_Importar();
    const QString arquivo = Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)));
    Importa(arquivo);
    Importa(arquivo);
    const QString pergunta =
        u"? A música 'Luz' já encontra-se no Banco de Dados. Deseja importar assim mesmo?"_qs;
    const QString fim = u"i 1 música(s) importada(s) com sucesso!"_qs;
    QCOMPARE(Caixas(), QStringList({pergunta, fim, pergunta, fim}));
    QCOMPARE(Um(u"SELECT group_concat(TITULO, '|') FROM MUSICA"_qs),
             u"luz|Luz (Importação)|Luz (Importação)"_qs);
}

void tst_importar::anEqualSongAnsweredWithNoIsSkippedAndNotCounted()
{
    Musica(u"Luz"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    m_caixas->answer = false;
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Nunca"_qs))));
    QCOMPARE(Caixas().last(), u"i 0 música(s) importada(s) com sucesso!"_qs);
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
    QCOMPARE(Um(u"SELECT count(*) FROM TEMA WHERE DESCRICAO = 'Nunca'"_qs), u"0"_qs);
    // The lists are filled anew all the same.
    QCOMPARE(m_comandos.value(1), u"SELECT * FROM TEMA ORDER BY TEMA.ORDEM, TEMA.DESCRICAO"_qs);
    QVERIFY(m_comandos.value(2).startsWith(u"SELECT DISTINCT MUSICA.ID"));
}

void tst_importar::eachEqualSongHasAnAnswerOfItsOwn()
{
    for (const QString& titulo : {u"Luz"_qs, u"Mar"_qs, u"Sol"_qs})
        Musica(titulo, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    m_caixas->whileOpen = [this] {
        m_caixas->answer = !m_caixas->boxes.last().text.contains(u"Mar");
    };
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)) +
                    Musica_Xml(u"Mar"_qs, Tema_Xml(u"Louvor"_qs)) +
                    Musica_Xml(u"Sol"_qs, Tema_Xml(u"Louvor"_qs))));
    QCOMPARE(Caixas().size(), 4);
    QCOMPARE(Caixas().last(), u"i 2 música(s) importada(s) com sucesso!"_qs);
    QCOMPARE(Um(u"SELECT group_concat(TITULO, '|') FROM MUSICA WHERE ID > 3"_qs),
             u"Luz (Importação)|Sol (Importação)"_qs);
}

void tst_importar::equalSongsOfOneFileAreAskedAbout()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)).repeated(2)));
    QCOMPARE(Caixas(),
             QStringList({u"? A música 'Luz' já encontra-se no Banco de Dados. Deseja importar "
                          "assim mesmo?"_qs,
                          u"i 2 música(s) importada(s) com sucesso!"_qs}));
    QCOMPARE(Um(u"SELECT group_concat(TITULO, '|') FROM MUSICA"_qs), u"Luz|Luz (Importação)"_qs);
}

void tst_importar::anApostropheIsDoubledInTheQuestionAndStoredOnce()
{
    Musica(u"d'água"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"d'água"_qs, Tema_Xml(u"Louvor"_qs))));
    QCOMPARE(Caixas().first(), u"? A música 'd''água' já encontra-se no Banco de Dados. Deseja "
                               "importar assim mesmo?"_qs);
    QCOMPARE(Um(u"SELECT TITULO FROM MUSICA WHERE ID = 2"_qs), u"d'água (Importação)"_qs);
}

void tst_importar::aThemeSpelledDifferentlyIsANewOne()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"louvor"_qs) + Tema_Xml(u"Louvor "_qs))));
    QCOMPARE(Um(u"SELECT group_concat('<' || DESCRICAO || '>' || ORDEM) FROM TEMA"_qs),
             u"<Louvor>2,<Outro>2,<Louvor >2"_qs);
    QCOMPARE(Um(u"SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA"_qs), u"1,3"_qs);
}

void tst_importar::aThemeNamedTwiceIsLinkedOnce()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Novo"_qs) + Tema_Xml(u"Novo"_qs))));
    QCOMPARE(Um(u"SELECT count(*) FROM TEMA_MUSICA"_qs), u"1"_qs);
    QCOMPARE(Um(u"SELECT count(*) FROM TEMA WHERE DESCRICAO = 'Novo'"_qs), u"1"_qs);
}

void tst_importar::aThemeWithoutANameIsAThemeAsWell()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(QString())) +
                    Musica_Xml(u"Mar"_qs, Tema_Xml(QString()) + Tema_Xml(u"Louvor"_qs))));
    QCOMPARE(Musicas(), QStringList({u"Luz|Ana|C\r\na|D\r\nb|C|m|1|0|:2:"_qs,
                                     u"Mar|Ana|C\r\na|D\r\nb|C|m|1|0|Louvor:2:,:2:"_qs}));
    QCOMPARE(Um(u"SELECT count(*) FROM TEMA"_qs), u"3"_qs);
}

void tst_importar::aFileMayNameSemTemaItself_data()
{
    QTest::addColumn<bool>("existe");
    QTest::addColumn<QString>("tema");
    QTest::newRow("it exists") << true << u"Sem Tema:3:"_qs;
    QTest::newRow("it is as new as any other") << false << u"Sem Tema:2:"_qs;
}

void tst_importar::aFileMayNameSemTemaItself()
{
    QFETCH(bool, existe);
    QFETCH(QString, tema);
    if (existe)
        m_catalogo->AddTheme(u"Sem Tema"_qs, 3);
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Sem Tema"_qs)) +
                    Musica_Xml(u"Mar"_qs, Tema_Xml(u"Sem Tema"_qs))));
    QCOMPARE(Musicas(), QStringList({u"Luz|Ana|C\r\na|D\r\nb|C|m|1|0|"_qs + tema,
                                     u"Mar|Ana|C\r\na|D\r\nb|C|m|1|0|"_qs + tema}));
    QCOMPARE(Um(u"SELECT count(*) FROM TEMA WHERE DESCRICAO = 'Sem Tema'"_qs), u"1"_qs);
}

void tst_importar::aSongWithoutThemesGetsANewSemTema_data()
{
    QTest::addColumn<bool>("existe");
    QTest::newRow("one exists already") << true;
    QTest::newRow("none exists") << false;
}

void tst_importar::aSongWithoutThemesGetsANewSemTema()
{
    QFETCH(bool, existe);
    if (existe)
        m_catalogo->AddTheme(u"Sem Tema"_qs, 3);
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, QString()) + Musica_Xml(u"Mar"_qs, QString())));
    QCOMPARE(Musicas(), QStringList({u"Luz|Ana|C\r\na|D\r\nb|C|m|1|0|Sem Tema:3:"_qs,
                                     u"Mar|Ana|C\r\na|D\r\nb|C|m|1|0|Sem Tema:3:"_qs}));
    QCOMPARE(Um(u"SELECT count(*) FROM TEMA WHERE DESCRICAO = 'Sem Tema'"_qs),
             existe ? u"3"_qs : u"2"_qs);
    QCOMPARE(Um(u"SELECT count(DISTINCT ID_TEMA) FROM TEMA_MUSICA"_qs), u"2"_qs);
}

void tst_importar::faultySongsAreToldOfAndTheOthersImported()
{
    Carrega_Importar();
    QString semTom = Musica_Xml(u"Mar"_qs, Tema_Xml(u"Louvor"_qs));
    semTom.remove(u"<tom>C</tom>"_qs);
    QString letras = Musica_Xml(u"Sol"_qs, Tema_Xml(u"Louvor"_qs));
    letras.replace(u"<categoria>1"_qs, u"<categoria>um"_qs);
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)) + semTom + letras + u"solto"_qs +
                    Musica_Xml(u"Paz"_qs, Tema_Xml(u"Louvor"_qs))));
    QCOMPARE(Um(u"SELECT group_concat(TITULO) FROM MUSICA"_qs), u"Luz,Paz"_qs);
    QCOMPARE(Caixas(),
             QStringList({u"! 3 música(s) do arquivo não pode(m) ser importada(s):\n\n"
                          "2ª ‘Mar’: falta tom\n3ª ‘Sol’: categoria não é um número válido\n"
                          "4ª: não é uma música"_qs,
                          u"i 2 música(s) importada(s) com sucesso!"_qs}));
}

void tst_importar::nothingOfABrokenFileIsImported()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)).repeated(500) + u"<musica>"_qs));
    QCOMPARE(Caixas(), QStringList(u"! Arquivo no formato inválido."_qs));
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
}

void tst_importar::quotesAndStatementsInEveryFieldAreStoredAsTheyAre()
{
    const QString mau = u"x'', \"y\"'); DROP TABLE MUSICA; --"_qs;
    Carrega_Importar();
    QString musica = Musica_Xml(mau, Tema_Xml(mau));
    for (const char16_t* campo : {u">Ana<", u">C[br]a<", u">D[br]b<", u">C<", u">m<"})
        musica.replace(QString::fromUtf16(campo), u'>' + mau + u'<');
    Importa(Arquivo(musica));
    QCOMPARE(Caixas(), QStringList(u"i 1 música(s) importada(s) com sucesso!"_qs));
    QCOMPARE(Musicas(), QStringList(QStringList(6, mau).join(u'|') + u"|1|0|" + mau + u":2:"));
}

void tst_importar::whatWasImportedIsCommittedBeforeEachQuestion()
{
    Musica(u"Mar"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    QStringList vistas;
    m_caixas->whileOpen = [&] { vistas.append(Um(u"SELECT group_concat(TITULO) FROM MUSICA"_qs)); };
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Novo"_qs)) +
                    Musica_Xml(u"Mar"_qs, Tema_Xml(u"Novo"_qs))));
    QCOMPARE(vistas, QStringList({u"Mar,Luz"_qs, u"Mar,Luz,Mar (Importação)"_qs}));
}

void tst_importar::closingTheFormDuringAQuestionEndsTheImport()
{
    Musica(u"Mar"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    m_caixas->whileOpen = [this] { m_form->close(); };
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Novo"_qs)) +
                    Musica_Xml(u"Mar"_qs, Tema_Xml(u"Novo"_qs))));
    QCOMPARE(Caixas().size(), 1);
    QCOMPARE(Um(u"SELECT group_concat(TITULO) FROM MUSICA"_qs), u"Mar,Luz"_qs);
}

void tst_importar::theCounterHasSixteenBits()
{
    QString musicas;
    for (int i = 0; i < 32768; ++i)
        musicas += u"<m><titulo>%1</titulo><referencia/><letra1/><letra2/><tom/><variacao/>"
                   "<categoria>1</categoria><temas><d>Louvor</d></temas></m>"_qs.arg(i);
    Carrega_Importar();
    Importa(Arquivo(musicas));
    QCOMPARE(Caixas().size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Critico);
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA JOIN TEMA_MUSICA ON ID = ID_MUSICA"_qs), u"32768"_qs);
}

void tst_importar::aStoreFailureKeepsWhatWasStored()
{
    Carrega_Importar();
    int inseridas = 0;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        m_comandos.append(sql);
        if (sql.startsWith(u"INSERT INTO MUSICA ") && ++inseridas == 3)
            throw RuntimeError(RuntimeError::StoreFailure, u"falhou"_qs, QString());
    });
    QString musicas;
    for (int i = 0; i < 5; ++i)
        musicas += Musica_Xml(QString::number(i), Tema_Xml(u"Louvor"_qs));
    Importa(Arquivo(musicas));
    QCOMPARE(Caixas(), QStringList(u"X falhou"_qs));
    QVERIFY(m_comandos.last().startsWith(u"INSERT INTO MUSICA ")); // nothing is filled anew
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA JOIN TEMA_MUSICA ON ID = ID_MUSICA"_qs), u"2"_qs);
}

void tst_importar::theFormLoadsAndImportsTheCommandLine()
{
    const QString caminho = Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Novo"_qs)), u"É um.mld"_qs);
    PrincipalTeste form(*m_catalogo);
    bool visivel = true;
    m_caixas->whileOpen = [&] { visivel = form.isVisible(); };
    form.Form_Load(u'"' + caminho + u'"');
    QCOMPARE(Caixas(), QStringList(u"i 1 música(s) importada(s) com sucesso!"_qs));
    QVERIFY(!visivel);
    QCOMPARE(form.Acha<ListaMusicas>("lstMusicas")->ListCount(), 1);
}

QTEST_MAIN(tst_importar)
#include "tst_importar.moc"
