#pragma once

#include <QLineEdit>

/// A box for a text of fixed places, such as the date "##/##/####": each # of the mask is the place
/// of a digit, anything else stands there as it is, and a missing digit shows as '_'. The text
/// always has the length of the mask, so a date that is not finished can be told from a short one.
///
/// Typing overwrites the place at the caret and skips what stands fixed; a wrong key is refused.
/// '/' finishes a field: it fills a single digit up with a zero and goes on to the next one.
/// Backspace takes the digit before the caret, Delete the next one of the field behind it, and what
/// is selected is emptied; nothing ever moves to another place. A pasted date replaces the whole
/// text, other digits are filled in from the caret on, and anything else is refused.
class MaskEdit : public QLineEdit
{
    Q_OBJECT
    /// "" for none: the box then takes any text.
    Q_PROPERTY(QString Mask READ Mask WRITE SetMask)

public:
    explicit MaskEdit(QWidget* parent = nullptr);

    const QString& Mask() const { return m_mask; }

    /// The present text stays where it fits the mask, is filled in as if pasted where it does not,
    /// and goes where it cannot be.
    void SetMask(const QString& mask);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    class Keeper;

    QString EmptyText() const;
    bool IsFixed(qsizetype place) const { return m_mask[place] != u'#'; }
    bool Fits(const QString& text) const;
    void Correct(QString& text, int& caret) const;
    bool Paste(const QString& pasted, QString& text, int& caret) const;
    bool Put(QChar sign, QString& text, int& caret) const;
    void FinishField(QString& text, int& caret) const;
    void NotePlace();
    void TakeBefore();
    void TakeBehind();

    QString m_mask;
    QString m_kept; ///< the last text that fitted; empty without a mask
    int m_from = 0; ///< where the selection begins or, without one, the caret is; from 0
};

namespace Funcoes {

/// Writes a text into a masked box past its mask: the mask is taken off and put back, so a whole
/// date such as 05/03/2009 is accepted as it is. "" empties the box.
void Escreve_Maskedit(MaskEdit& txtMask, const QString& Valor);

} // namespace Funcoes
