// Random call sequences at the software GDI, under the sanitizers.
#include "gdi_player.h"

#include <sanitizer/lsan_interface.h>

// Finds the typefaces beforehand: fontconfig keeps what it has read behind encoded pointers, which would look leaked.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    __lsan_disable();
    const HDC dc = CreateCompatibleDC(nullptr);
    for (const BYTE italic : {0, 1})
        for (const int weight : {FW_NORMAL, FW_BOLD})
            for (const int index : {OEM_FIXED_FONT, SYSTEM_FONT})
            {
                LOGFONTW log{};
                GetObjectW(GetStockObject(index), sizeof log, &log);
                log.lfItalic = italic;
                log.lfWeight = weight;
                const HFONT font = CreateFontIndirectW(&log);
                const HGDIOBJ old = SelectObject(dc, font);
                TEXTMETRICW metrics{};
                GetTextMetricsW(dc, &metrics);
                SelectObject(dc, old);
                DeleteObject(font);
            }
    for (const int index : {OEM_FIXED_FONT, ANSI_FIXED_FONT, ANSI_VAR_FONT, SYSTEM_FONT, DEVICE_DEFAULT_FONT,
                            SYSTEM_FIXED_FONT, DEFAULT_GUI_FONT})
    {
        SelectObject(dc, GetStockObject(index));
        TEXTMETRICW metrics{};
        GetTextMetricsW(dc, &metrics);
    }
    DeleteDC(dc);
    __lsan_enable();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    playCalls(data, size);
    return 0;
}
