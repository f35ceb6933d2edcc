#define DOCTEST_CONFIG_IMPLEMENT
#include "host/CrashReport.h"

#include <doctest/doctest.h>

int main(int argc, char** argv)
{
    doctest::Context context(argc, argv);
    host::reportCrashes([] {
        const auto* const test = doctest::getContextOptions()->currentTest;
        return test != nullptr ? test->m_name : nullptr;
    });
    return context.run();
}
