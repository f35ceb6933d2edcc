#pragma once

// Narrow text compared without case, as _mbsicmp compares it but by the thread's
// ANSI code page and not the runtime's: character by character, letters by their
// lower case, in the order of the character codes, two bytes counting as one
// code after a lead byte. A strict ordering, fit for maps.

#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace Tesk {

class CCaseFold {
public:
    // The table of the thread's present code page; made once a code page.
    static const CCaseFold& forThread();

    explicit CCaseFold(UINT uCodePage);

    // Negative, 0 or positive. A lead byte without a second byte stands for itself.
    int compare(std::string_view sLeft, std::string_view sRight) const;

private:
    unsigned next(std::string_view sText, std::size_t& position) const;

    MultiByte::CLeadBytes m_lead;
    std::vector<uint16_t> m_vecLower;  // by code
};

// The order of a map of narrow texts without case. It keeps to the code page in
// which it was made, so that a map stays in order whatever the thread does.
class CLessNoCase {
public:
    using is_transparent = void;
    CLessNoCase() : m_pFold(&CCaseFold::forThread()) {}
    template <class Left, class Right>
    bool operator()(const Left& left, const Right& right) const
    {
        return m_pFold->compare(viewOf(left), viewOf(right)) < 0;
    }

private:
    const CCaseFold* m_pFold;
};

}  // namespace Tesk
