#include "store/WatchedFiles.h"

#include <QtGlobal>

#include <sqlite3.h>

namespace {

/// SQLite lays this out itself, followed by the file of the VFS that does the work.
struct WatchedFile
{
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_vfs* realVfs = nullptr;
sqlite3_vfs watchedVfs;
WatchedFiles::Watcher currentWatcher;

bool Allowed(WatchedFiles::Step step)
{
    return !currentWatcher || currentWatcher(step);
}

sqlite3_file* Real(sqlite3_file* file)
{
    return reinterpret_cast<WatchedFile*>(file)->real;
}

int Close(sqlite3_file* file)
{
    return Real(file)->pMethods->xClose(Real(file));
}

int Read(sqlite3_file* file, void* to, int amount, sqlite3_int64 at)
{
    return Real(file)->pMethods->xRead(Real(file), to, amount, at);
}

int Write(sqlite3_file* file, const void* from, int amount, sqlite3_int64 at)
{
    if (!Allowed(WatchedFiles::Step::Write))
        return SQLITE_FULL;
    return Real(file)->pMethods->xWrite(Real(file), from, amount, at);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size)
{
    if (!Allowed(WatchedFiles::Step::Cut))
        return SQLITE_IOERR_TRUNCATE;
    return Real(file)->pMethods->xTruncate(Real(file), size);
}

int Sync(sqlite3_file* file, int flags)
{
    if (!Allowed(WatchedFiles::Step::Flush))
        return SQLITE_IOERR_FSYNC;
    return Real(file)->pMethods->xSync(Real(file), flags);
}

int FileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return Real(file)->pMethods->xFileSize(Real(file), size);
}

int Lock(sqlite3_file* file, int level)
{
    return Real(file)->pMethods->xLock(Real(file), level);
}

int Unlock(sqlite3_file* file, int level)
{
    return Real(file)->pMethods->xUnlock(Real(file), level);
}

int CheckReservedLock(sqlite3_file* file, int* held)
{
    return Real(file)->pMethods->xCheckReservedLock(Real(file), held);
}

int FileControl(sqlite3_file* file, int operation, void* argument)
{
    return Real(file)->pMethods->xFileControl(Real(file), operation, argument);
}

int SectorSize(sqlite3_file* file)
{
    return Real(file)->pMethods->xSectorSize(Real(file));
}

// Not the real file's word: a disk that promised more than this would have fewer steps to watch.
int Characteristics(sqlite3_file*)
{
    return 0;
}

const sqlite3_io_methods watchedMethods = {1,
                                           Close,
                                           Read,
                                           Write,
                                           Truncate,
                                           Sync,
                                           FileSize,
                                           Lock,
                                           Unlock,
                                           CheckReservedLock,
                                           FileControl,
                                           SectorSize,
                                           Characteristics,
                                           nullptr,
                                           nullptr,
                                           nullptr,
                                           nullptr,
                                           nullptr,
                                           nullptr};

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* const watched = reinterpret_cast<WatchedFile*>(file);
    watched->base.pMethods = nullptr;
    watched->real = reinterpret_cast<sqlite3_file*>(watched + 1);
    const int result = realVfs->xOpen(realVfs, name, watched->real, flags, outFlags);
    if (watched->real->pMethods)
        watched->base.pMethods = &watchedMethods;
    return result;
}

int Delete(sqlite3_vfs*, const char* name, int syncFolder)
{
    if (!Allowed(WatchedFiles::Step::Remove))
        return SQLITE_IOERR_DELETE;
    return realVfs->xDelete(realVfs, name, syncFolder);
}

} // namespace

WatchedFiles::WatchedFiles()
{
    realVfs = sqlite3_vfs_find(nullptr);
    watchedVfs = *realVfs;
    watchedVfs.zName = "watched";
    watchedVfs.szOsFile = static_cast<int>(sizeof(WatchedFile)) + realVfs->szOsFile;
    watchedVfs.xOpen = Open;
    watchedVfs.xDelete = Delete;
    if (sqlite3_vfs_register(&watchedVfs, 1) != SQLITE_OK)
        qFatal("no VFS");
}

WatchedFiles::~WatchedFiles()
{
    currentWatcher = {};
    sqlite3_vfs_unregister(&watchedVfs);
    sqlite3_vfs_register(realVfs, 1);
}

void WatchedFiles::Watch(Watcher watcher)
{
    currentWatcher = std::move(watcher);
}
