#pragma once

#include "core/ResultTable.h"

#include <QObject>

namespace Tesk {

class CatalogueQueries;
class HeaderBand;
class MousePointer;

/// The one-line search of the header band: by description, or by article number.
class FastSearch final : public QObject
{
    Q_OBJECT

public:
    /// All of it outlives the search.
    FastSearch(const CatalogueQueries &queries, HeaderBand &header, MousePointer &pointer);

Q_SIGNALS:
    /// A search ran; its rows may be none.
    void NewResults(const Tesk::ResultTable &rows);

private:
    void Search();

    const CatalogueQueries &queries;
    HeaderBand &header;
    MousePointer &pointer;
};

} // namespace Tesk
