// The form of a fuzzer that every build has: it runs the inputs that are kept, once each.

#include "Input.h"

#include <QDir>
#include <QFile>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            return 1;
        const QByteArray bytes = file.readAll();
        // Told before it runs: whoever ends the program is the last one named.
        std::fprintf(stderr, "%s\n", qUtf8Printable(name));
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    std::fprintf(stderr, "%d inputs\n", static_cast<int>(names.size()));
    return names.isEmpty() ? 1 : 0;
}
