// The bytes of an exchange file: whole or piece by piece they become the same text, and each
// encoding gives back the text that was put into it.

#include "Input.h"

#include "mld/ExchangeDecoder.h"
#include "store/CodePage.h"

#include <QStringEncoder>

#include <array>

using namespace Fuzz;

namespace {

const std::array<QString, 16>& Pieces()
{
    static const std::array<QString, 16> pieces = {
        u"<?xml version=\"1.0\" encoding=\"iso-8859-1\" ?>"_qs,
        u"<?xml version='1.0' encoding='windows-1252'?>"_qs,
        u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"_qs,
        u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>"_qs,
        u"<m>"_qs,
        u"</m>"_qs,
        u"é"_qs,
        u"€"_qs,
        u"歌"_qs,
        u"\U0001F3B8"_qs,
        u"\uFEFF"_qs,
        u"\u0081"_qs,
        u" "_qs,
        u"abcdefgh"_qs,
        u"\r\n"_qs,
        u"encoding="_qs};
    return pieces;
}

/// @param sizes  how long the pieces are; none for the whole at once
QByteArray Decoded(const QByteArray& bytes, Input* sizes)
{
    ExchangeDecoder decoder(bytes);
    QByteArray out;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype size =
            sizes ? std::min<qsizetype>(1 + sizes->Below(9), bytes.size() - at) : bytes.size();
        if (!decoder.Decode(QByteArrayView(bytes).sliced(at, size), out))
            return "refused";
        at += size;
    }
    return decoder.Finish() ? out : QByteArray("refused");
}

void EachEncodingGivesTheTextBack(const QString& any)
{
    QString text = u"<" + any;
    text.remove(QChar(0));
    text = QString::fromUtf8(text.toUtf8()); // no half characters
    const QByteArray utf8 = text.toUtf8();
    const auto encoded = [&text](QStringConverter::Encoding encoding,
                                 const char* mark) -> QByteArray {
        QStringEncoder encoder(encoding);
        const QByteArray bytes = encoder.encode(text);
        return QByteArray(mark) + bytes;
    };
    Same("UTF-16, little end first", utf8,
         Decoded(encoded(QStringConverter::Utf16LE, "\xFF\xFE"), nullptr).mid(3));
    Same("UTF-16, big end first", utf8,
         Decoded(encoded(QStringConverter::Utf16BE, "\xFE\xFF"), nullptr).mid(3));
    Same("UTF-8 with a mark", "\xEF\xBB\xBF" + utf8, Decoded("\xEF\xBB\xBF" + utf8, nullptr));
    const QString declaration = Pieces()[0];
    const QByteArray narrow = CodePage::FromUnicode(QString(declaration + text));
    Same("the code page", CodePage::ToUnicode(narrow).toUtf8(), Decoded(narrow, nullptr));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    Input sizes(data, size);
    const bool raw = input.Flag();
    if (raw) {
        const QByteArray bytes = input.Rest();
        Same("whole and in pieces", Decoded(bytes, nullptr), Decoded(bytes, &sizes));
        return 0;
    }
    const QString text = input.Text(4096, Pieces());
    EachEncodingGivesTheTextBack(text);
    for (const QByteArray& bytes : {text.toUtf8(), CodePage::FromUnicode(text)})
        Same("whole and in pieces", Decoded(bytes, nullptr), Decoded(bytes, &sizes));
    return 0;
}
