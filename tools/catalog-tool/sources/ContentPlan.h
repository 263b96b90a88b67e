#pragma once

#include <QList>
#include <QString>

namespace Tesk {

class CatalogueSources;

/// A file of the folder `content` and the source that it is made from.
struct ContentFile
{
    QString path;            ///< inside the application directory, "content/…"
    QString source;          ///< relative to the sources
    bool isRendered = false; ///< a vector drawing that becomes a GIF picture
};

/// Everything of `content` but the language files. Vector drawings below content/img become
/// pictures; all else is taken as it is.
QList<ContentFile> PlanContent(const CatalogueSources &sources);

} // namespace Tesk
