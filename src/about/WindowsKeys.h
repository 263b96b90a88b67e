#pragma once

#include "about/RegistryKeys.h"

namespace Tesk {

/// The registry of Windows.
class WindowsKeys final : public RegistryKeys
{
public:
    std::optional<Handle> Open(Hive hive, const QString &keyName, quint32 accessMask) override;
    std::optional<Value> Query(Handle key, const QString &valueName) override;
    void Close(Handle key) override;
};

} // namespace Tesk
