#include "core/ContentAddresses.h"

#include <algorithm>

namespace Tesk::ContentAddresses {

namespace {

constexpr QLatin1Char Slash('/');
constexpr QLatin1Char Backslash('\\');
constexpr QLatin1String PdfEnding(".pdf");

bool StartsAtRoot(const QString &directory)
{
    return directory.startsWith(Slash);
}

/// The prefix of an address whose path follows as WithSlashes spells it.
QLatin1String FilePrefix(const QString &directory)
{
    // A path from the root brings the third slash with it.
    return StartsAtRoot(directory) ? QLatin1String("file://") : QLatin1String("file:///");
}

QString WithSlashes(QString directory)
{
    // Below the root a backslash is a character like any other.
    return StartsAtRoot(directory) ? directory : directory.replace(Backslash, Slash);
}

QString WithoutLast(QString text, QLatin1Char last)
{
    if (text.endsWith(last))
        text.chop(1);
    return text;
}

} // namespace

QString ContentBase(const QString &directory)
{
    return WithoutLast(FilePrefix(directory) + WithSlashes(directory), Slash);
}

QString ResourceBase(const QString &directory)
{
    const QLatin1Char separator = StartsAtRoot(directory) ? Slash : Backslash;
    return QLatin1String("mk:@MSITStore:") + WithoutLast(directory, separator) + separator +
           QLatin1String("resources.chm::");
}

QString PdfDocument(const QString &directory, const QString &fileName)
{
    QString path = WithSlashes(directory) + QLatin1String("/PDF/") + fileName;
    path.replace(QLatin1String("//"), QLatin1String("/"));
    return FilePrefix(directory) + path;
}

bool IsPdfFile(const QString &fileName)
{
    return fileName.endsWith(PdfEnding);
}

QString PdfKey(const QString &fileName)
{
    QString key = fileName.chopped(PdfEnding.size());
    key.replace(QLatin1Char('_'), QLatin1Char(' '));
    key.replace(QLatin1Char('-'), Slash);
    std::transform(key.begin(), key.end(), key.begin(),
                   [](QChar letter) { return letter.toUpper(); });
    return key;
}

} // namespace Tesk::ContentAddresses
