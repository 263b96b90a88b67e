#include "core/Controller.h"
#include "pages/HtmlBuilder.h"
#include "pages/PageContext.h"

#include <utility>

namespace Tesk {

namespace {

/// The page context of the running program.
class ControllerPageContext final : public PageContext
{
public:
    explicit ControllerPageContext(const Controller &source)
        : controller(source)
    {}

    QString GetText(const QString &key) const override { return controller.GetText(key); }
    QString GetContentBaseUrl() const override { return controller.GetContentBaseUrl(); }
    QString GetResourceBaseUrl() const override { return controller.GetResourceBaseUrl(); }
    QString GetSizeColumn() const override { return controller.GetSizeColumn(); }
    bool HasPriceList() const override { return controller.HasPriceList(); }
    QString GetPrice(const QString &artNr) const override { return controller.GetPrice(artNr); }
    bool HasPdfDocument(const QString &artNr) const override
    {
        return controller.HasPdfDocument(artNr);
    }
    QString GetPdfDocumentUrl(const QString &artNr) const override
    {
        return controller.GetPdfDocumentUrl(artNr);
    }
    QString GetInfoDocumentUrl(const QString &helpId) const override
    {
        return controller.GetInfoDocumentUrl(helpId);
    }

private:
    const Controller &controller;
};

} // namespace

HtmlBuilder::HtmlBuilder(const Controller &controller, std::function<QDate()> currentDate)
    : HtmlBuilder(std::make_unique<ControllerPageContext>(controller), std::move(currentDate))
{}

} // namespace Tesk
