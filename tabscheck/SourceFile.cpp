#include "library/text/Regex.h"

#include "tabscheck/SourceFile.h"

#include "library/diagnostics/ExceptionBase.h"
#include "library/text/CodePage.h"
#include "library/text/MultiByte.h"

#include <windows.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace tabscheck {

namespace {

constexpr unsigned kWestern = 1252;
constexpr std::string_view kAccept = "tabscheck: accept ";

constexpr struct {
    std::string_view mark;
    const char* name;
    bool texts;  // the texts' reader knows it
    bool wide;   // no line of it can be read
} kMarks[] = {{"\xEF\xBB\xBF", "UTF-8", false, false},
              {"\xFE\xFF", "UTF-16, big-endian", false, true},
              {"\xFF\xFE", "UTF-16", true, true},
              {"", "UTF-16 without its mark", false, true}};  // known by the zero of its first letter

bool isHigh(char c) { return (c & 0x80) != 0; }

// As UTF-8, where it is that and more than ASCII; else empty.
std::wstring decodeUtf8(std::string_view sText)
{
    if (std::none_of(sText.begin(), sText.end(), isHigh) || Tesk::MultiByte::CLeadBytes().any())
        return {};
    std::wstring sWide(sText.size(), L'\0');
    const int length = static_cast<int>(sText.size());
    const int count = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, sText.data(), length, sWide.data(), length);
    sWide.resize(static_cast<std::size_t>(count));
    return sWide;
}

// What stands in no line that was written for Windows. A letter of code pages 437 and 850 is
// one that 1252 has as a sign of punctuation, within a word, or not at all.
const struct {
    RuleName rule;
    bool western;  // in code page 1252 alone
    bool each;     // told of each line, and not where it is seen first alone
    boost::regex part;
} kLineRules[] = {
    {"zero-byte", false, false, boost::regex("\\x00")},
    {"lone-return", false, false, boost::regex("\r")},
    {"merge-mark", false, true, boost::regex("^(<{7}|={7}|>{7})(?= |$)")},
    {"dos-letter", true, false, boost::regex("\x81|(?<=[A-Za-z])[\x82\x84\x8D\x94](?=[A-Za-z\x80-\xFF])")},
    {"typographic", true, true, boost::regex("^\\s*[^;#/\\s].*?[= \\t]([\x84\x93\x94][^\x93\x94]*[\x93\x94])\\s*$")},
};

}  // namespace

SourceFile::SourceFile(const std::string& sPath, Form form) : m_path(sPath)
{
    try {
        read(form);
    } catch (CException* pException) {
        m_problems.push_back(problemOf("file-unread", m_path, {Tesk::takeExceptionText(pException).GetString()}));
    } catch (const std::exception&) {
        m_problems.push_back(problemOf("file-unread", m_path, {"it cannot be read: it is too large for the memory"}));
    }
}

void SourceFile::read(Form form)
{
    m_contents = std::make_unique<Tesk::CTextFileContents>(m_path.c_str(), form == Form::Texts);
    if (form == Form::Project) {
        m_project = Tesk::parseProject(*m_contents);
    } else {
        Tesk::CSettingsEntries entries(*m_contents);
        for (Tesk::CSettingsEntry entry; entries.next(entry);)
            m_texts.push_back(entry);
    }
    m_sound = std::none_of(m_texts.begin(), m_texts.end(),
                           [](const auto& entry) { return entry.m_kind == Tesk::CSettingsEntry::Damage; });
    checkMark(form);
    m_contents->rewind();
    if (!m_garbled)
        checkLines();
    m_contents->rewind();
    if (m_contents->isUnicode())
        checkWideLines();
}

const Tesk::CProjectEntry& SourceFile::entryOf(unsigned line) const
{
    return *std::find_if(m_project.begin(), m_project.end(), [line](const auto& one) { return one.m_uLine == line; });
}

bool SourceFile::accepts(const Problem& problem) const
{
    const auto names = m_accepted.find(problem.line);
    const boost::regex name("[ ,\t]" + std::string(problem.rule->name) + "(?![\\w-])");
    return names != m_accepted.end() && boost::regex_search(names->second, name);
}

Problem SourceFile::problemAt(RuleName name, unsigned line, std::size_t position, std::string_view sLine,
                              std::initializer_list<std::string_view> parts) const
{
    const auto column = static_cast<unsigned>(position + 1);
    return {m_path, line, column, name.rule(), wordsOf(*name.rule(), parts), std::string(sLine)};
}

void SourceFile::checkMark(Form form)
{
    const std::string_view sBytes = m_contents->getBytes();
    for (const auto& [mark, name, texts, wide] : kMarks) {
        const bool found = mark.empty() ? sBytes.size() > 1 && sBytes[1] == '\0' : sBytes.starts_with(mark);
        if (!found || (texts && form == Form::Texts))
            continue;
        m_garbled |= wide;
        m_explained.insert(1);
        m_problems.push_back(problemAt("encoding", 1, 0, sBytes.substr(0, sBytes.find_first_of("\r\n")),
                                       {name, form == Form::Project ? "ANSI" : "ANSI or as \"Unicode\""}));
    }
}

void SourceFile::checkLines()
{
    std::string sAccepted;
    std::string_view sLine;
    unsigned line = 1;
    for (; m_contents->nextConverted(sLine); ++line) {
        const std::string_view sText = Tesk::MultiByte::trim(sLine);
        const bool comment = sText.starts_with(";") || Tesk::isCommentString(sText);
        if (const std::size_t at = sText.find(kAccept); comment && at != sText.npos)
            sAccepted.append(sText.substr(at + kAccept.size() - 1));
        else if (!comment && !sText.empty())
            m_accepted[line] = std::exchange(sAccepted, {});
        checkLine(line, sLine);
    }
    if (m_contents->isCut())
        m_problems.push_back(problemAt("text-end", std::max(line, 2U) - 1, sLine.size(), sLine, {}));
}

// A line with an error is not what it was meant as.
void SourceFile::checkLine(unsigned line, std::string_view sLine)
{
    const std::wstring sMeant = m_contents->isUnicode() || explained(line) ? std::wstring() : decodeUtf8(sLine);
    const bool western = sMeant.empty() && Tesk::getThreadCodePage() == kWestern;
    for (const auto& [name, inWestern, each, part] : kLineRules) {
        boost::cmatch found;
        if ((inWestern && !western) || !boost::regex_search(sLine.data(), sLine.data() + sLine.size(), found, part))
            continue;
        if (name.rule()->severity == Severity::Error)
            m_explained.insert(line);
        if (const std::size_t last = found.size() - 1; each || m_told.insert(name.rule()).second)
            m_problems.push_back(problemAt(name, line, static_cast<std::size_t>(found.position(last)), sLine,
                                           {quoted(found.str(static_cast<int>(last)))}));
    }
    if (sMeant.empty() || !m_told.insert(RuleName("utf-8").rule()).second)
        return;
    const auto at = static_cast<std::size_t>(std::find_if(sLine.begin(), sLine.end(), isHigh) - sLine.begin());
    const std::string sText = Tesk::toNarrow(std::wstring_view(sMeant).substr(at, 20));
    m_problems.push_back(problemAt("utf-8", line, at, sLine, {quoted(sText), quoted(sLine.substr(at, 20))}));
}

// The characters that the code page lacks.
void SourceFile::checkWideLines()
{
    std::wstring_view sLine;
    for (unsigned line = 1; m_contents->nextWide(sLine); ++line) {
        const std::string sNarrow = Tesk::toNarrow(sLine);
        const std::wstring sBack = Tesk::toWide(sNarrow);
        const auto lost = std::mismatch(sLine.begin(), sLine.end(), sBack.begin(), sBack.end()).first;
        const std::size_t at = Tesk::toNarrow(std::wstring_view(sLine.begin(), lost)).size();
        if (lost != sLine.end())
            m_problems.push_back(problemAt("letter-lost", line, at, sNarrow, {quoted(sNarrow.substr(at, 1))}));
    }
}

const SourceFile& SourceFiles::get(const std::string& sPath, Form form)
{
    return m_files.try_emplace(sPath, sPath, form).first->second;
}

void SourceFiles::removeAccepted(std::vector<Problem>& problems) const
{
    std::erase_if(problems, [this](const Problem& problem) {
        const auto found = m_files.find(problem.file);
        return found != m_files.end() && found->second.accepts(problem);
    });
}

Place SourceFiles::placeOf(Layer layer, const std::string& sPath, std::vector<Problem>& problems)
{
    const auto [known, fresh] = m_openings.try_emplace(sPath);
    if (fresh)
        known->second = tryToOpen(sPath);
    const auto& [opens, sReason] = known->second;
    if (!sReason.empty())
        problems.push_back(problemOf("file-closed", sPath, {sReason}));
    return {nameOf(layer), sPath, opens, 0, false};
}

}  // namespace tabscheck
