// The AOI: every image object of the system. Up to 32767 pixels each way, coordinates are pixels, y downward.
#pragma once

#include "contracts/basics/KvBuffers.h"
#include "contracts/basics/KvRectangle.h"
#include "contracts/basics/KvString.h"
#include "contracts/image/KvAOIInfo.h"
#include "contracts/image/KvDevice.h"
#include "contracts/image/KvRange.h"

#include <memory>

class CDC;

namespace KvN
{

class KvAOI8;

// Abstract base. An area's right and bottom are inclusive; a side without extent carries the mark -32768.
class KvAOI
{
public:
    // Null or owned. Read directly; set by `SetAOIInfo`.
    KvAOIInfo* aoiInfo = nullptr;

    virtual ~KvAOI();

    // Draws the area, at its own coordinates; draws all of the AOI with its corner at (0, 0). The drawing calls work in
    // the logical units of the context, under its mapping and clip, through the output table where there is one. What
    // lies outside the AOI leaves the context's pixels as they are. Failures throw KvGDIException.
    virtual void Show(const KvTRectangle<short>& area, CDC* dc) const = 0;
    virtual void Show(CDC* dc) const = 0;
    // Maps the source area of the AOI onto the destination area, without smoothing.
    virtual void ShowStretched(const KvTRectangle<short>& source, const KvTRectangle<short>& destination,
                               CDC* dc) const = 0;
    virtual void ShowStretched(const KvTRectangle<short>& destination, CDC* dc) const = 0;
    // The same with `overlay` blended in where its value isn't 0 and, if a mask is given, the mask's byte isn't 0:
    // image + strength * (overlay colour - image), each channel rounded to nearest; strength is taken as within 0 to 1.
    // A null overlay shows the image alone. The source area counts in overlay and mask, too.
    virtual void ShowStretchedOverlay(KvAOI* overlay, KvAOI8* mask, float strength, const KvTRectangle<short>& source,
                                      const KvTRectangle<short>& destination, CDC* dc) const = 0;
    virtual void ShowStretchedOverlay(KvAOI* overlay, float strength, const KvTRectangle<short>& source,
                                      const KvTRectangle<short>& destination, CDC* dc) const = 0;

    // Replaces size and pixels by those of a PNG, BMP, JPEG or TIFF file; 8-bit grey values are taken into any AOI,
    // colours are made grey for an 8-bit or float AOI, values beyond 8 bits only go into a float AOI. Other AOIs of the
    // former device keep it. Throws a KvException that names file and reason, the AOI being as before.
    virtual void Load(const KvString& file) = 0;
    // Writes a file of the kind that its name's end tells (.png, .bmp, .jpg, .jpeg, .tif, .tiff), all or nothing.
    // Throws a KvException that names file and reason, also where the kind can't hold the AOI's values.
    virtual void Save(const KvString& file) = 0;

    short AOIWidth() const { return aoiSize.width; }
    short AOIHeight() const { return aoiSize.height; }
    KvTSize<short> AOISize() const { return aoiSize; }
    // The whole area.
    KvTRectangle<short> AOIRect() const { return {{0, 0}, aoiSize}; }
    const KvString& GetAOIName() const { return aoiName; }
    void SetAOIName(const KvString& name) { aoiName = name; }
    // The name shown to the operator; empty if never set.
    const KvString& GetUIName() const { return uiName; }
    void SetUIName(const KvString& name) { uiName = name; }
    DeviceType GetDevType() const { return deviceType; }
    // Takes the record over; a former one is deleted. Null for none.
    void SetAOIInfo(KvAOIInfo* info);

protected:
    explicit KvAOI(DeviceType type) : deviceType(type) {}
    // Copies names and info.
    KvAOI(const KvAOI& other);
    KvAOI& operator=(const KvAOI& other);

    KvTSize<short> aoiSize;

private:
    DeviceType deviceType;
    KvString aoiName;
    KvString uiName;
};

// Typed access to the pixels. Reading outside the AOI gives T{}, writing there is dropped. A buffer that is filled gets
// the size of what was asked for; one that is written is read up to the smaller of its own size and that.
template <class T>
class KvTAOI : public KvAOI
{
public:
    using Device = KvTDevice<T, sizeof(T) == 1 ? Device8 : std::is_same_v<T, float> ? Device32Float : Device32Color>;

    // What is still to be shown is told before the pixels go.
    ~KvTAOI() override;

    void Show(const KvTRectangle<short>& area, CDC* dc) const override;
    void Show(CDC* dc) const override;
    void ShowStretched(const KvTRectangle<short>& source, const KvTRectangle<short>& destination,
                       CDC* dc) const override;
    void ShowStretched(const KvTRectangle<short>& destination, CDC* dc) const override;
    void ShowStretchedOverlay(KvAOI* overlay, KvAOI8* mask, float strength, const KvTRectangle<short>& source,
                              const KvTRectangle<short>& destination, CDC* dc) const override;
    void ShowStretchedOverlay(KvAOI* overlay, float strength, const KvTRectangle<short>& source,
                              const KvTRectangle<short>& destination, CDC* dc) const override;
    void Load(const KvString& file) override;
    void Save(const KvString& file) override;

    virtual T GetPoint(const KvTPoint<short>& point) const;
    virtual T GetPoint(short x, short y) const;
    virtual void SetPoint(const KvTPoint<short>& point, T value);

    // From a start `length` pixels to the right; a range of columns of row y; all of row y.
    virtual void GetRow(const KvTPoint<short>& start, short length, KvTBuf1D<T>& row) const;
    virtual void GetRow(short y, const KvTRange<short>& columns, KvTBuf1D<T>& row) const;
    virtual void GetRow(short y, KvTBuf1D<T>& row) const;
    virtual void SetRow(const KvTPoint<short>& start, short length, const KvTBuf1D<T>& row);
    virtual void SetRow(short y, const KvTRange<short>& columns, const KvTBuf1D<T>& row);
    virtual void SetRow(short y, const KvTBuf1D<T>& row);

    // The same downward.
    virtual void GetColumn(const KvTPoint<short>& start, short length, KvTBuf1D<T>& column) const;
    virtual void GetColumn(short x, const KvTRange<short>& rows, KvTBuf1D<T>& column) const;
    virtual void GetColumn(short x, KvTBuf1D<T>& column) const;
    virtual void SetColumn(const KvTPoint<short>& start, short length, const KvTBuf1D<T>& column);
    virtual void SetColumn(short x, const KvTRange<short>& rows, const KvTBuf1D<T>& column);
    virtual void SetColumn(short x, const KvTBuf1D<T>& column);

    // Along a straight line, both ends included, one pixel a step of the longer axis.
    virtual void GetLine(const KvTPoint<short>& from, const KvTPoint<short>& to, KvTBuf1D<T>& line) const;
    virtual void SetLine(const KvTPoint<short>& from, const KvTPoint<short>& to, const KvTBuf1D<T>& line);

    // An area, or all of the AOI, top row first; the BottomUp forms bottom row first.
    virtual void GetBlock(const KvTRectangle<short>& area, KvTBuf2D<T>& block) const;
    virtual void GetBlock(KvTBuf2D<T>& block) const;
    virtual void SetBlock(const KvTRectangle<short>& area, const KvTBuf2D<T>& block);
    virtual void SetBlock(const KvTBuf2D<T>& block);
    virtual void GetBlockBottomUp(const KvTRectangle<short>& area, KvTBuf2D<T>& block) const;
    virtual void GetBlockBottomUp(KvTBuf2D<T>& block) const;
    virtual void SetBlockBottomUp(const KvTBuf2D<T>& block);

    // The row's first pixel, for direct access; y must lie within. See KvTDevice::Row.
    T* GetRowPointer(int y) { return static_cast<Device*>(device.get())->Row(y); }
    const T* GetRowPointer(int y) const { return static_cast<const Device*>(device.get())->Row(y); }
    // The pixels' store; never null.
    Device* GetDevice() const { return device.get(); }

protected:
    // Shows `device_`, whose life it shares if the device is a shared object.
    explicit KvTAOI(Device* device_);
    explicit KvTAOI(std::shared_ptr<Device> device_);
    // Shows the same device.
    KvTAOI(const KvTAOI&) = default;
    KvTAOI& operator=(const KvTAOI& other);

    // Shows another device from now on.
    void SetDevice(std::shared_ptr<Device> other);

private:
    std::shared_ptr<Device> device;
};

extern template class KvTAOI<unsigned char>;
extern template class KvTAOI<float>;
extern template class KvTAOI<KvColor>;

} // namespace KvN
