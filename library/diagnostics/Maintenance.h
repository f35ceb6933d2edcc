#pragma once

// Start-up and shutdown of the support library, and its globals. The bodies stand in
// maintenance/, with all that starts and stops there.

#include "mfc/afx.h"

#include <windows.h>

#include <memory>

namespace Tesk {

class CApplicationID;
class CMiniDumper;

// True from initialiseLibrary to terminateLibrary.
extern bool G_bLibraryInitialised;

// The name of the application that uses the library; the prefix of trace lines.
extern CString G_sApplicationName;

// The module that the library is linked into.
extern HINSTANCE G_hCurrentModule;

// The installation's product name and version; set while initialised.
extern std::unique_ptr<CApplicationID> G_pApplicationID;

// Set only when initialiseLibrary was asked for it.
extern std::unique_ptr<CMiniDumper> G_pMiniDumper;

// Sets the globals, reads the module's version block and chooses the
// diagnostics level: 2 for a pre-release build or when the user's value
// "DebugStartup" is true (the old log is deleted), then 1 when "AssertStartup"
// is true. Must not be initialised already; the name must not be empty.
void initialiseLibrary(const char* sApplicationName, HINSTANCE hModule, bool bCreateMiniDumper);

// Gives back what initialiseLibrary took. The diagnostics level stays as it is.
void terminateLibrary();

// The handle given to initialiseLibrary. The library must be initialised.
HINSTANCE getCurrentModule();

// The installation's name, else the one given to initialiseLibrary.
CString getApplicationName();

// The installation's label ("name version"), or empty when there is no valid
// description of the installation. The library must be initialised.
CString getApplicationVersionLabel();

}  // namespace Tesk
