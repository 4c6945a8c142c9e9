// The pages of the manual as the program carries them: their order, their texts, the page of each tab and
// dialog, and the search over them. The help window shows them; nothing here shows anything.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace quillon::ui {

inline const QString kFirstHelpPage = QStringLiteral("index.md");

// A line of the contents: a page, or a heading over pages.
struct HelpEntry {
    int level;  // 0 and down
    QString title;
    QString page;  // the file of the page; empty for a heading
    bool operator==(const HelpEntry&) const = default;
};

// Where a word that was searched for stands in the text of a page.
struct HelpHit {
    int start;
    int length;
    bool operator==(const HelpHit&) const = default;
};

// The page for a tab by its key, or for a form by its name; empty when it has none.
QString HelpPageFor(const QString& key);
// The keys and names that have a page.
QStringList HelpKeys();

QUrl HelpUrl(const QString& page);
// The file of a page by its address; empty for any other address.
QString HelpPageAt(const QUrl& url);

// The words of what was typed into the search field, each once.
QStringList HelpWords(const QString& typed);
// Where the words stand, in the order of the text and without overlapping; nothing unless the text holds
// every one of them. Upper and lower case are the same.
QList<HelpHit> HelpHits(const QString& text, const QStringList& words);

class HelpPages {
public:
    HelpPages();
    // The first page, then what it lists, in its order.
    const QList<HelpEntry>& Contents() const { return contents_; }
    // The files of the pages in the order of the contents.
    QStringList Pages() const;
    // The title of a page; empty when there is no such page.
    QString TitleOf(const QString& page) const;
    // What a page says, each character where the shown page has it.
    const QString& TextOf(const QString& page);

private:
    QList<HelpEntry> contents_;
    QHash<QString, QString> texts_;
};

}  // namespace quillon::ui
