#include "objectarx/rxdefs.h"

// Linked into every module; the module's .def file exports it.
extern "C" unsigned acrxGetApiVersion();

unsigned acrxGetApiVersion() { return ACRX_API_VERSION; }
