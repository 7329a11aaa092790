// Scope guards for a device context: each puts back what it changed when it goes.
#pragma once

#include "platform/afx/dc.h"

// An object selected for a block; the one before is selected again at its end.
class SelectedObject
{
public:
    SelectedObject(CDC& dc_, HGDIOBJ object) : dc(dc_.m_hDC), former(::SelectObject(dc, object)) {}
    SelectedObject(CDC& dc_, const CGdiObject& object) : SelectedObject(dc_, object.GetSafeHandle()) {}
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject()
    {
        if (former)
            ::SelectObject(dc, former);
    }

    // False if the object could not be selected; then nothing is put back either.
    explicit operator bool() const { return former != nullptr; }

private:
    HDC dc;
    HGDIOBJ former;
};

// One of the numbers of a context, such as its raster operation; a set that fails is not undone.
template <int (*Set)(HDC, int)>
class ContextMode
{
public:
    ContextMode(CDC& dc_, int mode) : dc(dc_.m_hDC), former(Set(dc, mode)) {}
    ContextMode(const ContextMode&) = delete;
    ContextMode& operator=(const ContextMode&) = delete;
    ~ContextMode()
    {
        if (former != 0)
            Set(dc, former);
    }

    explicit operator bool() const { return former != 0; }

private:
    HDC dc;
    int former;
};

using Rop2Mode = ContextMode<::SetROP2>;
using PolyFillMode = ContextMode<::SetPolyFillMode>;
using StretchMode = ContextMode<::SetStretchBltMode>;
using BackgroundMode = ContextMode<::SetBkMode>;

// A viewport origin for a block.
class ViewportOrigin
{
public:
    ViewportOrigin(CDC& dc_, int x, int y) : dc(dc_.m_hDC), changed(::SetViewportOrgEx(dc, x, y, &former)) {}
    ViewportOrigin(const ViewportOrigin&) = delete;
    ViewportOrigin& operator=(const ViewportOrigin&) = delete;
    ~ViewportOrigin()
    {
        if (changed)
            ::SetViewportOrgEx(dc, former.x, former.y, nullptr);
    }

private:
    HDC dc;
    POINT former{};
    BOOL changed;
};

// A colour of text or background for a block.
template <COLORREF (*Set)(HDC, COLORREF)>
class ContextColor
{
public:
    ContextColor(CDC& dc_, COLORREF color) : dc(dc_.m_hDC), former(Set(dc, color)) {}
    ContextColor(const ContextColor&) = delete;
    ContextColor& operator=(const ContextColor&) = delete;
    ~ContextColor()
    {
        if (former != CLR_INVALID)
            Set(dc, former);
    }

private:
    HDC dc;
    COLORREF former;
};

using TextColor = ContextColor<::SetTextColor>;
using BackgroundColor = ContextColor<::SetBkColor>;

// All of a context's state for a block: objects, modes, mapping, clip.
class SavedContext
{
public:
    explicit SavedContext(CDC& dc_) : dc(dc_.m_hDC), level(::SaveDC(dc)) {}
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;
    ~SavedContext()
    {
        if (level != 0)
            ::RestoreDC(dc, level);
    }

private:
    HDC dc;
    int level;
};
