#pragma once

namespace host {

// From now on an access violation or the like, wherever it happens, is printed to the
// standard error with its place, and ends the program: a window procedure's would else be
// swallowed by the system.
void reportCrashes();

}  // namespace host
