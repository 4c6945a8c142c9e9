// Upper and lower case of single characters: the Latin, Greek and Cyrillic letters whose case has a partner
// of one character. Used by the text procedures and the collation; whole texts go through UpperCase and
// LowerCase.
//
// A letter whose partner would leave the code page of the exchange files though it is in it (the micro sign,
// the florin) keeps its form, as do sharp s and the two Turkish letters i.
#pragma once

namespace quillon {

// The partner, or `code` itself when it has none.
char32_t LowerCaseOf(char32_t code);
char32_t UpperCaseOf(char32_t code);

}  // namespace quillon
