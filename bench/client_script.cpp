#include "client_script.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace quillon::bench {

namespace {

constexpr char kFieldEnd = '\x1F', kRowEnd = '\x1E';

using Connection = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

Connection OpenReadOnly(const std::string& path) {
    sqlite3* db = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    Connection connection(db, &sqlite3_close);
    if (code != SQLITE_OK) throw std::runtime_error("cannot open " + path);
    return connection;
}

void ForRows(sqlite3* db, const std::string& sql, const std::function<void(sqlite3_stmt*)>& use) {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(db));
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, &sqlite3_finalize);
    while (sqlite3_step(raw) == SQLITE_ROW) use(raw);
}

std::string_view ColumnText(sqlite3_stmt* row, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return text == nullptr
               ? std::string_view()
               : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
}

std::vector<std::string> Texts(sqlite3* db, const std::string& sql) {
    std::vector<std::string> texts;
    ForRows(db, sql, [&](sqlite3_stmt* row) { texts.emplace_back(ColumnText(row, 0)); });
    return texts;
}

// Not the store's own, and not those that SQLite makes by itself.
std::vector<std::string> Schema(sqlite3* db, const std::string& what, const std::string& type) {
    return Texts(db, fmt::format("SELECT {} FROM sqlite_master WHERE type = '{}' AND sql IS NOT NULL "
                                 "AND tbl_name NOT LIKE 'qln\\_%' ESCAPE '\\' ORDER BY rowid",
                                 what, type));
}

std::string WithStockCollation(std::string sql) {
    constexpr std::string_view ours = "COLLATE QLN", stock = "COLLATE NOCASE";
    for (std::size_t at = sql.find(ours); at != std::string::npos; at = sql.find(ours, at + stock.size()))
        sql.replace(at, ours.size(), stock);
    return sql;
}

std::string RowFile(const std::string& folder, const std::string& table) {
    return folder + "/" + table + ".rows";
}

void ExportTable(sqlite3* db, const std::string& table, const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    if (file == nullptr) throw std::runtime_error("cannot write " + path);
    std::string line;
    ForRows(db, fmt::format("SELECT * FROM \"{}\"", table), [&](sqlite3_stmt* row) {
        line.clear();
        const int count = sqlite3_column_count(row);
        for (int i = 0; i < count; ++i) (line += ColumnText(row, i)) += i + 1 < count ? kFieldEnd : kRowEnd;
        if (std::fwrite(line.data(), 1, line.size(), file.get()) != line.size())
            throw std::runtime_error("cannot write all of " + path);
    });
}

}  // namespace

void ExportRows(const std::string& dataSet, const std::string& folder) {
    const Connection db = OpenReadOnly(dataSet);
    for (const std::string& table : Schema(db.get(), "name", "table"))
        ExportTable(db.get(), table, RowFile(folder, table));
}

std::string ClientScript(const std::string& dataSet, const std::string& folder, Indexes indexes) {
    const Connection db = OpenReadOnly(dataSet);
    std::string tables, keys, imports;
    for (const std::string& sql : Schema(db.get(), "sql", "table")) tables += WithStockCollation(sql) + ";\n";
    for (const std::string& sql : Schema(db.get(), "sql", "index")) keys += WithStockCollation(sql) + ";\n";
    for (const std::string& table : Schema(db.get(), "name", "table"))
        imports += fmt::format(".import \"{}\" {}\n", RowFile(folder, table), table);
    const std::string first = indexes == Indexes::Live ? keys : std::string();
    const std::string last = indexes == Indexes::Live ? std::string() : keys;
    return "PRAGMA ignore_check_constraints = ON;\n" + tables + first + ".mode ascii\n" + imports + last;
}

}  // namespace quillon::bench
