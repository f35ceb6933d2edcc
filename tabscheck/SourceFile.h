#pragma once

// A settings file as the product reads it, with what its encoding and its lines do to it.

#include "library/files/ProjectEntries.h"
#include "library/files/SettingsEntries.h"
#include "library/text/CaseFold.h"
#include "tabscheck/Folders.h"
#include "tabscheck/Report.h"

#include <map>
#include <memory>
#include <set>
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
    const Tesk::CProjectEntry& entryOf(unsigned line) const;
    // The strip can use this copy of the texts.
    bool sound() const { return m_sound; }
    // What is wrong with a line is known: it is not read as what it was meant as.
    bool explained(unsigned line) const { return m_garbled || m_explained.count(line) != 0; }
    // A line above the problem's accepts its rule by the name.
    bool accepts(const Problem& problem) const;
    // Of its encoding and its lines.
    const std::vector<Problem>& problems() const { return m_problems; }

    // A problem of one of its entries, at a place in its line.
    template <class Entry>
    Problem problem(RuleName name, const Entry& entry, std::string_view sAt,
                    std::initializer_list<std::string_view> parts = {}) const
    {
        const auto column = sAt.data() == nullptr ? 0 : sAt.data() - entry.m_sLine.data();
        return problemAt(name, entry.m_uLine, static_cast<std::size_t>(column), entry.m_sLine, parts);
    }

private:
    Problem problemAt(RuleName name, unsigned line, std::size_t position, std::string_view sLine,
                      std::initializer_list<std::string_view> parts) const;
    void read(Form form);
    void checkMark(Form form);
    void checkLines();
    void checkLine(unsigned line, std::string_view sLine);
    void checkWideLines();

    std::string m_path;
    std::unique_ptr<Tesk::CTextFileContents> m_contents;
    std::vector<Tesk::CSettingsEntry> m_texts;
    std::vector<Tesk::CProjectEntry> m_project;
    std::vector<Problem> m_problems;
    std::set<const Rule*> m_told;  // of lines: each once a file
    std::set<unsigned> m_explained;
    std::map<unsigned, std::string> m_accepted;  // names
    bool m_garbled = false;                      // none of its lines is what was written
    bool m_sound = false;
};

// Each file is read once: a name is of one form alone.
class SourceFiles {
public:
    const SourceFile& get(const std::string& sPath, Form form);
    bool knows(const std::string& sPath) const { return m_files.count(sPath) != 0; }
    // Whether the strip finds it; a problem when it is there but closed.
    Place placeOf(Layer layer, const std::string& sPath, std::vector<Problem>& problems);
    // Those that a line of their file accepts.
    void removeAccepted(std::vector<Problem>& problems) const;

private:
    std::map<std::string, SourceFile, Tesk::CLessNoCase> m_files;
    std::map<std::string, Opening> m_openings;
};

}  // namespace tabscheck
