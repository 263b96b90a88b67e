#include "base/Errors.h"
#include "build/GifWriter.h"
#include "build/PictureRenderer.h"
#include "sources/Problems.h"
#include "sources/SvgSource.h"

#include <QBuffer>
#include <QImageReader>
#include <QSet>
#include <QTest>

using namespace Tesk;

namespace {

QImage Render(const QByteArray &svg)
{
    Problems problems;
    return RenderPicture(SvgSource::Parse(svg, QStringLiteral("a.svg"), problems).value());
}

QImage ReadGif(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "gif");
    // Premultiplied: a transparent pixel has no colour then.
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

constexpr char HalfRed[] = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 8 4\">"
                           "<rect width=\"4\" height=\"4\" fill=\"#db271c\"/></svg>";

} // namespace

class TestPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testPictureIsSixTimesAsLargeAsItsViewBox()
    {
        QCOMPARE(Render(HalfRed).size(), QSize(48, 24));
    }

    void testPictureKeepsColoursAndTransparency()
    {
        const QImage picture = Render(HalfRed);
        QCOMPARE(picture.pixel(0, 0), qRgb(219, 39, 28));
        QCOMPARE(picture.pixel(23, 23), qRgb(219, 39, 28));
        QCOMPARE(qAlpha(picture.pixel(24, 0)), 0);
        QCOMPARE(qAlpha(picture.pixel(47, 23)), 0);
    }

    void testHalfCoveredPixelsAreEitherOpaqueOrTransparent()
    {
        const QImage picture =
            Render("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\">"
                   "<circle cx=\"8\" cy=\"8\" r=\"7\"/></svg>");
        int opaque = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const int alpha = qAlpha(picture.pixel(x, y));
                QVERIFY(alpha == 0 || alpha == 255);
                opaque += alpha == 255 ? 1 : 0;
            }
        }
        // The area of a circle of 42 pixels: what is covered by half or more counts whole.
        const double area = 3.14159265 * 42 * 42;
        QVERIFY2(qAbs(opaque - area) < area / 100, qPrintable(QString::number(opaque)));
    }

    void testTranslucentColourStandsBeforeWhite()
    {
        const QImage picture =
            Render("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 4 4\">"
                   "<rect width=\"4\" height=\"4\" fill=\"black\" fill-opacity=\"0.6\"/></svg>");
        // 40 % of white.
        const QRgb pixel = picture.pixel(5, 5);
        QVERIFY(qAbs(qRed(pixel) - 102) <= 1);
        QCOMPARE(qRed(pixel), qBlue(pixel));
    }

    void testGifReadsBackAsItWasWritten()
    {
        const QImage picture = Render(HalfRed);
        const QByteArray bytes = WriteGif(picture);
        QVERIFY(bytes.startsWith("GIF89a"));
        QCOMPARE(ReadGif(bytes), picture.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }

    void testGifOfOnlyTransparentPixels()
    {
        QImage picture(7, 3, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        const QImage read = ReadGif(WriteGif(picture));
        QCOMPARE(read.size(), QSize(7, 3));
        QCOMPARE(qAlpha(read.pixel(6, 2)), 0);
    }

    void testGifKeeps255Colours()
    {
        QImage picture(255, 1, QImage::Format_ARGB32);
        for (int x = 0; x < 255; ++x)
            picture.setPixel(x, 0, qRgb(x, 255 - x, x / 2));
        QCOMPARE(ReadGif(WriteGif(picture)),
                 picture.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }

    void testGifReducesMoreColoursAndKeepsWhite()
    {
        QImage picture(64, 64, QImage::Format_ARGB32);
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x)
                picture.setPixel(x, y, y < 32 ? qRgb(255, 255, 255) : qRgb(4 * x, 4 * y, 128));
        }
        const QImage read = ReadGif(WriteGif(picture));
        QSet<QRgb> colours;
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 64; ++x) {
                colours.insert(read.pixel(x, y));
                QVERIFY(qAbs(qRed(read.pixel(x, y)) - qRed(picture.pixel(x, y))) <= 32);
                QVERIFY(qAbs(qGreen(read.pixel(x, y)) - qGreen(picture.pixel(x, y))) <= 32);
            }
        }
        QVERIFY(colours.size() > 64 && colours.size() <= 255);
        QCOMPARE(read.pixel(0, 0), qRgb(255, 255, 255));
    }

    void testGifRefusesPicturesWithoutPixels()
    {
        QVERIFY_THROWS_EXCEPTION(CatalogueError, WriteGif(QImage()));
    }
};

QTEST_MAIN(TestPictures)
#include "TestPictures.moc"
