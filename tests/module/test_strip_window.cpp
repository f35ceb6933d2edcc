// The window layer of the strip in the host's frame: its band, its image list, its
// balloon.
#include "ModuleFixture.h"
#include "host/ui/MainFrame.h"
#include "library/diagnostics/Maintenance.h"
#include "library/system/Handles.h"
#include "tabs/MDITabsEx.h"
#include <doctest/doctest.h>

namespace {

class Strip : public CMDITabsEx {
public:
    using CMDITabs::m_images;

    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        m_seen += pMsg->message == WM_MOUSEMOVE;
        return CMDITabsEx::PreTranslateMessage(pMsg);
    }
    void addTabs(int iCount)
    {
        for (int i = 0; i < iCount; ++i) {
            char text[] = "Drawing";
            TCITEMA item = {};
            item.mask = TCIF_TEXT;
            item.pszText = text;
            InsertItem(GetItemCount(), &item);
        }
    }

    int m_seen = 0;
};

// A host with a strip of its own instead of the module's.
struct StripFixture : ModuleFixture {
    StripFixture() { Tesk::initialiseLibrary("ZavikMDITabs", AfxGetInstanceHandle(), false); }
    ~StripFixture()
    {
        window.DestroyWindow();
        Tesk::terminateLibrary();
    }
    void make(DWORD dwStyle, int iTabs)
    {
        if (window.m_hWnd != nullptr)
            window.DestroyWindow();
        app.frame().RecalcLayout();
        free = rectOf(client);
        window.Create(&app.frame(), dwStyle);
        window.addTabs(iTabs);
        app.frame().RecalcLayout();
    }
    bool shown() const { return (window.GetStyle() & WS_VISIBLE) != 0; }

    Strip window;
    CRect free;  // the MDI client's place without a strip
};

}  // namespace

TEST_CASE_FIXTURE(StripFixture, "the band lies at the edge of the drawings, to the pixel")
{
    for (DWORD dwStyle = 0; dwStyle < 16; ++dwStyle) {
        CAPTURE(dwStyle);
        make(dwStyle, 2);
        const bool top = (dwStyle & 1) != 0;
        const int height = (dwStyle & 2) != 0 ? 27 : 26;
        const CRect rest = top ? CRect(free.left, free.top + height, free.right, free.bottom)
                               : CRect(free.left, free.top, free.right, free.bottom - height);
        const LONG split = free.right - rectOf(logo()).Width();
        const CRect band = top ? CRect(free.left, free.top, split, free.top + height + 2)
                               : CRect(free.left, free.bottom - height - 2, split, free.bottom);
        CHECK(shown());
        CHECK(rectOf(client) == rest);
        CHECK(rectOf(window.m_hWnd) == band);
        CHECK(rectOf(logo()) == CRect(split, top ? free.top : rest.bottom, free.right, top ? rest.top : free.bottom));
        CHECK(split < free.right);
        CHECK((window.GetStyle() & TCS_BOTTOM) == (top ? 0U : static_cast<DWORD>(TCS_BOTTOM)));
        CHECK((window.GetExStyle() & WS_EX_CLIENTEDGE) != 0);
        CHECK(window.GetDlgCtrlID() == 42);
    }
}

TEST_CASE_FIXTURE(StripFixture, "the strip takes no room below its number of tabs")
{
    for (const DWORD dwStyle : {2U, 6U, 7U}) {
        make(dwStyle, 0);
        // One strip all the way, tabs coming and going.
        for (const int tabs : {0, 1, 2, 1, 0}) {
            CAPTURE(dwStyle);
            CAPTURE(tabs);
            while (window.GetItemCount() > tabs)
                window.DeleteItem(0);
            window.addTabs(tabs - window.GetItemCount());
            app.frame().RecalcLayout();
            const bool expected = tabs >= ((dwStyle & 4) != 0 ? 2 : 1);
            CHECK(shown() == expected);
            CHECK(((::GetWindowLongA(logo(), GWL_STYLE) & WS_VISIBLE) != 0) == expected);
            CHECK((rectOf(client) == free) != expected);
        }
    }
}

TEST_CASE_FIXTURE(StripFixture, "a pass that only measures takes the band and moves nothing")
{
    const auto measure = [this] {
        CRect rest;
        app.frame().RepositionBars(0, 0xFFFF, 0, CWnd::reposQuery, &rest, CRect(0, 0, 500, 400));
        return rest.bottom;
    };
    make(2, 0);
    const LONG without = measure();
    window.addTabs(1);
    const CRect before = rectOf(window.m_hWnd);
    CHECK(measure() == without - 27);
    CHECK(rectOf(window.m_hWnd) == before);
}

TEST_CASE_FIXTURE(StripFixture, "a frame narrower than the logo gives the tabs no width, not less")
{
    make(2, 1);
    AFX_SIZEPARENTPARAMS layout = {};
    layout.hDWP = ::BeginDeferWindowPos(2);
    layout.rect = {0, 0, 20, 100};
    ::SendMessageA(window.m_hWnd, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
    ::EndDeferWindowPos(layout.hDWP);
    CHECK(rectOf(window.m_hWnd).Width() == 0);
    CHECK(rectOf(logo()) == CRect(0, 73, 20, 100));
}

TEST_CASE_FIXTURE(StripFixture, "icons, balloon and windows go with the strip")
{
    make(2 | 8, 1);  // what the system allocates once is there from here on
    window.DestroyWindow();
    const long balance = liveHandles();
    make(2 | 8, 1);
    CHECK(balloon() == "XXXX default line 1\nXXXX default line 2");
    window.DestroyWindow();
    CHECK(window.m_images.GetSafeHandle() == nullptr);
    CHECK(liveHandles() == balance);
    CHECK(logo() == nullptr);
    CHECK(balloon() == "-");
}

TEST_CASE_FIXTURE(StripFixture, "the host's pump shows the strip its messages before they are dispatched")
{
    make(2 | 8, 1);
    window.PostMessage(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    app.pumpUntilIdle();
    CHECK(window.m_seen >= 1);
}
