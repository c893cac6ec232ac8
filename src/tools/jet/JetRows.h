#pragma once

#include "tools/jet/FrameWriter.h"
#include "tools/jet/JetPage.h"
#include "tools/jet/Libmdb.h"

#include <string_view>
#include <vector>

/// Sends the rows of one table, in the order in which they lie in the file.
class JetRows
{
public:
    /// @param columns  those to send, of this table
    JetRows(MdbHandle& file, MdbTableDef& table, std::vector<const MdbColumn*> columns,
            FrameWriter& out);

    /// @throws JetTrouble, also when the table says that it has another number of rows;
    /// FrameWriter::NobodyReads
    void Send();

private:
    unsigned SendPage(std::uint32_t number);
    void SendMoved(const JetPage::Row& pointer);
    void SendRow(const JetPage::Row& row);
    void SendField(const MdbColumn& column, const MdbField& field);
    void SendText(std::string_view stored);
    JetPage PageInBuffer() const;

    MdbHandle& m_file;
    MdbTableDef& m_table;
    std::vector<const MdbColumn*> m_columns;
    std::vector<MdbField> m_fields; ///< of the current row, in the table's order
    FrameWriter& m_out;
};
