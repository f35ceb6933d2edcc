#pragma once

// The programs beside this one that write down what they are asked for.

#include "tests/library/Environment.h"
#include "tests/support/TestFolder.h"

#include <algorithm>
#include <string>

inline std::string besideThisProgram(const char* sFile)
{
    char sProgram[MAX_PATH];
    ::GetModuleFileNameA(nullptr, sProgram, sizeof sProgram);
    std::string sPath(sProgram);
    return sPath.replace(sPath.find_last_of('\\') + 1, std::string::npos, sFile);
}

// What the recorder of commands is started with.
class CCommands {
public:
    // The first command lines, once there are so many.
    std::string first(int iCount) const
    {
        std::string sAll;
        for (int i = 0; i < 500 && std::count(sAll.begin(), sAll.end(), '\n') < iCount; ++i) {
            ::Sleep(20);
            sAll = CTestFolder::read(m_folder.path("commands.txt"));
        }
        return sAll;
    }

private:
    CTestFolder m_folder;
    CEnvironment m_record{"COMMAND_RECORD", m_folder.path("commands.txt").c_str()};
};
