#include "harness/Memory.h"

#include <QByteArrayList>
#include <QFile>

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

qint64 Memory::Held()
{
#ifdef __GLIBC__
    const auto held = mallinfo2();
    return static_cast<qint64>(held.uordblks) + static_cast<qint64>(held.hblkhd);
#else
    return 0;
#endif
}

qint64 Memory::Peak()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArrayList lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}
