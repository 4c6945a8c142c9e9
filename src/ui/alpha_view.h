// The view of the alphabetical list: every character that is typed, by key or by input method, goes out as
// one key.
#pragma once

#include <QListView>

namespace quillon::ui {

class AlphaView : public QListView {
    Q_OBJECT
public:
    explicit AlphaView(QWidget* parent = nullptr);
    // The list searches its lines itself.
    void keyboardSearch(const QString&) override {}

signals:
    // One character; "\r" for Return and "\b" for Backspace.
    void KeyTyped(const QString& character);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    void TypeAll(const QString& text);
};

}  // namespace quillon::ui
