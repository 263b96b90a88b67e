#include "PaneWindow.h"

#include "browser/LocalProfile.h"
#include "browser/WebBrowser.h"
#include "support/EngineProcess.h"
#include "support/PageUser.h"
#include "support/PdfFiles.h"
#include "support/WaitUntil.h"

#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace Tesk {

PaneWindow::PaneWindow(const QString &language, const QString &applicationDirectory)
    : registry(folder.filePath(QStringLiteral("settings.json")))
    , mailSender([this](const QByteArray &address) {
        mails.append(address);
        return true;
    })
{
    registry.RegSetString(SettingsKey, QStringLiteral("Location"), language);
    controller = std::make_unique<Controller>(
        applicationDirectory, registry, folder.filePath(QStringLiteral("cache")), QLocale::c());
    controller->InitApplication();
    QWebEngineProfile *const profile =
        CreateLocalProfile(applicationDirectory + QLatin1String("/resources.chm"),
                           applicationDirectory, &profileOwner);
    builder = std::make_unique<HtmlBuilder>(*controller);
    window = std::make_unique<QWidget>();
    const ContactServices services{[this](const QString &key) { return controller->GetText(key); },
                                   registry, mailSender, lastContact};
    pane = new ShoppingCart({*controller, *builder, services, profile}, [this](QPrinter &printer) {
        ++printCount;
        if (whilePrinting)
            whilePrinting();
        if (setUpPrinter)
            setUpPrinter(printer);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(PrintedFile());
        return true;
    });
    QObject::connect(pane->findChild<PagePrinter *>(), &PagePrinter::Finished, pane,
                     [this](PrintEnd end) { ends.append(end); });
    auto *const layout = new QVBoxLayout(window.get());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pane);
    window->resize(1040, 700);
    pane->InitGui();
    window->show();
    window->activateWindow();
}

PaneWindow::~PaneWindow() = default;

void PaneWindow::Add(qint16 productId, qint16 amount, const QString &category)
{
    controller->AddProductToCart(productId, amount, category);
}

QStringList PaneWindow::Lines()
{
    return Cart().Serialize().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
}

PageUser PaneWindow::Page()
{
    return PageUser(*pane->Browser());
}

QVariant PaneWindow::Evaluate(const QString &expression)
{
    return Page().Evaluate(expression);
}

bool PaneWindow::WaitFor(const QString &expression)
{
    return Page().WaitFor(QString(), expression);
}

bool PaneWindow::WaitForPageAfter(const std::function<void()> &action, const QString &addressEnd)
{
    QString completed;
    const auto note = QObject::connect(pane->Browser(), &WebBrowser::DocumentComplete, pane,
                                       [&](const QString &address) { completed = address; });
    action();
    const bool isThere =
        WaitUntil([&] { return !completed.isEmpty() && completed.endsWith(addressEnd); }) &&
        WaitFor(QStringLiteral("(document.getElementById('printFooter') ?? {}).innerHTML"));
    QObject::disconnect(note);
    if (!isThere)
        qWarning("The last page was %s.", qPrintable(completed));
    return isThere;
}

bool PaneWindow::ShowCart()
{
    return WaitForPageAfter([this] { pane->Initialize(); }, QString());
}

bool PaneWindow::WaitForFrames()
{
    return Page().WaitForPaint();
}

bool PaneWindow::WaitForReports()
{
    return Evaluate(QStringLiteral("0")).isValid();
}

std::optional<QPoint> PaneWindow::PlaceOf(const QString &selector)
{
    return Page().PlaceOf(selector);
}

bool PaneWindow::Click(const QString &selector)
{
    return Page().Click(selector);
}

bool PaneWindow::Type(const QString &selector, const QString &text)
{
    return Page().TypeInto(selector, text);
}

void PaneWindow::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    Page().PressKey(key, modifiers);
}

void PaneWindow::KillEngine()
{
    Tesk::KillEngine(*pane->Browser());
}

QPushButton *PaneWindow::Button(const char *name)
{
    return pane->findChild<QPushButton *>(QLatin1String(name));
}

bool PaneWindow::IsEnabled(const char *name)
{
    return Button(name)->isEnabled();
}

bool PaneWindow::WaitForPrints(int count)
{
    return WaitForEnds(QList<PrintEnd>(count, PrintEnd::Printed));
}

bool PaneWindow::WaitForEnds(const QList<PrintEnd> &expected)
{
    return WaitUntil([&] { return ends.size() >= expected.size(); }) && ends == expected;
}

QString PaneWindow::PrintedText()
{
    return TextOfPdf(PrintedFile());
}

} // namespace Tesk
