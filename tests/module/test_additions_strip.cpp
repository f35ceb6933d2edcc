// What an office may switch on of the strip itself: its room, names, wheel, order and keys.
#include "ModuleFixture.h"
#include "additions/MenuIds.h"
#include "host/drawing/Faults.h"
#include "host/observation/Strip.h"
#include "host/ui/MainFrame.h"
#include "module/ZavikMDITabs.h"
#include "settings/resource.h"
#include "tests/support/Answers.h"
#include "tests/support/MenuWatch.h"
#include "tests/support/ThreadCodePage.h"
#include <doctest/doctest.h>

#include <cstdio>

using Texts = std::vector<std::string>;

namespace {

struct StripFixture : ModuleFixture {
    // So many drawings, after which the strip is too narrow from some ten on.
    void openMany(int count)
    {
        for (int i = 0; i < count; ++i)
            open("Longish-" + std::to_string(100 + i) + ".dwg");
    }
    std::string output(const std::string& line) { return app.execute(line).output; }
    // The first and the last tab that show from end to end.
    std::pair<int, int> shown()
    {
        const std::string text = output("STRIP");
        int first = -1, last = -1;
        std::sscanf(text.c_str() + text.find("shown: "), "shown: %d..%d", &first, &last);
        return {first, last};
    }
    // Pressed and moved; then released.
    void drag(CPoint from, CPoint to)
    {
        send(WM_LBUTTONDOWN, from);
        send(WM_MOUSEMOVE, to);
    }
    void drop(CPoint to) { send(WM_LBUTTONUP, to); }
    Texts drawingsOf(const std::string& menu)
    {
        Texts captions;
        for (std::size_t at = 0; (at = menu.find("item 21", at)) != std::string::npos; ++at)
            captions.push_back(menu.substr(at + 13, menu.find('"', at + 13) - at - 13));
        return captions;
    }
    int active() { return m_pWndTabs->findDocument(app.documents().active()); }
};

}  // namespace

TEST_CASE_FIXTURE(StripFixture, "the strip leaves no room on the right while tabs are scrolled out on the left")
{
    load();
    openMany(24);
    const auto before = shown();
    REQUIRE(before.first > 8);
    for (int i = 0; i < 7; ++i)
        close(app.documents().active());
    const int room = before.second - before.first;
    CHECK(shown() == std::pair(16 - room, 16));
    REQUIRE(run("WIDTH 1200"));
    const auto wide = shown();
    CHECK(wide.first < 16 - room);
    CHECK(wide.second == 16);
    // A tab that does not fit stays out, and a strip that shows its first has nothing to give.
    REQUIRE(run("WIDTH 1205"));
    CHECK(shown() == wide);
    while (app.documents().count() != 0)
        close(app.documents().active());
    CHECK(tabs().empty());
}

TEST_CASE_FIXTURE(StripFixture, "the wheel scrolls a tab a notch and no further, where the registry asks for it")
{
    load();
    CHECK(app.filterCount() == 0);
    unload();
    user.set("WheelScrolls", 1);
    load();
    openMany(14);
    const auto end = shown();
    for (const auto& [notches, first] : {std::pair("1", end.first - 1),
                                         {"0.6", end.first - 1},
                                         {"0.6", end.first - 2},
                                         {"-1", end.first - 1},
                                         {"99", 0},
                                         {"-2", 2},
                                         {"-99", end.first}}) {
        REQUIRE(run(std::string("WHEEL ") + notches));
        CHECK(shown().first == first);
    }
    CHECK(shown() == end);
    CHECK(active() == 13);
    // Over the drawings it is theirs, and switched off at once.
    ::PostMessageA(frame, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(300, 300));
    app.pumpUntilIdle();
    user.set("WheelScrolls", 0);
    REQUIRE(run("WHEEL 1"));
    CHECK(shown() == end);
    // The host's answer does not matter.
    host::Faults::failNth("acedRemoveFilterWinMsg", 1);
    unload();
    host::Faults::clear();
    CHECK(app.filterCount() == 0);
}

TEST_CASE_FIXTURE(StripFixture, "a tab is dragged to another's place, where the registry asks for it")
{
    folder.write("MDITabs.ini", "PopupDrawingsText = Drawings\nPopupCloseOthersText = Others\n");
    load();
    for (const char* name : {"a", "b", "c", "d"})
        open(std::string(name) + ".dwg");
    REQUIRE(run("DRAG 0 2"));
    CHECK(tabs() == Texts{"a", "b", "c", "d"});
    user.set("DragTabs", 1);
    SUBCASE("the order lasts, and all follow it")
    {
        REQUIRE(run("DRAG 0 2"));
        CHECK(tabs() == Texts{"b", "c", "a", "d"});
        CHECK(active() == 2);
        CHECK(selected() == 2);
        REQUIRE(run("SWITCH 2"));
        REQUIRE(run("LOCKDOCS 1"));
        REQUIRE(run("DRAG 3 1"));
        REQUIRE(run("LOCKDOCS 0"));
        const Texts order = {"b", "d", "c", "a"};
        CHECK(tabs() == order);
        CHECK(selected() == 2);
        REQUIRE(run("SWITCH 0"));
        for (const int control : {IDC_SHOW_ICONS, IDC_POSITION_TOP}) {
            const Texts lines = {"ZavikMDITabs", "PRESS " + std::to_string(control), "PRESS 1"};
            REQUIRE(app.execute(lines).succeeded);
            CHECK(tabs() == order);
            CHECK(selected() == 3);
        }
        CHECK(drawingsOf(output("MENU 0")) == order);
        // One that is closed has lost its place.
        close(m_pWndTabs->getDocument(1));
        open("e.dwg");
        CHECK(tabs() == Texts{"b", "c", "a", "e"});
        const std::string closed = output("MENU 3 " + std::to_string(IDC_DYNAMIC_MENU_CLOSE_OTHERS));
        CHECK(tabs() == Texts{"e"});
        open("f.dwg");
        CHECK(tabs() == Texts{"e", "f"});
    }
    SUBCASE("not by a hand that trembles, nor without the mouse or with Escape, nor outside")
    {
        const CPoint from = middleOf(0);
        drag(from, from + CSize(2, 2));
        CHECK(app.filterCount() == 0);
        drop(from + CSize(2, 2));
        for (const int way : {0, 1, 2}) {
            drag(from, middleOf(2));
            CHECK(app.filterCount() == 1);
            if (way == 0)
                ::ReleaseCapture();
            else if (way == 1)
                ::PostMessageA(frame, WM_KEYDOWN, VK_ESCAPE, 1);
            app.pumpUntilIdle();
            CHECK((::GetCapture() == strip()) == (way == 2));
            drop(way == 2 ? CPoint(30, -40) : middleOf(2));
            CHECK(app.filterCount() == 0);
            CHECK(::GetCapture() == nullptr);
        }
        CHECK(tabs() == Texts{"a", "b", "c", "d"});
        // Behind the last one is its place; a drawing that goes takes the mouse's hold along.
        drag(from, middleOf(3) + CSize(200, 0));
        drop(middleOf(3) + CSize(200, 0));
        CHECK(tabs() == Texts{"b", "c", "d", "a"});
        drag(from, middleOf(2));
        close(m_pWndTabs->getDocument(0));
        CHECK(::GetCapture() == nullptr);
        CHECK(app.filterCount() == 0);
    }
    SUBCASE("at its ends the strip scrolls, again and again")
    {
        openMany(14);
        const auto end = shown();
        drag(middleOf(17), CPoint(2, 10));
        CHECK(shown().first == end.first - 1);
        REQUIRE(run("WAIT 300"));
        CHECK(shown().first < end.first - 1);
        drop(CPoint(2, 10));
        const auto left = shown();
        REQUIRE(run("WAIT 300"));
        CHECK(shown() == left);
        drag(middleOf(left.second), CPoint(2, 10));
        CHECK(shown().first == left.first - 1);
    }
}

TEST_CASE_FIXTURE(StripFixture, "a long name loses its middle on the tab alone, and a read-only drawing says so")
{
    const CThreadLocale locale(CThreadLocale::japanese);
    const std::string ini = "ModifiedText = *\nReadOnlyText = \" (RO)\"\nPopupDrawingsText = Drawings\n"
                            "SameNameText = \" (%DISTINCT_FOLDER%)\"\nMaximumName = ";
    const std::string eight = "Grund&\x83\x5c\x83\x5c", dots = "\x81\x63";  // two bytes a character
    for (const char* name : {"MDITabs.ini", "A\\MDITabs.ini", "B\\MDITabs.ini"})
        folder.write(name, ini + "8\n");
    open("x.dwg");
    load();
    for (const char* name : {"2006 Riverside one", "2006 Riverside two", "12345678", "A\\123456789", "B\\123456789"})
        open(name + std::string(".dwg"));
    REQUIRE(run("LINE 0 0 1 1"));
    ::SetFileAttributesA(folder.writeDrawing(eight + ".dwg").c_str(), FILE_ATTRIBUTE_READONLY);
    app.documents().open(folder.path(eight + ".dwg"));
    REQUIRE(run("LINE 0 0 1 1"));
    CHECK(tabs() == Texts{"x", "200" + dots + " one", "200" + dots + " two", "12345678", "123" + dots + "6789 (A)",
                          "123" + dots + "6789 (B)*", eight + " (RO)*"});
    CHECK(drawingsOf(output("MENU 0"))[4] == "123456789 (A)");
    unload();
    folder.write("MDITabs.ini", ini + "7\n");
    load();
    CHECK(tabs()[1] == "2006 Riverside one");
}

TEST_CASE_FIXTURE(StripFixture, "all that are changed are saved one after the other, until one is not")
{
    folder.write("MDITabs.ini", "ModifiedText = *\nPopupSaveAllText = Save all\n");
    load();
    // One that cannot be written is nobody's concern.
    ::SetFileAttributesA(folder.writeDrawing("r.dwg").c_str(), FILE_ATTRIBUTE_READONLY);
    app.documents().open(folder.path("r.dwg"));
    REQUIRE(run("LINE 0 0 1 1"));
    for (const char* name : {"a.dwg", "b.dwg", "c.dwg", "d.dwg"})
        open(name);
    for (const char* tab : {"4", "3", "2"}) {
        REQUIRE(run(std::string("SWITCH ") + tab));
        REQUIRE(run("LINE 0 0 1 1"));
    }
    const std::string saveAll = "MENU 0 " + std::to_string(IDC_DYNAMIC_MENU_SAVE_ALL);
    SUBCASE("each in the tabs' order")
    {
        const std::string text = output(saveAll);
        CHECK(tabs() == Texts{"r*", "a", "b", "c", "d"});
        CHECK(text.find("SaveNext") == std::string::npos);
        CHECK(output("MENU 0").find("Save all") == std::string::npos);
        unload();
        CHECK_FALSE(run("ZavikMDITabsSaveNext"));
    }
    SUBCASE("one is refused, or the host takes no more")
    {
        ::SetFileAttributesA(folder.path("c.dwg").c_str(), FILE_ATTRIBUTE_READONLY);
        SUBCASE("by its file") { CHECK_FALSE(run(saveAll)); }
        SUBCASE("by the queue")
        {
            host::Faults::failNth("AcApDocManager::sendStringToExecute", 3);
            run(saveAll);
            host::Faults::clear();
        }
        CHECK(tabs() == Texts{"r*", "a", "b", "c*", "d*"});
        ::SetFileAttributesA(folder.path("c.dwg").c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    SUBCASE("one is closed when it is its turn")
    {
        m_pWndTabs->processPopupMenuItem(app.documents().active(), IDC_DYNAMIC_MENU_SAVE_ALL, {});
        app.documents().close(app.documents().at(2));
        app.pumpUntilIdle();
        CHECK(tabs() == Texts{"r*", "a", "c*", "d*"});
    }
}

TEST_CASE_FIXTURE(StripFixture, "the list of drawings begins with what was used before")
{
    folder.write("MDITabs.ini", "PopupDrawingsText = Drawings\nDrawingsOrder = Recent\n");
    open("a.dwg");
    load();
    open("b.dwg");
    open("c.dwg");
    REQUIRE(app.execute(Texts{"SWITCH 0", "SWITCH 2", "SWITCH 1"}).succeeded);
    CHECK(drawingsOf(output("MENU 0")) == Texts{"c", "a", "b"});
    REQUIRE(run("MENU 0 21001"));
    CHECK(active() == 0);
    // Else it is the tabs' order. Longer than the screen it begins near the active one.
    unload();
    folder.write("MDITabs.ini", "PopupDrawingsText = Drawings\n");
    load();
    CHECK(drawingsOf(output("MENU 0")) == Texts{"a", "b", "c"});
    const int fit = ::GetSystemMetrics(SM_CYSCREEN) / ::GetSystemMetrics(SM_CYMENU);
    openMany(fit - 2);
    REQUIRE(run("SWITCH 20"));
    const Texts list = drawingsOf(output("MENU 0"));
    CHECK(static_cast<int>(list.size()) == fit + 1);
    CHECK(list[5] == tabs()[20]);
}

TEST_CASE_FIXTURE(StripFixture, "a command opens the active drawing's menu at its tab, under the office's name")
{
    CRect menu;
    const MenuWatch watch([&menu] {
        ::GetWindowRect(MenuWatch::window(), menu);
        ::EndMenu();
    });
    app.documents().open(folder.writeDrawing("Longish-099.dwg"));
    folder.write("MDITabs.ini", "PopupCloseText = Close\nMenuCommand = ZavikTabMenu\n");
    SUBCASE("scrolled into view")
    {
        load();
        openMany(14);
        REQUIRE(app.execute(Texts{"SWITCH 0", "WIDTH 700"}).succeeded);
        m_pWndTabs->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 1));
        REQUIRE(run("ZavikTabMenu"));
        POINT place = {};
        ::ClientToScreen(strip(), &place);
        CHECK(std::abs(menu.left - place.x) < 8);
        CHECK(shown().first == 0);
        unload();
        CHECK_FALSE(run("ZavikTabMenu"));
    }
    SUBCASE("a host that takes no command is told of in the log alone")
    {
        host::Faults::failNth("AcEdCommandStack::addCommand", 1);
        const Answers answers;
        load();
        host::Faults::clear();
        CHECK(answers.boxes().empty());
        CHECK_FALSE(run("ZavikTabMenu"));
        CHECK(tabs().size() == 1);
    }
}
