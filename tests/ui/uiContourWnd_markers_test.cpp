// Symbol markers: the list, and where the ticks stand.
#include "C/uiContourWnd_markers.h"
#include "contracts/basics/KvException.h"
#include "platform/afx/dc.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <utility>

using namespace KvN;

namespace
{

constexpr COLORREF red = RGB(255, 0, 0);

// A small black bitmap to draw on.
class Canvas
{
public:
    Canvas()
    {
        dc.CreateCompatibleDC(nullptr);
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), 100, -60, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        former = dc.SelectObject(static_cast<HGDIOBJ>(bitmap));
    }
    ~Canvas()
    {
        dc.SelectObject(former);
        ::DeleteObject(bitmap);
    }

    bool IsRed(int x, int y) const { return dc.GetPixel(x, y) == red; }
    // The columns in which a row has red pixels.
    std::set<int> RedColumns(int y) const
    {
        std::set<int> columns;
        for (int x = 0; x < 100; ++x)
        {
            if (IsRed(x, y))
                columns.insert(x);
        }
        return columns;
    }
    bool IsEmpty() const
    {
        for (int y = 0; y < 60; ++y)
        {
            if (!RedColumns(y).empty())
                return false;
        }
        return true;
    }

    CDC dc;

private:
    HBITMAP bitmap;
    HGDIOBJ former;
};

KvContour Line(std::initializer_list<std::pair<double, double>> points)
{
    KvContour line;
    line.ContourType() = KvContour::ePolyline;
    for (const auto& [x, y] : points)
        line.CurvePositions().AddTail(KvVec2d(x, y));
    return line;
}

KvSymbolMarker* AddTick(KvSymbolMarkerList& list, int position)
{
    KvSymbolMarker* marker = list.AddMarker(list.Count(), KvString("tick"));
    marker->IndexPosition() = position;
    marker->Width() = 1;
    marker->Color() = red;
    return marker;
}

TEST(SymbolMarkers, NewMarkerHasTheDefaults)
{
    KvSymbolMarkerList list;
    const KvSymbolMarker* marker = list.AddMarker(4, KvString("Mitte"));
    EXPECT_EQ(marker->ID(), 4);
    EXPECT_EQ(marker->Name().Utf8(), "Mitte");
    EXPECT_EQ(marker->Color(), 0u);
    EXPECT_EQ(marker->Width(), 3);
    EXPECT_TRUE(marker->IsShown());
    EXPECT_FALSE(marker->IsHidden());
    EXPECT_EQ(list.Count(), 1);
}

TEST(SymbolMarkers, FirstOfSeveralWithOneKeyIsFoundAndRemoved)
{
    KvSymbolMarkerList list;
    KvSymbolMarker* first = list.AddMarker(1, KvString("a"));
    KvSymbolMarker* second = list.AddMarker(1, KvString("a"));
    EXPECT_EQ(list.GetMarker(1), first);
    EXPECT_EQ(list.GetMarker(KvString("a")), first);
    list.RemoveMarker(1);
    EXPECT_EQ(list.GetMarker(1), second);
    list.RemoveMarker(7);
    EXPECT_EQ(list.Count(), 1);
    list.RemoveAllMarker();
    EXPECT_EQ(list.Count(), 0);
}

TEST(SymbolMarkers, MissingKeyIsAFailureThatNamesIt)
{
    KvSymbolMarkerList list;
    list.AddMarker(1, KvString("a"));
    try
    {
        list.GetMarker(12);
        ADD_FAILURE();
    }
    catch (KvException* failure)
    {
        EXPECT_EQ(failure->GetMessageW().Utf8(), "Marker mit ID 12 in Liste nicht gefunden");
        EXPECT_EQ(failure->File().Utf8(), "C/uiContourWnd");
        EXPECT_EQ(failure->Line(), 201u);
        failure->Delete();
    }
    try
    {
        list.GetMarker(KvString("A"));
        ADD_FAILURE();
    }
    catch (KvException* failure)
    {
        EXPECT_EQ(failure->GetMessageW().Utf8(), "Marker mit Namen 'A' in Liste nicht gefunden");
        EXPECT_EQ(failure->Line(), 215u);
        failure->Delete();
    }
}

TEST(SymbolMarkers, TickStandsAcrossTheLineAtItsPosition)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 15);
    list.Draw(&canvas.dc, Line({{20, 30}, {60, 30}}));
    for (int y = 21; y <= 40; ++y)
        EXPECT_EQ(canvas.RedColumns(y), std::set<int>{35}) << y;
    EXPECT_TRUE(canvas.RedColumns(20).empty()); // the last point of a line is not drawn
    EXPECT_TRUE(canvas.RedColumns(41).empty());
}

TEST(SymbolMarkers, TickOnAnUprightLineLiesFlat)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 5);
    list.Draw(&canvas.dc, Line({{50, 20}, {50, 50}}));
    EXPECT_GE(canvas.RedColumns(25).size(), 19u);
    EXPECT_TRUE(canvas.IsRed(50, 25));
}

TEST(SymbolMarkers, MarkerAtZeroLiesOnTheFirstPoint)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 0);
    list.Draw(&canvas.dc, Line({{20, 30}, {60, 30}}));
    EXPECT_EQ(canvas.RedColumns(30), std::set<int>{20});
}

TEST(SymbolMarkers, MarkerIsDrawnAgainOnTheBackwardExtensionOfLaterSegments)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 5);
    // Two segments of 10 steps each: at 5 on the first, and at t = -0.5 before the second, which is 5 too.
    list.Draw(&canvas.dc, Line({{20, 30}, {30, 30}, {30, 40}}));
    EXPECT_TRUE(canvas.IsRed(25, 22)); // upright, on the first segment
    EXPECT_TRUE(canvas.IsRed(38, 25)); // flat, above the second
}

TEST(SymbolMarkers, MarkerBeyondTheEndIsNotDrawn)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 41);
    list.Draw(&canvas.dc, Line({{20, 30}, {60, 30}}));
    EXPECT_TRUE(canvas.IsEmpty());
}

TEST(SymbolMarkers, StepsOfASegmentAreThoseOfItsLongerAxis)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 30);
    // 20 steps on the slope, then 10 of 40 along the flat.
    list.Draw(&canvas.dc, Line({{10, 20}, {30, 35}, {70, 35}}));
    EXPECT_TRUE(canvas.IsRed(40, 30));
}

TEST(SymbolMarkers, OnePointShowsNoMarkerAndNoStepsShowOneAtThePoint)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 0);
    list.Draw(&canvas.dc, Line({{20, 30}}));
    EXPECT_TRUE(canvas.IsEmpty());
    list.Draw(&canvas.dc, Line({{20, 30}, {20.4, 30.4}}));
    EXPECT_EQ(canvas.RedColumns(30), std::set<int>{20});
}

TEST(SymbolMarkers, HiddenMarkerIsSkippedWithoutEffectOnOthers)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    AddTick(list, 5)->Hide();
    AddTick(list, 15);
    list.Draw(&canvas.dc, Line({{20, 30}, {60, 30}}));
    EXPECT_EQ(canvas.RedColumns(30), std::set<int>{35});
    list.GetMarker(0)->Show();
    list.Draw(&canvas.dc, Line({{20, 30}, {60, 30}}));
    EXPECT_EQ(canvas.RedColumns(30), (std::set<int>{25, 35}));
}

TEST(SymbolMarkers, EmptyListDrawsNothing)
{
    Canvas canvas;
    KvSymbolMarkerList list;
    list.Draw(&canvas.dc, Line({{20, 30}, {60, 30}}));
    EXPECT_TRUE(canvas.IsEmpty());
}

} // namespace
