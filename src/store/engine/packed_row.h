// The values of one row in one block of memory: a result keeps the rows that it has visited so.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/value.h"

namespace quillon::store {

class PackedRow {
public:
    void Append(const Value& value);
    // A number that is written in place later, when it is known.
    void AppendNumber(std::int64_t number);
    // The value at a place, counted from 0; the row must have it.
    Value At(std::size_t place) const;
    // Overwrites the number at a place that AppendNumber has filled.
    void SetNumber(std::size_t place, std::int64_t number) noexcept;
    void Swap(PackedRow& other) noexcept { packed_.swap(other.packed_); }

private:
    const char* Find(std::size_t place) const noexcept;
    std::string packed_;
};

}  // namespace quillon::store
