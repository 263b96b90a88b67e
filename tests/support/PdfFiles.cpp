#include "support/PdfFiles.h"

#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Tesk {

namespace {

QString Output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString Text(const QStringList &options, const QString &path)
{
    const QStringList files{QStringLiteral("-enc"), QStringLiteral("UTF-8"), path,
                            QStringLiteral("-")};
    return Output(QStringLiteral("pdftotext"), options + files);
}

} // namespace

int SheetCount(const QString &path)
{
    static const QRegularExpression pages(QStringLiteral("Pages:\\s+(\\d+)"));
    return pages.match(Output(QStringLiteral("pdfinfo"), {path})).captured(1).toInt();
}

QString TextOfPdf(const QString &path)
{
    return Text({QStringLiteral("-layout")}, path);
}

QStringList LinesOfSheet(const QString &path, int sheet)
{
    static const QRegularExpression lineEnds(QStringLiteral("[\\n\\f]+"));
    const QString number = QString::number(sheet);
    return Text({QStringLiteral("-f"), number, QStringLiteral("-l"), number}, path)
        .split(lineEnds, Qt::SkipEmptyParts);
}

QList<PdfSheet> SheetsOfPdf(const QString &path)
{
    QXmlStreamReader reader(Text({QStringLiteral("-bbox")}, path));
    QList<PdfSheet> sheets;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const auto number = [&attributes](const char *name) {
            return attributes.value(QLatin1String(name)).toDouble();
        };
        if (reader.name() == QLatin1String("page")) {
            sheets.append({QSizeF(number("width"), number("height")), {}});
        } else if (reader.name() == QLatin1String("word")) {
            const QRectF place(QPointF(number("xMin"), number("yMin")),
                               QPointF(number("xMax"), number("yMax")));
            sheets.last().words.append({reader.readElementText(), place});
        }
    }
    return sheets;
}

QList<int> SheetsWithPictures(const QString &path)
{
    static const QRegularExpression line(QStringLiteral("^ *(\\d+) +\\d+ image"),
                                         QRegularExpression::MultilineOption);
    QList<int> sheets;
    const QString list = Output(QStringLiteral("pdfimages"), {QStringLiteral("-list"), path});
    for (const QRegularExpressionMatch &picture : line.globalMatch(list))
        sheets.append(picture.captured(1).toInt());
    return sheets;
}

} // namespace Tesk
