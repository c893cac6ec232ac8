#pragma once

#include <QString>

#include <optional>

namespace Songbook {

/// One directive of a ChordPro line: "{title: Asa Branca}".
struct ChordProDirective
{
    QString name; ///< in small letters, short names written out ("soc" is "start_of_chorus")
    QString
        selector;  ///< of a directive meant for some instrument only: "guitar" of "define-guitar"
    QString value; ///< without blanks at both ends; of "meta" what follows the name
    QString exact; ///< the value with its blanks, except one behind the colon

    /// @return what the environment is called ("chorus") when the directive begins one, else empty
    QString Begins() const;

    /// @return what the environment is called when the directive ends one, else empty
    QString Ends() const;

    /// @return the attribute label="..." of the value, or the value itself when it has none
    QString Label() const;

    /// @return true for what only arranges the printed page
    bool IsLayout() const;

    /// @return true for the names that the format describes and for ours
    bool IsKnown() const;
};

/// @return nothing when the line is none: it begins with "{", and ends with "}" but for blanks
std::optional<ChordProDirective> ReadDirective(QStringView line);

} // namespace Songbook
