#pragma once

#include "TourNotes.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"

#include <QSize>
#include <QStringList>
#include <QTemporaryDir>

namespace Tesk {

/// The way from the empty cart to the order on paper, in one language. Each step acts with mouse
/// and keyboard, checks what the window shows then, and saves a picture.
class OrderTour final
{
public:
    /// `language` as in CatalogueWindow; pictures begin with `prefix`.
    OrderTour(const QString &applicationDirectory, const QString &pictureFolder, QSize windowSize,
              const QString &language, const QString &prefix);

    /// Takes all steps; the result is what was wrong, empty when all was as it should be.
    QStringList Take();

private:
    void EmptyCart();
    void AddArticles();
    void EditLines();
    void Prices();
    void Request();
    void Order();
    void Contact();
    void LongOrderOnPaper();
    void About();

    void FillForm(QWidget *dialog);
    QString Text(const char *key);
    void SavePicture(const QString &step);

    QString applicationDirectory;
    CatalogueWindow catalogue;
    CartTab cart;
    TourNotes notes;
    QTemporaryDir folder;
};

} // namespace Tesk
