#pragma once

#include "TourNotes.h"
#include "support/CatalogueWindow.h"

#include <QSize>
#include <QStringList>

namespace Tesk {

/// One way through the program's main job. Each step acts with mouse and keyboard, checks what the
/// window shows then, and saves a picture.
class Tour final
{
public:
    /// Pictures go to `pictureFolder` as NN-step.png.
    Tour(const QString &applicationDirectory, const QString &pictureFolder, QSize windowSize);

    /// Takes all steps; the result is what was wrong, empty when all was as it should be.
    QStringList Take();

private:
    void Welcome();
    void Category();
    void ProductList();
    void SecondPage();
    void Details();
    void Scroller();
    void DataSheet();
    void Set();
    void SetMembers();
    void Inch();
    void AddToCart();
    void OtherLanguages();
    void ShowCategoryTree();
    /// Searches in the language of this index, and goes back each step of the way.
    void WayBack(int language);
    void FastSearchAndBack();
    void DetailSearchAndBack();

    void Check(bool isRight, const QString &what);
    /// Whether the page's element shows the text.
    bool Shows(const QString &elementId, const QString &text);
    bool ShowsSearchResults();
    /// Opens the first of the results, and goes back to them.
    void OpenResultAndGoBack();
    /// Presses a button of the item scroller; the result is false when it is switched off.
    bool Press(const QString &scrollerButton);
    /// Presses a button that must lead to the details of this row of `rows`.
    void StepTo(const QString &scrollerButton, const ResultTable &rows, int row);
    /// Presses the button that leads back; the page must be filled that contains this in its
    /// address.
    void GoBackTo(const QString &addressPart);
    /// Whether a fifth of the browser is white: a data sheet's paper.
    bool IsPaperShown();
    void SavePicture(const QString &step);
    void SavePicture(const QString &step, QWidget *picture);
    /// Selects the category of this title path in the tree, as the user would.
    void SelectCategory(const QStringList &titles);

    CatalogueWindow catalogue;
    TourNotes notes;
};

} // namespace Tesk
