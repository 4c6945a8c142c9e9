#include "ui/import_window.h"

#include <QtWidgets>

#include "ui/named.h"

namespace quillon::ui {

namespace {

// A label above the list of symbols that it names.
QLayout* Symbols(QWidget* parent, const char* label, const char* combo) {
    auto* layout = new QVBoxLayout;
    auto* caption = Named<QLabel>(parent, label);
    auto* symbols = Named<QComboBox>(parent, combo);
    caption->setBuddy(symbols);
    layout->addWidget(caption);
    layout->addWidget(symbols);
    return layout;
}

}  // namespace

ImportWindow::ImportWindow(importing::FrmImport& form, QWidget* parent) : FormDialog(form.form, parent) {
    auto* format = Named<QGroupBox>(this, "fraFormat");
    auto* formats = new QVBoxLayout(format);
    formats->addWidget(Named<QRadioButton>(format, "OptAscii"));
    formats->addWidget(Named<QRadioButton>(format, "OptORVA"));
    auto* symbols = new QHBoxLayout;
    symbols->addLayout(Symbols(this, "lblDelimiter", "cboDelimiter"));
    symbols->addLayout(Symbols(this, "lblEnclosure", "cboEnclosure"));
    auto* gauge = Named<QProgressBar>(this, "Gauge1");
    gauge->setAccessibleName(tr("Progress"));
    auto* buttons = new QHBoxLayout;
    auto* ok = Named<QPushButton>(this, "cmdOK");
    ok->setDefault(true);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(Named<QPushButton>(this, "cmdCancel"));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addWidget(Named<QLabel>(this, "lblImport"));
    layout->addWidget(format);
    layout->addLayout(symbols);
    layout->addWidget(gauge);
    layout->addWidget(Named<QLabel>(this, "lblStage"));
    auto* failures = Named<QListWidget>(this, "lstFailures");
    failures->setAccessibleName(tr("Records that could not be stored"));
    layout->addWidget(failures);
    layout->addLayout(buttons);
    BindAll();
}

ImportErrorWindow::ImportErrorWindow(importing::FrmIError& form, QWidget* parent) : LogWindow(form, parent) {
    auto* log = Named<QPlainTextEdit>(this, "txtError");
    log->setLineWrapMode(QPlainTextEdit::NoWrap);
    log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    log->setAccessibleName(tr("Import Error Log"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(log);
    layout->addLayout(MakeButtons());
    Finish();
}

}  // namespace quillon::ui
