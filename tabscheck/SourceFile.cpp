#include "tabscheck/SourceFile.h"

#include "library/diagnostics/ExceptionText.h"
#include "library/files/TextFileContents.h"

#include <algorithm>
#include <tuple>

namespace tabscheck {

namespace {

constexpr std::string_view kUtf8 = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Big = "\xFE\xFF";
constexpr std::string_view kUtf16Little = "\xFF\xFE";

}  // namespace

SourceFile::SourceFile(const std::string& sPath, Reading reading) : m_path(sPath)
{
    try {
        Tesk::CTextFileContents contents(sPath.c_str(), reading == Reading::Detecting);
        for (std::string_view sLine; contents.nextConverted(sLine);)
            m_lines.emplace_back(sLine);
        checkEncoding(reading);
    } catch (CException* pException) {
        m_problems.push_back(problem(true, 0, 0, Tesk::takeExceptionText(pException).GetString()));
    }
    if (m_problems.empty())
        checkZeros();
}

const std::string& SourceFile::line(unsigned number) const
{
    static const std::string sNone;
    return number >= 1 && number <= m_lines.size() ? m_lines[number - 1] : sNone;
}

Problem SourceFile::problem(bool error, unsigned line, std::size_t position, std::string sText) const
{
    const unsigned column = line == 0 ? 0 : static_cast<unsigned>(position + 1);
    return {error, m_path, line, column, std::move(sText), this->line(line)};
}

void SourceFile::checkEncoding(Reading reading)
{
    Tesk::CTextFileContents contents(m_path.c_str(), false);
    std::string_view sFirst;
    contents.nextNarrow(sFirst);
    const char* sEncoding = nullptr;
    if (sFirst.substr(0, kUtf8.size()) == kUtf8)
        sEncoding = "UTF-8";
    else if (sFirst.substr(0, kUtf16Big.size()) == kUtf16Big)
        sEncoding = "UTF-16, big-endian";
    else if (reading == Reading::Ansi && sFirst.substr(0, kUtf16Little.size()) == kUtf16Little)
        sEncoding = "UTF-16";
    if (sEncoding == nullptr)
        return;
    const std::string sHelp = reading == Reading::Ansi ? "save it as ANSI" : "save it as ANSI or as \"Unicode\"";
    m_problems.push_back(
        problem(true, 1, 0, "the file is in " + std::string(sEncoding) + ", which is not read: " + sHelp));
}

void SourceFile::checkZeros()
{
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const std::size_t zero = m_lines[i].find('\0');
        if (zero == std::string::npos)
            continue;
        m_problems.push_back(problem(false, static_cast<unsigned>(i + 1), zero,
                                     "a zero byte: Windows shows a text only up to it; is this a text file?"));
        return;
    }
}

const SourceFile& SourceFiles::get(const std::string& sPath, Reading reading)
{
    const std::pair key(sPath, reading);
    const auto found = m_files.find(key);
    if (found != m_files.end())
        return found->second;
    return m_files.emplace(std::piecewise_construct, std::forward_as_tuple(key), std::forward_as_tuple(sPath, reading))
        .first->second;
}

std::size_t firstWord(const std::string& sLine) { return std::min(sLine.find_first_not_of(" \t\r\v\f"), sLine.size()); }

}  // namespace tabscheck
