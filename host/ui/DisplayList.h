#pragma once

// What a drawing's window shows, read from the drawing's model space once and
// painted to fit.

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace host {

class Database;

struct PlanPoint {
    double x = 0.0;
    double y = 0.0;
};

class DisplayList {
public:
    void read(const Database& drawing);
    void paint(HDC dc, const RECT& area) const;

private:
    friend class DisplayReader;

    struct Text {
        PlanPoint at;
        double height = 0.0;  // 0 for a mark that has none in the drawing
        std::string text;
    };

    std::vector<std::vector<PlanPoint>> m_lines;          // one of a single point is a mark
    std::vector<std::pair<PlanPoint, PlanPoint>> m_rays;  // from the first, through the second, without end
    std::vector<Text> m_texts;
};

}  // namespace host
