#include "controls/RichTextBox.h"

#include "controls/Appearance.h"
#include "controls/PastedText.h"
#include "controls/RtfReader.h"
#include "controls/RtfWriter.h"
#include "controls/SheetLayout.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMimeData>
#include <QPalette>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace {

constexpr int UsualSize = 34; // half points
constexpr int Margin = 8;     // pixels around the text

/// @return name where it is installed, else the family of chord sheets. Sheets name one font over
/// and over, and looking it up asks the system for all of its fonts.
QString InstalledFamily(const QString& name)
{
    static std::pair<QString, QString> last;
    if (last.second.isEmpty() || last.first != name) {
        const bool installed = !name.isEmpty() && QFontDatabase::hasFamily(name);
        last = {name, installed ? name : Appearance::MonospacedFamily()};
    }
    return last.second;
}

/// The bars lie on the white sheet, also where other lists are dark.
constexpr char LightBars[] = "QScrollBar::handle { background: #bec6cf; border-color: #ffffff; }"
                             "QScrollBar::handle:hover, QScrollBar::handle:pressed {"
                             " background: #5b6470; }";

QPalette WhiteSheet(QPalette palette)
{
    palette.setColor(QPalette::Base, Appearance::Surface);
    palette.setColor(QPalette::Text, Appearance::Text);
    palette.setColor(QPalette::Highlight, Appearance::Accent);
    palette.setColor(QPalette::HighlightedText, Appearance::Surface);
    return palette;
}

/// @return how text of a format looks. The size is always told, so that it can be read from any
/// character.
QTextCharFormat Look(const Rtf::Format& format)
{
    QTextCharFormat look;
    look.setFontPointSize(format.halfPoints / 2.0);
    if (format.bold)
        look.setFontWeight(QFont::Bold);
    if (format.colour)
        look.setForeground(QColor(QRgb(*format.colour)));
    return look;
}

Rtf::Format FormatOf(const QTextCharFormat& look, int sheetSize)
{
    Rtf::Format format;
    format.bold = look.fontWeight() > QFont::Normal;
    if (look.hasProperty(QTextFormat::ForegroundBrush))
        format.colour = look.foreground().color().rgb() & 0xFFFFFF;
    format.halfPoints = look.hasProperty(QTextFormat::FontPointSize)
                            ? static_cast<int>(std::lround(look.fontPointSize() * 2))
                            : sheetSize;
    return format;
}

int HalfPoints(const QFont& font)
{
    return static_cast<int>(std::lround(font.pointSizeF() * 2));
}

/// Gives a widget that is not shown yet the inner layout that its size asks for: it would put that
/// off until it is.
void Settle(QWidget& widget)
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
    setAcceptRichText(false);
    setLineWrapMode(QTextEdit::NoWrap);
    setWordWrapMode(QTextOption::NoWrap);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setPalette(WhiteSheet(palette()));
    if (Appearance::IsDark()) {
        for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()})
            bar->setStyleSheet(QString::fromLatin1(LightBars));
    }
    document()->setDocumentMargin(Margin);
    document()->setDocumentLayout(new SheetLayout(document()));
    UseFont(Appearance::MonospacedFamily(), UsualSize);
}

void RichTextBox::SetTextRTF(const QString& rtf)
{
    Fill(Rtf::Read(rtf));
    m_rtf = rtf;
    m_revision = document()->revision();
}

QString RichTextBox::TextRTF() const
{
    return m_revision == document()->revision() ? m_rtf : Rtf::Write(Sheet());
}

QString RichTextBox::Text() const
{
    return m_standIns.Text(*document());
}

void RichTextBox::SetText(const QString& text)
{
    Rtf::Document sheet;
    sheet.halfPoints = HalfPoints(font());
    sheet.fontName = font().family();
    Rtf::Format plain;
    plain.halfPoints = sheet.halfPoints;
    QString lines = text;
    lines.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
    sheet.Append(lines, plain);
    Fill(sheet);
    m_revision = -1;
}

void RichTextBox::SetBackColor(QColor colour)
{
    // Under a style sheet the viewport does not follow the box's palette.
    for (QWidget* widget : std::initializer_list<QWidget*>{this, viewport()}) {
        QPalette painted = widget->palette();
        painted.setColor(QPalette::Base, colour);
        widget->setPalette(painted);
    }
}

void RichTextBox::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // These two tell where on the keyboard a key lies, not what is held down with it.
    const Qt::KeyboardModifiers held =
        event->modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    if (!enter || held != Qt::ShiftModifier || isReadOnly()) {
        QTextEdit::keyPressEvent(event);
        return;
    }
    // Shift+Enter would put a line separator, which no chord sheet knows, into the line.
    textCursor().insertBlock();
    ensureCursorVisible();
    event->accept();
}

QMimeData* RichTextBox::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    auto* clipboard = new QMimeData; // whoever asked owns it
    clipboard->setText(m_standIns.Text(*document(), cursor.selectionStart(), cursor.selectionEnd())
                           .replace(u"\r\n"_qs, u"\n"_qs));
    return clipboard;
}

void RichTextBox::insertFromMimeData(const QMimeData* source)
{
    if (!source || isReadOnly())
        return;
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    m_standIns.BeginLine();
    m_standIns.Insert(cursor, PastedText(*source), cursor.charFormat());
    cursor.endEditBlock();
    ensureCursorVisible();
}

void RichTextBox::focusInEvent(QFocusEvent* event)
{
    QTextEdit::focusInEvent(event);
    emit GotFocus();
}

void RichTextBox::wheelEvent(QWheelEvent* event)
{
    // With Ctrl a text that cannot be edited would zoom.
    QWheelEvent plain(event->position(), event->globalPosition(), event->pixelDelta(),
                      event->angleDelta(), event->buttons(),
                      event->modifiers() & ~Qt::ControlModifier, event->phase(), event->inverted(),
                      event->source(), event->pointingDevice());
    QTextEdit::wheelEvent(&plain);
    event->setAccepted(plain.isAccepted());
}

/// Replaces the content in one edit, so that it is laid out once, piece after piece: formatting a
/// text that is already there would take it apart again.
void RichTextBox::Fill(const Rtf::Document& sheet)
{
    Rtf::Format plain;
    plain.halfPoints = sheet.halfPoints;
    const QTextCharFormat plainLook = Look(plain);
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setBlockFormat(QTextBlockFormat());
    cursor.setBlockCharFormat(plainLook);
    UseFont(InstalledFamily(sheet.fontName), sheet.halfPoints);
    m_standIns.Clear();
    QStringView rest = sheet.text;
    for (const Rtf::Run& run : sheet.runs) {
        m_standIns.Insert(cursor, rest.first(run.length),
                          run.format == plain ? plainLook : Look(run.format));
        rest = rest.sliced(run.length);
    }
    cursor.endEditBlock();
    document()->setUndoRedoEnabled(true);
    document()->setModified(false);

    cursor.setPosition(0); // moving there would lay out the whole way back
    setTextCursor(cursor);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

/// Sets the document's own font, which holds where nothing was typed yet.
void RichTextBox::UseFont(const QString& family, int halfPoints)
{
    QFont wanted(family);
    wanted.setPointSizeF(halfPoints / 2.0);
    wanted.setStyleHint(QFont::Monospace);
    wanted.setFixedPitch(true);
    if (wanted != font())
        setFont(wanted);
}

/// @return the content with its formats, as a document of its own.
Rtf::Document RichTextBox::Sheet() const
{
    Rtf::Document sheet;
    sheet.halfPoints = HalfPoints(font());
    sheet.fontName = font().family();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block != document()->begin())
            sheet.Append(u"\n", FormatOf(block.charFormat(), HalfPoints(font())));
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            sheet.Append(m_standIns.Restored(fragment.text(), fragment.charFormat()),
                         FormatOf(fragment.charFormat(), HalfPoints(font())));
        }
    }
    return sheet;
}

void RichTextBox::FinishLayout()
{
    ensurePolished();
    Settle(*this);
    Settle(*viewport());
    // Asking for the pages finishes the layout, which a text document otherwise does in portions
    // while idle. The bars took over a guess of its height on the way; a resize event sets them
    // right, and one that appears by that takes its share of the height.
    document()->pageCount();
    QResizeEvent same(viewport()->size(), viewport()->size());
    resizeEvent(&same);
    Settle(*viewport());
}

int Funcoes::Calcula_Limite_Rolagem(RichTextBox& caixa)
{
    caixa.FinishLayout();
    return caixa.verticalScrollBar()->maximum();
}
