// Changes, adds and deletes rows of an updatable result. The packed row is prepared before the file is
// written, so that a failure leaves both unchanged.
#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "store/engine/result_set.h"
#include "store/schema/coerce.h"

namespace quillon::store {

namespace {

void RequireChange(sqlite3* db) {
    if (sqlite3_changes(db) == 0)
        throw StoreError(ErrorNumber::RecordDeleted, "The record has been deleted.");
}

bool Contains(const std::vector<std::string>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& one) { return SameWord(one, name); });
}

}  // namespace

bool ResultSet::IsUpdatable() const {
    const bool kind = type_ == RecordsetType::Dynaset || type_ == RecordsetType::Table;
    return kind && !compiled_->translation.updatableTable.empty();
}

const PhysicalTable& ResultSet::BaseTable() const {
    if (!IsUpdatable()) throw StoreError(ErrorNumber::ReadOnly, "Can't update. The result is read-only.");
    return handle_->Require().RequireTable(compiled_->translation.updatableTable);
}

std::vector<const FieldDef*> ResultSet::FieldsOfColumns() const {
    std::vector<const FieldDef*> fields;
    for (const dialect::OutputColumn& column : Columns())
        fields.push_back(BaseTable().def.Field(column.field));
    return fields;
}

std::string ResultSet::KeyCondition() const {
    std::string condition;
    for (const std::string& key : BaseTable().KeyColumns())
        condition +=
            (condition.empty() ? " WHERE " : " AND ") + (key == "rowid" ? key : QuoteName(key)) + " = ?";
    return condition;
}

void ResultSet::BindKey(NativeStatement& statement, int first, std::size_t row) {
    const std::size_t width = Columns().size();
    for (std::size_t i = 0; i < compiled_->translation.keyColumns; ++i)
        statement.BindValue(first + static_cast<int>(i), At(row, width + i));
}

// Appends the values of the key to the columns. Returns the index of the rowid, which is known only after the
// row is stored; 0 when there is none.
std::size_t ResultSet::AfterKey(Written& row) const {
    const std::vector<std::string> keys = BaseTable().KeyColumns();
    std::size_t rowid = 0;
    for (std::size_t k = 0; k < keys.size(); ++k) {
        const std::size_t place = Columns().size() + k;
        for (const std::size_t i : row.given)
            if (SameWord(row.fields[i]->name, keys[k])) row.after[place] = row.after[i];
        if (row.hidden != 0 && keys[k] == BaseTable().autoField) row.after[place] = row.hidden;
        if (BaseTable().key == KeyKind::None) rowid = place;
    }
    return rowid;
}

ResultSet::Written ResultSet::ChangedRow(std::size_t row, const std::vector<Value>& values,
                                         const std::vector<bool>& changed) {
    Written written;
    written.fields = FieldsOfColumns();
    for (std::size_t i = 0; i < WidthWithKey(); ++i) written.after.push_back(At(row, i));
    for (std::size_t i = 0; i < written.fields.size(); ++i) {
        if (!changed[i]) continue;
        const FieldDef* field = written.fields[i];
        if (field == nullptr) throw StoreError(ErrorNumber::ReadOnly, "Can't update a computed column.");
        written.after[i] = Coerce(*field, values[i]);
        if (written.after[i].IsNull() && field->required) throw RequiredError(*field, false);
        written.given.push_back(i);
    }
    AfterKey(written);
    return written;
}

void ResultSet::UpdateRow(std::size_t row, const std::vector<Value>& values,
                          const std::vector<bool>& changed) {
    BaseTable();  // refuses a result that cannot be written
    Connection& connection = handle_->Require();
    connection.Write([&] {
        const Written written = ChangedRow(row, values, changed);
        if (written.given.empty()) return;
        std::string assignments;
        for (const std::size_t i : written.given)
            assignments += (assignments.empty() ? "" : ", ") + QuoteName(written.fields[i]->name) + " = ?";
        NativeStatement update(
            connection.Native(),
            fmt::format("UPDATE {} SET {}{}", QuoteName(BaseTable().def.name), assignments, KeyCondition()));
        int place = 1;
        for (const std::size_t i : written.given) {
            update.BindValue(place++, written.after[i]);
            if (written.fields[i]->autoIncrement && !written.after[i].IsNull())
                connection.Numbers().Note(BaseTable().def.name, written.after[i].AsLong());
        }
        BindKey(update, place, row);
        PackedRow packed;
        for (const Value& value : written.after) packed.Append(value);
        update.Step();
        RequireChange(connection.Native());
        inOrder_ = false;
        rows_[row - dropped_].values.Swap(packed);
    });
}

void ResultSet::StageAutoNumber(std::vector<Value>& values) {
    const PhysicalTable& table = BaseTable();
    for (std::size_t i = 0; i < Columns().size(); ++i)
        if (SameWord(Columns()[i].field, table.autoField))
            values[i] = handle_->Require().Numbers().Next(table.def.name);
}

// Assigns an AutoNumber also when the result has no column for it, or its value was removed.
ResultSet::Written ResultSet::NewRow(Connection& connection, const std::vector<Value>& values) const {
    const PhysicalTable& table = BaseTable();
    Written written;
    written.fields = FieldsOfColumns();
    written.after.resize(WidthWithKey());
    bool numbered = table.autoField.empty();
    for (std::size_t i = 0; i < written.fields.size(); ++i) {
        const FieldDef* field = written.fields[i];
        if (field == nullptr || values[i].IsNull()) continue;
        written.after[i] = Coerce(*field, values[i]);
        written.given.push_back(i);
        numbered = numbered || SameWord(field->name, table.autoField);
    }
    if (!numbered) written.hidden = connection.Numbers().Next(table.def.name);
    RequireAllFields(written);
    if (written.hidden != 0)
        for (std::size_t i = 0; i < written.fields.size(); ++i)
            if (written.fields[i] != nullptr && written.fields[i]->autoIncrement)
                written.after[i] = written.hidden;
    return written;
}

void ResultSet::RequireAllFields(const Written& row) const {
    const PhysicalTable& table = BaseTable();
    const std::vector<std::string> none;
    const std::vector<std::string>& keys =
        table.key == KeyKind::Clustered ? table.def.PrimaryKey()->fields : none;
    for (const FieldDef& field : table.def.fields) {
        if (row.hidden != 0 && field.autoIncrement) continue;
        const bool inKey = Contains(keys, field.name);
        const bool given = std::any_of(row.given.begin(), row.given.end(), [&](std::size_t i) {
            return SameWord(row.fields[i]->name, field.name);
        });
        if ((field.required || inKey) && !given) throw RequiredError(field, inKey);
    }
}

void ResultSet::InsertRow(const std::vector<Value>& values) {
    BaseTable();
    Connection& connection = handle_->Require();
    connection.Write([&] {
        const PhysicalTable& table = BaseTable();
        Written written = NewRow(connection, values);
        std::string names, places;
        const auto add = [&](const std::string& name) {
            names += (names.empty() ? "" : ", ") + QuoteName(name);
            places += places.empty() ? "?" : ", ?";
        };
        for (const std::size_t i : written.given) add(written.fields[i]->name);
        if (written.hidden != 0) add(table.autoField);
        NativeStatement insert(
            connection.Native(),
            names.empty()
                ? fmt::format("INSERT INTO {} DEFAULT VALUES", QuoteName(table.def.name))
                : fmt::format("INSERT INTO {} ({}) VALUES ({})", QuoteName(table.def.name), names, places));
        int place = 1;
        for (const std::size_t i : written.given) {
            insert.BindValue(place++, written.after[i]);
            if (SameWord(written.fields[i]->name, table.autoField))
                connection.Numbers().Note(table.def.name, written.after[i].AsLong());
        }
        if (written.hidden != 0) insert.Bind(place, written.hidden);
        const std::size_t rowid = AfterKey(written);
        if (rowid != 0) written.after[rowid] = 0;
        Row row;
        for (const Value& value : written.after) row.values.Append(value);
        rows_.push_back(std::move(row));
        try {
            insert.Step();
        } catch (...) {
            rows_.pop_back();
            throw;
        }
        if (rowid != 0) rows_.back().values.SetNumber(rowid, sqlite3_last_insert_rowid(connection.Native()));
        inOrder_ = false;
    });
}

void ResultSet::DeleteRow(std::size_t row) {
    BaseTable();
    Connection& connection = handle_->Require();
    connection.Write([&] {
        const std::string& name = BaseTable().def.name;
        connection.Numbers().Save(name);
        NativeStatement remove(connection.Native(),
                               fmt::format("DELETE FROM {}{}", QuoteName(name), KeyCondition()));
        BindKey(remove, 1, row);
        remove.Step();
        RequireChange(connection.Native());
        rows_[row - dropped_].deleted = true;
        ++deleted_;
    });
}

}  // namespace quillon::store
