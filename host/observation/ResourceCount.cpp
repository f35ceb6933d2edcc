#include "host/observation/ResourceCount.h"

#include "dxf/Memory.h"
#include "library/system/Handles.h"

#include <windows.h>
#include <tlhelp32.h>

#include <cstdint>
#include <string_view>

namespace host::observation {

namespace {

constexpr std::uintptr_t kMostHandles = 0x4000;

// Older Wines answer 0 to GetGuiResources; the table that the process shares with
// the system is found through its environment block. Its layout is that of Windows
// and Wine: 24 bytes an entry, the type in the one at 14.
long gdiObjects()
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
    const auto currentBlock = reinterpret_cast<const char*(WINAPI*)()>(
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

// A handle may be asked about by its low word alone, so all there can be are asked.
long liveMenus()
{
    long count = 0;
    for (std::uintptr_t handle = 0x20; handle < 0x10000; handle += 2)
        count += ::IsMenu(reinterpret_cast<HMENU>(handle)) != FALSE;
    return count;
}

long loadedModules()
{
    const UniqueHandle snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, ::GetCurrentProcessId()));
    MODULEENTRY32 module = {};
    module.dwSize = sizeof module;
    long count = 0;
    for (BOOL found = ::Module32First(snapshot.get(), &module); found; found = ::Module32Next(snapshot.get(), &module))
        ++count;
    return count;
}

// Whatever handle there can be is asked for its type.
void countHandles(long& handles, long& keys)
{
    struct TypeInformation {
        USHORT length;
        USHORT capacity;
        const wchar_t* name;
        char rest[1024];
    };
    constexpr ULONG kType = 2;
    const auto query = reinterpret_cast<LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*)>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "NtQueryObject")));
    for (std::uintptr_t handle = 4; handle < kMostHandles; handle += 4) {
        TypeInformation type{};
        if (query(reinterpret_cast<HANDLE>(handle), kType, &type, sizeof type, nullptr) != 0)
            continue;
        ++handles;
        keys += std::wstring_view(type.name, type.length / sizeof(wchar_t)) == L"Key";
    }
}

BOOL CALLBACK countChild(HWND, LPARAM count)
{
    ++*reinterpret_cast<long*>(count);
    return TRUE;
}

BOOL CALLBACK countWindow(HWND window, LPARAM count)
{
    countChild(window, count);
    ::EnumChildWindows(window, &countChild, count);
    return TRUE;
}

}  // namespace

ResourceCount ResourceCount::now()
{
    ResourceCount count;
    count.gdi = gdiObjects();
    ::EnumThreadWindows(::GetCurrentThreadId(), &countWindow, reinterpret_cast<LPARAM>(&count.windows));
    count.menus = liveMenus();
    count.modules = loadedModules();
    count.heap = heapBlocks();
    countHandles(count.handles, count.keys);
    count.api = dxf::liveAllocations();
    return count;
}

long ResourceCount::heapBlocks()
{
    HANDLE heaps[64];
    const DWORD heapCount = ::GetProcessHeaps(64, heaps);
    long count = 0;
    for (DWORD i = 0; i < heapCount && i < 64; ++i) {
        PROCESS_HEAP_ENTRY entry = {};
        ::HeapLock(heaps[i]);
        while (::HeapWalk(heaps[i], &entry))
            count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        ::HeapUnlock(heaps[i]);
    }
    return count;
}

std::string ResourceCount::text() const
{
    const auto part = [](const char* name, long value) {
        return std::string(" ") + name + "=" + std::to_string(value);
    };
    return "resources:" + part("gdi", gdi) + part("windows", windows) + part("menus", menus) + part("heap", heap) +
           part("modules", modules) + part("handles", handles) + part("keys", keys) + part("api", api);
}

}  // namespace host::observation
