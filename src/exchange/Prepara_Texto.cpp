#include "exchange/Prepara_Texto.h"

#include <algorithm>

namespace {

constexpr QStringView Marca = u"[br]";
constexpr QStringView Quebra = u"\r\n";

/// @return where the sign comes next, the text's length when it does not
qsizetype Proximo(QStringView texto, QChar sinal, qsizetype desde)
{
    const qsizetype lugar = texto.indexOf(sinal, desde);
    return lugar < 0 ? texto.size() : lugar;
}

} // namespace

QString Prepara_Texto(const QString& texto)
{
    const QStringView inteiro(texto);
    qsizetype apostrofo = Proximo(inteiro, u'\'', 0);
    qsizetype colchete = Proximo(inteiro, Marca.front(), 0);
    if (apostrofo == colchete)
        return texto; // there is neither
    // In one pass and into room for all of it: lyrics hold a mark a line, and a library many
    // megabytes of lyrics.
    const qsizetype apostrofos = inteiro.sliced(apostrofo).count(u'\'');
    QString preparado(texto.size() + apostrofos, Qt::Uninitialized);
    QChar* destino = preparado.data();
    qsizetype desde = 0;
    for (qsizetype lugar = std::min(apostrofo, colchete); lugar < texto.size();
         lugar = std::min(apostrofo, colchete)) {
        destino = std::copy(inteiro.begin() + desde, inteiro.begin() + lugar, destino);
        desde = lugar + 1;
        if (inteiro.sliced(lugar).startsWith(Marca)) {
            destino = std::copy(Quebra.begin(), Quebra.end(), destino);
            desde = lugar + Marca.size();
        } else {
            *destino++ = inteiro[lugar];
        }
        if (lugar == apostrofo) {
            *destino++ = u'\'';
            apostrofo = Proximo(inteiro, u'\'', desde);
        } else {
            colchete = Proximo(inteiro, Marca.front(), desde);
        }
    }
    destino = std::copy(inteiro.begin() + desde, inteiro.end(), destino);
    preparado.truncate(destino - preparado.constData());
    return preparado;
}
