#pragma once

#include <QList>
#include <QString>

namespace Tesk {

class CatalogueSources;

/// A data sheet and the source that it is made from.
struct DataSheet
{
    QString fileName;       ///< in the folder `PDF`
    QString source;         ///< relative to the sources
    bool isPrinted = false; ///< from HTML; otherwise the PDF file is taken as it is

    /// The article number under which the program offers the sheet: the name without its ending,
    /// '_' read as a blank, '-' as '/', in upper case.
    QString ArticleNumber() const;
};

/// The files `<name>.html` and `<name>.pdf` in the folder of data sheets itself; its subfolders
/// hold what they need.
QList<DataSheet> PlanDataSheets(const CatalogueSources &sources);

} // namespace Tesk
