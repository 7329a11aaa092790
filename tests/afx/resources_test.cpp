// Reading of compiled resources, well-formed and not.
#include "platform/afx/resources.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{
using Buffer = std::vector<unsigned char>;

void Append16(Buffer& out, unsigned word)
{
    out.push_back(static_cast<unsigned char>(word));
    out.push_back(static_cast<unsigned char>(word >> 8));
}

void Append32(Buffer& out, unsigned long word)
{
    Append16(out, static_cast<unsigned>(word & 0xFFFF));
    Append16(out, static_cast<unsigned>(word >> 16));
}

void Align(Buffer& out)
{
    while (out.size() % 4 != 0)
        out.push_back(0);
}

void AppendText(Buffer& out, std::u16string_view text)
{
    for (const char16_t unit : text)
        Append16(out, unit);
}

// An entry with numbers for kind and name.
void AppendEntry(Buffer& out, ResourceKind kind, unsigned id, const Buffer& data)
{
    Append32(out, static_cast<unsigned long>(data.size()));
    Append32(out, 32);
    Append16(out, 0xFFFF);
    Append16(out, static_cast<unsigned>(kind));
    Append16(out, 0xFFFF);
    Append16(out, id);
    out.insert(out.end(), 16, 0);
    out.insert(out.end(), data.begin(), data.end());
    Align(out);
}

// An entry whose name is a text.
void AppendNamed(Buffer& out, const Buffer& data)
{
    Append32(out, static_cast<unsigned long>(data.size()));
    Append32(out, 40);
    Append16(out, 0xFFFF);
    Append16(out, static_cast<unsigned>(ResourceKind::Data));
    AppendText(out, u"NAME");
    Append16(out, 0);
    out.insert(out.end(), 18, 0);
    out.insert(out.end(), data.begin(), data.end());
    Align(out);
}

// A block of sixteen texts, "Öl" at the second place, "x" at the last.
Buffer StringBlock()
{
    Buffer block;
    for (int i = 0; i < 16; ++i)
    {
        const std::u16string_view text = i == 1 ? u"Öl" : i == 15 ? u"x" : u"";
        Append16(block, static_cast<unsigned>(text.size()));
        AppendText(block, text);
    }
    return block;
}

Buffer Image()
{
    Buffer image;
    AppendEntry(image, ResourceKind{0}, 0, {}); // the empty entry that every file starts with
    AppendNamed(image, {9, 9});
    AppendEntry(image, ResourceKind::Data, 700, {1, 2, 3});
    AppendEntry(image, ResourceKind::String, 3, StringBlock()); // texts 32 to 47
    AppendEntry(image, ResourceKind::Bitmap, 8880, {4, 5, 6, 7});
    return image;
}
} // namespace

TEST(ResourceImage, FindsEntriesByKindAndNumber)
{
    const Buffer bytes = Image();
    const ResourceImage image(bytes);
    ASSERT_EQ(image.Find(ResourceKind::Data, 700).size(), 3u);
    EXPECT_EQ(image.Find(ResourceKind::Data, 700)[2], 3);
    EXPECT_EQ(image.Find(ResourceKind::Bitmap, 8880).size(), 4u);
    EXPECT_TRUE(image.Find(ResourceKind::Bitmap, 700).empty());
    EXPECT_TRUE(image.Find(ResourceKind::Data, 701).empty());
    EXPECT_TRUE(ResourceImage({}).Find(ResourceKind::Data, 1).empty());
}

TEST(ResourceImage, FindsTextsWithinTheirBlock)
{
    const Buffer bytes = Image();
    const ResourceImage image(bytes);
    ASSERT_TRUE(image.FindString(33).has_value());
    EXPECT_EQ(image.FindString(33)->Utf8(), "Öl");
    EXPECT_EQ(image.FindString(47)->Utf8(), "x");
    EXPECT_FALSE(image.FindString(32).has_value()) << "an empty text is none";
    EXPECT_FALSE(image.FindString(48).has_value());
    EXPECT_FALSE(image.FindString(1).has_value());
}

TEST(ResourceImage, CutAnywhereReadsWhatIsWhole)
{
    const Buffer whole = Image();
    for (size_t size = 0; size < whole.size(); ++size)
    {
        const Buffer cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const ResourceImage image(cut);
        EXPECT_TRUE(image.Find(ResourceKind::Bitmap, 8880).empty()) << size;
        image.FindString(33);
        image.FindString(47);
    }
}

TEST(ResourceImage, TextsOfACutBlockStayWithinIt)
{
    const Buffer block = StringBlock();
    for (size_t size = 0; size < block.size(); ++size)
    {
        Buffer bytes;
        AppendEntry(bytes, ResourceKind::String, 3,
                    Buffer(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size)));
        const ResourceImage image(bytes);
        EXPECT_FALSE(image.FindString(47).has_value()) << size;
    }
}

TEST(ResourceImage, GarbledReadsNothingOutside)
{
    std::mt19937 random(1);
    for (int round = 0; round < 5000; ++round)
    {
        Buffer bytes = Image();
        for (int i = 0; i < 3; ++i)
            bytes[random() % bytes.size()] = static_cast<unsigned char>(random());
        const ResourceImage image(bytes);
        for (unsigned id = 32; id < 48; ++id)
            image.FindString(id);
        const auto data = image.Find(ResourceKind::Data, 700);
        EXPECT_TRUE(data.empty() ||
                    (data.data() >= bytes.data() && data.data() + data.size() <= bytes.data() + bytes.size()));
    }
}
