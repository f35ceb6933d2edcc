// tabscheck over a thousand drawings in two hundred folders, its start excepted, against
// reading the same files once; and over as many binary drawings, against the same as DXF. Runs
// in the repository, whose samples it copies.
#include "bench/Measure.h"
#include "dwg/BinaryDrawing.h"
#include "library/system/Handles.h"
#include "tests/support/TestFolder.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

constexpr int FOLDERS = 200;
constexpr int DRAWINGS = 5;

namespace fs = std::filesystem;

// An installation and a project of one drawing's copies; half of its folders have texts of their own.
void furnish(const fs::path& root, const std::string& sDrawing)
{
    const auto all = fs::copy_options::recursive;
    const fs::path samples = "samples", project = samples / "Projects/Riverside";
    fs::create_directories(root / "install/ZavikMDITabs");
    fs::create_directory(root / "Riverside");
    fs::copy("support", root / "install/ZavikMDITabs/support", all);
    fs::copy(samples / "DomainSettings", root / "install/DomainSettings", all);
    fs::copy(project / "Settings", root / "Riverside/Settings", all);
    fs::copy(project / "ProjectSettings.txt", root / "Riverside");
    for (int i = 0; i < FOLDERS; ++i) {
        const fs::path folder = root / "Riverside" / ("Drawings " + std::to_string(i));
        fs::create_directory(folder);
        if (i % 2 != 0)
            fs::copy(samples / "Projects/Station/Drawings/Details/MDITabs.ini", folder);
        for (int j = 0; j < DRAWINGS; ++j)
            std::ofstream(folder / ("A-" + std::to_string(100 + j) + ".dwg"), std::ios::binary) << sDrawing;
    }
}

UniqueHandle open(const std::string& sFile, DWORD access)
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    return UniqueHandle(::CreateFileA(sFile.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                      OPEN_EXISTING, 0, nullptr));
}

std::string besideProgram(const char* sName)
{
    char sProgram[MAX_PATH];
    ::GetModuleFileNameA(nullptr, sProgram, sizeof sProgram);
    const std::string sPath = sProgram;
    return sPath.substr(0, sPath.rfind('\\') + 1) + sName;
}

double run(const std::string& sArguments)
{
    std::string sCommand = "\"" + besideProgram("tabscheck.exe") + "\" " + sArguments;
    const UniqueHandle nowhere = open("NUL", GENERIC_WRITE);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = nowhere.get();
    PROCESS_INFORMATION process = {};
    const Clock clock;
    DWORD code = 2;
    if (::CreateProcessA(nullptr, sCommand.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process)) {
        const UniqueHandle running(process.hProcess), thread(process.hThread);
        ::WaitForSingleObject(running.get(), INFINITE);
        ::GetExitCodeProcess(running.get(), &code);
    }
    if (code > 1) {
        std::printf("does not run: %s\n", sCommand.c_str());
        std::exit(1);
    }
    return clock.elapsed();
}

// The checker's own time, without its start.
double check(const CTestFolder& folder)
{
    return run("--root \"" + folder.path("install\\ZavikMDITabs") + "\" \"" + folder.path("Riverside") + "\"") -
           run("--help");
}

double readAll(const fs::path& root)
{
    const Clock clock;
    char buffer[65536];
    DWORD count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file()) {
            const UniqueHandle file = open(entry.path().string(), GENERIC_READ);
            while (::ReadFile(file.get(), buffer, sizeof buffer, &count, nullptr) && count != 0) {
            }
        }
    return clock.elapsed();
}

}  // namespace

int main()
{
    const CTestFolder folder, binaries, texts;
    furnish(folder.path(), CTestFolder::read(std::string("samples/Projects/Riverside/Drawings/A-101.dwg")));
    compare(
        "tabscheck, 1,000 drawings in 200 folders", 5, [&] { return check(folder); },
        [&] { return readAll(folder.path()); });
    const std::string sBinary = CTestFolder::read(besideProgram("drawings\\large"));
    furnish(binaries.path(), sBinary);
    furnish(texts.path(), dwg::toText(sBinary));
    compare(
        "tabscheck, 1,000 binary drawings of 60 KB, against DXF", 1, [&] { return check(binaries); },
        [&] { return check(texts); });
}
