#pragma once

#include <QWidget>

#include <array>

class ClickableLabel;

/// The row of letters "A" to "Z" and "Tudo" (lblAlfa_0 to lblAlfa_26). Tab reaches the row, the
/// arrow keys go along it, Space and Enter click; the labels themselves never take the focus.
class FaixaAlfabeto : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Tudo = 26; ///< index of the label that asks for no first letter

    explicit FaixaAlfabeto(QWidget* parent = nullptr);

    /// Shows which letter the listed songs were asked for by.
    /// @param indice  0 to 25; anything else marks none
    void Marca(int indice);

    /// Clicks the letter that the arrow keys are at.
    void Clica();

signals:
    /// @param indice  0 to 25 for a letter, Tudo for all
    void Click(int indice);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

private:
    void Realca(int indice, const char* propriedade, bool realca);
    void Vai_Para(int indice);

    std::array<ClickableLabel*, Tudo + 1> m_letras{};
    int m_atual = 0; ///< where the arrow keys are
};
