#include "tools/SongSources.h"

#include "mld/ExchangeReader.h"
#include "runtime/FileTrouble.h"
#include "runtime/RuntimeError.h"
#include "songbook/Source.h"
#include "songbook/SourceText.h"
#include "songbook/Transposition.h"
#include "songbook/XmlTree.h"
#include "store/text/Collation.h"
#include "tools/DestinationKind.h"
#include "tools/Interruption.h"
#include "tools/SongFiles.h"
#include "tools/StandardInput.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>

namespace {

bool IsCatalogue(const QByteArray& start)
{
    constexpr qsizetype Signature = 32;
    return Songbook::ReadSource(start.left(Signature), {}).kind == Songbook::SourceKind::Catalogue;
}

/// An exchange file may be larger than any other source, so it is told by its beginning; its name
/// counts where the root is called otherwise, which an import does not mind.
bool IsExchange(const QByteArray& start, const QString& source)
{
    if (source.endsWith(u".mld", Qt::CaseInsensitive))
        return true;
    const qsizetype root = start.indexOf("<musicas");
    const QByteArray before = start.first(qMax(root, qsizetype{0})).trimmed();
    return root >= 0 && (before.isEmpty() || before.endsWith('>'));
}

/// A mark is a line break in every text of an exchange file, as the import has it.
void ReadBreaks(QString& text)
{
    text.replace(u"[br]"_qs, u"\r\n"_qs);
}

std::string Utf8(const std::optional<QString>& text)
{
    return text.value_or(QString()).toStdString();
}

} // namespace

QString TextOf(const ExchangeSong& song, int version)
{
    const QString first = song.letra1.value_or(QString());
    const QString second = song.letra2.value_or(QString());
    const QString& wanted = version == 1 ? first : second;
    return wanted.isEmpty() ? (version == 1 ? second : first) : wanted;
}

SongSources::SongSources(const ConversionOrder& order, ConversionReport& report)
    : m_order(order)
    , m_report(report)
    , m_choice(order.titles, order.themes)
{
}

void SongSources::Read()
{
    const QStringList files = FindSongFiles(m_order.sources, m_order.destination, m_report);
    for (const QString& source : files) {
        ReadSource(source);
        ++m_files;
        m_report.Progress(m_files, files.size(), u"arquivos lidos"_qs);
        if (!m_failure.isEmpty())
            return;
    }
}

void SongSources::ReadSource(const QString& source)
{
    if (source != Standard()) {
        ReadFile(source, source);
        return;
    }
    QTemporaryFile file;
    Interruption::LetThrough(); // nobody may ever write into the input
    const QString notKept = KeepInput(file);
    Interruption::Watch();
    if (notKept.isEmpty())
        ReadFile(source, file.fileName());
    else
        m_report.TellUnread(source, 0, notKept);
}

void SongSources::ReadFile(const QString& source, const QString& path)
{
    if (source != Standard())
        m_read.insert(QFileInfo(path).canonicalFilePath());
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_report.TellUnread(source, 0, FileTrouble(file));
        return;
    }
    constexpr qint64 Start = 4096;
    const QByteArray start = file.peek(Start);
    if (IsCatalogue(start))
        ReadCatalogue(source, path);
    else if (!m_order.setlist.isEmpty())
        m_failure = u"--lista precisa de um catálogo como origem: "_qs + source;
    else if (IsExchange(start, source))
        ReadExchange(source, file);
    else
        ReadOthers(source, file);
}

void SongSources::ReadCatalogue(const QString& source, const QString& path)
{
    try {
        Songbook::CatalogueSongs catalogue(path);
        if (!m_order.setlist.isEmpty()) {
            ReadSetlist(source, catalogue);
            return;
        }
        const auto progress = [this](qsizetype done, qsizetype all) {
            m_report.Progress(done, all, u"músicas lidas"_qs);
        };
        for (const ExchangeSong& song : catalogue.Songs(progress))
            Choose(source, song, true);
    } catch (const RuntimeError& error) {
        m_report.TellUnread(source, 0, error.WhatFailed());
    }
}

void SongSources::ReadSetlist(const QString& source, Songbook::CatalogueSongs& catalogue)
{
    const auto found = Songbook::FindSetlist(catalogue.Setlists(), m_order.setlist);
    if (!found.list) {
        m_failure = source + u": " + found.failure;
        return;
    }
    int gone = 0;
    for (const ExchangeSong& song : catalogue.SongsOf(found.list->id, m_order.kind->isBook, gone))
        Choose(source, song, true);
    if (gone > 0) {
        Songbook::Remarks remarks;
        remarks.Lost(0, u"%1 música(s) da lista não existe(m) mais"_qs.arg(gone));
        m_report.Tell(source, {}, remarks.All());
    }
    m_chosen.name = found.list->name;
    m_chosen.date = found.list->date;
}

void SongSources::ReadExchange(const QString& source, QFile& file)
{
    const auto songs = ExchangeReader::Read(file);
    if (!songs) {
        // The parser of small files knows the line.
        const bool isSmall = file.seek(0) && file.size() <= Songbook::LargestSource;
        const Songbook::XmlTree tree =
            isSmall ? Songbook::ParseXml(file.readAll()) : Songbook::XmlTree();
        m_report.TellUnread(source, tree.failureLine,
                            u"não é um arquivo do Melodario bem formado"_qs);
        return;
    }
    for (qsizetype i = 0; i < songs->Count(); ++i) {
        ExchangeSong song = songs->At(i);
        for (std::optional<QString>* text : {&song.titulo, &song.referencia, &song.letra1,
                                             &song.letra2, &song.tom, &song.variacao})
            ReadBreaks(**text);
        for (QString& theme : song.temas)
            ReadBreaks(theme);
        Choose(source, song, true);
        m_report.Progress(i + 1, songs->Count(), u"músicas lidas"_qs);
    }
    TellDefects(source, *songs);
}

void SongSources::TellDefects(const QString& source, const ExchangeSongs& songs)
{
    for (const ExchangeDefect& defect : songs.Defects()) {
        QString why = u"não é uma música"_qs;
        if (defect.kind == ExchangeDefect::Kind::FieldMissing)
            why = u"falta "_qs + defect.fields;
        else if (defect.kind == ExchangeDefect::Kind::NoNumber)
            why = u"a categoria não é um número"_qs;
        else if (defect.kind == ExchangeDefect::Kind::TooLong)
            why = u"o texto é longo demais"_qs;
        Songbook::Remarks remarks;
        remarks.Lost(0, u"a música %1 ficou para trás: %2"_qs.arg(defect.number).arg(why));
        m_report.Tell(source, defect.titulo, remarks.All());
    }
    const qint64 more = songs.DefectCount() - songs.Defects().size();
    if (more > 0) {
        Songbook::Remarks remarks;
        remarks.Lost(0, u"mais %1 músicas ficaram para trás"_qs.arg(more));
        m_report.Tell(source, {}, remarks.All());
    }
}

void SongSources::ReadOthers(const QString& source, QFile& file)
{
    // One byte more than a source may have shows that there is too much.
    const QByteArray bytes = file.read(Songbook::LargestBook + 1);
    if (file.error() != QFile::NoError) {
        m_report.TellUnread(source, 0, FileTrouble(file));
        return;
    }
    const QString name = source == Standard() ? QString() : QFileInfo(source).completeBaseName();
    const Songbook::Source read = Songbook::ReadSource(bytes, name);
    if (read.kind == Songbook::SourceKind::Exchange && file.seek(0)) {
        ReadExchange(source, file);
        return;
    }
    if (!read.reading.failure.isEmpty()) {
        m_report.TellUnread(source, read.reading.failureLine, read.reading.failure);
        return;
    }
    qsizetype done = 0;
    for (const ExchangeSong& song : read.reading.songs) {
        Choose(source, song, false);
        m_report.Progress(++done, read.reading.songs.size(), u"músicas lidas"_qs);
    }
    m_report.Tell(source, {}, read.reading.remarks);
}

void SongSources::Choose(const QString& source, const ExchangeSong& song, bool amongMany)
{
    ++m_seen;
    if (!m_choice.Takes(song))
        return;
    Songbook::Remarks remarks;
    ChosenSong chosen{Songbook::TransposedSong(song, m_order.semitones, remarks), source,
                      amongMany};
    if (m_order.version != 0)
        chosen.song.letra1 = chosen.song.letra2 = TextOf(chosen.song, m_order.version);
    m_report.Tell(source, chosen.TitleAmongMany(), remarks.All());
    m_chosen.songs.append(std::move(chosen));
}

ChosenSongs SongSources::Take()
{
    if (m_order.kind->isBook && m_order.setlist.isEmpty())
        SortByTitle();
    if (m_chosen.name.isEmpty() && !m_order.themes.isEmpty())
        m_chosen.name = m_order.themes.join(u", ");
    return std::move(m_chosen);
}

bool SongSources::IsSource(const QString& path) const
{
    const QString there = path == Standard() ? QString() : QFileInfo(path).canonicalFilePath();
    return !there.isEmpty() && m_read.contains(there);
}

/// As lists of the program are sorted.
void SongSources::SortByTitle()
{
    struct Keyed
    {
        std::string title;
        qsizetype index = 0;
    };
    std::vector<Keyed> order;
    for (qsizetype i = 0; i < m_chosen.songs.size(); ++i)
        order.push_back({Utf8(m_chosen.songs[i].song.titulo), i});
    const Collation& collation = Collation::Shared();
    std::stable_sort(order.begin(), order.end(), [&collation](const Keyed& a, const Keyed& b) {
        return collation.Compare(a.title, b.title) < 0;
    });
    QList<ChosenSong> sorted;
    sorted.reserve(m_chosen.songs.size());
    for (const Keyed& keyed : order)
        sorted.append(std::move(m_chosen.songs[keyed.index]));
    m_chosen.songs = std::move(sorted);
}
