#include "build/DataSheetPrinter.h"

#include "base/Errors.h"
#include "build/SheetImages.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>

namespace Tesk {

namespace {

/// Pixels of the page are CSS pixels.
constexpr int Resolution = 96;
constexpr QMarginsF PageMarginsMm(20, 18, 20, 14);
constexpr double FooterHeight = 32;
constexpr double BodyFontPoints = 10;
constexpr double FooterFontPoints = 8;
constexpr QRgb FooterColour = qRgb(107, 114, 120);
constexpr QRgb RuleColour = qRgb(227, 228, 230);

QString ReadPage(const QString &htmlFile)
{
    QFile file(htmlFile);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(QStringLiteral("\"%1\" cannot be read (%2). Check that it exists and that "
                                       "you may read it.")
                            .arg(htmlFile, file.errorString()));
    return QString::fromUtf8(file.readAll());
}

QFont SheetFont(double points)
{
    QFont font(QStringLiteral("sans-serif"));
    font.setPointSizeF(points);
    return font;
}

/// Prints a laid-out document page by page.
class SheetPainter final
{
public:
    SheetPainter(QPdfWriter &pdfWriter, const QTextDocument &sheet, const QSizeF &pageArea)
        : writer(pdfWriter)
        , document(sheet)
        , area(pageArea)
        , bodyHeight(sheet.pageSize().height())
        , painter(&pdfWriter)
    {}

    void Paint()
    {
        for (int page = 0; page < document.pageCount(); ++page) {
            if (page > 0)
                writer.newPage();
            PaintBody(page);
            PaintFooter(page);
        }
    }

private:
    void PaintBody(int page)
    {
        const QRectF view(0, page * bodyHeight, area.width(), bodyHeight);
        painter.save();
        painter.translate(0, -view.top());
        painter.setClipRect(view);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = view;
        context.palette.setColor(QPalette::Text, Qt::black);
        document.documentLayout()->draw(&painter, context);
        painter.restore();
    }

    void PaintFooter(int page)
    {
        const QRectF footer(0, bodyHeight, area.width(), area.height() - bodyHeight);
        const double ruleY = footer.top() + FooterHeight / 3;
        painter.setPen(QPen(QColor(RuleColour), 1));
        painter.drawLine(QPointF(footer.left(), ruleY), QPointF(footer.right(), ruleY));
        painter.setPen(QColor(FooterColour));
        painter.setFont(SheetFont(FooterFontPoints));
        painter.drawText(footer, Qt::AlignLeft | Qt::AlignBottom,
                         document.metaInformation(QTextDocument::DocumentTitle));
        painter.drawText(footer, Qt::AlignRight | Qt::AlignBottom,
                         QStringLiteral("%1 / %2").arg(page + 1).arg(document.pageCount()));
    }

    QPdfWriter &writer;
    const QTextDocument &document;
    QSizeF area;
    double bodyHeight;
    QPainter painter;
};

/// Takes the time of printing out of the file, without moving anything that the file's own table
/// of places refers to.
void ClearTime(QByteArray &pdf)
{
    const qsizetype start = pdf.indexOf("/CreationDate (");
    const qsizetype end = start < 0 ? -1 : pdf.indexOf(')', start);
    if (end >= 0)
        pdf.replace(start, end + 1 - start, QByteArray(end + 1 - start, ' '));
}

} // namespace

QByteArray PrintDataSheet(const QString &htmlFile)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(Resolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(PageMarginsMm, QPageLayout::Millimeter);
    const QSizeF area = writer.pageLayout().paintRectPixels(Resolution).size();

    QTextDocument document;
    SheetImages images(QFileInfo(htmlFile).dir());
    document.documentLayout()->registerHandler(QTextFormat::ImageObject, &images);
    document.documentLayout()->setPaintDevice(&writer);
    document.setUseDesignMetrics(true);
    document.setDocumentMargin(0);
    document.setDefaultFont(SheetFont(BodyFontPoints));
    document.setPageSize({area.width(), area.height() - FooterHeight});
    document.setBaseUrl(QUrl::fromLocalFile(htmlFile));
    document.setHtml(ReadPage(htmlFile));
    writer.setTitle(document.metaInformation(QTextDocument::DocumentTitle));

    SheetPainter(writer, document, area).Paint();
    buffer.close();
    ClearTime(bytes);
    return bytes;
}

} // namespace Tesk
