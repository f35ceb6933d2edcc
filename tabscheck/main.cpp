// tabscheck [--root FOLDER] [--release R] [--product P] [--problems | --json] [--strict]
// PATH...: which file said so. It shows for each drawing where the strip's texts come from, and what is
// wrong where. It never writes.

#include "library/diagnostics/ExceptionBase.h"
#include "library/diagnostics/Maintenance.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/maintenance/ApplicationID.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Console.h"
#include "tabscheck/DrawingCheck.h"
#include "tabscheck/Folders.h"
#include "tabscheck/JsonReport.h"
#include "tabscheck/NoHost.h"
#include "tabscheck/TextReport.h"

#include <windows.h>

#include <exception>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

// File names are taken as they are, with no wildcards. (The C runtime's own name.)
extern "C" int _CRT_glob;
int _CRT_glob = 0;

namespace tabscheck {

namespace {

constexpr const char* kUsage = "Shows which file gives the document tabs their texts, and what is wrong where.\r\n"
                               "\r\n"
                               "  tabscheck [--root FOLDER] [--release R] [--product P]\r\n"
                               "            [--problems | --json] [--strict] PATH...\r\n"
                               "\r\n"
                               "PATH      a drawing, which need not exist, or a folder: all drawings below it;\r\n"
                               "          * and ? in its name stand for all that fit. Or a settings file\r\n"
                               "--root    the application root, where that is not this program's folder\r\n"
                               "--release, --product\r\n"
                               "          the host that is asked for, as in MDITabs16.0.ini and\r\n"
                               "          MDITabsAutoCAD_16.0.ini (16.0 and AutoCAD)\r\n"
                               "--problems\r\n"
                               "          problems alone, each once, with the number of drawings that have it\r\n"
                               "--json    for programs, in UTF-8\r\n"
                               "--strict  warnings count as problems\r\n"
                               "\r\n"
                               "Exit code: 0 no problems, 1 problems, 2 something could not be checked.\r\n";

enum ExitCode { kClean = 0, kProblems = 1, kUnchecked = 2 };

constexpr const char* kModule = "ZavikMDITabs";

struct Arguments {
    std::string root;
    std::string release = "16.0";
    std::string product = "AutoCAD";
    bool json = false;
    bool problems = false;
    bool strict = false;
    bool help = false;
    std::vector<std::string> paths;
    std::string error;
};

Arguments parse(int count, char** words)
{
    Arguments arguments;
    const std::map<std::string, bool*> flags = {{"/?", &arguments.help},
                                                {"--help", &arguments.help},
                                                {"--json", &arguments.json},
                                                {"--problems", &arguments.problems},
                                                {"--strict", &arguments.strict}};
    const std::map<std::string, std::string*> values = {
        {"--root", &arguments.root}, {"--release", &arguments.release}, {"--product", &arguments.product}};
    bool options = true;
    for (int i = 1; i < count; ++i) {
        const std::string sWord = words[i];
        const auto flag = flags.find(sWord);
        const auto value = values.find(sWord);
        if (options && flag != flags.end())
            *flag->second = true;
        else if (!options || sWord.substr(0, 2) != "--")
            arguments.paths.push_back(sWord);
        else if (sWord == "--")
            options = false;
        else if (value != values.end() && i + 1 < count)
            *value->second = words[++i];
        else
            arguments.error = "\"" + sWord + "\" is unknown or lacks its value";
    }
    if (arguments.paths.empty() && arguments.error.empty())
        arguments.error = "which drawing or folder?";
    if (arguments.json && arguments.problems)
        arguments.error = "--json has the problems in it: without --problems";
    return arguments;
}

// The module's file as the library's rules want it: below "Components" where an
// installation has that folder. Empty when there is no such root.
std::string moduleFile(const std::string& sRoot)
{
    if (sRoot.empty()) {
        char sProgram[MAX_PATH * 4] = "";
        ::GetModuleFileNameA(nullptr, sProgram, sizeof sProgram);
        return Tesk::CPathParts(sProgram).parent() + kModule + ".arx";
    }
    const std::string sFolder = existingFolder(sRoot);
    const std::string sComponents = sFolder + "Components\\" + kModule + ".arx";
    if (sFolder.empty())
        return {};
    return Tesk::fileExists(sComponents.c_str()) ? sComponents : sFolder + kModule + ".arx";
}

class Program {
public:
    explicit Program(const Arguments& arguments) : m_arguments(arguments)
    {
        if (m_arguments.json)
            m_reports = std::make_unique<JsonReport>(m_console);
        else
            m_reports = std::make_unique<TextReport>(m_console, m_arguments.problems);
    }

    ExitCode run()
    {
        DrawingFinder finder([this](const std::string& sDrawing) { check(sDrawing); },
                             [this](const std::string& sPath, const std::string& sReason, bool unreadable) {
                                 m_console.progress("");
                                 tell(sPath, sReason, unreadable);
                             });
        for (const std::string& sPath : m_arguments.paths)
            finder.add(sPath);
        m_console.progress("");
        m_reports->finish();
        m_console.flush();
        if (m_unchecked || m_console.failed())
            return kUnchecked;
        return m_problems ? kProblems : kClean;
    }

private:
    // One that two paths of the command line lead to counts once.
    void check(const std::string& sDrawing)
    {
        if (!m_checked.insert(Tesk::MultiByte::upper(sDrawing)).second)
            return;
        m_console.progress(std::to_string(m_checked.size()) + "  " + sDrawing.substr(0, 70));
        try {
            DrawingReport report = m_check.check(sDrawing);
            m_unchecked |= report.unreadable;
            for (const Problem& problem : report.problems) {
                m_problems |= problem.error || m_arguments.strict;
                m_unchecked |= problem.unchecked;
            }
            m_reports->add(std::move(report));
        } catch (CException* pException) {
            tell(sDrawing, Tesk::takeExceptionText(pException).GetString(), true);
        } catch (const std::exception& exception) {
            tell(sDrawing, exception.what(), true);
        }
    }

    void tell(const std::string& sPath, const std::string& sReason, bool unchecked)
    {
        m_unchecked |= unchecked;
        if (unchecked)
            m_reports->addUnchecked(sPath, sReason);
        m_console.complain("tabscheck: " + sPath + ": " + sReason);
    }

    const Arguments& m_arguments;
    Console m_console;
    DrawingCheck m_check;
    std::unique_ptr<Reports> m_reports;
    std::set<std::string> m_checked;
    bool m_problems = false;
    bool m_unchecked = false;
};

ExitCode run(const Arguments& arguments)
{
    const std::string sModuleFile = moduleFile(arguments.root);
    if (arguments.help) {
        Console().print(kUsage);
        return kClean;
    }
    if (!arguments.error.empty() || sModuleFile.empty()) {
        Console().complain("tabscheck: " + (arguments.error.empty() ? arguments.root + ": no such folder"
                                                                    : arguments.error + "\r\n\r\n" + kUsage));
        return kUnchecked;
    }
    Tesk::lookOnlyAs(sModuleFile.c_str());
    Tesk::G_sApplicationName = kModule;
    Tesk::G_pApplicationID = std::make_unique<Tesk::CApplicationID>(sModuleFile.c_str());
    describeHost(arguments.release, arguments.product);
    return Program(arguments).run();
}

}  // namespace

}  // namespace tabscheck

int main(int count, char** words)
{
    // A share or a drive that is gone is told, not asked for in a box.
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    return tabscheck::run(tabscheck::parse(count, words));
}
