#pragma once

// The toolkit is a library of its own, cadmfc.dll, that the host and its modules
// share: one map of windows for all of them. No exception and no string of
// CString's crosses its boundary: each image ends the exceptions of its own
// handlers and keeps the storage of its own strings.
#ifdef CADMFC_EXPORTS
#define CADMFC_API __declspec(dllexport)
#else
#define CADMFC_API __declspec(dllimport)
#endif
