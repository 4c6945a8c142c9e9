#include "failing_memory.h"

#include <sqlite3.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

constexpr long kNever = -1;

std::atomic<bool> armed{false};
std::atomic<long> place{kNever};
std::atomic<long> count{0};

bool FailsNow() {
    return armed && count++ == place;
}

sqlite3_mem_methods& Native() {
    static sqlite3_mem_methods methods;
    return methods;
}

void* NativeAllocate(int size) {
    return FailsNow() ? nullptr : Native().xMalloc(size);
}

void* NativeReallocate(void* memory, int size) {
    return FailsNow() ? nullptr : Native().xRealloc(memory, size);
}

// SQLite takes other allocators only before its first use.
const bool kReady = [] {
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &Native());
    sqlite3_mem_methods methods = Native();
    methods.xMalloc = NativeAllocate;
    methods.xRealloc = NativeReallocate;
    return sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) == SQLITE_OK;
}();

void* Allocate(std::size_t size) {
    void* memory = FailsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace quillon::testkit {

FailingMemory::FailingMemory(long failing) {
    if (!kReady) std::abort();
    count = 0;
    place = failing;
    armed = true;
}

FailingMemory::~FailingMemory() {
    armed = false;
}

long FailingMemory::Count() {
    return count;
}

}  // namespace quillon::testkit
