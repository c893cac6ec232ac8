#include "songbook/SourceText.h"

#include "store/CodePage.h"

#include <QStringDecoder>

namespace Songbook {

namespace {

QString DecodeAs(QStringConverter::Encoding encoding, QByteArrayView bytes)
{
    QStringDecoder decoder(encoding);
    return decoder(bytes);
}

} // namespace

QString DecodeText(QByteArrayView bytes)
{
    const auto marked = QStringConverter::encodingForData(bytes);
    if (marked && *marked != QStringConverter::Utf8 &&
        (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") ||
         bytes.startsWith(QByteArrayView("\0\0\xFE\xFF", 4))))
        return DecodeAs(*marked, bytes);
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? CodePage::ToUnicode(bytes) : text;
}

QList<SourceLine> LinesOf(const QString& text)
{
    QList<SourceLine> lines;
    qsizetype start = 0;
    int number = 1;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] != u'\n' && text[at] != u'\r')
            continue;
        lines.append({text.sliced(start, at - start), number++});
        if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n')
            ++at;
        start = at + 1;
    }
    if (start < text.size())
        lines.append({text.sliced(start), number});
    return lines;
}

} // namespace Songbook
