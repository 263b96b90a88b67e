#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace Tesk {

class CatalogueSources;

/// A file of the container and the source that it is made from.
struct ContainerMember
{
    QString path;     ///< inside the container, without a leading '/'
    QString source;   ///< relative to the sources
    double width = 0; ///< for drawings the largest width in CSS pixels; 0: the file as it is

    /// The member's bytes. Throws FileError for a source that cannot be read or drawn.
    QByteArray Bytes(const CatalogueSources &sources) const;
};

/// Everything that the container holds: documents at Dokumente/, drawings and pictures small at
/// Grafiken/klein/ and large at Grafiken/gross/.
QList<ContainerMember> PlanContainer(const CatalogueSources &sources);

} // namespace Tesk
