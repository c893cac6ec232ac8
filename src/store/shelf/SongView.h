#pragma once

#include "store/RecordsetRows.h"
#include "store/shelf/SongRow.h"
#include "store/shelf/SongSearch.h"

#include <functional>
#include <memory>
#include <unordered_map>
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

    /// Reads the text of a song now, because it is about to change.
    /// @throws RuntimeError StoreFailure
    void KeepText(qint64 id);
    void KeepAllTexts();

    /// The connection closes: from then on reading a text that was not kept raises ObjectClosed,
    /// as any other use of the connection does.
    void Detach() { m_reader = nullptr; }

private:
    Value TextOf(qint64 id) const;

    std::vector<SongSearch::Field> m_columns;
    std::shared_ptr<const SongPile> m_pile;
    std::vector<const SongRow*> m_rows;
    TextReader m_reader;                       ///< empty once detached
    std::unordered_map<qint64, Value> m_texts; ///< as they were before they changed, by ID
};
