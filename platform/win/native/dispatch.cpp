// Messages go through the attached object, or straight to the default processing of windows without one.
#include "platform/win/native/dispatch.h"

#include "platform/win/app.h"
#include "platform/win/native/input_state.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <deque>
#include <exception>

namespace kv::win
{
namespace
{
std::deque<MSG> posted;
std::exception_ptr kept;
QtEvent* currentEvent = nullptr;
ExceptionHandler exceptionHandler;

// Wakes the event loop for posted messages.
class Poster : public QObject
{
public:
    static void Wake()
    {
        if (!QCoreApplication::instance())
            return;
        static QPointer<Poster> poster;
        if (!poster)
        {
            poster = new Poster;
            poster->setParent(QCoreApplication::instance());
        }
        if (poster->awake)
            return;
        poster->awake = true;
        QCoreApplication::postEvent(poster, new QEvent(QEvent::User));
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        awake = false;
        DeliverPosted();
        return true;
    }

private:
    bool awake = false;
};

void ShowException(CException& exception)
{
    wchar_t text[1024] = L"";
    exception.GetErrorMessage(text, 1024);
    AfxMessageBox(text[0] ? CString(text) : CString(exception.GetRuntimeClass()->m_lpszClassName), MB_ICONERROR);
}

void Handle(CException* exception)
{
    if (exceptionHandler)
        return exceptionHandler(exception);
    ShowException(*exception);
    exception->Delete();
}
} // namespace

ExceptionHandler SetExceptionHandler(ExceptionHandler handler)
{
    return std::exchange(exceptionHandler, std::move(handler));
}

void Guarded(const std::function<void()>& work)
{
    try
    {
        try
        {
            work();
        }
        catch (CException* exception)
        {
            Handle(exception);
        }
    }
    catch (...)
    {
        if (!kept)
            kept = std::current_exception();
        QCoreApplication::exit(-1);
    }
}

void RethrowKept()
{
    if (kept)
        std::rethrow_exception(std::exchange(kept, nullptr));
}

bool HasKept()
{
    return kept != nullptr;
}

LRESULT Send(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return window.object ? CallObject(*window.object, message, wParam, lParam)
                         : window.DefaultProc(message, wParam, lParam);
}

bool DeliverPosted()
{
    if (posted.empty())
        return false;
    for (size_t count = posted.size(); count > 0 && !posted.empty(); --count)
    {
        const MSG message = posted.front();
        posted.pop_front();
        if (Window* window = Find(message.hwnd))
            Guarded([&] { Send(*window, message.message, message.wParam, message.lParam); });
    }
    return true;
}

QtEvent::QtEvent(Window& target, QEvent* source) : window(target.handle), event(source), outer(currentEvent)
{
    currentEvent = this;
}

QtEvent::~QtEvent()
{
    currentEvent = outer;
}

QtEvent* CurrentQtEvent()
{
    return currentEvent;
}

void SendInput(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND handle = window.handle;
    MSG msg{handle, message, wParam, lParam, 0, input.position};
    for (HWND at = handle; Window* offered = Find(at); at = offered->parent ? offered->parent->handle : nullptr)
    {
        if (offered->object && offered->object->PreTranslateMessage(&msg))
            return;
        offered = Find(at);
        if (!offered)
            return;
    }
    if (Window* target = Find(handle))
        Send(*target, message, wParam, lParam);
}
} // namespace kv::win

using namespace kv::win;

LRESULT SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* window = Find(handle);
    return window ? Send(*window, message, wParam, lParam) : 0;
}

BOOL PostMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!Find(handle))
        return FALSE;
    posted.push_back({handle, message, wParam, lParam, 0, input.position});
    Poster::Wake();
    return TRUE;
}

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* window = Find(handle);
    return window ? window->DefaultProc(message, wParam, lParam) : 0;
}
