#pragma once

#include <QFrame>
#include <QPointer>

#include <array>

class ClickableLabel;
class ImageButton;

/// The on-screen keyboard pctTeclado: for searching with the mouse or a finger alone. It hangs
/// below the box that it was opened for and types into whatever control has the focus; neither it
/// nor its keys ever take the focus themselves.
class TecladoVirtual : public QFrame
{
    Q_OBJECT

public:
    explicit TecladoVirtual(QWidget* parent = nullptr);

    /// Gives a box the focus and shows the keyboard 60 twips below it, aligned with its left edge,
    /// moved as far as it takes to stay inside the parent.
    /// @param caixa  somewhere below the keyboard's parent
    void Mostra_Teclado(QWidget& caixa);

    void Oculta_Teclado();

    /// @return the capital that an accent key makes of the letter typed after it; a null character
    ///         where code page 1252 has none
    /// @param acento  ´ ^ or ~
    static QChar Acentuada(QChar acento, QChar letra);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;

private:
    void Monta_Teclas();
    void Posiciona();
    bool Toca_Entre_Teclas(QEvent& evento);
    int Tecla_Perto(const QPoint& lugar) const;

    void lblTecla_Click(int indice);
    void lblTecla_MouseMove(int indice);
    void imgFecharTeclado_Click();

    void Digita(QWidget& alvo, int indice);
    static void Aperta(QWidget& alvo, int tecla, const QString& texto);

    static constexpr int MaiorIndice = 256;

    QWidget* pctTeclas;
    ImageButton* imgFecharTeclado;
    std::array<ClickableLabel*, MaiorIndice + 1> lblTecla{}; ///< by code; nullptr where none is

    int m_tocada = 0; ///< the key whose gap the left button went down in
    QPoint m_lugar;   ///< where the box wants it, in the parent's pixels

    QChar m_acento;                ///< typed with the last key; null when that was none
    QPointer<QWidget> m_acentuado; ///< the control that got it
};
