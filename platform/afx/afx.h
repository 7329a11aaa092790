// The class layer that needs no window, in one header.
#pragma once

#include "platform/afx/cstring.h"
#include "platform/afx/dc.h"
#include "platform/afx/dcguards.h"
#include "platform/afx/exception.h"
#include "platform/afx/gdiobject.h"
#include "platform/afx/geometry.h"
#include "platform/afx/module.h"
#include "platform/afx/object.h"
#include "platform/afx/resources.h"
#include "platform/afx/variant.h"
