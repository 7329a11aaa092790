// Undo and redo: snapshots and the manager that keeps them.
#pragma once

#include "contracts/undo/KvRefCounter.h"
#include "contracts/undo/KvState.h"
#include "contracts/undo/KvUndoRedo.h"
