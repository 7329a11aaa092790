// Run-time class records.
#include "platform/afx/object.h"

CRuntimeClass CObject::classCObject = {"CObject", nullptr, nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    for (const CRuntimeClass* step = this; step; step = step->m_pBaseClass)
    {
        if (step == base)
            return true;
    }
    return false;
}
