#include "support/SearchForm.h"

#include "search/SearchDetail.h"
#include "support/CatalogueWindow.h"
#include "support/UserActions.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

namespace Tesk {

SearchForm::SearchForm(CatalogueWindow &catalogue)
    : catalogue(catalogue)
    , search(*catalogue.Window().ucSearchDetail)
{}

void SearchForm::Open()
{
    QTabBar *const tabs = catalogue.Window().tabMain->tabBar();
    ClickOn(tabs, tabs->tabRect(frmCatalog::SearchTab).center());
}

void SearchForm::Fill(const Fields &fields)
{
    ReplaceIn(search.tbDescription, fields.description);
    ReplaceIn(search.tbArtNr, fields.artNr);
    ReplaceIn(search.tbProductLength, fields.length);
    ReplaceIn(search.tbAuthor, fields.author);
    QRadioButton *const unit = search.rbUnit[static_cast<size_t>(fields.unit)];
    ClickOn(unit, QPoint(unit->height() / 2, unit->height() / 2));
}

void SearchForm::Submit()
{
    ClickOn(search.btnDetailSearchSubmit);
}

void SearchForm::FillCompetition(int company, const QString &number)
{
    ChooseEntry(search.cbCompany, company);
    ReplaceIn(search.tbCompanyArtNr, number);
}

void SearchForm::SubmitCompetition()
{
    ClickOn(search.btnCompetitionSearchSubmit);
}

} // namespace Tesk
