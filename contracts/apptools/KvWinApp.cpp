// The application object, and what becomes of exceptions that reach its loop.
#include "contracts/apptools/KvWinApp.h"

#include "contracts/basics/KvExceptionManager.h"

#include <memory>

namespace KvN
{

IMPLEMENT_DYNAMIC(KvWinApp, CWinApp)

namespace
{
struct Deleter
{
    void operator()(CException* exception) const { exception->Delete(); }
};

void Report(CException* caught)
{
    const std::unique_ptr<CException, Deleter> exception(caught);
    std::unique_ptr<KvException> converted;
    auto* failure = dynamic_cast<KvException*>(caught);
    if (!failure)
    {
        converted = std::make_unique<KvException>(*caught);
        failure = converted.get();
    }
    pExceptionMgr->WriteToDebugFile(*failure, 0);
    AfxMessageBox(failure->GetMessageW().Text(), MB_ICONERROR);
}
} // namespace

KvWinApp::KvWinApp()
{
    kv::win::SetExceptionHandler(Report);
}

KvWinApp* GetpApp()
{
    if (auto* own = dynamic_cast<KvWinApp*>(AfxGetApp()))
        return own;
    static KvWinApp* const fallback = []
    {
        const kv::win::ExceptionHandler former = kv::win::SetExceptionHandler({});
        static KvWinApp app;
        if (former)
            kv::win::SetExceptionHandler(former);
        return &app;
    }();
    return fallback;
}

} // namespace KvN
