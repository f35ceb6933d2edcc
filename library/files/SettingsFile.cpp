#include "library/files/SettingsFile.h"

#include "library/files/FileUtilities_TextFiles.h"
#include "library/files/PathParts.h"
#include "library/files/SettingsFileReader.h"

#include <utility>

namespace Tesk {

namespace {

CBorderEntry g_currentBorder;
CBlockGroup g_currentTitleBlock;

}  // namespace

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

    CSettingsFileReader reader(*this, PathParts(sPath).parent());
    for (const CString& sLine : vecLines)
        reader.readLine(sLine.str());
    m_bValid = true;
}

const CBorderEntry& getCurrentBorder() { return g_currentBorder; }

const CBlockGroup& getCurrentTitleBlock() { return g_currentTitleBlock; }

void setCurrentTitleBlock(const CBlockGroup& group, const CBorderEntry& border)
{
    g_currentTitleBlock = group;
    g_currentBorder = border;
}

void clearCurrentTitleBlock() { setCurrentTitleBlock(CBlockGroup(), CBorderEntry()); }

}  // namespace Tesk
