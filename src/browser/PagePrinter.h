#pragma once

#include "base/Errors.h"

#include <QByteArray>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class QPrinter;

namespace Tesk {

class WebBrowser;

/// How a print has ended.
enum class PrintEnd {
    Printed,
    /// The printer, or the file to print into, took no sheets.
    PrinterFailed,
    /// The browser engine made no sheets.
    EngineFailed
};

/// What to tell the user of a print that ended so.
CatalogueError PrintError(PrintEnd end);

/// Prints the page that a browser shows, as it is at that moment; of a data sheet (a PDF file) the
/// file itself. A file chosen as the printer's output gets the page's own text and lines, a real
/// printer gets them as pictures. The engine makes the sheets of one page after the other, and the
/// browser keeps its page until they are made (WebBrowser::HoldPage). Failures leave a line in
/// "tesk.browser.print".
class PagePrinter final : public QObject
{
    Q_OBJECT

public:
    /// Makes a printer ready, usually by asking the user; false when nothing is to be printed.
    using SetUp = std::function<bool(QPrinter &printer)>;

    /// Asks with the system's print dialog. Belongs to the browser.
    explicit PagePrinter(WebBrowser &browser);
    PagePrinter(WebBrowser &browser, SetUp setUp);
    /// Waits for sheets that are on their way to the printer.
    ~PagePrinter() override;

    /// Asks the user and prints; returns while the sheets are still under way, those of earlier
    /// prints included. False when the user cancels or is being asked already.
    /// `documentName` stands in the printer's queue and is proposed as the name of a file; empty:
    /// the page's title or the data sheet's file name.
    bool Print(const QString &documentName = {});

    /// Whether the user is being asked or sheets are under way.
    bool IsPrinting() const;

Q_SIGNALS:
    /// A print that was begun has ended; every one does, in this order or another.
    void Finished(Tesk::PrintEnd end);

private:
    struct Job;

    void AskEngine();
    void EngineEnded();
    void PrintDataSheet(Job &job);
    void TakePdf(const QByteArray &pdf);
    void SendToPrinter(Job &job);
    /// An empty `error` goes with `PrintEnd::Printed`.
    void End(Job &job, PrintEnd end, const QString &error);

    WebBrowser &browser;
    SetUp setUp;
    bool isAsking = false;
    std::vector<std::unique_ptr<Job>> jobs;
    /// The job whose sheets the engine is making.
    Job *jobOfEngine = nullptr;
    /// Tells an answer of the engine from one of an engine that has failed since.
    int question = 0;
};

} // namespace Tesk
