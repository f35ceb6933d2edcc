#pragma once

// Owning, move-only handle types, one line a kind, and a count of what they
// hold, so that a test can see that owned handles balance.
#include <atomic>
#include <utility>

#include <windows.h>
#include <commctrl.h>

// How many handles the owning types of this image hold at the moment.
long liveHandles();

namespace toolkit {

inline std::atomic<long> handleBalance{0};

template <class Handle, auto Close>
class Unique {
public:
    Unique() = default;
    explicit Unique(Handle handle) { reset(handle); }
    Unique(Unique&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    Unique& operator=(Unique&& other) noexcept
    {
        if (this != &other) {
            reset();
            m_handle = std::exchange(other.m_handle, nullptr);
        }
        return *this;
    }
    ~Unique() { reset(); }

    Handle get() const { return m_handle; }
    explicit operator bool() const { return m_handle != nullptr; }

    // Closes what is held and takes the new handle. False when closing failed;
    // INVALID_HANDLE_VALUE counts as no handle.
    bool reset(Handle handle = nullptr)
    {
        if (isInvalid(handle))
            handle = nullptr;
        const Handle old = std::exchange(m_handle, handle);
        if (handle)
            ++handleBalance;
        if (!old)
            return true;
        --handleBalance;
        return Close(old) != FALSE;
    }
    // Gives the handle away: the caller closes it.
    [[nodiscard]] Handle release()
    {
        if (m_handle)
            --handleBalance;
        return std::exchange(m_handle, nullptr);
    }

private:
    static bool isInvalid(Handle handle) { return static_cast<void*>(handle) == INVALID_HANDLE_VALUE; }

    Handle m_handle = nullptr;
};

inline BOOL closeHandle(HANDLE h) { return ::CloseHandle(h); }
inline BOOL closeFind(HANDLE h) { return ::FindClose(h); }
inline BOOL closeIcon(HICON h) { return ::DestroyIcon(h); }
inline BOOL closeMenu(HMENU h) { return ::DestroyMenu(h); }
inline BOOL closeWindow(HWND h) { return ::DestroyWindow(h); }
inline BOOL closeModule(HMODULE h) { return ::FreeLibrary(h); }
inline BOOL closeImageList(HIMAGELIST h) { return ::ImageList_Destroy(h); }
template <class Object>
BOOL closeGdi(Object h)
{
    return ::DeleteObject(h);
}

}  // namespace toolkit

using UniqueHandle = toolkit::Unique<HANDLE, toolkit::closeHandle>;  // files, events, processes
using UniqueFind = toolkit::Unique<HANDLE, toolkit::closeFind>;
using UniqueIcon = toolkit::Unique<HICON, toolkit::closeIcon>;
using UniqueMenu = toolkit::Unique<HMENU, toolkit::closeMenu>;
using UniqueWindow = toolkit::Unique<HWND, toolkit::closeWindow>;
using UniqueModule = toolkit::Unique<HMODULE, toolkit::closeModule>;
using UniqueImageList = toolkit::Unique<HIMAGELIST, toolkit::closeImageList>;
using UniqueFont = toolkit::Unique<HFONT, toolkit::closeGdi<HFONT>>;
using UniqueBitmap = toolkit::Unique<HBITMAP, toolkit::closeGdi<HBITMAP>>;
using UniqueBrush = toolkit::Unique<HBRUSH, toolkit::closeGdi<HBRUSH>>;
