#pragma once

#include "cart/dialogs/frmShoppingCartAdd.h"
#include "core/CatalogueQueries.h"
#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"

#include <QApplication>
#include <QHash>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <stdexcept>

namespace Tesk {

/// The texts of one language by their keys.
using Texts = QHash<QString, QString>;

inline Texts MakeTexts(const std::array<const char *, 11> &texts)
{
    constexpr std::array<const char *, 11> keys{"ucShoppingCartManualCaption",
                                                "ucShoppingCartManualArtNrTesk",
                                                "ucShoppingCartManualArtNrCompetition",
                                                "ucShoppingCartManualAmount",
                                                "ucShoppingCartManualCatId",
                                                "commonOr",
                                                "commonButtonOK",
                                                "commonButtonCancel",
                                                "ucShoppingCartManualArtNrTeskError",
                                                "ucShoppingCartManualAmountError",
                                                "ucShoppingCartManualNoArtNrError"};
    Texts result;
    for (size_t i = 0; i < keys.size(); ++i)
        result.insert(QLatin1String(keys[i]), QString::fromUtf8(texts[i]));
    return result;
}

inline const Texts English = MakeTexts(
    {"Add articles", "Tesk article number", "Competitor's number", "Amount", "Your category", "or",
     "&OK", "&Cancel", "Unknown article number.", "Amounts are 1 to 999.", "Enter a number."});

inline const QColor InOrder(255, 255, 255);
inline const QColor InError(255, 200, 200);

/// The dialog on a small catalogue, opened and driven as a person would drive it: articles AB
/// 10/115 (competitor's SA010), AB 10/116 (SA011) and 21-100-14, and ZZ 9 whose id is beyond 16
/// bits.
class AddDialog final : public QObject
{
public:
    AddDialog()
    {
        using namespace Database;
        const QString file = folder.filePath(QStringLiteral("catalog.db"));
        WriteVersion2(
            file,
            {{"CREATE TABLE products_global (ID INTEGER, artNr VARCHAR(50))",
              "products_global",
              {{"1", "AB 10/115"}, {"2", "AB 10/116"}, {"3", "21-100-14"}, {"40000", "ZZ 9"}}},
             {"CREATE TABLE reference_numbers (ID INTEGER, sRefNo VARCHAR(50))",
              "reference_numbers",
              {{"1", "SA010"}, {"2", "SA011"}}}});
        if (!database.Open(file))
            throw std::runtime_error("the test's catalogue cannot be opened");
        qApp->installEventFilter(this);
        Open();
    }

    void Open()
    {
        dialog.open();
        dialog.activateWindow();
        if (!QTest::qWaitForWindowActive(&dialog))
            throw std::runtime_error("the dialog does not become active");
    }

    frmShoppingCartAdd &Dialog() { return dialog; }
    Texts &LanguageTexts() { return texts; }

    QLineEdit *Field(const char *name, int row = 0) const
    {
        return Find<QLineEdit>(QLatin1String(name) + QString::number(row));
    }
    QLineEdit *ArtNr(int row = 0) const { return Field("tbArtNrTesk", row); }
    QLineEdit *Reference(int row = 0) const { return Field("tbArtNrCompetition", row); }
    QLineEdit *Amount(int row = 0) const { return Field("tbAmount", row); }
    QLineEdit *Category(int row = 0) const { return Field("tbCatNr", row); }
    QPushButton *OK() const { return Find<QPushButton>(QStringLiteral("btnOK")); }
    QPushButton *CancelButton() const { return Find<QPushButton>(QStringLiteral("btnCancel")); }

    template <typename Control>
    Control *Find(const QString &name) const
    {
        auto *const control = dialog.findChild<Control *>(name);
        if (!control)
            throw std::runtime_error("no control " + name.toStdString());
        return control;
    }

    /// A click at the control's place in the window, which moves the focus as a person's does.
    void Click(QWidget *control)
    {
        QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {},
                          control->mapTo(&dialog, control->rect().center()));
    }
    /// Clicks the field and types over what it holds.
    void Type(QLineEdit *field, const char *text)
    {
        Click(field);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, QLatin1String(text));
    }
    void TypeAndLeave(QLineEdit *field, const char *text)
    {
        Type(field, text);
        QTest::keyClick(field, Qt::Key_Tab);
    }

    static QColor ColourOf(const QLineEdit *field)
    {
        return field->palette().color(QPalette::Base);
    }

    /// The message that is open, if any.
    QMessageBox *Message() const
    {
        return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    }
    QString MessageText() const { return Message() ? Message()->text() : QString(); }
    /// How many messages have opened so far.
    int MessageCount() const { return messageCount; }
    void CloseMessage()
    {
        QTest::mouseClick(Message()->button(QMessageBox::Ok), Qt::LeftButton);
        dialog.activateWindow();
        if (!QTest::qWaitForWindowActive(&dialog))
            throw std::runtime_error("the dialog does not become active again");
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<QMessageBox *>(object))
            ++messageCount;
        return false;
    }

private:
    QTemporaryDir folder;
    SQLiteWrapper database{QString()};
    CatalogueQueries queries{database, [] { return QStringLiteral("en"); }, QLocale::c()};
    Texts texts = English;
    frmShoppingCartAdd dialog{queries, [this](const QString &key) { return texts.value(key); }};
    int messageCount = 0;
};

inline const QString ArtNrMessage = QStringLiteral("Unknown article number.");
inline const QString AmountMessage = QStringLiteral("Amounts are 1 to 999.");
inline const QString NoArtNrMessage = QStringLiteral("Enter a number.");

} // namespace Tesk
