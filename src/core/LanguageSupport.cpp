#include "core/LanguageSupport.h"

#include "base/Errors.h"
#include "base/TextLines.h"
#include "core/Registry.h"

#include <QDir>

namespace Tesk {

namespace {

constexpr qint16 DefaultLanguage = 1;

constexpr QLatin1String LocationSetting("Location");
constexpr QLatin1String MeasureSetting("Measure");

// The system's numbers for two items of a locale.
constexpr QLatin1String EnglishLanguageNameItem("4097");
constexpr QLatin1String MeasurementSystemItem("13");

constexpr QLatin1String InstallAgain("Install the catalogue again.");

/// In the order of the codes.
const QStringList &LanguageNames()
{
    static const QStringList names{QStringLiteral("German"), QStringLiteral("English"),
                                   QStringLiteral("French"), QStringLiteral("Spanish"),
                                   QStringLiteral("Italian")};
    return names;
}

QHash<QString, QString> ReadTexts(const QString &fileName)
{
    QHash<QString, QString> texts;
    const QStringList lines = ReadTextLines(fileName, InstallAgain);
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char('='));
        if (parts.size() != 2)
            continue;
        if (texts.contains(parts[0]))
            throw DuplicateKeyError(
                QStringLiteral("The file \"%1\" holds the key \"%2\" twice. %3")
                    .arg(QDir::toNativeSeparators(fileName), parts[0], InstallAgain));
        texts.insert(parts[0], parts[1]);
    }
    return texts;
}

} // namespace

LanguageSupport::LanguageSupport(Registry &settings, const QString &textFolder,
                                 const QLocale &localeOfUser)
    : registry(settings)
    , contentFolder(textFolder)
    , userLocale(localeOfUser)
{}

void LanguageSupport::InitLanguages()
{
    if (GetSetting(LocationSetting).isEmpty())
        SaveSetting(LocationSetting, GetLocaleString(EnglishLanguageNameItem));
    SaveSetting(MeasureSetting, GetLocaleString(MeasurementSystemItem));

    // A name that is none of ours stays stored until the user picks a language.
    const qsizetype index = LanguageNames().indexOf(GetSetting(LocationSetting));
    current = index < 0 ? DefaultLanguage : static_cast<qint16>(index);

    for (qsizetype language = 0; language < LanguageCount; ++language)
        texts[static_cast<size_t>(language)] = ReadTexts(
            QStringLiteral("%1/loc_%2.txt").arg(contentFolder, GetLanguageCodes().at(language)));
}

QString LanguageSupport::GetText(const QString &key) const
{
    return texts[static_cast<size_t>(current)].value(key);
}

void LanguageSupport::SetLanguage(qint16 index)
{
    if (index < 0 || index >= LanguageCount)
        throw SubscriptError(QStringLiteral("There is no language number %1. Use 0 to %2.")
                                 .arg(index)
                                 .arg(LanguageCount - 1));
    current = index;
    SaveSetting(LocationSetting, LanguageNames().at(index));
}

QStringList LanguageSupport::GetLanguageCodes()
{
    static const QStringList codes{QStringLiteral("ge"), QStringLiteral("en"), QStringLiteral("fr"),
                                   QStringLiteral("sp"), QStringLiteral("it")};
    return codes;
}

QString LanguageSupport::CurrentCode() const
{
    return GetLanguageCodes().at(current);
}

QString LanguageSupport::GetLocaleString(const QString &item) const
{
    if (item == EnglishLanguageNameItem)
        return QLocale::languageToString(userLocale.language());
    if (item == MeasurementSystemItem) {
        const bool isUs = userLocale.measurementSystem() == QLocale::ImperialUSSystem;
        return isUs ? QStringLiteral("1") : QStringLiteral("0");
    }
    return QString();
}

QString LanguageSupport::GetSetting(const QString &valueName) const
{
    return registry.RegGetString(SettingsKey, valueName);
}

void LanguageSupport::SaveSetting(const QString &valueName, const QString &text)
{
    registry.RegSetString(SettingsKey, valueName, text);
}

} // namespace Tesk
