#include "build/CatalogueBuilder.h"

#include "base/Errors.h"
#include "build/ApplicationDirectory.h"
#include "build/CodePageText.h"
#include "build/ContainerBuilder.h"
#include "build/DataSheetPrinter.h"
#include "build/DatabaseBuilder.h"
#include "build/GifWriter.h"
#include "build/PictureRenderer.h"
#include "sources/CatalogueSources.h"
#include "sources/ContentPlan.h"
#include "sources/DataSheetPlan.h"
#include "sources/Problems.h"
#include "sources/SvgSource.h"

namespace Tesk {

namespace {

QByteArray RenderedPicture(const CatalogueSources &sources, const QString &source)
{
    Problems problems;
    const std::optional<SvgSource> drawing =
        SvgSource::Parse(sources.Bytes(source), source, problems);
    if (!drawing)
        throw FileError(problems.ToText(sources.Folder().path()).trimmed());
    return WriteGif(RenderPicture(*drawing));
}

void BuildContent(const CatalogueSources &sources, ApplicationDirectory &directory)
{
    for (const ContentFile &file : PlanContent(sources))
        directory.Write(file.path, file.isRendered ? RenderedPicture(sources, file.source)
                                                   : sources.Bytes(file.source));
}

void BuildLanguages(const CatalogueSources &sources, ApplicationDirectory &directory)
{
    for (const LanguageSource &language : sources.Languages()) {
        QStringList lines;
        for (const LanguageText &text : language.Texts())
            lines.append(text.key + QLatin1Char('=') + text.text);
        directory.Write(QStringLiteral("content/loc_%1.txt").arg(language.Code()),
                        CodePageText(lines));
    }
}

void BuildDataSheets(const CatalogueSources &sources, ApplicationDirectory &directory)
{
    for (const DataSheet &sheet : PlanDataSheets(sources))
        directory.Write(QStringLiteral("PDF/") + sheet.fileName,
                        sheet.isPrinted ? PrintDataSheet(sources.Folder().filePath(sheet.source))
                                        : sources.Bytes(sheet.source));
}

void BuildPriceList(const CatalogueSources &sources, ApplicationDirectory &directory)
{
    QStringList lines;
    for (const Price &price : sources.PriceList().Prices())
        lines.append(price.artNr + QLatin1Char('\t') + price.price);
    if (!lines.isEmpty())
        directory.Write(QStringLiteral("price_list.txt"), CodePageText(lines));
}

} // namespace

void BuildCatalogue(const CatalogueSources &sources, const QString &applicationDirectory)
{
    ApplicationDirectory directory(applicationDirectory);
    BuildDatabase(sources, directory.NewFile(QStringLiteral("catalog.db")));
    BuildContainer(sources, directory.NewFile(QStringLiteral("resources.chm")));
    BuildContent(sources, directory);
    BuildLanguages(sources, directory);
    BuildDataSheets(sources, directory);
    BuildPriceList(sources, directory);
    directory.Write(QStringLiteral("version"), CodePageText({sources.Version()}));
    directory.Finish();
}

} // namespace Tesk
