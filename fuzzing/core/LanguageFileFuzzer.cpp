#include "base/CodePage.h"
#include "base/Errors.h"
#include "core/LanguageSupport.h"
#include "core/Registry.h"
#include "support/MemoryFile.h"
#include "support/Require.h"
#include "support/Scratch.h"

#include <QFile>

#include <optional>

using namespace Tesk;
using Fuzzing::Require;

namespace {

using Texts = QHash<QString, QString>;

/// A program's folder of texts, in which the English ones are the input.
struct Installation
{
    Installation()
    {
        for (const QString &code : LanguageSupport::GetLanguageCodes())
            Fuzzing::WriteFile(NameOf(code), "key=text\r\n");
        QFile::remove(NameOf(QStringLiteral("en")));
        Require(QFile::link(english.Path(), NameOf(QStringLiteral("en"))),
                "the input takes the place of the English texts");
        registry.RegSetString(SettingsKey, QStringLiteral("Location"), QStringLiteral("English"));
    }

    QString NameOf(const QString &code) const
    {
        return QStringLiteral("%1/loc_%2.txt").arg(folder, code);
    }

    QString folder = Fuzzing::ScratchFolder();
    Registry registry{folder + QStringLiteral("/settings.json")};
    Fuzzing::MemoryFile english;
};

/// The texts by the rule that translators know; nothing when a key occurs twice.
std::optional<Texts> TextsOf(const QByteArray &bytes)
{
    Texts texts;
    for (QByteArray line : bytes.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        const qsizetype mark = line.indexOf('=');
        if (mark < 0 || mark != line.lastIndexOf('='))
            continue;
        const QString key = CodePage::FromBytes(line.left(mark));
        if (texts.contains(key))
            return std::nullopt;
        texts.insert(key, CodePage::FromBytes(line.mid(mark + 1)));
    }
    return texts;
}

} // namespace

/// Takes the input for the file of the English texts.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Installation installation;
    installation.english.Write(data, size);
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const std::optional<Texts> expected = TextsOf(bytes);
    LanguageSupport languages(installation.registry, installation.folder, QLocale::c());
    try {
        languages.InitLanguages();
    } catch (const DuplicateKeyError &) {
        Require(!expected, "an error about a key has a key that occurs twice");
        return 0;
    } catch (const FileError &) {
        Require(bytes.isEmpty(), "only an empty file cannot be read");
        return 0;
    }
    Require(expected.has_value() && !bytes.isEmpty(), "a faulty file is an error");
    for (auto text = expected->cbegin(); text != expected->cend(); ++text)
        Require(languages.GetText(text.key()) == text.value(), "a key gives the text of its line");
    Require(expected->contains(QStringLiteral("none")) ||
                languages.GetText(QStringLiteral("none")).isEmpty(),
            "a key that the file lacks gives nothing");
    return 0;
}
