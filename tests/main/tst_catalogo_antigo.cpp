#include "controls/RecordingDialogs.h"
#include "jet/CatalogoAntigo.h"
#include "jet/JetFile.h"
#include "jet/JetReader.h"
#include "main/Conecta_Banco.h"
#include "store/Arquivo.h"
#include "store/Connection.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtEndian>

#include <memory>

namespace {

const QString Nome = u"Melodario.mdb"_qs;
const QString Guardado = u"Melodario (formato antigo).mdb"_qs;

QByteArray Conteudo(const QString& caminho)
{
    QFile arquivo(caminho);
    return arquivo.open(QIODevice::ReadOnly) ? arquivo.readAll() : QByteArray("<nada>");
}

const QString Falha = u"Falha ao acessar o banco de dados. Verifique se o arquivo Melodario.mdb "
                      "encontra-se na mesma pasta do Melodario."_qs;

} // namespace

/// The program meets a catalogue in the older format. It runs in a folder of its own: config.ini
/// and melodario-jet lie beside the executable.
class tst_catalogo_antigo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void asksOnceAndGoesOnWithTheNewCatalogue();
    void theNextStartAsksNothing();
    void noLeavesEverythingAsItIs();
    void whatCannotBeConvertedFailsAndStays_data();
    void whatCannotBeConvertedFailsAndStays();
    void aFolderThatCannotBeWrittenFails();
    void aMissingReaderIsTold();
    void anEarlierOldCatalogueStays();
    void aLinkToTheCatalogueStaysALink();
    void aTypedPathIsOfferedToo();
    void aLongConversionShowsHowFarItIs();
    void whatCannotBeSeenInTimeIsToldAfterwards();
    void aLongListIsToldAfterwardsAndShortened();
    void realBoxesTellAndGoOn();

private:
    QString Caminho(const QString& nome) const { return m_pasta->filePath(nome); }
    QString Catalogo() const { return Caminho(Nome); }
    QStringList Arquivos() const
    {
        return QDir(m_pasta->path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    }
    static void Escreve(const QString& caminho, const QByteArray& conteudo)
    {
        QFile arquivo(caminho);
        if (!arquivo.open(QIODevice::WriteOnly) || arquivo.write(conteudo) != conteudo.size())
            qFatal("not written");
    }
    static void Configura(const QString& caminho)
    {
        Escreve(Funcoes::Caminho_Configuracao(), "[BANCO]\r\nEndereco=" + caminho.toUtf8());
    }
    /// One box, answered, then the failure message and the end of the program.
    void EsperaFalha(Icone primeira = Icone::Pergunta)
    {
        const QStringList antes = Arquivos();
        const QByteArray conteudo = Conteudo(Catalogo());
        QVERIFY_THROWS_EXCEPTION(Fim_Programa, Funcoes::Conecta_Banco());
        QVERIFY(!Funcoes::Conexao.IsOpen());
        QCOMPARE(m_caixas->boxes.size(), 2);
        QCOMPARE(m_caixas->boxes[0].icon, primeira);
        QCOMPARE(m_caixas->boxes[1].text, Falha);
        QCOMPARE(m_caixas->boxes[1].icon, Icone::Critico);
        QCOMPARE(m_caixas->boxes[1].title, u"Melodario"_qs);
        QCOMPARE(Arquivos(), antes);
        QVERIFY(Conteudo(Catalogo()) == conteudo);
    }

    /// Puts a script in the place of the reader. LEITOR in it is the real one.
    static void Poe_Leitor(QByteArray texto)
    {
        QFile::remove(JetReader::Program());
        texto.replace("LEITOR", "'" MELODARIO_JET "' \"$@\"");
        Escreve(JetReader::Program(), "#!/bin/sh\n" + texto + '\n');
        QVERIFY(QFile::setPermissions(JetReader::Program(),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    /// A reader that finds twenty tables more than the file has.
    static void Poe_Leitor_De_Muitas_Tabelas()
    {
        QByteArray quadros;
        for (int i = 1; i <= 20; ++i) {
            const QByteArray nome = "MARCA" + QByteArray::number(i);
            const auto texto = [](const QByteArray& bytes) -> QByteArray {
                return Numero(bytes.size()) + bytes;
            };
            const QByteArray conteudo =
                texto(nome) + Numero(0) + Numero(0) + texto(QByteArray()) + Numero(0);
            quadros += 'T' + Numero(conteudo.size()) + conteudo;
        }
        QByteArray escritos;
        for (const char byte : quadros)
            escritos +=
                '\\' +
                QByteArray::number(static_cast<unsigned char>(byte), 8).rightJustified(3, '0');
        // The first frame tells of the file itself and has 13 bytes.
        Poe_Leitor("LEITOR | { dd bs=1 count=13 2>/dev/null; printf '" + escritos + "'; cat; }");
    }
    /// 32 bits as the reader sends them.
    static QByteArray Numero(qsizetype valor)
    {
        QByteArray bytes(4, '\0');
        qToLittleEndian(static_cast<quint32>(valor), bytes.data());
        return bytes;
    }

    std::unique_ptr<QTemporaryDir> m_pasta;
    std::unique_ptr<RecordingDialogs> m_caixas;
};

void tst_catalogo_antigo::init()
{
    m_pasta = std::make_unique<QTemporaryDir>();
    m_caixas = std::make_unique<RecordingDialogs>();
    if (!QFile::exists(JetReader::Program()))
        QVERIFY(QFile::copy(QStringLiteral(MELODARIO_JET), JetReader::Program()));
    Escreve(Catalogo(), CatalogoAntigo::Conteudo());
    Configura(Catalogo());
}

void tst_catalogo_antigo::cleanup()
{
    if (Funcoes::Conexao.IsOpen())
        Funcoes::Conexao.Close();
    QFile::remove(JetReader::Program());
    QFile::remove(Funcoes::Caminho_Configuracao());
    m_caixas.reset();
}

void tst_catalogo_antigo::asksOnceAndGoesOnWithTheNewCatalogue()
{
    const QByteArray configuracao = Conteudo(Funcoes::Caminho_Configuracao());
    Funcoes::Conecta_Banco();
    QCOMPARE(m_caixas->boxes.size(), 1);
    QCOMPARE(m_caixas->boxes[0].icon, Icone::Pergunta);
    QCOMPARE(m_caixas->boxes[0].title, u"Melodario"_qs);
    QCOMPARE(m_caixas->boxes[0].text,
             u"O banco de dados 'Melodario.mdb' está no formato antigo (Jet). Deseja convertê-lo "
             "agora?\n\nO arquivo antigo continua na mesma pasta, sem nenhuma alteração, com o "
             "nome 'Melodario (formato antigo).mdb'.\n\nO Melodario não conhece, e por isso não "
             "leva para o catálogo novo: a tabela INTERPRETE; a coluna MUSICA.FAVORITA."_qs);
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(Funcoes::Conexao.Execute(u"SELECT * FROM MUSICA"_qs).RecordCount(), 59);
    Funcoes::Desconecta_Banco();
    QCOMPARE(CatalogoAntigo::Diferencas(Catalogo()), QStringList());
    QVERIFY(Conteudo(Caminho(Guardado)) == CatalogoAntigo::Conteudo());
    QCOMPARE(Arquivos(), (QStringList{Guardado, Nome}));
    QCOMPARE(Conteudo(Funcoes::Caminho_Configuracao()), configuracao);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_catalogo_antigo::theNextStartAsksNothing()
{
    Funcoes::Conecta_Banco();
    Funcoes::Desconecta_Banco();
    Funcoes::Conecta_Banco();
    QCOMPARE(m_caixas->boxes.size(), 1);
    QVERIFY(Funcoes::Conexao.IsOpen());
}

void tst_catalogo_antigo::noLeavesEverythingAsItIs()
{
    m_caixas->answer = false;
    EsperaFalha();
    QCOMPARE(Arquivos(), QStringList{Nome});
}

void tst_catalogo_antigo::whatCannotBeConvertedFailsAndStays_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray whole = CatalogoAntigo::Conteudo();
    const QByteArray name("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    QTest::newRow("zeros behind the name") << name + QByteArray(4096, '\0');
    QTest::newRow("the name alone") << name;
    QTest::newRow("half of it") << whole.first(whole.size() / 2);
    QTest::newRow("a table is missing") << CatalogoAntigo::SemTabela("LISTA_MUSICA");
}

void tst_catalogo_antigo::whatCannotBeConvertedFailsAndStays()
{
    QFETCH(QByteArray, content);
    Escreve(Catalogo(), content);
    EsperaFalha();
    QCOMPARE(Arquivos(), QStringList{Nome});
}

void tst_catalogo_antigo::aFolderThatCannotBeWrittenFails()
{
    // A folder in the place of the draft: nobody can write there, whatever his rights.
    QVERIFY(QDir().mkdir(Catalogo() + u".parcial"));
    EsperaFalha();
}

void tst_catalogo_antigo::aMissingReaderIsTold()
{
    QVERIFY(QFile::remove(JetReader::Program()));
    EsperaFalha(Icone::Exclamacao);
    QCOMPARE(m_caixas->boxes[0].text,
             u"O banco de dados 'Melodario.mdb' está no formato antigo (Jet) e não pode ser "
             "convertido aqui. Falta o programa melodario-jet, que lê catálogos no formato antigo "
             "e vem com o Melodario para Linux.\n\nConverta-o uma vez lá: o catálogo convertido "
             "serve em todos os sistemas."_qs);
}

void tst_catalogo_antigo::anEarlierOldCatalogueStays()
{
    Escreve(Caminho(Guardado), "meu");
    Funcoes::Conecta_Banco();
    QVERIFY(m_caixas->boxes[0].text.contains(u"'Melodario (formato antigo 2).mdb'"));
    QCOMPARE(Conteudo(Caminho(Guardado)), QByteArray("meu"));
    QVERIFY(Conteudo(Caminho(u"Melodario (formato antigo 2).mdb"_qs)) ==
            CatalogoAntigo::Conteudo());
}

void tst_catalogo_antigo::aLinkToTheCatalogueStaysALink()
{
    const QString atalho = Caminho(u"atalho.mdb"_qs);
    QVERIFY(QFile::link(Catalogo(), atalho));
    Configura(atalho);
    Funcoes::Conecta_Banco();
    QVERIFY(Funcoes::Conexao.IsOpen());
    QVERIFY(QFileInfo(atalho).isSymLink());
    QVERIFY(!JetFile::Recognises(Catalogo()));
    QCOMPARE(Arquivos(), (QStringList{Guardado, Nome, u"atalho.mdb"_qs}));
}

void tst_catalogo_antigo::aTypedPathIsOfferedToo()
{
    Configura(Caminho(u"nada.mdb"_qs));
    m_caixas->typed = {Catalogo()};
    Funcoes::Conecta_Banco();
    QCOMPARE(m_caixas->boxes.size(), 2);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Pergunta);
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(Funcoes::Le_Configuracao(u"BANCO"_qs, u"Endereco"_qs), Catalogo());
}

void tst_catalogo_antigo::aLongConversionShowsHowFarItIs()
{
    // A reader that takes its time after each beginning.
    Poe_Leitor("sleep 1\nexec LEITOR");
    QStringList vistos;
    QTimer olhar;
    connect(&olhar, &QTimer::timeout, &olhar, [&vistos] {
        for (QWidget* janela : QApplication::topLevelWidgets()) {
            const auto* rotulo = janela->findChild<QLabel*>();
            if (janela->isVisible() && rotulo && !vistos.contains(rotulo->text()))
                vistos += rotulo->text();
        }
    });
    olhar.start(10);
    Funcoes::Conecta_Banco();
    QCOMPARE(vistos, QStringList{u"Convertendo o catálogo..."_qs});
    QVERIFY(Funcoes::Conexao.IsOpen());
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

/// Asked for the tables alone, the reader fails, as it does when it takes too long.
void tst_catalogo_antigo::whatCannotBeSeenInTimeIsToldAfterwards()
{
    Poe_Leitor("test $# -gt 1 && exec LEITOR");
    Funcoes::Conecta_Banco();
    QCOMPARE(m_caixas->boxes.size(), 2);
    QVERIFY2(m_caixas->boxes[0].text.endsWith(
                 u"com o nome 'Melodario (formato antigo).mdb'.\n\n"
                 "O que o Melodario não conhece não é levado para o catálogo novo; se houver algo "
                 "assim, será dito depois da conversão."),
             qPrintable(m_caixas->boxes[0].text));
    QCOMPARE(m_caixas->boxes[1].text,
             u"O catálogo foi convertido.\n\nO Melodario não conhece o que segue, que por isso "
             "ficou só no arquivo antigo, 'Melodario (formato antigo).mdb':\n\n"
             "a tabela INTERPRETE\na coluna MUSICA.FAVORITA"_qs);
    QCOMPARE(m_caixas->boxes[1].icon, Icone::Informacao);
    QCOMPARE(m_caixas->boxes[1].title, u"Melodario"_qs);
    QVERIFY(Funcoes::Conexao.IsOpen());
    QCOMPARE(Arquivos(), (QStringList{Guardado, Nome}));
}

void tst_catalogo_antigo::aLongListIsToldAfterwardsAndShortened()
{
    Poe_Leitor_De_Muitas_Tabelas();
    Funcoes::Conecta_Banco();
    QCOMPARE(m_caixas->boxes.size(), 2);
    QVERIFY2(m_caixas->boxes[0].text.endsWith(
                 u"O Melodario não conhece 22 tabelas e colunas deste arquivo, e por isso não as "
                 "leva para o catálogo novo; depois da conversão será dito quais são."),
             qPrintable(m_caixas->boxes[0].text));
    const QString relatorio = m_caixas->boxes[1].text;
    QVERIFY2(relatorio.contains(u"a tabela MARCA1\na tabela MARCA2\n"), qPrintable(relatorio));
    QVERIFY2(relatorio.endsWith(u"a tabela MARCA12\n... e mais 10"), qPrintable(relatorio));
    QVERIFY(Funcoes::Conexao.IsOpen());
}

void tst_catalogo_antigo::realBoxesTellAndGoOn()
{
    m_caixas.reset();
    Poe_Leitor_De_Muitas_Tabelas();
    QStringList vistas;
    QTimer olhar;
    connect(&olhar, &QTimer::timeout, &olhar, [&vistas] {
        auto* caixa = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!caixa)
            return;
        vistas += caixa->text();
        // All of it is on the screen.
        QVERIFY2(caixa->screen()->availableGeometry().contains(caixa->frameGeometry()),
                 qPrintable(caixa->text()));
        QAbstractButton* const sim = caixa->button(QMessageBox::Yes);
        QTest::mouseClick(sim ? sim : caixa->button(QMessageBox::Ok), Qt::LeftButton);
    });
    olhar.start(10);
    Funcoes::Conecta_Banco();
    QCOMPARE(vistas.size(), 2);
    QVERIFY(vistas[0].contains(u"Deseja convertê-lo agora?"));
    QVERIFY(vistas[1].startsWith(u"O catálogo foi convertido."));
    QVERIFY(Funcoes::Conexao.IsOpen());
}

QTEST_MAIN(tst_catalogo_antigo)
#include "tst_catalogo_antigo.moc"
