#include "store/bulk.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>

#include "store/engine/connection.h"
#include "store/schema/coerce.h"

namespace quillon::store {

namespace {

// Resets a statement at the end of the scope, so that it keeps no texts of the row.
class StatementEnd {
public:
    explicit StatementEnd(NativeStatement& statement) : statement_(statement) {}
    ~StatementEnd() { statement_.Reset(); }
    StatementEnd(const StatementEnd&) = delete;
    StatementEnd& operator=(const StatementEnd&) = delete;

private:
    NativeStatement& statement_;
};

// True when the index of the key under the collation exists, also during a bulk load.
bool HasCollatedKey(const PhysicalTable& table) {
    const std::string name = IndexName(table.def.name, table.def.PrimaryKey()->name);
    for (const IndexSql& index : CreateIndexSql(table))
        if (index.name == name) return !index.deferrable;
    return false;
}

}  // namespace

BulkLoad::BulkLoad(Engine& engine, Database& database, bool deferIndexes)
    : engine_(engine), connection_(database.Shared()), deferred_(deferIndexes) {
    engine_.BeginJob();
    try {
        deferred_ ? connection_->DropLookupIndexes() : connection_->RenewLookupIndexes();
    } catch (...) {
        const Job ending(engine_);
        throw;
    }
}

BulkLoad::~BulkLoad() {
    if (finished_) return;
    try {
        Finish();
    } catch (...) {
        // The next opening builds missing indexes.
    }
}

std::int64_t BulkLoad::ReserveAutoNumber(std::string_view table) {
    return connection_->Numbers().Next(table);
}

void BulkLoad::BuildIndexes() {
    if (deferred_) connection_->BuildLookupIndexes();
    deferred_ = false;
}

void BulkLoad::Finish() {
    finished_ = true;
    Job job(engine_);
    BuildIndexes();
    job.End();
}

void BulkLoad::Abandon() noexcept {
    if (finished_) return;
    finished_ = true;
    const Job ending(engine_);
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

RowWriter::~RowWriter() = default;

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

// Finds the field from the failed constraint, and the error from the field and its value.
void RowWriter::Explain() {
    const TableDef& def = connection_->RequireTable(table_).def;
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const FieldDef* field = def.Field(columns_[i]);
        if (field == nullptr || cells_[i].kind == Cell::Kind::Null) continue;
        Coerce(*field, cells_[i].kind == Cell::Kind::Text ? Value(cells_[i].text) : Value(cells_[i].number));
    }
}

// The AutoNumber of the row, if the table's counter does not include it yet.
std::optional<std::int64_t> RowWriter::NewNumber() const {
    if (autoColumn_ < 0) return std::nullopt;
    const Cell& cell = cells_[static_cast<std::size_t>(autoColumn_)];
    const bool known = cell.kind != Cell::Kind::Integer || (cell.number >= 0 && cell.number <= highest_);
    return known ? std::nullopt : std::optional(cell.number);
}

void RowWriter::BindCells(NativeStatement& statement) {
    int place = 1;
    for (const Cell& cell : cells_) {
        if (cell.kind == Cell::Kind::Text) {
            // SQLite counts the characters of a text only up to the first NUL.
            if (cell.text.find('\0') != std::string_view::npos) Explain();
            statement.BindInPlace(place, cell.text);
        } else if (cell.kind == Cell::Kind::Integer) {
            statement.Bind(place, cell.number);
        } else {
            statement.BindNull(place);
        }
        ++place;
    }
}

// Updates the row with the same key, including the key itself: texts in a key are compared by the collation,
// which a separate index enforces. Fields that the writer does not name keep their values.
std::string RowWriter::ReplaceClause() const {
    const PhysicalTable& table = connection_->RequireTable(table_);
    std::string sets, plain, collated, guard;
    const auto append = [](std::string& list, const std::string& item) {
        list += (list.empty() ? "" : ", ") + item;
    };
    for (const std::string& column : columns_)
        append(sets, fmt::format("{0} = excluded.{0}", QuoteName(column)));
    for (const std::string& name : table.def.PrimaryKey()->fields) {
        const bool text = HasText(table.def.Field(name)->type);
        append(plain, QuoteName(name));
        append(collated, QuoteName(name) + (text ? " COLLATE QLN" : ""));
        if (text && guard.empty()) guard = QuoteName(name);
    }
    std::string clause = fmt::format(" ON CONFLICT ({}) DO UPDATE SET {}", plain, sets);
    if (HasCollatedKey(table))
        clause +=
            fmt::format(" ON CONFLICT ({}) WHERE {} IS NOT NULL DO UPDATE SET {}", collated, guard, sets);
    return clause;
}

void RowWriter::Run(std::unique_ptr<NativeStatement>& statement, bool replace) {
    const CellsEnd end{cells_};
    connection_->Write([&] {
        if (statement == nullptr)
            statement = std::make_unique<NativeStatement>(
                connection_->Native(), "INSERT" + intoTable_ + (replace ? ReplaceClause() : ""), true);
        const StatementEnd reset(*statement);
        const std::optional<std::int64_t> number = NewNumber();
        if (number) connection_->Numbers().Check(table_, *number);
        BindCells(*statement);
        try {
            statement->Step();
        } catch (const StoreError& error) {
            if (error.Is(ErrorNumber::FieldTooSmall)) Explain();
            throw;
        }
        if (!number) return;
        connection_->Numbers().Note(table_, *number);
        highest_ = std::max(highest_, *number);
    });
}

void RowWriter::Insert() {
    Run(insert_, false);
}
void RowWriter::InsertOrReplace() {
    Run(replace_, true);
}

}  // namespace quillon::store
