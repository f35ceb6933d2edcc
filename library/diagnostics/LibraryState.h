#pragma once

// What the support library knows of the application and the module that it works for, from
// its start to its end.

#include "library/diagnostics/ApplicationID.h"

#include <windows.h>

#include <memory>

namespace Tesk {

// True from initialiseLibrary to terminateLibrary.
extern bool G_bLibraryInitialised;

// The name of the application that uses the library; the prefix of trace lines.
extern CString G_sApplicationName;

// The module that the library is linked into.
extern HINSTANCE G_hCurrentModule;

// The installation's product name and version; set while initialised.
extern std::unique_ptr<CApplicationID> G_pApplicationID;

// The handle given to initialiseLibrary. The library must be initialised.
HINSTANCE getCurrentModule();

// The installation's name, else the one given to initialiseLibrary.
CString getApplicationName();

// The installation's label ("name version"), or empty when there is no valid
// description of the installation. The library must be initialised.
CString getApplicationVersionLabel();

}  // namespace Tesk
