#include "fault_vfs.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstring>
#include <new>

namespace quillon::campaign {

namespace {

FaultPlan gPlan;
std::uint64_t gCalls = 0;
sqlite3_vfs* gReal = nullptr;
sqlite3_vfs gShim;

// The file of the real VFS stands in memory behind this one.
struct ShimFile {
    sqlite3_file base;
    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};
sqlite3_file* RealOf(sqlite3_file* file) {
    return reinterpret_cast<ShimFile*>(file)->Real();
}

int Close(sqlite3_file* file) {
    return RealOf(file)->pMethods->xClose(RealOf(file));
}
int Read(sqlite3_file* file, void* data, int size, sqlite3_int64 at) {
    return RealOf(file)->pMethods->xRead(RealOf(file), data, size, at);
}
int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
    if (!FailsNow()) return RealOf(file)->pMethods->xWrite(RealOf(file), data, size, at);
    if (gPlan.fault == Fault::BrokenDisk) return SQLITE_IOERR_WRITE;
    // A disk that fills up takes the first part.
    RealOf(file)->pMethods->xWrite(RealOf(file), data, size / 2, at);
    return SQLITE_FULL;
}
int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    return FailsNow() ? SQLITE_IOERR_TRUNCATE : RealOf(file)->pMethods->xTruncate(RealOf(file), size);
}
int Sync(sqlite3_file* file, int flags) {
    return FailsNow() ? SQLITE_IOERR_FSYNC : RealOf(file)->pMethods->xSync(RealOf(file), flags);
}
int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return RealOf(file)->pMethods->xFileSize(RealOf(file), size);
}
int Lock(sqlite3_file* file, int level) {
    return RealOf(file)->pMethods->xLock(RealOf(file), level);
}
int Unlock(sqlite3_file* file, int level) {
    return RealOf(file)->pMethods->xUnlock(RealOf(file), level);
}
int CheckReservedLock(sqlite3_file* file, int* held) {
    return RealOf(file)->pMethods->xCheckReservedLock(RealOf(file), held);
}
int FileControl(sqlite3_file* file, int operation, void* argument) {
    return RealOf(file)->pMethods->xFileControl(RealOf(file), operation, argument);
}
int SectorSize(sqlite3_file* file) {
    return RealOf(file)->pMethods->xSectorSize(RealOf(file));
}
int DeviceCharacteristics(sqlite3_file* file) {
    return RealOf(file)->pMethods->xDeviceCharacteristics(RealOf(file));
}

// Version 1: no memory maps, no write-ahead log.
constexpr sqlite3_io_methods kMethods = {1,
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
                                         DeviceCharacteristics,
                                         nullptr,
                                         nullptr,
                                         nullptr,
                                         nullptr,
                                         nullptr,
                                         nullptr};

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto* shim = new (file) ShimFile{};
    const int code = gReal->xOpen(gReal, name, shim->Real(), flags, outFlags);
    shim->base.pMethods = shim->Real()->pMethods == nullptr ? nullptr : &kMethods;
    return code;
}

}  // namespace

void InstallFaultVfs() {
    gReal = sqlite3_vfs_find(nullptr);
    gShim = *gReal;
    gShim.zName = "fault";
    gShim.szOsFile = static_cast<int>(sizeof(ShimFile)) + gReal->szOsFile;
    gShim.xOpen = Open;
    gShim.pNext = nullptr;
    sqlite3_vfs_register(&gShim, 1);
}

void SetFaultPlan(const FaultPlan& plan) {
    gPlan = plan;
    gCalls = 0;
}

std::uint64_t FaultCalls() {
    return gCalls;
}

bool FailsNow() {
    ++gCalls;
    if (gPlan.failAt == 0) return false;
    return gPlan.fromThenOn ? gCalls >= gPlan.failAt : gCalls == gPlan.failAt;
}

int FaultErrno() {
    return gPlan.fault == Fault::NoSpace ? ENOSPC : EIO;
}

}  // namespace quillon::campaign
