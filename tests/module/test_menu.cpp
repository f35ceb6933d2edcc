// The context menu, through the real menu window, where hosts and others differ. What it
// offers and does is in tests/transcripts.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "host/ui/MainFrame.h"
#include "library/system/Handles.h"
#include "module/ZavikMDITabs.h"
#include "reactors/EditorReactor.h"
#include "tabs/MenuIds.h"
#include "tests/support/Answers.h"
#include "tests/support/MenuWatch.h"
#include <doctest/doctest.h>

#include <utility>

namespace {

struct MenuFixture : ModuleFixture {
    MenuFixture()
    {
        folder.write("MDITabs.ini", "PopupSaveText = Save it\nPopupXrefsText = Xrefs\nXrefsReadOnlyText = \" (RO)\"\n");
        load();
    }
    std::string menu() { return app.execute("MENU 0").output; }
};

// Runs what is queued from within the kick, as no host is known not to; hears of menus.
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
            s_told = {reinterpret_cast<HMENU>(wParam), lParam};
        if (message == WM_KICKIDLE && ++s_kicks == 1)
            s_pHost->pumpUntilIdle();
        return ::CallWindowProcA(s_original, window, message, wParam, lParam);
    }
    HWND frame;
    static inline host::Application* s_pHost = nullptr;
    static inline WNDPROC s_original = nullptr;
    static inline int s_kicks = 0;
    static inline std::pair<HMENU, LPARAM> s_told;
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

TEST_CASE_FIXTURE(MenuFixture, "the frame is told of a menu as the strip is")
{
    const EagerFrame eager(*this);
    CMenu popup;
    popup.CreatePopupMenu();
    ::SendMessageA(strip(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup.m_hMenu), MAKELPARAM(3, TRUE));
    CHECK(EagerFrame::s_told == std::pair(popup.m_hMenu, LPARAM{MAKELPARAM(3, TRUE)}));
}

TEST_CASE_FIXTURE(MenuFixture, "the button that brought it up chooses too")
{
    AcApDocument* pDocument = open("a.dwg");
    const MenuWatch watch([&] {
        for (const auto message : std::initializer_list<UINT>{WM_RBUTTONDOWN, WM_RBUTTONUP})
            ::PostMessageA(strip(), message, 0, MAKELPARAM(120, 85));
        ::PostMessageA(strip(), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    m_pWndTabs->popupMenu(pDocument, 100, 100);
    app.pumpUntilIdle();
    CHECK(app.commandLine().history() == "Command: _.QSAVE\n");
}

TEST_CASE_FIXTURE(MenuFixture, "external references are offered where they can be read")
{
    const std::string used = folder.writeDrawing("ref.dwg");
    AcApDocument* pDocument = open("main.dwg");
    REQUIRE(run("XATTACH \"" + used + "\""));
    REQUIRE(run("QSAVE"));
    // Another program writes to it, and lets others do so, too.
    const UniqueHandle writer(::CreateFileA(used.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                            OPEN_EXISTING, 0, nullptr));
    CHECK(menu().find("item 22394: \"ref.dwg\" enabled=1\n") != std::string::npos);
    CEditorReactor::getReactor()->databaseToBeDestroyed(pDocument->database());
    host::Faults::throwNth("acdbGetSummaryInfo", 1, [] { throw 1; });
    const std::string items = menu();
    host::Faults::clear();
    CHECK(items.find("Save it") != std::string::npos);
    CHECK(items.find("Xrefs") == std::string::npos);
}
