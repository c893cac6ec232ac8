#pragma once

#include <QString>

/// What the user should know before songs are written that an exchange file cannot hold as they
/// are. Reads MUSICA, TEMA and TEMA_MUSICA.
struct Aviso_Exportacao
{
    QString resumo; ///< what will happen, and the titles of the first songs concerned; "" for none
    QString todas;  ///< the same with more titles

    /// @param lista  MUSICA.ID each, with a comma behind it
    /// @throws RuntimeError of the store
    static Aviso_Exportacao De(const QString& lista);
};
