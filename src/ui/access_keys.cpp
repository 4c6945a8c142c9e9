#include "ui/access_keys.h"

#include <QtWidgets>
#include <algorithm>
#include <string_view>
#include <vector>

namespace quillon::ui {

namespace {

constexpr const char* kCaption = "quillonCaption";
constexpr const char* kHasKeys = "quillonHasAccessKeys";
constexpr const char* kIsPage = "quillonIsPage";

QString TextOf(const QObject& object) {
    if (const auto* action = qobject_cast<const QAction*>(&object)) return action->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&object)) return button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(&object)) return group->title();
    const auto* label = qobject_cast<const QLabel*>(&object);
    return label != nullptr ? label->text() : QString();
}

void SetText(QObject& object, const QString& text) {
    if (TextOf(object) == text) return;
    if (auto* action = qobject_cast<QAction*>(&object)) return action->setText(text);
    if (auto* button = qobject_cast<QAbstractButton*>(&object)) return button->setText(text);
    if (auto* group = qobject_cast<QGroupBox*>(&object)) return group->setTitle(text);
    if (auto* label = qobject_cast<QLabel*>(&object)) label->setText(text);
}

QChar LetterOf(const QString& text) {
    const qsizetype mark = text.indexOf('&');
    return mark >= 0 && mark + 1 < text.size() ? text[mark + 1].toLower() : QChar();
}

bool CanBeKey(QChar letter) {
    return letter.unicode() < 0x80 && letter.isLetter();
}

// The positions of letters that may be underlined: first letters of words come before all others.
std::vector<qsizetype> PlacesIn(const QString& text) {
    std::vector<qsizetype> initials, others;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!CanBeKey(text[i])) continue;
        (i == 0 || !text[i - 1].isLetter() ? initials : others).push_back(i);
    }
    initials.insert(initials.end(), others.begin(), others.end());
    return initials;
}

const QWidget* PageOf(const QObject& object) {
    for (const QObject* at = &object; at != nullptr; at = at->parent())
        if (at->property(kIsPage).toBool()) return static_cast<const QWidget*>(at);
    return nullptr;
}

// The keys in use, each with its page; a key without a page is in use on all pages.
class Keys {
public:
    bool IsFree(QChar key, const QWidget* page) const {
        return std::none_of(given_.begin(), given_.end(), [&](const Given& given) {
            return given.key == key && (given.page == page || given.page == nullptr || page == nullptr);
        });
    }
    void Give(QChar key, const QWidget* page) { given_.push_back({key, page}); }

    // Keeps the letter that the object has, if that is free.
    bool Keep(QObject& object) {
        const QChar key = AccessKeyOf(object);
        const QWidget* page = PageOf(object);
        if (key.isNull() || !IsFree(key, page)) return false;
        Give(key, page);
        return true;
    }
    // Picks another letter of the object's text, or a digit for a button when none is free.
    void Find(QObject& object) {
        const QWidget* page = PageOf(object);
        QString text = TextOf(object).remove('&');
        for (const qsizetype place : PlacesIn(text)) {
            const QChar key = text[place].toLower();
            if (!IsFree(key, page)) continue;
            Give(key, page);
            return SetText(object, text.insert(place, '&'));
        }
        SetText(object, text);
        if (auto* button = qobject_cast<QAbstractButton*>(&object)) FindDigit(*button, page);
    }

private:
    struct Given {
        QChar key;
        const QWidget* page;
    };
    void FindDigit(QAbstractButton& button, const QWidget* page) {
        // In a window of pages the other digits are for its tabs.
        const std::string_view digits = page == nullptr ? "123456789" : "90";
        for (const char digit : digits) {
            if (!IsFree(QChar(digit), page)) continue;
            Give(QChar(digit), page);
            button.setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(digit)));
            const QString name = button.accessibleName().isEmpty() ? button.text() : button.accessibleName();
            return button.setToolTip(
                QString("%1 (%2)").arg(name, button.shortcut().toString(QKeySequence::NativeText)));
        }
    }

    std::vector<Given> given_;
};

void AssignInOrder(const QList<QObject*>& objects, Keys& keys) {
    QList<QObject*> without;
    for (QObject* object : objects)
        if (!keys.Keep(*object)) without << object;
    for (QObject* object : without) keys.Find(*object);
}

void AssignInMenu(const QMenu& menu) {
    Keys keys;
    QList<QObject*> actions;
    for (QAction* action : menu.actions()) {
        if (action->isSeparator()) continue;
        actions << action;
        if (action->menu() != nullptr) AssignInMenu(*action->menu());
    }
    AssignInOrder(actions, keys);
}

void AssignInMenuBars(const QWidget& window, Keys& keys) {
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
        for (QAction* action : bar->actions()) {
            keys.Keep(*action);
            if (action->menu() != nullptr) AssignInMenu(*action->menu());
        }
    }
}

bool IsCarrier(const QWidget& widget) {
    if (widget.inherits("QToolButton") || widget.objectName().startsWith("qt_")) return false;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->buddy() != nullptr;
    return !TextOf(widget).isEmpty();
}

void ShowIn(QObject& object, const QString& caption, QWidget* window) {
    const QVariant last = object.property(kCaption);
    if (last.isValid() && last.toString() == caption) return;
    object.setProperty(kCaption, caption);
    SetText(object, caption);
    if (window != nullptr && window->property(kHasKeys).toBool()) AssignAccessKeys(*window);
}

}  // namespace

QChar AccessKeyOf(const QObject& object) {
    const QChar letter = LetterOf(TextOf(object));
    const auto* button = qobject_cast<const QAbstractButton*>(&object);
    if (!letter.isNull() || button == nullptr || button->shortcut().isEmpty()) return letter;
    return QChar(button->shortcut()[0].key());
}

void ShowCaption(QWidget& widget, const QString& caption) {
    ShowIn(widget, caption, widget.window());
}

void ShowCaption(QAction& action, const QString& caption) {
    ShowIn(action, caption, qobject_cast<QWidget*>(action.parent()));
}

void MarkAsPage(QWidget& widget) {
    widget.setProperty(kIsPage, true);
}

void AssignAccessKeys(QWidget& window) {
    window.setProperty(kHasKeys, true);
    Keys keys;
    AssignInMenuBars(window, keys);
    QList<QObject*> everywhere, buttons, labels;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !IsCarrier(*widget)) continue;
        const bool isLabel = qobject_cast<QLabel*>(widget) != nullptr;
        (isLabel ? labels : PageOf(*widget) == nullptr ? everywhere : buttons) << widget;
    }
    for (const QList<QObject*>& objects : {everywhere, buttons, labels}) AssignInOrder(objects, keys);
}

}  // namespace quillon::ui
