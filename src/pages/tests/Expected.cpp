#include "Expected.h"

#include <QFile>

namespace Tesk {

QString ExpectedHtml(const QString &name)
{
    QFile file(QStringLiteral(TEST_DATA_DIR "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot open %s", qPrintable(file.fileName()));
    QString html;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        qsizetype indent = 0;
        while (indent < line.size() && line[indent] == ' ')
            ++indent;
        html += QString::fromUtf8(line.mid(indent));
    }
    return html;
}

} // namespace Tesk
