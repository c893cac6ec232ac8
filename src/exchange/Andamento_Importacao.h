#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

/// Shows how far an import has come once it has gone on for a moment, and keeps the windows
/// painted. Nothing stops an import: the window has no button and refuses to be closed while its
/// owner is there.
class Andamento_Importacao
{
public:
    /// @param dono  nullptr for a window of its own
    explicit Andamento_Importacao(QWidget* dono);
    ~Andamento_Importacao();
    Andamento_Importacao(const Andamento_Importacao&) = delete;
    Andamento_Importacao& operator=(const Andamento_Importacao&) = delete;

    /// Lets events run now and then; before the window is shown none of the user's, so that no
    /// other action begins meanwhile. @param parte  of the whole, from 0 to 1
    void Avanca(double parte);

    /// Takes the window away, since nobody could answer a box below it. It comes back when the
    /// import has gone on for another moment.
    void Suspende();

private:
    class Janela;

    void Mostra();

    QPointer<QWidget> m_dono;
    bool m_temDono;
    QPointer<Janela> m_janela; ///< goes with its owner
    QElapsedTimer m_desde;
    QElapsedTimer m_eventos; ///< since events ran last
};
