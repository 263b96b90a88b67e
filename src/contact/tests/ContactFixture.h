#pragma once

#include "contact/ContactDialog.h"
#include "contact/LastContact.h"
#include "contact/MailSender.h"
#include "contact/dlgContact.h"
#include "contact/dlgContactOrder.h"
#include "contact/dlgContactRequest.h"
#include "core/Registry.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace Tesk {

/// A contact dialog with settings of its own, and a mail program that notes what it gets.
class ContactFixture
{
public:
    ContactFixture()
    {
        // Each key is its own text, so that a control's text tells which key it shows.
        getText = [](const QString &key) { return key; };
    }

    template <typename Dialog>
    void Open()
    {
        dialog = std::make_unique<Dialog>(ContactServices{
            [this](const QString &key) { return getText(key); }, settings, sender, last});
        Show();
    }

    void Open(ContactKind kind)
    {
        switch (kind) {
        case ContactKind::Contact:
            return Open<dlgContact>();
        case ContactKind::Request:
            return Open<dlgContactRequest>();
        case ContactKind::Order:
            return Open<dlgContactOrder>();
        }
    }

    /// An order that can be sent as it is.
    void OpenFilledOrder()
    {
        Open<dlgContactOrder>();
        TypeMandatoryFields();
    }

    void Show() const
    {
        dialog->open();
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }

    template <typename Control>
    Control *Find(const char *name) const
    {
        return dialog->findChild<Control *>(QLatin1String(name));
    }

    QLineEdit *Line(const char *name) const { return Find<QLineEdit>(name); }

    /// Types over whatever the field holds; the keys carry their text as a keyboard's do.
    static void Type(QLineEdit *field, const QString &text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        for (const QChar character : text)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character),
                                Qt::NoModifier);
    }

    void Type(const char *name, const QString &text) const { Type(Line(name), text); }

    void TypeMandatoryFields() const
    {
        Type("InstName", QStringLiteral("Klinik"));
        Type("Street", QStringLiteral("Ring 1"));
        Type("PostalCodeCity", QStringLiteral("12345 Ort"));
        Type("Country", QStringLiteral("Land X"));
        Type("Phone", QStringLiteral("0123"));
        Type("PersonName", QStringLiteral("Muster"));
    }

    void Click(const char *button) const
    {
        QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
    }

    QString Stored(const char *name) const
    {
        return settings.RegGetString(QStringLiteral("Software\\Tesk"), QLatin1String(name));
    }

    void Keep(const char *name, const QString &text)
    {
        settings.RegSetString(QStringLiteral("Software\\Tesk"), QLatin1String(name), text);
    }

    std::function<QString(const QString &)> getText;
    QTemporaryDir folder;
    Registry settings{folder.filePath(QStringLiteral("settings.json"))};
    QList<QByteArray> mails;
    bool isMailable = true;
    MailSender sender{[this](const QByteArray &address) {
        mails += address;
        return isMailable;
    }};
    LastContact last{QStringLiteral("before"), QStringLiteral("before")};
    std::unique_ptr<ContactDialog> dialog;
};

} // namespace Tesk
