// What is wrong with an image file.
#pragma once

#include "contracts/basics/KvException.h"

namespace KvN
{

// The message is "FILE: reason". `Reason` is the reason's number among the resources (IDS_IMAGE_...), for hosts that
// have words of their own for it; `Detail` is the system's or the decoder's word on it, in English, and may be empty.
class KvImageException : public KvRuntimeException
{
    DECLARE_DYNAMIC(KvImageException)

public:
    KvImageException(const KvString& imageFile_, unsigned short reason_, const KvString& detail_, unsigned long width_,
                     unsigned long height_)
        : KvRuntimeException(L"contracts/image/KvImageFile", reason_), imageFile(imageFile_), reason(reason_),
          detail(detail_), width(width_), height(height_)
    {
    }

    const KvString& ImageFile() const { return imageFile; }
    unsigned short Reason() const { return reason; }
    const KvString& Detail() const { return detail; }
    // The image's size, where it is the reason.
    unsigned long Width() const { return width; }
    unsigned long Height() const { return height; }

protected:
    KvString BuildMessage() const override;

private:
    KvString imageFile;
    unsigned short reason;
    KvString detail;
    unsigned long width;
    unsigned long height;
};

} // namespace KvN
