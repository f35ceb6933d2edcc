#pragma once

// The texts and values that ask for what is not there without them.

#include "mfc/afx.h"

// The drawing's text of that key; empty when no file defines it. Where the table of keys
// says so without the quotes and apostrophes at its ends.
CString getOptInText(const char* sFilename, const char* sKey);

// The user's value in the registry is on. It is none of the dialog's options.
bool isSwitchedOn(const char* sValue);
