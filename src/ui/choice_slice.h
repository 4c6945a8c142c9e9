// The part of a long list that a combo box holds: a slice of the control's source around the text on show,
// which grows at both ends as the user scrolls. Only the binder of combo boxes uses it.
#pragma once

#include <QStringListModel>
#include <optional>

#include "core/controls.h"

namespace quillon::ui {

class ChoiceSlice {
public:
    // Both outlive the object.
    ChoiceSlice(ComboControl& control, QStringListModel& model) : control_(control), model_(model) {}

    // Reads the slice around the text of the control into the model.
    void Load();
    void Clear();
    // The row of the choice on show; -1 when the slice does not have it.
    int Current() const;
    const Choice& At(int row) const { return choices_.at(static_cast<std::size_t>(row)); }
    bool Has(int row) const { return row >= 0 && static_cast<std::size_t>(row) < choices_.size(); }

    // Reads on behind the last row, or before the first one; returns the number of new rows.
    int GrowDown();
    int GrowUp();

    // The choices that begin with a typed text, at most some.
    QStringList Completions(const QString& typed) const;

private:
    ComboControl& control_;
    QStringListModel& model_;
    Choices choices_;
};

}  // namespace quillon::ui
