#pragma once

// Owning, move-only handle types, one line a kind, and a count of what they
// hold, so that a test can see that owned handles balance.

#include <windows.h>

#include <atomic>
#include <utility>

namespace Tesk::Detail {

inline std::atomic<long> handleBalance{0};

template <class Handle, auto Close>
class CUnique {
public:
    CUnique() = default;
    explicit CUnique(Handle handle) { reset(handle); }
    CUnique(CUnique&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    ~CUnique() { reset(); }

    Handle get() const { return m_handle; }
    explicit operator bool() const { return m_handle != nullptr; }

    // Closes what is held and takes the new handle; INVALID_HANDLE_VALUE counts as none.
    void reset(Handle handle = nullptr)
    {
        if (static_cast<void*>(handle) == INVALID_HANDLE_VALUE)
            handle = nullptr;
        if (handle)
            ++handleBalance;
        const Handle old = std::exchange(m_handle, handle);
        if (old) {
            --handleBalance;
            Close(old);
        }
    }

private:
    Handle m_handle = nullptr;
};

inline BOOL closeHandle(HANDLE h) { return ::CloseHandle(h); }
inline BOOL closeFind(HANDLE h) { return ::FindClose(h); }
inline BOOL closeIcon(HICON h) { return ::DestroyIcon(h); }
inline BOOL closeMenu(HMENU h) { return ::DestroyMenu(h); }
inline BOOL closeWindow(HWND h) { return ::DestroyWindow(h); }
inline BOOL closeKey(HKEY h) { return ::RegCloseKey(h) == ERROR_SUCCESS; }
inline BOOL closeModule(HMODULE h) { return ::FreeLibrary(h); }
inline BOOL closeFont(HFONT h) { return ::DeleteObject(h); }

}  // namespace Tesk::Detail

using UniqueHandle = Tesk::Detail::CUnique<HANDLE, Tesk::Detail::closeHandle>;  // files, events, processes
using UniqueFind = Tesk::Detail::CUnique<HANDLE, Tesk::Detail::closeFind>;
using UniqueIcon = Tesk::Detail::CUnique<HICON, Tesk::Detail::closeIcon>;
using UniqueMenu = Tesk::Detail::CUnique<HMENU, Tesk::Detail::closeMenu>;
using UniqueWindow = Tesk::Detail::CUnique<HWND, Tesk::Detail::closeWindow>;
using UniqueKey = Tesk::Detail::CUnique<HKEY, Tesk::Detail::closeKey>;
using UniqueModule = Tesk::Detail::CUnique<HMODULE, Tesk::Detail::closeModule>;
using UniqueFont = Tesk::Detail::CUnique<HFONT, Tesk::Detail::closeFont>;

// How many handles the owning types of this image hold at the moment.
inline long liveHandles() { return Tesk::Detail::handleBalance; }
