#include "library/text/MultiByte.h"

#include "library/text/CaseFold.h"

#include <windows.h>

#include <algorithm>

namespace Tesk::MultiByte {

CLeadBytes::CLeadBytes(unsigned uCodePage) : m_bAny(false), m_aLead{}
{
    CPINFO info{};
    if (!::GetCPInfo(uCodePage, &info) || info.MaxCharSize < 2)
        return;
    for (int i = 0; i + 1 < MAX_LEADBYTES && info.LeadByte[i] != 0; i += 2) {
        for (int c = info.LeadByte[i]; c <= info.LeadByte[i + 1]; ++c) {
            m_aLead[c] = true;
            m_bAny = true;
        }
    }
}

std::size_t CLeadBytes::next(std::string_view sText, std::size_t at) const
{
    const std::size_t after = at + (contains(sText[at]) ? 2 : 1);
    return after < sText.size() ? after : sText.size();
}

std::size_t CLeadBytes::boundaryBefore(std::string_view sText, std::size_t at) const
{
    // Behind a byte that leads no character there is a boundary, whatever came before.
    while (at > 0 && contains(sText[at - 1]))
        --at;
    return at;
}

bool CLeadBytes::isOpen(std::string_view sText) const
{
    // A run of lead bytes at the end pairs up; an odd one is left over.
    return ((sText.size() - boundaryBefore(sText, sText.size())) & 1) != 0;
}

std::size_t find(const CLeadBytes& lead, std::string_view sText, std::string_view sWhat, std::size_t from)
{
    if (sWhat.empty())
        return std::string_view::npos;
    std::size_t hit = sText.find(sWhat, from);
    if (!lead.any())
        return hit;
    // Walk by characters from the last known boundary up to each hit of the byte search.
    std::size_t boundary = from;
    while (hit != std::string_view::npos) {
        while (boundary < hit)
            boundary = lead.next(sText, boundary);
        if (boundary == hit)
            return hit;
        hit = sText.find(sWhat, boundary);
    }
    return hit;
}

std::size_t findLastOf(std::string_view sText, std::string_view sAny)
{
    const CLeadBytes lead;
    std::size_t last = std::string_view::npos;
    for (std::size_t at = 0; at < sText.size(); at = lead.next(sText, at)) {
        if (sAny.find(sText[at]) != std::string_view::npos)
            last = at;
    }
    return last;
}

bool endsWith(std::string_view sText, char c)
{
    if (sText.empty() || sText.back() != c)
        return false;
    const char any[] = {c};
    return findLastOf(sText, std::string_view(any, 1)) == sText.size() - 1;
}

bool equalNoCase(std::string_view sOne, std::string_view sOther)
{
    return sOne == sOther || CCaseFold::forThread().compare(sOne, sOther) == 0;
}

std::string upper(std::string_view sText)
{
    // A capital may take more or fewer bytes than its letter, two at most.
    const auto length = static_cast<int>(sText.size());
    std::string sUpper(2 * sText.size(), '\0');
    const int upper = ::LCMapStringA(::GetThreadLocale(), LCMAP_UPPERCASE, sText.data(), length, sUpper.data(),
                                     static_cast<int>(sUpper.size()));
    if (upper <= 0)
        return std::string(sText);
    sUpper.resize(static_cast<std::size_t>(upper));
    return sUpper;
}

std::string_view trim(std::string_view sText, std::string_view sAny)
{
    const std::size_t first = sText.find_first_not_of(sAny);
    if (first == std::string_view::npos)
        return {};
    return sText.substr(first, sText.find_last_not_of(sAny) - first + 1);
}

void replaceAll(std::string& sText, std::string_view sFind, std::string_view sReplacement, bool bAll)
{
    const CLeadBytes lead;
    std::size_t at = find(lead, sText, sFind);
    while (at != std::string::npos) {
        sText.replace(at, sFind.size(), sReplacement);
        if (!bAll)
            break;
        // What lies wholly before the replacement has been searched already.
        const std::size_t back = std::min(at, sFind.size() - 1);
        at = find(lead, sText, sFind, lead.boundaryBefore(sText, at - back));
    }
}

}  // namespace Tesk::MultiByte
