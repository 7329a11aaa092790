// Steps that the mask windows' drawing shares: a block with pen and brush selected, a pen of another width.
#pragma once

#include "contracts/basics.h"
#include "contracts/image.h"
#include "platform/afx/dcguards.h"

#include <memory>

namespace KvN
{

// Runs `body` with pen and brush selected and selects the former ones again, however the block ends. An exception of
// the framework that is none of the system's leaves as a KvException*.
template <class Body>
void DrawWith(CDC& dc, const CPen& pen, const CBrush& brush, Body body)
{
    const SelectedObject selectedPen(dc, pen);
    const SelectedObject selectedBrush(dc, brush);
    try
    {
        body();
    }
    catch (KvException*)
    {
        throw;
    }
    catch (CException* failure)
    {
        auto* converted = new KvException(*failure);
        failure->Delete();
        throw converted;
    }
}

// A pen like `model` with another width.
std::unique_ptr<CPen> CopyPen(const CPen& model, unsigned short width);
// Replaces the pen by one of another width; a null pen stays null.
void SetPenWidth(std::unique_ptr<CPen>& pen, unsigned short width);

// A stock cursor of the platform.
HCURSOR StandardCursor(UINT id);

} // namespace KvN
