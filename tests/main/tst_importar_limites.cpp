#include "ImportarTeste.h"

#include "controls/FileDialogs.h"
#include "exchange/Texto_Defeitos.h"
#include "mld/ExchangeXml.h"
#include "mld/SongCollector.h"

#include <QLabel>

#include <cstdlib>

/// What an import meets at its edges: files that are odd, too large or in motion, and forms that go
/// while something is open.
class tst_importar_limites : public ImportarTeste
{
    Q_OBJECT

private slots:
    void aPathThatEndsInTheLettersAloneIsAccepted();
    void aFileThatCannotBeReadIsRefused();
    void aMarkedLineBreakInATitleIsOneInTheQuestion();
    void theFormClosedWhileThePickerIsOpenEndsIt();
    void theFormClosedWhileFaultySongsAreToldOfEndsIt();
    void aLetterLosesItsMark();
    void theReportEndsBehindTwelveSongs_data();
    void theReportEndsBehindTwelveSongs();
    void elevenMillionBytesInOneField_data();
    void elevenMillionBytesInOneField();
    void aTextThatIsTooLongIsToldOf();
    void aFileThatIsCutShortWhileItIsReadIsRefused();
};

void tst_importar_limites::aPathThatEndsInTheLettersAloneIsAccepted()
{
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)), u"cancoesmld"_qs));
    QCOMPARE(Caixas(), QStringList(u"i 1 música(s) importada(s) com sucesso!"_qs));
}

void tst_importar_limites::aFileThatCannotBeReadIsRefused()
{
    // What the system itself keeps from everybody: an address that nothing is mapped at.
    const QString caminho = m_pasta.filePath(u"memoria.mld"_qs);
    QVERIFY(QFile::link(u"/proc/self/mem"_qs, caminho));
    Carrega_Importar();
    Importa(caminho);
    QCOMPARE(Caixas(), QStringList(u"! Arquivo no formato inválido."_qs));
    QCOMPARE(m_comandos, QStringList());
}

void tst_importar_limites::aMarkedLineBreakInATitleIsOneInTheQuestion()
{
    Musica(u"Luz\r\nMar"_qs, {}, TestSong{.reference = u"Ana"_qs});
    Carrega_Importar();
    Importa(Arquivo(Musica_Xml(u"Luz[br]Mar"_qs, Tema_Xml(u"Louvor"_qs))));
    QCOMPARE(Caixas().first(), u"? A música 'Luz\r\nMar' já encontra-se no Banco de Dados. Deseja "
                               "importar assim mesmo?"_qs);
}

void tst_importar_limites::theFormClosedWhileThePickerIsOpenEndsIt()
{
    const QString arquivo = Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)));
    Carrega_Importar();
    RecordingFileDialogs escolhas;
    escolhas.chosen = {arquivo};
    escolhas.whileOpen = [this] { m_form->close(); };
    m_form->frmPrincipal::mnuImportar_Click();
    QCOMPARE(escolhas.requests.size(), 1);
    QCOMPARE(Caixas(), QStringList());
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
}

void tst_importar_limites::theFormClosedWhileFaultySongsAreToldOfEndsIt()
{
    Carrega_Importar();
    m_caixas->whileOpen = [this] { m_form->close(); };
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs)) + u"<musica/>"_qs));
    QCOMPARE(Caixas().size(), 1);
    QVERIFY(Caixas().first().startsWith(u"! 1 música(s) do arquivo"_qs));
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
}

void tst_importar_limites::aLetterLosesItsMark()
{
    Musica(u"Zelo"_qs);
    Carrega_Importar();
    Clica_Letra(0);
    QTRY_COMPARE(Contagem(), u"0 Registro(s) Encontrado(s)."_qs);
    const QFont marcada = Acha<QLabel>("lblAlfa_0")->font();
    const QPalette cores = Acha<QLabel>("lblAlfa_0")->palette();
    Importa(Arquivo(Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs))));
    QCOMPARE(Titulos(), QStringList({u"Luz"_qs, u"Zelo"_qs}));
    QVERIFY(Acha<QLabel>("lblAlfa_0")->font() != marcada ||
            Acha<QLabel>("lblAlfa_0")->palette() != cores);
    QCOMPARE(Acha<QLabel>("lblAlfa_0")->font(), Acha<QLabel>("lblAlfa_1")->font());
    QCOMPARE(Acha<QLabel>("lblAlfa_0")->palette(), Acha<QLabel>("lblAlfa_1")->palette());
}

void tst_importar_limites::theReportEndsBehindTwelveSongs_data()
{
    QTest::addColumn<int>("quantas");
    QTest::addColumn<QString>("resto");
    QTest::newRow("twelve") << 12 << QString();
    QTest::newRow("thirteen") << 13 << u"... e mais 1"_qs;
    QTest::newRow("a hundred") << 100 << u"... e mais 88"_qs;
    QTest::newRow("more than are kept") << 250 << u"... e mais 238"_qs;
}

void tst_importar_limites::theReportEndsBehindTwelveSongs()
{
    QFETCH(int, quantas);
    QFETCH(QString, resto);
    Carrega_Importar();
    QString ma = Musica_Xml(u"Mar"_qs, QString());
    ma.remove(u"<tom>C</tom>"_qs);
    Importa(Arquivo(ma.repeated(quantas) + Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs))));
    QStringList esperadas{
        u"! %1 música(s) do arquivo não pode(m) ser importada(s):"_qs.arg(quantas), QString()};
    for (int i = 1; i <= 12; ++i)
        esperadas.append(u"%1ª ‘Mar’: falta tom"_qs.arg(i));
    if (!resto.isEmpty())
        esperadas.append(resto);
    QCOMPARE(Caixas(),
             QStringList({esperadas.join(u'\n'), u"i 1 música(s) importada(s) com sucesso!"_qs}));
}

void tst_importar_limites::elevenMillionBytesInOneField_data()
{
    QTest::addColumn<QString>("antes");
    QTest::addColumn<QString>("depois");
    QTest::addColumn<QString>("mensagem");
    QTest::newRow("as text") << QString() << QString()
                             << u"i 1 música(s) importada(s) com sucesso!"_qs;
    // The parser's own limit: whoever lifts it lifts those that keep bombs away, too.
    QTest::newRow("as a marked section")
        << u"<![CDATA["_qs << u"]]>"_qs << u"! Arquivo no formato inválido."_qs;
}

void tst_importar_limites::elevenMillionBytesInOneField()
{
    QFETCH(QString, antes);
    QFETCH(QString, depois);
    QFETCH(QString, mensagem);
    const QString longo = u"Amor "_qs.repeated(11'000'000 / 5);
    Carrega_Importar();
    QString musica = Musica_Xml(u"Luz"_qs, Tema_Xml(u"Louvor"_qs));
    musica.replace(u"C[br]a"_qs, antes + longo + depois);
    Importa(Arquivo(musica));
    QCOMPARE(Caixas(), QStringList(mensagem));
    const bool lida = mensagem.startsWith(u'i');
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA"_qs), lida ? u"1"_qs : u"0"_qs);
    QVERIFY(!lida || Um(u"SELECT MUSICA FROM MUSICA"_qs) == longo);
}

void tst_importar_limites::aTextThatIsTooLongIsToldOf()
{
    constexpr std::size_t Mais_Longo = 1000; // bytes, far less than anybody waits for
    const QString longa =
        Musica_Xml(u"Longa"_qs, QString()).replace(u"C[br]a"_qs, u"Amor "_qs.repeated(200));
    const QString musicas =
        Musica_Xml(u"Luz"_qs, QString()) + longa + Musica_Xml(u"Mar"_qs, QString()) + longa;
    QByteArray resto = (u"<musicas>"_qs + musicas + u"</musicas>"_qs).toUtf8();
    SongCollector coletor(Mais_Longo);
    QVERIFY(ExchangeXml::Parse([&resto] { return std::exchange(resto, {}); }, true, coletor));
    const ExchangeSongs lidas = coletor.Take();
    QCOMPARE(lidas.Count(), 2);
    QCOMPARE(Texto_Defeitos(lidas), u"2 música(s) do arquivo não pode(m) ser importada(s):\n\n"
                                    "2ª: texto longo demais\n4ª: texto longo demais"_qs);
}

void tst_importar_limites::aFileThatIsCutShortWhileItIsReadIsRefused()
{
    Carrega_Importar();
    const QString caminho =
        Arquivo(Musica_Xml(u"x"_qs.repeated(1000), Tema_Xml(u"Louvor"_qs)).repeated(20000));
    bool cortado = false;
    // Events run while it is read.
    QTimer relogio;
    QObject::connect(&relogio, &QTimer::timeout, &relogio, [&] {
        if (m_comandos.isEmpty())
            cortado = QFile::resize(caminho, 100) || cortado;
    });
    relogio.start(0);
    Importa(caminho);
    QVERIFY(cortado);
    QCOMPARE(Caixas(), QStringList(u"! Arquivo no formato inválido."_qs));
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA"_qs), u"0"_qs);
}

QTEST_MAIN(tst_importar_limites)
#include "tst_importar_limites.moc"
