// The alphabetical list as an item model over a TaxonList. The rows are read while the window is idle; the
// view gets them in a few growing batches, because it lays out all its rows each time.
#pragma once

#include <QAbstractListModel>
#include <QTimer>

#include "navigation/taxon_list.h"

namespace quillon::ui {

class ListModel : public QAbstractListModel, public navigation::ListObserver {
    Q_OBJECT
public:
    // The list must outlive the model.
    explicit ListModel(navigation::TaxonList& list, QObject* parent = nullptr);
    ~ListModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    // Short, because a view that lays out a million rows calls it for each.
    QModelIndex index(int row, int column = 0, const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    int IdAt(const QModelIndex& index) const { return list_.IdAt(static_cast<std::size_t>(index.row())); }
    // The index of a taxon. Loads the list around it when it is not loaded yet, which resets the model.
    // Invalid when there is no such taxon.
    QModelIndex IndexOf(int qb_id);

signals:
    void RowsArrived();

private:
    void BeforeReset() override;
    void AfterReset() override;
    void RowsAdded() override;
    void BeforeInsert(std::size_t row) override;
    void AfterInsert() override;
    void BeforeRemove(std::size_t row) override;
    void AfterRemove() override;
    void LinesChanged() override;
    void LoadMore();
    // Shows all rows loaded so far.
    void CatchUp();

    navigation::TaxonList& list_;
    QTimer idle_;
    int shown_ = 0;
};

}  // namespace quillon::ui
