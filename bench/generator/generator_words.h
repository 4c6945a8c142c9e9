// Words for generated files: names of taxa, authors, vernaculars and titles that look like real ones, accents
// included.
//
// Each is a function of its number alone, and numbers near each other give different words. The generator of
// tagged files calls them; nothing here is random.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon::bench {

// One word, capitalised; some 600,000 of them.
std::string GenusName(std::size_t number);
// As a genus with the ending of a family.
std::string FamilyName(std::size_t number);
// One word in small letters; some 33,000 of them.
std::string Epithet(std::size_t number);
// "Linnaeus, 1758", "(Müller & Zeller, 1847)": different for the first 1,000,000 numbers.
std::string AuthorName(std::size_t number);
// A person's surname alone.
std::string_view Surname(std::size_t number);

struct Vernacular {
    std::string name;
    std::string_view language;
};
Vernacular VernacularName(std::size_t number);
std::string PublicationTitle(std::size_t number);
std::string_view JournalName(std::size_t number);

}  // namespace quillon::bench
