#pragma once

// Command-line output and the host's memory.

#include "objectarx/acadstrc.h"
#include "objectarx/adesk.h"

#include <cstddef>

// Prints to the command-line history, printf style; at most 132 characters a call.
ADESK_API int acutPrintf(const char* sFormat, ...) __attribute__((format(gnu_printf, 1, 2)));

// Strings and buffers that cross the boundary are allocated and freed by these.
ADESK_API Acad::ErrorStatus acutNewString(const char* sInput, char*& pOutput);
ADESK_API void acutDelString(char*& pString);
ADESK_API Acad::ErrorStatus acutNewBuffer(char*& pOutput, std::size_t nBytes);
ADESK_API void acutDelBuffer(char*& pBuffer);
