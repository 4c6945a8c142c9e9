// Replaces the system calls of the store's file copies: see the linker's --wrap.
#include <sys/types.h>

#include <cerrno>
#include <cstddef>

#include "fault_vfs.h"

extern "C" {

ssize_t __real_write(int file, const void* data, std::size_t size);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);

ssize_t __wrap_write(int file, const void* data, std::size_t size) {
    if (!quillon::campaign::FailsNow()) return __real_write(file, data, size);
    errno = quillon::campaign::FaultErrno();
    return -1;
}

int __wrap_fsync(int file) {
    if (!quillon::campaign::FailsNow()) return __real_fsync(file);
    errno = quillon::campaign::FaultErrno();
    return -1;
}

int __wrap_rename(const char* from, const char* to) {
    if (!quillon::campaign::FailsNow()) return __real_rename(from, to);
    errno = quillon::campaign::FaultErrno();
    return -1;
}

}  // extern "C"
