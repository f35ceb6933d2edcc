#pragma once

// A path taken apart, by characters of the thread's ANSI code page.

#include <string>
#include <string_view>

namespace Tesk {

// The four parts, in order, make up the path again. The extension carries its dot, the
// folder its trailing separator, the drive its colon.
struct CPathParts {
    explicit CPathParts(std::string_view sPath);

    // Drive and folder.
    std::string parent() const { return m_sDrive + m_sFolder; }
    std::string fileName() const { return m_sBase + m_sExtension; }
    // The path with another extension, given with its dot.
    std::string withExtension(std::string_view sOther) const { return (parent() + m_sBase).append(sOther); }

    std::string m_sDrive;
    std::string m_sFolder;
    std::string m_sBase;
    std::string m_sExtension;
};

// With one trailing backslash more, unless there is one already (or the path is empty).
std::string withBackslash(std::string sPath);

// With one trailing backslash less, if there is one.
std::string withoutBackslash(std::string sPath);

}  // namespace Tesk
