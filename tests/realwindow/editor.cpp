// The contour editor of the workbench under a real mouse.
#include "tests/realwindow/editor.h"

namespace kv::realwindow
{

void EditorDesk::SetUp()
{
    WorkbenchDesk::SetUp();
    image = MakeImage();
    OpenAtOriginalSize(image);
    origin = At(0, 0);
}

void EditorDesk::Draw(const QString& toolKey, QPoint from, QPoint to) const
{
    screen->Keys({toolKey});
    screen->Drag(P(from.x(), from.y()), P(to.x(), to.y()));
}

void EditorDesk::ExpectSaved(const std::vector<Figure>& figures) const
{
    const std::vector<KvN::KvContour> saved = Save(image);
    ASSERT_EQ(saved.size(), figures.size());
    for (size_t i = 0; i < saved.size(); ++i)
    {
        SCOPED_TRACE("contour " + std::to_string(i));
        const Figure& wanted = figures[i];
        EXPECT_EQ(saved[i].ContourType(), wanted.type);
        EXPECT_EQ(saved[i].Exclude() != 0, wanted.excluded);
        const auto& points = saved[i].CurvePositions();
        ASSERT_EQ(points.count, static_cast<int>(wanted.points.size()));
        for (size_t k = 0; k < wanted.points.size(); ++k)
        {
            const KvN::KvVec2d& point = points[static_cast<int>(k)];
            EXPECT_NEAR(point.x, wanted.points[k].x(), 0.001) << "point " << k;
            EXPECT_NEAR(point.y, wanted.points[k].y(), 0.001) << "point " << k;
        }
    }
}

Figure Rectangle(double left, double top, double right, double bottom)
{
    return {KvN::KvContour::eRectangle, {{left, top}, {left, bottom}, {right, bottom}, {right, top}}};
}

} // namespace kv::realwindow
