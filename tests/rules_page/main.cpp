// Prints the manual's page of the rules.
#include <cstdio>

#include "rules_page/page.h"

int main() {
    const std::string page = quillon::validation::RulesPage();
    return std::fwrite(page.data(), 1, page.size(), stdout) == page.size() ? 0 : 1;
}
