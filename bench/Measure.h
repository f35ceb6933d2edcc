#pragma once

// The stopwatch of all benches: two sides of a comparison, measured in turns within one
// run, so that whatever else the machine does strikes both; the median of the rounds counts.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

class Clock {
public:
    // Microseconds since it was made, or since the last restart.
    double elapsed() const { return static_cast<double>(now() - m_start) * 1e6 / frequency(); }
    void restart() { m_start = now(); }

private:
    static LONGLONG now()
    {
        LARGE_INTEGER count;
        ::QueryPerformanceCounter(&count);
        return count.QuadPart;
    }
    static double frequency()
    {
        LARGE_INTEGER count;
        ::QueryPerformanceFrequency(&count);
        return static_cast<double>(count.QuadPart);
    }
    LONGLONG m_start = now();
};

// Microseconds a call.
template <class Call>
double timed(int iCalls, const Call& call)
{
    const Clock clock;
    for (int i = 0; i < iCalls; ++i)
        call();
    return clock.elapsed() / iCalls;
}

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// A line of this form is what tools/bench reads. Microseconds, or bytes.
inline void report(const std::string& sWork, double ours, double bare)
{
    std::printf("%s: %.4f against %.4f\n", sWork.c_str(), ours, bare);
    std::fflush(stdout);
}

// Each side gives the microseconds of one round, so that it may prepare and clear up
// untimed. One round of each goes first and does not count.
template <class Ours, class Bare>
void compare(const std::string& sWork, int iRounds, const Ours& ours, const Bare& bare)
{
    std::vector<double> ourTimes, bareTimes;
    ours();
    bare();
    for (int round = 0; round < iRounds; ++round) {
        ourTimes.push_back(ours());
        bareTimes.push_back(bare());
    }
    report(sWork, median(ourTimes), median(bareTimes));
}
