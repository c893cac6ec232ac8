#pragma once

#include "artwork/VectorPicture.h"

#include <QWidget>

/// A picture that fills its widget, stretched when the widget has other proportions: a piece
/// of the frame around the sheet, or what stands in the place of a hidden button. It reacts to
/// nothing.
class ImagemSvg : public QWidget
{
    Q_OBJECT

public:
    explicit ImagemSvg(QWidget* parent = nullptr);

    /// @param caminho  the picture's file, from Artwork::Path
    void Mostra_Imagem(const QString& caminho);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    VectorPicture m_imagem;
};
