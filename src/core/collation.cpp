#include "core/collation.h"

#include <algorithm>
#include <iterator>

#include "core/collation_table.h"
#include "core/letter_case.h"

namespace quillon {

namespace {

// Lead bytes, in the order of the classes. Control characters begin at 1, so that 0 ends a text in a key.
enum Lead : std::uint8_t {
    ControlLead = 0x01,
    DeleteLead = 0x21,  // U+007F to U+009F
    SymbolLead = 0x42,  // the characters of kSymbols
    FarSymbolLead = 0x8F,
    DigitLead = 0x90,
    LatinLead = 0xA0,
    GreekAndCyrillicLead = 0xC0,
    OtherLead = 0xD0,
    InvalidByteLead = 0xF0
};

// Punctuation and symbols of ASCII and Latin-1 in ascending order.
constexpr char32_t kSymbols[] =
    U" \u00A0_\u00AF-\u00AD,;:!\u00A1?\u00BF.\u00B7\u00B8'\"\u00AB\u00BB()[]{}\u00A7\u00B6@*/"
    U"\\&#%`\u00B4^\u00A8"
    U"\u00B0\u00A9\u00AE+\u00B1\u00F7\u00D7<=>|\u00A6~\u00AC\u00A4\u00A2$\u00A3\u00A5\u00BC\u00BD\u00BE";
constexpr std::size_t kSymbolCount = std::size(kSymbols) - 1;
static_assert(SymbolLead + kSymbolCount <= FarSymbolLead);

constexpr BaseWeight Weight(unsigned lead, char32_t following = 0) {
    return (static_cast<BaseWeight>(lead) << 24) | static_cast<BaseWeight>(following);
}

constexpr std::array<BaseWeight, 256> MakeLatin1Weights() {
    std::array<BaseWeight, 256> weights{};
    for (unsigned code = 0; code < 0x20; ++code) weights[code] = Weight(ControlLead + code);
    for (unsigned code = 0x7F; code < 0xA0; ++code) weights[code] = Weight(DeleteLead + code - 0x7F);
    for (unsigned place = 0; place < kSymbolCount; ++place)
        weights[kSymbols[place]] = Weight(SymbolLead + place);
    for (unsigned digit = 0; digit < 10; ++digit) weights['0' + digit] = Weight(DigitLead + digit);
    for (unsigned letter = 0; letter < 26; ++letter) {
        weights['a' + letter] = weights['A' + letter] = Weight(LatinLead + letter);
    }
    return weights;
}

constexpr std::array<BaseWeight, 256> kLatin1Weights = MakeLatin1Weights();

constexpr std::array<BaseWeight, 256> MakeAsciiWeights() {
    std::array<BaseWeight, 256> weights{};
    std::copy_n(kLatin1Weights.begin(), 128, weights.begin());
    return weights;
}

bool Within(char32_t code, char32_t first, char32_t last) {
    return code >= first && code <= last;
}

bool IsGreekOrCyrillic(char32_t code) {
    return Within(code, 0x370, 0x52F);
}

// Modifier signs, general punctuation, currency, arrows and the like.
bool IsFarSymbol(char32_t code) {
    return Within(code, 0x2B0, 0x2FF) || Within(code, 0x2000, 0x2BFF);
}

bool IsMark(char32_t code) {
    return Within(code, kFirstCombiningMark, kLastCombiningMark);
}

// The weight of a character that is not decomposed, in lower case.
BaseWeight PlainWeight(char32_t code) {
    if (code < kLatin1Weights.size() && kLatin1Weights[code] != 0) return kLatin1Weights[code];
    if (code >= kInvalidByteBase) return Weight(InvalidByteLead, code - kInvalidByteBase);
    if (IsFarSymbol(code)) return Weight(FarSymbolLead, code);
    return Weight(IsGreekOrCyrillic(code) ? GreekAndCyrillicLead : OtherLead, code);
}

MarkWeight WeightOfMark(char32_t mark) {
    constexpr unsigned firstCombiningWeight = 0x20;
    if (!IsMark(mark)) return static_cast<MarkWeight>(kPlainMark + mark);
    return static_cast<MarkWeight>(firstCombiningWeight + mark - kFirstCombiningMark);
}

void AddBase(CollationElements& elements, char32_t letter) {
    elements.bases[elements.baseCount++] = PlainWeight(letter);
    elements.marks[elements.markCount++] = kPlainMark;
}

void AddMark(CollationElements& elements, char32_t mark) {
    if (mark != 0) elements.marks[elements.markCount++] = WeightOfMark(mark);
}

CollationElements ElementsOfParts(const LetterParts& parts) {
    CollationElements elements;
    AddBase(elements, parts.first);
    if (parts.second != 0) {
        AddMark(elements, Ligature);
        AddBase(elements, parts.second);
    }
    AddMark(elements, parts.mark1);
    AddMark(elements, parts.mark2);
    return elements;
}

}  // namespace

constexpr std::array<BaseWeight, 256> kAsciiWeights = MakeAsciiWeights();

CollationElements ElementsOf(char32_t code) {
    CollationElements elements;
    if (IsMark(code)) {
        AddMark(elements, code);
        return elements;
    }
    const char32_t lower = code < kInvalidByteBase ? LowerCaseOf(code) : code;
    const LetterParts parts = PartsOfLetter(lower);
    if (parts.first != 0) return ElementsOfParts(parts);
    AddBase(elements, lower);
    return elements;
}

int FollowingBytes(BaseWeight weight) {
    switch (weight >> 24) {
        case FarSymbolLead:
        case GreekAndCyrillicLead:
        case OtherLead:
        case InvalidByteLead:
            return 3;
        default:
            return 0;
    }
}

}  // namespace quillon
