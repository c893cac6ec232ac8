#include "exchange/Prepara_Texto.h"

#include <algorithm>

namespace {

constexpr QStringView Marca = u"[br]";

/// @return where the sign comes next, the text's length when it does not
qsizetype Proximo(QStringView texto, QChar sinal, qsizetype desde)
{
    const qsizetype lugar = texto.indexOf(sinal, desde);
    return lugar < 0 ? texto.size() : lugar;
}

} // namespace

QString Prepara_Texto(const QString& texto)
{
    const QStringView resto(texto);
    qsizetype apostrofo = Proximo(resto, u'\'', 0);
    qsizetype colchete = Proximo(resto, Marca.front(), 0);
    if (apostrofo == colchete)
        return texto; // there is neither
    QString preparado;
    preparado.reserve(texto.size() + texto.size() / 8);
    // One pass: lyrics hold a mark a line, and a library many megabytes of lyrics.
    for (qsizetype desde = 0; desde < texto.size();) {
        const qsizetype lugar = std::min(apostrofo, colchete);
        preparado.append(resto.sliced(desde, lugar - desde));
        desde = lugar;
        if (resto.sliced(lugar).startsWith(Marca)) {
            preparado.append(u"\r\n");
            desde += Marca.size();
        } else if (lugar < texto.size()) {
            preparado.append(resto[lugar]);
            if (lugar == apostrofo)
                preparado.append(u'\'');
            ++desde;
        }
        if (lugar == apostrofo)
            apostrofo = Proximo(resto, u'\'', desde);
        else
            colchete = Proximo(resto, Marca.front(), desde);
    }
    return preparado;
}
