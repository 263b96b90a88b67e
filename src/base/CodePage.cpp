#include "base/CodePage.h"

#include <unicode/ucnv.h>

#include <QHash>

#include <algorithm>
#include <array>
#include <memory>

namespace Tesk::CodePage {

namespace {

constexpr char Replacement = '?';

// ICU's default converter on Windows is the system's code page.
#ifdef Q_OS_WIN
constexpr const char *ConverterName = nullptr;
#else
constexpr const char *ConverterName = "windows-1252";
#endif

struct CloseConverter
{
    void operator()(UConverter *converter) const { ucnv_close(converter); }
};

/// The code page both ways, asked of ICU once: a table look-up per character needs no converter
/// with a state of its own.
struct Tables
{
    std::array<char16_t, 256> characters{};
    QHash<char16_t, char> bytes;

    Tables()
    {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UConverter, CloseConverter> converter(
            ucnv_open(ConverterName, &status));
        for (int code = 0; code < 256; ++code) {
            const char16_t character = CharacterOf(converter.get(), static_cast<char>(code));
            characters[static_cast<size_t>(code)] = character;
            bytes.insert(character, static_cast<char>(code));
        }
    }

    /// A byte that the code page leaves open maps one to one.
    static char16_t CharacterOf(UConverter *converter, char byte)
    {
        const char16_t sameCode = static_cast<uchar>(byte);
        if (!converter)
            return sameCode;
        std::array<char16_t, 4> characters{};
        UErrorCode status = U_ZERO_ERROR;
        const int32_t length =
            ucnv_toUChars(converter, characters.data(), static_cast<int32_t>(characters.size()),
                          &byte, 1, &status);
        const bool isOpen = length != 1 || characters[0] == QChar::ReplacementCharacter;
        return U_FAILURE(status) || isOpen ? sameCode : characters[0];
    }
};

const Tables &CodeTables()
{
    static const Tables tables;
    return tables;
}

} // namespace

QString FromBytes(QByteArrayView bytes)
{
    const Tables &tables = CodeTables();
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [&tables](char byte) {
        return QChar(tables.characters[static_cast<uchar>(byte)]);
    });
    return text;
}

QByteArray ToBytes(QStringView text)
{
    const Tables &tables = CodeTables();
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        bytes.append(tables.bytes.value(text[i].unicode(), Replacement));
        if (isPair)
            ++i;
    }
    return bytes;
}

int CodeOf(QChar character)
{
    return static_cast<uchar>(CodeTables().bytes.value(character.unicode(), Replacement));
}

} // namespace Tesk::CodePage
