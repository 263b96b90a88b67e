#include "PaneWindow.h"

#include "browser/LocalProfile.h"
#include "browser/WebBrowser.h"
#include "support/EngineProcess.h"
#include "support/PdfFiles.h"
#include "support/WaitUntil.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QPrinter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWebEngineView>

namespace Tesk {

namespace {

constexpr int PollLimit = 300; // milliseconds

QString Quoted(const QString &text)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact)) +
           QStringLiteral("[0]");
}

} // namespace

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
                     [this] { ++finishedPrints; });
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

// A page that is just being left takes its answer along, so a question asked again and again must
// not wait long for any one answer.
QVariant PaneWindow::Evaluate(const QString &expression)
{
    const auto answer = std::make_shared<std::optional<QVariant>>();
    pane->Browser()->RunScript(expression, [answer](const QVariant &value) { *answer = value; });
    WaitUntil([&] { return answer->has_value(); }, PollLimit);
    return answer->value_or(QVariant());
}

bool PaneWindow::WaitFor(const QString &expression)
{
    return WaitUntil(
        [&] { return Evaluate(QStringLiteral("Boolean(%1)").arg(expression)).toBool(); });
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
    Evaluate(QStringLiteral("window.isDrawn = false; requestAnimationFrame(() =>"
                            " requestAnimationFrame(() => { window.isDrawn = true; }))"));
    return WaitFor(QStringLiteral("window.isDrawn"));
}

bool PaneWindow::WaitForReports()
{
    bool isAnswered = false;
    const auto answer = std::make_shared<bool>(false);
    pane->Browser()->RunScript(QStringLiteral("0"), [answer](const QVariant &) { *answer = true; });
    isAnswered = WaitUntil([&] { return *answer; });
    return isAnswered;
}

std::optional<QPoint> PaneWindow::PlaceOf(const QString &selector)
{
    const QVariantList place =
        Evaluate(QStringLiteral("(() => { const e = document.querySelector(%1);"
                                " if (!e) return [];"
                                " e.scrollIntoView({ block: 'nearest' });"
                                " const r = e.getBoundingClientRect();"
                                " return [r.left + r.width / 2, r.top + r.height / 2] })()")
                     .arg(Quoted(selector)))
            .toList();
    if (place.size() != 2)
        return std::nullopt;
    return QPoint(qRound(place[0].toDouble()), qRound(place[1].toDouble()));
}

bool PaneWindow::Click(const QString &selector)
{
    const std::optional<QPoint> place = PlaceOf(selector);
    if (!place)
        return false;
    QWidget *const target = pane->Browser()->View()->focusProxy();
    QTest::mouseMove(target, *place);
    QTest::mouseClick(target, Qt::LeftButton, {}, *place);
    return true;
}

bool PaneWindow::Type(const QString &selector, const QString &text)
{
    const QString focused = QStringLiteral("document.activeElement === document.querySelector(%1)")
                                .arg(Quoted(selector));
    if (!Click(selector) || !WaitFor(focused))
        return false;
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    for (const char32_t character : text.toUcs4())
        QTest::sendKeyEvent(QTest::Click, pane->Browser()->View()->focusProxy(), Qt::Key_unknown,
                            QString::fromUcs4(&character, 1), Qt::NoModifier);
    return WaitFor(QStringLiteral("document.querySelector(%1).value === %2")
                       .arg(Quoted(selector), Quoted(text)));
}

void PaneWindow::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(pane->Browser()->View()->focusProxy(), key, modifiers);
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
    return WaitUntil([&] { return finishedPrints == count; });
}

QString PaneWindow::PrintedText()
{
    return TextOfPdf(PrintedFile());
}

} // namespace Tesk
