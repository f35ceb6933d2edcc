// What the module costs a drawing: reading its data, opening it, moving the mouse over
// its tab, and the memory it holds.
#include "bench/BareControls.h"
#include "bench/Measure.h"
#include "bench/StripSetup.h"
#include "library/registry/Registry.h"
#include "library/system/Handles.h"
#include "module/ZavikMDITabs.h"
#include "objectarx/dbsymtb.h"
#include "reactors/DatabaseData.h"
#include "tests/support/DrawingText.h"

#include <string>
#include <vector>

namespace {

// Bytes in use on all heaps.
double heapBytes()
{
    std::vector<HANDLE> heaps(64);
    heaps.resize(::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    double bytes = 0;
    for (const HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry = {};
        while (::HeapWalk(heap, &entry))
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
                bytes += entry.cbData;
    }
    return bytes;
}

// The least that looking at every block takes: open it and close it.
void walkBlocks(AcDbDatabase* pDatabase)
{
    AcDbBlockTable* pTable = nullptr;
    pDatabase->getSymbolTable(pTable, AcDb::kForRead);
    AcDbBlockTableIterator* pIterator = nullptr;
    pTable->newIterator(pIterator);
    for (; !pIterator->done(); pIterator->step()) {
        AcDbBlockTableRecord* pRecord = nullptr;
        if (pIterator->getRecord(pRecord, AcDb::kForRead) == Acad::eOk)
            pRecord->close();
    }
    delete pIterator;
    pTable->close();
}

UniqueHandle opened(const char* sPath, DWORD dwFlags = FILE_ATTRIBUTE_NORMAL)
{
    return UniqueHandle(::CreateFileA(sPath, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                      dwFlags, nullptr));
}

// What a drawing's keywords and title block ask of the system, and nothing else of them: the
// project's file, found twice and read once, the drawing's time, the office's folder, which
// is not there, and the temporary one.
void lookUp(const std::string& sDrawing, const std::string& sProject)
{
    char text[4096] = "";
    DWORD count = 0;
    FILETIME time;
    opened(sProject.c_str());
    ::GetFileTime(opened(sDrawing.c_str()).get(), &time, &time, &time);
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER})
        const Tesk::Registry::CKey key(root, "Software\\Zavik\\ZavikMDITabs\\Remote Configurable", false);
    for (const char* sFolder : {"P:\\DomainSettings", "Z:\\DomainSettings", "C:\\DomainSettings"})
        ::GetFileAttributesA(sFolder);
    ::GetEnvironmentVariableA("TEMP", text, sizeof text);
    ::GetFileAttributesA(text);
    opened(text, FILE_FLAG_BACKUP_SEMANTICS);
    opened(sProject.c_str());
    ::ReadFile(opened(sProject.c_str()).get(), text, sizeof text, &count, nullptr);
}

DrawingText sheet()
{
    return DrawingText().variable("TITLE", "Plan").border("SHEET", {{"NR", "1"}, {"TITLE", "Ground floor"}});
}

void benchReading(StripSetup& setup)
{
    DrawingText drawing = sheet();
    for (int i = 0; i < 10000; ++i)
        drawing.block("BLOCK_" + std::to_string(i));
    setup.write("xref.dwg", DrawingText().str());
    for (int i = 0; i < 100; ++i)
        drawing.xref("XREF_" + std::to_string(i), "xref.dwg").insert("XREF_" + std::to_string(i));
    const std::string sLarge = setup.write("large.dwg", drawing.str());
    const std::string sProject = sLarge.substr(0, sLarge.rfind('\\') + 1) + "ProjectSettings.txt";
    setup.open(sLarge);
    AcDbDatabase* pDatabase = acDocManager->mdiActiveDocument()->database();
    const CDatabaseData data(pDatabase);
    const auto walk = [&] { return timed(1, [&] { walkBlocks(pDatabase); }); };
    const auto listXrefs = [&] { return timed(1, [&] { data.getXrefPaths(); }); };
    const auto readData = [&] { return timed(1, [&] { CDatabaseData{pDatabase}; }); };
    compare("100 references among 10,000 blocks", 7, listXrefs, walk);
    compare("data of a drawing with 10,000 blocks", 7, readData, walk);
    compare("the same, against the walk and bare look-ups", 7, readData,
            [&] { return walk() + timed(1, [&] { lookUp(sLarge, sProject); }); });
    setup.closeAll();

    setup.open(setup.write("small.dwg", sheet().str()));
    pDatabase = acDocManager->mdiActiveDocument()->database();
    // What of it is spent on folders, file times and names of user and computer.
    compare("data of a small drawing, against its keywords", 15, readData,
            [] { return timed(1, [] { Tesk::CKeywordExpansion("C:\\x.dwg", 1, 1); }); });
    setup.closeAll();
}

void benchOpening(StripSetup& setup)
{
    std::vector<std::string> paths;
    for (int i = 0; i < 20; ++i)
        paths.push_back(setup.write("drawing " + std::to_string(i) + ".dwg", sheet().str()));
    const auto openAll = [&] {
        for (const std::string& sPath : paths)
            setup.open(sPath);
    };
    const auto cycle = [&] {
        const Clock clock;
        openAll();
        setup.closeAll();
        return clock.elapsed() / static_cast<double>(paths.size());
    };
    const auto bytesOfOpen = [&] {
        const double before = heapBytes();
        openAll();
        const double bytes = heapBytes() - before;
        setup.closeAll();
        return bytes / static_cast<double>(paths.size());
    };
    const std::string sProject = paths[0].substr(0, paths[0].rfind('\\') + 1) + "ProjectSettings.txt";
    const auto count = static_cast<int>(paths.size());
    // A bare control beside the frame, and what has to be read of each drawing.
    const auto besides = [&] {
        const BareTabs bare(m_pWndTabs->m_hWnd);
        int iTab = 0;
        const auto open = [&] {
            StripSetup::readOptions();
            bare.insert("drawing", iTab, 0);
            lookUp(paths[static_cast<std::size_t>(iTab)], sProject);
            ::SendMessageA(bare.window(), TCM_SETCURSEL, static_cast<WPARAM>(iTab++), 0);
            setup.pump();
        };
        return timed(count, open) + timed(count, [&] { ::SendMessageA(bare.window(), TCM_DELETEITEM, 0, 0); });
    };
    compare("open and close a drawing", 3, cycle, [&] { return setup.without(cycle); });
    compare("the same, against a bare control besides, and look-ups", 3, cycle,
            [&] { return setup.without(cycle) + besides(); });
    compare("bytes of an open drawing", 1, bytesOfOpen, [&] { return setup.without(bytesOfOpen); });
}

LPARAM middleOf(HWND tabs, WPARAM tab)
{
    RECT rect;
    ::SendMessageA(tabs, TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&rect));
    return MAKELPARAM((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
}

void benchMouse(StripSetup& setup)
{
    setup.open(2);
    const BareTabs bare(m_pWndTabs->m_hWnd);
    bare.insert("A-100", 0, 0);
    bare.insert("A-101", 1, 0);
    // Between two places, which may be one.
    const auto moving = [](HWND tabs, WPARAM last) {
        const LPARAM places[] = {middleOf(tabs, 0), middleOf(tabs, last)};
        int i = 0;
        return timed(500, [&] { ::SendMessageA(tabs, WM_MOUSEMOVE, 0, places[++i & 1]); });
    };
    for (const WPARAM last : {0, 1})
        compare(
            last == 0 ? "mouse moved in a tab" : "mouse moved to another tab", 9,
            [&] { return moving(m_pWndTabs->m_hWnd, last); }, [&] { return moving(bare.window(), last); });
    setup.closeAll();
}

}  // namespace

int main()
{
    StripSetup setup(false);
    setup.write("ProjectSettings.txt", "TITLEBLOCKS\r\n{\r\nBORDER \"A1\" \"SHEET\"\r\nNO NR\r\nTITLE TITLE\r\n}\r\n");
    setup.write("MDITabs.ini", "TooltipText = %HALVORAN::NO% %HALVORAN::TITLE%%NEWLINE%%PATH%\r\n");
    setup.load();
    benchReading(setup);
    benchOpening(setup);
    benchMouse(setup);
}
