#pragma once

// What a drawing's window shows, read from the drawing's model space once and
// painted to fit.

#include <windows.h>

#include <string>
#include <vector>

namespace host {

class Database;

class DisplayList {
public:
    void read(const Database& drawing);
    void paint(HDC dc, const RECT& area) const;

private:
    struct Point {
        double x;
        double y;
    };
    struct Polyline {
        std::vector<Point> points;
    };
    struct Text {
        Point at;
        std::string text;
    };

    std::vector<Polyline> m_lines;
    std::vector<Text> m_texts;
};

} // namespace host
