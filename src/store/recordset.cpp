#include "store/recordset.h"

#include <algorithm>

#include "store/dialect/parser.h"
#include "store/engine/criteria.h"
#include "store/engine/result_set.h"
#include "store/error.h"

namespace quillon::store {

namespace {

[[noreturn]] void FailNoRecord() {
    throw StoreError(ErrorNumber::NoCurrentRecord, "No current record.");
}

[[noreturn]] void FailKind() {
    throw StoreError(ErrorNumber::NotInThisKind, "Operation is not supported for this type of object.");
}

}  // namespace

Recordset::Recordset(std::shared_ptr<ResultSet> rows) : rows_(std::move(rows)) {
    if (rows_->Has(0)) visited_ = 1;
}

Recordset::~Recordset() = default;

ResultSet& Recordset::Rows() const {
    if (rows_ == nullptr) throw StoreError(ErrorNumber::ObjectClosed, "The recordset has been closed.");
    return *rows_;
}

// Before the first row the index is -1; after the last one it is the number of rows.
bool Recordset::Eof() const {
    Rows().RequireOpen();
    if (position_ < 0) return !Rows().Has(0);
    return !Rows().Has(static_cast<std::size_t>(position_));
}

bool Recordset::Bof() const {
    Rows().RequireOpen();
    return position_ < 0 || !Rows().Has(0);
}

// Moves from `row` in the direction of `step` to the first row that still exists.
bool Recordset::LandOn(std::ptrdiff_t row, std::ptrdiff_t step) {
    pending_ = Pending::None;
    while (row >= 0 && Rows().Has(static_cast<std::size_t>(row)) &&
           Rows().IsDeleted(static_cast<std::size_t>(row)))
        row += step;
    position_ = row;
    if (row < 0 || !Rows().Has(static_cast<std::size_t>(row))) return false;
    visited_ = std::max(visited_, static_cast<std::size_t>(row) + 1);
    return true;
}

void Recordset::MoveFirst() {
    Rows().RequireOpen();
    if (Rows().Type() == RecordsetType::ForwardOnly && position_ > 0) FailKind();
    LandOn(0, 1);
}

void Recordset::MoveLast() {
    Rows().RequireOpen();
    if (Rows().Type() == RecordsetType::ForwardOnly) FailKind();
    const std::size_t count = Rows().Count();
    visited_ = count;
    LandOn(static_cast<std::ptrdiff_t>(count) - 1, -1);
}

void Recordset::MoveNext() {
    if (Eof()) FailNoRecord();
    LandOn(position_ + 1, 1);
}

void Recordset::MovePrevious() {
    if (Bof()) FailNoRecord();
    if (Rows().Type() == RecordsetType::ForwardOnly) FailKind();
    LandOn(position_ - 1, -1);
}

std::size_t Recordset::RecordCount() const {
    Rows().RequireOpen();
    return visited_ - Rows().DeletedBefore(visited_);
}

std::ptrdiff_t Recordset::AbsolutePosition() const {
    if (Bof() || Eof()) return -1;
    return position_ - static_cast<std::ptrdiff_t>(Rows().DeletedBefore(static_cast<std::size_t>(position_)));
}

Recordset::RowBookmark Recordset::Bookmark() const {
    RequireRow();
    return position_;
}

void Recordset::SetBookmark(RowBookmark bookmark) {
    Rows().RequireOpen();
    if (Rows().Type() == RecordsetType::ForwardOnly) FailKind();
    if (bookmark < 0 || !Rows().Has(static_cast<std::size_t>(bookmark)) ||
        Rows().IsDeleted(static_cast<std::size_t>(bookmark)))
        FailNoRecord();
    LandOn(bookmark, 1);
}

std::unique_ptr<Recordset> Recordset::Clone() const {
    if (Rows().Type() == RecordsetType::ForwardOnly) FailKind();
    Rows().RequireOpen();
    auto clone = std::make_unique<Recordset>(rows_);
    clone->position_ = -1;
    return clone;
}

void Recordset::RequireRow() const {
    Rows().RequireOpen();
    const bool onRow = position_ >= 0 && Rows().Has(static_cast<std::size_t>(position_)) &&
                       !Rows().IsDeleted(static_cast<std::size_t>(position_));
    if (!onRow) FailNoRecord();
}

void Recordset::Find(std::string_view criteria, std::ptrdiff_t from, std::ptrdiff_t step) {
    Rows().RequireOpen();
    if (Rows().Type() == RecordsetType::ForwardOnly) FailKind();
    const dialect::ExpressionPtr condition = dialect::ParseCriteria(criteria);
    noMatch_ = true;
    for (std::ptrdiff_t row = from; row >= 0 && Rows().Has(static_cast<std::size_t>(row)); row += step) {
        const auto place = static_cast<std::size_t>(row);
        if (Rows().IsDeleted(place)) continue;
        const auto read = [&](const std::string& column) {
            return Rows().At(place, Rows().ColumnPlace(column));
        };
        if (!Evaluate(*condition, read).AsBoolean()) continue;
        noMatch_ = false;
        LandOn(row, 1);
        return;
    }
}

void Recordset::FindFirst(std::string_view criteria) {
    Find(criteria, 0, 1);
}
void Recordset::FindNext(std::string_view criteria) {
    Find(criteria, position_ + 1, 1);
}
void Recordset::FindPrevious(std::string_view criteria) {
    Find(criteria, position_ - 1, -1);
}

void Recordset::SetIndex(std::string_view indexName) {
    Rows().UseIndex(indexName);
    visited_ = Rows().Has(0) ? 1 : 0;
    LandOn(0, 1);
}

void Recordset::Seek(std::string_view comparison, const std::vector<Value>& key) {
    Rows().RequireOpen();
    const std::ptrdiff_t row = Rows().SeekRow(comparison, key);
    noMatch_ = row < 0;
    if (!noMatch_) LandOn(row, 1);
}

bool Recordset::NoMatch() const {
    return noMatch_;
}

Value Recordset::Get(std::string_view column) const {
    return At(Rows().ColumnPlace(column));
}

Value Recordset::At(std::size_t column) const {
    Rows().RequireOpen();
    if (pending_ != Pending::None) return staged_[column];
    RequireRow();
    return Rows().At(static_cast<std::size_t>(position_), column);
}

std::size_t Recordset::ColumnCount() const {
    return Rows().Columns().size();
}

const std::string& Recordset::ColumnName(std::size_t column) const {
    return Rows().Columns()[column].name;
}

void Recordset::AddNew() {
    const PhysicalTable& table = Rows().BaseTable();
    staged_.assign(ColumnCount(), Value());
    if (!table.autoField.empty()) Rows().StageAutoNumber(staged_);
    pending_ = Pending::Add;
}

void Recordset::Edit() {
    Rows().BaseTable();
    RequireRow();
    staged_.clear();
    for (std::size_t i = 0; i < ColumnCount(); ++i)
        staged_.push_back(Rows().At(static_cast<std::size_t>(position_), i));
    pending_ = Pending::Edit;
}

void Recordset::Set(std::string_view column, const Value& value) {
    const std::size_t place = Rows().ColumnPlace(column);
    if (pending_ == Pending::None)
        throw StoreError(ErrorNumber::NoEditStarted, "A value is set between AddNew or Edit, and Update.");
    staged_[place] = value;
}

void Recordset::Update() {
    if (pending_ == Pending::None)
        throw StoreError(ErrorNumber::NoEditStarted, "Update comes after AddNew or Edit.");
    const Pending kind = pending_;
    pending_ = Pending::None;
    if (kind == Pending::Add) {
        Rows().InsertRow(staged_);
        ++visited_;
        return;
    }
    const auto row = static_cast<std::size_t>(position_);
    std::vector<bool> changed;
    for (std::size_t i = 0; i < staged_.size(); ++i) changed.push_back(!(staged_[i] == Rows().At(row, i)));
    Rows().UpdateRow(row, staged_, changed);
}

void Recordset::CancelUpdate() {
    pending_ = Pending::None;
}

void Recordset::Delete() {
    Rows().BaseTable();
    RequireRow();
    Rows().DeleteRow(static_cast<std::size_t>(position_));
}

void Recordset::Requery() {
    Rows().Requery();
    pending_ = Pending::None;
    visited_ = Rows().Has(0) ? 1 : 0;
    position_ = 0;
}

void Recordset::Close() {
    rows_ = nullptr;
    pending_ = Pending::None;
}

}  // namespace quillon::store
