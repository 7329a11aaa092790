// The table of tools.
#include "C/uiMaskWndTools.h"

#include <gtest/gtest.h>

using namespace KvN;

TEST(MaskTools, EachExcludingToolDrawsTheFigureOfItsAddingCounterpart)
{
    for (int tool = 1; tool <= 9; ++tool)
    {
        const MaskTool adding = DescribeMaskTool(tool);
        const MaskTool excluding = DescribeMaskTool(tool + 10);
        EXPECT_EQ(adding.shape, excluding.shape) << tool;
        EXPECT_EQ(adding.filled, excluding.filled) << tool;
        EXPECT_TRUE(adding.adds) << tool;
        EXPECT_FALSE(excluding.adds) << tool;
    }
}

TEST(MaskTools, FiguresAndFillingsFollowTheNumbers)
{
    const MaskShape shapes[] = {MaskShape::Rectangle, MaskShape::Circle, MaskShape::Ellipse, MaskShape::Polygon};
    for (int i = 0; i < 4; ++i)
    {
        EXPECT_EQ(DescribeMaskTool(1 + i).shape, shapes[i]);
        EXPECT_TRUE(DescribeMaskTool(1 + i).filled);
        EXPECT_EQ(DescribeMaskTool(5 + i).shape, shapes[i]);
        EXPECT_FALSE(DescribeMaskTool(5 + i).filled);
    }
    EXPECT_EQ(DescribeMaskTool(9).shape, MaskShape::Polyline);
    EXPECT_FALSE(DescribeMaskTool(9).filled);
}

TEST(MaskTools, OtherNumbersDrawNothing)
{
    for (const int tool : {-32768, -1, 0, 10, 20, 21, 22, 65535})
    {
        EXPECT_EQ(DescribeMaskTool(tool).shape, MaskShape::None) << tool;
        EXPECT_FALSE(DescribeMaskTool(tool).IsBox()) << tool;
        EXPECT_FALSE(DescribeMaskTool(tool).IsPolygonal()) << tool;
    }
}
