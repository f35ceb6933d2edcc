#pragma once

// DXF tags, written one behind the other. A text has a line to itself, so control characters in
// it are written as marks.

#include <cstdint>
#include <string>
#include <string_view>

namespace dwg {

struct Point {
    double x = 0.0, y = 0.0, z = 0.0;
};

class DxfWriter {
public:
    // The code page of texts whose characters may have two bytes: the second one may look like a
    // mark. 0 for all others. And how long the result may be, more or less.
    explicit DxfWriter(unsigned doubleBytePage, std::size_t expected = 0) : m_page(doubleBytePage)
    {
        m_text.reserve(expected);
    }

    // Tags as they stand in a file.
    void lines(std::string_view text) { m_text += text; }
    void name(int code, std::string_view name);
    void text(int code, std::string_view text);
    void handle(int code, std::uint64_t handle);
    void integer(int code, long long value);
    // What is no number, or infinite, becomes 0.
    void number(int code, double value);
    // Degrees of radians: 0 to 360.
    void angle(int code, double radians);
    void point(int code, const Point& point);  // the code of x; y and z are 10 and 20 more
    void point(int code, double x, double y);

    std::size_t size() const { return m_text.size(); }
    // Takes back what was written from there on.
    void cut(std::size_t size) { m_text.resize(size); }
    std::string take() { return std::move(m_text); }

private:
    template <class Put>
    void tag(int code, Put putValue);

    unsigned m_page;
    std::string m_text;
};

}  // namespace dwg
