#include "support/PrintedSheets.h"

#include <QImage>
#include <QImageReader>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace Tesk {

namespace {

constexpr double Margin = 12 * 72 / 25.4; // points
/// What rounding may add.
constexpr double Tolerance = 1; // points
/// The line above the address and the space between both.
constexpr double AddressTop = 3.4; // points
/// The free strip above both.
constexpr double FreeHeight = 7; // points
const QString AddressMark = QStringLiteral("©");

QString WordsOf(const QList<PdfWord> &words)
{
    QStringList texts;
    for (const PdfWord &word : words)
        texts.append(word.text);
    return texts.join(u' ');
}

auto AddressMarkOf(const PdfSheet &sheet)
{
    return std::find_if(sheet.words.begin(), sheet.words.end(),
                        [](const PdfWord &word) { return word.text == AddressMark; });
}

/// Of a sheet that has an address line.
QRectF AreaAboveAddress(const PdfSheet &sheet)
{
    const double bottom = AddressMarkOf(sheet)->place.top() - AddressTop - Tolerance;
    return {0, bottom - FreeHeight, sheet.size.width(), FreeHeight};
}

QString FaultOfAddressLine(const PdfSheet &sheet, const QString &addressLine)
{
    const auto mark = AddressMarkOf(sheet);
    if (mark == sheet.words.end())
        return QStringLiteral("is missing");
    const double top = mark->place.top();
    QList<PdfWord> address;
    for (const PdfWord &word : sheet.words) {
        if (qAbs(word.place.top() - top) < Tolerance)
            address.append(word);
        else if (word.place.bottom() > top - AddressTop)
            return QStringLiteral("covers \"%1\"").arg(word.text);
    }
    const QString text = WordsOf(address);
    return text == addressLine ? QString() : QStringLiteral("reads \"%1\"").arg(text);
}

} // namespace

QString WordInMargins(const QList<PdfSheet> &sheets)
{
    for (const PdfSheet &sheet : sheets) {
        const QRectF inner = QRectF(QPointF(), sheet.size)
                                 .adjusted(Margin, Margin, -Margin, -Margin)
                                 .adjusted(-Tolerance, -Tolerance, Tolerance, Tolerance);
        for (const PdfWord &word : sheet.words) {
            if (!inner.contains(word.place))
                return word.text;
        }
    }
    return {};
}

QString FaultOfAddressLines(const QString &path, const QString &addressLine)
{
    const QList<PdfSheet> sheets = SheetsOfPdf(path);
    for (qsizetype i = 0; i < sheets.size(); ++i) {
        const QString fault = FaultOfAddressLine(sheets[i], addressLine);
        if (!fault.isEmpty())
            return QStringLiteral("The address line of sheet %1 %2.").arg(i + 1).arg(fault);
        if (!IsWhite(path, i, AreaAboveAddress(sheets[i])))
            return QStringLiteral(
                       "The address line of sheet %1 is too close to what stands above it.")
                .arg(i + 1);
    }
    return sheets.isEmpty() ? QStringLiteral("There are no sheets.") : QString();
}

bool IsWhite(const QString &path, qsizetype sheet, const QRectF &area)
{
    QImageReader reader(path, "pdf");
    reader.setBackgroundColor(Qt::white);
    reader.jumpToImage(static_cast<int>(sheet));
    // One pixel a point.
    reader.setScaledSize(SheetsOfPdf(path).at(sheet).size.toSize());
    const QImage picture = reader.read();
    const QRect inner = area.toRect() & picture.rect();
    for (int y = inner.top(); y <= inner.bottom(); ++y) {
        for (int x = inner.left(); x <= inner.right(); ++x) {
            if (picture.pixelColor(x, y) != Qt::white)
                return false;
        }
    }
    return !inner.isEmpty();
}

QString WordsOf(const PdfSheet &sheet)
{
    return WordsOf(sheet.words);
}

} // namespace Tesk
