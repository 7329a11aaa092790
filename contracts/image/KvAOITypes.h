// The kinds of AOI: 8-bit (all masks are), 32-bit float, and colour; and the buffer AOIs, which own their device.
#pragma once

#include "contracts/image/KvAOI.h"
#include "contracts/image/KvLut.h"

namespace KvN
{

class KvAOI8 : public KvTAOI<unsigned char>, public KvOLutContainer
{
public:
    // Shows a device. It is shared if it is a shared object, else it stays the caller's and must outlive the AOI. The
    // number is kept for callers of the former interface and plays no part.
    explicit KvAOI8(KvDev8* device, int = 0) : KvTAOI(device) {}

protected:
    explicit KvAOI8(std::shared_ptr<KvDev8> device) : KvTAOI(std::move(device)) {}
};

// On the screen a value v shows as entry round(255 * (v - min) / (max - min)), clamped, of the table; min and max are
// the display range of a valid info's `normZ`, else the range of the values. A NaN shows as entry 0.
class KvAOI32Float : public KvTAOI<float>, public KvOLutContainer
{
public:
    explicit KvAOI32Float(KvDev32Float* device, int = 0) : KvTAOI(device) {}

    // The range that is shown now. The scanned one is kept until somebody gets hold of the pixels for writing.
    KvTFloatRange<float> DisplayRange() const;

protected:
    explicit KvAOI32Float(std::shared_ptr<KvDev32Float> device) : KvTAOI(std::move(device)) {}

private:
    mutable KvTFloatRange<float> scanned;
    mutable std::uint64_t scannedGeneration = 0;
};

// Has no output table.
class KvAOI32Color : public KvTAOI<KvColor>
{
public:
    explicit KvAOI32Color(KvDev32Color* device, int = 0) : KvTAOI(device) {}

protected:
    explicit KvAOI32Color(std::shared_ptr<KvDev32Color> device) : KvTAOI(std::move(device)) {}
};

// An AOI with a device of its own. The numbers are kept for callers of the former interface and play no part.
template <class Device, class AOI>
class KvTBufferAOI : public AOI
{
public:
    // All pixels are 0. A negative side counts as 0.
    explicit KvTBufferAOI(const KvTSize<short>& size, int = 0) : AOI(std::make_shared<Device>(size)) {}
    // Copies everything: pixels, names, info, table.
    KvTBufferAOI(const KvTBufferAOI& other, int = 0) : AOI(other)
    {
        this->SetDevice(std::make_shared<Device>(*other.GetDevice()));
    }
    KvTBufferAOI& operator=(const KvTBufferAOI& other)
    {
        if (this != &other)
        {
            auto copy = std::make_shared<Device>(*other.GetDevice());
            AOI::operator=(other);
            this->SetDevice(std::move(copy));
        }
        return *this;
    }

    // A new device of the given size, or the size of the given AOI, all pixels 0. AOIs over the former device keep it.
    void Resize(const KvTSize<short>& size, int = 1) { this->SetDevice(std::make_shared<Device>(size)); }
    void Resize(const KvAOI& like, int = 1) { Resize(like.AOISize()); }
    // A new device from pixels that are taken over without copying them; at most 32767 each way.
    void Adopt(KvTBuf2D<typename Device::Pixel>&& pixels) { this->SetDevice(Device::From(std::move(pixels))); }
};

using KvBufferAOI8 = KvTBufferAOI<KvDev8, KvAOI8>;
using KvBufferAOI32Float = KvTBufferAOI<KvDev32Float, KvAOI32Float>;
using KvBufferAOI32Color = KvTBufferAOI<KvDev32Color, KvAOI32Color>;

} // namespace KvN
