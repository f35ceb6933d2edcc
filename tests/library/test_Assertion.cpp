#include "tests/library/LibraryFixture.h"
#include "tests/support/Answers.h"

#include "library/maintenance/StackWalker.h"

#include <doctest/doctest.h>

#include <functional>

namespace {

// Runs the action in the message loop of an assertion box; how many boxes there were.
std::size_t actInsideBox(std::function<void()> act)
{
    const Answers answers({}, std::move(act));
    TESK_ASSERT_TEXT(false, "outer");
    return answers.boxes().size();
}

__attribute__((noinline)) std::size_t framesAtDepth(int iDepth)
{
    if (iDepth == 0)
        return Tesk::CStackWalker().getFrames().size();
    const volatile std::size_t count = framesAtDepth(iDepth - 1);  // volatile: no tail call
    return count;
}

}  // namespace

TEST_CASE_FIXTURE(CLibraryFixture, "a failed assertion shows its box, is written, and execution goes on")
{
    startAt(2);
    const int iValue = 3;
    const Answers answers;
    TESK_ASSERT(iValue == 3);
    TESK_ASSERT(iValue == 4);
    const int iLine = __LINE__ - 1;
    REQUIRE(answers.boxes().size() == 1);
    const Box& box = answers.boxes()[0];
    const CString sModule = moduleName();
    CHECK(box.title == "Assertion Failure: " + std::string(sModule));
    CString sStart;
    sStart.Format("Module : <%s>\nAssertion : <iValue == 4>\nFile : <test_Assertion>\nLine : %d\n\n%s + 0x",
                  sModule.GetString(), iLine, sModule.GetString());
    CAPTURE(box.text);
    CHECK(box.text.starts_with(sStart.GetString()));
    CString sShort;
    sShort.Format("] test_Assertion(%d): Assertion in \"%s\" (iValue == 4).\r\n[", iLine, sModule.GetString());
    CHECK(log().find(sShort.GetString()) != std::string::npos);
    CHECK(commandLinePieces().empty());  // reports are not echoed
}

TEST_CASE_FIXTURE(CLibraryFixture, "at level 1 the box is shown and nothing is written; at level 0 neither")
{
    startAt(1);
    int iCalls = 0;
    const Answers answers;
    TESK_VERIFY(++iCalls == 0);
    Tesk::setDiagnosticsLevel(0);
    TESK_VERIFY(++iCalls == 0);
    TESK_ASSERT(++iCalls == 0);
    CHECK(iCalls == 2);
    CHECK(answers.boxes().size() == 1);
    CHECK(log().empty());
}

// Inside one box, as a box each takes its time.
TEST_CASE_FIXTURE(CLibraryFixture,
                  "start and stop assert their preconditions and go on; an assertion met while a box is up shows none")
{
    const HINSTANCE hModule = ::GetModuleHandleA(nullptr);
    startAt(2);
    const std::size_t boxes = actInsideBox([&] {
        Tesk::initialiseLibrary("", hModule, false);
        CHECK(Tesk::getCurrentModule() == hModule);
        Tesk::terminateLibrary();
        TESK_ASSERT_TEXT(false, "--");
        Tesk::getCurrentModule();
        TESK_ASSERT_TEXT(false, "--");
        Tesk::getApplicationVersionLabel();
        TESK_ASSERT_TEXT(false, "--");
        Tesk::terminateLibrary();
        CHECK(Tesk::G_sApplicationName.IsEmpty());
        CHECK(Tesk::G_hCurrentModule == nullptr);
    });
    CHECK(boxes == 1);
    std::string sAll;
    const std::string sLog = log();
    const std::string sBefore = ("Assertion in \"" + moduleName() + "\" (").GetString();
    for (std::size_t at = 0; (at = sLog.find(sBefore, at)) != std::string::npos;) {
        at += sBefore.size();
        sAll += sLog.substr(at, sLog.find(").\r\n", at) - at) + "; ";
    }
    CHECK(sAll == "!G_bLibraryInitialised; !CString(sApplicationName).IsEmpty(); G_pApplicationID == NULL; "
                  "!G_sApplicationName.IsEmpty(); --; "
                  "G_bLibraryInitialised; --; G_bLibraryInitialised; G_pApplicationID != NULL; --; "
                  "G_hCurrentModule != NULL; G_bLibraryInitialised; !G_sApplicationName.IsEmpty(); "
                  "G_pApplicationID != NULL; outer; ");
}

TEST_CASE("the call stack has a frame a call, at most fifty")
{
    const std::size_t here = framesAtDepth(0);
    CHECK(here >= 2);
    CHECK(framesAtDepth(5) == here + 5);
    CHECK(framesAtDepth(200) == 50);
}

TEST_CASE("addresses name module and offset, and nothing where they are in no module")
{
    const char* const pBase = reinterpret_cast<const char*>(::GetModuleHandleA("user32.dll"));
    CHECK(Tesk::CStackWalker::describeAddress(pBase + 0x1234) == "user32.dll + 0x1234");
    CHECK(Tesk::CStackWalker::describeAddress(&pBase).Left(2) == "0x");
}
