#pragma once

// Narrow text in the thread's ANSI code page, also when that is a double-byte one:
// there the second byte of a character may look like "\", "=" or "]".

#include "library/text/CodePage.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Tesk::MultiByte {

// The lead bytes of a code page, as they stand when the object is made.
class CLeadBytes {
public:
    explicit CLeadBytes(unsigned uCodePage = getThreadCodePage());

    // Some byte begins a character of two bytes.
    bool any() const { return m_bAny; }
    bool contains(char c) const { return m_aLead[static_cast<unsigned char>(c)]; }
    // Offset of the character behind the one that begins at `at`; never past the end.
    std::size_t next(std::string_view sText, std::size_t at) const;
    // The beginning of a character at `at` or as little before it as can be told.
    std::size_t boundaryBefore(std::string_view sText, std::size_t at) const;
    // The last byte begins a character that is not complete.
    bool isOpen(std::string_view sText) const;

private:
    bool m_bAny;
    bool m_aLead[256];
};

// First occurrence of `sWhat` that begins at a character, from `from` (the beginning of a
// character) on; npos when there is none or `sWhat` is empty.
std::size_t find(const CLeadBytes& lead, std::string_view sText, std::string_view sWhat, std::size_t from = 0);

// Last character that is one of the (single-byte) characters in `sAny`; npos when none is.
std::size_t findLastOf(std::string_view sText, std::string_view sAny);

// The last character is the single-byte character `c`.
bool endsWith(std::string_view sText, char c);

// Equal without case, as CCaseFold compares.
bool equalNoCase(std::string_view sOne, std::string_view sOther);

// Upper case by the thread's locale. A capital that the code page lacks becomes its
// default character.
std::string upper(std::string_view sText);

// Without the characters of `sAny` at both ends; these are white space, or none that may
// be the second byte of a character.
std::string_view trim(std::string_view sText, std::string_view sAny = " \t\r\n\v\f");

// Without quotation marks, double and single, at both ends.
inline std::string_view withoutQuotes(std::string_view sText) { return trim(sText, "\"'"); }

// Replaces the first occurrence of `sFind`, or, with `bAll`, searches again from the
// beginning of the new text until none is left. An empty `sFind` replaces nothing. The
// caller sees to it that `sReplacement` does not bring `sFind` back.
void replaceAll(std::string& sText, std::string_view sFind, std::string_view sReplacement, bool bAll);

}  // namespace Tesk::MultiByte
