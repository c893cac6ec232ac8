#pragma once

#include <QString>

class ListaMusicas;

/// What the export form asks of the main form, which it does not know itself.
class ServicosExportacao
{
public:
    virtual ~ServicosExportacao() = default;

    /// Runs a query and lists its songs; the main form's count line tells their number. Lets events
    /// run.
    /// @param sql    selects ID, TITULO, REFERENCIA, TOM, VARIACAO and CONTADOR of MUSICA
    /// @param lista  cleared first; may be gone afterwards
    /// @throws RuntimeError of the store
    virtual void Preenche_Musicas(QString sql, ListaMusicas& lista) = 0;
};
