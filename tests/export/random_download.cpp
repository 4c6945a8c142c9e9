#include "random_download.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "core/text.h"

namespace quillon::exporting {
namespace {

// The places of the DataSet's own ids among the fields, from 0, by tag.
const std::map<std::string, std::vector<std::size_t>> kOwnIds = {
    {"[TU]", {0, 19, 21, 22}},
    {"[TA]", {0}},
    {"[NO]", {2}},
    {"[VR]", {0, 1}},
    {"[SY]", {0, 1}},
    {"[GD]", {0}},
    {"[JR]", {0}},
    {"[RF]", {0, 2, 8}},
    {"[PB]", {1}},
    {"[EX]", {1}},
    {"[OS]", {1}},
    {"[VL]", {0, 1, 4}},
    {"[CL]", {0, 1}},
    {"[CM]", {0}},
    {"[CT]", {0, 9}},
    {"[CO]", {0}},
    {"[CC]", {0}},
};

class Download {
public:
    explicit Download(std::uint32_t seed) : random_(seed) {}

    std::vector<std::string> Lines() {
        Authors();
        Taxa();
        Documents();
        for (int i = 1; i < taxa_; ++i) RowsOf(i);
        Tombstones();
        std::shuffle(lines_.begin(), lines_.end(), random_);
        std::stable_partition(lines_.begin(), lines_.end(), [](const std::string& line) {
            return !line.starts_with("[VL]") && !line.starts_with("[CO]") && !line.starts_with("[CC]");
        });
        return lines_;
    }

private:
    int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }
    bool Half() { return Below(2) == 0; }
    std::string YesNo() { return Half() ? "Yes" : "No"; }
    std::string OneOf(const std::vector<std::string>& texts) {
        return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
    }
    // At most `length` characters, without blanks at the ends.
    std::string Word(int length) {
        static const std::vector<std::string> letters = {"a", "b", "é", "Ü", "ß", "'", "\"",
                                                         "€", "7", "-", "Z", "&", "ñ", "%"};
        std::string word;
        for (int left = 1 + Below(length); left > 0; --left) word += OneOf(letters);
        return word;
    }
    std::string Maybe(const std::string& text) { return Half() ? text : std::string(); }
    // Different from all words before under the store's comparison.
    std::string NewWord(int length) {
        std::string word;
        do word = Word(length);
        while (!words_.insert(SortKey(word)).second);
        return word;
    }
    std::string Date() {
        return fmt::format("{:02}/{:02}/{}", 1 + Below(12), 1 + Below(28), 1758 + Below(260));
    }
    std::string Tsn(int taxon) { return std::to_string(1000 + taxon); }
    void Add(const std::string& line) { lines_.push_back(line); }

    void Authors() {
        authors_ = 1 + Below(6);
        for (int i = 0; i < authors_; ++i) Add(fmt::format("[TA]|{}|{}|5|", 200 + i, NewWord(30)));
    }
    // The first one is the kingdom's root; each of the others has a parent before it. Every author is in use.
    void Taxa() {
        taxa_ = 1 + authors_ + Below(12);
        Add("[TU]|1000||Animalia||||||||valid||KSP standards met|unknown|unknown||2001-01-01 "
            "00:00:00|1000|||||5|10|No|");
        for (int i = 1; i < taxa_; ++i) {
            const int author = i <= authors_ ? i - 1 : Below(authors_ + 1) - 1;
            Add(fmt::format(
                "[TU]|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}||{}|||5|{}|{}|", Tsn(i),
                Maybe("X"), NewWord(35), Maybe("x"), Maybe(Word(35)), Maybe("subsp."), Maybe(Word(35)),
                Maybe("f."), Maybe(Word(35)), OneOf({"", "N", "Yes"}), OneOf({"valid", "invalid", ""}),
                OneOf({"", "junior synonym", "other, see comments"}), Maybe("KSP standards met"),
                Maybe("partial"), Maybe("2005"), Maybe(std::to_string(1 + Below(255))), Maybe(Word(20)),
                Tsn(Below(i)), author < 0 ? "" : std::to_string(200 + author), 20 + 10 * Below(20), YesNo()));
        }
    }
    void Documents() {
        for (const std::string prefix : {"PUB", "EXP", "SRC"}) {
            documents_[prefix] = Below(4);
            for (int i = 0; i < documents_[prefix]; ++i) Document(prefix, 300 + i);
        }
        comments_ = Below(4);
        for (int i = 0; i < comments_; ++i) {
            Add(fmt::format("[CM]|{}|{}|{}|{}|", 400 + i, Maybe(Word(100)), Maybe(Word(200)),
                            Maybe("2001-02-03 04:05:06")));
            Add(fmt::format("[CL]||{}|{}|", Tsn(1 + Below(taxa_ - 1)), 400 + i));
        }
    }
    // With a link, as a document without one would not stay.
    void Document(const std::string& prefix, int id) {
        if (prefix == "PUB")
            Add(fmt::format("[PB]PUB||{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|{}|", id, Maybe(Word(100)),
                            Maybe(Word(255)), Maybe(Word(255)), Maybe(Date()), Maybe(Date()), Maybe(Word(80)),
                            Maybe(Word(40)), Maybe(Word(16)), Maybe(Word(16)), Maybe(Word(15)),
                            Maybe(Word(300))));
        if (prefix == "EXP") Add(fmt::format("[EX]EXP||{}|{}|{}|", id, Maybe(Word(100)), Maybe(Word(300))));
        if (prefix == "SRC")
            Add(fmt::format("[OS]SRC||{}|{}|{}|{}|{}|{}|", id, Maybe(Word(10)), Maybe(Word(64)),
                            Maybe(Word(10)), Maybe(Date()), Maybe(Word(300))));
        // Only a publication can be an original description.
        Add(fmt::format("[RF]|{0}||{1}|{0}|{2}|{3}|{4}|||", prefix, Tsn(1 + Below(taxa_ - 1)), id,
                        prefix == "PUB" ? YesNo() : "No", YesNo()));
    }
    void RowsOf(int taxon) {
        const std::string tsn = Tsn(taxon);
        if (Half()) Add(fmt::format("[NO]{}|{}||", Word(12), tsn));
        if (Half()) Add(fmt::format("[GD]|{}|{}|", Word(40), tsn));
        if (Half()) Add(fmt::format("[JR]|{}|{}|{}|", Word(30), Maybe(Word(50)), tsn));
        if (taxon > 1 && Half()) Add(fmt::format("[SY]||{}|{}|", tsn, Tsn(1 + Below(taxon - 1))));
        if (Half()) Vernacular(taxon);
        if (Half()) ChangeTrack(taxon);
    }
    void Vernacular(int taxon) {
        const int id = 500 + taxon;
        Add(fmt::format("[VR]||{}|{}|{}|{}|{}|", id, Word(80), Tsn(taxon), OneOf({"English", "unspecified"}),
                        YesNo()));
        for (const auto& [prefix, count] : documents_)
            if (count > 0 && Half())
                Add(fmt::format("[VL]||{0}|{1}||{2}|{1}|{3}|", id, prefix, Tsn(taxon), 300 + Below(count)));
    }
    void ChangeTrack(int taxon) {
        const int id = 600 + taxon;
        Add(fmt::format("[CT]|{}|{}|{}|{}|{}|{}|{}|{}||", id, Maybe("77"), Maybe(Word(40)), Maybe(Word(100)),
                        Maybe(Word(100)), Maybe(Word(100)), Maybe(Word(19)), Tsn(taxon)));
        Add(fmt::format("[CO]|{}|{}|", 1 + Below(6), id));
        if (Half()) Add(fmt::format("[CC]|{}|{}|{}|", id, 1 + Below(9), Maybe(Word(250))));
    }
    void Tombstones() {
        const std::vector<std::string> tombstones = {
            "[CM-]401|",         "[CL-]1001|401|", "[EX-]EXP|301|",         "[GD-]1001|Africa|",
            "[JR-]1001|Alaska|", "[OS-]SRC|301|",  "[PB-]PUB|301|",         "[RF-]PUB|301|1001|",
            "[SY-]1001|1002|",   "[TA-]201|5|",    "[VL-]PUB|301|1001|501|"};
        for (const std::string& tombstone : tombstones)
            if (Below(4) == 0) Add(tombstone);
    }

    std::mt19937 random_;
    std::vector<std::string> lines_;
    std::set<std::string> words_;
    std::map<std::string, int> documents_;
    int taxa_ = 0, authors_ = 0, comments_ = 0;
};

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    for (std::size_t at = 4; at < line.size();) {
        const std::size_t end = line.find('|', at);
        fields.push_back(line.substr(at, end - at));
        at = end + 1;
    }
    return fields;
}

}  // namespace

std::vector<std::string> RandomDownload(std::uint32_t seed) {
    return Download(seed).Lines();
}

std::string WithoutOwnIds(const std::vector<std::string>& lines) {
    std::vector<std::string> cleaned;
    for (const std::string& line : lines) {
        const auto own = kOwnIds.find(line.substr(0, 4));
        if (own == kOwnIds.end()) {
            cleaned.push_back(line);
            continue;
        }
        std::vector<std::string> fields = Fields(line);
        for (const std::size_t place : own->second) fields.at(place).clear();
        cleaned.push_back(own->first + fmt::format("{}|", fmt::join(fields, "|")));
    }
    std::sort(cleaned.begin(), cleaned.end());
    return fmt::format("{}\n", fmt::join(cleaned, "\n"));
}

}  // namespace quillon::exporting
