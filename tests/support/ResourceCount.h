// What this process holds at the moment, counted where it really is: a test takes
// the counts before and after and compares.
#pragma once

#include "mfc/handles.h"

#include <windows.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

struct ResourceCount {
    long gdi = 0;      // live entries of the process's table of GDI handles
    long windows = 0;  // of this thread, children included
    long menus = 0;
    long handles = 0;  // held by the owning types
    long heap = 0;     // busy blocks of all heaps

    static ResourceCount now()
    {
        ResourceCount count;
        count.gdi = gdiObjects();
        ::EnumThreadWindows(::GetCurrentThreadId(), &countWindow, reinterpret_cast<LPARAM>(&count.windows));
        count.menus = menuHandles();
        count.handles = liveHandles();
        count.heap = heapBlocks();
        return count;
    }

    std::string text() const
    {
        return "gdi=" + std::to_string(gdi) + " windows=" + std::to_string(windows) + " menus="
            + std::to_string(menus) + " handles=" + std::to_string(handles) + " heap=" + std::to_string(heap);
    }

    // Blocks in use, those of the counting itself left out.
    static long heapBlocks()
    {
        std::vector<HANDLE> heaps(64);
        heaps.resize(::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
        long count = 0;
        for (const HANDLE heap : heaps) {
            PROCESS_HEAP_ENTRY entry = {};
            ::HeapLock(heap);
            while (::HeapWalk(heap, &entry))
                count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
            ::HeapUnlock(heap);
        }
        return count;
    }

private:
    // Older Wines answer 0 to GetGuiResources; the table that the process shares with
    // the system is found through its environment block. Its layout is that of Windows
    // and Wine: 24 bytes an entry, the type in the one at 14.
    static long gdiObjects()
    {
        struct Entry {
            std::uint64_t object;
            std::uint32_t owner;
            std::uint16_t unique;
            std::uint8_t type;
            std::uint8_t flags;
            std::uint64_t user;
        };
        static_assert(sizeof(Entry) == 24);
        constexpr int entries = 0x4000;
        constexpr std::size_t tableOffset = sizeof(void*) == 8 ? 0xF8 : 0x94;
        const auto currentBlock = reinterpret_cast<const char* (WINAPI*)()>(
            reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "RtlGetCurrentPeb")));
        const auto table = *reinterpret_cast<const Entry* const*>(currentBlock() + tableOffset);
        const DWORD process = ::GetCurrentProcessId();
        long count = 0;
        for (int i = 0; table != nullptr && i < entries; ++i) {
            // Stock objects belong to no process.
            const DWORD owner = table[i].owner & 0xFFFE;
            count += table[i].type != 0 && (owner == 0 || owner == (process & 0xFFFE));
        }
        return count;
    }

    // A menu's handle may be asked about by its low word alone, so all there can be
    // are asked.
    static long menuHandles()
    {
        long count = 0;
        for (std::uintptr_t handle = 0x20; handle < 0x10000; handle += 2)
            count += ::IsMenu(reinterpret_cast<HMENU>(handle)) != FALSE;
        return count;
    }

    static BOOL CALLBACK countChild(HWND, LPARAM count)
    {
        ++*reinterpret_cast<long*>(count);
        return TRUE;
    }
    static BOOL CALLBACK countWindow(HWND window, LPARAM count)
    {
        countChild(window, count);
        ::EnumChildWindows(window, &countChild, count);
        return TRUE;
    }
};

inline std::ostream& operator<<(std::ostream& out, const ResourceCount& count)
{
    return out << count.text();
}
