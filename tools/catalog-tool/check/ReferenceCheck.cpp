#include "check/ReferenceCheck.h"

#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sources/References.h"

namespace Tesk {

void CheckReferences(const CatalogueSources &sources, const QString &source, const QString &path,
                     const QSet<QString> &targets, Problems &problems)
{
    if (!source.endsWith(QLatin1String(".html")) && !source.endsWith(QLatin1String(".css")))
        return;
    for (const Reference &reference : FindReferences(sources.Bytes(source), path)) {
        if (!targets.contains(reference.target))
            problems.Add(source, reference.line,
                         QStringLiteral("\"%1\" leads to \"%2\", which is no file of the "
                                        "catalogue; correct the reference or add the file")
                             .arg(reference.text, reference.target));
    }
}

} // namespace Tesk
