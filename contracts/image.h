// The image contract: AOIs, output tables, bitmaps, operators, callbacks.
#pragma once

#include "contracts/image/KvAOI.h"
#include "contracts/image/KvAOIInfo.h"
#include "contracts/image/KvAOITypes.h"
#include "contracts/image/KvColor.h"
#include "contracts/image/KvDIB.h"
#include "contracts/image/KvDevice.h"
#include "contracts/image/KvImageException.h"
#include "contracts/image/KvImageFile.h"
#include "contracts/image/KvLink.h"
#include "contracts/image/KvLut.h"
#include "contracts/image/KvMemDC.h"
#include "contracts/image/KvMouseEvent.h"
#include "contracts/image/KvOperators.h"
#include "contracts/image/KvPolygon.h"
#include "contracts/image/KvRange.h"
#include "contracts/image/KvSignal.h"
