// The control models of forms: the content and state of a form's controls, independent of widgets.
//
// A form is a struct whose first member is a Form and whose other members are controls, each named like its
// member. The form's logic is the procedures of that struct; a window shows it through the binder of src/ui,
// and a test calls it directly. The program sets controls with Set...; the user's input comes through
// User..., which a disabled or locked control ignores, and which runs the rules added with OnEdit or OnClick.
//
// Observers are notified of a change once, when the outermost action ends: a user's action or a ChangeScope.
// Setting an equal value notifies no observer. A form and its controls cannot be copied or moved.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/choice_source.h"
#include "core/signal.h"

namespace quillon {

class Control;

class Form {
public:
    // `name` is the name of the form, such as "FrmImport".
    explicit Form(std::string name) : name_(std::move(name)) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    // In the order of declaration.
    const std::vector<Control*>& Controls() const { return controls_; }
    // nullptr when the form has no control of that name.
    Control* Find(std::string_view name) const;

    const std::string& Title() const { return title_; }
    void SetTitle(std::string_view title);
    // Notifies the window at once that the form closes.
    void Close();
    // Called by the window when the user closes it. Without a handler the form closes; a handler calls
    // Close() or keeps the form open.
    void UserClose();
    void OnUserClose(std::function<void()> rule) { closeRule_ = std::move(rule); }

    // Notifies the observers of the changes so far, in the middle of an action, for jobs that let the window
    // repaint while they run.
    void TellChanges();

    // Called after an action that changed the title, and at each Close().
    void OnTitle(std::function<void()> observer) { titleObservers_.Connect(std::move(observer)); }
    // Returns a number to remove the observer with, which an observer that dies before the form must do.
    std::uint64_t OnClosed(std::function<void()> observer) { return closed_.Connect(std::move(observer)); }
    void RemoveClosedObserver(std::uint64_t number) { closed_.Disconnect(number); }

private:
    friend class Control;
    friend class ChangeScope;
    void Begin() { ++depth_; }
    void End();

    std::string name_;
    std::string title_;
    std::vector<Control*> controls_;
    std::vector<Control*> changed_;
    Control* focus_ = nullptr;  // the control that requested the focus
    int depth_ = 0;
    bool telling_ = false;
    bool titleChanged_ = false;
    std::function<void()> closeRule_;  // decides whether the form closes
    Signal<> titleObservers_, closed_;
};

// One action of the program on a form: observers are notified once, at the end of the outermost scope.
// Observers must not throw.
class ChangeScope {
public:
    explicit ChangeScope(Form& form) : form_(form) { form_.Begin(); }
    ~ChangeScope() { form_.End(); }
    ChangeScope(const ChangeScope&) = delete;
    ChangeScope& operator=(const ChangeScope&) = delete;

private:
    Form& form_;
};

class Control {
public:
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    bool Enabled() const { return enabled_; }
    bool Visible() const { return visible_; }
    // A locked control looks enabled, but the user cannot change it.
    bool Locked() const { return locked_; }
    // With the "&" of its access key.
    const std::string& Caption() const { return caption_; }
    void SetEnabled(bool enabled) { Assign(enabled_, enabled); }
    void SetVisible(bool visible) { Assign(visible_, visible); }
    void SetLocked(bool locked) { Assign(locked_, locked); }
    void SetCaption(std::string_view caption) { Assign(caption_, std::string(caption)); }

    // `observer` is called once after each outermost action that changed the control.
    void Observe(std::function<void()> observer) { observers_.push_back(std::move(observer)); }
    // Requests the keyboard focus. It moves after the outermost action has ended and its changes are shown;
    // the last of several requests wins.
    void TakeFocus();
    // `observer` is called when the focus is to move here. A window ignores it while the control takes no
    // input.
    void OnTakeFocus(std::function<void()> observer) { focusObservers_.push_back(std::move(observer)); }
    // `rule` runs after a change by the user, inside the action and before any observer.
    void OnEdit(std::function<void()> rule) { rules_.push_back(std::move(rule)); }

    // The user has moved the keyboard focus into the control, or out of it. A popup of the control and a
    // switch to another program do not count.
    void UserEnter() { Run(enterRules_); }
    virtual void UserLeave() { Run(leaveRules_); }
    void OnEnter(std::function<void()> rule) { enterRules_.push_back(std::move(rule)); }
    void OnLeave(std::function<void()> rule) { leaveRules_.push_back(std::move(rule)); }
    // Whether the Tab key stops here. The mouse and an access key reach the control either way.
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool stops) { Assign(tabStop_, stops); }

protected:
    Control(Form& form, std::string name);

    template <typename T>
    bool Assign(T& member, T value) {
        if (member == value) return false;
        member = std::move(value);
        Touch();
        return true;
    }
    void Touch();
    bool AcceptsUser() const { return enabled_ && !locked_; }
    // Runs `change` as a user's action, and then the rules if it returns true. False when the control takes
    // no input.
    bool ByUser(const std::function<bool()>& change);

    Form& form_;

private:
    using Rules = std::vector<std::function<void()>>;
    friend class Form;
    void Run(const Rules& rules);
    std::string name_;
    std::string caption_;
    bool enabled_ = true;
    bool visible_ = true;
    bool locked_ = false;
    bool tabStop_ = true;
    bool touched_ = false;
    Rules observers_, rules_, focusObservers_, enterRules_, leaveRules_;
};

// A fixed text: a label, a panel of the status bar, a frame. Its text is its caption.
class LabelControl : public Control {
public:
    LabelControl(Form& form, std::string name, std::string_view caption = {});
};

class TextControl : public Control {
public:
    // `maxLength` limits typed text, in characters; 0 for no limit.
    TextControl(Form& form, std::string name, std::size_t maxLength = 0);

    const std::string& Text() const { return text_; }
    std::size_t MaxLength() const { return maxLength_; }
    void SetText(std::string_view text) { Assign(text_, std::string(text)); }
    bool UserSetText(std::string_view text);

private:
    std::string text_;
    std::size_t maxLength_;
};

class CheckControl : public Control {
public:
    CheckControl(Form& form, std::string name, std::string_view caption = {});

    bool Value() const { return value_; }
    void SetValue(bool value) { Assign(value_, value); }
    bool UserSetValue(bool value);

private:
    bool value_ = false;
};

// An option of a group, of which at most one is chosen. All options of a form with the same group name form a
// group.
class OptionControl : public Control {
public:
    OptionControl(Form& form, std::string name, std::string group, std::string_view caption = {});

    const std::string& Group() const { return group_; }
    bool Value() const { return value_; }
    // Choosing one clears the others.
    void SetValue(bool value);
    bool UserChoose();
    // Asked before the user's choice; when it gives false nothing changes and no rule runs.
    void OnChoosing(std::function<bool()> rule) { mayChoose_ = std::move(rule); }

private:
    void TouchGroup();

    std::string group_;
    bool value_ = false;
    std::function<bool()> mayChoose_;
};

// A push button, a toolbar button or a menu item.
class ButtonControl : public Control {
public:
    ButtonControl(Form& form, std::string name, std::string_view caption = {});

    // `rule` runs at a click, inside one action; several rules run in the order in which they were added.
    void OnClick(std::function<void()> rule) { OnEdit(std::move(rule)); }
    bool UserClick();
};

// The common part of combo boxes and lists: their choices, with indexes from 0.
class ChoiceControl : public Control {
public:
    using Choice = quillon::Choice;

    const std::vector<Choice>& Choices() const {
        Fetch();
        return choices_;
    }
    std::size_t ListCount() const { return Choices().size(); }
    // -1 when none is chosen.
    int ListIndex() const {
        Fetch();
        return listIndex_;
    }
    // The item data of the choice; 0 for an invalid `index`.
    std::int64_t ItemData(int index) const { return Has(index) ? At(index).itemData : 0; }
    // -1 when no choice has exactly this text.
    int FindText(std::string_view text) const;
    int FindItemData(std::int64_t itemData) const;

    void AddItem(std::string_view text, std::int64_t itemData = 0);
    // Replaces all choices; nothing is chosen afterwards, but an editable combo keeps its text.
    void SetChoices(std::vector<Choice> choices);
    void SetTexts(const std::vector<std::string>& texts);
    // Replaces all choices with choices that are slow to read: `fetch` runs once, when they are first needed.
    // The choice that equals the text of a combo is then chosen. `fetch` must not throw.
    void SetChoicesLater(std::function<std::vector<Choice>()> fetch);
    // Replaces all choices by those of a source, which a window reads in slices. Choices() still reads all.
    void SetSource(std::shared_ptr<ChoiceSource> source);
    // nullptr when the choices are not read in slices.
    ChoiceSource* Source() const { return source_.get(); }
    // True until they have been fetched.
    bool ChoicesPending() const { return fetch_ != nullptr; }
    // Changes with each change of the choices.
    std::uint64_t ChoicesRevision() const { return revision_; }
    void RemoveItem(int index);
    void Clear();

protected:
    using Control::Control;
    bool Has(int index) const { return index >= 0 && static_cast<std::size_t>(index) < ListCount(); }
    const Choice& At(int index) const { return choices_[static_cast<std::size_t>(index)]; }

    // The chosen one has been removed from the choices.
    virtual void ChoiceLost() {}
    // Called when the choices have been fetched; returns the index of the chosen one.
    virtual int ChosenOfFetched() const { return -1; }

    mutable std::vector<Choice> choices_;
    mutable int listIndex_ = -1;

private:
    void Fetch() const;

    mutable std::function<std::vector<Choice>()> fetch_;
    std::shared_ptr<ChoiceSource> source_;
    std::uint64_t revision_ = 0;
};

// A text with a list of choices. The text of a list-only combo is always a choice, or empty.
class ComboControl : public ChoiceControl {
public:
    enum class Style { Editable, ListOnly };
    ComboControl(Form& form, std::string name, Style style = Style::Editable, std::size_t maxLength = 0);

    Style GetStyle() const { return style_; }
    const std::string& Text() const { return text_; }
    std::size_t MaxLength() const { return maxLength_; }
    // Selects the choice with exactly this text. Any other text is set in an editable combo and empties a
    // list-only one.
    void SetText(std::string_view text);
    // -1 empties the text.
    void SetListIndex(int index);
    bool UserChoose(int index);
    // Takes a choice that was read from the source.
    bool UserTake(const Choice& choice);
    bool UserSetText(std::string_view text);
    // Shows a choice that need not be in the list.
    void SetChoice(const Choice& choice);
    // The item data of the choice that was taken from the list or shown by SetChoice, as long as its text
    // stands; 0 for any other text. Several choices may have the same text.
    std::int64_t PickedData() const { return picked_.text == text_ ? picked_.itemData : 0; }

private:
    bool IsPicked(const Choice& choice) const;
    void ChoiceLost() override;
    int ChosenOfFetched() const override { return FindText(text_); }

    Style style_;
    std::string text_;
    std::size_t maxLength_;
    Choice picked_;
    bool typed_ = false;  // the text is the user's own
};

// A list with at most one selected item.
class ListControl : public ChoiceControl {
public:
    ListControl(Form& form, std::string name);

    // The text of the selected item, empty for none.
    std::string Text() const { return Has(listIndex_) ? At(listIndex_).text : std::string(); }
    void SetListIndex(int index) { Assign(listIndex_, Has(index) ? index : -1); }
    bool UserSelect(int index);
    // `rule` runs after a double click, or Return, on the selected item.
    void OnActivate(std::function<void()> rule) { activateRules_.push_back(std::move(rule)); }
    bool UserActivate(int index);

private:
    std::vector<std::function<void()>> activateRules_;
};

// Rows of texts in columns; hidden columns hold the keys. Rows and columns count from 0.
class GridControl : public Control {
public:
    struct Column {
        std::string heading;
        bool hidden = false;
        int width = 0;  // in characters, before the user changes it; 0 for any
    };
    using Row = std::vector<std::string>;
    GridControl(Form& form, std::string name, std::vector<Column> columns);

    const std::vector<Column>& Columns() const { return columns_; }
    void SetHeading(std::size_t column, std::string_view heading);
    const std::vector<Row>& Rows() const { return rows_; }
    const std::string& Cell(std::size_t row, std::size_t column) const { return rows_.at(row).at(column); }
    // A short row is filled up with empty texts.
    void AddRow(Row row);
    // Inserts a row before row `index`, or at the end when there is no such row. The selected row stays
    // selected.
    void InsertRow(std::size_t index, Row row);
    void ReplaceRow(std::size_t index, Row row);
    void SetRows(std::vector<Row> rows);
    void SetCell(std::size_t row, std::size_t column, std::string_view text);
    void RemoveRow(std::size_t row);
    void Clear() { SetRows({}); }

    // -1 when no row is selected.
    int SelectedRow() const { return selected_; }
    void SetSelectedRow(int row) { Assign(selected_, HasRow(row) ? row : -1); }
    bool UserSelectRow(int row);
    // `rule` runs after a double click, or Return, on a row.
    void OnActivate(std::function<void()> rule) { activateRules_.push_back(std::move(rule)); }
    bool UserActivateRow(int row);

private:
    bool HasRow(int row) const { return row >= 0 && static_cast<std::size_t>(row) < rows_.size(); }
    std::vector<Column> columns_;
    std::vector<Row> rows_;
    int selected_ = -1;
    std::vector<std::function<void()>> activateRules_;
};

// The progress of a job. Values are clamped to the limits. Observers are notified of a new value at once,
// together with all earlier changes.
class GaugeControl : public Control {
public:
    GaugeControl(Form& form, std::string name, int minimum = 0, int maximum = 100);

    int Min() const { return minimum_; }
    int Max() const { return maximum_; }
    int Value() const { return value_; }
    void SetMin(int minimum);
    void SetMax(int maximum);
    void SetValue(int value);

private:
    int minimum_, maximum_, value_;
};

// Tabs with keys. The index of the selected tab counts from 1.
class TabStripControl : public Control {
public:
    struct Tab {
        std::string key;
        std::string caption;
    };
    TabStripControl(Form& form, std::string name, std::initializer_list<Tab> tabs);

    const std::vector<Tab>& Tabs() const { return tabs_; }
    int SelectedIndex() const { return selected_; }
    const std::string& SelectedKey() const { return tabs_[static_cast<std::size_t>(selected_ - 1)].key; }
    // 0 when there is no such key.
    int IndexOf(std::string_view key) const;
    void SetSelectedIndex(int index);
    // A click on the selected tab changes nothing.
    bool UserSelect(int index);

private:
    bool HasTab(int index) const { return index >= 1 && static_cast<std::size_t>(index) <= tabs_.size(); }
    std::vector<Tab> tabs_;
    int selected_ = 1;
};

}  // namespace quillon
