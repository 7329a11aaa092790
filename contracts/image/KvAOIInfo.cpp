// Copying and comparing of the records.
#include "contracts/image/KvAOIInfo.h"

namespace KvN
{

bool KvNorm::operator==(const KvNorm& other) const
{
    return origin == other.origin && step == other.step && unit == other.unit && dataMin == other.dataMin &&
           dataMax == other.dataMax && displayMin == other.displayMin && displayMax == other.displayMax &&
           factor == other.factor;
}

bool KvAOIInfo::operator==(const KvAOIInfo& other) const
{
    return normX == other.normX && normY == other.normY && normZ == other.normZ && name == other.name &&
           valid == other.valid && extraValue == other.extraValue && extraText == other.extraText &&
           extraValue2 == other.extraValue2;
}

KvAOIInfo& KvAOIInfo::operator=(const KvAOIInfo& other)
{
    normX = other.normX;
    normY = other.normY;
    normZ = other.normZ;
    name = other.name;
    valid = other.valid;
    extraValue = other.extraValue;
    extraText = other.extraText;
    extraValue2 = other.extraValue2;
    return *this;
}

} // namespace KvN
