#include "sources/ProgramNeeds.h"

namespace Tesk::ProgramNeeds {

namespace {

// clang-format off
constexpr char TextKeyWords[] = R"(
    btn_cancel btn_print btn_send categorySelectionDescription commonAddress commonButtonCancel
    commonButtonOK commonOr defaultStatusBar disclaimer fastSearchSubmit fastSearchType0
    fastSearchType1 fastSearchType2 mBack mContact mExit mExitConfirm mExtra mFile mHelp mInfo
    mLanguage mLanguageSelect0 mLanguageSelect1 mLanguageSelect2 mLanguageSelect3
    mLanguageSelect4 mLoadPriceList mSettings mShoppingCartAdd mShoppingCartDelete
    mShoppingCartDeleteConfirm mShoppingCartItemDelete mShoppingCartItemDeleteConfirm
    mShoppingCartLoad mShoppingCartPrint mShoppingCartSave mShoppingCartSendOrder
    mShoppingCartSendRequest productListAddToShoppingCart productListAmount
    productListCaptionDescription productListCaptionForm productListCaptionNr
    productListCaptionPrice productListCaptionUnit productListIsNotStoreProduct
    productListIsStoreProduct productListNoProducts productListSearchHeadline searchDetail
    searchHeadline tabControlCategorySelect tabControlMain tabControlSearchDetail
    tabControlShoppingCart ucCategoriesCaption ucContactCaption_Contact
    ucContactCaption_ContactOver ucContactCaption_ContactOver_0 ucContactCaption_ContactOver_1
    ucContactCaption_ContactOver_2 ucContactCaption_Notes ucContactCaption_Order
    ucContactCaption_PON ucContactCaption_Request ucContactCaption_RequestedInfo
    ucContactCaption_RequestedInfo_0 ucContactCaption_RequestedInfo_1
    ucContactCaption_RequestedInfo_10 ucContactCaption_RequestedInfo_11
    ucContactCaption_RequestedInfo_12 ucContactCaption_RequestedInfo_2
    ucContactCaption_RequestedInfo_3 ucContactCaption_RequestedInfo_4
    ucContactCaption_RequestedInfo_5 ucContactCaption_RequestedInfo_6
    ucContactCaption_RequestedInfo_7 ucContactCaption_RequestedInfo_8
    ucContactCaption_RequestedInfo_9 ucContactCountry ucContactCustomerId ucContactEmail
    ucContactFax ucContactHint ucContactHintRecommended ucContactInstName ucContactInstType
    ucContactInstType_0 ucContactInstType_1 ucContactInstType_2 ucContactInstType_3
    ucContactMobile ucContactPersonName ucContactPhone ucContactPostalCodeCity ucContactStreet
    ucContactTitle_0 ucContactTitle_1 ucContactUrl ucInfosCaption ucSearchDetailAllCompanies
    ucSearchDetailArtNr ucSearchDetailAuthor ucSearchDetailCompany ucSearchDetailCompanyArtNr
    ucSearchDetailCompetition ucSearchDetailDescription ucSearchDetailExamples
    ucSearchDetailHeadline ucSearchDetailProductLength ucSearchDetailSubmit ucSearchDetailUnit
    ucShoppingCartAddSuccess1 ucShoppingCartAddSuccess2 ucShoppingCartAmountCaption
    ucShoppingCartAmountErrorLabel ucShoppingCartAmountLabel ucShoppingCartManualAmount
    ucShoppingCartManualAmountError ucShoppingCartManualArtNrCompetition
    ucShoppingCartManualArtNrTesk ucShoppingCartManualArtNrTeskError ucShoppingCartManualCaption
    ucShoppingCartManualCatId ucShoppingCartManualNoArtNrError ucShoppingCartNoEntries
    ucWelcomeCaption ucWelcomeText unitSelection0 unitSelection1
)";
// clang-format on

constexpr char QuotedTextKeyWords[] = R"(
    mShoppingCartItemDelete mShoppingCartItemDeleteConfirm productListAddToShoppingCart
    productListIsNotStoreProduct productListIsStoreProduct ucShoppingCartManualAmountError
)";

constexpr char PageImageWords[] = R"(
    blank.gif btnDelete.gif contIconAbLager.gif contIconNichtAbLager.gif contIconPrev.gif
    contWarenkorb.gif goFastBefore.gif goFastNext.gif goToBefore.gif goToNext.gif help.gif
    navPointer.gif pdf_icon.gif tlogo.gif
)";

QStringList Words(const char *text)
{
    return QString::fromLatin1(text).simplified().split(QLatin1Char(' '));
}

} // namespace

const QStringList &LanguageCodes()
{
    static const QStringList codes = Words("ge en fr sp it");
    return codes;
}

const QStringList &TextKeys()
{
    static const QStringList keys = Words(TextKeyWords);
    return keys;
}

const QStringList &QuotedTextKeys()
{
    static const QStringList keys = Words(QuotedTextKeyWords);
    return keys;
}

const QList<Page> &Pages()
{
    static const QList<Page> pages{
        {QStringLiteral("category_list.html"),
         Words("printHeader printFooter caption list contextMenu")},
        {QStringLiteral("order_form.html"), Words("printHeader printFooter caption summary list")},
        {QStringLiteral("product_details.html"),
         Words("printHeader printFooter productTitle productDetails imagesTable productImages list "
               "contextMenu")},
        {QStringLiteral("product_list.html"),
         Words("printHeader printFooter caption list contextMenu")},
        {QStringLiteral("shopping_cart.html"), Words("printHeader printFooter caption list")},
        {QStringLiteral("welcome.html"),
         Words("captionHead captionLeft captionRight text infos list")},
    };
    return pages;
}

const QStringList &PageImages()
{
    static const QStringList images = Words(PageImageWords);
    return images;
}

const QList<Table> &Tables()
{
    static const QList<Table> tables{
        {QStringLiteral("categories"),
         Words("ID TREE_ID parent title_ge title_en title_fr title_sp title_it firstLevelId "
               "catLevel2 catLevel3 catLevel4 catLevel5")},
        {QStringLiteral("products_global"),
         Words("ID artNr isSet length sCm sInch availability filePath groupId helpId img1 "
               "img1Scale img2 img2Scale img3 img3Scale")},
        {QStringLiteral("products_localized"), Words("ID lang name form")},
        {QStringLiteral("products2categories"), Words("prodID catID")},
        {QStringLiteral("products2sets"), Words("iSetID iProdGlobId iAmount iOrder")},
        {QStringLiteral("reference_numbers"), Words("ID sRefNo sUnternehmen")},
    };
    return tables;
}

const QStringList &Competitors()
{
    static const QStringList competitors = Words("Varnholt Dorvik Salvora");
    return competitors;
}

} // namespace Tesk::ProgramNeeds
