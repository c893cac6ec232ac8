#include "runtime/FileTrouble.h"

#include <QFileDevice>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>

namespace {

struct Reason
{
    std::errc code;
    const char16_t* words;
};

constexpr char16_t NoRight[] = u"falta a permissão";
constexpr char16_t IsFolder[] = u"é uma pasta";
constexpr char16_t NotThere[] = u"o arquivo não existe";

constexpr std::array<Reason, 14> Reasons{{
    {std::errc::permission_denied, NoRight},
    {std::errc::operation_not_permitted, NoRight},
    {std::errc::is_a_directory, IsFolder},
    {std::errc::no_such_file_or_directory, NotThere},
    {std::errc::not_a_directory, NotThere},
    {std::errc::file_exists, u"já existe um arquivo com esse nome"},
    {std::errc::no_space_on_device, u"o disco está cheio"},
    {std::errc::file_too_large, u"o disco não aceita um arquivo tão grande"},
    {std::errc::read_only_file_system, u"no disco só se pode ler"},
    {std::errc::io_error, u"o disco falhou"},
    {std::errc::filename_too_long, u"o nome é longo demais"},
    {std::errc::cross_device_link, u"o destino fica em outro disco"},
    {std::errc::too_many_files_open, u"o sistema não tem mais recursos"},
    {std::errc::not_enough_memory, u"falta memória"},
}};

} // namespace

QString FileTrouble(const std::error_code& failure)
{
    const auto* const found = std::find_if(
        Reasons.begin(), Reasons.end(), [&](const Reason& known) { return failure == known.code; });
    return found == Reasons.end() ? u"o sistema não o permite"_qs
                                  : QString::fromUtf16(found->words);
}

QString FileTrouble(const QFileDevice& file)
{
    const QFileInfo info(file.fileName());
    switch (file.error()) {
    case QFileDevice::PermissionsError:
        return QString::fromUtf16(info.isDir() ? IsFolder : NoRight);
    case QFileDevice::ReadError:
        return u"o disco não entrega o conteúdo"_qs;
    case QFileDevice::WriteError:
        return u"o disco está cheio ou não aceita a gravação"_qs;
    case QFileDevice::ResourceError:
        // While it is written, it is the disk that has no more; when it is opened, the system.
        return file.isWritable() ? u"o disco está cheio"_qs : u"o sistema não tem mais recursos"_qs;
    case QFileDevice::RenameError:
        return u"o arquivo pronto não pôde receber o seu nome"_qs;
    default:
        break;
    }
    if (info.isDir())
        return QString::fromUtf16(IsFolder);
    // Not to be found may also mean that a folder on the way may not be entered.
    std::error_code failure;
    if (!file.fileName().isEmpty() &&
        !std::filesystem::exists(file.fileName().toStdU16String(), failure))
        return failure ? FileTrouble(failure) : QString::fromUtf16(NotThere);
    return info.exists() && !info.isReadable() ? QString::fromUtf16(NoRight)
                                               : u"o arquivo não pode ser aberto"_qs;
}
