// The whole module in the host, in this process, worked at random for a while: after
// every step the strip shows the open documents, and at the end nothing is held.
// SOAK_SEED chooses a run (0: any), SOAK_STEPS its length.
#include "additions/MenuIds.h"
#include "dxf/Memory.h"
#include "host/observation/ResourceCount.h"
#include "host/ui/MainFrame.h"
#include "library/files/PathParts.h"
#include "mfc/afxcmn.h"
#include "settings/MDITabSettings.h"
#include "settings/TabOptions.h"
#include "settings/resource.h"
#include "tabs/MenuIds.h"
#include "tests/module/ModuleFixture.h"
#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

using host::observation::ResourceCount;

namespace {

constexpr int kFiles = 10;
constexpr std::size_t kMostOpen = 7;

class Soak : ModuleFixture {
public:
    explicit Soak(unsigned seed) : m_seed(seed)
    {
        folder.write("ProjectSettings.txt", "PROJECTLABEL\r\n{\r\nJob\r\n}\r\nTITLEBLOCKS\r\n{\r\n"
                                            "BORDER \"A1\" \"SHEET\"\r\nNO NR\r\n}\r\n");
        folder.write("MDITabs.ini", "ModifiedText = *\r\nTooltipText = %HALVORAN::NO% %FILENAME%%NEWLINE%%PATH%\r\n"
                                    "PopupXrefsText = Xrefs\r\nPopupCloseOthersText = Others\r\n"
                                    "PopupCloseSavedText = Saved\r\nPopupCopyPathText = Copy\r\n");
        folder.writeDrawing("grid.dwg");
    }

    // From the same start, the same steps again.
    void run(int steps)
    {
        for (int i = 0; i < kFiles; ++i)
            folder.write("d" + std::to_string(i) + ".dwg", drawing(i).str());
        m_random.seed(m_seed);
        user.set("MiddleClickCloses", 1);
        load();
        for (int step = 0; step < steps; ++step) {
            doStep();
            app.pumpUntilIdle();
            CAPTURE(step);
            CAPTURE(m_sRecent);
            REQUIRE(shown() == expected());
        }
        settle();
    }

private:
    // Everything closed and the options as they were at first.
    void settle()
    {
        while (app.documents().count() != 0)
            app.documents().close(app.documents().at(0));
        unload();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\Zavik\\ZavikMDITabs");
        // What was printed goes, in memory and in the frame's window, where each line is a
        // block of its own.
        std::string().swap(app.commandLine().history());
        app.frame().clearHistory();
        app.pumpUntilIdle();
    }

    static DrawingText drawing(int i)
    {
        DrawingText text;
        if (i % 2 == 0)
            text.border("SHEET", {{"NR", std::to_string(i)}});
        if (i % 3 == 0)
            text.variable("TITLE", "Title " + std::to_string(i));
        if (i % 4 == 0)
            text.xref("Grid", "grid.dwg").insert("Grid").xref("Lost", "lost.dwg").insert("Lost");
        return text.block("DOOR").insert("DOOR");
    }

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    std::string quoted(int file) const { return "\"" + folder.path("d" + std::to_string(file) + ".dwg") + "\""; }
    std::string anyTab() { return std::to_string(below(static_cast<int>(app.documents().count()))); }

    // A step that is refused (nothing to undo, a name in use) is a step too.
    void doStep()
    {
        const std::vector<std::string> lines = choose();
        m_sRecent += "\n";
        for (const std::string& line : lines)
            m_sRecent += line + "; ";
        if (m_sRecent.size() > 600)
            m_sRecent.erase(0, m_sRecent.find('\n', 200));
        app.execute(lines);
    }

    std::vector<std::string> choose()
    {
        const std::size_t open = app.documents().count();
        const int step = open == 0 ? 0 : below(100);
        if (step < 14 && open < kMostOpen)
            return {below(5) == 0 ? "NEW" : "OPEN " + quoted(below(kFiles))};
        if (step < 40)
            return {edit()};
        if (step < 50)
            return {below(4) != 0 ? "QSAVE" : "SAVEAS " + quoted(below(kFiles))};
        if (step < 66)
            return {"CLICK " + anyTab()};
        if (step < 76)
            return {mouseAcross()};
        if (step < 78)
            return {"HOVER " + anyTab()};
        if (step < 82)
            return {"MENU " + anyTab() + menuItem()};
        if (step < 86)
            // While the strip is off, a change of its style would bring it back.
            return {"ZavikMDITabs",
                    "PRESS " + std::to_string(CTabOptions::readUse() ? IDC_POSITION_TOP + below(8) : IDC_USE_TABS),
                    "PRESS " + std::to_string(below(3) == 0 ? IDCANCEL : IDOK)};
        if (step < 88)
            return {"LOCKDOCS 1", "CLICK " + anyTab(), "LOCKDOCS 0"};
        if (step < 89)
            return reload();
        if (step < 90)
            return {"MENU " + anyTab() + " " +
                    std::to_string(IDC_DYNAMIC_MENU_CLOSE_SAVED + static_cast<UINT>(below(2)))};
        return {step < 95 ? "CLOSE" : "MIDDLECLICK " + anyTab()};
    }

    std::string edit()
    {
        const std::string edits[] = {"LINE 0 0 " + std::to_string(below(100)) + " 5",
                                     "ATTEDIT NR " + std::to_string(below(1000)),
                                     "PROPS title T" + std::to_string(below(1000)),
                                     "XATTACH \"" + folder.path("grid.dwg") + "\"",
                                     "INSERT DOOR 1 2",
                                     "ERASE L",
                                     "UNDO",
                                     "REDO",
                                     "XDETACH grid"};
        return edits[below(static_cast<int>(std::size(edits)))];
    }

    std::string menuItem()
    {
        static const UINT items[] = {0, IDC_DYNAMIC_MENU_SAVE, IDC_DYNAMIC_MENU_CLOSE, IDC_DYNAMIC_MENU_XREFS,
                                     IDC_DYNAMIC_MENU_COPY_PATH};
        const UINT item = items[below(5)];
        return item == 0 ? "" : " " + std::to_string(item);
    }

    // The mouse over every tab, without waiting for balloons.
    std::string mouseAcross()
    {
        if (strip() != nullptr)
            for (int tab = 0; tab < static_cast<int>(app.documents().count()); ++tab)
                moveMouse(tab);
        return "WAIT 1";
    }

    std::vector<std::string> reload()
    {
        unload();
        load();
        return {"WAIT 1"};
    }

    // What a person and the host see: a line a tab, the selected one marked.
    std::string shown() const
    {
        if (strip() == nullptr)
            return "no strip";
        std::string lines;
        const std::vector<std::string> texts = tabs();
        for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
            TCITEMA item = {};
            item.mask = TCIF_PARAM;
            ::SendMessageA(strip(), TCM_GETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            lines +=
                line(i == selected(), texts[static_cast<std::size_t>(i)], reinterpret_cast<const void*>(item.lParam));
        }
        return lines;
    }

    std::string expected()
    {
        const CTabOptions options = CTabOptions::read();
        if (!options.bUse)
            return "no strip";
        std::string lines;
        for (std::size_t i = 0; i < app.documents().count(); ++i) {
            const host::Document& document = app.documents().at(i);
            const Tesk::CPathParts parts(document.fileName());
            std::string text = options.bExtensions ? parts.fileName() : parts.m_sBase;
            if (document.isModified())
                text += document.isTitled() ? "*" : CMDITabSettings::getModifiedText(document.fileName()).GetString();
            lines += line(&document == app.documents().active(), text, static_cast<const AcApDocument*>(&document));
        }
        return lines;
    }

    static std::string line(bool selected, const std::string& text, const void* document)
    {
        char identity[32];
        std::snprintf(identity, sizeof identity, " %p\n", document);
        return (selected ? "> " : "  ") + text + identity;
    }

    std::string m_sRecent;
    const unsigned m_seed;
    std::mt19937 m_random;
};

unsigned fromEnvironment(const char* sName, unsigned otherwise)
{
    const char* const sValue = std::getenv(sName);
    return sValue != nullptr ? static_cast<unsigned>(std::strtoul(sValue, nullptr, 10)) : otherwise;
}

}  // namespace

TEST_CASE("strip and documents agree at random, and nothing is held at the end")
{
    const unsigned chosen = fromEnvironment("SOAK_SEED", 1), seed = chosen != 0 ? chosen : ::GetTickCount();
    const int steps = static_cast<int>(fromEnvironment("SOAK_STEPS", 100));
    MESSAGE("SOAK_SEED=", seed);
    Soak soak(seed);
    soak.run(steps);  // what Windows and the runtime keep from the first times of everything
    // The system's own part of the heap goes up and down from round to round, by the mouse's
    // and the dialogs' timing. What it comes down to in three rounds stays, without a leak.
    const auto lowestOfThree = [&] {
        ResourceCount lowest = ResourceCount::now();
        lowest.heap = LONG_MAX;
        for (int round = 0; round < 3; ++round) {
            soak.run(steps);
            ResourceCount now = ResourceCount::now();
            now.heap = std::min(now.heap, lowest.heap);
            lowest = now;
        }
        return lowest;
    };
    const ResourceCount before = lowestOfThree();
    const long handles = liveHandles();
    const long strings = host::liveAllocations();
    const int misuses = host::Database::misuses();

    const ResourceCount after = lowestOfThree();
    MESSAGE("before: ", before.text(), "; after: ", after.text());
    CHECK(after.sameObjects(before));
    CHECK(liveHandles() == handles);
    CHECK(host::liveAllocations() == strings);
    CHECK(host::Database::misuses() == misuses);
    CHECK(after.heap - before.heap < 3);  // a block lost in each round is three
}
