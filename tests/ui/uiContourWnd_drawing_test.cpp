// Paths of the editor: the quick way for solid pens against line after line.
#include "C/uiContourWnd_drawing_p.h"
#include "contracts/image.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace KvN;

namespace
{
constexpr int extent = 80;

class Canvas : public KvMemDC
{
public:
    explicit Canvas(CDC& like) : KvMemDC(&like, extent, extent) {}

    std::vector<COLORREF> Pixels() const
    {
        std::vector<COLORREF> pixels;
        for (int y = 0; y < extent; ++y)
            for (int x = 0; x < extent; ++x)
                pixels.push_back(::GetPixel(m_hDC, x, y));
        return pixels;
    }
};
} // namespace

TEST(EditorPaths, ManyLinesAtOnceHaveThePixelsOfLineAfterLine)
{
    std::mt19937 random(77);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(random); };
    CDC like;
    like.CreateCompatibleDC(nullptr);
    CBitmap bitmap;
    bitmap.CreateBitmap(4, 4, 1, 32, nullptr);
    const SelectedObject selected(like, bitmap);
    for (int i = 0; i < 200; ++i)
    {
        KvTList<KvVec2d> points;
        for (int count = pick(0, 3) ? pick(1, 12) : pick(30, 100); count > 0; --count)
            points.AddTail(KvVec2d(pick(-20, 1000) / 10.0, pick(-20, 1000) / 10.0));
        const bool closed = pick(0, 1);
        Canvas expected(like), actual(like);
        CPen pen(PS_SOLID, pick(0, 9), RGB(1, 2, 3));
        const SelectedObject one(expected, static_cast<HGDIOBJ>(pen));
        kv::editor::DrawPath(expected, points, closed);
        const SelectedObject two(actual, static_cast<HGDIOBJ>(pen));
        kv::editor::DrawSolidPath(actual, points, closed);
        ASSERT_EQ(actual.Pixels(), expected.Pixels()) << "case " << i;
        EXPECT_EQ(actual.GetCurrentPosition(), expected.GetCurrentPosition());
    }
}
