#pragma once

// Start-up and shutdown of the support library.

#include "library/diagnostics/ApplicationID.h"

#include <windows.h>

#include <memory>

namespace Tesk {

class CMiniDumper;

// Set only when initialiseLibrary was asked for it.
extern std::unique_ptr<CMiniDumper> G_pMiniDumper;

// Sets the globals, reads the module's version block and chooses the
// diagnostics level: 2 for a pre-release build or when the user's value
// "DebugStartup" is true (the old log is deleted), then 1 when "AssertStartup"
// is true. Must not be initialised already; the name must not be empty.
void initialiseLibrary(const char* sApplicationName, HINSTANCE hModule, bool bCreateMiniDumper);

// Gives back what initialiseLibrary took. The diagnostics level stays as it is.
void terminateLibrary();

// What the description file (".avf") beside the module and of the module's name says. The
// module need not exist; a missing or unreadable file is no error: nothing is valid then.
std::unique_ptr<CApplicationID> readApplicationID(const char* sModuleFile);

}  // namespace Tesk
