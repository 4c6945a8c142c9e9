// Tool tips with the full text of the cells of a grid, or the lines of a list, that are cut. The binder gives
// them to each grid and list.
#pragma once

#include <QAbstractItemView>

namespace quillon::ui {

class CutTextTips : public QObject {
    Q_OBJECT
public:
    // Belongs to the view.
    explicit CutTextTips(QAbstractItemView& view);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The text at the point when it is cut there, otherwise empty.
    QString CutTextAt(QPoint point) const;

    QAbstractItemView& view_;
};

}  // namespace quillon::ui
