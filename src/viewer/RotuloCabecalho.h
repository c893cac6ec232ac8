#pragma once

#include <QLabel>

/// A caption of the header row, as wide as its text. The text stays whole even when the row has no
/// room for it (the song is saved under it): then only the drawing is cut, with an ellipsis, and
/// the tool tip shows all of it.
class RotuloCabecalho : public QLabel
{
    Q_OBJECT

public:
    explicit RotuloCabecalho(QWidget* parent = nullptr);

    /// Sets the text and takes the width that it needs.
    void Mostra_Texto(const QString& texto);

    /// @return the width in pixels that the whole text needs; 0 for an empty text. Of a text that
    /// no
    ///         screen could hold, only the beginning is measured, drawn and shown in the tool tip.
    int Largura_Inteira() const;

    /// Takes a width. @param largura  in pixels; the drawing is cut when the text needs more
    void Limita_Largura(int largura);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString Parte_Visivel() const;

    mutable QString m_medido; ///< the text and its font that m_largura was measured for
    mutable QFont m_fonte;
    mutable int m_largura = 0;
};
