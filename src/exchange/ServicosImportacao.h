#pragma once

/// What the import asks of the main form, which it does not know itself.
class ServicosImportacao
{
public:
    virtual ~ServicosImportacao() = default;

    /// Fills the search panel's themes anew. @throws RuntimeError of the store
    virtual void Preenche_Temas() = 0;

    /// Searches anew by what the search panel's controls say. Lets events run.
    /// @throws RuntimeError of the store
    virtual void Pesquisa() = 0;
};
