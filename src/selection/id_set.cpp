#include "selection/id_set.h"

#include <algorithm>
#include <random>

#include "core/text.h"

namespace quillon::selection {

namespace {

// The largest number of bits or elements that a vector may have per id, with some ids to spare.
constexpr std::size_t kBitsAnId = 64, kNumbersAnId = 16, kMoreIds = 16;

bool IsNear(std::uint32_t place, std::size_t count, std::size_t placesAnId) {
    return place < placesAnId * (count + kMoreIds);
}

std::uint64_t Seed() {
    static const std::uint64_t seed = std::random_device{}();
    return seed;
}

}  // namespace

// The last steps of SplitMix64.
std::size_t IdHash::operator()(std::int32_t id) const {
    std::uint64_t mixed = static_cast<std::uint32_t>(id) + (Seed() << 32);
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebU;
    return mixed ^ (mixed >> 31);
}

void IdSet::Add(std::int32_t id) {
    if (Has(id)) return;
    const auto place = static_cast<std::uint32_t>(id);
    if (IsNear(place, count_, kBitsAnId)) {
        if (place / 64 >= bits_.size()) bits_.resize(place / 64 + 1);
        bits_[place / 64] |= std::uint64_t{1} << (place % 64);
    } else {
        far_.insert(id);
    }
    ++count_;
}

std::vector<std::int32_t> IdSet::Ids() const {
    std::vector<std::int32_t> ids(far_.begin(), far_.end());
    for (std::size_t i = 0; i < bits_.size(); ++i)
        for (std::size_t bit = 0; bits_[i] != 0 && bit < 64; ++bit)
            if ((bits_[i] >> bit & 1) != 0) ids.push_back(static_cast<std::int32_t>(i * 64 + bit));
    std::sort(ids.begin(), ids.end());
    return ids;
}

void IdMap::Add(std::int32_t id, std::int32_t number) {
    const auto place = static_cast<std::uint32_t>(id);
    const auto found = far_.empty() ? far_.end() : far_.find(id);
    if (found != far_.end()) {
        found->second = number;
    } else if (IsNear(place, count_, kNumbersAnId) || place < near_.size()) {
        if (place >= near_.size()) near_.resize(place + 1);
        count_ += near_[place] == 0 ? 1 : 0;
        near_[place] = number;
    } else {
        far_.emplace(id, number);
        ++count_;
    }
}

std::int32_t IdMap::Find(std::int32_t id) const {
    const auto place = static_cast<std::uint32_t>(id);
    if (place < near_.size() && near_[place] != 0) return near_[place];
    const auto found = far_.empty() ? far_.end() : far_.find(id);
    return found == far_.end() ? 0 : found->second;
}

std::size_t Prefixes::Add(std::string_view prefix) {
    const auto spelled = bySpelling_.find(prefix);
    if (spelled != bySpelling_.end()) return spelled->second;
    const std::size_t number = bySortKey_.try_emplace(SortKey(prefix), bySortKey_.size()).first->second;
    bySpelling_.emplace(prefix, number);
    return number;
}

// Fast path: nearly every spelling has been seen before.
std::size_t Prefixes::Find(std::string_view prefix) const {
    const auto spelled = bySpelling_.find(prefix);
    if (spelled != bySpelling_.end()) return spelled->second;
    const auto same = bySortKey_.find(SortKey(prefix));
    return same == bySortKey_.end() ? kNone : same->second;
}

void DocumentSet::Add(std::string_view prefix, std::int32_t id) {
    if (prefix.empty()) return;
    const std::size_t number = prefixes_.Add(prefix);
    if (number == byPrefix_.size()) byPrefix_.emplace_back();
    byPrefix_[number].Add(id);
    ids_.Add(id);
}

bool DocumentSet::Has(std::string_view prefix, std::int32_t id) const {
    if (prefix.empty()) return false;
    const std::size_t number = prefixes_.Find(prefix);
    return number != Prefixes::kNone && byPrefix_[number].Has(id);
}

void DocumentLinks::Add(std::string_view prefix, std::int32_t id) {
    if (prefix.empty()) return;
    const std::size_t number = prefixes_.Add(prefix);
    if (number == byPrefix_.size()) byPrefix_.emplace_back();
    IdMap& links = byPrefix_[number];
    links.Add(id, links.Find(id) + 1);
    ids_.Add(id);
}

std::int32_t DocumentLinks::Count(std::string_view prefix, std::int32_t id) const {
    const std::size_t number = prefix.empty() ? Prefixes::kNone : prefixes_.Find(prefix);
    return number == Prefixes::kNone ? 0 : byPrefix_[number].Find(id);
}

}  // namespace quillon::selection
