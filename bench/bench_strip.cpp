// The strip's figures, against bare controls and calls in the same run: notifications,
// adding drawings, layout, the context menu, and the strip after the options dialog.
#include "bench/BareControls.h"
#include "bench/DialogClock.h"
#include "bench/Measure.h"
#include "bench/StripSetup.h"
#include "library/expansion/KeywordExpansion.h"
#include "module/OptionsCommand.h"
#include "module/ZavikMDITabs.h"
#include "objectarx/acedads.h"
#include "objectarx/dbapserv.h"
#include "reactors/DatabaseReactor.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/TabForwarders.h"
#include "settings/MDITabSettings.h"
#include "settings/resource.h"

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int DRAWINGS = 50;

void readDbmod(AcDbDatabase* pDatabase)
{
    AcDbHostApplicationServices* pServices = acdbHostApplicationServices();
    AcDbDatabase* pPrevious = pServices->workingDatabase();
    pServices->setWorkingDatabase(pDatabase);
    resbuf result = {};
    ::acedGetVar("DBMOD", &result);
    pServices->setWorkingDatabase(pPrevious);
}

void benchNotification(const char* sName)
{
    AcDbDatabase* pDatabase = acDocManager->mdiActiveDocument()->database();
    CDatabaseReactor reactor;
    compare(
        sName, 15, [&] { return timed(5000, [&] { reactor.objectModified(pDatabase, nullptr); }); },
        [&] { return timed(5000, [&] { readDbmod(pDatabase); }); });
}

// Documents that are in no window: what is measured is the strip.
using Documents = std::vector<std::unique_ptr<host::Document>>;

template <class Name>
Documents makeDocuments(int iCount, const Name& name)
{
    Documents documents;
    for (int i = 0; i < iCount; ++i) {
        documents.push_back(std::make_unique<host::Document>(name(std::to_string(1000 + i)), true));
        documents.back()->setDatabase(host::Database::createNew());
        // As documentCreated leaves it.
        CDocManagerReactor::getReactor()->wasDatabaseModified(documents.back().get());
    }
    return documents;
}

void forget(const Documents& documents)
{
    for (const auto& document : documents)
        CDocManagerReactor::getReactor()->removeDatabaseModifiedFlag(document.get());
}

// The time that adding takes.
double addThenRemove(const Documents& documents)
{
    const Clock clock;
    for (const auto& document : documents)
        tabsAddDocument(document.get());
    const double time = clock.elapsed();
    for (const auto& document : documents)
        tabsRemoveDocument(document.get());
    return time;
}

// Drawings of one name from as many folders, with the folder to be added and without. The
// least that telling them apart takes is one expansion a drawing.
void benchSameNames(StripSetup& setup, int iCount, int iRounds)
{
    const std::string sText = " in %X_DIRECTORY%";
    const auto inFolders = [&](const std::string& sGroup, const std::string& sTexts) {
        return makeDocuments(iCount, [&](const std::string& sNumber) {
            const std::string sFolder = sGroup + "\\" + sNumber + "\\";
            setup.write(sFolder + "MDITabs.ini", sTexts);
            return setup.write(sFolder + "Plan.dwg", "");
        });
    };
    const Documents on = inFolders("on", "SameNameText = \"" + sText + "\"\n");
    const Documents off = inFolders("off", "");
    const auto expandAll = [&] {
        for (const auto& document : off)
            Tesk::CKeywordExpansion(document->fileName(), 1, 1).expandString(sText.c_str());
    };
    compare(
        "adding " + std::to_string(iCount) + " of one name, SameNameText on against off and expanded", iRounds,
        [&] { return addThenRemove(on); }, [&] { return addThenRemove(off) + timed(1, expandAll); });
    forget(on);
    forget(off);
}

void benchAdding(int iCount, int iRounds)
{
    const auto documents = makeDocuments(
        iCount, [](const std::string& sNumber) { return "C:\\Projects\\Drawings\\A-" + sNumber + ".dwg"; });
    const BareTabs bare(m_pWndTabs->m_hWnd);
    const auto addAll = [&] { return addThenRemove(documents); };
    const auto insertAll = [&] {
        const Clock clock;
        for (int i = 0; i < iCount; ++i)
            bare.insertAfterWalk("A-" + std::to_string(1000 + i), i);
        const double time = clock.elapsed();
        bare.clear();
        return time;
    };
    const std::string sWork = "adding " + std::to_string(iCount) + " drawings";
    compare(sWork, iRounds, addAll, insertAll);
    if (iCount == 100)
        compare("the same, against inserted and options read", iRounds, addAll,
                [&] { return insertAll() + timed(iCount, &StripSetup::readOptions) * iCount; });
    forget(documents);
}

void fill(const BareTabs& bare)
{
    for (int i = 0; i < DRAWINGS; ++i)
        bare.insert("A-" + std::to_string(100 + i), i, i);
    ::SendMessageA(bare.window(), TCM_SETCURSEL, DRAWINGS - 1, 0);
}

void benchLayout(StripSetup& setup)
{
    const auto pass = [&] { return timed(50, [&] { setup.frame().RecalcLayout(); }); };
    int iWidth = 0;
    const auto resizing = [&] {
        return timed(4, [&] {
            setup.resize(1000 + 10 * (iWidth ^= 1));
            setup.pump();
        });
    };
    // A bare control beside the frame, as wide and as full as the strip.
    const auto resizingBare = [&] {
        const BareTabs bare(m_pWndTabs->m_hWnd);
        fill(bare);
        return timed(4, [&] {
            ::SetWindowPos(bare.window(), nullptr, 0, 0, 900 + 10 * (iWidth ^= 1), 29, SWP_NOMOVE | SWP_NOZORDER);
            setup.pump();
        });
    };
    compare("layout pass, nothing moves", 9, pass, [&] { return setup.without(pass); });
    compare("frame resized and painted, against a bare control besides", 9, resizing,
            [&] { return resizingBare() + setup.without(resizing); });
}

void benchMenu(StripSetup& setup)
{
    setup.write("MDITabs.ini",
                "PopupCloseOthersText = a\nPopupCloseSavedText = b\nPopupCopyPathText = c\n"
                "PopupOpenFolderText = d\nPopupDrawingsText = e\nPopupHelpText = f\nPopupSaveAllText = g\n");
    CMDITabSettings::clearDefaultSettings();
    const BareMenu bare;
    const CPoint point = setup.showTab(3);
    const auto rightClick = [&] {
        m_pWndTabs->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_pWndTabs->m_hWnd),
                                MAKELPARAM(point.x, point.y));
    };
    compare(
        "right click to menu, everything on", 15, [&] { return setup.untilMenu(m_pWndTabs->m_hWnd, rightClick); },
        [&] { return setup.untilMenu(bare.owner(), [&] { bare.show(point); }); });
}

void benchOptions(StripSetup& setup)
{
    const BareTabs bare(m_pWndTabs->m_hWnd);
    const auto refill = [&] {
        const Clock clock;
        // As the rebuild goes: a tab at a time.
        for (int i = 0; i < DRAWINGS; ++i)
            ::SendMessageA(bare.window(), TCM_DELETEITEM, 0, 0);
        fill(bare);
        setup.frame().RecalcLayout();
        return clock.elapsed();
    };
    const auto refillAndRead = [&] { return refill() + timed(DRAWINGS, &StripSetup::readOptions) * DRAWINGS; };
    const auto rebuild = [&](bool bFromPress) {
        DialogClock dialog({IDC_SHOW_EXTENSIONS, IDOK});
        runOptionsCommand();
        const double time = bFromPress ? dialog.sincePress() : dialog.sinceClosing();
        setup.pump();
        return time;
    };
    compare(
        "dialog gone to strip rebuilt", 15, [&] { return rebuild(false); }, refill);
    compare(
        "the same, against refill and options read", 15, [&] { return rebuild(false); }, refillAndRead);
    compare(
        "OK pressed to strip rebuilt", 15, [&] { return rebuild(true); }, refill);
}

constexpr int MANY = 200;

// So many tabs on both sides, of which a few show, and for the bare one the messages that
// the same takes there.
void benchMany(StripSetup& setup)
{
    setup.open(MANY - m_pWndTabs->GetItemCount());
    const BareTabs bare(m_pWndTabs->m_hWnd);
    for (int i = 0; i < MANY; ++i)
        bare.insert("A-" + std::to_string(100 + i), i, i);
    int iPlace = MANY / 2;
    acDocManager->activateDocument(m_pWndTabs->getDocument(iPlace));
    ::SendMessageA(bare.window(), TCM_SETCURSEL, static_cast<WPARAM>(iPlace), 0);
    setup.pump();

    RECT place;
    ::GetWindowRect(m_pWndTabs->m_hWnd, &place);
    const LPARAM middle = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    int iWay = 1;
    const auto notch = [&] {
        ::PostMessageA(setup.frame().m_hWnd, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA * (iWay = -iWay)), middle);
        setup.pump();
    };
    int iFirst = iPlace;
    const auto bareNotch = [&] {
        ::PostMessageA(setup.frame().m_hWnd, WM_MOUSEWHEEL, 0, middle);
        ::SendMessageA(bare.window(), WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, iFirst ^= 1), 0);
        setup.pump();
    };
    compare(
        "a notch of the wheel, 200 tabs", 15, [&] { return timed(20, notch); }, [&] { return timed(20, bareNotch); });

    // The active one, to and fro. The drop is what a bare control has to be told besides.
    const auto drag = [&](HWND tabs, const auto& drop) {
        const int iTarget = iPlace ^ 1;
        RECT from, to;
        ::SendMessageA(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(iPlace), reinterpret_cast<LPARAM>(&from));
        ::SendMessageA(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(iTarget), reinterpret_cast<LPARAM>(&to));
        const LPARAM target = MAKELPARAM((to.left + to.right) / 2, (to.top + to.bottom) / 2);
        ::SendMessageA(tabs, WM_LBUTTONDOWN, MK_LBUTTON,
                       MAKELPARAM((from.left + from.right) / 2, (from.top + from.bottom) / 2));
        ::SendMessageA(tabs, WM_MOUSEMOVE, MK_LBUTTON, target);
        ::SendMessageA(tabs, WM_LBUTTONUP, 0, target);
        drop(iTarget);
        iPlace = iTarget;
        setup.pump();
    };
    const auto dropBare = [&](int iTarget) {
        ::SendMessageA(bare.window(), TCM_DELETEITEM, static_cast<WPARAM>(iPlace), 0);
        bare.insert("A-200", iTarget, iPlace);
        ::SendMessageA(bare.window(), TCM_SETCURSEL, static_cast<WPARAM>(iTarget), 0);
    };
    compare(
        "a tab dragged one place, 200 tabs", 15,
        [&] { return timed(4, [&] { drag(m_pWndTabs->m_hWnd, [](int) {}); }); },
        [&] { return timed(4, [&] { drag(bare.window(), dropBare); }); });
}

}  // namespace

// An argument names the only figures wanted: adding, same-names, notification, layout, menu, options, many.
int main(int iCount, char** aArguments)
{
    const std::string sOnly = iCount > 1 ? aArguments[1] : "";
    const auto wanted = [&](const char* sName) { return sOnly.empty() || sOnly == sName; };
    StripSetup setup;
    setup.load();
    if (wanted("adding")) {
        benchAdding(100, 9);
        benchAdding(1000, 5);
    }
    if (wanted("same-names")) {
        benchSameNames(setup, 100, 9);
        benchSameNames(setup, 400, 5);
    }
    setup.open(1);
    if (wanted("notification"))
        benchNotification("notification, 1 drawing");
    setup.open(DRAWINGS - 1);
    if (wanted("notification"))
        benchNotification("notification, 50 drawings");
    if (wanted("layout"))
        benchLayout(setup);
    if (wanted("menu"))
        benchMenu(setup);
    if (wanted("options"))
        benchOptions(setup);
    if (wanted("many"))
        benchMany(setup);
    return 0;
}
