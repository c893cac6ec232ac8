#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class QTimer;

namespace Ui {
class frmSplash;
}

/// The splash: loads the main form behind it and makes it visible after a short while, or at once
/// for a key or a click. Destroys itself when it closes, so it lives on the heap.
class frmSplash : public QWidget
{
    Q_OBJECT

public:
    /// @param principal  the main form, built but not loaded; lives longer than the splash
    /// @param carrega    loads it
    frmSplash(QWidget& principal, std::function<void()> carrega);
    ~frmSplash() override;

    /// Loads the main form, hidden, and starts the clock; the splash itself is not painted yet. A
    /// failing load is told to the user and ends there.
    /// @throws whatever carrega throws that is no std::exception
    void Form_Load();

    /// Makes the main form visible and closes the splash; once.
    void Inicializar();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    bool focusNextPrevChild(bool proximo) override;

private:
    void Timer1_Timer();
    void Form_KeyPress();
    void Mostra_Logotipo();
    void Centraliza();

    std::unique_ptr<Ui::frmSplash> ui;
    QWidget& m_principal;
    std::function<void()> m_carrega;
    QTimer* Timer1;
    bool m_iniciado = false;
};
