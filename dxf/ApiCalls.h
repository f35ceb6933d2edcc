#pragma once

// A host may let calls of the API fail, for tests: it sets the hook.

namespace dxf {

extern bool (*pCallFails)(const char* sCall);

// Asked once by each function of the API that is not an object's, by its own name.
inline bool callFails(const char* sCall) { return pCallFails != nullptr && pCallFails(sCall); }

}  // namespace dxf
