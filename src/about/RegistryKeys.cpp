#include "about/RegistryKeys.h"

#ifdef Q_OS_WIN
#include "about/WindowsKeys.h"
#endif

#include <QScopeGuard>

namespace Tesk {

namespace {

// To read, to write, to list and to watch a key.
constexpr quint32 AllAccess = 0x2003F;

} // namespace

std::unique_ptr<RegistryKeys> RegistryKeys::OfSystem()
{
#ifdef Q_OS_WIN
    return std::make_unique<WindowsKeys>();
#else
    return std::make_unique<RegistryKeys>();
#endif
}

std::optional<RegistryKeys::Handle> RegistryKeys::Open(Hive /*hive*/, const QString & /*keyName*/,
                                                       quint32 /*accessMask*/)
{
    return std::nullopt;
}

std::optional<RegistryKeys::Value> RegistryKeys::Query(Handle /*key*/,
                                                       const QString & /*valueName*/)
{
    return std::nullopt;
}

void RegistryKeys::Close(Handle /*key*/) {}

bool GetKeyValue(RegistryKeys &registry, RegistryKeys::Hive hive, const QString &keyName,
                 const QString &valueName, QString &result)
{
    const std::optional<RegistryKeys::Handle> key = registry.Open(hive, keyName, AllAccess);
    if (!key)
        return false;
    const QScopeGuard closeKey([&] { registry.Close(*key); });
    const std::optional<RegistryKeys::Value> value = registry.Query(*key, valueName);
    if (!value)
        return false;
    switch (value->type) {
    case RegistryKeys::ValueType::Text:
        result = value->text;
        if (result.endsWith(QChar::Null))
            result.chop(1);
        return true;
    case RegistryKeys::ValueType::Number:
        result = QLatin1String("&h") + QString::number(value->number, 16).toUpper();
        return true;
    case RegistryKeys::ValueType::Other:
        break;
    }
    return false;
}

} // namespace Tesk
