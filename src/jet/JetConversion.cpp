#include "jet/JetConversion.h"

#include "jet/CatalogueCheck.h"
#include "jet/CatalogueDraft.h"
#include "jet/CatalogueSwap.h"
#include "jet/JetFailure.h"
#include "runtime/RuntimeError.h"
#include "store/Connection.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

using JetConversion::LeftBehind;
using JetConversion::Progress;
using JetConversion::Report;

// The parts of the work: reading and writing, reading and comparing, and a little at the end.
constexpr double OnePass = 0.49;
constexpr double Checked = 0.99;

bool SameName(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

const Table* Known(const std::vector<Table>& known, const QString& name)
{
    const auto found = std::find_if(known.begin(), known.end(), [&name](const Table& table) {
        return SameName(table.name, name);
    });
    return found == known.end() ? nullptr : &*found;
}

LeftBehind LeftFrom(const QList<JetTable>& tables, const std::vector<Table>& known)
{
    LeftBehind left;
    for (const JetTable& table : tables) {
        const Table* const same = Known(known, table.name);
        if (!same) {
            left.tables += table.name;
            continue;
        }
        for (const QString& column : table.columns) {
            if (!same->Find(column))
                left.columns += same->name + u'.' + column;
        }
    }
    return left;
}

/// How far one of two equal passes over the rows is.
class Pass
{
public:
    Pass(const Progress& progress, double from)
        : m_progress(progress)
        , m_from(from)
    {
    }

    void Expect(const QList<JetTable>& tables, const std::vector<Table>& known)
    {
        for (const JetTable& table : tables)
            m_all += Known(known, table.name) ? table.rows : 0;
    }
    void Row() { ++m_done; }
    void Tell() const
    {
        const auto all = static_cast<double>(std::max(m_all, qint64{1}));
        if (m_progress)
            m_progress(m_from + OnePass * std::min(1.0, static_cast<double>(m_done) / all));
    }

private:
    const Progress& m_progress;
    double m_from;
    qint64 m_all = 0;
    qint64 m_done = 0;
};

/// Somebody may write into the old file while it is read.
class Stamp
{
public:
    explicit Stamp(const QString& path)
        : m_size(QFileInfo(path).size())
        , m_changed(QFileInfo(path).lastModified())
    {
    }
    bool operator==(const Stamp&) const = default;

private:
    qint64 m_size;
    QDateTime m_changed;
};

void SetLastNumbers(CatalogueDraft& draft, const QList<JetTable>& tables)
{
    for (std::size_t i = 0; i < draft.Tables().size(); ++i) {
        for (const JetTable& table : tables) {
            if (SameName(table.name, draft.Tables()[i].name) && SameName(table.counted, u"ID"_qs))
                draft.SetLastNumber(i, table.lastNumber);
        }
    }
}

Report Write(const QString& source, CatalogueDraft& draft, const Progress& progress)
{
    Pass pass(progress, 0);
    Report report;
    QList<JetTable> found;
    JetReader::Listener listener;
    listener.tables = [&](const QList<JetTable>& tables) {
        found = tables;
        report.left = LeftFrom(tables, draft.Tables());
        pass.Expect(tables, draft.Tables());
    };
    listener.row = [&](std::size_t table, const std::vector<Value>& fields) {
        draft.Insert(table, fields);
        pass.Row();
    };
    listener.waiting = [&] { pass.Tell(); };
    JetReader(source, draft.Tables()).Read(listener);
    SetLastNumbers(draft, found);
    draft.Commit();
    const auto rows = [&found](QStringView name) {
        for (const JetTable& table : found) {
            if (name.compare(table.name, Qt::CaseInsensitive) == 0)
                return table.rows;
        }
        return qint64{0};
    };
    report.songs = rows(u"MUSICA");
    report.themes = rows(u"TEMA");
    report.setlists = rows(u"LISTA");
    return report;
}

void Check(const QString& source, const CatalogueDraft& draft, const Progress& progress)
{
    Pass pass(progress, OnePass);
    CatalogueCheck check(draft.Handle(), draft.Tables());
    JetReader::Listener listener;
    listener.tables = [&](const QList<JetTable>& tables) { pass.Expect(tables, draft.Tables()); };
    listener.row = [&](std::size_t table, const std::vector<Value>& fields) {
        check.Compare(table, fields);
        pass.Row();
    };
    listener.waiting = [&] { pass.Tell(); };
    JetReader(source, draft.Tables()).Read(listener);
    check.Finish();
}

/// @throws RuntimeError StoreFailure unless the program opens it
void OpenOnce(const QString& path)
{
    Connection connection;
    connection.Open(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_qs + path +
                    u";User Id=admin;Password=;"_qs);
    connection.Close();
}

Report Fill(CatalogueDraft& draft, const QString& source, const Progress& progress)
{
    const Stamp before(source);
    Report report = Write(source, draft, progress);
    Check(source, draft, progress);
    draft.Close();
    if (!draft.Path().isEmpty())
        OpenOnce(draft.Path());
    if (!(Stamp(source) == before))
        JetFailure::Throw(u"O catálogo antigo foi mudado durante a conversão."_qs);
    return report;
}

void Tell(const Progress& progress, double done)
{
    if (progress)
        progress(done);
}

QString Joined(const QString& one, const QString& several, const QStringList& names)
{
    if (names.isEmpty())
        return {};
    if (names.size() == 1)
        return one + u' ' + names.first();
    return several + u' ' + names.first(names.size() - 1).join(u", ") + u" e " + names.last();
}

} // namespace

QString LeftBehind::ToText() const
{
    QStringList parts{Joined(u"a tabela"_qs, u"as tabelas"_qs, tables),
                      Joined(u"a coluna"_qs, u"as colunas"_qs, columns)};
    parts.removeAll(QString());
    return parts.join(u"; ");
}

LeftBehind JetConversion::Preview(const QString& source)
{
    constexpr int PatienceMs = 3000;
    const CatalogueDraft draft{QString()};
    LeftBehind left;
    JetReader::Listener listener;
    listener.tables = [&](const QList<JetTable>& tables) {
        left = LeftFrom(tables, draft.Tables());
    };
    const std::vector<Table> noRows;
    JetReader reader(source, noRows);
    reader.SetPatience(PatienceMs);
    reader.Read(listener);
    return left;
}

Report JetConversion::TryOut(const QString& source, const Progress& progress)
{
    CatalogueDraft draft{QString()};
    Report report = Fill(draft, source, progress);
    Tell(progress, 1);
    return report;
}

Report JetConversion::Convert(const QString& source, const QString& destination, bool replace,
                              const Progress& progress)
{
    CatalogueSwap::CheckPlace(destination); // before the long work, and again after it
    CatalogueDraft draft(CatalogueSwap::DraftPath(destination));
    Report report = Fill(draft, source, progress);
    if (replace)
        CatalogueSwap::PutInPlace(draft.Path(), destination);
    else
        CatalogueSwap::PutBeside(draft.Path(), destination);
    draft.Keep();
    Tell(progress, 1);
    return report;
}

Report JetConversion::ConvertInPlace(const QString& path, const QString& kept,
                                     const Progress& progress)
{
    CatalogueSwap::CheckPlace(path);
    CatalogueDraft draft(CatalogueSwap::DraftPath(path));
    Report report = Fill(draft, path, progress);
    Tell(progress, Checked);
    CatalogueSwap::KeepOld(path, kept);
    try {
        Tell(progress, 1);
        CatalogueSwap::PutInPlace(draft.Path(), path);
    } catch (const std::exception&) {
        QFile::remove(kept); // the old one is in its place
        throw;
    }
    draft.Keep();
    return report;
}
