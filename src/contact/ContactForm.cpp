#include "contact/ContactForm.h"

#include "contact/CheckList.h"
#include "core/Registry.h"
#include "core/queries/Trim.h"
#include "widgets/FieldColour.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <algorithm>

namespace Tesk {

namespace {

constexpr QLatin1String PersonName("PersonName");
constexpr QLatin1String InstTypeSetting("CustomerInstType");
constexpr QLatin1String TitleSetting("Title");

constexpr int InstTypeCount = 4;
constexpr int RequestInfoCount = 13;
constexpr int RequestInfoColumns = 2;
constexpr int ContactOverCount = 3;

// Pixels.
constexpr int ColumnGap = 24;
constexpr int Gap = 8;
constexpr int LeastFieldWidth = 140;
constexpr QSize LeastNotesSize(300, 60);

enum Column { LabelColumn, MarkerColumn, FieldColumn };

bool IsEmpty(const QString &text)
{
    return TrimSpaces(text).isEmpty();
}

QString MailLine(const QString &label, const QString &text)
{
    return label + text + QLatin1String("\r\n");
}

/// What a text box of one line shows: a line break that was pasted into it is a blank there.
QString OneLine(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar &character : text) {
        const bool isBreak =
            character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (character < u' ' || isBreak)
            character = u' ';
    }
    return text;
}

bool IsFilled(const QLineEdit *field)
{
    return !IsEmpty(OneLine(field->text()));
}

QLabel *AddHint(QBoxLayout *rows, QWidget *parent, const QString &name)
{
    auto *const hint = new QLabel(parent);
    hint->setObjectName(name);
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    // Its lines break where the fields end; it does not make the form wider.
    QSizePolicy policy = hint->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Ignored);
    hint->setSizePolicy(policy);
    rows->addWidget(hint);
    return hint;
}

CheckList *AddList(QBoxLayout *rows, QWidget *parent, const QString &boxName, int boxCount,
                   int columnCount)
{
    auto *const list = new CheckList(boxName, boxCount, columnCount, parent);
    rows->addWidget(list);
    return list;
}

} // namespace

ContactForm::ContactForm(ContactKind kind, const ContactServices &contactServices, QWidget *parent)
    : QWidget(parent)
    , kind(kind)
    , services(contactServices)
    , InstType(new QComboBox(this))
{
    auto *const columns = new QHBoxLayout(this);
    columns->setSpacing(ColumnGap);
    auto *const left = new QVBoxLayout;
    auto *const right = new QVBoxLayout;
    for (QBoxLayout *const column : {left, right})
        column->setSpacing(Gap);
    // An address needs the room more than the notes, which wrap.
    columns->addLayout(left, 3);
    columns->addLayout(right, 2);

    auto *const grid = new QGridLayout;
    grid->setSpacing(Gap);
    left->addLayout(grid);
    BuildAddress(grid);
    HintRecommended = AddHint(left, this, QStringLiteral("HintRecommended"));
    left->addStretch(1);

    const ContactTraits traits = TraitsOf(kind);
    if (traits.hasLists) {
        RequestInfoItems = AddList(right, this, QStringLiteral("RequestInfoItems"),
                                   RequestInfoCount, RequestInfoColumns);
        ContactOver = AddList(right, this, QStringLiteral("ContactOver"), ContactOverCount, 1);
    }
    Contact = new QGroupBox(this);
    Contact->setObjectName(QStringLiteral("Contact"));
    ContactNotes = new QPlainTextEdit(Contact);
    ContactNotes->setObjectName(QStringLiteral("ContactNotes"));
    ContactNotes->setTabChangesFocus(true);
    ContactNotes->setMinimumSize(LeastNotesSize);
    // It takes the height that the other fields leave.
    ContactNotes->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    (new QVBoxLayout(Contact))->addWidget(ContactNotes);
    right->addWidget(Contact, 1);
    if (traits.hasHint)
        Hint = AddHint(right, this, QStringLiteral("Hint"));
}

void ContactForm::BuildAddress(QGridLayout *grid)
{
    grid->setColumnStretch(FieldColumn, 1);
    InstType->setObjectName(QStringLiteral("InstType"));
    // Scrolling past the list with the wheel must not choose another type.
    InstType->setFocusPolicy(Qt::StrongFocus);
    InstType->installEventFilter(this);
    InstType->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    InstType->setMinimumWidth(LeastFieldWidth);
    InstTypeLabel = AddLabel(grid, InstType);
    for (const ContactField &field : FieldsOf(kind)) {
        if (field.name == PersonName)
            BuildTitle(grid);
        BuildLine(grid, field);
    }
}

void ContactForm::BuildTitle(QGridLayout *grid)
{
    auto *const options = new QWidget(this);
    auto *const row = new QHBoxLayout(options);
    row->setContentsMargins(0, 0, 0, 0);
    for (size_t i = 0; i < Title.size(); ++i) {
        Title[i] = new QRadioButton(options);
        Title[i]->setObjectName(QStringLiteral("Title%1").arg(i));
        row->addWidget(Title[i]);
    }
    row->addStretch(1);
    grid->addWidget(options, grid->rowCount(), FieldColumn);
}

void ContactForm::BuildLine(QGridLayout *grid, const ContactField &field)
{
    auto *const control = new QLineEdit(this);
    control->setObjectName(field.name);
    control->setMinimumWidth(LeastFieldWidth);
    QLabel *const label = AddLabel(grid, control);
    lines.push_back({field, label, control});
    if (!field.isMandatory)
        return;
    // A field that was found empty is in order again as soon as it is filled.
    connect(control, &QLineEdit::textEdited, this, [control] {
        if (ShowsFieldError(control) && IsFilled(control))
            ShowFieldError(control, false);
    });
    auto *const marker = new QLabel(QStringLiteral("*"), this);
    marker->setObjectName(QStringLiteral("MandatoryFieldMarker"));
    grid->addWidget(marker, grid->rowCount() - 1, MarkerColumn);
}

QLabel *ContactForm::AddLabel(QGridLayout *grid, QWidget *field)
{
    auto *const label = new QLabel(this);
    label->setObjectName(field->objectName() + QLatin1String("Label"));
    label->setBuddy(field);
    const int row = grid->rowCount();
    grid->addWidget(label, row, LabelColumn);
    grid->addWidget(field, row, FieldColumn);
    return label;
}

QString ContactForm::Text(QLatin1String key) const
{
    return services.getText(key);
}

QStringList ContactForm::NumberedTexts(QLatin1String key, int count) const
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts += services.getText(key + QString::number(i));
    return texts;
}

QString ContactForm::TitleCaption() const
{
    return Text(Title[1]->isChecked() ? QLatin1String("ucContactTitle_1")
                                      : QLatin1String("ucContactTitle_0"));
}

void ContactForm::SetCaptions()
{
    const auto multiLine = [this](const char *key) {
        return Text(QLatin1String(key)).replace(QLatin1String("{nl}"), QLatin1String("\r\n"));
    };
    InstTypeLabel->setText(Text(QLatin1String("ucContactInstType")));
    InstType->clear();
    InstType->addItems(NumberedTexts(QLatin1String("ucContactInstType_"), InstTypeCount));
    InstType->setCurrentIndex(0);
    for (const Line &line : lines)
        line.label->setText(Text(line.field.captionKey));
    const QStringList titles = NumberedTexts(QLatin1String("ucContactTitle_"), 2);
    for (size_t i = 0; i < Title.size(); ++i)
        Title[i]->setText(titles[static_cast<qsizetype>(i)]);
    HintRecommended->setText(multiLine("ucContactHintRecommended"));
    Contact->setTitle(Text(QLatin1String("ucContactCaption_Notes")));
    ContactNotes->setAccessibleName(Contact->title());
    if (RequestInfoItems)
        RequestInfoItems->SetCaptions(
            Text(QLatin1String("ucContactCaption_RequestedInfo")),
            NumberedTexts(QLatin1String("ucContactCaption_RequestedInfo_"), RequestInfoCount));
    if (ContactOver)
        ContactOver->SetCaptions(
            Text(QLatin1String("ucContactCaption_ContactOver")),
            NumberedTexts(QLatin1String("ucContactCaption_ContactOver_"), ContactOverCount));
    if (Hint)
        Hint->setText(multiLine("ucContactHint"));
}

void ContactForm::Load()
{
    const auto stored = [this](QLatin1String name) {
        return name.isEmpty() ? QString() : services.settings.RegGetString(SettingsKey, name);
    };
    bool isNumber = false;
    const int index = stored(InstTypeSetting).toInt(&isNumber);
    if (isNumber && index >= 0 && index < InstType->count())
        InstType->setCurrentIndex(index);
    for (const Line &line : lines) {
        line.control->setText(stored(line.field.storedAs));
        line.control->setCursorPosition(0);
        line.control->setPalette(QPalette());
    }
    Title[stored(TitleSetting) == QLatin1String("1") ? 1 : 0]->setChecked(true);
    for (CheckList *const list : {RequestInfoItems, ContactOver}) {
        if (list)
            list->UncheckAll();
    }
    ContactNotes->clear();
}

void ContactForm::Store() const
{
    const auto store = [this](QLatin1String name, const QString &text) {
        services.settings.RegSetString(SettingsKey, name, text);
    };
    store(InstTypeSetting, QString::number(InstType->currentIndex()));
    for (const Line &line : lines) {
        if (line.field.name == PersonName)
            store(TitleSetting, QString::number(Title[1]->isChecked() ? 1 : 0));
        if (!line.field.storedAs.isEmpty())
            store(line.field.storedAs, OneLine(line.control->text()));
    }
}

QWidget *ContactForm::Validate()
{
    QWidget *firstFaulty = nullptr;
    for (const Line &line : lines) {
        if (!line.field.isMandatory)
            continue;
        const bool isFaulty = !IsFilled(line.control);
        ShowFieldError(line.control, isFaulty);
        if (isFaulty && !firstFaulty)
            firstFaulty = line.control;
    }
    return firstFaulty;
}

QString ContactForm::Body() const
{
    QString body = MailLine(QStringLiteral("Art der Institution: "), InstType->currentText());
    const auto addOptional = [&body](const QString &label, const QString &text) {
        if (!IsEmpty(text))
            body += MailLine(label, text);
    };
    for (const Line &line : lines) {
        const QString text = OneLine(line.control->text());
        if (line.field.name == PersonName)
            body += MailLine(TitleCaption() + u' ', text);
        else if (line.field.isMandatory)
            body += MailLine(line.field.mailLabel, text);
        else
            addOptional(line.field.mailLabel, text);
    }
    const auto addList = [&body](const CheckList *list, const QString &label) {
        if (!list)
            return;
        const QStringList checked = list->CheckedCaptions();
        body += MailLine(checked.isEmpty() ? QString() : label, checked.join(u','));
    };
    addList(RequestInfoItems, QStringLiteral("Ich benötige: "));
    addList(ContactOver, QStringLiteral("Ich bitte um: "));
    addOptional(QStringLiteral("Bemerkungen: "),
                ContactNotes->toPlainText().replace(u'\n', QLatin1String("\r\n")));
    return body;
}

void ContactForm::FocusFirstField()
{
    InstType->setFocus();
}

bool ContactForm::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel && watched == InstType && !InstType->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace Tesk
