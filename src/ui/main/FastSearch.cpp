#include "ui/main/FastSearch.h"

#include "core/CatalogueQueries.h"
#include "core/StringHelper.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/MousePointer.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace Tesk {

namespace {

constexpr int ArticleNumberType = 2;
constexpr qsizetype LeastTextLength = 2;

} // namespace

FastSearch::FastSearch(const CatalogueQueries &queries, HeaderBand &header, MousePointer &pointer)
    : QObject(&header)
    , queries(queries)
    , header(header)
    , pointer(pointer)
{
    connect(header.btnFastSearch, &QPushButton::clicked, this, &FastSearch::Search);
    connect(header.tbFastSearchText, &QLineEdit::returnPressed, header.btnFastSearch,
            &QPushButton::click);
}

void FastSearch::Search()
{
    const QString text = MaskNonAscii(header.tbFastSearchText->text());
    if (text.size() < LeastTextLength)
        return;
    pointer.SetHourglass();
    const bool isByArtNr = header.cbFastSearchType->currentIndex() == ArticleNumberType;
    Q_EMIT NewResults(isByArtNr ? queries.SearchByArtNr(text) : queries.SearchByDescription(text));
    header.tbFastSearchText->clear();
}

} // namespace Tesk
