#include "allocation_meter.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> held = 0, peak = 0;

void* Take(std::size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) throw std::bad_alloc();
    held += malloc_usable_size(memory);
    peak = std::max(peak.load(), held.load());
    return memory;
}

void GiveBack(void* memory) {
    if (memory == nullptr) return;
    held -= malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return Take(size);
}
void* operator new[](std::size_t size) {
    return Take(size);
}
void operator delete(void* memory) noexcept {
    GiveBack(memory);
}
void operator delete[](void* memory) noexcept {
    GiveBack(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    GiveBack(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    GiveBack(memory);
}

namespace quillon::selection {

AllocationMeter::AllocationMeter() : before_(held) {
    peak = held.load();
}

std::size_t AllocationMeter::Peak() const {
    return peak - before_;
}

}  // namespace quillon::selection
