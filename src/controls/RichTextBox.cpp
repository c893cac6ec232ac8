#include "controls/RichTextBox.h"

#include "controls/Appearance.h"
#include "controls/RtfReader.h"

#include <QCoreApplication>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace {

constexpr int SongHalfPoints = 34; // as a chord sheet at its normal size

QTextCharFormat PlainFormat(int halfPoints)
{
    QTextCharFormat format;
    format.setFontFamilies({Appearance::MonospacedFamily()});
    format.setFontFixedPitch(true);
    format.setFontPointSize(halfPoints / 2.0);
    return format;
}

QTextCharFormat FormatOf(const RtfDocument::Run& run)
{
    QTextCharFormat format = PlainFormat(run.halfPoints);
    if (run.bold)
        format.setFontWeight(QFont::Bold);
    if (run.colour != 0)
        format.setForeground(QColor(run.colour));
    return format;
}

/// The format of most of the text: the one that need not be applied stretch by stretch.
RtfDocument::Run UsualFormat(const RtfDocument& sheet)
{
    RtfDocument::Run usual;
    usual.halfPoints = sheet.halfPoints;
    return usual;
}

/// Replaces a document in one edit that undo does not know.
void Replace(QTextEdit& box, const RtfDocument& sheet)
{
    QTextDocument& document = *box.document();
    document.setUndoRedoEnabled(false);
    const RtfDocument::Run usual = UsualFormat(sheet);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.insertText(sheet.text, FormatOf(usual));
    for (const RtfDocument::Run& run : sheet.runs) {
        if (run.SameFormat(usual))
            continue;
        cursor.setPosition(static_cast<int>(run.from));
        cursor.setPosition(static_cast<int>(run.from + run.length), QTextCursor::KeepAnchor);
        cursor.setCharFormat(FormatOf(run));
    }
    cursor.endEditBlock();
    document.setUndoRedoEnabled(true);
    document.setModified(false);
    box.moveCursor(QTextCursor::Start);
}

/// A widget that was never shown has not been told its size yet.
void DeliverPendingResize(QWidget& widget)
{
    if (!widget.testAttribute(Qt::WA_PendingResizeEvent))
        return;
    widget.setAttribute(Qt::WA_PendingResizeEvent, false);
    QResizeEvent resize(widget.size(), QSize());
    QCoreApplication::sendEvent(&widget, &resize);
}

} // namespace

RichTextBox::RichTextBox(QWidget* parent)
    : QTextEdit(parent)
{
    setAcceptRichText(false); // what is pasted takes the sheet's looks
    setLineWrapMode(NoWrap);
    setFrameShape(NoFrame);
    setTabChangesFocus(true);
    document()->setDocumentMargin(8);
    document()->setDefaultFont(PlainFormat(SongHalfPoints).font());

    // Paper is white, whatever the desktop's palette is.
    QPalette paper = palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Appearance::Text);
    setPalette(paper);
}

void RichTextBox::SetTextRTF(QStringView rtf)
{
    const RtfDocument sheet = ReadRtf(rtf);
    document()->setDefaultFont(PlainFormat(sheet.halfPoints).font());
    Replace(*this, sheet);
}

void RichTextBox::SetText(const QString& text)
{
    RtfDocument sheet;
    sheet.text = text;
    sheet.text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
    sheet.halfPoints = static_cast<int>(document()->defaultFont().pointSizeF() * 2);
    Replace(*this, sheet);
}

QString RichTextBox::Text() const
{
    QString text;
    text.reserve(document()->characterCount() + document()->blockCount());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block != document()->begin())
            text += u"\r\n"_qs;
        text += block.text().replace(QChar::LineSeparator, u"\r\n"_qs);
    }
    return text;
}

void RichTextBox::FinishLayout()
{
    ensurePolished();
    DeliverPendingResize(*this);
    DeliverPendingResize(*viewport());
    document()->pageCount();           // asks for the last page, so the layout goes to the end
    DeliverPendingResize(*viewport()); // a horizontal scroll bar may have come
}

int Funcoes::Calcula_Limite_Rolagem(RichTextBox& caixa)
{
    caixa.FinishLayout();
    return caixa.verticalScrollBar()->maximum();
}
