#include "about/WindowsKeys.h"

#include <qt_windows.h>

#include <cstring>

namespace Tesk {

namespace {

HKEY SystemHandle(RegistryKeys::Handle key)
{
    return reinterpret_cast<HKEY>(key);
}

const wchar_t *SystemText(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

} // namespace

std::optional<RegistryKeys::Handle> WindowsKeys::Open(Hive hive, const QString &keyName,
                                                      quint32 accessMask)
{
    HKEY key = nullptr;
    const HKEY root = hive == Hive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    if (RegOpenKeyExW(root, SystemText(keyName), 0, accessMask, &key) != ERROR_SUCCESS)
        return std::nullopt;
    return reinterpret_cast<Handle>(key);
}

std::optional<RegistryKeys::Value> WindowsKeys::Query(Handle key, const QString &valueName)
{
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (RegQueryValueExW(SystemHandle(key), SystemText(valueName), nullptr, &type, nullptr,
                         &size) != ERROR_SUCCESS)
        return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(size), '\0');
    if (RegQueryValueExW(SystemHandle(key), SystemText(valueName), nullptr, &type,
                         reinterpret_cast<BYTE *>(bytes.data()), &size) != ERROR_SUCCESS)
        return std::nullopt;
    Value value;
    if (type == REG_SZ) {
        value.type = ValueType::Text;
        value.text = QString::fromWCharArray(reinterpret_cast<const wchar_t *>(bytes.constData()),
                                             static_cast<qsizetype>(size / sizeof(wchar_t)));
    } else if (type == REG_DWORD && size == sizeof(value.number)) {
        value.type = ValueType::Number;
        std::memcpy(&value.number, bytes.constData(), sizeof(value.number));
    }
    return value;
}

void WindowsKeys::Close(Handle key)
{
    RegCloseKey(SystemHandle(key));
}

} // namespace Tesk
