#include "tools/StandardInput.h"

#include "runtime/FileTrouble.h"

#include <QTemporaryFile>

#include <cstdio>

QString KeepInput(QTemporaryFile& file)
{
    constexpr qint64 Piece = qint64{1} << 20;
    const QString noPlace = u"não há lugar para um arquivo provisório: "_qs;
    if (!file.open())
        return noPlace + FileTrouble(file);
    QFile input;
    bool read = input.open(stdin, QIODevice::ReadOnly);
    while (read) {
        const QByteArray bytes = input.read(Piece);
        if (bytes.isEmpty())
            break;
        if (file.write(bytes) != bytes.size())
            return noPlace + FileTrouble(file);
    }
    read = read && input.error() == QFile::NoError;
    if (!read)
        return u"a entrada padrão não pode ser lida"_qs; // it may be closed, and need not be a file
    return file.flush() ? QString() : noPlace + FileTrouble(file);
}
