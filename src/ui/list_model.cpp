#include "ui/list_model.h"

#include "ui/text_convert.h"

namespace quillon::ui {

namespace {

constexpr std::chrono::milliseconds kSlice(8);
constexpr int kFirstLot = 200;
constexpr int kGrowth = 4;

}  // namespace

ListModel::ListModel(navigation::TaxonList& list, QObject* parent) : QAbstractListModel(parent), list_(list) {
    idle_.setInterval(0);
    connect(&idle_, &QTimer::timeout, this, &ListModel::LoadMore);
    list_.OnRows([this] { OnRows(); });
}

ListModel::~ListModel() {
    list_.OnRows(nullptr);
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
    return ToQt(list_.Line(static_cast<std::size_t>(index.row())));
}

QModelIndex ListModel::IndexOf(int qb_id) {
    const std::size_t row = list_.RowOf(qb_id);
    if (row == navigation::TaxonList::kNone) return {};
    if (static_cast<int>(row) >= shown_) CatchUp();
    return index(static_cast<int>(row));
}

void ListModel::OnRows() {
    const int rows = static_cast<int>(list_.RowCount());
    if (rows < shown_ || rows == 0) {
        beginResetModel();
        shown_ = 0;
        endResetModel();
    }
    if (!list_.IsComplete()) idle_.start();
    if (list_.IsComplete() || rows >= std::max(kFirstLot, shown_ * kGrowth)) CatchUp();
}

void ListModel::LoadMore() {
    if (list_.Load(kSlice)) idle_.stop();
    if (list_.IsComplete()) CatchUp();
}

void ListModel::CatchUp() {
    const int rows = static_cast<int>(list_.RowCount());
    if (rows == shown_) return;
    beginInsertRows({}, shown_, rows - 1);
    shown_ = rows;
    endInsertRows();
    emit RowsArrived();
}

}  // namespace quillon::ui
