// The vocabulary of the system: values, containers, buffers, text, exceptions, mathematics.
#pragma once

#include "contracts/basics/KvAtomicFile.h"
#include "contracts/basics/KvBuffers.h"
#include "contracts/basics/KvException.h"
#include "contracts/basics/KvExceptionManager.h"
#include "contracts/basics/KvLibrary.h"
#include "contracts/basics/KvList.h"
#include "contracts/basics/KvMath.h"
#include "contracts/basics/KvPList.h"
#include "contracts/basics/KvPoint.h"
#include "contracts/basics/KvRectangle.h"
#include "contracts/basics/KvString.h"
#include "contracts/basics/KvVec.h"
