// Records that travel with an AOI: what its axes measure.
#pragma once

#include "contracts/basics/KvString.h"

namespace KvN
{

// One axis of a measuring scale. Compared exactly, without tolerance.
class KvNorm
{
public:
    double origin = 0.0;
    double step = 0.0;
    KvString unit;
    double dataMin = 0.0; // range of the data
    double dataMax = 0.0;
    double displayMin = 0.0; // range that is shown
    double displayMax = 0.0;
    double factor = 1.0;

    KvNorm() = default;
    KvNorm(const KvNorm&) = default;
    KvNorm& operator=(const KvNorm&) = default;
    virtual ~KvNorm() = default;

    bool operator==(const KvNorm& other) const;
};

class KvBaseAOIInfo
{
public:
    KvString name;
    int valid = 0; // 0: holds no usable scale

    explicit KvBaseAOIInfo(const KvString& name_ = KvString()) : name(name_) {}
    KvBaseAOIInfo(const KvBaseAOIInfo&) = default;
    KvBaseAOIInfo& operator=(const KvBaseAOIInfo&) = default;
    virtual ~KvBaseAOIInfo() = default;
};

class KvAOIInfo : public KvBaseAOIInfo
{
public:
    KvNorm normX;
    KvNorm normY;
    KvNorm normZ; // of the pixel values
    // The last three are copied and compared; nothing here interprets them.
    double extraValue = 0.0;
    KvString extraText;
    double extraValue2 = 0.0;

    explicit KvAOIInfo(const KvString& name_ = KvString()) : KvBaseAOIInfo(name_) {}
    KvAOIInfo(const KvAOIInfo& other) : KvBaseAOIInfo() { operator=(other); }
    ~KvAOIInfo() override = default;

    virtual bool operator==(const KvAOIInfo& other) const;
    virtual bool operator!=(const KvAOIInfo& other) const { return !operator==(other); }
    virtual KvAOIInfo& operator=(const KvAOIInfo& other);
};

} // namespace KvN
