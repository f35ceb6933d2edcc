#pragma once

// A settings file as text, to show its lines and to tell what its encoding does to it.

#include "tabscheck/Report.h"

#include <map>
#include <string>
#include <vector>

namespace tabscheck {

// How the product reads the file: the texts' reader knows UTF-16 with its mark, that of
// the project settings only the code page.
enum class Reading { Detecting, Ansi };

class SourceFile {
public:
    // Without lines, and with a problem, when it cannot be read.
    SourceFile(const std::string& sPath, Reading reading);

    const std::string& path() const { return m_path; }
    const std::vector<std::string>& lines() const { return m_lines; }
    // The line, from 1; empty behind the end.
    const std::string& line(unsigned number) const;
    // Of the file as a whole: not readable, an encoding that is not read, zero bytes.
    const std::vector<Problem>& problems() const { return m_problems; }

    // A problem of this file at a line, from 1, and a position in it, from 0.
    Problem problem(bool error, unsigned line, std::size_t position, std::string sText) const;

private:
    void checkEncoding(Reading reading);
    void checkZeros();

    std::string m_path;
    std::vector<std::string> m_lines;
    std::vector<Problem> m_problems;
};

// Each file is read once.
class SourceFiles {
public:
    const SourceFile& get(const std::string& sPath, Reading reading);

private:
    std::map<std::pair<std::string, Reading>, SourceFile> m_files;
};

// Where the first character stands that is no blank.
std::size_t firstWord(const std::string& sLine);

}  // namespace tabscheck
