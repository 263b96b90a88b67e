#include "core/PriceList.h"

#include "base/Errors.h"
#include "base/TextLines.h"
#include "core/Registry.h"

#include <QDir>
#include <QLoggingCategory>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(pricesLog, "tesk.prices")

constexpr QLatin1String PathSetting("PriceListPath");
constexpr QLatin1String Currency("&nbsp;EUR");

constexpr QLatin1String ChooseAnother("Choose another price list.");

/// The lines of the file, whose name stands in the messages as `fileName`.
QStringList LinesOf(const QString &path, const QString &fileName)
{
    try {
        return ReadTextLines(path, ChooseAnother);
    } catch (const FileError &error) {
        throw FileError(error.Message(), {QStringLiteral("errorPriceList"), {fileName}});
    }
}

QString WithoutBlanks(QString artNr)
{
    return artNr.remove(QLatin1Char(' '));
}

} // namespace

PriceList::PriceList(Registry &settings)
    : registry(settings)
{}

QString PriceList::LoadPriceListAtStart()
{
    const QString path = registry.RegGetString(SettingsKey, PathSetting);
    if (path.isEmpty())
        return QString();
    try {
        LoadPriceList(path);
    } catch (const CatalogueError &error) {
        qCWarning(pricesLog).noquote() << error.Message();
        registry.RegDeleteValue(SettingsKey, PathSetting);
        return QStringLiteral("Price list %1 can not be found!").arg(path);
    }
    return QString();
}

void PriceList::LoadPriceList(const QString &path)
{
    QHash<QString, QString> &table = prices.emplace();
    const QString fileName = QDir::toNativeSeparators(path);
    const QStringList lines = LinesOf(path, fileName);
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (fields.size() != 2)
            continue;
        const QString artNr = WithoutBlanks(fields[0]);
        if (table.contains(artNr))
            throw DuplicateKeyError(
                QStringLiteral("The price list \"%1\" holds the article number \"%2\" twice. %3")
                    .arg(fileName, fields[0], ChooseAnother),
                {QStringLiteral("errorPriceListTwice"), {fileName, fields[0]}});
        table.insert(artNr, fields[1]);
    }
    registry.RegSetString(SettingsKey, PathSetting, path);
}

QString PriceList::GetPrice(const QString &artNr) const
{
    if (!prices)
        return QString();
    const QString price = prices->value(WithoutBlanks(artNr));
    return price.isEmpty() ? QString() : price + Currency;
}

} // namespace Tesk
