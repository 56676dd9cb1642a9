// Wild-card matching with the host's pattern rules, shared by wcmatch,
// acutWcMatch and the selection filters.
//
//   #  a digit            @  a letter          .  a character that is neither
//   *  any sequence       ?  any character        letter nor digit
//   [abc] [a-z]  one of   [~abc]  none of      `x  x itself
//   ~  at the start of an alternative: anything that does not match the rest
//   ,  separates alternatives; the text matches if any alternative does
//
// Matching is case-sensitive and works on bytes: letters and digits are the
// ASCII ones, every byte of 0x80 and above counts as "not alphanumeric".
#pragma once
#include <string_view>

namespace lumo::lisp {

bool WcMatch(std::string_view text, std::string_view pattern);

}  // namespace lumo::lisp
