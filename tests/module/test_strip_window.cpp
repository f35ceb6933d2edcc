// The window layer of the strip in the host's frame: its band, its image list, its
// balloon.
#include "ModuleFixture.h"
#include "host/ui/MainFrame.h"
#include "library/maintenance/Maintenance.h"
#include "library/system/Handles.h"
#include "tabs/MDITabsEx.h"
#include <doctest/doctest.h>

namespace {

class Strip : public CMDITabsEx {
public:
    using CMDITabs::m_images;

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

    Strip window;
    CRect free;  // the MDI client's place without a strip
};

}  // namespace

TEST_CASE_FIXTURE(StripFixture, "without icons the band is a pixel lower")
{
    make(0, 2);
    CHECK(rectOf(client).bottom == free.bottom - 26);
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
    IMAGEINFO icon = {};
    BITMAP bitmap = {};
    ::ImageList_GetImageInfo(static_cast<HIMAGELIST>(window.m_images.GetSafeHandle()), 0, &icon);
    ::GetObjectA(icon.hbmImage, sizeof bitmap, &bitmap);
    CHECK(bitmap.bmBitsPixel == 32);
    window.DestroyWindow();
    CHECK(window.m_images.GetSafeHandle() == nullptr);
    CHECK(liveHandles() == balance);
    CHECK(logo() == nullptr);
    CHECK(balloon() == "-");
}
