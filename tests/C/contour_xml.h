// What the tests of the two XML classes share: contours to write, failures to catch, documents to look at.
#pragma once

#include "C/syContour.h"
#include "contracts/basics/KvException.h"
#include "contracts/xml/XML_PARSER.h"

#include <initializer_list>
#include <memory>
#include <string>

namespace kv::testing
{

inline KvN::KvContour Figure(KvN::KvContour::eContourType type, std::initializer_list<KvN::KvVec2d> points,
                             std::int32_t id = -1)
{
    KvN::KvContour contour;
    contour.ContourType() = type;
    contour.ID() = id;
    for (const KvN::KvVec2d& point : points)
        contour.CurvePositions().AddTail(point);
    return contour;
}

// What an operation throws; null if it throws nothing.
template <class Operation>
std::unique_ptr<KvN::KvException> Thrown(Operation operation)
{
    try
    {
        operation();
    }
    catch (KvN::KvException* failure)
    {
        return std::unique_ptr<KvN::KvException>(failure);
    }
    return nullptr;
}

// The `Id`s below the cursor's node in document order, such as "1 2 -"; the cursor is back at the end.
inline std::string Ids(KvN::XML_PARSER& parser)
{
    std::string ids;
    if (!parser.Go_to_Child("Contour"))
        return ids;
    do
    {
        const std::string id = parser.Get_Attribute_Count() ? parser.Get_Attribute_Value(0).Text().Utf8() : "-";
        ids += (ids.empty() ? "" : " ") + (parser.Is_CurrentName("Contour") ? id : parser.Get_CurrentName().Utf8());
    } while (parser.Go_Forward());
    parser.Go_to_Parent();
    return ids;
}

} // namespace kv::testing
