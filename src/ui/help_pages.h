// The pages of the manual, built into the program: their order, their texts, the page of each tab and dialog,
// and the search. The help window shows them.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace quillon::ui {

inline const QString kFirstHelpPage = QStringLiteral("index.md");

// A line of the contents: a page, or a heading above pages.
struct HelpEntry {
    int level;  // 0 and down
    QString title;
    QString page;  // the file of the page; empty for a heading
    bool operator==(const HelpEntry&) const = default;
};

// The position of a search word in the text of a page.
struct HelpHit {
    int start;
    int length;
    bool operator==(const HelpHit&) const = default;
};

// The page for the key of a tab or the name of a form; empty when there is none.
QString HelpPageFor(const QString& key);
// The keys and names that have a page.
QStringList HelpKeys();

QUrl HelpUrl(const QString& page);
// The file of a page by its address; empty for any other address.
QString HelpPageAt(const QUrl& url);

// The words of what was typed into the search field, each once.
QStringList HelpWords(const QString& typed);
// The positions of the words in text order, without overlaps; empty unless the text holds all of them.
// Ignores case.
QList<HelpHit> HelpHits(const QString& text, const QStringList& words);

class HelpPages {
public:
    HelpPages();
    // The first page, then the pages that it lists, in its order.
    const QList<HelpEntry>& Contents() const { return contents_; }
    // The files of the pages in the order of the contents.
    QStringList Pages() const;
    // The title of a page; empty when there is no such page.
    QString TitleOf(const QString& page) const;
    // The text of a page, with the same character positions as the shown page.
    const QString& TextOf(const QString& page);

private:
    QList<HelpEntry> contents_;
    QHash<QString, QString> texts_;
};

}  // namespace quillon::ui
