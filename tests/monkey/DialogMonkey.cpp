#include "DialogMonkey.h"

#include "Articles.h"
#include "CartModel.h"
#include "CartWitness.h"
#include "Findings.h"
#include "MonkeyFiles.h"
#include "RandomTexts.h"

#include "about/frmAbout.h"
#include "cart/dialogs/frmShoppingCartAdd.h"
#include "cart/dialogs/frmShoppingCartAmount.h"
#include "contact/ContactDialog.h"
#include "support/Dialogs.h"
#include "support/UserActions.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace Tesk {

namespace {

constexpr int Interval = 2;        // milliseconds
constexpr int PopupPatience = 5;   // ticks
constexpr int FocusPatience = 200; // ticks
constexpr int MostAttempts = 50;   // to close a dialog
constexpr int MostRandomSteps = 6;

constexpr const char *Watched = "isWatchedByTheMonkey";

const QStringList PrintFiles{QStringLiteral("page.pdf"), QStringLiteral("Blätter 2.pdf"),
                             QStringLiteral("a'b.pdf")};

void Cancel(QDialog *dialog)
{
    PressKey(dialog, Qt::Key_Escape);
}

} // namespace

DialogMonkey::DialogMonkey(const Parts &parts)
    : parts(parts)
{
    Arm();
}

void DialogMonkey::Begin(quint32 newSeed, quint32 newAction)
{
    seed = newSeed;
    action = newAction;
    turn = 0;
    isActing = true;
}

/// A timer that repeats would stay silent within the event loop of a dialog that its own tick
/// opens.
void DialogMonkey::Arm()
{
    QTimer::singleShot(Interval, this, &DialogMonkey::Tick);
}

void DialogMonkey::Tick()
{
    Arm();
    auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (QWidget *const popup = QApplication::activePopupWidget()) {
        if (dialog != nullptr || !isActing)
            ClosePopup(popup);
        return;
    }
    popupTicks = 0;
    if (dialog == nullptr || !IsReady(dialog))
        return;
    Visit &visit = VisitTo(dialog);
    // A click lets the event loop run before it is made.
    if (!visit.isBusy)
        Step(visit);
}

void DialogMonkey::ClosePopup(QWidget *popup)
{
    if (++popupTicks <= PopupPatience)
        return;
    popupTicks = 0;
    QTest::keyClick(popup, Qt::Key_Escape);
}

/// Keys go to the widget with the focus, which is another window's until the dialog is active.
bool DialogMonkey::IsReady(QDialog *dialog)
{
    const QWidget *const focus = QApplication::focusWidget();
    const bool hasFocus = focus != nullptr && dialog->isAncestorOf(focus);
    focusTicks = hasFocus ? 0 : focusTicks + 1;
    return hasFocus || focusTicks > FocusPatience;
}

DialogMonkey::Visit &DialogMonkey::VisitTo(QDialog *dialog)
{
    visits.remove_if([](const Visit &visit) { return visit.dialog.isNull(); });
    for (Visit &visit : visits) {
        if (visit.dialog == dialog)
            return visit;
    }
    Dice dice(seed, action, ++turn);
    const int steps = dice.Below(MostRandomSteps);
    visits.push_back({dialog, dice, steps});
    ++answered;
    parts.findings.Note(QLatin1String(dialog->metaObject()->className()));
    // A dialog may be opened again, which is a new one to its user.
    if (dialog->property(Watched).toBool())
        return visits.back();
    dialog->setProperty(Watched, true);
    parts.witness.Watch(dialog);
    connect(dialog, &QDialog::finished, this, [this, dialog] {
        visits.remove_if([dialog](const Visit &visit) { return visit.dialog == dialog; });
    });
    return visits.back();
}

void DialogMonkey::Step(Visit &visit)
{
    QDialog *const dialog = visit.dialog;
    const bool isLast = --visit.stepsLeft < 0;
    if (visit.stepsLeft == -MostAttempts)
        parts.findings.Fail(
            QStringLiteral("the dialog \"%1\" (%2) cannot be closed")
                .arg(dialog->windowTitle(), QLatin1String(dialog->metaObject()->className())));
    Dice dice(static_cast<quint32>(visit.dice.Below(INT_MAX)), action, turn);
    visit.isBusy = true;
    Answer(dialog, dice, isLast);
    // The visit may have ended with its dialog.
    for (Visit &other : visits) {
        if (other.dialog == dialog)
            other.isBusy = false;
    }
}

void DialogMonkey::Answer(QDialog *dialog, Dice &dice, bool isLast)
{
    if (auto *const box = qobject_cast<QMessageBox *>(dialog))
        AnswerBox(box, dice);
    else if (qobject_cast<frmShoppingCartAmount *>(dialog))
        AnswerAmount(dialog, dice, isLast);
    else if (qobject_cast<frmShoppingCartAdd *>(dialog))
        AnswerAdd(dialog, dice, isLast);
    else if (auto *const file = qobject_cast<QFileDialog *>(dialog))
        AnswerFile(file, dice, isLast);
    else if (qobject_cast<QPrintDialog *>(dialog))
        AnswerPrint(dialog, dice, isLast);
    else if (qobject_cast<ContactDialog *>(dialog))
        AnswerContact(dialog, dice, isLast);
    else if (qobject_cast<frmAbout *>(dialog))
        AnswerAbout(dialog, dice, isLast);
    else
        Cancel(dialog);
}

void DialogMonkey::AnswerBox(QMessageBox *box, Dice &dice)
{
    // Only the event loop's own handler shows faults like this.
    if (box->icon() == QMessageBox::Critical) {
        parts.findings.TakeError(box->text());
        ClickOn(box->button(QMessageBox::Ok));
        return;
    }
    const QString exitQuestion = parts.catalogue.GetController()
                                     .GetText(QStringLiteral("mExitConfirm"))
                                     .replace(QLatin1String("{nl}"), QLatin1String("\n"));
    const bool isExit = box->text() == exitQuestion;
    if (dice.OneIn(4))
        Cancel(box);
    else if (isExit)
        ClickOn(box->button(QMessageBox::No));
    else if (dice.OneIn(4))
        PressKey(box, dice.OneIn(2) ? Qt::Key_Tab : Qt::Key_Return);
    else
        ClickOn(dice.Pick(box->buttons()));
}

void DialogMonkey::AnswerAmount(QDialog *dialog, Dice &dice, bool isLast)
{
    Fill(dialog, "tbAmount", RandomTexts::AnyAmount(dice).text);
    if (isLast && dice.OneIn(3))
        Cancel(dialog);
    else if (dice.OneIn(5))
        ClickButton(dialog, "CancelButton");
    else if (dice.OneIn(2))
        ClickButton(dialog, "OKButton");
    else
        PressKey(dialog, Qt::Key_Return);
}

void DialogMonkey::AnswerAdd(QDialog *dialog, Dice &dice, bool isLast)
{
    const auto fill = [&](const char *field, int row, const QString &text) {
        Fill(dialog, (QByteArray(field) + QByteArray::number(row)).constData(), text);
    };
    // The first rows more often: where one is wrong, nothing can be added.
    const int row = dice.Below(dice.OneIn(2) ? 2 : frmShoppingCartAdd::RowCount);
    QString number = dice.Pick(parts.articles.Numbers());
    if (dice.OneIn(3))
        number.remove(u' ');
    switch (dice.Below(8)) {
    case 0:
        fill("tbAmount", row, RandomTexts::AnyAmount(dice).text);
        break;
    case 1:
        fill("tbCatNr", row, RandomTexts::Any(dice));
        break;
    case 2:
        fill("tbArtNrCompetition", row,
             dice.OneIn(2) ? QStringLiteral("11-010-11") : RandomTexts::Any(dice).remove(u'%'));
        break;
    case 3:
        fill("tbArtNrTesk", row, dice.OneIn(3) ? QStringLiteral("ZZ 99/999") : number);
        break;
    case 4:
        PressKey(dialog, dice.OneIn(2) ? Qt::Key_Tab : Qt::Key_Backtab);
        break;
    default:
        fill("tbArtNrTesk", row, number);
        if (QApplication::activeModalWidget() == dialog)
            dice.OneIn(2) ? ClickButton(dialog, "btnOK") : PressKey(dialog, Qt::Key_Return);
    }
    if (isLast && dialog->isVisible() && QApplication::activeModalWidget() == dialog)
        dice.OneIn(2) ? ClickButton(dialog, "btnCancel") : Cancel(dialog);
}

QString DialogMonkey::SomeFile(const QFileDialog &dialog, Dice &dice) const
{
    const bool isCart = dialog.nameFilters().join(u' ').contains(QLatin1String("*.csv"));
    if (dice.OneIn(10))
        return parts.files.PathOf(QStringLiteral("missing/") + RandomTexts::FileName(dice));
    if (dialog.acceptMode() == QFileDialog::AcceptSave)
        return dice.OneIn(10) ? parts.files.Barred()
                              : parts.files.PathOf(RandomTexts::FileName(dice));
    return dice.Pick(isCart ? parts.model.Files() : parts.files.PriceLists());
}

void DialogMonkey::AnswerFile(QFileDialog *dialog, Dice &dice, bool isLast)
{
    if (dice.OneIn(8) || (isLast && dice.OneIn(2))) {
        Cancel(dialog);
        return;
    }
    Fill(dialog, "fileNameEdit", SomeFile(*dialog, dice));
    PressKey(dialog, Qt::Key_Return);
}

void DialogMonkey::AnswerPrint(QDialog *dialog, Dice &dice, bool isLast)
{
    if (dice.OneIn(3) || (isLast && dice.OneIn(2))) {
        Cancel(dialog);
        return;
    }
    Fill(dialog, "filename", parts.files.PathOf(dice.Pick(PrintFiles)));
    ClickOn(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok));
}

void DialogMonkey::AnswerContact(QDialog *dialog, Dice &dice, bool isLast)
{
    const auto fields = dialog->findChildren<QLineEdit *>();
    switch (dice.Below(6)) {
    case 0:
        for (const QLineEdit *field : fields) {
            if (field->text().isEmpty())
                Fill(dialog, field->objectName().toLatin1(), RandomTexts::Any(dice));
        }
        break;
    case 1:
        Fill(dialog, "ContactNotes", RandomTexts::Any(dice) + u'\n' + RandomTexts::Any(dice));
        break;
    case 2:
        ClickButton(dialog, dice.OneIn(2) ? "PrintButton" : "SendButton");
        break;
    case 3:
        if (QComboBox *const list = dialog->findChild<QComboBox *>())
            ChooseEntry(list, dice.Below(qMax(1, list->count())));
        break;
    default:
        if (!fields.isEmpty())
            Fill(dialog, dice.Pick(fields)->objectName().toLatin1(), RandomTexts::Any(dice));
    }
    if (isLast && dialog->isVisible())
        dice.OneIn(2) ? ClickButton(dialog, dice.OneIn(3) ? "CancelButton" : "SendButton")
                      : Cancel(dialog);
}

void DialogMonkey::AnswerAbout(QDialog *dialog, Dice &dice, bool isLast)
{
    if (!isLast)
        ClickButton(dialog, "cmdSysInfo");
    else if (dice.OneIn(2))
        ClickButton(dialog, "cmdOK");
    else
        Cancel(dialog);
}

} // namespace Tesk
