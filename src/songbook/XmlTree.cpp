#include "songbook/XmlTree.h"

#include "songbook/SourceText.h"
#include "store/CodePage.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <QRegularExpression>
#include <QStringDecoder>

#include <memory>

namespace Songbook {

namespace {

struct ContextCloser
{
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

struct DocumentCloser
{
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

QString TextOf(const xmlChar* text)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(text));
}

/// Ends the parsing of a document that asks for something outside itself.
void Refuse(void* context)
{
    auto* const parser = static_cast<xmlParserCtxt*>(context);
    *static_cast<bool*>(parser->_private) = true;
    xmlStopParser(parser);
}

void OnInternalSubset(void* context, const xmlChar* name, const xmlChar* external,
                      const xmlChar* system)
{
    if (external != nullptr || system != nullptr)
        Refuse(context);
    else
        xmlSAX2InternalSubset(context, name, external, system);
}

void OnEntity(void* context, const xmlChar* name, int type, const xmlChar* external,
              const xmlChar* system, xmlChar* content)
{
    if (external != nullptr || system != nullptr)
        Refuse(context);
    else
        xmlSAX2EntityDecl(context, name, type, external, system, content);
}

xmlParserInput* OnResolve(void* context, const xmlChar* /*external*/, const xmlChar* /*system*/)
{
    Refuse(context);
    return nullptr;
}

/// @return the encoding that the declaration names, in small letters; empty without one
QByteArray DeclaredEncoding(QByteArrayView bytes)
{
    static const QRegularExpression form(
        QStringLiteral("^<\\?xml[^>]*\\bencoding\\s*=\\s*[\"']([A-Za-z0-9._-]+)[\"']"));
    const QString head = QString::fromLatin1(bytes.first(qMin(bytes.size(), qsizetype{300})));
    return form.match(head).captured(1).toLower().toLatin1();
}

/// @return the document in UTF-8, or nothing when the parser is to read its declaration
std::optional<QByteArray> InUtf8(QByteArrayView bytes)
{
    const bool marked = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") ||
                        bytes.startsWith("\xEF\xBB\xBF");
    if (marked)
        return DecodeText(bytes).toUtf8();
    const QByteArray declared = DeclaredEncoding(bytes);
    if (declared == "iso-8859-1" || declared == "latin1" || declared == "windows-1252")
        return CodePage::ToUnicode(bytes).toUtf8();
    if (declared.isEmpty() || declared == "utf-8" || declared == "utf8")
        return DecodeText(bytes).toUtf8();
    return std::nullopt;
}

XmlNode Detached(const xmlNode* node)
{
    XmlNode detached;
    detached.name = TextOf(node->name);
    detached.line = static_cast<int>(xmlGetLineNo(node));
    if (node->ns != nullptr)
        detached.space = TextOf(node->ns->href);
    for (const xmlAttr* attribute = node->properties; attribute != nullptr;
         attribute = attribute->next) {
        QString value;
        for (const xmlNode* part = attribute->children; part != nullptr; part = part->next)
            value += TextOf(part->content);
        detached.attributes.insert(TextOf(attribute->name), value);
    }
    for (const xmlNode* child = node->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) {
            detached.children.push_back(Detached(child));
        } else if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE) {
            XmlNode text;
            text.text = TextOf(child->content);
            text.line = detached.line;
            detached.children.push_back(std::move(text));
        }
    }
    return detached;
}

} // namespace

QString XmlNode::FullText() const
{
    QString all = text;
    for (const XmlNode& child : children)
        all += child.FullText();
    return all;
}

const XmlNode* XmlNode::Child(QStringView childName) const
{
    for (const XmlNode& child : children) {
        if (child.name == childName)
            return &child;
    }
    return nullptr;
}

XmlTree ParseXml(QByteArrayView bytes)
{
    XmlTree tree;
    const std::optional<QByteArray> utf8 = InUtf8(bytes);
    const QByteArrayView input = utf8 ? QByteArrayView(*utf8) : bytes;
    const std::unique_ptr<xmlParserCtxt, ContextCloser> parser(xmlNewParserCtxt());
    if (!parser || input.size() > LargestSource * 3) {
        tree.failure = u"o arquivo é grande demais"_qs;
        return tree;
    }
    bool refused = false;
    parser->_private = &refused;
    parser->sax->internalSubset = OnInternalSubset;
    parser->sax->entityDecl = OnEntity;
    parser->sax->resolveEntity = OnResolve;
    const std::unique_ptr<xmlDoc, DocumentCloser> document(
        xmlCtxtReadMemory(parser.get(), input.data(), static_cast<int>(input.size()), nullptr,
                          utf8 ? "UTF-8" : nullptr,
                          XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR |
                              XML_PARSE_NOWARNING | XML_PARSE_BIG_LINES | XML_PARSE_COMPACT));
    const xmlNode* root = document ? xmlDocGetRootElement(document.get()) : nullptr;
    if (refused) {
        tree.failure = u"o XML pede algo de fora do arquivo, o que não é permitido"_qs;
    } else if (root == nullptr) {
        const xmlError* error = xmlCtxtGetLastError(parser.get());
        tree.failure = u"o XML não está bem formado"_qs;
        tree.failureLine = error != nullptr ? error->line : 0;
    } else {
        tree.root = Detached(root);
    }
    return tree;
}

} // namespace Songbook
