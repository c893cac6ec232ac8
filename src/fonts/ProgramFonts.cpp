#include "fonts/ProgramFonts.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>

QStringList ProgramFonts::Load(const QString& folder)
{
    QStringList families;
    const QFileInfoList files = QDir(folder).entryInfoList(
        {QStringLiteral("*.ttf"), QStringLiteral("*.otf")}, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        // By its content: by its name the toolkit's reader finds no file in a folder whose name has
        // letters beyond the code page.
        QFile content(file.absoluteFilePath());
        if (!content.open(QIODevice::ReadOnly))
            continue;
        const int font = QFontDatabase::addApplicationFontFromData(content.readAll());
        if (font >= 0)
            families += QFontDatabase::applicationFontFamilies(font);
    }
    families.removeDuplicates();
    return families;
}
