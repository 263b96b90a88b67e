#pragma once

#include <QByteArray>
#include <QObject>

#include <functional>
#include <memory>

class QPrinter;

namespace Tesk {

class WebBrowser;

/// Prints the page that a browser shows, as it is at that moment; of a data sheet (a PDF file) the
/// file itself. A file chosen as the printer's output gets the page's own text and lines, a real
/// printer gets them as pictures. Failures leave a line in "tesk.browser.print".
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

    /// Prints, and returns while the sheets are still under way. Does nothing and returns false
    /// while another print is under way, when the user cancels, and when there is no page.
    /// `documentName` stands in the printer's queue and is proposed as the name of a file; empty:
    /// the page's title or the data sheet's file name.
    bool Print(const QString &documentName = {});

    /// Whether the user is being asked or sheets are under way.
    bool IsPrinting() const;

Q_SIGNALS:
    /// A print that was begun has ended, and the next one may begin.
    void Finished(bool isPrinted);

private:
    struct Job;

    void AskEngine();
    void TakeDataSheet();
    void TakePdf(const QByteArray &pdf);
    void SendToPrinter();
    /// An empty `error` means that all went well.
    void End(const QString &error);

    WebBrowser &browser;
    SetUp setUp;
    bool isAsking = false;
    std::unique_ptr<Job> job;
    /// Tells an answer of the engine to a job that was given up from one to the present job.
    int jobNumber = 0;
};

} // namespace Tesk
