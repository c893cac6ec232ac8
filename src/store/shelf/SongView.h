#pragma once

#include "store/RecordsetRows.h"
#include "store/shelf/SongRow.h"
#include "store/shelf/SongSearch.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

/// A song's texts in UTF-8; NULL has no value.
struct SongTexts
{
    std::optional<QByteArray> first;  ///< MUSICA.MUSICA
    std::optional<QByteArray> second; ///< MUSICA2 of MUSICA
};

/// The songs that a search found: no row is copied, a field is made when it is read. Only a song's
/// texts are fetched from the catalogue, since lists show none of them; should another program
/// change them before that, they are what they are by then, and the texts of a song that it deletes
/// are an error: an export would store a song without its lyrics.
class SongView final : public Recordset::Rows
{
public:
    /// Reads the texts of a song. @return nothing when the song is gone
    using TextReader = std::function<std::optional<SongTexts>(qint64 id)>;

    /// @param rows  in their order, of the pile
    SongView(const SongSearch& search, std::shared_ptr<const SongPile> pile,
             std::vector<const SongRow*> rows, TextReader reader);

    int Count() const noexcept override { return static_cast<int>(m_rows.size()); }
    Value At(int row, int column) const override;
    std::optional<QByteArray> Utf8At(int row, int column) const override;

    /// Reads the texts of a song now, because they are about to change; of a song that is gone
    /// nothing is left to keep.
    /// @throws RuntimeError StoreFailure
    void KeepText(qint64 id);
    void KeepAllTexts();

    /// The connection closes: from then on reading texts that were not kept raises ObjectClosed,
    /// as any other use of the connection does.
    void Detach() { m_reader = nullptr; }

private:
    const SongTexts* FindTexts(qint64 id) const;
    const SongTexts& TextsOf(qint64 id) const;

    std::vector<SongSearch::Field> m_columns;
    std::shared_ptr<const SongPile> m_pile;
    std::vector<const SongRow*> m_rows;
    TextReader m_reader;                           ///< empty once detached
    std::unordered_map<qint64, SongTexts> m_texts; ///< as they were before they changed, by ID
    /// The ones that were read last: both are asked for one after the other.
    mutable std::optional<std::pair<qint64, SongTexts>> m_last;
};
