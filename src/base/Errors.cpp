#include "base/Errors.h"

namespace Tesk {

CatalogueError::CatalogueError(const QString &message)
    : std::runtime_error(message.toStdString())
{}

QString CatalogueError::Message() const
{
    return QString::fromUtf8(what());
}

} // namespace Tesk
