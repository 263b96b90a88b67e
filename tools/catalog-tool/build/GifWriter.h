#pragma once

#include <QByteArray>
#include <QImage>

namespace Tesk {

/// The picture as a GIF file. Pixels without any opacity are transparent, all others opaque; more
/// than 255 colours are reduced to so many. Throws CatalogueError for a picture that is too large.
QByteArray WriteGif(const QImage &picture);

} // namespace Tesk
