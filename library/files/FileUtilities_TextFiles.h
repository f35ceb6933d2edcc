#pragma once

// Text files to lists of lines and back.
//
// A line has no terminator; a last line without a line feed counts unless it is
// empty. The readers append and never clear the list. Text mode as the C
// runtime has it: CR LF is one line end, a lone CR stays, Ctrl-Z ends the text.

#include "mfc/afx.h"

#include <cstdio>
#include <string>
#include <vector>

namespace Tesk {

// The file starts with the UTF-16 little-endian byte-order mark. The first form
// raises CFileException when the file cannot be opened; the second leaves the
// read position where it was.
bool isUnicodeTextFile(const char* sFileName);
bool isUnicodeTextFile(FILE* pFile);

// UTF-16 with a byte-order mark, which is no part of the first line, else the
// thread's ANSI code page. Raises CFileException and appends nothing then.
void readTextFileLines(const char* sFileName, std::vector<std::wstring>& vLines);

// Bytes as they are, without detection or conversion. Raises CFileException.
void readAnsiTextFileLines(const char* sFileName, std::vector<CString>& vLines);

// Creates or empties the file, or appends to it; each line ends in CR LF.
// Raises CFileException; lines written before stay in the file.
void writeTextFileLines(const char* sFileName, const std::vector<CString>& vLines, bool bAppend);

}  // namespace Tesk
