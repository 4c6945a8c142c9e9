#include "generator/generator_words.h"

#include <array>

namespace quillon::bench {

namespace {

using Words = std::string_view;

constexpr Words kGenusHeads[] = {"Agd",   "Ambl", "Buck",  "Caph",  "Crom", "Deut",  "Dich", "Ember", "Exel",
                                 "Fusc",  "Geom", "Hell",  "Hept",  "Imar", "Kosm",  "Lant", "Lept",  "Lios",
                                 "Macr",  "Mars", "Nipp",  "Ocn",   "Oid",  "Pant",  "Paul", "Plat",  "Pter",
                                 "Quad",  "Rhod", "Sing",  "Sphen", "Sten", "Stran", "Tab",  "Tetr",  "Tox",
                                 "Trich", "Vi",   "Wheel", "Xen",   "Yph",  "Zyg"};
constexpr Words kGenusMiddles[] = {"ist",   "ypt",   "ler",  "alo",   "bid",   "ero",   "roc",
                                   "ina",   "ast",   "inop", "ophor", "yptil", "aneop", "ipt",
                                   "odact", "acant", "yrid", "emat",  "ogen",  "urod"};
constexpr Words kGenusEnds[] = {"is",   "ia",    "us",  "ella", "optera", "ops", "idia", "ina", "omorpha",
                                "ites", "oides", "ona", "aria", "ilus",   "ura", "odes", "usa", "yx"};
constexpr Words kGenusPrefixes[] = {"",       "Para",    "Neo",   "Pseudo",  "Eu",     "Micro",  "Mega",
                                    "Proto",  "Hypo",    "Hyper", "Sub",     "Archi",  "Austro", "Afro",
                                    "Indo",   "Crypto",  "Poly",  "Lasio",   "Chryso", "Melano", "Platy",
                                    "Brachy", "Dolicho", "Gymno", "Hemi",    "Iso",    "Ortho",  "Anti",
                                    "Xantho", "Leuco",   "Cyano", "Erythro", "Oligo",  "Allo",   "Hetero",
                                    "Homo",   "Nano",    "Steno", "Acro",    "Cteno",  "Gono",   "Litho"};

constexpr Words kEpithetHeads[] = {
    "alb",   "apic", "aren",  "atr",  "brev", "calc", "cinct", "confus", "dentat", "didact", "elong", "falc",
    "ferr",  "flav", "fusc",  "gibb", "gris", "hirt", "insul", "jap",    "kur",    "lact",   "lat",   "long",
    "lun",   "marg", "minut", "mont", "nig",  "obsc", "ochr",  "pall",   "parv",   "pict",   "plan",  "punct",
    "quadr", "rub",  "sabul", "sinh", "tect", "tern", "umbr",  "vari",   "xer",    "zon"};
constexpr Words kEpithetMiddles[] = {"",   "at",  "id",    "ul",    "os",   "ell",   "ar",     "or",
                                     "in", "ens", "ig",    "ic",    "oph",  "it",    "ol",     "ur",
                                     "am", "uss", "ipenn", "icorn", "ipes", "odact", "iventr", "ifasci"};
constexpr Words kEpithetEnds[] = {"us",    "a",     "is",     "um",    "ensis", "alis", "ana",   "icus",
                                  "ella",  "oides", "ina",    "ata",   "osa",   "ilis", "aria",  "iana",
                                  "ides",  "ula",   "escens", "ifera", "astra", "ura",  "opsis", "ophila",
                                  "icola", "orum",  "arum",   "acea",  "idea",  "ita"};

constexpr Words kSurnames[] = {"Linnaeus",    "Fabricius",
                               "Hübner",      "Zeller",
                               "Müller",      "Duponchel",
                               "Guenée",      "Walker",
                               "Meyrick",     "Walsingham",
                               "Fernald",     "Barnes",
                               "Lindsey",     "Gozmány",
                               "Arenberger",  "Gielis",
                               "Fazekas",     "Löw",
                               "Adamczewski", "Bigot",
                               "Picard",      "Caradja",
                               "Amsel",       "Fletcher",
                               "Yano",        "Marschall",
                               "Kuznetzov",   "Zagulajev",
                               "Ustjuzhanin", "Kovtunovich",
                               "Fauré",       "Ødegaard",
                               "Åström",      "Öhman",
                               "Jäckh",       "Rößler",
                               "Staudinger",  "Herrich-Schäffer",
                               "Stål",        "Peña",
                               "Núñez",       "Gibeaux",
                               "Nel",         "Lange",
                               "McDunnough",  "Grinnell",
                               "Landry",      "Matthews",
                               "Hao",         "Li",
                               "Hori",        "Inoue",
                               "Kyrki",       "Wasserthal",
                               "Tutt",        "Chrétien",
                               "Turati",      "Villers",
                               "Geoffroy",    "Schmid",
                               "Rebel",       "Curò",
                               "Ragonot",     "Šumpich"};

struct LanguageWords {
    Words language;
    std::array<Words, 6> first;
    std::array<Words, 6> second;
};
constexpr LanguageWords kLanguages[] = {
    {"English",
     {"Common", "Pale", "Dark", "Brown", "Twin-spot", "Lesser"},
     {"plume", "moth", "beetle", "skipper", "hawk", "snail"}},
    {"French",
     {"Ptérophore", "Petite", "Grande", "Écaille", "Teigne", "Mouche"},
     {"brune", "blanche", "du rosier", "tachetée", "de l'été", "dorée"}},
    {"German",
     {"Große", "Kleine", "Weiße", "Gelbe", "Südliche", "Gewöhnliche"},
     {"Federmotte", "Blattwespe", "Schnecke", "Mücke", "Käferart", "Wanze"}},
    {"Spanish",
     {"Polilla", "Mariposa", "Pequeña", "Señorita", "Avispa", "Araña"},
     {"común", "pálida", "del alcornoque", "manchada", "del cañón", "azul"}},
    {"Portuguese",
     {"Traça", "Borboleta", "Aranha", "Vespa", "Mosca", "Joaninha"},
     {"comum", "do sertão", "pálida", "do coração", "anã", "dourada"}},
    {"unspecified",
     {"Alucita", "Geisha", "Nunal", "Tariq", "Kalam", "Moana"},
     {"prima", "secunda", "minor", "major", "ultima", "media"}}};

constexpr Words kJournals[] = {"Entomologische Zeitung, Stettin",
                               "Transactions of the Entomological Society",
                               "Annales de la Société entomologique",
                               "Boletín de la Sociedad Española",
                               "Quadrifina",
                               "Zootaxa",
                               "Nota lepidopterologica",
                               "Mémoires du Muséum",
                               "Verhandlungen der zoologisch-botanischen Gesellschaft",
                               "Insecta Matsumurana"};
constexpr Words kTitleHeads[] = {"Revision of the genus",       "Beiträge zur Kenntnis der Gattung",
                                 "Notes sur le genre",          "New species of",
                                 "Catálogo de las especies de", "A review of the world fauna of"};
constexpr Words kTitleEnds[] = {"with descriptions of new taxa",
                                "mit Beschreibung neuer Arten",
                                "et description de nouvelles espèces",
                                "from the collections of the museum",
                                "y sus plantas nutricias",
                                "with remarks on their synonymy"};

template <std::size_t N>
Words Pick(const Words (&words)[N], std::size_t& number) {
    const std::size_t place = number % N;
    number /= N;
    return words[place];
}

// Neighbours in number look unlike each other. `count` is coprime to the factor.
std::size_t Shuffled(std::size_t number, std::size_t count) {
    constexpr std::size_t factor = 7919;
    return number / count * count + (number % count) * factor % count;
}

std::string Capitalised(std::string name) {
    if (name[0] >= 'a' && name[0] <= 'z') name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

std::string GenusStem(std::size_t& number) {
    std::string stem(Pick(kGenusHeads, number));
    return stem += Pick(kGenusMiddles, number);
}

std::string Prefixed(Words prefix, std::string name) {
    if (prefix.empty()) return name;
    if (name[0] >= 'A' && name[0] <= 'Z') name[0] = static_cast<char>(name[0] - 'A' + 'a');
    return std::string(prefix) + name;
}

}  // namespace

std::string GenusName(std::size_t number) {
    number = Shuffled(number, std::size(kGenusHeads) * std::size(kGenusMiddles) * std::size(kGenusEnds));
    std::string name = GenusStem(number);
    name += Pick(kGenusEnds, number);
    return Capitalised(Prefixed(Pick(kGenusPrefixes, number), std::move(name)));
}

std::string FamilyName(std::size_t number) {
    std::string name = GenusStem(number);
    return Capitalised(Prefixed(Pick(kGenusPrefixes, number), std::move(name))) + "idae";
}

std::string Epithet(std::size_t number) {
    number =
        Shuffled(number, std::size(kEpithetHeads) * std::size(kEpithetMiddles) * std::size(kEpithetEnds));
    std::string name(Pick(kEpithetHeads, number));
    name += Pick(kEpithetMiddles, number);
    return name += Pick(kEpithetEnds, number);
}

std::string AuthorName(std::size_t number) {
    const std::size_t first = number % std::size(kSurnames);
    const std::size_t pair = number / std::size(kSurnames);
    const std::size_t second = pair % std::size(kSurnames);
    const std::size_t year = 1758 + (first * 37 + second * 11 + pair / std::size(kSurnames)) % 262;
    std::string name(kSurnames[first]);
    if (second != 0) name += " & " + std::string(kSurnames[(first + second) % std::size(kSurnames)]);
    name += ", " + std::to_string(year);
    return (first + second) % 4 == 3 ? "(" + name + ")" : name;
}

std::string_view Surname(std::size_t number) {
    return kSurnames[number % std::size(kSurnames)];
}

Vernacular VernacularName(std::size_t number) {
    const LanguageWords& words = kLanguages[number % std::size(kLanguages)];
    number /= std::size(kLanguages);
    std::string name(words.first[number % words.first.size()]);
    number /= words.first.size();
    name += " " + std::string(words.second[number % words.second.size()]);
    number /= words.second.size();
    if (number != 0) name += " " + std::to_string(number);
    return {std::move(name), words.language};
}

std::string PublicationTitle(std::size_t number) {
    std::string title(kTitleHeads[number % std::size(kTitleHeads)]);
    title += " " + GenusName(number * 31) + ", ";
    return title += kTitleEnds[number / 7 % std::size(kTitleEnds)];
}

std::string_view JournalName(std::size_t number) {
    return kJournals[number % std::size(kJournals)];
}

}  // namespace quillon::bench
