#include "core/CatalogueVersion.h"

#include "base/CodePage.h"
#include "base/Errors.h"

#include <QDir>
#include <QFile>

namespace Tesk {

QString ReadCatalogueVersion(const QString &applicationDirectory)
{
    QFile file(applicationDirectory + QLatin1String("/version"));
    QByteArray line;
    if (file.open(QIODevice::ReadOnly))
        line = file.readLine();
    if (file.error() != QFileDevice::NoError)
        throw FileError(QStringLiteral("The file \"%1\" cannot be read: %2. Put back the file, one "
                                       "line with the catalogue's version.")
                            .arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line.isEmpty() ? UnknownVersion : CodePage::FromBytes(line);
}

} // namespace Tesk
