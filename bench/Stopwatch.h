#pragma once

// The time a call takes: the best of some rounds.

#include <windows.h>

#include <algorithm>
#include <cstdio>

// Microseconds a call, of `iCalls` calls a round.
template <class Call>
double microseconds(int iCalls, const Call& call, int iRounds = 7)
{
    LARGE_INTEGER frequency, begin, end;
    ::QueryPerformanceFrequency(&frequency);
    double best = 1e30;
    for (int round = 0; round < iRounds; ++round) {
        ::QueryPerformanceCounter(&begin);
        for (int i = 0; i < iCalls; ++i)
            call();
        ::QueryPerformanceCounter(&end);
        best = std::min(best, static_cast<double>(end.QuadPart - begin.QuadPart));
    }
    return best * 1e6 / static_cast<double>(frequency.QuadPart) / iCalls;
}

// One line: what was measured, against what, and how many times as long that takes.
inline void report(const char* sWhat, double ours, const char* sAgainst, double theirs)
{
    std::printf("%-28s %12.4f us   %-28s %12.4f us   ratio %.2f\n", sWhat, ours, sAgainst, theirs, theirs / ours);
}
