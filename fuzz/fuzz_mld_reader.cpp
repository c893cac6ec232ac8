// Exchange files: reading takes anything and says the same however the bytes come; what a document
// tree says of a file's songs is what is read of them.

#include "Input.h"

#include "mld/ExchangeDecoder.h"
#include "mld/ExchangeReader.h"

#include <QBuffer>
#include <QStringList>

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <array>
#include <memory>

using namespace Fuzz;

namespace {

const std::array<QString, 32>& Pieces()
{
    static const std::array<QString, 32> pieces = {
        u"<m>"_qs,
        u"</m>"_qs,
        u"<titulo>"_qs,
        u"</titulo>"_qs,
        u"<referencia/>"_qs,
        u"<letra1>"_qs,
        u"</letra1>"_qs,
        u"<letra2> b[br]</letra2>"_qs,
        u"<tom>C</tom>"_qs,
        u"<variacao/>"_qs,
        u"<categoria>1</categoria>"_qs,
        u"<categoria>x</categoria>"_qs,
        u"<temas>"_qs,
        u"</temas>"_qs,
        u"<descricao>Louvor</descricao>"_qs,
        u"<titulo/><referencia/><letra1/><letra2/><tom/><variacao/><categoria>1</categoria><temas/>"_qs,
        u"<m><titulo>é</titulo><referencia/><letra1/><letra2/><tom/><variacao/>"
        "<categoria>2</categoria><temas><d>P</d></temas></m>"_qs,
        u"<!-- x -->"_qs,
        u"<?x y?>"_qs,
        u"<![CDATA[ & ]]>"_qs,
        u"&amp;"_qs,
        u"&#233;"_qs,
        u"&e;"_qs,
        u"<!DOCTYPE m [<!ENTITY e \"<x>luz</x>\">]>"_qs,
        u"<!DOCTYPE m [<!ENTITY e SYSTEM \"x\">]>"_qs,
        u" "_qs,
        u"\r\n"_qs,
        u"texto"_qs,
        u"歌"_qs,
        u"<a b='c'>"_qs,
        u"</a>"_qs,
        u"<"_qs};
    return pieces;
}

QString Told(const std::optional<ExchangeSongs>& songs)
{
    if (!songs)
        return u"refused"_qs;
    QStringList lines;
    for (qsizetype i = 0; i < songs->Count(); ++i) {
        const ExchangeSong song = songs->At(i);
        lines += {*song.titulo,
                  *song.referencia,
                  *song.letra1,
                  *song.letra2,
                  *song.tom,
                  *song.variacao,
                  QString::number(song.temas.size()),
                  song.temas.join(u'\x1')};
    }
    lines.append(QString::number(songs->DefectCount()));
    return lines.join(u'\x2');
}

/// Gives a few bytes at a time.
class Trickle : public QIODevice
{
public:
    explicit Trickle(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* to, qint64 size) override
    {
        const qint64 taken = std::min<qint64>({size, 3, m_bytes.size() - m_at});
        std::copy_n(m_bytes.constData() + m_at, taken, to);
        m_at += taken;
        return taken;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qsizetype m_at = 0;
};

/// @return how many elements are children of the root; -1 for a file that is not well-formed
qint64 ChildrenByTree(const QByteArray& utf8)
{
    const int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> tree(
        xmlReadMemory(utf8.constData(), static_cast<int>(utf8.size()), nullptr, nullptr, options),
        xmlFreeDoc);
    const xmlNode* const root = tree ? xmlDocGetRootElement(tree.get()) : nullptr;
    if (!root)
        return -1;
    qint64 children = 0;
    for (const xmlNode* child = root->children; child; child = child->next)
        children += child->type == XML_ELEMENT_NODE ? 1 : 0;
    return children;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const bool raw = input.Flag();
    const QByteArray bytes = raw ? input.Rest() : input.Text(4096, Pieces()).toUtf8();
    QByteArray copy = bytes;
    QBuffer file(&copy);
    file.open(QIODevice::ReadOnly);
    const auto songs = ExchangeReader::Read(file);
    Trickle slow(bytes);
    Same("at once and slowly", Told(songs), Told(ExchangeReader::Read(slow)));
    // With entities and other encodings the two may differ: those are the museum's.
    const bool plain = !bytes.contains("<!") && !bytes.contains("<?") && !bytes.contains('\0') &&
                       ExchangeDecoder(bytes).Kind() == ExchangeDecoder::Encoding::AsDeclared;
    if (!plain)
        return 0;
    const qint64 children = ChildrenByTree(bytes);
    Same("well-formed by the tree", children >= 0 ? 1 : 0, songs ? 1 : 0);
    if (songs)
        Holds("no element is lost", songs->Count() + songs->DefectCount() >= children);
    return 0;
}
