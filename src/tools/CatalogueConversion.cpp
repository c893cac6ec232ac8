#include "tools/CatalogueConversion.h"

#include "jet/CatalogueSwap.h"
#include "jet/JetConversion.h"
#include "jet/JetFile.h"
#include "runtime/RuntimeError.h"
#include "tools/ConversionOrder.h"
#include "tools/Messages.h"
#include "tools/OutputFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>

namespace {

/// The format is read back and forth, which a pipe does not allow.
/// @return false when it could not be kept
bool KeepInput(QTemporaryFile& file)
{
    constexpr qint64 Piece = qint64{1} << 20;
    QFile input;
    if (!file.open() || !input.open(stdin, QIODevice::ReadOnly))
        return false;
    QByteArray bytes;
    do {
        bytes = input.read(Piece);
        if (file.write(bytes) != bytes.size())
            return false;
    } while (!bytes.isEmpty());
    return input.error() == QFile::NoError && file.flush();
}

} // namespace

CatalogueConversion::Outcome CatalogueConversion::Run(const QString& source,
                                                      const QString& destination)
{
    if (source != Standard())
        return Convert(source, source, destination);
    QTemporaryFile kept;
    if (!KeepInput(kept)) {
        m_listener.tell(u"(entrada): não lida"_qs);
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
    if (!QFileInfo(path).isFile())
        return refuse(source, u"o arquivo não existe"_qs);
    if (!JetFile::Recognises(path))
        return refuse(source, u"não é um catálogo no formato antigo (Jet); só dele se faz um "
                              "catálogo novo"_qs);
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
