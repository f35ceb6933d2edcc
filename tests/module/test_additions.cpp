// What an office may switch on, where others work meanwhile. What it shows and does else is
// in tests/transcripts; what reaches other programs, in tests/e2e.
#include "ModuleFixture.h"
#include "additions/MenuIds.h"
#include "host/drawing/Faults.h"
#include "library/diagnostics/Prerelease.h"
#include "module/ZavikMDITabs.h"
#include "objectarx/rxmfcapi.h"
#include "tests/support/Answers.h"
#include "tests/support/ThreadCodePage.h"
#include <doctest/doctest.h>

using Texts = std::vector<std::string>;

namespace {

struct AdditionsFixture : ModuleFixture {
    AdditionsFixture()
    {
        folder.write("MDITabs.ini", "ModifiedText = *\nPopupCloseOthersText = Others\nPopupSaveAllText = Save all\n"
                                    "PopupCloseSavedText = Saved\nPopupCopyPathText = Copy\nMaximumName = 8\n");
        // The folder's texts are the active drawing's, and so the strip's.
        open("x.dwg");
        load();
    }
    // As chosen in the tab's menu; what the host does then is still to come.
    void choose(AcApDocument* pDocument, UINT item) { m_pWndTabs->processPopupMenuItem(pDocument, item, {}); }
    // Comes to those who look at the host's messages behind the strip.
    bool passes(UINT message, WPARAM wParam, LPARAM lParam)
    {
        passed = 0;
        acedRegisterFilterWinMsg(&count);
        ::PostMessageA(frame, message, wParam, lParam);
        app.pumpUntilIdle();
        acedRemoveFilterWinMsg(&count);
        return passed == message;
    }

private:
    static BOOL count(MSG* pMsg)
    {
        if (pMsg->message == WM_MOUSEWHEEL || pMsg->message == WM_KEYDOWN)
            passed = pMsg->message;
        return FALSE;
    }
    static inline UINT passed = 0;
};

}  // namespace

TEST_CASE_FIXTURE(AdditionsFixture, "what goes meanwhile ends the closing or saving of several")
{
    std::vector<AcApDocument*> documents;
    for (const char* name : {"a.dwg", "b.dwg", "c.dwg"}) {
        documents.push_back(open(name));
        REQUIRE(run("LINE 0 0 1 1"));
    }
    SUBCASE("another drawing than the one that is closed")
    {
        choose(documents[2], IDC_DYNAMIC_MENU_CLOSE_OTHERS);
        close(documents[0]);
        CHECK(tabs() == Texts{"b*", "c*"});
    }
    SUBCASE("the one that is saved")
    {
        choose(documents[2], IDC_DYNAMIC_MENU_SAVE_ALL);
        close(documents[0]);
        CHECK(tabs() == Texts{"x", "b*", "c*"});
    }
    SUBCASE("what was changed meanwhile, whatever was notified: it is kept")
    {
        const auto drawing = [&](std::size_t i) -> host::Database& {
            return *host::Database::of(documents[i]->database());
        };
        for (std::size_t i = 0; i < documents.size(); ++i)
            drawing(i).setSaved();
        choose(documents[0], IDC_DYNAMIC_MENU_CLOSE_SAVED);
        host::Faults::failNth("AcDbDatabaseReactor::objectAppended", 1);
        drawing(1).addLine(0, 0, 1, 1);
        host::Faults::clear();
        app.pumpUntilIdle();
        CHECK(app.documents().count() == 1);
        CHECK(app.documents().active() == documents[1]);
    }
    SUBCASE("the strip")
    {
        const auto listeners = [this] { return app.documents().reactorCount() + app.editor().reactorCount(); };
        choose(documents[2], IDC_DYNAMIC_MENU_CLOSE_OTHERS);
        unload();
        CHECK(listeners() == 0);
        app.pumpUntilIdle();
        load();
        CHECK(tabs() == Texts{"a*", "b*", "c*"});
    }
}

TEST_CASE_FIXTURE(AdditionsFixture, "of quick middle clicks each counts")
{
    user.set("MiddleClickCloses", 1);
    send(WM_MBUTTONDBLCLK, middleOf(0));
    send(WM_MBUTTONUP, middleOf(0));
    app.pumpUntilIdle();
    CHECK(tabs().empty());
}

TEST_CASE_FIXTURE(AdditionsFixture,
                  "the wheel over the strip and Escape while a tab is dragged end there, and nothing else")
{
    user.set("WheelScrolls", 1);
    user.set("DragTabs", 1);
    unload();
    load();
    open("y.dwg");
    CPoint over = middleOf(0);
    ::ClientToScreen(strip(), &over);
    CHECK_FALSE(passes(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(over.x, over.y)));
    send(WM_LBUTTONDOWN, middleOf(0), MK_LBUTTON);
    send(WM_MOUSEMOVE, middleOf(1), MK_LBUTTON);
    CHECK(passes(WM_KEYDOWN, VK_RETURN, 1));
    CHECK_FALSE(passes(WM_KEYDOWN, VK_ESCAPE, 1));
    CHECK(passes(WM_KEYDOWN, VK_ESCAPE, 1));
}

TEST_CASE_FIXTURE(AdditionsFixture, "a long name loses characters, not bytes")
{
    const CThreadLocale locale(CThreadLocale::japanese);
    const std::string kana = "\x83\x41", three = kana + kana + kana, eight = three + three + kana + kana;
    open(eight + ".dwg");
    open(eight + kana + ".dwg");
    CHECK(tabs() == Texts{"x", eight, three + "\x81\x63" + three + kana});
}

TEST_CASE_FIXTURE(AdditionsFixture, "a path takes the place of all that was copied before, or is told of")
{
    bool waits = false;  // the frame for the box
    const Answers answers({}, [&] { waits = ::IsWindowEnabled(frame) == FALSE; });
    ::OpenClipboard(frame);
    ::EmptyClipboard();
    ::SetClipboardData(CF_PRIVATEFIRST, nullptr);
    ::CloseClipboard();
    choose(app.documents().active(), IDC_DYNAMIC_MENU_COPY_PATH);
    CHECK(::IsClipboardFormatAvailable(CF_UNICODETEXT));
    CHECK_FALSE(::IsClipboardFormatAvailable(CF_PRIVATEFIRST));
    ::OpenClipboard(frame);
    choose(app.documents().active(), IDC_DYNAMIC_MENU_COPY_PATH);
    ::CloseClipboard();
    REQUIRE(answers.boxes().size() == 1);
    CHECK(answers.boxes()[0].text == "The path could not be copied: another program is using the clipboard.");
    CHECK(waits);
}

TEST_CASE_FIXTURE(AdditionsFixture, "what is not switched on cannot be chosen by its number either")
{
    AcApDocument* pDocument = open("a.dwg");
    open("b.dwg");
    Tesk::setDiagnosticsLevel(1);
    const Answers answers;
    choose(pDocument, IDC_DYNAMIC_MENU_HELP);
    choose(pDocument, IDC_DYNAMIC_MENU_DRAWINGS);
    CHECK(answers.assertions() == "ARXMDITabsMenu: bOK\nARXMDITabsMenu: bOK\n");
}
