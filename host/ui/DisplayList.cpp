#include "host/ui/DisplayList.h"

#include "host/drawing/Database.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr std::size_t kMostEntities = 20000; // a plan to recognise, not to print

double coordinate(const DxfRecord& record, int code)
{
    return toDouble(record.value(code));
}

} // namespace

void DisplayList::read(const Database& drawing)
{
    m_lines.clear();
    m_texts.clear();
    const DxfFile& file = drawing.file();
    const DxfRecord* record = file.section("ENTITIES");
    if (record == nullptr)
        return;
    for (record = record->next(); record != nullptr && record->type() != "ENDSEC"; record = record->next()) {
        if (m_lines.size() + m_texts.size() > kMostEntities)
            return;
        if (toInt(record->value(67)) != 0) // on a layout
            continue;
        const Point start{coordinate(*record, 10), coordinate(*record, 20)};
        if (record->type() == "LINE") {
            m_lines.push_back({{start, {coordinate(*record, 11), coordinate(*record, 21)}}});
        } else if (record->type() == "CIRCLE") {
            Polyline circle;
            for (int i = 0; i <= 36; ++i) {
                const double angle = i * std::numbers::pi / 18;
                const double radius = coordinate(*record, 40);
                circle.points.push_back({start.x + radius * std::cos(angle), start.y + radius * std::sin(angle)});
            }
            m_lines.push_back(std::move(circle));
        } else if (record->type() == "LWPOLYLINE") {
            Polyline polyline;
            TagReader tags = record->tags();
            for (DxfTag tag; nextTag(tags, tag);) {
                if (tag.code == 10)
                    polyline.points.push_back({toDouble(tag.value), 0.0});
                else if (tag.code == 20 && !polyline.points.empty())
                    polyline.points.back().y = toDouble(tag.value);
            }
            if ((toInt(record->value(70)) & 1) != 0 && !polyline.points.empty())
                polyline.points.push_back(polyline.points.front());
            m_lines.push_back(std::move(polyline));
        } else if (record->type() == "TEXT" || record->type() == "ATTRIB") {
            m_texts.push_back({start, file.encoding().decode(record->value(1))});
        } else if (record->type() == "INSERT") {
            m_texts.push_back({start, "+ " + file.encoding().decode(record->value(2))});
        }
    }
}

void DisplayList::paint(HDC dc, const RECT& area) const
{
    std::vector<Point> all;
    for (const Polyline& line : m_lines)
        all.insert(all.end(), line.points.begin(), line.points.end());
    for (const Text& text : m_texts)
        all.push_back(text.at);
    if (all.empty())
        return;
    const auto byX = [](const Point& a, const Point& b) { return a.x < b.x; };
    const auto byY = [](const Point& a, const Point& b) { return a.y < b.y; };
    const auto [left, right] = std::minmax_element(all.begin(), all.end(), byX);
    const auto [bottom, top] = std::minmax_element(all.begin(), all.end(), byY);
    constexpr double margin = 24.0;
    const double width = std::max(right->x - left->x, 1e-6);
    const double height = std::max(top->y - bottom->y, 1e-6);
    const double scale = std::min((area.right - area.left - 2 * margin) / width,
                                  (area.bottom - area.top - 2 * margin) / height);
    if (!(scale > 0.0) || !std::isfinite(scale))
        return;
    const Point origin{left->x, bottom->y};
    const auto place = [&](const Point& point) {
        return POINT{area.left + static_cast<LONG>(margin + (point.x - origin.x) * scale),
                     area.bottom - static_cast<LONG>(margin + (point.y - origin.y) * scale)};
    };

    for (const Polyline& line : m_lines) {
        std::vector<POINT> points;
        for (const Point& point : line.points)
            points.push_back(place(point));
        ::Polyline(dc, points.data(), static_cast<int>(points.size()));
    }
    ::SetBkMode(dc, TRANSPARENT);
    const HGDIOBJ oldFont = ::SelectObject(dc, ::GetStockObject(DEFAULT_GUI_FONT));
    for (const Text& text : m_texts) {
        const POINT at = place(text.at);
        ::TextOutA(dc, at.x, at.y - 12, text.text.c_str(), static_cast<int>(text.text.size()));
    }
    ::SelectObject(dc, oldFont);
}

} // namespace host
