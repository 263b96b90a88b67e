#include "pages/ControllerPageContext.h"

#include "core/Controller.h"
#include "pages/HtmlBuilder.h"
#include "pages/PageContext.h"

#include <array>
#include <utility>

namespace Tesk {

namespace {

/// A page would take these signs of a folder's name for the end of the path, of the script's text
/// or of the attribute. Blanks and letters stay as they are spelled.
QString InPage(QString address)
{
    constexpr std::array<std::pair<char16_t, QLatin1String>, 5> escapes{
        {{u'%', QLatin1String("%25")},
         {u'#', QLatin1String("%23")},
         {u'?', QLatin1String("%3F")},
         {u'\'', QLatin1String("%27")},
         {u'"', QLatin1String("%22")}}};
    for (const auto &[sign, escape] : escapes)
        address.replace(QChar(sign), escape);
    return address;
}

/// The page context of the running program.
class ControllerPageContext final : public PageContext
{
public:
    explicit ControllerPageContext(const Controller &source)
        : controller(source)
    {}

    QString GetText(const QString &key) const override { return controller.GetText(key); }
    QString GetContentBaseUrl() const override { return InPage(controller.GetContentBaseUrl()); }
    QString GetResourceBaseUrl() const override { return InPage(controller.GetResourceBaseUrl()); }
    QString GetSizeColumn() const override { return controller.GetSizeColumn(); }
    bool HasPriceList() const override { return controller.HasPriceList(); }
    QString GetPrice(const QString &artNr) const override { return controller.GetPrice(artNr); }
    bool HasPdfDocument(const QString &artNr) const override
    {
        return controller.HasPdfDocument(artNr);
    }
    QString GetPdfDocumentUrl(const QString &artNr) const override
    {
        return InPage(controller.GetPdfDocumentUrl(artNr));
    }
    QString GetInfoDocumentUrl(const QString &helpId) const override
    {
        return InPage(controller.GetInfoDocumentUrl(helpId));
    }

private:
    const Controller &controller;
};

} // namespace

std::unique_ptr<const PageContext> MakePageContext(const Controller &controller)
{
    return std::make_unique<ControllerPageContext>(controller);
}

HtmlBuilder::HtmlBuilder(const Controller &controller, std::function<QDate()> currentDate)
    : HtmlBuilder(MakePageContext(controller), std::move(currentDate))
{}

} // namespace Tesk
