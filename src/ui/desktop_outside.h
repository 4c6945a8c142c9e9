// Implements core/outside.h for the desktop program: message boxes, file dialogs, the wait cursor, modal
// forms and the event loop.
#pragma once

#include <QHash>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <utility>

#include "core/outside.h"

class QFileDialog;

namespace quillon::ui {

class DesktopPrompter : public Prompter {
public:
    ~DesktopPrompter() override;
    // The window that boxes and dialogs belong to.
    void SetWindow(QWidget* window) { window_ = window; }
    // The initial folder of file dialogs; once the user has chosen a file they open in its folder. An empty
    // result stands for the user's documents.
    void SetFolder(std::function<std::string()> folder) { folder_ = std::move(folder); }
    // Registers how to show a form until it closes; `parent` is the window that it belongs to.
    void Register(std::string_view formName, std::function<void(QWidget* parent)> show);
    // The names of the registered forms, sorted.
    QStringList Forms() const;

    void Message(std::string_view text, std::string_view title) override;
    void WarningMessage(std::string_view text, std::string_view title) override;
    void StopMessage(std::string_view text, std::string_view title) override;
    bool AskYesNo(std::string_view text, std::string_view title) override;
    bool AskBeforeLoss(std::string_view text, std::string_view title) override;
    bool AskOkCancel(std::string_view text, std::string_view title) override;
    std::optional<std::string> FileToOpen(std::string_view title, std::string_view filter) override;
    std::optional<std::string> FileToSave(std::string_view title, std::string_view filter,
                                          bool overwritePrompt, std::string_view suggested) override;
    void ShowModal(std::string_view formName) override;
    void WaitCursor(bool on) override;

private:
    // The topmost modal window, or the main window once it is shown.
    QWidget* Above() const;
    QString StartFolder() const;
    std::optional<std::string> Chosen(QFileDialog& dialog);

    QPointer<QWidget> window_;
    QHash<QString, std::function<void(QWidget*)>> forms_;
    std::function<std::string()> folder_;
    QString lastFolder_;
    int waiting_ = 0;  // open scopes of the wait cursor
};

// Converts "Name (*.x)|*.x|..." to a filter of the toolkit that accepts upper and lower case extensions.
QString ToolkitFilter(std::string_view filter);

// Lets events through at most every 20 ms.
class DesktopPump : public EventPump {
public:
    using Milliseconds = std::function<qint64()>;
    // `now` counts from any beginning.
    explicit DesktopPump(Milliseconds now = SteadyTime);
    void Yield() override;

private:
    static qint64 SteadyTime();

    Milliseconds now_;
    std::optional<qint64> last_;
};

}  // namespace quillon::ui
