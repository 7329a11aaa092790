// The exception family: thrown as pointers, caught by any of its bases, wrapped, and with texts of the resources.
#include "contracts/basics/KvException.h"

#include "resources/resource.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace KvN;

namespace
{
// The exception that `raise` throws, as whoever catches owns it.
template <class Base, class Raise>
std::unique_ptr<Base> Caught(const Raise& raise)
{
    try
    {
        raise();
    }
    catch (Base* failure)
    {
        return std::unique_ptr<Base>(failure);
    }
    return nullptr;
}

// How a layer that cleans up passes failures on.
template <class Raise>
void PassOn(const Raise& raise)
{
    try
    {
        raise();
    }
    catch (CException* failure)
    {
        if (failure->IsKindOf(RUNTIME_CLASS(KvException)))
            throw static_cast<KvException*>(failure);
        auto* wrapped = new KvException(*failure);
        failure->Delete();
        throw wrapped;
    }
}
} // namespace

TEST(KvException, IsThrownAsAPointerAndCaughtByItsBases)
{
    const auto raise = [] { throw new KvException("C/syMaskToAOI", 42, "Es ging schief"); };
    const auto failure = Caught<CException>(raise);
    ASSERT_NE(failure, nullptr);
    EXPECT_TRUE(failure->IsKindOf(RUNTIME_CLASS(KvException)));
    EXPECT_FALSE(failure->IsKindOf(RUNTIME_CLASS(KvRuntimeException)));
    const auto compatible = Caught<KvCompatibleException>(raise);
    EXPECT_NE(compatible, nullptr);
    const auto own = Caught<KvException>(raise);
    EXPECT_EQ(own->File().Utf8(), "C/syMaskToAOI");
    EXPECT_EQ(own->Line(), 42u);
    EXPECT_EQ(own->GetMessageW().Utf8(), "Es ging schief");
}

TEST(KvException, CopiesItsMessageIntoABufferCutToItsSize)
{
    const KvException failure("f", 1, "Fläche");
    wchar_t buffer[4] = L"zzz";
    unsigned help = 9;
    EXPECT_NE(failure.GetErrorMessage(buffer, 4, &help), 0);
    EXPECT_EQ(std::wstring(buffer), L"Flä");
    EXPECT_EQ(help, 0u);
    EXPECT_EQ(failure.GetErrorMessage(buffer, 0), 0);
    EXPECT_EQ(failure.GetErrorMessage(nullptr, 4), 0);
    EXPECT_EQ(KvException("f", 1, "").GetErrorMessage(buffer, 4), 0);
    EXPECT_EQ(buffer[0], L'\0');
}

TEST(KvException, WrapsAFrameworkExceptionThatStaysTheCallers)
{
    const auto framework = Caught<CException>([] { AfxThrowResourceException("CreateDIBSection"); });
    const KvException wrapped(*framework);
    EXPECT_EQ(wrapped.GetMessageW().Utf8(), "CreateDIBSection");
    EXPECT_EQ(wrapped.File().Length(), 0);
    EXPECT_EQ(wrapped.Line(), 0u);
    const auto silent = Caught<CException>([] { AfxThrowUserException(); });
    EXPECT_EQ(KvException(*silent).GetMessageW().Length(), 0);
}

TEST(KvException, PassesThroughLayersThatConvertEverythingElse)
{
    const auto converted =
        Caught<KvException>([] { PassOn([] { PassOn([] { AfxThrowResourceException("SelectObject"); }); }); });
    ASSERT_NE(converted, nullptr);
    EXPECT_EQ(converted->GetMessageW().Utf8(), "SelectObject");
    const auto kept = Caught<KvException>([] { PassOn([] { throw new KvGDIException("f", 1, "BitBlt", 6); }); });
    EXPECT_TRUE(kept->IsKindOf(RUNTIME_CLASS(KvGDIException)));
    EXPECT_THROW(PassOn([] { throw 5; }), int) << "other exceptions pass unchanged";
}

TEST(KvGDIException, NamesTheCallAndItsError)
{
    const auto failure = Caught<KvRuntimeException>(
        [] { throw new KvGDIException("C/uiMaskWnd", 7, "CreateCompatibleDC", 4000000000ul); });
    ASSERT_NE(failure, nullptr);
    const auto& gdi = dynamic_cast<const KvGDIException&>(*failure);
    EXPECT_EQ(gdi.Function().Utf8(), "CreateCompatibleDC");
    EXPECT_EQ(gdi.LastError(), 4000000000ul);
    EXPECT_EQ(gdi.Line(), 7u);
    EXPECT_EQ(gdi.GetMessageW().Utf8(),
              "Der Zeichenaufruf „CreateCompatibleDC“ ist fehlgeschlagen (Fehler 4000000000).");
}

TEST(KvReadKeywordException, NamesKeyGroupAndFile)
{
    const KvReadKeywordException failure("f", 3, "ToolId", "Mask", "/tmp/100%s.ini");
    EXPECT_EQ(failure.Key().Utf8(), "ToolId");
    EXPECT_EQ(failure.Group().Utf8(), "Mask");
    EXPECT_EQ(failure.ConfigFile().Utf8(), "/tmp/100%s.ini");
    EXPECT_EQ(failure.GetMessageW().Utf8(),
              "Der Schlüssel „ToolId“ der Gruppe „Mask“ in der Datei „/tmp/100%s.ini“ hat keinen gültigen Wert.");
    EXPECT_TRUE(failure.IsKindOf(RUNTIME_CLASS(KvRuntimeException)));
    EXPECT_TRUE(failure.IsKindOf(RUNTIME_CLASS(CException)));
}
