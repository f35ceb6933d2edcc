#pragma once

// Why a drawing could not be read or written: thrown by value inside the host,
// never through its API.

#include <cstddef>
#include <stdexcept>
#include <string>

namespace dxf {

class FileError : public std::runtime_error {
public:
    // A line of 0 stands for the file as a whole.
    FileError(const std::string& sFile, std::size_t line, const std::string& sReason);

    const std::string& file() const { return m_sFile; }
    std::size_t line() const { return m_line; }
    const std::string& reason() const { return m_sReason; }

    // What the system says about one of its error codes, in a few words.
    static std::string systemReason(unsigned long code);

private:
    std::string m_sFile;
    std::size_t m_line;
    std::string m_sReason;
};

}  // namespace dxf
