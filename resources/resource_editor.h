// The editor's resource ids.
#pragma once
