#pragma once

#include "browser/HtmlDocument.h"

#include <QList>
#include <QString>

/// The scripts that run in the pages' own world.
namespace Tesk::PageScript {

/// The script that runs in every main document before anything else (PageChannel.h). It reports
/// `<token>document:<id>`, `<token>loaded:<id>` and `<token>status:<text>` on the console.
QString OnDocumentCreation(const QString &token);

/// Makes the changes if the document is still the one of this id. The result is -1 when all were
/// made, -2 in another document, or else the index of the change whose element is missing.
QString ForChanges(const QString &documentId, const QList<ElementChange> &changes);

constexpr int AllChangesMade = -1;
constexpr int OtherDocument = -2;

} // namespace Tesk::PageScript
