#include "store/bulk.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <exception>

#include "store/coerce.h"
#include "store/engine/connection.h"

namespace quillon::store {

BulkLoad::BulkLoad(Engine& engine, Database& database, bool deferIndexes)
    : engine_(engine), connection_(database.Shared()), deferred_(deferIndexes) {
    engine_.BeginJob();
    if (!deferred_) return;
    try {
        connection_->DropLookupIndexes();
    } catch (...) {
        const Job ending(engine_);
        throw;
    }
}

BulkLoad::~BulkLoad() {
    if (finished_) return;
    try {
        Finish();
    } catch (const std::exception&) {
        // The next opening builds what is missing.
    }
}

std::int64_t BulkLoad::ReserveAutoNumber(std::string_view table) {
    return connection_->NextAutoNumber(table);
}

void BulkLoad::BuildIndexes() {
    if (deferred_) connection_->BuildLookupIndexes();
    deferred_ = false;
}

void BulkLoad::Finish() {
    finished_ = true;
    try {
        BuildIndexes();
    } catch (...) {
        engine_.EndJob();
        throw;
    }
    engine_.EndJob();
}

void BulkLoad::Abandon() {
    if (finished_) return;
    finished_ = true;
    try {
        engine_.EndJob();
    } catch (const std::exception&) {
        // What was not durable yet is gone, as it would be with the process.
        deferred_ = false;
    }
}

RowWriter::RowWriter(Database& database, std::string_view table, const std::vector<std::string_view>& columns)
    : connection_(database.Shared()), table_(connection_->RequireTable(table).def.name) {
    std::string names, places;
    for (const std::string_view column : columns) {
        columns_.emplace_back(column);
        names += (names.empty() ? "" : ", ") + QuoteName(column);
        places += places.empty() ? "?" : ", ?";
    }
    intoTable_ = fmt::format(" INTO {} ({}) VALUES ({})", QuoteName(table_), names, places);
    cells_.reserve(columns_.size());
    const std::string& autoField = connection_->RequireTable(table_).autoField;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (!autoField.empty() && NameEqual()(columns_[i], autoField))
            autoColumn_ = static_cast<std::ptrdiff_t>(i);
}

RowWriter::~RowWriter() {
    sqlite3_finalize(insert_);
    sqlite3_finalize(replace_);
}

RowWriter& RowWriter::Text(std::string_view text) {
    if (text.empty()) return Null();
    cells_.push_back({Cell::Kind::Text, 0, text});
    return *this;
}

RowWriter& RowWriter::Id(std::int64_t id) {
    return id == 0 ? Null() : Long(id);
}

RowWriter& RowWriter::Long(std::int64_t number) {
    cells_.push_back({Cell::Kind::Integer, number, {}});
    return *this;
}

RowWriter& RowWriter::Boolean(bool value) {
    return Long(value ? 1 : 0);
}

RowWriter& RowWriter::Null() {
    cells_.push_back({});
    return *this;
}

// The constraint that failed says the field; the field says what was wrong with the value.
void RowWriter::Explain() {
    const TableDef& def = connection_->RequireTable(table_).def;
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const FieldDef* field = def.Field(columns_[i]);
        if (field == nullptr || cells_[i].kind == Cell::Kind::Null) continue;
        Coerce(*field, cells_[i].kind == Cell::Kind::Text ? Value(cells_[i].text) : Value(cells_[i].number));
    }
}

// Numbers that the caller gave are not given again.
void RowWriter::NoteNumber() {
    if (autoColumn_ < 0) return;
    const Cell& cell = cells_[static_cast<std::size_t>(autoColumn_)];
    if (cell.kind != Cell::Kind::Integer || cell.number <= highest_) return;
    connection_->NoteAutoNumber(table_, cell.number);
    highest_ = cell.number;
}

// Only the row with the same key is replaced: one that another unique key forbids is an error.
std::string RowWriter::ReplaceClause() const {
    std::string key, columns;
    const auto append = [](std::string& list, const std::string& item) {
        list += (list.empty() ? "" : ", ") + item;
    };
    const IndexDef* const primary = connection_->RequireTable(table_).def.PrimaryKey();
    for (const std::string& column : columns_) {
        const bool isKey = std::any_of(primary->fields.begin(), primary->fields.end(),
                                       [&](const std::string& field) { return NameEqual()(field, column); });
        const std::string name = QuoteName(column);
        if (isKey)
            append(key, name);
        else
            append(columns, name + " = excluded." + name);
    }
    return fmt::format(" ON CONFLICT ({}) DO UPDATE SET {}", key, columns);
}

void RowWriter::Run(sqlite3_stmt*& statement, bool replace) {
    try {
        if (statement == nullptr)
            statement = PrepareNative(connection_->Native(),
                                      "INSERT" + intoTable_ + (replace ? ReplaceClause() : ""), true);
        Store(statement);
    } catch (...) {
        cells_.clear();
        throw;
    }
    cells_.clear();
    connection_->AfterWrite();
}

void RowWriter::Store(sqlite3_stmt* statement) {
    connection_->BeforeWrite();
    int place = 1;
    for (const Cell& cell : cells_) {
        if (cell.kind == Cell::Kind::Text) {
            // SQLite counts the characters of a text up to its first NUL only.
            if (cell.text.find('\0') != std::string_view::npos) Explain();
            sqlite3_bind_text64(statement, place, cell.text.data(), cell.text.size(), SQLITE_STATIC,
                                SQLITE_UTF8);
        } else if (cell.kind == Cell::Kind::Integer) {
            sqlite3_bind_int64(statement, place, cell.number);
        } else {
            sqlite3_bind_null(statement, place);
        }
        ++place;
    }
    const int code = sqlite3_step(statement);
    sqlite3_reset(statement);
    if (code != SQLITE_DONE) {
        const StoreError error =
            ErrorOf(sqlite3_extended_errcode(connection_->Native()), sqlite3_errmsg(connection_->Native()));
        connection_->WriteFailed();
        if (error.Is(ErrorNumber::FieldTooSmall)) Explain();
        throw error;
    }
    NoteNumber();
}

void RowWriter::Insert() {
    Run(insert_, false);
}
void RowWriter::InsertOrReplace() {
    Run(replace_, true);
}

}  // namespace quillon::store
