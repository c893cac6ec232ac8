#pragma once

#include <QString>

/// Cuts a song into lines and makes each safe to stand in an RTF document, in one scan.
namespace Chords {

/// Lines end at CR LF and at "£"; an empty one follows the last. "\", "{" and "}" come escaped by a
/// "\", percent signs are gone (so CR, "%", LF is a line break too), all else is as in the song.
class LineCutter
{
public:
    /// @param texto  the song; must outlive the cutter
    explicit LineCutter(QStringView texto) noexcept;

    /// @param line  receives the next line, valid until the next call
    /// @return false after the last line
    bool Next(QStringView& line);

private:
    bool EndsLine();

    const char16_t* m_next;
    const char16_t* m_end;
    QString m_escaped; ///< the current line, if it differs from the song's own characters
    enum { Inside, BeforeLast, After } m_state = Inside;
};

} // namespace Chords
