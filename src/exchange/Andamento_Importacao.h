#pragma once

#include <QPointer>
#include <QProgressDialog>

/// Shows how far an import has come once it takes longer than a moment, keeps the windows painted
/// and lets the user stop it.
class Andamento_Importacao
{
public:
    /// @param dono  nullptr for a window of its own
    explicit Andamento_Importacao(QWidget* dono);
    ~Andamento_Importacao();
    Andamento_Importacao(const Andamento_Importacao&) = delete;
    Andamento_Importacao& operator=(const Andamento_Importacao&) = delete;

    /// Lets events run; before the window is shown none of the user's, so that no other action
    /// begins meanwhile.
    /// @param parte  of the whole, from 0 to 1
    /// @return false when the user does not want any more
    bool Avanca(double parte);

private:
    QPointer<QProgressDialog> m_janela; ///< goes with its owner
};
