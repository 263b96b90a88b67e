#include "browser/PagePrinter.h"

#include "base/Errors.h"
#include "base/WholeFile.h"
#include "browser/Log.h"
#include "browser/PaperSize.h"
#include "browser/PdfPainter.h"
#include "browser/WebBrowser.h"

#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScopedValueRollback>
#include <QThread>
#include <QWebEngineView>

#include <utility>

namespace Tesk {
namespace {

/// Wide enough for every common printer. The engine does not heed margins of a style sheet.
constexpr QMarginsF margins(12, 12, 12, 12); // millimetres

bool AskWithDialog(QWidget *parent, QPrinter &printer)
{
    QPrintDialog dialog(&printer, parent);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                      QAbstractPrintDialog::PrintCollateCopies |
                      QAbstractPrintDialog::PrintShowPageSize);
    return dialog.exec() == QDialog::Accepted;
}

/// The file that the viewer inside the engine shows; empty for a page.
QString DataSheet(const QUrl &url)
{
    const QString file = url.toLocalFile();
    return file.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive) ? file : QString();
}

QByteArray Read(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(QStringLiteral("%1 cannot be read: %2").arg(fileName, file.errorString()));
    return file.readAll();
}

void Write(const QString &fileName, const QByteArray &content)
{
    QString reason;
    if (!WholeFile::Replace(fileName, {content}, &reason))
        throw FileError(QStringLiteral("%1 cannot be written: %2").arg(fileName, reason));
}

/// A name that can be a file's too: the dialog proposes it as such.
QString PrintableName(QString name)
{
    for (QChar &character : name) {
        if (!character.isPrint() || QStringLiteral("/\\:*?\"<>|.").contains(character))
            character = u' ';
    }
    return name.simplified();
}

bool IsForFile(const QPrinter &printer)
{
    return printer.outputFormat() == QPrinter::PdfFormat;
}

bool IsPartChosen(const QPrinter &printer)
{
    return printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
}

QPageRanges ChosenPages(const QPrinter &printer)
{
    QPageRanges pages;
    if (IsPartChosen(printer))
        pages.addRange(printer.fromPage(), qMax(printer.fromPage(), printer.toPage()));
    return pages;
}

std::unique_ptr<QPrinter> MakePrinter(const QString &documentName)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (QPrinterInfo::defaultPrinterName().isEmpty())
        printer->setPageSize(UsualPaperSize(QLocale::system()));
    printer->setPageOrientation(QPageLayout::Portrait);
    printer->setPageMargins(margins, QPageLayout::Millimeter);
    printer->setDocName(documentName);
    return printer;
}

} // namespace

struct PagePrinter::Job
{
    std::unique_ptr<QPrinter> printer;
    /// Empty for a page, which the engine turns into a PDF document first.
    QString dataSheet;
    QByteArray pdf;
    QString error;
    std::unique_ptr<QThread> thread;

    ~Job()
    {
        if (thread)
            thread->wait();
    }
};

PagePrinter::PagePrinter(WebBrowser &browser)
    : PagePrinter(browser,
                  [&browser](QPrinter &printer) { return AskWithDialog(&browser, printer); })
{}

PagePrinter::PagePrinter(WebBrowser &browser, SetUp setUp)
    : QObject(&browser)
    , browser(browser)
    , setUp(std::move(setUp))
{
    // The engine never answers for a process that has ended.
    connect(browser.View()->page(), &QWebEnginePage::renderProcessTerminated, this, [this] {
        if (job && job->pdf.isEmpty())
            End(QStringLiteral("the browser engine failed"));
    });
}

PagePrinter::~PagePrinter() = default;

bool PagePrinter::IsPrinting() const
{
    return isAsking || job != nullptr;
}

bool PagePrinter::Print(const QString &documentName)
{
    if (IsPrinting()) {
        qCInfo(printLog, "not printed: another print is under way");
        return false;
    }
    const QWebEngineView *view = browser.View();
    auto begun = std::make_unique<Job>();
    begun->dataSheet = DataSheet(view->url());
    QString name = documentName;
    if (name.isEmpty())
        name = begun->dataSheet.isEmpty() ? view->title()
                                          : QFileInfo(begun->dataSheet).completeBaseName();
    begun->printer = MakePrinter(PrintableName(name));

    {
        const QScopedValueRollback<bool> guard(isAsking, true);
        if (!setUp(*begun->printer))
            return false;
    }
    job = std::move(begun);
    ++jobNumber;
    if (job->dataSheet.isEmpty())
        AskEngine();
    else
        TakeDataSheet();
    return true;
}

void PagePrinter::AskEngine()
{
    QWebEnginePage *page = browser.View()->page();
    if (page->renderProcessPid() == 0) {
        End(QStringLiteral("the browser engine is not running"));
        return;
    }
    const QPointer<PagePrinter> self = this;
    // The engine calls back from within; the files and signals are not for there.
    page->printToPdf(
        [self, number = jobNumber](const QByteArray &pdf) {
            if (!self)
                return;
            QMetaObject::invokeMethod(
                self,
                [self, number, pdf] {
                    if (self->job && self->jobNumber == number)
                        self->TakePdf(pdf);
                },
                Qt::QueuedConnection);
        },
        job->printer->pageLayout(),
        IsForFile(*job->printer) ? ChosenPages(*job->printer) : QPageRanges());
}

void PagePrinter::TakeDataSheet()
{
    const QPrinter &printer = *job->printer;
    try {
        job->pdf = Read(job->dataSheet);
        if (IsForFile(printer) && !IsPartChosen(printer)) {
            Write(printer.outputFileName(), job->pdf);
            End({});
            return;
        }
    } catch (const FileError &error) {
        End(error.Message());
        return;
    }
    SendToPrinter();
}

void PagePrinter::TakePdf(const QByteArray &pdf)
{
    if (pdf.isEmpty()) {
        End(QStringLiteral("the browser engine made no sheets of it"));
        return;
    }
    job->pdf = pdf;
    if (!IsForFile(*job->printer)) {
        SendToPrinter();
        return;
    }
    try {
        Write(job->printer->outputFileName(), pdf);
    } catch (const FileError &error) {
        End(error.Message());
        return;
    }
    End({});
}

void PagePrinter::SendToPrinter()
{
    job->thread.reset(QThread::create([current = job.get()] {
        try {
            PaintPdf(current->pdf, ChosenPages(*current->printer), *current->printer);
        } catch (const CatalogueError &error) {
            current->error = error.Message();
        }
    }));
    connect(job->thread.get(), &QThread::finished, this, [this] { End(job->error); });
    job->thread->start();
}

void PagePrinter::End(const QString &error)
{
    if (!error.isEmpty())
        qCWarning(printLog, "%ls is not printed: %ls", qUtf16Printable(job->printer->docName()),
                  qUtf16Printable(error));
    job.reset();
    // Not before Print has returned.
    QMetaObject::invokeMethod(
        this, [this, isPrinted = error.isEmpty()] { Q_EMIT Finished(isPrinted); },
        Qt::QueuedConnection);
}
} // namespace Tesk
