// Upper and lower case of single characters: Latin, Greek and Cyrillic letters whose other case is one
// character. Used by the text procedures and the collation; use UpperCase and LowerCase for texts.
//
// A letter of CP1252 whose other case is outside it (the micro sign, the florin) does not change, so that
// exchange files can hold it. Sharp s and the two Turkish letters i do not change either.
#pragma once

namespace quillon {

// The other case, or `code` when it has none.
char32_t LowerCaseOf(char32_t code);
char32_t UpperCaseOf(char32_t code);

}  // namespace quillon
