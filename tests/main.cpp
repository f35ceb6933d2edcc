#define DOCTEST_CONFIG_IMPLEMENT
#include "host/CrashReport.h"

#include <doctest/doctest.h>

#include <cstdio>

namespace {

// Says which case begins, so that one that never ends is known.
struct Begun : doctest::IReporter {
    explicit Begun(const doctest::ContextOptions&) {}
    void test_case_start(const doctest::TestCaseData& test) override { std::puts(test.m_name); }
    void report_query(const doctest::QueryData&) override {}
    void test_run_start() override {}
    void test_run_end(const doctest::TestRunStats&) override {}
    void test_case_reenter(const doctest::TestCaseData&) override {}
    void test_case_end(const doctest::CurrentTestCaseStats&) override {}
    void test_case_exception(const doctest::TestCaseException&) override {}
    void subcase_start(const doctest::SubcaseSignature&) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData&) override {}
    void log_message(const doctest::MessageData&) override {}
    void test_case_skipped(const doctest::TestCaseData&) override {}
};
DOCTEST_REGISTER_LISTENER("begun", 1, Begun);

}  // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    host::reportCrashes();
    return doctest::Context(argc, argv).run();
}
