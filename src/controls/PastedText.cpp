#include "controls/PastedText.h"

#include <QMimeData>

namespace {

bool BreaksLine(QChar letter)
{
    switch (letter.unicode()) {
    case u'\r':
    case u'\v':
    case u'\f':
    case u'\u0085':
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

} // namespace

QString PastedText(const QMimeData& clipboard)
{
    // The clipboard would tell the addresses of copied files as text.
    if (!clipboard.hasFormat(u"text/plain"_qs))
        return {};
    QString text = clipboard.text();
    text.replace(u"\r\n"_qs, u"\n"_qs);
    for (QChar& letter : text) {
        if (BreaksLine(letter))
            letter = u'\n';
    }
    return text;
}
