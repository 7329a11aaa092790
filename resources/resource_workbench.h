// The workbench's resource ids.
#pragma once
