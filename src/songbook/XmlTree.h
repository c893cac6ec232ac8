#pragma once

#include <QByteArrayView>
#include <QMap>
#include <QString>

#include <optional>
#include <vector>

namespace Songbook {

/// A node of an XML document, detached from its parser.
struct XmlNode
{
    QString name;                      ///< without a prefix; empty for text
    QString text;                      ///< of a text node
    QString space;                     ///< the namespace of an element
    int line = 0;                      ///< where the element's start tag ends, from 1
    QMap<QString, QString> attributes; ///< by local name
    std::vector<XmlNode> children;

    bool IsText() const { return name.isEmpty(); }

    /// @return the text of the node and all below it
    QString FullText() const;

    /// @return the first child element of that name; null without one
    const XmlNode* Child(QStringView childName) const;
};

/// What parsing gave.
struct XmlTree
{
    std::optional<XmlNode> root;
    QString failure; ///< in Portuguese; empty when there is a root
    int failureLine = 0;
};

/// Parses a document. Nothing outside of it is ever read: one that asks for an external entity or
/// DTD is refused. Sizes, depth and expansion of entities are bounded by the parser. What calls
/// itself iso-8859-1, or says nothing and is no UTF-8, is read in the ANSI code page.
XmlTree ParseXml(QByteArrayView bytes);

} // namespace Songbook
