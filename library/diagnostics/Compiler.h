#pragma once

// All that is not standard C++: what this compiler and its runtime want to be told, and
// the call stack. Everything else in the product compiles without extensions.

#include <stdio.h>  // what the runtime calls its formats

namespace Tesk {

// The return addresses of the calling thread, the innermost first; says how many.
unsigned captureFrames(const void** pFrames, unsigned uMost);

}  // namespace Tesk

// Behind a declaration: argument number `format` is a printf format, and those from
// `first` on have to fit it.
#ifdef __GNUC__
#define TESK_PRINTF(format_, first) __attribute__((format(__MINGW_PRINTF_FORMAT, format_, first)))
#else
#define TESK_PRINTF(format_, first)
#endif
