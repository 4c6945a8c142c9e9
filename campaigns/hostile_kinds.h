// The contents that campaign-hostile gives to quillon-batch: exchange files and DataSets that nobody should
// write, but somebody will. Each kind has a name and makes its file the same way each time; `size` scales it.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

namespace quillon::campaign {

// Where a kind puts its file.
struct HostilePlace {
    std::string folder;
    std::size_t size = 0;  // lines, rows or levels
    std::string DataSet() const { return folder + "/set.mdb"; }
    std::string ExchangeFile() const { return folder + "/in.qln"; }
};

struct HostileKind {
    const char* name;
    std::function<void(const HostilePlace&)> make;
};

// Each puts something at ExchangeFile(), where nothing is. The DataSet is a new one.
std::span<const HostileKind> HostileFiles();
// Each changes or replaces the file at DataSet(), which holds the names of ExchangeFile().
std::span<const HostileKind> HostileDataSets();

}  // namespace quillon::campaign
