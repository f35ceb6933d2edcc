// What the module costs a drawing: reading its data, opening it, moving the mouse over
// its tab, and the memory it holds.
#include "bench/Stopwatch.h"
#include "host/application/Application.h"
#include "host/ui/MainFrame.h"
#include "module/ZavikMDITabs.h"
#include "objectarx/dbsymtb.h"
#include "reactors/DatabaseData.h"
#include "tests/support/DrawingText.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"

#include <commctrl.h>

#include <memory>
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
std::size_t walkBlocks(AcDbDatabase* pDatabase)
{
    std::size_t count = 0;
    AcDbBlockTable* pTable = nullptr;
    pDatabase->getSymbolTable(pTable, AcDb::kForRead);
    AcDbBlockTableIterator* pIterator = nullptr;
    pTable->newIterator(pIterator);
    for (; !pIterator->done(); pIterator->step()) {
        AcDbBlockTableRecord* pRecord = nullptr;
        if (pIterator->getRecord(pRecord, AcDb::kForRead) == Acad::eOk) {
            ++count;
            pRecord->close();
        }
    }
    delete pIterator;
    pTable->close();
    return count;
}

DrawingText sheet()
{
    return DrawingText().variable("TITLE", "Plan").border("SHEET", {{"NR", "1"}, {"TITLE", "Ground floor"}});
}

struct Bench {
    Bench() : app({.visible = false, .standardOutput = false})
    {
        tree.write("ProjectSettings.txt",
                   "TITLEBLOCKS\r\n{\r\nBORDER \"A1\" \"SHEET\"\r\nNO NR\r\nTITLE TITLE\r\n}\r\n");
        tree.write("MDITabs.ini", "TooltipText = %HALVORAN::NO% %HALVORAN::TITLE%%NEWLINE%%PATH%\r\n");
    }
    ~Bench() { app.linker().unloadAll(); }

    void load() { app.linker().attach("ZavikMDITabs", &acrxEntryPoint); }
    void unload() { app.linker().unload("ZavikMDITabs"); }
    void open(const std::string& sPath)
    {
        app.documents().open(sPath);
        app.pumpUntilIdle();
    }
    void closeAll()
    {
        while (app.documents().count() != 0)
            app.documents().close(app.documents().at(0));
        app.pumpUntilIdle();
    }

    CTestFolder tree;
    host::Application app;
};

void benchReading(Bench& bench)
{
    DrawingText drawing = sheet();
    for (int i = 0; i < 10000; ++i)
        drawing.block("BLOCK_" + std::to_string(i));
    bench.tree.write("xref.dwg", DrawingText().str());
    for (int i = 0; i < 100; ++i)
        drawing.xref("XREF_" + std::to_string(i), "xref.dwg").insert("XREF_" + std::to_string(i));
    bench.open(bench.tree.write("large.dwg", drawing.str()));
    AcDbDatabase* pDatabase = bench.app.documents().active()->database();

    std::size_t sum = 0;
    const double walk = microseconds(1, [&] { sum += walkBlocks(pDatabase); });
    const CDatabaseData data(pDatabase);
    report("walk 10,000 blocks", walk, "list their 100 xrefs",
           microseconds(1, [&] { sum += data.getXrefPaths().size(); }));
    report("walk 10,000 blocks", walk, "read the drawing's data", microseconds(1, [&] { CDatabaseData{pDatabase}; }));
    bench.closeAll();

    bench.open(bench.tree.write("small.dwg", sheet().str()));
    pDatabase = bench.app.documents().active()->database();
    // What of it is spent on folders, file times and names of user and computer.
    report("a small drawing's keywords", microseconds(5, [] { Tesk::CKeywordExpansion("C:\\x.dwg", 1, 1); }),
           "read its data", microseconds(5, [&] { CDatabaseData{pDatabase}; }));
    bench.closeAll();
    std::printf("(%u)\n", static_cast<unsigned>(sum % 10));
}

void benchOpening(Bench& bench)
{
    std::vector<std::string> paths;
    for (int i = 0; i < 20; ++i)
        paths.push_back(bench.tree.write("drawing " + std::to_string(i) + ".dwg", sheet().str()));
    const auto openAll = [&] {
        for (const std::string& sPath : paths)
            bench.open(sPath);
    };
    const auto cycle = [&] {
        openAll();
        bench.closeAll();
    };
    const auto bytesOfOpen = [&] {
        cycle();
        const double before = heapBytes();
        openAll();
        const double after = heapBytes();
        bench.closeAll();
        return (after - before) / static_cast<double>(paths.size());
    };
    const double plain = microseconds(1, cycle, 3) / 20;
    const double plainBytes = bytesOfOpen();
    bench.load();
    const double withModule = microseconds(1, cycle, 3) / 20;
    const double moduleBytes = bytesOfOpen();
    bench.unload();
    report("open and close a drawing", plain, "with the module", withModule);
    std::printf("memory a drawing: the host's own %.0f bytes, the module's %.0f\n", plainBytes,
                moduleBytes - plainBytes);
}

LPARAM middleOf(HWND strip, WPARAM tab)
{
    RECT rect;
    ::SendMessageA(strip, TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&rect));
    return MAKELPARAM((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
}

// A plain tab control with the strip's tabs, of the same style and place.
HWND bareCopy(HWND strip)
{
    RECT rect;
    ::GetClientRect(strip, &rect);
    const auto style = static_cast<DWORD>(::GetWindowLongA(strip, GWL_STYLE));
    HWND bare = ::CreateWindowExA(0, WC_TABCONTROLA, "", style, 0, 0, rect.right, rect.bottom, ::GetParent(strip),
                                  nullptr, nullptr, nullptr);
    for (WPARAM i = 0; i < static_cast<WPARAM>(::SendMessageA(strip, TCM_GETITEMCOUNT, 0, 0)); ++i) {
        char sText[MAX_PATH] = "";
        TCITEMA item = {};
        item.mask = TCIF_TEXT;
        item.pszText = sText;
        item.cchTextMax = sizeof sText;
        ::SendMessageA(strip, TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item));
        ::SendMessageA(bare, TCM_INSERTITEMA, i, reinterpret_cast<LPARAM>(&item));
    }
    return bare;
}

void benchMouse(Bench& bench)
{
    bench.load();
    bench.open(bench.tree.write("one.dwg", sheet().str()));
    bench.open(bench.tree.write("two.dwg", sheet().str()));
    HWND strip = ::FindWindowExA(bench.app.frame().m_hWnd, nullptr, WC_TABCONTROLA, nullptr);
    HWND bare = bareCopy(strip);
    const auto within = [](HWND window) {
        const LPARAM place = middleOf(window, 0);
        return microseconds(500, [&] { ::SendMessageA(window, WM_MOUSEMOVE, 0, place); });
    };
    const auto across = [](HWND window) {
        const LPARAM places[] = {middleOf(window, 0), middleOf(window, 1)};
        int i = 0;
        return microseconds(500, [&] { ::SendMessageA(window, WM_MOUSEMOVE, 0, places[++i & 1]); });
    };
    const double bareWithin = within(bare);
    report("mouse in a tab, bare", bareWithin, "the strip", within(strip));
    const double bareAcross = across(bare);
    report("mouse to another tab, bare", bareAcross, "the strip", across(strip));
    ::DestroyWindow(bare);
    bench.closeAll();
    bench.unload();
}

}  // namespace

int main()
{
    const CTestHive user;  // the person's options do not count
    Bench bench;
    benchReading(bench);
    benchOpening(bench);
    benchMouse(bench);
}
