#pragma once

#include "browser/HtmlDocument.h"

#include <QList>
#include <QString>

/// The scripts that run in the pages' own world.
namespace Tesk::PageScript {

/// Runs in every main document before anything else. It gives the document an id, which later
/// changes are checked against, and lets the page set `window.status`, which the engine ignores.
/// Both reach the program as console messages `<token>document:<id>` and `<token>status:<text>`:
/// the console keeps the order among them and towards navigations, and drops nothing.
QString OnDocumentCreation(const QString &token);

/// Makes the changes if the document is still the one of this id. The result is -1 when all were
/// made, -2 in another document, or else the index of the change whose element is missing.
QString ForChanges(const QString &documentId, const QList<ElementChange> &changes);

constexpr int allChangesMade = -1;
constexpr int otherDocument = -2;

} // namespace Tesk::PageScript
