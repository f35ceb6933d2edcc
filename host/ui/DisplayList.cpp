#include "host/ui/DisplayList.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kMargin = 24.0;
constexpr LONG kMarkHeight = 12;
constexpr LONG kSmallestText = 8;  // still to be read

// The rectangle that holds all points.
struct Extents {
    PlanPoint low{HUGE_VAL, HUGE_VAL};
    PlanPoint high{-HUGE_VAL, -HUGE_VAL};

    void add(const PlanPoint& point)
    {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
};

}  // namespace

void DisplayList::paint(HDC dc, const RECT& area) const
{
    Extents extents;
    for (const auto& line : m_lines)
        for (const PlanPoint& point : line)
            extents.add(point);
    for (const auto& ray : m_rays)
        extents.add(ray.first);
    for (const Text& text : m_texts) {
        extents.add(text.at);
        extents.add({text.at.x, text.at.y + text.height});
    }
    const double width = std::max(extents.high.x - extents.low.x, 1e-6);
    const double height = std::max(extents.high.y - extents.low.y, 1e-6);
    const double scale =
        std::min((area.right - area.left - 2 * kMargin) / width, (area.bottom - area.top - 2 * kMargin) / height);
    if (!(scale > 0.0) || !std::isfinite(scale))  // nothing there, or no room
        return;
    const double left = (area.left + area.right - width * scale) / 2;
    const double bottom = (area.top + area.bottom + height * scale) / 2;
    const auto place = [&](const PlanPoint& point) {
        return POINT{std::lround(left + (point.x - extents.low.x) * scale),
                     std::lround(bottom - (point.y - extents.low.y) * scale)};
    };

    std::vector<POINT> points;
    for (const auto& line : m_lines) {
        points.clear();
        std::transform(line.begin(), line.end(), std::back_inserter(points), place);
        if (points.size() == 1)
            ::Rectangle(dc, points[0].x - 1, points[0].y - 1, points[0].x + 2, points[0].y + 2);
        else
            ::Polyline(dc, points.data(), static_cast<int>(points.size()));
    }
    for (const auto& [from, through] : m_rays) {
        const POINT start = place(from);
        const double length = std::max(std::hypot(through.x - from.x, through.y - from.y), 1e-9);
        const double reach = (area.right + area.bottom) / length;  // in pixels, beyond the window's edge
        ::MoveToEx(dc, start.x, start.y, nullptr);
        ::LineTo(dc, start.x + static_cast<LONG>((through.x - from.x) * reach),
                 start.y - static_cast<LONG>((through.y - from.y) * reach));
    }
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextAlign(dc, TA_LEFT | TA_BASELINE);
    LOGFONTA font{};
    ::GetObjectA(::GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
    for (const Text& text : m_texts) {
        const POINT at = place(text.at);
        const LONG pixels = std::min(static_cast<LONG>(text.height * scale), area.bottom - area.top);
        font.lfHeight = -(text.height == 0.0 ? kMarkHeight : std::max(pixels, kSmallestText));
        const HGDIOBJ oldFont = ::SelectObject(dc, ::CreateFontIndirectA(&font));
        ::TextOutA(dc, at.x, at.y, text.text.c_str(), static_cast<int>(text.text.size()));
        ::DeleteObject(::SelectObject(dc, oldFont));
    }
}

}  // namespace host
