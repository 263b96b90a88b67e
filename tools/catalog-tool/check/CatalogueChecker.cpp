#include "check/CatalogueChecker.h"

#include "sources/Problems.h"

namespace Tesk {

void CheckCatalogue(const CatalogueSources &sources, Problems &problems)
{
    const qsizetype before = problems.Count();
    CheckSchema(sources, problems);
    // Without the right columns every row would only repeat what is said already.
    if (problems.Count() == before) {
        CheckCategories(sources, problems);
        CheckProducts(sources, problems);
        CheckRelations(sources, problems);
        CheckPrices(sources, problems);
        CheckDataSheetNames(sources, problems);
        CheckProductPictures(sources, problems);
        CheckHelpPages(sources, problems);
    }
    CheckLanguages(sources, problems);
    CheckContent(sources, problems);
    CheckContainer(sources, problems);
    CheckDataSheets(sources, problems);
}

} // namespace Tesk
