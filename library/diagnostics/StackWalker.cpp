#include "library/diagnostics/StackWalker.h"

#include "library/diagnostics/CodeAddress.h"
#include "library/diagnostics/Compiler.h"

namespace Tesk {

CStackWalker::CStackWalker() : m_vFrames(kMaxFrames) { m_vFrames.resize(captureFrames(m_vFrames.data(), kMaxFrames)); }

CString CStackWalker::describe() const
{
    CString sText;
    for (const void* pAddress : m_vFrames) {
        if (!sText.IsEmpty())
            sText += '\n';
        sText += describeAddress(pAddress);
    }
    return sText;
}

}  // namespace Tesk
