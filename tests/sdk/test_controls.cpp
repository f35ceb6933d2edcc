#include "TestWindows.h"

#include "mfc/afxcmn.h"
#include <doctest/doctest.h>

#include <memory>

namespace {

UniqueIcon anIcon()
{
    const BYTE mask[32] = {};
    const BYTE bits[32] = {};
    return UniqueIcon(::CreateIcon(nullptr, 16, 16, 1, 1, mask, bits));
}

}  // namespace

TEST_CASE("an image list is one owned handle and copies the icons that it is given")
{
    const long before = liveHandles();
    CImageList images;
    CHECK_FALSE(images.DeleteImageList());
    REQUIRE(images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1));
    CHECK_FALSE(images.Create(16, 16, ILC_COLOR32, 1, 1));
    {
        const UniqueIcon icon = anIcon();
        REQUIRE(icon);
        CHECK(liveHandles() == before + 2);
        CHECK(images.Add(icon.get()) == 0);
        CHECK(images.Add(icon.get()) == 1);
    }
    CHECK(images.GetImageCount() == 2);
    CHECK(images.Remove(-1));
    CHECK(images.GetImageCount() == 0);
    CHECK(images.Add(nullptr) == -1);
    CHECK(images.DeleteImageList());
    CHECK(liveHandles() == before);
}

TEST_CASE("tabs hold text, image and data, and are found under a point")
{
    TestFrame frame;
    CImageList images;
    CTabCtrl tabs;
    REQUIRE(tabs.Create(WS_CHILD | WS_VISIBLE, RECT{0, 0, 300, 28}, &frame, 42));
    CHECK(tabs.GetDlgCtrlID() == 42);
    REQUIRE(images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1));
    tabs.SetImageList(&images);
    CHECK(reinterpret_cast<HIMAGELIST>(tabs.SendMessage(TCM_GETIMAGELIST)) == images.GetSafeHandle());

    char name[] = "plan";
    TCITEMA item{};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = name;
    for (int i = 0; i < 3; ++i) {
        item.lParam = i + 10;
        CHECK(tabs.InsertItem(i, &item) == i);
    }
    CHECK(tabs.SetCurSel(2) == 0);
    CHECK(tabs.GetCurSel() == 2);
    CHECK(tabs.DeleteItem(1));
    CHECK_FALSE(tabs.DeleteItem(5));
    CHECK(tabs.GetItemCount() == 2);

    CRect rect;
    REQUIRE(tabs.GetItemRect(1, rect));
    TCHITTESTINFO hit = {rect.CenterPoint(), 0};
    CHECK(tabs.HitTest(&hit) == 1);
    hit.pt = {290, 10};
    CHECK(tabs.HitTest(&hit) == -1);

    char text[20] = "";
    item.pszText = text;
    item.cchTextMax = sizeof text;
    REQUIRE(tabs.GetItem(1, &item));
    CHECK(item.lParam == 12);
    CHECK(CString(item.pszText) == "plan");
    tabs.SetImageList(nullptr);
}

TEST_CASE("a balloon has one tool for a whole window, whose text changes")
{
    TestFrame frame;
    CTabCtrl tabs;
    REQUIRE(tabs.Create(WS_CHILD | WS_VISIBLE, RECT{0, 0, 300, 28}, &frame, 42));
    auto tip = std::make_unique<CToolTipCtrl>();
    REQUIRE(tip->Create(&frame, TTS_BALLOON));
    CHECK((tip->GetStyle() & (WS_POPUP | TTS_BALLOON)) == (WS_POPUP | TTS_BALLOON));
    CHECK(::GetWindow(tip->m_hWnd, GW_OWNER) == frame.m_hWnd);
    tip->SetMaxTipWidth(32767);
    CHECK(tip->SetTitle(1, "Drawing"));
    REQUIRE(tip->AddTool(&tabs, "line 1\nline 2"));
    CHECK(tip->GetToolCount() == 1);
    CHECK(tip->GetText(&tabs) == "line 1\nline 2");
    const CString longText('x', 700);
    tip->UpdateTipText(longText, &tabs);
    CHECK(tip->GetText(&tabs) == longText);
    const HWND window = tip->m_hWnd;
    tip.reset();
    CHECK_FALSE(::IsWindow(window));
}
