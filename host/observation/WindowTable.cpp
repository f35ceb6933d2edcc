#include "host/observation/WindowTable.h"

#include "host/observation/Tips.h"
#include "host/observation/Windows.h"

#include <commctrl.h>

#include <array>
#include <cstdio>

namespace host::observation {

namespace {

template <std::size_t size = 160, typename... Values>
std::string format(const char* sFormat, Values... values)
{
    std::array<char, size> text{};
    std::snprintf(text.data(), text.size(), sFormat, values...);
    return text.data();
}

unsigned attributeOf(HWND window, int index) { return static_cast<unsigned>(::GetWindowLongA(window, index)); }

std::string fontOf(HWND window)
{
    const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageA(window, WM_GETFONT, 0, 0));
    if (font == nullptr || font == ::GetStockObject(SYSTEM_FONT))
        return "";
    if (font == ::GetStockObject(DEFAULT_GUI_FONT))
        return " font=gui";
    LOGFONTA description = {};
    ::GetObjectA(font, sizeof description, &description);
    return format(" font=\"%s\",%d%s", description.lfFaceName, static_cast<int>(description.lfHeight),
                  description.lfUnderline ? ",underlined" : "");
}

std::string imagesOf(HWND window)
{
    const auto images = reinterpret_cast<HIMAGELIST>(::SendMessageA(window, TCM_GETIMAGELIST, 0, 0));
    IMAGEINFO image = {};
    int width = 0;
    int height = 0;
    if (images == nullptr)
        return "";
    ::ImageList_GetIconSize(images, &width, &height);
    ::ImageList_GetImageInfo(images, 0, &image);
    BITMAP bitmap = {};
    ::GetObjectA(image.hbmImage, sizeof bitmap, &bitmap);
    return format(" images=%dx%dx%d,%d%s", ::ImageList_GetImageCount(images), width, height, bitmap.bmBitsPixel,
                  image.hbmMask != nullptr ? ",masked" : "");
}

std::string iconOf(HWND window)
{
    const auto icon = reinterpret_cast<HICON>(::SendMessageA(window, STM_GETICON, 0, 0));
    if (icon == nullptr)
        return "";
    for (const auto& [name, sName] : {std::pair(IDI_HAND, "stop"), std::pair(IDI_ASTERISK, "information"),
                                      std::pair(IDI_EXCLAMATION, "warning"), std::pair(IDI_QUESTION, "question")})
        if (icon == ::LoadIconA(nullptr, name))
            return format(" icon=%s", sName);
    return " icon=other";
}

std::string tooltipOf(HWND window)
{
    return format(" width=%d tools=%d icon=%d", static_cast<int>(::SendMessageA(window, TTM_GETMAXTIPWIDTH, 0, 0)),
                  static_cast<int>(::SendMessageA(window, TTM_GETTOOLCOUNT, 0, 0)), Tips::iconOf(window));
}

// The rest of a toolkit's own class name is made of addresses.
std::string shownClass(HWND window)
{
    const std::string sClass = classOf(window);
    return sClass.substr(0, sClass.find(':'));
}

std::string describe(HWND window, HWND parent, const char* sIndent)
{
    const std::string sClass = classOf(window);
    RECT rect;
    ::GetWindowRect(window, &rect);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    std::string line = format("%swindow \"%s\" %d: ", sIndent, shownClass(window).c_str(),
                              parent == nullptr ? 0 : LOWORD(::GetDlgCtrlID(window)));
    if (parent != nullptr)
        line += format("rect=%ld,%ld,%ld,%ld ", rect.left, rect.top, rect.right, rect.bottom);
    line += format("style=%08x exstyle=%08x", attributeOf(window, GWL_STYLE), attributeOf(window, GWL_EXSTYLE));
    line += fontOf(window);
    if (sClass == WC_TABCONTROLA)
        line += imagesOf(window) + format(" name=\"%s\"", textOf(window).c_str());
    if (sClass == TOOLTIPS_CLASSA)
        line += tooltipOf(window);
    if (sClass == "Static")
        line += iconOf(window);
    return line + (window == ::GetFocus() ? " focus" : "") + (window == ::GetCapture() ? " capture\n" : "\n");
}

std::string describeChildren(HWND parent)
{
    std::string lines;
    for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
        lines += describe(child, parent, "  ");
    return lines;
}

BOOL CALLBACK addOwned(HWND window, LPARAM lines)
{
    const std::string sClass = classOf(window);
    if (sClass == TOOLTIPS_CLASSA || (sClass == "#32770" && ::IsWindowVisible(window)))
        *reinterpret_cast<std::string*>(lines) += describe(window, nullptr, "") + describeChildren(window);
    return TRUE;
}

}  // namespace

std::string describeWindows(HWND frame)
{
    std::string lines = describe(frame, nullptr, "") + describeChildren(frame);
    ::EnumThreadWindows(::GetCurrentThreadId(), &addOwned, reinterpret_cast<LPARAM>(&lines));
    return lines;
}

}  // namespace host::observation
