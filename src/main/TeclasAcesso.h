#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QKeySequence;
class QMainWindow;
class QMenuBar;

/// Whom an access key belongs to. The menu entries stand directly in the menu bar, so their letters
/// collide with those of the panels; the control of the shown panel wins. The menu is always
/// reached with F10, and left with F10 or Esc, which gives the focus back.
class TeclasAcesso : public QObject
{
    Q_OBJECT

public:
    /// @param formulario  also the owner; its shown panel's controls are those that are visible
    TeclasAcesso(QMainWindow& formulario, QMenuBar& menu);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    bool Entrega_Ao_Painel(const QKeySequence& tecla);
    void Entra_Ou_Sai_Do_Menu();
    void Devolve_Foco();

    QMainWindow& m_formulario;
    QMenuBar& m_menu;
    QPointer<QWidget> m_focoAntes;
};
