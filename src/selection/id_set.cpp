#include "selection/id_set.h"

#include <algorithm>

#include "core/text.h"

namespace quillon::selection {

namespace {

constexpr std::uint32_t kNearIds = 1u << 26;      // 8 MB of bits at most
constexpr std::uint32_t kNearNumbers = 1u << 21;  // 8 MB of numbers at most

// Grows by doubling, so that ids that come ascending cost little each.
template <typename T>
void GrowTo(std::vector<T>& vector, std::size_t size, std::size_t most) {
    if (size <= vector.size()) return;
    vector.resize(std::min(most, std::max(size, vector.size() * 2)));
}

}  // namespace

void IdSet::Add(std::int32_t id) {
    const auto place = static_cast<std::uint32_t>(id);
    if (place >= kNearIds) {
        count_ += far_.insert(id).second ? 1 : 0;
        return;
    }
    GrowTo(bits_, place / 64 + 1, kNearIds / 64);
    std::uint64_t& word = bits_[place / 64];
    const std::uint64_t bit = std::uint64_t{1} << (place % 64);
    count_ += (word & bit) == 0 ? 1 : 0;
    word |= bit;
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
    if (place >= kNearNumbers) {
        far_[id] = number;
        return;
    }
    GrowTo(near_, place + 1, kNearNumbers);
    near_[place] = number;
}

std::int32_t IdMap::Find(std::int32_t id) const {
    const auto place = static_cast<std::uint32_t>(id);
    if (place < near_.size()) return near_[place];
    const auto found = far_.find(id);
    return found == far_.end() ? 0 : found->second;
}

// The place of the prefix, or the number of prefixes. The same bytes are looked for first: they nearly always
// are.
std::size_t DocumentSet::Find(std::string_view prefix) const {
    for (std::size_t i = 0; i < byPrefix_.size(); ++i)
        if (byPrefix_[i].first == prefix) return i;
    for (std::size_t i = 0; i < byPrefix_.size(); ++i)
        if (EqualText(byPrefix_[i].first, prefix)) return i;
    return byPrefix_.size();
}

void DocumentSet::Add(std::string_view prefix, std::int32_t id) {
    if (prefix.empty()) return;
    const std::size_t place = Find(prefix);
    if (place == byPrefix_.size()) byPrefix_.emplace_back(prefix, IdSet());
    byPrefix_[place].second.Add(id);
}

bool DocumentSet::Has(std::string_view prefix, std::int32_t id) const {
    if (prefix.empty()) return false;
    const std::size_t place = Find(prefix);
    return place < byPrefix_.size() && byPrefix_[place].second.Has(id);
}

IdSet DocumentSet::AllIds() const {
    IdSet all;
    for (const auto& [prefix, ids] : byPrefix_)
        for (const std::int32_t id : ids.Ids()) all.Add(id);
    return all;
}

}  // namespace quillon::selection
