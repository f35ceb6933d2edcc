#include "ModuleFixture.h"

#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "mfc/afxcmn.h"
#include "module/ZavikMDITabs.h"
#include "settings/MDITabSettings.h"

#include <shellapi.h>

#include <cstring>

TemporaryFolder::TemporaryFolder()
{
    char base[MAX_PATH], path[MAX_PATH];
    ::GetTempPathA(sizeof base, base);
    ::GetTempFileNameA(base, "zmt", 0, path);
    ::DeleteFileA(path);
    ::CreateDirectoryA(path, nullptr);
    m_path = std::string(path) + "\\";
}

TemporaryFolder::~TemporaryFolder()
{
    std::string name = m_path.substr(0, m_path.size() - 1);
    name.push_back('\0');
    SHFILEOPSTRUCTA operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = name.c_str();
    operation.fFlags = FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    ::SHFileOperationA(&operation);
}

std::string TemporaryFolder::write(const std::string& name, const std::string& text) const
{
    const std::string path = m_path + name;
    const UniqueHandle file(::CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    ::WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return path;
}

std::string TemporaryFolder::writeDrawing(const std::string& name) const
{
    return write(name, "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n"
                       "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
}

BEGIN_MESSAGE_MAP(LayoutCounter, CWnd)
    ON_MESSAGE(WM_SIZEPARENT, &ThisClass::OnSizeParent)
END_MESSAGE_MAP()

LRESULT LayoutCounter::OnSizeParent(WPARAM, LPARAM)
{
    ++m_count;
    return 0;
}

CRect rectOf(HWND window)
{
    CRect rect;
    ::GetWindowRect(window, &rect);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

ModuleFixture::ModuleFixture() : frame(app.frame().m_hWnd), client(app.frame().m_hWndMDIClient)
{
    Tesk::setDiagnosticsLevel(0);
}

ModuleFixture::~ModuleFixture()
{
    Tesk::setDiagnosticsLevel(0);
    app.linker().unloadAll();
    CMDITabSettings::clearDefaultSettings();
}

std::string ModuleFixture::load() { return app.linker().attach("ZavikMDITabs", &acrxEntryPoint); }

std::string ModuleFixture::unload() { return app.linker().unload("ZavikMDITabs"); }

AcApDocument* ModuleFixture::open(const std::string& name)
{
    app.documents().open(folder.writeDrawing(name));
    app.pumpUntilIdle();
    return app.documents().active();
}

void ModuleFixture::close(AcApDocument* pDocument)
{
    app.documents().close(*static_cast<host::Document*>(pDocument));
    app.pumpUntilIdle();
}

void ModuleFixture::type(const std::string& line)
{
    app.submit(line);
    app.pumpUntilIdle();
}

std::vector<std::string> ModuleFixture::tabs() const
{
    std::vector<std::string> texts;
    const auto count = ::SendMessageA(strip(), TCM_GETITEMCOUNT, 0, 0);
    for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
        char text[MAX_PATH] = "";
        TCITEMA item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        ::SendMessageA(strip(), TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item));
        texts.emplace_back(text);
    }
    return texts;
}

CPoint ModuleFixture::middleOf(int tab) const
{
    CRect rect;
    ::SendMessageA(strip(), TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&rect));
    return rect.CenterPoint();
}

void ModuleFixture::click(int tab) const
{
    const CPoint point = middleOf(tab);
    ::SendMessageA(strip(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    ::SendMessageA(strip(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
}

void ModuleFixture::moveMouse(int tab) const
{
    const CPoint point = middleOf(tab);
    ::SendMessageA(strip(), WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
}

namespace {

struct Balloon {
    HWND strip;
    std::string text = "-";
};

BOOL CALLBACK readBalloon(HWND window, LPARAM parameter)
{
    auto& balloon = *reinterpret_cast<Balloon*>(parameter);
    char name[32] = "";
    ::GetClassNameA(window, name, sizeof name);
    char text[1024] = "";
    TTTOOLINFOA tool = {};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = ::GetParent(balloon.strip);
    tool.uId = reinterpret_cast<UINT_PTR>(balloon.strip);
    tool.lpszText = text;
    if (std::strcmp(name, TOOLTIPS_CLASSA) == 0 && ::SendMessageA(window, TTM_GETTOOLCOUNT, 0, 0) == 1) {
        ::SendMessageA(window, TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&tool));
        if (*text != '\0')
            balloon.text = text;
    }
    return TRUE;
}

}  // namespace

std::string ModuleFixture::balloon() const
{
    Balloon balloon{strip()};
    ::EnumThreadWindows(::GetCurrentThreadId(), &readBalloon, reinterpret_cast<LPARAM>(&balloon));
    return balloon.text;
}
