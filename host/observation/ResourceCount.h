#pragma once

// What this process holds at the moment, counted where it really is: whoever looks
// for leaks takes the counts before and after and compares.

#include <string>

namespace host::observation {

struct ResourceCount {
    long gdi = 0;      // live entries of the process's table of GDI handles
    long windows = 0;  // of this thread, children included
    long menus = 0;
    long heap = 0;     // busy blocks of all heaps
    long modules = 0;  // loaded into the process
    long handles = 0;  // of the system's kernel, those of keys included
    long keys = 0;     // of the registry, open
    long api = 0;      // what the API handed out and nobody has freed yet

    static ResourceCount now();
    // Blocks in use, those of the counting itself left out.
    static long heapBlocks();

    // The RESOURCES command's line.
    std::string text() const;
};

}  // namespace host::observation
