#include "acesso/BarramentoAcesso.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTest>

namespace {

constexpr int PacienciaMs = 60000; // long, since each wait ends as soon as it may
constexpr int InicioMs = 20000;
constexpr int Mostrado = 25; // the bus's number of the state
constexpr int MaisFilhos = 80;
constexpr int MaisFundo = 12;

const QString Acessivel = u"org.a11y.atspi.Accessible"_qs;
const QString Registro = u"org.a11y.atspi.Registry"_qs;
const BarramentoAcesso::No Raiz{Registro, u"/org/a11y/atspi/accessible/root"_qs};

} // namespace

BarramentoAcesso::BarramentoAcesso(const QProcessEnvironment& screen)
    : m_ambiente(screen)
{
    // The bus leaves its socket there.
    m_ambiente.insert(u"XDG_RUNTIME_DIR"_qs, m_pasta.path());
    m_ambiente.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_qs, u"1"_qs);
    if (!IniciaSessao())
        return;
    const auto sessao = QDBusConnection::connectToBus(
        m_ambiente.value(u"DBUS_SESSION_BUS_ADDRESS"_qs), u"sessao"_qs);
    const QDBusMessage resposta =
        sessao.call(QDBusMessage::createMethodCall(u"org.a11y.Bus"_qs, u"/org/a11y/bus"_qs,
                                                   u"org.a11y.Bus"_qs, u"GetAddress"_qs),
                    QDBus::Block, InicioMs);
    m_acesso =
        QDBusConnection::connectToBus(resposta.arguments().value(0).toString(), u"acesso"_qs);
    if (!m_acesso.isConnected())
        m_erro =
            u"no accessibility bus: "_qs + resposta.errorMessage() + m_acesso.lastError().message();
}

BarramentoAcesso::~BarramentoAcesso()
{
    m_acesso = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(u"acesso"_qs);
    QDBusConnection::disconnectFromBus(u"sessao"_qs);
    // What it started ends with it.
    m_sessao.terminate();
    if (!m_sessao.waitForFinished(InicioMs))
        m_sessao.kill();
}

bool BarramentoAcesso::IniciaSessao()
{
    m_sessao.setProcessEnvironment(m_ambiente);
    m_sessao.start(u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs});
    if (!m_sessao.waitForReadyRead(InicioMs)) {
        m_erro = u"dbus-daemon: "_qs + m_sessao.errorString();
        return false;
    }
    m_ambiente.insert(u"DBUS_SESSION_BUS_ADDRESS"_qs,
                      QString::fromLatin1(m_sessao.readLine().trimmed()));
    return true;
}

QDBusMessage BarramentoAcesso::Pede(const No& no, const QString& interface, const QString& metodo,
                                    const QVariantList& argumentos) const
{
    QDBusMessage pedido = QDBusMessage::createMethodCall(no.servico, no.caminho, interface, metodo);
    pedido.setArguments(argumentos);
    return m_acesso.call(pedido, QDBus::Block, InicioMs);
}

QList<BarramentoAcesso::No> BarramentoAcesso::Filhos(const No& no) const
{
    QList<No> filhos;
    const QVariant resposta = Pede(no, Acessivel, u"GetChildren"_qs).arguments().value(0);
    if (!resposta.canConvert<QDBusArgument>())
        return filhos; // gone meanwhile
    const auto lista = resposta.value<QDBusArgument>();
    lista.beginArray();
    while (!lista.atEnd() && filhos.size() < MaisFilhos) {
        No filho;
        QDBusObjectPath caminho;
        lista.beginStructure();
        lista >> filho.servico >> caminho;
        lista.endStructure();
        filho.caminho = caminho.path();
        filhos.append(filho);
    }
    lista.endArray(); // else what read it is never freed
    return filhos;
}

QString BarramentoAcesso::Nome(const No& no) const
{
    const QDBusMessage resposta =
        Pede(no, u"org.freedesktop.DBus.Properties"_qs, u"Get"_qs, {Acessivel, u"Name"_qs});
    return resposta.arguments().value(0).value<QDBusVariant>().variant().toString();
}

QString BarramentoAcesso::Papel(const No& no) const
{
    return Pede(no, Acessivel, u"GetRoleName"_qs).arguments().value(0).toString();
}

bool BarramentoAcesso::Tem(const No& no, int numero) const
{
    const QVariant resposta = Pede(no, Acessivel, u"GetState"_qs).arguments().value(0);
    if (!resposta.canConvert<QDBusArgument>())
        return false;
    QList<uint> palavras;
    resposta.value<QDBusArgument>() >> palavras;
    return ((palavras.value(numero / 32) >> (numero % 32)) & 1U) != 0;
}

std::optional<BarramentoAcesso::No> BarramentoAcesso::AchaEm(const No& raiz, const QString& papel,
                                                             const QString& nome, int fundo) const
{
    const QString este = Papel(raiz);
    // The bus's own root and the program itself are shown nowhere; menu entries do not say so.
    if (fundo > 1 && este != u"menu item" && !Tem(raiz, Mostrado))
        return std::nullopt;
    if (este == papel && Nome(raiz) == nome)
        return raiz;
    if (fundo == MaisFundo)
        return std::nullopt;
    const QList<No> filhos = Filhos(raiz);
    for (const No& filho : filhos) {
        if (auto achado = AchaEm(filho, papel, nome, fundo + 1))
            return achado;
    }
    return std::nullopt;
}

std::optional<BarramentoAcesso::No> BarramentoAcesso::Acha(const QString& papel,
                                                           const QString& nome) const
{
    return AchaEm(Raiz, papel, nome, 0);
}

std::optional<BarramentoAcesso::No> BarramentoAcesso::Espera(const QString& papel,
                                                             const QString& nome) const
{
    std::optional<No> achado;
    (void)QTest::qWaitFor(
        [&] {
            achado = Acha(papel, nome);
            return achado.has_value();
        },
        PacienciaMs);
    return achado;
}

bool BarramentoAcesso::Escreve(const No& no, const QString& texto) const
{
    return Pede(no, u"org.a11y.atspi.EditableText"_qs, u"SetTextContents"_qs, {texto})
        .arguments()
        .value(0)
        .toBool();
}

QString BarramentoAcesso::Texto(const No& no) const
{
    return Pede(no, u"org.a11y.atspi.Text"_qs, u"GetText"_qs, {0, -1})
        .arguments()
        .value(0)
        .toString();
}

bool BarramentoAcesso::Faz(const No& no, const QString& acao) const
{
    const QString interface = u"org.a11y.atspi.Action"_qs;
    const QVariant resposta = Pede(no, interface, u"GetActions"_qs).arguments().value(0);
    if (!resposta.canConvert<QDBusArgument>())
        return false;
    const auto lista = resposta.value<QDBusArgument>();
    int indice = -1;
    lista.beginArray();
    for (int i = 0; !lista.atEnd(); ++i) {
        QString nome;
        QString descricao;
        QString tecla;
        lista.beginStructure();
        lista >> nome >> descricao >> tecla;
        lista.endStructure();
        if (nome == acao)
            indice = i;
    }
    lista.endArray();
    QDBusMessage pedido =
        QDBusMessage::createMethodCall(no.servico, no.caminho, interface, u"DoAction"_qs);
    pedido.setArguments({indice});
    return indice >= 0 && m_acesso.send(pedido); // a box that opens answers when it is closed
}

void BarramentoAcesso::Tecla(int simbolo) const
{
    constexpr uint Simbolo = 3; // pressed and released, named by its symbol
    Pede({Registro, u"/org/a11y/atspi/registry/deviceeventcontroller"_qs},
         u"org.a11y.atspi.DeviceEventController"_qs, u"GenerateKeyboardEvent"_qs,
         {simbolo, QString(), Simbolo});
}

void BarramentoAcesso::RelataEm(const No& raiz, int fundo, QString& relatorio) const
{
    relatorio += QString(fundo, u' ') + Papel(raiz) + u" | "_qs + Nome(raiz) + u'\n';
    if (fundo == MaisFundo)
        return;
    const QList<No> filhos = Filhos(raiz);
    for (const No& filho : filhos) {
        if (fundo < 1 || Tem(filho, Mostrado))
            RelataEm(filho, fundo + 1, relatorio);
    }
}

QString BarramentoAcesso::Relatorio() const
{
    QString relatorio = u"\n"_qs;
    RelataEm(Raiz, 0, relatorio);
    return relatorio;
}
