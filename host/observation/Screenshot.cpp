#include "host/observation/Screenshot.h"

#include "dxf/FileError.h"

// What gdiplus.h leaves to its includer.
#include <propidl.h>

#include <gdiplus.h>

namespace host::observation {

namespace {

constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

class Session {
public:
    Session() { Gdiplus::GdiplusStartup(&m_token, &m_input, nullptr); }
    ~Session() { Gdiplus::GdiplusShutdown(m_token); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

private:
    Gdiplus::GdiplusStartupInput m_input;
    ULONG_PTR m_token = 0;
};

HBITMAP screenAt(const RECT& rect)
{
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    const HDC screen = ::GetDC(nullptr);
    const HDC memory = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ old = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, width, height, screen, rect.left, rect.top, SRCCOPY);
    ::SelectObject(memory, old);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, screen);
    return bitmap;
}

}  // namespace

void savePicture(HWND window, const std::string& sPath)
{
    RECT rect;
    ::GetWindowRect(window, &rect);
    wchar_t path[MAX_PATH] = L"";
    ::MultiByteToWideChar(CP_ACP, 0, sPath.c_str(), -1, path, MAX_PATH);
    const Session session;
    const HBITMAP bitmap = screenAt(rect);
    const Gdiplus::Status status = Gdiplus::Bitmap(bitmap, nullptr).Save(path, &kPngEncoder, nullptr);
    ::DeleteObject(bitmap);
    if (status != Gdiplus::Ok)
        throw dxf::FileError(sPath, 0, "the picture cannot be written");
}

}  // namespace host::observation
