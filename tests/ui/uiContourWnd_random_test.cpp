// An operator who does anything: whatever comes, the two orders hold the same valid contours, the capture is free at
// rest, the screen shows what a repaint would show, and undoing everything gives the first state.
#include "tests/ui/contour_editor.h"
#include "tests/ui/random_rounds.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <sstream>

using namespace KvN;
using namespace kv::test;

namespace
{

using Wnd = KvContourWnd;

class RandomOperator : public EditorDrawing, public ::testing::WithParamInterface<int>
{
protected:
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }

    std::string Dump() const
    {
        std::ostringstream text;
        text.precision(17);
        for (unsigned long i = 0; i < editor->m_Contours.NumEntries(); ++i)
        {
            const KvContour& c = *editor->m_Contours.GetEntry(i);
            text << c.ID() << ' ' << c.SequenceID() << ' ' << c.ContourType() << ' ' << c.Exclude() << ' ' << c.Angle()
                 << ' ' << c.LineWidth();
            for (const auto& [x, y] : PointsOf(c))
                text << " (" << x << ',' << y << ')';
            text << '\n';
        }
        return text.str();
    }

    void Go()
    {
        // Often back to where contours are, so that something is hit.
        if (editor->m_Contours.NumEntries() > 0 && Below(3) == 0)
        {
            const KvContour& c = *editor->m_Contours.GetEntry(
                static_cast<unsigned long>(Below(static_cast<int>(editor->m_Contours.NumEntries()))));
            const Points points = PointsOf(c);
            if (!points.empty())
            {
                const auto& [px, py] = points[static_cast<size_t>(Below(static_cast<int>(points.size())))];
                x = std::clamp(static_cast<int>(px) + Below(5) - 2, 0, 199);
                y = std::clamp(static_cast<int>(py) + Below(5) - 2, 0, 149);
            }
        }
        else
        {
            x = Below(200);
            y = Below(150);
        }
        Move(x, y);
    }

    void Key(UINT key)
    {
        bool& isDown = down[key];
        isDown = !isDown;
        if (isDown)
            kv::win::PressKey(key);
        else
            kv::win::ReleaseKey(key);
    }

    void Button()
    {
        if (pressed)
            kv::win::ReleaseButton(view->GetSafeHwnd(), kv::win::Button::Left, Client(x, y));
        else if (Below(6) == 0)
            kv::win::DoublePressButton(view->GetSafeHwnd(), kv::win::Button::Left, Client(x, y));
        else
            kv::win::PressButton(view->GetSafeHwnd(), kv::win::Button::Left, Client(x, y));
        pressed = !pressed;
    }

    std::string Event()
    {
        const int kind = Below(100);
        if (kind < 40)
            return Go(), "move";
        if (kind < 75)
            return Button(), "button";
        if (kind < 84)
        {
            const UINT keys[] = {VK_SHIFT, VK_CONTROL, VK_MENU};
            return Key(keys[Below(3)]), "modifier";
        }
        if (kind < 86)
            return kv::win::PressKey(VK_ESCAPE), kv::win::ReleaseKey(VK_ESCAPE), "escape";
        if (kind < 88)
            return kv::win::PressKey(VK_DELETE), kv::win::ReleaseKey(VK_DELETE), "delete";
        if (kind < 95)
        {
            const unsigned short tool =
                Below(12) == 0 ? static_cast<unsigned short>(12 + Below(3)) : static_cast<unsigned short>(3 + Below(9));
            return editor->SetTool(tool), "tool " + std::to_string(tool);
        }
        if (kind < 96)
            return Switch();
        if (kind < 97)
            return editor->SetPolylineWidth(static_cast<unsigned short>(Below(9))), "width";
        if (kind < 99)
            return editor->Undo(), "undo";
        return editor->Redo(), "redo";
    }

    // What hosts do meanwhile. None of it repaints, but for the zoom.
    std::string Switch()
    {
        const int on = Below(2);
        shownIsOld = true;
        switch (Below(8))
        {
        case 0:
            return on ? editor->SetEnableDeleteOn() : editor->SetEnableDeleteOff(), "delete";
        case 1:
            return on ? editor->SetEnableInvertOn() : editor->SetEnableInvertOff(), "invert";
        case 2:
            return Below(4) ? editor->SetInteractionOn() : editor->SetInteractionOff(), "interaction";
        case 3:
            return on ? editor->SetShowThumbsOn() : editor->SetShowThumbsOff(), "thumbs";
        case 4:
            return on ? editor->SetShowPolylineDirectionOn() : editor->SetShowPolylineDirectionOff(), "direction";
        case 5:
            return view->SetZoomFactor(on ? 2.0 : 1.0), kv::win::Settle(), "zoom";
        default:
            return editor->SelectContour(Below(8)), "select";
        }
    }

    // With no figure under way nothing is left behind on the screen.
    void CheckScreen(const std::string& event)
    {
        if (!shownIsOld)
        {
            const auto shown = Shown().pixels;
            Repaint();
            ASSERT_EQ(shown, Shown().pixels) << event;
        }
        Repaint();
        shownIsOld = false;
    }

    void Check(const std::string& event)
    {
        std::set<int> ids;
        std::set<const KvContour*> stored, drawn;
        for (unsigned long i = 0; i < editor->m_Contours.NumEntries(); ++i)
        {
            stored.insert(editor->m_Contours.GetEntry(i));
            ids.insert(editor->m_Contours.GetEntry(i)->ID());
        }
        for (unsigned long i = 0; i < editor->m_ContourSeq.NumEntries(); ++i)
            drawn.insert(editor->m_ContourSeq.GetEntry(i));
        ASSERT_EQ(ids.size(), editor->m_Contours.NumEntries()) << event;
        ASSERT_EQ(drawn.size(), editor->m_ContourSeq.NumEntries()) << event;
        ASSERT_EQ(stored, drawn) << event;
        for (const KvContour* contour : stored)
            ASSERT_TRUE(contour->IsValid()) << event;
        // The point tool may keep the capture of a press that started nothing.
        if (!pressed && !editor->IsEditing() && editor->GetTool() != Wnd::ToolEditPoints)
        {
            ASSERT_EQ(::GetCapture(), nullptr) << event;
        }
        if (!editor->IsEditing() && Below(20) == 0)
            CheckScreen(event);
    }

    std::mt19937 random{RoundSeed(GetParam())};
    std::map<UINT, bool> down;
    bool pressed = false;
    bool shownIsOld = true; // something changed that does not repaint
    int x = 0;
    int y = 0;
};

TEST_P(RandomOperator, LeavesTheEditorWholeWhateverHappens)
{
    const int events = RoundEvents(10000, 2500);
    Give({Rect(20, 20, 70, 60), Shape(KvContour::ePolygon, {{90, 30}, {100, 120}, {160, 80}}),
          Shape(KvContour::ePolyline, {{20, 130}, {180, 130}})});
    const std::string first = Dump();
    for (int i = 0; i < events; ++i)
    {
        const std::string event = Event();
        Check("seed " + std::to_string(RoundSeed(GetParam())) + ", event " + std::to_string(i) + ": " + event);
        if (HasFatalFailure())
            return;
    }
    if (pressed)
        Button();
    for (const auto& [key, isDown] : down)
    {
        if (isDown)
            kv::win::ReleaseKey(key);
    }
    editor->DeleteFigure();
    EXPECT_EQ(::GetCapture(), nullptr);

    ASSERT_TRUE(editor->CanUndo());
    while (editor->CanUndo())
        editor->Undo();
    EXPECT_EQ(Dump(), first);
    while (editor->CanRedo())
        editor->Redo();
    while (editor->CanUndo())
        editor->Undo();
    EXPECT_EQ(Dump(), first);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperator, Rounds(10, 2));

} // namespace
