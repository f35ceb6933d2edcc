#pragma once

// The module in the stand-in host, in this process: real windows, a registry of its
// own for the user, and a folder of its own for drawings.

#include "host/application/Application.h"
#include "mfc/afxcmn.h"
#include "mfc/afxwin.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"

#include <string>
#include <vector>

struct ModuleFixture {
    ModuleFixture();
    ~ModuleFixture();

    // Through the entry point, as the host does; each gives the reason of a failure.
    std::string load();
    std::string unload();
    // Opens a new drawing of that name in the folder.
    AcApDocument* open(const std::string& name);
    void close(AcApDocument* pDocument);
    // As a script line; false when it failed.
    bool run(const std::string& line) { return app.execute(line).succeeded; }
    // As a person's line: dialogs wait for the person.
    void type(const std::string& line);

    // The tab control as seen from outside; null without a strip.
    HWND strip() const { return ::FindWindowExA(frame, nullptr, WC_TABCONTROLA, nullptr); }
    std::vector<std::string> tabs() const;
    int selected() const { return static_cast<int>(::SendMessageA(strip(), TCM_GETCURSEL, 0, 0)); }
    CPoint middleOf(int tab) const;
    // What Windows would send the strip of the mouse, there.
    void send(UINT message, CPoint point, WPARAM buttons = 0) const;
    void click(int tab) const;
    void moveMouse(int tab) const;

    CTestHive user;
    CTestFolder folder;
    host::Application app;
    HWND frame;
    HWND client;  // the MDI client
};
