#include "ui/list_model.h"

#include "ui/guard.h"
#include "ui/text_convert.h"

namespace quillon::ui {

namespace {

constexpr std::chrono::milliseconds kSlice(8);
constexpr int kFirstLot = 200;
constexpr int kGrowth = 10;

}  // namespace

ListModel::ListModel(navigation::TaxonList& list, QObject* parent) : QAbstractListModel(parent), list_(list) {
    idle_.setInterval(0);
    Connect(&idle_, &QTimer::timeout, this, &ListModel::LoadMore);
    list_.SetObserver(this);
}

ListModel::~ListModel() {
    list_.SetObserver(nullptr);
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

QModelIndex ListModel::index(int row, int column, const QModelIndex& parent) const {
    const bool isThere = row >= 0 && row < shown_ && column == 0 && !parent.isValid();
    return isThere ? createIndex(row, column) : QModelIndex();
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
    return ToQt(list_.Line(static_cast<std::size_t>(index.row())));
}

QModelIndex ListModel::IndexOf(int qb_id) {
    list_.ShowAround(qb_id);
    const std::size_t row = list_.RowOf(qb_id);
    if (row == navigation::TaxonList::kNone) return {};
    if (static_cast<int>(row) >= shown_) CatchUp();
    return index(static_cast<int>(row));
}

void ListModel::BeforeReset() {
    beginResetModel();
}

void ListModel::AfterReset() {
    shown_ = static_cast<int>(list_.RowCount());
    endResetModel();
    if (!list_.IsComplete()) idle_.start();
    if (shown_ > 0) emit RowsArrived();
}

void ListModel::RowsAdded() {
    const int rows = static_cast<int>(list_.RowCount());
    if (list_.IsComplete() || rows >= std::max(kFirstLot, shown_ * kGrowth)) CatchUp();
}

void ListModel::LoadMore() {
    if (!list_.Load(kSlice)) return;
    idle_.stop();
    CatchUp();
}

void ListModel::CatchUp() {
    const int rows = static_cast<int>(list_.RowCount());
    if (rows == shown_) return;
    beginInsertRows({}, shown_, rows - 1);
    shown_ = rows;
    endInsertRows();
    emit RowsArrived();
}

// The list reports single rows only after all rows are loaded and shown.
void ListModel::BeforeInsert(std::size_t row) {
    beginInsertRows({}, static_cast<int>(row), static_cast<int>(row));
}

void ListModel::AfterInsert() {
    ++shown_;
    endInsertRows();
}

void ListModel::BeforeRemove(std::size_t row) {
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
}

void ListModel::AfterRemove() {
    --shown_;
    endRemoveRows();
}

void ListModel::LinesChanged() {
    if (shown_ > 0) emit dataChanged(index(0), index(shown_ - 1));
}

}  // namespace quillon::ui
