#pragma once

// What the API allocates for its callers.

namespace dxf {

// What was handed out and is not yet freed; for tests: strings, buffers, iterators,
// summary informations.
long liveAllocations();

// A member of what callers delete.
class HandedOut {
public:
    HandedOut();
    ~HandedOut();
    HandedOut(const HandedOut&) = delete;
    HandedOut& operator=(const HandedOut&) = delete;
};

}  // namespace dxf
