#include "ui/desktop_outside.h"

#include <QtWidgets>

#include "ui/form_dialog.h"
#include "ui/text_convert.h"

namespace quillon::ui {

namespace {

constexpr qint64 kMillisecondsBetweenEvents = 20;
const QString kProgram = QStringLiteral("Taxonomic Quillon");

// Every line end becomes LF.
QString MessageText(std::string_view text) {
    return ToQt(text).replace("\r\n", "\n").replace('\r', '\n');
}

void SetUp(QMessageBox& box, std::string_view text, std::string_view title) {
    box.setTextFormat(Qt::PlainText);
    box.setText(MessageText(text));
    box.setWindowTitle(title.empty() ? kProgram : ToQt(title));
}

// Shows the arrow cursor while a dialog waits for the user, even during a job, and activates the window below
// afterwards.
class DialogScope {
public:
    explicit DialogScope(QWidget* above) : above_(above) { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~DialogScope() {
        QApplication::restoreOverrideCursor();
        ActivateAgain(above_);
    }
    DialogScope(const DialogScope&) = delete;
    DialogScope& operator=(const DialogScope&) = delete;

private:
    QPointer<QWidget> above_;
};

void ShowMessage(QMessageBox::Icon icon, std::string_view text, std::string_view title, QWidget* above) {
    const DialogScope scope(above);
    QMessageBox box(icon, {}, {}, QMessageBox::Ok, above);
    SetUp(box, text, title);
    box.exec();
}

// A question with the buttons `yes` and `no`; true for the first. `usual` is the default button.
bool Ask(std::string_view text, std::string_view title, QMessageBox::StandardButton yes,
         QMessageBox::StandardButton no, QMessageBox::StandardButton usual, QWidget* above) {
    const DialogScope scope(above);
    QMessageBox box(QMessageBox::Question, {}, {}, yes | no, above);
    SetUp(box, text, title);
    box.setDefaultButton(usual);
    box.setEscapeButton(no);
    return box.exec() == yes;
}

// The ending for names of DataSets and logs that have none. The dialog adds it, so that it asks about
// overwriting the right file.
QString EndingOfBareNames(std::string_view filter) {
    const QString first = ToQt(filter).section('|', 1, 1);
    return first == "*.mdb" || first == "*.log" ? first.mid(2).toUpper() : QString();
}

// Accepts a name without its ending for an existing file with the ending of the filter, in lower or upper
// case.
class OpenDialog : public QFileDialog {
public:
    OpenDialog(QWidget* above, const QString& title, const QString& folder, std::string_view filter)
        : QFileDialog(above, title, folder, ToolkitFilter(filter)),
          ending_(ToQt(filter).section('|', 1, 1).mid(1)) {}

    void accept() override {
        const QStringList files = selectedFiles();
        if (files.size() == 1 && !QFileInfo::exists(files.first())) {
            for (const QString& ending : {ending_.toLower(), ending_.toUpper()}) {
                if (!QFileInfo::exists(files.first() + ending)) continue;
                selectFile(files.first() + ending);
                break;
            }
        }
        QFileDialog::accept();
    }

private:
    QString ending_;
};

}  // namespace

DesktopPrompter::~DesktopPrompter() {
    while (waiting_ > 0) WaitCursor(false);
}

QWidget* DesktopPrompter::Above() const {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr) return modal;
    // Above a hidden window, boxes would appear anywhere.
    return window_ != nullptr && window_->isVisible() ? window_.data() : nullptr;
}

QString DesktopPrompter::StartFolder() const {
    QString folder = lastFolder_;
    if (folder.isEmpty() && folder_) folder = ToQt(folder_());
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
    folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

std::optional<std::string> DesktopPrompter::Chosen(QFileDialog& dialog) {
    const DialogScope scope(dialog.parentWidget());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    lastFolder_ = QFileInfo(path).absolutePath();
    return FromQt(QDir::toNativeSeparators(path));
}

void DesktopPrompter::Register(std::string_view formName, std::function<void(QWidget*)> show) {
    forms_[ToQt(formName)] = std::move(show);
}

QStringList DesktopPrompter::Forms() const {
    QStringList names = forms_.keys();
    names.sort();
    return names;
}

void DesktopPrompter::Message(std::string_view text, std::string_view title) {
    ShowMessage(QMessageBox::Information, text, title, Above());
}

void DesktopPrompter::WarningMessage(std::string_view text, std::string_view title) {
    ShowMessage(QMessageBox::Warning, text, title, Above());
}

void DesktopPrompter::StopMessage(std::string_view text, std::string_view title) {
    ShowMessage(QMessageBox::Critical, text, title, Above());
}

bool DesktopPrompter::AskYesNo(std::string_view text, std::string_view title) {
    return Ask(text, title, QMessageBox::Yes, QMessageBox::No, QMessageBox::Yes, Above());
}

bool DesktopPrompter::AskBeforeLoss(std::string_view text, std::string_view title) {
    return Ask(text, title, QMessageBox::Yes, QMessageBox::No, QMessageBox::No, Above());
}

bool DesktopPrompter::AskOkCancel(std::string_view text, std::string_view title) {
    return Ask(text, title, QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::Cancel, Above());
}

std::optional<std::string> DesktopPrompter::FileToOpen(std::string_view title, std::string_view filter) {
    OpenDialog dialog(Above(), ToQt(title), StartFolder(), filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return Chosen(dialog);
}

std::optional<std::string> DesktopPrompter::FileToSave(std::string_view title, std::string_view filter,
                                                       bool overwritePrompt, std::string_view suggested) {
    const QFileInfo offered(ToQt(suggested));
    QFileDialog dialog(Above(), ToQt(title), suggested.empty() ? StartFolder() : offered.absolutePath(),
                       ToolkitFilter(filter));
    if (!suggested.empty()) dialog.selectFile(offered.fileName());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !overwritePrompt);
    dialog.setDefaultSuffix(EndingOfBareNames(filter));
    return Chosen(dialog);
}

void DesktopPrompter::ShowModal(std::string_view formName) {
    const auto show = forms_.value(ToQt(formName));
    if (!show) return;
    const DialogScope scope(nullptr);  // the form's window activates the window below it
    show(Above());
}

void DesktopPrompter::WaitCursor(bool on) {
    if (!on && waiting_ == 0) return;
    const int before = waiting_;
    waiting_ += on ? 1 : -1;
    if (before == 0) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (waiting_ == 0) QApplication::restoreOverrideCursor();
}

QString ToolkitFilter(std::string_view filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString pattern = parts[i + 1].toLower();
        if (pattern == "*.*") {
            pattern = "*";
        } else {
            pattern += " " + pattern.toUpper();
        }
        const QString name = parts[i].left(parts[i].indexOf('(')).trimmed();
        filters << name + " (" + pattern + ")";
    }
    return filters.join(";;");
}

DesktopPump::DesktopPump(Milliseconds now) : now_(std::move(now)) {}

void DesktopPump::Yield() {
    if (last_ && now_() - *last_ < kMillisecondsBetweenEvents) return;
    QCoreApplication::processEvents();
    last_ = now_();
}

qint64 DesktopPump::SteadyTime() {
    return QDeadlineTimer::current().deadline();
}

}  // namespace quillon::ui
