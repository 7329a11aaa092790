// Resources that tests write themselves, in the compiled form, and a module that holds them.
#pragma once

#include "platform/afx/module.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

// Bytes of a resource, put together number by number.
class Bytes
{
public:
    template <class Number>
    Bytes& Put(Number number)
    {
        const auto* bytes = reinterpret_cast<const unsigned char*>(&number);
        data.insert(data.end(), bytes, bytes + sizeof number);
        return *this;
    }
    Bytes& Word(int number) { return Put(static_cast<std::uint16_t>(number)); }
    Bytes& Dword(std::uint32_t number) { return Put(number); }
    Bytes& Text(std::u16string_view text)
    {
        for (const char16_t unit : text)
            Put(unit);
        return Put(char16_t{0});
    }
    Bytes& Align4()
    {
        while (data.size() % 4 != 0)
            data.push_back(0);
        return *this;
    }
    Bytes& Append(const Bytes& other)
    {
        data.insert(data.end(), other.data.begin(), other.data.end());
        return *this;
    }

    std::vector<unsigned char> data;
};

class TestModule
{
public:
    // Each resource gets the header of a .res file.
    TestModule& Add(ResourceKind kind, int id, const Bytes& content)
    {
        file.Dword(static_cast<std::uint32_t>(content.data.size())).Dword(32);
        file.Word(0xFFFF).Word(static_cast<int>(kind)).Word(0xFFFF).Word(id);
        file.Dword(0).Word(0).Word(0).Dword(0).Dword(0);
        file.Append(content).Align4();
        return *this;
    }
    void Load()
    {
        AfxInitExtensionModule(state, file.data);
        library = std::make_unique<CDynLinkLibrary>(state);
    }
    CDynLinkLibrary* Library() { return library.get(); }

private:
    Bytes file;
    AFX_EXTENSION_MODULE state;
    std::unique_ptr<CDynLinkLibrary> library;
};
