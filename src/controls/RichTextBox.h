#pragma once

#include "controls/StandIns.h"

#include <QTextEdit>

namespace Rtf {
struct Document;
}

/// The chord sheet's display: takes an RTF document, gives back plain text with CR LF. Positions of
/// its vertical scroll bar are pixels, 0 at the top. Its dynamic property Tag is the forms' to use.
///
/// Lines never wrap, which would tear chords from their syllables. Dark text on a white sheet,
/// whatever the palette around it.
class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Replaces the content and goes back to its start. Undo cannot take the document away again.
    /// @param rtf  a document of our RTF subset (controls/RtfReader.h); what it does not know is
    ///             ignored
    void SetTextRTF(const QString& rtf);

    /// @return the RTF document that was set last, or one made from what was typed since.
    QString TextRTF() const;

    /// @return the plain text, lines separated by CR LF; a no-break space stays one.
    QString Text() const;

    /// Replaces the content by a plain text in the sheet's current size; CR LF, CR and LF break
    /// lines.
    void SetText(const QString& text);

    /// The colour of the sheet, white at first.
    void SetBackColor(QColor colour);

    /// Finishes the layout of the whole document at the box's real size, also before the box has
    /// been shown; until then the scroll bars know only a part of it.
    void FinishLayout();

signals:
    void GotFocus();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    /// Scrolls, whatever key is held with the wheel: the letters' size is set by the sheet alone.
    void wheelEvent(QWheelEvent* event) override;
    /// Gives the plain text alone as it was put in, its lines separated by LF.
    QMimeData* createMimeDataFromSelection() const override;
    /// Takes the plain text alone (controls/PastedText.h), in the look that the caret stands in.
    void insertFromMimeData(const QMimeData* source) override;

private:
    void Fill(const Rtf::Document& sheet);
    void UseFont(const QString& family, int halfPoints);
    Rtf::Document Sheet() const;

    StandIns m_standIns;
    QString m_rtf;       ///< the document that was set last
    int m_revision = -1; ///< of the text document, when m_rtf was last the same
};

namespace Funcoes {

/// @return the largest vertical scroll position that the box can reach with its current content,
///         in pixels; caret and scroll position stay where they are
int Calcula_Limite_Rolagem(RichTextBox& caixa);

} // namespace Funcoes
