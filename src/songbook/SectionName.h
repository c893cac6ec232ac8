#pragma once

#include <QString>

namespace Songbook {

/// @param code  how the song formats name a part: "V1", "c2", "p", "v1a"
/// @return its heading in Portuguese ("1ª estrofe", "Refrão 2"); the code itself when it is none
QString SectionName(const QString& code);

/// @param kind  an English name: "verse", "chorus", "bridge", in any letter case
/// @return its heading in Portuguese; nothing for others
QString SectionOfKind(const QString& kind);

/// @param line  a line of plain text
/// @return the heading that it is ("[Refrão]", "Refrão:", "VERSE 2", "1ª estrofe"), empty when it
///         is none
QString SectionOfLine(QStringView line);

} // namespace Songbook
