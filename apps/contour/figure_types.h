// What is said of each figure type: its name, and how many points it has.
#pragma once

#include "C/syContour.h"

#include <limits>

namespace kvcontour
{

struct FigureType
{
    const char* name;
    const char* withArticle;
    int leastPoints;
    int mostPoints;
    const char* pointCount; // in words
};

inline bool IsFigureType(int type)
{
    return type >= KvN::KvContour::eRectangle && type <= KvN::KvContour::eCircle;
}

// `type` must be one that is known.
inline const FigureType& FigureTypeOf(int type)
{
    constexpr int any = std::numeric_limits<int>::max();
    static constexpr FigureType types[] = {{"rectangle", "a rectangle", 4, 4, "4"},
                                           {"polygon", "a polygon", 3, any, "3 or more"},
                                           {"polyline", "a polyline", 2, any, "2 or more"},
                                           {"square", "a square", 4, 4, "4"},
                                           {"ellipse", "an ellipse", 3, 3, "3"},
                                           {"circle", "a circle", 2, 2, "2"}};
    return types[type];
}

} // namespace kvcontour
