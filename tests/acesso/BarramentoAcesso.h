#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <optional>

/// The accessibility bus of a desktop that a test starts for itself, and the hands and ears of a
/// screen reader on it: programs started in its environment are met there, and nowhere else. Needs
/// dbus-daemon and at-spi2-core.
class BarramentoAcesso
{
public:
    /// A control as the bus knows it.
    struct No
    {
        QString servico;
        QString caminho;
    };

    /// Starts the desktop's bus and asks it for the one of accessibility; ErrorText() tells when
    /// that failed.
    /// @param screen  the environment of the screen that the keys go to
    explicit BarramentoAcesso(const QProcessEnvironment& screen);
    ~BarramentoAcesso();
    BarramentoAcesso(const BarramentoAcesso&) = delete;
    BarramentoAcesso& operator=(const BarramentoAcesso&) = delete;

    QString ErrorText() const { return m_erro; }

    /// @return the environment for a program that is to be met on this bus
    QProcessEnvironment Environment() const { return m_ambiente; }

    /// Waits for a control that is shown. @param papel  the bus's word for its role ("push button")
    /// @return nothing when that took too long
    std::optional<No> Espera(const QString& papel, const QString& nome) const;

    /// @return such a control among those that are shown now
    std::optional<No> Acha(const QString& papel, const QString& nome) const;

    /// Replaces the text of an editable control. @return success
    bool Escreve(const No& no, const QString& texto) const;

    QString Texto(const No& no) const;

    /// Does one of the control's actions ("Press", "SetFocus") and does not wait for what it opens.
    /// @return whether the control offers it
    bool Faz(const No& no, const QString& acao) const;

    /// @return whether the control has a state. @param numero  the bus's number of it
    bool Tem(const No& no, int numero) const;

    /// Asks the bus to press a key, as it does for whoever cannot use a keyboard.
    /// @param simbolo  the key's number in X ("Return" is 0xff0d)
    void Tecla(int simbolo) const;

    /// @return what is shown now, a line each, for the text of a failure
    QString Relatorio() const;

    static constexpr int Focado = 12;
    static constexpr int Marcado = 4;

private:
    bool IniciaSessao();
    QDBusMessage Pede(const No& no, const QString& interface, const QString& metodo,
                      const QVariantList& argumentos = {}) const;
    QList<No> Filhos(const No& no) const;
    QString Nome(const No& no) const;
    QString Papel(const No& no) const;
    std::optional<No> AchaEm(const No& raiz, const QString& papel, const QString& nome,
                             int fundo) const;
    void RelataEm(const No& raiz, int fundo, QString& relatorio) const;

    QTemporaryDir m_pasta;
    QProcess m_sessao;
    QProcessEnvironment m_ambiente;
    QDBusConnection m_acesso{QString()};
    QString m_erro;
};
