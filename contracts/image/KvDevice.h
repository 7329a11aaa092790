// The pixel store behind an AOI. Several AOIs may share one.
#pragma once

#include "contracts/basics/KvBuffers.h"
#include "contracts/basics/KvPoint.h"
#include "contracts/image/KvColor.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace KvN
{

enum DeviceType
{
    DeviceNone = 0,
    Device8 = 1, // the values run up to 255
    Device32Float = 2,
    Device32Color = 3
};

class KvDevice;

// Somebody who reads a device's pixels later, and therefore wants to know before they change.
class KvDeviceReader
{
public:
    // The reader takes itself off the device's list here.
    virtual void BeforeChange(KvDevice& device) = 0;

protected:
    ~KvDeviceReader() = default;
};

class KvDevice
{
public:
    virtual ~KvDevice() = default;
    virtual DeviceType Type() const = 0;

    // Changes whenever somebody gets hold of the pixels for writing, and is never that of another device; tells whether
    // something computed from the pixels may be out of date.
    std::uint64_t Generation() const { return generation; }

    // Readers are not owned, and hear of the next time that somebody gets hold of the pixels for writing.
    void AddReader(KvDeviceReader& reader) { readers.push_back(&reader); }
    void RemoveReader(KvDeviceReader& reader) { std::erase(readers, &reader); }
    void TellReaders()
    {
        while (!readers.empty())
            readers.back()->BeforeChange(*this);
    }

protected:
    KvDevice() = default;
    KvDevice(const KvDevice&) {}
    KvDevice& operator=(const KvDevice&) = delete;

    std::vector<KvDeviceReader*> readers;
    std::uint64_t generation = nextDevice.fetch_add(std::uint64_t(1) << 40);

private:
    static inline std::atomic<std::uint64_t> nextDevice{std::uint64_t(1) << 40};
};

// Pixels row after row, top row first, all 0 at first. A device made by `std::make_shared` lives as long as the last
// AOI that shows it; any other must outlive its AOIs.
template <class T, DeviceType type>
class KvTDevice : public KvDevice, public std::enable_shared_from_this<KvTDevice<T, type>>
{
public:
    using Pixel = T;
    static constexpr DeviceType deviceType = type;

    // A negative width or height counts as 0.
    explicit KvTDevice(const KvTSize<short>& size_)
        : size(std::max<short>(size_.width, 0), std::max<short>(size_.height, 0)), pixels(size.width, size.height)
    {
    }
    // Takes pixels over without copying them. The buffer must not be larger than 32767 each way.
    static std::shared_ptr<KvTDevice> From(KvTBuf2D<T>&& from)
    {
        auto device = std::make_shared<KvTDevice>(KvTSize<short>());
        device->size = {static_cast<short>(from.width), static_cast<short>(from.height)};
        std::swap(device->pixels.data, from.data);
        std::swap(device->pixels.width, from.width);
        std::swap(device->pixels.height, from.height);
        return device;
    }

    DeviceType Type() const override { return type; }
    const KvTSize<short>& Size() const { return size; }

    // The row's first pixel; y must lie within. A pointer for writing is to be fetched anew after the device has been
    // read through an AOI, so that what was derived from the pixels is known to be old.
    T* Row(int y)
    {
        if (!readers.empty())
            TellReaders();
        ++generation;
        return pixels.Row(y);
    }
    const T* Row(int y) const { return pixels.Row(y); }

private:
    KvTSize<short> size;
    KvTBuf2D<T> pixels;
};

using KvDev8 = KvTDevice<unsigned char, Device8>;
using KvDev32Float = KvTDevice<float, Device32Float>;
using KvDev32Color = KvTDevice<KvColor, Device32Color>;

} // namespace KvN
