// Ownership of drawing objects, and what stands for a handle.
#include "platform/afx/gdiobject.h"

#include "contracts/basics/KvLibrary.h"
#include "platform/afx/dc.h"
#include "platform/afx/exception.h"

#include <gtest/gtest.h>

#include <memory>

TEST(DrawingObject, FreesItsHandle)
{
    HGDIOBJ handle = nullptr;
    {
        CPen pen(PS_SOLID, 3, RGB(1, 2, 3));
        handle = pen.GetSafeHandle();
        EXPECT_EQ(::GetObjectType(handle), DWORD(OBJ_PEN));
    }
    EXPECT_EQ(::GetObjectType(handle), 0u);
}

TEST(DrawingObject, DetachedHandleLivesOn)
{
    auto pen = std::make_unique<CPen>(PS_SOLID, 1, RGB(0, 0, 0));
    const HGDIOBJ handle = pen->Detach();
    pen.reset();
    EXPECT_NE(::GetObjectType(handle), 0u);
    CPen owner;
    EXPECT_TRUE(owner.Attach(handle));
    EXPECT_TRUE(owner.DeleteObject());
    EXPECT_FALSE(owner.DeleteObject());
    EXPECT_FALSE(owner.Attach(nullptr));
}

TEST(DrawingObject, FromHandleGivesTheOwnerElseABorrower)
{
    CPen owner(PS_SOLID, 1, RGB(0, 0, 0));
    EXPECT_EQ(CPen::FromHandle(owner), &owner);
    const HPEN loose = ::CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    CPen* borrower = CPen::FromHandle(loose);
    EXPECT_EQ(borrower->GetSafeHandle(), loose);
    EXPECT_EQ(CPen::FromHandle(loose), borrower);
    EXPECT_EQ(CPen::FromHandle(nullptr), nullptr);
    CGdiObject::DeleteTempMap();
    EXPECT_NE(::GetObjectType(loose), 0u) << "a borrower frees nothing";
    ::DeleteObject(loose);
}

TEST(DrawingObject, ThatCannotBeMadeThrows)
{
    try
    {
        CPen pen(PS_GEOMETRIC | PS_USERSTYLE, 1, static_cast<const LOGBRUSH*>(nullptr));
        ADD_FAILURE() << "no failure";
    }
    catch (CResourceException* failure)
    {
        wchar_t text[64];
        EXPECT_TRUE(failure->GetErrorMessage(text, 64));
        EXPECT_STREQ(text, L"ExtCreatePen");
        failure->Delete();
    }
}

TEST(DrawingObject, TellsItsRecord)
{
    CPen pen(PS_DASH, 4, RGB(9, 8, 7));
    LOGPEN record{};
    EXPECT_GT(pen.GetLogPen(&record), 0);
    EXPECT_EQ(record.lopnWidth.x, 4);
    EXPECT_EQ(record.lopnColor, RGB(9, 8, 7));
    CBrush brush(RGB(1, 2, 3));
    LOGBRUSH brushRecord{};
    EXPECT_GT(brush.GetLogBrush(&brushRecord), 0);
    EXPECT_EQ(brushRecord.lbColor, RGB(1, 2, 3));
}

TEST(DrawingObject, LoadsBitmapsOfTheResources)
{
    KvN::AttachLibrary(); // its resources serve as an example
    CBitmap checker;
    ASSERT_TRUE(checker.LoadBitmap(8880));
    EXPECT_EQ(checker.GetBitmapDimension(), CSize(2, 2));
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap* former = dc.SelectObject(&checker);
    EXPECT_EQ(dc.GetPixel(0, 0), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetPixel(1, 0), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(0, 1), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(1, 1), RGB(0, 0, 0));
    dc.SelectObject(former);
    CBitmap missing;
    EXPECT_FALSE(missing.LoadBitmap(1));
}

TEST(DrawingObject, RegionsCombine)
{
    CRgn a, b;
    a.CreateRectRgn(0, 0, 10, 10);
    b.CreateRectRgn(5, 5, 20, 20);
    EXPECT_EQ(a.CombineRgn(&a, &b, RGN_AND), SIMPLEREGION);
    CRect box;
    a.GetRgnBox(box);
    EXPECT_EQ(box, CRect(5, 5, 10, 10));
    EXPECT_TRUE(a.PtInRegion(5, 5));
    b.CopyRgn(&a);
    EXPECT_TRUE(a.EqualRgn(&b));
}

TEST(DrawingObject, RunTimeClassesKnowTheirBase)
{
    const CPen pen;
    EXPECT_TRUE(pen.IsKindOf(RUNTIME_CLASS(CGdiObject)));
    EXPECT_STREQ(pen.GetRuntimeClass()->m_lpszClassName, "CPen");
}
