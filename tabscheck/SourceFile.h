#pragma once

// A settings file as the product reads it, with what its encoding does to it.

#include "library/files/ProjectEntries.h"
#include "library/files/SettingsEntries.h"
#include "tabscheck/Report.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tabscheck {

// The texts' reader knows UTF-16 with its mark, that of the project settings only the code
// page.
enum class Form { Texts, Project };

class SourceFile {
public:
    // Without entries, and with a problem, when it cannot be read.
    SourceFile(const std::string& sPath, Form form);

    const std::string& path() const { return m_path; }
    // The lines of either form.
    const std::vector<Tesk::CSettingsEntry>& texts() const { return m_texts; }
    const std::vector<Tesk::CProjectEntry>& project() const { return m_project; }
    // The mark of an encoding that is not read stands before its first word.
    bool marked() const { return m_marked; }
    // The strip can use this copy of the texts.
    bool sound() const;
    // Of the file as a whole: not readable, an encoding that is not read, zero bytes.
    const std::vector<Problem>& problems() const { return m_problems; }

    // A problem of one of its entries, at a place in its line.
    template <class Entry>
    Problem problem(bool error, const Entry& entry, std::string_view sAt, std::string sText) const
    {
        const auto column = sAt.data() == nullptr ? 0 : sAt.data() - entry.m_sLine.data();
        return problemAt(error, entry.m_uLine, static_cast<std::size_t>(column), std::move(sText), entry.m_sLine);
    }

private:
    Problem problemAt(bool error, unsigned line, std::size_t position, std::string sText, std::string_view sLine) const;
    void checkMark(Form form);
    void checkLines();
    void checkWideLines();

    std::string m_path;
    std::unique_ptr<Tesk::CTextFileContents> m_contents;
    std::vector<Tesk::CSettingsEntry> m_texts;
    std::vector<Tesk::CProjectEntry> m_project;
    std::vector<Problem> m_problems;
    bool m_marked = false;
};

// Each file is read once.
class SourceFiles {
public:
    const SourceFile& get(const std::string& sPath, Form form);

private:
    std::map<std::pair<std::string, Form>, SourceFile> m_files;
};

// Whether the strip finds a settings file; a problem when it is there but closed.
Place placeOf(Layer layer, const std::string& sPath, std::vector<Problem>& problems);

}  // namespace tabscheck
