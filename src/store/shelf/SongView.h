#pragma once

#include "store/RecordsetRows.h"
#include "store/shelf/SongRow.h"
#include "store/shelf/SongSearch.h"

#include <functional>
#include <memory>
#include <vector>

/// The songs that a search found: no row is copied, a field is made when it is read. Only a song's
/// text is fetched from the catalogue, since lists show none of them; should another program change
/// or delete it before that, it is what it is by then.
class SongView final : public Recordset::Rows
{
public:
    /// Reads MUSICA.MUSICA of a song.
    using TextReader = std::function<Value(qint64 id)>;

    /// @param rows  in their order, of the pile
    SongView(const SongSearch& search, std::shared_ptr<const SongPile> pile,
             std::vector<const SongRow*> rows, TextReader reader);

    int Count() const noexcept override { return static_cast<int>(m_rows.size()); }
    Value At(int row, int column) const override;

    /// Reads all texts now, because they are about to change or cannot be read any more. What
    /// cannot be read is NULL from then on.
    void Settle();

private:
    Value TextAt(int row) const;

    std::vector<SongSearch::Field> m_columns;
    std::shared_ptr<const SongPile> m_pile;
    std::vector<const SongRow*> m_rows;
    TextReader m_reader;        ///< empty once settled
    std::vector<Value> m_texts; ///< filled once settled
};
