#pragma once

#include "harness/ResultTable.h"
#include "harness/Scale.h"

// Each measures one subject and adds its rows to the table.

void BenchFill(const Scale& scale, ResultTable& table);
void BenchSearch(const Scale& scale, ResultTable& table);
void BenchSuggestions(const Scale& scale, ResultTable& table);
void BenchTyping(const Scale& scale, ResultTable& table);
void BenchChords(const Scale& scale, ResultTable& table);
void BenchViewer(const Scale& scale, ResultTable& table);
void BenchScroll(const Scale& scale, ResultTable& table);
void BenchSongList(const Scale& scale, ResultTable& table);
void BenchSetlist(const Scale& scale, ResultTable& table);
void BenchExport(const Scale& scale, ResultTable& table);
void BenchImport(const Scale& scale, ResultTable& table);

/// What a process of its own does for BenchImport: imports a file into an empty catalogue and
/// writes the most memory that it took.
void ImportAlone(const QString& path);

void BenchStart(const Scale& scale, ResultTable& table);
void BenchVerify(const Scale& scale, ResultTable& table);
