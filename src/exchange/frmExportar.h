#pragma once

#include <QDialog>

#include <memory>

class ServicosExportacao;
struct Destino_Exportacao;

namespace Ui {
class frmExportar;
}

/// Lists the songs that are about to be exported and writes them into one file or one per song.
/// While it writes it cannot be closed.
class frmExportar : public QDialog
{
    Q_OBJECT

public:
    /// @param principal  outlives the form
    frmExportar(ServicosExportacao& principal, QWidget* parent);
    ~frmExportar() override;

    /// Lists the songs and tells which of them a file cannot hold as they are, unless the store
    /// fails to say. Lets events run. Reads MUSICA, TEMA and TEMA_MUSICA.
    /// @param MusicasExportar  MUSICA.ID each, with a comma behind it
    /// @return false when the form was closed meanwhile; it may be gone then
    /// @throws RuntimeError of the store
    bool Inicializa(QString MusicasExportar);

    /// Shows the form until it is closed. @throws RuntimeError StoreFailure of the commit before it
    void ShowModal();

    void reject() override;

protected:
    void showEvent(QShowEvent* evento) override;

private:
    class Escrita;

    void cmdExportar_Click();
    void cmdCancelar_Click();
    void lstExportar_KeyDown(int tecla);
    void lblAviso_Click();
    Destino_Exportacao Escolhe_Destino();
    bool Exporta(const Destino_Exportacao& destino);
    void Mostra_Aviso();

    std::unique_ptr<Ui::frmExportar> ui;
    ServicosExportacao& m_principal;
    QString Lista_Exportar;
    QString m_aviso; ///< with all the titles that it names
    bool m_escrevendo = false;
};
