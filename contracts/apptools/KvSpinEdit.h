// A number to type or to step through.
#pragma once

#include "platform/win/wnd.h"

namespace KvN
{

// The control of class {B42FB016-43F2-11D1-80C0-000000000000}. Minimum 1 and step 1; the maximum is the fourth double
// of the control's initial data in its dialog, otherwise 100. Values have up to three decimals. It starts at its
// minimum. Each change of the value, by hand or by SetValue, is event 1 with the value as one double, to the event sink
// of its parent.
class KvSpinEdit : public CWnd
{
    DECLARE_DYNCREATE(KvSpinEdit)

public:
    static constexpr int valueChanged = 1; // the dispatch id of the event

    double GetValue() const; // the minimum without a window
    // Kept within the range. Fires the event each time, also for the value that is there.
    void SetValue(double value);
};

} // namespace KvN
