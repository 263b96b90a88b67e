#include "MonkeyActions.h"

#include "Dice.h"
#include "MonkeySession.h"
#include "RandomTexts.h"

#include "search/SearchDetail.h"
#include "support/SearchForm.h"
#include "support/UserActions.h"
#include "ui/main/HeaderBand.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace Tesk {

namespace {

void SearchFast(MonkeySession &session, Dice &dice)
{
    const HeaderBand &header = *session.Window().header;
    const QString text = RandomTexts::SearchText(dice);
    session.findings.Note(text);
    ChooseEntry(header.cbFastSearchType, dice.Below(2));
    ReplaceIn(header.tbFastSearchText, text);
    if (dice.OneIn(2))
        ClickOn(header.btnFastSearch);
    else
        PressKey(header.tbFastSearchText, Qt::Key_Return);
}

void SearchDetails(MonkeySession &session, Dice &dice)
{
    const auto text = [&dice] { return dice.OneIn(2) ? QString() : RandomTexts::SearchText(dice); };
    SearchForm form(session.catalogue);
    form.Open();
    SearchForm::Fields fields;
    fields.description = text();
    fields.artNr = text();
    fields.length = dice.OneIn(3) ? RandomTexts::AnyAmount(dice).text : QString();
    fields.author = dice.OneIn(4) ? text() : QString();
    fields.unit = dice.Below(SearchDetail::UnitCount);
    session.findings.Note(
        QStringList{fields.description, fields.artNr, fields.length, fields.author}.join(u'/'));
    form.Fill(fields);
    if (!dice.OneIn(5))
        form.Submit();
}

void SearchCompetition(MonkeySession &session, Dice &dice)
{
    const QString text = RandomTexts::SearchText(dice);
    session.findings.Note(text);
    SearchForm form(session.catalogue);
    form.Open();
    form.FillCompetition(dice.Below(session.Window().ucSearchDetail->cbCompany->count()), text);
    form.SubmitCompetition();
}

} // namespace

std::vector<MonkeyAction> ActionsInSearches()
{
    return {{"search by the field at the top", 6, false, SearchFast},
            {"search for details", 5, false, SearchDetails},
            {"search for a competitor's number", 3, false, SearchCompetition}};
}

} // namespace Tesk
