#include "fonts/ProgramFonts.h"

#include <QDir>
#include <QFontDatabase>

QStringList ProgramFonts::Load(const QString& folder)
{
    QStringList families;
    const QFileInfoList files = QDir(folder).entryInfoList(
        {QStringLiteral("*.ttf"), QStringLiteral("*.otf")}, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        const int font = QFontDatabase::addApplicationFont(file.absoluteFilePath());
        if (font >= 0)
            families += QFontDatabase::applicationFontFamilies(font);
    }
    families.removeDuplicates();
    return families;
}
