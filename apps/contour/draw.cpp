// kvcontour draw: contours over an image, as a picture.
#include "apps/contour/commands.h"
#include "apps/contour/contour_file.h"
#include "apps/contour/failure.h"
#include "apps/contour/image_file.h"
#include "apps/contour/progress.h"
#include "contracts/basics/KvException.h"
#include "platform/afx/dcguards.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace kvcontour
{
using namespace KvN;
namespace
{
constexpr COLORREF includedColor = RGB(0, 230, 0);
constexpr COLORREF excludedColor = RGB(255, 60, 60);
constexpr COLORREF textColor = RGB(255, 255, 255);
constexpr COLORREF shadowColor = RGB(0, 0, 0); // makes the text stand out on any image

struct Options
{
    std::string input;
    std::string image;
    std::string output;
};

// A picture in 32 bits that drawing calls reach.
class Canvas
{
public:
    explicit Canvas(const KvAOI& image) : size(image.AOISize())
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        dc.CreateCompatibleDC(nullptr);
        bitmap.Attach(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        former = dc.SelectObject(bitmap.GetSafeHandle());
        if (!bits || !former)
            throw std::bad_alloc();
        image.Show(&dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() { dc.SelectObject(former); }

    CDC& Context() { return dc; }
    KvTSize<short> Size() const { return size; }

    KvBufferAOI32Color Pixels() const
    {
        KvBufferAOI32Color aoi(size);
        const auto* from = static_cast<const KvColor*>(bits);
        for (int y = 0; y < size.height; ++y, from += size.width)
            std::copy_n(from, size.width, aoi.GetRowPointer(y));
        return aoi;
    }

private:
    KvTSize<short> size;
    void* bits = nullptr;
    CBitmap bitmap;
    CDC dc;
    HGDIOBJ former = nullptr;
};

// Figures may lie anywhere; what is far off the picture need not be told apart.
int Whole(double value)
{
    constexpr double farOff = 1e6;
    return static_cast<int>(value >= -farOff ? std::min(value, farOff) : -farOff);
}

std::vector<POINT> PointsOf(const KvTList<KvVec2d>& list)
{
    std::vector<POINT> points;
    for (const auto* node = list.head; node; node = node->next)
        points.push_back({Whole(node->value.x), Whole(node->value.y)});
    return points;
}

void DrawOutline(CDC& dc, const KvContour& contour)
{
    switch (contour.ContourType())
    {
    case KvContour::eRectangle:
    case KvContour::ePolygon:
    case KvContour::eSquare:
    {
        const std::vector<POINT> points = PointsOf(contour.CurvePositions());
        dc.Polygon(points.data(), static_cast<int>(points.size()));
        break;
    }
    case KvContour::ePolyline:
    {
        const std::vector<POINT> points = PointsOf(contour.CurvePositions());
        dc.Polyline(points.data(), static_cast<int>(points.size()));
        break;
    }
    case KvContour::eEllipse:
    case KvContour::eCircle:
    {
        KvTList<KvVec2d> samples;
        contour.CreateSegments(0.0, KvMath::TwoPi, 100, samples);
        const std::vector<POINT> points = PointsOf(samples);
        dc.Polygon(points.data(), static_cast<int>(points.size()));
        break;
    }
    }
}

class Drawing
{
public:
    explicit Drawing(Canvas& canvas_)
        : canvas(canvas_), dc(canvas_.Context()), side(std::max(canvas.Size().width, canvas.Size().height))
    {
        LOGFONT format{};
        format.lfHeight = std::clamp(side / 40, 12, 120);
        format.lfCharSet = DEFAULT_CHARSET;
        std::copy_n(L"Arial", 6, format.lfFaceName);
        font.CreateFontIndirect(&format);
        noBrush.CreateStockObject(NULL_BRUSH);
    }

    void Add(const KvContour& contour)
    {
        const CPen pen(PS_SOLID, WidthOf(contour), ColorOf(contour));
        const SelectedObject selectedPen(dc, pen), selectedBrush(dc, noBrush);
        DrawOutline(dc, contour);
        Describe(contour);
    }

private:
    static COLORREF ColorOf(const KvContour& contour)
    {
        if (contour.Exclude())
            return excludedColor;
        return contour.Color() == KvContour::NoColor ? includedColor : contour.Color() & 0xFFFFFF;
    }

    // Lines that can be seen at the picture's size; a polyline has its own width.
    int WidthOf(const KvContour& contour) const
    {
        const int thin = std::max(1, side / 500);
        const bool own = contour.ContourType() == KvContour::ePolyline && contour.LineWidth() != KvContour::NoLineWidth;
        return own ? std::max(thin, Whole(contour.LineWidth() + 0.5)) : thin;
    }

    // To the right of the figure's box, or where that leaves the picture, as far left as it takes.
    void Describe(const KvContour& contour)
    {
        const CString text = contour.Description().Text();
        if (text.IsEmpty() || contour.CurvePositions().count == 0)
            return;
        KvTRectangle<double> box;
        contour.MakeBoundingBox(box);
        const SelectedObject selectedFont(dc, font);
        const BackgroundMode transparent(dc, TRANSPARENT);
        const CSize extent = dc.GetTextExtent(text);
        const int x = std::clamp(Whole(box.right) + 4, 0, std::max(0, canvas.Size().width - int(extent.cx)));
        const int y = std::clamp(Whole(box.top), 0, std::max(0, canvas.Size().height - int(extent.cy)));
        Write(text, x + 1, y + 1, shadowColor);
        Write(text, x, y, textColor);
    }

    void Write(const CString& text, int x, int y, COLORREF color)
    {
        const TextColor inColor(dc, color);
        dc.TextOut(x, y, text);
    }

    Canvas& canvas;
    CDC& dc;
    int side;
    CFont font;
    CBrush noBrush;
};

std::string CheckOutput(const std::string& name)
{
    return CheckEnding(name, {".png", ".bmp", ".jpg", ".jpeg", ".tif", ".tiff"});
}

void Draw(const Options& options)
{
    Progress progress;
    progress.Show("1/3 reading " + options.image);
    const KvTList<KvContour> contours = ReadContours(options.input);
    auto image = ReadImage(options.image);

    progress.Show("2/3 drawing " + std::to_string(contours.count) + " contours");
    Canvas canvas(*image);
    image.reset();
    Drawing drawing(canvas);
    for (const auto* node = contours.head; node; node = node->next)
        drawing.Add(node->value);

    progress.Show("3/3 writing " + options.output);
    WriteImage(options.output, canvas.Pixels());
}
} // namespace

void AddDraw(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("draw", "Draws the contours over an image");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->input, "Contour file: .kvb for byte arrays, else XML")->required();
    command->add_option("--image", options->image, "The image: PNG, BMP, JPEG or TIFF")->required();
    command->add_option("-o,--output", options->output, "The picture: .png, .bmp, .jpg or .tif")
        ->required()
        ->check(CheckOutput, "");
    command->footer("Each contour has its own colour, or green if it has none; excluded ones are red. A description\n"
                    "stands beside its figure. An image of floating-point values is shown from black to white.\n\n"
                    "Example:\n"
                    "  kvcontour draw part.contours.xml --image part.png -o picture.png");
    command->callback([options] { Draw(*options); });
}

} // namespace kvcontour
