#pragma once

#include <QByteArray>
#include <QString>

namespace Tesk {

class PageUser;

/// The pages that the benchmark compares with.
enum class SavedPage { Welcome, List, Cart, LongCart };

/// Where the bare window finds the page.
QByteArray AddressOf(SavedPage page);

/// Saves the page that is shown, as it stands, with the styles and pictures that it refers to.
/// `container` is the file that it takes pictures from.
void Save(SavedPage page, PageUser &shown, const QString &container);

/// Lays the folder ready that the pages are saved in, with what all of them refer to.
void PrepareSavedPages(const QString &applicationDirectory);

} // namespace Tesk
