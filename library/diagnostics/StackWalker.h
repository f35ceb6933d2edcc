#pragma once

// Who called whom, as text: one line a frame, the innermost first, with module
// and offset, and the exported function where one is known.

#include "mfc/afx.h"

#include <vector>

namespace Tesk {

class CStackWalker {
public:
    static constexpr int kMaxFrames = 50;

    // Takes the return addresses of the calling thread, at most kMaxFrames.
    CStackWalker();

    const std::vector<const void*>& getFrames() const { return m_vFrames; }

    // "module.dll + 0x1234 (function + 0x12)", a line a frame, joined by line feeds.
    CString describe() const;

private:
    std::vector<const void*> m_vFrames;
};

}  // namespace Tesk
