#pragma once

#include <QSet>
#include <QString>

namespace Tesk {

class CatalogueSources;
class Problems;

/// What a page or style sheet refers to has to be among `targets`. `source` is its file among the
/// sources, `path` its place below the root that the targets stand under. Other files pass.
void CheckReferences(const CatalogueSources &sources, const QString &source, const QString &path,
                     const QSet<QString> &targets, Problems &problems);

} // namespace Tesk
