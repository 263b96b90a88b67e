#include "base/TextLines.h"

#include "base/CodePage.h"
#include "base/Errors.h"

#include <QDir>
#include <QFile>

namespace Tesk {

namespace {

QByteArray ReadAll(const QString &fileName, const QString &advice)
{
    QFile file(fileName);
    QByteArray bytes;
    bool isRead = file.open(QIODevice::ReadOnly);
    if (isRead) {
        bytes = file.readAll();
        isRead = file.error() == QFileDevice::NoError;
    }
    if (!isRead)
        throw FileError(QStringLiteral("The file \"%1\" cannot be read (%2). %3")
                            .arg(QDir::toNativeSeparators(fileName), file.errorString(), advice));
    return bytes;
}

} // namespace

QStringList ReadTextLines(const QString &fileName, const QString &advice)
{
    const QByteArray bytes = ReadAll(fileName, advice);
    if (bytes.isEmpty())
        throw FileError(QStringLiteral("The file \"%1\" is empty. %2")
                            .arg(QDir::toNativeSeparators(fileName), advice));

    QList<QByteArray> lines = bytes.split('\n');
    // What follows the last line end is a line of its own only if it holds something.
    if (lines.last().isEmpty())
        lines.removeLast();
    QStringList texts;
    texts.reserve(lines.size());
    for (const QByteArray &line : std::as_const(lines)) {
        const QByteArrayView view(line);
        texts.append(CodePage::FromBytes(line.endsWith('\r') ? view.chopped(1) : view));
    }
    return texts;
}

} // namespace Tesk
