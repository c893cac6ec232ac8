#pragma once

#include "main/Painel.h"

#include <memory>

namespace Ui {
class PainelCadastro;
}

/// The song entry panel.
class PainelCadastro : public Painel
{
    Q_OBJECT

public:
    explicit PainelCadastro(QWidget* parent = nullptr);
    ~PainelCadastro() override;

    /// Prepares the panel. @param id  MUSICA.ID; 0 for a new song
    void Inicializa_Cadastro(double id);

    /// Deletes the song that the panel holds, after a question.
    void cmdExcluir_Click();

    /// Gives the focus to txtCadTitulo.
    void Foca_Titulo();

private:
    std::unique_ptr<Ui::PainelCadastro> ui;
};
