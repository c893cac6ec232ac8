#pragma once

#include "mld/ExchangeSongs.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

/// Makes songs of what an XML parser comes across, in the order of the document.
///
/// Every child of the root is a song, whatever its name; the root's name does not matter either. A
/// field is the first element below the song that has its name, at any depth, and its text is all
/// text inside. The themes are the children of the first "temas". Text that is only white space is
/// no child.
///
/// All text of a song is kept once, however fields lie inside each other: a field is a part of it.
class SongCollector
{
public:
    using Field = ExchangeSongs::Field;

    /// A field's text, and all text of a song, is at most this long, in bytes of UTF-8: a longer
    /// one makes the song a faulty one and takes no memory.
    static constexpr std::size_t LongestText = std::size_t{128} * 1024 * 1024;

    /// @param longestText  bytes; another one than usual is for tests
    explicit SongCollector(std::size_t longestText = LongestText)
        : m_longestText(longestText)
    {
    }

    /// An element begins. @param field  the one that it is named like; nothing for any other name
    void Begin(std::optional<Field> field);

    /// The element that began last and has not ended ends.
    void End();

    /// A piece of text. @param utf8  any part of it
    /// @param isPlain  false where the author marked it as text (CDATA): then even blanks are some
    void Add(std::string_view utf8, bool isPlain = true);

    /// A comment or a processing instruction: no child where themes are, but it parts the texts
    /// there, and is a child of the root.
    void AddOther();

    /// @return what was collected; the document has ended.
    ExchangeSongs Take() { return std::move(m_songs); }

private:
    enum { RootDepth = 1, SongDepth = 2 };

    using Range = ExchangeSongs::Range;

    void BeginSong();
    void EndSong();
    void EndField(Field field);
    void EndTheme();
    void Refuse(ExchangeDefect::Kind kind, QString fields);
    void RefuseChild();
    bool Check();
    std::uint32_t Place() const;

    ExchangeSongs m_songs;
    std::size_t m_longestText;

    /// What each element that is open stands for.
    struct Level
    {
        std::optional<Field> field;
    };
    std::vector<Level> m_levels;

    qint64 m_child = 0;           ///< of the root, counted from 1
    bool m_inRootText = false;    ///< its text before the next element is one child
    ExchangeSongs::Entry m_entry; ///< of the song that is open
    std::array<bool, ExchangeSongs::Fields> m_hasField{};
    int m_openFields = 0;
    std::size_t m_themesDepth = 0;  ///< of the first "temas" while it is open
    std::uint32_t m_themeStart = 0; ///< of a child of it, be it an element or text
    bool m_inThemeElement = false;
    bool m_isTooLong = false;
};
