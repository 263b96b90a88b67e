#pragma once

#include "support/CatalogueWindow.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace Tesk {

// What the page shown tells its reader.

/// The visible text of an element; null without it.
QString InnerText(CatalogueWindow &catalogue, const QString &elementId);
/// The headline of a category or list page.
QString ShownCaption(CatalogueWindow &catalogue);
/// The number of products that a list page shows.
int RowCount(CatalogueWindow &catalogue);
/// Their article numbers, from top to bottom.
QStringList ShownArtNrs(CatalogueWindow &catalogue);

/// Runs the action and waits until a category, list or details page has been filled after it. Tells
/// pages apart that have equal addresses, such as the hits of two searches.
bool WaitForFillAfter(CatalogueWindow &catalogue, const std::function<void()> &action);

} // namespace Tesk
