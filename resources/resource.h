// The ids of every resource. Read by the resource compiler and by C++ alike.
#pragma once

#include "resource_editor.h"
#include "resource_image.h"
#include "resource_mask.h"
#include "resource_view.h"
#include "resource_win.h"
#include "resource_workbench.h"

// Messages of the contour files.
#define IDS_XML_SECOND_ROOT 30320
#define IDS_XML_WRITE_POINT_COUNT 30321
#define IDS_XML_READ_TYPE 30340
#define IDS_XML_READ_POINT_COUNT 30341

// Message of a configuration key that can't be read: key, group, file.
#define IDS_READ_KEYWORD 30350

// Message of a failed drawing call: its name, its error number.
#define IDS_GDI_FAILED 30351
