// The letters that the collation decomposes: a base letter, or two for a ligature, and the marks on them.
// Only the collation uses this table; it is data and defines no order.
//
// It covers the accented letters and ligatures of Latin-1, Latin Extended-A and -B and Latin Extended
// Additional, the superscript letters and digits of Latin-1, and the accented letters of modern Greek.
#pragma once

namespace quillon {

// Marks without a combining character; their values are below all combining characters.
enum OwnMark : char16_t {
    Ligature = 1,
    Raised,
    Stroke,
    Eth,
    Eng,
    Kra,
    Hook,
    LongS,
    Dotless,
    MiddleDot,
    Apostrophe,
    HalfRing
};

inline constexpr char32_t kFirstCombiningMark = 0x300;
inline constexpr char32_t kLastCombiningMark = 0x36F;

struct LetterParts {
    char16_t first = 0;   // the base letter in lower case; 0 when the character is not decomposed
    char16_t second = 0;  // the second letter of a ligature, or 0
    // An OwnMark or a combining character, or 0. They belong to the last base letter.
    char16_t mark1 = 0;
    char16_t mark2 = 0;
};

// The parts of a character of either case, Greek only in lower case; `first` is 0 when it has none.
LetterParts PartsOfLetter(char32_t code);

}  // namespace quillon
