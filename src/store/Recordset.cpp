#include "store/Recordset.h"

#include "runtime/RuntimeError.h"
#include "store/RecordsetRows.h"

#include <utility>

namespace {

[[noreturn]] void ThrowClosed()
{
    throw RuntimeError(RuntimeError::ObjectClosed,
                       QStringLiteral("O resultado de uma consulta já está fechado."),
                       QStringLiteral("Operation is not allowed when the object is closed."));
}

[[noreturn]] void ThrowNoCurrentRecord()
{
    throw RuntimeError(RuntimeError::NoCurrentRecord,
                       QStringLiteral("A consulta não tem um registro atual."),
                       QStringLiteral("Either BOF or EOF is True, or the current record has been "
                                      "deleted. Requested operation requires a current record."));
}

[[noreturn]] void ThrowItemNotFound(const QString& item)
{
    throw RuntimeError(RuntimeError::ItemNotFound, QStringLiteral("Uma coluna não existe."),
                       QStringLiteral("Item cannot be found in the collection corresponding to the "
                                      "requested name or ordinal: ") +
                           item);
}

} // namespace

Recordset::Recordset(std::shared_ptr<const Rows> rows)
    : m_rows(std::move(rows))
{
}

const Recordset::Rows& Recordset::Open() const
{
    if (!m_rows)
        ThrowClosed();
    return *m_rows;
}

bool Recordset::Eof() const
{
    return m_row >= Open().Count();
}

void Recordset::MoveNext()
{
    if (Eof())
        ThrowNoCurrentRecord();
    ++m_row;
}

void Recordset::MoveTo(int row)
{
    if (row < 0 || row >= Open().Count())
        ThrowNoCurrentRecord();
    m_row = row;
}

int Recordset::RecordCount() const
{
    return Open().Count();
}

Value Recordset::Fields(QStringView name) const
{
    const int column = Open().Find(name);
    if (column < 0)
        ThrowItemNotFound(name.toString());
    return Fields(column);
}

const Recordset::Rows& Recordset::OpenAt(int position) const
{
    const Rows& rows = Open();
    if (position < 0 || position >= rows.Names().size())
        ThrowItemNotFound(QString::number(position));
    if (Eof())
        ThrowNoCurrentRecord();
    return rows;
}

Value Recordset::Fields(int position) const
{
    return OpenAt(position).At(m_row, position);
}

std::optional<QByteArray> Recordset::Utf8(int position) const
{
    return OpenAt(position).Utf8At(m_row, position);
}

QStringList Recordset::FieldNames() const
{
    return Open().Names();
}

void Recordset::Close()
{
    if (!m_rows)
        ThrowClosed();
    m_rows.reset();
    m_row = 0;
}
