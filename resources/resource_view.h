// The view's resource ids.
#pragma once
