#include "browser/PagePrinter.h"

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
#include <QWebEngineLoadingInfo>
#include <QWebEngineView>

#include <algorithm>
#include <utility>

namespace Tesk {
namespace {

/// Wide enough for every common printer. The engine does not heed margins of a style sheet.
constexpr QMarginsF Margins(12, 12, 12, 12); // millimetres

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
    QByteArray content;
    if (file.open(QIODevice::ReadOnly))
        content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw FileError(QStringLiteral("%1 cannot be read: %2").arg(fileName, file.errorString()));
    return content;
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
    printer->setPageMargins(Margins, QPageLayout::Millimeter);
    printer->setDocName(documentName);
    return printer;
}

} // namespace

struct PagePrinter::Job
{
    std::unique_ptr<QPrinter> printer;
    /// Empty for a page, which the engine turns into a PDF document first.
    QString dataSheet;
    /// As long as the engine needs the page.
    std::shared_ptr<PageHold> hold;
    QByteArray pdf;
    QString error;
    std::unique_ptr<QThread> thread;

    ~Job()
    {
        if (thread)
            thread->wait();
    }
};

CatalogueError PrintError(PrintEnd end)
{
    if (end == PrintEnd::EngineFailed)
        return CatalogueError(QStringLiteral("The page was not printed, because the part of the "
                                             "program that shows it has failed. Print it again."),
                              {QStringLiteral("errorPrintEngine"), {}});
    return CatalogueError(QStringLiteral("The page was not printed. Check the printer, or print "
                                         "into a file in another folder."),
                          {QStringLiteral("errorPrint"), {}});
}

PagePrinter::PagePrinter(WebBrowser &browser)
    : PagePrinter(browser,
                  [&browser](QPrinter &printer) { return AskWithDialog(&browser, printer); })
{}

PagePrinter::PagePrinter(WebBrowser &browser, SetUp setUp)
    : QObject(&browser)
    , browser(browser)
    , setUp(std::move(setUp))
{
    const QWebEnginePage *const page = browser.View()->page();
    // The engine never answers for a process that has ended.
    connect(page, &QWebEnginePage::renderProcessTerminated, this, &PagePrinter::EngineEnded);
    connect(page, &QWebEnginePage::loadingChanged, this, &PagePrinter::AskEngine,
            Qt::QueuedConnection);
}

PagePrinter::~PagePrinter() = default;

bool PagePrinter::IsPrinting() const
{
    return isAsking || !jobs.empty();
}

bool PagePrinter::Print(const QString &documentName)
{
    if (isAsking) {
        qCInfo(printLog, "not printed: the user is being asked about another print");
        return false;
    }
    const QWebEngineView *view = browser.View();
    auto job = std::make_unique<Job>();
    job->dataSheet = DataSheet(view->url());
    QString name = documentName;
    if (name.isEmpty())
        name =
            job->dataSheet.isEmpty() ? view->title() : QFileInfo(job->dataSheet).completeBaseName();
    job->printer = MakePrinter(PrintableName(name));

    {
        const QScopedValueRollback<bool> guard(isAsking, true);
        if (!setUp(*job->printer))
            return false;
    }
    jobs.push_back(std::move(job));
    Job &begun = *jobs.back();
    if (!begun.dataSheet.isEmpty()) {
        PrintDataSheet(begun);
    } else {
        begun.hold = browser.HoldPage();
        AskEngine();
    }
    return true;
}

/// About the next page, once the one that is loading is there and no other is being printed: of two
/// questions the engine answers the first only.
void PagePrinter::AskEngine()
{
    const auto next =
        std::find_if(jobs.begin(), jobs.end(), [](const auto &job) { return job->hold; });
    QWebEnginePage *const page = browser.View()->page();
    if (jobOfEngine != nullptr || next == jobs.end() || page->isLoading())
        return;
    if (page->renderProcessPid() == 0) {
        EngineEnded();
        return;
    }
    jobOfEngine = next->get();
    const QPointer<PagePrinter> self = this;
    // The engine calls back from within; the files and signals are not for there.
    page->printToPdf(
        [self, number = ++question](const QByteArray &pdf) {
            if (!self)
                return;
            QMetaObject::invokeMethod(
                self,
                [self, number, pdf] {
                    if (self->jobOfEngine != nullptr && self->question == number)
                        self->TakePdf(pdf);
                },
                Qt::QueuedConnection);
        },
        jobOfEngine->printer->pageLayout(),
        IsForFile(*jobOfEngine->printer) ? ChosenPages(*jobOfEngine->printer) : QPageRanges());
}

/// The page comes back, but not at once and perhaps not as it was.
void PagePrinter::EngineEnded()
{
    jobOfEngine = nullptr;
    const auto needsEngine = [](const auto &job) { return job->hold; };
    for (auto job = std::find_if(jobs.begin(), jobs.end(), needsEngine); job != jobs.end();
         job = std::find_if(jobs.begin(), jobs.end(), needsEngine))
        End(**job, PrintEnd::EngineFailed, QStringLiteral("the browser engine does not run"));
}

void PagePrinter::PrintDataSheet(Job &job)
{
    const QPrinter &printer = *job.printer;
    try {
        job.pdf = Read(job.dataSheet);
        if (IsForFile(printer) && !IsPartChosen(printer)) {
            Write(printer.outputFileName(), job.pdf);
            End(job, PrintEnd::Printed, {});
            return;
        }
    } catch (const FileError &error) {
        End(job, PrintEnd::PrinterFailed, error.Message());
        return;
    }
    SendToPrinter(job);
}

void PagePrinter::TakePdf(const QByteArray &pdf)
{
    Job &job = *std::exchange(jobOfEngine, nullptr);
    job.hold.reset();
    job.pdf = pdf;
    if (pdf.isEmpty()) {
        End(job, PrintEnd::EngineFailed, QStringLiteral("the browser engine made no sheets of it"));
    } else if (!IsForFile(*job.printer)) {
        SendToPrinter(job);
    } else {
        try {
            Write(job.printer->outputFileName(), pdf);
            End(job, PrintEnd::Printed, {});
        } catch (const FileError &error) {
            End(job, PrintEnd::PrinterFailed, error.Message());
        }
    }
    AskEngine();
}

void PagePrinter::SendToPrinter(Job &job)
{
    job.thread.reset(QThread::create([current = &job] {
        try {
            PaintPdf(current->pdf, ChosenPages(*current->printer), *current->printer);
        } catch (const CatalogueError &error) {
            current->error = error.Message();
        }
    }));
    connect(job.thread.get(), &QThread::finished, this, [this, current = &job] {
        End(*current, current->error.isEmpty() ? PrintEnd::Printed : PrintEnd::PrinterFailed,
            current->error);
    });
    job.thread->start();
}

void PagePrinter::End(Job &job, PrintEnd end, const QString &error)
{
    if (end != PrintEnd::Printed)
        qCWarning(printLog, "%ls is not printed: %ls", qUtf16Printable(job.printer->docName()),
                  qUtf16Printable(error));
    std::erase_if(jobs, [&job](const auto &one) { return one.get() == &job; });
    // Not before Print has returned.
    QMetaObject::invokeMethod(
        this, [this, end] { Q_EMIT Finished(end); }, Qt::QueuedConnection);
}

} // namespace Tesk
