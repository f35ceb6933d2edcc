#pragma once

// Basic types of the host API, and the mark on what the host exports.

#include <windows.h>

#ifdef ADESK_HOST
#define ADESK_API __declspec(dllexport)
#else
#define ADESK_API
#endif

struct Adesk {
    using Boolean = int;
    using Int16 = short;
    using Int32 = int;
    using UInt32 = unsigned int;
    static constexpr Boolean kFalse = 0;
    static constexpr Boolean kTrue = 1;
};
