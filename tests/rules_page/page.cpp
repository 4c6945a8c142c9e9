#include "rules_page/page.h"

#include <fmt/format.h>

#include <array>
#include <string_view>

#include "validation/rules.h"

namespace quillon::validation {

namespace {

constexpr std::string_view kBeginning = R"(# The rules

A [validation](validating.md) checks the records of a DataSet against these rules. Each has a code that never changes.

A record that breaks a rule marked "error" is left out of an [export](exporting.md) for the online system. A "warning" leaves
nothing out.
)";

struct Table {
    char letter;
    std::string_view heading;
};
constexpr std::array<Table, 8> kTables = {{{'T', "Taxa"},
                                           {'A', "Authors"},
                                           {'L', "Reference links"},
                                           {'E', "Experts"},
                                           {'S', "Other sources"},
                                           {'P', "Publications"},
                                           {'V', "Vernaculars"},
                                           {'J', "Jurisdictions"}}};

struct Tab {
    std::string_view key, caption, page;
};
constexpr std::array<Tab, 7> kTabs = {{{"taxon", "Taxon", "tab-taxon.md"},
                                       {"synonyms", "Synonyms", "tab-synonyms.md"},
                                       {"vernacular", "Vernaculars", "tab-vernaculars.md"},
                                       {"distribution", "Distribution", "tab-distribution.md"},
                                       {"publications", "Publications", "tab-publications.md"},
                                       {"experts", "Experts", "tab-experts.md"},
                                       {"othersources", "Other Sources", "tab-other-sources.md"}}};

std::string LinkTo(std::string_view key) {
    for (const Tab& tab : kTabs)
        if (tab.key == key) return fmt::format("[{}]({})", tab.caption, tab.page);
    return std::string(key);
}

}  // namespace

std::string RulesPage() {
    std::string page(kBeginning);
    for (const Table& table : kTables) {
        page += fmt::format("\n## {}\n\n| code | severity | finding | what the rule asks for | tab |\n",
                            table.heading);
        page += "|---|---|---|---|---|\n";
        for (const RuleInfo& rule : AllRules())
            if (rule.code.front() == table.letter)
                page += fmt::format("| {} | {} | {} | {} | {} |\n", rule.code, WordFor(rule.severity),
                                    rule.label, rule.sentence, LinkTo(rule.tab));
    }
    return page + "\nSee also: [The validation log](validation-log.md)\n";
}

}  // namespace quillon::validation
