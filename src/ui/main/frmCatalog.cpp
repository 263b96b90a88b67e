#include "ui/main/frmCatalog.h"

#include "base/CodePage.h"
#include "base/Errors.h"
#include "browser/WebBrowser.h"
#include "core/Controller.h"
#include "core/FileDialog.h"
#include "search/SearchDetail.h"
#include "ui/main/CartRequest.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/FastSearch.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/MainMenu.h"
#include "ui/main/PageAddress.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/Colours.h"
#include "ui/main/controls/ItemScroller.h"
#include "ui/main/controls/NavLeft.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace Tesk {

namespace {

const QLatin1String WindowTitle{"Tesk Instruments Catalog"};
const QLatin1String PriceListFilter{"Tesk Price List (*.txt)|*.txt"};
const quint32 PathAndFileMustExist = 0x1800;
const QLatin1String SettingsMessage{"not implemented yet... coming soon."};

const QLatin1String CategoryPage{"category_list.html?id="};
const QLatin1String ListPage{"product_list.html?firstItem=1&id="};
const QLatin1String DetailsPage{"product_details.html?id="};

const Crumb HomeCrumb{QStringLiteral("tesk-shop"), QStringLiteral("default.html")};
const QString SearchCrumbCaption = QStringLiteral("Detailsuche");
const QLatin1String SearchDetailTag{"searchDetail"};
/// Stands in the history for the search form, which is no page.
const QString SearchDetailEntry = QStringLiteral("SearchDetail");

constexpr QSize PreferredSize{1280, 800}; // pixels
/// About what a desktop's window frame adds.
constexpr QSize FrameSize{8, 36};    // pixels
constexpr QSize LeastSize{800, 560}; // pixels
constexpr int LineHeight = 2;        // pixels

/// Flat tabs with the leading colour at the current one's edge, in the desktop's own text colours.
QString TabStyle()
{
    return QStringLiteral("QTabWidget::tab-bar { left: 12px; }"
                          "QTabBar::tab { padding: 7px 14px; border: 0;"
                          " border-top: 2px solid transparent; }"
                          "QTabBar::tab:selected { border-top-color: %1;"
                          " background: palette(base); }"
                          "QTabBar::tab:hover:!selected { background: palette(midlight); }"
                          "QTabBar::tab:focus { text-decoration: underline; }")
        .arg(Colours::Band.name());
}

} // namespace

frmCatalog::frmCatalog(Controller &controller, QWebEngineProfile *profile)
    : controller(controller)
    , builder(controller)
{
    setWindowTitle(WindowTitle);
    menus = new MainMenu(menuBar());
    BuildLayout(profile);
    protocol = std::make_unique<PageProtocol>(PageProtocol::Parts{
        controller, builder, tree, history, *wbMain, *this, pointer, *scroller});
    cartRequest = new CartRequest(controller, this);
    fastSearch = new FastSearch(controller.Queries(), *header, pointer);
    ConnectControls();
    ConnectNavigation();
    setMinimumSize(LeastSize);
    resize(PreferredSize.boundedTo(screen()->availableSize() - FrameSize));
}

frmCatalog::~frmCatalog() = default;

void frmCatalog::BuildLayout(QWebEngineProfile *profile)
{
    auto *const ground = new QWidget(this);
    auto *const rows = new QVBoxLayout(ground);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);

    header = new HeaderBand(ground);
    rows->addWidget(header);

    auto *const line = new QFrame(ground);
    line->setObjectName(QStringLiteral("Line1"));
    line->setFixedHeight(LineHeight);
    line->setAutoFillBackground(true);
    line->setPalette(QPalette(Colours::Band));
    rows->addWidget(line);

    const auto getText = [this](const QString &key) { return controller.GetText(key); };
    auto *const columns = new QHBoxLayout;
    columns->setSpacing(0);
    ucNavLeft = new NavLeft(getText, ground);
    ucNavLeft->setObjectName(QStringLiteral("ucNavLeft"));
    columns->addWidget(ucNavLeft);
    auto *const pageColumn = new QVBoxLayout;
    pageColumn->setSpacing(0);
    columns->addLayout(pageColumn, 1);
    rows->addLayout(columns, 1);

    auto *const band = new QHBoxLayout;
    band->setSpacing(0);
    ucBreadcrumb = new Breadcrumb(ground);
    ucBreadcrumb->setObjectName(QStringLiteral("ucBreadcrumb"));
    scroller = new ItemScroller(getText, ground);
    scroller->setObjectName(QStringLiteral("scroller"));
    band->addWidget(ucBreadcrumb, 1);
    band->addWidget(scroller);
    pageColumn->addLayout(band);

    tabMain = new QTabWidget(ground);
    tabMain->setObjectName(QStringLiteral("tabMain"));
    tabMain->setDocumentMode(true);
    tabMain->setStyleSheet(TabStyle());
    wbMain = new WebBrowser(profile, tabMain);
    wbMain->setObjectName(QStringLiteral("wbMain"));
    tabMain->addTab(wbMain, QStringLiteral("Produkte"));
    tabMain->addTab(BuildCategoriesTab(), QStringLiteral("Kategorien"));
    tabMain->addTab(new QWidget(tabMain), QStringLiteral("Warenkorb"));
    ucSearchDetail = new SearchDetail(controller.Queries(), controller.Languages(), tabMain);
    ucSearchDetail->setObjectName(QStringLiteral("ucSearchDetail"));
    tabMain->addTab(ucSearchDetail, QStringLiteral("Detailsuche"));
    // Nothing can be shown there yet.
    tabMain->setTabEnabled(CartTab, false);
    menus->mContact->setEnabled(false);
    menus->mInfo->setEnabled(false);
    pageColumn->addWidget(tabMain, 1);
    setCentralWidget(ground);

    // A message of the bar itself would go as soon as the pointer passes over a menu.
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("StatusBar"));
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(lblStatus, 1);
}

QWidget *frmCatalog::BuildCategoriesTab()
{
    auto *const page = new QWidget(tabMain);
    auto *const rows = new QVBoxLayout(page);
    rows->setContentsMargins(24, 16, 24, 16);
    rows->setSpacing(8);
    lblCategorySelection = new QLabel(page);
    lblCategorySelection->setWordWrap(true);
    TreeViewCategories = new CategoryTreeView(page);
    TreeViewCategories->setObjectName(QStringLiteral("TreeViewCategories"));
    lblCategorySelection->setBuddy(TreeViewCategories);
    rows->addWidget(lblCategorySelection);
    rows->addWidget(TreeViewCategories, 1);
    return page;
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
    connect(menus->mLoadPriceList, &QAction::triggered, this, &frmCatalog::AskAndLoadPriceList);
    connect(menus->mExit, &QAction::triggered, this, &frmCatalog::AskAndExit);
    connect(menus->mSettings, &QAction::triggered, this, [this] {
        QMessageBox(QMessageBox::Information, QString(), SettingsMessage, QMessageBox::Ok, this)
            .exec();
    });
}

void frmCatalog::ConnectNavigation()
{
    connect(ucNavLeft, &NavLeft::OnCategorySelect, this, &frmCatalog::SelectNavEntry);
    connect(ucBreadcrumb, &Breadcrumb::OnCrumbSelect, this, &frmCatalog::SelectCrumb);
    connect(scroller, &ItemScroller::OnIndexChange, this, &frmCatalog::ShowItem);
    connect(scroller, &ItemScroller::OnHistoryBack, this, &frmCatalog::GoBack);
    connect(protocol.get(), &PageProtocol::WelcomePageFilled, this,
            [this] { ucNavLeft->selectSubCategory(QString()); });
    connect(fastSearch, &FastSearch::NewResults, this, &frmCatalog::ShowSearchResults);
    connect(ucSearchDetail, &SearchDetail::OnNewSearchResults, this,
            [this](const ResultTable &rows) {
                history.PushEntry(SearchDetailEntry);
                ShowSearchResults(rows);
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
    setWindowTitle(WindowTitle + QLatin1String(" | Version ") + ReadVersion());
    menus->ApplyGuiTexts(languages);
    header->ApplyGuiTexts(languages, controller.GetUnit());
    tabMain->setTabText(ProductsTab, languages.GetText(QStringLiteral("tabControlMain")));
    tabMain->setTabText(CategoriesTab,
                        languages.GetText(QStringLiteral("tabControlCategorySelect")));
    tabMain->setTabText(CartTab, languages.GetText(QStringLiteral("tabControlShoppingCart")));
    tabMain->setTabText(SearchTab, languages.GetText(QStringLiteral("tabControlSearchDetail")));
    lblCategorySelection->setText(
        languages.GetText(QStringLiteral("categorySelectionDescription")));
    TreeViewCategories->setAccessibleName(tabMain->tabText(CategoriesTab));
    wbMain->setAccessibleName(tabMain->tabText(ProductsTab));
    FillCategoryTree();
    ucNavLeft->Initialize(tree);
    scroller->Initialize();
    scroller->DisableScroller();
    ucSearchDetail->Initialize();
    if (currentNode == nullptr) {
        SetStatusText(QString());
        SetBreadcrumb({});
    } else {
        SetStatusText(currentNode->FullPath());
    }
    ReloadPage();
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
    if (const CategoryNode *const entry = node->SecondLevelAncestor())
        ucNavLeft->selectSubCategory(entry->tag);
    pointer.SetHourglass();
    OpenContent((node->HasChildren() ? CategoryPage : ListPage) + node->tag);
    SelectTab(ProductsTab);
    if (currentNode != nullptr) {
        TreeViewCategories->SetBold(currentNode, false);
        TreeViewCategories->CollapseNodePath(currentNode);
    }
    TreeViewCategories->SetBold(node, true);
    currentNode = node;
    TreeViewCategories->ExpandNodePath(node);
    TreeViewCategories->SetCurrent(node);
    SetStatusText(node->FullPath());
}

void frmCatalog::OpenContent(const QString &tail)
{
    wbMain->Navigate(controller.GetContentBaseUrl() + QLatin1String("/content/") + tail);
}

void frmCatalog::SelectNavEntry(const QString &id)
{
    pointer.SetHourglass();
    if (id == SearchDetailTag) {
        SelectTab(SearchTab);
        SetBreadcrumb({{SearchCrumbCaption, QString()}});
        pointer.SetDefault();
        return;
    }
    for (const auto &node : tree.Nodes()) {
        if (node->tag == id)
            TreeViewCategories_NodeClick(node.get());
    }
    SelectTab(ProductsTab);
}

void frmCatalog::SelectCrumb(const QString &link)
{
    const QString id = link.mid(link.lastIndexOf(u'=') + 1);
    if (link.contains(HomeCrumb.link))
        GoHome();
    else if (link.contains(QLatin1String("category_list.html")))
        OpenContent(CategoryPage + id);
    else if (link.contains(QLatin1String("product_list.html")))
        OpenContent(ListPage + id);
}

void frmCatalog::ShowItem(qint16 index)
{
    if (index >= 1 && index <= protocol->ProductRows().UpperRow())
        OpenContent(DetailsPage + protocol->ProductRows().Text(index, 0));
}

void frmCatalog::ShowStandaloneDetails(const QString &id)
{
    protocol->SetProductRows(controller.Queries().QueryProduct(id));
    OpenContent(DetailsPage + id);
    tabMain->setCurrentIndex(ProductsTab);
    protocol->SetStandaloneDetails(true);
}

void frmCatalog::ShowSearchResults(const ResultTable &rows)
{
    protocol->SetProductRows(rows);
    if (currentNode != nullptr)
        TreeViewCategories->SetBold(currentNode, false);
    currentNode = nullptr;
    OpenContent(ListPage);
    SelectTab(ProductsTab);
}

void frmCatalog::GoBack()
{
    if (!history.HasMoreEntries())
        return;
    const QString entry = history.PopEntry();
    if (entry == SearchDetailEntry) {
        ucSearchDetail->Initialize();
        SelectTab(SearchTab);
    } else {
        SelectTab(ProductsTab);
        wbMain->Navigate(entry);
    }
}

void frmCatalog::SetBreadcrumb(const QList<Crumb> &pairs)
{
    ucBreadcrumb->SetList(QList<Crumb>{HomeCrumb} + pairs);
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

void frmCatalog::AskAndLoadPriceList()
{
    const QString path = FileDialog::ShowOpenDialog(PriceListFilter, PathAndFileMustExist, this);
    if (path.isEmpty())
        return;
    controller.Prices().LoadPriceList(path);
    ReloadPage();
}

bool frmCatalog::IsExitConfirmed()
{
    const QString question = controller.GetText(QStringLiteral("mExitConfirm"))
                                 .replace(QLatin1String("{nl}"), QLatin1String("\n"));
    QMessageBox box(QMessageBox::Question, QString(), question, QMessageBox::Yes | QMessageBox::No,
                    this);
    return box.exec() != QMessageBox::No;
}

void frmCatalog::AskAndExit()
{
    if (IsExitConfirmed())
        controller.CloseDatabase();
    // Ends the event loop itself: closing the window would ask the same question again.
    QApplication::exit();
}

void frmCatalog::closeEvent(QCloseEvent *event)
{
    event->setAccepted(IsExitConfirmed());
}

QString frmCatalog::ReadVersion() const
{
    QFile file(controller.ApplicationDirectory() + QLatin1String("/version"));
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(QStringLiteral("The file \"%1\" cannot be read: %2. Put back the file, one "
                                       "line with the catalogue's version.")
                            .arg(file.fileName(), file.errorString()));
    QByteArray line = file.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return CodePage::FromBytes(line);
}

} // namespace Tesk
