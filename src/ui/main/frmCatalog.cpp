#include "ui/main/frmCatalog.h"

#include "about/ProgramInfo.h"
#include "base/Errors.h"
#include "browser/PagePrinter.h"
#include "browser/PageZoom.h"
#include "browser/WebBrowser.h"
#include "cart/pane/ShoppingCart.h"
#include "core/CatalogueVersion.h"
#include "core/Controller.h"
#include "search/SearchDetail.h"
#include "ui/main/CartRequest.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/CategorySelection.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/FastSearch.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MenuCommands.h"
#include "ui/main/PageAddress.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/ShownPlace.h"
#include "ui/main/WindowKeys.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/ItemScroller.h"
#include "ui/main/controls/NavLeft.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>

namespace Tesk {

namespace {

const QLatin1String CategoryAddress{"category_list.html?id="};
const QLatin1String ListAddress{"product_list.html?firstItem=1&id="};
const QLatin1String DetailsAddress{"product_details.html?id="};

const Crumb HomeCrumb{QStringLiteral("tesk-shop"), QStringLiteral("default.html")};
const QString SearchCrumbCaption = QStringLiteral("Detailsuche");
const QLatin1String SearchDetailTag{"searchDetail"};
/// Stands in the history for the search form, which is no page.
const QString SearchDetailEntry = QStringLiteral("SearchDetail");

constexpr QSize PreferredSize{1280, 800}; // pixels
/// About what a desktop's window frame adds.
constexpr QSize FrameSize{8, 36};    // pixels
constexpr QSize LeastSize{800, 560}; // pixels

} // namespace

frmCatalog::frmCatalog(Controller &controller, const ContactServices &contactServices,
                       QWebEngineProfile *profile)
    : controller(controller)
    , builder(controller)
{
    setWindowTitle(ProgramInfo::Title);
    LayOut(*this, {controller, builder, contactServices, profile});
    place = std::make_unique<ShownPlace>(*ucBreadcrumb, *ucNavLeft);
    selection = std::make_unique<CategorySelection>(*TreeViewCategories, *place);
    menuCommands = new MenuCommands(*menus, controller, contactServices, this);
    protocol = std::make_unique<PageProtocol>(PageProtocol::Parts{
        controller, builder, tree, history, *wbMain, *this, pointer, *scroller});
    cartRequest = new CartRequest(controller, this);
    fastSearch = new FastSearch(controller.Queries(), *header, pointer);
    pagePrinter = new PagePrinter(*wbMain);
    ConnectControls();
    ConnectNavigation();
    ConnectCart();
    ConnectPrinting();
    ConnectKeys();
    ConnectZoom();
    setMinimumSize(LeastSize);
    resize(PreferredSize.boundedTo(screen()->availableSize() - FrameSize));
    if (auto *const application = qobject_cast<CatalogApplication *>(qApp))
        application->SetTextLookup(contactServices.getText);
}

frmCatalog::~frmCatalog()
{
    if (auto *const application = qobject_cast<CatalogApplication *>(qApp))
        application->SetTextLookup({});
}

void frmCatalog::ConnectControls()
{
    connect(wbMain, &WebBrowser::DocumentComplete, protocol.get(), &PageProtocol::DocumentComplete);
    connect(wbMain, &WebBrowser::LoadFailed, protocol.get(), &PageProtocol::LoadFailed);
    connect(wbMain, &WebBrowser::StatusTextChange, cartRequest, &CartRequest::StatusTextChange);
    connect(TreeViewCategories, &CategoryTreeView::NodeClick, this,
            &frmCatalog::TreeViewCategories_NodeClick);
    connect(header->imgLogo, &QAbstractButton::clicked, this, &frmCatalog::GoHome);
    connect(header->btnInfo, &QAbstractButton::clicked, this, &frmCatalog::GoHome);
    connect(header->cbUnitSelection, &QComboBox::activated, this, &frmCatalog::SelectUnit);
    for (int i = 0; i < LanguageSupport::LanguageCount; ++i) {
        const auto select = [this, i] { SelectLanguage(i); };
        connect(header->btnLang[static_cast<size_t>(i)], &QAbstractButton::clicked, this, select);
        connect(menus->mLanguageSelect[static_cast<size_t>(i)], &QAction::triggered, this, select);
    }
    connect(menuCommands, &MenuCommands::PriceListLoaded, this, &frmCatalog::ReloadPage);
}

void frmCatalog::ConnectNavigation()
{
    connect(ucNavLeft, &NavLeft::OnCategorySelect, this, &frmCatalog::SelectNavEntry);
    connect(ucBreadcrumb, &Breadcrumb::OnCrumbSelect, this, &frmCatalog::SelectCrumb);
    connect(scroller, &ItemScroller::OnIndexChange, this, &frmCatalog::ShowItem);
    connect(scroller, &ItemScroller::OnHistoryBack, this, &frmCatalog::GoBack);
    connect(protocol.get(), &PageProtocol::WelcomePageFilled, this,
            [this] { place->SetMarkOfPage(QString()); });
    connect(tabMain, &QTabWidget::currentChanged, this, [this](int tab) {
        if (tab != SearchTab)
            place->TellOfPage();
    });
    connect(fastSearch, &FastSearch::NewResults, this, &frmCatalog::ShowSearchResults);
    connect(ucSearchDetail, &SearchDetail::OnNewSearchResults, this,
            [this](const ResultTable &rows) {
                history.PushEntry(SearchDetailEntry);
                ShowSearchResults(rows);
            });
}

void frmCatalog::ConnectCart()
{
    connect(tabMain, &QTabWidget::currentChanged, this, [this](int tab) {
        if (tab != CartTab)
            return;
        // The tabs hand the focus on to the first button, where Enter would load a file.
        if (ucShoppingCart->isAncestorOf(QApplication::focusWidget()))
            ucShoppingCart->setFocus();
        ucShoppingCart->Initialize();
    });
    // A click on the tab that is shown leads back from the order form to the cart.
    connect(tabMain, &QTabWidget::tabBarClicked, this, [this](int tab) {
        if (tab == CartTab && tab == tabMain->currentIndex())
            ucShoppingCart->Initialize();
    });
    // The question for the amount may open only when the user is at the cart already.
    connect(cartRequest, &CartRequest::Added, this, [this] {
        if (tabMain->currentIndex() == CartTab)
            ucShoppingCart->Initialize();
    });
    connect(ucShoppingCart, &ShoppingCart::OnProductSelect, this,
            &frmCatalog::ShowStandaloneDetails);
    connect(menuCommands, &MenuCommands::PriceListLoaded, this, &frmCatalog::RefreshCart);
    connect(menuCommands, &MenuCommands::ContactDone, this, [this](bool isForPrinting) {
        ShowCartTab();
        ucShoppingCart->ExtContactCall(isForPrinting);
    });
}

void frmCatalog::ConnectPrinting()
{
    connect(menus->mPrint, &QAction::triggered, this, &frmCatalog::Print);
    connect(pagePrinter, &PagePrinter::Finished, this, [](PrintEnd end) {
        if (end != PrintEnd::Printed)
            throw PrintError(end);
    });
}

void frmCatalog::ConnectKeys()
{
    connect(menus->mBack, &QAction::triggered, this, &frmCatalog::GoBack);
    connect(menus->mHome, &QAction::triggered, this, &frmCatalog::GoHome);
    connect(menus->mFastSearch, &QAction::triggered, this, [this] {
        header->tbFastSearchText->setFocus(Qt::ShortcutFocusReason);
        header->tbFastSearchText->selectAll();
    });
    connect(menus->mPreviousProduct, &QAction::triggered, scroller, &ItemScroller::PressPrevious);
    connect(menus->mNextProduct, &QAction::triggered, scroller, &ItemScroller::PressNext);

    const auto *const keys = new WindowKeys(this);
    connect(keys, &WindowKeys::Back, this, &frmCatalog::GoBack);
    connect(keys, &WindowKeys::ShowTab, this, [this](int position) {
        if (position == CartTab && position == tabMain->currentIndex())
            ucShoppingCart->Initialize();
        tabMain->setCurrentIndex(position);
        tabMain->currentWidget()->setFocus(Qt::ShortcutFocusReason);
    });
}

void frmCatalog::ConnectZoom()
{
    auto *const zoom = new PageZoom({wbMain, ucShoppingCart->Browser()}, this);
    connect(menus->mZoomIn, &QAction::triggered, zoom, &PageZoom::In);
    connect(menus->mZoomOut, &QAction::triggered, zoom, &PageZoom::Out);
    connect(menus->mZoomReset, &QAction::triggered, zoom, &PageZoom::Reset);
    connect(zoom, &PageZoom::PercentChanged, this, [this](int percent) {
        lblZoom->setText(QStringLiteral("%1 %").arg(percent));
        lblZoom->setVisible(percent != PageZoom::OwnSize);
    });
}

QString frmCatalog::Load()
{
    controller.InitApplication();
    ApplyGuiTexts();
    MarkCurrentLanguage();
    QString priceListMessage = controller.Prices().LoadPriceListAtStart();
    GoHome();
    wbMain->setFocus();
    return priceListMessage;
}

void frmCatalog::ApplyGuiTexts()
{
    const LanguageSupport &languages = controller.Languages();
    desktopTexts.UseLanguage(languages.CurrentCode());
    setWindowTitle(ProgramInfo::Title + QLatin1String(" | Version ") +
                   ReadCatalogueVersion(controller.ApplicationDirectory()));
    menus->ApplyGuiTexts(languages);
    header->ApplyGuiTexts(languages, controller.GetUnit());
    ApplyCaptions(controller);
    FillCategoryTree();
    ucNavLeft->Initialize(tree);
    scroller->Initialize();
    scroller->DisableScroller();
    ucSearchDetail->Initialize();
    ucShoppingCart->InitGui();
    RefreshCart();
    if (const CategoryNode *const node = CurrentNode()) {
        // The page has crumbs of its own, which may lead to another place than the category.
        SetStatusText(node->FullPath());
        place->RelabelCrumbsOfPage(tree);
    } else {
        SetStatusText(QString());
        SetBreadcrumb({});
    }
    ReloadPage();
}

/// The pane shows the cart anew whenever its tab becomes current. Until then nobody sees it, and
/// the page in front is the first to have the engine.
void frmCatalog::RefreshCart()
{
    if (tabMain->currentIndex() == CartTab)
        ucShoppingCart->Initialize();
}

void frmCatalog::FillCategoryTree()
{
    tree.Fill(controller.Queries().QueryCategories());
    TreeViewCategories->Show(tree);
}

void frmCatalog::ReloadPage()
{
    if (protocol->CurrentUrl().isEmpty())
        return;
    wbMain->Navigate(
        PageAddress::InLanguage(protocol->CurrentUrl(), controller.Languages().CurrentCode()));
}

void frmCatalog::GoHome()
{
    protocol->SetCurrentUrl(controller.GetWelcomeDocumentUrl());
    wbMain->Navigate(protocol->CurrentUrl());
    SelectTab(ProductsTab);
    SetStatusText(QString());
    SetBreadcrumb({});
}

void frmCatalog::MarkCurrentLanguage()
{
    header->MarkCurrentLanguage(controller.Languages().GetLanguageIndex());
    menus->MarkCurrentLanguage(controller.Languages().GetLanguageIndex());
}

void frmCatalog::TreeViewCategories_NodeClick(const CategoryNode *node)
{
    pointer.SetHourglass();
    ShowContent((node->HasChildren() ? CategoryAddress : ListAddress) + node->tag);
    SelectCategory(node);
}

const CategoryNode *frmCatalog::CurrentNode() const
{
    return selection->Current();
}

void frmCatalog::SelectCategory(const CategoryNode *node)
{
    if (node != nullptr) {
        selection->Select(*node);
        SetStatusText(node->FullPath());
    } else {
        selection->Clear();
        SetStatusText(QString());
    }
}

void frmCatalog::OpenContent(const QString &tail)
{
    wbMain->Navigate(controller.GetContentBaseUrl() + QLatin1String("/content/") + tail);
}

void frmCatalog::ShowContent(const QString &tail)
{
    OpenContent(tail);
    SelectTab(ProductsTab);
}

void frmCatalog::SelectNavEntry(const QString &id)
{
    pointer.SetHourglass();
    if (id == SearchDetailTag) {
        ShowSearchForm();
        pointer.SetDefault();
        return;
    }
    for (const auto &node : tree.Nodes()) {
        if (node->tag == id)
            TreeViewCategories_NodeClick(node.get());
    }
    SelectTab(ProductsTab);
}

void frmCatalog::ShowSearchForm()
{
    SelectTab(SearchTab);
    place->TellOfOther({HomeCrumb, {SearchCrumbCaption, QString()}}, SearchDetailTag);
    ucSearchDetail->setFocus();
}

void frmCatalog::SelectCrumb(const QString &link)
{
    const QString id = link.mid(link.lastIndexOf(u'=') + 1);
    if (link.contains(HomeCrumb.link))
        GoHome();
    else if (link.contains(QLatin1String("category_list.html")))
        ShowContent(CategoryAddress + id);
    else if (link.contains(QLatin1String("product_list.html")))
        ShowContent(ListAddress + id);
}

void frmCatalog::ShowItem(qint16 index)
{
    if (index >= 1 && index <= protocol->ProductRows().UpperRow())
        ShowContent(DetailsAddress + protocol->ProductRows().Text(index, 0));
}

void frmCatalog::ShowStandaloneDetails(const QString &id)
{
    protocol->SetProductRows(controller.Queries().QueryProduct(id));
    OpenContent(DetailsAddress + id);
    tabMain->setCurrentIndex(ProductsTab);
    protocol->SetStandaloneDetails(true);
}

void frmCatalog::ShowSearchResults(const ResultTable &rows)
{
    protocol->SetSearchRows(rows);
    SelectCategory(nullptr);
    ShowContent(ListAddress);
    wbMain->setFocus();
}

void frmCatalog::GoBack()
{
    // A page that could not be shown is no entry: the newest one is the page before it. One that
    // failed later is.
    if (tabMain->currentIndex() == ProductsTab && wbMain->Address().isEmpty() &&
        !history.Newest().isEmpty() && history.Newest() != SearchDetailEntry &&
        history.Newest() != wbMain->FailedAddress()) {
        protocol->PrepareReturn(history.Newest());
        wbMain->Navigate(history.Newest());
        return;
    }
    if (!history.HasMoreEntries())
        return;
    // Results with the address that going back reached last are not recorded behind their form: the
    // form is then the newest entry, and is itself the step back.
    const bool isFormNewest =
        history.Newest() == SearchDetailEntry && tabMain->currentIndex() == ProductsTab;
    const QString entry = isFormNewest ? SearchDetailEntry : history.PopEntry();
    if (entry == SearchDetailEntry) {
        ucSearchDetail->Initialize();
        ShowSearchForm();
    } else {
        protocol->PrepareReturn(entry);
        SelectTab(ProductsTab);
        wbMain->Navigate(entry);
    }
}

void frmCatalog::SetBreadcrumb(const QList<Crumb> &pairs)
{
    place->SetCrumbsOfPage(QList<Crumb>{HomeCrumb} + pairs);
}

void frmCatalog::SetStatusText(const QString &text)
{
    lblStatus->setText(text.isEmpty() ? controller.GetText(QStringLiteral("defaultStatusBar"))
                                      : text);
}

void frmCatalog::SelectTab(Tab tab)
{
    tabMain->setTabEnabled(tab, true);
    tabMain->setCurrentIndex(tab);
}

void frmCatalog::SelectLanguage(int index)
{
    controller.Languages().SetLanguage(static_cast<qint16>(index));
    ApplyGuiTexts();
    MarkCurrentLanguage();
}

void frmCatalog::SelectUnit(int index)
{
    controller.SetUnit(index != 0 ? 1 : 0);
    ApplyGuiTexts();
}

void frmCatalog::ShowCartTab()
{
    tabMain->setCurrentIndex(CartTab);
}

void frmCatalog::PrintCart()
{
    ShowCartTab();
    ucShoppingCart->OnPrint();
}

void frmCatalog::ManualAddToCart()
{
    ShowCartTab();
    ucShoppingCart->OnManualAdd();
}

/// The page that the user sees, or saw last where the tab shows none.
void frmCatalog::Print()
{
    if (tabMain->currentIndex() == CartTab)
        PrintCart();
    else
        pagePrinter->Print(protocol->PageName());
}

void frmCatalog::closeEvent(QCloseEvent *event)
{
    event->setAccepted(menuCommands->IsExitConfirmed());
}

} // namespace Tesk
