#include "ImportarTeste.h"

#include <QScopeGuard>

#include <netinet/in.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// Sees whoever opens a file.
class Vigia_Arquivo
{
public:
    explicit Vigia_Arquivo(const QString& caminho)
        : m_vigia(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (inotify_add_watch(m_vigia, QFile::encodeName(caminho).constData(), IN_OPEN) < 0)
            qFatal("the file cannot be watched");
    }
    ~Vigia_Arquivo() { ::close(m_vigia); }
    Vigia_Arquivo(const Vigia_Arquivo&) = delete;
    Vigia_Arquivo& operator=(const Vigia_Arquivo&) = delete;

    /// @return whether anybody opened it since the last question
    bool Foi_Aberto() const
    {
        char eventos[4096];
        return ::read(m_vigia, eventos, sizeof eventos) > 0;
    }

private:
    int m_vigia;
};

/// Waits at a port of this machine for whoever connects.
class Vigia_Porta
{
public:
    Vigia_Porta()
        : m_porta(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0))
    {
        auto* onde = reinterpret_cast<sockaddr*>(&m_onde);
        m_onde.sin_family = AF_INET;
        m_onde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t tamanho = sizeof m_onde;
        if (::bind(m_porta, onde, tamanho) != 0 || ::listen(m_porta, 8) != 0 ||
            ::getsockname(m_porta, onde, &tamanho) != 0)
            qFatal("no port to wait at");
    }
    ~Vigia_Porta() { ::close(m_porta); }
    Vigia_Porta(const Vigia_Porta&) = delete;
    Vigia_Porta& operator=(const Vigia_Porta&) = delete;

    QString Endereco() const { return u"127.0.0.1:%1"_qs.arg(ntohs(m_onde.sin_port)); }

    /// Connects itself. @return success
    bool Experimenta() const
    {
        const int cliente = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const auto fecha = qScopeGuard([cliente] { ::close(cliente); });
        return ::connect(cliente, reinterpret_cast<const sockaddr*>(&m_onde), sizeof m_onde) == 0;
    }

    /// @return whether anybody came since the last question
    bool Veio_Alguem() const
    {
        const int cliente = ::accept(m_porta, nullptr, nullptr);
        if (cliente >= 0)
            ::close(cliente);
        return cliente >= 0;
    }

private:
    int m_porta;
    sockaddr_in m_onde{};
};

} // namespace

/// A file that is imported may name other files and machines in every way that XML knows: none of
/// them is opened.
class tst_importar_isolada : public ImportarTeste
{
    Q_OBJECT

private slots:
    void theWatchesSeeWhoComes();
    void nothingIsOpened_data();
    void nothingIsOpened();
};

void tst_importar_isolada::theWatchesSeeWhoComes()
{
    const QString alvo = Arquivo(QString(), u"alvo.xml"_qs);
    Vigia_Arquivo vigia(alvo);
    Vigia_Porta porta;
    QVERIFY(!vigia.Foi_Aberto());
    QVERIFY(!porta.Veio_Alguem());
    QFile arquivo(alvo);
    QVERIFY(arquivo.open(QIODevice::ReadOnly));
    QVERIFY(porta.Experimenta());
    QVERIFY(vigia.Foi_Aberto());
    QVERIFY(porta.Veio_Alguem());
}

void tst_importar_isolada::nothingIsOpened_data()
{
    QTest::addColumn<QString>("documento"); // %1: what it names; %2: a sound song
    QTest::addColumn<bool>("boa");
    const auto linha = [](const char* nome, const QString& documento, bool boa) {
        QTest::newRow(nome) << documento << boa;
    };
    linha("nothing", u"<m>%2</m>"_qs, true);
    linha("an external entity", u"<!DOCTYPE m [<!ENTITY e SYSTEM '%1'>]><m>%2&e;</m>"_qs, false);
    linha("an external entity with a public name",
          u"<!DOCTYPE m [<!ENTITY e PUBLIC 'p' '%1'>]><m>%2&e;</m>"_qs, false);
    linha("an external entity that nobody uses",
          u"<!DOCTYPE m [<!ENTITY e SYSTEM '%1'>]><m>%2</m>"_qs, true);
    linha("an external parameter entity",
          u"<!DOCTYPE m [<!ENTITY % e SYSTEM '%1'> %e;]><m>%2</m>"_qs, false);
    linha("a document type elsewhere", u"<!DOCTYPE m SYSTEM '%1'><m>%2</m>"_qs, false);
    linha("a document type with a public name", u"<!DOCTYPE m PUBLIC 'p' '%1'><m>%2</m>"_qs, false);
    linha("an inclusion",
          u"<m xmlns:x='http://www.w3.org/2001/XInclude'>%2<musica><x:include href='%1'/></musica>"
          "</m>"_qs,
          true);
    linha("a stylesheet", u"<?xml-stylesheet type='text/xsl' href='%1'?><m>%2</m>"_qs, true);
    linha("a schema",
          u"<m xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
          "i:noNamespaceSchemaLocation='%1'>%2</m>"_qs,
          true);
    linha("a base", u"<m xml:base='%1'>%2</m>"_qs, true);
}

void tst_importar_isolada::nothingIsOpened()
{
    QFETCH(QString, documento);
    QFETCH(bool, boa);
    Carrega_Importar();
    const QString alvo = Arquivo(Musica_Xml(u"Mar"_qs, QString()), u"alvo.xml"_qs);
    Vigia_Arquivo vigia(alvo);
    Vigia_Porta porta;
    const QString porto = porta.Endereco();
    const QStringList nomeados{alvo, u"alvo.xml"_qs, u"file://"_qs + alvo,
                               u"http://%1/a.xml"_qs.arg(porto), u"ftp://%1/a.xml"_qs.arg(porto)};
    for (const QString& nomeado : nomeados) {
        QString texto = documento;
        texto.replace(u"%1"_qs, nomeado).replace(u"%2"_qs, Musica_Xml(u"Luz"_qs, QString()));
        QFile arquivo(m_pasta.filePath(u"a.mld"_qs));
        QVERIFY(arquivo.open(QIODevice::WriteOnly));
        arquivo.write(texto.toUtf8());
        arquivo.close();
        m_caixas->boxes.clear();
        Importa(arquivo.fileName());
        QVERIFY2(!vigia.Foi_Aberto(), qPrintable(nomeado));
        QVERIFY2(!porta.Veio_Alguem(), qPrintable(nomeado));
        QCOMPARE(Caixas().contains(u"! Arquivo no formato inválido."_qs), !boa);
    }
    QCOMPARE(Um(u"SELECT count(*) FROM MUSICA WHERE TITULO = 'Mar'"_qs), u"0"_qs);
}

QTEST_MAIN(tst_importar_isolada)
#include "tst_importar_isolada.moc"
