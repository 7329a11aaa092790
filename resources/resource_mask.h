// The mask's resource ids.
#pragma once
