#pragma once

#include "contact/ContactFields.h"
#include "contact/ContactServices.h"

#include <QWidget>

#include <array>
#include <vector>

class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;

namespace Tesk {

class CheckList;

/// The fields of a contact dialog: the customer's data, kept between the runs of the program, and
/// what belongs to this one message.
class ContactForm final : public QWidget
{
    Q_OBJECT

public:
    ContactForm(ContactKind kind, const ContactServices &contactServices,
                QWidget *parent = nullptr);

    /// The message's text from the fields, lines end with CR LF.
    QString Body() const;

    /// All captions in the current language; the type of institution starts at its first entry.
    void SetCaptions();
    /// Fills in what is kept, empties the rest and takes the colours back.
    void Load();
    /// Keeps the customer's data.
    void Store() const;
    /// Colours the mandatory fields, light red those that hold nothing but blanks until the user
    /// fills them. Gives the first of these, or null.
    QWidget *Validate();
    void FocusFirstField();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Line
    {
        ContactField field;
        QLabel *label;
        QLineEdit *control;
    };

    void BuildAddress(QGridLayout *grid);
    void BuildTitle(QGridLayout *grid);
    void BuildLine(QGridLayout *grid, const ContactField &field);
    QLabel *AddLabel(QGridLayout *grid, QWidget *field);
    QString Text(QLatin1String key) const;
    QStringList NumberedTexts(QLatin1String key, int count) const;
    QString TitleCaption() const;

    ContactKind kind;
    ContactServices services;
    QComboBox *InstType;
    QLabel *InstTypeLabel = nullptr;
    std::array<QRadioButton *, 2> Title{};
    std::vector<Line> lines;
    QLabel *HintRecommended;
    /// Null in the dialogs without them.
    CheckList *RequestInfoItems = nullptr;
    CheckList *ContactOver = nullptr;
    QGroupBox *Contact;
    QPlainTextEdit *ContactNotes;
    QLabel *Hint = nullptr;
};

} // namespace Tesk
