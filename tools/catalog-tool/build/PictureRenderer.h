#pragma once

#include <QImage>

namespace Tesk {

class SvgSource;

/// Pixels of a rendered picture to one CSS pixel of the drawing: sharp on every screen at every
/// scale; style sheets give pictures their size.
constexpr int PixelsPerCssPixel = 6;

/// The drawing as a picture whose pixels are either transparent or opaque, what is half covered
/// standing before white. Throws CatalogueError for a drawing without an area.
QImage RenderPicture(const SvgSource &drawing);

} // namespace Tesk
