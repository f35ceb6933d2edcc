// The context menu, through the real menu window, while others work. What it offers and does
// is in tests/transcripts.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "library/system/Handles.h"
#include "module/ZavikMDITabs.h"
#include "reactors/EditorReactor.h"
#include "tabs/MenuIds.h"
#include "tests/support/Answers.h"
#include "tests/support/MenuWatch.h"
#include <doctest/doctest.h>

#include <functional>
#include <utility>

using Texts = std::vector<std::string>;

namespace {

struct MenuFixture : ModuleFixture {
    MenuFixture()
    {
        folder.write("MDITabs.ini",
                     "PopupSaveText = Save it\nPopupCloseText = Close it\nPopupOptionsText = Options of it\n"
                     "PopupXrefsText = Xrefs\nXrefsReadOnlyText = \" (RO)\"\n");
        load();
    }
    // What MENU prints after its own echo.
    std::string menu(const std::string& arguments)
    {
        const std::string output = app.execute("MENU " + arguments).output;
        return output.substr(output.find('\n') + 1);
    }
};

// Runs what is queued from within the kick, as no host is known not to; greys what it is told of.
struct EagerFrame {
    explicit EagerFrame(ModuleFixture& host) : frame(host.frame)
    {
        s_pHost = &host.app;
        s_kicks = 0;
        s_original = replace(&procedure);
    }
    ~EagerFrame() { replace(s_original); }
    EagerFrame(const EagerFrame&) = delete;
    EagerFrame& operator=(const EagerFrame&) = delete;

    WNDPROC replace(WNDPROC pProcedure) const
    {
        return reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pProcedure)));
    }
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_INITMENUPOPUP)
            s_told.emplace_back(reinterpret_cast<HMENU>(wParam), lParam);
        if (message == WM_KICKIDLE && ++s_kicks == 1)
            s_pHost->pumpUntilIdle();
        return ::CallWindowProcA(s_original, window, message, wParam, lParam);
    }
    HWND frame;
    static inline host::Application* s_pHost = nullptr;
    static inline WNDPROC s_original = nullptr;
    static inline int s_kicks = 0;
    static inline std::vector<std::pair<HMENU, LPARAM>> s_told;
};

}  // namespace

TEST_CASE_FIXTURE(MenuFixture,
                  "a host that runs Options from within the kick shows the dialog when the handler is over")
{
    AcApDocument* pFirst = open("a.dwg");
    AcApDocument* pSecond = open("b.dwg");
    std::vector<std::pair<bool, AcApDocument*>> shown;
    bool handling = true;
    const Answers answers([&](HWND dialog) {
        shown.emplace_back(handling, app.documents().current());
        Answers::press(dialog, IDCANCEL);
    });
    const EagerFrame eager(*this);
    m_pWndTabs->processPopupMenuItem(pFirst, IDC_DYNAMIC_MENU_OPTIONS, {});
    handling = false;
    app.pumpUntilIdle();
    CHECK(shown == std::vector{std::pair(false, pSecond)});
    CHECK(EagerFrame::s_kicks == 2);
}

TEST_CASE_FIXTURE(MenuFixture, "what goes on around the menu does not disturb it")
{
    AcApDocument* pFirst = open("a.dwg");
    open("b.dwg");
    SUBCASE("between the tabs there is none")
    {
        const MenuWatch watch([] { ::EndMenu(); });
        CPoint point(middleOf(1).x + 300, 5);
        ::ClientToScreen(strip(), &point);
        ::SendMessageA(strip(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(strip()), MAKELPARAM(point.x, point.y));
        CHECK_FALSE(watch.wasUp());
    }
    SUBCASE("a drawing closed meanwhile is not looked at any more")
    {
        Tesk::setDiagnosticsLevel(2);
        const MenuWatch watch([&] {
            app.documents().close(*static_cast<host::Document*>(pFirst));
            app.commandLine().history().clear();
            for (const auto key : std::initializer_list<WPARAM>{VK_DOWN, VK_RETURN})
                ::PostMessageA(strip(), WM_KEYDOWN, key, 1);
        });
        m_pWndTabs->popupMenu(pFirst, 10, 10);
        CHECK(watch.wasUp());
        CHECK(app.commandLine().history().find("CARXMDITabs::isDocumentPresent") == std::string::npos);
        CHECK(app.commandLine().history().find("CARXMDITabs::findDocument") == std::string::npos);
        app.pumpUntilIdle();
        CHECK(tabs() == Texts{"b"});
    }
    SUBCASE("nor is the strip, when it goes meanwhile")
    {
        const MenuWatch watch([&] {
            for (const auto key : std::initializer_list<WPARAM>{VK_DOWN, VK_RETURN})
                ::PostMessageA(frame, WM_KEYDOWN, key, 1);
            unload();
        });
        m_pWndTabs->popupMenu(pFirst, 10, 10);
        CHECK(watch.wasUp());
        app.pumpUntilIdle();
        CHECK(app.commandLine().history() == "");
    }
    SUBCASE("the button that brought it up chooses too")
    {
        const MenuWatch watch([&] {
            for (const auto message : std::initializer_list<UINT>{WM_RBUTTONDOWN, WM_RBUTTONUP})
                ::PostMessageA(strip(), message, 0, MAKELPARAM(120, 85));
            ::PostMessageA(strip(), WM_KEYDOWN, VK_ESCAPE, 1);
        });
        m_pWndTabs->popupMenu(pFirst, 100, 100);
        app.pumpUntilIdle();
        CHECK(app.commandLine().history() == "Command: _.QSAVE\n");
    }
    SUBCASE("the frame hears of it first")
    {
        const EagerFrame eager(*this);
        CMenu popup;
        popup.CreatePopupMenu();
        ::SendMessageA(strip(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.m_hMenu), MAKELPARAM(3, TRUE));
        CHECK(EagerFrame::s_told == std::vector{std::pair(popup.m_hMenu, LPARAM{MAKELPARAM(3, TRUE)})});
    }
}

TEST_CASE_FIXTURE(MenuFixture, "external references are listed and opened as they are by then")
{
    const std::string gone = folder.writeDrawing("ref a.dwg"), used = folder.writeDrawing("ref b.dwg");
    open("main.dwg");
    REQUIRE(run("XATTACH \"" + gone + "\""));
    REQUIRE(run("XATTACH \"" + used + "\""));
    REQUIRE(run("QSAVE"));
    AcApDocument* pDocument = app.documents().active();
    SUBCASE("one that has gone, and one that another program writes to")
    {
        ::DeleteFileA(gone.c_str());
        const UniqueHandle writer(::CreateFileA(used.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                nullptr, OPEN_EXISTING, 0, nullptr));
        Tesk::setDiagnosticsLevel(2);
        const std::string items = menu("0 22394");
        CHECK(items.find("item 22394: \"ref a.dwg (RO)\" enabled=1\n") != std::string::npos);
        CHECK(items.find("item 22395: \"ref b.dwg\" enabled=1\n") != std::string::npos);
        CHECK(app.commandLine().history().find("error opening \"" + gone + "\"\n") != std::string::npos);
        CHECK(tabs() == Texts{"main"});
    }
    SUBCASE("those that were shown, though the drawing has others by now")
    {
        const MenuWatch watch([&] {
            CEditorReactor::getReactor()->getDatabaseData(pDocument).xrefPaths().erase(
                m_pWndTabs->getXrefs(pDocument).begin());
            for (const auto key : std::initializer_list<WPARAM>{VK_UP, VK_RIGHT, VK_RETURN})
                ::PostMessageA(strip(), WM_KEYDOWN, key, 1);
        });
        m_pWndTabs->popupMenu(pDocument, 10, 10);
        app.pumpUntilIdle();
        CHECK(tabs() == Texts{"main", "ref a"});
    }
    SUBCASE("none, where the drawing's data cannot be read")
    {
        CEditorReactor::getReactor()->databaseToBeDestroyed(pDocument->database());
        host::Faults::throwNth("acdbGetSummaryInfo", 1, [] { throw 1; });
        const std::string items = menu("0");
        CHECK(items.find("Close it") != std::string::npos);
        CHECK(items.find("Xrefs") == std::string::npos);
        host::Faults::clear();
    }
    SUBCASE("an identifier outside the list is reported and does nothing")
    {
        const Answers answers;
        Tesk::setDiagnosticsLevel(1);
        for (const UINT id : {IDC_DYNAMIC_MENU_XREFS + 2, 0U})
            m_pWndTabs->processPopupMenuItem(pDocument, id, m_pWndTabs->getXrefs(pDocument));
        CHECK(answers.assertions() == "ARXMDITabsMenu: bOK\nARXMDITabsMenu: bOK\n");
        CHECK(app.documents().count() == 1);
    }
}
