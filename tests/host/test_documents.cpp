// What no script can bring about: files that others hold, a lack of memory, keys.

#include "host/application/Application.h"
#include "host/ui/MainFrame.h"
#include "library/system/Handles.h"
#include "tests/support/TestFolder.h"

#include <doctest/doctest.h>

namespace {

// A running host, with a folder for its files.
struct HostFixture : CTestFolder {
    bool run(const std::string& sLine) { return application.execute(sLine).succeeded; }
    // The command has to fail, saying this.
    void refused(const std::string& sLine, const std::string& sReason)
    {
        CAPTURE(sLine);
        const host::Result result = application.execute(sLine);
        CHECK_FALSE(result.succeeded);
        CHECK_MESSAGE(result.output.find(sReason) != std::string::npos, result.output);
    }

    host::Application application{host::Options{false, false}};
};

// While it lives, no block of 16 MB is to be had: in the 32-bit program, which ships.
class NoLargeBlocks {
public:
    NoLargeBlocks()
    {
        for (SIZE_T size = 1 << 30; size >= 16 << 20; size /= 2)
            while (void* const pBlock = ::VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_NOACCESS))
                m_blocks.push_back(pBlock);
    }
    ~NoLargeBlocks()
    {
        for (void* const pBlock : m_blocks)
            ::VirtualFree(pBlock, 0, MEM_RELEASE);
    }

private:
    std::vector<void*> m_blocks;
};

}  // namespace

TEST_CASE_FIXTURE(HostFixture, "what cannot be read is refused with its reason; a reference stays unresolved")
{
    const std::string sHeld = writeDrawing("held.dwg");
    const UniqueHandle file(::CreateFileA(sHeld.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    refused("OPEN " + sHeld, "in use by another program");
    if constexpr (sizeof(void*) == 4) {
        const std::string sLarge = write("large.dwg", std::string(20 << 20, '\n'));
        const std::string sReferring = write("plan.dwg", DrawingText().xref("large", sLarge).str());
        const NoLargeBlocks none;
        CHECK(acDocManager->appContextOpenDocument(sLarge.c_str()) == Acad::eFilerError);
        refused("OPEN " + sLarge, "not enough memory");
        CHECK(run("OPEN " + sReferring));
    }
}

TEST_CASE_FIXTURE(HostFixture,
                  "Ctrl+F6 leads to no other drawing while activation is disabled; nothing to one that is closed")
{
    REQUIRE(run("NEW"));
    REQUIRE(run("NEW"));
    AcApDocument* const pSecond = acDocManager->mdiActiveDocument();
    const auto next = [&] {
        ::SendMessageA(application.frame().m_hWndMDIClient, WM_MDINEXT, 0, 0);
        return acDocManager->mdiActiveDocument();
    };
    REQUIRE(run("LOCKDOCS 1"));
    CHECK(next() == pSecond);
    REQUIRE(run("LOCKDOCS 0"));
    CHECK(next() != pSecond);
    REQUIRE(run("CLOSE"));
    CHECK(acDocManager->mdiActiveDocument() == pSecond);
    REQUIRE(run("CLOSE"));
    CHECK(acDocManager->sendStringToExecute(pSecond, "NEW\n") == Acad::eNoDocument);
}
