#pragma once

// Who called whom, as text: one line a frame, the innermost first, with module and
// offset, which the symbols kept with a release turn into a function and a line.

#include "mfc/afx.h"

#include <vector>

namespace Tesk {

class CStackWalker {
public:
    static constexpr int kMaxFrames = 50;

    // Takes the return addresses of the calling thread, at most kMaxFrames.
    CStackWalker();

    const std::vector<const void*>& getFrames() const { return m_vFrames; }

    // The frames' descriptions, joined by line feeds.
    CString describe() const;

    // "module.dll + 0x1234"; the bare address where it is in no module.
    static CString describeAddress(const void* pAddress);

private:
    std::vector<const void*> m_vFrames;
};

}  // namespace Tesk
