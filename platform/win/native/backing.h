// The picture that a window's contexts draw on, shared between the software GDI and Qt.
#pragma once

#include "platform/gdi/gdi.h"

#include <QImage>

namespace kv::win
{
// A 32-bit top-down section of the client area's size, and the one context on it. All contexts handed out for a window
// are this one: a context taken while another is out has the other's settings.
class Backing
{
public:
    Backing() = default;
    Backing(const Backing&) = delete;
    Backing& operator=(const Backing&) = delete;
    ~Backing();

    // Keeps what both sizes show; the rest is black.
    void Resize(int width, int height);
    // Made at the first call. With `keep` the settings live as long as the window, otherwise until the last release.
    HDC Acquire(bool keep);
    void Release(HDC dc, bool keep);
    HDC Context() const { return dc; }
    // Borrows the bits; null before anybody drew.
    QImage Image() const;

private:
    void Make();
    void DropContext();

    int width = 0;
    int height = 0;
    void* bits = nullptr;
    HBITMAP bitmap = nullptr;
    HDC dc = nullptr;
    HGDIOBJ formerBitmap = nullptr;
    int users = 0;
};
} // namespace kv::win
