// The whole program with a user who cancels everything, for tests that walk through all of its windows.
#pragma once

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "testkit/testkit.h"
#include "ui/desktop_program.h"
#include "ui/form_dialog.h"
#include "ui/text_convert.h"

namespace quillon::ui {

class EveryWindow : public testing::Test {
protected:
    EveryWindow() {
        program.State().gKingdomName = "Animalia";
        program.State().gPrefRank = "Kingdom";
        program.Lifecycle().MakeDataSet(dir.File("whales.mdb"));
        program.RecView().ShowDataSet();
        program.Window().show();
    }
    // Shows each dialog of the program and closes it without asking its form.
    void WithEachDialog(const std::function<void(FormDialog&)>& act) {
        user.fileToSave = dir.File("names.qln");
        for (const QString& name : program.Outside().Forms()) {
            testkit::WriteFile(dir.File("validate.log"),
                               "ID =  12   Name = Orca\r\n     Error: It is wrong.\r\n");
            testkit::WriteFile(dir.File("import.err"), "A sentence\r\n     [XX]|1|\r\n");
            bool met = false;
            const auto visit = [&] {
                FormDialog* dialog = Dialog(name);
                if (met || dialog == nullptr) return;
                met = true;
                act(*dialog);
                dialog->done(QDialog::Rejected);
            };
            QTimer::singleShot(0, visit);
            program.Outside().ShowModal(FromQt(name));
            visit();
            EXPECT_TRUE(met) << name.toStdString();
        }
        user.fileToSave.reset();
    }

    testkit::TempDir dir;
    testkit::SilentPrompter user;
    DesktopProgram program{&user, dir.path()};

private:
    static FormDialog* Dialog(const QString& name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<FormDialog*>(window);
            if (dialog != nullptr && dialog->isVisible() && dialog->objectName() == name) return dialog;
        }
        return nullptr;
    }
};

}  // namespace quillon::ui
