#pragma once

#include <QString>
#include <QStyledItemDelegate>
#include <QTextDocument>

/// Texts longer than any screen is wide: measuring, cutting and painting one takes time for every
/// character, at every paint, so only its beginning is handed on to be shown.
namespace LongTexts {

constexpr qsizetype LongestShown = 1000; ///< characters

/// @return what of text is enough to be drawn on one line, ending in an ellipsis when it is cut
inline QString Beginning(const QString& text)
{
    return text.size() > LongestShown ? QString(text.first(LongestShown) + QChar(0x2026)) : text;
}

/// @return text such that a tool tip shows it as it is, also where it looks like markup.
inline QString Literal(const QString& text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return u"<p style='white-space:pre-wrap'>" % text.toHtmlEscaped() % u"</p>";
}

/// Shows the beginnings of a list's texts; the model keeps them whole.
class Delegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override
    {
        if (value.userType() == QMetaType::QString)
            return QStyledItemDelegate::displayText(Beginning(value.toString()), locale);
        return QStyledItemDelegate::displayText(value, locale);
    }
};

} // namespace LongTexts
