#pragma once

// Random numbers for generated tests. The seed is the clock's, printed with a failure;
// the environment variable TEST_SEED repeats a run.

#include <windows.h>

#include <cstddef>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

class CTestRandom {
public:
    CTestRandom() : m_seed(chooseSeed()), m_engine(m_seed) {}

    unsigned seed() const { return m_seed; }

    // From 0 up to, but without, `count`.
    std::size_t below(std::size_t count) { return m_engine() % count; }
    bool once(std::size_t in) { return below(in) == 0; }

    // Up to `most` of the pieces that `sAlphabet` separates by blanks.
    std::string text(std::string_view sAlphabet, std::size_t most)
    {
        std::string sText;
        for (std::size_t count = below(most + 1); count > 0; --count)
            sText += piece(sAlphabet);
        return sText;
    }

    std::string_view piece(std::string_view sAlphabet)
    {
        const std::size_t at = sAlphabet.rfind(' ', below(sAlphabet.size()));
        const std::size_t begin = at == std::string_view::npos ? 0 : at + 1;
        return sAlphabet.substr(begin, sAlphabet.find(' ', begin) - begin);
    }

private:
    static unsigned chooseSeed()
    {
        const char* const sSeed = std::getenv("TEST_SEED");
        return sSeed ? static_cast<unsigned>(std::strtoul(sSeed, nullptr, 10)) : ::GetTickCount();
    }

    unsigned m_seed;
    std::minstd_rand m_engine;
};
