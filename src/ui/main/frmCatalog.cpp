#include "ui/main/frmCatalog.h"

#include "base/CodePage.h"
#include "base/Errors.h"
#include "browser/WebBrowser.h"
#include "core/Controller.h"
#include "core/FileDialog.h"
#include "ui/main/CartRequest.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"
#include "ui/main/MainMenu.h"
#include "ui/main/PageAddress.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/Palette.h"

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

constexpr QSize PreferredSize{1280, 800}; // pixels
constexpr QSize LeastSize{800, 560};      // pixels
constexpr int LineHeight = 2;             // pixels

} // namespace

frmCatalog::frmCatalog(Controller &controller, QWebEngineProfile *profile)
    : controller(controller)
    , builder(controller)
{
    setWindowTitle(WindowTitle);
    menus = new MainMenu(menuBar());
    BuildLayout(profile);
    protocol = std::make_unique<PageProtocol>(
        PageProtocol::Parts{controller, builder, tree, history, *wbMain, *this, pointer});
    cartRequest = new CartRequest(controller, this);
    ConnectControls();
    setMinimumSize(LeastSize);
    resize(PreferredSize.boundedTo(screen()->availableSize()));
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

    auto *const Line1 = new QFrame(ground);
    Line1->setFixedHeight(LineHeight);
    Line1->setAutoFillBackground(true);
    Line1->setPalette(QPalette(Palette::Red));
    rows->addWidget(Line1);

    tabMain = new QTabWidget(ground);
    tabMain->setObjectName(QStringLiteral("tabMain"));
    tabMain->setDocumentMode(true);
    wbMain = new WebBrowser(profile, tabMain);
    wbMain->setObjectName(QStringLiteral("wbMain"));
    tabMain->addTab(wbMain, QStringLiteral("Produkte"));
    tabMain->addTab(BuildCategoriesTab(), QStringLiteral("Kategorien"));
    tabMain->addTab(new QWidget(tabMain), QStringLiteral("Warenkorb"));
    tabMain->addTab(new QWidget(tabMain), QStringLiteral("Detailsuche"));
    rows->addWidget(tabMain, 1);
    setCentralWidget(ground);
    statusBar();
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

QString frmCatalog::Load()
{
    controller.InitApplication();
    ApplyGuiTexts();
    MarkCurrentLanguage();
    const QString priceListMessage = controller.Prices().LoadPriceListAtStart();
    GoHome();
    return priceListMessage;
}

void frmCatalog::ApplyGuiTexts()
{
    const LanguageSupport &languages = controller.Languages();
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
    SetStatusText(currentNode == nullptr ? QString() : currentNode->FullPath());
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
}

void frmCatalog::MarkCurrentLanguage()
{
    header->MarkCurrentLanguage(controller.Languages().GetLanguageIndex());
    menus->MarkCurrentLanguage(controller.Languages().GetLanguageIndex());
}

void frmCatalog::TreeViewCategories_NodeClick(const CategoryNode *node)
{
    pointer.SetHourglass();
    const QLatin1String page{node->HasChildren() ? "/content/category_list.html?id="
                                                 : "/content/product_list.html?firstItem=1&id="};
    wbMain->Navigate(controller.GetContentBaseUrl() + page + node->tag);
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

void frmCatalog::SetStatusText(const QString &text)
{
    statusBar()->showMessage(text.isEmpty() ? controller.GetText(QStringLiteral("defaultStatusBar"))
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
