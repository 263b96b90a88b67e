#pragma once

#include "support/CatalogueWindow.h"

#include <QDir>
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
    void DataSheet();
    void Set();
    void Inch();
    void AddToCart();
    void OtherLanguages();
    void Search();
    void ShowCategoryTree();

    void Check(bool isRight, const QString &what);
    /// Whether the page's element shows the text.
    bool Shows(const QString &elementId, const QString &text);
    /// Whether a fifth of the browser is white: a data sheet's paper.
    bool IsPaperShown();
    void SavePicture(const QString &step);
    void SavePicture(const QString &step, QWidget *picture);
    /// Selects the category of this title path in the tree, as the user would.
    void SelectCategory(const QStringList &titles);

    CatalogueWindow catalogue;
    QDir pictureFolder;
    int pictureCount = 0;
    QStringList failures;
};

} // namespace Tesk
