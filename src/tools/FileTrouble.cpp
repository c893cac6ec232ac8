#include "tools/FileTrouble.h"

#include <QFileDevice>
#include <QFileInfo>

QString FileTrouble(const QFileDevice& file)
{
    const QFileInfo info(file.fileName());
    switch (file.error()) {
    case QFileDevice::PermissionsError:
        return info.isDir() ? u"é uma pasta"_qs : u"falta a permissão"_qs;
    case QFileDevice::ReadError:
        return u"o disco não entrega o conteúdo"_qs;
    case QFileDevice::WriteError:
        return u"o disco está cheio ou não aceita a gravação"_qs;
    case QFileDevice::ResourceError:
        return u"o sistema não tem mais recursos"_qs;
    case QFileDevice::RenameError:
        return u"o arquivo pronto não pôde receber o seu nome"_qs;
    default:
        break;
    }
    if (info.isDir())
        return u"é uma pasta"_qs;
    if (!file.fileName().isEmpty() && !info.exists())
        return u"o arquivo não existe"_qs;
    return info.exists() && !info.isReadable() ? u"falta a permissão"_qs
                                               : u"o arquivo não pode ser aberto"_qs;
}
