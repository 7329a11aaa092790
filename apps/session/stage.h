// The windows of a session: one host, what fills it, and the dialog that may run over it.
#pragma once

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIWnd.h"

#include <memory>
#include <string>
#include <vector>

namespace kv::session
{

// A window with a view, and what commands ask of it. Each kind of window derives its own.
class Content
{
public:
    virtual ~Content() = default;

    // Null while the window isn't there, as before a dialog has made it and after it has closed.
    virtual KvN::KvAOIWnd* Window() = 0;
    // `tool N`. Throws CommandError for a window without tools.
    virtual void SetTool(long tool);
    // What the window told its host since the last call, oldest first.
    virtual std::vector<std::string> TakeEvents() { return {}; }
};

class Stage
{
public:
    Stage();
    ~Stage();

    // The client size of the host, which is made if it isn't there.
    void SizeHost(CSize client);
    // The host as parent of what is to fill it. Closes what fills it now, and makes the host in its default size.
    CWnd& EmptyHost();
    // Makes `content`, whose window is a child of the host, fill the host; gives its view the focus.
    void Fill(std::unique_ptr<Content> content);
    void Close(); // throws CommandError if nothing fills the host

    // From here on the dialog's window is the window; null when it has closed. Neither is owned.
    void SetDialog(CWnd* dialog, Content* content);
    CWnd* Dialog() const { return dialog; }

    // Each throws CommandError if there is none.
    Content& Current() const;
    KvN::KvAOIWnd& Window() const;
    KvN::KvAOIBaseViewWnd& View() const;
    CWnd& Host() const;
    // The open dialog, else the host.
    CWnd& TopLevel() const;

    // The content as one of its kinds; null if it is of another.
    template <class Kind>
    Kind* As() const
    {
        return dynamic_cast<Kind*>(&Current());
    }

private:
    class HostWnd;

    std::unique_ptr<HostWnd> host;
    std::unique_ptr<Content> filling;
    CWnd* dialog = nullptr;
    Content* dialogContent = nullptr;
};

} // namespace kv::session
