#include "pages/PdfNavigation.h"

#include <QMap>
#include <QRegularExpression>

#include <optional>

namespace Pages {

namespace {

/// @return the first number behind a word, at or behind a place; nothing without one
std::optional<qint64> NumberBehind(const QByteArray& text, const QByteArray& word, qsizetype from)
{
    qsizetype at = text.indexOf(word, from);
    if (at < 0)
        return std::nullopt;
    at += word.size();
    while (at < text.size() && (text[at] == ' ' || text[at] == '\n'))
        ++at;
    qsizetype end = at;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    bool isNumber = false;
    const qint64 number = text.mid(at, end - at).toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QByteArray Reference(qint64 object)
{
    return QByteArray::number(object) + " 0 R";
}

/// As texts for people are written: any letter, in hexadecimal.
QByteArray TextString(const QString& text)
{
    QByteArray hex = "<FEFF";
    for (const QChar unit : text)
        hex += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toUpper();
    return hex + '>';
}

/// What has to be known of a document in order to add to it.
class Document
{
public:
    explicit Document(const QByteArray& bytes)
        : m_bytes(bytes)
    {
        const qsizetype last = bytes.lastIndexOf("startxref");
        const auto table = last < 0 ? std::nullopt : NumberBehind(bytes, "startxref", last);
        if (!table || *table >= bytes.size())
            return;
        m_table = *table;
        const qsizetype trailer = bytes.indexOf("trailer", m_table);
        const auto size = NumberBehind(bytes, "/Size", trailer);
        const auto root = NumberBehind(bytes, "/Root", trailer);
        const auto info = NumberBehind(bytes, "/Info", trailer);
        if (trailer < 0 || !size || !root || !info)
            return;
        m_size = *size;
        m_root = *root;
        m_info = *info;
        ReadPages();
    }

    bool IsUnderstood() const { return !m_pages.isEmpty(); }
    qint64 Size() const { return m_size; }
    qint64 Table() const { return m_table; }
    qint64 Root() const { return m_root; }
    qint64 Info() const { return m_info; }
    qint64 PageTree() const { return m_pageTree; }

    /// @param page  from 1
    std::optional<qint64> Page(int page) const
    {
        return page >= 1 && page <= m_pages.size() ? std::optional(m_pages[page - 1])
                                                   : std::nullopt;
    }

    /// @return the object that lists what can be touched on a page
    std::optional<qint64> AnnotationsOf(int page) const
    {
        const auto object = Page(page);
        return object ? NumberBehind(m_bytes, "/Annots", OffsetOf(*object)) : std::nullopt;
    }

private:
    /// Each line of the table of places has twenty bytes, behind "xref" and "0 COUNT".
    qsizetype OffsetOf(qint64 object) const
    {
        constexpr qsizetype Line = 20;
        const qsizetype head = m_bytes.indexOf('\n', m_table + 5) + 1;
        return m_bytes.mid(head + object * Line, 10).toLongLong();
    }

    void ReadPages()
    {
        const auto tree = NumberBehind(m_bytes, "/Pages", OffsetOf(m_root));
        if (!tree)
            return;
        m_pageTree = *tree;
        const qsizetype kids = m_bytes.indexOf("/Kids", OffsetOf(m_pageTree));
        const qsizetype open = m_bytes.indexOf('[', kids);
        const qsizetype close = m_bytes.indexOf(']', open);
        if (kids < 0 || open < 0 || close < 0)
            return;
        static const QRegularExpression reference(QStringLiteral("(\\d+) 0 R"));
        const QString list = QString::fromLatin1(m_bytes.mid(open, close - open));
        for (auto found = reference.globalMatch(list); found.hasNext();)
            m_pages.append(found.next().captured(1).toLongLong());
    }

    const QByteArray& m_bytes;
    qint64 m_table = 0;
    qint64 m_size = 0;
    qint64 m_root = 0;
    qint64 m_info = 0;
    qint64 m_pageTree = 0;
    QList<qint64> m_pages;
};

/// The part that is put behind a document.
class Addition
{
public:
    explicit Addition(const Document& document)
        : m_document(document)
        , m_next(document.Size())
    {
    }

    qint64 NewObject() { return m_next++; }
    void Put(qint64 object, const QByteArray& content) { m_objects.insert(object, content); }

    /// @param from  how long the document is
    QByteArray Written(qsizetype from) const
    {
        QByteArray bytes;
        QByteArray table = "xref\n";
        for (auto object = m_objects.begin(); object != m_objects.end(); ++object) {
            const QByteArray place =
                QByteArray::number(from + bytes.size()).rightJustified(10, '0');
            table += QByteArray::number(object.key()) + " 1\n" + place + " 00000 n \n";
            bytes += QByteArray::number(object.key()) + " 0 obj\n" + object.value() + "\nendobj\n";
        }
        const qsizetype start = from + bytes.size();
        bytes += table + "trailer\n<< /Size " + QByteArray::number(m_next) + " /Info " +
                 Reference(m_document.Info()) + " /Root " + Reference(m_document.Root()) +
                 " /Prev " + QByteArray::number(m_document.Table()) + " >>\nstartxref\n" +
                 QByteArray::number(start) + "\n%%EOF\n";
        return bytes;
    }

private:
    const Document& m_document;
    qint64 m_next;
    QMap<qint64, QByteArray> m_objects;
};

QByteArray Destination(const Document& document, int page, double height)
{
    const auto object = document.Page(page);
    return object ? "[" + Reference(*object) + " /XYZ 0 " + QByteArray::number(height, 'f', 2) +
                        " null]"
                  : QByteArray("[]");
}

/// @return the object that begins the list
qint64 AddBookmarks(const Document& document, Addition& addition,
                    const QList<PdfBookmark>& bookmarks, double height)
{
    const qint64 root = addition.NewObject();
    const qint64 first = root + 1;
    const qint64 last = root + bookmarks.size();
    for (const PdfBookmark& bookmark : bookmarks) {
        const qint64 object = addition.NewObject();
        QByteArray content = "<< /Title " + TextString(bookmark.title) + " /Parent " +
                             Reference(root) + " /Dest " +
                             Destination(document, bookmark.target, height);
        if (object > first)
            content += " /Prev " + Reference(object - 1);
        if (object < last)
            content += " /Next " + Reference(object + 1);
        addition.Put(object, content + " >>");
    }
    addition.Put(root, "<< /Type /Outlines /First " + Reference(first) + " /Last " +
                           Reference(last) + " /Count " + QByteArray::number(bookmarks.size()) +
                           " >>");
    return root;
}

void AddLinks(const Document& document, Addition& addition, const QList<PdfLink>& links,
              double height)
{
    QMap<qint64, QByteArray> lists;
    for (const PdfLink& link : links) {
        const auto list = document.AnnotationsOf(link.page);
        if (!list)
            continue;
        const auto number = [](double length) -> QByteArray {
            return QByteArray::number(length, 'f', 2) + ' ';
        };
        const qint64 object = addition.NewObject();
        addition.Put(object, "<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect [" +
                                 number(link.place.left()) + number(height - link.place.bottom()) +
                                 number(link.place.right()) + number(height - link.place.top()) +
                                 "] /Dest " + Destination(document, link.target, height) + " >>");
        lists[*list] += Reference(object) + ' ';
    }
    for (auto list = lists.begin(); list != lists.end(); ++list)
        addition.Put(list.key(), "[ " + list.value() + ']');
}

/// Of the same length, so that nothing in the document moves.
QByteArray WithoutTime(QByteArray document)
{
    const qsizetype start = document.indexOf("/CreationDate (");
    const qsizetype end = start < 0 ? -1 : document.indexOf(')', start);
    if (end > 0)
        document.replace(start, end - start + 1, QByteArray(end - start + 1, ' '));
    return document;
}

} // namespace

QByteArray WithNavigation(const QByteArray& document, const QList<PdfBookmark>& bookmarks,
                          const QList<PdfLink>& links, double height)
{
    QByteArray bytes = WithoutTime(document);
    const Document known(bytes);
    if (!known.IsUnderstood() || bookmarks.isEmpty())
        return bytes;
    Addition addition(known);
    const qint64 outlines = AddBookmarks(known, addition, bookmarks, height);
    AddLinks(known, addition, links, height);
    addition.Put(known.Root(), "<< /Type /Catalog /Pages " + Reference(known.PageTree()) +
                                   " /Outlines " + Reference(outlines) +
                                   " /PageMode /UseOutlines /Lang (pt-BR) >>");
    if (!bytes.endsWith('\n'))
        bytes += '\n';
    const QByteArray more = addition.Written(bytes.size());
    return bytes + more;
}

} // namespace Pages
