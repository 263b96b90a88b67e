#include "sources/TextFile.h"

#include "base/CodePage.h"
#include "sources/Problems.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>

namespace Tesk {

namespace {

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

bool IsControlCharacter(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool IsInCodePage(char32_t character)
{
    if (character == U'?')
        return true;
    return character <= 0xFFFF && CodePage::CodeOf(QChar(static_cast<char16_t>(character))) != '?';
}

QString CodePointName(char32_t character)
{
    return QStringLiteral("U+%1")
        .arg(static_cast<uint>(character), 4, 16, QLatin1Char('0'))
        .toUpper();
}

} // namespace

QStringList ReadSourceLines(const QDir &folder, const QString &file, Problems &problems)
{
    QFile source(folder.filePath(file));
    if (!source.exists()) {
        problems.Add(file, 0, QStringLiteral("the file is missing; add it"));
        return {};
    }
    if (!source.open(QIODevice::ReadOnly)) {
        problems.Add(file, 0,
                     QStringLiteral("the file cannot be read (%1); check its permissions")
                         .arg(source.errorString()));
        return {};
    }

    QByteArray bytes = source.readAll();
    if (bytes.startsWith(ByteOrderMark)) {
        problems.Add(file, 1,
                     QStringLiteral("the file begins with a byte-order mark; save it as UTF-8 "
                                    "without one"));
        bytes.remove(0, 3);
    }
    if (bytes.endsWith('\n'))
        bytes.chop(1);
    else if (bytes.isEmpty())
        return {};

    QStringList lines;
    bool hasCarriageReturn = false;
    for (const QByteArray &line : bytes.split('\n')) {
        QStringDecoder decoder(QStringDecoder::Utf8);
        QString text = decoder(line);
        if (decoder.hasError())
            problems.Add(file, static_cast<int>(lines.size()) + 1,
                         QStringLiteral("the line is not UTF-8; save the file as UTF-8"));
        if (text.endsWith(QLatin1Char('\r'))) {
            text.chop(1);
            if (!std::exchange(hasCarriageReturn, true))
                problems.Add(file, static_cast<int>(lines.size()) + 1,
                             QStringLiteral("the line ends in CR LF; save the file with LF line "
                                            "ends"));
        }
        lines.append(text);
    }
    return lines;
}

void CheckCodePage(const QString &text, const QString &file, int line, Problems &problems)
{
    for (const char32_t character : text.toUcs4()) {
        if (IsControlCharacter(character)) {
            problems.Add(file, line,
                         QStringLiteral("the text holds the control character %1; remove it")
                             .arg(CodePointName(character)));
            return;
        }
        if (!IsInCodePage(character)) {
            problems.Add(file, line,
                         QStringLiteral("the character \"%1\" (%2) does not exist in Windows-1252, "
                                        "the code page of the catalogue; write it another way")
                             .arg(QString::fromUcs4(&character, 1), CodePointName(character)));
            return;
        }
    }
}

} // namespace Tesk
