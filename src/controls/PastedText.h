#pragma once

#include <QString>

class QMimeData;

/// @return the plain text of what the clipboard holds, its lines separated by LF whatever separated
///         them there: CR LF and CR of other systems, the page breaks and soft line breaks of word
///         processors (FF, VT, U+2028), paragraph separators and NEL. Everything else stays as it
///         is, no-break spaces too. Formatting and pictures are left behind, copied files too.
QString PastedText(const QMimeData& clipboard);
