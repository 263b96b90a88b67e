#include "MonkeyFiles.h"

#include "CartModel.h"

#include "support/Files.h"

#include <QDir>

namespace Tesk {

namespace {

const QString BarredName = QStringLiteral("barred");
const QString CartEnding = QStringLiteral(".csv");

CartModel::Item Scissors()
{
    return {{QStringLiteral("2"), 7, QStringLiteral("OR 2")}};
}

const QByteArray ScissorsRecord = "2;AB 10/116;Operating scissors;7;OR 2\r\n\r\n";

} // namespace

MonkeyFiles::MonkeyFiles(CartModel &model)
{
    WriteCarts(model);
    WritePriceLists();
    QDir(folder.path()).mkdir(BarredName + CartEnding);
}

QString MonkeyFiles::Barred() const
{
    return PathOf(BarredName);
}

void MonkeyFiles::WriteCarts(CartModel &model)
{
    const auto write = [&](const char *name, const QByteArray &bytes,
                           const std::vector<CartModel::Item> &content, bool isBroken) {
        model.Know(Write(QLatin1String(name), bytes, isBroken), content);
    };
    const CartModel::Item set{{QStringLiteral("482"), 1, QString()},
                              {{QStringLiteral("220"), 1, QString()},
                               {QStringLiteral("8"), 2, QStringLiteral("M\u00fcller")}}};
    write("set.csv",
          ScissorsRecord + "482;TS 90/100;Dressing set;1;\r\n220;AB 40/145;Probe;1;\r\n"
                           "8;AB 11/145;Scissors;2;M\xfcller\r\n\r\n\r\n",
          {Scissors(), set}, false);
    write("markup.csv",
          "3;<b>x</b>;<script>document.title='x'</script><img src=x onerror=alert(1)>;999;"
          "\"'><i>y\r\n\r\n",
          {{{QStringLiteral("3"), 999, QStringLiteral("\"'><i>y")}}}, false);
    // Products that the catalogue does not know.
    write("foreign.csv", "32000;ZZ 1;Nothing;-5;\r\n\r\nabc;;;0;c\r\n\r\n",
          {{{QStringLiteral("32000"), -5, QString()}},
           {{QStringLiteral("abc"), 0, QStringLiteral("c")}}},
          false);
    write("empty.csv", "", {}, false);
    // The last item has no end and is left out.
    write("cut.csv", ScissorsRecord + "3;AB 10/117;Other scissors;1;x", {Scissors()}, false);
    // What stands before the fault counts.
    write("few-fields.csv", ScissorsRecord + "3;AB 10/117\r\n\r\n", {Scissors()}, true);
    write("amount.csv", ScissorsRecord + ScissorsRecord + "3;AB 10/117;x;many;\r\n\r\n",
          {Scissors(), Scissors()}, true);
    write("bytes.csv", QByteArray("\x00\xff\x81\x01 PK\x03\x04", 10), {}, true);
}

void MonkeyFiles::WritePriceLists()
{
    const auto write = [this](const char *name, const QByteArray &bytes, bool isBroken) {
        priceLists.append(Write(QLatin1String(name), bytes, isBroken));
    };
    write("prices.txt", "AB 10/115\t11,00\r\nAB 10/116\t12,50\r\nTS 90/100\t58,10\r\n", false);
    write("other-prices.txt", "TS 90/100\t<b>99</b>\r\nAB 10/116\t\r\nx\t1\t2\r\n", false);
    write("doubled-prices.txt", "AB 10/116\t12,50\r\nAB10/116\t13,00\r\n", true);
    write("empty-prices.txt", "", true);
}

QString MonkeyFiles::Write(const QString &name, const QByteArray &bytes, bool isBroken)
{
    QString path = PathOf(name);
    WriteBytes(path, bytes);
    if (isBroken)
        broken.insert(path);
    return path;
}

} // namespace Tesk
