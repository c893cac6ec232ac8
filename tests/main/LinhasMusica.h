#pragma once

#include "controls/ListaMusicas.h"

inline LinhaMusica Linha(qint64 id, const QString& titulo,
                         const QString& referencia = u"Anônimo"_qs, const QString& tom = u"C"_qs,
                         const QString& contador = u"0"_qs)
{
    return {id, titulo, referencia, tom, contador};
}

inline std::vector<LinhaMusica> Linhas(int quantas)
{
    std::vector<LinhaMusica> linhas;
    for (int i = 1; i <= quantas; ++i)
        linhas.push_back(Linha(i, u"Canção %1"_qs.arg(i)));
    return linhas;
}

inline QStringList Coluna(const QAbstractItemModel& modelo, int coluna)
{
    QStringList textos;
    for (int i = 0; i < modelo.rowCount(); ++i)
        textos.append(modelo.index(i, coluna).data().toString());
    return textos;
}
