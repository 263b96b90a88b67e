#pragma once

#include "core/ResultTable.h"

#include <QWidget>

#include <array>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace Tesk {

class CatalogueQueries;
class LanguageSupport;

/// The search tab: the detail search over the catalogue's own products, and the search for the
/// products that correspond to a competitor's article number. Enter in a field searches.
class SearchDetail final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int UnitCount = 3;

    /// Both outlive the control.
    SearchDetail(const CatalogueQueries &queries, const LanguageSupport &languages,
                 QWidget *parent = nullptr);

    /// Captions in the current language; all fields empty, all companies chosen.
    void Initialize();

    QGroupBox *frmDetailSearch = nullptr;
    QLabel *lblDescription = nullptr;
    QLineEdit *tbDescription = nullptr;
    QLabel *lblArtNr = nullptr;
    QLineEdit *tbArtNr = nullptr;
    QLabel *lblProductLength = nullptr;
    QLineEdit *tbProductLength = nullptr;
    QLabel *lblUnit = nullptr;
    std::array<QRadioButton *, UnitCount> rbUnit{};
    QLabel *lblAuthor = nullptr;
    QLineEdit *tbAuthor = nullptr;
    QPushButton *btnDetailSearchSubmit = nullptr;

    QGroupBox *frmCompetitionSearch = nullptr;
    QLabel *lblCompany = nullptr;
    QComboBox *cbCompany = nullptr;
    QLabel *lblCompanyArtNr = nullptr;
    QLineEdit *tbCompanyArtNr = nullptr;
    QLabel *lblExamples = nullptr;
    QLabel *lblExamplesText = nullptr;
    QPushButton *btnCompetitionSearchSubmit = nullptr;

Q_SIGNALS:
    /// A search ran; its rows may be none.
    void OnNewSearchResults(const Tesk::ResultTable &results);
    /// Offered to the window beside the results; no search of this form picks a single product.
    void OnProductSelect(const QString &id);

private:
    void BuildDetailSearch();
    void BuildCompetitionSearch();
    void SearchDetails();
    void SearchCompetition();
    QString Unit() const;
    QString Words() const;

    const CatalogueQueries &queries;
    const LanguageSupport &languages;
};

} // namespace Tesk
