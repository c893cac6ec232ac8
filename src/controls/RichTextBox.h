#pragma once

#include <QTextEdit>

/// The chord sheet's display: takes an RTF document, gives back plain text with CR LF. Positions of
/// its vertical scroll bar are pixels, 0 at the top. Its dynamic property Tag is the forms' to use.
class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Replaces the content. Undo cannot take the document away again.
    /// @param rtf  a document of our RTF subset (controls/RtfReader.h); what it does not know is
    ///             ignored
    void SetTextRTF(const QString& rtf);

    /// @return the RTF document that was set last, or one made from what was typed since.
    QString TextRTF() const;

    /// @return the plain text, lines separated by CR LF; a no-break space stays one.
    QString Text() const;

    /// Replaces the content by a plain text; CR LF, CR and LF break lines.
    void SetText(const QString& text);
};

namespace Funcoes {

/// @return the largest vertical scroll position that the box can reach with its current content,
///         in pixels, once its layout is finished
int Calcula_Limite_Rolagem(RichTextBox& caixa);

} // namespace Funcoes
