// The context menu, through the real menu window, and its commands.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "module/ZavikMDITabs.h"
#include "reactors/EditorReactor.h"
#include "tabs/MenuIds.h"
#include "tests/support/Answers.h"
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

// Does something once in the loop of the menu that comes up, if one does.
class MenuWatch {
public:
    explicit MenuWatch(std::function<void()> whileUp)
        : m_whileUp(std::move(whileUp)), m_timer(::SetTimer(nullptr, 0, 20, &onTimer))
    {
        s_pCurrent = this;
    }
    ~MenuWatch() { ::KillTimer(nullptr, m_timer); }
    MenuWatch(const MenuWatch&) = delete;
    MenuWatch& operator=(const MenuWatch&) = delete;

    bool wasUp() const { return m_whileUp == nullptr; }

private:
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD)
    {
        if (!s_pCurrent->wasUp() && ::FindWindowA("#32768", nullptr) != nullptr)
            std::exchange(s_pCurrent->m_whileUp, nullptr)();
    }

    static MenuWatch* s_pCurrent;
    std::function<void()> m_whileUp;
    UINT_PTR m_timer;
};
MenuWatch* MenuWatch::s_pCurrent = nullptr;

// Runs what is queued from within the kick, as no host is known not to.
struct EagerFrame {
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_KICKIDLE)
            s_pHost->pumpUntilIdle();
        return ::CallWindowProcA(s_original, window, message, wParam, lParam);
    }
    static inline host::Application* s_pHost = nullptr;
    static inline WNDPROC s_original = nullptr;
};

constexpr const char* kClose = "item 22393: \"Close it\" enabled=1\nitem -\nitem 22391: \"Options of it\" enabled=1\n";

}  // namespace

TEST_CASE_FIXTURE(MenuFixture, "the menu offers what the drawing allows, and works on that drawing")
{
    AcApDocument* pFirst = open("a.dwg");
    AcApDocument* pSecond = open("b.dwg");
    CHECK(menu("0") == std::string("item 22392: \"Save it\" enabled=1\n") + kClose);
    CHECK(selected() == 1);

    SUBCASE("Save saves the drawing of the tab, not the active one")
    {
        REQUIRE(run("LINE 0 0 1 1"));
        app.documents().activateDocument(pFirst);
        REQUIRE(run("LINE 0 0 1 1"));
        app.documents().activateDocument(pSecond);
        menu("0 22392");
        CHECK(app.documents().active() == pSecond);
        CHECK(tabs().size() == 2);
        CHECK(static_cast<host::Document*>(pSecond)->isModified());
        CHECK_FALSE(static_cast<host::Document*>(pFirst)->isModified());
    }
    SUBCASE("Close closes it")
    {
        menu("0 22393");
        CHECK(tabs() == Texts{"b"});
    }
    SUBCASE("Options opens the dialog, in the active drawing")
    {
        std::vector<AcApDocument*> current;
        const Answers answers([&](HWND dialog, int) {
            current.push_back(app.documents().current());
            Answers::press(dialog, IDCANCEL);
        });
        m_pWndTabs->processPopupMenuItem(pFirst, IDC_DYNAMIC_MENU_OPTIONS, {});
        app.pumpUntilIdle();
        CHECK(current == std::vector{pSecond});
    }
    SUBCASE("a host that runs Options from within the kick shows the dialog when the strip's handler is over")
    {
        std::vector<bool> inHandler;
        bool handling = true;
        const Answers answers([&](HWND dialog, int) {
            inHandler.push_back(handling);
            Answers::press(dialog, IDCANCEL);
        });
        EagerFrame::s_pHost = &app;
        EagerFrame::s_original = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&EagerFrame::procedure)));
        m_pWndTabs->processPopupMenuItem(pFirst, IDC_DYNAMIC_MENU_OPTIONS, {});
        handling = false;
        app.pumpUntilIdle();
        ::SetWindowLongPtrA(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EagerFrame::s_original));
        CHECK(inHandler == std::vector{false});
    }
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
            for (const WPARAM key : {VK_DOWN, VK_RETURN})
                ::PostMessageA(strip(), WM_KEYDOWN, key, 1);
        });
        m_pWndTabs->popupMenu(pFirst, 10, 10);
        CHECK(watch.wasUp());
        CHECK(app.commandLine().history().find("CARXMDITabs::isDocumentPresent") == std::string::npos);
        CHECK(app.commandLine().history().find("CARXMDITabs::findDocument") == std::string::npos);
        app.pumpUntilIdle();
        CHECK(tabs() == Texts{"b"});
    }
}

TEST_CASE_FIXTURE(MenuFixture, "a read-only drawing cannot be saved from the menu")
{
    const std::string path = folder.writeDrawing("fixed.dwg");
    ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    app.documents().open(path);
    app.pumpUntilIdle();
    CHECK(menu("0") == kClose);
    ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_CASE_FIXTURE(MenuFixture, "external references: listed with their state, opened by position")
{
    const std::string free = folder.writeDrawing("ref a.dwg"), fixed = folder.writeDrawing("ref b.dwg");
    open("main.dwg");
    REQUIRE(run("XATTACH \"" + free + "\""));
    REQUIRE(run("XATTACH \"" + fixed + "\""));
    REQUIRE(run("QSAVE"));
    ::SetFileAttributesA(fixed.c_str(), FILE_ATTRIBUTE_READONLY);
    const std::string full = std::string("item 22392: \"Save it\" enabled=1\n") + kClose;

    SUBCASE("with several drawings")
    {
        CHECK(menu("0") == full + "item -\nitem 0: \"Xrefs\" enabled=1\n"
                                  "  item 22394: \"ref a.dwg\" enabled=1\n"
                                  "  item 22395: \"ref b.dwg (RO)\" enabled=1\n");
        menu("0 22395");
        REQUIRE(app.documents().active() != nullptr);
        CHECK(app.documents().active()->fileName() == fixed);
        CHECK(tabs().size() == 2);
    }
    SUBCASE("one that has gone")
    {
        ::DeleteFileA(free.c_str());
        Tesk::setDiagnosticsLevel(2);
        app.commandLine().history().clear();
        CHECK(menu("0 22394").find("item 22394: \"ref a.dwg (RO)\" enabled=1\n") != std::string::npos);
        Tesk::setDiagnosticsLevel(0);
        CHECK(app.commandLine().history().find("error opening \"" + free + "\"\n") != std::string::npos);
        CHECK(tabs() == Texts{"main"});
    }
    SUBCASE("not in single-document mode")
    {
        REQUIRE(run("SETVAR SDI 1"));
        CHECK(menu("0") == full);
        REQUIRE(run("SETVAR SDI 0"));
    }
    SUBCASE("as far as the host answers")
    {
        host::Faults::failNth("acedGetVar", 1);
        CHECK(menu("0").find("item 0: \"Xrefs\" enabled=1\n") != std::string::npos);
        host::Faults::clear();
        CEditorReactor::getReactor()->databaseToBeDestroyed(app.documents().active()->database());
        host::Faults::throwNth("acdbGetSummaryInfo", 1, [] { throw 1; });
        CHECK(menu("0") == full);
        host::Faults::clear();
    }
    SUBCASE("an identifier outside the list is reported and does nothing")
    {
        const Answers answers;
        AcApDocument* pDocument = app.documents().active();
        const std::vector<CString> xrefs = m_pWndTabs->getXrefs(pDocument);
        CHECK(xrefs == std::vector<CString>{free.c_str(), fixed.c_str()});
        Tesk::setDiagnosticsLevel(1);
        for (const UINT id : {IDC_DYNAMIC_MENU_XREFS + 2, 0U})
            m_pWndTabs->processPopupMenuItem(pDocument, id, xrefs);
        CHECK(answers.assertions() == "ARXMDITabsMenu: bOK\nARXMDITabsMenu: bOK\n");
        CHECK(app.documents().count() == 1);
    }
    ::SetFileAttributesA(fixed.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_CASE_FIXTURE(MenuFixture, "string items are enabled whatever the frame made of them")
{
    open("a.dwg");
    CMenu menu, submenu;
    menu.CreatePopupMenu();
    submenu.CreatePopupMenu();
    submenu.AppendMenu(MF_STRING, 1, "of its own");
    menu.AppendMenu(MF_STRING | MF_GRAYED, IDC_DYNAMIC_MENU_SAVE, "greyed");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(submenu.Detach()), "submenu");
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    m_pWndTabs->enablePopupMenu(&menu);
    CHECK((menu.GetMenuState(0, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0);
    CHECK(answers.boxes().empty());
}
