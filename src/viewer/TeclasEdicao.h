#pragma once

#include <QObject>

class QWidget;

/// While a song is edited, keeps keys away from where they would do harm: the repetitions of the
/// key that began the editing, still held down, from the text; and all but moving on and pressing
/// from the buttons, which may have the focus then.
class TeclasEdicao : public QObject
{
    Q_OBJECT

public:
    explicit TeclasEdicao(QObject* parent);

    /// Looks at the keys of a control before those who watch it already.
    void Vigia(QWidget* controle);

    void Comeca();
    void Termina();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_editando = false;
    bool m_primeira = false; ///< no key was pressed anew since editing began
};
