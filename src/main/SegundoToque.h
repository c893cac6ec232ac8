#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>

class ListBox;
class QMouseEvent;
class QWindow;

/// The second press of a double click on a list that goes away with the first one, which takes the
/// focus from its box. Whoever presses twice means the item that was there: for as long as the
/// system's double click may take, the second press at that place counts as the double click on it
/// and reaches nothing of what lies beneath.
class SegundoToque : public QObject
{
    Q_OBJECT

public:
    /// @param lista  the owner
    explicit SegundoToque(ListBox& lista);

signals:
    /// @param dado  the item's data
    void DblClick(double dado);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    enum class Espera { Nada, SegundaVez, Soltar };

    void Primeiro(const QMouseEvent& toque);
    bool Segundo(const QMouseEvent& toque);
    void Termina();

    ListBox& m_lista;
    QPointer<QWindow> m_janela; ///< whose presses are looked at
    Espera m_espera = Espera::Nada;
    QRect m_lugar; ///< of the item, on the screen
    double m_dado = 0;
    quint64 m_instante = 0; ///< of the first press, ms
};
