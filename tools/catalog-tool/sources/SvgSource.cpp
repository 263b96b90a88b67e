#include "sources/SvgSource.h"

#include "sources/Problems.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

namespace Tesk {

namespace {

constexpr QLatin1String SvgNamespace("http://www.w3.org/2000/svg");

/// Empty for a text that is no viewBox with an area.
QSizeF ViewBoxSize(QStringView text)
{
    static const QRegularExpression separator(QStringLiteral("[\\s,]+"));
    const QStringList numbers = text.toString().split(separator, Qt::SkipEmptyParts);
    if (numbers.size() != 4)
        return {};
    const QSizeF size(numbers[2].toDouble(), numbers[3].toDouble());
    return size.isEmpty() ? QSizeF() : size;
}

} // namespace

std::optional<SvgSource> SvgSource::Parse(const QByteArray &bytes, const QString &file,
                                          Problems &problems)
{
    const QString text = QString::fromUtf8(bytes);
    QXmlStreamReader reader(text);
    SvgSource svg;
    svg.bytes = bytes;
    if (reader.readNextStartElement()) {
        const int line = static_cast<int>(reader.lineNumber());
        svg.rootEnd = reader.characterOffset();
        svg.rootStart = text.lastIndexOf(QLatin1Char('<'), svg.rootEnd - 1);
        svg.size = ViewBoxSize(reader.attributes().value(QLatin1String("viewBox")));
        if (reader.name() != QLatin1String("svg") || reader.namespaceUri() != SvgNamespace) {
            problems.Add(file, line,
                         QStringLiteral("the root element is no <svg xmlns=\"%1\">; browsers would "
                                        "not show the drawing")
                             .arg(SvgNamespace));
            return std::nullopt;
        }
        if (svg.size.isEmpty()) {
            problems.Add(file, line,
                         QStringLiteral("the root element has no viewBox=\"x y width height\"; add "
                                        "it, it gives the drawing's size in pixels"));
            return std::nullopt;
        }
    }
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError()) {
        problems.Add(file, static_cast<int>(reader.lineNumber()),
                     QStringLiteral("the drawing is no well-formed XML (%1); correct it")
                         .arg(reader.errorString()));
        return std::nullopt;
    }
    return svg;
}

QByteArray SvgSource::WithWidth(double width) const
{
    static const QRegularExpression ownSize(
        QStringLiteral("\\s(width|height)\\s*=\\s*(\"[^\"]*\"|'[^']*')"));
    const QString text = QString::fromUtf8(bytes);
    QString root = text.mid(rootStart, rootEnd - rootStart).remove(ownSize);

    const double usedWidth = std::min(width, size.width());
    const double usedHeight = usedWidth * size.height() / size.width();
    // Behind the element's name, which may bear a prefix.
    const qsizetype nameEnd = root.indexOf(QRegularExpression(QStringLiteral("[\\s/>]")));
    root.insert(nameEnd,
                QStringLiteral(" width=\"%1\" height=\"%2\"")
                    .arg(QString::number(usedWidth, 'g', 6), QString::number(usedHeight, 'g', 6)));
    return (text.left(rootStart) + root + text.mid(rootEnd)).toUtf8();
}

} // namespace Tesk
