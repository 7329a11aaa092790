// Steps that the mask windows' drawing shares.
#include "C/uiMaskWndDrawing_p.h"

#include "contracts/apptools.h"

namespace KvN
{

std::unique_ptr<CPen> CopyPen(const CPen& model, unsigned short width)
{
    LOGPEN record{};
    model.GetLogPen(&record);
    record.lopnWidth.x = width;
    auto pen = std::make_unique<CPen>();
    pen->CreatePenIndirect(&record);
    return pen;
}

void SetPenWidth(std::unique_ptr<CPen>& pen, unsigned short width)
{
    if (pen)
        pen = CopyPen(*pen, width);
}

HCURSOR StandardCursor(UINT id)
{
    return GetpApp()->LoadStandardCursor(id);
}

} // namespace KvN
