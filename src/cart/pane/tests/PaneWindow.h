#pragma once

#include "cart/pane/ShoppingCart.h"
#include "contact/LastContact.h"
#include "contact/MailSender.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "core/tests/DialogDriver.h"
#include "pages/HtmlBuilder.h"

#include <QObject>
#include <QPoint>
#include <QTemporaryDir>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

class QPrinter;
class QPushButton;

namespace Tesk {

class PageUser;

/// The cart pane in a window of its own on the sample catalogue, with settings of its own, driven
/// as a person would drive it. Prints go into a file, mails into a list.
class PaneWindow final
{
    QTemporaryDir folder;

public:
    explicit PaneWindow(const QString &language = QStringLiteral("English"),
                        const QString &applicationDirectory = QStringLiteral(APPLICATION_DIR));
    ~PaneWindow();

    ShoppingCart &Pane() { return *pane; }
    Controller &GetController() { return *controller; }
    clsShoppingCart &Cart() { return controller->GetShoppingCart(); }
    QWidget &Window() { return *window; }

    /// The products have these numbers in the sample catalogue.
    static constexpr qint16 Scissors = 1;
    static constexpr qint16 OtherScissors = 2;
    static constexpr qint16 BasicSet = 482;

    void Add(qint16 productId, qint16 amount, const QString &category = QString());
    /// The cart's lines as the file holds them, members included, empty lines left out.
    QStringList Lines();

    /// Runs the action and waits for a page that is written after it, whose address ends like this.
    bool WaitForPageAfter(const std::function<void()> &action, const QString &addressEnd);
    /// Shows the cart as it is now.
    bool ShowCart();
    /// Whether the script expression becomes true.
    bool WaitFor(const QString &expression);
    QVariant Evaluate(const QString &expression);
    /// Whether the page has drawn its present state.
    bool WaitForFrames();
    /// Whether all that the page reported so far has been handled.
    bool WaitForReports();

    /// The middle of the first element that matches, in the view's measure.
    std::optional<QPoint> PlaceOf(const QString &selector);
    /// Clicks the middle of the first element that matches. False without one.
    bool Click(const QString &selector);
    /// Clicks into the field and types in place of what it held; the field keeps the focus.
    bool Type(const QString &selector, const QString &text);
    /// Presses a key where the page's focus is.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Ends the engine's process as a crash does.
    void KillEngine();

    QPushButton *Button(const char *name);
    bool IsEnabled(const char *name);

    QString PathOf(const QString &name) const { return folder.filePath(name); }
    /// The sheets printed last.
    QString PrintedFile() const { return PathOf(QStringLiteral("print.pdf")); }
    /// Their text (PdfFiles.h).
    QString PrintedText();
    /// Whether this many prints have ended, each on its sheets.
    bool WaitForPrints(int count);
    /// Whether the prints have ended like this.
    bool WaitForEnds(const QList<PrintEnd> &expected);

    QList<QByteArray> mails;
    int printCount = 0;
    /// Makes the printer ready beyond its file.
    std::function<void(QPrinter &printer)> setUpPrinter;
    /// Runs where the user would choose the printer.
    std::function<void()> whilePrinting;
    LastContact lastContact;
    Registry registry;

private:
    PageUser Page();

    MailSender mailSender;
    std::unique_ptr<Controller> controller;
    QObject profileOwner;
    std::unique_ptr<HtmlBuilder> builder;
    std::unique_ptr<QWidget> window;
    ShoppingCart *pane = nullptr;
    QList<PrintEnd> ends;
};

} // namespace Tesk
