#include "ui/help_pages.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

// The pages are in a static library, whose resources are not linked by default. The macro must be outside any
// namespace.
static void TakeInPages() {
    Q_INIT_RESOURCE(help);
}

namespace quillon::ui {

namespace {

struct KeyPage {
    const char* key;
    const char* page;
};

constexpr KeyPage kKeyPages[] = {
    {"taxon", "tab-taxon.md"},
    {"vernacular", "tab-vernaculars.md"},
    {"synonyms", "tab-synonyms.md"},
    {"distribution", "tab-distribution.md"},
    {"comments", "tab-comments.md"},
    {"publications", "tab-publications.md"},
    {"experts", "tab-experts.md"},
    {"othersources", "tab-other-sources.md"},
    {"RecView", "window.md"},
    {"frmSplash", "starting.md"},
    {"frmNoDB", "starting.md"},
    {"FrmKingdom", "starting.md"},
    {"FrmPreferences", "preferences.md"},
    {"CleanUp", "authors.md"},
    {"FrmImport", "importing.md"},
    {"FrmIError", "import-log.md"},
    {"frmValidate", "validating.md"},
    {"FrmVError", "validation-log.md"},
    {"FrmNExport", "exporting.md"},
    {"FrmDExport", "exporting.md"},
    {"ExpType", "exporting.md"},
    {"FrmTExport", "exporting.md"},
    {"FrmAbout", "dialogs.md"},
    {"frmInProgress", "dialogs.md"},
    {"HelpWindow", "help.md"},
};

QString SourceOf(const QString& page) {
    TakeInPages();
    QFile file(":/manual/" + page);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// "# Title", "## Heading" and "- [Title](page.md)", two blanks before it for each level below.
QList<HelpEntry> ContentsIn(const QString& firstPage) {
    static const QRegularExpression line(R"(^(?:(#+) (.+)|( *)- \[([^\]]+)\]\(([^)]+)\))$)",
                                         QRegularExpression::MultilineOption);
    QList<HelpEntry> contents;
    for (auto found = line.globalMatch(firstPage); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        if (!match.captured(1).isEmpty()) {
            const bool isTitle = match.capturedLength(1) == 1;
            contents.append({0, match.captured(2), isTitle ? kFirstHelpPage : QString()});
        } else {
            const int level = static_cast<int>(match.capturedLength(3)) / 2 + 1;
            contents.append({level, match.captured(4), match.captured(5)});
        }
    }
    return contents;
}

}  // namespace

QString HelpPageFor(const QString& key) {
    const auto* found = std::find_if(std::begin(kKeyPages), std::end(kKeyPages),
                                     [&](const KeyPage& row) { return key == row.key; });
    return found == std::end(kKeyPages) ? QString() : QString(found->page);
}

QStringList HelpKeys() {
    QStringList keys;
    for (const KeyPage& row : kKeyPages) keys << row.key;
    return keys;
}

QUrl HelpUrl(const QString& page) {
    return QUrl("qrc:/manual/" + page);
}

QString HelpPageAt(const QUrl& url) {
    static const QString folder = "/manual/";
    return url.scheme() == "qrc" && url.path().startsWith(folder) ? url.path().mid(folder.size()) : QString();
}

QStringList HelpWords(const QString& typed) {
    QStringList words = typed.toLower().simplified().split(' ', Qt::SkipEmptyParts);
    words.removeDuplicates();
    return words;
}

QList<HelpHit> HelpHits(const QString& text, const QStringList& words) {
    QList<HelpHit> found;
    for (const QString& word : words) {
        const qsizetype before = found.size();
        for (qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
             at = text.indexOf(word, at + word.size(), Qt::CaseInsensitive))
            found.append({static_cast<int>(at), static_cast<int>(word.size())});
        if (found.size() == before) return {};
    }
    std::sort(found.begin(), found.end(), [](const HelpHit& left, const HelpHit& right) {
        return left.start != right.start ? left.start < right.start : left.length > right.length;
    });
    QList<HelpHit> hits;
    for (const HelpHit& hit : found)
        if (hits.isEmpty() || hit.start >= hits.back().start + hits.back().length) hits.append(hit);
    return hits;
}

HelpPages::HelpPages() : contents_(ContentsIn(SourceOf(kFirstHelpPage))) {}

QStringList HelpPages::Pages() const {
    QStringList pages;
    for (const HelpEntry& entry : contents_)
        if (!entry.page.isEmpty()) pages << entry.page;
    return pages;
}

QString HelpPages::TitleOf(const QString& page) const {
    const auto found = std::find_if(contents_.begin(), contents_.end(),
                                    [&](const HelpEntry& entry) { return entry.page == page; });
    return found == contents_.end() || page.isEmpty() ? QString() : found->title;
}

const QString& HelpPages::TextOf(const QString& page) {
    auto found = texts_.find(page);
    if (found == texts_.end()) {
        QTextDocument document;
        document.setMarkdown(SourceOf(page));
        found = texts_.insert(page, document.toPlainText());
    }
    return *found;
}

}  // namespace quillon::ui
