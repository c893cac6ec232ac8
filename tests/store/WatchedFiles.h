#pragma once

#include <functional>

/// Stands between SQLite and the disk while it lives: every write, flush, cut and removal of any
/// database file of this process is told before it happens, and may be refused.
///
/// Connections that are opened meanwhile have to be closed before it goes.
class WatchedFiles
{
public:
    enum class Step { Write, Flush, Cut, Remove };

    /// Called before each step. @return false to refuse it as a full disk would
    using Watcher = std::function<bool(Step)>;

    WatchedFiles();
    ~WatchedFiles();
    WatchedFiles(const WatchedFiles&) = delete;
    WatchedFiles& operator=(const WatchedFiles&) = delete;

    void Watch(Watcher watcher);
};
