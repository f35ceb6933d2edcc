#pragma once

#include "library/system/Handles.h"

namespace Tesk {

// Loads a library of the system's folder, by its full path: a file of that name beside a
// drawing is not meant. Takes no memory from the heap, so that a dying process can call it.
UniqueModule loadSystemLibrary(const char* sName);

}  // namespace Tesk
