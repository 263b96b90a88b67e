#pragma once

#include <QString>

namespace Tesk::PageAddress {

// Parameters of a page address are read by the places of "=" and "&" behind the "?" alone (in the
// whole address when it has none); their names do not count.

/// The text behind the last "="; the whole address without one.
QString Id(const QString &address);

/// The number between the first "=" and the first "&". Throws ConversionError when there is none.
qint16 FirstItem(const QString &address);

/// The address of the same document in another language: the two letters behind the first "_" that
/// follows the document folder become `languageCode`. An address outside that folder, or without a
/// "_" in it, comes back unchanged.
QString InLanguage(const QString &address, const QString &languageCode);

} // namespace Tesk::PageAddress
