#define DOCTEST_CONFIG_IMPLEMENT
#include "host/CrashReport.h"

#include <doctest/doctest.h>

#include <cstdio>

namespace {

// Says which case begins, so that one that never ends is known.
struct Reporter : doctest::ConsoleReporter {
    using ConsoleReporter::ConsoleReporter;
    void test_case_start(const doctest::TestCaseData& test) override
    {
        std::puts(test.m_name);
        ConsoleReporter::test_case_start(test);
    }
};
DOCTEST_REGISTER_REPORTER("begun", 0, Reporter);

}  // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    host::reportCrashes();
    doctest::Context context(argc, argv);
    context.addFilter("reporters", "begun");
    return context.run();
}
