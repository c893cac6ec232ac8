#pragma once

#include <QTextEdit>

/// The chord sheet's display: takes an RTF document, gives back plain text with CR LF. Positions of
/// its vertical scroll bar are pixels, 0 at the top. Its dynamic property Tag is the forms' to use.
/// Lines do not wrap: a chord would leave its syllable.
class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Replaces the content, the caret at its start. Undo cannot take the document away again.
    /// @param rtf  a document of our RTF subset (controls/RtfReader.h)
    void SetTextRTF(QStringView rtf);

    /// Replaces the content by a plain text; CR LF, CR and LF break lines.
    void SetText(const QString& text);

    /// @return the plain text, lines separated by CR LF; a no-break space stays one.
    QString Text() const;

    /// Finishes the layout of the whole document at the box's real size, also before the box has
    /// been shown; until then the scroll bars know only a part of it.
    void FinishLayout();
};

namespace Funcoes {

/// @return the largest vertical scroll position that the box can reach with its current content,
///         in pixels; caret and scroll position stay where they are
int Calcula_Limite_Rolagem(RichTextBox& caixa);

} // namespace Funcoes
