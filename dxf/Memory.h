#pragma once

// What the API allocates for its callers.

namespace dxf {

// Strings and buffers handed out and not yet freed; for tests.
long liveAllocations();

}  // namespace dxf
