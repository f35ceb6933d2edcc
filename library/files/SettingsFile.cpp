#include "library/files/SettingsFile.h"

#include "library/files/FileUtilities_TextFiles.h"
#include "library/files/PathParts.h"
#include "library/files/SettingsFileReader.h"
#include "library/text/StringView.h"

namespace Tesk {

CSettingsFile::CSettingsFile(const char* sPath)
{
    try {
        read(sPath);
    } catch (CFileException* e) {
        e->Delete();
    }
}

void CSettingsFile::read(const char* sPath)
{
    *this = CSettingsFile();
    std::vector<CString> vecLines;
    readAnsiTextFileLines(sPath, vecLines);

    CSettingsFileReader reader(*this, CPathParts(sPath).parent());
    for (const CString& sLine : vecLines)
        reader.readLine(viewOf(sLine));
    m_bValid = true;
}

}  // namespace Tesk
