// The alphabetical list as an item model over a TaxonList. The rows are taken in while the window is idle;
// the view hears of them in few and growing lots, since it lays all its rows out anew each time.
#pragma once

#include <QAbstractListModel>
#include <QTimer>

#include "navigation/taxon_list.h"

namespace quillon::ui {

class ListModel : public QAbstractListModel {
    Q_OBJECT
public:
    // The list must outlive the model.
    explicit ListModel(navigation::TaxonList& list, QObject* parent = nullptr);
    ~ListModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    int IdAt(const QModelIndex& index) const { return list_.IdAt(static_cast<std::size_t>(index.row())); }
    // Invalid when the taxon is not among the rows that the list has so far.
    QModelIndex IndexOf(int qb_id);

signals:
    void RowsArrived();

private:
    void OnRows();
    void LoadMore();
    // Shows all that the list has.
    void CatchUp();

    navigation::TaxonList& list_;
    QTimer idle_;
    int shown_ = 0;
};

}  // namespace quillon::ui
