#include "cart/dialogs/frmShoppingCartAmount.h"

#include <QAccessible>
#include <QApplication>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace Tesk;

namespace {

/// Title, label, error, OK, Cancel of one language.
using Texts = QHash<QString, QString>;

Texts MakeTexts(const QString &caption, const QString &label, const QString &error,
                const QString &ok, const QString &cancel)
{
    return {{QStringLiteral("ucShoppingCartAmountCaption"), caption},
            {QStringLiteral("ucShoppingCartAmountLabel"), label},
            {QStringLiteral("ucShoppingCartAmountErrorLabel"), error},
            {QStringLiteral("commonButtonOK"), ok},
            {QStringLiteral("commonButtonCancel"), cancel}};
}

const Texts German = MakeTexts(QStringLiteral("Menge"), QStringLiteral("Gewünschte Menge"),
                               QStringLiteral("Bitte geben Sie eine Menge von 1 bis 999 ein."),
                               QStringLiteral("OK"), QStringLiteral("&Abbrechen"));
const Texts English = MakeTexts(QStringLiteral("Amount"), QStringLiteral("&Amount required"),
                                QStringLiteral("Please enter an amount from 1 to 999."),
                                QStringLiteral("&OK"), QStringLiteral("&Cancel"));
const Texts French = MakeTexts(QStringLiteral("Quantité"), QStringLiteral("Quantité souhaitée"),
                               QStringLiteral("Veuillez saisir une quantité de 1 à 999."),
                               QStringLiteral("OK"), QStringLiteral("&Annuler"));
const Texts Spanish = MakeTexts(QStringLiteral("Cantidad"), QStringLiteral("Cantidad deseada"),
                                QStringLiteral("Introduzca una cantidad de 1 a 999."),
                                QStringLiteral("Aceptar"), QStringLiteral("&Cancelar"));
const Texts Italian = MakeTexts(QStringLiteral("Quantità"), QStringLiteral("Quantità desiderata"),
                                QStringLiteral("Inserisca una quantità da 1 a 999."),
                                QStringLiteral("OK"), QStringLiteral("&Annulla"));

/// The contrast of two colours, from 1 to 21, as the accessibility guidelines for web content
/// define it; 4.5 is the least for text.
double Contrast(const QColor &first, const QColor &second)
{
    const auto luminance = [](const QColor &colour) {
        const auto linear = [](double channel) {
            return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

class TestShoppingCartAmount : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testOpensWithTheAmountOneSelectedAndFocused();
    void testCaptionsAreThoseOfTheLanguageAtEachOpening();
    void testOpeningAgainStartsAfresh();
    void testComingBackFromAnotherWindowKeepsTheText();
    void testAcceptsAmountsBelowThousand_data();
    void testAcceptsAmountsBelowThousand();
    void testRefusesWhatIsNoAmount_data();
    void testRefusesWhatIsNoAmount();
    void testEditingClearsTheError();
    void testErrorDoesNotMoveAnything();
    void testButtonsReportTheirAction();
    void testEscapeCancels();
    void testCloseBoxCancels();
    void testCancelledDialogKeepsTheAmountConfirmedBefore();
    void testTabLeadsThroughTheControls();
    void testMnemonicOfTheLabelLeadsToItsField();
    void testMnemonicOfTheButtonCancels();
    void testAccessibleNamesAndDescription();
    void testErrorIsReadableOnLightAndDark();
    void testNothingIsCut_data();
    void testNothingIsCut();

private:
    void Open();
    void Type(const QString &text);
    template <typename Control>
    Control *Find(const char *name) const;

    Texts texts;
    std::unique_ptr<frmShoppingCartAmount> dialog;
    QLineEdit *tbAmount = nullptr;
    QLabel *lblError = nullptr;
};

template <typename Control>
Control *TestShoppingCartAmount::Find(const char *name) const
{
    return dialog->findChild<Control *>(QLatin1String(name));
}

void TestShoppingCartAmount::init()
{
    texts = English;
    dialog = std::make_unique<frmShoppingCartAmount>(
        [this](const QString &key) { return texts.value(key); });
    tbAmount = Find<QLineEdit>("tbAmount");
    lblError = Find<QLabel>("lblError");
    QVERIFY(tbAmount);
    QVERIFY(lblError);
    Open();
}

void TestShoppingCartAmount::Open()
{
    dialog->open();
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
}

/// Types over whatever the field holds.
void TestShoppingCartAmount::Type(const QString &text)
{
    tbAmount->selectAll();
    QTest::keyClick(tbAmount, Qt::Key_Delete);
    QTest::keyClicks(tbAmount, text);
}

void TestShoppingCartAmount::testOpensWithTheAmountOneSelectedAndFocused()
{
    QCOMPARE(tbAmount->text(), QStringLiteral("1"));
    QCOMPARE(tbAmount->selectedText(), QStringLiteral("1"));
    QVERIFY(tbAmount->hasFocus());
    QVERIFY(!lblError->isVisible());
    // Typing replaces the preset amount.
    QTest::keyClicks(tbAmount, QStringLiteral("25"));
    QCOMPARE(tbAmount->text(), QStringLiteral("25"));
}

void TestShoppingCartAmount::testCaptionsAreThoseOfTheLanguageAtEachOpening()
{
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Amount"));
    QCOMPARE(Find<QLabel>("lblAmount")->text(), QStringLiteral("&Amount required"));
    dialog->reject();
    texts = German;
    Open();
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Menge"));
    QCOMPARE(Find<QLabel>("lblAmount")->text(), QStringLiteral("Gewünschte Menge"));
    QCOMPARE(Find<QPushButton>("OKButton")->text(), QStringLiteral("OK"));
    QCOMPARE(Find<QPushButton>("CancelButton")->text(), QStringLiteral("&Abbrechen"));
    Type(QStringLiteral("0"));
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QCOMPARE(lblError->text(), QStringLiteral("Bitte geben Sie eine Menge von 1 bis 999 ein."));
}

void TestShoppingCartAmount::testOpeningAgainStartsAfresh()
{
    Type(QStringLiteral("3"));
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QCOMPARE(dialog->Action(), DialogAction::Confirmed);

    Open();
    QCOMPARE(tbAmount->text(), QStringLiteral("1"));
    QCOMPARE(tbAmount->selectedText(), QStringLiteral("1"));
    QVERIFY(tbAmount->hasFocus());
    Type(QStringLiteral("0"));
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QVERIFY(lblError->isVisible());
    QTest::keyClick(tbAmount, Qt::Key_Escape);
    QCOMPARE(dialog->Action(), DialogAction::Cancelled);

    Open();
    QVERIFY(!lblError->isVisible());
}

void TestShoppingCartAmount::testComingBackFromAnotherWindowKeepsTheText()
{
    Type(QStringLiteral("42"));
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    QCOMPARE(tbAmount->text(), QStringLiteral("42"));
}

void TestShoppingCartAmount::testAcceptsAmountsBelowThousand_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("amount");
    QTest::newRow("one") << QStringLiteral("1") << 1;
    QTest::newRow("largest") << QStringLiteral("999") << 999;
    QTest::newRow("just below thousand") << QStringLiteral("999.9") << 1000;
    QTest::newRow("half, to the even 0") << QStringLiteral("0.5") << 0;
    QTest::newRow("comma") << QStringLiteral("1,5") << 2;
    QTest::newRow("two and a half, to the even 2") << QStringLiteral("2,5") << 2;
    QTest::newRow("no thousand begins with 0") << QStringLiteral("0.750") << 1;
    QTest::newRow("four decimals") << QStringLiteral("2.0000") << 2;
    QTest::newRow("blanks around") << QStringLiteral(" 7 ") << 7;
}

void TestShoppingCartAmount::testAcceptsAmountsBelowThousand()
{
    QFETCH(const QString, text);
    QFETCH(const int, amount);
    Type(text);
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(dialog->Action(), DialogAction::Confirmed);
    QCOMPARE(int(dialog->Amount()), amount);
}

void TestShoppingCartAmount::testRefusesWhatIsNoAmount_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("zero") << QStringLiteral("0");
    QTest::newRow("negative") << QStringLiteral("-1");
    QTest::newRow("thousand") << QStringLiteral("1000");
    QTest::newRow("thousand with a point") << QStringLiteral("1.000");
    QTest::newRow("thousand with a comma") << QStringLiteral("1,000");
    QTest::newRow("largest that may be thousands") << QStringLiteral(" 999.999 ");
    QTest::newRow("word") << QStringLiteral("two");
    QTest::newRow("number and word") << QStringLiteral("2x");
    QTest::newRow("group separator") << QStringLiteral("1,000.5");
    QTest::newRow("two decimal signs") << QStringLiteral("1.2.3");
    QTest::newRow("not a number") << QStringLiteral("nan");
}

void TestShoppingCartAmount::testRefusesWhatIsNoAmount()
{
    QFETCH(const QString, text);
    Type(text);
    Find<QPushButton>("OKButton")->setFocus();
    QTest::mouseClick(Find<QPushButton>("OKButton"), Qt::LeftButton);
    QVERIFY(dialog->isVisible());
    QVERIFY(lblError->isVisible());
    QCOMPARE(lblError->text(), QStringLiteral("Please enter an amount from 1 to 999."));
    QVERIFY(tbAmount->hasFocus());
    QCOMPARE(tbAmount->text(), text);
}

void TestShoppingCartAmount::testEditingClearsTheError()
{
    Type(QStringLiteral("0"));
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QVERIFY(lblError->isVisible());
    QTest::keyClicks(tbAmount, QStringLiteral("5"));
    QVERIFY(!lblError->isVisible());
}

void TestShoppingCartAmount::testErrorDoesNotMoveAnything()
{
    const QSize size = dialog->size();
    const QRect field = tbAmount->geometry();
    const QRect button = Find<QPushButton>("OKButton")->geometry();
    Type(QStringLiteral("0"));
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(lblError->isVisible());
    QCOMPARE(dialog->size(), size);
    QCOMPARE(tbAmount->geometry(), field);
    QCOMPARE(Find<QPushButton>("OKButton")->geometry(), button);
    QVERIFY(lblError->geometry().top() > field.bottom());
    QVERIFY(lblError->geometry().bottom() < button.top());
}

void TestShoppingCartAmount::testButtonsReportTheirAction()
{
    QTest::mouseClick(Find<QPushButton>("OKButton"), Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(dialog->Action(), 1);
    QCOMPARE(int(dialog->Amount()), 1);

    Open();
    QTest::mouseClick(Find<QPushButton>("CancelButton"), Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(dialog->Action(), 2);
}

void TestShoppingCartAmount::testEscapeCancels()
{
    QTest::keyClick(tbAmount, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(dialog->Action(), DialogAction::Cancelled);
}

void TestShoppingCartAmount::testCloseBoxCancels()
{
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QCOMPARE(dialog->Action(), DialogAction::Confirmed);
    Open();
    QVERIFY(dialog->close());
    QCOMPARE(dialog->Action(), DialogAction::Cancelled);
}

void TestShoppingCartAmount::testCancelledDialogKeepsTheAmountConfirmedBefore()
{
    Type(QStringLiteral("12"));
    QTest::keyClick(tbAmount, Qt::Key_Return);
    Open();
    Type(QStringLiteral("13"));
    QTest::keyClick(tbAmount, Qt::Key_Escape);
    QCOMPARE(int(dialog->Amount()), 12);
}

void TestShoppingCartAmount::testTabLeadsThroughTheControls()
{
    QTest::keyClick(tbAmount, Qt::Key_Tab);
    QVERIFY(Find<QPushButton>("CancelButton")->hasFocus());
    QTest::keyClick(Find<QPushButton>("CancelButton"), Qt::Key_Tab);
    QVERIFY(Find<QPushButton>("OKButton")->hasFocus());
    QTest::keyClick(Find<QPushButton>("OKButton"), Qt::Key_Tab);
    QVERIFY(tbAmount->hasFocus());
}

void TestShoppingCartAmount::testMnemonicOfTheLabelLeadsToItsField()
{
    Find<QPushButton>("OKButton")->setFocus();
    QTest::keyClick(dialog.get(), Qt::Key_A, Qt::AltModifier);
    QVERIFY(tbAmount->hasFocus());
}

void TestShoppingCartAmount::testMnemonicOfTheButtonCancels()
{
    QTest::keyClick(tbAmount, Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(!dialog->isVisible());
    QCOMPARE(dialog->Action(), DialogAction::Cancelled);
}

void TestShoppingCartAmount::testAccessibleNamesAndDescription()
{
    const auto text = [](QWidget *widget, QAccessible::Text kind) {
        return QAccessible::queryAccessibleInterface(widget)->text(kind);
    };
    QCOMPARE(text(tbAmount, QAccessible::Name), QStringLiteral("Amount required"));
    QCOMPARE(text(Find<QPushButton>("OKButton"), QAccessible::Name), QStringLiteral("OK"));
    QCOMPARE(text(Find<QPushButton>("CancelButton"), QAccessible::Name), QStringLiteral("Cancel"));
    QCOMPARE(text(tbAmount, QAccessible::Description), QString());
    Type(QStringLiteral("0"));
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QCOMPARE(text(tbAmount, QAccessible::Description),
             QStringLiteral("Please enter an amount from 1 to 999."));
}

void TestShoppingCartAmount::testErrorIsReadableOnLightAndDark()
{
    for (const QColor &window : {QColor(239, 239, 239), QColor(35, 38, 41)}) {
        const QColor text = window.lightness() > 128 ? Qt::black : Qt::white;
        dialog->setPalette(QPalette(text, window, window, window, window, text, window));
        const QPalette colours = lblError->palette();
        QCOMPARE(dialog->palette().color(QPalette::Window), window);
        QVERIFY(Contrast(colours.color(QPalette::WindowText), window) >= 4.5);
        QVERIFY(colours.color(QPalette::WindowText).red() >
                colours.color(QPalette::WindowText).blue());
    }
}

void TestShoppingCartAmount::testNothingIsCut_data()
{
    QTest::addColumn<QHash<QString, QString>>("languageTexts");
    QTest::addColumn<double>("scale");
    const std::vector<std::pair<const char *, Texts>> languages = {{"German", German},
                                                                   {"English", English},
                                                                   {"French", French},
                                                                   {"Spanish", Spanish},
                                                                   {"Italian", Italian}};
    for (const auto &[name, languageTexts] : languages) {
        for (const double scale : {1.0, 2.0})
            QTest::addRow("%s, %d %%", name, int(scale * 100)) << languageTexts << scale;
    }
}

void TestShoppingCartAmount::testNothingIsCut()
{
    QFETCH(const Texts, languageTexts);
    QFETCH(const double, scale);
    dialog->reject();
    texts = languageTexts;
    QFont font = dialog->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    dialog->setFont(font);
    Open();
    QTest::keyClick(tbAmount, Qt::Key_0);
    QTest::keyClick(tbAmount, Qt::Key_Return);
    QVERIFY(lblError->isVisible());

    const QRect seen = dialog->rect();
    const QList<QWidget *> controls = {Find<QLabel>("lblAmount"), tbAmount, lblError,
                                       Find<QPushButton>("CancelButton"),
                                       Find<QPushButton>("OKButton")};
    for (QWidget *control : controls) {
        QVERIFY2(seen.contains(control->geometry()), qPrintable(control->objectName()));
        const int needed = control->hasHeightForWidth() ? control->heightForWidth(control->width())
                                                        : control->sizeHint().height();
        QVERIFY2(control->height() >= needed, qPrintable(control->objectName()));
    }
    for (const QLabel *label : {Find<QLabel>("lblAmount"), lblError}) {
        const QString plain = QString(label->text()).remove(QLatin1Char('&'));
        QVERIFY2(label->width() >= label->fontMetrics().horizontalAdvance(plain),
                 qPrintable(label->text()));
    }
}

QTEST_MAIN(TestShoppingCartAmount)
#include "TestShoppingCartAmount.moc"
