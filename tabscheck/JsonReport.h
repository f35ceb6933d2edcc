#pragma once

// The reports for a program to read: one object in UTF-8, a drawing after the other.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <string>
#include <vector>

namespace tabscheck {

class JsonReport : public Reports {
public:
    JsonReport(Console& console, const Asked& asked);

    void add(DrawingReport report) override;
    void addFile(const std::string& sPath, const std::vector<Problem>& problems) override;
    void addUnchecked(const std::string& sPath, const std::string& sReason) override;
    void finish() override;

private:
    struct File {
        std::string path;
        std::vector<Problem> problems;
        BOOST_DESCRIBE_CLASS(File, (), (path, problems), (), ())
    };
    struct Unchecked {
        std::string path, reason;
        BOOST_DESCRIBE_CLASS(Unchecked, (), (path, reason), (), ())
    };

    Console& m_console;
    bool m_first = true;
    std::vector<File> m_files;
    std::vector<Unchecked> m_unchecked;
};

}  // namespace tabscheck
