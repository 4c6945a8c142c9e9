#include "generator/tagged_generator.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <vector>

#include "core/codepage.h"
#include "core/vocabulary.h"
#include "generator/generator_words.h"

namespace quillon::bench {

namespace {

constexpr std::size_t kFirstTsn = 3'000'000, kFirstAuthor = 20'000'000, kFirstPublication = 30'000'000;
constexpr std::size_t kFirstVernacular = 40'000'000, kFirstComment = 50'000'000, kFirstExpert = 60'000'000;
constexpr std::size_t kFirstSource = 61'000'000;
constexpr std::size_t kBuffer = std::size_t{256} * 1024;

// Of the animal kingdom.
enum : int {
    kKingdom = 10,
    kPhylum = 30,
    kClass = 60,
    kOrder = 100,
    kFamily = 140,
    kGenus = 180,
    kSpecies = 220,
    kSubspecies = 230
};

struct Taxon {
    std::uint32_t parent = 0;   // place; for a synonym the accepted name
    std::uint32_t genus = 0;    // number of the genus name
    std::uint32_t epithet = 0;  // number of the epithet
    std::uint32_t subspecies = 0;
    std::int16_t rank = kSpecies;
    bool synonym = false;
};

class Generator {
public:
    Generator(std::size_t names, std::uint64_t seed, const ByteSink& sink)
        : names_(names), random_(seed), sink_(sink) {}

    GeneratedCounts Run() {
        GrowTree();
        AddSynonyms();
        WriteTaxa();
        WriteAuthors();
        WriteSynonymLinks();
        WritePublications();
        WriteExpertsAndSources();
        WriteDistribution();
        WriteVernaculars();
        WriteComments();
        Flush();
        return std::move(counts_);
    }

private:
    std::size_t Below(std::size_t bound) { return static_cast<std::size_t>(random_() % bound); }
    bool Percent(std::size_t share) { return Below(100) < share; }
    std::size_t Authors() const { return std::max<std::size_t>(1, names_ / 4); }
    std::size_t Publications() const { return std::max<std::size_t>(1, names_ / 4); }
    bool Full() const { return taxa_.size() >= valid_; }

    std::uint32_t Add(Taxon taxon) {
        taxa_.push_back(taxon);
        return static_cast<std::uint32_t>(taxa_.size() - 1);
    }

    void GrowTree() {
        valid_ = names_ - names_ * 2 / 5;
        taxa_.reserve(names_);
        std::uint32_t parent = 0;
        for (const int rank : {kKingdom, kPhylum, kClass, kOrder}) {
            if (Full()) return;
            parent = Add({parent, 0, 0, 0, static_cast<std::int16_t>(rank), false});
        }
        if (names_ >= kLargeNodeFrom) GrowGenus(Add({parent, families_++, 0, 0, kFamily, false}), kLargeNode);
        while (!Full()) GrowFamily(Add({parent, families_++, 0, 0, kFamily, false}));
    }

    void GrowFamily(std::uint32_t family) {
        const std::size_t genera = 1 + Below(60);
        for (std::size_t i = 0; i < genera && !Full(); ++i) GrowGenus(family, SpeciesOfGenus());
    }

    // Most genera are small and a few very large, as in nature.
    std::size_t SpeciesOfGenus() {
        const std::size_t kind = Below(100);
        if (kind < 30) return 1;
        if (kind < 70) return 2 + Below(7);
        return kind < 95 ? 9 + Below(32) : 41 + Below(360);
    }

    void GrowGenus(std::uint32_t family, std::size_t species) {
        const std::uint32_t name = genera_++;
        const std::uint32_t genus = Add({family, name, 0, 0, kGenus, false});
        const auto firstEpithet = static_cast<std::uint32_t>(Below(1000));
        for (std::size_t i = 0; i < species && !Full(); ++i) {
            const auto epithet = firstEpithet + static_cast<std::uint32_t>(i);
            const std::uint32_t own = Add({genus, name, epithet, 0, kSpecies, false});
            if (!Percent(4)) continue;
            for (std::uint32_t k = 1; k <= 2 && !Full(); ++k)
                Add({own, name, epithet, epithet + k, kSubspecies, false});
        }
    }

    // An accepted species, or the last taxon where there is none.
    std::uint32_t AnySpecies() {
        for (int attempt = 0; attempt < 20; ++attempt) {
            const auto place = static_cast<std::uint32_t>(Below(valid_));
            if (taxa_[place].rank == kSpecies) return place;
        }
        return static_cast<std::uint32_t>(valid_ - 1);
    }

    void AddSynonyms() {
        while (taxa_.size() < names_) {
            const std::uint32_t accepted = AnySpecies();
            const auto epithet = static_cast<std::uint32_t>(10'000 + Below(20'000));
            Add({accepted, taxa_[accepted].genus, epithet, 0, kSpecies, true});
        }
    }

    static std::string Tsn(std::size_t place) { return std::to_string(kFirstTsn + place); }

    // The four names of the taxon with their indicators, as eight fields.
    static std::string Units(const Taxon& taxon) {
        switch (taxon.rank) {
            case kKingdom:
                return "|Animalia||||||";
            case kPhylum:
                return "|Arthropoda||||||";
            case kClass:
                return "|Insecta||||||";
            case kOrder:
                return "|Lepidoptera||||||";
            case kFamily:
                return "|" + FamilyName(taxon.genus) + "||||||";
            case kGenus:
                return "|" + GenusName(taxon.genus) + "||||||";
            default:
                return "|" + GenusName(taxon.genus) + "||" + Epithet(taxon.epithet) + "||" +
                       (taxon.rank == kSubspecies ? Epithet(taxon.subspecies) : std::string()) + "||";
        }
    }

    void WriteTaxa() {
        for (std::size_t place = 0; place < taxa_.size(); ++place) {
            const Taxon& taxon = taxa_[place];
            std::string line = "[TU]|" + Tsn(place) + "|" + Units(taxon) + "||";
            line += taxon.synonym ? "invalid|junior synonym|" : "valid||";
            line += "Minimum taxonomic/nomenclature review|";
            line += taxon.rank < kSpecies ? "partial|2020|" : "||";
            line += "|2020-07-16 00:00:00|" + (taxon.synonym ? std::string() : Tsn(taxon.parent)) + "||";
            const std::size_t author = std::min(Below(Authors()), Below(Authors()));
            line += place == 0 ? std::string() : std::to_string(kFirstAuthor + author);
            Write("TU", line + "|||5|" + std::to_string(taxon.rank) + "|No|");
        }
    }

    void WriteAuthors() {
        for (std::size_t i = 0; i < Authors(); ++i)
            Write("TA", "[TA]|" + std::to_string(kFirstAuthor + i) + "|" + AuthorName(i) + "|5|");
    }

    void WriteSynonymLinks() {
        for (std::size_t place = valid_; place < taxa_.size(); ++place)
            Write("SY", "[SY]||" + Tsn(place) + "|" + Tsn(taxa_[place].parent) + "|");
    }

    // `count` different taxa, one after the other in the file.
    template <typename Use>
    void ForTaxa(std::size_t count, const Use& use) {
        const std::size_t start = Below(names_);
        for (std::size_t i = 0; i < std::min(count, names_); ++i) use((start + i) % names_);
    }

    void WriteReferences(std::string_view prefix, std::size_t document, std::size_t count) {
        const std::string kind(prefix);
        ForTaxa(count, [&](std::size_t place) {
            const bool original = kind == "PUB" && Percent(40);
            Write("RF", "[RF]|" + kind + "||" + Tsn(place) + "|" + kind + "|" + std::to_string(document) +
                            (original ? "|Yes|No|||" : "|No|No|||"));
        });
    }

    void WritePublications() {
        for (std::size_t i = 0; i < Publications(); ++i) {
            const std::string year = std::to_string(1758 + Below(262));
            const std::string journal(JournalName(i / 3));
            std::string line = "[PB]PUB||" + std::to_string(kFirstPublication + i) + "|" +
                               std::string(Surname(i)) + ", " +
                               std::string(1, static_cast<char>('A' + i % 26)) + ".|" + PublicationTitle(i);
            line.append("|").append(journal).append("|01/01/").append(year).append("|01/01/").append(year);
            line += "|";
            line += "||||" + std::to_string(1 + Below(400)) + "-" + std::to_string(401 + Below(400)) + "||";
            Write("PB", line);
            WriteReferences("PUB", kFirstPublication + i, 1 + Below(7));
        }
    }

    void WriteExpertsAndSources() {
        const std::size_t count = 1 + names_ / 2000;
        for (std::size_t i = 0; i < count; ++i) {
            Write("EX", "[EX]EXP||" + std::to_string(kFirstExpert + i) + "|" + std::string(Surname(i * 5)) +
                            "|Adviser " + std::to_string(i) +
                            " on synonymy, généralement par correspondance|");
            WriteReferences("EXP", kFirstExpert + i, 1 + Below(40));
            Write("OS", "[OS]SRC||" + std::to_string(kFirstSource + i) + "|database|Catalogue " +
                            std::to_string(i) + "|1.0|07/16/2020|Lista de nombres, revisión " +
                            std::to_string(i) + "|");
            WriteReferences("SRC", kFirstSource + i, 1 + Below(40));
        }
    }

    void WriteDistribution() {
        const auto places = GeographicValues(), jurisdictions = JurisdictionValues();
        const auto origins = OriginWords();
        for (std::size_t place = 0; place < valid_; ++place) {
            if (Percent(75))
                Write("GD", "[GD]|" + std::string(places[Below(places.size())]) + "|" + Tsn(place) + "|");
        }
        for (std::size_t place = 0; place < valid_; ++place) {
            if (!Percent(33)) continue;
            const std::size_t first = Below(jurisdictions.size());
            for (const std::size_t at : {first, (first + 1) % jurisdictions.size()}) {
                const std::string origin(origins[Below(origins.size())].stored);
                Write("JR", "[JR]|" + std::string(jurisdictions[at]) + "|" + origin + "|" + Tsn(place) + "|");
            }
        }
    }

    void WriteVernaculars() {
        std::vector<std::pair<std::size_t, std::size_t>> referenced;  // vernacular and taxon
        std::size_t number = 0;
        for (std::size_t place = 0; place < valid_; ++place) {
            if (!Percent(35)) continue;
            const std::size_t count = 1 + Below(2);
            for (std::size_t i = 0; i < count; ++i, ++number) {
                const Vernacular vernacular = VernacularName(number);
                Write("VR", "[VR]||" + std::to_string(kFirstVernacular + number) + "|" + vernacular.name +
                                "|" + Tsn(place) + "|" + std::string(vernacular.language) +
                                (i == 0 ? "|Yes|" : "|No|"));
                if (number % 6 == 0) referenced.emplace_back(number, place);
            }
        }
        for (const auto& [vernacular, place] : referenced)
            Write("VL", "[VL]||" + std::to_string(kFirstVernacular + vernacular) + "|PUB||" + Tsn(place) +
                            "|PUB|" + std::to_string(kFirstPublication + Below(Publications())) + "|");
    }

    void WriteComments() {
        const std::size_t count = names_ * 3 / 20;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string id = std::to_string(kFirstComment + i);
            Write("CM", "[CM]|" + id + "|" + std::string(Surname(i * 7)) +
                            "|The placement follows the revision of " + AuthorName(Below(Authors())) +
                            "; the type was not seen. Año de colecta incierto.|" + "2020-07-16 09:00:00|");
            ForTaxa(1 + Below(2),
                    [&](std::size_t place) { Write("CL", "[CL]||" + Tsn(place) + "|" + id + "|"); });
        }
    }

    void Write(const char* tag, const std::string& line) {
        ++counts_.lines[tag];
        // A character without a place in the code page would be an error in the words themselves.
        if (std::all_of(line.begin(), line.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
            buffer_ += line;
        } else {
            const auto bytes = Utf8ToCp1252(line);
            if (!bytes) throw std::runtime_error("no CP1252 for: " + line);
            buffer_ += *bytes;
        }
        buffer_ += "\r\n";
        if (buffer_.size() >= kBuffer) Flush();
    }

    void Flush() {
        sink_(buffer_);
        buffer_.clear();
    }

    std::size_t names_;
    std::mt19937_64 random_;
    const ByteSink& sink_;
    std::size_t valid_ = 0;  // the accepted names come first
    std::uint32_t families_ = 0, genera_ = 0;
    std::vector<Taxon> taxa_;
    std::string buffer_;
    GeneratedCounts counts_;
};

}  // namespace

std::size_t GeneratedCounts::Total() const {
    std::size_t total = 0;
    for (const auto& [tag, count] : lines) total += count;
    return total;
}

GeneratedCounts GenerateTagged(std::size_t names, std::uint64_t seed, const ByteSink& sink) {
    return Generator(names, seed, sink).Run();
}

std::string GeneratedText(std::size_t names, std::uint64_t seed) {
    std::string text;
    GenerateTagged(names, seed, [&](std::string_view bytes) { text += bytes; });
    return text;
}

GeneratedCounts GenerateFile(std::size_t names, std::uint64_t seed, const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    if (file == nullptr) throw std::runtime_error("cannot write " + path);
    GeneratedCounts counts = GenerateTagged(names, seed, [&](std::string_view bytes) {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
            throw std::runtime_error("cannot write all of " + path);
    });
    if (std::fflush(file.get()) != 0) throw std::runtime_error("cannot write all of " + path);
    return counts;
}

}  // namespace quillon::bench
