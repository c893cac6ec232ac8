#pragma once

#include "mld/ExchangeSong.h"

#include <QByteArray>
#include <QList>

#include <array>
#include <cstdint>
#include <deque>

/// A child of the root that is no song, and why.
struct ExchangeDefect
{
    enum class Kind {
        NoElement,    ///< text or a comment stands where a song should
        FieldMissing, ///< fields: their names
        NoNumber,     ///< fields: "categoria", which is no number of 16 bits
        TooLong,      ///< more text than any song has
    };

    Kind kind = Kind::NoElement;
    qint64 number = 0; ///< of the child, counted from 1
    QString titulo;    ///< as far as known, its beginning
    QString fields;    ///< names as the file spells them, divided by ", "
};

/// The songs of an exchange file, detached from it and kept small: some bytes more than their
/// texts. A song is made when it is asked for.
class ExchangeSongs
{
public:
    enum class Field { Titulo, Referencia, Letra1, Letra2, Tom, Variacao, Categoria, Temas };
    static constexpr std::size_t Fields = 8;

    /// @return a field's name in the file.
    static const char* NameOf(Field field);

    /// @return how many good songs there are.
    qsizetype Count() const noexcept { return static_cast<qsizetype>(m_entries.size()); }

    /// @param index  from 0, below Count(), in the file's order
    /// @return the song; all of its texts have a value
    ExchangeSong At(qsizetype index) const;

    /// The first of the faulty songs, in the file's order.
    const QList<ExchangeDefect>& Defects() const noexcept { return m_defects; }

    /// @return how many faulty songs there are; only the first have an entry in Defects().
    qint64 DefectCount() const noexcept { return m_defectCount; }

private:
    friend class SongCollector;

    static constexpr qsizetype MostDefects = 100;

    /// A part of a song's text, in bytes behind its beginning.
    struct Range
    {
        std::uint32_t start = 0;
        std::uint32_t end = 0;
    };

    struct Entry
    {
        qsizetype text = 0; ///< in m_text
        std::array<Range, Fields> fields{};
        quint64 themes = 0; ///< in m_themes
        std::uint32_t themeCount = 0;
        std::int16_t categoria = 0;
    };

    QString TextOf(const Entry& entry, const Range& range) const;

    // None of these is copied when it grows: a file may be as large as the memory allows.
    QByteArray m_text; ///< UTF-8, of all songs
    std::deque<Entry> m_entries;
    std::deque<Range> m_themes;
    QList<ExchangeDefect> m_defects;
    qint64 m_defectCount = 0;
};
