#pragma once

// Paths in the ANSI code page.

#include <string>

namespace host {

// The absolute form of a path; the path itself when there is none.
std::string fullPath(const std::string& sPath);
// With its closing backslash; empty for a bare name.
std::string folderOf(const std::string& sPath);
std::string nameOf(const std::string& sPath);
// The name without folder and extension.
std::string baseNameOf(const std::string& sPath);
bool fileExists(const std::string& sPath);
// An existing file that is marked read-only, or does not open for writing.
bool isWriteProtected(const std::string& sPath);

}  // namespace host
