#pragma once

#include <QDir>
#include <QList>
#include <QString>

/// The museum of exchange files: one of each kind that can exist, good and bad, named after what is
/// special in it, and what must come out of it.
namespace Museu {

struct Peca
{
    QString nome;     ///< of the file, without ".mld"
    QString conteudo; ///< as Museu.cpp tells; Recusado() for a file that is not well-formed
};

inline QString Recusado()
{
    return QStringLiteral("refused");
}

inline QDir Pasta()
{
    return QDir(QStringLiteral(MELODARIO_SOURCE_DIR "/tests/mld/museu"));
}

QList<Peca> Pecas();

} // namespace Museu
