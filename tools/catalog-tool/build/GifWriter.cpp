#include "build/GifWriter.h"

#include "base/Errors.h"

#include <QMap>

#include <gif_lib.h>

#include <array>
#include <memory>
#include <vector>

namespace Tesk {

namespace {

constexpr int LargestSide = 0xFFFF;
constexpr int PaletteSize = 256;
constexpr int TransparentIndex = 0;
constexpr qsizetype ColourLimit = PaletteSize - 1;

/// Colours that share all but the lowest bits of each channel count as one: their average. Done
/// here because giflib's own quantiser keeps five bits, which makes white a light grey.
class Palette final
{
public:
    explicit Palette(const QImage &picture)
    {
        for (droppedBits = 0; droppedBits < 8; ++droppedBits) {
            Collect(picture);
            if (cells.size() <= ColourLimit)
                break;
        }
        for (Cell &cell : cells) {
            cell.index = static_cast<int>(colours.size()) + 1;
            colours.push_back(cell.Average());
        }
    }

    int IndexOf(QRgb pixel) const
    {
        return qAlpha(pixel) == 0 ? TransparentIndex : cells.value(KeyOf(pixel)).index;
    }

    /// The colour of index 1 and those that follow.
    const std::vector<QRgb> &Colours() const { return colours; }

private:
    struct Cell
    {
        qint64 red = 0, green = 0, blue = 0, count = 0;
        int index = 0;

        QRgb Average() const
        {
            const auto rounded = [this](qint64 sum) {
                return static_cast<int>((sum + count / 2) / count);
            };
            return qRgb(rounded(red), rounded(green), rounded(blue));
        }
    };

    QRgb KeyOf(QRgb pixel) const
    {
        const uint mask = (0xFFU << droppedBits) & 0xFFU;
        return pixel & (0xFF000000U | mask << 16 | mask << 8 | mask);
    }

    void Collect(const QImage &picture)
    {
        cells.clear();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QRgb pixel = picture.pixel(x, y);
                if (qAlpha(pixel) == 0)
                    continue;
                Cell &cell = cells[KeyOf(pixel)];
                cell.red += qRed(pixel);
                cell.green += qGreen(pixel);
                cell.blue += qBlue(pixel);
                ++cell.count;
            }
        }
    }

    int droppedBits = 0;
    QMap<QRgb, Cell> cells; // sorted, so that equal pictures make equal files
    std::vector<QRgb> colours;
};

void Check(int result, int errorCode)
{
    if (result == GIF_ERROR)
        throw CatalogueError(QStringLiteral("The GIF picture cannot be written: %1")
                                 .arg(QString::fromLatin1(GifErrorString(errorCode))));
}

int AppendBytes(GifFileType *file, const GifByteType *bytes, int count)
{
    static_cast<QByteArray *>(file->UserData)->append(reinterpret_cast<const char *>(bytes), count);
    return count;
}

struct CloseFile
{
    void operator()(GifFileType *file) const { EGifCloseFile(file, nullptr); }
};

using GifFile = std::unique_ptr<GifFileType, CloseFile>;

struct FreeColorMap
{
    void operator()(ColorMapObject *map) const { GifFreeMapObject(map); }
};

using ColorMap = std::unique_ptr<ColorMapObject, FreeColorMap>;

ColorMap MakeColorMap(const Palette &palette)
{
    // A palette of 2, 4, 8 ... 256 entries; those beyond the colours stay black and unused.
    const int entryCount = 1 << GifBitSize(static_cast<int>(palette.Colours().size()) + 1);
    std::vector<GifColorType> entries(static_cast<size_t>(entryCount), GifColorType{0, 0, 0});
    entries[TransparentIndex] = {255, 255, 255};
    for (size_t i = 0; i < palette.Colours().size(); ++i) {
        const QRgb colour = palette.Colours()[i];
        entries[i + 1] = {static_cast<GifByteType>(qRed(colour)),
                          static_cast<GifByteType>(qGreen(colour)),
                          static_cast<GifByteType>(qBlue(colour))};
    }
    return ColorMap(GifMakeMapObject(entryCount, entries.data()));
}

void WriteHeader(GifFileType *file, const QImage &picture, const ColorMapObject *colors)
{
    GraphicsControlBlock control{};
    control.TransparentColor = TransparentIndex;
    std::array<GifByteType, 4> extension{};
    EGifGCBToExtension(&control, extension.data());

    EGifSetGifVersion(file, true);
    Check(EGifPutScreenDesc(file, picture.width(), picture.height(), 8, TransparentIndex, colors),
          file->Error);
    Check(EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(extension.size()),
                           extension.data()),
          file->Error);
    Check(EGifPutImageDesc(file, 0, 0, picture.width(), picture.height(), false, nullptr),
          file->Error);
}

void WritePixels(GifFileType *file, const QImage &picture, const Palette &palette)
{
    std::vector<GifPixelType> line(static_cast<size_t>(picture.width()));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            line[static_cast<size_t>(x)] =
                static_cast<GifPixelType>(palette.IndexOf(picture.pixel(x, y)));
        Check(EGifPutLine(file, line.data(), picture.width()), file->Error);
    }
}

} // namespace

QByteArray WriteGif(const QImage &picture)
{
    if (picture.isNull() || picture.width() > LargestSide || picture.height() > LargestSide)
        throw CatalogueError(QStringLiteral("A GIF picture has at most %1 pixels a side. Make the "
                                            "drawing smaller.")
                                 .arg(LargestSide));
    const Palette palette(picture);
    const ColorMap colors = MakeColorMap(palette);

    QByteArray bytes;
    int errorCode = 0;
    GifFile file(EGifOpen(&bytes, AppendBytes, &errorCode));
    Check(file ? GIF_OK : GIF_ERROR, errorCode);
    WriteHeader(file.get(), picture, colors.get());
    WritePixels(file.get(), picture, palette);
    Check(EGifCloseFile(file.release(), &errorCode), errorCode);
    return bytes;
}

} // namespace Tesk
