// The configuration files that the mask dialogs keep.
#pragma once

#include "contracts/config/KvConfig.h"
