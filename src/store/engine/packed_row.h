// The values of one row in one block of memory. Results keep visited rows in this form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/value.h"

namespace quillon::store {

class PackedRow {
public:
    void Append(const Value& value);
    // Appends a number that SetNumber can overwrite.
    void AppendNumber(std::int64_t number);
    // The value with that index, from 0, which must exist.
    Value At(std::size_t place) const;
    // Overwrites a number appended with AppendNumber.
    void SetNumber(std::size_t place, std::int64_t number) noexcept;
    void Swap(PackedRow& other) noexcept { packed_.swap(other.packed_); }

private:
    const char* Find(std::size_t place) const noexcept;
    std::string packed_;
};

}  // namespace quillon::store
