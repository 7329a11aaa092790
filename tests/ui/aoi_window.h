// An AOI window in a host of the tests, its view with the working layer opened, and small AOIs.
#pragma once

#include "C/uiAOIBaseFrameWnd.h"
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIWnd.h"
#include "contracts/image.h"
#include "platform/win/input.h"
#include "platform/win/screen.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kv::test
{

// A link to a function object. Once this object has gone, calls of the link do nothing.
class Handler
{
public:
    using Run = std::function<void(void* data)>;

    explicit Handler(Run run) : kept(std::make_shared<Run>(std::move(run))) { All().push_back(kept); }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;
    ~Handler() { *kept = nullptr; }

    KvTools::Link Link() const
    {
        return {kept.get(),
                [](void* run, void* data) -> long long
                {
                    if (*static_cast<Run*>(run))
                        (*static_cast<Run*>(run))(data);
                    return 1;
                }};
    }
    const void* Instance() const { return kept.get(); }

private:
    static std::vector<std::shared_ptr<Run>>& All()
    {
        static std::vector<std::shared_ptr<Run>> all;
        return all;
    }

    std::shared_ptr<Run> kept;
};

// The view's protected members, opened for a test to read and write.
class OpenView
{
    // Pointers to members that a derived class names may be used on any view.
    struct Names : KvN::KvAOIBaseViewWnd
    {
        using KvAOIBaseViewWnd::aoiHeight;
        using KvAOIBaseViewWnd::aoiList;
        using KvAOIBaseViewWnd::aoiWidth;
        using KvAOIBaseViewWnd::contextMenuKind;
        using KvAOIBaseViewWnd::currentCursor;
        using KvAOIBaseViewWnd::defaultCursor;
        using KvAOIBaseViewWnd::inDraw;
        using KvAOIBaseViewWnd::outputDevice;
        using KvAOIBaseViewWnd::resizing;
    };
    KvN::KvAOIBaseViewWnd& view;

public:
    explicit OpenView(KvN::KvAOIBaseViewWnd& view_) : view(view_) {}

    short& aoiWidth = view.*&Names::aoiWidth;
    short& aoiHeight = view.*&Names::aoiHeight;
    KvN::KvTMem<KvN::KvAOI*>& aoiList = view.*&Names::aoiList;
    int& contextMenuKind = view.*&Names::contextMenuKind;
    HCURSOR& currentCursor = view.*&Names::currentCursor;
    HCURSOR& defaultCursor = view.*&Names::defaultCursor;
    int& inDraw = view.*&Names::inDraw;
    CDC*& outputDevice = view.*&Names::outputDevice;
    int& resizing = view.*&Names::resizing;
};

std::unique_ptr<KvN::KvBufferAOI8> Ramp(short width, short height); // pixel = (x + y) mod 256
std::unique_ptr<KvN::KvBufferAOI8> Grey(short width, short height, unsigned char value);

// A host of the given client size at (0, 0), filled by an AOI window. Starts with neither pointer nor keys.
class AOIWindow
{
public:
    explicit AOIWindow(CSize host = CSize(800, 600));
    ~AOIWindow();

    KvN::KvAOIBaseViewWnd& View() const { return *window->GetAOIBaseViewWnd(); }
    OpenView Open() const { return OpenView(View()); }
    CRect Frame() const; // within the window
    void ResizeHost(CSize client);
    // What the view shows at an AOI pixel, 0xRRGGBB.
    unsigned Shown(int x, int y) const;

    CWnd host;
    std::unique_ptr<KvN::KvAOIWnd> window;
};

// The text of a KvException that `run` throws, which it deletes; empty if none is thrown.
std::string Thrown(const std::function<void()>& run);

} // namespace kv::test
