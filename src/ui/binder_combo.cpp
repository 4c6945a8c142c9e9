// Binds combo boxes and pick lists to their controls: when choices are read, what typing and picking report,
// and how the text of an editable combo survives a change of its list.
#include <optional>
#include <utility>

#include "documentation/pick_list.h"
#include "ui/binder_parts.h"
#include "ui/choice_slice.h"
#include "ui/guard.h"

namespace quillon::ui {

namespace {

constexpr int kLeastCharacters = 12;

// Keys that open the list or move in it; the combo handles them for its line edit too.
bool OpensList(int key) {
    return key == Qt::Key_F4 || key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

// True when another field has the focus. The list is part of the combo, and switching to another program does
// not leave the field.
bool IsLeft(const QComboBox& combo) {
    const QWidget* now = QApplication::focusWidget();
    if (now == nullptr) return false;
    for (const QWidget* part = now; part != nullptr; part = part->parentWidget())
        if (part == &combo) return false;
    return true;
}

// Restores the text, cursor and selection of an editable combo after its list was replaced.
class KeepLine {
public:
    explicit KeepLine(QLineEdit* line) : line_(line) {
        if (line_ == nullptr) return;
        text_ = line_->text();
        cursor_ = line_->cursorPosition();
        start_ = line_->selectionStart();
        length_ = static_cast<int>(line_->selectedText().size());
    }
    ~KeepLine() {
        if (line_ == nullptr) return;
        if (line_->text() != text_) line_->setText(text_);
        line_->setCursorPosition(cursor_);
        if (start_ < 0) return;
        const bool fromEnd = cursor_ == start_;  // as a completion is selected
        line_->setSelection(fromEnd ? start_ + length_ : start_, fromEnd ? -length_ : length_);
    }
    KeepLine(const KeepLine&) = delete;
    KeepLine& operator=(const KeepLine&) = delete;

private:
    QLineEdit* line_;
    QString text_;
    int cursor_ = 0, start_ = -1, length_ = 0;
};

// One combo box and its model. The box copies the list only when the choices have changed, and asks for
// pending choices only when the user opens the list or types.
class ComboBinding : public QObject {
public:
    ComboBinding(ComboControl& control, QComboBox& combo);

    void Show();
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PrepareList();
    void ConnectLine();
    void Activated(int index);
    void Scrolled(int place);
    void CompleteFrom(QStringListModel* texts);
    void Fill();
    void ShowText();
    void DropDown();
    void Typed(const QString& text);
    void Completed(const QString& completion);

    ComboControl& control_;
    documentation::PickListControl* pickList_;
    QComboBox& combo_;
    QStringListModel* offered_;
    QStringListModel* completions_;  // of a control whose choices are read in slices
    ChoiceSlice slice_;
    std::optional<std::uint64_t> filled_;  // the revision of the choices in the box
    bool typing_ = false, completing_ = false;
    bool completed_ = false;  // the end of the line is a completion that was not typed
    bool growing_ = false;
};

ComboBinding::ComboBinding(ComboControl& control, QComboBox& combo)
    : QObject(&combo),
      control_(control),
      pickList_(dynamic_cast<documentation::PickListControl*>(&control)),
      combo_(combo),
      offered_(new QStringListModel(this)),
      completions_(new QStringListModel(this)),
      slice_(control, *offered_) {
    combo_.setEditable(control_.GetStyle() == ComboControl::Style::Editable);
    combo_.setInsertPolicy(QComboBox::NoInsert);
    combo_.setFocusPolicy(Qt::StrongFocus);  // so that the wheel neither focuses nor changes it
    SetAccessibleName(combo_, combo_.accessibleName());
    PrepareList();
    combo_.installEventFilter(this);
    Connect(&combo_, &QComboBox::activated, this, &ComboBinding::Activated);
    if (combo_.lineEdit() != nullptr) ConnectLine();
}

void ComboBinding::Activated(int index) {
    if (control_.Source() != nullptr) {
        if (slice_.Has(index)) control_.UserTake(slice_.At(index));
    } else if (pickList_ != nullptr) {
        pickList_->UserPick(index);
    } else {
        control_.UserChoose(index);
    }
}

// Keeps the list fast with a hundred thousand names.
void ComboBinding::PrepareList() {
    combo_.setModel(offered_);
    if (auto* list = qobject_cast<QListView*>(combo_.view())) {
        list->setUniformItemSizes(true);
        list->setLayoutMode(QListView::Batched);
        Connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this, &ComboBinding::Scrolled);
    }
    // The layout sets the width, not the longest name of the DataSet.
    if (!combo_.isEditable()) return;
    combo_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (combo_.minimumContentsLength() == 0) combo_.setMinimumContentsLength(kLeastCharacters);
}

void ComboBinding::ConnectLine() {
    combo_.lineEdit()->installEventFilter(this);
    Connect(combo_.lineEdit(), &QLineEdit::textEdited, this, &ComboBinding::Typed);
    Connect(combo_.completer(), qOverload<const QString&>(&QCompleter::highlighted), this,
            &ComboBinding::Completed);
}

void ComboBinding::Show() {
    ShowCommon(control_, combo_);
    combo_.setEnabled(control_.Enabled() && !control_.Locked());
    if (control_.Source() != nullptr) {
        if (filled_ && filled_ != control_.ChoicesRevision()) {
            const KeepLine line(combo_.lineEdit());
            slice_.Clear();
            filled_.reset();
        }
        CompleteFrom(completions_);
    } else if (control_.ChoicesPending()) {
        if (filled_) offered_->setStringList({});
        filled_.reset();
    } else if (filled_ != control_.ChoicesRevision()) {
        Fill();
    }
    if (!completing_) ShowText();
}

void ComboBinding::Fill() {
    const QSignalBlocker quiet(&combo_);
    const KeepLine line(combo_.lineEdit());
    if (control_.Source() != nullptr) {
        slice_.Load();
        combo_.setCurrentIndex(slice_.Current());
        filled_ = control_.ChoicesRevision();
        return;
    }
    CompleteFrom(offered_);
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(control_.ListCount()));
    for (const auto& choice : control_.Choices()) texts << ToQt(choice.text);
    offered_->setStringList(texts);
    combo_.setCurrentIndex(control_.ListIndex());
    filled_ = control_.ChoicesRevision();
}

void ComboBinding::ShowText() {
    QLineEdit* line = combo_.lineEdit();
    const bool inSlices = control_.Source() != nullptr;
    const int index = !filled_ ? -1 : inSlices ? slice_.Current() : control_.ListIndex();
    if (line == nullptr) return combo_.setCurrentIndex(index);
    const QString text = ToQt(control_.Text());
    if (line->text() == text) {
        if (combo_.currentIndex() == index) return;
        const KeepLine same(line);
        return combo_.setCurrentIndex(index);
    }
    const int cursor = typing_ || line->hasFocus() ? line->cursorPosition() : 0;
    combo_.setCurrentIndex(index);
    if (line->text() != text) line->setText(text);
    line->setCursorPosition(cursor);  // without the focus it shows the beginning of the text
}

void ComboBinding::DropDown() {
    Guard([this] {
        if (pickList_ != nullptr) pickList_->UserDropDown();
        if (control_.Source() != nullptr || filled_ != control_.ChoicesRevision()) Fill();
    });
}

void ComboBinding::CompleteFrom(QStringListModel* texts) {
    QCompleter* completer = combo_.completer();
    if (completer != nullptr && completer->model() != texts) completer->setModel(texts);
}

// The list grows when the user comes to one of its ends; what is on show stays in its place.
void ComboBinding::Scrolled(int place) {
    if (control_.Source() == nullptr || growing_ || !combo_.view()->isVisible()) return;
    const QScrollBar* bar = combo_.view()->verticalScrollBar();
    if (place != bar->minimum() && place != bar->maximum()) return;
    growing_ = true;
    Later(this, [this, up = place == bar->minimum()] {
        const QSignalBlocker quiet(&combo_);
        const KeepLine line(combo_.lineEdit());
        auto* list = qobject_cast<QListView*>(combo_.view());
        const QModelIndex top = list->indexAt(QPoint(1, 1));
        const int row = top.row() + (up ? slice_.GrowUp() : 0);
        if (!up) slice_.GrowDown();
        list->doItemsLayout();
        if (up) list->scrollTo(offered_->index(row, 0), QAbstractItemView::PositionAtTop);
        growing_ = false;
    });
}

void ComboBinding::Typed(const QString& text) {
    const QSignalBlocker quiet(&combo_);
    typing_ = true;
    completed_ = false;
    control_.UserSetText(FromQt(text));
    if (control_.Text() != FromQt(text)) QApplication::beep();
    ShowText();  // the model may have taken less than was typed
    if (control_.Source() != nullptr)
        Guard([&] { completions_->setStringList(slice_.Completions(combo_.lineEdit()->text())); });
    typing_ = false;
}

// The line is about to be completed to a choice that begins with the typed text.
void ComboBinding::Completed(const QString& completion) {
    const QLineEdit* line = combo_.lineEdit();
    if (!line->hasFocus()) return;
    const int typed = line->cursorPosition();
    completing_ = completed_ = true;
    control_.UserSetText(FromQt(line->text().left(typed) + completion.mid(typed)));
    completing_ = false;
    Later(this, [this] {
        const QSignalBlocker quiet(&combo_);
        Show();
    });
}

bool ComboBinding::eventFilter(QObject* watched, QEvent* event) {
    const bool isCombo = watched == &combo_;
    switch (event->type()) {
        case QEvent::Wheel:
            if (combo_.hasFocus()) {
                DropDown();
                return false;
            }
            event->ignore();  // the page below scrolls instead
            return true;
        case QEvent::MouseButtonPress:
            if (isCombo) DropDown();
            return false;
        case QEvent::KeyPress: {
            const auto& key = dynamic_cast<QKeyEvent&>(*event);
            if (isCombo && OpensList(key.key())) DropDown();
            const bool isReturn = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
            if (isReturn && std::exchange(completed_, false)) {
                combo_.lineEdit()->end(false);  // takes the completion; the default button waits
                return true;
            }
            if (!key.text().trimmed().isEmpty() && control_.Source() == nullptr &&
                filled_ != control_.ChoicesRevision())
                Guard([this] { Fill(); });
            return false;
        }
        case QEvent::FocusOut:
            // A combo loses the focus during its destruction, when it is no longer a combo.
            if (qobject_cast<QComboBox*>(parent()) == nullptr) return false;
            if (combo_.lineEdit() != nullptr && LeavesField(*event)) combo_.lineEdit()->setCursorPosition(0);
            completed_ = false;
            if (IsLeft(combo_)) Guard([this] { control_.UserLeave(); });
            return false;
        default:
            return false;
    }
}

}  // namespace

void BindCombo(ComboControl& control, const QWidget& window) {
    auto* combo = Partner<QComboBox>(window, control);
    if (combo == nullptr) return;
    auto* binding = new ComboBinding(control, *combo);
    Mirror(control, *combo, [binding](const ComboControl&, QComboBox&) { binding->Show(); });
}

}  // namespace quillon::ui
