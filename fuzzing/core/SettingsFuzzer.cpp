#include "core/Registry.h"
#include "support/Require.h"
#include "support/Scratch.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Tesk;
using Fuzzing::Require;

namespace {

const QString Key = QStringLiteral("Key");
const QString Name = QStringLiteral("Name");

bool IsWhole(const QJsonDocument &document)
{
    const QJsonObject root = document.object();
    return document.isObject() && std::all_of(root.begin(), root.end(),
                                              [](const QJsonValue &key) { return key.isObject(); });
}

/// Every text that stands in the settings, but for the one that was written since.
void RequireTexts(const Registry &registry, const QJsonObject &root)
{
    for (auto key = root.begin(); key != root.end(); ++key) {
        const QJsonObject values = key.value().toObject();
        for (auto value = values.begin(); value != values.end(); ++value) {
            if (key.key() == Key && value.key() == Name)
                continue;
            const QString text = value.value().toString().section(QChar(u'\0'), 0, 0);
            Require(registry.RegGetString(key.key(), value.key()) == text,
                    "a value reads as it stands in the file");
        }
    }
}

} // namespace

/// Takes the input for the file of the user's settings.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QString folder = Fuzzing::ScratchFolder() + QStringLiteral("/settings");
    static const QString file = folder + QStringLiteral("/settings.json");
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    Fuzzing::WriteFile(file, bytes);

    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    const bool isWhole = IsWhole(document);
    Registry registry(file);
    if (isWhole)
        RequireTexts(registry, document.object());

    const QString text = QStringLiteral("Größe \"2\"\n");
    registry.RegSetString(Key, Name, text);
    Require(registry.RegGetString(Key, Name) == text, "what was written is read");
    if (isWhole)
        RequireTexts(registry, document.object());

    QFile copy(file + QStringLiteral(".damaged"));
    const bool isCopied = copy.open(QIODevice::ReadOnly);
    Require(isCopied == (!isWhole && !bytes.isEmpty()), "damaged settings are kept, others not");
    Require(!isCopied || copy.readAll() == bytes, "damaged settings are kept as they were");
    return 0;
}
