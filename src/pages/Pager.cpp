#include "pages/HtmlBuilder.h"
#include "pages/Int16.h"

namespace Tesk {

namespace {

constexpr qint16 PagesPerFastStep = 5;
constexpr qint16 NearbyPages = 2;

/// The number of the page on which item `item` stands, from 1.
qint16 PageOf(qint16 item)
{
    const int page = item / HtmlBuilder::ProductsPerPage;
    return Int16(item % HtmlBuilder::ProductsPerPage == 0 ? page : page + 1);
}

QString LinkCell(const QString &address, const QString &content)
{
    return QStringLiteral(R"(<td align="center" valign="center" width="25">)"
                          R"(<a class="prodItem" href="%1">%2</a></td>)")
        .arg(address, content);
}

QString GapCell()
{
    return QStringLiteral(
        R"(<td align="center" valign="center" width="25"  valign="center">.</td>)");
}

QString Picture(const QString &name)
{
    return QStringLiteral(R"(<img src="img/%1" border="0">)").arg(name);
}

} // namespace

QString HtmlBuilder::BuildPager(qint16 firstItem, qint16 count, const QString &pageUrl,
                                const QString &paramName, const QString &extraQuery) const
{
    const auto link = [&](qint16 item) {
        return QStringLiteral("%1?%2=%3%4")
            .arg(pageUrl, paramName, QString::number(item), extraQuery);
    };
    const qint16 fastStep = PagesPerFastStep * ProductsPerPage;
    const qint16 lastPage = PageOf(count);
    const qint16 currentPage = PageOf(firstItem);
    const qint16 lastFirst = Int16((lastPage - 1) * ProductsPerPage + 1);

    QString html =
        QStringLiteral(R"(<table cellpadding="0" cellspacing="0" border="0" align="center"><tr>)");
    html += LinkCell(link(1), QStringLiteral("[1]"));
    html += LinkCell(link(currentPage <= PagesPerFastStep ? 1 : Int16(firstItem - fastStep)),
                     Picture(QStringLiteral("goFastBefore.gif")));
    html += LinkCell(link(currentPage == 1 ? 1 : Int16(firstItem - ProductsPerPage)),
                     Picture(QStringLiteral("goToBefore.gif")));

    for (int i = -NearbyPages; i <= NearbyPages; ++i) {
        const qint16 item = Int16(firstItem + ProductsPerPage * i);
        const QString page = QString::number(currentPage + i);
        if (item > count || item < 1)
            html += GapCell();
        else
            html += LinkCell(link(item), i == 0 ? QStringLiteral("(%1)").arg(page) : page);
    }

    // On the last page, which has no next one, the arrow leads to the item that bears the number of
    // the page. This is on purpose.
    html += LinkCell(link(currentPage == lastPage ? lastPage : Int16(firstItem + ProductsPerPage)),
                     Picture(QStringLiteral("goToNext.gif")));
    html += LinkCell(
        link(currentPage > lastPage - PagesPerFastStep ? lastFirst : Int16(firstItem + fastStep)),
        Picture(QStringLiteral("goFastNext.gif")));
    html += LinkCell(link(lastFirst), QStringLiteral("[%1]").arg(lastPage));
    return html + QLatin1String("</tr></table>");
}

} // namespace Tesk
