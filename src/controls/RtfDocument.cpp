#include "controls/RtfDocument.h"

void Rtf::Document::Append(QStringView more, const Format& format)
{
    if (more.isEmpty())
        return;
    if (text.isEmpty())
        halfPoints = format.halfPoints;
    text += more;
    if (runs.empty() || runs.back().format != format)
        runs.push_back({0, format});
    runs.back().length += more.size();
}
