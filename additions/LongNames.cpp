#include "additions/LongNames.h"

#include "additions/OptInText.h"
#include "library/drawing/DocumentName.h"
#include "library/text/CodePage.h"
#include "library/text/StringView.h"

#include <cstdlib>
#include <string>

namespace {

// With less of them nobody knows a drawing by its name; so nothing is looked up for it.
constexpr std::size_t kLeast = 8;
constexpr wchar_t kEllipsis = L'\x2026';

}  // namespace

CString CLongNames::shorten(const AcApDocument* pDocument, const CString& sName)
{
    remove(pDocument);
    const std::wstring sWide = Tesk::toWide(Tesk::viewOf(sName));
    if (sWide.size() <= kLeast)
        return sName;
    const auto most =
        static_cast<std::size_t>(std::strtoul(getOptInText(Tesk::fileNameOf(pDocument), "MaximumName"), nullptr, 10));
    if (most < kLeast || sWide.size() <= most)
        return sName;
    // Of what is left the end gets the odd character: there names differ.
    const std::size_t head = (most - 1) / 2;
    const std::size_t tail = most - 1 - head;
    const CString sShort =
        Tesk::toCString(Tesk::toNarrow(sWide.substr(0, head) + kEllipsis + sWide.substr(sWide.size() - tail)));
    m_mapShortened[pDocument] = {sName, sShort.GetLength()};
    return sShort;
}

CString CLongNames::unshorten(const AcApDocument* pDocument, const CString& sTabText) const
{
    const auto name = m_mapShortened.find(pDocument);
    return name == m_mapShortened.end() ? sTabText : name->second.sWhole + sTabText.Mid(name->second.iShown);
}
