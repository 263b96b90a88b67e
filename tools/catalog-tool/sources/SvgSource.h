#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>

#include <optional>

namespace Tesk {

class Problems;

/// A vector drawing. Its size in CSS pixels is that of its viewBox; a width and a height of the
/// root element count for nothing.
class SvgSource final
{
public:
    /// Nothing, and a problem, for text that is no well-formed SVG with a viewBox.
    static std::optional<SvgSource> Parse(const QByteArray &bytes, const QString &file,
                                          Problems &problems);

    const QByteArray &Bytes() const { return bytes; }
    QSizeF Size() const { return size; }

    /// The same drawing with a root element that is `width` CSS pixels wide, or as wide as its
    /// viewBox if that is less.
    QByteArray WithWidth(double width) const;

private:
    SvgSource() = default;

    QByteArray bytes;
    QSizeF size;
    qsizetype rootStart = 0; ///< of its start tag's '<' in the text, in UTF-16 units
    qsizetype rootEnd = 0;   ///< behind its start tag's '>'
};

} // namespace Tesk
