#include "controls/MaskEdit.h"

#include "runtime/Date.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStringList>
#include <QValidator>

#include <algorithm>

namespace {

constexpr QChar Missing = u'_';

bool IsDigit(QChar sign)
{
    return sign >= u'0' && sign <= u'9';
}

/// @return the day that a text from elsewhere denotes: day, month and year between slashes, hyphens
/// or dots, or the year first as tables have it
std::optional<QDate> DateIn(const QString& pasted)
{
    QString text = pasted.trimmed();
    text.replace(u'-', u'/').replace(u'.', u'/');
    if (const auto date = Date::FromText(text))
        return date;
    QStringList parts = text.split(u'/');
    if (parts.size() != 3 || parts[0].size() != 4)
        return std::nullopt;
    std::swap(parts[0], parts[2]);
    return Date::FromText(parts.join(u'/'));
}

} // namespace

/// Sees every change of the text before anyone else does, by whatever way it came: keys, clipboard,
/// dragging, an input method, code.
class MaskEdit::Keeper final : public QValidator
{
public:
    explicit Keeper(MaskEdit& box)
        : QValidator(&box)
        , m_box(box)
    {
    }

    State validate(QString& text, int& caret) const override
    {
        if (!m_box.m_mask.isEmpty() && !m_box.Fits(text))
            m_box.Correct(text, caret);
        return Acceptable; // a refused text would stay in the box when it came by code
    }

private:
    MaskEdit& m_box;
};

MaskEdit::MaskEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setValidator(new Keeper(*this));
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!m_mask.isEmpty())
            m_kept = text;
    });
    connect(this, &QLineEdit::selectionChanged, this, &MaskEdit::NotePlace);
    connect(this, &QLineEdit::cursorPositionChanged, this, &MaskEdit::NotePlace);
}

/// The place is told anew after each change. An input method tells it before, of a text that has
/// not been through the mask.
void MaskEdit::NotePlace()
{
    if (m_mask.isEmpty() || text() == m_kept)
        m_from = hasSelectedText() ? selectionStart() : cursorPosition();
}

void MaskEdit::SetMask(const QString& mask)
{
    m_mask = mask;
    m_kept = EmptyText();
    if (m_mask.isEmpty())
        return;
    QString fitting = text();
    auto caret = static_cast<int>(fitting.size());
    if (!Fits(fitting))
        Correct(fitting, caret);
    setText(fitting);
    m_kept = fitting;
}

QString MaskEdit::EmptyText() const
{
    QString text = m_mask;
    return text.replace(u'#', Missing);
}

bool MaskEdit::Fits(const QString& text) const
{
    if (text.size() != m_mask.size())
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool right =
            IsFixed(i) ? text[i] == m_mask[i] : IsDigit(text[i]) || text[i] == Missing;
        if (!right)
            return false;
    }
    return true;
}

/// Reads from a changed text what was taken out of the kept one and what came in at its place, and
/// does the same within the mask. Equal digits tell nothing about where a change began: that is
/// where the selection or the caret was before it, and what lies behind the new caret was not
/// touched. A text for which that is not so was written as a whole.
void MaskEdit::Correct(QString& text, int& caret) const
{
    const QString changed = text;
    qsizetype from = std::min(m_from, caret);
    qsizetype end = caret;
    qsizetype to = m_kept.size() - (changed.size() - end);
    if (to < from || !m_kept.startsWith(QStringView(changed).first(from)) ||
        !m_kept.endsWith(QStringView(changed).sliced(end))) {
        from = 0;
        end = changed.size();
        to = m_kept.size();
    }
    const QString came = changed.sliced(from, end - from);

    text = m_kept;
    caret = static_cast<int>(from);
    for (qsizetype i = from; i < to; ++i) {
        if (!IsFixed(i))
            text[i] = Missing;
    }
    if (!came.isEmpty() && !Paste(came, text, caret)) {
        text = m_kept;
        caret = static_cast<int>(to);
    }
}

/// @return false when not all of it can be taken; text and caret are then of no use
bool MaskEdit::Paste(const QString& pasted, QString& text, int& caret) const
{
    if (const auto date = DateIn(pasted); date && Fits(Date::ToText(*date))) {
        text = Date::ToText(*date);
        caret = static_cast<int>(text.size());
        return true;
    }
    const QString trimmed = pasted.trimmed();
    return !trimmed.isEmpty() && std::all_of(trimmed.cbegin(), trimmed.cend(),
                                             [&](QChar sign) { return Put(sign, text, caret); });
}

/// Puts a sign where the caret is and moves the caret on. @return false when it has no place
bool MaskEdit::Put(QChar sign, QString& text, int& caret) const
{
    if (sign == u'/') {
        FinishField(text, caret);
        return true;
    }
    while (caret < m_mask.size() && IsFixed(caret))
        ++caret;
    if (caret >= m_mask.size() || !(IsDigit(sign) || sign == Missing))
        return false;
    text[caret++] = sign;
    return true;
}

void MaskEdit::FinishField(QString& text, int& caret) const
{
    int begin = caret;
    while (begin > 0 && !IsFixed(begin - 1))
        --begin;
    const auto next = m_mask.indexOf(u'/', caret);
    if (begin == caret || next < 0 || !IsDigit(text[begin]))
        return; // at the beginning of a field, which the slash before it has reached already
    if (next == begin + 2 && text[begin + 1] == Missing) {
        text[begin + 1] = text[begin];
        text[begin] = u'0';
    }
    caret = static_cast<int>(next) + 1;
}

void MaskEdit::TakeBefore()
{
    QString left = text();
    int place = cursorPosition() - 1;
    while (place >= 0 && !IsDigit(left[place]))
        --place;
    if (place >= 0)
        left[place] = Missing;
    setText(left);
    setCursorPosition(std::max(place, 0));
}

/// At the end of a field the next one is meant, as with a slash that is typed; from inside a field
/// no other one is reached.
void MaskEdit::TakeBehind()
{
    QString left = text();
    const int caret = cursorPosition();
    qsizetype place = caret;
    while (place < left.size() && IsFixed(place))
        ++place;
    while (place < left.size() && !IsFixed(place) && !IsDigit(left[place]))
        ++place;
    if (place < left.size() && !IsFixed(place))
        left[place] = Missing;
    setText(left);
    setCursorPosition(caret);
}

void MaskEdit::keyPressEvent(QKeyEvent* event)
{
    const bool plain =
        (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
    const bool ours = plain && !m_mask.isEmpty() && !isReadOnly();
    const bool caret = !hasSelectedText();
    const QString typed = event->text();
    // A sign that does not fit is refused here already: a selection would be lost otherwise.
    const bool fits =
        typed.isEmpty() || !typed[0].isPrint() || IsDigit(typed[0]) || (typed == u"/" && caret);
    if (ours && caret && event->key() == Qt::Key_Backspace)
        TakeBefore();
    else if (ours && caret && event->key() == Qt::Key_Delete &&
             event->modifiers() != Qt::ShiftModifier)
        TakeBehind();
    else if (!ours || fits)
        QLineEdit::keyPressEvent(event);
}

void MaskEdit::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    // Nobody who clicks into an empty box means to begin in its middle.
    if (!m_mask.isEmpty() && !hasSelectedText() && text() == EmptyText())
        setCursorPosition(0);
}

void Funcoes::Escreve_Maskedit(MaskEdit& txtMask, const QString& Valor)
{
    const QString mask = txtMask.Mask();
    txtMask.SetMask(QString());
    txtMask.setText(Valor);
    txtMask.SetMask(mask);
}
