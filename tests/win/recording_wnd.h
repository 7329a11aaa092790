// A window that notes every message it gets, for tests of their order.
#pragma once

#include "platform/win/input.h"
#include "platform/win/win.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

struct Noted
{
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

class RecordingWnd : public CWnd
{
public:
    std::vector<Noted> noted;
    std::function<bool(RecordingWnd&, UINT, WPARAM, LPARAM)> onMessage; // true: no further processing
    std::vector<std::string>* log = nullptr;
    std::string name;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        noted.push_back({message, wParam, lParam});
        if (log)
            log->push_back(name + ":" + std::to_string(message));
        if (onMessage && onMessage(*this, message, wParam, lParam))
            return 0;
        return CWnd::WindowProc(message, wParam, lParam);
    }

    // The messages of these kinds, in order.
    std::vector<UINT> Of(const std::vector<UINT>& kinds) const
    {
        std::vector<UINT> found;
        for (const Noted& note : noted)
        {
            if (std::find(kinds.begin(), kinds.end(), note.message) != kinds.end())
                found.push_back(note.message);
        }
        return found;
    }
    int Count(UINT message) const { return static_cast<int>(Of({message}).size()); }
    const Noted& Last(UINT message) const
    {
        for (auto at = noted.rbegin(); at != noted.rend(); ++at)
        {
            if (at->message == message)
                return *at;
        }
        static const Noted none{};
        return none;
    }

    // A shown top-level window of that client size, far from the screen's corner.
    void CreateTop(int width = 200, int height = 100, UINT classStyle = CS_DBLCLKS, DWORD more = 0)
    {
        ASSERT_TRUE(CreateEx(0, AfxRegisterWndClass(classStyle, LoadCursorW(nullptr, IDC_ARROW)), "test",
                             WS_OVERLAPPEDWINDOW | WS_VISIBLE | more, 50, 60, width, height, nullptr, nullptr));
        kv::win::Settle();
    }
    void CreateChild(CWnd& parent, const CRect& rect, UINT id = 1, UINT classStyle = CS_DBLCLKS, DWORD more = 0)
    {
        ASSERT_TRUE(Create(AfxRegisterWndClass(classStyle, LoadCursorW(nullptr, IDC_ARROW)), CString(),
                           WS_CHILD | WS_VISIBLE | more, rect, &parent, id));
        kv::win::Settle();
    }
};

// Leaves no input behind for the next test.
class WindowTest : public testing::Test
{
protected:
    ~WindowTest() override
    {
        kv::win::Settle();
        kv::win::ResetInput();
    }
};
