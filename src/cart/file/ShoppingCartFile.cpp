#include "cart/file/ShoppingCartFile.h"

#include "base/CodePage.h"
#include "base/Errors.h"
#include "base/WholeFile.h"
#include "cart/file/CartRecords.h"
#include "cart/model/clsShoppingCart.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>

namespace Tesk::ShoppingCartFile {

namespace {

Q_LOGGING_CATEGORY(cartFileLog, "tesk.cart.file")

constexpr QLatin1String LineEnd("\r\n");

QByteArrayView WithoutLineEnd(const QByteArray &line)
{
    QByteArrayView text(line);
    for (const char end : {'\n', '\r'}) {
        if (text.endsWith(end))
            text.chop(1);
    }
    return text;
}

/// `message` takes the file's name and the reason, as does the text of `key`.
FileError Failure(const QString &message, const char *key, const QString &path,
                  const QString &reason)
{
    const QString fileName = QDir::toNativeSeparators(path);
    return FileError(message.arg(fileName, reason), {QLatin1String(key), {fileName, reason}});
}

} // namespace

void Save(const clsShoppingCart &cart, const QString &path)
{
    const QString text = cart.Serialize() + LineEnd;
    const QByteArray bytes = CodePage::ToBytes(text);
    QString reason;
    if (!WholeFile::Replace(path, {bytes}, &reason))
        throw Failure(QStringLiteral("The shopping cart cannot be saved as \"%1\" (%2). Save it in "
                                     "another folder or under another name."),
                      "errorCartSave", path, reason);
    if (CodePage::FromBytes(bytes) != text)
        qCWarning(cartFileLog) << "Characters outside the code page were saved as '?' in" << path;
}

void Load(const QString &path, clsShoppingCart &cart)
{
    const QString fileName = QDir::toNativeSeparators(path);
    QFile file(path);
    // Opened first: a file that cannot be opened must not cost the user the present cart.
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(QStringLiteral("The shopping cart file \"%1\" cannot be opened (%2). The "
                                     "shopping cart has not changed."),
                      "errorCartOpen", path, file.errorString());
    cart.Clear();
    CartRecords records(fileName, cart);
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (line.isEmpty())
            break;
        records.TakeLine(CodePage::FromBytes(WithoutLineEnd(line)));
    }
    if (file.error() != QFileDevice::NoError)
        throw Failure(
            QStringLiteral("The shopping cart file \"%1\" cannot be read to its end (%2). "
                           "The shopping cart holds what was read before."),
            "errorCartRead", path, file.errorString());
    if (records.IsInsideRecord())
        qCWarning(cartFileLog) << "The last item of" << fileName
                               << "is left out: no empty line follows it";
}

} // namespace Tesk::ShoppingCartFile
