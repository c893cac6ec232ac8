#include "tools/CatalogueConversion.h"

#include "jet/CatalogueSwap.h"
#include "jet/JetConversion.h"
#include "runtime/FileTrouble.h"
#include "runtime/RuntimeError.h"
#include "store/CatalogueFile.h"
#include "tools/ConversionOrder.h"
#include "tools/Messages.h"
#include "tools/OutputFiles.h"
#include "tools/StandardInput.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

namespace {

/// @return why no catalogue in the older format can be read there, in Portuguese
QString WhyNotOld(const QString& path)
{
    const QFileInfo found(path);
    if (found.isDir())
        return u"é uma pasta"_qs;
    if (found.exists() && !found.isFile())
        return u"não é um arquivo comum"_qs;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileTrouble(file);
    const QByteArray header = file.read(CatalogueFile::HeaderLength);
    if (file.error() != QFileDevice::NoError)
        return FileTrouble(file);
    if (CatalogueFile::IsOlderFormat(header))
        return {};
    return header.startsWith("SQLite format 3")
               ? u"já é um catálogo no formato novo; não há o que converter"_qs
               : u"não é um catálogo no formato antigo (Jet); só dele se faz um catálogo novo"_qs;
}

} // namespace

CatalogueConversion::Outcome CatalogueConversion::Run(const QString& source,
                                                      const QString& destination)
{
    if (source != Standard())
        return Convert(source, source, destination);
    QTemporaryFile kept;
    const QString notKept = KeepInput(kept);
    if (!notKept.isEmpty()) {
        m_listener.tell(u"(entrada): não lida: "_qs + notKept);
        return Outcome::NotDone;
    }
    return Convert(kept.fileName(), u"(entrada)"_qs, destination);
}

CatalogueConversion::Outcome
CatalogueConversion::Convert(const QString& path, const QString& source, const QString& destination)
{
    const auto refuse = [this](const QString& where, const QString& why) {
        m_listener.tell(where + u": " + why);
        return Outcome::NotDone;
    };
    const QString notOld = WhyNotOld(path);
    if (!notOld.isEmpty())
        return refuse(source, notOld);
    if (CatalogueSwap::RealPath(path) == CatalogueSwap::RealPath(destination))
        return refuse(destination, u"o destino é a própria origem"_qs);
    if (QFileInfo(destination).isDir())
        return refuse(destination, u"o destino é uma pasta"_qs);
    const QString noPlace = WhyNoFile(CatalogueSwap::RealPath(destination));
    if (!noPlace.isEmpty())
        return refuse(source, u"não convertido: " + noPlace);
    const JetConversion::Progress progress = [this](double done) {
        constexpr int All = 100;
        m_listener.progress(static_cast<int>(done * All));
    };
    try {
        const QString target = CatalogueSwap::RealPath(destination);
        CatalogueSwap::CheckPlace(target);
        const JetConversion::Report report =
            m_simulate ? JetConversion::TryOut(path, progress)
                       : JetConversion::Convert(path, target, m_replace, progress);
        if (!report.left.IsEmpty())
            m_listener.tell(source + u": ficou para trás: " + report.left.ToText());
        m_summary = u"%1: %2 música(s), %3 tema(s), %4 lista(s)"_qs.arg(destination)
                        .arg(report.songs)
                        .arg(report.themes)
                        .arg(report.setlists);
        return report.left.IsEmpty() ? Outcome::Done : Outcome::SomethingLeft;
    } catch (const RuntimeError& error) {
        return refuse(source, u"não convertido: " + Reason(error));
    }
}
