#include "content.h"

#include <fmt/format.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "core/text.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr std::string_view kMagic("SQLite format 3\0", 16);
// All but the list of indexes that are still to be made: the next opening empties it.
constexpr const char* kTables =
    "SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'qln_waiting_indexes' ORDER BY name";
// A digit stands where there is a d.
constexpr std::string_view kStamps[] = {"dddd-dd-dd dd:dd:dd", "dd/dd/dddd"};

using Handle = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

int Compare(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

bool IsPlainFile(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

Handle Open(const std::string& path) {
    sqlite3* raw = nullptr;
    sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_create_collation(raw, "QLN", SQLITE_UTF8, nullptr, Compare);
    return {raw, &sqlite3_close};
}

// A copy with its journal and its log: SQLite makes and removes files beside what it opens.
class Copy {
public:
    explicit Copy(const std::string& path) {
        for (const char* ending : {"", "-journal", "-wal"})
            if (FileExists(path + ending)) WriteFile(Path() + ending, ReadFile(path + ending));
    }
    std::string Path() const { return folder_.File("copy"); }

private:
    Folder folder_;
};

// The rows of a statement, their values split by tabs; its error as the last row.
std::vector<std::string> Rows(sqlite3* db, const std::string& sql) {
    std::vector<std::string> rows;
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK) return {sqlite3_errmsg(db)};
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, &sqlite3_finalize);
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(raw)) == SQLITE_ROW) {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(raw); ++i) {
            const void* bytes = sqlite3_column_blob(raw, i);
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(raw, i));
            row += fmt::format("{}:", sqlite3_column_type(raw, i));
            if (size > 0) row.append(static_cast<const char*>(bytes), size);
            row += '\t';
        }
        rows.push_back(std::move(row));
    }
    if (result != SQLITE_DONE) rows.emplace_back(sqlite3_errmsg(db));
    return rows;
}

bool HasForm(std::string_view text, std::string_view form) {
    if (text.size() < form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == 'd' ? !digit : text[i] != form[i]) return false;
    }
    return true;
}

std::string WithoutStamps(std::string_view text) {
    std::string left;
    while (!text.empty()) {
        const auto stamp = std::find_if(std::begin(kStamps), std::end(kStamps),
                                        [&](std::string_view form) { return HasForm(text, form); });
        left += stamp == std::end(kStamps) ? text[0] : 'T';
        text.remove_prefix(stamp == std::end(kStamps) ? 1 : stamp->size());
    }
    return left;
}

std::string TablesOf(const std::string& path) {
    const Copy copy(path);
    const Handle db = Open(copy.Path());
    std::string content;
    for (std::string name : Rows(db.get(), kTables)) {
        name = name.substr(2, name.size() - 3);  // its type before it, a tab behind it
        std::vector<std::string> rows = Rows(db.get(), "SELECT * FROM \"" + name + "\"");
        std::sort(rows.begin(), rows.end());
        content += name + "\n";
        for (const std::string& row : rows) content += row + "\n";
    }
    return content;
}

}  // namespace

std::string CheckOfFile(const std::string& path) {
    if (!IsPlainFile(path)) return "no plain file";
    const Copy copy(path);
    const Handle db = Open(copy.Path());
    const std::vector<std::string> rows = Rows(db.get(), "PRAGMA integrity_check(1)");
    if (rows.size() != 1) return "the check could not run";
    return rows[0] == "3:ok\t" ? "ok" : rows[0];
}

std::string ContentOf(const std::string& path) {
    if (!IsPlainFile(path)) return "(none)";
    const std::string bytes = ReadFile(path);
    return WithoutStamps(bytes.starts_with(kMagic) ? TablesOf(path) : bytes);
}

bool IsLeftover(const std::string& name) {
    return name.find("~new-") != std::string::npos || name.ends_with("-journal") || name.ends_with("-wal") ||
           name.ends_with("-shm");
}

}  // namespace quillon::campaign
