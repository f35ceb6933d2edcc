#include "library/diagnostics/Compiler.h"

#include <windows.h>

#ifdef __GNUC__
// The C++ runtime's own: frees the reserve that it keeps for throwing without memory.
namespace __gnu_cxx {
void __freeres();
}  // namespace __gnu_cxx
#endif

namespace Tesk {

#ifdef __GNUC__
namespace {

// The runtime is linked into the module, but leaves its reserve behind at each unloading.
__attribute__((destructor)) void freeRuntimeReserve() { __gnu_cxx::__freeres(); }

}  // namespace
#endif

#if defined(__GNUC__) && defined(__i386__)

// Along the chain of frame pointers. The system's own walk came with a later
// Windows than this one may run on.
unsigned captureFrames(const void** pFrames, unsigned uMost)
{
    struct CFrame {
        const CFrame* m_pCaller;
        const void* m_pReturn;
    };
    const NT_TIB* pTib = nullptr;
    __asm__("movl %%fs:0x18, %0" : "=r"(pTib));
    const auto* pFrame = static_cast<const CFrame*>(__builtin_frame_address(0));
    unsigned uCount = 0;
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

unsigned captureFrames(const void** pFrames, unsigned uMost)
{
    using Capture = USHORT(WINAPI*)(ULONG, ULONG, void**, ULONG*);
    const auto pCapture = reinterpret_cast<Capture>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "RtlCaptureStackBackTrace")));
    return pCapture ? pCapture(1, uMost, const_cast<void**>(pFrames), nullptr) : 0;
}

#endif

}  // namespace Tesk
