#pragma once

namespace Tesk {

class CatalogueSources;
class Problems;

/// Everything about the sources that the program could stumble over and of which nobody would be
/// told at run time. Each check adds a problem for every fault that it finds.
void CheckCatalogue(const CatalogueSources &sources, Problems &problems);

// The checks one by one.

/// Tables and columns that the program's statements name; a column for every cell.
void CheckSchema(const CatalogueSources &sources, Problems &problems);

// These presume that CheckSchema() found nothing.

/// Ids, titles in all languages, parents before children in the order of the sort keys.
void CheckCategories(const CatalogueSources &sources, Problems &problems);
/// Ids, article numbers, numbers, names in all languages.
void CheckProducts(const CatalogueSources &sources, Problems &problems);
/// Products in their categories, sets and their members, competitors' reference numbers.
void CheckRelations(const CatalogueSources &sources, Problems &problems);
/// One price for an article number that exists.
void CheckPrices(const CatalogueSources &sources, Problems &problems);
/// Each data sheet belongs to an article number.
void CheckDataSheetNames(const CatalogueSources &sources, Problems &problems);
/// The pictures that products name.
void CheckProductPictures(const CatalogueSources &sources, Problems &problems);
/// The help pages that products name, in all languages.
void CheckHelpPages(const CatalogueSources &sources, Problems &problems);

// These need no tables.

/// The same keys in all languages, all that the program looks up; texts that fit their place.
void CheckLanguages(const CatalogueSources &sources, Problems &problems);
/// The page templates, the elements and pictures that the program names on them.
void CheckContent(const CatalogueSources &sources, Problems &problems);
/// Documents, drawings and pictures: names, form, references, a welcome page in all languages.
void CheckContainer(const CatalogueSources &sources, Problems &problems);
/// The data sheets' pictures.
void CheckDataSheets(const CatalogueSources &sources, Problems &problems);

} // namespace Tesk
