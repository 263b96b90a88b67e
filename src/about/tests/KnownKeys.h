#pragma once

#include "about/RegistryKeys.h"

#include <QHash>
#include <QStringList>

namespace Tesk {

/// A registry of a few known values, which counts the keys that are open.
class KnownKeys final : public RegistryKeys
{
public:
    std::optional<Handle> Open(Hive hive, const QString &keyName, quint32 accessMask) override
    {
        openedHives += hive;
        openedKeys += keyName;
        accessMasks += accessMask;
        if (!keys.contains(keyName))
            return std::nullopt;
        ++openCount;
        return static_cast<Handle>(openedKeys.size());
    }

    std::optional<Value> Query(Handle key, const QString &valueName) override
    {
        const auto values = keys.value(openedKeys.at(static_cast<qsizetype>(key) - 1));
        if (!values.contains(valueName))
            return std::nullopt;
        return values.value(valueName);
    }

    void Close(Handle /*key*/) override { --openCount; }

    void SetText(const QString &keyName, const QString &valueName, const QString &text)
    {
        keys[keyName][valueName] = {ValueType::Text, text, 0};
    }

    QHash<QString, QHash<QString, Value>> keys;
    QList<Hive> openedHives;
    QStringList openedKeys;
    QList<quint32> accessMasks;
    int openCount = 0;
};

} // namespace Tesk
