// A plain AOI window that fills the host.
#pragma once

#include "apps/session/stage.h"

namespace kv::session
{

class ViewContent : public Content
{
public:
    explicit ViewContent(CWnd& host);
    ~ViewContent() override;
    KvN::KvAOIWnd* Window() override { return &window; }

private:
    KvN::KvAOIWnd window;
};

} // namespace kv::session
