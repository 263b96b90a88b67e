#pragma once

#include "BrowserFixture.h"
#include "browser/PagePrinter.h"

#include <QPageSize>
#include <QPrinter>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace Tesk {

/// A browser whose pages are printed into files.
class PrintFixture : public BrowserFixture
{
public:
    /// The rows of the long table, which fill SheetsOfTable sheets of A4.
    static constexpr int RowCount = 100;
    static constexpr int SheetsOfTable = 8;

    QString Pdf(const QString &name = QStringLiteral("print.pdf")) const
    {
        return folder.filePath(name);
    }

    /// Sets a printer up that prints into a file.
    static PagePrinter::SetUp IntoFile(const QString &fileName,
                                       QPageSize::PageSizeId size = QPageSize::A4)
    {
        return [fileName, size](QPrinter &printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(fileName);
            printer.setPageSize(QPageSize(size));
            return true;
        };
    }

    /// How a print ends; nothing when it does not begin or end.
    static std::optional<PrintEnd> EndOfPrint(PagePrinter &printer)
    {
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        if (!printer.Print() || !finished.wait(WaitTime))
            return std::nullopt;
        return finished.first().first().value<PrintEnd>();
    }
    static bool IsPrinted(PagePrinter &printer) { return EndOfPrint(printer) == PrintEnd::Printed; }

    /// A caption row of 10 mm and rows of 20 mm that stay whole.
    QString WriteLongTable() const
    {
        QByteArray html = "<!DOCTYPE html><title>Long table</title><style>body { margin: 0 }"
                          "table { border-spacing: 0 } td { padding: 0; height: 20mm }"
                          "thead td { height: 10mm } tr { break-inside: avoid }</style>"
                          "<table><thead><tr><td>Caption</td></tr></thead><tbody>";
        for (int row = 1; row <= RowCount; ++row)
            html += "<tr><td>Row " + QByteArray::number(row) + "</td></tr>";
        return WritePage(QStringLiteral("long.html"), html + "</tbody></table>");
    }
    bool OpenLongTable() { return Open(WriteLongTable()); }

private:
    QTemporaryDir folder;
};

} // namespace Tesk
