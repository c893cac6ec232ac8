#pragma once

#include "harness/Scale.h"
#include "harness/Table.h"

// Each measures one subject and adds its rows to the table.

void BenchFill(const Scale& scale, Table& table);
void BenchSearch(const Scale& scale, Table& table);
void BenchTyping(const Scale& scale, Table& table);
void BenchChords(const Scale& scale, Table& table);
void BenchViewer(const Scale& scale, Table& table);
void BenchStart(const Scale& scale, Table& table);
