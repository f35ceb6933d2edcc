#pragma once

namespace host {

// From now on an access violation or the like, wherever it happens, is printed to the
// standard error with its place, and ends the program: a window procedure's would else be
// swallowed by the system. sDuring, when given, says what the program was at; it may
// give null.
void reportCrashes(const char* (*sDuring)() = nullptr);

}  // namespace host
