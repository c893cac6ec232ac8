#include "tools/DestinationKind.h"

#include "tools/ConversionOrder.h"

#include <QDir>
#include <QFileInfo>

#include <array>

namespace {

const std::array<DestinationKind, 7>& Kinds()
{
    static const std::array<DestinationKind, 7> kinds = {{
        {u".mld"_qs, u"mld"_qs, false, false, MakeExchangeFile},
        {u".txt"_qs, u"txt"_qs, true, false, MakeTextFile},
        {u".pdf"_qs, u"pdf"_qs, true, true, MakePdfBook},
        {u".cho"_qs, u"cho"_qs, true, false, MakeChordProFile},
        {u".mdb"_qs, u"mdb"_qs, false, false, nullptr},
        {u"/"_qs, u"cho"_qs, false, false, MakeChordProFolder},
        {u"/"_qs, u"txt"_qs, false, false, MakeTextFolder},
    }};
    return kinds;
}

const DestinationKind* Find(bool folder, const QString& format)
{
    for (const DestinationKind& kind : Kinds()) {
        if ((kind.ending == u"/") == folder && kind.format == format)
            return &kind;
    }
    return nullptr;
}

bool IsFolder(const QString& destination)
{
    return destination.endsWith(u'/') || destination.endsWith(QDir::separator());
}

} // namespace

const DestinationKind* FindDestination(const QString& destination, const QString& format,
                                       QString& wrong)
{
    const DestinationKind* found = nullptr;
    if (IsFolder(destination)) {
        found = Find(true, format.isEmpty() ? u"cho"_qs : format);
        if (!found)
            wrong = u"--formato de uma pasta é cho ou txt, não \"%1\""_qs.arg(format);
    } else if (destination == Standard()) {
        found = Find(false, format.isEmpty() ? u"mld"_qs : format);
        if (!found || !found->make)
            wrong = u"--formato da saída padrão é mld, txt, cho ou pdf, não \"%1\""_qs.arg(format);
    } else if (!format.isEmpty()) {
        wrong = u"--formato só vale para uma pasta (terminada em /) ou para a saída padrão (-)"_qs;
    } else if (QFileInfo(destination).isDir()) {
        wrong = u"o destino é uma pasta; para escrever nela, termine-o com /: "_qs + destination;
    } else {
        found = Find(false, QFileInfo(destination).suffix().toLower());
        if (!found)
            wrong = u"o destino precisa terminar em .mld, .mdb, .txt, .pdf, .cho ou / (uma "
                    "pasta): "_qs +
                    destination;
    }
    return found;
}
