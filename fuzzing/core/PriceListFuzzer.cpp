#include "base/CodePage.h"
#include "base/Errors.h"
#include "core/PriceList.h"
#include "core/Registry.h"
#include "support/MemoryFile.h"
#include "support/Require.h"
#include "support/Scratch.h"

#include <QList>

using namespace Tesk;
using Fuzzing::Require;

namespace {

struct Entry
{
    QString artNr;
    QString price;
};

/// What the lines say, by the rule that customers know, up to an article number that occurs twice.
struct Expectation
{
    explicit Expectation(const QByteArray &bytes)
    {
        QStringList known;
        for (QByteArray line : bytes.split('\n')) {
            if (line.endsWith('\r'))
                line.chop(1);
            if (line.count('\t') != 1)
                continue;
            const qsizetype tab = line.indexOf('\t');
            const QByteArray artNr = line.left(tab);
            const QString key = CodePage::FromBytes(QByteArray(artNr).replace(' ', ""));
            isDoubled = known.contains(key);
            if (isDoubled)
                return;
            known.append(key);
            entries.append({CodePage::FromBytes(artNr), CodePage::FromBytes(line.mid(tab + 1))});
        }
    }

    QList<Entry> entries;
    bool isDoubled = false;
};

} // namespace

/// Takes the input for a price list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Registry registry(Fuzzing::ScratchFolder() + QStringLiteral("/settings.json"));
    static Fuzzing::MemoryFile file;
    file.Write(data, size);
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const Expectation expected(bytes);
    PriceList prices(registry);
    try {
        prices.LoadPriceList(file.Path());
        Require(!expected.isDoubled && !bytes.isEmpty(), "a faulty list is an error");
    } catch (const DuplicateKeyError &) {
        Require(expected.isDoubled, "an error about a number has a number that occurs twice");
    } catch (const FileError &) {
        Require(bytes.isEmpty(), "only an empty list cannot be read");
    }
    Require(prices.HasPriceList(), "there is a list from the first load on");
    for (const Entry &entry : expected.entries) {
        const QString price =
            entry.price.isEmpty() ? QString() : entry.price + QStringLiteral("&nbsp;EUR");
        Require(prices.GetPrice(entry.artNr) == price, "a number gives the price of its line");
    }
    return 0;
}
