#pragma once

// Strings, exceptions and geometry; nothing that needs a window.
#include "mfc/CException.h"
#include "mfc/CString.h"
#include "mfc/Geometry.h"
