#pragma once

#include <QString>

/// The addresses of what lies in the application directory. The directory may be spelled with a
/// drive ("C:\Catalog") or from the root ("/opt/Catalog"), with or without a separator at its end.
/// Characters stay as they are spelled on disk, blanks included.
namespace Tesk::ContentAddresses {

/// `file:///` and the directory, "/" separators, no "/" at its end: "file:///C:/Catalog",
/// "file:///opt/Catalog".
QString ContentBase(const QString &directory);

/// `mk:@MSITStore:` and the path of resources.chm, the directory's own separators, and "::".
QString ResourceBase(const QString &directory);

/// The `file:///` address of a document in the directory's folder PDF.
QString PdfDocument(const QString &directory, const QString &fileName);

/// Whether the name ends in ".pdf", spelled like this.
bool IsPdfFile(const QString &fileName);

/// The key under which a data sheet is found: the name without its ending, "_" read as a blank and
/// "-" as "/", in upper case letter by letter, so that "ß" stays: "ab-12_x.pdf" → "AB/12 X".
QString PdfKey(const QString &fileName);

} // namespace Tesk::ContentAddresses
