#include "store/engine/packed_row.h"

#include <cstring>

namespace quillon::store {

namespace {

constexpr char kNull = 0, kFalse = 1, kTrue = 2, kInteger = 3, kReal = 4, kText = 5;

template <typename T>
void AppendRaw(std::string& packed, const T& raw) {
    packed.append(reinterpret_cast<const char*>(&raw), sizeof raw);
}

template <typename T>
T ReadRaw(const char*& at) {
    T raw;
    std::memcpy(&raw, at, sizeof raw);
    at += sizeof raw;
    return raw;
}

Value Take(const char*& at) {
    switch (*at++) {
        case kFalse:
            return false;
        case kTrue:
            return true;
        case kInteger:
            return ReadRaw<std::int64_t>(at);
        case kReal:
            return ReadRaw<double>(at);
        case kText: {
            const auto size = ReadRaw<std::uint32_t>(at);
            at += size;
            return std::string_view(at - size, size);
        }
        default:
            return {};
    }
}

void Skip(const char*& at) {
    const char tag = *at++;
    if (tag == kInteger || tag == kReal) {
        at += sizeof(std::int64_t);
    } else if (tag == kText) {
        const auto size = ReadRaw<std::uint32_t>(at);
        at += size;
    }
}

}  // namespace

void PackedRow::Append(const Value& value) {
    if (value.IsNull()) {
        packed_ += kNull;
    } else if (value.IsBoolean()) {
        packed_ += value.AsBoolean() ? kTrue : kFalse;
    } else if (value.IsInteger()) {
        AppendNumber(value.AsLong());
    } else if (value.IsReal()) {
        packed_ += kReal;
        AppendRaw(packed_, value.Real());
    } else {
        packed_ += kText;
        AppendRaw(packed_, static_cast<std::uint32_t>(value.Text().size()));
        packed_ += value.Text();
    }
}

void PackedRow::AppendNumber(std::int64_t number) {
    packed_ += kInteger;
    AppendRaw(packed_, number);
}

const char* PackedRow::Find(std::size_t place) const noexcept {
    const char* at = packed_.data();
    for (std::size_t i = 0; i < place; ++i) Skip(at);
    return at;
}

Value PackedRow::At(std::size_t place) const {
    const char* at = Find(place);
    return Take(at);
}

void PackedRow::SetNumber(std::size_t place, std::int64_t number) noexcept {
    const auto offset = static_cast<std::size_t>(Find(place) - packed_.data()) + 1;
    std::memcpy(packed_.data() + offset, &number, sizeof number);
}

}  // namespace quillon::store
