#pragma once

#include "Dice.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <list>

class QDialog;
class QFileDialog;
class QMessageBox;
class QWidget;

namespace Tesk {

class Articles;
class CartModel;
class CartWitness;
class CatalogueWindow;
class ContactDialog;
class Findings;
class MonkeyFiles;
class frmShoppingCartAdd;

/// Answers every dialog that opens with random clicks and keys, and at last closes it. It acts from
/// the event loop, also from within that of another dialog.
class DialogMonkey final : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        CatalogueWindow &catalogue;
        const Articles &articles;
        const MonkeyFiles &files;
        const CartModel &model;
        CartWitness &witness;
        Findings &findings;
    };

    /// All of it outlives the object.
    explicit DialogMonkey(const Parts &parts);

    /// An action begins, whose seeds the answers follow from. Until it ends the menus and lists
    /// that it opens are its own.
    void Begin(quint32 seed, quint32 action);
    void End() { isActing = false; }

    int Answered() const { return answered; }

private:
    struct Visit
    {
        QPointer<QDialog> dialog;
        Dice dice;
        /// Random steps until it is to be closed; below 0 attempts to close it.
        int stepsLeft;
        bool isBusy = false;
    };

    void Arm();
    void Tick();
    void ClosePopup(QWidget *popup);
    Visit &VisitTo(QDialog *dialog);
    bool IsReady(QDialog *dialog);
    void Step(Visit &visit);
    void Answer(QDialog *dialog, Dice &dice, bool isLast);

    void AnswerBox(QMessageBox *box, Dice &dice);
    void AnswerAmount(QDialog *dialog, Dice &dice, bool isLast);
    void AnswerAdd(QDialog *dialog, Dice &dice, bool isLast);
    void AnswerFile(QFileDialog *dialog, Dice &dice, bool isLast);
    void AnswerPrint(QDialog *dialog, Dice &dice, bool isLast);
    void AnswerContact(QDialog *dialog, Dice &dice, bool isLast);
    void AnswerAbout(QDialog *dialog, Dice &dice, bool isLast);
    QString SomeFile(const QFileDialog &dialog, Dice &dice) const;

    Parts parts;
    quint32 seed = 0;
    quint32 action = 0;
    quint32 turn = 0;
    bool isActing = false;
    int answered = 0;
    std::list<Visit> visits;
    int popupTicks = 0;
    int focusTicks = 0;
};

} // namespace Tesk
