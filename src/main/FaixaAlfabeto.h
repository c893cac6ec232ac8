#pragma once

#include <QWidget>

#include <array>

class ClickableLabel;

/// The row of letters "A" to "Z" and "Tudo" (lblAlfa_0 to lblAlfa_26). Tab reaches one of them, the
/// arrow keys go on from there.
class FaixaAlfabeto : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Tudo = 26; ///< index of the label that asks for no first letter

    explicit FaixaAlfabeto(QWidget* parent = nullptr);

    /// Shows which letter the listed songs were asked for by.
    /// @param indice  0 to 25; anything else marks none
    void Marca(int indice);

signals:
    /// @param indice  0 to 25 for a letter, Tudo for all
    void Click(int indice);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void Torna_Alcancavel(int indice);

    std::array<ClickableLabel*, Tudo + 1> m_letras{};
    int m_alcancavel = 0;
};
