#pragma once

// The reports for a person to read: each project's block once, with those drawings together
// that see the same, and each problem once; or a part of that.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tabscheck {

enum class Show { All, Problems, Overrides, Key };

class TextReport : public Reports {
public:
    // The key is that of Show::Key.
    TextReport(Console& console, Show show, std::string sKey) : m_console(console), m_show(show), m_key(std::move(sKey))
    {
    }

    void add(DrawingReport report) override;
    void finish(const std::vector<FileReport>& files, const std::vector<Unchecked>& unchecked) override;

private:
    // Drawings by whose first the others are shown.
    struct Row {
        DrawingReport first;
        std::vector<std::string> drawings;
    };
    // Those with the same texts.
    struct Group {
        std::vector<Place> searched;
        std::vector<Text> texts;
        std::vector<Row> rows;
        std::vector<std::string> drawings;
    };
    struct Block {
        std::string root;
        std::vector<DomainFolder> domain;
        std::deque<Group> groups;
    };

    Group& groupOf(const DrawingReport& report);
    void print(const std::string& sLine) const { m_console.print(sLine + "\r\n"); }
    void printPlace(std::string_view sLayer, const std::string& sState, const std::string& sPath) const;
    void printSearched(const Block& block) const;
    void printText(const Text& text, const std::string& sWhom) const;
    void printGroup(const Group& group, const Group& first) const;
    void printProject(const Project& project) const;
    void printTooltip(const Row& row) const;
    void printProblem(const Problem& problem, const std::vector<std::string>& drawings) const;

    Console& m_console;
    const Show m_show;
    const std::string m_key;
    std::deque<Block> m_blocks;
    std::map<std::string, Group*> m_byFolder;
    std::map<Problem, std::vector<std::string>> m_problems;  // with the drawings that have it
    std::size_t m_count = 0;
};

}  // namespace tabscheck
