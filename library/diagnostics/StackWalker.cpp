#include "library/diagnostics/StackWalker.h"

#include "library/diagnostics/CodeAddress.h"

#include <windows.h>

namespace Tesk {

namespace {

#ifdef __i386__

// Along the chain of frame pointers. The system's own walk came with a later
// Windows than this one may run on.
USHORT captureFrames(const void** pFrames, USHORT uMost)
{
    struct CFrame {
        const CFrame* m_pCaller;
        const void* m_pReturn;
    };
    const NT_TIB* pTib = nullptr;
    __asm__("movl %%fs:0x18, %0" : "=r"(pTib));
    const auto* pFrame = static_cast<const CFrame*>(__builtin_frame_address(0));
    USHORT uCount = 0;
    while (uCount < uMost && pFrame >= pTib->StackLimit && pFrame + 1 <= pTib->StackBase &&
           reinterpret_cast<UINT_PTR>(pFrame) % sizeof(void*) == 0 && pFrame->m_pReturn) {
        pFrames[uCount++] = pFrame->m_pReturn;
        if (pFrame->m_pCaller <= pFrame)
            break;  // a register used for something else: the chain ends here
        pFrame = pFrame->m_pCaller;
    }
    return uCount;
}

#else

USHORT captureFrames(const void** pFrames, USHORT uMost)
{
    using Capture = USHORT(WINAPI*)(ULONG, ULONG, void**, ULONG*);
    const auto pCapture = reinterpret_cast<Capture>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "RtlCaptureStackBackTrace")));
    return pCapture ? pCapture(1, uMost, const_cast<void**>(pFrames), nullptr) : USHORT{0};
}

#endif

}  // namespace

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
