// Commands that make images and change their pixels and tables.
#include "apps/session/commands.h"
#include "apps/session/player.h"

#include <algorithm>

namespace kv::session
{

namespace
{
using namespace KvN;

constexpr long longestSide = 32767;

KvTSize<short> SizeOf(const Arguments& words, size_t i)
{
    return {static_cast<short>(words.Integer(i, 0, longestSide)),
            static_cast<short>(words.Integer(i + 1, 0, longestSide))};
}

// An AOI of that size whose pixel at (x, y) is value(x, y).
template <class AOI, class Value>
std::unique_ptr<KvAOI> Made(const KvTSize<short>& size, Value value)
{
    auto aoi = std::make_unique<AOI>(size, 0);
    for (int y = 0; y < size.height; ++y)
    {
        auto* row = aoi->GetRowPointer(y);
        for (int x = 0; x < size.width; ++x)
            row[x] = value(x, y);
    }
    return aoi;
}

void ImageGrey(Player& player, const Arguments& words)
{
    const auto value = static_cast<unsigned char>(words.Integer(3, 0, 255));
    player.images.Add(words.Text(0), Made<KvBufferAOI8>(SizeOf(words, 1), [=](int, int) { return value; }));
}

void ImageRamp(Player& player, const Arguments& words)
{
    player.images.Add(words.Text(0), Made<KvBufferAOI8>(SizeOf(words, 1), [](int x, int y)
                                                        { return static_cast<unsigned char>((x + y) % 256); }));
}

void ImageFloat(Player& player, const Arguments& words)
{
    const KvTSize<short> size = SizeOf(words, 1);
    const double least = words.Number(3);
    const double most = words.Number(4);
    const double step = size.width > 1 ? (most - least) / (size.width - 1) : 0.0;
    player.images.Add(words.Text(0),
                      Made<KvBufferAOI32Float>(size, [=](int x, int) { return static_cast<float>(least + x * step); }));
}

void ImageColour(Player& player, const Arguments& words)
{
    const KvColor color(words.Colour(3));
    player.images.Add(words.Text(0), Made<KvBufferAOI32Color>(SizeOf(words, 1), [=](int, int) { return color; }));
}

// A file that can't be read ends the session, as nothing that follows could be what was meant.
void ImageFile(Player& player, const Arguments& words)
{
    try
    {
        player.images.Add(words.Text(0), KvxLoadAOI(KvString(player.InputFile(words.Text(1)).c_str())));
    }
    catch (KvException* failure)
    {
        const std::string text = failure->GetMessageW().Utf8();
        failure->Delete();
        throw CommandError(text);
    }
}

// `image NAME KIND ...`: the kind is the second word.
void Image(Player& player, const Arguments& words)
{
    struct Kind
    {
        const char* name;
        size_t count;
        void (*make)(Player&, const Arguments&);
    };
    static const Kind kinds[] = {{"grey", 5, ImageGrey},
                                 {"ramp", 4, ImageRamp},
                                 {"float", 6, ImageFloat},
                                 {"colour", 5, ImageColour},
                                 {"file", 3, ImageFile}};
    for (const Kind& kind : kinds)
    {
        if (!words.Is(1, kind.name))
            continue;
        if (words.Count() != kind.count)
            throw CommandError("an image of kind \"" + words.Text(1) + "\" takes " + std::to_string(kind.count - 2) +
                               " values");
        kind.make(player, words.Without(1));
        return;
    }
    throw CommandError("\"" + words.Text(1) + "\" is no kind of image");
}

void Fill(Player& player, const Arguments& words)
{
    KvAOI8& aoi = player.images.Grey(words.Text(0));
    const long left = std::max(words.Integer(1), 0L);
    const long top = std::max(words.Integer(2), 0L);
    const long right = std::min<long>(words.Integer(1) + words.Integer(3, 0), aoi.AOIWidth());
    const long bottom = std::min<long>(words.Integer(2) + words.Integer(4, 0), aoi.AOIHeight());
    const auto value = static_cast<unsigned char>(words.Integer(5, 0, 255));
    for (long y = top; y < bottom && left < right; ++y)
        std::fill_n(aoi.GetRowPointer(static_cast<int>(y)) + left, right - left, value);
}

void Lut(Player& player, const Arguments& words)
{
    auto* container = dynamic_cast<KvOLutContainer*>(&player.images.Get(words.Text(0)));
    if (!container)
        throw CommandError("image \"" + words.Text(0) + "\" has no output table");
    KvOLut* lut = pOLutMgr->GetLut(KvString(words.Text(1).c_str()));
    if (!lut)
        throw CommandError("there is no table \"" + words.Text(1) + "\"");
    container->SetOLut(lut);
}
} // namespace

void AddImageCommands(CommandTable& table)
{
    table.Add("image", 2, CommandTable::any, Image);
    table.Add("fill", 6, 6, Fill);
    table.Add("lut", 2, 2, Lut);
}

} // namespace kv::session
