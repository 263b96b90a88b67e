#include "browser/Address.h"
#include "support/Require.h"

#include <QStringList>

#include <cstdint>

using namespace Tesk;
using Fuzzing::Require;

namespace {

const QString Container = QStringLiteral("/opt/Catalogue #1/resources.chm");

/// A name with a mark of query or fragment in it is told from these by the disk, where it is none
/// of ours.
bool IsUnambiguous(const QUrl &url)
{
    const QString path = url.path(QUrl::FullyDecoded);
    return !path.contains(u'?') && !path.contains(u'#');
}

void CheckSpelling(const QString &address)
{
    const QUrl url = Address::ToUrl(address);
    const bool isOurs =
        address.startsWith(QStringLiteral("file://")) || address.startsWith(QStringLiteral("mk:"));
    if (isOurs && url.isValid() && IsUnambiguous(url))
        Require(Address::ToUrl(Address::FromUrl(url)).toEncoded() == url.toEncoded(),
                "the program's spelling leads back to the address");
}

/// The member is looked up by this path, so it must be one inside the container.
void CheckMember(const QUrl &url)
{
    const QString member = Address::MemberPath(url);
    Require(member.startsWith(u'/') && !member.contains(u'\\'), "a member's path has slashes");
    for (const QString &step : member.split(u'/'))
        Require(step != QStringLiteral(".") && step != QStringLiteral(".."),
                "a member's path has no steps back");

    const QUrl whole = Address::ToWhole(url, Container);
    Require(Address::IsWhole(whole), "the engine is sent on once only");
    Require(Address::MemberPath(whole) == member, "the engine is sent to the same member");
}

} // namespace

/// Takes the input, as UTF-8, for an address that the program opens and for one that the engine
/// asks for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString address = QString::fromUtf8(bytes);
    CheckSpelling(address);
    CheckMember(Address::ToUrl(address));
    CheckMember(QUrl::fromEncoded("mk:" + bytes));
    return 0;
}
