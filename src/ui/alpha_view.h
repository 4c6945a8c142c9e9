// The view of the alphabetical list. It reports every character typed, by key or by input method, as one key,
// and shows the full text of a truncated line in a tool tip.
#pragma once

#include <QListView>

namespace quillon::ui {

class AlphaView : public QListView {
    Q_OBJECT
public:
    explicit AlphaView(QWidget* parent = nullptr);
    // Disabled: the explorer searches the lines.
    void keyboardSearch(const QString&) override {}

signals:
    // One character; "\r" for Return and "\b" for Backspace.
    void KeyTyped(const QString& character);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void TypeAll(const QString& text);
    bool IsCut(const QModelIndex& index) const;
};

}  // namespace quillon::ui
