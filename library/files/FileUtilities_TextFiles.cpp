#include "library/files/FileUtilities_TextFiles.h"

#include "library/diagnostics/Prerelease.h"
#include "library/files/TextFileContents.h"
#include "library/text/CodePage.h"
#include "library/text/StringView.h"

#include <cerrno>
#include <share.h>

namespace Tesk {

bool isUnicodeTextFile(FILE* pFile)
{
    TESK_ASSERT(pFile != NULL);
    if (!pFile)
        return false;
    const long lPosition = std::ftell(pFile);
    unsigned char mark[2] = {};
    std::rewind(pFile);
    const bool bRead = std::fread(mark, 1, sizeof mark, pFile) == sizeof mark;
    std::clearerr(pFile);
    std::fseek(pFile, lPosition, SEEK_SET);
    return bRead && mark[0] == 0xFF && mark[1] == 0xFE;
}

bool isUnicodeTextFile(const char* sFileName)
{
    FILE* pFile = ::_fsopen(sFileName, "rb", _SH_DENYNO);
    if (!pFile)
        CFileException::ThrowErrno(errno, sFileName);
    const bool bUnicode = isUnicodeTextFile(pFile);
    TESK_VERIFY(::fclose(pFile) == 0);
    return bUnicode;
}

void readTextFileLines(const char* sFileName, std::vector<std::wstring>& vLines)
{
    CTextFileContents contents(sFileName, true);
    std::wstring_view sWide;
    std::string_view sNarrow;
    if (contents.isUnicode())
        while (contents.nextWide(sWide))
            vLines.emplace_back(sWide);
    else
        while (contents.nextNarrow(sNarrow))
            vLines.push_back(toWide(sNarrow));
}

void readAnsiTextFileLines(const char* sFileName, std::vector<CString>& vLines)
{
    CTextFileContents contents(sFileName, false);
    std::string_view sLine;
    while (contents.nextNarrow(sLine))
        vLines.push_back(toCString(sLine));
}

void writeTextFileLines(const char* sFileName, const std::vector<CString>& vLines, bool bAppend)
{
    FILE* pOutput = std::fopen(sFileName, bAppend ? "a+t" : "wt");
    if (!pOutput)
        CFileException::ThrowErrno(errno, sFileName);
    for (const CString& sLine : vLines) {
        // fputs and not fprintf: the latter, in this runtime, does not say when a write fails
        if (std::fputs(sLine, pOutput) >= 0 && std::fputc('\n', pOutput) != EOF)
            continue;
        const int iError = errno;
        TESK_VERIFY(::fclose(pOutput) == 0);
        CFileException::ThrowErrno(iError, sFileName);
    }
    if (std::fclose(pOutput) != 0)
        CFileException::ThrowErrno(errno, sFileName);
}

}  // namespace Tesk
