#include "mld/ExchangeXml.h"

#include "mld/SongCollector.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlIO.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>

namespace {

using Field = ExchangeSongs::Field;

/// What entities may make of a file: so many times its bytes, and a little in any case.
constexpr std::uint64_t LargestGrowth = 10;
constexpr std::uint64_t FreeGrowth = 10'000'000;
/// What a reference counts at least: an empty entity takes time, too.
constexpr std::uint64_t CostOfReference = 16;
/// References to parameter entities. Beyond some thousands the parser (2.9.14) finds a bomb itself
/// and then never returns; no honest file has more than a few.
constexpr int MostParameterReferences = 1000;

/// One parse. The parser's own handlers are kept where they remember what the file declares; ours
/// stand where content comes by, or where something outside would be asked for. No exception may
/// cross the parser: it is kept until the parser has returned.
class Run
{
public:
    Run(const ExchangeXml::Source& source, SongCollector& collector)
        : m_source(source)
        , m_collector(collector)
    {
    }

    bool Parse(bool isUtf8);

private:
    struct FreeContext
    {
        void operator()(xmlParserCtxt* context) const noexcept
        {
            xmlFreeDoc(context->myDoc); // holds the file's declarations
            xmlFreeParserCtxt(context);
        }
    };

    static xmlSAXHandler Handlers();
    static Run& Of(void* context)
    {
        return *static_cast<Run*>(static_cast<xmlParserCtxt*>(context)->_private);
    }

    /// Runs what a handler does, unless the file is refused already.
    template <typename Work>
    void Guard(void* context, Work&& work)
    {
        if (m_isRefused)
            return;
        try {
            work();
        } catch (...) {
            m_failure = std::current_exception();
            Refuse(context);
        }
    }

    void Refuse(void* context)
    {
        m_isRefused = true;
        xmlStopParser(static_cast<xmlParserCtxt*>(context));
    }

    void Learn(xmlParserCtxt& context);
    std::optional<Field> FieldOf(const xmlChar* name, const xmlChar* prefix) const;
    void Spend(void* context, std::uint64_t bytes);
    void AddText(void* context, const xmlChar* text, int length, bool isPlain);
    int Read(char* to, int length);

    static int ReadPiece(void* run, char* to, int length);
    static int ClosePiece(void* /*run*/) { return 0; }
    static void Begin(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                      int spaces, const xmlChar** ofSpaces, int attributes, int defaulted,
                      const xmlChar** ofAttributes);
    static void End(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri);
    static void Characters(void* context, const xmlChar* text, int length);
    static void Marked(void* context, const xmlChar* text, int length);
    static void Comment(void* context, const xmlChar* text);
    static void Instruction(void* context, const xmlChar* target, const xmlChar* data);
    static void DocumentType(void* context, const xmlChar* name, const xmlChar* publicId,
                             const xmlChar* systemId);
    static xmlEntity* Entity(void* context, const xmlChar* name);
    static xmlEntity* ParameterEntity(void* context, const xmlChar* name);
    static xmlEntity* Allowed(void* context, xmlEntity* entity);
    static xmlParserInput* Outside(void* context, const xmlChar* publicId, const xmlChar* systemId);

    const ExchangeXml::Source& m_source;
    SongCollector& m_collector;
    std::array<const xmlChar*, ExchangeSongs::Fields> m_names{};
    QByteArray m_piece;
    qsizetype m_used = 0;      ///< bytes of the piece that the parser has
    std::uint64_t m_given = 0; ///< bytes that the parser was given
    std::uint64_t m_spent = 0; ///< bytes that it made of them
    int m_parameterReferences = 0;
    bool m_isRefused = false;
    const xmlParserCtxt* m_context = nullptr; ///< once it is there
    std::exception_ptr m_failure;
};

/// For whatever asks past the handlers: nothing outside a file is ever opened.
xmlParserInput* OpenNothing(const char* /*url*/, const char* /*id*/, xmlParserCtxt* /*context*/)
{
    return nullptr;
}

xmlSAXHandler Run::Handlers()
{
    xmlSAXHandler handlers{};
    xmlSAXVersion(&handlers, 2);
    handlers.startElementNs = Begin;
    handlers.endElementNs = End;
    handlers.characters = Characters;
    handlers.ignorableWhitespace = Characters;
    handlers.cdataBlock = Marked;
    handlers.comment = Comment;
    handlers.processingInstruction = Instruction;
    handlers.internalSubset = DocumentType;
    handlers.externalSubset = nullptr;
    handlers.getEntity = Entity;
    handlers.getParameterEntity = ParameterEntity;
    handlers.resolveEntity = Outside;
    handlers.reference = nullptr;
    handlers.warning = nullptr;
    handlers.error = nullptr;
    handlers.fatalError = nullptr;
    handlers.serror = nullptr;
    return handlers;
}

bool Run::Parse(bool isUtf8)
{
    static const bool isReady = [] {
        xmlInitParser();
        xmlSetExternalEntityLoader(OpenNothing);
        return true;
    }();
    Q_UNUSED(isReady)
    xmlSAXHandler handlers = Handlers();
    const auto encoding = isUtf8 ? XML_CHAR_ENCODING_UTF8 : XML_CHAR_ENCODING_NONE;
    const std::unique_ptr<xmlParserCtxt, FreeContext> context(
        xmlCreateIOParserCtxt(&handlers, nullptr, ReadPiece, ClosePiece, this, encoding));
    if (m_failure)
        std::rethrow_exception(m_failure);
    if (!context)
        return false;
    context->_private = this;
    const int encodingOption = isUtf8 ? int{XML_PARSE_IGNORE_ENC} : 0;
    xmlCtxtUseOptions(context.get(),
                      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | encodingOption);
    Learn(*context);
    m_context = context.get();
    xmlParseDocument(context.get());
    if (m_failure)
        std::rethrow_exception(m_failure);
    return context->wellFormed != 0 && !m_isRefused;
}

/// The parser keeps each name once: a field's name is known by its address.
void Run::Learn(xmlParserCtxt& context)
{
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        const char* const name = ExchangeSongs::NameOf(static_cast<Field>(i));
        m_names[i] = xmlDictLookup(context.dict, reinterpret_cast<const xmlChar*>(name), -1);
    }
}

std::optional<Field> Run::FieldOf(const xmlChar* name, const xmlChar* prefix) const
{
    if (prefix)
        return std::nullopt;
    const auto* const found = std::find(m_names.begin(), m_names.end(), name);
    if (found == m_names.end())
        return std::nullopt;
    return static_cast<Field>(found - m_names.begin());
}

/// Counts what was made of the file and refuses one that grows too much.
void Run::Spend(void* context, std::uint64_t bytes)
{
    m_spent += bytes;
    if (m_spent > FreeGrowth + LargestGrowth * m_given)
        Refuse(context);
}

void Run::AddText(void* context, const xmlChar* text, int length, bool isPlain)
{
    Guard(context, [&] {
        const auto size = static_cast<std::size_t>(length);
        Spend(context, size);
        m_collector.Add({reinterpret_cast<const char*>(text), size}, isPlain);
    });
}

int Run::ReadPiece(void* run, char* to, int length)
{
    auto& self = *static_cast<Run*>(run);
    // Behind its first mistake no more of a file is asked for: it may be large.
    if (self.m_isRefused || (self.m_context && self.m_context->wellFormed == 0))
        return 0;
    try {
        return self.Read(to, length);
    } catch (...) {
        self.m_failure = std::current_exception();
        self.m_isRefused = true;
        return -1;
    }
}

int Run::Read(char* to, int length)
{
    if (m_used == m_piece.size()) {
        m_piece = m_source();
        m_used = 0;
    }
    const qsizetype taken = std::min<qsizetype>(length, m_piece.size() - m_used);
    std::memcpy(to, m_piece.constData() + m_used, static_cast<std::size_t>(taken));
    m_used += taken;
    m_given += static_cast<std::uint64_t>(taken);
    return static_cast<int>(taken);
}

void Run::Begin(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* /*uri*/,
                int /*spaces*/, const xmlChar** /*ofSpaces*/, int /*attributes*/, int /*defaulted*/,
                const xmlChar** /*ofAttributes*/)
{
    Run& self = Of(context);
    self.Guard(context, [&] {
        self.Spend(context, 1);
        self.m_collector.Begin(self.FieldOf(name, prefix));
    });
}

void Run::End(void* context, const xmlChar* /*name*/, const xmlChar* /*prefix*/,
              const xmlChar* /*uri*/)
{
    Run& self = Of(context);
    self.Guard(context, [&] { self.m_collector.End(); });
}

void Run::Characters(void* context, const xmlChar* text, int length)
{
    Of(context).AddText(context, text, length, true);
}

void Run::Marked(void* context, const xmlChar* text, int length)
{
    Of(context).AddText(context, text, length, false);
}

void Run::Comment(void* context, const xmlChar* /*text*/)
{
    Run& self = Of(context);
    self.Guard(context, [&] { self.m_collector.AddOther(); });
}

void Run::Instruction(void* context, const xmlChar* /*target*/, const xmlChar* /*data*/)
{
    Comment(context, nullptr);
}

void Run::DocumentType(void* context, const xmlChar* name, const xmlChar* publicId,
                       const xmlChar* systemId)
{
    Run& self = Of(context);
    self.Guard(context, [&] {
        if (publicId || systemId)
            self.Refuse(context);
        else
            xmlSAX2InternalSubset(context, name, nullptr, nullptr);
    });
}

/// @return the entity; nullptr where the file is refused because of it
xmlEntity* Run::Allowed(void* context, xmlEntity* entity)
{
    Run& self = Of(context);
    if (self.m_isRefused)
        return nullptr;
    const bool isOutside = entity && (entity->etype == XML_EXTERNAL_GENERAL_PARSED_ENTITY ||
                                      entity->etype == XML_EXTERNAL_PARAMETER_ENTITY);
    // One that nobody declared would leave a gap in a text.
    if (!entity || isOutside) {
        self.Refuse(context);
        return nullptr;
    }
    self.Spend(context, CostOfReference + static_cast<std::uint64_t>(std::max(entity->length, 0)));
    return self.m_isRefused ? nullptr : entity;
}

xmlEntity* Run::Entity(void* context, const xmlChar* name)
{
    return Allowed(context, xmlSAX2GetEntity(context, name));
}

xmlEntity* Run::ParameterEntity(void* context, const xmlChar* name)
{
    Run& self = Of(context);
    if (++self.m_parameterReferences > MostParameterReferences)
        self.Refuse(context);
    return Allowed(context, xmlSAX2GetParameterEntity(context, name));
}

xmlParserInput* Run::Outside(void* context, const xmlChar* /*publicId*/,
                             const xmlChar* /*systemId*/)
{
    Of(context).Refuse(context);
    return nullptr;
}

} // namespace

bool ExchangeXml::Parse(const Source& source, bool isUtf8, SongCollector& collector)
{
    return Run(source, collector).Parse(isUtf8);
}
