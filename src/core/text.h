// Text as the program handles it: UTF-8 in memory, measured in characters, compared without regard to case.
//
// Every comparison of names in the program goes through CompareText or EqualText, so that memory and store
// agree. The order is fixed here and the same on every machine: trailing blanks do not count; then the base
// letters of the whole text are compared, punctuation before digits before letters; then, only between texts
// whose base letters are all equal, the accents. Case never counts. Each byte of invalid UTF-8 is compared as
// a character of its own, after all letters; nothing fails.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

// Negative, 0 or positive when left is before, equal to or after right.
int CompareText(std::string_view left, std::string_view right);
inline bool EqualText(std::string_view left, std::string_view right) {
    return CompareText(left, right) == 0;
}
// A byte string that compares bytewise exactly as CompareText compares the texts.
std::string SortKey(std::string_view text);
// The binary comparison (mode 0 of the dialect's StrComp): -1, 0 or 1 by character code, blanks and case
// included.
int CompareBinary(std::string_view left, std::string_view right);
// The dialect's Like: `*` any run, `?` one character, `#` one digit, `[a-z]` and `[!a-z]` sets; case does not
// count, accents do, trailing blanks count. A pattern with an open bracket matches nothing.
bool LikeText(std::string_view text, std::string_view pattern);

// Characters, not bytes; each invalid byte counts as one.
std::size_t CharacterCount(std::string_view text);
// The first `count` characters, the whole text when it has fewer.
std::string_view LeftCharacters(std::string_view text, std::size_t count);
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);
// Removes blanks, and only blanks, at both ends or at the end.
std::string_view Trim(std::string_view text);
std::string_view TrimEnd(std::string_view text);

// Every occurrence of `find` replaced by `with`, from the left; inserted text is not searched again.
std::string ReplaceText(std::string_view text, std::string_view find, std::string_view with);
// Safe between single quotes of a statement: ' doubled, then | as "' & chr(124) & '".
std::string QuoteSQL(std::string_view text);
// Safe between double quotes of a statement.
std::string QuoteDoubleQuotes(std::string_view text);
// Two upper-case hexadecimal digits for the CP1252 code of each character; "3F" when it has none.
std::string HexString(std::string_view text);
// True for "12", "-3", " 1.5 " and the like, with blanks allowed.
bool IsNumericText(std::string_view text);

}  // namespace quillon
