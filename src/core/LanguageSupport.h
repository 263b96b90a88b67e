#pragma once

#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <array>

namespace Tesk {

class Registry;

/// The five user-interface languages, the current one, and the texts of all of them.
class LanguageSupport final
{
public:
    static constexpr int LanguageCount = 5;

    /// `textFolder` holds the five files loc_<code>.txt; `localeOfUser` chooses the first language.
    LanguageSupport(Registry &settings, const QString &textFolder,
                    const QLocale &localeOfUser = QLocale::system());

    /// Chooses the current language, by the setting `Location` or else by the user's locale, stores
    /// the settings `Location` (when it is empty) and `Measure`, and reads the five files: 8-bit
    /// text, a line "key=text" each, other lines are skipped. Throws FileError for a file that is
    /// missing or empty, DuplicateKeyError for a key that occurs twice in a file.
    void InitLanguages();

    /// The current language's text; empty for a key that its file lacks.
    QString GetText(const QString &key) const;

    /// Makes language `index` (0 to 4) current and stores its name as the setting `Location`.
    /// Throws SubscriptError outside the bounds.
    void SetLanguage(qint16 index);
    qint16 GetLanguageIndex() const { return current; }
    /// "ge", "en", "fr", "sp", "it", by index.
    static QStringList GetLanguageCodes();
    QString CurrentCode() const;

    /// The user locale's value for the item: "4097" the English name of its language, "13" its
    /// measurement system ("0" metric, "1" US). Other items are empty.
    QString GetLocaleString(const QString &item) const;

    QString GetSetting(const QString &valueName) const;
    void SaveSetting(const QString &valueName, const QString &text);

private:
    Registry &registry;
    QString contentFolder;
    QLocale userLocale;
    qint16 current = 1;
    std::array<QHash<QString, QString>, LanguageCount> texts;
};

} // namespace Tesk
