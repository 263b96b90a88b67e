#pragma once

#include <QString>
#include <QUrl>

/// The two spellings of an address: the program's, which spells paths as the disk does, and the
/// engine's, which is percent-encoded.
namespace Tesk::Address {

/// The engine's spelling of `file:///…` and `mk:@MSITStore:…` addresses; every other address is
/// taken for an encoded one. A folder or file name may hold `%`, `#` and `?`:
/// - behind `file:///`, the path reaches as far as folders and files exist on disk; what is left
///   of the last name ends at its first `?` or `#`;
/// - behind `mk:@MSITStore:`, the container reaches to the first `.chm::` and the member from
///   there to the first `?` or `#`.
/// Query and fragment are taken as they are, percent-encoded or not.
QUrl ToUrl(const QString &address);

/// The program's spelling: the path percent-decoded; query and fragment decoded but for the
/// characters that part them, so that the address leads back to the same URL.
QString FromUrl(const QUrl &url);

/// The path inside the container that an `mk` address means: begins with `/`, has `/` throughout
/// and neither `.` nor `..` in it. The container's own path does not matter and is cut off.
QString MemberPath(const QUrl &url);

/// Whether an `mk` address names a container and spells the member with `/` throughout. Relative
/// addresses lead on from no other: a page inside a container may have led to `/Dokumente/…`.
bool IsWhole(const QUrl &url);

/// The whole address of the same member in this container; query and fragment are kept.
QUrl ToWhole(const QUrl &url, const QString &containerPath);

} // namespace Tesk::Address
