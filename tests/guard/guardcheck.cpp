// Does the guard heap notice? With the number of a fault this program commits it; without
// one it starts itself for each, and fails where one is survived or what is none is not.
#include "host/CrashReport.h"

#include <windows.h>

#include <process.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

volatile char g_seen;

struct Fault {
    const char* sName;
    bool bDies;
    void (*commit)(char* block);  // of 40 bytes
};

const Fault faults[] = {
    {"none", false, [](char* block) { std::free(std::realloc(block, 80)); }},
    {"a block of the C library's own", false,
     [](char*) {
         const auto duplicate = ::GetProcAddress(::GetModuleHandleA("msvcrt"), "_strdup");
         std::free(reinterpret_cast<char* (*)(const char*)>(reinterpret_cast<void*>(duplicate))("text"));
     }},
    {"reading right behind the end", true, [](char* block) { g_seen = block[40]; }},
    {"the same of an odd size", true, [](char*) { g_seen = static_cast<char*>(std::malloc(41))[41]; }},
    {"following what was never set", true,
     [](char*) {
         char* volatile unset;
         g_seen = *unset;
     }},
    {"writing before the beginning", true,
     [](char* block) {
         block[-1] = 0;
         std::free(block);
     }},
    {"reading what is freed", true,
     [](char* block) {
         std::free(block);
         for (int i = 0; i < 10000; ++i)
             std::free(std::malloc(40));
         g_seen = block[0];
     }},
    {"an object used after its end", true,
     [](char*) {
         auto* const text = new std::string(40, 'x');
         const char* const inside = text->c_str();
         delete text;
         g_seen = *inside;
     }},
    {"freeing twice", true,
     [](char* block) {
         std::free(block);
         std::free(block);
     }},
    {"undefined behaviour", true,
     [](char*) {
         volatile int most = INT_MAX;
         g_seen = static_cast<char>(most + 1);
     }},
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc == 2) {
        host::reportCrashes();
        faults[std::atoi(argv[1])].commit(static_cast<char*>(std::malloc(40)));
        return 0;
    }
    int passed = 0, failed = 0;
    for (const Fault& fault : faults) {
        std::puts(fault.sName);
        std::fflush(stdout);
        const std::string sNumber = std::to_string(&fault - faults);
        const bool bRight = (_spawnl(_P_WAIT, argv[0], "guardcheck", sNumber.c_str(), nullptr) != 0) == fault.bDies;
        (bRight ? passed : failed) += 1;
        if (!bRight)
            std::puts(fault.bDies ? "WRONG: not noticed" : "WRONG: taken for a fault");
    }
    std::printf("%d passed | %d failed\n", passed, failed);
    return failed;
}
