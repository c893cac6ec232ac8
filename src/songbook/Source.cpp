#include "songbook/Source.h"

#include "songbook/ChordProReader.h"
#include "songbook/ChordTextReader.h"
#include "songbook/OpenLyricsReader.h"
#include "songbook/OpenSongReader.h"
#include "songbook/PlainTextReader.h"
#include "songbook/SourceText.h"
#include "songbook/XmlTree.h"

namespace Songbook {

namespace {

Source Refused(SourceKind kind, const QString& why, int line = 0)
{
    return {kind, Failed(why, line)};
}

Source TooLarge()
{
    return Refused(SourceKind::Unknown, u"o arquivo é grande demais para uma música"_qs);
}

bool IsCatalogue(QByteArrayView bytes)
{
    return bytes.startsWith("SQLite format 3") ||
           (bytes.size() > 20 && (bytes.sliced(4).startsWith("Standard Jet DB") ||
                                  bytes.sliced(4).startsWith("Standard ACE DB")));
}

/// Documents whose bytes may all be characters and are no song all the same.
bool IsDocument(QByteArrayView bytes)
{
    return bytes.startsWith("%PDF-") || bytes.startsWith("{\\rtf");
}

/// Without the mark and blanks in front.
QStringView Start(const QString& text)
{
    QStringView start = text;
    while (!start.isEmpty() && (start.front() == u'\uFEFF' || start.front().isSpace()))
        start = start.sliced(1);
    return start;
}

/// A tag, a declaration or a comment at the very start.
bool IsMarkup(QStringView start)
{
    if (start.size() < 3 || start.front() != u'<')
        return false;
    const QChar second = start[1];
    return second == u'?' || second == u'!' ||
           (second.isLetter() && start.first(qMin(start.size(), qsizetype{2000})).contains(u'>'));
}

Source ReadXml(QByteArrayView bytes, const QString& name)
{
    const XmlTree tree = ParseXml(bytes);
    if (!tree.root)
        return Refused(SourceKind::Unknown, tree.failure, tree.failureLine);
    const XmlNode& root = *tree.root;
    if (root.name == u"musicas")
        return Refused(SourceKind::Exchange, u"já é um arquivo do Melodario"_qs);
    if (root.name != u"song")
        return Refused(SourceKind::Unknown,
                       u"o XML não é de música: <%1>"_qs.arg(Excerpt(root.name)), root.line);
    if (root.space.contains(u"openlyrics") || root.Child(u"properties") != nullptr)
        return {SourceKind::OpenLyrics, ReadOpenLyrics(root, name)};
    if (root.Child(u"lyrics") == nullptr && root.Child(u"title") == nullptr)
        return Refused(SourceKind::Unknown, u"o XML não tem letra nem título"_qs, root.line);
    return {SourceKind::OpenSong, ReadOpenSong(root, name)};
}

} // namespace

Source ReadSource(QByteArrayView bytes, const QString& name)
{
    if (IsCatalogue(bytes))
        return Refused(SourceKind::Catalogue, u"é um catálogo, não uma música"_qs);
    if (bytes.size() > LargestBook)
        return TooLarge();
    if (IsDocument(bytes))
        return Refused(SourceKind::Unknown,
                       u"é um documento PDF ou RTF; salve-o como texto simples"_qs);
    const QString text = DecodeText(bytes);
    const QStringView start = Start(text);
    if (start.isEmpty())
        return Refused(SourceKind::Unknown, u"o arquivo está vazio"_qs);
    if (text.contains(QChar(u'\0')))
        return Refused(SourceKind::Unknown, u"o arquivo não é um texto"_qs);
    if (IsMarkup(start))
        return bytes.size() > LargestSource ? TooLarge() : ReadXml(bytes, name);
    if (LooksLikePlainText(text))
        return {SourceKind::ChordText, ReadPlainText(text, name)};
    if (LooksLikeChordPro(text))
        return {SourceKind::ChordPro, ReadChordPro(text, name)};
    return {SourceKind::ChordText, ReadChordText(text, name)};
}

} // namespace Songbook
