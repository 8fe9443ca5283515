// Land on the maps that tests look at.

#pragma once

#include "places/map_lines.h"

#include <vector>

// True if a point lies on land: even-odd over all land.
inline bool isLand(const std::vector<pinorama::MapLine>& lines, double x, double y)
{
    bool inside = false;
    for (const pinorama::MapLine& line : lines) {
        if (line.kind != pinorama::MapLineKind::land) continue;
        pinorama::MapPoint a = line.points.back();
        for (const pinorama::MapPoint& b : line.points) {
            if ((a.y > y) != (b.y > y) && x < a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y))
                inside = !inside;
            a = b;
        }
    }
    return inside;
}
