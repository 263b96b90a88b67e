#include "search/SearchDetail.h"

#include "core/CatalogueQueries.h"
#include "core/LanguageSupport.h"
#include "core/StringHelper.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcut>

namespace Tesk {

namespace {

// The units stand in the search's own words, the companies as the reference numbers name them.
const std::array<QString, SearchDetail::UnitCount> Units{QStringLiteral("mm"), QStringLiteral("cm"),
                                                         QStringLiteral("inch")};
const QStringList Companies{QStringLiteral("Varnholt"), QStringLiteral("Dorvik"),
                            QStringLiteral("Salvora")};
const QString ExamplesText =
    QStringLiteral("Varnholt  BH 020\r\nDorvik  13-120-08\r\nSalvora  15.10.38");

constexpr int FormWidth = 620; // pixels
constexpr int Margin = 24;     // pixels, around the form
constexpr qsizetype LeastNumberLength = 2;

QLabel *AddRow(QGridLayout *grid, QWidget *field, const QString &labelName)
{
    auto *const label = new QLabel(field->parentWidget());
    label->setObjectName(labelName);
    label->setBuddy(field);
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
    return label;
}

QLineEdit *AddField(QWidget *parent, const QString &name)
{
    auto *const field = new QLineEdit(parent);
    field->setObjectName(name);
    return field;
}

QPushButton *AddSubmit(QGridLayout *grid, QWidget *parent, const QString &name)
{
    auto *const button = new QPushButton(parent);
    button->setObjectName(name);
    button->setAutoDefault(true);
    grid->addWidget(button, grid->rowCount(), 1, Qt::AlignRight);
    return button;
}

/// For what ignores the Enter key outside dialogs.
void SubmitByEnter(QWidget *control, QPushButton *submit)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        QObject::connect(new QShortcut(key, control, nullptr, nullptr, Qt::WidgetShortcut),
                         &QShortcut::activated, submit, &QPushButton::click);
}

} // namespace

SearchDetail::SearchDetail(const CatalogueQueries &queries, const LanguageSupport &languages,
                           QWidget *parent)
    : QWidget(parent)
    , queries(queries)
    , languages(languages)
{
    auto *const area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // Its fields are the stops; the area scrolls to them by itself.
    area->setFocusPolicy(Qt::NoFocus);
    auto *const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(area);

    auto *const form = new QWidget;
    auto *const columns = new QHBoxLayout(form);
    columns->setContentsMargins(Margin, Margin, Margin, Margin);
    auto *const rows = new QVBoxLayout;
    rows->setSpacing(Margin);
    columns->addLayout(rows, 1);
    columns->addStretch(0);
    frmDetailSearch = new QGroupBox(form);
    frmCompetitionSearch = new QGroupBox(form);
    for (QGroupBox *const frame : {frmDetailSearch, frmCompetitionSearch}) {
        frame->setMaximumWidth(FormWidth);
        rows->addWidget(frame);
    }
    rows->addStretch(1);
    BuildDetailSearch();
    BuildCompetitionSearch();
    area->setWidget(form);
    setFocusProxy(tbDescription);
}

void SearchDetail::BuildDetailSearch()
{
    auto *const grid = new QGridLayout(frmDetailSearch);
    grid->setColumnStretch(1, 1);
    tbDescription = AddField(frmDetailSearch, QStringLiteral("tbDescription"));
    lblDescription = AddRow(grid, tbDescription, QStringLiteral("lblDescription"));
    tbArtNr = AddField(frmDetailSearch, QStringLiteral("tbArtNr"));
    lblArtNr = AddRow(grid, tbArtNr, QStringLiteral("lblArtNr"));
    tbProductLength = AddField(frmDetailSearch, QStringLiteral("tbProductLength"));
    lblProductLength = AddRow(grid, tbProductLength, QStringLiteral("lblProductLength"));

    auto *const units = new QWidget(frmDetailSearch);
    auto *const unitRow = new QHBoxLayout(units);
    unitRow->setContentsMargins(0, 0, 0, 0);
    for (size_t i = 0; i < rbUnit.size(); ++i) {
        rbUnit[i] = new QRadioButton(Units[i], units);
        rbUnit[i]->setObjectName(QStringLiteral("rbUnit%1").arg(i));
        unitRow->addWidget(rbUnit[i]);
    }
    unitRow->addStretch(1);
    rbUnit.front()->setChecked(true);
    lblUnit = AddRow(grid, units, QStringLiteral("lblUnit"));
    lblUnit->setBuddy(rbUnit.front());

    tbAuthor = AddField(frmDetailSearch, QStringLiteral("tbAuthor"));
    lblAuthor = AddRow(grid, tbAuthor, QStringLiteral("lblAuthor"));
    btnDetailSearchSubmit =
        AddSubmit(grid, frmDetailSearch, QStringLiteral("btnDetailSearchSubmit"));

    connect(btnDetailSearchSubmit, &QPushButton::clicked, this, &SearchDetail::SearchDetails);
    for (QLineEdit *const field : {tbDescription, tbArtNr, tbProductLength, tbAuthor})
        connect(field, &QLineEdit::returnPressed, btnDetailSearchSubmit, &QPushButton::click);
    for (QRadioButton *const option : rbUnit)
        SubmitByEnter(option, btnDetailSearchSubmit);
}

void SearchDetail::BuildCompetitionSearch()
{
    auto *const grid = new QGridLayout(frmCompetitionSearch);
    grid->setColumnStretch(1, 1);
    cbCompany = new QComboBox(frmCompetitionSearch);
    cbCompany->setObjectName(QStringLiteral("cbCompany"));
    lblCompany = AddRow(grid, cbCompany, QStringLiteral("lblCompany"));
    tbCompanyArtNr = AddField(frmCompetitionSearch, QStringLiteral("tbCompanyArtNr"));
    lblCompanyArtNr = AddRow(grid, tbCompanyArtNr, QStringLiteral("lblCompanyArtNr"));
    lblExamplesText = new QLabel(frmCompetitionSearch);
    lblExamplesText->setTextFormat(Qt::PlainText);
    lblExamples = AddRow(grid, lblExamplesText, QStringLiteral("lblExamples"));
    lblExamples->setBuddy(nullptr);
    lblExamples->setAlignment(Qt::AlignTop);
    btnCompetitionSearchSubmit =
        AddSubmit(grid, frmCompetitionSearch, QStringLiteral("btnCompetitionSearchSubmit"));

    connect(btnCompetitionSearchSubmit, &QPushButton::clicked, this,
            &SearchDetail::SearchCompetition);
    connect(tbCompanyArtNr, &QLineEdit::returnPressed, btnCompetitionSearchSubmit,
            &QPushButton::click);
    SubmitByEnter(cbCompany, btnCompetitionSearchSubmit);
}

void SearchDetail::Initialize()
{
    const auto text = [this](const char *key) { return languages.GetText(QLatin1String(key)); };
    frmDetailSearch->setTitle(text("ucSearchDetailHeadline"));
    lblDescription->setText(text("ucSearchDetailDescription"));
    lblProductLength->setText(text("ucSearchDetailProductLength"));
    lblArtNr->setText(text("ucSearchDetailArtNr"));
    lblUnit->setText(text("ucSearchDetailUnit"));
    lblAuthor->setText(text("ucSearchDetailAuthor"));
    btnDetailSearchSubmit->setText(text("ucSearchDetailSubmit"));
    frmCompetitionSearch->setTitle(text("ucSearchDetailCompetition"));
    lblCompany->setText(text("ucSearchDetailCompany"));
    lblCompanyArtNr->setText(text("ucSearchDetailCompanyArtNr"));
    lblExamples->setText(text("ucSearchDetailExamples"));
    lblExamplesText->setText(ExamplesText);
    btnCompetitionSearchSubmit->setText(text("ucSearchDetailSubmit"));

    cbCompany->clear();
    cbCompany->addItem(text("ucSearchDetailAllCompanies"));
    cbCompany->addItems(Companies);
    cbCompany->setCurrentIndex(0);
    for (QLineEdit *const field :
         {tbDescription, tbArtNr, tbAuthor, tbProductLength, tbCompanyArtNr})
        field->clear();
}

QString SearchDetail::Unit() const
{
    for (const QRadioButton *const option : rbUnit) {
        if (option->isChecked())
            return option->text().toLower();
    }
    return Units.front();
}

QString SearchDetail::Words() const
{
    QString words = MaskNonAscii(tbDescription->text().trimmed());
    const QString author = tbAuthor->text().trimmed();
    if (!author.isEmpty()) {
        if (!words.isEmpty())
            words += u' ';
        words += author;
    }
    return words;
}

void SearchDetail::SearchDetails()
{
    const QString words = Words();
    if (words.isEmpty() && tbProductLength->text().isEmpty() && tbArtNr->text().isEmpty())
        return;
    Q_EMIT OnNewSearchResults(
        queries.SearchProducts(words, tbArtNr->text(), tbProductLength->text(), Unit(), false));
}

void SearchDetail::SearchCompetition()
{
    if (tbCompanyArtNr->text().size() < LeastNumberLength)
        return;
    const QString company = cbCompany->currentIndex() == 0 ? QString() : cbCompany->currentText();
    const QString number = tbCompanyArtNr->text().remove(u' ');
    Q_EMIT OnNewSearchResults(queries.SearchCompetition(number, company));
}

} // namespace Tesk
