#pragma once

#include "contact/ContactServices.h"
#include "contact/LastContact.h"
#include "contact/MailSender.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "ui/main/frmCatalog.h"

#include <QLocale>
#include <QObject>
#include <QTemporaryDir>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace Tesk {

class PageUser;

/// The real window on an application directory, with settings and cache of its own, driven as a
/// person would drive it. Every wait is for a condition and has an end (WaitUntil.h).
class CatalogueWindow final
{
public:
    /// Starts the program in the language of this name ("German" … "Italian") and shows the window.
    /// `userLocale` is the one in which the user types lengths.
    explicit CatalogueWindow(const QString &applicationDirectory,
                             const QString &language = QStringLiteral("English"),
                             const QLocale &userLocale = QLocale::c());
    ~CatalogueWindow();

    frmCatalog &Window() { return *window; }
    Controller &GetController() { return *controller; }
    Registry &GetRegistry() { return registry; }
    /// The addresses that went to the user's mail program, as they left; it is never started.
    const QList<QByteArray> &MailAddresses() const { return mailAddresses; }

    /// The value of a script expression on the page shown.
    QVariant Evaluate(const QString &expression);
    /// Whether the expression becomes true on a page whose address contains `addressPart`.
    bool WaitFor(const QString &addressPart, const QString &expression);
    /// Whether the list page, details page … with this in its address becomes filled.
    bool WaitForFilledPage(const QString &addressPart);

    /// Clicks the middle of the first element that matches, with the mouse. False without one.
    bool Click(const QString &selector);

    /// Moves the mouse to the middle of the first element that matches. False without one.
    bool Hover(const QString &selector);
    /// Waits until the page has drawn its present state.
    void WaitForPaint();

    using DialogAnswer = std::function<void(QWidget *dialog)>;

    /// Runs `action` and gives each modal dialog that opens then, one after the other, to the next
    /// of the answers, which must close it. False when a dialog stays out or stays open; one that
    /// stays open is closed. An answer may do the same for what opens above its own dialog.
    static bool AnswerDialogs(const std::function<void()> &action,
                              const std::vector<DialogAnswer> &answers);

private:
    PageUser Page();

    QTemporaryDir settingsFolder;
    Registry registry;
    std::unique_ptr<Controller> controller;
    QList<QByteArray> mailAddresses;
    MailSender mailSender{[this](const QByteArray &address) {
        mailAddresses.append(address);
        return true;
    }};
    LastContact lastContact;
    ContactServices contactServices;
    QObject profileOwner;
    std::unique_ptr<frmCatalog> window;
};

/// A copy of the application directory `source` at `target`, its executable left out.
bool CopyApplicationDirectory(const QString &source, const QString &target);
/// The same, with this file as the copy's catalog.db.
bool CopyWithDatabase(const QString &source, const QString &target, const QString &databaseFile);

} // namespace Tesk
