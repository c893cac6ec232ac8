#pragma once

#include <QColor>
#include <QString>

#include <vector>

/// What an RTF document of our subset shows: a plain text and the formats of its stretches.
struct RtfDocument
{
    /// A stretch of the text with one format; stretches follow each other and cover the text.
    struct Run
    {
        qsizetype from = 0;   ///< position in text, from 0
        qsizetype length = 0; ///< UTF-16 units
        bool bold = false;
        QRgb colour = 0; ///< 0: the display's own text colour (entry 0 of the colour table)
        int halfPoints = 24;

        bool SameFormat(const Run& other) const
        {
            return bold == other.bold && colour == other.colour && halfPoints == other.halfPoints;
        }
    };

    QString text; ///< lines separated by LF
    std::vector<Run> runs;
    QString font;        ///< the family of the font table's first entry; may be empty
    int halfPoints = 24; ///< the size that was set last, which an empty document is typed in
};

/// Reads the RTF subset that the chord sheet is written in: groups, \par and \line, \b, \cf, \fs,
/// \plain, the font and the colour table, \'hh in code page 1252 and \u. Any other word or group is
/// ignored, so is CR and LF in the body; a missing last brace is tolerated. Where the document ends
/// with \par, its one last line break is dropped. Linear in the length of rtf; never fails.
RtfDocument ReadRtf(QStringView rtf);
