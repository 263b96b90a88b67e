#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

namespace Tesk {

/// The system's registry, as far as the search for the system information program reads it. This
/// one has no keys: it stands for systems without a registry.
class RegistryKeys
{
public:
    enum class Hive { LocalMachine, CurrentUser };
    enum class ValueType { Text, Number, Other };

    using Handle = std::uintptr_t;

    struct Value
    {
        ValueType type = ValueType::Other;
        /// Of a text, as it is stored: its terminating NUL may be there.
        QString text;
        /// Of a number.
        quint32 number = 0;
    };

    RegistryKeys() = default;
    virtual ~RegistryKeys() = default;
    RegistryKeys(const RegistryKeys &) = delete;
    RegistryKeys &operator=(const RegistryKeys &) = delete;

    /// The registry of the system that the program runs on.
    static std::unique_ptr<RegistryKeys> OfSystem();

    /// Empty when the key cannot be opened. A key that was opened is closed by Close.
    virtual std::optional<Handle> Open(Hive hive, const QString &keyName, quint32 accessMask);
    /// Empty when there is no such value or it cannot be read.
    virtual std::optional<Value> Query(Handle key, const QString &valueName);
    virtual void Close(Handle key);
};

/// Reads one value into `result`: a text without its terminating NUL, a 32-bit number as "&h" and
/// its hexadecimal digits. False, with `result` as it was, when it cannot be read or is neither.
bool GetKeyValue(RegistryKeys &registry, RegistryKeys::Hive hive, const QString &keyName,
                 const QString &valueName, QString &result);

} // namespace Tesk
