#pragma once

#include "main/Painel.h"

#include <memory>

namespace Ui {
class PainelLista;
}

/// The setlist panel.
class PainelLista : public Painel
{
    Q_OBJECT

public:
    explicit PainelLista(QWidget* parent = nullptr);
    ~PainelLista() override;

    /// Prepares the panel.
    void Inicializa_Lista();

    /// @return true when the setlist has no unsaved changes or the user gives them up
    bool Verifica_Modificacoes();

    /// Gives the focus to txtNome.
    void Foca_Nome();

private:
    std::unique_ptr<Ui::PainelLista> ui;
};
