#include "tools/jet/JetRows.h"

#include "tools/jet/JetText.h"
#include "tools/jet/JetTrouble.h"

#include <bit>
#include <set>

namespace {

using RowStream::Field;

/// @return the position of a column in its table
std::size_t PositionOf(const MdbTableDef& table, const MdbColumn& column)
{
    std::size_t position = 0;
    while (&Libmdb::Column(table, static_cast<unsigned>(position)) != &column)
        ++position;
    return position;
}

const unsigned char* Bytes(std::string_view text)
{
    return reinterpret_cast<const unsigned char*>(text.data());
}

void CheckSize(std::string_view value, std::size_t size)
{
    if (value.size() != size)
        JetTrouble::Damaged("um campo não tem o tamanho do seu tipo");
}

double Real(std::string_view value)
{
    std::uint64_t bits = Libmdb::DoubleWord(Bytes(value) + 4);
    bits = bits << 32U | Libmdb::DoubleWord(Bytes(value));
    return std::bit_cast<double>(bits);
}

} // namespace

JetRows::JetRows(MdbHandle& file, MdbTableDef& table, std::vector<const MdbColumn*> columns,
                 FrameWriter& out)
    : m_file(file)
    , m_table(table)
    , m_columns(std::move(columns))
    , m_fields(table.num_cols)
    , m_out(out)
{
}

void JetRows::Send()
{
    std::set<int> pages;
    std::uint64_t rows = 0;
    mdb_rewind_table(&m_table);
    while (const int page = mdb_read_next_dpg(&m_table)) {
        if (!pages.insert(page).second)
            JetTrouble::Damaged("uma página está duas vezes numa tabela");
        rows += SendPage(m_file.cur_pg);
        if (rows > m_table.num_rows)
            break;
    }
    // A damaged file loses or doubles rows without a word.
    if (rows != m_table.num_rows)
        JetTrouble::Damaged(std::string(m_table.name) + " diz que tem " +
                            std::to_string(m_table.num_rows) + " linhas, mas tem " +
                            (rows > m_table.num_rows ? "mais" : std::to_string(rows)));
}

JetPage JetRows::PageInBuffer() const
{
    return {m_file.pg_buf, static_cast<unsigned>(m_file.fmt->pg_size), m_file.fmt->row_count_offset,
            static_cast<std::uint32_t>(m_table.entry->table_pg)};
}

unsigned JetRows::SendPage(std::uint32_t number)
{
    const JetPage page = PageInBuffer();
    unsigned rows = 0;
    for (unsigned i = 0; i < page.RowCount(); ++i) {
        const JetPage::Row row = page.At(i);
        if (row.deleted)
            continue;
        if (row.moved) {
            SendMoved(row);
            mdb_read_pg(&m_file, number);
        } else {
            SendRow(row);
        }
        ++rows;
    }
    return rows;
}

void JetRows::SendMoved(const JetPage::Row& pointer)
{
    constexpr unsigned PointerSize = 4;
    constexpr std::uint32_t RowMask = 0xFF;
    constexpr unsigned PageShift = 8;
    if (pointer.size < PointerSize)
        JetTrouble::Damaged("uma linha mudada de lugar não leva a nada");
    const std::uint32_t target = Libmdb::DoubleWord(m_file.pg_buf + pointer.start);
    if (mdb_read_pg(&m_file, target >> PageShift) != m_file.fmt->pg_size)
        JetTrouble::Damaged("uma linha mudada de lugar leva para fora do arquivo");
    const JetPage::Row row = PageInBuffer().At(target & RowMask);
    if (row.moved || !row.deleted)
        JetTrouble::Damaged("uma linha mudada de lugar leva a outra igual");
    SendRow(row);
}

void JetRows::SendRow(const JetPage::Row& row)
{
    if (mdb_crack_row(&m_table, static_cast<int>(row.start), row.size, m_fields.data()) < 0)
        JetTrouble::Damaged("uma linha não pode ser separada em campos");
    m_out.Begin(RowStream::Frame::Row);
    for (const MdbColumn* column : m_columns) {
        const MdbField& field = m_fields[PositionOf(m_table, *column)];
        const auto end = static_cast<int>(row.start + row.size);
        if (!field.is_null && (field.start < static_cast<int>(row.start) || field.siz < 0 ||
                               field.siz > end - field.start))
            JetTrouble::Damaged("um campo está fora da sua linha");
        SendField(*column, field);
    }
    m_out.Send();
}

void JetRows::SendField(const MdbColumn& column, const MdbField& field)
{
    if (field.is_null || column.col_type == MDB_BOOL) { // the latter has its value for a null mark
        m_out.Add(column.col_type == MDB_BOOL ? Field::Other : Field::Null);
        return;
    }
    const std::string_view value(reinterpret_cast<const char*>(m_file.pg_buf) + field.start,
                                 static_cast<std::size_t>(field.siz));
    switch (column.col_type) {
    case MDB_BYTE:
        CheckSize(value, 1);
        m_out.Add(Field::Whole);
        m_out.Whole(Bytes(value)[0]);
        return;
    case MDB_INT:
        CheckSize(value, 2);
        m_out.Add(Field::Whole);
        m_out.Whole(
            static_cast<std::uint32_t>(static_cast<std::int16_t>(Libmdb::Word(Bytes(value)))));
        return;
    case MDB_LONGINT:
        CheckSize(value, 4);
        m_out.Add(Field::Whole);
        m_out.Whole(Libmdb::DoubleWord(Bytes(value)));
        return;
    case MDB_DATETIME:
        CheckSize(value, sizeof(double));
        m_out.Add(Field::Date);
        m_out.Real(Real(value));
        return;
    case MDB_TEXT:
        SendText(value);
        return;
    case MDB_MEMO:
        SendText(JetText::Gather(m_file, value));
        return;
    default:
        m_out.Add(Field::Other);
    }
}

void JetRows::SendText(std::string_view stored)
{
    if (IS_JET3((&m_file))) {
        m_out.Add(Field::PlainText);
        m_out.Text(stored);
    } else {
        m_out.Add(Field::WideText);
        m_out.Text(JetText::Unpack(stored));
    }
}
