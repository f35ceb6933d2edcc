#include "additions/LongNames.h"

#include "additions/OptInText.h"
#include "library/text/CodePage.h"
#include "library/text/StringView.h"

#include <cstdlib>
#include <string>

namespace {

constexpr int kLeast = 8;  // with less nobody knows a drawing by its name
constexpr wchar_t kEllipsis = L'\x2026';

}  // namespace

CLongNames::CLongNames() : m_iMost(std::atoi(getOptInText("", "MaximumName")))
{
    if (m_iMost < kLeast)
        m_iMost = 0;
}

CString CLongNames::shorten(const CString& sName) const
{
    if (m_iMost == 0 || sName.GetLength() <= m_iMost)
        return sName;
    const auto most = static_cast<std::size_t>(m_iMost);
    std::wstring sWide = Tesk::toWide(Tesk::viewOf(sName));
    // Of what is left the end gets the odd character: there names differ.
    if (sWide.size() > most)
        sWide.replace((most - 1) / 2, sWide.size() - most + 1, 1, kEllipsis);
    return Tesk::toCString(Tesk::toNarrow(sWide));
}
