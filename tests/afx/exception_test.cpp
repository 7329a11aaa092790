// Exceptions of the class layer.
#include "platform/afx/exception.h"

#include <gtest/gtest.h>

#include <string>

TEST(CException, OfAFailedOperationSaysWhich)
{
    try
    {
        AfxThrowResourceException(L"CreatePen schlug fehl");
    }
    catch (CResourceException* failure)
    {
        wchar_t text[64];
        unsigned help = 5;
        EXPECT_NE(failure->GetErrorMessage(text, 64, &help), 0);
        EXPECT_EQ(std::wstring(text), L"CreatePen schlug fehl");
        EXPECT_EQ(help, 0u);
        EXPECT_NE(failure->GetErrorMessage(text, 7), 0);
        EXPECT_EQ(std::wstring(text), L"Create");
        EXPECT_EQ(failure->GetErrorMessage(text, 1), 0) << "no room but for the terminator";
        EXPECT_EQ(failure->GetErrorMessage(nullptr, 64), 0);
        failure->Delete();
        return;
    }
    FAIL();
}

TEST(CException, WithoutAMessageAnswersZeroAndAnEmptyText)
{
    try
    {
        AfxThrowUserException();
    }
    catch (CException* failure)
    {
        wchar_t text[4] = L"zzz";
        unsigned help = 5;
        EXPECT_EQ(failure->GetErrorMessage(text, 4, &help), 0);
        EXPECT_EQ(text[0], L'\0');
        EXPECT_EQ(help, 0u);
        EXPECT_EQ(failure->GetErrorMessage(nullptr, 0), 0);
        EXPECT_TRUE(failure->IsKindOf(RUNTIME_CLASS(CUserException)));
        failure->Delete();
        return;
    }
    FAIL();
}

TEST(CException, OfMemoryIsAnException)
{
    CException* failure = new CMemoryException;
    EXPECT_TRUE(failure->IsKindOf(RUNTIME_CLASS(CMemoryException)));
    EXPECT_TRUE(failure->IsKindOf(RUNTIME_CLASS(CException)));
    failure->Delete();
}
