#pragma once

#include <QString>

namespace Tesk::Statements {

// The statements by which the catalogue is read. Arguments go into the text as they are. `code` is
// a language code, ids are decimal text, patterns are those of LIKE.

QString Categories(const QString &code);
QString ProductsOfCategory(const QString &code, const QString &categoryId);
QString SetMembers(const QString &code, const QString &setId);
QString Product(const QString &code, const QString &productId);
QString ProductIdsByArtNr(const QString &pattern);
QString ProductIdsByRefNo(const QString &pattern);
QString ArtNrsByRefNo(const QString &pattern);
QString SingleProductCount(const QString &categoryId);
/// `whereClause`: WHERE and its condition, see SearchConditionOf.
QString ProductSearch(const QString &code, const QString &whereClause);
/// An empty company finds the reference numbers of all companies.
QString Competition(const QString &code, const QString &referenceNumber, const QString &company);
/// `artNr` as NormaliseArtNr gives it.
QString ProductsByArtNr(const QString &code, const QString &artNr);

} // namespace Tesk::Statements
