// tabscheck [OPTION...] PATH...: which file said so. It shows for each drawing where the
// strip's texts come from, and what is wrong where. It never writes.

#include "library/diagnostics/ExceptionBase.h"
#include "library/diagnostics/LibraryState.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/maintenance/Maintenance.h"
#include "library/text/MultiByte.h"
#include "settings/TextKeys.h"
#include "tabscheck/Arguments.h"
#include "tabscheck/Console.h"
#include "tabscheck/DrawingCheck.h"
#include "tabscheck/Folders.h"
#include "tabscheck/NoHost.h"
#include "version.h"

#include <windows.h>

#include <algorithm>
#include <exception>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

// File names are taken as they are, with no wildcards. (The C runtime's own name.)
extern "C" int _CRT_glob;
int _CRT_glob = 0;

namespace tabscheck {

namespace {

enum ExitCode { kClean = 0, kProblems = 1, kUnchecked = 2 };

constexpr const char* kModule = "ZavikMDITabs";

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

bool isSettingsFile(const std::string& sPath)
{
    const std::string sExtension = Tesk::CPathParts(sPath).m_sExtension;
    return Tesk::MultiByte::equalNoCase(sExtension, ".ini") || Tesk::MultiByte::equalNoCase(sExtension, ".txt");
}

class Program {
public:
    explicit Program(const Arguments& arguments) : m_arguments(arguments)
    {
        Asked asked = arguments.asked;
        asked.root = Tesk::getLocation(Tesk::LOCATION_DIR_APPLICATION_ROOT).GetString();
        for (std::string& sPath : asked.paths)
            sPath = Tesk::fullPath(sPath);
        m_reports = arguments.json ? makeJsonReport(m_console, asked)
                                   : makeTextReport(m_console, arguments.show, arguments.key);
    }

    ExitCode run()
    {
        for (const std::string& sPath : m_arguments.asked.paths)
            checkPath(sPath);
        std::map<std::string, std::vector<Problem>> byFile;
        for (const Problem& problem : m_check.finish(m_folders))
            byFile[problem.file].push_back(problem);
        for (const auto& [sFile, problems] : byFile)
            m_files.push_back({sFile, accept(problems)});
        m_reports->finish(m_files, m_unchecked);
        m_console.flush();
        return !m_unchecked.empty() ? kUnchecked : m_problems ? kProblems : kClean;
    }

private:
    void checkPath(const std::string& sPath)
    {
        const std::size_t before = m_checked.size() + m_unchecked.size();
        DrawingFinder finder(
            [this](const std::string& sFile) { check(sFile); },
            [this](const auto& sFolder, const auto& entries) { m_check.strays().see(sFolder, entries); },
            [this](const auto& sWhat, const auto& sReason) { tell(sWhat, sReason); });
        const std::string sFolder = existingFolder(sPath);
        if (!sFolder.empty())
            m_folders.push_back(sFolder);
        finder.add(sPath);
        if (sFolder.empty() || m_checked.size() + m_unchecked.size() != before)
            return;
        // Without drawings, what they would be shown by.
        const std::vector<std::string> files = m_check.strays().below(sFolder);
        for (const std::string& sFile : files)
            check(sFile);
        if (files.empty())
            tell(sFolder, "there is neither a drawing nor a settings file below it");
    }

    // One that two paths of the command line lead to counts once.
    void check(const std::string& sPath)
    {
        if (!m_checked.insert(Tesk::MultiByte::upper(sPath)).second)
            return;
        try {
            if (isSettingsFile(sPath))
                return m_files.push_back({sPath, accept(m_check.checkFile(sPath))});
            DrawingReport report = m_check.check(sPath);
            report.problems = accept(std::move(report.problems));
            m_reports->add(std::move(report));
        } catch (CException* pException) {
            tell(sPath, Tesk::takeExceptionText(pException).GetString());
        } catch (const std::exception& exception) {
            tell(sPath, exception.what());
        }
    }

    // Those that the command line does not accept; they count.
    std::vector<Problem> accept(std::vector<Problem> problems)
    {
        std::erase_if(problems, [this](const Problem& problem) { return m_arguments.accepts(problem); });
        for (const Problem& problem : problems) {
            m_problems |= problem.error() || m_arguments.strict;
            const Unchecked unchecked = {problem.file, problem.text};
            if (problem.unchecked() &&
                std::find(m_unchecked.begin(), m_unchecked.end(), unchecked) == m_unchecked.end())
                m_unchecked.push_back(unchecked);
        }
        return problems;
    }

    void tell(const std::string& sPath, const std::string& sReason)
    {
        m_unchecked.push_back({sPath, sReason});
        m_console.complain("tabscheck: " + sPath + ": " + sReason);
    }

    const Arguments& m_arguments;
    Console m_console;
    DrawingCheck m_check;
    std::unique_ptr<Reports> m_reports;
    std::vector<std::string> m_folders;  // that were named
    std::set<std::string> m_checked;
    std::vector<FileReport> m_files;
    std::vector<Unchecked> m_unchecked;
    bool m_problems = false;
};

ExitCode run(const Arguments& arguments)
{
    if (arguments.help || arguments.version) {
        Console().print(arguments.help ? usage() : std::string("tabscheck ") + VERSION_TEXT + "\r\n");
        return kClean;
    }
    const std::string& sRoot = arguments.asked.root;
    const std::string sModuleFile = moduleFile(sRoot);
    if (sModuleFile.empty())
        throw std::invalid_argument(sRoot + ": no such folder");
    const std::string sUp = Tesk::CPathParts(Tesk::withoutBackslash(existingFolder(sRoot))).parent();
    if (!sUp.empty() && Tesk::fileExists((sRoot + "\\" + kSettingsFile).c_str()) &&
        Tesk::fileExists((sUp + "support\\" + kSettingsFile).c_str()))
        throw std::invalid_argument(sRoot + ": the application root is one level up: " + sUp);
    Tesk::lookOnlyAs(sModuleFile.c_str());
    Tesk::G_sApplicationName = kModule;
    Tesk::G_pApplicationID = Tesk::readApplicationID(sModuleFile.c_str());
    describeHost(arguments.asked.release, arguments.asked.product);
    return Program(arguments).run();
}

}  // namespace

}  // namespace tabscheck

int main(int count, char** words)
{
    // A share or a drive that is gone is told, not asked for in a box.
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    try {
        return tabscheck::run(tabscheck::parse(count, words));
    } catch (const std::invalid_argument& exception) {
        tabscheck::Console().complain(std::string("tabscheck: ") + exception.what());
        return tabscheck::kUnchecked;
    }
}
