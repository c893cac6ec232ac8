#include "tools/jet/JetText.h"

#include "tools/jet/JetPage.h"
#include "tools/jet/JetTrouble.h"

namespace {

constexpr std::uint32_t LengthMask = 0x3FFFFFFF;
constexpr unsigned WhereShift = 30;
enum class Where : std::uint32_t { ManyPages = 0, OnePage = 1, Inside = 2 };

constexpr std::size_t PointerAt = 4;
constexpr std::size_t PointerSize = 4;

const unsigned char* Bytes(std::string_view text)
{
    return reinterpret_cast<const unsigned char*>(text.data());
}

/// @param pointer  the row in its lowest byte, the page above
std::string_view Piece(MdbHandle& file, std::uint32_t pointer)
{
    constexpr std::uint32_t RowMask = 0xFF;
    constexpr unsigned PageShift = 8;
    if (mdb_read_alt_pg(&file, pointer >> PageShift) != file.fmt->pg_size)
        JetTrouble::Damaged("um texto longo aponta para fora do arquivo");
    const JetPage page(file.alt_pg_buf, static_cast<unsigned>(file.fmt->pg_size),
                       file.fmt->row_count_offset, JetPage::LongTexts);
    const JetPage::Row row = page.At(pointer & RowMask);
    if (row.deleted || row.moved)
        JetTrouble::Damaged("um texto longo aponta para um apagado");
    return {reinterpret_cast<const char*>(file.alt_pg_buf) + row.start, row.size};
}

std::string GatherPages(MdbHandle& file, std::uint32_t pointer, std::size_t length)
{
    std::string text;
    while (pointer != 0) {
        const std::string_view piece = Piece(file, pointer);
        // A piece without content would let a circle of them go on for ever.
        if (piece.size() <= PointerSize || text.size() + piece.size() - PointerSize > length)
            JetTrouble::Damaged("um texto longo não tem o tamanho que diz");
        pointer = Libmdb::DoubleWord(Bytes(piece));
        text += piece.substr(PointerSize);
    }
    return text;
}

} // namespace

std::string JetText::Gather(MdbHandle& file, std::string_view header)
{
    if (header.empty())
        return {};
    if (header.size() < MDB_MEMO_OVERHEAD)
        JetTrouble::Damaged("um texto longo está sem o seu começo");
    const std::uint32_t head = Libmdb::DoubleWord(Bytes(header));
    const std::uint32_t pointer = Libmdb::DoubleWord(Bytes(header) + PointerAt);
    const std::size_t length = head & LengthMask;
    if (length > RowStream::LargestText)
        JetTrouble::Damaged("um texto longo diz ser longo demais");
    std::string text;
    switch (static_cast<Where>(head >> WhereShift)) {
    case Where::Inside:
        text = header.substr(MDB_MEMO_OVERHEAD);
        break;
    case Where::OnePage:
        text = Piece(file, pointer);
        break;
    case Where::ManyPages:
        text = GatherPages(file, pointer, length);
        break;
    default:
        JetTrouble::Damaged("um texto longo não está em lugar nenhum");
    }
    if (text.size() != length)
        JetTrouble::Damaged("um texto longo não tem o tamanho que diz");
    return text;
}

std::string JetText::Unpack(std::string_view stored)
{
    constexpr std::string_view Packed("\xFF\xFE");
    std::string wide;
    if (!stored.starts_with(Packed)) {
        wide = stored;
    } else {
        stored.remove_prefix(Packed.size());
        // A zero stands between stretches of one byte a letter and of two.
        bool narrow = true;
        while (!stored.empty()) {
            const std::size_t width = stored.front() == '\0' || narrow ? 1 : 2;
            if (stored.front() == '\0') {
                narrow = !narrow;
            } else {
                wide += stored.substr(0, width);
                if (narrow)
                    wide += '\0';
            }
            stored.remove_prefix(std::min(width, stored.size()));
        }
    }
    if (wide.size() % 2 != 0)
        JetTrouble::Damaged("um texto acaba no meio de uma letra");
    return wide;
}
