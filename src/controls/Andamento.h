#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

/// Shows how far a long work has come once it has gone on for a moment, and keeps the windows
/// painted. Nothing stops it: the window has no button and refuses to be closed while its owner is
/// there.
class Andamento
{
public:
    /// @param dono    nullptr for a window of its own
    /// @param titulo  of the window
    /// @param texto   above the bar: what is going on
    Andamento(QWidget* dono, QString titulo, QString texto);
    ~Andamento();
    Andamento(const Andamento&) = delete;
    Andamento& operator=(const Andamento&) = delete;

    /// Lets events run now and then; before the window is shown none of the user's, so that no
    /// other action begins meanwhile. @param parte  of the whole, from 0 to 1
    void Avanca(double parte);

    /// Takes the window away, since nobody could answer a box below it. It comes back when the
    /// work has gone on for another moment.
    void Suspende();

private:
    class Janela;

    void Mostra();

    QString m_titulo;
    QString m_texto;
    QPointer<QWidget> m_dono;
    bool m_temDono;
    QPointer<Janela> m_janela; ///< goes with its owner
    QElapsedTimer m_desde;
    QElapsedTimer m_eventos; ///< since events ran last
};
