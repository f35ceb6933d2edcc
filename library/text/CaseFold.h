#pragma once

// Narrow text compared without case, as _mbsicmp compares it but by the thread's
// ANSI code page and not the runtime's: character by character, letters by their
// lower case, in the order of the character codes, two bytes counting as one
// code after a lead byte. A strict ordering, fit for maps.

#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string_view>

namespace Tesk {

class CCaseFold {
public:
    // The table of the thread's present code page; made once a code page.
    static const CCaseFold& forThread();

    explicit CCaseFold(UINT uCodePage);

    // Negative, 0 or positive. A lead byte without a second byte stands for itself.
    int compare(std::string_view sLeft, std::string_view sRight) const;

    UINT getCodePage() const { return m_uCodePage; }
    // The table made before this one.
    const CCaseFold* getNext() const { return m_pNext; }

private:
    void addPair(wchar_t cUpper, wchar_t cLower);
    unsigned next(std::string_view sText, std::size_t& position) const;

    const CCaseFold* m_pNext = nullptr;
    UINT m_uCodePage;
    MultiByte::CLeadBytes m_lead;
    unsigned char m_single[256];
    std::unique_ptr<uint16_t[]> m_rows[256];  // by lead byte, where it has letters
};

// The order of a map of narrow texts without case. It keeps to the code page in
// which it was made, so that a map stays in order whatever the thread does.
class CLessNoCase {
public:
    using is_transparent = void;
    CLessNoCase() : m_pFold(&CCaseFold::forThread()) {}
    bool operator()(std::string_view sLeft, std::string_view sRight) const
    {
        return m_pFold->compare(sLeft, sRight) < 0;
    }
    bool operator()(const CString& sLeft, const CString& sRight) const
    {
        return m_pFold->compare(viewOf(sLeft), viewOf(sRight)) < 0;
    }
    bool operator()(const CString& sLeft, std::string_view sRight) const
    {
        return m_pFold->compare(viewOf(sLeft), sRight) < 0;
    }
    bool operator()(std::string_view sLeft, const CString& sRight) const
    {
        return m_pFold->compare(sLeft, viewOf(sRight)) < 0;
    }

private:
    const CCaseFold* m_pFold;
};

}  // namespace Tesk
