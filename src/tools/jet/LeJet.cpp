// melodario-jet: reads a catalogue in the Jet format for the programs that convert it, and ends
// with it when the file is damaged in a way that the library does not survive. Not for people; what
// it says is told in jet/RowStream.h.
//   melodario-jet FILE [TABLE.COLUMN]...
// Without columns it tells of the tables only. Columns of a table stand together.

#include "tools/jet/FrameWriter.h"
#include "tools/jet/JetRows.h"
#include "tools/jet/JetTables.h"
#include "tools/jet/JetTrouble.h"
#include "tools/jet/ProcessLimits.h"

#include <cstdio>
#include <filesystem>
#include <new>
#include <span>

namespace {

constexpr int Said = 0;
constexpr int FailureSaid = 1;
constexpr int NothingSaid = 2;

using RowStream::Frame;

struct Wanted
{
    std::string table;
    std::vector<std::string> columns;
};

/// Far above what a sound file takes.
void LimitFor(const char* path)
{
    constexpr unsigned Seconds = 10;
    constexpr std::uintmax_t BytesInASecond = std::uintmax_t{1} << 20U;
    constexpr unsigned MostSeconds = 600;
    constexpr std::size_t Memory = std::size_t{512} * 1024 * 1024;
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    const std::uintmax_t more = error ? 0 : size / BytesInASecond;
    ProcessLimits::Set(Seconds + static_cast<unsigned>(std::min<std::uintmax_t>(more, MostSeconds)),
                       Memory);
}

std::vector<Wanted> ReadWanted(std::span<char*> arguments)
{
    std::vector<Wanted> wanted;
    for (const std::string argument : arguments) {
        const std::size_t point = argument.find('.');
        const std::string table = argument.substr(0, point);
        if (wanted.empty() || wanted.back().table != table)
            wanted.push_back({table, {}});
        if (point != std::string::npos)
            wanted.back().columns.push_back(argument.substr(point + 1));
    }
    return wanted;
}

void SendTable(const JetTables::Entry& entry, FrameWriter& out)
{
    const MdbTableDef* table = entry.table.get();
    std::string counted;
    for (unsigned i = 0; table && i < table->num_cols; ++i) {
        if (Libmdb::Column(*table, i).is_long_auto)
            counted = Libmdb::Column(*table, i).name;
    }
    out.Begin(Frame::Table);
    out.Text(entry.name);
    out.Whole(table ? table->num_rows : 0);
    out.Whole(static_cast<std::uint32_t>(entry.lastNumber));
    out.Text(counted);
    out.Whole(table ? table->num_cols : 0);
    for (unsigned i = 0; table && i < table->num_cols; ++i)
        out.Text(Libmdb::Column(*table, i).name);
    out.Send();
}

void Send(const char* path, const std::vector<Wanted>& wanted, FrameWriter& out)
{
    const JetTables tables(path);
    out.Begin(Frame::Hello);
    out.Whole(RowStream::Version);
    out.Whole(tables.File().f->code_page);
    out.Send();
    for (const JetTables::Entry& entry : tables.All())
        SendTable(entry, out);
    out.Send(Frame::EndOfTables);

    std::uint32_t position = 0;
    for (const Wanted& want : wanted) {
        MdbTableDef& table = tables.Find(want.table);
        std::vector<const MdbColumn*> columns;
        for (const std::string& column : want.columns)
            columns.push_back(&JetTables::Find(table, column));
        out.Begin(Frame::Begin);
        out.Whole(position++);
        out.Send();
        JetRows(tables.File(), table, std::move(columns), out).Send();
        out.Send(Frame::End);
    }
    out.Send(Frame::Done);
}

int Fail(const JetTrouble& trouble, FrameWriter& out)
{
    out.Begin(Frame::Failure);
    out.Add(trouble.trouble);
    out.Text(trouble.about);
    out.Send();
    return FailureSaid;
}

int Run(const char* path, const std::vector<Wanted>& wanted, FrameWriter& out)
{
    try {
        Send(path, wanted, out);
        return Said;
    } catch (const JetTrouble& trouble) {
        return Fail(trouble, out);
    } catch (const std::bad_alloc&) {
        return Fail({RowStream::Trouble::Damaged, "a memória não bastou"}, out);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() < 2) {
        std::fputs("melodario-jet ARQUIVO [TABELA.COLUNA]...\n", stderr);
        return NothingSaid;
    }
    try {
        LimitFor(arguments[1]);
        FrameWriter out;
        return Run(arguments[1], ReadWanted(arguments.subspan(2)), out);
    } catch (const FrameWriter::NobodyReads&) {
        return NothingSaid;
    } catch (const std::exception&) {
        return NothingSaid;
    }
}
