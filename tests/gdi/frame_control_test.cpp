// Edges and frame controls.
#include "canvas.h"

#include <gtest/gtest.h>

TEST(DrawEdge, ARaisedEdgeIsLightAboveAndDarkBelow)
{
    Canvas c(10, 10, 32);
    RECT rect{0, 0, 10, 10};
    EXPECT_TRUE(DrawEdge(c.dc, &rect, EDGE_RAISED, BF_RECT | BF_ADJUST | BF_MIDDLE));
    EXPECT_EQ(rect.left, 2);
    EXPECT_EQ(rect.bottom, 8);
    EXPECT_EQ(GetPixel(c.dc, 9, 9), GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(GetPixel(c.dc, 1, 1), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(GetPixel(c.dc, 8, 8), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(GetPixel(c.dc, 5, 5), GetSysColor(COLOR_BTNFACE));
}

TEST(DrawFrameControl, APushedButtonIsSunken)
{
    Canvas up(40, 20, 32), down(40, 20, 32);
    RECT rect{0, 0, 40, 20};
    EXPECT_TRUE(DrawFrameControl(up.dc, &rect, DFC_BUTTON, DFCS_BUTTONPUSH));
    EXPECT_TRUE(DrawFrameControl(down.dc, &rect, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED));
    EXPECT_EQ(GetPixel(up.dc, 0, 0), GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_NE(up.picture() == down.picture() && up.pixels() == down.pixels(), true);
    EXPECT_EQ(up.count(), 800);
}

TEST(DrawFrameControl, DrawsScrollArrowsIntoEveryDirection)
{
    std::vector<std::vector<std::uint32_t>> seen;
    for (const UINT direction : {DFCS_SCROLLUP, DFCS_SCROLLDOWN, DFCS_SCROLLLEFT, DFCS_SCROLLRIGHT})
    {
        Canvas c(17, 17, 32);
        RECT rect{0, 0, 17, 17};
        EXPECT_TRUE(DrawFrameControl(c.dc, &rect, DFC_SCROLL, direction));
        for (const auto& other : seen)
            EXPECT_NE(c.pixels(), other);
        seen.push_back(c.pixels());
    }
}

TEST(DrawFrameControl, RefusesWhatItDoesNotKnow)
{
    Canvas c(10, 10, 32);
    RECT rect{0, 0, 10, 10}, turned{9, 9, 0, 0};
    EXPECT_FALSE(DrawFrameControl(c.dc, &rect, DFC_CAPTION, 0));
    EXPECT_FALSE(DrawFrameControl(c.dc, &rect, DFC_BUTTON, 0x1F));
    EXPECT_FALSE(DrawFrameControl(c.dc, nullptr, DFC_BUTTON, DFCS_BUTTONPUSH));
    EXPECT_FALSE(DrawFrameControl(c.dc, &turned, DFC_BUTTON, DFCS_BUTTONPUSH));
    EXPECT_EQ(c.count(), 0);
}
