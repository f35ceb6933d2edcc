#include "library/files/PathParts.h"

#include "library/text/MultiByte.h"

namespace Tesk {

CPathParts::CPathParts(std::string_view sPath)
{
    if (sPath.size() >= 2 && sPath[1] == ':' && !MultiByte::CLeadBytes().contains(sPath[0])) {
        m_sDrive = sPath.substr(0, 2);
        sPath.remove_prefix(2);
    }
    const std::size_t separator = MultiByte::findLastOf(sPath, "\\/");
    if (separator != std::string_view::npos) {
        m_sFolder = sPath.substr(0, separator + 1);
        sPath.remove_prefix(separator + 1);
    }
    const std::size_t dot = MultiByte::findLastOf(sPath, ".");
    m_sBase = sPath.substr(0, dot);
    if (dot != std::string_view::npos)
        m_sExtension = sPath.substr(dot);
}

std::string withBackslash(std::string sPath)
{
    if (!sPath.empty() && !MultiByte::endsWith(sPath, '\\'))
        sPath += '\\';
    return sPath;
}

std::string withoutBackslash(std::string sPath)
{
    if (MultiByte::endsWith(sPath, '\\'))
        sPath.pop_back();
    return sPath;
}

}  // namespace Tesk
