#pragma once

#include "core/BreadcrumbUtil.h"

#include <QWidget>

#include <vector>

namespace Tesk {

class CrumbButton;

/// The way to the current page, as a row of clickable captions on a red band. Captions that do not
/// fit into the band's width are cut, the longest first.
class Breadcrumb final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int MaxCrumbs = 10; ///< the last position, from 0

    explicit Breadcrumb(QWidget *parent = nullptr);

    const QList<Crumb> &list() const { return crumbs; }
    /// Shows the crumbs. A list of more than 11 is stored, but what is shown stays.
    void SetList(const QList<Crumb> &newCrumbs);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A click on a caption; `link` is that of the crumb's row in the list.
    void OnCrumbSelect(const QString &link);

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void Place();
    int LargestCaptionWidth() const;

    QList<Crumb> crumbs;
    std::vector<CrumbButton *> lblCrumb;
    std::vector<int> arrowLefts; ///< of the shown crumbs, in twips
};

} // namespace Tesk
