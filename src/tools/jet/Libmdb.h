#pragma once

// The library's header includes GLib's inside extern "C", where GLib's templates do not compile; so
// GLib comes first.
#include <glib.h>

#include <mdbtools.h>

#include <cstdint>
#include <memory>

struct CloseJetFile
{
    void operator()(MdbHandle* file) const { mdb_close(file); }
};
using JetFileHandle = std::unique_ptr<MdbHandle, CloseJetFile>;

struct FreeJetTable
{
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using JetTableHandle = std::unique_ptr<MdbTableDef, FreeJetTable>;

namespace Libmdb {

/// @return the column at a position of the table, from 0
inline MdbColumn& Column(const MdbTableDef& table, unsigned position)
{
    return *static_cast<MdbColumn*>(table.columns->pdata[position]);
}

inline std::uint32_t Word(const unsigned char* bytes)
{
    return bytes[0] | std::uint32_t{bytes[1]} << 8U;
}

inline std::uint32_t DoubleWord(const unsigned char* bytes)
{
    return Word(bytes) | Word(bytes + 2) << 16U;
}

} // namespace Libmdb
