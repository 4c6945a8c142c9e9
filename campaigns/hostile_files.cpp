// Exchange files: bytes, lines, fields, ids and links that no export writes.
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>

#include "generator/tagged_generator.h"
#include "hostile_kinds.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kGenus = 180, kSpecies = 220;
constexpr std::int64_t kRoot = 100;
const std::string kEnd = "\r\n";

// A line of a taxon: its number, its parent's, its rank and its name of one or two parts.
std::string Taxon(std::int64_t tsn, std::int64_t parent, std::size_t rank, const std::string& name,
                  const std::string& second = "", const std::string& usage = "valid") {
    return fmt::format("[TU]|{}||{}||{}||||||{}|||||||{}|||||5|{}|No|", tsn, name, second, usage, parent,
                       rank) +
           kEnd;
}
std::string Root() {
    return Taxon(kRoot, 0, 10, "Animalia");
}
std::string Genus(std::int64_t tsn, const std::string& name) {
    return Taxon(tsn, kRoot, kGenus, name);
}
std::string Repeat(const std::string& text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}
// `line` for each number from 1 to `size`, below the root.
template <typename Line>
std::string Lines(std::size_t size, const Line& line) {
    std::string text = Root();
    for (std::size_t i = 1; i <= size; ++i) text += line(static_cast<std::int64_t>(i));
    return text;
}
// A genus with that name, and one record of each kind that holds texts.
std::string Everywhere(const std::string& text) {
    return Root() + Genus(101, text) + Taxon(102, 101, kSpecies, text, text) +
           fmt::format(
               "[TA]|1|{0}|5|\r\n[VR]||1|{0}|101|{0}|Yes|\r\n[GD]|{0}|101|\r\n[JR]|{0}|{0}|101|\r\n"
               "[PB]{0}||1|{0}|{0}|{0}|{0}|{0}|{0}|{0}|{0}|{0}|{0}|{0}|\r\n[EX]EXP||1|{0}|{0}|\r\n"
               "[OS]SRC||1|{0}|{0}|{0}|{0}|{0}|\r\n[CM]|1|{0}|{0}|{0}|\r\n[CL]||101|1|\r\n[NO]{0}|101||\r\n"
               "[CT]|1|1|{0}|{0}|{0}|{0}|{0}|101||\r\n",
               text);
}
std::string Synonym(std::int64_t from, std::int64_t to) {
    return fmt::format("[SY]||{}|{}|\r\n", from, to);
}
std::string ReplaceAll(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}
std::string Utf16(const std::string& text, bool bigEndian) {
    std::string wide(bigEndian ? "\xFE\xFF" : "\xFF\xFE");
    for (const char c : text) {
        if (bigEndian) wide += '\0';
        wide += c;
        if (!bigEndian) wide += '\0';
    }
    return wide;
}
std::string Noise(std::size_t bytes) {
    Random random(17);
    std::string noise;
    for (std::size_t i = 0; i < bytes; ++i) noise += static_cast<char>(random() & 0xFF);
    return noise;
}
std::string Good(std::size_t size) {
    return bench::GeneratedText(size / 4 + 20, 9);
}
std::string Gzip(const std::string&) {
    return std::string("\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03", 10) + Noise(500);
}

HostileKind Text(const char* name, std::string (*text)(std::size_t size)) {
    return {name, [text](const HostilePlace& place) { WriteFile(place.ExchangeFile(), text(place.size)); }};
}

// A child that writes a good file into it; it goes with its reader.
void MakeFifo(const HostilePlace& place) {
    mkfifo(place.ExchangeFile().c_str(), 0666);
    const std::string text = Good(place.size);
    if (fork() != 0) return;
    alarm(120);  // nobody may ever read it
    const int writer = open(place.ExchangeFile().c_str(), O_WRONLY);
    const ssize_t put = write(writer, text.data(), text.size());
    _exit(put < 0 ? 1 : 0);
}
void LinkTo(const HostilePlace& place, const std::string& target) {
    std::filesystem::create_symlink(target, place.ExchangeFile());
}

// clang-format off
const HostileKind kFiles[] = {
    Text("empty file", [](std::size_t) { return std::string(); }),
    Text("one line end", [](std::size_t) { return kEnd; }),
    Text("one byte", [](std::size_t) { return std::string("["); }),
    Text("a tag and nothing behind it", [](std::size_t) { return std::string("[TU]"); }),
    Text("no line end at the end", [](std::size_t) { return Root() + "[TU]|101||Aus"; }),
    Text("NUL bytes in fields", [](std::size_t) { return Everywhere(std::string("A\0us", 4)); }),
    Text("a NUL before each line", [](std::size_t size) { return ReplaceAll(Good(size), "\n", std::string("\n\0", 2)); }),
    Text("lone carriage returns", [](std::size_t size) { return ReplaceAll(Good(size), "\r\n", "\r"); }),
    Text("lone line feeds", [](std::size_t size) { return ReplaceAll(Good(size), "\r\n", "\n"); }),
    Text("all three line ends", [](std::size_t) { return Root() + Genus(101, "Aus") + "[TA]|1|a|5|\r[TA]|2|b|5|\n"; }),
    Text("line ends turned round", [](std::size_t size) { return ReplaceAll(Good(size), "\r\n", "\n\r"); }),
    Text("an empty line in the middle", [](std::size_t size) { return Root() + kEnd + Good(size); }),
    Text("empty lines alone", [](std::size_t size) { return Repeat(kEnd, size * 10); }),
    Text("a line of many megabytes", [](std::size_t size) { return Root() + Genus(101, std::string(size * 2000, 'a')); }),
    Text("a comment of many megabytes", [](std::size_t size) { return Root() + "[CM]|1|x|" + std::string(size * 2000, 'c') + "|2020-01-01 00:00:00|" + kEnd; }),
    Text("a line without an end", [](std::size_t size) { return "[TU]" + std::string(size * 2000, 'x'); }),
    Text("a hundred thousand fields", [](std::size_t size) { return Root() + "[TU]" + std::string(size * 200, '|') + kEnd; }),
    Text("separators alone", [](std::size_t size) { return Repeat(std::string(60, '|') + kEnd, size); }),
    Text("unknown tags", [](std::size_t size) { return Root() + Repeat("[XX]|1|2|\r\n[]|\r\n[TUX]|1|\r\n[[TU]]|\r\n[tu]|1|\r\n", size); }),
    Text("tags that do not close", [](std::size_t size) { return Repeat("[TU|1||A|\r\nTU]|1|\r\n[[[[|\r\n", size); }),
    Text("deletions of what is not there", [](std::size_t size) { return Root() + Repeat("[CM-]7|\r\n[CL-]7|7|\r\n[SY-]7|7|\r\n[VR-]7|\r\n[PB-]PUB|7|\r\n[XX-]7|\r\n[RF-]|||\r\n", size); }),
    Text("too few fields", [](std::size_t size) { return Root() + Repeat("[TU]|5|\r\n[VR]|\r\n[PB]|\r\n[SY]|5|\r\n[RF]\r\n[CT]|\r\n[CO]|\r\n[CC]|\r\n", size); }),
    Text("empty fields alone", [](std::size_t) { return "[TU]||||||||||||||||||||||||||\r\n[PB]||||||||||||||\r\n[VR]|||||||\r\n[RF]||||||||||\r\n" + Root(); }),
    Text("a ring of two parents", [](std::size_t) { return Root() + Taxon(101, 102, kGenus, "Aus") + Taxon(102, 101, kGenus, "Bus"); }),
    Text("a ring of all parents", [](std::size_t size) { return Lines(size, [size](std::int64_t i) { return Taxon(200 + i, 200 + i % static_cast<std::int64_t>(size) + 1, kGenus, "Aus"); }); }),
    Text("its own parent", [](std::size_t) { return Root() + Taxon(101, 101, kGenus, "Aus"); }),
    Text("deep parents", [](std::size_t size) { return Lines(size * 10, [](std::int64_t i) { return Taxon(kRoot + i, kRoot + i - 1, kGenus, "Aus"); }); }),
    Text("deep parents, the lowest first", [](std::size_t size) { std::string text; for (std::size_t i = size * 10; i > 0; --i) text += Taxon(kRoot + static_cast<std::int64_t>(i), kRoot + static_cast<std::int64_t>(i) - 1, kGenus, "Aus"); return text + Root(); }),
    Text("parents that are nowhere", [](std::size_t size) { return Lines(size, [](std::int64_t i) { return Taxon(kRoot + i, 900000 + i, kGenus, "Aus"); }); }),
    Text("children of one parent", [](std::size_t size) { return Lines(size * 10, [](std::int64_t i) { return Genus(kRoot + i, fmt::format("Aus{}", i)); }); }),
    Text("a synonym of itself", [](std::size_t) { return Root() + Genus(101, "Aus") + Synonym(101, 101); }),
    Text("a ring of synonyms", [](std::size_t size) { return Lines(size, [size](std::int64_t i) { return Taxon(200 + i, kRoot, kGenus, "Aus", "", "invalid") + Synonym(200 + i, 200 + i % static_cast<std::int64_t>(size) + 1); }); }),
    Text("a name with many accepted names", [](std::size_t size) { return Lines(size, [](std::int64_t i) { return Genus(200 + i, "Aus") + Synonym(201, 200 + i); }); }),
    Text("links to nowhere", [](std::size_t size) { return Lines(size * 10, [](std::int64_t i) { return fmt::format("[RF]|PUB||{0}|PUB|{0}|Yes|No|||\r\n[SY]||{0}|{1}|\r\n[CL]||{0}|{0}|\r\n[VL]||{0}|PUB||{0}|PUB|{0}|\r\n", 500 + i, 501 + i); }); }),
    Text("repeated ids", [](std::size_t size) { return Lines(size, [](std::int64_t i) { return Genus(101, fmt::format("Aus{}", i)); }); }),
    Text("repeated kingdoms", [](std::size_t size) { return Repeat(Root(), size); }),
    Text("ids at the limit", [](std::size_t) { return Root() + Genus(2147483647, "Aus") + Genus(2147483646, "Bus") + "[VR]||2147483647|x|2147483647|English|Yes|\r\n[PB]PUB||2147483647|a|b|c||||||||||\r\n"; }),
    Text("ids over the limit", [](std::size_t) { return Root() + Genus(2147483648, "Aus") + Genus(4294967297, "Bus") + Genus(9223372036854775807, "Cus") + "[TU]|99999999999999999999||Dus||||||||valid|||||||100|||||5|180|No|\r\n"; }),
    Text("local ids at the limit", [](std::size_t) { return Root() + "[TU]2147483647|0||Aus||||||||valid||||||||1|||||5|180|No|\r\n[TU]2147483648|0||Bus||||||||valid||||||||2147483647|||||5|180|No|\r\n[VR]2147483647|2147483647|0|x||English|Yes|\r\n[CM]2147483647|0|a|b||\r\n[CT]2147483647|0|0|||||||2147483647|\r\n"; }),
    Text("negative ids", [](std::size_t) { return Root() + Genus(-1, "Aus") + Genus(-2147483648, "Bus") + Genus(-2147483649, "Cus") + Synonym(-1, -2); }),
    Text("numbers that are words", [](std::size_t) { return Root() + "[TU]x|1e9||Aus||||||||valid|||||x||NaN|0x10|inf||| |five|1.5|maybe|\r\n[TU]|+101||Bus||||||||valid|||||||1 00|||||5|180|No|\r\n"; }),
    Text("ranks that no kingdom has", [](std::size_t) { return Root() + Taxon(101, kRoot, 32767, "Aus") + Taxon(102, kRoot, 32768, "Bus") + Taxon(103, kRoot, 99999999999, "Cus") + Taxon(104, kRoot, 0, "Dus"); }),
    Text("another kingdom", [](std::size_t size) { return ReplaceAll(Good(size), "|5|", "|3|"); }),
    Text("a kingdom that is none", [](std::size_t size) { return ReplaceAll(Good(size), "|5|", "|255|"); }),
    Text("two kingdoms", [](std::size_t) { return Root() + ReplaceAll(Genus(101, "Aus"), "|5|", "|3|") + ReplaceAll(Taxon(7, 0, 10, "Plantae"), "|5|", "|3|"); }),
    Text("dates out of range", [](std::size_t) { return Root() + "[PB]PUB||1|a|b|c|99/99/9999|00/00/0000|d|e|||||\r\n[PB]PUB||2|a|b|c|02/30/2020|13/01/-1|d|e|||||\r\n[OS]SRC||1|a|b|c|31/12/99999999999|x|\r\n[CM]|1|a|b|9999-99-99 99:99:99|\r\n[CM]|2|a|b|0000-00-00|\r\n"; }),
    Text("bytes that CP1252 leaves open", [](std::size_t) { return Everywhere("A\x81\x8D\x8F\x90\x9Dus"); }),
    Text("bad UTF-8 behind a byte order mark", [](std::size_t) { return "\xEF\xBB\xBF" + Everywhere("A\xC3(\xE2\x82\xF0\x28\xED\xA0\x80\xFF\xC0\x80"); }),
    Text("UTF-8 without a byte order mark", [](std::size_t) { return Everywhere("\xC3\x91\xE4\xB8\xAD\xF0\x9F\xA6\x8B"); }),
    Text("a byte order mark alone", [](std::size_t) { return std::string("\xEF\xBB\xBF"); }),
    Text("two byte order marks", [](std::size_t size) { return "\xEF\xBB\xBF\xEF\xBB\xBF" + Good(size); }),
    Text("a byte order mark in each line", [](std::size_t size) { return ReplaceAll(Good(size), "\n", "\n\xEF\xBB\xBF"); }),
    Text("UTF-16, little endian", [](std::size_t size) { return Utf16(Good(size), false); }),
    Text("UTF-16, big endian", [](std::size_t size) { return Utf16(Good(size), true); }),
    Text("noise", [](std::size_t size) { return Noise(size * 200); }),
    Text("zeroes", [](std::size_t size) { return std::string(size * 2000, '\0'); }),
    Text("a gzip", [](std::size_t size) { return Gzip(Good(size)); }),
    Text("a zip", [](std::size_t) { return std::string("PK\x03\x04\x14\0\0\0\x08\0", 10) + Noise(500); }),
    Text("numbers chosen for a bad hash", [](std::size_t size) { return Lines(size * 10, [](std::int64_t i) { return Genus(i * 65536 % 2147483647 + 1000, "Aus"); }); }),
    Text("names chosen for a bad hash", [](std::size_t size) { return Lines(size * 10, [](std::int64_t i) { return fmt::format("[TA]|{}|{}a|5|\r\n", i, std::string(static_cast<std::size_t>(i % 97), ' ')); }); }),
    Text("different prefixes", [](std::size_t size) { return Lines(size * 2, [](std::int64_t i) { return fmt::format("[PB]{:c}{:c}{:c}||{}|a|b|c||||||||||\r\n", 'A' + i % 26, 'A' + i / 26 % 26, 'A' + i / 676 % 26, 1000000 + i); }); }),
    Text("huge parts of a name", [](std::size_t size) { return Everywhere(std::string(size * 20, 'Z')); }),
    Text("wildcards", [](std::size_t) { return Everywhere("*?#[!a-z]%_\\") + Genus(103, "[") + Genus(104, "[]") + Genus(105, std::string(30, '*')); }),
    Text("quotes", [](std::size_t) { return Everywhere("'\"`''\"\"'") + Genus(103, "'") + Genus(104, "\""); }),
    Text("statements", [](std::size_t) { return Everywhere("'; DROP TABLE qb_taxonomic_units; --"); }),
    Text("brackets and bangs", [](std::size_t) { return Everywhere("[Forms]![x]![y]"); }),
    Text("control characters", [](std::size_t) { return Everywhere("A\x01\x02\x07\x08\x0B\x0C\x1A\x1B[31m\x7Fus"); }),
    Text("tabs", [](std::size_t) { return Everywhere("\tA\tus\t"); }),
    Text("marks for right to left", [](std::size_t) { return "\xEF\xBB\xBF" + Everywhere("A\xE2\x80\xAE\xE2\x81\xA6su\xE2\x80\x8F"); }),
    Text("stacked combining marks", [](std::size_t) { return "\xEF\xBB\xBF" + Everywhere("A" + Repeat("\xCC\x81", 17)); }),
    Text("formulas", [](std::size_t) { return Everywhere("=cmd|' /C calc'!A0") + Genus(103, "=1+1") + Genus(104, "@SUM(1)"); }),
    Text("markup", [](std::size_t) { return Everywhere("<script>&amp;</td>"); }),
    Text("format directives", [](std::size_t) { return Everywhere("%s%n{}{0}%x"); }),
    Text("paths", [](std::size_t) { return Everywhere("../../etc/x"); }),
    Text("blanks", [](std::size_t) { return Everywhere("   ") + Genus(103, " Aus ") + Genus(104, "\xA0"); }),
    Text("one name for all", [](std::size_t size) { return Lines(size * 5, [](std::int64_t i) { return Genus(kRoot + i, "Aus"); }); }),
    Text("one author for all", [](std::size_t size) { return Lines(size * 5, [](std::int64_t i) { return fmt::format("[TA]|{}|Linnaeus|5|\r\n", i); }); }),
    Text("vernaculars of one name", [](std::size_t size) { return Root() + Genus(101, "Aus") + Repeat("[VR]||1|same|101|English|Yes|\r\n", size); }),
    Text("changes of what is not there", [](std::size_t size) { return Lines(size, [](std::int64_t i) { return fmt::format("[CT]|{0}|{0}|x|y|z|w|2020-01-01|{0}||\r\n[CO]|{0}|300|{0}|\r\n[CC]|{0}|{0}|99999|x|\r\n", i); }); }),
    Text("a good file cut short", [](std::size_t size) { const std::string text = Good(size); return text.substr(0, text.size() - 37); }),
    Text("a good file with a bit changed each kilobyte", [](std::size_t size) { std::string text = Good(size); for (std::size_t at = 512; at < text.size(); at += 1024) text[at] = static_cast<char>(text[at] ^ 0x10); return text; }),
    {"a folder", [](const HostilePlace& place) { std::filesystem::create_directory(place.ExchangeFile()); }},
    {"an empty device", [](const HostilePlace& place) { LinkTo(place, "/dev/null"); }},
    {"a link to itself", [](const HostilePlace& place) { LinkTo(place, place.ExchangeFile()); }},
    {"a link to nowhere", [](const HostilePlace& place) { LinkTo(place, "nothing"); }},
    {"a link to the DataSet", [](const HostilePlace& place) { LinkTo(place, "set.mdb"); }},
    {"another name of the DataSet", [](const HostilePlace& place) { std::filesystem::create_hard_link(place.DataSet(), place.ExchangeFile()); }},
    {"a copy of the DataSet", [](const HostilePlace& place) { WriteFile(place.ExchangeFile(), ReadFile(place.DataSet())); }},
    {"a pipe", MakeFifo},
};
// clang-format on

}  // namespace

std::span<const HostileKind> HostileFiles() {
    return kFiles;
}

}  // namespace quillon::campaign
