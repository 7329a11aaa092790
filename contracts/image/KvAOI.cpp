// What all AOIs share, and the typed access to their pixels.
#include "contracts/image/KvAOI.h"

#include "contracts/image/KvAOITypes.h"
#include "contracts/image/KvImageFile.h"
#include "contracts/image/imagefile_p.h"
#include "contracts/image/show_p.h"

#include <cstdlib>

namespace KvN
{

KvAOI::~KvAOI()
{
    delete aoiInfo;
}

KvAOI::KvAOI(const KvAOI& other)
    : aoiInfo(other.aoiInfo ? new KvAOIInfo(*other.aoiInfo) : nullptr), aoiSize(other.aoiSize),
      deviceType(other.deviceType), aoiName(other.aoiName), uiName(other.uiName)
{
}

KvAOI& KvAOI::operator=(const KvAOI& other)
{
    if (this != &other)
    {
        SetAOIInfo(other.aoiInfo ? new KvAOIInfo(*other.aoiInfo) : nullptr);
        aoiSize = other.aoiSize;
        aoiName = other.aoiName;
        uiName = other.uiName;
    }
    return *this;
}

void KvAOI::SetAOIInfo(KvAOIInfo* info)
{
    if (info != aoiInfo)
        delete aoiInfo;
    aoiInfo = info;
}

namespace
{

// A run of `count` pixels from `at` that lies within [0, limit): where it starts there and in the run, and how long it
// is.
struct Overlap
{
    int inside = 0;
    int inRun = 0;
    int count = 0;

    Overlap(int at, int length, int limit)
        : inside(std::max(at, 0)), inRun(inside - at), count(std::max(std::min(at + length, limit) - inside, 0))
    {
    }
};

template <class T>
void SizeTo(KvTBuf1D<T>& buffer, int size)
{
    if (buffer.size != size)
        buffer = KvTBuf1D<T>(size);
}

template <class T>
void SizeTo(KvTBuf2D<T>& buffer, int width, int height)
{
    if (width < 1 || height < 1)
        width = height = 0;
    if (buffer.width != width || buffer.height != height)
        buffer = KvTBuf2D<T>(width, height);
}

// Reads a run of row y. Both are relative to the device, which may not have them.
template <class Device, class T>
void ReadRun(const Device& device, int x, int y, int count, T* out)
{
    const Overlap part(x, count, y >= 0 && y < device.Size().height ? device.Size().width : 0);
    if (part.count < count)
        std::fill_n(out, count, T{});
    if (part.count > 0)
        std::copy_n(device.Row(y) + part.inside, part.count, out + part.inRun);
}

template <class Device, class T>
void WriteRun(Device& device, int x, int y, int count, const T* from)
{
    const Overlap part(x, count, y >= 0 && y < device.Size().height ? device.Size().width : 0);
    if (part.count > 0)
        std::copy_n(from + part.inRun, part.count, device.Row(y) + part.inside);
}

template <class Device>
const Device& Const(const Device* device)
{
    return *device;
}

// Visits the pixels of a straight line: one a step of the longer axis, the nearest on the other.
template <class Visit>
void WalkLine(const KvTPoint<short>& from, const KvTPoint<short>& to, Visit visit)
{
    const int dx = to.x - from.x, dy = to.y - from.y;
    const int steps = std::max(std::abs(dx), std::abs(dy));
    const auto along = [steps](int start, int extent, int i)
    {
        const std::int64_t twice = std::int64_t(2) * i * std::abs(extent) + steps;
        const int moved = steps > 0 ? static_cast<int>(twice / (2 * steps)) : 0;
        return start + (extent < 0 ? -moved : moved);
    };
    for (int i = 0; i <= steps; ++i)
        visit(i, along(from.x, dx, i), along(from.y, dy, i));
}

int LineLength(const KvTPoint<short>& from, const KvTPoint<short>& to)
{
    return std::max(std::abs(to.x - from.x), std::abs(to.y - from.y)) + 1;
}

} // namespace

template <class T>
KvTAOI<T>::KvTAOI(Device* device_) : KvAOI(Device::deviceType)
{
    // A device that nobody shares yet, such as one on the stack, is referred to without taking part in its life.
    std::shared_ptr<Device> shared = device_ ? device_->weak_from_this().lock() : std::make_shared<Device>(aoiSize);
    SetDevice(shared ? std::move(shared) : std::shared_ptr<Device>(std::shared_ptr<void>(), device_));
}

template <class T>
KvTAOI<T>::KvTAOI(std::shared_ptr<Device> device_) : KvAOI(Device::deviceType)
{
    SetDevice(std::move(device_));
}

template <class T>
KvTAOI<T>::~KvTAOI()
{
    device->TellReaders();
}

template <class T>
KvTAOI<T>& KvTAOI<T>::operator=(const KvTAOI& other)
{
    device->TellReaders();
    KvAOI::operator=(other);
    device = other.device;
    return *this;
}

template <class T>
void KvTAOI<T>::SetDevice(std::shared_ptr<Device> other)
{
    if (device)
        device->TellReaders();
    device = std::move(other);
    aoiSize = device->Size();
}

template <class T>
void KvTAOI<T>::Show(const KvTRectangle<short>& area, CDC* dc) const
{
    ShowStretched(area, area, dc);
}

template <class T>
void KvTAOI<T>::Show(CDC* dc) const
{
    ShowStretched(AOIRect(), AOIRect(), dc);
}

template <class T>
void KvTAOI<T>::ShowStretched(const KvTRectangle<short>& source, const KvTRectangle<short>& destination, CDC* dc) const
{
    show::Stretched(*this, {}, source, destination, dc);
}

template <class T>
void KvTAOI<T>::ShowStretched(const KvTRectangle<short>& destination, CDC* dc) const
{
    ShowStretched(AOIRect(), destination, dc);
}

template <class T>
void KvTAOI<T>::ShowStretchedOverlay(KvAOI* overlay, KvAOI8* mask, float strength, const KvTRectangle<short>& source,
                                     const KvTRectangle<short>& destination, CDC* dc) const
{
    show::Stretched(*this, {overlay, mask, strength}, source, destination, dc);
}

template <class T>
void KvTAOI<T>::ShowStretchedOverlay(KvAOI* overlay, float strength, const KvTRectangle<short>& source,
                                     const KvTRectangle<short>& destination, CDC* dc) const
{
    show::Stretched(*this, {overlay, nullptr, strength}, source, destination, dc);
}

template <class T>
void KvTAOI<T>::Load(const KvString& file)
{
    SetDevice(Device::From(imagefile::LoadPixels<T>(file)));
}

template <class T>
void KvTAOI<T>::Save(const KvString& file)
{
    KvxSaveAOI(*this, file);
}

template <class T>
T KvTAOI<T>::GetPoint(const KvTPoint<short>& point) const
{
    return GetPoint(point.x, point.y);
}

template <class T>
T KvTAOI<T>::GetPoint(short x, short y) const
{
    T value{};
    ReadRun(Const(device.get()), x, y, 1, &value);
    return value;
}

template <class T>
void KvTAOI<T>::SetPoint(const KvTPoint<short>& point, T value)
{
    WriteRun(*device, point.x, point.y, 1, &value);
}

template <class T>
void KvTAOI<T>::GetRow(const KvTPoint<short>& start, short length, KvTBuf1D<T>& row) const
{
    SizeTo(row, std::max<int>(length, 0));
    ReadRun(Const(device.get()), start.x, start.y, row.size, row.data);
}

template <class T>
void KvTAOI<T>::GetRow(short y, const KvTRange<short>& columns, KvTBuf1D<T>& row) const
{
    SizeTo(row, std::max(columns.last - columns.first + 1, 0));
    ReadRun(Const(device.get()), columns.first, y, row.size, row.data);
}

template <class T>
void KvTAOI<T>::GetRow(short y, KvTBuf1D<T>& row) const
{
    GetRow({0, y}, aoiSize.width, row);
}

template <class T>
void KvTAOI<T>::SetRow(const KvTPoint<short>& start, short length, const KvTBuf1D<T>& row)
{
    WriteRun(*device, start.x, start.y, std::min<int>(length, row.size), row.data);
}

template <class T>
void KvTAOI<T>::SetRow(short y, const KvTRange<short>& columns, const KvTBuf1D<T>& row)
{
    WriteRun(*device, columns.first, y, std::min(columns.last - columns.first + 1, row.size), row.data);
}

template <class T>
void KvTAOI<T>::SetRow(short y, const KvTBuf1D<T>& row)
{
    SetRow({0, y}, aoiSize.width, row);
}

template <class T>
void KvTAOI<T>::GetColumn(const KvTPoint<short>& start, short length, KvTBuf1D<T>& column) const
{
    SizeTo(column, std::max<int>(length, 0));
    for (int i = 0; i < column.size; ++i)
        ReadRun(Const(device.get()), start.x, start.y + i, 1, column.data + i);
}

template <class T>
void KvTAOI<T>::GetColumn(short x, const KvTRange<short>& rows, KvTBuf1D<T>& column) const
{
    SizeTo(column, std::max(rows.last - rows.first + 1, 0));
    for (int i = 0; i < column.size; ++i)
        ReadRun(Const(device.get()), x, rows.first + i, 1, column.data + i);
}

template <class T>
void KvTAOI<T>::GetColumn(short x, KvTBuf1D<T>& column) const
{
    GetColumn({x, 0}, aoiSize.height, column);
}

template <class T>
void KvTAOI<T>::SetColumn(const KvTPoint<short>& start, short length, const KvTBuf1D<T>& column)
{
    for (int i = 0; i < std::min<int>(length, column.size); ++i)
        WriteRun(*device, start.x, start.y + i, 1, column.data + i);
}

template <class T>
void KvTAOI<T>::SetColumn(short x, const KvTRange<short>& rows, const KvTBuf1D<T>& column)
{
    for (int i = 0; i < std::min(rows.last - rows.first + 1, column.size); ++i)
        WriteRun(*device, x, rows.first + i, 1, column.data + i);
}

template <class T>
void KvTAOI<T>::SetColumn(short x, const KvTBuf1D<T>& column)
{
    SetColumn({x, 0}, aoiSize.height, column);
}

template <class T>
void KvTAOI<T>::GetLine(const KvTPoint<short>& from, const KvTPoint<short>& to, KvTBuf1D<T>& line) const
{
    SizeTo(line, LineLength(from, to));
    WalkLine(from, to, [&](int i, int x, int y) { ReadRun(Const(device.get()), x, y, 1, line.data + i); });
}

template <class T>
void KvTAOI<T>::SetLine(const KvTPoint<short>& from, const KvTPoint<short>& to, const KvTBuf1D<T>& line)
{
    WalkLine(from, to,
             [&](int i, int x, int y)
             {
                 if (i < line.size)
                     WriteRun(*device, x, y, 1, line.data + i);
             });
}

template <class T>
void KvTAOI<T>::GetBlock(const KvTRectangle<short>& area, KvTBuf2D<T>& block) const
{
    SizeTo(block, area.Width(), area.Height());
    for (int y = 0; y < block.height; ++y)
        ReadRun(Const(device.get()), area.left, area.top + y, block.width, block.Row(y));
}

template <class T>
void KvTAOI<T>::GetBlock(KvTBuf2D<T>& block) const
{
    GetBlock(AOIRect(), block);
}

template <class T>
void KvTAOI<T>::SetBlock(const KvTRectangle<short>& area, const KvTBuf2D<T>& block)
{
    for (int y = 0; y < std::min<int>(area.Height(), block.height); ++y)
        WriteRun(*device, area.left, area.top + y, std::min<int>(area.Width(), block.width), block.Row(y));
}

template <class T>
void KvTAOI<T>::SetBlock(const KvTBuf2D<T>& block)
{
    SetBlock(AOIRect(), block);
}

template <class T>
void KvTAOI<T>::GetBlockBottomUp(const KvTRectangle<short>& area, KvTBuf2D<T>& block) const
{
    SizeTo(block, area.Width(), area.Height());
    for (int y = 0; y < block.height; ++y)
        ReadRun(Const(device.get()), area.left, area.top + block.height - 1 - y, block.width, block.Row(y));
}

template <class T>
void KvTAOI<T>::GetBlockBottomUp(KvTBuf2D<T>& block) const
{
    GetBlockBottomUp(AOIRect(), block);
}

template <class T>
void KvTAOI<T>::SetBlockBottomUp(const KvTBuf2D<T>& block)
{
    for (int y = 0; y < std::min<int>(aoiSize.height, block.height); ++y)
        WriteRun(*device, 0, aoiSize.height - 1 - y, std::min<int>(aoiSize.width, block.width), block.Row(y));
}

template class KvTAOI<unsigned char>;
template class KvTAOI<float>;
template class KvTAOI<KvColor>;

} // namespace KvN
