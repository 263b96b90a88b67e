#pragma once

#include <QMetaType>
#include <QString>

class QLineEdit;

namespace Tesk {

class CatalogueWindow;
class SearchDetail;

/// The tab with the detail and the competition search, filled in with mouse and keyboard.
class SearchForm final
{
public:
    struct Fields
    {
        QString description = {};
        QString artNr = {};
        QString length = {};
        QString author = {};
        int unit = 0; ///< mm, cm, inch
    };

    explicit SearchForm(CatalogueWindow &catalogue);

    void Open();
    /// All fields of the detail search: one that is empty here is emptied.
    void Fill(const Fields &fields);
    void Submit();
    /// `company` is the entry of its list, 0 for all.
    void FillCompetition(int company, const QString &number);
    void SubmitCompetition();

private:
    CatalogueWindow &catalogue;
    SearchDetail &search;
};

} // namespace Tesk

Q_DECLARE_METATYPE(Tesk::SearchForm::Fields)
