#pragma once

// The host with the module loaded and drawings open, for the strip's figures. The
// user's registry is a key made for the run, with all options stored, as they are once
// the dialog was used.

#include "bench/Measure.h"
#include "host/application/Application.h"
#include "host/ui/MainFrame.h"
#include "mfc/afxwin.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"

#include <functional>

class StripSetup {
public:
    explicit StripSetup(bool bVisible = true);
    ~StripSetup();

    // Into the program's own image, where the module's code is linked already.
    void load();
    void unload();
    // Opens so many drawings more.
    void open(int iCount);
    void open(const std::string& sPath);
    void closeAll();
    // The same measured while the module is not loaded.
    template <class Measured>
    double without(const Measured& measured)
    {
        unload();
        pump();
        const double figure = measured();
        load();
        pump();
        return figure;
    }

    // As is done for each tab: two of the options, each from a key that is opened for it.
    static void readOptions();

    // Into the folder of the drawings; gives the full path.
    std::string write(const std::string& sName, const std::string& sText) { return m_folder.write(sName, sText); }

    host::MainFrame& frame() { return m_application.frame(); }
    void resize(int iWidth);
    // Until all is painted.
    void pump() { m_application.pumpUntilIdle(); }
    // Scrolls the tab into view. Screen coordinates.
    CPoint showTab(int iTab) const;
    // Microseconds from the call to the menu that it tracks for the owner being shown and
    // waiting; the menu is ended then.
    double untilMenu(HWND owner, const std::function<void()>& track);

private:
    CTestHive m_user;
    CTestFolder m_folder;
    host::Application m_application;
    int m_iOpened = 0;
};
