#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

/// The chord sheet as the rich-text box sees it: text and its character formats, free of RTF.
namespace Rtf {

constexpr int DefaultSize = 24;   ///< half points, where a document names no size
constexpr int LargestSize = 3276; ///< half points

/// How a stretch of text looks.
struct Format
{
    bool bold = false;
    std::optional<std::uint32_t> colour; ///< 0xRRGGBB; none is the display's own
    int halfPoints = DefaultSize;        ///< 1 to LargestSize

    bool operator==(const Format&) const = default;
};

/// So many UTF-16 units of the text, from where the run before ends.
struct Run
{
    qsizetype length = 0;
    Format format;

    bool operator==(const Run&) const = default;
};

struct Document
{
    QString text;                 ///< lines separated by LF
    std::vector<Run> runs;        ///< all of text; neighbours differ in format, none is empty
    int halfPoints = DefaultSize; ///< the size in effect where the text begins
    QString fontName;             ///< of the font in effect there; may be empty

    bool operator==(const Document&) const = default;

    /// Adds text in one format.
    void Append(QStringView more, const Format& format);
};

} // namespace Rtf
