#pragma once

#include "pictures/ScreenPictures.h"

#include <QMap>

class QComboBox;

/// Writes down every text that the windows in front show, with the control that shows it.
class ColetorTextos final : public Telas::Pictures
{
public:
    ColetorTextos()
        : Pictures(QString())
    {
    }

    void Save(const QString& name) override;

    /// Pairs of a control ("lblTitulo.texto", of other forms than the main one
    /// "frmVisualizar/lblTitulo.texto") and a text, each with the screen that showed it first.
    QMap<QPair<QString, QString>, QString> vistos;

private:
    void Janela(QWidget& janela);
    void Caixa(QWidget& janela);
    void Controle(const QWidget& controle);
    void Itens(const QWidget& controle);
    void Acoes(const QWidget& barra);
    void Anota(const QString& onde, const QString& texto);

    QString m_tela;
    QString m_formulario; ///< "frmVisualizar/"; of the main form ""
};
