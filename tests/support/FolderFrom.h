#pragma once

// Folders of drawings that a test run is told about.

#include <windows.h>

#include <cstdlib>
#include <string>

// A folder named by the environment, empty when it is not there.
inline std::string folderFrom(const char* sVariable)
{
    const char* sValue = std::getenv(sVariable);
    std::string sFolder = sValue == nullptr ? "" : sValue;
    if (sFolder.starts_with('/'))
        sFolder = "Z:" + sFolder;
    for (char& c : sFolder)
        if (c == '/')
            c = '\\';
    const DWORD attributes = GetFileAttributesA(sFolder.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) ? sFolder : "";
}
