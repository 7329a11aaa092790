// The placed figure and its handles.
#include "C/uiMaskWndFigure.h"

#include "contracts/apptools.h"
#include "tests/ui/aoi_window.h"

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Grey;

namespace
{

// A figure over a view with a grey AOI of 60 by 50 pixels at zoom 1.
class MaskFigure : public ::testing::Test
{
protected:
    void SetUp() override
    {
        window.View().SetAOI(aoi.get());
        figure.Init(&window.View());
        figure.SetRect({10, 12, 30, 28});
        figure.Show();
        kv::win::Settle(); // what is drawn outside a paint must not be wiped by a pending one
    }

    // Where the handle is after a drawing; the figure is erased again.
    KvTPoint<short> Place(unsigned short id)
    {
        figure.Draw();
        figure.Draw();
        figure.IsInside(Centre(id));
        return figure.GetCurrentMarker()->GetPos();
    }
    KvTPoint<short> Centre(unsigned short id)
    {
        const KvTPoint<short> places[] = {{10, 12}, {20, 12}, {30, 12}, {10, 20},
                                          {30, 20}, {10, 28}, {20, 28}, {30, 28}};
        return places[id];
    }
    std::vector<std::uint32_t> Screen() { return kv::win::PictureOf(window.View().m_hWnd).pixels; }

    std::unique_ptr<KvBufferAOI8> aoi = Grey(60, 50, 100);
    AOIWindow window{CSize(100, 80)};
    KvSurroundRect figure;
};

} // namespace

TEST_F(MaskFigure, HasItsHandlesAtCornersAndMiddles)
{
    for (unsigned short id = 0; id < 8; ++id)
    {
        EXPECT_EQ(Place(id), Centre(id)) << id;
        EXPECT_EQ(figure.GetMarkerId(), id);
        EXPECT_EQ(figure.GetCurrentMarker()->GetId(), id);
    }
}

TEST_F(MaskFigure, KeepsHandlesOnTheOuterSidesWhenItLiesTheWrongWayRound)
{
    figure.SetRect({30, 28, 10, 12});
    figure.Draw();
    figure.Draw();
    ASSERT_TRUE(figure.IsInside({20, 12}));
    EXPECT_EQ(figure.GetMarkerId(), 1); // top middle stays at the smaller of top and bottom
    ASSERT_TRUE(figure.IsInside({10, 20}));
    EXPECT_EQ(figure.GetMarkerId(), 3);
    ASSERT_TRUE(figure.IsInside({30, 28}));
    EXPECT_EQ(figure.GetMarkerId(), 0); // the corner goes along
}

TEST_F(MaskFigure, PutsItsHandlesOnTheNearSideWhereASideHasNoExtent)
{
    figure.SetRect({10, 12, KvTRectangle<short>::NoValue, 28});
    figure.Draw();
    figure.Draw();
    EXPECT_FALSE(figure.IsInside({10, 12}));
    EXPECT_TRUE(figure.IsInsideMarker());
    EXPECT_EQ(figure.GetMarkerId(), 6); // 1, 3, 4, 6 lie at left, top; 2 does too
    EXPECT_FALSE(figure.IsInside({10, 28}));
    EXPECT_EQ(figure.GetMarkerId(), 7); // 5 and 7 at left, bottom
}

TEST_F(MaskFigure, DrawsNothingWhileHidden)
{
    const auto before = Screen();
    figure.Hide();
    figure.Draw();
    EXPECT_EQ(Screen(), before);
}

TEST_F(MaskFigure, IsErasedByDrawingItTwice)
{
    for (const auto type : {KvSurroundRect::ToolRectangle, KvSurroundRect::ToolCircle, KvSurroundRect::ToolEllipse})
    {
        const auto before = Screen();
        figure.SetToolType(type);
        figure.Draw();
        EXPECT_NE(Screen(), before) << type;
        figure.Draw();
        EXPECT_EQ(Screen(), before) << type;
    }
}

TEST_F(MaskFigure, ShowsItsBoxAndFilledHandles)
{
    const unsigned inverted = 0xFFFFFF ^ 0x646464;
    figure.Draw();
    EXPECT_EQ(window.Shown(15, 12) & 0xFFFFFF, inverted); // the outline between two handles
    EXPECT_EQ(window.Shown(7, 9) & 0xFFFFFF, inverted);   // the corner of handle 0, 3 pixels off its centre
    EXPECT_EQ(window.Shown(6, 9) & 0xFFFFFF, 0x646464u);
    EXPECT_EQ(window.Shown(10, 12) & 0xFFFFFF, 0x646464u); // outline and handle cancel each other
    EXPECT_EQ(window.Shown(20, 20) & 0xFFFFFF, 0x646464u); // nothing inside
}

TEST_F(MaskFigure, TellsHandlesFromInsideAndOutside)
{
    EXPECT_EQ(figure.GetMarkerId(), KvSurroundRect::NoMarkerId);
    figure.Draw();
    EXPECT_TRUE(figure.IsInside({20, 20}));
    EXPECT_FALSE(figure.IsInsideMarker());
    EXPECT_EQ(figure.GetMarkerId(), KvSurroundRect::InsideId);
    // The outer half of a handle lies outside the rectangle.
    EXPECT_FALSE(figure.IsInside({7, 9}));
    EXPECT_TRUE(figure.IsInsideMarker());
    EXPECT_EQ(figure.GetMarkerId(), 0);
    // A miss keeps the id.
    EXPECT_FALSE(figure.IsInside({50, 45}));
    EXPECT_FALSE(figure.IsInsideMarker());
    EXPECT_EQ(figure.GetMarkerId(), 0);
    // The sides belong to it.
    EXPECT_TRUE(figure.IsInside({15, 12}));
    EXPECT_TRUE(figure.IsInside({15, 28}));
    EXPECT_FALSE(figure.IsInside({15, 29}));
}

TEST_F(MaskFigure, PrefersTheHighestHandleWhereTheyOverlap)
{
    figure.SetRect({20, 20, 22, 22});
    figure.Draw();
    EXPECT_TRUE(figure.IsInside({21, 21}));
    EXPECT_EQ(figure.GetMarkerId(), 7);
    EXPECT_FALSE(figure.IsInside({17, 17}));
    EXPECT_EQ(figure.GetMarkerId(), 0);
}

TEST_F(MaskFigure, ShowsTheCursorOfEachHandle)
{
    const UINT plain[] = {IDC_SIZENWSE, IDC_SIZENS,   IDC_SIZENESW, IDC_SIZEWE,
                          IDC_SIZEWE,   IDC_SIZENESW, IDC_SIZENS,   IDC_SIZENWSE};
    const bool side[] = {false, true, false, true, true, false, true, false};
    for (const auto type : {KvSurroundRect::ToolCircle, KvSurroundRect::ToolRectangle, KvSurroundRect::ToolEllipse})
    {
        figure.SetToolType(type);
        for (unsigned short id = 0; id < 8; ++id)
        {
            Place(id);
            const bool dead = type == KvSurroundRect::ToolCircle && side[id];
            EXPECT_EQ(CursorId(figure.GetCurrentMarker()->GetPointer()), dead ? IDC_SIZEALL : plain[id]) << id;
        }
    }
    EXPECT_EQ(CursorId(figure.GetPointer()), IDC_SIZEALL);
}

TEST_F(MaskFigure, TakesALineWidthWithoutDrawing)
{
    const auto before = Screen();
    figure.SetLineWidth(5);
    EXPECT_EQ(figure.GetLineWidth(), 5);
    EXPECT_EQ(Screen(), before);
    figure.Draw();
    EXPECT_EQ(window.Shown(15, 14) & 0xFFFFFF, 0x9B9B9Bu); // two pixels beside the line
}

TEST(MaskHandle, HasNoInsideWithoutSizeAndSevenPixelsWithIt)
{
    KvMaskWndDraggableNode handle;
    EXPECT_EQ(handle.GetSize(), KvTSize<short>(7, 7));
    handle.SetPos({10, 20});
    for (const short d : {-3, 3})
    {
        EXPECT_TRUE(handle.IsInside({static_cast<short>(10 + d), 20}));
        EXPECT_TRUE(handle.IsInside({10, static_cast<short>(20 + d)}));
    }
    EXPECT_FALSE(handle.IsInside({14, 20}));
    EXPECT_FALSE(handle.IsInside({10, 16}));
}
